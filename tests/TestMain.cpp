// Runs the tests, each of them with a fresh host platform and a check for leaks afterwards.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "ztxml/ztHostPlatform.h"

namespace {

std::string Describe(const char* what, const std::vector<zthost::MemoryEntry>& entries) {
  constexpr std::size_t kMostShown = 4;
  std::string text;
  for (std::size_t i = 0; i < entries.size() && i < kMostShown; ++i) {
    const zthost::MemoryEntry& entry = entries[i];
    text += std::string(what) + ": tag " + std::to_string(entry.tag) + ", " + entry.sourceFile +
            ":" + std::to_string(entry.line) + ", " + std::to_string(entry.size) + " bytes\n";
  }
  if (entries.size() > kMostShown) text += "... " + std::to_string(entries.size()) + " in all\n";
  return text;
}

// Fails a test that leaves the memory log unbalanced.
class MemoryBalance : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo& /*info*/) override {
    zthost::FailAllocation(0);
    zthost::SetLogSink(nullptr);
    zthost::EnableMemoryLog(true);
  }

  void OnTestEnd(const testing::TestInfo& /*info*/) override {
    zthost::FailAllocation(0);
    zthost::SetLogSink(nullptr);
    const zthost::MemoryReport report = zthost::GetMemoryReport();
    zthost::EnableMemoryLog(false);
    const std::string faults = Describe("leak", report.live) +
                               Describe("added twice", report.doubleAdds) +
                               Describe("bad remove", report.badRemoves);
    if (!faults.empty()) ADD_FAILURE() << "memory log out of balance\n" << faults;
  }
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new MemoryBalance);
  return RUN_ALL_TESTS();
}
