#pragma once

#include <exception>

namespace App {

/// Ends the work when the user or the system asks for it. Nothing that has begun remains.
class Interrupted : public std::exception {
 public:
  explicit Interrupted(int signal) noexcept : signal_(signal) {}

  /// The signal that came.
  [[nodiscard]] int Signal() const noexcept { return signal_; }
  [[nodiscard]] const char* what() const noexcept override { return "interrupted"; }

 private:
  int signal_;
};

/// From now on an interrupt, the end of the terminal, a request to terminate and a reader of the output that
/// went away only set the flag that ThrowIfInterrupted looks at; and a file that grows past the system's
/// limit is a failed write.
void CatchInterrupts();

/// Throws `Interrupted` once a signal has come. Cheap: for every element or object of a loop.
void ThrowIfInterrupted();

}  // namespace App
