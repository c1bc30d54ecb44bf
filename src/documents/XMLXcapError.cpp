#include "ztxml/XMLXcapError.h"

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"
#include "binding/ZtElementWriter.h"
#include "ztxml/XMLValueTypes.h"

namespace {
constexpr char kSource[] = "src/XMLXcapError";
constexpr ZtNote kNotes[] = {{"uniqueness-failure", XML_STR_EXISTS, kZtLogTrace,
                              "<XML Module>: AddExistsElementToXml tempNum: %d "}};
constexpr ZtFamily kFamily = ZtQuietFamily(kSource).Notes(kNotes).Enters(
    "<XML Module>: Xcap_ErrorMarshall::%s", kZtLogState);
constexpr ZtFamily kTellingFamily = kFamily.UnknownElement(kCannotAccommodate);
// Intended: log lines call AddXcap_errorElementToXml, the writer of the root,
// "AddXcap_errorElementToXmlErrorElementToXml"; log readers search for that.
constexpr ZtFamily kRootFamily =
    kFamily.Enters("<XML Module>: AddXcap_errorElementToXmlErrorElementToXml", kZtLogTrace);

constexpr ZtChoice kErrors[] = {
    {XML_STR_SCHEMA_VALIDATION_ERROR, zt_schema_validation_error::kType},
    {XML_STR_NOT_XML_FRAG, zt_not_xml_frag::kType},
    {XML_STR_NO_PARENT, zt_no_parent::kType},
    {XML_STR_CANNOT_INSERT, zt_cannot_insert::kType},
    {XML_STR_NOT_XML_ATT_VALUE, zt_not_xml_att_value::kType},
    {XML_STR_UNIQUENESS_FAILURE, zt_uniqueness_failure::kType},
    {XML_STR_NOT_WELL_FORMED, zt_not_well_formed::kType},
    {XML_STR_CONSTRAINT_FAILURE, zt_constraint_failure::kType},
    {XML_STR_CANNOT_DELETE, zt_cannot_delete::kType},
    {XML_STR_NOT_UTF_8, zt_not_utf_8::kType},
    {XML_STR_EXTENSION, zt_extension::kType},
    {}};

// The type of `element`, null when it is no error.
const ZtElementType* ErrorTypeOf(const XMLElement* element) {
  for (const ZtChoice* error = kErrors; error->type && element; ++error) {
    if (ZtIsA(*element, *error->type)) return error->type;
  }
  return nullptr;
}

bool IsErrorName(const char* name) {
  for (const ZtChoice* error = kErrors; error->type; ++error) {
    const ZtPiece known = error->name.Piece();
    if (__strncmp(name, known.text, known.size) == 0) return true;
  }
  return false;
}
}  // namespace

struct XcapErrorBinding {
  static constexpr ZtField kPhrase =
      ztrow::Attribute(XML_STR_PHRASE, ZT_AT(ZtXcapPhrasedError, m_Phrase)).FreeText();

  // An error whose only content is its phrase.
  template <class T>
  static constexpr ZtTypeFacts Phrased(const char* className, ZtNameId tag, const char* label,
                                       const char* writer) {
    return ZtTypeOf<T>(className, label, kFamily).Writer(tag, writer).Starts(ZtStartTag::kEmpty);
  }
};
constexpr ZtField kPhrase = XcapErrorBinding::kPhrase;

const ZtElementType zt_not_utf_8::kType = {
    XcapErrorBinding::Phrased<zt_not_utf_8>("zt_not_utf_8", XML_STR_NOT_UTF_8, "not-utf-8",
                                            "AddNot_utf_8ElementToXml"),
    {kPhrase}};
const ZtElementType zt_cannot_delete::kType = {
    XcapErrorBinding::Phrased<zt_cannot_delete>("zt_cannot_delete", XML_STR_CANNOT_DELETE,
                                                "cannot-delete", "AddCannot_deleteElementToXml"),
    {kPhrase}};
const ZtElementType zt_constraint_failure::kType = {
    XcapErrorBinding::Phrased<zt_constraint_failure>(
        "zt_constraint_failure", XML_STR_CONSTRAINT_FAILURE, "constraint-failure",
        "AddConstraint_failureElementToXml"),
    {kPhrase}};
const ZtElementType zt_not_well_formed::kType = {
    XcapErrorBinding::Phrased<zt_not_well_formed>("zt_not_well_formed", XML_STR_NOT_WELL_FORMED,
                                                  "not-well-formed",
                                                  "AddNot_well_formedElementToXml"),
    {kPhrase}};
const ZtElementType zt_not_xml_att_value::kType = {
    XcapErrorBinding::Phrased<zt_not_xml_att_value>("zt_not_xml_att_value",
                                                    XML_STR_NOT_XML_ATT_VALUE, "not-xml-att-value",
                                                    "AddNot_xml_att_valueElementToXml"),
    {kPhrase}};
const ZtElementType zt_cannot_insert::kType = {
    XcapErrorBinding::Phrased<zt_cannot_insert>("zt_cannot_insert", XML_STR_CANNOT_INSERT,
                                                "cannot-insert", "AddCannot_insertElementToXml"),
    {kPhrase}};
const ZtElementType zt_not_xml_frag::kType = {
    XcapErrorBinding::Phrased<zt_not_xml_frag>("zt_not_xml_frag", XML_STR_NOT_XML_FRAG,
                                               "not-xml-frag", "AddNot_xml_fragElementToXml"),
    {kPhrase}};
const ZtElementType zt_schema_validation_error::kType = {
    XcapErrorBinding::Phrased<zt_schema_validation_error>(
        "zt_schema_validation_error", XML_STR_SCHEMA_VALIDATION_ERROR, "schema-validation-error",
        "AddSchema_validation_errorElementToXml"),
    {kPhrase}};
const ZtElementType zt_no_parent::kType = {
    ZtTypeOf<zt_no_parent>("zt_no_parent", "no-parent", kFamily)
        .Writer(XML_STR_NO_PARENT, "AddNo_parentElementToXml"),
    {kPhrase, ztrow::TextElement(XML_STR_ANCESTOR, ZT_AT(zt_no_parent, m_Ancestor))}};
const ZtElementType zt_exists::kType = {
    ZtTypeOf<zt_exists>("zt_exists", "exists", kFamily)
        .Writer(XML_STR_EXISTS, "AddExistsElementToXml"),
    {ztrow::Attribute(XML_STR_FIELD, ZT_AT(zt_exists, m_Field)).FreeText().Must(),
     ztrow::TextElements(XML_STR_ALT_VALUE, ZT_AT(zt_exists, m_AltValues)).FreeText()}};
const ZtElementType zt_uniqueness_failure::kType = {
    ZtTypeOf<zt_uniqueness_failure>("zt_uniqueness_failure", "uniqueness-failure", kFamily)
        .Writer(XML_STR_UNIQUENESS_FAILURE, "AddUniqueness_failureElementToXml"),
    {kPhrase, ztrow::Children(XML_STR_EXISTS, ZT_AT(zt_uniqueness_failure, m_Exists)).Lenient()}};
// Intended: an "extension" is written without the content that callers give it or that was read.
const ZtElementType zt_extension::kType = {
    ZtTypeOf<zt_extension>("zt_extension", "extension", kTellingFamily)
        .Writer(XML_STR_EXTENSION, "AddExtensionElementToXml"),
    {kZtOthers}};

namespace {
// Intended: in "xcap-error" a name that only begins with the name of an error is taken for one,
// callers may offer any class of error under any of these names, and the last of several errors is
// kept.
bool TakeError(XMLElement& self, const char* name, const char*, XMLElement* child,
               ZtOutcome& outcome) {
  if (!IsErrorName(name)) return false;
  outcome = child && !child->ClassName() ? ZtOutcome::kAccepted : ZtOutcome::kRefused;
  if (!ErrorTypeOf(child)) return true;
  outcome = ZtAdopt(self, *zt_xcap_error::kType.children(), child, kSource);
  return true;
}

// Intended: the schema location that is written names the namespace alone, where a schema file
// should follow; peers compare the text.
constexpr ZtExtras kRoot = {
    {{XML_STR_URN_IETF_PARAMS_XML_NS_XCAP_ERROR, XML_STR_ZT_NULL},
     {XML_STR_HTTP_WWW_W3_ORG_2001_XMLSCHEMA_INSTANCE, XML_STR_XSI},
     {XML_STR_URN_IETF_PARAMS_XML_NS_XCAP_ERROR, XML_STR_SCHEMA_LOCATION, XML_STR_XSI}},
    TakeError};
}  // namespace

// Intended: when callers set an object of no class of error, the document is written without it
// instead of failing.
const ZtElementType zt_xcap_error::kType = {
    ZtTypeOf<zt_xcap_error>("zt_xcap_error", "xcap-error", kRootFamily)
        .Writer(XML_STR_XCAP_ERROR, "AddXcap_errorElementToXml")
        .With(kRoot)
        .Root(),
    {ztrow::OtherChild(ZT_AT(zt_xcap_error, m_Error), kErrors).Must()}};

XMLObject* XcapErrorDataBinder::CreateRootElement() {
  Log(__func__);
  return ZtFactory::CreateRootElement();
}
ZtSingleElementList* XcapErrorDataBinder::CreateList() {
  Log(__func__);
  return zt_xml_common_methods::CreateElementList();
}
ZtFactory::Made XcapErrorDataBinder::Make(const char* operation) const {
  Log(operation);
  return ZtFactory::Make();
}
void XcapErrorDataBinder::Log(const char* operation) {
  ZtLog(kZtLogTrace, kSource)("<XML Module>: XcapErrorDataBinder::%s", operation);
}

namespace {
constexpr ZtDocumentLines kDocumentLines = [] {
  ZtDocumentLines lines;
  lines.textInput = "<XML Module>: %s::UnMarshall";
  lines.fileInput = lines.textInput;
  lines.nullRoot = "<XML Module>: Xcap_ErrorMarshall :: Marshall: Received Object is NULL";
  return lines;
}();
}  // namespace

const ZtDocument XcapErrorContext::kDocument = {
    ZtDocumentOf<XcapErrorContext, XMLXcapErrorDecoder, XcapErrorUnMarshaller, Xcap_ErrorMarshall,
                 XcapErrorDataBinder>(kSource)
        .Schema(XML_SCHEMA_XCAP_ERROR, "XcapError", "urn:ietf:params:xml:ns:xcap-error",
                "xcap-error")
        .Decodes("XMLXcapErrorDecoder", "src/XcapError", ZtPrefixRule::kStrip)
        .Reads("XcapErrorUnMarshaller")
        .Writes("Xcap_ErrorMarshall", "mXcapErrorXml")
        .Lines(kDocumentLines),
    {{XML_STR_XCAP_ERROR, &zt_xcap_error::kType}}};
