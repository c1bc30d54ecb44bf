// ztxml check: reads many documents and tells which are refused or faulty.
#include <chrono>
#include <iostream>
#include <string>
#include <unistd.h>

#include "Commands.h"
#include "Judge.h"
#include "Read.h"
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

class Checker {
 public:
  Checker(std::size_t files, const XMLSchemaInfo* schema, bool quiet)
      : m_pSchema(schema), m_bQuiet(quiet), m_Progress(files, !quiet) {}

  void CheckFile(const std::string& path) {
    m_Progress.Update(m_iFiles++);
    std::vector<Document> documents;
    Failure failure;
    const bool opened = ReadDocuments(path, documents, failure);
    for (const Document& document : documents) CheckDocument(document);
    if (!opened) Refuse(NameOfInput(path), failure);
  }
  int Summary() {
    m_Progress.Clear();
    if (!m_bQuiet || m_iRefused || m_iFaulty) {
      std::cout << "documents: " << m_iSound << " ok, " << m_iRefused << " refused, " << m_iFaulty
                << " faulty\n";
    }
    return m_iRefused || m_iFaulty ? kCannotRead : kDone;
  }

 private:
  void CheckDocument(const Document& document) {
    Tree tree;
    Failure failure;
    const bool read = ReadTree(document, m_pSchema, tree, failure);
    if (!read) Refuse(document.name, failure);
    const Verdict verdict = Judge(document, read ? ScopeAround(*tree.schema) : Scope());
    Failure fault;
    if (!FindFault(document, verdict, fault)) {
      if (read) Accept(document, *tree.schema, verdict);
    } else if (read || !(fault.at == failure.at)) {
      m_iFaulty += read;
      Print(document.name, fault);
    }
  }
  void Accept(const Document& document, const XMLSchemaInfo& schema, const Verdict& verdict) {
    ++m_iSound;
    if (m_bQuiet) return;
    std::cout << Escape(document.name) << ": ok, " << schema.name;
    if (!verdict.oddRoot.empty()) std::cout << " (" << OddRoot(verdict.oddRoot) << ')';
    if (const Fault unbound = Judge(document).unbound) {
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

  const XMLSchemaInfo* m_pSchema;
  bool m_bQuiet;
  ProgressBar m_Progress;
  std::size_t m_iFiles = 0;
  std::size_t m_iSound = 0;
  std::size_t m_iRefused = 0;
  std::size_t m_iFaulty = 0;  // read, but faulty as XML
};

}  // namespace

int Check(const std::vector<std::string>& paths, const XMLSchemaInfo* schema, bool quiet) {
  Checker checker(paths.size(), schema, quiet);
  for (const std::string& path : paths) checker.CheckFile(path);
  return checker.Summary();
}
