#include "Progress.h"

#include <algorithm>
#include <iostream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string BarOf(std::size_t done, std::size_t total) {
  constexpr std::size_t kWidth = 40;
  const std::size_t filled = done >= total ? kWidth : done * kWidth / total;
  return '[' + std::string(filled, '=') + std::string(kWidth - filled, ' ') + "] ";
}

std::string CountOf(std::size_t done, std::size_t total, const char* what) {
  return std::to_string(std::min(done, total)) + " of " + std::to_string(total) + what;
}

bool GoesToProgram() {
  struct stat status = {};
  return fstat(STDOUT_FILENO, &status) == 0 &&
         (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode));
}

}  // namespace

Progress& Progress::Get() {
  static Progress progress;
  return progress;
}

bool Progress::IsShown() const {
  static const bool isPossible = isatty(STDERR_FILENO) && !GoesToProgram();
  return m_bWanted && isPossible;
}

void Progress::Update() {
  const Clock::time_point now = Clock::now();
  if (!IsShown() || now < m_Next) return;
  m_Next = now + std::chrono::milliseconds(100);
  const std::size_t files = m_iFiles;
  const std::size_t documents = m_iDocuments;
  std::string line;
  if (files > 1) {
    line = BarOf(m_iFilesDone, files) + CountOf(m_iFilesDone, files, " files");
  } else if (documents > 1) {
    line = BarOf(m_iDocumentsDone, documents) + CountOf(m_iDocumentsDone, documents, " documents");
  } else {
    const auto passed = std::chrono::duration_cast<std::chrono::seconds>(now - m_Begin);
    line = "at work for " + std::to_string(passed.count()) + " s";
  }
  const std::size_t over = m_iDrawn > line.size() ? m_iDrawn - line.size() : 0;
  m_iDrawn = line.size();
  std::cout.flush();
  std::cerr << '\r' << line << std::string(over, ' ') << std::string(over, '\b') << std::flush;
}

void Progress::Clear(bool printing) {
  if (m_iDrawn) std::cerr << '\r' << std::string(m_iDrawn, ' ') << '\r' << std::flush;
  m_iDrawn = 0;
  // On a terminal what is printed is progress enough.
  static const bool isTerminal = isatty(STDOUT_FILENO);
  if (printing && isTerminal) m_Next = Clock::now() + std::chrono::seconds(1);
}
