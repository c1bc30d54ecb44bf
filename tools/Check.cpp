// ztxml check: reads many documents and tells which are refused or faulty.
#include <algorithm>
#include <chrono>
#include <iostream>
#include <string>
#include <unistd.h>

#include "Commands.h"
#include "Judge.h"
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

const char* NameOf(eZtLoss kind) {
  switch (kind) {
    case ZT_LOST_ELEMENT:
      return "element not kept";
    case ZT_LOST_ATTRIBUTE:
      return "attribute not kept";
    case ZT_LOST_TEXT:
      return "text not kept";
    case ZT_LOST_VALUE:
      return "value not kept: it is none of its type";
  }
  return "";
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
    if (!opened) Refuse(NameOfInput(path), failure);
  }
  int Summary() {
    m_Progress.Clear();
    const bool allSound = !m_iRefused && !m_iFaulty && !m_iLossy;
    if (!m_Checks.quiet || !allSound) {
      std::cout << "documents: " << m_iSound << " ok, " << m_iRefused << " refused, " << m_iFaulty
                << " faulty";
      if (m_Checks.losses) std::cout << ", " << m_iLossy << " with losses";
      if (m_iSkipped) std::cout << "; messages without one: " << m_iSkipped;
      std::cout << '\n';
    }
    return allSound ? kDone : kCannotRead;
  }

 private:
  void CheckDocument(const Document& document) {
    if (!document.IsDocument()) {
      Tell(document);
      return;
    }
    std::vector<ztxml::Loss> losses;
    Reading reading = m_Reading;
    if (m_Checks.losses || m_Checks.strict) reading.losses = &losses;
    reading.keepsSource = m_Checks.strict;
    Tree tree;
    Failure failure;
    const bool read = ReadTree(document, reading, tree, failure);
    if (!read) Refuse(document.name, failure);
    if (m_Checks.losses) Tell(document, losses);
    if (!read) return;
    Verdict verdict;
    bool isFaulty = m_Checks.strict && IsFaulty(document, tree, losses);
    if (!m_Reading.isStandard) {
      verdict = Judge(document, ScopeAround(*tree.schema));
      isFaulty = FindFault(document, verdict, failure);
      if (isFaulty) Print(document.name, failure);
    }
    if (isFaulty) {
      ++m_iFaulty;
    } else if (!m_Checks.losses || losses.empty()) {
      Accept(document, *tree.schema, verdict);
    }
  }
  // Tells of what is no document.
  void Tell(const Document& document) {
    const bool isSkipped = document.kind == Document::Kind::kSkipped;
    if (isSkipped && m_Reading.skipping == Skipping::kRefused) {
      Refuse(document.name, {"capture", document.fault.what, document.fault.at});
      return;
    }
    m_iSkipped += isSkipped;
    if (!m_Checks.quiet) Print(document.name, document.fault);
  }
  void Tell(const Document& document, const std::vector<ztxml::Loss>& losses) {
    m_iLossy += !losses.empty();
    for (const ztxml::Loss& loss : losses) {
      m_Progress.Clear();
      std::cout << Escape(document.name) << ':' << ToString(document.At(loss.line, loss.column))
                << ": " << Escape(loss.path) << ": " << NameOf(loss.kind) << '\n';
    }
  }
  // Tells values that are none of their types, and what is missing.
  bool IsFaulty(const Document& document, const Tree& tree,
                const std::vector<ztxml::Loss>& losses) {
    std::vector<Failure> faults;
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
    for (const Failure& fault : faults) Print(document.name, fault);
    return !faults.empty();
  }
  void Accept(const Document& document, const XMLSchemaInfo& schema, const Verdict& verdict) {
    ++m_iSound;
    if (m_Checks.quiet) return;
    std::cout << Escape(document.name) << ": ok, " << schema.name;
    if (!verdict.oddRoot.empty()) std::cout << " (" << OddRoot(verdict.oddRoot) << ')';
    const Fault unbound = m_Reading.isStandard ? Fault() : Judge(document).unbound;
    if (unbound) {
      std::cout << " (" << unbound.what << ": that is for the document around the service)";
    }
    std::cout << '\n';
  }
  void Refuse(const std::string& name, const Failure& failure) {
    ++m_iRefused;
    Print(name, failure);
  }
  void Print(const std::string& name, const Failure& failure) {
    m_Progress.Clear();
    std::cout << Describe(name, failure) << '\n';
  }

  const Reading m_Reading;
  const Checks m_Checks;
  ProgressBar m_Progress;
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
