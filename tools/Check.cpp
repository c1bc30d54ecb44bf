// ztxml check: reads many documents and tells which are refused or faulty.
#include <algorithm>
#include <string>
#include <vector>

#include "Colour.h"
#include "Commands.h"
#include "Jobs.h"
#include "Json.h"
#include "Judge.h"
#include "Junit.h"
#include "Output.h"
#include "Read.h"
#include "Strict.h"
#include "Text.h"

namespace {

std::string JsonOf(const CheckResult& result) {
  JsonObject line;
  line.Text("file", result.name);
  if (!result.schema.empty()) line.Text("schema", result.schema);
  const char* const flaw = result.faults.empty() ? "lossy" : "faulty";
  line.Text("status", result.isRefused ? "refused" : result.IsOk() ? "ok" : flaw);
  if (!result.remark.empty()) line.Text("remark", result.remark);
  std::vector<std::string> faults;
  for (const Failure& fault : result.faults) faults.push_back(JsonOf(fault));
  if (result.isRefused) {
    line.Value("error", faults[0]);
  } else if (!faults.empty()) {
    line.Value("faults", JsonList(faults));
  }
  std::vector<std::string> losses;
  for (const CheckResult::Lost& lost : result.losses) {
    losses.push_back(JsonObject()
                         .Text("kind", KeyOf(lost.loss.kind))
                         .Text("path", lost.loss.path)
                         .Number("line", lost.at.line)
                         .Number("column", lost.at.column)
                         .Done());
  }
  if (!losses.empty()) line.Value("losses", JsonList(losses));
  return line.Done();
}

// What was found in some documents.
struct Tally {
  std::size_t sound = 0;
  std::size_t refused = 0;
  std::size_t faulty = 0;  // read, but faulty as XML, or by its schema
  std::size_t lossy = 0;
  std::size_t skipped = 0;  // messages without a document
  JunitReport report;

  // Adds that of the documents after these.
  void Add(const Tally& other) {
    sound += other.sound;
    refused += other.refused;
    faulty += other.faulty;
    lossy += other.lossy;
    skipped += other.skipped;
    report.Add(other.report);
  }
};
Tally SumOf(const std::vector<Tally>& tallies) {
  Tally sum;
  for (const Tally& tally : tallies) sum.Add(tally);
  return sum;
}

// Checks one document, or tells of what is none.
class Checker {
 public:
  Checker(const Reading& reading, const Checks& checks, Tally& tally)
      : m_Reading(reading), m_Checks(checks), m_Tally(tally) {}

  void CheckDocument(const Document& document) {
    if (!document.IsDocument()) return TellPassed(document);
    CheckResult result;
    result.name = document.name;
    std::vector<ztxml::Loss> losses;
    Reading reading = m_Reading;
    if (m_Checks.losses || m_Checks.strict) reading.losses = &losses;
    reading.keepsSource = m_Checks.strict;
    Tree tree;
    Failure failure;
    if (ReadTree(document, reading, tree, failure)) {
      result.schema = tree.schema->name;
      if (m_Checks.losses) NoteLosses(document, losses, result);
      if (m_Checks.strict) FindFaults(document, tree, losses, result);
      if (!m_Reading.isStandard) {
        JudgeText(document, *tree.schema, result.faults, result.remark);
      }
    } else {
      Refuse(failure, result);
    }
    Tell(result, &document);
  }
  void RefuseFile(const std::string& path, const Failure& failure) {
    CheckResult result;
    result.name = NameOfInput(path);
    Refuse(failure, result);
    Tell(result, nullptr);
  }

 private:
  // Tells of what is no document.
  void TellPassed(const Document& document) {
    const bool isSkipped = document.kind == Document::Kind::kSkipped;
    if (isSkipped && m_Reading.skipping == Skipping::kRefused) {
      CheckResult result;
      result.name = document.name;
      Refuse({"capture", document.fault.what, document.fault.at}, result);
      return Tell(result, nullptr);
    }
    m_Tally.skipped += isSkipped;
    if (m_Checks.quiet) return;
    if (m_Checks.json) {
      JsonObject line;
      line.Text("file", document.name).Text("status", isSkipped ? "skipped" : "noted");
      Out() << line.Text("remark", document.fault.what).Done() << '\n';
    } else {
      Out() << Describe(document.name, document.fault) << '\n';
    }
  }
  void NoteLosses(const Document& document, const std::vector<ztxml::Loss>& losses,
                  CheckResult& result) {
    m_Tally.lossy += !losses.empty();
    for (const ztxml::Loss& loss : losses) {
      result.losses.push_back({loss, document.At(loss.line, loss.column)});
    }
  }
  // Values that are none of their types, and what is missing.
  static void FindFaults(const Document& document, const Tree& tree,
                         const std::vector<ztxml::Loss>& losses, CheckResult& result) {
    std::vector<Failure>& faults = result.faults;
    for (const ztxml::Loss& loss : losses) {
      if (loss.kind != ZT_LOST_VALUE) continue;
      faults.push_back({"value", Escape(loss.path) + " has a value that is none of its type",
                        document.At(loss.line, loss.column)});
    }
    FindMissing(document, tree, losses, faults);
    const auto isBefore = [](const Failure& one, const Failure& other) {
      return one.at < other.at;
    };
    std::stable_sort(faults.begin(), faults.end(), isBefore);
  }
  static void Refuse(const Failure& failure, CheckResult& result) {
    result.isRefused = true;
    result.faults = {failure};
  }

  // `document` is null for a file without one.
  void Tell(const CheckResult& result, const Document* document) {
    m_Tally.refused += result.isRefused;
    m_Tally.faulty += !result.isRefused && !result.faults.empty();
    m_Tally.sound += result.IsOk();
    if (!m_Checks.junit.empty()) m_Tally.report.Add(result);
    if (result.IsOk() && m_Checks.quiet) return;
    if (m_Checks.json) {
      Out() << JsonOf(result) << '\n';
    } else {
      Print(result, document);
    }
  }
  static void Print(const CheckResult& result, const Document* document) {
    const std::string name = Escape(result.name);
    for (const CheckResult::Lost& lost : result.losses) {
      Out() << name << ':' << ToString(lost.at) << ": " << Escape(lost.loss.path) << ": "
            << Coloured(NameOf(lost.loss.kind), Colour::kYellow, Out()) << '\n';
    }
    for (const Failure& fault : result.faults) {
      Out() << Coloured(Describe(result.name, fault), Colour::kRed, Out()) << '\n';
    }
    // Of many faults the lines are too many.
    if (document && result.faults.size() == 1) {
      Out() << Excerpt(*document, result.faults[0].at, Out());
    }
    if (!result.IsOk()) return;
    Out() << name << ": " << Coloured("ok", Colour::kGreen, Out()) << ", " << result.schema;
    if (!result.remark.empty()) Out() << " (" << result.remark << ')';
    Out() << '\n';
  }

  const Reading& m_Reading;
  const Checks& m_Checks;
  Tally& m_Tally;
};

Tally CheckFile(const std::string& path, const Reading& reading, const Checks& checks) {
  std::vector<Document> documents;
  Failure failure;
  const bool opened =
      ReadDocuments(path, reading.isStandard, documents, failure, Skipping::kListed);
  std::vector<Tally> tallies(documents.size() + 1);
  ForDocuments(documents, [&](std::size_t i) {
    Checker(reading, checks, tallies[i]).CheckDocument(documents[i]);
    return kDone;
  });
  if (!opened) Checker(reading, checks, tallies.back()).RefuseFile(path, failure);
  return SumOf(tallies);
}

int Summarize(const Tally& tally, const Checks& checks) {
  const bool allSound = !tally.refused && !tally.faulty && !tally.lossy;
  if (!checks.json && (!checks.quiet || !allSound)) {
    Out() << "documents: " << tally.sound << " ok, " << tally.refused << " refused, "
          << tally.faulty << " faulty";
    if (checks.losses) Out() << ", " << tally.lossy << " with losses";
    if (tally.skipped) Out() << "; messages without one: " << tally.skipped;
    Out() << '\n';
  }
  const int status = allSound ? kDone : kCannotRead;
  if (checks.junit.empty() || tally.report.Write(checks.junit)) return status;
  Complain(checks.junit, "cannot be written");
  return kOutputFailed;
}

}  // namespace

int Check(const std::vector<std::string>& paths, const Reading& reading, const Checks& checks) {
  std::vector<Tally> tallies(paths.size());
  ForFiles(paths, [&](std::size_t i) {
    tallies[i] = CheckFile(paths[i], reading, checks);
    return kDone;
  });
  return Summarize(SumOf(tallies), checks);
}
