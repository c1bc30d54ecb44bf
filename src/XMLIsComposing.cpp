#include "XMLIsComposing.h"

#include "binding/ZtDocumentTable.h"
#include "binding/ZtElementWriter.h"

namespace {

constexpr char kSource[] = "src/XMLIsComposing";
constexpr ZtFamily kFamily = ZtQuietFamily(kSource);

// Intended: the schema location that is written names "urn:ietf:params:xml:ns:im-composing", which
// is not the namespace "im-iscomposing" beside it, and has two blanks before the schema file; peers
// compare the text.
constexpr ZtFixedAttribute kDeclarations[] = {
    {XML_STR_URN_IETF_PARAMS_XML_NS_IM_ISCOMPOSING, XML_STR_ZT_NULL},
    {XML_STR_HTTP_WWW_W3_ORG_2001_XMLSCHEMA_INSTANCE, XML_STR_XSI},
    {XML_STR_URN_IETF_PARAMS_XML_NS_IM_COMPOSING_ISCOMPOSING_XSD, XML_STR_SCHEMA_LOCATION,
     XML_STR_XSI}};

}  // namespace

// ---- Types --------------------------------------------------------------------------------------

struct IsComposingBinding {
  static constexpr ZtField kState = ztrow::TextElement(XML_STR_STATE, &zt_isComposing::m_State)
                                        .Writer("AddStateElementToXml")
                                        .Required(nullptr, kZtLogTrace);
  static constexpr ZtField kLastactive =
      ztrow::TextElement(XML_STR_LASTACTIVE, &zt_isComposing::m_Lastactive)
          .Writer("AddLastactiveElementToXml")
          .Note("<XML Module>: IsComposingElement lastactive not present", kZtLogOptional);
  static constexpr ZtField kContenttype =
      ztrow::TextElement(XML_STR_CONTENTTYPE, &zt_isComposing::m_Contenttype)
          .Writer("AddContenttypeElementToXml")
          .Note("<XML Module>: IsComposingElement Content-type not present", kZtLogOptional);
  static constexpr ZtField kRefresh =
      ztrow::TextElement(XML_STR_REFRESH, &zt_isComposing::m_Refresh)
          .Writer("AddRefreshElementToXml")
          .Note("<XML Module>: IsComposingElement Refresh not present", kZtLogOptional);

  static constexpr ZtField kRoot[] = {kState, kLastactive, kContenttype, kRefresh,
                                      ZtExtensibleRows::kElements<ZtObject>};
  static_assert(ztrow::Sound(kRoot));
};

const ZtElementType zt_isComposing::kType =
    ZtTypeOf<zt_isComposing>("zt_isComposing", "isComposing", kFamily)
        .Fields(IsComposingBinding::kRoot)
        .Writer(XML_STR_IS_COMPOSING, "AddIsComposingElementToXml")
        .Declares(kDeclarations)
        .UnknownElement(kCannotAccommodate)
        .Root();

// ---- Workers ------------------------------------------------------------------------------------

int IsComposingMarshaller::AddStateElementToXml(char* state) {
  return Writer().WriteText(IsComposingBinding::kState, state);
}
int IsComposingMarshaller::AddLastactiveElementToXml(char* time) {
  return Writer().WriteText(IsComposingBinding::kLastactive, time);
}
int IsComposingMarshaller::AddContenttypeElementToXml(char* type) {
  return Writer().WriteText(IsComposingBinding::kContenttype, type);
}
int IsComposingMarshaller::AddRefreshElementToXml(unsigned int seconds) {
  zt_isComposing indication;
  indication.setRefreshValue(seconds);
  char digits[kZtNumberSize];
  return Writer().WriteText(IsComposingBinding::kRefresh,
                            ZtFieldText(indication, IsComposingBinding::kRefresh, digits));
}

const ZtDocument IsComposingContext::kDocument = {
    ZtDocumentOf<IsComposingContext, XMLIsComposingDecoder, IsComposingUnMarshaller,
                 IsComposingMarshaller, IsComposingDataBinder>(kSource)
        .Schema(XML_SCHEMA_IS_COMPOSING, "IsComposing", "urn:ietf:params:xml:ns:im-iscomposing",
                "isComposing")
        // Intended: names of elements are compared as they stand, so that an indication with
        // prefixes is not read; in most other documents callers get elements under any prefix.
        .Decodes("XMLIsComposingDecoder", "src/IsComposing", ZtPrefixRule::kExact)
        .Reads("IsComposingUnMarshaller")
        .Writes("IsComposingMarshaller", "mIsComposingXml"),
    {{XML_STR_IS_COMPOSING, &zt_isComposing::kType}}};

void TestIsComposingMarshall() {
  auto* indication = ZtCreate<zt_isComposing>(kSource);
  auto* marshaller = ZtCreate<IsComposingMarshaller>(kSource);
  if (indication && marshaller) {
    indication->setStateValue("active");
    indication->setLastactiveValue("2002-05-30T09:30:10-06:00");
    indication->setContenttypeValue("audio");
    indication->setRefreshValue(9);
    marshaller->Marshall(indication);
  }
  ZtRelease(marshaller);
  ZtRelease(indication);
}
