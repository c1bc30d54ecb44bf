// Registration information and GRUU: documents in, trees, documents out.
#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

#include "DocumentSupport.h"
#include "ReginfoDecoder.h"
#include "TestSupport.h"
#include "XMLReginfo.h"
#include "XMLValueTypes.h"

namespace {

const char kHeader[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
const char kOpen[] =
    "\n<reginfo  xmlns=\"urn:ietf:params:xml:ns:reginfo\"  "
    "xmlns:gr=\"urn:ietf:params:xml:ns:gruuinfo\"  version=\"0\"  state=\"full\">";

// A document around one registration or one contact, as it is read and as it is written.
std::string InReginfo(const std::string& content) {
  return "<reginfo version=\"0\" state=\"full\">" + content + "</reginfo>";
}
std::string OutReginfo(const std::string& content) {
  return std::string(kHeader) + kOpen + content + "</reginfo>";
}
std::string InContact(const std::string& attributes, const std::string& content = "") {
  return InReginfo("<registration aor='a' id='r' state='active'><contact " + attributes + ">" +
                   content + "</contact></registration>");
}
std::string OutContact(const std::string& attributes, const std::string& content = "") {
  return OutReginfo("\n<registration  aor=\"a\"  id=\"r\"  state=\"active\">\n<contact  " +
                    attributes + ">" + content + "</contact></registration>");
}
const char kIn[] = "id='c' state='active' event='created'";
const char kOut[] = "state=\"active\"  event=\"created\"  id=\"c\"";

TEST(Reginfo, WritesWhatItReads) {
  const struct {
    std::string in;
    std::string out;
  } kCases[] = {
      {InReginfo(""), OutReginfo("")},
      {"<r:reginfo state='partial' version='7' xmlns='x'/>",
       "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<reginfo  "
       "xmlns=\"urn:ietf:params:xml:ns:reginfo\"  xmlns:gr=\"urn:ietf:params:xml:ns:gruuinfo\"  "
       "version=\"7\"  state=\"partial\"></reginfo>"},
      {InReginfo("<registration aor='a' state='init'/>"),  // an id that is absent comes out empty
       OutReginfo("\n<registration  aor=\"a\"  id=\"\"  state=\"init\"></registration>")},
      {InReginfo(
           "<registration aor='a' id='r' state='terminated'/><registration aor='b' state=''/>"),
       OutReginfo("\n<registration  aor=\"a\"  id=\"r\"  state=\"terminated\"></registration>"
                  "\n<registration  aor=\"b\"  id=\"\"  state=\"terminated\"></registration>")},
      {InContact("id='c' state='active' event='expired' expires='0' cseq=' 18446744073709551616x' "
                 "retry-after='-5' foo='x' q=''"),
       OutContact("state=\"active\"  event=\"expired\"  q=\"\"  "
                  "cseq=\"18446744073709551615\"  id=\"c\"")},
      {InContact(kIn,
                 "<gr:temp-gruu uri='t'/><pub-gruu uri='p' x='y'/><g:temp-gruu uri='s' "
                 "first-cseq='54301'></g:temp-gruu>"),
       OutContact(kOut,
                  "\n<gr:temp-gruu  first-cseq=\"0\"  uri=\"t\"/>\n<gr:pub-gruu  uri=\"p\"/>"
                  "\n<gr:temp-gruu  first-cseq=\"54301\"  uri=\"s\"/>")},
      // A GRUU without its uri is left as an open tag.
      {InContact(kIn, "<pub-gruu/>"), OutContact(kOut, "\n<gr:pub-gruu ")},
      {InContact(kIn, "<temp-gruu first-cseq='4'/>"),
       OutContact(kOut, "\n<gr:temp-gruu  first-cseq=\"4\" ")},
      // Unknown elements are skipped with all that is in them; text is what follows the last child.
      {InContact(kIn, "<x a='1'><uri>sip:evil</uri><contact/></x>"), OutContact(kOut)},
      {InContact(kIn, "<uri>a<b><uri>c</uri></b>d<!-- e -->f</uri>"),
       OutContact(kOut, "\n<uri>f</uri>")},
      {InContact(kIn, "<display-name id='evil' xml:lang='en'>D</display-name>"),
       OutContact(kOut, "\n<display-name>D</display-name>")},
      // Kept under a parent that does not know it, and never written.
      {InReginfo("<contact id='c'/><pub-gruu uri='p'/>"), OutReginfo("")},
  };
  Schema schema(XML_SCHEMA_REGINFO);
  for (const auto& test : kCases) {
    EXPECT_EQ(schema.RoundTrip(test.in), test.out) << test.in;
    const bool openTag = test.out.find(" </contact>") != std::string::npos;
    EXPECT_TRUE(openTag || schema.RoundTrip(test.out) == test.out) << test.out;
  }
}

TEST(Reginfo, ValuesOfEverySize) {
  Schema schema(XML_SCHEMA_REGINFO);
  for (std::size_t size = 0; size <= 40; ++size) {
    for (std::size_t quote = 0; quote <= size; ++quote) {  // the last one: none
      std::string value(size, 'v');
      std::string written = value;
      if (quote < size) value.replace(quote, 1, "\""), written.replace(quote, 1, "&quot;");
      EXPECT_EQ(schema.RoundTrip(InContact("id='" + value + "' state='active' event='created'")),
                OutContact("state=\"active\"  event=\"created\"  id=\"" + written + "\""));
    }
  }
  for (std::string digits = "1"; digits.size() < 20; digits += digits.size() % 3 ? '0' : '9') {
    EXPECT_EQ(
        schema.RoundTrip(InContact(std::string(kIn) + " expires='" + digits + "'")),
        OutContact("state=\"active\"  event=\"created\"  expires=\"" + digits + "\"  id=\"c\""));
  }
}

// The cut falls on every byte of a tag, of an element with text and of names with a prefix.
TEST(Reginfo, CutAnywhere) {
  const LogCapture log(4);
  Schema schema(XML_SCHEMA_REGINFO);
  constexpr std::size_t kMost = 32767;
  const std::string more = " q='1' callid='a\"b'";
  const std::string content = "<uri>sip:u@example.com</uri><gr:temp-gruu uri='t' first-cseq='7'/>";
  const std::string tail =
      OutContact("state=\"active\"  event=\"created\"  q=\"1\"  callid=\"a&quot;b\"  id=\"c\"",
                 "\n<uri>sip:u@example.com</uri>\n<gr:temp-gruu  first-cseq=\"7\"  uri=\"t\"/>");
  const std::size_t aor = tail.find("aor=\"a") + 5;
  for (std::size_t over = 0; over < tail.size() - aor + 2; ++over) {
    const std::string filler(kMost + over - tail.size(), 'f');
    std::string in = InContact(kIn + more, content);
    in.insert(in.find("aor='") + 5, filler);
    std::string whole = tail;
    whole.insert(aor, filler);
    ASSERT_EQ(schema.RoundTrip(in), whole.substr(0, kMost)) << over;
    ASSERT_EQ(log.Has("ZtXMLDocGenerator :: document cut at 32767 characters"), over != 0);
  }
}

TEST(Reginfo, RefusesWhatLacksSomethingRequired) {
  const struct {
    std::string in;
    const char* line;
    int level;
  } kCases[] = {
      {"<reginfo version='1'/>", "AddReginfoElementToXml state is required", 1},
      {"<reginfo state='ful'/>", "AddReginfoElementToXml state is required", 1},
      {InReginfo("<registration id='r' state='init'/>"),
       "AddRegistrationElementToXml aor is required", 4},
      {InReginfo("<registration aor='a' id='r'/>"), "AddRegistrationElementToXml state is required",
       1},
      {InContact("id='c' event='created'"), "AddReginfoContactElementToXml state is required", 1},
      {InContact("id='c' event='created' state='registered'"),
       "AddReginfoContactElementToXml state is required", 1},
      {InContact("id='c' event='init' state='active'"),
       "AddReginfoContactElementToXml event is required", 1},
      {InContact("event='created' state='active'"), "AddReginfoContactElementToXml id is required",
       4},
      {InContact(kIn, "<unknown-param>v</unknown-param>"),
       "AddUnknownParamElementToXml name is required", 4},
  };
  Schema schema(XML_SCHEMA_REGINFO);
  for (const auto& test : kCases) {
    auto root = schema.Read<zt_reginfo>(test.in);
    ASSERT_TRUE(root) << test.in;
    LogCapture log;
    EXPECT_EQ(schema.Write(root.get()), "(null)") << test.in;
    const auto lines = log.Lines();
    const std::string expected = std::string("<XML Module>: ") + test.line;
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&](const CapturedLine& line) {
      return line.text == expected && line.level == test.level && line.file == "src/XMLReginfo";
    })) << expected;
    EXPECT_EQ(lines.back().text, "<XML Module>: ReginfoMarshaller XML Failed!");
  }
}

TEST(Reginfo, ValuesPastTheirOwn) {
  Schema schema(XML_SCHEMA_REGINFO);
  auto root = schema.Read<zt_reginfo>(
      "<reginfo version='4294967296' state='partially'><registration state='activex'>"
      "<contact state='terminatedx' event='initial'><uri>sip:u</uri><uri>sip:v</uri></contact>"
      "<contact state='registered' event='created'/><contact state='none' event='none'/>"
      "</registration></reginfo>");
  EXPECT_EQ(root->getVersionValue(), 0xFFFFFFFFU);
  EXPECT_EQ(root->getStateValue(), ZT_REGINFO_STATE_PARTIAL);
  auto* registration = EntryOf<zt_registration>(root->getRegistrationListValue(), 0);
  EXPECT_EQ(registration->getStateValue(), ZT_REGISTRATION_STATE_ACTIVE);
  const unsigned kStates[] = {1, 2, 3};
  const unsigned kEvents[] = {9, 1, 10};
  for (unsigned short i = 0; i < 3; ++i) {
    auto* contact = EntryOf<zt_ns_reginfo_contact>(registration->getContactListValue(), i);
    EXPECT_EQ(contact->getStateValue(), kStates[i]);
    EXPECT_EQ(contact->getEventValue(), kEvents[i]);
    EXPECT_STREQ(contact->getUriValue(), i == 0 ? "sip:v" : nullptr);
  }
}

TEST(Reginfo, NullForWhatIsNoReginfo) {
  Schema schema(XML_SCHEMA_REGINFO);
  for (const char* text :
       {"<x><reginfo state='full'/></x>", "<Reginfo/>", "", "<registration aor='a'/>",
        "<reginfo state='full'>< /reginfo><//reginfo></reginfo>"}) {
    EXPECT_FALSE(schema.Read<zt_reginfo>(text)) << text;
  }
  // A second root replaces the first, whose elements may still be open.
  const std::string text =
      "<reginfo version='1'><registration aor='a'><reginfo version='2' state='full'><registration "
      "aor='b' state='init'/></reginfo><contact id='c'/></registration></reginfo>";
  auto root = schema.Read<zt_reginfo>(text);
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getVersionValue(), 2U);
  EXPECT_EQ(CountOf(root->getRegistrationListValue()), 1);
  ExpectWholeOrNothing(schema, text);
}

TEST(Reginfo, HooksAnswerAndLog) {
  zt_reginfo root;
  zt_registration reg;
  zt_ns_reginfo_contact device;
  zt_unknown_param unknown;
  zt_pub_gruu gruu;
  const std::string element = "::ProcessUnMarshall", attribute = element + "Attribute",
                    cannot = " Cannot accommodate the ";
  const struct {
    XMLElement& self;
    const char* name;  // attributes begin with an '@'
    XMLElement* child;
    int result;
    std::string line;  // empty: no line at all
  } kCases[] = {
      {root, nullptr, nullptr, 1, "zt_reginfo" + element + " n_strElement is NULL"},
      {root, "registration", nullptr, 0, "zt_reginfo" + element + ": n_Object is Null"},
      {root, "registration", &device, 0,
       "zt_reginfo" + element +
           ": pElementName is zt_ns_reginfo_contact while ClassName is zt_registration"},
      {root, "foo", nullptr, 1, "zt_reginfo" + element + cannot + "element foo"},
      {root, "@foo", nullptr, 0, "zt_reginfo" + attribute + cannot + "attribute foo"},
      {reg, "@state", nullptr, 1, ""},
      {device, "foo", nullptr, 1, cannot.substr(1) + "element foo"},
      {device, "/uri", &gruu, 0, ""},
      {device, "/uri", nullptr, 1, ""},
      {unknown, "/unknown-param", nullptr, 1, ""},
      {gruu, "@foo", nullptr, 0, "<XML Module>: Any attribute is not allowed in class zt_pub_gruu"},
  };
  for (const auto& test : kCases) {
    LogCapture log;
    std::string name = test.name ? test.name : "", value = "active";
    const int result = name[0] == '@'
                           ? test.self.ProcessUnMarshallAttribute(&name[1], value.data(), nullptr)
                           : test.self.ProcessUnMarshall(test.name ? name.data() : nullptr,
                                                         value.data(), test.child);
    EXPECT_EQ(result, test.result) << name << test.line;
    EXPECT_EQ(log.Texts(), std::vector<std::string>(test.line.empty() ? 0 : 1, test.line));
  }
  LogCapture log;
  EXPECT_EQ(reg.ProcessUnMarshallAttribute(nullptr, nullptr, nullptr), 1);
  EXPECT_TRUE(log.Has("zt_registration" + attribute + " n_strAttribute is NULL"));
  EXPECT_EQ(reg.getStateValue(), ZT_REGISTRATION_STATE_ACTIVE);
  EXPECT_STREQ(device.getUriValue(), "active");
  EXPECT_STREQ(unknown.getValueValue(), "active");
}

TEST(Reginfo, BuiltByHand) {
  Schema schema(XML_SCHEMA_REGINFO);
  auto* factory = static_cast<ReginfoDataBinder*>(schema.context()->createBinderFactory());
  Tree<zt_reginfo> root(static_cast<zt_reginfo*>(factory->CreateRootElement()));
  EXPECT_EQ(schema.Write(root.get()), "(null)");  // a fresh state is absent
  root->setStateValue(ZT_REGINFO_STATE_FULL);
  auto* registration = factory->CreateRegistrationElement();
  ASSERT_EQ(root->addRegistration(registration), 1);
  registration->setAorValue("sip:\"a\"");
  registration->setStateValue(ZT_REGISTRATION_STATE_INIT);
  auto* contact = factory->CreateContactElement();
  registration->addContact(contact);
  contact->setStateValue(ZT_CONTACT_STATE_ACTIVE);
  contact->setEventValue(ZT_CONTACT_EVENT_PROBATION);
  contact->setIdValue("c");
  auto* param = factory->CreateUnknownParamElement();
  param->setNameValue("n");
  contact->addUnknownParam(param);
  contact->addAnyElement(factory->CreateTempGruuElement());
  contact->addAnyElement(factory->CreateRegistrationElement());  // no writer for it here
  LogCapture log;
  EXPECT_EQ(
      schema.Write(root.get()),
      OutReginfo("\n<registration  aor=\"sip:&quot;a&quot;\"  id=\"\"  state=\"init\">\n<contact  "
                 "state=\"active\"  event=\"probation\"  id=\"c\">\n<unknown-param  name=\"n\"> "
                 "</unknown-param>\n<gr:temp-gruu  first-cseq=\"0\" </contact></registration>"));
  EXPECT_EQ(log.Count("cannot accommodate any element classname: zt_registration"), 1);
  // An object of another class in a list is not written.
  root->addRegistration(reinterpret_cast<zt_registration*>(
      static_cast<XMLElement*>(factory->CreateContactElement())));
  EXPECT_EQ(schema.Write(root.get()), "(null)");
}

TEST(Gruu, ReadAndWrittenAlone) {
  Schema schema(XML_SCHEMA_GRUU);
  const std::string header(kHeader);
  EXPECT_EQ(schema.RoundTrip("<gr:pub-gruu xmlns:gr='u' uri='a'/>"),
            header + "\n<pub-gruu  uri=\"a\"/>");
  EXPECT_EQ(schema.RoundTrip("<temp-gruu first-cseq='x' uri='a'>t</temp-gruu>"),
            header + "\n<temp-gruu  first-cseq=\"0\"  uri=\"a\"/>");
  EXPECT_EQ(schema.RoundTrip("<gruu uri='a'/>"), "(null)");
  LogCapture log;
  EXPECT_EQ(schema.RoundTrip("<temp-gruu first-cseq='1'/>"), "(null)");
  for (const char* line : {"<XML Module>: Xml Decoder Success",
                           "<XML Module>: GruuMarshaller :: Marshall: obj is pub-gruu",
                           "<XML Module>: AddTempGruuElementToXml: Uri is a mandatory attribute",
                           "<XML Module>: GruuMarshaller XML Failed at AddTempGruuElementToXml!"}) {
    EXPECT_TRUE(log.Has(line)) << line;
  }
  EXPECT_EQ(schema.RoundTrip("<pub-gruu>"), "(null)");
  EXPECT_TRUE(log.Has("<XML Module>: Xml Decoder failed because of some error in XML"));
}

TEST(Gruu, FactoryMakesTheTypeThatWasSet) {
  Schema schema(XML_SCHEMA_GRUU);
  auto* factory = static_cast<GruuDataBinder*>(schema.context()->createBinderFactory());
  const std::pair<const char*, const char*> kTypes[] = {{nullptr, nullptr},
                                                        {"", "zt_pub_gruu"},
                                                        {"pub", "zt_pub_gruu"},
                                                        {"temp-gruu", "zt_temp_gruu"},
                                                        {"pub-gruus", nullptr}};
  Tree<XMLObject> nested(factory->CreateNsPubGruuElement()),
      temp(factory->CreateNsTempGruuElement());
  EXPECT_EQ(nested->IsRootElement() + temp->IsRootElement(), 0);
  for (const auto& [type, className] : kTypes) {
    factory->setGruuType(type);
    Tree<XMLObject> root(factory->CreateRootElement());
    ASSERT_EQ(root != nullptr, className != nullptr) << (type ? type : "null");
    if (root) {
      EXPECT_STREQ(root->ClassName(), className);
      EXPECT_EQ(root->IsRootElement(), 1);
    }
  }
}

}  // namespace
