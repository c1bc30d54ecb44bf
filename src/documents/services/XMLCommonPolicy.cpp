#include "ztxml/XMLCommonPolicy.h"

#include "binding/ZtElementWriter.h"
#include "documents/services/CommonPolicyBinding.h"

namespace {
using Policy = CommonPolicyBinding;

constexpr ZtChoice kServiceConditions[] = {
    Policy::kFlags,
    {XML_STR_MEDIA, zt_ns_xcap_media_type::kType},
    ZtChoice(ZT_STR_EXTERNAL_LIST, zt_external_list::kType, XML_STR_OCP).NotWritten(),
    {}};

int CountOf(const ZtSingleElementList* list) { return list ? list->GetCount() : 0; }

// The entry of a list as a text, null when it is none.
const zt_string* TextAt(const ZtListNode* node) {
  return zt_string::From(static_cast<XMLElement*>(node->data));
}

bool WriteIdentity(ZtElementWriter& writer, const XMLElement& self, const ZtElementType& type) {
  const auto& identity = static_cast<const zt_ns_common_policy_identityType&>(self);
  if (ZtHeadOf(identity.getOneListValue()) || ZtHeadOf(identity.getManyListValue())) {
    return writer.WriteChildren(self, type);
  }
  writer.Log(kZtLogError,
             "<XML Module>: Identity element - m_OneListCount: %d, m_ManyListCount: %d",
             CountOf(identity.getOneListValue()), CountOf(identity.getManyListValue()));
  return false;
}

bool WriteValidity(ZtElementWriter& writer, const XMLElement& self, const ZtElementType&) {
  const auto& validity = static_cast<const zt_ns_common_policy_validityType&>(self);
  const ZtListNode* from = ZtHeadOf(validity.getFromListValue());
  const ZtListNode* until = ZtHeadOf(validity.getUntilListValue());
  bool paired = from && until;
  while (paired && from && until) {
    from = from->next;
    until = until->next;
    paired = !from == !until;
  }
  if (!paired) {
    writer.Log(kZtLogError,
               "<XML Module>: Validity element - m_fromListCount: %d, m_untilListCount: %d",
               CountOf(validity.getFromListValue()), CountOf(validity.getUntilListValue()));
    return false;
  }
  from = ZtHeadOf(validity.getFromListValue());
  until = ZtHeadOf(validity.getUntilListValue());
  for (; from && until; from = from->next, until = until->next) {
    const zt_string* start = TextAt(from);
    const zt_string* end = TextAt(until);
    if (!start || !end) continue;
    writer.WriteText(XML_STR_FROM, start->getValue() ? start->getValue() : "");
    writer.WriteText(XML_STR_UNTIL, end->getValue() ? end->getValue() : "");
  }
  return true;
}

constexpr ZtExtras kIdentity = {{}, nullptr, WriteIdentity};
constexpr ZtExtras kValidity = {{}, nullptr, WriteValidity};
}  // namespace

const ZtElementType zt_ns_common_policy_exceptType::kType = {
    ZtTypeOf<zt_ns_common_policy_exceptType>("zt_ns_common_policy_exceptType",
                                             "CommonPolicy:ExceptType", Policy::kFamily)
        .Writer(XML_STR_EXCEPT, "AddExceptElementToXml", XML_STR_CP)
        .RefusesUnknownChildren(),
    {ztrow::Attribute(XML_STR_DOMAIN, ZT_AT(zt_ns_common_policy_exceptType, m_Domain)).FreeText(),
     ztrow::Attribute(XML_STR_ID, ZT_AT(zt_ns_common_policy_exceptType, m_Id))}};
const ZtElementType zt_ns_common_policy_oneType::kType = {
    ZtTypeOf<zt_ns_common_policy_oneType>("zt_ns_common_policy_oneType", "CommonPolicy:OneType",
                                          Policy::kTellingFamily)
        .Starts(ZtStartTag::kEmpty)
        .ChecksFirst(),
    {ztrow::Attribute(XML_STR_ID, ZT_AT(zt_ns_common_policy_oneType, m_Id)).Required(),
     ztrow::OtherChildren(ZT_AT(zt_ns_common_policy_oneType, m_AnyList))}};
// Intended: the start tag of a "many" is closed by its attribute, so that it stays open without a
// domain; peers were tested with callers that set one.
const ZtElementType zt_ns_common_policy_manyType::kType = {
    ZtTypeOf<zt_ns_common_policy_manyType>("zt_ns_common_policy_manyType", "CommonPolicy:ManyType",
                                           Policy::kTellingFamily)
        .Starts(ZtStartTag::kStaysOpen),
    {ztrow::Attribute(XML_STR_DOMAIN, ZT_AT(zt_ns_common_policy_manyType, m_Domain)).FreeText(),
     ztrow::Children(XML_STR_EXCEPT, ZT_AT(zt_ns_common_policy_manyType, m_ExceptList)),
     ztrow::OtherChildren(ZT_AT(zt_ns_common_policy_manyType, m_AnyList))}};
const ZtElementType zt_ns_common_policy_identityType::kType = {
    ZtTypeOf<zt_ns_common_policy_identityType>("zt_ns_common_policy_identityType",
                                               "CommonPolicy:IdentityType", Policy::kTellingFamily)
        .RefusesUnknownAttributes()
        .With(kIdentity),
    {ztrow::Children(XML_STR_ONE, ZT_AT(zt_ns_common_policy_identityType, m_OneList)),
     ztrow::Children(XML_STR_MANY, ZT_AT(zt_ns_common_policy_identityType, m_ManyList)),
     ztrow::OtherChildren(ZT_AT(zt_ns_common_policy_identityType, m_AnyList))}};
const ZtElementType zt_ns_common_policy_sphereType::kType = {
    ZtTypeOf<zt_ns_common_policy_sphereType>("zt_ns_common_policy_sphereType",
                                             "CommonPolicy:SphereType", Policy::kFamily)
        .RefusesUnknownChildren()
        .ChecksFirst(),
    {ztrow::Attribute(XML_STR_VALUE, ZT_AT(zt_ns_common_policy_sphereType, m_Value))
         .FreeText()
         .Required()}};
const ZtElementType zt_ns_common_policy_validityType::kType = {
    ZtTypeOf<zt_ns_common_policy_validityType>("zt_ns_common_policy_validityType",
                                               "CommonPolicy:ValidityType", Policy::kFamily)
        .RefusesUnknownAttributes()
        .With(kValidity),
    {ztrow::TextElements(XML_STR_FROM, ZT_AT(zt_ns_common_policy_validityType, m_FromList))
         .Always()
         .Paired(),
     ztrow::TextElements(XML_STR_UNTIL, ZT_AT(zt_ns_common_policy_validityType, m_UntilList))
         .Always()}};
const ZtElementType zt_ns_common_policy_conditionsType::kType = {
    ZtTypeOf<zt_ns_common_policy_conditionsType>(
        "zt_ns_common_policy_conditionsType", "CommonPolicy:ConditionsType", Policy::kTellingFamily)
        .Writer(XML_STR_CONDITIONS, "AddConditionsElementToXml", XML_STR_CP)
        .RefusesUnknownAttributes(),
    {ztrow::Children(XML_STR_IDENTITY, ZT_AT(zt_ns_common_policy_conditionsType, m_IdentityList)),
     ztrow::Children(XML_STR_SPHERE, ZT_AT(zt_ns_common_policy_conditionsType, m_SphereList)),
     ztrow::Children(XML_STR_VALIDITY, ZT_AT(zt_ns_common_policy_conditionsType, m_ValidityList)),
     ztrow::OtherChildren(ZT_AT(zt_ns_common_policy_conditionsType, m_AnyList), kServiceConditions)
         .Lenient()}};
// Intended: transformations are written without their content, because no peer has asked for it.
const ZtElementType zt_ns_common_policy_extensibleType::kType = {
    Policy::kExtensibleFacts.Writer(XML_STR_TRANSFORMATIONS, "AddTransformationsElementToXml",
                                    XML_STR_CP),
    {Policy::Elements(nullptr)}};
const ZtElementType zt_ns_common_policy_ruleType::kType = {
    Policy::kRuleFacts,
    {Policy::kId, Policy::kConditions, Policy::Actions(zt_ns_common_policy_extensibleType::kType),
     Policy::kTransformations}};
const ZtElementType zt_ns_common_policy_ruleset::kType = {
    Policy::kRuleSetFacts, {Policy::Rules(zt_ns_common_policy_ruleType::kType)}};

int ZtPolicyMarshaller::AddRuleSetElementToXml(zt_ns_common_policy_ruleset* ruleset) {
  return Write(ruleset, *Policy().ruleset);
}
int ZtPolicyMarshaller::AddRuleElementToXml(zt_ns_common_policy_ruleType* rule) {
  return Write(rule, *Policy().rule);
}
int ZtPolicyMarshaller::AddActionsElementToXml(zt_ns_common_policy_extensibleType* actions) {
  return Write(actions, *Policy().actions);
}
int ZtPolicyMarshaller::AddEmptyElementtoXml(zt_empty_element_type* flag) {
  return Write(flag, Policy::kFlag);
}
