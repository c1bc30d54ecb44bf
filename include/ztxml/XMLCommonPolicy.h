// The rule set of a common policy (RFC 4745), as communication diversion and communication barring
// use it.
//
// Every element owns its texts, children and lists: setters copy texts, take objects and lists with
// their entries, and free what they replace; null means absent. The add operations take one object
// and return 1, or 0 when it is null, has an owner, or there is no memory.
#ifndef ZTXML_INCLUDE_XMLCOMMONPOLICY_H
#define ZTXML_INCLUDE_XMLCOMMONPOLICY_H

#include "ztxml/XMLSimservsXcap.h"
#include "ztxml/XMLValueTypes.h"
#include "ztxml/ZtNamespaceDocument.h"

/// An "except": who is excluded from a "many".
class zt_ns_common_policy_exceptType : public ZtTyped<zt_ns_common_policy_exceptType> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "domain".
  int setDomainValue(const char* text) { return m_Domain.Assign(text); }
  const char* getDomainValue() const { return m_Domain.Get(); }
  /// The attribute "id", a URI.
  int setIdValue(const char* text) { return m_Id.Assign(text); }
  const char* getIdValue() const { return m_Id.Get(); }

 private:
  ZtText m_Domain;
  ZtText m_Id;
};

/// A "one": a single identity.
class zt_ns_common_policy_oneType : public ZtTyped<zt_ns_common_policy_oneType> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "id", a URI; the element cannot be written without it.
  int setIdValue(const char* text) { return m_Id.Assign(text); }
  const char* getIdValue() const { return m_Id.Get(); }
  /// Other elements, which are never written.
  int setAnyListValue(ZtSingleElementList* list) { return m_AnyList.Set(list); }
  ZtListOf<XMLElement>* getAnyListValue() const { return m_AnyList; }
  int addAny(XMLElement* element) { return m_AnyList.Add(element); }

 private:
  ZtText m_Id;
  ZtChildListOf<XMLElement> m_AnyList;
};

/// A "many": everyone, or everyone of a domain.
class zt_ns_common_policy_manyType : public ZtTyped<zt_ns_common_policy_manyType> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "domain". Always set it: without it the start tag stays open in the output.
  int setDomainValue(const char* text) { return m_Domain.Assign(text); }
  const char* getDomainValue() const { return m_Domain.Get(); }
  /// Who is excluded, a list of zt_ns_common_policy_exceptType.
  int setExceptListValue(ZtSingleElementList* list) { return m_ExceptList.Set(list); }
  ZtListOf<zt_ns_common_policy_exceptType>* getExceptListValue() const { return m_ExceptList; }
  int addExcept(zt_ns_common_policy_exceptType* element) { return m_ExceptList.Add(element); }
  /// Other elements, which are never written.
  int setAnyListValue(ZtSingleElementList* list) { return m_AnyList.Set(list); }
  ZtListOf<XMLElement>* getAnyListValue() const { return m_AnyList; }
  int addAny(XMLElement* element) { return m_AnyList.Add(element); }

 private:
  ZtText m_Domain;
  ZtChildListOf<zt_ns_common_policy_exceptType> m_ExceptList;
  ZtChildListOf<XMLElement> m_AnyList;
};

/// The condition "identity". It cannot be written without a "one" or a "many".
class zt_ns_common_policy_identityType : public ZtTyped<zt_ns_common_policy_identityType> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_ns_common_policy_oneType.
  int setOneListValue(ZtSingleElementList* list) { return m_OneList.Set(list); }
  ZtListOf<zt_ns_common_policy_oneType>* getOneListValue() const { return m_OneList; }
  int addOne(zt_ns_common_policy_oneType* element) { return m_OneList.Add(element); }
  /// A list of zt_ns_common_policy_manyType.
  int setManyListValue(ZtSingleElementList* list) { return m_ManyList.Set(list); }
  ZtListOf<zt_ns_common_policy_manyType>* getManyListValue() const { return m_ManyList; }
  int addMany(zt_ns_common_policy_manyType* element) { return m_ManyList.Add(element); }
  /// Other elements, which are never written.
  int setAnyListValue(ZtSingleElementList* list) { return m_AnyList.Set(list); }
  ZtListOf<XMLElement>* getAnyListValue() const { return m_AnyList; }
  int addAny(XMLElement* element) { return m_AnyList.Add(element); }

 private:
  ZtChildListOf<zt_ns_common_policy_oneType> m_OneList;
  ZtChildListOf<zt_ns_common_policy_manyType> m_ManyList;
  ZtChildListOf<XMLElement> m_AnyList;
};

/// The condition "sphere".
class zt_ns_common_policy_sphereType : public ZtTyped<zt_ns_common_policy_sphereType> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "value"; the element cannot be written without it.
  int setValueValue(const char* text) { return m_Value.Assign(text); }
  const char* getValueValue() const { return m_Value.Get(); }

 private:
  ZtText m_Value;
};

/// The condition "validity": periods of time. The n-th "from" goes with the n-th "until"; to be
/// written it needs as many of both, and at least one.
class zt_ns_common_policy_validityType : public ZtTyped<zt_ns_common_policy_validityType> {
 public:
  ZT_API static const ZtElementType kType;
  /// The starts, a list of zt_string with dates and times as in RFC 3339.
  int setFromListValue(ZtSingleElementList* list) { return m_FromList.Set(list); }
  ZtListOf<zt_string>* getFromListValue() const { return m_FromList; }
  int addFrom(zt_string* element) { return m_FromList.Add(element); }
  /// The ends: a list like that of the starts.
  int setUntilListValue(ZtSingleElementList* list) { return m_UntilList.Set(list); }
  ZtListOf<zt_string>* getUntilListValue() const { return m_UntilList; }
  int addUntil(zt_string* element) { return m_UntilList.Add(element); }

 private:
  ZtChildListOf<zt_string> m_FromList;
  ZtChildListOf<zt_string> m_UntilList;
};

/// The "conditions" of a rule, all of which must hold.
class zt_ns_common_policy_conditionsType : public ZtTyped<zt_ns_common_policy_conditionsType> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_ns_common_policy_identityType.
  int setIdentityListValue(ZtSingleElementList* list) { return m_IdentityList.Set(list); }
  ZtListOf<zt_ns_common_policy_identityType>* getIdentityListValue() const {
    return m_IdentityList;
  }
  int addIdentity(zt_ns_common_policy_identityType* element) { return m_IdentityList.Add(element); }
  /// A list of zt_ns_common_policy_sphereType.
  int setSphereListValue(ZtSingleElementList* list) { return m_SphereList.Set(list); }
  ZtListOf<zt_ns_common_policy_sphereType>* getSphereListValue() const { return m_SphereList; }
  int addSphere(zt_ns_common_policy_sphereType* element) { return m_SphereList.Add(element); }
  /// A list of zt_ns_common_policy_validityType.
  int setValidityListValue(ZtSingleElementList* list) { return m_ValidityList.Set(list); }
  ZtListOf<zt_ns_common_policy_validityType>* getValidityListValue() const {
    return m_ValidityList;
  }
  int addValidity(zt_ns_common_policy_validityType* element) { return m_ValidityList.Add(element); }
  /// The conditions of the service: flags (zt_empty_element_type, e.g. "busy") and
  /// zt_ns_xcap_media_type are written, others not.
  int setAnyListValue(ZtSingleElementList* list) { return m_AnyList.Set(list); }
  ZtListOf<XMLElement>* getAnyListValue() const { return m_AnyList; }
  int addAny(XMLElement* element) { return m_AnyList.Add(element); }

 private:
  ZtChildListOf<zt_ns_common_policy_identityType> m_IdentityList;
  ZtChildListOf<zt_ns_common_policy_sphereType> m_SphereList;
  ZtChildListOf<zt_ns_common_policy_validityType> m_ValidityList;
  ZtChildListOf<XMLElement> m_AnyList;
};

/// The "actions" or the "transformations" of a rule.
class zt_ns_common_policy_extensibleType : public ZtTyped<zt_ns_common_policy_extensibleType> {
 public:
  ZT_API static const ZtElementType kType;
  /// Any elements. Of actions those that the service knows are written; of transformations none:
  /// the element is always written empty.
  int setElementsValue(ZtSingleElementList* list) { return m_Elements.Set(list); }
  ZtListOf<XMLElement>* getElementsValue() const { return m_Elements; }
  int addElement(XMLElement* element) { return m_Elements.Add(element); }

 private:
  friend struct CommonPolicyBinding;

  ZtChildListOf<XMLElement> m_Elements;
};

/// A "rule": what happens under which conditions.
class zt_ns_common_policy_ruleType : public ZtTyped<zt_ns_common_policy_ruleType> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "id", unique in the rule set; the element cannot be written without it.
  int setIdValue(const char* text) { return m_Id.Assign(text); }
  const char* getIdValue() const { return m_Id.Get(); }
  /// Absent conditions hold always.
  int setConditionsValue(zt_ns_common_policy_conditionsType* element) {
    return m_Conditions.Set(element);
  }
  zt_ns_common_policy_conditionsType* getConditionsValue() const { return m_Conditions; }
  /// What the service does.
  int setActionsValue(zt_ns_common_policy_extensibleType* element) {
    return m_Actions.Set(element);
  }
  zt_ns_common_policy_extensibleType* getActionsValue() const { return m_Actions; }
  /// What is hidden from whom; always written empty.
  int setTransformationsValue(zt_ns_common_policy_extensibleType* element) {
    return m_Transformations.Set(element);
  }
  zt_ns_common_policy_extensibleType* getTransformationsValue() const { return m_Transformations; }

 private:
  friend struct CommonPolicyBinding;

  ZtText m_Id;
  ZtChildOf<zt_ns_common_policy_conditionsType> m_Conditions;
  ZtChildOf<zt_ns_common_policy_extensibleType> m_Actions;
  ZtChildOf<zt_ns_common_policy_extensibleType> m_Transformations;
};

/// The "ruleset": rules in the order in which they are evaluated.
class zt_ns_common_policy_ruleset : public ZtTyped<zt_ns_common_policy_ruleset> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_ns_common_policy_ruleType.
  int setRulesValue(ZtSingleElementList* list) { return m_Rules.Set(list); }
  ZtListOf<zt_ns_common_policy_ruleType>* getRulesValue() const { return m_Rules; }
  int addRule(zt_ns_common_policy_ruleType* element) { return m_Rules.Add(element); }

 private:
  friend struct CommonPolicyBinding;

  ZtChildListOf<zt_ns_common_policy_ruleType> m_Rules;
};

/// Makes the elements of a rule set, empty; each is the caller's until a parent takes it. Null when
/// out of memory.
class ZtPolicyDataBinder : public ZtFactory {
 public:
  zt_ns_common_policy_ruleset* CreateRuleSetElement() { return Make(); }
  zt_ns_common_policy_ruleType* CreateRuleTypeElement() { return Make(); }
  zt_ns_common_policy_conditionsType* CreateConditionsTypeElement() { return Make(); }
  zt_ns_common_policy_identityType* CreateIdentityTypeElement() { return Make(); }
  zt_ns_common_policy_oneType* CreateOneTypeElement() { return Make(); }
  zt_ns_common_policy_manyType* CreateManyTypeElement() { return Make(); }
  zt_ns_common_policy_exceptType* CreateExceptTypeElement() { return Make(); }
  zt_ns_common_policy_sphereType* CreateSphereTypeElement() { return Make(); }
  zt_ns_common_policy_validityType* CreateValidityTypeElement() { return Make(); }
  zt_ns_common_policy_extensibleType* CreateActionsTypeElement() { return Make(); }
  zt_ns_common_policy_extensibleType* CreateTransformationsTypeElement() { return Make(); }
  /// A flag that is absent until setValue gives it its name, e.g. "busy".
  zt_empty_element_type* CreateEmptyTypeElement() { return Make(); }
  zt_ns_xcap_media_type* CreateMediaTypeElement() { return Make(); }
  zt_presence_status_activity_type* CreatePresenceStatusActivityTypeElement() { return Make(); }
  zt_external_list* CreateExternalListElement() { return Make(); }
};

/// How a service writes the rule set; opaque to callers.
struct ZtPolicyTypes;

/// Writes rule sets. The Add functions write one element each and return 1, or 0 on failure; they
/// work only while Marshall runs. Conditions that cannot be written are cut short, without their
/// end tag, and the rest of the rule follows.
class ZT_API ZtPolicyMarshaller : public ZtNamespaceMarshaller {
 public:
  int AddRuleSetElementToXml(zt_ns_common_policy_ruleset* ruleset);
  int AddRuleElementToXml(zt_ns_common_policy_ruleType* rule);
  int AddConditionsElementToXml(zt_ns_common_policy_conditionsType* conditions) {
    return Write(conditions);
  }
  int AddExceptElementToXml(zt_ns_common_policy_exceptType* except) { return Write(except); }
  int AddActionsElementToXml(zt_ns_common_policy_extensibleType* actions);
  int AddTransformationsElementToXml(zt_ns_common_policy_extensibleType* transformations) {
    return Write(transformations);
  }
  int AddEmptyElementtoXml(zt_empty_element_type* flag);

 protected:
  using ZtNamespaceMarshaller::ZtNamespaceMarshaller;

 private:
  virtual const ZtPolicyTypes& Policy() const = 0;
};

#endif  // ZTXML_INCLUDE_XMLCOMMONPOLICY_H
