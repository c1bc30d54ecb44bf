// The container of the supplementary services, and each service alone, with the namespaces that the
// text declares and without. First byte: which allocation fails.
#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const Balanced balanced;
  const std::string text = TextAfter(1, data, size);
  for (const bool bound : {false, true}) {
    CheckRoundTrip(XML_SCHEMA_SIMSERVS, text, bound, data[0]);
    for (const eXMLSchemaID id :
         {XML_SCHEMA_COMMUNICATION_DIVERSION, XML_SCHEMA_COMMUNICATION_BARRING,
          XML_SCHEMA_COMMUNICATION_WAITING, XML_SCHEMA_OIP, XML_SCHEMA_TIP}) {
      CheckRoundTrip(id, text, bound, 0);
    }
  }
  return 0;
}
