// Every schema. First byte: the schema and whether namespaces are bound. Second: which allocation
// fails.
#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static_assert(XML_SCHEMA_END <= 32, "every schema has a byte");
  if (size < 3) return 0;
  const Balanced balanced;
  CheckRoundTrip(static_cast<eXMLSchemaID>(data[0] % 32), TextAfter(2, data, size), data[0] >= 128,
                 data[1]);
  return 0;
}
