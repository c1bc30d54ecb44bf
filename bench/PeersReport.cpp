#include "PeersReport.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <tuple>

namespace bench {

namespace {

constexpr const char* kWho[] = {
    "ztxml", "Expat", "libxml2", "pugixml", "pugixml minimal", "pugixml + mapping", "TinyXML-2"};
constexpr const char* kWork[] = {
    "events",         "text to tree and free", "tree to text",        "both ways",
    "both ways, log", "both ways, memory log", "both ways, both logs"};

[[gnu::format(printf, 1, 2)]] std::string Print(const char* format, ...) {
  char line[256];
  std::va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(line, sizeof line, format, arguments);
  va_end(arguments);
  return line;
}

const char* Name(Who who) { return kWho[static_cast<std::size_t>(who)]; }
const char* Name(Work work) { return kWork[static_cast<std::size_t>(work)]; }

// A bar and whether it is reached; empty when there is nothing to compare.
std::string Bar(double ratio, double bar, double aim, const char* peer) {
  if (ratio <= 0) return "";
  std::string text = Print("%.1f x %s: %s", bar, peer, ratio >= bar ? "yes" : "**no**");
  if (aim > 0) text += Print(", %.1f: %s", aim, ratio >= aim ? "yes" : "no");
  return text;
}

std::string Join(const std::string& a, const std::string& b) {
  return a.empty() || b.empty() ? a + b : a + "; " + b;
}

double PerByte(double megabytesPerSecond) {
  return megabytesPerSecond > 0 ? 1000 / megabytesPerSecond : 0;
}

}  // namespace

bool Key::operator<(const Key& other) const {
  return std::tie(work, document, who) < std::tie(other.work, other.document, other.who);
}

std::string NameOf(const Key& key) {
  return std::string(Name(key.work)) + "/" + key.document->name + "/" + Name(key.who);
}

void PeersReport::ReportRuns(const std::vector<Run>& runs) {
  std::vector<Run> shown;
  for (const Run& run : runs) {
    if (run.aggregate_name == "cv") spreads_.push_back(run.cpu_accumulated_time);
    const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
    if (!median && run.run_type != Run::RT_Iteration) continue;
    const auto key = keys_.find(run.run_name.function_name);
    const auto speed = run.counters.find("bytes_per_second");
    if (key == keys_.end() || speed == run.counters.end()) continue;
    speeds_[key->second] = speed->second / 1e6;
    shown.push_back(run);
  }
  if (!shown.empty()) ConsoleReporter::ReportRuns(shown);
}

// How much the repetitions varied on this machine.
std::string PeersReport::Spread() const {
  if (spreads_.empty()) return "";
  std::vector<double> sorted = spreads_;
  std::sort(sorted.begin(), sorted.end());
  return Print(
      "Between repetitions half of the cases varied by less than %.0f %%, nine of ten by less than "
      "%.0f %% (standard deviation).\n\n",
      sorted[sorted.size() / 2] * 100, sorted[sorted.size() * 9 / 10] * 100);
}

double PeersReport::SpeedOf(const Key& key) const {
  const auto found = speeds_.find(key);
  return found == speeds_.end() ? 0 : found->second;
}

// Making and freeing a document tree counts twice: as the nearest thing to events, and as reading.
double PeersReport::SpeedBeside(const Key& key) const {
  const double speed = SpeedOf(key);
  const bool tree = key.who != Who::kExpat && key.who != Who::kLibxml2;
  if (speed > 0 || key.work != Work::kRead || !tree) return speed;
  return SpeedOf({Work::kEvents, key.document, key.who});
}

// How many times as fast as the fastest of the peers from `first` to `last` the library is.
std::string PeersReport::Best(const Key& library, Who first, Who last) const {
  double own = 0;     // best of the peers that do what the library does
  double beside = 0;  // best of the peers that only make a document tree
  for (auto i = static_cast<int>(first); i <= static_cast<int>(last); ++i) {
    const Key key{library.work, library.document, static_cast<Who>(i)};
    own = std::max(own, SpeedOf(key));
    beside = std::max(beside, SpeedBeside(key));
  }
  const double best = own > 0 ? own : beside;
  return best > 0 ? Print(" %.2f |", SpeedOf(library) / best) : " |";
}

std::string PeersReport::Bars(Work work, const Document& document) const {
  const double library = SpeedOf({work, &document, Who::kLibrary});
  const auto ratio = [&](Who who) {
    const double speed = SpeedOf({work, &document, who});
    return speed > 0 ? library / speed : 0;
  };
  switch (work) {
    case Work::kEvents:
      return Join(Bar(ratio(Who::kLibxml2), 3, 0, "libxml2"),
                  Bar(ratio(Who::kExpat), 6, 0, "Expat"));
    case Work::kRead: {
      const bool bound =
          document.kind == Kind::kRegistration &&
          (!std::strcmp(document.size, "8.5 KB") || !std::strcmp(document.size, "850 KB"));
      return bound ? Bar(ratio(Who::kPugixmlMapped), 1, 1.5, "mapping") : "";
    }
    case Work::kWrite:
      return Bar(ratio(Who::kPugixmlMapped), 3, 5, "mapping");
    default:
      return "";
  }
}

std::string PeersReport::Speeds(const std::vector<const Document*>& documents) const {
  std::string text = "| work | document |";
  std::string rule = "|---|---|";
  for (const char* who : kWho) {
    text += std::string(" ") + who + " |";
    rule += "--:|";
  }
  text += " to best SAX | to best tree | bar |\n" + rule + "--:|--:|---|\n";
  for (const Work work : {Work::kEvents, Work::kRead, Work::kWrite, Work::kBoth}) {
    for (const Document* document : documents) {
      const Key library{work, document, Who::kLibrary};
      const double own = SpeedOf(library);
      if (own <= 0) continue;
      text += Print("| %s | %s | %.0f |", Name(work), document->name.c_str(), own);
      for (std::size_t i = 1; i < std::size(kWho); ++i) {
        const double speed = SpeedBeside({work, document, static_cast<Who>(i)});
        text += speed > 0 ? Print(" %.0f (%.2f) |", speed, own / speed) : " |";
      }
      text += Best(library, Who::kExpat, Who::kLibxml2) +
              Best(library, Who::kPugixml, Who::kTinyXml2) + " " + Bars(work, *document) + " |\n";
    }
  }
  return text;
}

std::string PeersReport::AllocationTable(const std::vector<const Document*>& documents) const {
  std::string text = "| work | document | elements and texts |";
  std::string rule = "|---|---|--:|";
  for (const char* who : kWho) {
    text += std::string(" ") + who + " |";
    rule += "--:|";
  }
  text += " ztxml for each | bar |\n" + rule + "--:|---|\n";
  for (const Work work : {Work::kEvents, Work::kRead, Work::kWrite}) {
    for (const Document* document : documents) {
      const auto items = items_.find(document);
      const auto library = allocations_.find({work, document, Who::kLibrary});
      if (items == items_.end() || library == allocations_.end()) continue;
      text += Print("| %s | %s | %zu |", Name(work), document->name.c_str(), items->second);
      for (std::size_t i = 0; i < std::size(kWho); ++i) {
        const auto found = allocations_.find({work, document, static_cast<Who>(i)});
        text += found == allocations_.end()
                    ? " |"
                    : Print(" %ld / %.0f KB |", found->second.count,
                            static_cast<double>(found->second.peakBytes) / 1024);
      }
      const double each =
          static_cast<double>(library->second.count) / static_cast<double>(items->second);
      const char* bar = work != Work::kRead ? "" : each < 1 ? " below 1: yes" : " below 1: **no**";
      text += Print(" %.2f |%s |\n", each, bar);
    }
  }
  return text;
}

std::string PeersReport::LogTable(const std::vector<const Document*>& documents) const {
  std::string text =
      "| document | neither, MB/s | log on | memory log on | both on |\n|---|--:|--:|--:|--:|\n";
  for (const Document* document : documents) {
    const double neither = SpeedOf({Work::kBoth, document, Who::kLibrary});
    if (neither <= 0 || SpeedOf({Work::kLog, document, Who::kLibrary}) <= 0) continue;
    text += Print("| %s | %.0f |", document->name.c_str(), neither);
    for (const Work work : {Work::kLog, Work::kMemoryLog, Work::kBothLogs}) {
      const double speed = SpeedOf({work, document, Who::kLibrary});
      text += speed > 0 ? Print(" %.1f (%.1f x the time) |", speed, neither / speed) : " |";
    }
    text += "\n";
  }
  return text;
}

std::string PeersReport::GrowthTable(const std::vector<const Document*>& documents) const {
  std::string text =
      "| document | bytes | events, ns/B | tree, ns/B | pugixml + mapping, ns/B |\n"
      "|---|--:|--:|--:|--:|\n";
  for (const Document* document : documents) {
    if (document->kind != Kind::kRegistration) continue;
    const double events = SpeedOf({Work::kEvents, document, Who::kLibrary});
    if (events <= 0) continue;
    text +=
        Print("| %s | %zu | %.2f | %.2f | %.2f |\n", document->name.c_str(), document->text.size(),
              PerByte(events), PerByte(SpeedOf({Work::kRead, document, Who::kLibrary})),
              PerByte(SpeedOf({Work::kRead, document, Who::kPugixmlMapped})));
  }
  return text;
}

std::string PeersReport::Markdown(const std::vector<const Document*>& documents) const {
  return "### Speed\n\nMB/s of CPU time, medians; in brackets how many times as fast ztxml "
         "is.\n\n" +
         Spread() + Speeds(documents) +
         "\n### Allocations\n\nAllocations of one run / the most bytes that were live in it.\n\n" +
         AllocationTable(documents) + "\n### The logs\n\nReading and writing in one.\n\n" +
         LogTable(documents) + "\n### Growth\n\n" + GrowthTable(documents);
}

}  // namespace bench
