#pragma once

#include "app/convert/conversion.h"
#include "app/convert/plan.h"
#include "app/convert/progress.h"
#include "app/convert/report.h"

#include <ostream>
#include <vector>

namespace App {

/// How many files are converted together.
struct BatchOptions {
  unsigned jobs = 1;
  bool dry_run = false;
  bool makes_folders = false;  ///< for the outputs
  Progress::Display progress = Progress::Display::kNone;
};

/// Converts all planned files, each on its own: one that fails does not stop the others. Folders
/// that were made for the outputs are removed again if they stay empty. An interrupt ends all with
/// `Interrupted`, and only files that were complete remain. `progress` takes the progress.
[[nodiscard]] std::vector<FileResult> ConvertBatch(std::vector<PlannedFile> files,
                                                   const ConvertOptions& options, const BatchOptions& batch,
                                                   std::ostream& progress);

}  // namespace App
