#include "app/convert/jobs.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <latch>
#include <numeric>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace App {
namespace {

TEST(JobsTest, EveryJobRunsOnce) {
  for (const unsigned threads : {0U, 1U, 2U, 7U}) {
    std::array<std::atomic<int>, 100> runs = {};
    RunJobs(runs.size(), threads, [&runs](std::size_t i) { ++runs[i]; });
    for (const auto& run : runs) EXPECT_EQ(run, 1) << threads;
  }
}

TEST(JobsTest, OneThreadRunsTheJobsInOrderOnTheCallersOwn) {
  std::vector<std::size_t> order;
  const std::thread::id own = std::this_thread::get_id();
  RunJobs(5, 1, [&](std::size_t i) {
    EXPECT_EQ(std::this_thread::get_id(), own);
    order.push_back(i);
  });
  EXPECT_EQ(order, (std::vector<std::size_t>{0, 1, 2, 3, 4}));
}

// Each job waits until both have begun: with one thread this would hang.
TEST(JobsTest, TwoThreadsRunTwoJobsAtOnce) {
  std::latch both(2);
  RunJobs(2, 2, [&both](std::size_t) { both.arrive_and_wait(); });
}

TEST(JobsTest, NoJobsNeedNoThreads) {
  RunJobs(0, 4, [](std::size_t) { FAIL(); });
}

TEST(JobsTest, AnExceptionStopsTheRestAndReachesTheCaller) {
  for (const unsigned threads : {1U, 3U}) {
    std::atomic<int> runs = 0;
    try {
      RunJobs(1000, threads, [&runs](std::size_t i) {
        ++runs;
        if (i == 2) throw std::runtime_error("two");
        if (i > 2) std::this_thread::yield();
      });
      FAIL() << threads;
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(error.what(), std::string("two"));
    }
    EXPECT_LT(runs, 1000) << threads;
  }
}

TEST(JobsTest, ThereIsAtLeastOneCore) {
  EXPECT_GE(AllCores(), 1U);
}

}  // namespace
}  // namespace App
