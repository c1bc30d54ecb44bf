#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "TestSupport.h"
#include "ztxml/ztHostPlatform.h"

namespace {

TEST(HostFiles, ClosingWhatIsNotOpenLeavesStandardInputOpen) {
  const std::string path = testing::TempDir() + "ztxml_host_test";
  ztDplIODevice device = {};
  const int input = open("/dev/null", O_RDONLY);
  ASSERT_EQ(dup2(input, 0), 0);
  EXPECT_EQ(ztDplIODeviceClose(&device), 0);
  EXPECT_EQ(ztDplIODeviceOpen(&device, path.c_str(), 2, 0), EINVAL);
  ASSERT_EQ(ztDplIODeviceOpen(&device, path.c_str(), 4, 0), 0);
  EXPECT_EQ(device.pSpecificInfo, &device.info);
  EXPECT_EQ(ztDplIODeviceClose(&device), 0);
  EXPECT_EQ(ztDplIODeviceClose(&device), 0);
  EXPECT_EQ(device.pSpecificInfo, nullptr);
  EXPECT_NE(fcntl(0, F_GETFD), -1);
  close(input);
  std::remove(path.c_str());
}

TEST(HostLog, FormatsItsConversions) {
  const auto logged = [](const char* format, ztLogArgument a, ztLogArgument b = 0,
                         ztLogArgument c = 0) {
    const LogCapture log;
    ztLogModuleEventSimple(2, 6000, "f.cpp", 7, format, a, b, c);
    return log.Texts().empty() ? "no line" : log.Texts().front();
  };
  const std::string lengthy(5000, 'x');
  const auto text = reinterpret_cast<ztLogArgument>(lengthy.c_str());
  const auto minusOne = static_cast<ztLogArgument>(-1);
  EXPECT_EQ(logged("%d %u %x", minusOne, minusOne, minusOne), "-1 4294967295 ffffffff");
  EXPECT_EQ(logged("%ld %llu %zu", minusOne, minusOne, 3),
            "-1 " + std::to_string(UINTPTR_MAX) + " 3");
  EXPECT_SAME(logged("[%s] %c%% %i", text, 'z', 5), "[" + lengthy + "] z% 5");
  EXPECT_EQ(logged("%s %p %y 100%", 0, 0xAB), "(null) 0xab %y 100%");
  EXPECT_EQ(logged("%d%d%d%d%l", 1, 2, 3), "123%d%l");
}

TEST(HostLog, SinkSeesItsLevelsAndNothingIsFormattedWithoutOne) {
  const LogCapture log(3);
  for (int level = 1; level <= 4; ++level) ztLogModuleEventSimple(level, 1, "f", 7, "x", 0, 0, 0);
  EXPECT_EQ(log.Count("x"), 2);
  zthost::SetLogSink(nullptr);
  ztLogModuleEventSimple(4, 1, "f", 7, "%s", 1, 0,
                         0);  // 1 is no text: formatting would crash
}

TEST(HostMemoryLog, TellsLeaksDoubleAddsAndBadRemoves) {
  int a = 0, b = 0;
  wdmemlog_add(1, "a.cpp", 10, &a, 100);
  wdmemlog_add(2, "b.cpp", 20, &b, 30);
  wdmemlog_add(2, "b.cpp", 21, &b, 40);
  zthost::MemoryReport report = zthost::GetMemoryReport();
  EXPECT_EQ(report.liveBytes, 140u);
  EXPECT_EQ(report.doubleAdds.size(), 1u);
  wdmemlog_remove(2, &a);  // another tag
  wdmemlog_remove(2, &b);
  wdmemlog_remove(2, &b);  // a second time
  report = zthost::GetMemoryReport();
  zthost::ResetMemoryLog();
  EXPECT_EQ(report.live.size() + report.liveBytes, 0u);
  EXPECT_EQ(report.badRemoves.size(), 2u);
}

TEST(HostAllocation, FailsTheNthOnceOrFromThenOn) {
  using Made = std::vector<bool>;  // whether each allocation was made
  const auto allocate = [] {
    Made made;
    for (void* block : {__malloc(1), __calloc(1, 1), static_cast<void*>(__strdup("s"))}) {
      made.push_back(block != nullptr);
      __free(block);
    }
    return made;
  };
  zthost::FailAllocation(2);
  EXPECT_EQ(allocate(), (Made{true, false, true}));
  zthost::FailAllocation(2, true);
  EXPECT_EQ(allocate(), (Made{true, false, false}));
  zthost::CountAllocations();
  EXPECT_EQ(allocate(), (Made{true, true, true}));
  EXPECT_EQ(zthost::AllocationCount(), 3);
}

TEST(HostMemory, KnowsTheMostThatWasAlive) {
  zthost::CountAllocations();
  void* first = __malloc(1000);
  __free(__calloc(3, 1000));
  void* second = __malloc(1000);
  const zthost::HeapUse use = zthost::GetHeapUse();
  EXPECT_EQ(use.allocations, 3);
  EXPECT_GE(use.liveBytes, 2000);
  EXPECT_LT(use.liveBytes, 3000);
  EXPECT_GE(use.peakBytes, 4000);
  EXPECT_LT(use.peakBytes, 5000);
  __free(first);
  __free(second);
  EXPECT_EQ(zthost::GetHeapUse().liveBytes, 0);
  zthost::FailAllocation(0);
}

TEST(HostText, StaysWithinItsBuffers) {
  char to[6] = "#####";
  EXPECT_STREQ(__strlncpy(to, 4, "abcdef", 6), "abc");
  EXPECT_STREQ(__strlncpy(to, 6, "abcdef", 2), "ab");
  EXPECT_EQ(__strlcat(to, "cdef", 5), 6u);
  EXPECT_EQ(__strlcat(to, "xy", 3), 5u);  // no NUL within the capacity: nothing is written
  EXPECT_STREQ(to, "abcd");
  char number[67];
  number[66] = '#';
  EXPECT_EQ(std::string(__itoaL(LONG_MIN, number, 2)),
            "-1" + std::string(sizeof(long) * CHAR_BIT - 1, '0'));
  EXPECT_EQ(number[66], '#');
  EXPECT_STREQ(__itoaL(-35, number, 36), "-z");
}

TEST(HostTextDeathTest, GuardedMoveEndsTheProcess) {
  char to[4] = "abc";
  EXPECT_STREQ(static_cast<char*>(__memmove(to, 4, to + 1, 3)), "bc");
  zthost::SetLogSink([](const zthost::LogLine& line, void*) {
    std::fprintf(stderr, "%d %d %s", line.level, line.moduleId, line.text);
  });
  EXPECT_EXIT(__memmove(to, 4, "12345", 5), testing::ExitedWithCode(1),
              "4 6052 ztDplMemsmove - src1_size buffer size less than src2_size size");
}

}  // namespace
