#include "app/io/interrupt.h"

#include <atomic>
#include <csignal>

namespace App {

namespace {

std::atomic<int> caught_signal = 0;
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler may set it");

extern "C" void KeepSignal(int signal) {
  caught_signal.store(signal, std::memory_order_relaxed);
}

}  // namespace

void CatchInterrupts() {
  struct sigaction action = {};
  action.sa_handler = KeepSignal;
  sigemptyset(&action.sa_mask);
  action.sa_flags = SA_RESTART;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) sigaction(signal, &action, nullptr);
  action.sa_handler = SIG_IGN;
  sigaction(SIGXFSZ, &action, nullptr);
}

void ThrowIfInterrupted() {
  const int signal = caught_signal.load(std::memory_order_relaxed);
  if (signal != 0) throw Interrupted(signal);
}

}  // namespace App
