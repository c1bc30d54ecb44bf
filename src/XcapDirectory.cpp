#include "XcapDirectory.h"

#include "XMLXcapDirectory.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_XCAP_DIRECTORY, ZtElementKind::kRoot, &zt_xcap_directory::kType},
    {XML_STR_FOLDER, ZtElementKind::kStructured, &zt_folder::kType},
    {XML_STR_ENTRY, ZtElementKind::kStructured, &zt_entry::kType},
};

constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLXcapDirectoryDecoder", "src/XcapDirectory", ZtPrefixRule::kStrip).Names(kRows);

}  // namespace

XMLXcapDirectoryDecoder::XMLXcapDirectoryDecoder() : ZtSchemaDecoder(kGrammar) {}
