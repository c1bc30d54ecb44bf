// The parser: its callbacks do not depend on how a text is cut into chunks, except for the texts of
// elements. First byte: how it is cut.
#include "FuzzSupport.h"
#include "ParserEvents.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::string text = TextAfter(1, data, size);
  const Balanced balanced;
  Parse whole;
  const int result = whole.Feed(text);
  for (const std::size_t chunk : {std::size_t{1}, std::size_t{7}, std::size_t{1} + data[0]}) {
    Parse cut;
    Require(cut.Feed(text, chunk) == result, "chunks give the result of the whole text", text);
    Require(cut.recorder.structure == whole.recorder.structure,
            "chunks give the callbacks of the whole text", text);
    // After a failure the callbacks mean nothing, but no access may leave the memory.
    for (const std::string& more : {text, std::string("</a>")}) cut.Feed(more);
  }
  return 0;
}
