#pragma once

#include "app/convert/account.h"
#include "app/convert/plan.h"

#include <cstdint>
#include <ostream>
#include <span>
#include <string>

namespace App {

/// What became of one planned file.
struct FileResult {
  enum class Outcome {
    kPlanned,   ///< nothing was to be written
    kUpToDate,  ///< left alone
    kWritten,
    kFailed,  ///< `error` says why
  };

  PlannedFile file;
  Outcome outcome = Outcome::kPlanned;
  std::string error;  ///< one plain sentence
  /// Of a file that failed: up to there, and nothing of it was written.
  Account account;
};

/// How much was skipped that somebody may miss, or is not quite what it was. Settings, deleted elements and
/// what the user did not ask for are missed by nobody.
[[nodiscard]] std::int64_t CountFindings(const Account& account);

/// Whether something that could have been written was left out because the user did not choose it.
[[nodiscard]] bool HasLeftOutByChoice(const Account& account);

/// 0 when all is written, 1 when something was left out or approximated, a whole file for one, 2 when files
/// failed and nothing was written. With `strict` there is no 1.
[[nodiscard]] int ConvertExitCode(std::span<const FileResult> results, bool strict);

/// Prints the account of one file, or a line for each of many and their common account. Files that failed
/// are in their number only: their sentences are for standard error.
void PrintSummary(std::ostream& out, std::span<const FileResult> results);

/// What `--dry-run` prints: a line for each file.
void PrintPlan(std::ostream& out, std::span<const FileResult> results);

/// The account as JSON, its keys as documented in docs/converting.md.
[[nodiscard]] std::string ReportJson(std::span<const FileResult> results, int exit_code);

}  // namespace App
