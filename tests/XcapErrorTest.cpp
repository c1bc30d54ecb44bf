// XCAP errors: documents in, trees, documents out.
#include <gtest/gtest.h>
#include <tuple>
#include <utility>
#include <vector>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "XMLValueTypes.h"
#include "XMLXcapError.h"
#include "base/ZtMemory.h"

namespace {

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
  };
  for (auto [self, name, child, result] : kCases) {
    EXPECT_EQ(self.ProcessUnMarshall(name.data(), nullptr, child), result) << name;
  }
  EXPECT_TRUE(ZtAs<zt_cannot_delete>(root.getErrorValue()));
}

TEST(XcapError, BuiltByHand) {
  LogCapture log;
  Schema schema(XML_SCHEMA_XCAP_ERROR);
  auto* factory = static_cast<XcapErrorDataBinder*>(schema.context()->createBinderFactory());
  Tree<zt_xcap_error> root(static_cast<zt_xcap_error*>(factory->CreateRootElement()));
  root->setErrorValue(factory->CreateExistsElement());  // not an error
  EXPECT_EQ(schema.Write(root.get()), Out(""));
  auto* uniqueness = factory->CreateUniqueness_failureElement();
  root->setErrorValue(uniqueness);
  ZtSingleElementList* list = factory->CreateList();
  uniqueness->setExistsListValue(list);
  for (XMLElement* entry : std::initializer_list<XMLElement*>{
           factory->CreateExistsElement(), factory->CreateNo_parentElement(),  // not of the list
           factory->CreateExistsElement()}) {
    list->Add(entry);
  }
  log.Clear();
  EXPECT_EQ(
      schema.Write(root.get()),
      Out("\n<uniqueness-failure>\n<exists></exists>\n<exists></exists></uniqueness-failure>"));
  const std::string exists = kMarshaller + "::AddExistsElementToXml";
  EXPECT_EQ(log.Count(exists), 3);
  EXPECT_TRUE(log.Has(kModule + "AddExistsElementToXml tempNum: 1 "));
}

}  // namespace
