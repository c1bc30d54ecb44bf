// What several tests need to observe the library.
#ifndef ZTXML_TESTS_TESTSUPPORT_H
#define ZTXML_TESTS_TESTSUPPORT_H

#include <cstddef>
#include <gtest/gtest.h>
#include <mutex>
#include <string>
#include <vector>

#include "ztHostPlatform.h"

/// One line of the module log.
struct CapturedLine {
  int level;
  int module;
  std::string file;
  int line;
  std::string text;
};

/// Collects the module log while it lives, from all threads. Only one may live at a time.
class LogCapture {
 public:
  explicit LogCapture(int minLevel = 1) { zthost::SetLogSink(&Collect, this, minLevel); }
  ~LogCapture() { zthost::SetLogSink(nullptr); }
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;

  /// Whether a line contains `text`.
  bool Has(const std::string& text) const { return Count(text) > 0; }

  /// How many lines contain `text`.
  int Count(const std::string& text) const {
    int count = 0;
    for (const CapturedLine& line : Lines()) count += line.text.find(text) != std::string::npos;
    return count;
  }

  /// The texts of level `minLevel` and above, in the order in which they were logged.
  std::vector<std::string> Texts(int minLevel = 1) const {
    std::vector<std::string> texts;
    for (const CapturedLine& line : Lines()) {
      if (line.level >= minLevel) texts.push_back(line.text);
    }
    return texts;
  }

  /// A copy of all lines so far.
  std::vector<CapturedLine> Lines() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return lines_;
  }

  /// Forgets the lines so far.
  void Clear() {
    const std::lock_guard<std::mutex> lock(mutex_);
    lines_.clear();
  }

 private:
  static void Collect(const zthost::LogLine& line, void* user) {
    auto* self = static_cast<LogCapture*>(user);
    const std::lock_guard<std::mutex> lock(self->mutex_);
    self->lines_.push_back({line.level, line.moduleId, line.sourceFile, line.line, line.text});
  }

  mutable std::mutex mutex_;
  std::vector<CapturedLine> lines_;
};

/// Fails allocation 1, 2, 3 ... of `attempt`, once and then from there on, until a run needs no
/// more. What each run tells is what it tells with memory or "(null)", nothing; without any memory
/// it is nothing.
template <class Attempt>
void ExpectWholeOrNothing(const Attempt& attempt) {
  const std::string whole = attempt();
  ASSERT_NE(whole, "(null)");
  for (const bool after : {false, true}) {
    for (long n = 1, reached = 1; reached; ++n) {
      zthost::FailAllocation(n, after);
      const std::string told = attempt();
      reached = zthost::AllocationCount() >= n;
      zthost::FailAllocation(0);
      EXPECT_TRUE(told == whole || (reached && told == "(null)")) << n << told;
      EXPECT_TRUE(n > 1 || !after || told == "(null)");
    }
  }
}

#endif  // ZTXML_TESTS_TESTSUPPORT_H
