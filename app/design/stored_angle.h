#pragma once

#include <pelor/dgn.h>

#include <cstdint>

namespace App {

// Angles as elements hold them, in units of 1/360000 degree.

/// An angle from 0 up to a whole turn, which becomes 0.
[[nodiscard]] std::int32_t TurnUnits(double degrees) noexcept;

/// An angle within a whole turn to either side, as its magnitude and a sign bit.
[[nodiscard]] std::int32_t SweepUnits(double degrees) noexcept;

/// A turn in the plan, counter-clockwise, as elements in space hold it: about the z axis, the vector part of
/// the quaternion negative.
[[nodiscard]] Pelor::DGN::quaternion TurnInSpace(double degrees) noexcept;

}  // namespace App
