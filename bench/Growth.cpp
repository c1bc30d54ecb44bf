// How cost grows with size: time per byte of the shapes that would betray a cost which is not
// linear, at 64 KB and at 1 MB. Prints a table with the ratio of the medians at the end.
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "XMLFactory.h"
#include "XmlDecoder.h"
#include "ztXMLDocGenerator.h"

namespace {

constexpr std::size_t kSmall = 64 * 1024;
constexpr std::size_t kLarge = 1024 * 1024;
constexpr double kBar = 1.5;

// Takes every callback and does nothing.
class NullSchema : public XmlDecoderSchema {
 public:
  int ProcessReserved() override { return 0; }
  int ProcessAttribute(char*, char*, char*) override { return 0; }
  int ProcessElement(char*, char*) override { return 0; }
  int ProcessElementOpened(char*) override { return 0; }
  void* GetSessionData() override { return nullptr; }
};

std::string Repeated(const std::string& piece, std::size_t size) {
  std::string text;
  text.reserve(size + piece.size());
  while (text.size() < size) text += piece;
  return text;
}

std::string Registrations(std::size_t size) {
  std::string text = "<reginfo version='1' state='full'>";
  for (int i = 0; text.size() < size; ++i) {
    const std::string id = std::to_string(i);
    text += "<registration aor='sip:user" + id + "@example.com' id='a" + id +
            "' state='active'><contact id='c" + id +
            "' state='active' event='registered' expires='3600' q='0.8' callid='x" + id +
            "' cseq='7'><uri>sip:user" + id +
            "@192.0.2.1</uri><unknown-param name='+sip.instance'>u</unknown-param>"
            "<gr:pub-gruu uri='sip:user@example.com;gr=" +
            id + "'/></contact></registration>";
  }
  return text + "</reginfo>";
}

std::string Attributes(std::size_t size) {
  std::string text = "<a";
  for (int i = 0; text.size() < size; ++i) text += " n" + std::to_string(i) + "='v'";
  return text + "/>";
}

void Parse(std::string& text, std::size_t chunk) {
  NullSchema schema;
  XmlDecoder parser;
  parser.SetSchema(&schema);
  for (std::size_t at = 0; at < text.size(); at += chunk) {
    const std::size_t count = std::min(chunk, text.size() - at);
    benchmark::DoNotOptimize(parser.Decode(text.data() + at, static_cast<int>(count)));
  }
}

void Read(std::string& text, std::size_t) {
  XMLContext* context = XMLFactory::newInstance(XML_SCHEMA_REGINFO);
  XMLFactory::DeleteElement(context->createUnMarshaller()->UnMarshall(text.c_str()));
  XMLFactory::deleteContext(context);
}

// The document's pieces go through the writer, which keeps the first 32 KB of them.
void Write(std::string& text, std::size_t) {
  ZtXMLDocGenerator writer;
  writer.ztInitXmlDoc();
  for (std::size_t size = 0; size < text.size(); size += 16) {
    writer.ztStartElement("element", 0);
    writer.ztEndXmlElement("end");
  }
  benchmark::DoNotOptimize(writer.ztGetXmlDoc());
}

struct Shape {
  const char* name;
  std::string (*make)(std::size_t size);
  void (*run)(std::string& text, std::size_t chunk);
  std::size_t chunk;
};

const Shape kShapes[] = {
    {"nesting", [](std::size_t n) { return Repeated("<a>", n); }, Parse, kLarge * 2},
    {"byte_by_byte_in_a_tag", [](std::size_t n) { return "<a b='" + Repeated("x", n) + "'/>"; },
     Parse, 1},
    {"entities_in_a_value", [](std::size_t n) { return "<a b='" + Repeated("&amp;", n) + "'/>"; },
     Parse, kLarge * 2},
    {"attributes_in_a_tag", Attributes, Parse, kLarge * 2},
    {"registrations", Registrations, Read, 0},
    {"writer_appends", [](std::size_t n) { return Repeated("x", n); }, Write, 0},
};

class GrowthReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median") continue;
      const std::string name = run.run_name.function_name;
      per_byte_[name][std::stoul(run.run_name.args)] =
          run.GetAdjustedCPUTime() / std::stod(run.run_name.args);
    }
    ConsoleReporter::ReportRuns(runs);
  }

  // 0 when every shape grows within the bar.
  int Summary() const {
    int over = 0;
    std::printf("\n%-24s %12s %12s %8s\n", "shape", "ns/B 64 KB", "ns/B 1 MB", "ratio");
    for (const auto& [name, times] : per_byte_) {
      if (times.size() != 2) continue;
      const double ratio = times.at(kLarge) / times.at(kSmall);
      const bool within = ratio <= kBar;
      over += within ? 0 : 1;
      std::printf("%-24s %12.3f %12.3f %8.2f%s\n", name.c_str(), times.at(kSmall), times.at(kLarge),
                  ratio, within ? "" : "  over the bar");
    }
    std::printf("bar: %.1f\n", kBar);
    return over;
  }

 private:
  std::map<std::string, std::map<unsigned long, double>> per_byte_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  for (const Shape& shape : kShapes) {
    benchmark::RegisterBenchmark(
        shape.name,
        [&shape](benchmark::State& state) {
          std::string text = shape.make(static_cast<std::size_t>(state.range(0)));
          for (auto _ : state) shape.run(text, shape.chunk);
          state.SetBytesProcessed(state.iterations() * static_cast<long>(text.size()));
        })
        ->Arg(kSmall)
        ->Arg(kLarge)
        ->Repetitions(7)
        ->MinTime(0.1)
        ->ReportAggregatesOnly(true);
  }
  GrowthReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return reporter.Summary() == 0 ? 0 : 1;
}
