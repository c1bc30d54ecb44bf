// The parser: its callbacks do not depend on how a text is cut into chunks, except for the texts of
// elements. First byte: how it is cut.
#include <algorithm>

#include "FuzzSupport.h"
#include "ztxml/XmlDecoder.h"

namespace {

class Recorder : public XmlDecoderSchema {
 public:
  int ProcessReserved() override { return 0; }
  int ProcessAttribute(char* element, char* name, char* value) override {
    return Record({element, "\1", name, "\2", value});
  }
  int ProcessElement(char* name, char* value) override {
    return Record({name, value ? "\3" : "\4"});
  }
  int ProcessElementOpened(char* name) override { return Record({name, "\5"}); }
  void* GetSessionData() override { return nullptr; }

  std::string events;

 private:
  int Record(std::initializer_list<const char*> parts) {
    for (const char* part : parts) events += part;
    return 0;
  }
};

struct Outcome {
  std::string events;
  int result;
};

// Chunks of `seed`-dependent sizes up to `largest`; 0 feeds the text whole.
Outcome Feed(const std::string& text, unsigned seed, std::size_t largest) {
  Recorder recorder;
  XmlDecoder parser;
  parser.SetSchema(&recorder);
  int result = ZT_XML_INCOMPLETE;
  for (std::size_t at = 0; at < text.size() && result == ZT_XML_INCOMPLETE;) {
    seed = seed * 1103515245U + 12345U;
    const std::size_t size = largest ? 1 + (seed >> 16) % largest : text.size();
    std::string chunk = text.substr(at, size);
    result = parser.Decode(chunk.data(), static_cast<int>(chunk.size()));
    at += size;
  }
  const Outcome outcome = {recorder.events, result};
  // After a failure the callbacks mean nothing, but no access may leave the memory.
  for (int i = 0; i < 2; ++i) {
    std::string more = i ? "</a>" : text;
    parser.Decode(more.data(), static_cast<int>(more.size()));
  }
  return outcome;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::string text = TextAfter(1, data, size);
  const Balanced balanced;
  const Outcome whole = Feed(text, 0, 0);
  for (const std::size_t largest : {std::size_t{1}, std::size_t{7}, std::size_t{64}}) {
    const Outcome cut = Feed(text, data[0], largest);
    Require(cut.result == whole.result, "chunks give the result of the whole text", text);
    Require(cut.events == whole.events, "chunks give the callbacks of the whole text", text);
  }
  return 0;
}
