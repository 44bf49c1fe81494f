#pragma once

#include <pelor/base.h>

#include <cstdint>

namespace App {

/// A line and a column, both from 1.
struct TextPlace {
  std::int64_t line = 0;
  std::int64_t column = 0;
};

/// Where the scanner stands. Linear in the scanner's window: for findings, not for every value.
[[nodiscard]] TextPlace PlaceOf(const Tobri::IxText& in);
/// Where it stood at `position`; it stays where it is.
[[nodiscard]] TextPlace PlaceOf(Tobri::IxText& in, const Tobri::IBText::Pos& position);
/// The place of the word behind the blanks at `position`.
[[nodiscard]] TextPlace PlaceOfWord(Tobri::IxText& in, const Tobri::IBText::Pos& position);

/// Discards the rest of the line.
void SkipLine(Tobri::IxText& in);

}  // namespace App
