// An object has one owner: while it has one, no other element takes it.
#include "DocumentSupport.h"
#include "ztxml/XMLCommunicationDiversion.h"
#include "ztxml/XMLReginfo.h"
#include "ztxml/XMLXcapError.h"

namespace {

class Ownership : public testing::Test {
 protected:
  // Expects one line of level 4 for each offer of an object with an owner.
  void ExpectRefused(const char* what) {
    EXPECT_EQ(log_.Texts(),
              std::vector<std::string>{kModule + std::string(what) + " has an owner already"});
    log_.Clear();
  }
  void ExpectNothingSaid() { EXPECT_TRUE(log_.Texts().empty()); }

  LogCapture log_{4};
  ReginfoDataBinder reginfo_;
  CommunicationDiversionDataBinder diversion_;
};

TEST_F(Ownership, ListsTakeNothingTwice) {
  zt_reginfo first, second;
  zt_registration* registration = reginfo_.CreateRegistrationElement();
  EXPECT_EQ(first.addRegistration(registration), 1);
  ExpectNothingSaid();
  EXPECT_EQ(first.addRegistration(registration), 0);
  ExpectRefused("zt_registration");
  EXPECT_EQ(second.addRegistration(registration), 0);
  ExpectRefused("zt_registration");
  EXPECT_EQ(second.addAnyElement(registration), 0);
  ExpectRefused("zt_registration");
  char name[] = "registration";
  EXPECT_EQ(second.ProcessUnMarshall(name, nullptr, registration), 0);
  ExpectRefused("zt_registration");
  EXPECT_EQ(first.getRegistrationListValue()->Add(static_cast<XMLElement*>(registration)), 0);
  ExpectRefused("zt_registration");
  EXPECT_EQ(CountOf(first.getRegistrationListValue()), 1);
  // An object that is taken out of a tree is the caller's, who may give it away again.
  EXPECT_EQ(first.getRegistrationListValue()->Remove(static_cast<XMLElement*>(registration)), 1);
  EXPECT_EQ(second.addRegistration(registration), 1);
  ExpectNothingSaid();
  // Without memory it stays the caller's, too.
  Tree<zt_registration> free(reginfo_.CreateRegistrationElement());
  zthost::FailAllocation(1);
  EXPECT_EQ(second.addRegistration(free.get()), 0);
  zthost::FailAllocation(0);
  EXPECT_EQ(second.addRegistration(free.release()), 1);
}

TEST_F(Ownership, SettersIgnoreWhatIsOwned) {
  Tree<zt_ns_common_policy_ruleType> first(diversion_.CreateRuleTypeElement());
  Tree<zt_ns_common_policy_ruleType> second(diversion_.CreateRuleTypeElement());
  zt_ns_common_policy_conditionsType* conditions = diversion_.CreateConditionsTypeElement();
  zt_ns_common_policy_conditionsType* others = diversion_.CreateConditionsTypeElement();
  first->setConditionsValue(conditions);
  second->setConditionsValue(others);
  EXPECT_EQ(first->setConditionsValue(conditions), 1);  // the child that it has already
  ExpectNothingSaid();
  EXPECT_EQ(second->setConditionsValue(conditions), 1);
  ExpectRefused("zt_ns_common_policy_conditionsType");
  EXPECT_EQ(second->getConditionsValue(), others);
  char name[] = "conditions";
  EXPECT_EQ(second->ProcessUnMarshall(name, nullptr, conditions), 0);
  ExpectRefused("zt_ns_common_policy_conditionsType");
  zt_xcap_error errors[2];
  zt_extension* extension = XcapErrorDataBinder().CreateExtensionElement();
  char element[] = "extension";
  EXPECT_EQ(errors[0].ProcessUnMarshall(element, nullptr, extension), 1);
  EXPECT_EQ(errors[1].ProcessUnMarshall(element, nullptr, extension), 0);
  ExpectRefused("zt_extension");
}

// Lists that a caller has filled: their entries get their owner when an element takes the list.
TEST_F(Ownership, ListsOfCallers) {
  zt_reginfo first, second;
  auto* twice = static_cast<XMLElement*>(reginfo_.CreateRegistrationElement());
  auto* once = static_cast<XMLElement*>(reginfo_.CreateRegistrationElement());
  ZtSingleElementList* lists[] = {zt_xml_common_methods::CreateElementList(),
                                  zt_xml_common_methods::CreateElementList()};
  for (XMLElement* entry : {twice, static_cast<XMLElement*>(nullptr), twice, once}) {
    EXPECT_EQ(lists[0]->Add(entry), 1);
  }
  EXPECT_EQ(lists[1]->Add(once), 1);
  EXPECT_EQ(first.setRegistrationListValue(lists[0]), 1);
  ExpectRefused("zt_registration");
  EXPECT_EQ(CountOf(lists[0]),
            3);  // the second of two equal entries is gone, the null entry is not
  EXPECT_EQ(lists[0]->GetKeyAtIndex(2), once);
  EXPECT_EQ(second.setRegistrationListValue(lists[0]), 1);
  ExpectRefused("ZtSingleElementList");
  EXPECT_EQ(second.getRegistrationListValue(), nullptr);
  EXPECT_EQ(second.setRegistrationListValue(lists[1]), 1);
  ExpectRefused("zt_registration");
  EXPECT_EQ(CountOf(lists[1]), 0);
  EXPECT_EQ(lists[1]->Add(static_cast<XMLElement*>(reginfo_.CreateRegistrationElement())), 1);
  EXPECT_EQ(CountOf(second.getRegistrationListValue()), 1);
}

// What a new list holds of the old list, or from below its entries, is deleted with the old list.
TEST_F(Ownership, ListsThatReplaceLists) {
  for (const bool below : {false, true}) {
    Tree<zt_reginfo> root(static_cast<zt_reginfo*>(reginfo_.CreateRootElement()));
    zt_registration* registration = reginfo_.CreateRegistrationElement();
    zt_ns_reginfo_contact* contact = reginfo_.CreateContactElement();
    registration->addContact(contact);
    root->addAnyElement(registration);
    ZtSingleElementList* list = zt_xml_common_methods::CreateElementList();
    list->Add(below ? static_cast<XMLElement*>(contact) : registration);
    EXPECT_EQ(root->setAnyElementValue(list), 1);
    ExpectRefused(below ? "zt_ns_reginfo_contact" : "zt_registration");
    EXPECT_EQ(root->getAnyElementValue(), list);
    EXPECT_EQ(CountOf(list), 0);
    root.reset();  // an empty list has a line of its own
    log_.Clear();
  }
}

TEST_F(Ownership, Attributes) {
  zt_communication_diversion services[2];
  zt_AttributeValuePair* pair = zt_xml_common_methods::CreateAttribute("a", "b");
  EXPECT_EQ(services[0].addAnyAttribute(pair), 1);
  EXPECT_EQ(services[0].addAnyAttribute(pair), 0);
  ExpectRefused("zt_AttributeValuePair");
  char name[] = "a", value[] = "b";
  EXPECT_EQ(services[1].ProcessUnMarshallAttribute(name, value, pair), 0);
  ExpectRefused("zt_AttributeValuePair");
  EXPECT_EQ(services[0].getAnyAttributeValue()->Remove(static_cast<XMLAttribute*>(pair)), 1);
  EXPECT_EQ(services[1].addAnyAttribute(pair), 1);
  ExpectNothingSaid();
}

}  // namespace
