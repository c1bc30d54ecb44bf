// XCAP errors: documents in, trees, documents out.
#include <algorithm>
#include <gtest/gtest.h>
#include <tuple>
#include <utility>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "XMLValueTypes.h"
#include "XMLXcapError.h"
#include "base/ZtMemory.h"

namespace {

const std::string kModule = "<XML Module>: ";
const std::string kMarshaller = kModule + "Xcap_ErrorMarshall";

std::string Out(const std::string& content) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xcap-error  "
         "xmlns=\"urn:ietf:params:xml:ns:xcap-error\"  "
         "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"  "
         "xsi:schemaLocation=\"urn:ietf:params:xml:ns:xcap-error\">" +
         content + "</xcap-error>";
}

// The errors that are no more than their phrase.
const char* const kPhrased[] = {"not-utf-8",       "cannot-delete",          "constraint-failure",
                                "not-well-formed", "not-xml-att-value",      "cannot-insert",
                                "not-xml-frag",    "schema-validation-error"};
std::pair<std::string, std::string> PhrasedCase(const std::string& name) {
  return {"<" + name + " phrase='\"p' a='1'></" + name + ">",
          "\n<" + name + "  phrase=\"&quot;p\"/>"};
}

TEST(XcapError, WritesWhatItReads) {
  std::vector<std::pair<std::string, std::string>> cases = {
      {"<no-parent a='1' phrase='p'><ancestor>a</ancestor><x><ancestor>evil</ancestor></x>"
       "<ancestor b='2'>a &amp; b</ancestor></no-parent>",
       "\n<no-parent  phrase=\"p\">\n<ancestor>a &amp; b</ancestor></no-parent>"},
      {"<uniqueness-failure phrase='p'><exists field='f'><alt-value>1</alt-value><x/><alt-value/>"
       "</exists><alt-value>evil</alt-value><no-parent/><exists/></uniqueness-failure>",
       "\n<uniqueness-failure  phrase=\"p\">\n<exists  field=\"f\">\n<alt-value>1</alt-value>"
       "\n<alt-value></alt-value></exists>\n<exists></exists></uniqueness-failure>"},
      {"<extension phrase='p'><exists/><extension><no-parent/></extension>t</extension>",
       "\n<extension></extension>"},
      // The last error stands; what only begins like one has no object and is none.
      {"<cannot-insert/><e:no-parent/><exists/><not-utf-8-extra phrase='q'/><x/>",
       "\n<no-parent></no-parent>"},
      {"<not-utf-8-extra><not-utf-8/></not-utf-8-extra>", ""},
  };
  for (const char* name : kPhrased) cases.push_back(PhrasedCase(name));
  Schema schema(XML_SCHEMA_XCAP_ERROR);
  for (const auto& [in, out] : cases) {
    EXPECT_EQ(schema.RoundTrip("<e:xcap-error a='1'>" + in + "</e:xcap-error>"), Out(out)) << in;
    EXPECT_EQ(schema.RoundTrip(Out(out)), Out(out));
  }
  for (const std::size_t n : {0U, 1U, 2U}) ExpectWholeOrNothing(schema, Out(cases[n].first));
}

TEST(XcapError, HooksTakeWhatTheyKnow) {
  zt_xcap_error root;
  zt_extension extension;
  zt_exists exists;
  const std::tuple<XMLElement&, std::string, XMLElement*, int> kCases[] = {
      {root, "not-utf-8", nullptr, 0},
      {root, "not-utf-8-extra", &exists, 0},
      {root, "not-utf-", &extension, 1},
      {root, "/not-utf-8", nullptr, 1},
      {root, "extension", ZtCreate<zt_no_parent>("tests/XcapError"), 1},
      {root, "not-utf-8-extra", ZtCreate<zt_cannot_delete>("tests/XcapError"), 1},
      {extension, "anything", nullptr, 1},
      {extension, "anything", ZtCreate<zt_exists>("tests/XcapError"), 1},
  };
  LogCapture log;
  for (auto [self, name, child, result] : kCases) {
    EXPECT_EQ(self.ProcessUnMarshall(name.data(), nullptr, child), result) << name;
  }
  EXPECT_TRUE(ZtAs<zt_cannot_delete>(root.getErrorValue()));
  EXPECT_EQ(CountOf(extension.getAnyElementValue()), 1);
  EXPECT_EQ(log.Texts()[0], "Cannot accommodate the element anything with value (null)");
}

// Makes one of each with the factory and writes it with its own step, at the start of a document.
class Steps : public Xcap_ErrorMarshall {
 public:
  std::string expected;

 private:
  using F = XcapErrorDataBinder;
  using M = Xcap_ErrorMarshall;

  template <class T>
  void Step(std::string name, T* (F::*make)(), int (M::*write)(T*)) {
    LogCapture log;
    Tree<T> made((F().*make)());
    EXPECT_EQ((this->*write)(made.get()), 1);
    EXPECT_EQ(log.Texts()[0], kModule + "XcapErrorDataBinder::Create" + name + "Element");
    EXPECT_EQ(log.Texts(3), std::vector{kMarshaller + "::Add" + name + "ElementToXml"});
    name[0] = static_cast<char>(name[0] | ' ');
    EXPECT_EQ(made->ClassName(), "zt_" + name);
    std::replace(name.begin(), name.end(), '_', '-');
    EXPECT_EQ(made->ElementName(), name);
    const bool phrased = std::count(std::begin(kPhrased), std::end(kPhrased), name) != 0;
    expected += "\n<" + name + (phrased ? "/>" : "></" + name + ">");
  }
  bool UseNamespaces(const ZtNamespaceBindings*&) override {
    if (std::exchange(started_, true)) return true;
#define STEP(X) Step(#X, &F::Create##X##Element, &M::Add##X##ElementToXml)
    // clang-format off
    STEP(Not_utf_8); STEP(Cannot_delete); STEP(Constraint_failure); STEP(Not_well_formed);
    STEP(Exists); STEP(Uniqueness_failure); STEP(Not_xml_att_value); STEP(Cannot_insert);
    STEP(No_parent); STEP(Not_xml_frag); STEP(Schema_validation_error); STEP(Extension);
    // clang-format on
#undef STEP
    return true;
  }
  bool started_ = false;
};

TEST(XcapError, BuiltByHand) {
  Steps steps;
  zt_xcap_error empty;
  const char* text = steps.Marshall(&empty);
  ASSERT_TRUE(text);
  EXPECT_EQ(text, Out("").insert(38, steps.expected));

  LogCapture log;
  Schema schema(XML_SCHEMA_XCAP_ERROR);
  auto* factory = static_cast<XcapErrorDataBinder*>(schema.context()->createBinderFactory());
  Tree<zt_xcap_error> root(static_cast<zt_xcap_error*>(factory->CreateRootElement()));
  root->setErrorValue(factory->CreateExistsElement());  // not an error
  EXPECT_EQ(schema.Write(root.get()), Out(""));
  auto* uniqueness = factory->CreateUniqueness_failureElement();
  root->setErrorValue(uniqueness);
  ZtSingleElementList* list = factory->CreateList();
  EXPECT_EQ(log.Count(kModule + "XcapErrorDataBinder::Create"), 4);
  uniqueness->setExistsListValue(list);
  for (XMLElement* entry : std::initializer_list<XMLElement*>{
           factory->CreateExistsElement(), factory->CreateNo_parentElement(),  // not of the list
           factory->CreateExistsElement()}) {
    list->Add(entry);
  }
  log.Clear();
  const std::string whole =
      Out("\n<uniqueness-failure>\n<exists></exists>\n<exists></exists></uniqueness-failure>");
  EXPECT_EQ(schema.Write(root.get()), whole);
  const std::string exists = kMarshaller + "::AddExistsElementToXml";
  EXPECT_EQ(log.Texts(), (std::vector{kMarshaller + " :: Marshall",
                                      kMarshaller + " :: Marshall: Deleting mXcapErrorXml",
                                      kModule + "AddXcap_errorElementToXmlErrorElementToXml",
                                      kMarshaller + "::AddUniqueness_failureElementToXml", exists,
                                      exists, kModule + "AddExistsElementToXml tempNum: 1 ", exists,
                                      kMarshaller + " XML " + whole}));
  log.Clear();
  EXPECT_EQ(schema.Write(nullptr), "(null)");
  EXPECT_EQ(schema.Write(uniqueness), "(null)");
  EXPECT_EQ(log.Texts().front(), kMarshaller + " :: Marshall: Received Object is NULL");
  EXPECT_EQ(log.Texts().back(), kMarshaller + " XML Failed!");
  log.Clear();
  zthost::FailAllocation(1);
  EXPECT_FALSE(schema.Read<XMLElement>("<xcap-error/>"));
  zthost::FailAllocation(0);
  EXPECT_EQ(log.Texts(),
            (std::vector{kModule + "XcapErrorUnMarshaller::UnMarshall",
                         kModule + "StrDup failed in XcapErrorUnMarshaller::UnMarshall"}));
}

}  // namespace
