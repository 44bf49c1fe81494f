#include "app/design/stored_angle.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace App {

namespace {

constexpr double kUnitsPerDegree = 360000.0;

/// A number from -1 to 1. The largest long stands in for 1, which has none.
std::int32_t QuaternionPart(double value) noexcept {
  constexpr double kScale = 2147483648.0;
  constexpr double kLow = std::numeric_limits<std::int32_t>::min();
  constexpr double kHigh = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(std::round(value * kScale), kLow, kHigh));
}

}  // namespace

std::int32_t TurnUnits(double degrees) noexcept {
  constexpr std::int64_t kTurn = 360 * 360000;
  const double turned = std::fmod(degrees, 360.0);
  const auto units = static_cast<std::int64_t>(std::lround(turned * kUnitsPerDegree));
  return static_cast<std::int32_t>((units % kTurn + kTurn) % kTurn);
}

std::int32_t SweepUnits(double degrees) noexcept {
  const auto magnitude =
      static_cast<std::uint32_t>(std::lround(std::min(std::fabs(degrees), 360.0) * kUnitsPerDegree));
  return static_cast<std::int32_t>(degrees < 0 ? magnitude | 0x80000000U : magnitude);
}

Pelor::DGN::quaternion TurnInSpace(double degrees) noexcept {
  const double half = std::fmod(degrees, 360.0) * (std::numbers::pi / 360.0);
  Pelor::DGN::quaternion turn;
  turn.w = QuaternionPart(std::cos(half));
  turn.z = QuaternionPart(-std::sin(half));
  return turn;
}

}  // namespace App
