#pragma once

#include <pelor/mi.h>

#include <string>
#include <string_view>
#include <vector>

namespace App {

/// How features become a pair.
struct PairOptions {
  /// 1 (also 100), 2 (also 200) or 300, which any other number stands for. Version 1 has no coordinate
  /// system, and only 300 says its character set.
  int version = 300;
  /// Any name that iconv or MIF files know it by.
  std::string charset = "WindowsLatin1";
  /// Tab takes the place of one that cannot part values.
  char delimiter = '\t';
  /// The names of the columns to write, in their order; none: all of the schema.
  std::vector<std::string> columns;
  /// A coordinate system clause, which goes before the schema's; empty: none.
  std::string coordsys;
  /// Not empty: where neither says the system, it is a plane that is not on the earth, of these units and
  /// bounds. Otherwise the pair says none then, which means longitude and latitude.
  Vanth::BoundsXY bounds;
  Pelor::MI::Units units = Pelor::MI::Units_m;
  /// What the distances of coordinates are multiples of; 0 when unknown.
  double resolution = 0.0;
};

/// The version that is written for a number: 1, 2 or 300.
[[nodiscard]] int WrittenVersion(int version) noexcept;

/// Reads a version number as users write it: 1, 2 or 300. Throws `Failure`.
[[nodiscard]] int ParsePairVersion(std::string_view text);

/// Whether a character can part values: a tab, a blank, or a sign of ASCII but a quote.
[[nodiscard]] bool IsDelimiter(char c) noexcept;

/// Reads a delimiter as users write it: the character, or "tab", "comma", "semicolon", "blank". Throws
/// `Failure`.
[[nodiscard]] char ParseDelimiter(std::string_view text);

}  // namespace App
