#include "ztxml/XMLCallWaitingIndication.h"

#include "binding/ZtDocumentTable.h"

namespace {
constexpr char kSource[] = "src/XMLCallWaitingIndication";
constexpr ZtFamily kFamily = ZtPlainFamily(kSource);

constexpr ZtFlag kFlagText = {
    "%s::AddCallWaitingIndicationElementToXml: Received empty present false"};
constexpr ZtExtras kFlagExtras = ZtExtrasOf(kFlagText);
constexpr ZtElementType kFlag =
    ZtFlagOf(kFamily, "AddCallWaitingIndicationElementToXml", kFlagExtras);
}  // namespace

// Intended: a "call-waiting-indication" that is set but not present fails the whole document;
// callers leave it unset instead.
const ZtElementType zt_ns_call_waiting_indication_action::kType = {
    ZtTypeOf<zt_ns_call_waiting_indication_action>("zt_ns_call_waiting_indication_action", "action",
                                                   kFamily)
        .Writer(XML_STR_ACTION, "AddActionElementToXml"),
    {ztrow::Child(XML_STR_CALL_WAITING_INDICATION,
                  ZT_AT(zt_ns_call_waiting_indication_action, m_CallWaitingIndication), kFlag)}};
const ZtElementType zt_ns_call_waiting_indication_alternative_service::kType = {
    ZtTypeOf<zt_ns_call_waiting_indication_alternative_service>(
        "zt_ns_call_waiting_indication_alternative_service", "alternative-service", kFamily)
        .Writer(XML_STR_ALTERNATIVE_SERVICE, "AddAlternativeServiceElementToXml"),
    {ztrow::Child(XML_STR_ACTION,
                  ZT_AT(zt_ns_call_waiting_indication_alternative_service, m_Action))}};
// Intended: the root is called "3gpp-ims", although XML names do not begin with a digit; peers send
// and expect it, and the library's parser reads it.
const ZtElementType zt_3gpp_ims::kType = {
    ZtTypeOf<zt_3gpp_ims>("zt_3gpp_ims", "3gpp-ims", kFamily)
        .Writer(XML_STR_3GPP_IMS, "Add3gppImsElementToXml")
        .Root(),
    {ztrow::Attribute(XML_STR_VERSION, ZT_AT(zt_3gpp_ims, m_Version)),
     ztrow::Child(XML_STR_ALTERNATIVE_SERVICE, ZT_AT(zt_3gpp_ims, m_AlternativeService))}};

zt_empty_element_type* CallWaitingIndicationDataBinder::CreateCallWaitingIndicationElement() {
  return ZtMakeFlag(kSource, ZtName(XML_STR_CALL_WAITING_INDICATION));
}

int CallWaitingIndicationMarshaller::AddCallWaitingIndicationElementToXml(
    zt_empty_element_type* flag) {
  return Write(flag, kFlag);
}

const ZtDocument CallWaitingIndicationContext::kDocument = {
    ZtDocumentOf<CallWaitingIndicationContext, XMLCallWaitingIndicationDecoder,
                 CallWaitingIndicationUnMarshaller, CallWaitingIndicationMarshaller,
                 CallWaitingIndicationDataBinder>(kSource)
        .Schema(XML_SCHEMA_CALL_WAITING_INDICATION, "CallWaitingIndication", nullptr, "3gpp-ims")
        .Decodes("XMLCallWaitingIndicationDecoder", "src/CallWaitingIndication",
                 ZtPrefixRule::kStrip)
        .Reads("CallWaitingIndicationUnMarshaller")
        .Writes("CallWaitingIndicationMarshaller", "mCallWaitingIndicationXml"),
    {{XML_STR_3GPP_IMS, &zt_3gpp_ims::kType}}};
