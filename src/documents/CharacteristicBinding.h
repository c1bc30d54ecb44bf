// The rows of the roots of provisioning documents.
#ifndef ZTXML_SRC_CHARACTERISTICBINDING_H
#define ZTXML_SRC_CHARACTERISTICBINDING_H

#include "binding/ZtDocumentTable.h"
#include "ztxml/XMLCharacteristic.h"

struct CharacteristicBinding {
  static constexpr ZtField kVersion =
      ztrow::Attribute(XML_STR_VERSION, ZT_AT(ZtProvisioning, m_Version)).FreeText();
  static constexpr ZtField kCharacteristics =
      ztrow::Children(ZT_STR_CHARACTERISTIC, ZT_AT(ZtProvisioning, m_Characteristics));
};

#endif  // ZTXML_SRC_CHARACTERISTICBINDING_H
