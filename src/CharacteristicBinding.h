// The rows of provisioning documents. Their attributes come as texts under their plain names.
#ifndef ZTXML_SRC_CHARACTERISTICBINDING_H
#define ZTXML_SRC_CHARACTERISTICBINDING_H

#include "XMLCharacteristic.h"
#include "binding/ZtDocumentTable.h"

struct CharacteristicBinding {
  static constexpr ZtField kParm[] = {
      ztrow::TextElement(XML_STR_NAME, &zt_parm::m_Name).FromAttribute(),
      ztrow::TextElement(XML_STR_VALUE, &zt_parm::m_Value).FromAttribute(),
  };
  static constexpr ZtField kCharacteristic[] = {
      ztrow::TextElement(XML_STR_TYPE, &zt_characteristic::m_Type).FromAttribute(),
      ztrow::Children(ZT_STR_CHARACTERISTIC, &zt_characteristic::m_Characteristics,
                      zt_characteristic::kType),
      ztrow::Children(ZT_STR_PARM, &zt_characteristic::m_Parms, zt_parm::kType),
  };
  static constexpr ZtField kRoot[] = {
      ztrow::TextElement(XML_STR_VERSION, &ZtProvisioning::m_Version).FromAttribute(),
      ztrow::Children(ZT_STR_CHARACTERISTIC, &ZtProvisioning::m_Characteristics,
                      zt_characteristic::kType),
  };
  static_assert(ztrow::Sound(kParm) && ztrow::Sound(kCharacteristic) && ztrow::Sound(kRoot));
};

#endif  // ZTXML_SRC_CHARACTERISTICBINDING_H
