#pragma once

#include <stdexcept>

namespace App {

/// Ends the work on one file or the whole run: `what()` is one plain sentence for the user, without a full
/// stop, with the file's name and the reason.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The program's exit codes.
enum ExitCode {
  kDone = 0,
  kDoneWithFindings = 1,
  kFailed = 2,
};

}  // namespace App
