// The elements of provisioning documents (OMA client provisioning): parameters in groups that nest.
//
// Elements own their texts and lists: setters copy texts, take lists with their entries, and free
// what they replace; null means absent. The add operations take one object and return 1, or 0 when
// it is null, has an owner, or there is no memory.
#ifndef ZTXML_INCLUDE_XMLCHARACTERISTIC_H
#define ZTXML_INCLUDE_XMLCHARACTERISTIC_H

#include "ztxml/ZtElement.h"

/// A "parm": one parameter.
class zt_parm : public ZtTyped<zt_parm> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "name".
  int setParmName(const char* name) { return m_Name.Assign(name); }
  const char* getParmName() const { return m_Name.Get(); }
  /// The attribute "value".
  int setParmValue(const char* value) { return m_Value.Assign(value); }
  const char* getParmValue() const { return m_Value.Get(); }

 private:
  ZtText m_Name;
  ZtText m_Value;
};

/// A "characteristic": a group of parameters and of other groups.
class zt_characteristic : public ZtTyped<zt_characteristic> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "type", the group's name.
  int setType(const char* type) { return m_Type.Assign(type); }
  const char* getType() const { return m_Type.Get(); }
  /// A list of zt_parm. Intended: the setter is called setParmList, but its getter getParamList;
  /// callers use both names.
  int setParmList(ZtSingleElementList* list) { return m_Parms.Set(list); }
  ZtListOf<zt_parm>* getParamList() const { return m_Parms; }
  int addParm(zt_parm* parm) { return m_Parms.Add(parm); }
  /// A list of zt_characteristic.
  int setCharacteristicList(ZtSingleElementList* list) { return m_Characteristics.Set(list); }
  ZtListOf<zt_characteristic>* getCharacteristicList() const { return m_Characteristics; }
  int addCharacteristic(zt_characteristic* group) { return m_Characteristics.Add(group); }

 private:
  ZtText m_Type;
  ZtChildListOf<zt_parm> m_Parms;
  ZtChildListOf<zt_characteristic> m_Characteristics;
};

/// What the roots of provisioning documents have.
class ZtProvisioning : public ZtObject {
 public:
  ZT_INLINE ~ZtProvisioning() override = default;

  /// The attribute "version".
  int setVersion(const char* version) { return m_Version.Assign(version); }
  const char* getVersion() const { return m_Version.Get(); }
  /// A list of zt_characteristic.
  int setCharacteristicList(ZtSingleElementList* list) { return m_Characteristics.Set(list); }
  ZtListOf<zt_characteristic>* getCharacteristicList() const { return m_Characteristics; }
  int addCharacteristic(zt_characteristic* group) { return m_Characteristics.Add(group); }

 private:
  friend struct CharacteristicBinding;

  ZtText m_Version;
  ZtChildListOf<zt_characteristic> m_Characteristics;
};

#endif  // ZTXML_INCLUDE_XMLCHARACTERISTIC_H
