// How cost grows with size: time per byte of the shapes that would betray a cost which is not
// linear, small and large: 64 KB and 1 MB, or a number of elements and a hundred times as many.
//
//   ztxml_growth FILE [FOLDER...]
//
// Every document in a folder is a shape, too, with the content of its root repeated. Prints a table
// with the ratio of the medians, and writes names and ratios to FILE, parted by tabs.
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "NullSchema.h"
#include "ztxml/XMLFactory.h"
#include "ztxml/ztXMLDocGenerator.h"

namespace {

constexpr std::size_t kSmall = 64 * 1024;
constexpr std::size_t kLarge = 1024 * 1024;
constexpr double kBar = 2;  // 1.8 is reached where a large tree leaves the caches

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

// Reads and writes, with the document's namespaces where the schema takes them. False when the
// schema does not read it.
bool ReadAndWrite(eXMLSchemaID schema, const std::string& text) {
  XMLContext* first = XMLFactory::newInstance(XML_SCHEMA_NAMESPACE_RETRIEVAL);
  auto* namespaces = static_cast<XMLObject*>(first->createUnMarshaller()->UnMarshall(text.c_str()));
  XMLContext* context = XMLFactory::newInstance(schema);
  context->SetNamespaceBinder(namespaces);
  XMLElement* root = context->createUnMarshaller()->UnMarshall(text.c_str());
  XMLMarshaller* writer = context->createMarshaller();
  if (writer) benchmark::DoNotOptimize(writer->Marshall(root));
  const bool read = root != nullptr;
  XMLFactory::DeleteElement(root);
  XMLFactory::deleteContext(context);
  XMLFactory::DeleteElement(namespaces);
  XMLFactory::deleteContext(first);
  return read;
}
template <eXMLSchemaID kSchema>
void RoundTrip(std::string& text, std::size_t) {
  ReadAndWrite(kSchema, text);
}

std::string Times(std::size_t count, const std::string& start, const std::string& piece,
                  const std::string& end) {
  std::string text = start;
  while (count--) text += piece;
  return text + end;
}

// As many services as declarations: the cost is not linear if each service looks through all
// declarations.
std::string DeclaringServices(std::size_t count) {
  const std::string uri = "http://uri.etsi.org/ngn/params/xml/simservs/xcap";
  return Times(count, "<simservs xmlns='" + uri + "'>",
               "<communication-waiting xmlns:x='urn:x' active='true'/>", "</simservs>");
}

std::string Words(std::size_t size) {
  return "<conference-info entity='e'><conference-description><keywords>" +
         Repeated("word ", size) + "</keywords></conference-description></conference-info>";
}
std::string Users(std::size_t count) {
  return Times(count, "<conference-info entity='e'><users>",
               "<user entity='sip:a@example.com' state='full'><display-text>A</display-text>"
               "<endpoint><media id='1'><type>audio</type></media></endpoint></user>",
               "</users></conference-info>");
}
std::string Tuples(std::size_t count) {
  return Times(count, "<presence entity='e'>",
               "<tuple id='t'><status><basic>open</basic></status><contact>c</contact></tuple>",
               "</presence>");
}

// A prefix as long as all elements together, which do not use it.
std::string LongPrefix(std::size_t size) {
  return "<simservs xmlns:" + Repeated("p", size / 2) +
         "='http://uri.etsi.org/ngn/params/xml/simservs/xcap'>" +
         Repeated("<communication-waiting/>", size / 2) + "</simservs>";
}
std::string LongPrefixOfFlags(std::size_t size) {
  return "<communication-diversion xmlns:" + Repeated("p", size / 2) +
         "='http://uri.etsi.org/ngn/params/xml/simservs/xcap'><cp:ruleset><cp:rule id='r'>"
         "<cp:conditions>" +
         Repeated("<ss:busy/>", size / 2) +
         "</cp:conditions></cp:rule></cp:ruleset></communication-diversion>";
}

std::string Rules(std::size_t count) {
  return Times(count, "<communication-diversion><cp:ruleset>",
               "<cp:rule id='r'><cp:conditions><busy/></cp:conditions><cp:actions><forward-to>"
               "<target>sip:a@example.com</target></forward-to></cp:actions></cp:rule>",
               "</cp:ruleset></communication-diversion>");
}

std::string Identities(std::size_t count) {
  return Times(count,
               "<communication-diversion><cp:ruleset><cp:rule id='r'><cp:conditions><cp:identity>",
               "<cp:one id='sip:alice@example.com'/>",
               "</cp:identity></cp:conditions></cp:rule></cp:ruleset></communication-diversion>");
}

std::string ServiceAttributes(std::size_t count) {
  std::string text = "<communication-waiting";
  for (std::size_t i = 0; i < count; ++i) text += " same" + std::to_string(i / 2) + "='v'";
  return text + "/>";
}

std::string Conditions(std::size_t size) {
  return "<communication-diversion><cp:ruleset><cp:rule id='r'><cp:conditions>" +
         Repeated("<busy/><media>audio</media><cp:validity><cp:from>1</cp:from></cp:validity>",
                  size) +
         "</cp:conditions></cp:rule></cp:ruleset></communication-diversion>";
}
std::string Declarations(std::size_t size) {
  std::string text = "<simservs";
  for (int i = 0; text.size() < size; ++i) text += " xmlns:p" + std::to_string(i) + "='urn:x'";
  return text + "><communication-waiting active='true'/></simservs>";
}

// Writes all pieces of the document, though the writer keeps only the first 32 KB.
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
  std::string name;
  std::function<std::string(std::size_t size)> make;
  std::function<void(std::string& text, std::size_t chunk)> run;
  std::size_t chunk;
  std::size_t small = kSmall;
  std::size_t large = kLarge;
};

const Shape kShapes[] = {
    {"siblings", [](std::size_t n) { return "<a>" + Repeated("<b>t</b>", n) + "</a>"; }, Parse,
     kLarge * 2},
    {"comments", [](std::size_t n) { return "<a>" + Repeated("<!-- c -->", n) + "</a>"; }, Parse,
     kLarge * 2},
    {"one_comment", [](std::size_t n) { return "<a><!--" + Repeated("- <", n) + "--></a>"; }, Parse,
     kLarge * 2},
    {"characters_in_one_text",
     [](std::size_t n) {
       return "<resource-lists><list><display-name>" + Repeated("x", n) +
              "</display-name></list></resource-lists>";
     },
     RoundTrip<XML_SCHEMA_RESOURCE_LISTS>, 0},
    {"unknown_elements",
     [](std::size_t n) { return "<reginfo>" + Repeated("<x:u a='1'>t</x:u>", n) + "</reginfo>"; },
     RoundTrip<XML_SCHEMA_REGINFO>, 0},
    {"nested_unknown_elements",
     [](std::size_t n) {
       return "<reginfo>" + Repeated("<u>", n / 2) + Repeated("</u>", n / 2) + "</reginfo>";
     },
     RoundTrip<XML_SCHEMA_REGINFO>, 0},
    {"byte_by_byte", Registrations, Parse, 1},
    {"byte_by_byte_after_an_error",
     [](std::size_t n) { return Repeated("x", n / 2) + "</a" + Repeated(">", n / 2); }, Parse, 1},
    {"conditions", Conditions, RoundTrip<XML_SCHEMA_COMMUNICATION_DIVERSION>, 0},
    {"namespace_declarations", Declarations, RoundTrip<XML_SCHEMA_SIMSERVS>, 0},
    {"nesting", [](std::size_t n) { return Repeated("<a>", n); }, Parse, kLarge * 2},
    {"byte_by_byte_in_a_tag", [](std::size_t n) { return "<a b='" + Repeated("x", n) + "'/>"; },
     Parse, 1},
    {"entities_in_a_value", [](std::size_t n) { return "<a b='" + Repeated("&amp;", n) + "'/>"; },
     Parse, kLarge * 2},
    {"attributes_in_a_tag", Attributes, Parse, kLarge * 2},
    {"registrations", Registrations, RoundTrip<XML_SCHEMA_REGINFO>, 0},
    {"writer_appends", [](std::size_t n) { return Repeated("x", n); }, Write, 0},
    {"services_in_a_container",
     [](std::size_t n) {
       return Times(n, "<simservs>", "<communication-waiting active='true'/>", "</simservs>");
     },
     RoundTrip<XML_SCHEMA_SIMSERVS>, 0, 500, 50000},
    {"services_that_declare", DeclaringServices, RoundTrip<XML_SCHEMA_SIMSERVS>, 0, 100, 10000},
    {"services_never_closed",
     [](std::size_t n) { return Times(n, "<simservs/>", "<communication-waiting>", ""); },
     RoundTrip<XML_SCHEMA_SIMSERVS>, 0, 500, 50000},
    {"prefix_longer_than_services", LongPrefix, RoundTrip<XML_SCHEMA_SIMSERVS>, 0},
    {"prefix_longer_than_flags", LongPrefixOfFlags, RoundTrip<XML_SCHEMA_COMMUNICATION_DIVERSION>,
     0},
    {"words_of_a_text", Words, RoundTrip<XML_SCHEMA_CONFERENCE_INFO>, 0},
    {"users_of_a_conference", Users, RoundTrip<XML_SCHEMA_CONFERENCE_INFO>, 0, 100, 10000},
    {"tuples_of_a_presence", Tuples, RoundTrip<XML_SCHEMA_PRESENCE>, 0, 100, 10000},
    {"rules_in_a_rule_set", Rules, RoundTrip<XML_SCHEMA_COMMUNICATION_DIVERSION>, 0, 100, 10000},
    {"identities_in_a_condition", Identities, RoundTrip<XML_SCHEMA_COMMUNICATION_DIVERSION>, 0, 100,
     10000},
    {"attributes_of_a_service", ServiceAttributes, RoundTrip<XML_SCHEMA_COMMUNICATION_WAITING>, 0,
     100, 10000},
    {"attributes_of_a_long_name",
     [](std::size_t n) {
       return "<reginfo><" + Repeated("N", n / 2) + Repeated(" a=''", n / 2) + "/></reginfo>";
     },
     RoundTrip<XML_SCHEMA_REGINFO>, 0},
};

// A document with the content of its root as often as it fits into `size`.
std::string Grown(const std::string& text, std::size_t size) {
  std::size_t root = text.find('<');
  while (root < text.size() && (text[root + 1] == '?' || text[root + 1] == '!')) {
    root = text.find('<', root + 1);
  }
  const std::size_t start = text.find('>', root) + 1, end = text.rfind("</");
  if (start == 0 || end == std::string::npos || end <= start) return "";
  return text.substr(root, start - root) + Repeated(text.substr(start, end - start), size) +
         text.substr(end);
}

// The documents of a folder that a schema reads.
void AddDocuments(const char* folder, std::vector<Shape>& shapes) {
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.path().extension() != ".xml") continue;
    std::ifstream file(entry.path());
    const std::string text((std::istreambuf_iterator<char>(file)),
                           std::istreambuf_iterator<char>());
    for (int id = 0; id < XML_SCHEMA_END; ++id) {
      const auto schema = static_cast<eXMLSchemaID>(id);
      if (schema == XML_SCHEMA_NAMESPACE_RETRIEVAL || !XMLFactory::getSchemaInfo(schema)) continue;
      if (Grown(text, 1).empty() || !ReadAndWrite(schema, text)) continue;
      shapes.push_back({entry.path().parent_path().filename() / entry.path().stem(),
                        [text](std::size_t size) { return Grown(text, size); },
                        [schema](std::string& grown, std::size_t) { ReadAndWrite(schema, grown); },
                        0});
    }
  }
}

// Collects the medians, and prints nothing meanwhile.
class GrowthReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median") continue;
      per_byte_[run.run_name.function_name][std::stoul(run.run_name.args)] =
          1e9 / run.counters.at("bytes_per_second");
    }
  }

  // How many shapes grow beyond the bar; their ratios go to `file`.
  int Summary(std::FILE* file) const {
    int over = 0;
    std::printf("%-44s %12s %12s %8s\n", "shape", "ns/B small", "ns/B large", "ratio");
    for (const auto& [name, times] : per_byte_) {
      if (times.size() != 2) continue;
      const double small = times.begin()->second;
      const double large = times.rbegin()->second;
      const double ratio = large / small;
      const bool within = ratio <= kBar;
      over += within ? 0 : 1;
      std::printf("%-44s %12.3f %12.3f %8.2f%s\n", name.c_str(), small, large, ratio,
                  within ? "" : "  over the bar");
      std::fprintf(file, "%s\t%.3f\n", name.c_str(), ratio);
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
  std::FILE* const file = argc > 1 ? std::fopen(argv[1], "w") : nullptr;
  if (!file) {
    std::fputs("usage: ztxml_growth FILE [FOLDER...]\n", stderr);
    return 2;
  }
  std::vector<Shape> shapes(std::begin(kShapes), std::end(kShapes));
  for (int i = 2; i < argc; ++i) AddDocuments(argv[i], shapes);
  for (const Shape& shape : shapes) {
    benchmark::RegisterBenchmark(
        shape.name.c_str(),
        [&shape](benchmark::State& state) {
          std::string text = shape.make(static_cast<std::size_t>(state.range(0)));
          for (auto _ : state) shape.run(text, shape.chunk);
          state.SetBytesProcessed(state.iterations() * static_cast<long>(text.size()));
        })
        ->Arg(static_cast<long>(shape.small))
        ->Arg(static_cast<long>(shape.large))
        ->Repetitions(5)
        ->MinTime(0.05)
        ->ReportAggregatesOnly(true);
  }
  GrowthReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  const int over = reporter.Summary(file);
  return std::fclose(file) == 0 && over == 0 ? 0 : 1;
}
