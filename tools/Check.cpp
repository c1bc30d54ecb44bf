// ztxml check: reads many documents and tells which are refused or faulty.
#include <algorithm>
#include <chrono>
#include <iostream>
#include <string>
#include <unistd.h>

#include "Colour.h"
#include "Commands.h"
#include "Json.h"
#include "Judge.h"
#include "Junit.h"
#include "Read.h"
#include "Strict.h"
#include "Text.h"

namespace {

// A bar on standard error, on a terminal only, once the work takes long.
class ProgressBar {
 public:
  /// `lines` tells whether standard output gets a line for each file, which on a terminal is
  /// progress enough.
  ProgressBar(std::size_t total, bool lines)
      : m_iTotal(total),
        m_bShown(total > 1 && isatty(STDERR_FILENO) && !(lines && isatty(STDOUT_FILENO))) {}
  ~ProgressBar() { Clear(); }
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  /// `done` files have been dealt with.
  void Update(std::size_t done) {
    const auto now = Clock::now();
    if (!m_bShown || now < m_Next) return;
    m_Next = now + std::chrono::milliseconds(100);
    const std::size_t filled = done * kWidth / m_iTotal;
    const std::string line = '[' + std::string(filled, '=') + std::string(kWidth - filled, ' ') +
                             "] " + std::to_string(done) + " of " + std::to_string(m_iTotal);
    std::cout.flush();
    std::cerr << '\r' << line << std::flush;
    m_iDrawn = line.size();
  }
  /// Takes the bar off the terminal, before something else is printed.
  void Clear() {
    if (m_iDrawn) std::cerr << '\r' << std::string(m_iDrawn, ' ') << '\r' << std::flush;
    m_iDrawn = 0;
  }

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr std::size_t kWidth = 40;

  std::size_t m_iTotal;
  bool m_bShown;
  Clock::time_point m_Next = Clock::now() + std::chrono::seconds(1);
  std::size_t m_iDrawn = 0;  // characters of the bar that stands on the terminal
};

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

class Checker {
 public:
  Checker(std::size_t files, const Reading& reading, const Checks& checks)
      : m_Reading(reading), m_Checks(checks), m_Progress(files, !checks.quiet) {}

  void CheckFile(const std::string& path) {
    m_Progress.Update(m_iFiles++);
    std::vector<Document> documents;
    Failure failure;
    const bool opened =
        ReadDocuments(path, m_Reading.isStandard, documents, failure, Skipping::kListed);
    for (const Document& document : documents) CheckDocument(document);
    if (opened) return;
    CheckResult result;
    result.name = NameOfInput(path);
    Refuse(failure, result);
    Tell(result, nullptr);
  }
  int Summary() {
    m_Progress.Clear();
    const bool allSound = !m_iRefused && !m_iFaulty && !m_iLossy;
    if (!m_Checks.json && (!m_Checks.quiet || !allSound)) {
      std::cout << "documents: " << m_iSound << " ok, " << m_iRefused << " refused, " << m_iFaulty
                << " faulty";
      if (m_Checks.losses) std::cout << ", " << m_iLossy << " with losses";
      if (m_iSkipped) std::cout << "; messages without one: " << m_iSkipped;
      std::cout << '\n';
    }
    const int status = allSound ? kDone : kCannotRead;
    if (m_Checks.junit.empty() || m_Report.Write(m_Checks.junit)) return status;
    Complain(m_Checks.junit, "cannot be written");
    return kOutputFailed;
  }

 private:
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
  // Tells of what is no document.
  void TellPassed(const Document& document) {
    const bool isSkipped = document.kind == Document::Kind::kSkipped;
    if (isSkipped && m_Reading.skipping == Skipping::kRefused) {
      CheckResult result;
      result.name = document.name;
      Refuse({"capture", document.fault.what, document.fault.at}, result);
      return Tell(result, nullptr);
    }
    m_iSkipped += isSkipped;
    if (m_Checks.quiet) return;
    m_Progress.Clear();
    if (m_Checks.json) {
      JsonObject line;
      line.Text("file", document.name).Text("status", isSkipped ? "skipped" : "noted");
      std::cout << line.Text("remark", document.fault.what).Done() << '\n';
    } else {
      std::cout << Describe(document.name, document.fault) << '\n';
    }
  }
  void NoteLosses(const Document& document, const std::vector<ztxml::Loss>& losses,
                  CheckResult& result) {
    m_iLossy += !losses.empty();
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
    m_iRefused += result.isRefused;
    m_iFaulty += !result.isRefused && !result.faults.empty();
    m_iSound += result.IsOk();
    if (!m_Checks.junit.empty()) m_Report.Add(result);
    if (result.IsOk() && m_Checks.quiet) return;
    m_Progress.Clear();
    if (m_Checks.json) {
      std::cout << JsonOf(result) << '\n';
    } else {
      Print(result, document);
    }
  }
  static void Print(const CheckResult& result, const Document* document) {
    const std::string name = Escape(result.name);
    for (const CheckResult::Lost& lost : result.losses) {
      std::cout << name << ':' << ToString(lost.at) << ": " << Escape(lost.loss.path) << ": "
                << Coloured(NameOf(lost.loss.kind), Colour::kYellow, std::cout) << '\n';
    }
    for (const Failure& fault : result.faults) {
      std::cout << Coloured(Describe(result.name, fault), Colour::kRed, std::cout) << '\n';
    }
    // Of many faults the lines are too many.
    if (document && result.faults.size() == 1) {
      std::cout << Excerpt(*document, result.faults[0].at, std::cout);
    }
    if (!result.IsOk()) return;
    std::cout << name << ": " << Coloured("ok", Colour::kGreen, std::cout) << ", " << result.schema;
    if (!result.remark.empty()) std::cout << " (" << result.remark << ')';
    std::cout << '\n';
  }

  const Reading m_Reading;
  const Checks m_Checks;
  ProgressBar m_Progress;
  JunitReport m_Report;
  std::size_t m_iFiles = 0;
  std::size_t m_iSound = 0;
  std::size_t m_iRefused = 0;
  std::size_t m_iFaulty = 0;  // read, but faulty as XML, or by its schema
  std::size_t m_iLossy = 0;
  std::size_t m_iSkipped = 0;  // messages without a document
};

}  // namespace

int Check(const std::vector<std::string>& paths, const Reading& reading, const Checks& checks) {
  Checker checker(paths.size(), reading, checks);
  for (const std::string& path : paths) checker.CheckFile(path);
  return checker.Summary();
}
