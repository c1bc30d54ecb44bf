// Notifications that are merged. First byte: below 128 a model conference is followed, with the
// rest as its script; else the rest are bodies, each after a byte that is its size in fours, for
// the state of a document by the first byte.
#include "FuzzSupport.h"
#include "StateChecks.h"

namespace {

template <class T>
void TakeAll(const std::uint8_t* data, std::size_t size) {
  ztxml::State<T> state;
  while (size) {
    const std::size_t count = std::min<std::size_t>(4U * *data, size - 1);
    const std::string_view body(reinterpret_cast<const char*>(data + 1), count);
    const auto merged = state.Apply(body);
    Require(merged || merged.error().code != ztxml::Code::kNone, "a refusal says why");
    for (const ztxml::Change& change : state.Changes()) {
      Require(change.path[0] == '/' && change.object->ClassName(), "changes have a path");
    }
    if (state) {
      const auto text = state.Write();
      Require(text || text.error().code != ztxml::Code::kNone, "what is not written has a reason");
    }
    data += 1 + count;
    size -= 1 + count;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const Balanced balanced;
  if (data[0] < 128) {
    Choices choices(data + 1, size - 1);
    CheckState(choices);
  } else if (data[0] < 170) {
    TakeAll<zt_conference_type>(data + 1, size - 1);
  } else if (data[0] < 212) {
    TakeAll<zt_reginfo>(data + 1, size - 1);
  } else {
    TakeAll<zt_list>(data + 1, size - 1);
  }
  return 0;
}
