#include "app/convert/progress.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>

namespace App {
namespace {

ProgressState StateOf(std::int64_t done, std::int64_t total, double seconds) {
  ProgressState state;
  state.bytes_done = done;
  state.bytes_total = total;
  state.elapsed = std::chrono::duration<double>(seconds);
  return state;
}

TEST(ProgressTest, ALineTellsShareRateAndTimeLeft) {
  EXPECT_EQ(ProgressLine(StateOf(25'000'000, 100'000'000, 2.0), 80),
            "[######..................]  25%  12.5 MB/s  0:06 left");
  EXPECT_EQ(ProgressLine(StateOf(1'000'000, 101'000'000, 1.0), 80),
            "[........................]   0%  1.0 MB/s  1:40 left");
  EXPECT_EQ(ProgressLine(StateOf(1'000'000, 7'201'000'000, 1.0), 80),
            "[........................]   0%  1.0 MB/s  2:00:00 left");
}

TEST(ProgressTest, RatesWaitUntilTheyMeanSomething) {
  EXPECT_EQ(ProgressLine(StateOf(50, 100, 0.1), 80), "[############............]  50%");
  EXPECT_EQ(ProgressLine(StateOf(0, 100, 9.0), 80), "[........................]   0%");
}

TEST(ProgressTest, SeveralFilesAreCounted) {
  ProgressState state = StateOf(100, 100, 0.0);
  state.files_done = 3;
  state.files_total = 10;
  EXPECT_EQ(ProgressLine(state, 80), "[########################] 100%  3 of 10 files");
}

TEST(ProgressTest, NothingToReadIsAllDone) {
  EXPECT_EQ(ProgressLine(StateOf(0, 0, 0.0), 80), "[########################] 100%");
}

TEST(ProgressTest, MoreThanAllIsAll) {
  EXPECT_EQ(ProgressLine(StateOf(200, 100, 0.0), 80), "[########################] 100%");
}

TEST(ProgressTest, ALineKeepsToTheTerminalsWidth) {
  EXPECT_EQ(ProgressLine(StateOf(50, 100, 2.0), 10), "[#########");
}

TEST(ProgressTest, WithoutADisplayNothingIsPrinted) {
  std::ostringstream out;
  { Progress progress(out, Progress::Display::kNone, 100, 1); }
  EXPECT_EQ(out.str(), "");
}

TEST(ProgressTest, TheBarIsShownAtOnceAndWipedAtTheEnd) {
  std::ostringstream out;
  { const Progress progress(out, Progress::Display::kBar, 100, 1); }
  const std::string line = "[........................]   0%";
  EXPECT_EQ(out.str(), '\r' + line + '\r' + std::string(line.size(), ' ') + '\r');
}

TEST(ProgressTest, LogsEndWithTheLastLine) {
  std::ostringstream out;
  {
    Progress progress(out, Progress::Display::kLines, 100, 2);
    progress.AddBytes(100);
    progress.AddFile();
  }
  EXPECT_EQ(out.str(), "[########################] 100%  1 of 2 files\n");
}

TEST(ProgressTest, FilesAddUpOverTheirPassesAndCountWhenTheyFail) {
  std::ostringstream out;
  {
    Progress progress(out, Progress::Display::kLines, 400, 2);
    {
      FileProgress file(progress, 200, 2);
      file.Set(0, 5, 10);  // 50 of 200
      file.Set(1, 0, 10);  // 100 of 200
      file.Set(1, 0, 0);   // tells nothing
      file.Set(0, 9, 10);  // never goes back
      EXPECT_EQ(out.str(), "");
    }
    { const FileProgress failed(progress, 100); }
  }
  EXPECT_EQ(out.str(), "[##################......]  75%  2 of 2 files\n");
}

}  // namespace
}  // namespace App
