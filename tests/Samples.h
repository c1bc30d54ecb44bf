// The sample documents, for tests that go over all of them.
#ifndef ZTXML_TESTS_SAMPLES_H
#define ZTXML_TESTS_SAMPLES_H

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "DocumentSupport.h"
#include "ztxml/XmlDecoder.h"

/// A sample document and the schema of its root element.
struct Sample {
  std::string name;
  std::string text;
  eXMLSchemaID id;
};

/// The parser's result for a whole text.
inline int Parse(std::string text, XmlDecoderSchema* receiver) {
  XmlDecoder parser;
  parser.SetSchema(receiver);
  return parser.Decode(text.data(), static_cast<int>(text.size()));
}

/// Every document under examples/documents with each schema that has its root: a schema that reads
/// any document gets the first one only.
inline std::vector<Sample> Samples() {
  std::vector<Sample> samples;
  for (const auto& entry : std::filesystem::directory_iterator(ZTXML_DOCUMENTS_DIR)) {
    std::ifstream stream(entry.path());
    const std::string text(std::istreambuf_iterator<char>(stream), {});
    const std::string file = entry.path().filename().string();
    if (samples.empty()) samples.push_back({file, text, XML_SCHEMA_NAMESPACE_RETRIEVAL});
    std::size_t root = 0;
    while (text[root] != '<' || std::strchr("?!", text[root + 1])) ++root;
    const std::size_t end = text.find_first_of(" \t\r\n/>", root);
    const std::string name = text.substr(root + 1, end - root - 1);
    const std::string local = name.substr(name.find(':') + 1);
    for (int id = 0; id < XML_SCHEMA_END; ++id) {
      const XMLSchemaInfo* info = XMLFactory::getSchemaInfo(static_cast<eXMLSchemaID>(id));
      if (!info) continue;
      for (const char* known : info->roots) {
        if (known && local == known) samples.push_back({file, text, info->id});
      }
    }
  }
  return samples;
}

#endif  // ZTXML_TESTS_SAMPLES_H
