// The rule set of a common policy as data. All services read it alike, but each writes other
// actions.
#ifndef ZTXML_SRC_COMMONPOLICYBINDING_H
#define ZTXML_SRC_COMMONPOLICYBINDING_H

#include "base/ZtLog.h"
#include "binding/ZtBinding.h"
#include "documents/services/SimservBinding.h"
#include "ztxml/XMLCommonPolicy.h"

// The types of a rule set as one service writes them.
struct ZtPolicyTypes {
  const ZtElementType* ruleset;
  const ZtElementType* rule;
  const ZtElementType* actions;
};

struct CommonPolicyBinding {
  static constexpr ZtNote kNotes[] = {
      {"CommonPolicy:RuleType", XML_STR_ID, kZtLogError,
       "<XML Module>: AddRuleElementToXml Rule ID mandatory"},
      {"CommonPolicy:Ruleset", XML_STR_RULE, kZtLogError,
       "<XML Module>: AddRuleSetElementToXml Rule ID mandatory"},
      {"CommonPolicy:OneType", XML_STR_ID, kZtLogError,
       "<XML Module>: One element's - Id attribute is mandatory"},
      {"CommonPolicy:SphereType", XML_STR_VALUE, kZtLogError,
       "<XML Module>: Sphere element's - Value attribute is mandatory"}};
  static constexpr ZtFamily kFamily =
      ZtQuietFamily("src/XMLCommonPolicy", "src/XMLCommonPolicy").Notes(kNotes);
  static constexpr ZtFamily kTellingFamily = kFamily.UnknownElement(kCannotAccommodate);

  // ---- Flags ------------------------------------------------------------------------------------

  // Intended: the writer of a flag is called AddEmptyElementtoXml, with a small "t", also in log
  // lines, which begin with the marshaller of the service; callers and log readers use the name.
  static constexpr ZtFlag kFlagText = {
      "%s::AddEmptyElementtoXml: Received empty present false",
      "%s::AddEmptyElementtoXml: Received empty element is NULL",
      // Intended: the name of a flag is cut at 98 bytes when it is written, so that with "/" and
      // NUL it fits into the 100 bytes that peers were tested with.
      98};
  static constexpr ZtExtras kFlagExtras = ZtExtrasOf(kFlagText);
  static constexpr ZtElementType kFlag =
      ZtFlagOf(kFamily, "AddEmptyElementtoXml", kFlagExtras, XML_STR_SS);

  static constexpr ZtNameId kFlagNames[] = {
      XML_STR_NOT_REGISTERED,         XML_STR_ANONYMOUS,     XML_STR_NO_ANSWER,
      XML_STR_RULE_DEACTIVATED,       XML_STR_NOT_REACHABLE, XML_STR_PRESENCE_STATUS,
      XML_STR_COMMUNICATION_DIVERTED, XML_STR_ROAMING,       XML_STR_INTERNATIONAL,
      XML_STR_INTERNATIONAL_EX_HC,    XML_STR_ZT_NULL};
  static constexpr ZtChoice kFlags = ZtChoice(XML_STR_BUSY, kFlag).Or(kFlagNames);

  // ---- Rules ------------------------------------------------------------------------------------

  static constexpr ZtField kId =
      ztrow::Attribute(XML_STR_ID, ZT_AT(zt_ns_common_policy_ruleType, m_Id)).Required();
  static constexpr ZtField kConditions =
      ztrow::Child(XML_STR_CONDITIONS, ZT_AT(zt_ns_common_policy_ruleType, m_Conditions)).Lenient();
  static constexpr ZtField Actions(const ZtElementType& type) {
    return ztrow::Child(XML_STR_ACTIONS, ZT_AT(zt_ns_common_policy_ruleType, m_Actions), type)
        .Lenient();
  }
  static constexpr ZtField kTransformations =
      ztrow::Child(XML_STR_TRANSFORMATIONS, ZT_AT(zt_ns_common_policy_ruleType, m_Transformations));
  static constexpr ZtField Elements(const ZtChoice* choices) {
    return ztrow::OtherChildren(ZT_AT(zt_ns_common_policy_extensibleType, m_Elements), choices);
  }
  static constexpr ZtField Rules(const ZtElementType& rule) {
    return ztrow::Children(XML_STR_RULE, ZT_AT(zt_ns_common_policy_ruleset, m_Rules), rule);
  }

  static constexpr ZtTypeFacts kExtensibleFacts =
      ZtTypeOf<zt_ns_common_policy_extensibleType>("zt_ns_common_policy_extensibleType",
                                                   "CommonPolicy:ExtensibleType", kTellingFamily)
          .RefusesUnknownAttributes();
  // Intended: conditions and actions that cannot be written are cut short where they fail and the
  // rest of the rule is written, so that callers get a text that is not well formed instead of
  // none.
  static constexpr ZtTypeFacts kRuleFacts =
      ZtTypeOf<zt_ns_common_policy_ruleType>("zt_ns_common_policy_ruleType",
                                             "CommonPolicy:RuleType", kFamily)
          .Writer(XML_STR_RULE, "AddRuleElementToXml", XML_STR_CP)
          .RefusesUnknownChildren();
  static constexpr ZtTypeFacts kRuleSetFacts =
      ZtTypeOf<zt_ns_common_policy_ruleset>("zt_ns_common_policy_ruleset", "CommonPolicy:Ruleset",
                                            kFamily)
          .Writer(XML_STR_RULESET, "AddRuleSetElementToXml", XML_STR_CP)
          .RefusesUnknownChildren()
          .RefusesUnknownAttributes();
};

// The rules of one service: `Service` has the actions that it knows (kActions) and the log line of
// their writer (kWriter).
template <class Service>
struct ZtPolicyOf {
  using Policy = CommonPolicyBinding;

  static constexpr ZtFamily kFamily = Policy::kTellingFamily.Enters("%s", kZtLogTrace);
  static const ZtElementType kActions, kRule, kRuleSet;
  static constexpr ZtPolicyTypes kTypes = {&kRuleSet, &kRule, &kActions};
};

template <class Service>
const ZtElementType ZtPolicyOf<Service>::kActions = {
    ZtWith(Policy::kExtensibleFacts, &ZtTypeFacts::family, &kFamily)
        .Writer(XML_STR_ACTIONS, Service::kWriter, XML_STR_CP),
    {Policy::Elements(Service::kActions).Lenient()}};
template <class Service>
const ZtElementType ZtPolicyOf<Service>::kRule = {
    Policy::kRuleFacts,
    {Policy::kId, Policy::kConditions, Policy::Actions(kActions), Policy::kTransformations}};
template <class Service>
const ZtElementType ZtPolicyOf<Service>::kRuleSet = {Policy::kRuleSetFacts, {Policy::Rules(kRule)}};

#endif  // ZTXML_SRC_COMMONPOLICYBINDING_H
