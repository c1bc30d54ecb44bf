// What several tests need to observe the library.
#ifndef ZTXML_TESTS_TESTSUPPORT_H
#define ZTXML_TESTS_TESTSUPPORT_H

#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <mutex>
#include <string>
#include <vector>

#include "ztxml/ztHostPlatform.h"

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

/// What `part` gives for "0", "1", ..., one after another.
template <class Part>
std::string Repeated(std::size_t count, const Part& part) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += part(std::to_string(i));
  return text;
}

/// A text in UTF-16, without a byte order mark.
inline std::string Wide(const std::u16string& text, bool isBig) {
  std::string bytes;
  for (const char16_t unit : text) {
    const auto low = static_cast<char>(unit);
    const auto high = static_cast<char>(unit >> 8);
    bytes += isBig ? high : low;
    bytes += isBig ? low : high;
  }
  return bytes;
}

/// The beginning of a text that is too long to be shown.
inline std::string Shortened(const std::string& text) {
  return text.size() <= 80 ? text : text.substr(0, 80) + "...";
}

/// Whether two texts are equal; if not, shows the first difference with its surroundings, because
/// documents and logs are too long to be shown whole.
inline testing::AssertionResult SameText(const char* actualName, const char* expectedName,
                                         const std::string& actual, const std::string& expected) {
  if (actual == expected) return testing::AssertionSuccess();
  std::size_t at = 0;
  while (at < actual.size() && at < expected.size() && actual[at] == expected[at]) ++at;
  const std::size_t from = at < 40 ? 0 : at - 40;
  const auto around = [&](const std::string& text) {
    return testing::PrintToString(text.substr(from < text.size() ? from : text.size(), 80)) +
           " of " + std::to_string(text.size()) + " bytes";
  };
  return testing::AssertionFailure()
         << Shortened(actualName) << " differs from " << Shortened(expectedName) << " at byte "
         << at << ", line "
         << 1 + std::count(actual.begin(), actual.begin() + static_cast<std::ptrdiff_t>(at), '\n')
         << ":\n  " << around(actual) << "\n  where expected\n  " << around(expected);
}

/// Whether two lists of lines are equal; if not, shows the first line that differs or is missing.
inline testing::AssertionResult SameText(const char* actualName, const char* expectedName,
                                         const std::vector<std::string>& actual,
                                         const std::vector<std::string>& expected) {
  if (actual == expected) return testing::AssertionSuccess();
  std::size_t at = 0;
  while (at < actual.size() && at < expected.size() && actual[at] == expected[at]) ++at;
  const auto line = [&](const std::vector<std::string>& lines) {
    return at < lines.size() ? lines[at] : "(no more)";
  };
  return testing::AssertionFailure()
         << "at [" << at << "] of " << actual.size() << " lines, where " << expected.size()
         << " are expected: "
         << SameText(actualName, expectedName, line(actual), line(expected)).message();
}
#define EXPECT_SAME(actual, expected) EXPECT_PRED_FORMAT2(SameText, actual, expected)
#define ASSERT_SAME(actual, expected) ASSERT_PRED_FORMAT2(SameText, actual, expected)

/// Runs `attempt` with allocation 1, 2, 3 ... failing, alone and with all later ones, until a run
/// makes no more. Each run must tell what it tells with memory, or "(null)"; with none at all,
/// "(null)".
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
      SCOPED_TRACE(n);
      const bool nothing = reached && told == "(null)";
      EXPECT_SAME(nothing ? whole : told, whole);
      EXPECT_TRUE(n > 1 || !after || told == "(null)");
      if (testing::Test::HasFailure()) return;  // later runs would repeat the failure
    }
  }
}

#endif  // ZTXML_TESTS_TESTSUPPORT_H
