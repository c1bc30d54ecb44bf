#include "ztxml/XMLPresence.h"

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"
#include "documents/PresenceBinding.h"

namespace {
constexpr char kSource[] = "src/XMLPresence";
constexpr ZtNote kNotes[] = {
    {"tuple", XML_STR_ID, 0, nullptr},
    {"presence", XML_STR_ENTITY, kZtLogError,
     "PresenceMarshaller :: AddPresenceElementToXml: Entity is mandatory attribute"}};
constexpr ZtFamily kFamily = ZtPresenceFamily(kSource).Notes(kNotes);

constexpr ZtEnumOf kBasic = {"open", "closed"};

// Intended: the prefixes "op" and "caps" are always declared, and written instead of the prefixes
// of the document that was read; peers compare the text.
constexpr ZtExtras kNamespaces = {{{XML_STR_URN_IETF_PARAMS_XML_NS_PIDF, XML_STR_ZT_NULL},
                                   {XML_STR_URN_OMA_XML_PRS_PIDF_OMA_PRES, XML_STR_OP},
                                   {XML_STR_URN_IETF_PARAMS_XML_NS_PIDF_CAPS, XML_STR_CAPS}}};

using Status = PresenceNameSpace::zt_status;

constexpr ZtChoice kExtensions[] = {
    {XML_STR_SERVICE_DESCRIPTION, zt_ns_oma_pres_service_description::kType},
    {XML_STR_SERVCAPS, zt_ns_caps_servcaps::kType},
    {}};
}  // namespace

const ZtElementType zt_note::kType = {
    ZtTypeOf<zt_note>("zt_note", "note", kFamily).Writer(XML_STR_NOTE, "AddNoteElementToXml"),
    {ztrow::OwnText(XML_STR_NOTE, ZT_AT(zt_note, m_Value)).FreeText(), kZtOthers}};
const ZtElementType zt_contact::kType = {
    ZtTypeOf<zt_contact>("zt_contact", "contact", kFamily)
        .Writer(XML_STR_CONTACT, "AddContactElementToXml"),
    {ztrow::Attribute(XML_STR_PRIORITY, ZT_AT(zt_contact, m_Priority)),
     ztrow::OwnText(XML_STR_CONTACT, ZT_AT(zt_contact, m_Uri)), kZtOthers}};
const ZtElementType PresenceNameSpace::zt_status::kType = {
    ZtTypeOf<PresenceNameSpace::zt_status>("PresenceNameSpace::zt_status", "status", kFamily)
        .Writer(XML_STR_STATUS, "AddStatusElementToXml"),
    {ztrow::TextElement(XML_STR_BASIC, ZT_AT(Status, m_Basic), kBasic), kZtOthers}};
struct PresenceBinding {
  static constexpr ZtTypeFacts kTuple = ZtTypeOf<zt_tuple>("zt_tuple", "tuple", kFamily)
                                            .Writer(XML_STR_TUPLE, "AddTupleElementToXml");
  static constexpr ZtField kId = ztrow::Attribute(XML_STR_ID, ZT_AT(zt_tuple, m_Id)).Required();
  static constexpr ZtField kStatus =
      ztrow::Child(XML_STR_STATUS, ZT_AT(zt_tuple, m_Status), Status::kType).Must();
  static constexpr ZtField kOthers = ZtExtensibleRows::Elements<ZtElement>(kExtensions);
  static constexpr ZtField kContact = ztrow::Child(XML_STR_CONTACT, ZT_AT(zt_tuple, m_Contact));
  static constexpr ZtField kTimestamp =
      ztrow::TextElement(XML_STR_TIMESTAMP, ZT_AT(zt_tuple, m_Timestamp));
  static constexpr ZtField kNotes = ztrow::Children(XML_STR_NOTE, ZT_AT(zt_tuple, m_Notes));
};
using Tuple = PresenceBinding;

namespace {
constexpr ZtElementType kStandardTuple = {Tuple::kTuple,
                                          {Tuple::kId, Tuple::kStatus, Tuple::kOthers,
                                           Tuple::kContact, Tuple::kNotes, Tuple::kTimestamp}};
constexpr ZtExtras kTuple = ZtExtrasOf(kStandardTuple);
}  // namespace

// Intended: the timestamp of a tuple is written before its notes, where the schema has it after
// them; peers compare the text. Intended: a tuple without its required id fails the document
// without a log line of its own; log readers find only the line of the failed document.
const ZtElementType zt_tuple::kType = {Tuple::kTuple.With(kTuple),
                                       {Tuple::kId, Tuple::kStatus, Tuple::kOthers, Tuple::kContact,
                                        Tuple::kTimestamp, Tuple::kNotes}};
const ZtElementType zt_presence::kType = {
    ZtTypeOf<zt_presence>("zt_presence", "presence", kFamily)
        .Writer(XML_STR_PRESENCE, "AddPresenceElementToXml")
        .With(kNamespaces)
        .Root(),
    {ztrow::Attribute(XML_STR_ENTITY, ZT_AT(zt_presence, m_Entity)).Required(),
     ztrow::Children(XML_STR_TUPLE, ZT_AT(zt_presence, m_Tuples)),
     ztrow::Children(XML_STR_NOTE, ZT_AT(zt_presence, m_Notes)),
     ZtExtensibleRows::kElements<ZtObject>}};

const ZtDocument PresenceContext::kDocument = {
    ZtDocumentOf<PresenceContext, XMLPresenceDecoder, PresenceUnMarshaller, PresenceMarshaller,
                 PresenceDataBinder>(kSource)
        .Schema(XML_SCHEMA_PRESENCE, "Presence", "urn:ietf:params:xml:ns:pidf", "presence")
        .Decodes("XMLPresenceDecoder", "src/Presence", ZtPrefixRule::kStrip)
        .Reads("PresenceUnMarshaller")
        .Writes("PresenceMarshaller", "mPresenceXml")
        // Intended: the log line about a written presence document names IsComposingMarshaller, the
        // one about a failure PresenceMarshaller; log readers search for both.
        .ReportsAs("IsComposingMarshaller", "PresenceMarshaller"),
    {{XML_STR_PRESENCE, &zt_presence::kType}}};
