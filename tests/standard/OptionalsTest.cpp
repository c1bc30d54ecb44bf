// Accessors that tell whether a value is stated: those of every class, and of a document in both
// profiles.
#include <cctype>
#include <optional>

#include "ApiScript.h"
#include "DocumentSupport.h"
#include "ztxml/ZtValues.h"
#include "ztxml/conference_info.h"

namespace {

using Number = unsigned long long;

struct Accessor {
  ApiTables::Setter setter;
  std::optional<Number> (*get)(const XMLElement&);
  const char* name;
};
template <class C, auto method>
std::optional<Number> Get(const XMLElement& element) {
  const auto value = (static_cast<const C&>(element).*method)();
  return value ? std::optional<Number>(static_cast<Number>(*value)) : std::nullopt;
}
#define ZT_OPTIONAL(C, setter, method) \
  {ApiTables::Method<C, &C::setter>::Entry(#setter), &Get<C, &C::method>, #method},
#define ZT_NUMBER(C, member) \
  {ApiTables::Member<C, &C::member>::Entry(#member), &Get<C, &C::member>, #member},
const Accessor kAccessors[] = {ZT_API_OPTIONALS(ZT_OPTIONAL) ZT_API_NUMBERS(ZT_NUMBER)};
#undef ZT_OPTIONAL
#undef ZT_NUMBER

// What the accessor of a row is called: as the attribute or element, without its hyphens.
std::string AccessorOf(const ZtField& row) {
  std::string name = row.IsOwnText() ? "value" : ZtName(row.name);
  for (std::size_t at; (at = name.find('-')) != std::string::npos;) {
    name.erase(at, 1);
    name[at] = static_cast<char>(std::toupper(name[at]));
  }
  return name;
}

void ExpectToldAsByName(unsigned type, const ZtField& row) {
  const Tree<XMLElement> object(ApiTables::kTypes[type]->Create("tests/Optionals"));
  SCOPED_TRACE(object->ClassName() + ("::" + AccessorOf(row)));
  const auto* accessor =
      std::find_if(std::begin(kAccessors), std::end(kAccessors), [&](const Accessor& one) {
        return (*one.setter.appliesTo)[type] && AccessorOf(row) == one.name;
      });
  ASSERT_NE(accessor, std::end(kAccessors));
  std::string name = row.IsOwnText() ? "" : ZtName(row.name);
  if (row.IsAttribute()) name.insert(0, "@");
  EXPECT_FALSE(accessor->get(*object));
  EXPECT_EQ(ZtIsStated(object.get(), name.c_str()), 0);
  for (const unsigned number : {30U, ~0U, 11U, 10U, 9U, 8U, 7U, 6U, 5U, 4U, 3U, 2U, 1U, 0U}) {
    ApiTables::Value value = {};
    value.number = number;
    if (!accessor->setter.set(*object, value)) continue;  // a timer takes 30
    const std::optional<Number> stated = accessor->get(*object);
    EXPECT_EQ(stated.has_value(), ZtIsStated(object.get(), name.c_str()) == 1) << number;
    EXPECT_TRUE(number > 1 || stated == number) << number;
  }
  EXPECT_TRUE(accessor->get(*object));
  ZtClearValue(object.get(), name.c_str());
  EXPECT_FALSE(accessor->get(*object));
}

TEST(Optionals, TellAsByNameWhetherAValueIsStated) {
  for (unsigned type = 0; type < ApiTables::kTypeCount; ++type) {
    for (const ZtField& row : *ApiTables::kTypes[type]) {
      if (row.value != ZtValue::kObject && row.value != ZtValue::kText) {
        ExpectToldAsByName(type, row);
      }
    }
  }
}

TEST(Optionals, AZeroIsStatedAndADefaultIsNot) {
  for (const ztxml::Options& options : {ztxml::Exact(), ztxml::Options()}) {
    auto root = ztxml::Read<zt_conference_type>(
        "<conference-info xmlns=\"urn:ietf:params:xml:ns:conference-info\" entity=\"e\""
        " version=\"0\"><conference-state><user-count>0</user-count><active>false</active>"
        "</conference-state><users state=\"unheard-of\"/></conference-info>",
        options);
    ASSERT_TRUE(root);
    EXPECT_EQ((*root)->version(), 0U);
    const bool defaults = options.profile == XML_PROFILE_STANDARD;
    EXPECT_EQ((*root)->getStateValue(), defaults ? ZT_STATE_FULL : ZT_STATE_ABSENT);
    EXPECT_FALSE((*root)->state());
    EXPECT_FALSE((*root)->getUsersValue()->state());
    const zt_conference_state_type& state = *(*root)->getConferenceStateValue();
    EXPECT_EQ(state.userCount(), 0U);
    EXPECT_EQ(state.active(), false);
    EXPECT_FALSE(state.locked());
  }
}

}  // namespace
