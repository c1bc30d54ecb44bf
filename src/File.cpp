#include "File.h"

#include "XMLFt.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_FILE, ZtElementKind::kRoot, &zt_file::kType},
    {XML_STR_FILE_INFO, ZtElementKind::kStructured, &zt_ns_ft_file_info::kType},
    {XML_STR_DATA, ZtElementKind::kStructured, &zt_ns_ft_data::kType},
};
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLFileDecoder", "src/File", ZtPrefixRule::kStrip).Names(kRows);

}  // namespace

XMLFileDecoder::XMLFileDecoder() : ZtSchemaDecoder(kGrammar) {}
