// The sample documents, for tests that go over all of them.
#ifndef ZTXML_TESTS_SAMPLES_H
#define ZTXML_TESTS_SAMPLES_H

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

/// Notes the first start tag.
class RootFinder : public XmlDecoderSchema {
 public:
  int ProcessReserved() override { return 0; }
  int ProcessAttribute(char*, char*, char*) override { return 0; }
  int ProcessElement(char* name, char*) override {
    if (root.empty()) root = name;
    return 0;
  }
  int ProcessElementOpened(char*) override { return 0; }
  void* GetSessionData() override { return nullptr; }

  std::string root;
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
    std::ifstream file(entry.path());
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const std::string name = entry.path().filename().string();
    if (samples.empty()) samples.push_back({name, text, XML_SCHEMA_NAMESPACE_RETRIEVAL});
    RootFinder finder;
    Parse(text, &finder);
    const std::string local = finder.root.substr(finder.root.find(':') + 1);
    for (int id = 0; id < XML_SCHEMA_END; ++id) {
      const XMLSchemaInfo* info = XMLFactory::getSchemaInfo(static_cast<eXMLSchemaID>(id));
      if (!info) continue;
      for (const char* root : info->roots) {
        if (root && local == root) samples.push_back({name, text, info->id});
      }
    }
  }
  return samples;
}

#endif  // ZTXML_TESTS_SAMPLES_H
