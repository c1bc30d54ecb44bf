// Conference information: the state of a conference (RFC 4575). What XMLConferenceUsers.h says of
// ownership, texts and absent values holds here, too.
#ifndef ZTXML_INCLUDE_XMLCONFERENCEINFO_H
#define ZTXML_INCLUDE_XMLCONFERENCEINFO_H

#include "ztxml/XMLConferenceUsers.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtSchemaDecoder.h"

/// The element "keywords".
class zt_keywords_type : public ZtTyped<zt_keywords_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_string. One blank separates two words in a document; two have an empty word
  /// between.
  int setKeywordListValue(ZtSingleElementList* list) { return m_Words.Set(list); }
  ZtListOf<zt_string>* getKeywordListValue() const { return m_Words; }
  int addKeyword(zt_string* element) { return m_Words.Add(element); }

 private:
  ZtChildListOf<zt_string> m_Words;
};

/// An "entry" of "available-media".
class zt_conference_medium_type : public ZtTyped<zt_conference_medium_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "label"; the element cannot be written without it.
  int setLabelValue(const char* text) { return m_Label.Assign(text); }
  const char* getLabelValue() const { return m_Label.Get(); }
  /// What to show for the medium.
  int setDisplayTextValue(const char* text) { return m_DisplayText.Assign(text); }
  const char* getDisplayTextValue() const { return m_DisplayText.Get(); }
  /// The kind of medium, e.g. "audio".
  int setTypeValue(const char* text) { return m_Type.Assign(text); }
  const char* getTypeValue() const { return m_Type.Get(); }
  /// The medium's direction.
  int setStatusValue(zt_media_status_type_enum value) { return m_Status.Set(value); }
  zt_media_status_type_enum getStatusValue() const { return m_Status; }
  std::optional<zt_media_status_type_enum> status() const {
    return m_Status.Stated(ZT_MEDIA_STATUS_ABSENT);
  }

 private:
  ZtText m_Label;
  ZtText m_DisplayText;
  ZtText m_Type;
  ZtNumber m_Status = ZT_MEDIA_STATUS_ABSENT;
};

/// The element "available-media".
class zt_conference_media_type : public ZtTyped<zt_conference_media_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_conference_medium_type.
  int setEntryListValue(ZtSingleElementList* list) { return m_Entries.Set(list); }
  ZtListOf<zt_conference_medium_type>* getEntryListValue() const { return m_Entries; }
  int addEntry(zt_conference_medium_type* element) { return m_Entries.Add(element); }

 private:
  ZtChildListOf<zt_conference_medium_type> m_Entries;
};

/// The element "conference-description".
class zt_conference_description_type
    : public ZtTyped<zt_conference_description_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// What to show for the conference.
  int setDisplayTextValue(const char* text) { return m_DisplayText.Assign(text); }
  const char* getDisplayTextValue() const { return m_DisplayText.Get(); }
  /// The conference's subject.
  int setSubjectValue(const char* text) { return m_Subject.Assign(text); }
  const char* getSubjectValue() const { return m_Subject.Get(); }
  /// More text about the conference.
  int setFreeTextValue(const char* text) { return m_FreeText.Assign(text); }
  const char* getFreeTextValue() const { return m_FreeText.Get(); }
  /// Words to find it by.
  int setKeywordsValue(zt_keywords_type* element) { return m_Keywords.Set(element); }
  zt_keywords_type* getKeywordsValue() const { return m_Keywords; }
  /// URIs under which the conference is reached.
  int setConfUrisValue(zt_uris_type* element) { return m_ConfUris.Set(element); }
  zt_uris_type* getConfUrisValue() const { return m_ConfUris; }
  /// URIs of services that go with the conference, e.g. a web page.
  int setServiceUrisValue(zt_uris_type* element) { return m_ServiceUris.Set(element); }
  zt_uris_type* getServiceUrisValue() const { return m_ServiceUris; }
  /// The most users that the conference admits.
  int setMaximumUserCountValue(unsigned int value) { return m_MaximumUserCount.Set(value); }
  unsigned int getMaximumUserCountValue() const { return m_MaximumUserCount; }
  std::optional<std::uint32_t> maximumUserCount() const {
    return m_MaximumUserCount.Stated<std::uint32_t>();
  }
  /// The media that the conference offers.
  int setAvailableMediaValue(zt_conference_media_type* element) {
    return m_AvailableMedia.Set(element);
  }
  zt_conference_media_type* getAvailableMediaValue() const { return m_AvailableMedia; }

 private:
  ZtText m_DisplayText;
  ZtText m_Subject;
  ZtText m_FreeText;
  ZtChildOf<zt_keywords_type> m_Keywords;
  ZtChildOf<zt_uris_type> m_ConfUris;
  ZtChildOf<zt_uris_type> m_ServiceUris;
  ZtNumber m_MaximumUserCount;
  ZtChildOf<zt_conference_media_type> m_AvailableMedia;
};

/// The element "host-info".
class zt_host_type : public ZtTyped<zt_host_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// Who hosts the conference.
  int setDisplayTextValue(const char* text) { return m_DisplayText.Assign(text); }
  const char* getDisplayTextValue() const { return m_DisplayText.Get(); }
  /// The URI of a page about the host.
  int setWebPageValue(const char* text) { return m_WebPage.Assign(text); }
  const char* getWebPageValue() const { return m_WebPage.Get(); }
  /// URIs of the host.
  int setUrisValue(zt_uris_type* element) { return m_Uris.Set(element); }
  zt_uris_type* getUrisValue() const { return m_Uris; }

 private:
  ZtText m_DisplayText;
  ZtText m_WebPage;
  ZtChildOf<zt_uris_type> m_Uris;
};

/// The element "conference-state".
class zt_conference_state_type : public ZtTyped<zt_conference_state_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The number of users that take part.
  int setUserCountValue(unsigned int value) { return m_UserCount.Set(value); }
  unsigned int getUserCountValue() const { return m_UserCount; }
  std::optional<std::uint32_t> userCount() const { return m_UserCount.Stated<std::uint32_t>(); }
  /// 1 or 0 (any other number, and at first): whether the conference has begun. Always written.
  int setActiveValue(int value) { return m_Active.Set(value == 1 ? 1 : 0); }
  int getActiveValue() const { return m_Active; }
  std::optional<bool> active() const { return m_Active.Stated<bool>(); }
  /// 1 or 0, as above: whether nobody may join any more. Always written.
  int setLockedValue(int value) { return m_Locked.Set(value == 1 ? 1 : 0); }
  int getLockedValue() const { return m_Locked; }
  std::optional<bool> locked() const { return m_Locked.Stated<bool>(); }

 private:
  ZtNumber m_UserCount;
  ZtNumber m_Active;
  ZtNumber m_Locked;
};

class zt_conference_type;

/// The element "sidebars-by-val".
class zt_sidebars_by_val_type : public ZtTyped<zt_sidebars_by_val_type, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// Whether the element has its full state, only what changed, or is gone.
  int setStateValue(zt_state_type_enum value) { return m_State.Set(value); }
  zt_state_type_enum getStateValue() const { return m_State; }
  std::optional<zt_state_type_enum> state() const { return m_State.Stated(ZT_STATE_ABSENT); }
  /// A list of zt_conference_type.
  int setEntryListValue(ZtSingleElementList* list) { return m_Entries.Set(list); }
  ZtListOf<zt_conference_type>* getEntryListValue() const { return m_Entries; }
  int addEntry(zt_conference_type* element);

 private:
  ZtNumber m_State = ZT_STATE_ABSENT;
  ZtChildListOf<zt_conference_type> m_Entries;
};

/// The root element "conference-info", and an "entry" of "sidebars-by-val".
class zt_conference_type : public ZtTyped<zt_conference_type, ZtExtensible<ZtObject>> {
 public:
  ZT_API static const ZtElementType kType;
  /// Whether the element has its full state, only what changed, or is gone.
  int setStateValue(zt_state_type_enum value) { return m_State.Set(value); }
  zt_state_type_enum getStateValue() const { return m_State; }
  std::optional<zt_state_type_enum> state() const { return m_State.Stated(ZT_STATE_ABSENT); }
  /// The attribute "version", counted up from one document to the next.
  int setVersionValue(unsigned int value) { return m_Version.Set(value); }
  unsigned int getVersionValue() const { return m_Version; }
  std::optional<std::uint32_t> version() const { return m_Version.Stated<std::uint32_t>(); }
  /// The attribute "entity", the URI of the conference; the element cannot be written without it.
  int setEntityValue(const char* text) { return m_Entity.Assign(text); }
  const char* getEntityValue() const { return m_Entity.Get(); }
  /// What the conference is.
  int setConferenceDescriptionValue(zt_conference_description_type* element) {
    return m_ConferenceDescription.Set(element);
  }
  zt_conference_description_type* getConferenceDescriptionValue() const {
    return m_ConferenceDescription;
  }
  /// Who hosts the conference.
  int setHostInfoValue(zt_host_type* element) { return m_HostInfo.Set(element); }
  zt_host_type* getHostInfoValue() const { return m_HostInfo; }
  /// How many take part, and whether it is active or locked.
  int setConferenceStateValue(zt_conference_state_type* element) {
    return m_ConferenceState.Set(element);
  }
  zt_conference_state_type* getConferenceStateValue() const { return m_ConferenceState; }
  /// Who takes part.
  int setUsersValue(zt_users_type* element) { return m_Users.Set(element); }
  zt_users_type* getUsersValue() const { return m_Users; }
  /// Sidebars (conferences within this one) by their URIs.
  int setSidebarsByRefValue(zt_uris_type* element) { return m_SidebarsByRef.Set(element); }
  zt_uris_type* getSidebarsByRefValue() const { return m_SidebarsByRef; }
  /// Sidebars with their state.
  int setSidebarsByValValue(zt_sidebars_by_val_type* element) {
    return m_SidebarsByVal.Set(element);
  }
  zt_sidebars_by_val_type* getSidebarsByValValue() const { return m_SidebarsByVal; }

 private:
  ZtNumber m_State = ZT_STATE_ABSENT;
  ZtNumber m_Version;
  ZtText m_Entity;
  ZtChildOf<zt_conference_description_type> m_ConferenceDescription;
  ZtChildOf<zt_host_type> m_HostInfo;
  ZtChildOf<zt_conference_state_type> m_ConferenceState;
  ZtChildOf<zt_users_type> m_Users;
  ZtChildOf<zt_uris_type> m_SidebarsByRef;
  ZtChildOf<zt_sidebars_by_val_type> m_SidebarsByVal;
};

/// The root type by the name of its element.
using zt_conference_info = zt_conference_type;

inline int zt_sidebars_by_val_type::addEntry(zt_conference_type* element) {
  return m_Entries.Add(element);
}

/// The context of conference information, XML_SCHEMA_CONFERENCE_INFO.
class ConferenceInfoContext : public ZtDescribedBy<ConferenceInfoContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty elements; each is the caller's until a parent takes it. Null when out of memory.
class ConferenceInfoDataBinder : public ZtDescribedBy<ConferenceInfoContext, ZtFactory> {
 public:
  zt_conference_type* CreateConferenceInfoType() { return Make(); }
  zt_conference_description_type* CreateConferenceDescriptionType() { return Make(); }
  zt_host_type* CreateHostType() { return Make(); }
  zt_conference_state_type* CreateConferenceStateType() { return Make(); }
  zt_users_type* CreateUsersType() { return Make(); }
  zt_user_type* CreateUserType() { return Make(); }
  zt_user_roles_type* CreateUserRolesType() { return Make(); }
  zt_user_languages_type* CreateUserLanguagesType() { return Make(); }
  zt_endpoint_type* CreateEndPointType() { return Make(); }
  zt_execution_type* CreateExecutionType() { return Make(); }
  zt_media_type* CreateMediaType() { return Make(); }
  zt_call_type* CreateCallType() { return Make(); }
  zt_sip_dialog_id_type* CreateSIPDialogIDType() { return Make(); }
  zt_uris_type* CreateURIsType() { return Make(); }
  zt_uri_type* CreateURIType() { return Make(); }
  zt_keywords_type* CreateKeywordsType() { return Make(); }
  zt_conference_medium_type* CreateConferenceMediumType() { return Make(); }
  /// An empty "available-media". Intended: CreateConferenceMedaiType is misspelt; callers use the
  /// name.
  zt_conference_media_type* CreateConferenceMedaiType() { return Make(); }

  zt_sidebars_by_val_type* CreateSideBarsByValueType() { return Make(); }
};

/// Writes a zt_conference_type. Its Add functions write one element each and return 1, or 0 on
/// failure; they work only while Marshall runs; `name` is the element's name.
class ZT_API Conference_infoMarshall : public ZtDescribedBy<ConferenceInfoContext, ZtMarshaller> {
 public:
  int AddConferenceInfoElementToXml(zt_conference_type* conference, e_XmlStrRef name);
  int AddConferenceDescriptionElementToXml(zt_conference_description_type* description) {
    return Write(description);
  }
  int AddHostInfoElementToXml(zt_host_type* host) { return Write(host); }
  int AddConferenceStateElementToXml(zt_conference_state_type* state) { return Write(state); }
  int AddIUsersElementToXml(zt_users_type* users) { return Write(users); }
  int AddUserElementToXml(zt_user_type* user) { return Write(user); }
  int AddEndPointElementToXml(zt_endpoint_type* endpoint) { return Write(endpoint); }
  /// Writes the children only: the parent writes the element around them.
  int AddExecutionTypeElementToXml(zt_execution_type* execution) { return Write(execution); }
  int AddMediaElementToXml(zt_media_type* media) { return Write(media); }
  int AddSipElementToXml(zt_sip_dialog_id_type* sip) { return Write(sip); }
  int AddUrisTypeElementToXml(zt_uris_type* uris, e_XmlStrRef name);
  int AddUriTypeElementToXml(zt_uri_type* uri) { return Write(uri); }
  int AddConferenceMediaTypeElementToXml(zt_conference_media_type* media) { return Write(media); }
  /// Writes the children only, like AddExecutionTypeElementToXml.
  int AddConferenceMediumTypeElementToXml(zt_conference_medium_type* medium) {
    return Write(medium);
  }
};

/// Reads a "conference-info" document, with any prefixes.
class XMLConferenceInfoDecoder : public ZtDecoderOf<ConferenceInfoContext> {};
/// Reads a zt_conference_type.
class ConferenceInfoUnMarshaller : public ZtDescribedBy<ConferenceInfoContext, ZtUnMarshaller> {};
/// A check for developers: logs that it was called.
ZT_API void TestConference_infoMarshall();

#endif  // ZTXML_INCLUDE_XMLCONFERENCEINFO_H
