// The library beside Expat, libxml2, pugixml and TinyXML-2, in one process and with the repetitions
// of all cases interleaved at random, so that other work of the machine slows all of them alike.
//
//   ztxml_bench_peers [--markdown FILE] [--benchmark_...]
//
// prints what it measured as Markdown tables, into FILE too. Before it measures, it checks that
// every case does its work and that compared trees have equal contents.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "Documents.h"
#include "NullSchema.h"
#include "PeerParsers.h"
#include "PeersReport.h"
#include "TreeCounts.h"
#include "ztxml/ztHostPlatform.h"
#include "ztxml/ztXMLDocGenerator.h"
#if ZTXML_BENCH_PUGIXML
#include "PugiMapping.h"
#endif

namespace {

using bench::Document;
using bench::Key;
using bench::Kind;
using bench::TreeCounts;
using bench::Who;
using bench::Work;

[[noreturn]] void Fail(const std::string& what) {
  std::fprintf(stderr, "ztxml_bench_peers: %s\n", what.c_str());
  std::exit(2);
}

// ---- Cases --------------------------------------------------------------------------------------

struct Case {
  Key key;
  std::size_t bytes;          // of document or output that one run works on
  std::function<bool()> run;  // false: it failed
  void (*before)() = nullptr;
  void (*after)() = nullptr;
};

class Cases {
 public:
  explicit Cases(std::vector<Case>* cases) : cases_(cases) {}
  Cases& Of(Work work, const Document& document, std::size_t bytes) {
    work_ = work;
    document_ = &document;
    bytes_ = bytes;
    return *this;
  }
  Case& Add(Who who, std::function<bool()> run) {
    cases_->push_back({{work_, document_, who}, bytes_, std::move(run)});
    return cases_->back();
  }

 private:
  std::vector<Case>* cases_;
  Work work_ = Work::kEvents;
  const Document* document_ = nullptr;
  std::size_t bytes_ = 0;
};

// ---- The library --------------------------------------------------------------------------------

bool EventsByLibrary(const std::string& text) {
  NullSchema schema;
  XmlDecoder parser;
  parser.SetSchema(&schema);
  // The parser does not change what it is given.
  return parser.Decode(const_cast<char*>(text.data()), static_cast<int>(text.size())) ==
         ZT_XML_SUCCESS;
}

// A schema's context with its workers, kept as a client keeps them.
class Library {
 public:
  explicit Library(Kind kind) : context_(XMLFactory::newInstance(bench::SchemaOf(kind))) {
    reader_ = context_->createUnMarshaller();
    writer_ = context_->createMarshaller();
  }
  ~Library() { XMLFactory::deleteContext(context_); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  XMLElement* Read(const std::string& text) { return reader_->UnMarshall(text.c_str()); }
  const char* Write(XMLElement* root) { return writer_->Marshall(root); }

 private:
  XMLContext* context_;
  XMLUnMarshaller* reader_;
  XMLMarshaller* writer_;
};

struct TreeDeleter {
  void operator()(XMLElement* root) const { XMLFactory::DeleteElement(root); }
};
using Tree = std::unique_ptr<XMLElement, TreeDeleter>;

// ---- The logs -----------------------------------------------------------------------------------

void LogOn() {
  zthost::SetLogSink(
      [](const zthost::LogLine& line, void*) { benchmark::DoNotOptimize(line.text); });
}
void LogOff() { zthost::SetLogSink(nullptr); }
void MemoryLogOn() { zthost::EnableMemoryLog(true); }
void MemoryLogOff() {
  zthost::EnableMemoryLog(false);
  zthost::ResetMemoryLog();
}
void BothLogsOn() {
  LogOn();
  MemoryLogOn();
}
void BothLogsOff() {
  LogOff();
  MemoryLogOff();
}

// ---- The hand-written mapping -------------------------------------------------------------------

#if ZTXML_BENCH_PUGIXML

void CheckSame(const Document& document, const char* what, const TreeCounts& a,
               const TreeCounts& b) {
  // The library keeps the references in an element's text as they stand, so its texts are longer.
  const bool references = document.text.find('&') != std::string::npos;
  if (a.pieces == b.pieces && a.objects == b.objects && a.texts == b.texts &&
      (references || a.bytes == b.bytes)) {
    return;
  }
  char line[256];
  std::snprintf(line, sizeof line,
                "%s, %s: %zu pieces, %zu objects, %zu texts, %zu bytes; %zu, %zu, %zu, %zu",
                document.name.c_str(), what, a.pieces, a.objects, a.texts, a.bytes, b.pieces,
                b.objects, b.texts, b.bytes);
  Fail(line);
}

template <class Root>
bool ReadMapped(const std::string& text) {
  static std::string buffer;
  Root root;
  return mapping::Read(text, &buffer, &root);
}

template <class Root>
bool WriteMapped(const Root& root) {
  pugi::xml_document document;
  mapping::Build(root, &document);
  return bench::WriteByPugixml(document);
}

template <class Root>
void AddMapped(Cases* cases, const Document& document, const TreeCounts& counts,
               std::size_t written) {
  const std::string& text = document.text;
  std::string buffer;
  const auto root = std::make_shared<Root>();
  if (!mapping::Read(text, &buffer, root.get())) Fail("the mapping cannot read " + document.name);
  CheckSame(document, "library and mapping", counts, mapping::CountsOf(*root));
  cases->Of(Work::kRead, document, text.size()).Add(Who::kPugixmlMapped, [&text] {
    return ReadMapped<Root>(text);
  });
  if (written == 0) return;

  pugi::xml_document tree;
  mapping::Build(*root, &tree);
  Root again;
  struct : pugi::xml_writer {
    std::string text;
    void write(const void* data, std::size_t size) override {
      text.append(static_cast<const char*>(data), size);
    }
  } writer;
  tree.save(writer, "", pugi::format_raw);
  if (!mapping::Read(writer.text, &buffer, &again)) Fail("the mapping wrote no " + document.name);
  CheckSame(document, "mapping and what it wrote", mapping::CountsOf(*root),
            mapping::CountsOf(again));
  cases->Of(Work::kWrite, document, written).Add(Who::kPugixmlMapped, [root] {
    return WriteMapped(*root);
  });
  cases->Of(Work::kBoth, document, text.size()).Add(Who::kPugixmlMapped, [&text] {
    static std::string copy;
    Root read;
    return mapping::Read(text, &copy, &read) && WriteMapped(read);
  });
}

#endif

// ---- What is compared ---------------------------------------------------------------------------

void AddEvents(Cases* cases, const Document& document) {
  const std::string& text = document.text;
  cases->Of(Work::kEvents, document, text.size());
  cases->Add(Who::kLibrary, [&text] { return EventsByLibrary(text); });
#if ZTXML_BENCH_EXPAT
  cases->Add(Who::kExpat, [&text] { return bench::EventsByExpat(text); });
#endif
#if ZTXML_BENCH_LIBXML2
  cases->Add(Who::kLibxml2, [&text] { return bench::EventsByLibxml2(text); });
#endif
#if ZTXML_BENCH_PUGIXML
  cases->Add(Who::kPugixml, [&text] { return bench::ParseByPugixml(text, pugi::parse_default); });
  cases->Add(Who::kPugixmlMinimal,
             [&text] { return bench::ParseByPugixml(text, pugi::parse_minimal); });
#endif
#if ZTXML_BENCH_TINYXML2
  cases->Add(Who::kTinyXml2, [&text] { return bench::ParseByTinyXml2(text); });
#endif
}

// Adds writing from a ready tree, and reading and writing together.
void AddWriting(Cases* cases, const Document& document, Library* library, XMLElement* root,
                std::size_t written) {
  const std::string& text = document.text;
  const auto both = [&text, library] {
    const Tree tree(library->Read(text));
    return library->Write(tree.get()) != nullptr;
  };
  cases->Of(Work::kWrite, document, written).Add(Who::kLibrary, [library, root] {
    return library->Write(root) != nullptr;
  });
  cases->Of(Work::kBoth, document, text.size()).Add(Who::kLibrary, both);
#if ZTXML_BENCH_PUGIXML
  const auto dom = std::make_shared<pugi::xml_document>();
  dom->load_buffer(text.data(), text.size());
  cases->Of(Work::kWrite, document, written).Add(Who::kPugixml, [dom] {
    return bench::WriteByPugixml(*dom);
  });
  cases->Of(Work::kBoth, document, text.size()).Add(Who::kPugixml, [&text] {
    pugi::xml_document parsed;
    return parsed.load_buffer(text.data(), text.size()) && bench::WriteByPugixml(parsed);
  });
#endif
#if ZTXML_BENCH_TINYXML2
  const auto tiny = std::make_shared<tinyxml2::XMLDocument>();
  tiny->Parse(text.data(), text.size());
  cases->Of(Work::kWrite, document, written).Add(Who::kTinyXml2, [tiny] {
    return bench::WriteByTinyXml2(*tiny);
  });
  cases->Of(Work::kBoth, document, text.size()).Add(Who::kTinyXml2, [&text] {
    tinyxml2::XMLDocument parsed;
    return parsed.Parse(text.data(), text.size()) == tinyxml2::XML_SUCCESS &&
           bench::WriteByTinyXml2(parsed);
  });
#endif
  if (document.kind != Kind::kRegistration && document.kind != Kind::kConference) return;
  const auto logged = [&](Work work, void (*before)(), void (*after)()) {
    Case& one = cases->Of(work, document, text.size()).Add(Who::kLibrary, both);
    one.before = before;
    one.after = after;
  };
  logged(Work::kLog, LogOn, LogOff);
  logged(Work::kMemoryLog, MemoryLogOn, MemoryLogOff);
  logged(Work::kBothLogs, BothLogsOn, BothLogsOff);
}

struct Size {
  const char* name;
  std::size_t bytes;
};
constexpr Size kSizes[] = {{"1 KB", 1000}, {"8.5 KB", 8500}, {"85 KB", 85000}, {"850 KB", 850000}};
constexpr Size kLargest = {"10 MB", 10000000};  // for the growth only

class Comparison {
 public:
  Comparison() : cases_(&list_) {
    for (std::size_t i = 0; i < kKinds; ++i) {
      const auto kind = static_cast<Kind>(i);
      libraries_[i] = std::make_unique<Library>(kind);
      for (const Size& size : kSizes) Add(kind, size);
    }
    Add(Kind::kRegistration, kLargest);
  }

  std::vector<Case>& Cases() { return list_; }
  const std::vector<const Document*>& Documents() const { return documents_; }

  /// Runs each case once for its result and once to count, and registers it to be timed.
  void Register(bench::PeersReport* report) {
    for (const Case& one : list_) {
      report->Expect(one.key);
      if (!one.run()) Fail(NameOf(one.key) + " failed");
      if (one.key.document->text.size() < kLargest.bytes / 2) {
        report->SetAllocations(one.key, bench::Measure(one.run));
      }
      benchmark::RegisterBenchmark(NameOf(one.key).c_str(), [&one](benchmark::State& state) {
        if (one.before) one.before();
        bool good = true;
        for (auto _ : state) good = one.run() && good;
        if (one.after) one.after();
        if (!good) state.SkipWithError("a run failed");
        state.SetBytesProcessed(state.iterations() * static_cast<long>(one.bytes));
      });
    }
    for (const auto& [document, counts] : counts_) report->SetItems(document, counts.Items());
  }

 private:
  static constexpr std::size_t kKinds = 4;

  void Add(Kind kind, const Size& size) {
    store_.push_back(std::make_unique<Document>(bench::MakeDocument(kind, size.bytes, size.name)));
    const Document& document = *store_.back();
    documents_.push_back(&document);
    Library* library = libraries_[static_cast<std::size_t>(kind)].get();
    Tree tree(library->Read(document.text));
    if (!tree) Fail("the library cannot read " + document.name);
    const TreeCounts counts = CountsOf(kind, tree.get());
    if (counts.pieces != document.pieces) {
      Fail(document.name + ": the library read " + std::to_string(counts.pieces) + " of " +
           std::to_string(document.pieces) + " pieces");
    }
    counts_.emplace_back(&document, counts);

    AddEvents(&cases_, document);
    cases_.Of(Work::kRead, document, document.text.size()).Add(Who::kLibrary, [&document, library] {
      return Tree(library->Read(document.text)) != nullptr;
    });
    std::size_t written = 0;
    if (document.text.size() < ZtXMLDocGenerator::kBufferSize) {
      written = CheckWriting(document, library, tree.get(), counts);
      AddWriting(&cases_, document, library, tree.get(), written);
      trees_.push_back(std::move(tree));
    }
#if ZTXML_BENCH_PUGIXML
    if (kind == Kind::kRegistration)
      AddMapped<mapping::Reginfo>(&cases_, document, counts, written);
    if (kind == Kind::kConference)
      AddMapped<mapping::Conference>(&cases_, document, counts, written);
#endif
  }

  // How much the library writes of `document`, which must hold what it read.
  static std::size_t CheckWriting(const Document& document, Library* library, XMLElement* root,
                                  const TreeCounts& counts) {
    const char* text = library->Write(root);
    if (!text) Fail("the library cannot write " + document.name);
    const std::string copy = text;
    const Tree again(library->Read(copy));
    const TreeCounts kept = CountsOf(document.kind, again.get());
    // The library declares its own namespaces, so there may be more attributes than before.
    if (kept.pieces != counts.pieces || kept.objects < counts.objects ||
        kept.texts < counts.texts || kept.bytes < counts.bytes) {
      Fail("the library did not write all of " + document.name);
    }
    return copy.size();
  }

  std::vector<std::unique_ptr<Document>> store_;
  std::vector<const Document*> documents_;
  std::vector<std::pair<const Document*, TreeCounts>> counts_;
  std::unique_ptr<Library> libraries_[kKinds];
  std::vector<Tree> trees_;
  std::vector<Case> list_;
  ::Cases cases_;
};

bool Save(const char* path, const std::string& text) {
  std::FILE* file = std::fopen(path, "w");
  if (!file) return false;
  const bool done = std::fwrite(text.data(), 1, text.size(), file) == text.size();
  return std::fclose(file) == 0 && done;
}

}  // namespace

int main(int argc, char** argv) {
  const char* markdown = nullptr;
  // Come before the user's flags, which therefore win.
  static char defaults[][64] = {"--benchmark_enable_random_interleaving=true",
                                "--benchmark_repetitions=15", "--benchmark_min_time=0.03",
                                "--benchmark_report_aggregates_only=true"};
  std::vector<char*> arguments = {argv[0]};
  for (char* argument : defaults) arguments.push_back(argument);
  for (int i = 1; i < argc; ++i) {
    if (!std::strcmp(argv[i], "--markdown") && i + 1 < argc) {
      markdown = argv[++i];
    } else {
      arguments.push_back(argv[i]);
    }
  }
  int count = static_cast<int>(arguments.size());
  arguments.push_back(nullptr);
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;

  bench::PreparePeers();
  Comparison comparison;
  bench::PeersReport report;
  comparison.Register(&report);
  benchmark::RunSpecifiedBenchmarks(&report);
  benchmark::Shutdown();
  const std::string text =
      "Beside: " + bench::PeerVersions() + ".\n\n" + report.Markdown(comparison.Documents());
  std::printf("\n%s", text.c_str());
  if (markdown && !Save(markdown, text)) Fail(std::string("cannot write ") + markdown);
  return 0;
}
