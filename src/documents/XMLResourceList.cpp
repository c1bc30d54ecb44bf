#include "ztxml/XMLResourceList.h"

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"

namespace {
constexpr char kSource[] = "src/XMLResourceList";
constexpr ZtNote kNotes[] = {
    {nullptr, XML_STR_DISPLAY_NAME, kZtLogTrace,
     "<XML Module>: AddDisplayNameElementToXml XML Failed!"},
    {"entry", XML_STR_URI, kZtLogError,
     "<XML Module>: AddEntryElementToXml Uri mandatory attribute"},
    {"entry-ref", XML_STR_REF, kZtLogError,
     "<XML Module>: AddEntryRefElementToXml attribute: ref mandatory attribute"},
    {"resource-lists", XML_STR_LIST, kZtLogTrace,
     "<XML Module>: AddResource_listsElementToXml tempNum: %d"}};
constexpr ZtFamily kFamily = ZtPlainFamily(kSource).Notes(kNotes);

// Intended: the root always declares the prefixes "xsi" and "cp", even when nothing uses them;
// peers compare the text.
constexpr ZtExtras kNamespaces = {{{XML_STR_URN_IETF_PARAMS_XML_NS_RESOURCE_LISTS, XML_STR_ZT_NULL},
                                   {XML_STR_HTTP_WWW_W3_ORG_2001_XMLSCHEMA_INSTANCE, XML_STR_XSI},
                                   {XML_STR_URN_IETF_PARAMS_XML_NS_COPYCONTROL, XML_STR_CP}}};
}  // namespace

struct ResourceListsBinding {
  static constexpr ZtField kNamed =
      ztrow::Child(XML_STR_DISPLAY_NAME, ZT_AT(ZtDisplayNamed, m_DisplayName));
};

namespace {
constexpr ZtChoice kMembers[] = {{XML_STR_LIST, zt_listType::kType},
                                 {XML_STR_EXTERNAL, zt_externalType::kType},
                                 {XML_STR_ENTRY, zt_entryType::kType},
                                 {XML_STR_ENTRY_REF, zt_entry_refType::kType},
                                 {}};

// All members share one list, which knows no names: refuses a member under another type's name.
bool RefusesMember(XMLElement&, const char* name, const char*, XMLElement* child,
                   ZtOutcome& outcome) {
  const ZtChoice* member = ZtFindNamed(kMembers, ZtNameId::Of(name));
  if (!member) return false;
  outcome = child && !child->ClassName() ? ZtOutcome::kAccepted : ZtOutcome::kRefused;
  return !child || !ZtIsA(*child, *member->type);
}
constexpr ZtExtras kList = {{}, RefusesMember};
}  // namespace

const ZtElementType zt_display_nameType::kType = {
    ZtTypeOf<zt_display_nameType>("zt_display_nameType", "display-name", kFamily),
    {kZtExtras,
     ztrow::OwnText(XML_STR_DISPLAY_NAME, ZT_AT(zt_display_nameType, m_Value)).FreeText(),
     kZtOthers}};
const ZtElementType zt_entryType::kType = {
    ZtTypeOf<zt_entryType>("zt_entryType", "entry", kFamily)
        .Writer(XML_STR_ENTRY, "AddEntryElementToXml"),
    {kZtExtras, ztrow::Attribute(XML_STR_URI, ZT_AT(zt_entryType, m_Uri)).Required(),
     ResourceListsBinding::kNamed, kZtOthers}};
const ZtElementType zt_entry_refType::kType = {
    ZtTypeOf<zt_entry_refType>("zt_entry_refType", "entry-ref", kFamily)
        .Writer(XML_STR_ENTRY_REF, "AddEntryRefElementToXml"),
    {kZtExtras, ztrow::Attribute(XML_STR_REF, ZT_AT(zt_entry_refType, m_Ref)).Required(),
     ResourceListsBinding::kNamed, kZtOthers}};
const ZtElementType zt_externalType::kType = {
    ZtTypeOf<zt_externalType>("zt_externalType", "external", kFamily)
        .Writer(XML_STR_EXTERNAL, "AddExternalElementToXml"),
    {ztrow::Attribute(XML_STR_ANCHOR, ZT_AT(zt_externalType, m_Anchor)), kZtExtras,
     ResourceListsBinding::kNamed, kZtOthers}};
// What is in a list is of this namespace even where the list itself is of another: the lists of
// resource list services are.
const ZtElementType zt_listType::kType = {
    ZtTypeOf<zt_listType>("zt_listType", "list", kFamily)
        .Writer(XML_STR_LIST, "AddListElementToXml")
        .Holds(kZtSpaceResourceLists)
        .With(kList),
    {ztrow::Attribute(XML_STR_NAME, ZT_AT(zt_listType, m_Name)).FreeText(), kZtExtras,
     ResourceListsBinding::kNamed, ZtExtensibleRows::Elements<ZtElement>(kMembers)}};
// The root keeps unknown attributes because they declare the prefixes of its members' attributes.
const ZtElementType zt_resource_lists::kType = {
    ZtTypeOf<zt_resource_lists>("zt_resource_lists", "resource-lists", kFamily)
        .Writer(XML_STR_RESOURCE_LISTS, "AddResource_listsElementToXml")
        .With(kNamespaces)
        .Root(),
    {ZtExtensibleRows::kAttributes<ZtObject>,
     ztrow::Children(XML_STR_LIST, ZT_AT(zt_resource_lists, m_Lists)),
     ZtExtensibleRows::kElements<ZtObject>}};

const ZtDocument ResourceListsContext::kDocument = {
    ZtDocumentOf<ResourceListsContext, XMLResourceListsDecoder, ResourceListsUnMarshaller,
                 Resource_listsMarshall, ResourceListsDataBinder>(kSource)
        .Schema(XML_SCHEMA_RESOURCE_LISTS, "ResourceLists", "urn:ietf:params:xml:ns:resource-lists",
                "resource-lists")
        .Decodes("XMLResourceListsDecoder", "src/ResourceLists", ZtPrefixRule::kStrip)
        .Reads("ResourceListsUnMarshaller")
        .Writes("Resource_listsMarshall", "mResourceListsXml"),
    {{XML_STR_RESOURCE_LISTS, &zt_resource_lists::kType}}};

void TestResource_listsMarshall() {
  ZtLog(kZtLogTrace, kSource)("<XML Module>: TestResource_listsMarshall");
  auto* lists = ZtCreate<zt_resource_lists>(kSource);
  auto* list = ZtCreate<zt_listType>(kSource);
  auto* entry = ZtCreate<zt_entryType>(kSource);
  auto* marshaller = ZtCreate<Resource_listsMarshall>(kSource);
  const bool hasEntry = list && list->addEntry(entry);
  const bool hasList = hasEntry && lists && lists->addList(list);
  if (hasList && marshaller) {
    list->setNameValue("friends");
    entry->setUriValue("sip:friend@example.com");
    marshaller->Marshall(lists);
  }
  ZtRelease(marshaller);
  if (!hasEntry) ZtRelease(entry);
  if (!hasList) ZtRelease(list);
  ZtRelease(lists);
}
