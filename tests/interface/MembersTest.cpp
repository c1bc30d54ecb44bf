// Types whose values are public members: how callers set them and ask for them, and the rows that
// are made of them.
#include "DocumentSupport.h"
#include "binding/ZtModel.h"
#include "ztxml/ZtMembers.h"
#include "ztxml/document.h"

namespace {

enum class Colour : unsigned { kRed, kGreen, kAbsent };

struct Leaf : ZtTyped<Leaf> {
  static const ZtElementType kType;
  ZtTextMember value;
};
struct Branch : ZtTyped<Branch> {
  static const ZtElementType kType;
  ZtNumberMember<Colour> colour;
  ZtNumberMember<std::uint32_t> count;
  ZtNumberMember<unsigned long long> size;
  ZtNumberMember<bool> isFull;
  ZtTextMember name;
  ZtChildMember<Leaf> first;
  ZtListMember<Leaf> leaves;
  ZtListMember<XMLElement> others;
};

constexpr ZtFamily kFamily = ZtQuietFamily("tests/Members");
constexpr ZtEnumOf kColours = {"red", "green"};
const ZtElementType Leaf::kType = {ZtTypeOf<Leaf>("Leaf", "leaf", kFamily),
                                   {ztrow::OwnText(XML_STR_ENTRY, ZT_AT(Leaf, value))}};
const ZtElementType Branch::kType = {
    ZtTypeOf<Branch>("Branch", "branch", kFamily),
    {ztrow::Attribute(XML_STR_STATE, ZT_AT(Branch, colour), kColours),
     ztrow::Attribute(XML_STR_VERSION, ZT_AT(Branch, count)),
     ztrow::Attribute(XML_STR_ENTITY, ZT_AT(Branch, name)),
     ztrow::TextElement(XML_STR_EXPIRES, ZT_AT(Branch, size)),
     ztrow::Child(XML_STR_IDENTITY, ZT_AT(Branch, first)),
     ztrow::Children(XML_STR_ENTRY, ZT_AT(Branch, leaves)),
     ztrow::OtherChildren(ZT_AT(Branch, others))}};

// Nothing else can be put into them, nor taken for what they do not tell is there.
static_assert(!std::is_convertible_v<ZtChildMember<Leaf>*, ZtChild*>);
static_assert(!std::is_convertible_v<ZtListMember<Leaf>*, ZtChildList*>);
static_assert(!std::is_convertible_v<ZtNumberMember<std::uint32_t>, unsigned>);

Tree<Branch> Make() { return Tree<Branch>(ZtCreate<Branch>("tests/Members")); }
Leaf* MakeLeaf() { return ZtCreate<Leaf>("tests/Members"); }

TEST(Members, RowsKnowThemByTheirTypes) {
  const ZtField* row = Branch::kType.begin();
  for (const ZtValue value : {ZtValue::kEnum, ZtValue::kNumber, ZtValue::kText, ZtValue::kNumber64,
                              ZtValue::kObject, ZtValue::kObject, ZtValue::kObject}) {
    EXPECT_EQ(row++->value, value);
  }
  EXPECT_EQ(row[-3].detail.type, &Leaf::kType);
  EXPECT_EQ(row[-2].detail.type, &Leaf::kType);

  const Tree<Branch> branch = Make();
  char name[] = "state", word[] = "green";
  branch->ProcessUnMarshallAttribute(name, word, nullptr);
  EXPECT_EQ(branch->colour(), Colour::kGreen);
  char entry[] = "entry";
  branch->ProcessUnMarshall(entry, nullptr, MakeLeaf());
  ASSERT_TRUE(branch->leaves());
  EXPECT_EQ(branch->leaves()->GetCount(), 1);
}

TEST(Members, TellWhatIsStated) {
  const Tree<Branch> branch = Make();
  EXPECT_FALSE(branch->colour() || branch->count() || branch->size() || branch->isFull());
  EXPECT_TRUE(branch->count.Set(0) && branch->size.Set(1ULL << 40) && branch->isFull.Set(false));
  EXPECT_TRUE(branch->count() == 0U && branch->size() == 1ULL << 40 && branch->isFull() == false);
  branch->colour.Set(Colour::kRed);
  EXPECT_EQ(branch->colour(), Colour::kRed);
  branch->colour.Set(Colour::kAbsent);
  EXPECT_FALSE(branch->colour());

  EXPECT_TRUE(branch->name.Set("a") && ztxml::Text(branch->name()) == "a");
  zthost::FailAllocation(1);
  EXPECT_FALSE(branch->name.Set("b"));
  zthost::FailAllocation(0);
  EXPECT_EQ(branch->name(), nullptr);
  EXPECT_TRUE(branch->name.Set(nullptr));
}

TEST(Members, TakeWhatNobodyOwns) {
  const Tree<Branch> one = Make(), other = Make();
  Leaf* const leaf = MakeLeaf();
  EXPECT_TRUE(one->first.Set(leaf));
  EXPECT_FALSE(other->first.Set(leaf) || other->leaves.Add(leaf) || other->leaves.Add(nullptr));
  EXPECT_TRUE(one->first() == leaf && !other->first() && !other->leaves());
  EXPECT_TRUE(one->first.Set(nullptr));
  EXPECT_EQ(one->first(), nullptr);

  const Tree<Leaf> free(MakeLeaf());
  zthost::FailAllocation(1);
  EXPECT_FALSE(one->leaves.Add(free.get()));
  zthost::FailAllocation(0);
}

TEST(Members, ListsAreWalked) {
  const Tree<Branch> branch = Make();
  for (const Leaf& leaf : branch->leaves) ADD_FAILURE() << leaf.value();
  for (const char* text : {"a", "b", "c"}) {
    Leaf* const leaf = ztxml::Add(*branch, &Branch::leaves);
    ASSERT_TRUE(leaf);
    leaf->value.Set(text);
  }
  std::string seen;
  for (Leaf& leaf : branch->leaves) {
    seen += leaf.value();
    if (seen != "ab") continue;
    branch->leaves()->Remove(static_cast<XMLElement*>(&leaf));
    XMLFactory::DeleteElement(&leaf);
  }
  EXPECT_EQ(seen, "abc");
  EXPECT_EQ(branch->leaves()->GetCount(), 2);
}

TEST(Members, AddMakesWhatTheyHold) {
  const Tree<Branch> branch = Make();
  Leaf* const leaf = ztxml::Add(branch.get(), &Branch::first);
  EXPECT_TRUE(leaf && branch->first() == leaf);
  EXPECT_TRUE(ztxml::Add<Leaf>(*branch, &Branch::others));
  EXPECT_FALSE(ztxml::Add(static_cast<Branch*>(nullptr), &Branch::first));
  for (long n = 1, reached = 1; reached; ++n) {
    zthost::FailAllocation(n, true);
    const Leaf* const added = ztxml::Add(*branch, &Branch::leaves);
    reached = zthost::AllocationCount() >= n;
    zthost::FailAllocation(0);
    EXPECT_EQ(added == nullptr, reached != 0) << n;
  }
}

}  // namespace
