// What callers build: every factory's objects, and trees of every class by every setter.
#include <gtest/gtest.h>
#include <random>

#include "ApiScript.h"
#include "DocumentSupport.h"

namespace {

// What a factory makes is of the class that it says, and null when there is no memory.
TEST(Api, FactoriesMakeWhatTheySayOrNull) {
  for (const ApiTables::Factory& factory : kApiFactories) {
    SCOPED_TRACE(factory.name);
    for (long n = 1, reached = 1; reached; ++n) {
      zthost::FailAllocation(n, true);
      const Tree<XMLElement> made(factory.make());
      reached = zthost::AllocationCount() >= n;
      zthost::FailAllocation(0);
      EXPECT_EQ(made == nullptr, reached != 0) << n;
      if (!made) continue;
      EXPECT_EQ(made->ReservedHook(), 0);
      if (factory.made) {
        EXPECT_TRUE(ZtIsA(*made, *factory.made));
      } else {
        EXPECT_STREQ(made->BaseClassName(), "XMLObject");
        EXPECT_EQ(static_cast<XMLObject*>(made.get())->IsRootElement(), 1);
      }
    }
  }
}

TEST(Api, TreesOfAnyCallsAreWrittenAndFreed) {
  std::mt19937 random(1);
  for (int run = 0; run < 500; ++run) {
    std::vector<std::uint8_t> bytes(random() % 2000);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    EXPECT_EQ(ApiScript(bytes.data(), bytes.size()).Run(), "") << run;
  }
}

// Trees that callers nest without end are written down to a depth that no document has that was
// read, then not at all; freeing them takes no more stack.
TEST(Api, DeepTrees) {
  Schema lists(XML_SCHEMA_RESOURCE_LISTS);
  const auto nested = [](int depth) {
    ResourceListsDataBinder make;
    auto* root = static_cast<zt_resource_lists*>(make.CreateRootElement());
    zt_listType* inner = make.CreateListType();
    root->addList(inner);
    for (int i = 2; i < depth; ++i) {
      zt_listType* next = make.CreateListType();
      inner->addList(next);
      inner = next;
    }
    return Tree<XMLElement>(root);
  };
  EXPECT_NE(lists.Write(nested(200).get()), "(null)");
  EXPECT_EQ(lists.Write(nested(201).get()), "(null)");
  EXPECT_EQ(lists.Write(nested(200000).get()), "(null)");
  Tree<zt_xcap_error> error;
  for (int i = 0; i < 200000; ++i) {
    Tree<zt_xcap_error> outer(
        static_cast<zt_xcap_error*>(XcapErrorDataBinder().CreateRootElement()));
    outer->setErrorValue(error.release());
    error = std::move(outer);
  }
}

}  // namespace
