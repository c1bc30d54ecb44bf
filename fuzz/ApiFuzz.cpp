// Trees as callers build them, from factories and setters, with replaced children and lists,
// written at any time by any marshaller. The bytes are a script.
#include <fuzzer/FuzzedDataProvider.h>

#include "FuzzSupport.h"
#include "XMLCommunicationDiversion.h"

namespace {

// Builds with one allocation failing now and then: what a parent does not take is freed.
class Script {
 public:
  explicit Script(FuzzedDataProvider& data) : m_Data(data) {}

  void Run() {
    XMLContext* context = XMLFactory::newInstance(XML_SCHEMA_COMMUNICATION_DIVERSION);
    auto* factory = static_cast<CommunicationDiversionDataBinder*>(context->createBinderFactory());
    auto* root = static_cast<zt_communication_diversion*>(factory->CreateRootElement());
    root->setRuleSetValue(factory->CreateRuleSetElement());
    auto* rule = factory->CreateRuleTypeElement();
    root->getRuleSetValue()->addRule(rule);
    XMLMarshaller* writer = context->createMarshaller();
    while (m_Data.remaining_bytes() > 0) Step(*factory, *root, *rule, *writer);
    zthost::FailAllocation(0);
    writer->Marshall(root);
    XMLFactory::DeleteElement(root);
    XMLFactory::deleteContext(context);
  }

 private:
  template <class Parent, class Child>
  void Give(Parent& parent, int (Parent::*add)(Child*), Child* child) {
    if (child && !(parent.*add)(child)) XMLFactory::DeleteElement(child);
  }
  std::string Text() { return m_Data.ConsumeRandomLengthString(12); }

  void Step(CommunicationDiversionDataBinder& factory, zt_communication_diversion& root,
            zt_ns_common_policy_ruleType& rule, XMLMarshaller& writer) {
    switch (m_Data.ConsumeIntegralInRange(0, 15)) {
      case 0:
        rule.setIdValue(Text().c_str());
        break;
      case 1:
        rule.setConditionsValue(factory.CreateConditionsTypeElement());
        break;
      case 2:
        rule.setActionsValue(factory.CreateActionsTypeElement());
        break;
      case 3:
        if (rule.getConditionsValue()) {
          zt_empty_element_type* flag = factory.CreateEmptyTypeElement();
          if (flag) flag->setValue(m_Data.ConsumeBool() ? Text().c_str() : nullptr);
          Give(*rule.getConditionsValue(), &zt_ns_common_policy_conditionsType::addAny,
               static_cast<XMLElement*>(flag));
        }
        break;
      case 4:
        if (rule.getActionsValue()) {
          zt_ns_xcap_forward_to_type* target = factory.CreateForwardToTypeElement();
          if (target) {
            target->setTargetValue(Text().c_str());
            target->setNotifyCallerValue(m_Data.ConsumeIntegral<int>());
            target->setRevealIdentityToTargetValue(
                static_cast<zt_reveal_enum>(m_Data.ConsumeIntegral<unsigned>()));
          }
          Give(*rule.getActionsValue(), &zt_ns_common_policy_extensibleType::addElement,
               static_cast<XMLElement*>(target));
        }
        break;
      case 5:
        root.setNoReplyTimerValue(m_Data.ConsumeBool() ? factory.CreateNoReplyTimerElement()
                                                       : nullptr);
        if (root.getNoReplyTimerValue()) {
          root.getNoReplyTimerValue()->setNoReplyTimerValue(m_Data.ConsumeIntegral<unsigned>());
        }
        break;
      case 6: {
        const std::string name = Text(), value = Text();
        zt_AttributeValuePair* extra =
            zt_xml_common_methods::CreateAttribute(name.c_str(), value.c_str());
        if (extra && !root.addAnyAttribute(extra)) {
          zthost::FailAllocation(0);
          Free(extra);
        }
        break;
      }
      case 7:
        root.setAnyAttributeValue(nullptr);
        break;
      case 8:
        if (rule.getConditionsValue()) {
          zt_ns_common_policy_validityType* period = factory.CreateValidityTypeElement();
          if (period) {
            AddText(*period, &zt_ns_common_policy_validityType::addFrom);
            if (m_Data.ConsumeBool()) AddText(*period, &zt_ns_common_policy_validityType::addUntil);
          }
          Give(*rule.getConditionsValue(), &zt_ns_common_policy_conditionsType::addValidity,
               period);
        }
        break;
      case 9:
        if (rule.getConditionsValue()) {
          zt_ns_common_policy_identityType* who = factory.CreateIdentityTypeElement();
          zt_ns_common_policy_manyType* many = who ? factory.CreateManyTypeElement() : nullptr;
          if (many && m_Data.ConsumeBool()) many->setDomainValue(Text().c_str());
          if (who) Give(*who, &zt_ns_common_policy_identityType::addMany, many);
          Give(*rule.getConditionsValue(), &zt_ns_common_policy_conditionsType::addIdentity, who);
        }
        break;
      case 10:
        zthost::FailAllocation(m_Data.ConsumeIntegralInRange(0, 40), m_Data.ConsumeBool());
        break;
      case 11:
        zthost::FailAllocation(0);
        break;
      case 12: {  // the hooks, by name
        std::string name = Text(), value = Text();
        XMLElement* element = m_Data.ConsumeBool() ? static_cast<XMLElement*>(&root) : &rule;
        element->ProcessUnMarshall(name.data(), value.data(), nullptr);
        element->ProcessUnMarshallAttribute(name.data(), value.data(), nullptr);
        break;
      }
      case 13:
        writer.Marshall(&rule);
        break;
      default:
        writer.Marshall(&root);
    }
  }

  template <class Parent>
  void AddText(Parent& parent, int (Parent::*add)(zt_string*)) {
    zt_string* text =
        zt_xml_common_methods::CreateString(m_Data.ConsumeBool() ? Text().c_str() : nullptr);
    Give(parent, add, text);
  }

  // An attribute that nobody took goes with a list of its own.
  static void Free(zt_AttributeValuePair* extra) {
    ZtAttributeList owner;
    owner.Add(extra);
  }

  FuzzedDataProvider& m_Data;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider provider(data, size);
  const Balanced balanced;
  Script(provider).Run();
  return 0;
}
