// Reads a communication-diversion fragment (3GPP TS 24.604) as an XCAP server sends it, changes it
// and prints the body to put back: calls ring 30 seconds, every rule that forwards forwards to
// another address, and the first rule is switched off.
//
// Usage: change_diversion FILE TARGET_URI
#include <cstdio>
#include <cstring>
#include <string>

#include "ztxml/XMLCommunicationDiversion.h"
#include "ztxml/XMLFactory.h"
#include "ztxml/XMLFile.h"

namespace {

constexpr char kOff[] = "rule-deactivated";

// Texts of elements are written unchanged, so a text from elsewhere is escaped first.
std::string Escaped(const char* text) {
  std::string escaped;
  for (; *text; ++text) {
    if (*text == '&') {
      escaped += "&amp;";
    } else if (*text == '<') {
      escaped += "&lt;";
    } else {
      escaped += *text;
    }
  }
  return escaped;
}

// What a factory makes is the caller's until a parent takes it.
bool SetTimer(CommunicationDiversionDataBinder& factory, zt_communication_diversion& diversion,
              unsigned seconds) {
  if (!diversion.getNoReplyTimerValue()) {
    diversion.setNoReplyTimerValue(factory.CreateNoReplyTimerElement());
  }
  zt_NoReplyTimer* timer = diversion.getNoReplyTimerValue();
  return timer && timer->setNoReplyTimerValue(seconds);
}

void ForwardTo(zt_ns_common_policy_ruleType& rule, const char* target) {
  zt_ns_common_policy_extensibleType* actions = rule.getActionsValue();
  if (!actions) return;
  // Actions are a list of several types: these are the ones that forward.
  for (auto& forwardTo : ZtEach<zt_ns_xcap_forward_to_type>(actions->getElementsValue())) {
    forwardTo.setTargetValue(target);
  }
}

bool IsOff(zt_ns_common_policy_conditionsType& conditions) {
  for (const auto& flag : ZtEach<zt_empty_element_type>(conditions.getAnyListValue())) {
    if (flag.getValue() && std::strcmp(flag.getValue(), kOff) == 0) return true;
  }
  return false;
}

// To switch it on again: Remove the flag from the list and delete it with XMLFactory.
bool SwitchOff(CommunicationDiversionDataBinder& factory, zt_ns_common_policy_ruleType& rule) {
  if (!rule.getConditionsValue()) rule.setConditionsValue(factory.CreateConditionsTypeElement());
  zt_ns_common_policy_conditionsType* conditions = rule.getConditionsValue();
  if (conditions && IsOff(*conditions)) return true;
  zt_empty_element_type* flag = conditions ? factory.CreateEmptyTypeElement() : nullptr;
  if (!flag) return false;
  flag->setValue(kOff);
  if (conditions->addAny(flag)) return true;
  XMLFactory::DeleteElement(flag);
  return false;
}

bool Change(XMLContext& context, zt_communication_diversion& diversion, const char* target) {
  auto* factory = static_cast<CommunicationDiversionDataBinder*>(context.createBinderFactory());
  if (!factory || !SetTimer(*factory, diversion, 30)) return false;
  zt_ns_common_policy_ruleset* rules = diversion.getRuleSetValue();
  const auto all = ZtEach(rules ? rules->getRulesValue() : nullptr);
  for (zt_ns_common_policy_ruleType& rule : all) ForwardTo(rule, target);
  return all.begin() == all.end() || SwitchOff(*factory, *all.begin());
}

// Prints the body with the changes. Returns whether that worked.
bool Run(XMLContext& context, const char* xml, const char* target) {
  XMLUnMarshaller* reader = context.createUnMarshaller();
  XMLMarshaller* writer = context.createMarshaller();
  XMLElement* root = reader ? reader->UnMarshall(xml) : nullptr;
  const char* text = nullptr;
  if (root && writer && Change(context, *static_cast<zt_communication_diversion*>(root), target)) {
    text = writer->Marshall(root);
  }
  if (text) std::printf("%s\n", text);
  XMLFactory::DeleteElement(root);
  return text != nullptr;
}

// First collects the document's own prefixes, with which it is read and written back.
bool RunWithNamespaces(const char* xml, const char* target) {
  XMLContext* retrieval = XMLFactory::newInstance(XML_SCHEMA_NAMESPACE_RETRIEVAL);
  XMLContext* context = XMLFactory::newInstance(XML_SCHEMA_COMMUNICATION_DIVERSION);
  XMLUnMarshaller* reader = retrieval ? retrieval->createUnMarshaller() : nullptr;
  auto* namespaces = static_cast<XMLObject*>(reader ? reader->UnMarshall(xml) : nullptr);
  const bool done =
      context && context->SetNamespaceBinder(namespaces) && Run(*context, xml, target);
  XMLFactory::deleteContext(context);
  XMLFactory::DeleteElement(namespaces);  // borrowed by the context until here
  XMLFactory::deleteContext(retrieval);
  return done;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: change_diversion FILE TARGET_URI\n");
    return 2;
  }
  XMLFile file(argv[1], XML_FILE_READ);
  const char* xml = file.Read();
  const bool done = xml && RunWithNamespaces(xml, Escaped(argv[2]).c_str());
  if (xml) file.CloseFile();
  if (!done) std::fprintf(stderr, "change_diversion: %s cannot be read or written\n", argv[1]);
  return done ? 0 : 1;
}
