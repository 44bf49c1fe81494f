#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <ostream>
#include <string>
#include <thread>

namespace App {

/// How far the work has come.
struct ProgressState {
  std::int64_t bytes_done = 0;
  std::int64_t bytes_total = 0;
  std::size_t files_done = 0;
  std::size_t files_total = 1;
  std::chrono::duration<double> elapsed{};
};

/// A bar, the share done, the rate and the time left, and for several files their number, in at most `width`
/// columns.
[[nodiscard]] std::string ProgressLine(const ProgressState& state, std::size_t width);

/// Shows the progress of a run on a stream. The threads that work only add up numbers; a thread of its own
/// draws.
class Progress {
 public:
  enum class Display {
    kNone,
    kBar,    ///< drawn over and over in one line of a terminal, and wiped at the end
    kLines,  ///< a line now and then, for logs
  };

  Progress(std::ostream& out, Display display, std::int64_t bytes_total, std::size_t files_total);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  void AddBytes(std::int64_t bytes) noexcept { bytes_done_.fetch_add(bytes, std::memory_order_relaxed); }
  void AddFile() noexcept { files_done_.fetch_add(1, std::memory_order_relaxed); }

 private:
  void Run(const std::stop_token& stop);
  [[nodiscard]] ProgressState GetState() const;
  void Draw();

  std::ostream& out_;
  Display display_;
  std::int64_t bytes_total_;
  std::size_t files_total_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::atomic<std::int64_t> bytes_done_ = 0;
  std::atomic<std::size_t> files_done_ = 0;
  std::size_t drawn_ = 0;  // columns that hold the last line
  std::mutex mutex_;
  std::condition_variable_any wake_;
  std::jthread thread_;
};

/// The share of one file in the progress of a run. A file that was not finished counts as done, too.
class FileProgress {
 public:
  /// The file is read `passes` times.
  FileProgress(Progress& progress, std::int64_t bytes, int passes = 1) noexcept
      : progress_(progress), bytes_(bytes), passes_(passes) {}
  FileProgress(const FileProgress&) = delete;
  FileProgress& operator=(const FileProgress&) = delete;
  ~FileProgress();

  void SetPasses(int passes) noexcept { passes_ = passes; }
  /// `current` of `total` bytes have been read in this pass, counted from 0.
  void Set(int pass, std::int64_t current, std::int64_t total) noexcept;

 private:
  Progress& progress_;
  std::int64_t bytes_;
  std::int64_t done_ = 0;
  int passes_;
};

}  // namespace App
