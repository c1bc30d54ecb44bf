// How far the work is, on standard error.
#ifndef ZTXML_TOOLS_PROGRESS_H
#define ZTXML_TOOLS_PROGRESS_H

#include <atomic>
#include <chrono>
#include <cstddef>

/// A line on a terminal, once the work has taken a second, that goes when something is printed or
/// the work is done. There is none where standard output goes to a program, which may have the
/// terminal for itself.
class Progress {
 public:
  /// The one of the process.
  static Progress& Get();

  /// To be called before the others, if no progress is wanted.
  void Hide() { m_bWanted = false; }
  /// Whether it may come.
  bool IsShown() const;

  // Any thread may call these.
  void AddFiles(std::size_t count) { m_iFiles += count; }
  void AddDocuments(std::size_t count) { m_iDocuments += count; }
  void FileIsDone() { ++m_iFilesDone; }
  void DocumentIsDone() { ++m_iDocumentsDone; }

  // One thread may call these, which prints everything.
  /// Draws the line if it is time.
  void Update();
  /// Takes the line off the terminal. `printing` tells whether something is going to be printed.
  void Clear(bool printing);

 private:
  using Clock = std::chrono::steady_clock;

  Progress() = default;

  bool m_bWanted = true;
  std::atomic<std::size_t> m_iFiles = 0;
  std::atomic<std::size_t> m_iFilesDone = 0;
  std::atomic<std::size_t> m_iDocuments = 0;
  std::atomic<std::size_t> m_iDocumentsDone = 0;
  Clock::time_point m_Begin = Clock::now();
  Clock::time_point m_Next = m_Begin + std::chrono::seconds(1);
  std::size_t m_iDrawn = 0;  // characters of the line that stands on the terminal
};

#endif  // ZTXML_TOOLS_PROGRESS_H
