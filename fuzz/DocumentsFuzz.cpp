// Every schema. First byte: the schema and whether namespaces are bound. Second: which allocation
// fails.
#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static_assert(XML_SCHEMA_END <= 32, "every schema has a byte");
  if (size < 3) return 0;
  const auto id = static_cast<eXMLSchemaID>(data[0] % 32);
  const std::string text = TextAfter(2, data, size);
  {
    const Balanced balanced;
    CheckRoundTrip(id, text, data[0] >= 128, data[1]);
  }
  // A worker keeps some of what it reads with while the memory log is off.
  zthost::EnableMemoryLog(false);
  if (XMLFactory::getSchemaInfo(id)) {
    Schema schema(id);
    const std::string written = schema.RoundTrip(text);
    Require(schema.RoundTrip(text) == written, "a text is read again as it was", written);
  }
  return 0;
}
