// The standard profile. First byte: the schema, and whether a document is read and updated (below
// 128) or a tree is built and written. Second: which allocation fails. Third: how many bytes of the
// script follow. Then the script and the document; of a tree all is its script.
#include "ErrorChecks.h"
#include "FuzzSupport.h"
#include "StandardChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 4) return 0;
  const Balanced balanced;
  const auto id = static_cast<eXMLSchemaID>(data[0] % 32);
  if (data[0] >= 128) {
    Choices choices(data + 2, size - 2);
    CheckBuilt(id, choices, data[1]);
    return 0;
  }
  const std::size_t script = std::min<std::size_t>(data[2], size - 3);
  const char* const text = reinterpret_cast<const char*>(data + 3 + script);
  const std::string document(text, size - 3 - script);
  CheckRead(id, document);
  CheckErrors(id, document);
  Choices choices(data + 3, script);
  CheckUpdate(id, document, choices, data[1]);
  return 0;
}
