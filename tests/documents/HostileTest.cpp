// What strangers may send: every sample document cut short, with bytes replaced, and read and
// written while memory runs out. The memory log is balanced after each test.
#include <algorithm>
#include <gtest/gtest.h>

#include "PublicCallbacks.h"
#include "Samples.h"
#include "TestSupport.h"
#include "WellFormed.h"

namespace {

TEST(Hostile, SamplesCoverEverySchema) {
  const std::vector<Sample> samples = Samples();
  for (int id = 0; id < XML_SCHEMA_END; ++id) {
    if (!XMLFactory::getSchemaInfo(static_cast<eXMLSchemaID>(id))) continue;
    EXPECT_TRUE(std::any_of(samples.begin(), samples.end(), [&](const Sample& sample) {
      return sample.id == id;
    })) << id;
  }
}

TEST(Hostile, CutsAndChangedBytes) {
  unsigned seed = 1;
  for (const Sample& sample : Samples()) {
    BoundSchema schema(sample.id, sample.text);
    const auto check = [&](const std::string& text, const char* what, std::size_t at) {
      const std::string written = schema.RoundTrip(text);
      EXPECT_TRUE(IsSound(sample.id, text, written))
          << sample.name << ' ' << what << ' ' << at << '\n'
          << Shortened(written);
      if (at % 4 == 0 && sample.id != XML_SCHEMA_SIMSERVS) {
        EXPECT_SAME(RoundTripThroughCallbacks(*schema.context(), text), written)
            << '\n'
            << sample.name << ' ' << what << ' ' << at;
      }
    };
    for (std::size_t at = 0; at < sample.text.size(); ++at) {
      check(sample.text.substr(0, at), "cut at", at);
      seed = seed * 1103515245U + 12345U;
      for (const char byte : {'<', '>', '"', '&', '\0', static_cast<char>(seed >> 16)}) {
        std::string text = sample.text;
        text[at] = byte;
        check(text, "replaced at", at);
      }
      if (sample.text[at] == '=') check(std::string(sample.text).insert(at, " "), "blank at", at);
      if (HasFailure()) return;
    }
    if (sample.id == XML_SCHEMA_CALL_WAITING_INDICATION) continue;  // its root begins with a digit
    const std::string written = schema.RoundTrip(sample.text);
    EXPECT_TRUE(written == "(null)" || ExpatAccepts(written)) << sample.name << '\n' << written;
  }
}

// What a worker keeps from one document to the next, while the memory log is off, shows in none.
TEST(Hostile, DocumentsDoNotKnowOfEachOther) {
  zthost::EnableMemoryLog(false);
  for (const Sample& sample : Samples()) {
    BoundSchema schema(sample.id, sample.text);
    for (std::size_t at = 0; at < sample.text.size(); at += 5) {
      std::string text = sample.text;
      text[at] = "<>/:"[at % 4];
      for (const std::string& next : {text, sample.text.substr(0, at), sample.text}) {
        BoundSchema alone(sample.id, sample.text);
        EXPECT_SAME(schema.RoundTrip(next), alone.RoundTrip(next))
            << '\n'
            << sample.name << " changed at " << at;
      }
      if (HasFailure()) return;
    }
  }
}

// With the namespaces of each document, which Errors.SayThatMemoryIsLacking does without, and with
// every object and text on the heap.
TEST(Hostile, MemoryRunsOutInEveryDocument) {
  for (const Sample& sample : Samples()) {
    if (!XMLFactory::getSchemaInfo(sample.id)->writes) continue;
    SCOPED_TRACE(sample.name);
    BoundSchema schema(sample.id, sample.text);
    ExpectWholeOrNothing(schema, sample.text);
    if (sample.id == XML_SCHEMA_SIMSERVS) continue;
    ExpectWholeOrNothing([&] { return RoundTripThroughCallbacks(*schema.context(), sample.text); });
  }
}

// The most memory that one byte of a document costs while it is read: 100 bytes for blanks, each of
// which makes an empty word, an object; 45 for roots within each other; 30 for everything else.
TEST(Hostile, MemoryIsAConstantTimesTheInput) {
  const struct {
    eXMLSchemaID id;
    const char *start, *piece, *end;
    long most;
  } kCases[] = {
      {XML_SCHEMA_CONFERENCE_INFO, "<conference-info><conference-description><keywords>", " ",
       "</keywords></conference-description></conference-info>", 100},
      {XML_SCHEMA_CONFERENCE_INFO, "<conference-info><users>", "<user/>",
       "</users></conference-info>", 30},
      {XML_SCHEMA_REGINFO, "<reginfo><registration>", "<contact/>", "</registration></reginfo>",
       30},
      {XML_SCHEMA_COMMUNICATION_WAITING, "<communication-waiting", " a=''", "/>", 30},
      {XML_SCHEMA_NAMESPACE_RETRIEVAL, "<a>", "<b>", "", 30},
      {XML_SCHEMA_SIMSERVS, "<simservs>", "<communication-waiting/>", "</simservs>", 30},
      {XML_SCHEMA_COMMUNICATION_DIVERSION,
       "<communication-diversion><cp:ruleset><cp:rule><cp:conditions>", "<busy/>",
       "</cp:conditions></cp:rule></cp:ruleset></communication-diversion>", 30},
      {XML_SCHEMA_REGINFO, "<reginfo>", "x", "</reginfo>", 30},
      {XML_SCHEMA_IMDN, "", "<imdn>", "", 45},
  };
  for (const auto& test : kCases) {
    std::string text = test.start;
    while (text.size() < 200000) text += test.piece;
    text += test.end;
    Schema schema(test.id);
    zthost::CountAllocations();
    const auto root = schema.Read<XMLElement>(text);
    const long peak = zthost::GetHeapUse().peakBytes;
    zthost::FailAllocation(0);
    EXPECT_GT(peak, static_cast<long>(text.size())) << test.piece;
    EXPECT_LT(peak, test.most * static_cast<long>(text.size())) << test.piece;
  }
}

}  // namespace
