#include "ztxml/XMLConferenceInfo.h"

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"
#include "binding/ZtElementWriter.h"

namespace {
constexpr char kSource[] = "src/XMLConferenceInfo";
// An element is known only inside its parents: "entry" has another meaning in each of four.
constexpr ZtNote kNotes[] = {
    {"uris", XML_STR_ENTRY, kZtLogTrace, "<XML Module>: AddUrisTypeElementToXml tempNum: %d"},
    {"media", XML_STR_ID, kZtLogError,
     "<XML Module>: AddMediaElementToXml: id attribute mandatory"},
    {"endpoint", XML_STR_MEDIA, kZtLogTrace,
     "<XML Module>: issue in Media Element number [tempNum: %d]"},
    {"users", XML_STR_USER, kZtLogTrace, "<XML Module>: AddIUsersElementToXml tempNum: %d"},
    {"sidebars-by-val", XML_STR_ENTRY, kZtLogTrace,
     "<XML Module>: Add Sidebars_by_val ElementToXml fail @ tempNum: %d"},
    {"conference-info", XML_STR_ENTITY, kZtLogError,
     "<XML Module>: AddConferenceInfoElementToXml entity attribute is mandatory"}};
constexpr ZtFamily kFamily =
    ZtPlainFamily(kSource).Notes(kNotes).RefusesNullClasses().NamesStayInside();

// ---- Enumerations -------------------------------------------------------------------------------
// Intended: a text that only begins with a value of an enumeration is read as that value ("fully"
// as "full"), so that peers which append to values are understood.

constexpr ZtEnumByPrefix kStates = {"full", "partial", "deleted"};

// By the schema an element that states nothing of the kind is a full one.
constexpr ZtField StateRow(ZtAt<ZtNumber> state) {
  return ztrow::Attribute(XML_STR_STATE, state, kStates).Default(ZT_STATE_FULL);
}

constexpr ZtEnumByPrefix kEndpointStatuses = {"pending",         "dialing-out",   "dialing-in",
                                              "alerting",        "on-hold",       "connected",
                                              "muted-via-focus", "disconnecting", "disconnected"};

constexpr ZtEnumByPrefix kJoiningMethods = {"dialed-in", "dialed-out", "focus-owner"};

// Intended: an unknown disconnection method is read as one more than absent, where other
// enumerations read unknown values as absent; callers tell unknown from absent.
constexpr ZtEnumSlot kDisconnectionSlots[] = {"departed", "booted", "failed", "busy"};
constexpr ZtEnumTable kDisconnectionMethods = {kDisconnectionSlots, 4, 4, ZT_DISCONNECTION_UNKNOWN,
                                               true};

constexpr ZtEnumByPrefix kMediaStatuses = {"recvonly", "sendonly", "sendrecv", "inactive"};

// ---- What notifications tell (RFC 4575, sections 4.4 and 4.5) -----------------------------------

constexpr ZtTelling kConferenceTelling =
    ZtKeyed(XML_STR_ENTITY, XML_STR_STATE).Versions(XML_STR_VERSION, false);
constexpr ZtTelling kByState = ZtKeyed(XML_STR_ZT_NULL, XML_STR_STATE);
constexpr ZtTelling kByEntityAndState = ZtKeyed(XML_STR_ENTITY, XML_STR_STATE);
constexpr ZtTelling kById = ZtKeyed(XML_STR_ID);
constexpr ZtTelling kByUri = ZtKeyed(XML_STR_URI);
constexpr ZtExtras kPartial = kZtNoExtras.Tells(kByState);  // users, lists of URIs, sidebars
constexpr ZtExtras kMember = kZtNoExtras.Tells(kByEntityAndState);  // users and their endpoints
constexpr ZtExtras kMedium = kZtNoExtras.Tells(kById);
constexpr ZtExtras kUri = kZtNoExtras.Tells(kByUri);

constexpr ZtExtras kNamespace = {
    {{XML_STR_URN_IETF_PARAMS_XML_NS_CONFERENCE_INFO, XML_STR_ZT_NULL}},
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    &kConferenceTelling};
}  // namespace

namespace {
bool WriteAvailableMedia(ZtElementWriter& writer, const XMLElement& self, const ZtElementType&) {
  int index = 0;
  const auto& media = static_cast<const zt_conference_media_type&>(self);
  ZtListNode* node = ZtHeadOf(media.getEntryListValue());
  for (; node; node = node->next, ++index) {
    auto* medium = static_cast<XMLElement*>(node->data);
    if (!medium) continue;
    writer.Log(kZtLogTrace, "<XML Module>: AddConferenceMediaTypeElementToXml tempNum: %d", index);
    const auto* known = ZtAs<zt_conference_medium_type>(medium);
    if (known && !known->getLabelValue()) {
      writer.Log(kZtLogError,
                 "<XML Module>: AddConferenceMediaTypeElementToXml: label attribute mandatory "
                 "tempNum:%d",
                 index);
      return false;
    }
    if (!writer.Write(medium, zt_conference_medium_type::kType, XML_STR_ZT_NULL, XML_STR_ENTRY)) {
      return false;
    }
  }
  return true;
}
constexpr ZtExtras kAvailableMedia = {{}, nullptr, WriteAvailableMedia};
}  // namespace

const ZtElementType zt_execution_type::kType = {
    ZtTypeOf<zt_execution_type>("zt_execution_type", "execution", kFamily)
        .Writer(XML_STR_ZT_NULL, "AddExecutionTypeElementToXml"),
    {kZtExtras, ztrow::TextElement(XML_STR_WHEN, ZT_AT(zt_execution_type, m_When)),
     ztrow::TextElement(XML_STR_REASON, ZT_AT(zt_execution_type, m_Reason)).FreeText(),
     ztrow::TextElement(XML_STR_BY, ZT_AT(zt_execution_type, m_By)), kZtOthers}};
const ZtElementType zt_uri_type::kType = {
    ZtTypeOf<zt_uri_type>("zt_uri_type", "entry", kFamily)
        .Writer(XML_STR_ENTRY, "AddUriTypeElementToXml")
        .With(kUri),
    {kZtExtras, ztrow::TextElement(XML_STR_URI, ZT_AT(zt_uri_type, m_Uri)).Must(),
     ztrow::TextElement(XML_STR_DISPLAY_TEXT, ZT_AT(zt_uri_type, m_DisplayText)).FreeText(),
     ztrow::TextElement(XML_STR_PURPOSE, ZT_AT(zt_uri_type, m_Purpose)).FreeText(),
     ztrow::Child(XML_STR_MODIFIED, ZT_AT(zt_uri_type, m_Modified)), kZtOthers}};
const ZtElementType zt_uris_type::kType = {
    ZtTypeOf<zt_uris_type>("zt_uris_type", "uris", kFamily)
        .Writer(XML_STR_URIS, "AddUrisTypeElementToXml")
        .With(kPartial),
    {StateRow(ZT_AT(zt_uris_type, m_State)), kZtExtras,
     ztrow::Children(XML_STR_ENTRY, ZT_AT(zt_uris_type, m_Entries)), kZtOthers}};
// Intended: keywords and languages are split at every blank, so that two blanks in a row make an
// empty word; callers get n + 1 words for n blanks.
const ZtElementType zt_keywords_type::kType = {
    ZtTypeOf<zt_keywords_type>("zt_keywords_type", "keywords", kFamily),
    {kZtExtras, ztrow::OwnWords(XML_STR_KEYWORDS, ZT_AT(zt_keywords_type, m_Words)), kZtOthers}};
const ZtElementType zt_user_languages_type::kType = {
    ZtTypeOf<zt_user_languages_type>("zt_user_languages_type", "languages", kFamily),
    {kZtExtras, ztrow::OwnWords(XML_STR_LANGUAGES, ZT_AT(zt_user_languages_type, m_Words)),
     kZtOthers}};
const ZtElementType zt_user_roles_type::kType = {
    ZtTypeOf<zt_user_roles_type>("zt_user_roles_type", "roles", kFamily),
    {kZtExtras, ztrow::TextElements(XML_STR_ENTRY, ZT_AT(zt_user_roles_type, m_Entries)).FreeText(),
     kZtOthers}};
const ZtElementType zt_conference_medium_type::kType = {
    ZtTypeOf<zt_conference_medium_type>("zt_conference_medium_type", "entry", kFamily)
        .Writer(XML_STR_ZT_NULL, "AddConferenceMediumTypeElementToXml"),
    {ztrow::Attribute(XML_STR_LABEL, ZT_AT(zt_conference_medium_type, m_Label)).FreeText().Must(),
     kZtExtras,
     ztrow::TextElement(XML_STR_DISPLAY_TEXT, ZT_AT(zt_conference_medium_type, m_DisplayText))
         .FreeText(),
     ztrow::TextElement(XML_STR_TYPE, ZT_AT(zt_conference_medium_type, m_Type)).FreeText().Must(),
     ztrow::TextElement(XML_STR_STATUS, ZT_AT(zt_conference_medium_type, m_Status), kMediaStatuses),
     kZtOthers}};
const ZtElementType zt_conference_media_type::kType = {
    ZtTypeOf<zt_conference_media_type>("zt_conference_media_type", "available-media", kFamily)
        .Writer(XML_STR_AVAILABLE_MEDIA, "AddConferenceMediaTypeElementToXml")
        .With(kAvailableMedia),
    {kZtExtras, ztrow::Children(XML_STR_ENTRY, ZT_AT(zt_conference_media_type, m_Entries)),
     kZtOthers}};
const ZtElementType zt_conference_description_type::kType = {
    ZtTypeOf<zt_conference_description_type>("zt_conference_description_type",
                                             "conference-description", kFamily)
        .Writer(XML_STR_CONFERENCE_DESCRIPTION, "AddConferenceDescriptionElementToXml"),
    {kZtExtras,
     ztrow::TextElement(XML_STR_DISPLAY_TEXT, ZT_AT(zt_conference_description_type, m_DisplayText))
         .FreeText(),
     ztrow::TextElement(XML_STR_SUBJECT, ZT_AT(zt_conference_description_type, m_Subject))
         .FreeText(),
     ztrow::TextElement(XML_STR_FREE_TEXT, ZT_AT(zt_conference_description_type, m_FreeText))
         .FreeText(),
     ztrow::Child(XML_STR_KEYWORDS, ZT_AT(zt_conference_description_type, m_Keywords))
         .Arrives(ZtArrival::kAtEnd),
     ztrow::Child(XML_STR_CONF_URIS, ZT_AT(zt_conference_description_type, m_ConfUris)),
     ztrow::Child(XML_STR_SERVICE_URIS, ZT_AT(zt_conference_description_type, m_ServiceUris)),
     ztrow::TextElement(XML_STR_MAXIMUM_USER_COUNT,
                        ZT_AT(zt_conference_description_type, m_MaximumUserCount)),
     ztrow::Child(XML_STR_AVAILABLE_MEDIA, ZT_AT(zt_conference_description_type, m_AvailableMedia)),
     kZtOthers}};
const ZtElementType zt_host_type::kType = {
    ZtTypeOf<zt_host_type>("zt_host_type", "host-info", kFamily)
        .Writer(XML_STR_HOST_INFO, "AddHostInfoElementToXml"),
    {kZtExtras,
     ztrow::TextElement(XML_STR_DISPLAY_TEXT, ZT_AT(zt_host_type, m_DisplayText)).FreeText(),
     ztrow::TextElement(XML_STR_WEB_PAGE, ZT_AT(zt_host_type, m_WebPage)),
     ztrow::Child(XML_STR_URIS, ZT_AT(zt_host_type, m_Uris)), kZtOthers}};
const ZtElementType zt_conference_state_type::kType = {
    ZtTypeOf<zt_conference_state_type>("zt_conference_state_type", "conference-state", kFamily)
        .Writer(XML_STR_CONFERENCE_STATE, "AddConferenceStateElementToXml"),
    {kZtExtras,
     ztrow::TextElement(XML_STR_USER_COUNT, ZT_AT(zt_conference_state_type, m_UserCount)),
     ztrow::TextElement(XML_STR_ACTIVE, ZT_AT(zt_conference_state_type, m_Active),
                        kTrueOrElseFalse),
     ztrow::TextElement(XML_STR_LOCKED, ZT_AT(zt_conference_state_type, m_Locked),
                        kTrueOrElseFalse),
     kZtOthers}};
const ZtElementType zt_sip_dialog_id_type::kType = {
    ZtTypeOf<zt_sip_dialog_id_type>("zt_sip_dialog_id_type", "sip", kFamily)
        .Writer(XML_STR_SIP, "AddSipElementToXml"),
    {kZtExtras,
     ztrow::TextElement(XML_STR_DISPLAY_TEXT, ZT_AT(zt_sip_dialog_id_type, m_DisplayText))
         .FreeText(),
     ztrow::TextElement(XML_STR_CALL_ID, ZT_AT(zt_sip_dialog_id_type, m_CallId)).FreeText().Must(),
     ztrow::TextElement(XML_STR_FROM_TAG, ZT_AT(zt_sip_dialog_id_type, m_FromTag))
         .FreeText()
         .Must(),
     ztrow::TextElement(XML_STR_TO_TAG, ZT_AT(zt_sip_dialog_id_type, m_ToTag)).FreeText().Must(),
     kZtOthers}};
const ZtElementType zt_call_type::kType = {
    ZtTypeOf<zt_call_type>("zt_call_type", "call-info", kFamily),
    {kZtExtras, ztrow::Child(XML_STR_SIP, ZT_AT(zt_call_type, m_Sip)), kZtOthers}};
const ZtElementType zt_media_type::kType = {
    ZtTypeOf<zt_media_type>("zt_media_type", "media", kFamily)
        .Writer(XML_STR_MEDIA, "AddMediaElementToXml")
        .With(kMedium),
    {ztrow::Attribute(XML_STR_ID, ZT_AT(zt_media_type, m_Id)).FreeText().Required(), kZtExtras,
     ztrow::TextElement(XML_STR_DISPLAY_TEXT, ZT_AT(zt_media_type, m_DisplayText)).FreeText(),
     ztrow::TextElement(XML_STR_TYPE, ZT_AT(zt_media_type, m_Type)).FreeText(),
     ztrow::TextElement(XML_STR_LABEL, ZT_AT(zt_media_type, m_Label)).FreeText(),
     ztrow::TextElement(XML_STR_SRC_ID, ZT_AT(zt_media_type, m_SrcId)).FreeText(),
     ztrow::TextElement(XML_STR_STATUS, ZT_AT(zt_media_type, m_Status), kMediaStatuses),
     kZtOthers}};
const ZtElementType zt_endpoint_type::kType = {
    ZtTypeOf<zt_endpoint_type>("zt_endpoint_type", "endpoint", kFamily)
        .Writer(XML_STR_ENDPOINT, "AddEndPointElementToXml")
        .With(kMember),
    {StateRow(ZT_AT(zt_endpoint_type, m_State)),
     ztrow::Attribute(XML_STR_ENTITY, ZT_AT(zt_endpoint_type, m_Entity)).FreeText(), kZtExtras,
     ztrow::TextElement(XML_STR_DISPLAY_TEXT, ZT_AT(zt_endpoint_type, m_DisplayText)).FreeText(),
     ztrow::Child(XML_STR_REFERRED, ZT_AT(zt_endpoint_type, m_Referred)),
     ztrow::TextElement(XML_STR_STATUS, ZT_AT(zt_endpoint_type, m_Status), kEndpointStatuses),
     ztrow::TextElement(XML_STR_JOINING_METHOD, ZT_AT(zt_endpoint_type, m_JoiningMethod),
                        kJoiningMethods),
     ztrow::Child(XML_STR_JOINING_INFO, ZT_AT(zt_endpoint_type, m_JoiningInfo)),
     ztrow::TextElement(XML_STR_DISCONNECTION_METHOD,
                        ZT_AT(zt_endpoint_type, m_DisconnectionMethod), kDisconnectionMethods),
     ztrow::Child(XML_STR_DISCONNECTION_INFO, ZT_AT(zt_endpoint_type, m_DisconnectionInfo)),
     ztrow::Children(XML_STR_MEDIA, ZT_AT(zt_endpoint_type, m_Media)),
     ztrow::Child(XML_STR_CALL_INFO, ZT_AT(zt_endpoint_type, m_CallInfo)), kZtOthers}};
const ZtElementType zt_user_type::kType = {
    ZtTypeOf<zt_user_type>("zt_user_type", "user", kFamily)
        // Intended: log lines call the writer of a user "AddUserElementToXkjml"; log readers search
        // for it.
        .Writer(XML_STR_USER, "AddUserElementToXkjml")
        .With(kMember),
    {StateRow(ZT_AT(zt_user_type, m_State)),
     ztrow::Attribute(XML_STR_ENTITY, ZT_AT(zt_user_type, m_Entity)), kZtExtras,
     ztrow::TextElement(XML_STR_DISPLAY_TEXT, ZT_AT(zt_user_type, m_DisplayText)).FreeText(),
     ztrow::Child(XML_STR_ASSOCIATED_AORS, ZT_AT(zt_user_type, m_AssociatedAors)),
     ztrow::Child(XML_STR_ROLES, ZT_AT(zt_user_type, m_Roles)),
     ztrow::Child(XML_STR_LANGUAGES, ZT_AT(zt_user_type, m_Languages)).Arrives(ZtArrival::kAtEnd),
     ztrow::TextElement(XML_STR_CASCADED_FOCUS, ZT_AT(zt_user_type, m_CascadedFocus)),
     ztrow::Children(XML_STR_ENDPOINT, ZT_AT(zt_user_type, m_Endpoints)), kZtOthers}};
// Intended: the writer of "users" is called AddIUsersElementToXml; callers and log readers use the
// name.
const ZtElementType zt_users_type::kType = {
    ZtTypeOf<zt_users_type>("zt_users_type", "users", kFamily)
        .Writer(XML_STR_USERS, "AddIUsersElementToXml")
        .With(kPartial),
    {StateRow(ZT_AT(zt_users_type, m_State)), kZtExtras,
     ztrow::Children(XML_STR_USER, ZT_AT(zt_users_type, m_Users)), kZtOthers}};
const ZtElementType zt_sidebars_by_val_type::kType = {
    ZtTypeOf<zt_sidebars_by_val_type>("zt_sidebars_by_val_type", "sidebars-by-val", kFamily)
        .With(kPartial),
    {StateRow(ZT_AT(zt_sidebars_by_val_type, m_State)), kZtExtras,
     ztrow::Children(XML_STR_ENTRY, ZT_AT(zt_sidebars_by_val_type, m_Entries)), kZtOthers}};
// A sidebar's entry is a conference, too, but does not declare the namespace again.
const ZtElementType zt_conference_type::kType = {
    ZtTypeOf<zt_conference_type>("zt_conference_type", "conference-info", kFamily)
        .Writer(XML_STR_CONFERENCE_INFO, "AddConferenceInfoElementToXml")
        .With(kNamespace)
        .Root(),
    {StateRow(ZT_AT(zt_conference_type, m_State)),
     ztrow::Attribute(XML_STR_VERSION, ZT_AT(zt_conference_type, m_Version)),
     ZtExtensibleRows::kAttributes<ZtObject>,
     ztrow::Attribute(XML_STR_ENTITY, ZT_AT(zt_conference_type, m_Entity)).Required(),
     ztrow::Child(XML_STR_CONFERENCE_DESCRIPTION,
                  ZT_AT(zt_conference_type, m_ConferenceDescription)),
     ztrow::Child(XML_STR_HOST_INFO, ZT_AT(zt_conference_type, m_HostInfo)),
     ztrow::Child(XML_STR_CONFERENCE_STATE, ZT_AT(zt_conference_type, m_ConferenceState)),
     ztrow::Child(XML_STR_USERS, ZT_AT(zt_conference_type, m_Users)),
     ztrow::Child(XML_STR_SIDEBARS_BY_REF, ZT_AT(zt_conference_type, m_SidebarsByRef)),
     ztrow::Child(XML_STR_SIDEBARS_BY_VAL, ZT_AT(zt_conference_type, m_SidebarsByVal)),
     ZtExtensibleRows::kElements<ZtObject>}};

int Conference_infoMarshall::AddConferenceInfoElementToXml(zt_conference_type* conference,
                                                           e_XmlStrRef name) {
  return Write(conference, zt_conference_type::kType, XML_STR_ZT_NULL,
               name == XML_STR_ZT_NULL ? XML_STR_ENTRY : name);
}
int Conference_infoMarshall::AddUrisTypeElementToXml(zt_uris_type* uris, e_XmlStrRef name) {
  return Write(uris, zt_uris_type::kType, XML_STR_ZT_NULL, name);
}

void TestConference_infoMarshall() {
  ZtLog(kZtLogTrace, kSource)("<XML Module>: TestConference_infoMarshall");
}

namespace {
constexpr ZtDocumentLines kDocumentLines = [] {
  ZtDocumentLines lines;
  // Intended: the line about a missing root says "Receiven NULL Object"; log readers search for it
  // as it is.
  lines.nullRoot = "<XML Module>: Conference_infoMarshall :: Marshall: Receiven NULL Object";
  return lines;
}();
}  // namespace

const ZtDocument ConferenceInfoContext::kDocument = {
    ZtDocumentOf<ConferenceInfoContext, XMLConferenceInfoDecoder, ConferenceInfoUnMarshaller,
                 Conference_infoMarshall, ConferenceInfoDataBinder>(kSource)
        .Schema(XML_SCHEMA_CONFERENCE_INFO, "ConferenceInfo",
                "urn:ietf:params:xml:ns:conference-info", "conference-info")
        .Decodes("XMLConferenceInfoDecoder", "src/ConferenceInfo", ZtPrefixRule::kStrip)
        .Reads("ConferenceInfoUnMarshaller")
        .Writes("Conference_infoMarshall", "mConferenceInfoXml")
        .Lines(kDocumentLines),
    {{XML_STR_CONFERENCE_INFO, &zt_conference_type::kType}}};
