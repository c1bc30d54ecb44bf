// The container of the supplementary services, and each service alone, with the namespaces that the
// text declares and without; the container with the log heard and without. First byte: which
// allocation fails.
#include "FuzzSupport.h"

namespace {

// What a container is read as must not tell whether the log is heard, nor what was read before.
void CheckHeard(const std::string& text, bool bound) {
  BoundSchema workers(XML_SCHEMA_SIMSERVS, bound ? text : "");
  const std::string unheard = workers.RoundTrip(text);
  Require(workers.RoundTrip(text) == unheard, "a container is read again as it was", text);
  zthost::SetLogSink([](const zthost::LogLine&, void*) {});
  const std::string heard = workers.RoundTrip(text);
  zthost::SetLogSink(nullptr);
  Require(heard == unheard, "a container is read alike with and without a log",
          text + "\n---\n" + heard + "\n---\n" + unheard);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::string text = TextAfter(1, data, size);
  zthost::EnableMemoryLog(false);  // workers keep what they read with
  for (const bool bound : {false, true}) CheckHeard(text, bound);
  const Balanced balanced;
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
