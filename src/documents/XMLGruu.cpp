#include "ztxml/XMLGruu.h"

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"

namespace {
constexpr char kSource[] = "src/XMLGruu";

constexpr ZtHookLines kLines = {nullptr, nullptr,
                                nullptr, nullptr,
                                nullptr, "<XML Module>: Any attribute is not allowed in class %s"};
constexpr ZtNote kNotes[] = {
    {"pub-gruu", XML_STR_URI, kZtLogError,
     "<XML Module>: AddPubGruuElementToXml: Uri is a mandatory attribute"},
    {"temp-gruu", XML_STR_URI, kZtLogError,
     "<XML Module>: AddTempGruuElementToXml: Uri is a mandatory attribute"}};
constexpr ZtFamily kFamily =
    ZtFamily{kSource, &kLines, nullptr, "<XML Module>: %s Failed"}.RefusesUnknownAttributes().Notes(
        kNotes);
}  // namespace

// Intended: a GRUU without a uri fails before its start tag is closed, and in registration
// information the writer goes on with the tag left open; callers set a uri.
struct GruuBinding {
  static constexpr ZtField kUri = ztrow::Attribute(XML_STR_URI, ZT_AT(ZtGruu, m_Uri)).Required();
  // Intended: "first-cseq" is written even when it is 0, which mostly means absent: RFC 5628
  // requires the attribute of every temporary GRUU, and peers look for it.
  static constexpr ZtField kFirstCseq =
      ztrow::Attribute(XML_STR_FIRST_CSEQ, ZT_AT(ZtTemporaryGruu, m_FirstCseq)).Always().Must();

  // Intended: a GRUU on its own declares no namespace, although it has an XML declaration; callers
  // put it into a document that declares one.
  template <class T>
  static constexpr ZtTypeFacts Public(const char* className) {
    return ZtTypeOf<T>(className, "pub-gruu", kFamily)
        .Writer(XML_STR_PUB_GRUU, "AddPubGruuElementToXml")
        .Starts(ZtStartTag::kEmpty);
  }
  template <class T>
  static constexpr ZtTypeFacts Temporary(const char* className) {
    return ZtTypeOf<T>(className, "temp-gruu", kFamily)
        .Writer(XML_STR_TEMP_GRUU, "AddTempGruuElementToXml")
        .Starts(ZtStartTag::kEmpty);
  }
};
using Gruu = GruuBinding;

const ZtElementType zt_pub_gruu::kType = {Gruu::Public<zt_pub_gruu>("zt_pub_gruu").Root(),
                                          {Gruu::kUri}};
const ZtElementType zt_temp_gruu::kType = {Gruu::Temporary<zt_temp_gruu>("zt_temp_gruu").Root(),
                                           {Gruu::kFirstCseq, Gruu::kUri}};
const ZtElementType zt_ns_gruuinfo_pubGruu::kType = {
    Gruu::Public<zt_ns_gruuinfo_pubGruu>("zt_ns_gruuinfo_pubGruu"), {Gruu::kUri}};
const ZtElementType zt_ns_gruuinfo_tempGruu::kType = {
    Gruu::Temporary<zt_ns_gruuinfo_tempGruu>("zt_ns_gruuinfo_tempGruu"),
    {Gruu::kFirstCseq, Gruu::kUri}};

XMLObject* GruuDataBinder::CreateRootElement() {
  const char* type = m_pGruutype.Get();
  ZtLog(kZtLogTrace, kSource)(
      "<XML Module>: In GruuDataBinder::CreateRootElement with m_pGruutype=%s", type);
  if (!type) {
    ZtLog(kZtLogTrace, kSource)("<XML Module>: GruuDataBinder :: Gruutype is NULL");
    return nullptr;
  }
  // Intended: setGruuType takes the beginning of a name for the name, so that callers may set
  // "temp" for "temp-gruu", and an empty text makes a public GRUU.
  const std::size_t size = __strlen(type);
  if (__strncmp(ZtName(XML_STR_PUB_GRUU), type, size) == 0) return CreatePubGruuElement();
  if (__strncmp(ZtName(XML_STR_TEMP_GRUU), type, size) == 0) return CreateTempGruuElement();
  return nullptr;
}

namespace {
constexpr ZtDocumentLines kDocumentLines = {
    "<XML Module>: In %s::UnMarshall with pXmlString=%s",
    "<XML Module>: In %s::UnMarshall(pfile) with pstring=%s", "<XML Module>: Xml Decoder Success",
    "<XML Module>: Xml Decoder failed because of some error in XML",
    "<XML Module>: GruuMarshaller :: Incoming obj is NULL",
    "<XML Module>: GruuMarshaller :: Incoming pObj->ClassName() is NULL",
    // Intended: the log line about the root says "obj is pub-gruu" also when a temporary GRUU is
    // written; log readers search for it as it is.
    "<XML Module>: GruuMarshaller :: Marshall: obj is pub-gruu", "<XML Module>: %s XML %s",
    "<XML Module>: %s XML Failed at %s!"};
}  // namespace

const ZtDocument GruuContext::kDocument = {
    ZtDocumentOf<GruuContext, XMLGruuDecoder, GruuUnMarshaller, GruuMarshaller, GruuDataBinder>(
        kSource)
        .Schema(XML_SCHEMA_GRUU, "Gruu", "urn:ietf:params:xml:ns:gruuinfo", "pub-gruu", "temp-gruu")
        .Decodes("XMLGruuDecoder", "src/Gruu", ZtPrefixRule::kStrip)
        .Reads("GruuUnMarshaller")
        .Writes("GruuMarshaller", "mGruuXml")
        .Lines(kDocumentLines),
    {{XML_STR_PUB_GRUU, &zt_pub_gruu::kType}, {XML_STR_TEMP_GRUU, &zt_temp_gruu::kType}}};
