#pragma once

#include <pelor/mi/saturate.h>

#include <cstdint>

namespace Pelor::MI {

/// The units of a style's size or width.
enum SLUnits : std::int32_t {
  SLUnits_Pixel = 0,
  SLUnits_HundredthMm = 1,
  SLUnits_TenthPoint = 2,
  SLUnits_Point = 3,
};

/// Converts a style's size. Points and their tenths convert into each other, truncated toward zero. Any other
/// pair would need a device to convert by, and gives 0.
[[nodiscard]] constexpr std::int32_t ConvertSize(std::int32_t size, SLUnits from, SLUnits to) noexcept {
  if (from == to) return size;
  if (from == SLUnits_Point && to == SLUnits_TenthPoint) return Saturated(std::int64_t{size} * 10);
  if (from == SLUnits_TenthPoint && to == SLUnits_Point) return size / 10;
  return 0;
}

}  // namespace Pelor::MI
