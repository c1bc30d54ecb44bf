#include "ztxml/XMLImdn.h"

#include "binding/ZtDocumentTable.h"
#include "binding/ZtElementWriter.h"

namespace {
constexpr char kSource[] = "src/XMLImdn";
constexpr ZtNote kNotes[] = {
    {"imdn", XML_STR_DELIVERY_NOTIFICATION, kZtLogError,
     "<XML Module>: AddIMDNElementToXml, failed to add Delivery Notification."},
    {"imdn", XML_STR_DISPLAY_NOTIFICATION, kZtLogError,
     "<XML Module>: AddIMDNElementToXml, failed to add Display Notification."},
    {"imdn", ZT_STR_PROCESSING_NOTIFICATION, kZtLogError,
     "<XML Module>: AddIMDNElementToXml, failed to add Processing Notification."}};
constexpr ZtFamily kFamily = ZtQuietFamily(kSource).Notes(kNotes).RefusesNullClasses();
constexpr ZtFamily kTellingFamily = kFamily.UnknownElement(kCannotAccommodate);

constexpr ZtExtras kDeclarations = {{{XML_STR_URN_IETF_PARAMS_XML_NS_IMDN, XML_STR_ZT_NULL}}};

bool WriteNotification(ZtElementWriter& writer, ZtNameId notification, ZtNameId value,
                       ZtSingleElementList* attributes) {
  if (!writer.Start(notification) || !writer.Start(XML_STR_STATUS, attributes)) return false;
  writer.WriteEmpty(value);
  writer.End(XML_STR_STATUS);
  writer.End(notification);
  return true;
}
}  // namespace

const ZtElementType zt_delivered::kType = {
    ZtTypeOf<zt_delivered>("zt_delivered", "delivered", kFamily)};
const ZtElementType zt_failed::kType = {ZtTypeOf<zt_failed>("zt_failed", "failed", kFamily)};
const ZtElementType zt_displayed::kType = {
    ZtTypeOf<zt_displayed>("zt_displayed", "displayed", kFamily)};
const ZtElementType zt_processed::kType = {
    ZtTypeOf<zt_processed>("zt_processed", "processed", kFamily)};
const ZtElementType zt_stored::kType = {ZtTypeOf<zt_stored>("zt_stored", "stored", kFamily)};
const ZtElementType zt_forbidden::kType = {
    ZtTypeOf<zt_forbidden>("zt_forbidden", "forbidden", kFamily)};
const ZtElementType zt_error::kType = {ZtTypeOf<zt_error>("zt_error", "error", kFamily)};

namespace {
// Attributes come by another hook: what is offered here is an element, whatever its class name.
// Intended: under a name that it does not know a status keeps only objects of the plain class
// "XMLElement", where other types keep all; callers free what it does not keep.
bool DropObject(XMLElement&, const char* name, const char*, XMLElement* child, ZtOutcome&) {
  if (!child || (*name == '/' && ZtFindChild(zt_status::kType, ZtNameId::Of(name + 1))))
    return false;
  const char* className = child->ClassName();
  return !className || __strcmp(className, "XMLElement") != 0;
}
constexpr ZtExtras kStatus = {{}, DropObject};
}  // namespace

const ZtElementType zt_status::kType = {
    ZtTypeOf<zt_status>("zt_status", "status", kTellingFamily).With(kStatus),
    {kZtExtras,
     ztrow::Child(XML_STR_DELIVERED, ZT_AT(zt_status, m_Delivered)).Arrives(ZtArrival::kAtEnd),
     ztrow::Child(XML_STR_FAILED, ZT_AT(zt_status, m_Failed)).Arrives(ZtArrival::kAtEnd),
     ztrow::Child(XML_STR_DISPLAYED, ZT_AT(zt_status, m_Displayed)).Arrives(ZtArrival::kAtEnd),
     ztrow::Child(XML_STR_PROCESSED, ZT_AT(zt_status, m_Processed)).Arrives(ZtArrival::kAtEnd),
     ztrow::Child(XML_STR_STORED, ZT_AT(zt_status, m_Stored)).Arrives(ZtArrival::kAtEnd),
     ztrow::Child(XML_STR_FORBIDDEN, ZT_AT(zt_status, m_Forbidden)).Arrives(ZtArrival::kAtEnd),
     ztrow::Child(XML_STR_ERROR, ZT_AT(zt_status, m_Error)).Arrives(ZtArrival::kAtEnd), kZtOthers}};

namespace {
// What each notification writes of a status: the first of its values that is set, or nothing.
template <e_XmlStrRef... kValues>
bool WriteFirstOf(ZtElementWriter& writer, const XMLElement& self, const ZtElementType& type) {
  const auto& notification = static_cast<const ZtImdnNotification&>(self);
  const XMLElement* status = notification.getStatusValue();
  if (!status || !ZtIsA(*status, zt_status::kType)) return false;
  for (const ZtNameId value : {ZtNameId(kValues)...}) {
    const ZtField* row = ZtFindChild(zt_status::kType, value);
    if (!row->Child(*status).Get()) continue;
    return WriteNotification(writer, type.tag, value,
                             notification.getStatusValue()->getAnyAttributeValue());
  }
  return false;
}
constexpr ZtExtras kDelivery = {
    {},
    nullptr,
    nullptr,
    WriteFirstOf<XML_STR_DELIVERED, XML_STR_FAILED, XML_STR_FORBIDDEN, XML_STR_ERROR>};
constexpr ZtExtras kDisplay = {
    {}, nullptr, nullptr, WriteFirstOf<XML_STR_DISPLAYED, XML_STR_FORBIDDEN, XML_STR_ERROR>};
constexpr ZtExtras kProcessing = {
    {},
    nullptr,
    nullptr,
    WriteFirstOf<XML_STR_PROCESSED, XML_STR_STORED, XML_STR_FORBIDDEN, XML_STR_ERROR>};
}  // namespace

struct ImdnBinding {
  static constexpr ZtField kStatus =
      ztrow::Child(XML_STR_STATUS, ZT_AT(ZtImdnNotification, m_Status)).Must();
};

const ZtElementType zt_delivery_notification::kType = {
    ZtTypeOf<zt_delivery_notification>("zt_delivery_notification", "delivery-notification", kFamily)
        .Writer(XML_STR_DELIVERY_NOTIFICATION, "AddDeliverNotificationElementToXml")
        .With(kDelivery)
        .NamesStayInside(),
    {ImdnBinding::kStatus}};
const ZtElementType zt_display_notification::kType = {
    ZtTypeOf<zt_display_notification>("zt_display_notification", "display-notification", kFamily)
        .Writer(XML_STR_DISPLAY_NOTIFICATION, "AddDisplayNotificationElementToXml")
        .With(kDisplay)
        .NamesStayInside(),
    {ImdnBinding::kStatus}};
// Intended: a processing notification is written as "proessing-notification", because peers compare
// with that name, but read as "processing-notification": the library does not read back what it
// wrote.
const ZtElementType zt_processing_notification::kType = {
    ZtTypeOf<zt_processing_notification>("zt_processing_notification", "processing-notification",
                                         kFamily)
        .Writer(XML_STR_PROESSING_NOTIFICATION, "AddProcessingNotificationElementToXml")
        .With(kProcessing)
        .NamesStayInside(),
    {ImdnBinding::kStatus}};

namespace {
constexpr ZtFlag kFlagText = {nullptr};
constexpr ZtExtras kFlagExtras = ZtExtrasOf(kFlagText);
constexpr ZtElementType kFlag = ZtFlagOf(kFamily, nullptr, kFlagExtras);
constexpr ZtChoice kAnyOther[] = {ZtChoice(XML_STR_ZT_NULL, kFlag).NotWritten(), {}};
}  // namespace

// Intended: in "imdn" the last of the other attributes closes the start tag, so that an empty list
// of them leaves it open; callers set no list or one with entries. Intended: of several
// notifications only the first that is set of delivery, display and processing is written; if that
// fails, callers get a document without any.
const ZtElementType zt_imdn::kType = {
    ZtTypeOf<zt_imdn>("zt_imdn", "imdn", kTellingFamily)
        .Writer(XML_STR_IMDN, "AddIMDNElementToXml")
        .With(kDeclarations)
        .Starts(ZtStartTag::kAwaitsExtras)
        .Root(),
    {ZtExtensibleRows::kAttributes<ZtObject>,
     ztrow::TextElement(XML_STR_MESSAGE_ID, ZT_AT(zt_imdn, m_MessageId)),
     ztrow::TextElement(XML_STR_DATETIME, ZT_AT(zt_imdn, m_Datetime)).FreeText(),
     ztrow::TextElement(XML_STR_RECIPIENT_URI, ZT_AT(zt_imdn, m_RecipientUri)),
     ztrow::TextElement(XML_STR_ORIGINAL_RECIPIENT_URI, ZT_AT(zt_imdn, m_OriginalRecipientUri)),
     ztrow::TextElement(XML_STR_SUBJECT, ZT_AT(zt_imdn, m_Subject)).FreeText(),
     ztrow::Child(XML_STR_DELIVERY_NOTIFICATION, ZT_AT(zt_imdn, m_Delivery)).OneOf().Lenient(),
     ztrow::Child(XML_STR_DISPLAY_NOTIFICATION, ZT_AT(zt_imdn, m_Display)).OneOf().Lenient(),
     ztrow::Child(ZT_STR_PROCESSING_NOTIFICATION, ZT_AT(zt_imdn, m_Processing)).OneOf().Lenient(),
     // Intended: callers get an element of another name in "imdn" as a flag, without content, which
     // is not written; in a status such an element is dropped.
     ZtExtensibleRows::Elements<ZtObject>(kAnyOther)}};

int IMDNMarshaller::AddNotificationXML(e_XmlStrRef notification, e_XmlStrRef status,
                                       ZtSingleElementList* statusAttributes) {
  if (notification < XML_STR_DELIVERY_NOTIFICATION ||
      notification > XML_STR_PROESSING_NOTIFICATION || status < XML_STR_DELIVERED ||
      status > XML_STR_ERROR) {
    return 0;
  }
  ZtElementWriter writer = Writer();
  return WriteNotification(writer, notification, status, statusAttributes);
}

const ZtDocument IMDNContext::kDocument = {
    ZtDocumentOf<IMDNContext, XMLImdnDecoder, IMDNUnMarshaller, IMDNMarshaller, IMDNDataBinder>(
        kSource)
        .Schema(XML_SCHEMA_IMDN, "IMDN", "urn:ietf:params:xml:ns:imdn", "imdn")
        .Decodes("XMLImdnDecoder", "src/Imdn", ZtPrefixRule::kStrip)
        .Reads("IMDNUnMarshaller")
        .Writes("IMDNMarshaller", "mIMDNXml")
        // Intended: log lines about the result of this marshaller call it "Marshall"; log readers
        // search for that.
        .ReportsAs("Marshall", "Marshall"),
    {{XML_STR_IMDN, &zt_imdn::kType}}};
