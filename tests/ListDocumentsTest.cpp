// Resource lists, their meta-information (RLMI) and their services (RLS): in, trees, out.
#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "XMLRlmi.h"
#include "XMLRlsServices.h"
#include "XMLValueTypes.h"
#include "base/ZtMemory.h"

namespace {

std::string InLists(const std::string& content) {
  return "<resource-lists>" + content + "</resource-lists>";
}
std::string OutLists(const std::string& content, const std::string& attributes = "") {
  return Document(
      "<resource-lists  xmlns='urn:ietf:params:xml:ns:resource-lists'  "
      "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'  "
      "xmlns:cp='urn:ietf:params:xml:ns:copycontrol'" +
      attributes + ">" + content + "</resource-lists>");
}
std::string InRlmi(const std::string& content) { return "<list uri='u'>" + content + "</list>"; }
std::string OutRlmi(const std::string& content,
                    const std::string& rest = "  uri='u'  version='0'  fullState='false'") {
  return Document("<list  xmlns='urn:ietf:params:xml:ns:rlmi'" + rest + ">" + content + "</list>");
}
std::string InRls(const std::string& content) {
  return "<r:rls-services xmlns:r='u' a='1'><service uri='s'>" + content +
         "</service></r:rls-services>";
}
std::string OutRls(const std::string& content, const std::string& attributes = "  uri='s'") {
  return Document("<rls-services  xmlns='urn:ietf:params:xml:ns:rls-services'><service" +
                  attributes + ">" + content + "</service></rls-services>");
}

using Cases = std::vector<std::pair<std::string, std::string>>;
void ExpectWritten(eXMLSchemaID id, const Cases& cases) {
  Schema schema(id);
  for (const auto& [in, out] : cases) {
    EXPECT_EQ(schema.RoundTrip(in), out) << in;
    EXPECT_EQ(schema.RoundTrip(out), out) << out;
  }
}

TEST(ResourceLists, WriteWhatTheyRead) {
  const Cases kCases = {
      {InLists(""), OutLists("")},
      {"<r:resource-lists xmlns:r='u' xmlns='v' xmlns:cp='w' xsi:a='1' a='2' a='3'/>",
       OutLists("", "  xmlns:r='u'  xsi:a='1'  a='2'")},
      // Each attribute has its place, whatever the order in the document.
      {InLists("<list b='1' name='&quot;' ='e' c='2'/><list><entry b='1' uri='u' c='2'/>"
               "<entry-ref b='1' ref='r'/><external b='1' anchor='a'/><external/></list>"),
       OutLists("<list  name='&quot;'  b='1'  c='2'></list><list>"
                "<entry  b='1'  c='2'  uri='u'></entry><entry-ref  b='1'  ref='r'>"
                "</entry-ref><external  anchor='a'  b='1'></external><external></external>"
                "</list>")},
      // The members of a list stay in their order; its name comes first.
      {InLists("<list><external anchor='1'/><p:list name='2'><entry uri='3'/></p:list><entry "
               "uri='4'/><display-name>5</display-name><entry-ref ref='6'/><list/></list>"),
       OutLists("<list><display-name>5</display-name><external  anchor='1'></external>"
                "<list  name='2'><entry  uri='3'></entry></list><entry  uri='4'></entry>"
                "<entry-ref  ref='6'></entry-ref><list></list></list>")},
      // The last name stands; unknown elements are skipped, misplaced ones only kept.
      {InLists("<entry/><list><entry uri='u'><display-name>old</display-name><x a='1'><display-name"
               ">no</display-name></x><display-name xml:lang='de'>a<entry/>&lt;new</display-name>"
               "<list/></entry><entry-ref ref='r'><d:display-name/></entry-ref><external>"
               "<display-name>e</display-name></external></list><x><list/></x>"),
       OutLists("<list><entry  uri='u'><display-name  xml:lang='de'>&lt;new</display-name>"
                "</entry><entry-ref  ref='r'><display-name></display-name></entry-ref><external>"
                "<display-name>e</display-name></external></list>")},
  };
  ExpectWritten(XML_SCHEMA_RESOURCE_LISTS, kCases);
  for (const char* text : {"<resource-lists><list>", "<list/>", "<x><resource-lists/></x>"}) {
    EXPECT_FALSE(Schema(XML_SCHEMA_RESOURCE_LISTS).Read<XMLElement>(text)) << text;
  }
}

TEST(Rlmi, WritesWhatItReads) {
  const Cases kCases = {
      {"<r:list fullState='true' b='1' version='7' xmlns:r='v' xmlns='w' uri='&quot;'/>",
       OutRlmi("", "  b='1'  xmlns:r='v'  uri='&quot;'  version='7'  fullState='true'")},
      {"<list uri='u' fullState='True' version='-1'/>", OutRlmi("")},
      {"<list uri='u' fullState='1' version='4294967296'/>",
       OutRlmi("", "  uri='u'  version='4294967295'  fullState='true'")},
      {InRlmi("<resource uri='a'/><name>1</name><resource b='1' uri='b'><instance state='active' "
              "b='1' id='i' cid='c' reason='r'>t</instance><name>2</name><instance id='j' "
              "state='pending;x'/><n:name xml:lang='de'>&lt;<x/>&gt;</n:name></resource><name/>"),
       OutRlmi("<name>1</name><name></name><resource  uri='a'></resource><resource  b='1'  "
               "uri='b'><name>2</name><name>&gt;</name><instance  b='1'  reason='r'  "
               "cid='c'  id='i'  state='active'/><instance  id='j'  state='pending'/>"
               "</resource>")},
      {InRlmi("<instance/><x><name>no</name></x><resource uri='r'><resource/><name>n<instance/>"
              "</name><instance id='i' state='terminated'><name>no</name></instance></resource>"),
       OutRlmi("<resource  uri='r'><name></name><instance  id='i'  state='terminated'/>"
               "</resource>")},
  };
  ExpectWritten(XML_SCHEMA_LIST, kCases);
}

TEST(RlsServices, WriteWhatTheyRead) {
  const Cases kCases = {
      {"<rls-services><service a='1' uri='&quot;' b='2' a='3'/></rls-services>",
       OutRls("", "  uri='&quot;'  a='1'  b='2'")},
      {InRls("<packages a='1'><package a='1'>presence</package><x/><p:package>a&lt;<package/>b"
             "</p:package></packages><resource-list a='1'>http://l</resource-list>"),
       OutRls("<resource-list>http://l</resource-list><packages><package>presence</package>"
              "<package>b</package></packages>")},
      // A list's URI, be it empty, stands for the list.
      {InRls("<list name='l'/><resource-list/>"), OutRls("<resource-list></resource-list>")},
      {InRls("<list name='no'/><packages/><list a='1' name='l'><display-name>d</display-name>"
             "<l:entry a='1' uri='e'/><list><entry-ref ref='r'/></list><external/></list>"),
       OutRls("<list  name='l'  a='1'><display-name>d</display-name><entry  a='1'  "
              "uri='e'></entry><list><entry-ref  ref='r'></entry-ref></list>"
              "<external></external></list><packages></packages>")},
      {InRls("<package>no</package><x><list/></x><service/><packages><list/></packages>"),
       OutRls("<packages></packages>")},
  };
  ExpectWritten(XML_SCHEMA_RLS_SERVICES, kCases);
}

// The members of a list: those of a list inside in brackets, of an entry its URI.
std::string Describe(XMLElement* member) {
  if (auto* entry = ZtAs<zt_entryType>(member)) return entry->getUriValue() + std::string(" ");
  auto* members = ZtAs<zt_listType>(member)->getAnyElementValue();
  std::string text = "(";
  for (auto* node = members ? members->GetPtrToListHead() : nullptr; node; node = node->next) {
    text += Describe(static_cast<XMLElement*>(node->data));
  }
  return text + ") ";
}

// What is deeper than the decoder's stack goes to the last list on it, and what comes after a list
// goes to the list around it.
TEST(ResourceLists, NestedListsKeepTheirSiblings) {
  constexpr int kMost = 99;
  for (int depth : {2, kMost, kMost + 1, kMost + 60}) {
    std::string in = "<entry uri='0'/>", members = "0 ";
    for (int i = depth; i > 0; --i) {
      const std::string number = std::to_string(i);
      in.insert(0, "<list>").append("</list>");
      members.insert(0, i > kMost ? "() " : "(").append(i > kMost ? "" : ") ");
      if (i == 1) continue;
      in.append("<entry uri='").append(number).append("'/>");
      members.append(number).append(" ");
    }
    auto root = Schema(XML_SCHEMA_RESOURCE_LISTS).Read<zt_resource_lists>(InLists(in));
    EXPECT_EQ(Describe(EntryOf<XMLElement>(root->getListListValue(), 0)), members);
  }
}

struct Kind {
  eXMLSchemaID id;
  const char* marshaller;
};
constexpr Kind kLists = {XML_SCHEMA_RESOURCE_LISTS, "Resource_listsMarshall"};
constexpr Kind kRlmi = {XML_SCHEMA_LIST, "ListMarshaller"};
constexpr Kind kRls = {XML_SCHEMA_RLS_SERVICES, "RlsServicesMarshaller"};
// The attribute that is missing is an error; then each writer tells that it failed ("1": the list).
void ExpectFailure(const Kind& kind, const std::string& in, std::string missing,
                   const std::vector<std::string>& failing) {
  missing = kModule + "Add" + missing + " mandatory attribute";
  missing.insert(missing.find(' ', kModule.size()), "ElementToXml");
  std::vector<std::string> expected = {missing};
  for (const std::string& name : failing) {
    std::string& line = expected.emplace_back(kModule);
    if (name < "A") {
      line.append("AddResource_listsElementToXml tempNum: ").append(name);
    } else {
      line.append("Add").append(name).append("ElementToXml XML Failed!");
    }
  }
  expected.push_back(kModule + kind.marshaller + " XML Failed!");
  Schema schema(kind.id);
  auto root = schema.Read<XMLElement>(in);
  LogCapture log;
  EXPECT_EQ(schema.Write(root.get()), "(null)") << in;
  EXPECT_EQ(log.Texts(4), std::vector<std::string>{missing});
  std::vector<std::string> lines = log.Texts();
  ASSERT_GE(lines.size(), expected.size());
  lines.erase(lines.begin(), lines.end() - static_cast<std::ptrdiff_t>(expected.size()));
  EXPECT_EQ(lines, expected);
}

TEST(ListDocuments, EveryWriterTellsWhatFails) {
  ExpectFailure(kLists, InLists("<list/><list><entry/></list>"), "Entry Uri", {"Entry", "1"});
  ExpectFailure(kLists, InLists("<list><list><entry-ref/></list></list>"),
                "EntryRef attribute: ref", {"EntryRef", "List", "0"});
  ExpectFailure(kRlmi, "<list/>", "List Uri", {});
  ExpectFailure(kRlmi, InRlmi("<resource/>"), "Resource Uri", {"Resource"});
  ExpectFailure(kRlmi, InRlmi("<resource uri='r'><instance state='active'/></resource>"),
                "Instance Id", {"Instance", "Resource"});
  ExpectFailure(kRlmi, InRlmi("<resource uri='r'><instance id='i' state='Active'/></resource>"),
                "Instance state", {"Instance", "Resource"});
  ExpectFailure(kRls, "<rls-services><service/></rls-services>", "Service Uri", {"Service"});
  ExpectFailure(kRls, InRls("<list><entry/></list>"), "Entry Uri", {"Entry", "List", "Service"});
}

TEST(ResourceLists, BuiltByHand) {
  Schema schema(XML_SCHEMA_RESOURCE_LISTS);
  auto root = schema.Read<zt_resource_lists>(InLists("<list><entry uri='u'/></list>"));
  auto* list = EntryOf<zt_listType>(root->getListListValue(), 0);
  ResourceListsDataBinder make;
  auto* external = make.CreateExternalType();
  list->addExternal(external);
  list->addAnyElement(ZtCreate<zt_string>("t"));  // never written
  list->addList(make.CreateListType());
  auto* reference = make.CreateEntryRefType();
  reference->setRefValue("r");
  list->addEntryRef(reference);
  list->setDisplayNameValue(make.CreateDisplayNameType());
  EXPECT_EQ(
      schema.Write(root.get()),
      OutLists("<list><display-name> </display-name><entry  uri='u'></entry><external></external>"
               "<list></list><entry-ref  ref='r'></entry-ref></list>"));
  external->setDisplayNameValue(Foreign<zt_display_nameType>());
  LogCapture log;
  EXPECT_EQ(schema.Write(root.get()), "(null)");
  EXPECT_TRUE(log.Has(kModule + "AddDisplayNameElementToXml XML Failed!"));

  // A member stands under its own name; what no name tells of is kept.
  std::string name = "entry", end = "/x";
  Tree<XMLElement> other(make.CreateListType());
  for (XMLElement* none : {other.get(), static_cast<XMLElement*>(nullptr)}) {
    EXPECT_EQ(list->ProcessUnMarshall(name.data(), nullptr, none), 0);
  }
  EXPECT_EQ(root->ProcessUnMarshall(end.data(), nullptr, other.get()), 1);
  EXPECT_EQ(EntryOf<XMLElement>(root->getAnyElementValue(), 0), other.release());
}

TEST(Rlmi, BuiltByHand) {
  Schema schema(XML_SCHEMA_LIST);
  auto root = schema.Read<zt_list>("<list a='1' version='3'><x/><instance state='ACTIVE'/></list>");
  ASSERT_EQ(CountOf(root->getAnyElementValue()), 1);
  EXPECT_EQ(EntryOf<zt_instance>(root->getAnyElementValue(), 0)->getStateValue(),
            ZT_INSTANCE_STATE_ABSENT);
  root->setUriValue("u");
  root->setFullStateValue(2);
  root->addName(ListDataBinder().CreateNameElement());
  EXPECT_EQ(schema.Write(root.get()),
            OutRlmi("<name> </name>", "  a='1'  uri='u'  version='3'  fullState='false'"));
  root->addName(Foreign<zt_name>());
  LogCapture log;
  EXPECT_EQ(schema.Write(root.get()), "(null)");
  EXPECT_TRUE(log.Has(kModule + "AddNameElementToXml XML Failed!"));
}

TEST(RlsServices, BuiltByHand) {
  Schema schema(XML_SCHEMA_RLS_SERVICES);
  auto root = schema.Read<zt_rls_services>(InRls("<list/><packages/>"));
  auto* service = EntryOf<zt_ns_rls_services_serviceType>(root->getServiceListValue(), 0);
  auto* packages = service->getPackagesValue();
  packages->addPackage(RlsServicesDataBinder().CreatePackageElement());
  EXPECT_EQ(schema.Write(root.get()),
            OutRls("<list></list><packages><package> </package></packages>"));
  packages->addPackage(Foreign<zt_ns_rls_services_packageType>());
  LogCapture log;
  EXPECT_EQ(schema.Write(root.get()), "(null)");
  EXPECT_TRUE(log.Has(kModule + "AddPackageElementToXml XML Failed!"));
  EXPECT_TRUE(log.Has(kModule + "AddPackagesElementToXml XML Failed!"));
}

TEST(ResourceLists, SelfCheck) {
  LogCapture log;
  TestResource_listsMarshall();
  EXPECT_EQ(log.Texts()[0], kModule + "TestResource_listsMarshall");
  EXPECT_TRUE(log.Has("XML " + OutLists("<list  name='friends'><entry  uri='sip:friend@example"
                                        ".com'></entry></list>")));
  for (long n = 1; n < 20; ++n) {
    zthost::FailAllocation(n);
    TestResource_listsMarshall();
  }
  zthost::FailAllocation(0);
}

}  // namespace
