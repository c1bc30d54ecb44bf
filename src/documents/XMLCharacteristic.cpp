#include "ztxml/XMLCharacteristic.h"

#include "documents/CharacteristicBinding.h"

namespace {
constexpr ZtFamily kFamily = ZtQuietFamily("src/XMLCharacteristic");
}  // namespace

const ZtElementType zt_parm::kType = {
    ZtTypeOf<zt_parm>("zt_parm", "parm", kFamily).AttributesAsTexts(),
    {ztrow::Attribute(XML_STR_NAME, ZT_AT(zt_parm, m_Name)).FreeText(),
     ztrow::Attribute(XML_STR_VALUE, ZT_AT(zt_parm, m_Value)).FreeText()}};
const ZtElementType zt_characteristic::kType = {
    ZtTypeOf<zt_characteristic>("zt_characteristic", "characteristic", kFamily).AttributesAsTexts(),
    {ztrow::Attribute(XML_STR_TYPE, ZT_AT(zt_characteristic, m_Type)).FreeText(),
     ztrow::Children(ZT_STR_CHARACTERISTIC, ZT_AT(zt_characteristic, m_Characteristics)),
     ztrow::Children(ZT_STR_PARM, ZT_AT(zt_characteristic, m_Parms))}};
