#include "ztxml/XMLFt.h"

#include "binding/ZtDocumentTable.h"

namespace {
constexpr char kSource[] = "src/XMLFt";
constexpr ZtFamily kFamily = ZtPlainFamily(kSource);
}  // namespace

const ZtElementType zt_ns_ft_data::kType = {
    ZtTypeOf<zt_ns_ft_data>("zt_ns_ft_data", "data", kFamily)
        .Writer(XML_STR_DATA, "AddDataElementToXml")
        .Starts(ZtStartTag::kEmpty),
    {ztrow::Attribute(XML_STR_ETAG, ZT_AT(zt_ns_ft_data, m_Etag)),
     ztrow::Attribute(XML_STR_UNTIL, ZT_AT(zt_ns_ft_data, m_Until)).Must(),
     ztrow::Attribute(XML_STR_URL, ZT_AT(zt_ns_ft_data, m_Url)).Must()}};
const ZtElementType zt_ns_ft_file_info::kType = {
    ZtTypeOf<zt_ns_ft_file_info>("zt_ns_ft_file_info", "file-info", kFamily)
        .Writer(XML_STR_FILE_INFO, "AddFileInfoElementToXml"),
    {ztrow::Attribute(XML_STR_TYPE, ZT_AT(zt_ns_ft_file_info, m_Type)).Must(),
     ztrow::TextElement(XML_STR_FILE_SIZE, ZT_AT(zt_ns_ft_file_info, m_FileSize)).Must(),
     ztrow::Child(XML_STR_DATA, ZT_AT(zt_ns_ft_file_info, m_Data)).Must()}};
const ZtElementType zt_file::kType = {
    ZtTypeOf<zt_file>("zt_file", "file", kFamily)
        .Writer(XML_STR_FILE, "AddFileElementToXml")
        .Root(),
    {ztrow::Children(XML_STR_FILE_INFO, ZT_AT(zt_file, m_FileInfos))}};

const ZtDocument FileContext::kDocument = {
    ZtDocumentOf<FileContext, XMLFileDecoder, FileUnMarshaller, FileMarshaller, FileDataBinder>(
        kSource)
        .Schema(XML_SCHEMA_FILE, "File", nullptr, "file")
        .Decodes("XMLFileDecoder", "src/File", ZtPrefixRule::kStrip)
        .Within(kZtSpaceFileTransfer)
        .Reads("FileUnMarshaller")
        .Writes("FileMarshaller", "mFileXml"),
    {{XML_STR_FILE, &zt_file::kType}}};
