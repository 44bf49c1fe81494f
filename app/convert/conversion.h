#pragma once

#include "app/convert/account.h"
#include "app/convert/plan.h"
#include "app/convert/progress.h"
#include "app/design/design_copy.h"
#include "app/design/design_sink.h"
#include "app/design/design_source.h"
#include "app/pair/pair_options.h"
#include <pelor/mi.h>

#include <optional>
#include <string>

namespace App {

/// How files are converted, whatever their kinds.
struct ConvertOptions {
  DesignOptions from_design;
  DesignSinkOptions to_design;
  DesignCopyOptions copy;
  PairOptions to_pair;
  /// The character set of the inputs' texts; empty: what the input says.
  std::string charset_in;
  /// Of the outputs'; empty: that of a pair that is read, else Western European.
  std::string charset_out;
  /// Of a pair made from a pair; by default what the input has.
  std::optional<int> version;
  std::optional<char> delimiter;
  /// Objects of pairs that do not touch it are skipped.
  std::optional<Vanth::BoundsXY> window;
  bool overwrite = false;
  bool strict = false;  ///< write nothing of a file of which anything is skipped or approximated
};

/// Converts one file as planned. Throws `Failure` when that cannot be done, and `Interrupted`; then no trace
/// of the outputs remains.
void ConvertFile(const PlannedFile& file, const ConvertOptions& options, FileProgress& progress,
                 Account& account);

}  // namespace App
