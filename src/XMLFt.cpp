#include "XMLFt.h"

#include "File.h"
#include "binding/ZtDocumentTable.h"
#include "binding/ZtReading.h"

namespace {

constexpr char kSource[] = "src/XMLFt";
constexpr ZtFamily kFamily = ZtPlainFamily(kSource);
}  // namespace

// ---- Types --------------------------------------------------------------------------------------

struct FileBinding {
  static constexpr ZtField kData[] = {
      ztrow::Attribute(XML_STR_ETAG, &zt_ns_ft_data::m_Etag),
      ztrow::Attribute(XML_STR_UNTIL, &zt_ns_ft_data::m_Until),
      ztrow::Attribute(XML_STR_URL, &zt_ns_ft_data::m_Url),
  };
  static constexpr ZtField kFileInfo[] = {
      ztrow::Attribute(XML_STR_TYPE, &zt_ns_ft_file_info::m_Type),
      ztrow::TextElement(XML_STR_FILE_SIZE, &zt_ns_ft_file_info::m_FileSize),
      ztrow::Child(XML_STR_DATA, &zt_ns_ft_file_info::m_Data, zt_ns_ft_data::kType),
  };
  static constexpr ZtField kFile[] = {
      ztrow::Children(XML_STR_FILE_INFO, &zt_file::m_FileInfos, zt_ns_ft_file_info::kType),
  };
  static_assert(ztrow::Sound(kData) && ztrow::Sound(kFileInfo));
};

const ZtElementType zt_ns_ft_data::kType = ZtTypeOf<zt_ns_ft_data>("zt_ns_ft_data", "data", kFamily)
                                               .Fields(FileBinding::kData)
                                               .Writer(XML_STR_DATA, "AddDataElementToXml")
                                               .SelfClosing();

const ZtElementType zt_ns_ft_file_info::kType =
    ZtTypeOf<zt_ns_ft_file_info>("zt_ns_ft_file_info", "file-info", kFamily)
        .Fields(FileBinding::kFileInfo)
        .Writer(XML_STR_FILE_INFO, "AddFileInfoElementToXml");

const ZtElementType zt_file::kType = ZtTypeOf<zt_file>("zt_file", "file", kFamily)
                                         .Fields(FileBinding::kFile)
                                         .Writer(XML_STR_FILE, "AddFileElementToXml")
                                         .Root();

// ---- Decoder ------------------------------------------------------------------------------------

namespace {

constexpr ZtRoot kRoots[] = {{XML_STR_FILE, &zt_file::kType}};
constexpr ZtReading kReading =
    ZtReading("XMLFileDecoder", "src/File", ZtPrefixRule::kStrip).Roots(kRoots);

}  // namespace

XMLFileDecoder::XMLFileDecoder() : ZtSchemaDecoder(kReading) {}

// ---- Workers ------------------------------------------------------------------------------------

XMLObject* FileDataBinder::CreateRootElement() { return ZtCreate<zt_file>(kSource); }
zt_ns_ft_file_info* FileDataBinder::CreateFileInfoElement() {
  return ZtCreate<zt_ns_ft_file_info>(kSource);
}
zt_ns_ft_data* FileDataBinder::CreateDataElement() { return ZtCreate<zt_ns_ft_data>(kSource); }

int FileMarshaller::AddFileElementToXml(zt_file* file) { return Write(file, zt_file::kType); }
int FileMarshaller::AddFileInfoElementToXml(zt_ns_ft_file_info* info) {
  return Write(info, zt_ns_ft_file_info::kType);
}
int FileMarshaller::AddDataElementToXml(zt_ns_ft_data* data) {
  return Write(data, zt_ns_ft_data::kType);
}

const ZtDocument FileContext::kDocument =
    ZtDocumentOf<FileContext, XMLFileDecoder, FileUnMarshaller, FileMarshaller, FileDataBinder>(
        {XML_SCHEMA_FILE, "File", {"file", nullptr}, nullptr, true}, kSource)
        .Reads("FileUnMarshaller")
        .Writes(kZtRoots<zt_file>, "FileMarshaller", "mFileXml");
