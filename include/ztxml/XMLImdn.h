// Message disposition notifications (RFC 5438): whether an instant message was delivered, displayed
// or processed.
#ifndef ZTXML_INCLUDE_XMLIMDN_H
#define ZTXML_INCLUDE_XMLIMDN_H

#include "ztxml/ZtDocument.h"
#include "ztxml/ZtElement.h"
#include "ztxml/ZtSchemaDecoder.h"

/// The value "delivered" of a status: like the others an empty element whose presence is the value.
class zt_delivered : public ZtTyped<zt_delivered> {
 public:
  ZT_API static const ZtElementType kType;
};
/// The value "failed".
class zt_failed : public ZtTyped<zt_failed> {
 public:
  ZT_API static const ZtElementType kType;
};
/// The value "displayed".
class zt_displayed : public ZtTyped<zt_displayed> {
 public:
  ZT_API static const ZtElementType kType;
};
/// The value "processed".
class zt_processed : public ZtTyped<zt_processed> {
 public:
  ZT_API static const ZtElementType kType;
};
/// The value "stored".
class zt_stored : public ZtTyped<zt_stored> {
 public:
  ZT_API static const ZtElementType kType;
};
/// The value "forbidden".
class zt_forbidden : public ZtTyped<zt_forbidden> {
 public:
  ZT_API static const ZtElementType kType;
};
/// The value "error".
class zt_error : public ZtTyped<zt_error> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The element "status": one value. Each notification knows only some of them.
class zt_status : public ZtTyped<zt_status, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// Each takes a value and answers 1; null means absent.
  int setDeliveredValue(zt_delivered* value) { return m_Delivered.Set(value); }
  zt_delivered* getDeliveredValue() const { return m_Delivered; }
  int setFailedValue(zt_failed* value) { return m_Failed.Set(value); }
  zt_failed* getFailedValue() const { return m_Failed; }
  int setDisplayedValue(zt_displayed* value) { return m_Displayed.Set(value); }
  zt_displayed* getDisplayedValue() const { return m_Displayed; }
  int setProcessedValue(zt_processed* value) { return m_Processed.Set(value); }
  zt_processed* getProcessedValue() const { return m_Processed; }
  int setStoredValue(zt_stored* value) { return m_Stored.Set(value); }
  zt_stored* getStoredValue() const { return m_Stored; }
  int setForbiddenValue(zt_forbidden* value) { return m_Forbidden.Set(value); }
  zt_forbidden* getForbiddenValue() const { return m_Forbidden; }
  int setErrorValue(zt_error* value) { return m_Error.Set(value); }
  zt_error* getErrorValue() const { return m_Error; }

 private:
  ZtChildOf<zt_delivered> m_Delivered;
  ZtChildOf<zt_failed> m_Failed;
  ZtChildOf<zt_displayed> m_Displayed;
  ZtChildOf<zt_processed> m_Processed;
  ZtChildOf<zt_stored> m_Stored;
  ZtChildOf<zt_forbidden> m_Forbidden;
  ZtChildOf<zt_error> m_Error;
};

/// What the three notifications have in common.
class ZtImdnNotification : public ZtElement {
 public:
  ZT_INLINE ~ZtImdnNotification() override = default;

  /// Takes the status, which the notification needs to be written, with a value that it knows.
  int setStatusValue(zt_status* status) { return m_Status.Set(status); }
  zt_status* getStatusValue() const { return m_Status; }

 private:
  friend struct ImdnBinding;

  ZtChildOf<zt_status> m_Status;
};

/// The element "delivery-notification": delivered, failed, forbidden or error.
class zt_delivery_notification : public ZtTyped<zt_delivery_notification, ZtImdnNotification> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The element "display-notification": displayed, forbidden or error.
class zt_display_notification : public ZtTyped<zt_display_notification, ZtImdnNotification> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The element "processing-notification": processed, stored, forbidden or error. It is written as
/// "proessing-notification", which is not read as a processing notification.
class zt_processing_notification : public ZtTyped<zt_processing_notification, ZtImdnNotification> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The root element "imdn". Texts are copied and raw: the caller escapes markup in them; null means
/// absent. An attribute list that is set but empty makes the output ill-formed.
class zt_imdn : public ZtTyped<zt_imdn, ZtExtensible<ZtObject>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The Message-ID of the message that the notification is about.
  int setMessageIdValue(const char* id) { return m_MessageId.Assign(id); }
  const char* getMessageIdValue() const { return m_MessageId.Get(); }
  /// When that message was sent, an RFC 3339 date and time.
  int setDatetimeValue(const char* time) { return m_Datetime.Assign(time); }
  const char* getDatetimeValue() const { return m_Datetime.Get(); }
  int setRecipientUriValue(const char* uri) { return m_RecipientUri.Assign(uri); }
  const char* getRecipientUriValue() const { return m_RecipientUri.Get(); }
  int setOriginalRecipientUriValue(const char* uri) { return m_OriginalRecipientUri.Assign(uri); }
  const char* getOriginalRecipientUriValue() const { return m_OriginalRecipientUri.Get(); }
  int setSubjectValue(const char* subject) { return m_Subject.Assign(subject); }
  const char* getSubjectValue() const { return m_Subject.Get(); }
  /// Each takes its notification. Only the first of the three that is set is written; when that
  /// cannot be written, none is.
  int setDeliveryNotificationValue(zt_delivery_notification* notification) {
    return m_Delivery.Set(notification);
  }
  zt_delivery_notification* getDeliveryNotificationValue() const { return m_Delivery; }
  int setDisplayNotificationValue(zt_display_notification* notification) {
    return m_Display.Set(notification);
  }
  zt_display_notification* getDisplayNotificationValue() const { return m_Display; }
  int setProcessingNotificationValue(zt_processing_notification* notification) {
    return m_Processing.Set(notification);
  }
  zt_processing_notification* getProcessingNotificationValue() const { return m_Processing; }

 private:
  ZtText m_MessageId;
  ZtText m_Datetime;
  ZtText m_RecipientUri;
  ZtText m_OriginalRecipientUri;
  ZtText m_Subject;
  ZtChildOf<zt_delivery_notification> m_Delivery;
  ZtChildOf<zt_display_notification> m_Display;
  ZtChildOf<zt_processing_notification> m_Processing;
};

/// The context of message disposition notifications, XML_SCHEMA_IMDN.
class IMDNContext : public ZtDescribedBy<IMDNContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty objects; each is the caller's until a parent takes it. Null when out of memory.
class IMDNDataBinder : public ZtDescribedBy<IMDNContext, ZtFactory> {
 public:
  /// A notification, empty. Intended: CreateDeliverNotification lacks a "y" and
  /// CreateProcesssingNotification has an "s" too many; callers use both names.
  zt_delivery_notification* CreateDeliverNotification() { return Make(); }
  zt_display_notification* CreateDisplayNotification() { return Make(); }
  zt_processing_notification* CreateProcesssingNotification() { return Make(); }

  zt_status* CreateStatus() { return Make(); }
  zt_delivered* CreateDeliveredElement() { return Make(); }
  zt_failed* CreateFailedElement() { return Make(); }
  zt_displayed* CreateDisplayedElement() { return Make(); }
  zt_processed* CreateProcessedElement() { return Make(); }
  zt_stored* CreateStoredElement() { return Make(); }
  zt_forbidden* CreateForbiddenElement() { return Make(); }
  zt_error* CreateErrorElement() { return Make(); }
};

/// Writes a zt_imdn. Its Add functions write one element each and return 1, or 0 on failure; they
/// work only while Marshall runs.
class ZT_API IMDNMarshaller : public ZtDescribedBy<IMDNContext, ZtMarshaller> {
 public:
  int AddIMDNElementToXml(zt_imdn* imdn) { return Write(imdn); }
  int AddDeliverNotificationElementToXml(zt_delivery_notification* notification) {
    return Write(notification);
  }
  int AddDisplayNotificationElementToXml(zt_display_notification* notification) {
    return Write(notification);
  }
  int AddProcessingNotificationElementToXml(zt_processing_notification* notification) {
    return Write(notification);
  }
  /// Writes a notification by its names: `notification` XML_STR_DELIVERY_NOTIFICATION to
  /// XML_STR_PROESSING_NOTIFICATION, `status` XML_STR_DELIVERED to XML_STR_ERROR; others write
  /// nothing and return 0. The attributes of its "status" are borrowed; null for none.
  int AddNotificationXML(e_XmlStrRef notification, e_XmlStrRef status,
                         ZtSingleElementList* statusAttributes);
};

/// Reads an "imdn" document, with any prefixes.
class XMLImdnDecoder : public ZtDecoderOf<IMDNContext> {};
/// Reads a zt_imdn.
class IMDNUnMarshaller : public ZtDescribedBy<IMDNContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLIMDN_H
