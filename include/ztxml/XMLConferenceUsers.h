// The users of a conference with their endpoints and media, and what conference information (RFC
// 4575) says of URIs and actions.
//
// Every element owns its texts, children and lists: setters copy texts, take objects and lists with
// their entries, and free what they replace; null means absent. The add operations take one object
// and return 1, or 0 when it is null, has an owner, or there is no memory. Texts are raw: callers
// escape them. A number is absent when it is 0, an enumeration when it is not one of the named
// values.
#ifndef ZTXML_INCLUDE_XMLCONFERENCEUSERS_H
#define ZTXML_INCLUDE_XMLCONFERENCEUSERS_H

#include "ztxml/XMLValueTypes.h"

/// How much of its state an element has.
enum zt_state_type_enum : unsigned {
  ZT_STATE_FULL,
  ZT_STATE_PARTIAL,
  ZT_STATE_DELETED,
  ZT_STATE_ABSENT
};

/// The state of an endpoint.
enum zt_endpoint_status_type_enum : unsigned {
  ZT_ENDPOINT_STATUS_PENDING,
  ZT_ENDPOINT_STATUS_DIALING_OUT,
  ZT_ENDPOINT_STATUS_DIALING_IN,
  ZT_ENDPOINT_STATUS_ALERTING,
  ZT_ENDPOINT_STATUS_ON_HOLD,
  ZT_ENDPOINT_STATUS_CONNECTED,
  ZT_ENDPOINT_STATUS_MUTED_VIA_FOCUS,
  ZT_ENDPOINT_STATUS_DISCONNECTING,
  ZT_ENDPOINT_STATUS_DISCONNECTED,
  ZT_ENDPOINT_STATUS_ABSENT
};

/// How an endpoint joined.
enum zt_joining_type_enum : unsigned {
  ZT_JOINING_DIALED_IN,
  ZT_JOINING_DIALED_OUT,
  ZT_JOINING_FOCUS_OWNER,
  ZT_JOINING_ABSENT
};

/// How an endpoint left.
enum zt_disconnection_type_enum : unsigned {
  ZT_DISCONNECTION_DEPARTED,
  ZT_DISCONNECTION_BOOTED,
  ZT_DISCONNECTION_FAILED,
  ZT_DISCONNECTION_BUSY,
  ZT_DISCONNECTION_ABSENT,
  ZT_DISCONNECTION_UNKNOWN  ///< a document had another value
};

/// The direction of a medium.
enum zt_media_status_type_enum : unsigned {
  ZT_MEDIA_STATUS_RECVONLY,
  ZT_MEDIA_STATUS_SENDONLY,
  ZT_MEDIA_STATUS_SENDRECV,
  ZT_MEDIA_STATUS_INACTIVE,
  ZT_MEDIA_STATUS_ABSENT
};

/// An action on something: "referred", "joining-info", "disconnection-info" or "modified".
class zt_execution_type : public ZtTyped<zt_execution_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The date and time, as in RFC 3339.
  int setWhenValue(const char* text) { return m_When.Assign(text); }
  const char* getWhenValue() const { return m_When.Get(); }
  /// Why it was done.
  int setReasonValue(const char* text) { return m_Reason.Assign(text); }
  const char* getReasonValue() const { return m_Reason.Get(); }
  /// Who did it, a URI.
  int setByValue(const char* text) { return m_By.Assign(text); }
  const char* getByValue() const { return m_By.Get(); }

 private:
  ZtText m_When;
  ZtText m_Reason;
  ZtText m_By;
};

/// An "entry" of a list of URIs.
class zt_uri_type : public ZtTyped<zt_uri_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The URI.
  int setUriValue(const char* text) { return m_Uri.Assign(text); }
  const char* getUriValue() const { return m_Uri.Get(); }
  /// What to show for it.
  int setDisplayTextValue(const char* text) { return m_DisplayText.Assign(text); }
  const char* getDisplayTextValue() const { return m_DisplayText.Get(); }
  /// What it is for, e.g. "participation".
  int setPurposeValue(const char* text) { return m_Purpose.Assign(text); }
  const char* getPurposeValue() const { return m_Purpose.Get(); }
  /// When, why and by whom the entry was last changed.
  int setModifiedValue(zt_execution_type* element) { return m_Modified.Set(element); }
  zt_execution_type* getModifiedValue() const { return m_Modified; }

 private:
  ZtText m_Uri;
  ZtText m_DisplayText;
  ZtText m_Purpose;
  ZtChildOf<zt_execution_type> m_Modified;
};

/// A list of URIs: "conf-uris", "service-uris", "uris", "associated-aors" or "sidebars-by-ref".
class zt_uris_type : public ZtTyped<zt_uris_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// Whether the element has its full state, only what changed, or is gone.
  int setStateValue(zt_state_type_enum value) { return m_State.Set(value); }
  zt_state_type_enum getStateValue() const { return m_State; }
  std::optional<zt_state_type_enum> state() const { return m_State.Stated(ZT_STATE_ABSENT); }
  /// A list of zt_uri_type.
  int setEntryListValue(ZtSingleElementList* list) { return m_Entries.Set(list); }
  ZtListOf<zt_uri_type>* getEntryListValue() const { return m_Entries; }
  int addEntry(zt_uri_type* element) { return m_Entries.Add(element); }

 private:
  ZtNumber m_State = ZT_STATE_ABSENT;
  ZtChildListOf<zt_uri_type> m_Entries;
};

/// The element "languages", language tags as in RFC 5646.
class zt_user_languages_type : public ZtTyped<zt_user_languages_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_string. One blank separates two words in a document; two have an empty word
  /// between.
  int setLanguageListValue(ZtSingleElementList* list) { return m_Words.Set(list); }
  ZtListOf<zt_string>* getLanguageListValue() const { return m_Words; }
  int addLanguage(zt_string* element) { return m_Words.Add(element); }

 private:
  ZtChildListOf<zt_string> m_Words;
};

/// The element "roles".
class zt_user_roles_type : public ZtTyped<zt_user_roles_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_string, e.g. "participant".
  int setEntryListValue(ZtSingleElementList* list) { return m_Entries.Set(list); }
  ZtListOf<zt_string>* getEntryListValue() const { return m_Entries; }
  int addEntry(zt_string* element) { return m_Entries.Add(element); }

 private:
  ZtChildListOf<zt_string> m_Entries;
};

/// The element "sip": a SIP dialog (RFC 3261).
class zt_sip_dialog_id_type : public ZtTyped<zt_sip_dialog_id_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// What to show for the dialog.
  int setDisplayTextValue(const char* text) { return m_DisplayText.Assign(text); }
  const char* getDisplayTextValue() const { return m_DisplayText.Get(); }
  /// The Call-ID.
  int setCallIdValue(const char* text) { return m_CallId.Assign(text); }
  const char* getCallIdValue() const { return m_CallId.Get(); }
  /// The tag of the From header.
  int setFromTagValue(const char* text) { return m_FromTag.Assign(text); }
  const char* getFromTagValue() const { return m_FromTag.Get(); }
  /// The tag of the To header.
  int setToTagValue(const char* text) { return m_ToTag.Assign(text); }
  const char* getToTagValue() const { return m_ToTag.Get(); }

 private:
  ZtText m_DisplayText;
  ZtText m_CallId;
  ZtText m_FromTag;
  ZtText m_ToTag;
};

/// The element "call-info".
class zt_call_type : public ZtTyped<zt_call_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The dialog.
  int setSipValue(zt_sip_dialog_id_type* element) { return m_Sip.Set(element); }
  zt_sip_dialog_id_type* getSipValue() const { return m_Sip; }

 private:
  ZtChildOf<zt_sip_dialog_id_type> m_Sip;
};

/// A "media" of an endpoint.
class zt_media_type : public ZtTyped<zt_media_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "id"; the element cannot be written without it.
  int setIdValue(const char* text) { return m_Id.Assign(text); }
  const char* getIdValue() const { return m_Id.Get(); }
  /// What to show for it.
  int setDisplayTextValue(const char* text) { return m_DisplayText.Assign(text); }
  const char* getDisplayTextValue() const { return m_DisplayText.Get(); }
  /// The kind of medium, e.g. "audio".
  int setTypeValue(const char* text) { return m_Type.Assign(text); }
  const char* getTypeValue() const { return m_Type.Get(); }
  /// Its label (RFC 4574).
  int setLabelValue(const char* text) { return m_Label.Assign(text); }
  const char* getLabelValue() const { return m_Label.Get(); }
  /// Its SSRC (RFC 3550).
  int setSrcIdValue(const char* text) { return m_SrcId.Assign(text); }
  const char* getSrcIdValue() const { return m_SrcId.Get(); }
  /// Its direction.
  int setStatusValue(zt_media_status_type_enum value) { return m_Status.Set(value); }
  zt_media_status_type_enum getStatusValue() const { return m_Status; }
  std::optional<zt_media_status_type_enum> status() const {
    return m_Status.Stated(ZT_MEDIA_STATUS_ABSENT);
  }

 private:
  ZtText m_Id;
  ZtText m_DisplayText;
  ZtText m_Type;
  ZtText m_Label;
  ZtText m_SrcId;
  ZtNumber m_Status = ZT_MEDIA_STATUS_ABSENT;
};

/// An "endpoint" of a user.
class zt_endpoint_type : public ZtTyped<zt_endpoint_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// Whether the element has its full state, only what changed, or is gone.
  int setStateValue(zt_state_type_enum value) { return m_State.Set(value); }
  zt_state_type_enum getStateValue() const { return m_State; }
  std::optional<zt_state_type_enum> state() const { return m_State.Stated(ZT_STATE_ABSENT); }
  /// The attribute "entity", a URI.
  int setEntityValue(const char* text) { return m_Entity.Assign(text); }
  const char* getEntityValue() const { return m_Entity.Get(); }
  /// What to show for it.
  int setDisplayTextValue(const char* text) { return m_DisplayText.Assign(text); }
  const char* getDisplayTextValue() const { return m_DisplayText.Get(); }
  /// Who referred it here.
  int setReferredValue(zt_execution_type* element) { return m_Referred.Set(element); }
  zt_execution_type* getReferredValue() const { return m_Referred; }
  /// Its state.
  int setStatusValue(zt_endpoint_status_type_enum value) { return m_Status.Set(value); }
  zt_endpoint_status_type_enum getStatusValue() const { return m_Status; }
  std::optional<zt_endpoint_status_type_enum> status() const {
    return m_Status.Stated(ZT_ENDPOINT_STATUS_ABSENT);
  }
  /// How it joined.
  int setJoiningMethodValue(zt_joining_type_enum value) { return m_JoiningMethod.Set(value); }
  zt_joining_type_enum getJoiningMethodValue() const { return m_JoiningMethod; }
  std::optional<zt_joining_type_enum> joiningMethod() const {
    return m_JoiningMethod.Stated(ZT_JOINING_ABSENT);
  }
  /// When and why it joined.
  int setJoiningInfoValue(zt_execution_type* element) { return m_JoiningInfo.Set(element); }
  zt_execution_type* getJoiningInfoValue() const { return m_JoiningInfo; }
  /// How it left.
  int setDisconnectionMethodValue(zt_disconnection_type_enum value) {
    return m_DisconnectionMethod.Set(value);
  }
  zt_disconnection_type_enum getDisconnectionMethodValue() const { return m_DisconnectionMethod; }
  std::optional<zt_disconnection_type_enum> disconnectionMethod() const {
    return m_DisconnectionMethod.Stated(ZT_DISCONNECTION_ABSENT);
  }
  /// When and why it left.
  int setDisconnectionInfoValue(zt_execution_type* element) {
    return m_DisconnectionInfo.Set(element);
  }
  zt_execution_type* getDisconnectionInfoValue() const { return m_DisconnectionInfo; }
  /// A list of zt_media_type.
  int setMediaListValue(ZtSingleElementList* list) { return m_Media.Set(list); }
  ZtListOf<zt_media_type>* getMediaListValue() const { return m_Media; }
  int addMedia(zt_media_type* element) { return m_Media.Add(element); }
  /// The endpoint's dialog with the focus (the server that hosts the conference).
  int setCallInfoValue(zt_call_type* element) { return m_CallInfo.Set(element); }
  zt_call_type* getCallInfoValue() const { return m_CallInfo; }

 private:
  ZtNumber m_State = ZT_STATE_ABSENT;
  ZtText m_Entity;
  ZtText m_DisplayText;
  ZtChildOf<zt_execution_type> m_Referred;
  ZtNumber m_Status = ZT_ENDPOINT_STATUS_ABSENT;
  ZtNumber m_JoiningMethod = ZT_JOINING_ABSENT;
  ZtChildOf<zt_execution_type> m_JoiningInfo;
  ZtNumber m_DisconnectionMethod = ZT_DISCONNECTION_ABSENT;
  ZtChildOf<zt_execution_type> m_DisconnectionInfo;
  ZtChildListOf<zt_media_type> m_Media;
  ZtChildOf<zt_call_type> m_CallInfo;
};

/// A "user".
class zt_user_type : public ZtTyped<zt_user_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// Whether the element has its full state, only what changed, or is gone.
  int setStateValue(zt_state_type_enum value) { return m_State.Set(value); }
  zt_state_type_enum getStateValue() const { return m_State; }
  std::optional<zt_state_type_enum> state() const { return m_State.Stated(ZT_STATE_ABSENT); }
  /// The attribute "entity", a URI.
  int setEntityValue(const char* text) { return m_Entity.Assign(text); }
  const char* getEntityValue() const { return m_Entity.Get(); }
  /// The user's name.
  int setDisplayTextValue(const char* text) { return m_DisplayText.Assign(text); }
  const char* getDisplayTextValue() const { return m_DisplayText.Get(); }
  /// Further addresses of the user.
  int setAssociatedAorsValue(zt_uris_type* element) { return m_AssociatedAors.Set(element); }
  zt_uris_type* getAssociatedAorsValue() const { return m_AssociatedAors; }
  /// Roles in the conference.
  int setRolesValue(zt_user_roles_type* element) { return m_Roles.Set(element); }
  zt_user_roles_type* getRolesValue() const { return m_Roles; }
  /// Languages that the user speaks.
  int setLanguagesValue(zt_user_languages_type* element) { return m_Languages.Set(element); }
  zt_user_languages_type* getLanguagesValue() const { return m_Languages; }
  /// The URI of the conference that this user represents.
  int setCascadedFocusValue(const char* text) { return m_CascadedFocus.Assign(text); }
  const char* getCascadedFocusValue() const { return m_CascadedFocus.Get(); }
  /// A list of zt_endpoint_type.
  int setEndpointListValue(ZtSingleElementList* list) { return m_Endpoints.Set(list); }
  ZtListOf<zt_endpoint_type>* getEndpointListValue() const { return m_Endpoints; }
  int addEndpoint(zt_endpoint_type* element) { return m_Endpoints.Add(element); }

 private:
  ZtNumber m_State = ZT_STATE_ABSENT;
  ZtText m_Entity;
  ZtText m_DisplayText;
  ZtChildOf<zt_uris_type> m_AssociatedAors;
  ZtChildOf<zt_user_roles_type> m_Roles;
  ZtChildOf<zt_user_languages_type> m_Languages;
  ZtText m_CascadedFocus;
  ZtChildListOf<zt_endpoint_type> m_Endpoints;
};

/// The element "users".
class zt_users_type : public ZtTyped<zt_users_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// Whether the element has its full state, only what changed, or is gone.
  int setStateValue(zt_state_type_enum value) { return m_State.Set(value); }
  zt_state_type_enum getStateValue() const { return m_State; }
  std::optional<zt_state_type_enum> state() const { return m_State.Stated(ZT_STATE_ABSENT); }
  /// A list of zt_user_type.
  int setUserListValue(ZtSingleElementList* list) { return m_Users.Set(list); }
  ZtListOf<zt_user_type>* getUserListValue() const { return m_Users; }
  int addUser(zt_user_type* element) { return m_Users.Add(element); }

 private:
  ZtNumber m_State = ZT_STATE_ABSENT;
  ZtChildListOf<zt_user_type> m_Users;
};

#endif  // ZTXML_INCLUDE_XMLCONFERENCEUSERS_H
