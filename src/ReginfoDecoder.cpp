#include "ReginfoDecoder.h"

#include "XMLReginfo.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_REGINFO, ZtElementKind::kRoot, &zt_reginfo::kType},
    {XML_STR_REGISTRATION, ZtElementKind::kStructured, &zt_registration::kType},
    {XML_STR_CONTACT, ZtElementKind::kStructured, &zt_ns_reginfo_contact::kType},
    {XML_STR_UNKNOWN_PARAM, ZtElementKind::kTextBearing, &zt_unknown_param::kType},
    {XML_STR_PUB_GRUU, ZtElementKind::kExtension, &zt_pub_gruu::kType},
    {XML_STR_TEMP_GRUU, ZtElementKind::kExtension, &zt_temp_gruu::kType},
};

// Intended: the line about a lack of memory names the decoder of communication diversion instead of
// its own; log readers search for it as it is.
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLReginfoDecoder", "src/ReginfoDecoder", ZtPrefixRule::kStrip)
        .Names(kRows)
        .NoMemory(
            "XMLCommunicationDiversionDecoder :: XMLRemoveNameSpaceTag: Malloc unable to allocate "
            "memory");

}  // namespace

XMLReginfoDecoder::XMLReginfoDecoder() : ZtSchemaDecoder(kGrammar) {}
