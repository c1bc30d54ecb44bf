#include "Gruu.h"

#include "XMLGruu.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_PUB_GRUU, ZtElementKind::kRoot, &zt_pub_gruu::kType},
    {XML_STR_TEMP_GRUU, ZtElementKind::kRoot, &zt_temp_gruu::kType},
};

constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLGruuDecoder", "src/Gruu", ZtPrefixRule::kStrip).Names(kRows);

}  // namespace

XMLGruuDecoder::XMLGruuDecoder() : ZtSchemaDecoder(kGrammar) {}
