// What strangers may send: every sample document cut short, with bytes replaced, and read and
// written while memory runs out. The memory log is balanced after each test.
#include <algorithm>
#include <gtest/gtest.h>

#include "Samples.h"
#include "TestSupport.h"

namespace {

// The writers of rule sets and GRUUs go on behind what lacks something required.
bool MayBeMalformed(eXMLSchemaID id) {
  return id == XML_SCHEMA_COMMUNICATION_DIVERSION || id == XML_SCHEMA_COMMUNICATION_BARRING ||
         id == XML_SCHEMA_SIMSERVS || id == XML_SCHEMA_REGINFO;
}

TEST(Hostile, SamplesCoverEverySchemaThatWrites) {
  const std::vector<Sample> samples = Samples();
  for (int id = 0; id < 27; ++id) {
    if (!XMLFactory::getSchemaInfo(static_cast<eXMLSchemaID>(id))) continue;
    // The two provisioning schemas share their sample.
    const int wanted = id == XML_SCHEMA_VOLTE_CONFIG_INFO ? XML_SCHEMA_WAP_PROVISIONING_DOC : id;
    EXPECT_TRUE(std::any_of(samples.begin(), samples.end(), [&](const Sample& sample) {
      return sample.id == wanted;
    })) << id;
  }
}

TEST(Hostile, CutsAndReplacedBytes) {
  unsigned seed = 1;
  for (const Sample& sample : Samples()) {
    Schema schema(sample.id);
    const auto check = [&](const std::string& text, const char* what, std::size_t at) {
      const std::string written = schema.RoundTrip(text);
      const bool sound = written == "(null)" || MayBeMalformed(sample.id) ||
                         Parse(written, nullptr) == ZT_XML_SUCCESS;
      EXPECT_TRUE(sound) << sample.name << ' ' << what << ' ' << at << '\n' << written;
    };
    for (std::size_t at = 0; at < sample.text.size(); ++at) {
      check(sample.text.substr(0, at), "cut at", at);
      seed = seed * 1103515245U + 12345U;
      for (const char byte : {'<', '>', '"', '&', '\0', static_cast<char>(seed >> 16)}) {
        std::string text = sample.text;
        text[at] = byte;
        check(text, "replaced at", at);
      }
    }
  }
}

TEST(Hostile, MemoryRunsOutInEveryDocument) {
  for (const Sample& sample : Samples()) {
    if (!XMLFactory::getSchemaInfo(sample.id)->writes) continue;
    SCOPED_TRACE(sample.name);
    Schema schema(sample.id);
    auto namespaces = Schema(XML_SCHEMA_NAMESPACE_RETRIEVAL).Read<XMLObject>(sample.text);
    schema.context()->SetNamespaceBinder(namespaces.get());
    ExpectWholeOrNothing(schema, sample.text);
  }
}

}  // namespace
