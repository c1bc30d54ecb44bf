// Collects what the cases of the comparison measured and prints it as tables.
#ifndef ZTXML_BENCH_PEERSREPORT_H
#define ZTXML_BENCH_PEERSREPORT_H

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

#include "Counting.h"
#include "Documents.h"

namespace bench {

/// Who does the work; the columns of the table.
enum class Who {
  kLibrary,
  kExpat,
  kLibxml2,
  kPugixml,         // with the options that it has by default; writing: of a ready document tree
  kPugixmlMinimal,  // with parse_minimal
  kPugixmlMapped,   // with the hand-written mapping
  kTinyXml2,
};

/// What is done; the groups of rows.
enum class Work { kEvents, kRead, kWrite, kBoth, kLog, kMemoryLog, kBothLogs };

struct Key {
  Work work;
  const Document* document;
  Who who;
  bool operator<(const Key& other) const;
};
std::string NameOf(const Key& key);

class PeersReport : public benchmark::ConsoleReporter {
 public:
  /// Tells, before a benchmark runs, which case its name means.
  void Expect(const Key& key) { keys_[NameOf(key)] = key; }
  /// Tells what one run allocates; before or after the timing.
  void SetAllocations(const Key& key, Allocations allocations) { allocations_[key] = allocations; }
  void SetItems(const Document* document, std::size_t items) { items_[document] = items; }

  void ReportRuns(const std::vector<Run>& runs) override;

  /// All that was measured, as Markdown.
  std::string Markdown(const std::vector<const Document*>& documents) const;

 private:
  double SpeedOf(const Key& key) const;
  double SpeedBeside(const Key& key) const;
  std::string Best(const Key& library, Who first, Who last) const;
  std::string Speeds(const std::vector<const Document*>& documents) const;
  std::string Bars(Work work, const Document& document) const;
  std::string AllocationTable(const std::vector<const Document*>& documents) const;
  std::string LogTable(const std::vector<const Document*>& documents) const;
  std::string Spread() const;
  std::string GrowthTable(const std::vector<const Document*>& documents) const;

  std::map<std::string, Key> keys_;
  std::map<Key, double> speeds_;  // MB/s, the median of the repetitions
  std::vector<double> spreads_;   // standard deviations over means
  std::map<Key, Allocations> allocations_;
  std::map<const Document*, std::size_t> items_;
};

}  // namespace bench

#endif  // ZTXML_BENCH_PEERSREPORT_H
