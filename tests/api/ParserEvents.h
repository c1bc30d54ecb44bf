// What the parser of the exact profile tells of a text that is fed whole or in chunks.
#ifndef ZTXML_TESTS_API_PARSEREVENTS_H
#define ZTXML_TESTS_API_PARSEREVENTS_H

#include <string>
#include <vector>

#include "ztxml/XmlDecoder.h"

/// The callbacks in words, one a line, as `ztxml events` prints them.
inline std::string Start(const std::string& name) { return "start " + name + '\n'; }
inline std::string Attribute(const std::string& element, const std::string& name,
                             const std::string& value) {
  return "attribute " + element + ' ' + name + "=\"" + value + "\"\n";
}
inline std::string Opened(const std::string& name) { return "opened " + name + '\n'; }
inline std::string End(const std::string& name, const std::string& text) {
  return "end " + name + " \"" + text + "\"\n";
}

/// Writes the callbacks down.
class Recorder : public XmlDecoderSchema {
 public:
  int ProcessReserved() override { return 0; }
  int ProcessAttribute(char* element, char* name, char* value) override {
    return Record(Attribute(element, name, value));
  }
  int ProcessElement(char* name, char* value) override {
    return value ? Record(End(name, value), End(name, "")) : Record(Start(name));
  }
  int ProcessElementOpened(char* name) override { return Record(Opened(name)); }
  void* GetSessionData() override { return nullptr; }

  std::string events;
  std::string structure;  // the events without the texts, which depend on the chunks

 private:
  int Record(const std::string& event, const std::string& bare = "") {
    structure += bare.empty() ? event : bare;
    events += event;
    return 1;  // refuses everything, which may change nothing but the log
  }
};

/// A parser whose callbacks are written down.
struct Parse {
  explicit Parse(bool heard = true) { decoder.SetSchema(heard ? &recorder : nullptr); }

  /// Feeds a text in chunks; each is in memory that ends with it, so that a sanitizer sees every
  /// over-read.
  int Feed(const std::string& text, std::size_t size = std::string::npos) {
    std::size_t at = 0;
    int result = ZT_XML_INCOMPLETE;
    do {
      const std::string part = text.substr(at, size);
      std::vector<char> chunk(part.begin(), part.end());
      result = decoder.Decode(chunk.data(), static_cast<int>(chunk.size()));
      at += part.size();
    } while (result == ZT_XML_INCOMPLETE && at < text.size());
    return result;
  }

  Recorder recorder;
  XmlDecoder decoder;
};

#endif  // ZTXML_TESTS_API_PARSEREVENTS_H
