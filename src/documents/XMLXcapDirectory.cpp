#include "ztxml/XMLXcapDirectory.h"

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"

namespace {
constexpr char kSource[] = "src/XMLXcapDirectory";
constexpr ZtNote kNotes[] = {{"entry", XML_STR_URI, kZtLogError,
                              "<XML Module>: AddEntryElementToXml URI mandatory attribute"},
                             {"entry", XML_STR_ETAG, kZtLogError,
                              "<XML Module>: AddEntryElementToXml ETAG mandatory attribute"},
                             {"folder", XML_STR_AUID, kZtLogError,
                              "<XML Module>: AddFolderElementToXml AUID mandatory attribute"}};
constexpr ZtFamily kFamily =
    ZtFamily{kSource, &kZtNoHookLines, nullptr, "<XML Module>: %s XML Failed!"}.Notes(kNotes);

constexpr ZtExtras kDeclarations = {{{XML_STR_URN_OMA_XML_XDM_XCAP_DIRECTORY, XML_STR_ZT_NULL}}};
}  // namespace

// Intended: the etag of an entry is written after all other attributes, even those that the library
// does not know; peers compare the text.
const ZtElementType zt_entry::kType = {
    ZtTypeOf<zt_entry>("zt_entry", "entry", kFamily)
        .Writer(XML_STR_ENTRY, "AddEntryElementToXml")
        .Starts(ZtStartTag::kEmpty),
    {ztrow::Attribute(XML_STR_URI, ZT_AT(zt_entry, m_Uri)).Required(),
     ztrow::Attribute(XML_STR_LAST_MODIFIED, ZT_AT(zt_entry, m_LastModified)),
     ztrow::Attribute(XML_STR_SIZE, ZT_AT(zt_entry, m_Size)),
     ztrow::OtherAttributes(ZT_AT(zt_entry, m_AnyAttributes)),
     ztrow::Attribute(XML_STR_ETAG, ZT_AT(zt_entry, m_Etag)).FreeText().Required()}};
// Intended: a folder without entries is always written with an error code, a blank when none is
// set, and a folder with entries never; callers set one of the two.
const ZtElementType zt_folder::kType = {
    ZtTypeOf<zt_folder>("zt_folder", "folder", kFamily)
        .Writer(XML_STR_FOLDER, "AddFolderElementToXml"),
    {ztrow::Attribute(XML_STR_AUID, ZT_AT(zt_folder, m_Auid)).FreeText().Required(),
     ztrow::Children(XML_STR_ENTRY, ZT_AT(zt_folder, m_Entries)).OneOf(),
     ztrow::TextElement(XML_STR_ERROR_CODE, ZT_AT(zt_folder, m_ErrorCode))
         .FreeText()
         .Always()
         .OneOf()}};
const ZtElementType zt_xcap_directory::kType = {
    ZtTypeOf<zt_xcap_directory>("zt_xcap_directory", "xcap-directory", kFamily)
        .Writer(XML_STR_XCAP_DIRECTORY, "AddXcapDirectoryElementToXml")
        .With(kDeclarations)
        .Root(),
    {ztrow::Children(XML_STR_FOLDER, ZT_AT(zt_xcap_directory, m_Folders))}};

const ZtDocument XcapDirectoryContext::kDocument = {
    ZtDocumentOf<XcapDirectoryContext, XMLXcapDirectoryDecoder, XcapDirectoryUnMarshaller,
                 XcapDirectoryMarshaller, XcapDirectoryDataBinder>(kSource)
        .Schema(XML_SCHEMA_XCAP_DIRECTORY, "XcapDirectory", "urn:oma:xml:xdm:xcap-directory",
                "xcap-directory")
        .Decodes("XMLXcapDirectoryDecoder", "src/XcapDirectory", ZtPrefixRule::kStrip)
        .Reads("XcapDirectoryUnMarshaller")
        .Writes("XcapDirectoryMarshaller", "mXcapDirectoryXml"),
    {{XML_STR_XCAP_DIRECTORY, &zt_xcap_directory::kType}}};
