// ztxml check: reads many documents and tells which are refused.
#include <chrono>
#include <iostream>
#include <string>
#include <unistd.h>

#include "Commands.h"
#include "Read.h"
#include "Text.h"

namespace {

// A bar on standard error, on a terminal only, once the work takes long.
class ProgressBar {
 public:
  /// `lines` tells whether standard output has a line for each file: on a terminal it is progress
  /// enough.
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
    if (!m_bQuiet || m_iRefused) {
      std::cout << "documents: " << m_iRead << " ok, " << m_iRefused << " refused\n";
    }
    return m_iRefused ? kCannotRead : kDone;
  }

 private:
  void CheckDocument(const Document& document) {
    Tree tree;
    Failure failure;
    if (!ReadTree(document, m_pSchema, tree, failure)) return Refuse(document.name, failure);
    ++m_iRead;
    if (!m_bQuiet) std::cout << Escape(document.name) << ": ok, " << tree.schema->name << '\n';
  }
  void Refuse(const std::string& name, const Failure& failure) {
    ++m_iRefused;
    m_Progress.Clear();
    std::cout << Describe(name, failure) << '\n';
  }

  const XMLSchemaInfo* m_pSchema;
  bool m_bQuiet;
  ProgressBar m_Progress;
  std::size_t m_iFiles = 0;
  std::size_t m_iRead = 0;
  std::size_t m_iRefused = 0;
};

}  // namespace

int Check(const std::vector<std::string>& paths, const XMLSchemaInfo* schema, bool quiet) {
  Checker checker(paths.size(), schema, quiet);
  for (const std::string& path : paths) checker.CheckFile(path);
  return checker.Summary();
}
