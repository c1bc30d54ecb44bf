// The elements that OMA Presence SIMPLE adds to presence documents.
#ifndef ZTXML_INCLUDE_XMLOMAPRES_H
#define ZTXML_INCLUDE_XMLOMAPRES_H

#include "ztxml/ZtElement.h"

/// The element "service-description": which service a tuple is about. Texts are copied; null means
/// absent.
class zt_ns_oma_pres_service_description
    : public ZtTyped<zt_ns_oma_pres_service_description, ZtKeepsElements<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The identifier of the service, e.g. "org.3gpp.urn:urn-7:3gpp-service.ims.icsi.mmtel".
  int setServiceIdValue(const char* id) { return m_ServiceId.Assign(id); }
  const char* getServiceIdValue() const { return m_ServiceId.Get(); }
  /// The version of the service, e.g. "1.0".
  int setVersionValue(const char* version) { return m_Version.Assign(version); }
  const char* getVersionValue() const { return m_Version.Get(); }
  /// What the service is, for people. Raw text, to be escaped by the caller.
  int setDescriptionValue(const char* description) { return m_Description.Assign(description); }
  const char* getDescriptionValue() const { return m_Description.Get(); }

 private:
  ZtText m_ServiceId;
  ZtText m_Version;
  ZtText m_Description;
};

/// An element with text only. Elements of these types are neither read from documents nor written:
/// they are for callers that fill them.
class ZtOmaPresText : public ZtElement {
 public:
  ZT_INLINE ~ZtOmaPresText() override = default;

  /// The element's text (copied); null means absent.
  int setValueValue(const char* value) { return m_Value.Assign(value); }
  const char* getValueValue() const { return m_Value.Get(); }

 private:
  friend struct OmaPresBinding;

  ZtText m_Value;
};

/// The element "willingness".
class zt_ns_oma_pres_willingness : public ZtTyped<zt_ns_oma_pres_willingness, ZtOmaPresText> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The element "session-participation".
class zt_ns_oma_pres_session_participation
    : public ZtTyped<zt_ns_oma_pres_session_participation, ZtOmaPresText> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The element "registration-state".
class zt_ns_oma_pres_registration_state
    : public ZtTyped<zt_ns_oma_pres_registration_state, ZtOmaPresText> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The element "barring-state".
class zt_ns_oma_pres_barring_state : public ZtTyped<zt_ns_oma_pres_barring_state, ZtOmaPresText> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The element "overriding-willingness".
class zt_ns_oma_pres_overriding_willingness
    : public ZtTyped<zt_ns_oma_pres_overriding_willingness, ZtOmaPresText> {
 public:
  ZT_API static const ZtElementType kType;
};

#endif  // ZTXML_INCLUDE_XMLOMAPRES_H
