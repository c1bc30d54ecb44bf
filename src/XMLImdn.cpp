#include "XMLImdn.h"

#include "binding/ZtDocumentTable.h"
#include "binding/ZtElementWriter.h"

namespace {

constexpr char kSource[] = "src/XMLImdn";
constexpr ZtFamily kFamily = ZtQuietFamily(kSource).RefusesNullClasses();

constexpr ZtFixedAttribute kDeclarations[] = {
    {XML_STR_URN_IETF_PARAMS_XML_NS_IMDN, XML_STR_ZT_NULL}};

bool WriteNotification(ZtElementWriter& writer, ZtNameId notification, ZtNameId value,
                       ZtSingleElementList* attributes) {
  if (!writer.Start(notification) || !writer.Start(XML_STR_STATUS, attributes)) return false;
  writer.WriteEmpty(value);
  writer.End(XML_STR_STATUS);
  writer.End(notification);
  return true;
}

template <class T>
constexpr ZtElementType StatusValue(const char* className, const char* label) {
  return ZtTypeOf<T>(className, label, kFamily);
}

}  // namespace

// ---- Types --------------------------------------------------------------------------------------

struct ImdnBinding {
  static constexpr ZtField kDelivered =
      ztrow::Child(XML_STR_DELIVERED, &zt_status::m_Delivered, zt_delivered::kType).AtEnd();
  static constexpr ZtField kFailed =
      ztrow::Child(XML_STR_FAILED, &zt_status::m_Failed, zt_failed::kType).AtEnd();
  static constexpr ZtField kDisplayed =
      ztrow::Child(XML_STR_DISPLAYED, &zt_status::m_Displayed, zt_displayed::kType).AtEnd();
  static constexpr ZtField kProcessed =
      ztrow::Child(XML_STR_PROCESSED, &zt_status::m_Processed, zt_processed::kType).AtEnd();
  static constexpr ZtField kStored =
      ztrow::Child(XML_STR_STORED, &zt_status::m_Stored, zt_stored::kType).AtEnd();
  static constexpr ZtField kForbidden =
      ztrow::Child(XML_STR_FORBIDDEN, &zt_status::m_Forbidden, zt_forbidden::kType).AtEnd();
  static constexpr ZtField kError =
      ztrow::Child(XML_STR_ERROR, &zt_status::m_Error, zt_error::kType).AtEnd();
  static constexpr ZtField kStatus[] = {kZtExtras, kDelivered, kFailed, kDisplayed, kProcessed,
                                        kStored,   kForbidden, kError,  kZtOthers};

  // What each notification writes of a status: the first of these that is set.
  static constexpr ZtField kDeliveryValues[] = {kDelivered, kFailed, kForbidden, kError};
  static constexpr ZtField kDisplayValues[] = {kDisplayed, kForbidden, kError};
  static constexpr ZtField kProcessingValues[] = {kProcessed, kStored, kForbidden, kError};

  static constexpr ZtField kNotification[] = {
      ztrow::Child(XML_STR_STATUS, &ZtImdnNotification::m_Status, zt_status::kType)};

  // Nothing is written of a notification that has none of its values.
  template <const auto& kValues>
  static bool Write(ZtElementWriter& writer, const XMLElement& self, const ZtElementType& type) {
    const XMLElement* child = static_cast<const ZtImdnNotification&>(self).m_Status.Get();
    if (!child || !ZtIsA(*child, zt_status::kType)) return false;
    const auto& status = static_cast<const zt_status&>(*child);
    for (const ZtField& value : kValues) {
      if (!(status.*value.member.child).Get()) continue;
      return WriteNotification(writer, type.tag, value.name, status.getAnyAttributeValue());
    }
    return false;
  }

  template <class T>
  static constexpr ZtElementType Notification(const char* className, const char* label) {
    return ZtTypeOf<T>(className, label, kFamily).Fields(kNotification).NamesStayInside();
  }

  // An attribute comes by the other hook: no element is one, whatever it calls itself. Intended: of
  // the objects that are offered under a name which it does not know, a status keeps those of the
  // plain class "XMLElement" only, where other types keep all; callers free what it does not keep.
  static bool DropObject(XMLElement&, const char* name, const char*, XMLElement* child,
                         ZtOutcome&) {
    if (!child || (*name == '/' && ZtFindChild(zt_status::kType, ZtNameId::Of(name + 1))))
      return false;
    const char* className = child->ClassName();
    return !className || __strcmp(className, "XMLElement") != 0;
  }

  static constexpr ZtFlag kFlagText = {nullptr};
  static constexpr ZtElementType kFlag = ZtFlagOf(kFamily, nullptr, kFlagText);
  static constexpr ZtChoice kAnyOther[] = {ZtChoice(XML_STR_ZT_NULL, kFlag).NotWritten(), {}};
  // Intended: of several notifications only the first of delivery, display and processing is looked
  // at; when that one cannot be written it is left out, and the rest of the document is written.
  static constexpr ZtField kImdn[] = {
      ZtExtensibleRows::kAttributes<ZtObject>,
      ztrow::TextElement(XML_STR_MESSAGE_ID, &zt_imdn::m_MessageId),
      ztrow::TextElement(XML_STR_DATETIME, &zt_imdn::m_Datetime),
      ztrow::TextElement(XML_STR_RECIPIENT_URI, &zt_imdn::m_RecipientUri),
      ztrow::TextElement(XML_STR_ORIGINAL_RECIPIENT_URI, &zt_imdn::m_OriginalRecipientUri),
      ztrow::TextElement(XML_STR_SUBJECT, &zt_imdn::m_Subject),
      ztrow::Child(XML_STR_DELIVERY_NOTIFICATION, &zt_imdn::m_Delivery,
                   zt_delivery_notification::kType)
          .OneOf()
          .Lenient()
          .Note("<XML Module>: AddIMDNElementToXml, failed to add Delivery Notification.",
                kZtLogError),
      ztrow::Child(XML_STR_DISPLAY_NOTIFICATION, &zt_imdn::m_Display,
                   zt_display_notification::kType)
          .OneOf()
          .Lenient()
          .Note("<XML Module>: AddIMDNElementToXml, failed to add Display Notification.",
                kZtLogError),
      ztrow::Child(ZT_STR_PROCESSING_NOTIFICATION, &zt_imdn::m_Processing,
                   zt_processing_notification::kType)
          .OneOf()
          .Lenient()
          .Note("<XML Module>: AddIMDNElementToXml, failed to add Processing Notification.",
                kZtLogError),
      // Intended: an element of any other name in "imdn" is kept as a flag, without its content,
      // and not written; in a status such an element is dropped.
      ZtExtensibleRows::Elements<ZtObject>(kAnyOther),
  };
  static_assert(ztrow::Sound(kStatus) && ztrow::Sound(kImdn));
};

const ZtElementType zt_delivered::kType = StatusValue<zt_delivered>("zt_delivered", "delivered");
const ZtElementType zt_failed::kType = StatusValue<zt_failed>("zt_failed", "failed");
const ZtElementType zt_displayed::kType = StatusValue<zt_displayed>("zt_displayed", "displayed");
const ZtElementType zt_processed::kType = StatusValue<zt_processed>("zt_processed", "processed");
const ZtElementType zt_stored::kType = StatusValue<zt_stored>("zt_stored", "stored");
const ZtElementType zt_forbidden::kType = StatusValue<zt_forbidden>("zt_forbidden", "forbidden");
const ZtElementType zt_error::kType = StatusValue<zt_error>("zt_error", "error");

const ZtElementType zt_status::kType = ZtTypeOf<zt_status>("zt_status", "status", kFamily)
                                           .Fields(ImdnBinding::kStatus)
                                           .UnknownElement(kCannotAccommodate)
                                           .OnChild(ImdnBinding::DropObject);

const ZtElementType zt_delivery_notification::kType =
    ImdnBinding::Notification<zt_delivery_notification>("zt_delivery_notification",
                                                        "delivery-notification")
        .Writer(XML_STR_DELIVERY_NOTIFICATION, "AddDeliverNotificationElementToXml")
        .OnWrite(ImdnBinding::Write<ImdnBinding::kDeliveryValues>);

const ZtElementType zt_display_notification::kType =
    ImdnBinding::Notification<zt_display_notification>("zt_display_notification",
                                                       "display-notification")
        .Writer(XML_STR_DISPLAY_NOTIFICATION, "AddDisplayNotificationElementToXml")
        .OnWrite(ImdnBinding::Write<ImdnBinding::kDisplayValues>);

// Intended: a processing notification is written as "proessing-notification", because peers compare
// with that, and read as "processing-notification", so that the library does not read back what it
// has written.
const ZtElementType zt_processing_notification::kType =
    ImdnBinding::Notification<zt_processing_notification>("zt_processing_notification",
                                                          "processing-notification")
        .Writer(XML_STR_PROESSING_NOTIFICATION, "AddProcessingNotificationElementToXml")
        .OnWrite(ImdnBinding::Write<ImdnBinding::kProcessingValues>);

// Intended: where "imdn" has a list of other attributes, its last attribute closes the start tag,
// so that an empty list leaves the tag open; callers set no list or one with entries.
const ZtElementType zt_imdn::kType = ZtTypeOf<zt_imdn>("zt_imdn", "imdn", kFamily)
                                         .Fields(ImdnBinding::kImdn)
                                         .Writer(XML_STR_IMDN, "AddIMDNElementToXml")
                                         .Declares(kDeclarations)
                                         .AwaitsExtras()
                                         .UnknownElement(kCannotAccommodate)
                                         .Root();

// ---- Workers ------------------------------------------------------------------------------------

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
        // Intended: log readers know the results of this marshaller under the name "Marshall"
        // instead of its own.
        .ReportsAs("Marshall", "Marshall"),
    {{XML_STR_IMDN, &zt_imdn::kType}}};
