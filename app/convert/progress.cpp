#include "app/convert/progress.h"

#include <algorithm>
#include <cmath>
#include <sys/ioctl.h>
#include <unistd.h>

namespace App {

namespace {

using std::chrono::milliseconds;

constexpr std::size_t kBarColumns = 24;
constexpr std::size_t kUsualWidth = 80;
constexpr auto kBarInterval = milliseconds(200);
constexpr auto kLineInterval = milliseconds(2000);
// Before this no rate can be told.
constexpr double kSettledSeconds = 0.5;

// At least two digits.
std::string Two(std::int64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string TimeLeft(double seconds) {
  const auto whole = static_cast<std::int64_t>(std::min(std::ceil(seconds), 359999.0));
  const std::int64_t minutes = whole / 60;
  std::string text =
      minutes < 60 ? std::to_string(minutes) : std::to_string(minutes / 60) + ':' + Two(minutes % 60);
  return text.append(":").append(Two(whole % 60)).append(" left");
}

std::string Megabytes(double bytes) {
  const auto tenths = static_cast<std::int64_t>(std::lround(bytes / 1e5));
  return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " MB";
}

std::size_t TerminalWidth() {
  winsize size = {};
  if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return kUsualWidth;
  return size.ws_col;
}

}  // namespace

std::string ProgressLine(const ProgressState& state, std::size_t width) {
  double share = 1.0;
  if (state.bytes_total > 0) {
    share = static_cast<double>(state.bytes_done) / static_cast<double>(state.bytes_total);
    share = std::clamp(share, 0.0, 1.0);
  }
  const auto filled = static_cast<std::size_t>(share * static_cast<double>(kBarColumns));
  std::string line = "[" + std::string(filled, '#') + std::string(kBarColumns - filled, '.') + "]";
  const std::string percent = std::to_string(static_cast<int>(share * 100.0));
  line += std::string(4 - percent.size(), ' ') + percent + '%';
  const double seconds = state.elapsed.count();
  if (seconds >= kSettledSeconds && state.bytes_done > 0) {
    const double rate = static_cast<double>(state.bytes_done) / seconds;
    const auto left = static_cast<double>(std::max<std::int64_t>(state.bytes_total - state.bytes_done, 0));
    line += "  " + Megabytes(rate) + "/s  " + TimeLeft(left / rate);
  }
  if (state.files_total > 1) {
    line += "  " + std::to_string(state.files_done) + " of " + std::to_string(state.files_total) + " files";
  }
  if (line.size() > width) line.resize(width);
  return line;
}

Progress::Progress(std::ostream& out, Display display, std::int64_t bytes_total, std::size_t files_total)
    : out_(out), display_(display), bytes_total_(bytes_total), files_total_(files_total) {
  if (display_ != Display::kNone) thread_ = std::jthread([this](const std::stop_token& stop) { Run(stop); });
}

Progress::~Progress() {
  if (display_ == Display::kNone) return;
  thread_.request_stop();
  thread_.join();
  if (display_ == Display::kLines) {
    Draw();
  } else if (drawn_ != 0) {
    out_ << '\r' << std::string(drawn_, ' ') << '\r' << std::flush;
  }
}

void Progress::Run(const std::stop_token& stop) {
  std::unique_lock lock(mutex_);
  const auto is_over = [&stop] { return stop.stop_requested(); };
  if (display_ == Display::kBar) Draw();
  const milliseconds interval = display_ == Display::kBar ? kBarInterval : kLineInterval;
  while (!wake_.wait_for(lock, stop, interval, is_over)) Draw();
}

ProgressState Progress::GetState() const {
  ProgressState state;
  state.bytes_done = bytes_done_.load(std::memory_order_relaxed);
  state.bytes_total = bytes_total_;
  state.files_done = files_done_.load(std::memory_order_relaxed);
  state.files_total = files_total_;
  state.elapsed = std::chrono::steady_clock::now() - start_;
  return state;
}

void Progress::Draw() {
  if (display_ == Display::kLines) {
    out_ << ProgressLine(GetState(), kUsualWidth) << '\n' << std::flush;
    return;
  }
  // A line that fills the last column would wrap.
  const std::string line = ProgressLine(GetState(), TerminalWidth() - 1);
  out_ << '\r' << line;
  if (line.size() < drawn_) out_ << std::string(drawn_ - line.size(), ' ');
  out_ << std::flush;
  drawn_ = line.size();
}

FileProgress::~FileProgress() {
  progress_.AddBytes(bytes_ - done_);
  progress_.AddFile();
}

void FileProgress::Set(int pass, std::int64_t current, std::int64_t total) noexcept {
  if (total <= 0) return;
  const double share =
      (pass + std::clamp(static_cast<double>(current) / static_cast<double>(total), 0.0, 1.0)) / passes_;
  const auto done = static_cast<std::int64_t>(share * static_cast<double>(bytes_));
  if (done <= done_) return;
  progress_.AddBytes(done - done_);
  done_ = done;
}

}  // namespace App
