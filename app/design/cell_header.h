#pragma once

#include "app/design/element_view.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace App {

/// What a cell header (type 2) holds.
struct CellHeader {
  /// The number that a matrix without scale and rotation has on its diagonal, roughly: scale and rotation are
  /// better taken from ratios.
  static constexpr double kUnitEntry = 214748.0;

  std::uint16_t description_words = 0;  ///< behind the first 19 words: the rest of the header, and components
  std::string name;                     ///< without blanks at the end; empty for an unnamed cell
  std::uint16_t class_map = 0;
  std::array<std::uint16_t, 4> level_map{};
  std::array<std::int32_t, 3> low{};  ///< x, y and z; z is 0 in 2D
  std::array<std::int32_t, 3> high{};
  /// Row by row, as stored; in 2D the four entries of the plane, the others 0.
  std::array<std::int32_t, 9> matrix{};
  std::array<std::int32_t, 3> origin{};

  /// Nothing for another element, and for one that is too short.
  [[nodiscard]] static std::optional<CellHeader> Decode(const ElementView& element);
};

}  // namespace App
