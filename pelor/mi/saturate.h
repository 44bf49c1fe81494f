#pragma once

#include <cstdint>
#include <limits>

namespace Pelor::MI {

/// The nearest signed 32-bit number.
[[nodiscard]] constexpr std::int32_t Saturated(std::int64_t value) noexcept {
  using Limits = std::numeric_limits<std::int32_t>;
  if (value < Limits::min()) return Limits::min();
  if (value > Limits::max()) return Limits::max();
  return static_cast<std::int32_t>(value);
}

/// The value truncated toward zero, or the nearest signed 32-bit number; 0 for NaN.
[[nodiscard]] constexpr std::int32_t Saturated(double value) noexcept {
  using Limits = std::numeric_limits<std::int32_t>;
  if (value != value) return 0;
  if (value <= Limits::min()) return Limits::min();
  if (value >= Limits::max()) return Limits::max();
  return static_cast<std::int32_t>(value);
}

}  // namespace Pelor::MI
