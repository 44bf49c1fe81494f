#pragma once

#include "app/convert/number_set.h"
#include "app/io/input_kind.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <iosfwd>
#include <limits>

namespace App {

/// What of a design is listed.
struct DumpOptions {
  bool hex = false;               ///< the bodies, too
  std::int64_t from_number = 1;   ///< the first element, when `from_offset` is negative
  std::int64_t from_offset = -1;  ///< the byte where the first element begins
  std::int64_t count = std::numeric_limits<std::int64_t>::max();  ///< so many elements at most
  NumberSet types = NumberSet::All();
  NumberSet levels = NumberSet::All();
};

/// Lists the elements of a design, and how it ends. Elements count from 1 at the file's begin, or at
/// `from_offset`. Throws `Failure`.
void DumpDesign(const Input& input, const DumpOptions& options, std::ostream& out);

/// `pelor dump`.
void AddDumpCommand(CLI::App& program, int& exit_code);

}  // namespace App
