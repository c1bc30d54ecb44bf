// Resource lists: what golden documents do not say.
#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "TestSupport.h"
#include "ztxml/XMLResourceList.h"
#include "ztxml/XMLValueTypes.h"

namespace {

// The members of a list: of an entry its URI, of a list its members in brackets.
std::string Describe(XMLElement* member) {
  if (auto* entry = ZtAs<zt_entryType>(member)) return entry->getUriValue() + std::string(" ");
  std::string text = "(";
  for (XMLElement& inside : ZtEach(ZtAs<zt_listType>(member)->getAnyElementValue())) {
    text += Describe(&inside);
  }
  return text + ") ";
}

// Elements deeper than the decoder's stack go to the last list on it, and elements after a list go
// to the list around it.
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
    auto root = Schema(XML_SCHEMA_RESOURCE_LISTS)
                    .Read<zt_resource_lists>("<resource-lists>" + in + "</resource-lists>");
    EXPECT_EQ(Describe(EntryOf<XMLElement>(root->getListListValue(), 0)), members);
  }
}

TEST(ResourceLists, SelfCheck) {
  LogCapture log;
  TestResource_listsMarshall();
  EXPECT_EQ(log.Texts()[0], kModule + "TestResource_listsMarshall");
  EXPECT_TRUE(
      log.Has("\n<list  name=\"friends\">\n<entry  uri=\"sip:friend@example.com\"></entry></list>"
              "</resource-lists>"));
  for (long n = 1; n < 20; ++n) {
    zthost::FailAllocation(n);
    TestResource_listsMarshall();
  }
  zthost::FailAllocation(0);
}

}  // namespace
