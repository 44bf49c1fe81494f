#pragma once

#include "app/io/input_kind.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace App {

enum class OutputFormat {
  kPair,
  kDesign,
};

/// "mif" or "dgn", in any case. Throws `Failure` for anything else.
[[nodiscard]] OutputFormat ParseOutputFormat(std::string_view name);

/// What the user wants converted, and where to.
struct PlanRequest {
  std::vector<std::filesystem::path> inputs;  ///< files, and folders with `recursive`
  /// Exactly one of these two. The output's extension chooses its format.
  std::filesystem::path output;
  std::filesystem::path out_dir;
  /// The format of all files in `out_dir`. By default designs become pairs and pairs designs.
  std::optional<OutputFormat> to;
  bool recursive = false;
  bool overwrite = false;
  bool newer = false;  ///< leave outputs alone that are not older than their input
};

/// One file to be converted.
struct PlannedFile {
  enum class State {
    kToDo,
    kUpToDate,
    kRefused,  ///< `refusal` says why; the kind of the input may be unknown
  };

  Input input;
  std::int64_t input_bytes = 0;  ///< of the design or the MIF file
  OutputFormat format = OutputFormat::kPair;
  /// The design or the MIF file first, then the MID file, or the table beside a design made from a pair.
  std::vector<std::filesystem::path> outputs;
  State state = State::kToDo;
  std::string refusal;  ///< one plain sentence
};

/// Settles what is converted to what, in the order of the inputs; folders give their files sorted by name,
/// their subfolders kept below `out_dir`. A name given twice, or a pair named by both its files, is planned
/// once; a link is an input of its own. What cannot be done with one file is its refusal: an unreadable
/// input, an output that exists (without `overwrite`), that is an input, or that another file is written to.
/// Throws `Failure` where the request as a whole makes no sense. Writes nothing.
[[nodiscard]] std::vector<PlannedFile> PlanConversion(const PlanRequest& request);

}  // namespace App
