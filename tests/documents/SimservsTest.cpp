// The whole document: services cut out of the text, read, and written back into it.
#include "DocumentSupport.h"
#include "base/ZtMemory.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"
#include "ztxml/XMLSimservs.h"
#include "ztxml/XmlCommon.h"

namespace {

const std::string kStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<simservs  "
    "xmlns=\"http://uri.etsi.org/ngn/params/xml/simservs/xcap\"  "
    "xmlns:ss=\"http://uri.etsi.org/ngn/params/xml/simservs/xcap\"  "
    "xmlns:cp=\"urn:ietf:params:xml:ns:common-policy\"  "
    "xmlns:ocp=\"urn:oma:xml:xdm:common-policy\">";
const std::string kEnd = "</simservs>";

std::string Waiting(bool active) {
  return std::string("<ss:communication-waiting  active=\"") + (active ? "true" : "false") + "\"/>";
}
TEST(Simservs, PrefixesOfManyServices) {
  Schema schema(XML_SCHEMA_SIMSERVS);
  std::string many, all;
  for (int i = 0; i < 300; ++i) {
    many += i % 3 ? "<communication-waiting active='true'/>" : "<a:communication-waiting/>";
    all += i % 3 ? Waiting(true) : Waiting(false);
  }
  EXPECT_EQ(Schema(XML_SCHEMA_SIMSERVS).RoundTrip("<simservs>" + many + "</simservs>").size(),
            kStart.size() + 200 * Waiting(true).size() + kEnd.size());
  // Services are read under the document's prefixes and written under the library's own.
  const std::string bound =
      "<r:simservs xmlns:r='http://uri.etsi.org/ngn/params/xml/simservs/xcap' "
      "xmlns:a='http://uri.etsi.org/ngn/params/xml/simservs/xcap'>" +
      many + "</r:simservs>";
  auto binder = Schema(XML_SCHEMA_NAMESPACE_RETRIEVAL).Read<XMLObject>(bound);
  schema.context()->SetNamespaceBinder(binder.get());
  EXPECT_EQ(schema.RoundTrip(bound), "(null)");  // "a" is bound later than "r"
  std::string renamed = bound;
  renamed.replace(1, 1, "a").replace(renamed.size() - 11, 1, "a");
  EXPECT_SAME(schema.RoundTrip(renamed), kStart + all + kEnd);
  // A long prefix holds for services that are long enough to contain it.
  const std::string prefix(500, 'p'), waiting = "communication-waiting active='true'";
  const std::string longName = "<" + prefix + ":" + waiting + "/>";
  const std::string both = "<simservs xmlns:" + prefix +
                           "='http://uri.etsi.org/ngn/params/xml/simservs/xcap'><" + waiting +
                           "/>" + longName + "<" + waiting + "/></simservs>";
  binder = Schema(XML_SCHEMA_NAMESPACE_RETRIEVAL).Read<XMLObject>(both);
  schema.context()->SetNamespaceBinder(binder.get());
  EXPECT_SAME(schema.RoundTrip(both),
              kStart + Waiting(true) + Waiting(true) + Waiting(true) + kEnd);
}

TEST(Simservs, LeavesOutWhatIsNoService) {
  LogCapture log(2);
  Schema schema(XML_SCHEMA_SIMSERVS);
  auto root = schema.Read<zt_Simservs>(
      "<simservs><incoming-communication-barring/><outgoing-communication-barring/>"
      "<communication-diversion/><communication-waiting/><x:communication-waiting/>"
      "<originating-identity-presentation/><terminating-identity-presentation/></simservs>");
  EXPECT_EQ(schema.context()->SetNamespaceBinder(nullptr), 0);
  EXPECT_TRUE(log.Has("<XML Module>: SimservsContext :: SetNamespaceBinder"));

  root->addService(ZtCreate<zt_Simservs>("t"));
  root->getServiceListValue()->Add(nullptr);
  root->getServiceListValue()->Add(static_cast<XMLElement*>(ZtCreate<Nameless>("t")));
  const std::string text = schema.Write(root.get());
  EXPECT_EQ(text.find("simservs", kStart.size()), text.size() - 9);
  EXPECT_EQ(schema.Write(root.get()), text);
  EXPECT_EQ(log.Count("SimservsMarshaller XML - Communication Barring Marshalling Success"), 4);
  EXPECT_EQ(log.Count("SimservsMarshaller XML - TIP Marshalling Success"), 2);
  EXPECT_EQ(log.Count("SimservsMarshaller GetKeyAtIndex failed"), 2);
  EXPECT_EQ(log.Count("<XML Module>: SimservsMarshaller get ClassName failed"), 2);
}

// While the log is heard the services are cut out of the text and read one after the other, else
// all in one pass, with decoders that the worker keeps while the memory log is off: what one
// document left must not show in the next.
TEST(Simservs, ReadsAlikeWhetherTheLogIsHeardOrNot) {
  zthost::EnableMemoryLog(false);
  const std::string simservs = "http://uri.etsi.org/ngn/params/xml/simservs/xcap";
  const std::string waiting = "<communication-waiting active='true'/>";
  const std::string diversion =
      "<communication-diversion><NoReplyTimer>20</NoReplyTimer></communication-diversion>";
  const std::string inside[] = {
      diversion + waiting + "<incoming-communication-barring/>" + waiting,
      "<a>b" + waiting + "<b>" + diversion + "</b>c</a>",
      "<x:communication-waiting active='true'/><q:communication-waiting/>" + diversion,
      // One inside another, and what only looks like one.
      "<communication-waiting active='true'>" + diversion + "</communication-waiting>",
      "<communication-diversion>" + waiting + "</communication-diversion>",
      "< communication-waiting active='true'/>",
      "<communication-waiting>< communication-waiting></communication-waiting>",
      "<communication-waiting/a:b active='true'/>",
      "<communication-waiting/a:b><originating-identity-presentation/></communication-waiting/a:b>",
      "<!-- <communication-waiting> -->" + waiting,
      "<simservs>" + waiting + "</simservs>",
      "<communication-waiting active='true'><simservs/></communication-waiting>",
      "<:simservs/>" + waiting,
      "<x:/y/>",
      "<communication-diversion><p:ruleset><p:rule id='r'/></p:ruleset></communication-diversion>",
      "<simservs" + std::string(65535, 'n') + "/>" + waiting,
      "<communication-waiting active='true'><" + std::string(65550, 'n') +
          "></communication-waiting>",
      Repeated(101, [](auto) { return "<communication-waiting>"; }),
  };
  const auto check = [](Schema& schema, const std::string& text) {
    const auto heard = [&](int level) {
      const LogCapture log(level);
      const std::string told = schema.RoundTrip(text);
      return std::pair(told, log.Texts(4));
    };
    EXPECT_EQ(heard(4), heard(1)) << text.substr(0, 300);
  };
  Schema kept(XML_SCHEMA_SIMSERVS), bound(XML_SCHEMA_SIMSERVS);
  Tree<XMLObject> namespaces;
  const std::string declared = "<simservs xmlns='" + simservs + "' xmlns:x='" + simservs;
  const std::string ends[] = {"' xmlns:p='urn:ietf:params:xml:ns:common-policy'>", "'>", "/'>"};
  for (const std::string& content : inside) {
    for (const std::string& end : ends) {
      const std::string text = declared + end + content + "</simservs>";
      for (const std::string& whole : {text, text + waiting, content}) check(kept, whole);
      auto now = Schema(XML_SCHEMA_NAMESPACE_RETRIEVAL).Read<XMLObject>(text);
      if (bound.context()->SetNamespaceBinder(now.get())) namespaces.swap(now);
      check(bound, text);
    }
  }
  // A list of declarations with nothing in it has its line, an error.
  const auto none =
      Schema(XML_SCHEMA_NAMESPACE_RETRIEVAL).Read<zt_schema_namespace_retrieval>("<a/>");
  none->setNameSpaceInfo(zt_xml_common_methods::CreateElementList());
  bound.context()->SetNamespaceBinder(none.get());
  check(bound, declared + "'>" + waiting + "</simservs>");
}

// A worker that has read a small document reads the next one with what it has, and keeps nothing of
// either. With a memory log it keeps nothing at all.
TEST(Simservs, KeepsWhatItReadsWith) {
  {
    Schema watched(XML_SCHEMA_SIMSERVS);
    const std::size_t live = zthost::GetMemoryReport().live.size();
    EXPECT_NE(watched.Read<XMLElement>("<simservs/>"), nullptr);
    EXPECT_EQ(zthost::GetMemoryReport().live.size(), live);
  }
  zthost::EnableMemoryLog(false);
  Schema schema(XML_SCHEMA_SIMSERVS);
  const auto read = [&schema](const std::string& content) {
    zthost::CountAllocations();
    EXPECT_NE(schema.Read<XMLElement>("<simservs>" + content + "</simservs>"), nullptr);
    const zthost::HeapUse use = zthost::GetHeapUse();
    zthost::FailAllocation(0);
    return use;
  };
  const std::string many = Repeated(8, [](auto) { return "<communication-waiting/><x/>"; });
  const std::string barring =
      "<incoming-communication-barring><a/></incoming-communication-barring>";
  const zthost::HeapUse first = read(many + barring);
  EXPECT_GT(first.liveBytes, 0);
  const zthost::HeapUse second = read(barring + many);
  EXPECT_LE(second.allocations, 3);
  EXPECT_EQ(second.liveBytes, 0);
  EXPECT_LE(read("<simservs/>").liveBytes, 0);
  EXPECT_LE(read(std::string(8192, ' ') + many).liveBytes, 0);
}

TEST(Simservs, PublicSteps) {
  SimservsUnMarshaller reader;
  std::string text = "0123456789";
  char* cut = nullptr;
  EXPECT_EQ(reader.replaceSubStringWithNull(text.data(), &cut, 3, 4), text.data());
  EXPECT_STREQ(text.c_str(), "012789");
  EXPECT_STREQ(cut, "3456");
  FreeElement(cut);
  const int kNone[][2] = {{-1, 2}, {0, 0}, {5, 2}, {7, 1}, {0, -1}};
  for (const auto& range : kNone) {
    reader.replaceSubStringWithNull(text.data(), &cut, range[0], range[1]);
    EXPECT_EQ(cut, nullptr);
    EXPECT_STREQ(text.c_str(), "012789");
  }
  EXPECT_EQ(reader.replaceSubStringWithNull(nullptr, &cut, 0, 1), nullptr);
  LogCapture log;
  zthost::FailAllocation(1);
  reader.replaceSubStringWithNull(text.data(), &cut, 0, 1);
  EXPECT_EQ(cut, nullptr);
  EXPECT_TRUE(log.Has("replaceSubStringWithNull malloc failed returning pString"));
  std::string valid = "<other/>", invalid = "<other>";
  EXPECT_EQ(reader.validateXML(valid.data()), 1);
  EXPECT_TRUE(log.Has("<XML Module>: XML Decode Success"));
  EXPECT_EQ(reader.validateXML(invalid.data()), 0);
  EXPECT_EQ(reader.validateXML(nullptr), 0);
  EXPECT_EQ(log.Count("<XML Module>: XML Decode Failed"), 2);

  SimservsMarshaller writer;
  char* whole = writer.InsertString(__strdup("<a><b></b></a>"), "<c/>");
  EXPECT_STREQ(whole, "<a><b><c/></b></a>");
  EXPECT_EQ(writer.InsertString(whole, nullptr), whole);
  EXPECT_EQ(writer.InsertString(nullptr, "x"), nullptr);
  EXPECT_EQ(log.Count("SimservsMarshaller :: InsertString mSimservsXml or pString NULL "), 2);
  zthost::FailAllocation(1);
  EXPECT_EQ(writer.InsertString(whole, "<d/>"), whole);
  EXPECT_TRUE(log.Has("InsertString malloc failed for pTempStr returning mSimservsXml "));
  FreeElement(whole);
}

// Reads with a binder and writes while each allocation fails, alone and with all later ones: the
// result is null or whole, never without a service, and nothing leaks.
TEST(Simservs, EveryAllocationMayFail) {
  // More attributes and services than there is room for without asking for memory.
  std::string attributes, services;
  for (char name = 'a'; name <= 'q'; ++name) attributes.append({' ', name, '=', '\'', '\''});
  for (int i = 0; i < 11; ++i) services += "<communication-waiting/>";
  const std::string text =
      "<simservs xmlns='http://uri.etsi.org/ngn/params/xml/simservs/xcap'><communication-diversion"
      " b='c'><NoReplyTimer>20</NoReplyTimer></communication-diversion><communication-waiting" +
      attributes + "/>" + services + "</simservs>";
  BoundSchema schema(XML_SCHEMA_SIMSERVS, text);
  ExpectWholeOrNothing(schema, text);
}

}  // namespace
