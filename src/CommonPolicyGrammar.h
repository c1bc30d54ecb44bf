// The element names of a rule set, which the decoders of two services share.
#ifndef ZTXML_SRC_COMMONPOLICYGRAMMAR_H
#define ZTXML_SRC_COMMONPOLICYGRAMMAR_H

#include "XMLCommonPolicy.h"
#include "XMLCommunicationDiversion.h"
#include "binding/ZtGrammar.h"

inline constexpr ZtGrammarRow kPolicyRows[] = {
    {XML_STR_RULESET, ZtElementKind::kStructured, &zt_ns_common_policy_ruleset::kType},
    {XML_STR_RULE, ZtElementKind::kStructured, &zt_ns_common_policy_ruleType::kType},
    {XML_STR_CONDITIONS, ZtElementKind::kStructured, &zt_ns_common_policy_conditionsType::kType},
    {XML_STR_ACTIONS, ZtElementKind::kStructured, &zt_ns_common_policy_extensibleType::kType},
    {XML_STR_TRANSFORMATIONS, ZtElementKind::kStructured,
     &zt_ns_common_policy_extensibleType::kType},
    {XML_STR_IDENTITY, ZtElementKind::kStructured, &zt_ns_common_policy_identityType::kType},
    {XML_STR_ONE, ZtElementKind::kStructured, &zt_ns_common_policy_oneType::kType},
    {XML_STR_MANY, ZtElementKind::kStructured, &zt_ns_common_policy_manyType::kType},
    {XML_STR_EXCEPT, ZtElementKind::kStructured, &zt_ns_common_policy_exceptType::kType},
    {XML_STR_SPHERE, ZtElementKind::kStructured, &zt_ns_common_policy_sphereType::kType},
    {XML_STR_VALIDITY, ZtElementKind::kStructured, &zt_ns_common_policy_validityType::kType},
    {XML_STR_FORWARD_TO, ZtElementKind::kStructured, &zt_ns_xcap_forward_to_type::kType},
    {ZT_STR_EXTERNAL_LIST, ZtElementKind::kStructured, &zt_external_list::kType},
    {XML_STR_MEDIA, ZtElementKind::kTextBearing, &zt_ns_xcap_media_type::kType},
    {XML_STR_BUSY, ZtElementKind::kFlag, nullptr},
    {XML_STR_NOT_REGISTERED, ZtElementKind::kFlag, nullptr},
    {XML_STR_ANONYMOUS, ZtElementKind::kFlag, nullptr},
    {XML_STR_NO_ANSWER, ZtElementKind::kFlag, nullptr},
    {XML_STR_RULE_DEACTIVATED, ZtElementKind::kFlag, nullptr},
    {XML_STR_NOT_REACHABLE, ZtElementKind::kFlag, nullptr},
    {XML_STR_PRESENCE_STATUS, ZtElementKind::kFlag, nullptr},
    {XML_STR_COMMUNICATION_DIVERTED, ZtElementKind::kFlag, nullptr},
    {XML_STR_ROAMING, ZtElementKind::kFlag, nullptr},
    {XML_STR_INTERNATIONAL, ZtElementKind::kFlag, nullptr},
    {XML_STR_INTERNATIONAL_EX_HC, ZtElementKind::kFlag, nullptr},
};

#endif  // ZTXML_SRC_COMMONPOLICYGRAMMAR_H
