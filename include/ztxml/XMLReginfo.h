// Registration information (RFC 3680, with the GRUU elements of RFC 5628).
#ifndef ZTXML_INCLUDE_XMLREGINFO_H
#define ZTXML_INCLUDE_XMLREGINFO_H

#include "ztxml/XMLGruu.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtElement.h"
#include "ztxml/ZtSchemaDecoder.h"

/// The state of a registration-information document. Here and below, a value beyond the named ones
/// was read as absent or unknown and cannot be written.
enum zt_reginfo_state_type_enum : unsigned {
  ZT_REGINFO_STATE_FULL,
  ZT_REGINFO_STATE_PARTIAL,
  ZT_REGINFO_STATE_ABSENT
};

/// The state of a registration.
enum zt_registration_state_type_enum : unsigned {
  ZT_REGISTRATION_STATE_INIT,
  ZT_REGISTRATION_STATE_ACTIVE,
  ZT_REGISTRATION_STATE_TERMINATED,
  ZT_REGISTRATION_STATE_ABSENT
};

/// The state of a contact.
enum zt_contact_state_type_enum : unsigned {
  ZT_CONTACT_STATE_ACTIVE,
  ZT_CONTACT_STATE_TERMINATED,
  ZT_CONTACT_STATE_ABSENT
};

/// What last changed the state of a contact.
enum zt_contact_event_type_enum : unsigned {
  ZT_CONTACT_EVENT_REGISTERED,
  ZT_CONTACT_EVENT_CREATED,
  ZT_CONTACT_EVENT_REFRESHED,
  ZT_CONTACT_EVENT_SHORTENED,
  ZT_CONTACT_EVENT_EXPIRED,
  ZT_CONTACT_EVENT_DEACTIVATED,
  ZT_CONTACT_EVENT_PROBATION,
  ZT_CONTACT_EVENT_UNREGISTERED,
  ZT_CONTACT_EVENT_REJECTED,
  ZT_CONTACT_EVENT_ABSENT
};

/// The element "unknown-param": a contact header parameter.
class zt_unknown_param : public ZtTyped<zt_unknown_param> {
 public:
  ZT_API static const ZtElementType kType;
  /// The element's text.
  int setValueValue(const char* value) { return m_Value.Assign(value); }
  const char* getValueValue() const { return m_Value.Get(); }
  /// The attribute "name"; the element cannot be written without it.
  int setNameValue(const char* name) { return m_Name.Assign(name); }
  const char* getNameValue() const { return m_Name.Get(); }

 private:
  ZtText m_Value;
  ZtText m_Name;
};

/// The element "contact".
class zt_ns_reginfo_contact : public ZtTyped<zt_ns_reginfo_contact> {
 public:
  ZT_API static const ZtElementType kType;
  /// The contact's URI. Texts are copied; null means absent, here and below.
  int setUriValue(const char* uri) { return m_Uri.Assign(uri); }
  const char* getUriValue() const { return m_Uri.Get(); }
  /// Raw text: the caller escapes markup in it.
  int setDisplayNameValue(const char* name) { return m_DisplayName.Assign(name); }
  const char* getDisplayNameValue() const { return m_DisplayName.Get(); }
  /// A list of zt_unknown_param (taken).
  int setUnknownParamListValue(ZtSingleElementList* list) { return m_UnknownParams.Set(list); }
  ZtListOf<zt_unknown_param>* getUnknownParamListValue() const { return m_UnknownParams; }
  /// Takes `param`; returns 0 when it is null, has an owner, or there is no memory.
  int addUnknownParam(zt_unknown_param* param) { return m_UnknownParams.Add(param); }
  /// The element cannot be written without it.
  int setStateValue(zt_contact_state_type_enum state) { return m_State.Set(state); }
  zt_contact_state_type_enum getStateValue() const { return m_State; }
  std::optional<zt_contact_state_type_enum> state() const {
    return m_State.Stated(ZT_CONTACT_STATE_ABSENT);
  }
  /// The element cannot be written without it.
  int setEventValue(zt_contact_event_type_enum event) { return m_Event.Set(event); }
  zt_contact_event_type_enum getEventValue() const { return m_Event; }
  std::optional<zt_contact_event_type_enum> event() const {
    return m_Event.Stated(ZT_CONTACT_EVENT_ABSENT);
  }
  /// Seconds that the contact has been registered; 0 means absent, here and in the next two.
  int setDurationRegisteredValue(unsigned long long seconds) {
    return m_DurationRegistered.Set(seconds);
  }
  unsigned long long getDurationRegisteredValue() const { return m_DurationRegistered; }
  std::optional<std::uint64_t> durationRegistered() const {
    return m_DurationRegistered.Stated<std::uint64_t>();
  }
  /// Seconds until the contact expires.
  int setExpiresValue(unsigned long long seconds) { return m_Expires.Set(seconds); }
  unsigned long long getExpiresValue() const { return m_Expires; }
  std::optional<std::uint64_t> expires() const { return m_Expires.Stated<std::uint64_t>(); }
  /// Seconds to wait before registering again.
  int setRetryAfterValue(unsigned long long seconds) { return m_RetryAfter.Set(seconds); }
  unsigned long long getRetryAfterValue() const { return m_RetryAfter; }
  std::optional<std::uint64_t> retryAfter() const { return m_RetryAfter.Stated<std::uint64_t>(); }
  /// The element cannot be written without it.
  int setIdValue(const char* id) { return m_Id.Assign(id); }
  const char* getIdValue() const { return m_Id.Get(); }
  /// The preference of the contact, "0" to "1".
  int setQValue(const char* q) { return m_Q.Assign(q); }
  const char* getQValue() const { return m_Q.Get(); }
  /// The Call-ID of the REGISTER request that last changed the contact.
  int setCallidValue(const char* callid) { return m_Callid.Assign(callid); }
  const char* getCallidValue() const { return m_Callid.Get(); }
  /// The CSeq of that request; 0 means absent.
  int setCseqValue(unsigned long long cseq) { return m_Cseq.Set(cseq); }
  unsigned long long getCseqValue() const { return m_Cseq; }
  std::optional<std::uint64_t> cseq() const { return m_Cseq.Stated<std::uint64_t>(); }
  /// Other child elements (taken): zt_pub_gruu and zt_temp_gruu are written, others are not.
  int setAnyElementValue(ZtSingleElementList* list) { return m_AnyElements.Set(list); }
  ZtListOf<XMLElement>* getAnyElementValue() const { return m_AnyElements; }
  int addAnyElement(XMLElement* element) { return m_AnyElements.Add(element); }

 private:
  ZtText m_Uri;
  ZtText m_DisplayName;
  ZtChildListOf<zt_unknown_param> m_UnknownParams;
  ZtNumber m_State = ZT_CONTACT_STATE_ABSENT;
  ZtNumber m_Event = ZT_CONTACT_EVENT_ABSENT;
  ZtNumber64 m_DurationRegistered;
  ZtNumber64 m_Expires;
  ZtNumber64 m_RetryAfter;
  ZtText m_Id;
  ZtText m_Q;
  ZtText m_Callid;
  ZtNumber64 m_Cseq;
  ZtChildListOf<XMLElement> m_AnyElements;
};

/// The element "registration".
class zt_registration : public ZtTyped<zt_registration> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_ns_reginfo_contact (taken).
  int setContactListValue(ZtSingleElementList* list) { return m_Contacts.Set(list); }
  ZtListOf<zt_ns_reginfo_contact>* getContactListValue() const { return m_Contacts; }
  /// Takes `contact`; returns 0 when it is null, has an owner, or there is no memory.
  int addContact(zt_ns_reginfo_contact* contact) { return m_Contacts.Add(contact); }
  /// The address of record; the element cannot be written without it.
  int setAorValue(const char* aor) { return m_Aor.Assign(aor); }
  const char* getAorValue() const { return m_Aor.Get(); }
  /// The attribute "id", which is written empty when it is absent.
  int setIdValue(const char* id) { return m_Id.Assign(id); }
  const char* getIdValue() const { return m_Id.Get(); }
  /// The element cannot be written without it.
  int setStateValue(zt_registration_state_type_enum state) { return m_State.Set(state); }
  zt_registration_state_type_enum getStateValue() const { return m_State; }
  std::optional<zt_registration_state_type_enum> state() const {
    return m_State.Stated(ZT_REGISTRATION_STATE_ABSENT);
  }
  /// Unknown child elements (taken), which are never written.
  int setAnyElementValue(ZtSingleElementList* list) { return m_AnyElements.Set(list); }
  ZtListOf<XMLElement>* getAnyElementValue() const { return m_AnyElements; }
  int addAnyElement(XMLElement* element) { return m_AnyElements.Add(element); }

 private:
  ZtChildListOf<zt_ns_reginfo_contact> m_Contacts;
  ZtText m_Aor;
  ZtText m_Id;
  ZtNumber m_State = ZT_REGISTRATION_STATE_ABSENT;
  ZtChildListOf<XMLElement> m_AnyElements;
};

/// The root element "reginfo".
class zt_reginfo : public ZtTyped<zt_reginfo, ZtObject> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_registration (taken).
  int setRegistrationListValue(ZtSingleElementList* list) { return m_Registrations.Set(list); }
  ZtListOf<zt_registration>* getRegistrationListValue() const { return m_Registrations; }
  /// Takes `registration`; returns 0 when it is null, has an owner, or there is no memory.
  int addRegistration(zt_registration* registration) { return m_Registrations.Add(registration); }
  /// The element cannot be written without it.
  int setStateValue(zt_reginfo_state_type_enum state) { return m_State.Set(state); }
  zt_reginfo_state_type_enum getStateValue() const { return m_State; }
  std::optional<zt_reginfo_state_type_enum> state() const {
    return m_State.Stated(ZT_REGINFO_STATE_ABSENT);
  }
  /// The version, always written.
  int setVersionValue(unsigned int version) { return m_Version.Set(version); }
  unsigned int getVersionValue() const { return m_Version; }
  std::optional<std::uint32_t> version() const { return m_Version.Stated<std::uint32_t>(); }
  /// Unknown child elements (taken), which are never written.
  int setAnyElementValue(ZtSingleElementList* list) { return m_AnyElements.Set(list); }
  ZtListOf<XMLElement>* getAnyElementValue() const { return m_AnyElements; }
  int addAnyElement(XMLElement* element) { return m_AnyElements.Add(element); }

 private:
  ZtChildListOf<zt_registration> m_Registrations;
  ZtNumber m_State = ZT_REGINFO_STATE_ABSENT;
  ZtNumber m_Version;
  ZtChildListOf<XMLElement> m_AnyElements;
};

/// The context of registration information, XML_SCHEMA_REGINFO.
class ReginfoContext : public ZtDescribedBy<ReginfoContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty objects; each is the caller's until a parent takes it. Null when out of memory.
class ReginfoDataBinder : public ZtDescribedBy<ReginfoContext, ZtFactory> {
 public:
  zt_registration* CreateRegistrationElement() { return Make(); }
  zt_ns_reginfo_contact* CreateContactElement() { return Make(); }
  zt_unknown_param* CreateUnknownParamElement() { return Make(); }
  zt_pub_gruu* CreatePubGruuElement() { return Make(); }
  zt_temp_gruu* CreateTempGruuElement() { return Make(); }
};

/// Writes a zt_reginfo. Its Add functions write one element each and return 1, or 0 on failure;
/// they work only while Marshall runs.
class ReginfoMarshaller : public ZtDescribedBy<ReginfoContext, ZtMarshaller> {
 public:
  int AddReginfoElementToXml(zt_reginfo* reginfo) { return Write(reginfo); }
  int AddRegistrationElementToXml(zt_registration* registration) { return Write(registration); }
  int AddReginfoContactElementToXml(zt_ns_reginfo_contact* contact) { return Write(contact); }
  int AddUnknownParamElementToXml(zt_unknown_param* param) { return Write(param); }
  int AddPubGruuElementToXml(zt_pub_gruu* gruu) { return Write(gruu, XML_STR_GR); }
  int AddTempGruuElementToXml(zt_temp_gruu* gruu) { return Write(gruu, XML_STR_GR); }
};

/// Reads a "reginfo" document, with any prefixes, and the GRUU elements inside it.
class XMLReginfoDecoder : public ZtDecoderOf<ReginfoContext> {};
/// Reads a zt_reginfo.
class ReginfoUnMarshaller : public ZtDescribedBy<ReginfoContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLREGINFO_H
