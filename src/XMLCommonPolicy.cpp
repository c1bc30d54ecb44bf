#include "XMLCommonPolicy.h"

#include "CommonPolicyBinding.h"
#include "binding/ZtElementWriter.h"

namespace {

// What reading a rule needs to know of a service: nothing.
struct AnyService {
  static constexpr ZtChoice kActions[] = {{}};
  static constexpr const char* kEntryLine = nullptr;
};

int CountOf(const ZtChildList& list) { return list.Get() ? list.Get()->GetCount() : 0; }

// The text of a list's entry, null when there is no text in it.
const zt_string* TextAt(const ZtListNode* node) {
  return zt_string::From(static_cast<XMLElement*>(node->data));
}

}  // namespace

// ---- Conditions ---------------------------------------------------------------------------------

bool CommonPolicyBinding::WriteIdentity(ZtElementWriter& writer, const XMLElement& self,
                                        const ZtElementType& type) {
  const auto& identity = static_cast<const zt_ns_common_policy_identityType&>(self);
  if (identity.m_OneList.Head() || identity.m_ManyList.Head()) {
    return writer.WriteChildren(self, type);
  }
  writer.Log(kZtLogError,
             "<XML Module>: Identity element - m_OneListCount: %d, m_ManyListCount: %d",
             CountOf(identity.m_OneList), CountOf(identity.m_ManyList));
  return false;
}

bool CommonPolicyBinding::WriteValidity(ZtElementWriter& writer, const XMLElement& self,
                                        const ZtElementType&) {
  const auto& validity = static_cast<const zt_ns_common_policy_validityType&>(self);
  const ZtListNode* from = validity.m_FromList.Head();
  const ZtListNode* until = validity.m_UntilList.Head();
  bool paired = from && until;
  while (paired && from && until) {
    from = from->next;
    until = until->next;
    paired = !from == !until;
  }
  if (!paired) {
    writer.Log(kZtLogError,
               "<XML Module>: Validity element - m_fromListCount: %d, m_untilListCount: %d",
               CountOf(validity.m_FromList), CountOf(validity.m_UntilList));
    return false;
  }
  from = validity.m_FromList.Head();
  until = validity.m_UntilList.Head();
  for (; from && until; from = from->next, until = until->next) {
    const zt_string* start = TextAt(from);
    const zt_string* end = TextAt(until);
    if (!start || !end) continue;
    writer.WriteText(XML_STR_FROM, start->getValue() ? start->getValue() : "");
    writer.WriteText(XML_STR_UNTIL, end->getValue() ? end->getValue() : "");
  }
  return true;
}

const ZtElementType zt_ns_common_policy_exceptType::kType =
    ZtTypeOf<zt_ns_common_policy_exceptType>(
        "zt_ns_common_policy_exceptType", "CommonPolicy:ExceptType", CommonPolicyBinding::kFamily)
        .Fields(CommonPolicyBinding::kExcept)
        .Writer(XML_STR_EXCEPT, "AddExceptElementToXml", XML_STR_CP)
        .RefusesUnknownChildren();

const ZtElementType zt_ns_common_policy_oneType::kType =
    ZtTypeOf<zt_ns_common_policy_oneType>("zt_ns_common_policy_oneType", "CommonPolicy:OneType",
                                          CommonPolicyBinding::kFamily)
        .Fields(CommonPolicyBinding::kOne)
        .UnknownElement(kCannotAccommodate)
        .SelfClosing()
        .ChecksFirst();

// Intended: only an attribute closes the start tag of a "many", so that it stays open when there is
// no domain; peers were tested with callers that set one.
const ZtElementType zt_ns_common_policy_manyType::kType =
    ZtTypeOf<zt_ns_common_policy_manyType>("zt_ns_common_policy_manyType", "CommonPolicy:ManyType",
                                           CommonPolicyBinding::kFamily)
        .Fields(CommonPolicyBinding::kMany)
        .UnknownElement(kCannotAccommodate)
        .StaysOpen();

const ZtElementType zt_ns_common_policy_identityType::kType =
    ZtTypeOf<zt_ns_common_policy_identityType>("zt_ns_common_policy_identityType",
                                               "CommonPolicy:IdentityType",
                                               CommonPolicyBinding::kFamily)
        .Fields(CommonPolicyBinding::kIdentity)
        .UnknownElement(kCannotAccommodate)
        .RefusesUnknownAttributes()
        .OnContent(CommonPolicyBinding::WriteIdentity);

const ZtElementType zt_ns_common_policy_sphereType::kType =
    ZtTypeOf<zt_ns_common_policy_sphereType>(
        "zt_ns_common_policy_sphereType", "CommonPolicy:SphereType", CommonPolicyBinding::kFamily)
        .Fields(CommonPolicyBinding::kSphere)
        .RefusesUnknownChildren()
        .ChecksFirst();

const ZtElementType zt_ns_common_policy_validityType::kType =
    ZtTypeOf<zt_ns_common_policy_validityType>("zt_ns_common_policy_validityType",
                                               "CommonPolicy:ValidityType",
                                               CommonPolicyBinding::kFamily)
        .Fields(CommonPolicyBinding::kValidity)
        .RefusesUnknownAttributes()
        .OnContent(CommonPolicyBinding::WriteValidity);

const ZtElementType zt_ns_common_policy_conditionsType::kType =
    ZtTypeOf<zt_ns_common_policy_conditionsType>("zt_ns_common_policy_conditionsType",
                                                 "CommonPolicy:ConditionsType",
                                                 CommonPolicyBinding::kFamily)
        .Fields(CommonPolicyBinding::kConditions)
        .Writer(XML_STR_CONDITIONS, "AddConditionsElementToXml", XML_STR_CP)
        .UnknownElement(kCannotAccommodate)
        .RefusesUnknownAttributes();

// ---- Rules --------------------------------------------------------------------------------------

const ZtElementType zt_ns_common_policy_extensibleType::kType =
    CommonPolicyBinding::kActions<AnyService>;
const ZtElementType zt_ns_common_policy_ruleType::kType = CommonPolicyBinding::kRule<AnyService>;
const ZtElementType zt_ns_common_policy_ruleset::kType = CommonPolicyBinding::kRuleSet<AnyService>;

// ---- Workers ------------------------------------------------------------------------------------

int ZtPolicyMarshaller::AddRuleSetElementToXml(zt_ns_common_policy_ruleset* ruleset) {
  return Write(ruleset, *Policy().ruleset);
}
int ZtPolicyMarshaller::AddRuleElementToXml(zt_ns_common_policy_ruleType* rule) {
  return Write(rule, *Policy().rule);
}
int ZtPolicyMarshaller::AddActionsElementToXml(zt_ns_common_policy_extensibleType* actions) {
  return Write(actions, *Policy().actions);
}
int ZtPolicyMarshaller::AddTransformationsElementToXml(
    zt_ns_common_policy_extensibleType* transformations) {
  return Write(transformations, CommonPolicyBinding::kTransformations);
}
int ZtPolicyMarshaller::AddEmptyElementtoXml(zt_empty_element_type* flag) {
  return Write(flag, CommonPolicyBinding::kFlag);
}
