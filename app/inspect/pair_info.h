#pragma once

#include "app/convert/account.h"
#include "app/io/input_kind.h"
#include <pelor/mi.h>

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace App {

/// What is in an interchange pair. Texts are UTF-8.
struct PairInfo {
  std::filesystem::path mif;
  std::filesystem::path mid;  ///< empty when there is none
  std::int64_t bytes = 0;     ///< of the MIF file

  int version = 0;
  std::string charset;
  char delimiter = '\t';
  Tobri::IRefC<Pelor::MI::CoordSys> system;  ///< null when the header has none
  std::vector<Pelor::MI::Column> columns;

  /// Objects that can be read, by their keyword.
  std::map<std::string, std::int64_t, std::less<>> kinds;
  std::int64_t objects = 0;
  std::int64_t rows = 0;
  Vanth::BoundsXY extent;
  /// What was skipped while reading.
  Account account;
};

/// Reads the whole pair. Throws `Failure`.
[[nodiscard]] PairInfo ReadPairInfo(const Input& input);

void Print(const PairInfo& info, std::ostream& out);
[[nodiscard]] nlohmann::ordered_json ToJson(const PairInfo& info);

}  // namespace App
