#pragma once

#include <cstddef>
#include <functional>

namespace App {

/// The number of threads that the machine runs at once; at least 1.
[[nodiscard]] unsigned AllCores() noexcept;

/// Calls `job` with every number below `count`, in order, on at most `threads` threads; on the caller's own
/// when one is enough. Once a job has thrown no further one begins; when all that had begun have ended, the
/// first exception is thrown again.
void RunJobs(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& job);

}  // namespace App
