// What holds of any document and any tree, over the samples and by scripts of bytes.
#include <random>

#include "Samples.h"
#include "StandardChecks.h"

namespace {

std::vector<std::uint8_t> Script(unsigned seed, std::size_t size) {
  std::minstd_rand random(seed);
  std::vector<std::uint8_t> script(size);
  for (std::uint8_t& byte : script) byte = static_cast<std::uint8_t>(random() >> 8);
  return script;
}

// The samples as XML has them: of some the root has a name or namespace of its own.
std::vector<Sample> StandardSamples() {
  std::vector<Sample> samples;
  for (Sample& sample : Samples()) {
    if (sample.id != XML_SCHEMA_NAMESPACE_RETRIEVAL) samples.push_back(std::move(sample));
  }
  samples.push_back(
      {"duplicates and values that are none",
       "<!DOCTYPE simservs><simservs xmlns='http://uri.etsi.org/ngn/params/xml/simservs/xcap' "
       "xmlns:p='urn:ietf:params:xml:ns:common-policy'><communication-diversion active=' 1 '>"
       "<NoReplyTimer>x</NoReplyTimer><NoReplyTimer>5</NoReplyTimer><p:ruleset><p:rule id='&#65;'>"
       "<p:conditions><busy/><media><![CDATA[au]]>d<!--x-->io</media><p:validity><p:from> a"
       "</p:from><p:until>b</p:until></p:validity></p:conditions><p:actions><forward-to><target> x "
       "</target><notify-caller>x</notify-caller><notify-caller>true</notify-caller></forward-to>"
       "</p:actions></p:rule></p:ruleset></communication-diversion><z xmlns=''><simservs/></z>"
       "<incoming-communication-barring active='x'/></simservs>",
       XML_SCHEMA_SIMSERVS});
  return samples;
}

TEST(StandardInvariants, SamplesAreReadAsExpatTellsAndUpdatedAsTheirTreesAre) {
  int read = 0;
  unsigned seed = 0;
  for (const Sample& sample : StandardSamples()) {
    SCOPED_TRACE(sample.name);
    CheckRead(sample.id, sample.text);
    for (int round = 0; round < 20; ++round) {
      const std::vector<std::uint8_t> script = Script(++seed, 120);
      Choices choices(script.data(), script.size());
      read += CheckUpdate(sample.id, sample.text, choices, round < 14 ? 0 : 40 * script[0] / 16);
    }
  }
  EXPECT_GT(read, 20 * 30);
}

TEST(StandardInvariants, TreesThatCallersBuildAreWrittenAndReadAgain) {
  for (unsigned seed = 1; seed <= 600; ++seed) {
    const std::vector<std::uint8_t> script = Script(seed, 300);
    Choices choices(script.data(), script.size());
    CheckBuilt(static_cast<eXMLSchemaID>(seed % XML_SCHEMA_END), choices, seed % 4 ? 0 : script[1]);
  }
}

TEST(StandardInvariants, WithoutMemoryADocumentIsReadAndUpdatedWholeOrNotAtAll) {
  for (const Sample& sample : StandardSamples()) {
    if (sample.id != XML_SCHEMA_SIMSERVS && sample.id != XML_SCHEMA_REGINFO) continue;
    SCOPED_TRACE(sample.name);
    const ZtDocument& table = *TableOf(sample.id);
    ExpectWholeOrNothing([&]() -> std::string {
      AnyDocument document(table);
      if (!document.Read(sample.text)) return "(null)";
      // The order of all lists changes, which needs no memory.
      std::string told;
      standard::ForEach(document.Root(), [&](const standard::Node& node) {
        for (const ZtField& row : *node.type) {
          if (!standard::IsList(row) || row.place == ZtPlace::kOwnWords) continue;
          std::vector<ZtListNode*> nodes;
          for (ZtListNode* at = row.Children(*node.object).Head(); at; at = at->next) {
            nodes.push_back(at);
          }
          for (std::size_t i = 0; i < nodes.size() / 2; ++i) {
            std::swap(nodes[i]->data, nodes[nodes.size() - 1 - i]->data);
          }
        }
      });
      const std::string before = document.Told();
      const bool updated = document.Update(told);
      EXPECT_SAME(document.Told(), before);
      return updated ? told : "(null)";
    });
  }
}

}  // namespace
