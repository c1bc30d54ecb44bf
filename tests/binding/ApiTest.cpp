// What callers build: every factory's objects, and trees of every class by every setter.
#include <gtest/gtest.h>
#include <random>

#include "ApiScript.h"
#include "DocumentSupport.h"
#include "binding/ZtStandard.h"

namespace {

// What factories make is in tests/golden/workers; without memory they make nothing.
TEST(Api, FactoriesMakeNullWithoutMemory) {
  for (const ApiTables::Factory& factory : kApiFactories) {
    for (long n = 1, reached = 1; reached; ++n) {
      zthost::FailAllocation(n, true);
      const Tree<XMLElement> made(factory.make());
      reached = zthost::AllocationCount() >= n;
      zthost::FailAllocation(0);
      EXPECT_EQ(made == nullptr, reached != 0) << factory.name << n;
    }
  }
}

struct TwoTexts : XMLElement {
  ZtText m_One, m_Other;
};
static_assert(ztrow::Sound({ztrow::Attribute(XML_STR_ID, ZT_AT(TwoTexts, m_One)),
                            ztrow::TextElement(XML_STR_ID, ZT_AT(TwoTexts, m_Other))}));
static_assert(!ztrow::Sound({ztrow::Attribute(XML_STR_ID, ZT_AT(TwoTexts, m_One)),
                             ztrow::Attribute(XML_STR_ID, ZT_AT(TwoTexts, m_Other))}));
static_assert(!ztrow::Sound({ztrow::TextElement(XML_STR_NOTE, ZT_AT(TwoTexts, m_Other)),
                             ztrow::Attribute(XML_STR_ID, ZT_AT(TwoTexts, m_One))}));

TEST(Api, RowsCanBeMeant) {
  for (const ZtElementType* type : ApiTables::kTypes) {
    EXPECT_TRUE(ztrow::Sound(type->fields)) << type->className;
    EXPECT_TRUE(ztrow::Sound(ZtStandardOf(*type).fields)) << type->className;
  }
}

// The result tells who owns an offered child, also when memory is lacking for the child or its
// text. Under a child's name no other object is taken.
TEST(Api, OfferedChildrenAreTakenOrNot) {
  for (const ZtElementType* type : ApiTables::kTypes) {
    for (const ZtField& field : *type) {
      const bool child = field.place == ZtPlace::kChild || field.place == ZtPlace::kChildren;
      if (!child) continue;
      std::string name = ZtName(field.name), text = "a b";
      if (field.arrival != ZtArrival::kAtStart) name.insert(0, "/");
      const Tree<XMLElement> sparse(type->Create("tests/ApiTest")),
          foreign(ZtCreate<zt_string>("tests/ApiTest"));
      EXPECT_EQ(sparse->ProcessUnMarshall(name.data(), text.data(), foreign.get()), 0) << name;
      if (field.arrival == ZtArrival::kAsText) continue;
      EXPECT_EQ(sparse->ProcessUnMarshall(name.data(), text.data(), nullptr), 0) << name;
      for (long n = 1, reached = 1; reached; ++n) {
        const Tree<XMLElement> parent(type->Create("tests/ApiTest"));
        Tree<XMLElement> offered(field.detail.type->Create("tests/ApiTest"));
        zthost::FailAllocation(n);
        const int taken = parent->ProcessUnMarshall(name.data(), text.data(), offered.get());
        reached = zthost::AllocationCount() >= n;
        zthost::FailAllocation(0);
        if (taken) static_cast<void>(offered.release());
        // zt_status ignores what it is offered.
        if (taken && type == &zt_status::kType) break;
        EXPECT_EQ(taken != 0, !reached) << type->className << name << n;
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

// Trees of callers are written up to a depth that no tree that was read has, and deeper ones not at
// all; freeing a deep tree takes no more stack.
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
