#include "ztxml/XMLIsComposing.h"

#include "binding/ZtDocumentTable.h"
#include "binding/ZtElementWriter.h"

namespace {
constexpr char kSource[] = "src/XMLIsComposing";
constexpr ZtNote kNotes[] = {{"isComposing", XML_STR_STATE, kZtLogTrace, nullptr},
                             {"isComposing", XML_STR_LASTACTIVE, kZtLogOptional,
                              "<XML Module>: IsComposingElement lastactive not present"},
                             {"isComposing", XML_STR_CONTENTTYPE, kZtLogOptional,
                              "<XML Module>: IsComposingElement Content-type not present"},
                             {"isComposing", XML_STR_REFRESH, kZtLogOptional,
                              "<XML Module>: IsComposingElement Refresh not present"}};
constexpr ZtFamily kFamily = ZtQuietFamily(kSource).Notes(kNotes);
constexpr ZtFamily kTellingFamily = kFamily.UnknownElement(kCannotAccommodate);

// Intended: the schema location that is written names "urn:ietf:params:xml:ns:im-composing",
// although the namespace is "im-iscomposing", and has two blanks before the schema file; peers
// compare the text.
constexpr ZtExtras kDeclarations = {
    {{XML_STR_URN_IETF_PARAMS_XML_NS_IM_ISCOMPOSING, XML_STR_ZT_NULL},
     {XML_STR_HTTP_WWW_W3_ORG_2001_XMLSCHEMA_INSTANCE, XML_STR_XSI},
     {XML_STR_URN_IETF_PARAMS_XML_NS_IM_COMPOSING_ISCOMPOSING_XSD, XML_STR_SCHEMA_LOCATION,
      XML_STR_XSI}}};
}  // namespace

const ZtElementType zt_isComposing::kType = {
    ZtTypeOf<zt_isComposing>("zt_isComposing", "isComposing", kTellingFamily)
        .Writer(XML_STR_IS_COMPOSING, "AddIsComposingElementToXml")
        .With(kDeclarations)
        .Root(),
    {ztrow::TextElement(XML_STR_STATE, ZT_AT(zt_isComposing, m_State))
         .FreeText()
         .Logged()
         .Required(),
     ztrow::TextElement(XML_STR_LASTACTIVE, ZT_AT(zt_isComposing, m_Lastactive)).Logged(),
     ztrow::TextElement(XML_STR_CONTENTTYPE, ZT_AT(zt_isComposing, m_Contenttype))
         .FreeText()
         .Logged(),
     ztrow::TextElement(XML_STR_REFRESH, ZT_AT(zt_isComposing, m_Refresh)).Logged(),
     ZtExtensibleRows::kElements<ZtObject>}};

int IsComposingMarshaller::AddRefreshElementToXml(unsigned int seconds) {
  zt_isComposing indication;
  indication.setRefreshValue(seconds);
  char digits[kZtNumberSize];
  const ZtField& row = *ZtFindChild(zt_isComposing::kType, XML_STR_REFRESH);
  return Writer().WriteText(row, ZtFieldText(indication, row, digits));
}

const ZtDocument IsComposingContext::kDocument = {
    ZtDocumentOf<IsComposingContext, XMLIsComposingDecoder, IsComposingUnMarshaller,
                 IsComposingMarshaller, IsComposingDataBinder>(kSource)
        .Schema(XML_SCHEMA_IS_COMPOSING, "IsComposing", "urn:ietf:params:xml:ns:im-iscomposing",
                "isComposing")
        // Intended: element names with a prefix are unknown, so that an indication with prefixes is
        // not read; in most other documents callers get elements under any prefix.
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
