#pragma once

#include <pelor/dgn.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace App {

/// Whether the number rounds to a coordinate of the design plane. NaN does not.
[[nodiscard]] inline bool IsOnPlane(double uors) noexcept {
  constexpr double kLow = std::numeric_limits<std::int32_t>::min();
  constexpr double kHigh = std::numeric_limits<std::int32_t>::max();
  return uors >= kLow - 0.5 && uors < kHigh + 0.5;
}

/// The nearest coordinate, for a number that is on the plane.
[[nodiscard]] inline std::int32_t Rounded(double uors) noexcept {
  return static_cast<std::int32_t>(std::floor(uors + 0.5));
}

/// The point of the plane nearest to any point; (0, 0) stands in for what is no number.
[[nodiscard]] inline Pelor::DGN::point2d RoundedToPlane(double x, double y) noexcept {
  const auto axis = [](double uors) {
    constexpr double kLow = std::numeric_limits<std::int32_t>::min();
    constexpr double kHigh = std::numeric_limits<std::int32_t>::max();
    return std::isnan(uors) ? 0 : Rounded(std::clamp(uors, kLow, kHigh));
  };
  return {axis(x), axis(y)};
}

}  // namespace App
