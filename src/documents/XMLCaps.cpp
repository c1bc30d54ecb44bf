#include "ztxml/XMLCaps.h"

#include "documents/PresenceBinding.h"

namespace {
constexpr ZtFamily kFamily = ZtPresenceFamily("src/XMLCaps");

// Intended: a capability is "true" or "false"; callers get any other text, "1" too, as absent.
constexpr ZtEnumTable kCapability = {kBooleanSlots, 2, 2, ZT_CAPS_ABSENT, false};
}  // namespace

// Has no element name: the rows of "duplex" name the two elements that have modes.
const ZtElementType zt_ns_caps_duplextypes::kType = {
    ZtTypeOf<zt_ns_caps_duplextypes>("zt_ns_caps_duplextypes", "duplextypes", kFamily)
        .Writer(XML_STR_ZT_NULL, "AddDuplexTypesElementToXml", XML_STR_CAPS),
    {ztrow::TextElement(XML_STR_FULL, ZT_AT(zt_ns_caps_duplextypes, m_Full)).FreeText(),
     ztrow::TextElement(XML_STR_HALF, ZT_AT(zt_ns_caps_duplextypes, m_Half)).FreeText(),
     ztrow::TextElement(XML_STR_RECEIVE_ONLY, ZT_AT(zt_ns_caps_duplextypes, m_ReceiveOnly))
         .FreeText(),
     ztrow::TextElement(XML_STR_SEND_ONLY, ZT_AT(zt_ns_caps_duplextypes, m_SendOnly)).FreeText(),
     kZtOthers}};
const ZtElementType zt_ns_caps_duplextype::kType = {
    ZtTypeOf<zt_ns_caps_duplextype>("zt_ns_caps_duplextype", "duplex", kFamily)
        .Writer(XML_STR_DUPLEX, "AddDuplexElementToXml", XML_STR_CAPS),
    {ztrow::Child(XML_STR_SUPPORTED, ZT_AT(zt_ns_caps_duplextype, m_Supported)),
     ztrow::Child(XML_STR_NOTSUPPORTED, ZT_AT(zt_ns_caps_duplextype, m_Notsupported)), kZtOthers}};
const ZtElementType zt_ns_caps_servcaps::kType = {
    ZtTypeOf<zt_ns_caps_servcaps>("zt_ns_caps_servcaps", "servcaps", kFamily)
        .Writer(XML_STR_SERVCAPS, "AddServcapsElementToXml", XML_STR_CAPS),
    {ztrow::TextElement(XML_STR_AUDIO, ZT_AT(zt_ns_caps_servcaps, m_Audio), kCapability),
     ztrow::Child(XML_STR_DUPLEX, ZT_AT(zt_ns_caps_servcaps, m_Duplex)),
     ztrow::TextElement(XML_STR_VIDEO, ZT_AT(zt_ns_caps_servcaps, m_Video), kCapability),
     kZtOthers}};
