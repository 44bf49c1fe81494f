#pragma once

#include <cmath>
#include <cstdint>
#include <iterator>

namespace App {

/// The most decimals that `HasDecimals` takes.
inline constexpr int kMostDecimals = 10;

/// Whether the number is what text with so many decimals, from 0 to `kMostDecimals`, reads as.
[[nodiscard]] inline bool HasDecimals(double value, int decimals) noexcept {
  constexpr double kPowers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10};
  static_assert(std::size(kPowers) == kMostDecimals + 1);
  constexpr double kWhole = 4503599627370496.0;  // all doubles from here on are whole
  const double scaled = value * kPowers[decimals];
  if (std::fabs(scaled) >= kWhole) return true;
  // Two of these a vertex: a cast is many times as fast as a call of the rounding functions.
  const auto nearest = static_cast<std::int64_t>(scaled + std::copysign(0.5, scaled));
  return static_cast<double>(nearest) / kPowers[decimals] == value;
}

}  // namespace App
