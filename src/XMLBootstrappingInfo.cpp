#include "XMLBootstrappingInfo.h"

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"
#include "binding/ZtElementWriter.h"

namespace {

constexpr char kSource[] = "src/XMLBootstrappingInfo";
constexpr ZtFamily kFamily = ZtPlainFamily(kSource);
}  // namespace

// ---- Types --------------------------------------------------------------------------------------

struct BootstrappingInfoBinding {
  static constexpr ZtField kBtid =
      ztrow::TextElement(XML_STR_BTID, &zt_bootstrappinginfo::m_Btid)
          .Writer("AddBtidElementToXml")
          .Note("<XML Module>: BootstrappingInfoElement btid not present", kZtLogOptional);
  static constexpr ZtField kLifetime =
      ztrow::TextElement(XML_STR_LIFETIME, &zt_bootstrappinginfo::m_Lifetime)
          .Writer("AddLifetimeElementToXml")
          .Note("<XML Module>: BootstrappingInfoElement lifetime not present", kZtLogOptional);
  static constexpr ZtField kInfo[] = {kBtid, kLifetime};
  static constexpr ZtFixedAttribute kNamespace[] = {{XML_STR_URI_3GPP_GBA, XML_STR_ZT_NULL}};
  static_assert(ztrow::Sound(kInfo));
};

const ZtElementType zt_bootstrappinginfo::kType =
    ZtTypeOf<zt_bootstrappinginfo>("zt_bootstrappinginfo", "BootstrappingInfo", kFamily)
        .Fields(BootstrappingInfoBinding::kInfo)
        .Writer(XML_STR_BOOTSTRAPPING_INFO, "AddBootstrappingInfoElementToXml")
        .Declares(BootstrappingInfoBinding::kNamespace)
        .Root();

// ---- Workers ------------------------------------------------------------------------------------

int BootstrappingInfoMarshaller::AddBtidElementToXml(char* btid) {
  return Writer().WriteText(BootstrappingInfoBinding::kBtid, btid);
}
int BootstrappingInfoMarshaller::AddLifetimeElementToXml(char* lifetime) {
  return Writer().WriteText(BootstrappingInfoBinding::kLifetime, lifetime);
}

namespace {
constexpr ZtDocumentLines Lines() {
  ZtDocumentLines lines;
  lines.nullRoot = "<XML Module>: BootstrappingInfoMarshaller pObj is NULL";
  return lines;
}
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
        .Lines(Lines()),
    {{XML_STR_BOOTSTRAPPING_INFO, &zt_bootstrappinginfo::kType}}};
