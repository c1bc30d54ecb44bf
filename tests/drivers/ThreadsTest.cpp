// Several threads, each with its own contexts for all documents, make and drop marshallers all the
// time. The thread sanitizer then shows that they share nothing unguarded.
#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "Samples.h"

namespace {

TEST(Threads, ContextsOfTheirOwnShareNothing) {
  const std::vector<Sample> samples = Samples();
  std::vector<std::string> expected;
  for (const Sample& sample : samples) {
    expected.push_back(BoundSchema(sample.id, sample.text).RoundTrip(sample.text));
  }
  constexpr int kThreads = 4;
  constexpr int kRounds = 10;
  std::vector<int> differences(kThreads, 0);
  std::vector<std::thread> threads;
  for (int thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&, thread] {
      for (std::size_t n = 0; n < kRounds * samples.size(); ++n) {
        const std::size_t i = (n + static_cast<std::size_t>(thread) * 7) % samples.size();
        BoundSchema schema(samples[i].id, samples[i].text);
        differences[static_cast<std::size_t>(thread)] +=
            schema.RoundTrip(samples[i].text) != expected[i];
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const int count : differences) EXPECT_EQ(count, 0);
}

}  // namespace
