#include "app/convert/jobs.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace App {

unsigned AllCores() noexcept {
  return std::max(1U, std::thread::hardware_concurrency());
}

void RunJobs(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& job) {
  if (threads <= 1 || count <= 1) {
    for (std::size_t i = 0; i < count; ++i) job(i);
    return;
  }
  std::atomic<std::size_t> next = 0;
  std::atomic<bool> is_stopped = false;
  std::mutex mutex;
  std::exception_ptr first;
  const auto work = [&] {
    while (!is_stopped) {
      const std::size_t i = next++;
      if (i >= count) return;
      try {
        job(i);
      } catch (...) {
        const std::lock_guard lock(mutex);
        if (!first) first = std::current_exception();
        is_stopped = true;
      }
    }
  };
  {
    std::vector<std::jthread> pool;
    for (std::size_t i = 0; i < std::min<std::size_t>(threads, count); ++i) pool.emplace_back(work);
  }
  if (first) std::rethrow_exception(first);
}

}  // namespace App
