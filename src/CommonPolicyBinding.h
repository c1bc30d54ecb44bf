// The rule set of a common policy as data. The services read it alike; each writes it with actions
// of its own.
#ifndef ZTXML_SRC_COMMONPOLICYBINDING_H
#define ZTXML_SRC_COMMONPOLICYBINDING_H

#include "SimservBinding.h"
#include "XMLCommonPolicy.h"
#include "base/ZtLog.h"
#include "binding/ZtBinding.h"

// The types of a rule set as one service writes them.
struct ZtPolicyTypes {
  const ZtElementType* ruleset;
  const ZtElementType* rule;
  const ZtElementType* actions;
};

struct CommonPolicyBinding {
  static constexpr ZtFamily kFamily = ZtQuietFamily("src/XMLCommonPolicy", "src/XMLCommonPolicy");

  // ---- Flags ------------------------------------------------------------------------------------

  // Intended: the writer of a flag is called AddEmptyElementtoXml, with a small "t", also in its
  // lines, which begin with the marshaller of the service (Communication_diversionMarshaller);
  // callers and log readers use the name.
  static constexpr ZtFlag kFlagText = {
      "%s::AddEmptyElementtoXml: Received empty present false",
      "%s::AddEmptyElementtoXml: Received empty element is NULL",
      // Intended: the name of a flag is cut at 98 bytes when it is written: with "/" and NUL it
      // fits into the 100 bytes that peers were tested with.
      98};
  static constexpr ZtElementType kFlag =
      ZtFlagOf(kFamily, "AddEmptyElementtoXml", kFlagText, XML_STR_SS);

  static constexpr ZtNameId kFlagNames[] = {
      XML_STR_NOT_REGISTERED,         XML_STR_ANONYMOUS,     XML_STR_NO_ANSWER,
      XML_STR_RULE_DEACTIVATED,       XML_STR_NOT_REACHABLE, XML_STR_PRESENCE_STATUS,
      XML_STR_COMMUNICATION_DIVERTED, XML_STR_ROAMING,       XML_STR_INTERNATIONAL,
      XML_STR_INTERNATIONAL_EX_HC,    XML_STR_ZT_NULL};
  static constexpr ZtChoice kFlags = ZtChoice(XML_STR_BUSY, kFlag).Or(kFlagNames);

  // ---- Conditions -------------------------------------------------------------------------------

  static constexpr ZtField kExcept[] = {
      ztrow::Attribute(XML_STR_DOMAIN, &zt_ns_common_policy_exceptType::m_Domain),
      ztrow::Attribute(XML_STR_ID, &zt_ns_common_policy_exceptType::m_Id),
  };
  static constexpr ZtField kOne[] = {
      ztrow::Attribute(XML_STR_ID, &zt_ns_common_policy_oneType::m_Id)
          .Required("<XML Module>: One element's - Id attribute is mandatory", kZtLogError),
      ztrow::OtherChildren(&zt_ns_common_policy_oneType::m_AnyList),
  };
  static constexpr ZtField kMany[] = {
      ztrow::Attribute(XML_STR_DOMAIN, &zt_ns_common_policy_manyType::m_Domain),
      ztrow::Children(XML_STR_EXCEPT, &zt_ns_common_policy_manyType::m_ExceptList,
                      zt_ns_common_policy_exceptType::kType),
      ztrow::OtherChildren(&zt_ns_common_policy_manyType::m_AnyList),
  };
  static constexpr ZtField kIdentity[] = {
      ztrow::Children(XML_STR_ONE, &zt_ns_common_policy_identityType::m_OneList,
                      zt_ns_common_policy_oneType::kType),
      ztrow::Children(XML_STR_MANY, &zt_ns_common_policy_identityType::m_ManyList,
                      zt_ns_common_policy_manyType::kType),
      ztrow::OtherChildren(&zt_ns_common_policy_identityType::m_AnyList),
  };
  static bool WriteIdentity(ZtElementWriter& writer, const XMLElement& self,
                            const ZtElementType& type);

  static constexpr ZtField kSphere[] = {
      ztrow::Attribute(XML_STR_VALUE, &zt_ns_common_policy_sphereType::m_Value)
          .Required("<XML Module>: Sphere element's - Value attribute is mandatory", kZtLogError),
  };
  static constexpr ZtField kValidity[] = {
      ztrow::TextElements(XML_STR_FROM, &zt_ns_common_policy_validityType::m_FromList).Always(),
      ztrow::TextElements(XML_STR_UNTIL, &zt_ns_common_policy_validityType::m_UntilList).Always(),
  };
  static bool WriteValidity(ZtElementWriter& writer, const XMLElement& self,
                            const ZtElementType& type);

  static constexpr ZtChoice kServiceConditions[] = {
      kFlags,
      {XML_STR_MEDIA, zt_ns_xcap_media_type::kType},
      ZtChoice(ZT_STR_EXTERNAL_LIST, zt_external_list::kType).NotWritten(),
      {}};
  static constexpr ZtField kConditions[] = {
      ztrow::Children(XML_STR_IDENTITY, &zt_ns_common_policy_conditionsType::m_IdentityList,
                      zt_ns_common_policy_identityType::kType),
      ztrow::Children(XML_STR_SPHERE, &zt_ns_common_policy_conditionsType::m_SphereList,
                      zt_ns_common_policy_sphereType::kType),
      ztrow::Children(XML_STR_VALIDITY, &zt_ns_common_policy_conditionsType::m_ValidityList,
                      zt_ns_common_policy_validityType::kType),
      ztrow::OtherChildren(&zt_ns_common_policy_conditionsType::m_AnyList, kServiceConditions)
          .Lenient(),
  };

  // ---- Rules ------------------------------------------------------------------------------------
  // `Service` tells the actions that it writes, kActions, and the line of their writer, kEntryLine.

  static constexpr ZtElementType kExtensible =
      ZtTypeOf<zt_ns_common_policy_extensibleType>("zt_ns_common_policy_extensibleType",
                                                   "CommonPolicy:ExtensibleType", kFamily)
          .UnknownElement(kCannotAccommodate)
          .RefusesUnknownAttributes();
  template <class Service>
  static constexpr ZtField kActionRows[] = {
      ztrow::OtherChildren(&zt_ns_common_policy_extensibleType::m_Elements, Service::kActions)
          .Lenient(),
  };
  template <class Service>
  static constexpr ZtElementType kActions = kExtensible.Fields(kActionRows<Service>)
                                                .Writer(XML_STR_ACTIONS, nullptr, XML_STR_CP)
                                                .EntryLine(Service::kEntryLine);
  // Intended: transformations are written without their content; no peer has asked for any.
  static constexpr ZtField kTransformationRows[] = {
      ztrow::OtherChildren(&zt_ns_common_policy_extensibleType::m_Elements)};
  static constexpr ZtElementType kTransformations =
      kExtensible.Fields(kTransformationRows)
          .Writer(XML_STR_TRANSFORMATIONS, "AddTransformationsElementToXml", XML_STR_CP);

  // Intended: a rule goes on after conditions or actions that cannot be written and are cut short
  // where they fail, so that callers get a text that is not well formed instead of none.
  template <class Service>
  static constexpr ZtField kRuleRows[] = {
      ztrow::Attribute(XML_STR_ID, &zt_ns_common_policy_ruleType::m_Id)
          .Required("<XML Module>: AddRuleElementToXml Rule ID mandatory", kZtLogError),
      ztrow::Child(XML_STR_CONDITIONS, &zt_ns_common_policy_ruleType::m_Conditions,
                   zt_ns_common_policy_conditionsType::kType)
          .Lenient(),
      ztrow::Child(XML_STR_ACTIONS, &zt_ns_common_policy_ruleType::m_Actions, kActions<Service>)
          .Lenient(),
      ztrow::Child(XML_STR_TRANSFORMATIONS, &zt_ns_common_policy_ruleType::m_Transformations,
                   kTransformations),
  };
  template <class Service>
  static constexpr ZtElementType kRule =
      ZtTypeOf<zt_ns_common_policy_ruleType>("zt_ns_common_policy_ruleType",
                                             "CommonPolicy:RuleType", kFamily)
          .Fields(kRuleRows<Service>)
          .Writer(XML_STR_RULE, "AddRuleElementToXml", XML_STR_CP)
          .RefusesUnknownChildren();

  template <class Service>
  static constexpr ZtField kRuleSetRows[] = {
      ztrow::Children(XML_STR_RULE, &zt_ns_common_policy_ruleset::m_Rules, kRule<Service>)
          .Note("<XML Module>: AddRuleSetElementToXml Rule ID mandatory", kZtLogError),
  };
  template <class Service>
  static constexpr ZtElementType kRuleSet =
      ZtTypeOf<zt_ns_common_policy_ruleset>("zt_ns_common_policy_ruleset", "CommonPolicy:Ruleset",
                                            kFamily)
          .Fields(kRuleSetRows<Service>)
          .Writer(XML_STR_RULESET, "AddRuleSetElementToXml", XML_STR_CP)
          .RefusesUnknownChildren()
          .RefusesUnknownAttributes();

  template <class Service>
  static constexpr ZtPolicyTypes kTypes = {&kRuleSet<Service>, &kRule<Service>, &kActions<Service>};

  static_assert(ztrow::Sound(kExcept) && ztrow::Sound(kOne) && ztrow::Sound(kMany));
  static_assert(ztrow::Sound(kIdentity) && ztrow::Sound(kValidity) && ztrow::Sound(kConditions));
};

#endif  // ZTXML_SRC_COMMONPOLICYBINDING_H
