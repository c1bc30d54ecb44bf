#include "XMLCharacteristic.h"

#include "CharacteristicBinding.h"

namespace {
constexpr ZtFamily kFamily = ZtQuietFamily("src/XMLCharacteristic");
}  // namespace

const ZtElementType zt_parm::kType =
    ZtTypeOf<zt_parm>("zt_parm", "parm", kFamily).Fields(CharacteristicBinding::kParm);
const ZtElementType zt_characteristic::kType =
    ZtTypeOf<zt_characteristic>("zt_characteristic", "characteristic", kFamily)
        .Fields(CharacteristicBinding::kCharacteristic);
