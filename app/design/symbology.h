#pragma once

#include "app/design/color_table.h"
#include <pelor/dgn.h>
#include <pelor/mi.h>

#include <cstdint>
#include <optional>

namespace App {

/// Line style, weight and colour of an element.
struct Symbology {
  std::uint8_t style = 0;   ///< 0 to 7
  std::uint8_t weight = 0;  ///< 0 to 31
  std::uint8_t color = 0;   ///< a colour index

  Symbology() = default;
  explicit Symbology(const Pelor::DGN::DEHeader& header) noexcept
      : style(static_cast<std::uint8_t>(header.Style())),
        weight(static_cast<std::uint8_t>(header.Weight())),
        color(static_cast<std::uint8_t>(header.Color())) {}

  friend bool operator==(const Symbology&, const Symbology&) = default;
};

// The styles that stand for a symbology on a map, and the way back.

/// The pen pattern of a line style; unknown ones are solid.
[[nodiscard]] int PenPattern(int style) noexcept;
/// Whether a line style draws the pattern of the pen as it is; a solid line has nothing to interleave.
[[nodiscard]] bool HasLineStyle(const Pelor::MI::Pen& pen) noexcept;
/// The line style closest to a pen pattern.
[[nodiscard]] int LineStyle(int pen_pattern) noexcept;
/// A weight draws one pixel more than its number. Pens of more than 7 pixels are given in tenths of a point,
/// at 96 pixels to the inch.
[[nodiscard]] Pelor::MI::Pen MakePen(const Symbology& symbology, const ColorTable& colors) noexcept;
/// The weight closest to the width of a pen.
[[nodiscard]] int LineWeight(const Pelor::MI::Pen& pen) noexcept;
/// A solid fill, or none.
[[nodiscard]] Pelor::MI::Brush MakeBrush(std::optional<std::uint8_t> fill_color,
                                         const ColorTable& colors) noexcept;
/// A dot of the element's colour that grows with its weight.
[[nodiscard]] Pelor::MI::StdSymbol MakePointSymbol(const Symbology& symbology,
                                                   const ColorTable& colors) noexcept;
/// The weight whose dot is closest to the size of a symbol.
[[nodiscard]] int PointWeight(const Pelor::MI::Symbol& symbol) noexcept;
/// What marks the origin of a cell.
[[nodiscard]] Pelor::MI::StdSymbol MakeCellSymbol(const Symbology& symbology,
                                                  const ColorTable& colors) noexcept;
/// The font of a text: heavy weights are bold. Its size is 0, the text's box sets it.
[[nodiscard]] Pelor::MI::Font MakeFont(const Symbology& symbology, const ColorTable& colors);

}  // namespace App
