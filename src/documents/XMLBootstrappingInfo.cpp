#include "ztxml/XMLBootstrappingInfo.h"

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"
#include "binding/ZtElementWriter.h"

namespace {
constexpr char kSource[] = "src/XMLBootstrappingInfo";
constexpr ZtNote kNotes[] = {{"BootstrappingInfo", XML_STR_BTID, kZtLogOptional,
                              "<XML Module>: BootstrappingInfoElement btid not present"},
                             {"BootstrappingInfo", XML_STR_LIFETIME, kZtLogOptional,
                              "<XML Module>: BootstrappingInfoElement lifetime not present"}};
constexpr ZtFamily kFamily = ZtPlainFamily(kSource).Notes(kNotes);

constexpr ZtExtras kNamespace = {{{XML_STR_URI_3GPP_GBA, XML_STR_ZT_NULL}}};
}  // namespace

const ZtElementType zt_bootstrappinginfo::kType = {
    ZtTypeOf<zt_bootstrappinginfo>("zt_bootstrappinginfo", "BootstrappingInfo", kFamily)
        .Writer(XML_STR_BOOTSTRAPPING_INFO, "AddBootstrappingInfoElementToXml")
        .With(kNamespace)
        .Root(),
    {ztrow::TextElement(XML_STR_BTID, ZT_AT(zt_bootstrappinginfo, m_Btid))
         .FreeText()
         .Must()
         .Logged(),
     ztrow::TextElement(XML_STR_LIFETIME, ZT_AT(zt_bootstrappinginfo, m_Lifetime))
         .Must()
         .Logged()}};

namespace {
constexpr ZtDocumentLines kDocumentLines = [] {
  ZtDocumentLines lines;
  lines.nullRoot = "<XML Module>: BootstrappingInfoMarshaller pObj is NULL";
  return lines;
}();
}  // namespace

const ZtDocument BootstrappingInfoContext::kDocument = {
    ZtDocumentOf<BootstrappingInfoContext, XMLBootstrappingInfoDecoder,
                 BootstrappingInfoUnMarshaller, BootstrappingInfoMarshaller,
                 BootstrappingInfoDataBinder>(kSource)
        .Schema(XML_SCHEMA_BOOTSTRAPPING_INFO, "BootstrappingInfo", "uri:3gpp-gba",
                "BootstrappingInfo")
        .Decodes("XMLBootstrappingInfoDecoder", "src/BootstrappingInfo", ZtPrefixRule::kStrip)
        .Reads("BootstrappingInfoUnMarshaller")
        .Writes("BootstrappingInfoMarshaller", "mBootstrappingInfoXml")
        .Lines(kDocumentLines),
    {{XML_STR_BOOTSTRAPPING_INFO, &zt_bootstrappinginfo::kType}}};
