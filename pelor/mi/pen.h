#pragma once

#include <pelor/mi/color.h>
#include <pelor/mi/style_units.h>

#include <cstdint>

namespace Pelor::MI {

/// The style of lines and borders. The default is a solid black line of one pixel.
struct Pen {
  std::int32_t width = 1;    ///< in widthUnits
  std::int32_t pattern = 2;  ///< number of a line pattern
  Color color = 0;
  SLUnits widthUnits = SLUnits_Pixel;
  bool interleaved = false;  ///< a MIF file adds 128 to the pattern for it

  friend constexpr bool operator==(const Pen&, const Pen&) noexcept = default;
};

}  // namespace Pelor::MI
