// What the public hooks of the types make of objects and texts that no document brings.
#include <gtest/gtest.h>

#include "ApiTable.h"
#include "DocumentSupport.h"
#include "binding/ZtBinding.h"

namespace {

char* Literal(const char* text) { return const_cast<char*>(text); }

// A caller's own element, which does not say what it is.
struct Nameless : XMLElement {
  const char* ClassName() const override { return nullptr; }
  const char* BaseClassName() const override { return "XMLElement"; }
  const char* ElementName() const override { return "nameless"; }
  int ReservedHook() override { return 0; }
};

// Such an object is nobody's child. Only some documents refuse it.
TEST(Hooks, ChildrenWithoutAClassName) {
  const struct {
    const ZtElementType& parent;
    const char* name;
    int answer;
  } kCases[] = {
      {zt_reginfo::kType, "registration", 0},
      {zt_ns_reginfo_contact::kType, "unknown-param", 0},
      {zt_imdn::kType, "display-notification", 0},
      {zt_status::kType, "/delivered", 0},
      {zt_conference_type::kType, "users", 0},
      {zt_conference_description_type::kType, "/keywords", 0},
      {zt_ns_common_policy_ruleset::kType, "rule", 1},
      {zt_communication_diversion::kType, "ruleset", 1},
      {zt_xcap_directory::kType, "folder", 1},
      {zt_xcap_error::kType, "not-utf-8", 1},
      {zt_listType::kType, "entry", 1},
      {zt_tuple::kType, "status", 1},
      {zt_characteristic::kType, "parm", 1},
  };
  for (const auto& [type, name, answer] : kCases) {
    Nameless child;
    const Tree<XMLElement> parent(type.maker.Create("tests/HooksTest"));
    EXPECT_EQ(parent->ProcessUnMarshall(Literal(name), nullptr, &child), answer) << name;
  }
}

// A time that is not said is an empty one, so that the pairs stay pairs.
TEST(Hooks, TimesWithoutAText) {
  zt_ns_common_policy_validityType validity;
  EXPECT_EQ(validity.ProcessUnMarshall(Literal("/from"), nullptr, nullptr), 1);
  EXPECT_EQ(validity.ProcessUnMarshall(Literal("/until"), Literal("u"), nullptr), 1);
  ASSERT_EQ(CountOf(validity.getFromListValue()), 1);
  EXPECT_STREQ(EntryOf<zt_string>(validity.getFromListValue(), 0)->getValue(), "");
  EXPECT_STREQ(EntryOf<zt_string>(validity.getUntilListValue(), 0)->getValue(), "u");
}

// A flag that is present and has no name is written as nothing, but for a rule's, which needs one.
TEST(Hooks, FlagsWithoutAName) {
  zt_empty_element_type flag;
  flag.setPresentValue(1);
  const LogCapture log(3);
  EXPECT_EQ(MediaControlMarshaller().AddEmptyElementToXml(&flag), 1);
  EXPECT_EQ(CallWaitingIndicationMarshaller().AddCallWaitingIndicationElementToXml(&flag), 1);
  EXPECT_TRUE(log.Texts().empty());
  EXPECT_EQ(Communication_diversionMarshaller().AddEmptyElementtoXml(&flag), 0);
  CallWaitingIndicationDataBinder make;
  const Tree<XMLElement> root(make.CreateRootElement());
  auto* service = make.CreateAlternativeServiceElement();
  auto* action = make.CreateActionElement();
  zt_empty_element_type* nameless = make.CreateCallWaitingIndicationElement();
  nameless->setValue(nullptr);
  nameless->setPresentValue(1);
  action->setCallWaitingIndicationValue(nameless);
  service->setActionValue(action);
  static_cast<zt_3gpp_ims*>(root.get())->setAlternativeServiceValue(service);
  EXPECT_SAME(Schema(XML_SCHEMA_CALL_WAITING_INDICATION).Write(root.get()),
              Document("<3gpp-ims><alternative-service><action></action></alternative-service>"
                       "</3gpp-ims>"));
}

// A blank before the equals sign is part of an attribute's name: what keeps others keeps it.
TEST(Hooks, BlanksBeforeTheEqualsSign) {
  Schema lists(XML_SCHEMA_RESOURCE_LISTS);
  const auto list = [&](const std::string& attributes) {
    const std::string text =
        lists.RoundTrip("<resource-lists><list" + attributes + "/></resource-lists>");
    const std::size_t at = text.find("<list") + 5;
    return text.substr(at, text.find('>', at) - at);
  };
  EXPECT_EQ(list(" name = 'n'"), "  name =\"n\"");
  EXPECT_EQ(list(" name\t= 'n' name='m'"), "  name=\"m\"");  // the tag has one already
  EXPECT_EQ(list(" x ='1' x='2'"), "  x =\"1\"");
  EXPECT_SAME(
      Schema(XML_SCHEMA_OIP).RoundTrip("<originating-identity-presentation active =\"true\"/>"),
      "<ss:originating-identity-presentation  active=\"false\"/>");
}

}  // namespace
