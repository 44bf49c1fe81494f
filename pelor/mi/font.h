#pragma once

#include <pelor/base/string.h>
#include <pelor/mi/color.h>
#include <pelor/mi/style_units.h>

#include <cstdint>

namespace Pelor::MI {

/// The style of texts.
struct Font {
  /// The name of the default font.
  [[nodiscard]] static Tobri::String deffont() { return "MS Sans Serif"; }
  /// What stands for no font at all: the default without its name.
  [[nodiscard]] static Font None() {
    Font font;
    font.name.Clear();
    return font;
  }

  /// The size as ConvertSize gives it.
  [[nodiscard]] int GetSize(SLUnits units) const noexcept { return ConvertSize(size, sizeUnits, units); }

  friend bool operator==(const Font&, const Font&) noexcept = default;

  Tobri::String name = deffont();
  std::uint16_t style = 0;  ///< style bits, carried unchanged
  std::int32_t size = 0;    ///< in sizeUnits
  SLUnits sizeUnits = SLUnits_Point;
  Color foreColor = 0;
  Color backColor = -1;  ///< -1 for none
};

}  // namespace Pelor::MI
