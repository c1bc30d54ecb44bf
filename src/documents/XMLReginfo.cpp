#include "ztxml/XMLReginfo.h"

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"

namespace {
constexpr char kSource[] = "src/XMLReginfo";

constexpr ZtHookLines kLines = {
    "%s::ProcessUnMarshall n_strElement is NULL",
    "%s::ProcessUnMarshallAttribute n_strAttribute is NULL",
    "%s::ProcessUnMarshall: n_Object is Null",
    "%s::ProcessUnMarshall: pElementName is Null",
    "%s::ProcessUnMarshall: pElementName is %s while ClassName is %s",
    "%s::ProcessUnMarshallAttribute Cannot accommodate the attribute %s"};
constexpr ZtNote kNotes[] = {
    {"unknown-param", XML_STR_NAME, kZtLogError,
     "<XML Module>: AddUnknownParamElementToXml name is required"},
    {"contact", XML_STR_STATE, kZtLogOptional,
     "<XML Module>: AddReginfoContactElementToXml state is required"},
    {"contact", XML_STR_EVENT, kZtLogOptional,
     "<XML Module>: AddReginfoContactElementToXml event is required"},
    {"contact", XML_STR_ID, kZtLogError,
     "<XML Module>: AddReginfoContactElementToXml id is required"},
    {"contact", XML_STR_ZT_NULL, kZtLogTrace,
     "<XML Module>: AddUnknownParamElementToXml cannot accommodate any element classname: %s"},
    {"registration", XML_STR_AOR, kZtLogError,
     "<XML Module>: AddRegistrationElementToXml aor is required"},
    {"registration", XML_STR_STATE, kZtLogOptional,
     "<XML Module>: AddRegistrationElementToXml state is required"},
    {"registration", XML_STR_ZT_NULL, kZtLogTrace,
     "<XML Module>: pRegistration: AnyElement not supported"},
    {"reginfo", XML_STR_STATE, kZtLogOptional,
     "<XML Module>: AddReginfoElementToXml state is required"},
    {"reginfo", XML_STR_ZT_NULL, kZtLogTrace, "<XML Module>: pReginfo: AnyElement not supported"}};
constexpr ZtFamily kFamily =
    ZtFamily{kSource, &kLines, "Cannot accommodate the element %s", "<XML Module>: %s Failed"}
        .RefusesUnknownAttributes()
        .RefusesNullClasses()
        .Notes(kNotes);
constexpr ZtFamily kRootFamily =
    kFamily.UnknownElement("zt_reginfo::ProcessUnMarshall Cannot accommodate the element %s");

// Intended: a text that only begins with a state or an event is read as that value ("fully" as
// "full"), so that peers which append to values are understood.
constexpr ZtEnumByPrefix kReginfoStates = {"full", "partial"};

// Intended: the lookups of a contact's state and event include one value too many, so that the
// state "registered" is read as 2 and the event "init" as 9, neither of which can be written;
// callers have a default in each switch. Intended: the state of a registration is looked for among
// "init" and "active" only; callers get anything else as "terminated".
// clang-format off
constexpr ZtEnumSlot kSlots[] = {
    "active", "terminated",
    "registered", "created", "refreshed", "shortened", "expired", "deactivated", "probation",
    "unregistered", "rejected",
    "init", "active", "terminated"};
// clang-format on
constexpr ZtEnumTable kContactStates = {kSlots, 2, 3, 3, true};
constexpr ZtEnumTable kContactEvents = {kSlots + 2, 9, 10, 10, true};
constexpr ZtEnumTable kRegistrationStates = {kSlots + 11, 3, 2, 2, true};

// What notifications tell (RFC 3680, section 5.2): rows of contacts in tables of registrations.
constexpr ZtTelling kReginfoTelling =
    ZtKeyed(XML_STR_ZT_NULL, XML_STR_STATE).Versions(XML_STR_VERSION, true);
constexpr ZtTelling kRegistrationTelling = ZtJoined(XML_STR_ID);
constexpr ZtTelling kContactTelling = ZtKeyed(XML_STR_ID);
constexpr ZtExtras kRegistration = kZtNoExtras.Tells(kRegistrationTelling);
constexpr ZtExtras kContact = kZtNoExtras.Tells(kContactTelling);

constexpr ZtExtras kNamespaces = {{{XML_STR_URN_IETF_PARAMS_XML_NS_REGINFO, XML_STR_ZT_NULL},
                                   {XML_STR_URN_IETF_PARAMS_XML_NS_GRUUINFO, XML_STR_GR}},
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  &kReginfoTelling};

constexpr ZtChoice kGruus[] = {{XML_STR_PUB_GRUU, zt_pub_gruu::kType, XML_STR_GR},
                               {XML_STR_TEMP_GRUU, zt_temp_gruu::kType, XML_STR_GR},
                               {}};
}  // namespace

const ZtElementType zt_unknown_param::kType = {
    ZtTypeOf<zt_unknown_param>("zt_unknown_param", "unknown-param", kFamily)
        .Writer(XML_STR_UNKNOWN_PARAM, "AddUnknownParamElementToXml"),
    {ztrow::Attribute(XML_STR_NAME, ZT_AT(zt_unknown_param, m_Name)).FreeText().Required(),
     ztrow::OwnText(XML_STR_UNKNOWN_PARAM, ZT_AT(zt_unknown_param, m_Value)).FreeText()}};
// Intended: a required state or event that is missing is logged at the level of optional items,
// although it fails the document; log readers find the line at that level.
const ZtElementType zt_ns_reginfo_contact::kType = {
    ZtTypeOf<zt_ns_reginfo_contact>("zt_ns_reginfo_contact", "contact", kFamily)
        .Writer(XML_STR_CONTACT, "AddReginfoContactElementToXml")
        .With(kContact),
    {ztrow::Attribute(XML_STR_STATE, ZT_AT(zt_ns_reginfo_contact, m_State), kContactStates)
         .Required(),
     ztrow::Attribute(XML_STR_EVENT, ZT_AT(zt_ns_reginfo_contact, m_Event), kContactEvents)
         .Required(),
     ztrow::Attribute(XML_STR_DURATION_REGISTERED,
                      ZT_AT(zt_ns_reginfo_contact, m_DurationRegistered)),
     ztrow::Attribute(XML_STR_EXPIRES, ZT_AT(zt_ns_reginfo_contact, m_Expires)),
     ztrow::Attribute(XML_STR_RETRY_AFTER, ZT_AT(zt_ns_reginfo_contact, m_RetryAfter)),
     ztrow::Attribute(XML_STR_Q, ZT_AT(zt_ns_reginfo_contact, m_Q)).FreeText(),
     ztrow::Attribute(XML_STR_CALLID, ZT_AT(zt_ns_reginfo_contact, m_Callid)).FreeText(),
     ztrow::Attribute(XML_STR_CSEQ, ZT_AT(zt_ns_reginfo_contact, m_Cseq)),
     ztrow::Attribute(XML_STR_ID, ZT_AT(zt_ns_reginfo_contact, m_Id)).FreeText().Required(),
     ztrow::TextElement(XML_STR_URI, ZT_AT(zt_ns_reginfo_contact, m_Uri)).Must(),
     ztrow::TextElement(XML_STR_DISPLAY_NAME, ZT_AT(zt_ns_reginfo_contact, m_DisplayName))
         .FreeText(),
     ztrow::Children(XML_STR_UNKNOWN_PARAM, ZT_AT(zt_ns_reginfo_contact, m_UnknownParams)),
     // Intended: the log line about an element of a contact that is not written names the writer of
     // "unknown-param"; log readers search for it as it is.
     ztrow::OtherChildren(ZT_AT(zt_ns_reginfo_contact, m_AnyElements), kGruus).Lenient()}};
const ZtElementType zt_registration::kType = {
    ZtTypeOf<zt_registration>("zt_registration", "registration", kFamily)
        .Writer(XML_STR_REGISTRATION, "AddRegistrationElementToXml")
        .With(kRegistration),
    {ztrow::Attribute(XML_STR_AOR, ZT_AT(zt_registration, m_Aor)).Required(),
     // Intended: a registration without the required id is written with an empty one instead of
     // failing; peers were tested with it.
     ztrow::Attribute(XML_STR_ID, ZT_AT(zt_registration, m_Id)).Always().FreeText().Must(),
     ztrow::Attribute(XML_STR_STATE, ZT_AT(zt_registration, m_State), kRegistrationStates)
         .Required(),
     ztrow::Children(XML_STR_CONTACT, ZT_AT(zt_registration, m_Contacts)),
     ztrow::OtherChildren(ZT_AT(zt_registration, m_AnyElements))}};
const ZtElementType zt_reginfo::kType = {
    ZtTypeOf<zt_reginfo>("zt_reginfo", "reginfo", kRootFamily)
        .Writer(XML_STR_REGINFO, "AddReginfoElementToXml")
        .With(kNamespaces)
        .Root(),
    {ztrow::Attribute(XML_STR_VERSION, ZT_AT(zt_reginfo, m_Version)).Always().Must(),
     ztrow::Attribute(XML_STR_STATE, ZT_AT(zt_reginfo, m_State), kReginfoStates).Required(),
     ztrow::Children(XML_STR_REGISTRATION, ZT_AT(zt_reginfo, m_Registrations)),
     ztrow::OtherChildren(ZT_AT(zt_reginfo, m_AnyElements))}};

const ZtDocument ReginfoContext::kDocument = {
    ZtDocumentOf<ReginfoContext, XMLReginfoDecoder, ReginfoUnMarshaller, ReginfoMarshaller,
                 ReginfoDataBinder>(kSource)
        .Schema(XML_SCHEMA_REGINFO, "Reginfo", "urn:ietf:params:xml:ns:reginfo", "reginfo")
        // Intended: the log line about a lack of memory in this decoder names that of communication
        // diversion; log readers search for it as it is.
        .Decodes("XMLReginfoDecoder", "src/ReginfoDecoder", ZtPrefixRule::kStrip)
        .Extensions(kGruus)
        .NoMemory(
            "XMLCommunicationDiversionDecoder :: XMLRemoveNameSpaceTag: Malloc unable to allocate "
            "memory")
        .Reads("ReginfoUnMarshaller")
        .Writes("ReginfoMarshaller", "mReginfoXml"),
    {{XML_STR_REGINFO, &zt_reginfo::kType}}};
