#include "ztxml/XMLRlmi.h"

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"

namespace {
constexpr char kSource[] = "src/XMLRlmi";
constexpr ZtNote kNotes[] = {{"instance", XML_STR_ID, kZtLogError,
                              "<XML Module>: AddInstanceElementToXml Id mandatory attribute"},
                             {"instance", XML_STR_STATE, kZtLogError,
                              "<XML Module>: AddInstanceElementToXml state mandatory attribute"},
                             {"resource", XML_STR_URI, kZtLogError,
                              "<XML Module>: AddResourceElementToXml Uri mandatory attribute"},
                             {"list", XML_STR_URI, kZtLogError,
                              "<XML Module>: AddListElementToXml Uri mandatory attribute"}};
constexpr ZtFamily kFamily = ZtPlainFamily(kSource).Notes(kNotes);

// Intended: a text that only begins with a state of an instance is read as that state ("active;x"
// as "active"), so that peers which append to states are understood.
constexpr ZtEnumByPrefix kStates = {"active", "pending", "terminated"};

// What notifications tell (RFC 4662, section 5.6): rows of resources, each whole.
constexpr ZtTelling kListTelling =
    ZtKeyed(XML_STR_URI, XML_STR_FULL_STATE).Versions(XML_STR_VERSION, true);
constexpr ZtTelling kByUri = ZtKeyed(XML_STR_URI);
constexpr ZtTelling kById = ZtKeyed(XML_STR_ID);
constexpr ZtExtras kResource = kZtNoExtras.Tells(kByUri);
constexpr ZtExtras kInstance = kZtNoExtras.Tells(kById);

constexpr ZtExtras kNamespace = {{{XML_STR_URN_IETF_PARAMS_XML_NS_RLMI, XML_STR_ZT_NULL}},
                                 nullptr,
                                 nullptr,
                                 nullptr,
                                 nullptr,
                                 nullptr,
                                 &kListTelling};
}  // namespace

const ZtElementType zt_name::kType = {
    ZtTypeOf<zt_name>("zt_name", "name", kFamily).Writer(XML_STR_NAME, "AddNameElementToXml"),
    {ztrow::OwnText(XML_STR_NAME, ZT_AT(zt_name, m_Value)).FreeText(), kZtOthers}};
const ZtElementType zt_instance::kType = {
    ZtTypeOf<zt_instance>("zt_instance", "instance", kFamily)
        .Writer(XML_STR_INSTANCE, "AddInstanceElementToXml")
        .Starts(ZtStartTag::kEmpty)
        .With(kInstance),
    {kZtExtras, ztrow::Attribute(XML_STR_REASON, ZT_AT(zt_instance, m_Reason)).FreeText(),
     ztrow::Attribute(XML_STR_CID, ZT_AT(zt_instance, m_Cid)).FreeText(),
     ztrow::Attribute(XML_STR_ID, ZT_AT(zt_instance, m_Id)).FreeText().Required(),
     ztrow::Attribute(XML_STR_STATE, ZT_AT(zt_instance, m_State), kStates).Required(), kZtOthers}};
const ZtElementType zt_resource::kType = {
    ZtTypeOf<zt_resource>("zt_resource", "resource", kFamily)
        .Writer(XML_STR_RESOURCE, "AddResourceElementToXml")
        .With(kResource),
    {kZtExtras, ztrow::Attribute(XML_STR_URI, ZT_AT(zt_resource, m_Uri)).Required(),
     ztrow::Children(XML_STR_NAME, ZT_AT(zt_resource, m_Names)),
     ztrow::Children(XML_STR_INSTANCE, ZT_AT(zt_resource, m_Instances)), kZtOthers}};
const ZtElementType zt_list::kType = {
    ZtTypeOf<zt_list>("zt_list", "list", kFamily)
        .Writer(XML_STR_LIST, "AddListElementToXml")
        .With(kNamespace)
        .Root(),
    {ZtExtensibleRows::kAttributes<ZtObject>,
     ztrow::Attribute(XML_STR_URI, ZT_AT(zt_list, m_Uri)).Required(),
     ztrow::Attribute(XML_STR_VERSION, ZT_AT(zt_list, m_Version)).Always().Must(),
     ztrow::Attribute(XML_STR_FULL_STATE, ZT_AT(zt_list, m_FullState), kSchemaTrueOrElseFalse)
         .Must(),
     ztrow::Children(XML_STR_NAME, ZT_AT(zt_list, m_Names)),
     ztrow::Children(XML_STR_RESOURCE, ZT_AT(zt_list, m_Resources)),
     ZtExtensibleRows::kElements<ZtObject>}};

const ZtDocument ListContext::kDocument = {
    ZtDocumentOf<ListContext, XMLListDecoder, ListUnMarshaller, ListMarshaller, ListDataBinder>(
        kSource)
        .Schema(XML_SCHEMA_LIST, "List", "urn:ietf:params:xml:ns:rlmi", "list")
        .Decodes("XMLListDecoder", "src/List", ZtPrefixRule::kStrip)
        .Reads("ListUnMarshaller")
        .Writes("ListMarshaller", "mListXml"),
    {{XML_STR_LIST, &zt_list::kType}}};
