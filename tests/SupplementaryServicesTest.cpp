// The services one by one: what is read, what is written, and their namespaces.
#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "XMLCommunicationBarring.h"
#include "XMLCommunicationDiversion.h"
#include "XMLCommunicationWaiting.h"
#include "XMLOIP.h"
#include "XMLSchemaNameSpaceRetrieval.h"
#include "XMLTIP.h"
#include "XmlCommon.h"
#include "base/ZtMemory.h"

namespace {

const std::string kRule = "<cp:ruleset><cp:rule id='r'>";
const std::string kRuleEnd = "</cp:rule></cp:ruleset>";
const std::string kDiversion = "<ss:communication-diversion active='true'>";
const std::string kDiversionEnd = "</ss:communication-diversion>";
const std::string kRuleOut = "\n<cp:ruleset>\n<cp:rule  id=\"r\">";
const std::string kDiversionOut = "<ss:communication-diversion  active=\"true\">";

// What the one rule of a diversion holds, read and written.
std::string InRule(const std::string& content) {
  Schema schema(XML_SCHEMA_COMMUNICATION_DIVERSION);
  const std::string text =
      schema.RoundTrip(kDiversion + kRule + content + kRuleEnd + kDiversionEnd);
  const std::string start = kDiversionOut + kRuleOut, end = kRuleEnd + kDiversionEnd;
  if (text.size() < start.size() + end.size() || text.substr(0, start.size()) != start ||
      text.substr(text.size() - end.size()) != end) {
    return "not around a rule: " + text;
  }
  return text.substr(start.size(), text.size() - start.size() - end.size());
}

TEST(CommonPolicy, EveryCondition) {
  const struct {
    const char* in;
    const char* out;
  } kCases[] = {
      {"", ""},
      {"<ss:busy/>", "\n<ss:busy/>"},
      {"<not-registered/>", "\n<ss:not-registered/>"},
      {"<anonymous></anonymous>", "\n<ss:anonymous/>"},
      {"<no-answer a='b'>text</no-answer>", "\n<ss:no-answer/>"},
      {"<ss:rule-deactivated/>", "\n<ss:rule-deactivated/>"},
      {"<cp:not-reachable/>", "\n<ss:not-reachable/>"},
      {"<presence-status>away</presence-status>", "\n<ss:presence-status/>"},
      {"<communication-diverted/>", "\n<ss:communication-diverted/>"},
      {"<roaming/>", "\n<ss:roaming/>"},
      {"<international/><international-exHC/>", "\n<ss:international/>\n<ss:international-exHC/>"},
      {"<ss:media>audio</ss:media><media/>", "\n<ss:media>audio</ss:media>\n<ss:media></ss:media>"},
      {"<ocp:external-list><ocp:entry anc='http://a'/></ocp:external-list>", ""},
      {"<unknown><busy/></unknown><o:busy/>", ""},
      {"<cp:sphere x='y' value='home'>t</cp:sphere>", "\n<cp:sphere  value=\"home\"></cp:sphere>"},
      {"<busy/><cp:sphere value='s'/><cp:identity><cp:one id='i'/></cp:identity>",
       "\n<cp:identity>\n<cp:one  id=\"i\"/></cp:identity>\n<cp:sphere  "
       "value=\"s\"></cp:sphere>\n<ss:busy/>"},
      {"<cp:identity><cp:many domain='d' x='y'><cp:except domain='e'/><cp:except id='f'/>"
       "<cp:except id='g' domain='h'/><cp:except/><busy/></cp:many><cp:one id='i' x='y'><busy/>"
       "</cp:one><busy/></cp:identity>",
       "\n<cp:identity>\n<cp:one  id=\"i\"/>\n<cp:many  domain=\"d\">"
       "\n<cp:except  domain=\"e\"></cp:except>\n<cp:except  id=\"f\"></cp:except>"
       "\n<cp:except  domain=\"h\"  id=\"g\"></cp:except>\n<cp:except></cp:except>"
       "</cp:many></cp:identity>"},
      // A domain is what closes the tag.
      {"<cp:identity><cp:many><cp:except id='f'/></cp:many></cp:identity>",
       "\n<cp:identity>\n<cp:many \n<cp:except  id=\"f\"></cp:except></cp:many></cp:identity>"},
      {"<cp:validity><cp:from>1</cp:from><cp:until>2</cp:until><x/><cp:from/><until></until>"
       "</cp:validity>",
       "\n<cp:validity>\n<cp:from>1</cp:from>\n<cp:until>2</cp:until>\n<cp:from></cp:from>"
       "\n<cp:until></cp:until></cp:validity>"},
  };
  for (const auto& test : kCases) {
    EXPECT_EQ(InRule("<cp:conditions>" + std::string(test.in) + "</cp:conditions>"),
              "\n<cp:conditions>" + std::string(test.out) + "</cp:conditions>")
        << test.in;
  }
}

TEST(CommonPolicy, EveryAction) {
  const struct {
    const char* in;
    const char* diversion;
    const char* barring;
  } kCases[] = {
      {"", "", ""},
      {"<busy/><media>video</media>", "\n<ss:busy/>\n<ss:media>video</ss:media>",
       "\n<ss:busy/>\n<ss:media>video</ss:media>"},
      {"<allow>true</allow>", "", "\n<ss:allow>true</ss:allow>"},
      {"<ss:allow>1</ss:allow>", "", "\n<ss:allow>false</ss:allow>"},
      {"<ss:allow/>", "", "\n<ss:allow>false</ss:allow>"},
      {"<forward-to><target>sip:a@b;x=&amp;</target></forward-to>",
       "\n<ss:forward-to>\n<ss:target>sip:a@b;x=&amp;</ss:target></ss:forward-to>",
       "\n<ss:forward-to></ss:forward-to>"},
      {"<ss:forward-to><reveal-identity-to-target>true</reveal-identity-to-target>"
       "<notify-served-user-on-outbound-call>false</notify-served-user-on-outbound-call>"
       "<notify-served-user>true</notify-served-user><reveal-served-user-identity-to-caller>"
       "not-reveal-GRUU</reveal-served-user-identity-to-caller><reveal-identity-to-caller>false"
       "</reveal-identity-to-caller><notify-caller>true</notify-caller><x/></ss:forward-to>",
       "\n<ss:forward-to>\n<ss:notify-caller>true</ss:notify-caller>"
       "\n<ss:reveal-identity-to-caller>false</ss:reveal-identity-to-caller>"
       "\n<ss:reveal-served-user-identity-to-caller>not-reveal-GRUU"
       "</ss:reveal-served-user-identity-to-caller>"
       "\n<ss:notify-served-user>true</ss:notify-served-user>"
       "\n<ss:notify-served-user-on-outbound-call>false</ss:notify-served-user-on-outbound-call>"
       "\n<ss:reveal-identity-to-target>true</ss:reveal-identity-to-target></ss:forward-to>",
       "\n<ss:forward-to></ss:forward-to>"},
      {"<forward-to><notify-caller>true</notify-caller><notify-caller>yes</notify-caller>"
       "<notify-served-user>TRUE</notify-served-user><reveal-identity-to-caller>true-ish"
       "</reveal-identity-to-caller><reveal-identity-to-target>true</reveal-identity-to-target>"
       "<reveal-identity-to-target>TRUE</reveal-identity-to-target></forward-to>",
       "\n<ss:forward-to>\n<ss:notify-caller>true</ss:notify-caller>"
       "\n<ss:reveal-identity-to-caller>true</ss:reveal-identity-to-caller></ss:forward-to>",
       "\n<ss:forward-to></ss:forward-to>"},
  };
  Schema barring(XML_SCHEMA_COMMUNICATION_BARRING);
  for (const auto& test : kCases) {
    const std::string in = "<cp:actions>" + std::string(test.in) + "</cp:actions>";
    EXPECT_EQ(InRule(in), "\n<cp:actions>" + std::string(test.diversion) + "</cp:actions>") << in;
    EXPECT_EQ(barring.RoundTrip("<incoming-communication-barring>" + kRule + in + kRuleEnd +
                                "</incoming-communication-barring>"),
              "<ss:incoming-communication-barring  active=\"false\">" + kRuleOut +
                  "\n<cp:actions>" + test.barring + "</cp:actions>" + kRuleEnd +
                  "</ss:incoming-communication-barring>")
        << in;
  }
}

TEST(CommonPolicy, RulesGoOnBehindConditionsThatFail) {
  LogCapture log;
  const struct {
    const char* in;
    const char* out;
    const char* line;
  } kCases[] = {
      {"<cp:identity/>", "\n<cp:identity>",
       "<XML Module>: Identity element - m_OneListCount: 0, m_ManyListCount: 0"},
      {"<cp:identity><cp:one id='1'/><cp:one/></cp:identity>",
       "\n<cp:identity>\n<cp:one  id=\"1\"/>",
       "<XML Module>: One element's - Id attribute is mandatory"},
      {"<cp:sphere/>", "", "<XML Module>: Sphere element's - Value attribute is mandatory"},
      {"<cp:validity><cp:from>1</cp:from><cp:until>2</cp:until><cp:from>3</cp:from></cp:validity>",
       "\n<cp:validity>",
       "<XML Module>: Validity element - m_fromListCount: 2, m_untilListCount: 1"},
      {"<cp:validity/>", "\n<cp:validity>",
       "<XML Module>: Validity element - m_fromListCount: 0, m_untilListCount: 0"},
  };
  const std::string actions = "<cp:actions><busy/></cp:actions>";
  for (const auto& test : kCases) {
    log.Clear();
    EXPECT_EQ(
        InRule("<cp:conditions>" + std::string(test.in) + "<busy/></cp:conditions>" + actions),
        "\n<cp:conditions>" + std::string(test.out) + "\n<cp:actions>\n<ss:busy/></cp:actions>");
    EXPECT_EQ(log.Texts(4), std::vector<std::string>{test.line});
  }
  // Transformations are kept and written empty; of two conditions the later stands.
  EXPECT_EQ(InRule("<cp:transformations a='b'><busy/></cp:transformations><cp:conditions><busy/>"
                   "</cp:conditions><busy/><cp:conditions/>"),
            "\n<cp:conditions></cp:conditions>"
            "\n<cp:transformations></cp:transformations>");
  EXPECT_TRUE(log.Has("<XML Module>: AddTransformationsElementToXml"));
  // A rule without an id cuts the rule set short, and nothing else.
  log.Clear();
  EXPECT_EQ(
      Schema(XML_SCHEMA_COMMUNICATION_DIVERSION)
          .RoundTrip(kDiversion +
                     "<cp:ruleset><cp:rule id='a'/><cp:rule><cp:actions/>"
                     "</cp:rule><cp:rule id='b'/></cp:ruleset>" +
                     kDiversionEnd),
      kDiversionOut + "\n<cp:ruleset>\n<cp:rule  id=\"a\"></cp:rule>\n<cp:rule " + kDiversionEnd);
  EXPECT_EQ(log.Texts(4),
            (std::vector<std::string>{"<XML Module>: AddRuleElementToXml Rule ID mandatory",
                                      "<XML Module>: AddRuleSetElementToXml Rule ID mandatory"}));
  for (const CapturedLine& line : log.Lines()) {
    EXPECT_TRUE(line.level != 4 || line.file == "src/XMLCommunicationDiversion") << line.text;
  }
}

TEST(Services, ActiveTimerAndExtras) {
  const struct {
    eXMLSchemaID schema;
    const char* in;
    const char* out;
  } kCases[] = {
      {XML_SCHEMA_COMMUNICATION_DIVERSION, "<communication-diversion/>",
       "<ss:communication-diversion  active=\"false\"></ss:communication-diversion>"},
      {XML_SCHEMA_COMMUNICATION_DIVERSION,
       "<?xml version='1.0'?>\r\n<ss:communication-diversion xmlns:ss='u' active='yes' b='\"'"
       " a='1' b='2'>\r\n<!-- c --><NoReplyTimer>\r\n "
       "20s</NoReplyTimer></ss:communication-diversion>",
       "<ss:communication-diversion  xmlns:ss=\"u\"  b=\"&quot;\"  a=\"1\"  active=\"false\">"
       "\n<ss:NoReplyTimer>20</ss:NoReplyTimer></ss:communication-diversion>"},
      {XML_SCHEMA_COMMUNICATION_DIVERSION,
       "<communication-diversion active='true'><NoReplyTimer>5</NoReplyTimer><NoReplyTimer>181"
       "</NoReplyTimer><NoReplyTimer><x/>180</NoReplyTimer></communication-diversion>",
       "<ss:communication-diversion  active=\"true\">\n<ss:NoReplyTimer>180</ss:NoReplyTimer>"
       "</ss:communication-diversion>"},
      {XML_SCHEMA_COMMUNICATION_DIVERSION,
       "<communication-diversion><NoReplyTimer>4</NoReplyTimer></communication-diversion>",
       "<ss:communication-diversion  active=\"false\">\n<ss:NoReplyTimer>0</ss:NoReplyTimer>"
       "</ss:communication-diversion>"},
      {XML_SCHEMA_COMMUNICATION_BARRING,
       "<incoming-communication-barring active='true' active='yes' a='b'/>",
       "<ss:incoming-communication-barring  a=\"b\"  active=\"false\">"
       "</ss:incoming-communication-barring>"},
      {XML_SCHEMA_COMMUNICATION_BARRING,
       "<outgoing-communication-barring active='true' active='yes'><cp:ruleset/>"
       "</outgoing-communication-barring>",
       "<ss:outgoing-communication-barring  active=\"true\">\n<cp:ruleset></cp:ruleset>"
       "</ss:outgoing-communication-barring>"},
      {XML_SCHEMA_COMMUNICATION_BARRING,
       "<outgoing-communication-barring active='true' active='false'/>",
       "<ss:outgoing-communication-barring  active=\"false\"></ss:outgoing-communication-barring>"},
      {XML_SCHEMA_COMMUNICATION_WAITING, "<communication-waiting x='y' active='true'/>",
       "<ss:communication-waiting  x=\"y\"  active=\"true\"/>"},
      {XML_SCHEMA_COMMUNICATION_WAITING,
       "<communication-waiting active='true' active='no'><x>t</x></communication-waiting>",
       "<ss:communication-waiting  active=\"false\"/>"},
      {XML_SCHEMA_TIP, "<terminating-identity-presentation active='1'/>",
       "<ss:terminating-identity-presentation  active=\"false\"/>"},
      {XML_SCHEMA_OIP, "<originating-identity-presentation-restriction active='true'/>", "(null)"},
      {XML_SCHEMA_TIP, "<y:terminating-identity-presentation active='true'/>", "(null)"},
  };
  for (const auto& test : kCases) {
    EXPECT_EQ(Schema(test.schema).RoundTrip(test.in), test.out) << test.in;
  }
}

// A marshaller that had no memory for its namespaces has it when there is some again.
TEST(Services, MarshallersRecover) {
  Schema schema(XML_SCHEMA_COMMUNICATION_WAITING);
  const auto root = schema.Read<XMLElement>("<communication-waiting active='true'/>");
  for (long n = 2; n <= 4; ++n) {  // the records, after the marshaller itself
    zthost::FailAllocation(n);
    const LogCapture log;
    XMLMarshaller* marshaller = schema.context()->createMarshaller();
    ASSERT_NE(marshaller, nullptr) << n;
    EXPECT_TRUE(log.Has("Malloc cannot allocate memory")) << n;
    zthost::FailAllocation(1, true);
    EXPECT_EQ(marshaller->Marshall(root.get()), nullptr) << n;
    zthost::FailAllocation(0);
    EXPECT_STREQ(marshaller->Marshall(root.get()), "<ss:communication-waiting  active=\"true\"/>");
  }
}

// A caller builds a tree and writes any part of it.
TEST(Services, FragmentsAreWrittenAlone) {
  Schema diversion(XML_SCHEMA_COMMUNICATION_DIVERSION);
  CommunicationDiversionDataBinder factory;
  Tree<zt_communication_diversion> root(
      static_cast<zt_communication_diversion*>(factory.CreateRootElement()));
  zt_NoReplyTimer* timer = factory.CreateNoReplyTimerElement();
  root->setNoReplyTimerValue(timer);
  EXPECT_EQ(timer->setNoReplyTimerValue(180), 1);
  EXPECT_EQ(timer->setNoReplyTimerValue(4), 0);
  EXPECT_EQ(timer->setNoReplyTimerValue(181), 0);
  EXPECT_EQ(diversion.Write(timer), "<ss:NoReplyTimer>180</ss:NoReplyTimer>");
  root->setRuleSetValue(factory.CreateRuleSetElement());
  zt_ns_common_policy_ruleType* rule = factory.CreateRuleTypeElement();
  root->getRuleSetValue()->addRule(rule);
  EXPECT_EQ(diversion.Write(rule), "(null)");
  EXPECT_EQ(diversion.Write(root->getRuleSetValue()), "(null)");
  rule->setIdValue("one \"1\"");
  EXPECT_EQ(diversion.Write(rule), "<cp:rule  id=\"one &quot;1&quot;\"></cp:rule>");
  rule->setActionsValue(factory.CreateActionsTypeElement());
  zt_ns_xcap_forward_to_type* target = factory.CreateForwardToTypeElement();
  EXPECT_EQ(target->getNotifyCallerValue(), -1);
  target->setNotifyCallerValue(7);
  target->setNotifyServedUserValue(1);
  target->setNotifyServedUserValue(-1);
  target->setRevealIdentityToTargetValue(ZT_REVEAL_NOT_REVEAL_GRUU);
  rule->getActionsValue()->addElement(target);
  EXPECT_EQ(diversion.Write(target),
            "<ss:forward-to>\n<ss:notify-caller>false</ss:notify-caller>"
            "\n<ss:reveal-identity-to-target>not-reveal-GRUU</ss:reveal-identity-to-target>"
            "</ss:forward-to>");
  rule->setConditionsValue(factory.CreateConditionsTypeElement());
  zt_empty_element_type* flag = factory.CreateEmptyTypeElement();
  rule->getConditionsValue()->addAny(flag);
  rule->getConditionsValue()->addAny(factory.CreateMediaTypeElement());
  LogCapture log(2);
  auto* writer = static_cast<Communication_diversionMarshaller*>(diversion.writer());
  EXPECT_EQ(writer->AddEmptyElementtoXml(nullptr), 0);
  EXPECT_TRUE(log.Has(
      "Communication_diversionMarshaller::AddEmptyElementtoXml: Received empty element is NULL"));
  EXPECT_EQ(diversion.Write(flag), "(null)");
  flag->setPresentValue(1);  // still without a name
  EXPECT_EQ(diversion.Write(rule->getConditionsValue()),
            "<cp:conditions>\n<ss:media> </ss:media></cp:conditions>");
  const char* absent =
      "Communication_diversionMarshaller::AddEmptyElementtoXml: Received empty present false";
  EXPECT_EQ(log.Count(absent), 2);
  // A period needs both of its ends; one without a text is written empty.
  zt_ns_common_policy_validityType* validity = factory.CreateValidityTypeElement();
  rule->getConditionsValue()->addValidity(validity);
  for (const char* text : {"a", static_cast<const char*>(nullptr)}) {
    validity->addFrom(zt_xml_common_methods::CreateString(text));
    validity->addUntil(zt_xml_common_methods::CreateString("b"));
  }
  validity->getFromListValue()->Add(nullptr);
  validity->addUntil(zt_xml_common_methods::CreateString("c"));
  EXPECT_EQ(diversion.Write(rule->getConditionsValue()),
            "<cp:conditions>\n<cp:validity>\n<cp:from>a</cp:from>\n<cp:until>b</cp:until>"
            "\n<cp:from></cp:from>\n<cp:until>b</cp:until></cp:validity>"
            "\n<ss:media> </ss:media></cp:conditions>");
  const std::string longName(120, 'n');
  flag->setValue(longName.c_str());
  EXPECT_EQ(diversion.Write(flag), "<ss:" + longName.substr(0, 98) + "/>");
  Tree<zt_ns_common_policy_exceptType> except(factory.CreateExceptTypeElement());
  EXPECT_EQ(diversion.Write(except.get()), "(null)");

  Schema barring(XML_SCHEMA_COMMUNICATION_BARRING);
  EXPECT_EQ(barring.Write(except.get()), "<cp:except></cp:except>");
  EXPECT_EQ(barring.Write(timer), "(null)");
  flag->setValue(nullptr);
  EXPECT_EQ(barring.Write(flag), "(null)");
  EXPECT_TRUE(log.Has("Communication_barringMarshaller::AddEmptyElementtoXml: Received empty p"));
  EXPECT_EQ(barring.Write(rule->getActionsValue()),
            "<cp:actions>\n<ss:forward-to></ss:forward-to></cp:actions>");
  EXPECT_TRUE(log.Has("Communication_barringMarshaller: AddActionsElementToXml"));
  EXPECT_EQ(barring.Write(root.get()), "(null)");
}

TEST(Services, BarringFactoryMakesTheKindThatWasSet) {
  Schema schema(XML_SCHEMA_COMMUNICATION_BARRING);
  CommunicationBarringDataBinder factory;
  LogCapture log;
  EXPECT_EQ(factory.CreateRootElement(), nullptr);
  EXPECT_EQ(factory.setCBType(static_cast<XML_COMMUNICATION_BARRING_TYPE>(0)), 0);
  EXPECT_EQ(log.Texts(4), (std::vector<std::string>{
                              "<XML Module>: in CommunicationBarringDataBinder::setCBType  0",
                              "<XML Module>: CB Type is invalid "}));
  EXPECT_EQ(factory.setCBType(XML_COMMUNICATION_BARRING_OUTGOING), 1);
  EXPECT_EQ(factory.setCBType(XML_COMMUNICATION_BARRING_NONE), 0);
  XMLElement* outgoing = factory.CreateRootElement();
  factory.setCBType(XML_COMMUNICATION_BARRING_INCOMING);
  XMLElement* incoming = factory.CreateRootElement();
  EXPECT_STREQ(outgoing->ClassName(), "outgoing-communication-barring");
  EXPECT_STREQ(incoming->ElementName(), "IncomingComunicationBarring");
  // Without memory each fails under its own name.
  for (XMLElement* root : {incoming, outgoing}) {
    zthost::FailAllocation(1, true);
    EXPECT_EQ(schema.Write(root), "(null)");
    zthost::FailAllocation(0);
    XMLFactory::DeleteElement(root);
  }
  for (const char* kind : {"Incoming", "outgoing"}) {
    EXPECT_TRUE(log.Has(std::string("<XML Module>: ") + kind +
                        "_communication_barringMarshaller XML Failed!"));
  }
}

// Prefixes as documents bind them; "%" stands for what the namespace of the services is bound to.
TEST(Namespaces, PrefixesAreTheDocuments) {
  const std::string ss = "http://uri.etsi.org/ngn/params/xml/simservs/xcap";
  const std::string cp = "urn:ietf:params:xml:ns:common-policy";
  const struct {
    std::string declarations;
    const char* start;  // the prefixes that the document uses, with their colons
    const char* policy;
    const char* outStart;  // those that are written
    const char* outPolicy;
  } kCases[] = {
      {"", "ss:", "cp:", "ss:", "cp:"},
      {"", "", "", "ss:", "cp:"},
      {"xmlns='" + ss + "' xmlns:cp='" + cp + "'", "", "cp:", "", "cp:"},
      {"xmlns:a='" + ss + "' xmlns='" + cp + "'", "a:", "", "a:", ""},
      {"xmlns:a='" + ss + "' xmlns:b='" + cp + "' xmlns='" + ss + "'", "a:", "b:", "a:", "b:"},
      {"xmlns:a='" + ss + "' xmlns:c='" + ss + "'", "c:", "cp:", "c:", "cp:"},
      {"xmlns:cp='" + ss + "' xmlns:ss='" + cp + "'", "cp:", "ss:", "cp:", "ss:"},
      {"xmlns:x='" + ss + "/'", "ss:", "cp:", "ss:", "cp:"},
      // No name can have these prefixes.
      {"xmlns:a:b='" + ss + "' xmlns:c/='" + cp + "'", "ss:", "cp:", "ss:", "cp:"},
  };
  Schema declarations(XML_SCHEMA_NAMESPACE_RETRIEVAL);
  for (const auto& test : kCases) {
    const auto document = [](const std::string& s, const std::string& p, const std::string& nl,
                             const std::string& blank, const std::string& quote) {
      const std::string id = blank + "id=" + quote + "r" + quote;
      const std::string active = blank + "active=" + quote + "true" + quote;
      return "<" + s + "communication-diversion" + active + ">" + nl + "<" + p + "ruleset>" + nl +
             "<" + p + "rule" + id + ">" + nl + "<" + p + "conditions>" + nl + "<" + s +
             "busy/></" + p + "conditions></" + p + "rule></" + p + "ruleset></" + s +
             "communication-diversion>";
    };
    Schema schema(XML_SCHEMA_COMMUNICATION_DIVERSION);
    const std::string in = document(test.start, test.policy, " ", " ", "'");
    // The workers were made before the binder was set.
    auto binder =
        declarations.Read<zt_schema_namespace_retrieval>("<d " + test.declarations + "></d>");
    LogCapture log(3);
    EXPECT_EQ(schema.context()->SetNamespaceBinder(binder.get()), 1);
    EXPECT_TRUE(log.Has("<XML Module>: CommunicationDiversionContext :: SetNamespaceBinder"));
    EXPECT_EQ(schema.RoundTrip(in), document(test.outStart, test.outPolicy, "\n", "  ", "\""))
        << test.declarations;
    auto* writer = static_cast<ZtNamespaceMarshaller*>(schema.writer());
    char* prefix = writer->AddNameSpaceChange("ss");
    EXPECT_EQ(prefix ? std::string(prefix) + ":" : "", test.outStart);
    FreeElement(prefix);
    EXPECT_EQ(writer->AddNameSpaceChange("zz"), nullptr);
    EXPECT_EQ(writer->AddNameSpaceChange(nullptr), nullptr);
    // Neither null nor another object displaces the binder.
    Tree<XMLObject> other(schema.context()->createBinderFactory()->CreateRootElement());
    EXPECT_EQ(schema.context()->SetNamespaceBinder(nullptr), 0);
    EXPECT_EQ(schema.context()->SetNamespaceBinder(other.get()), 0);
    EXPECT_NE(schema.RoundTrip(in), "(null)");
    // A second binder starts anew.
    auto second = declarations.Read<zt_schema_namespace_retrieval>("<d xmlns='" + ss +
                                                                   "' xmlns:cp='" + cp + "'/>");
    schema.context()->SetNamespaceBinder(second.get());
    EXPECT_EQ(schema.RoundTrip(document("", "cp:", "", " ", "'")),
              document("", "cp:", "\n", "  ", "\""));
  }
}

}  // namespace
