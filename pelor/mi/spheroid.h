#pragma once

#include <pelor/base/export.h>

#include <cstdint>

namespace Pelor::MI {

/// A reference ellipsoid by its number, 0 to 47.
enum Spheroid : std::int32_t {};

/// The major semi-axis in metres; 0 for a number outside the table.
[[nodiscard]] PELOR_EXPORT double GetMajorSemiAxis(Spheroid s) noexcept;

/// The inverse flattening; 0 for a sphere and for a number outside the table.
[[nodiscard]] PELOR_EXPORT double GetInverseFlattening(Spheroid s) noexcept;

/// The first spheroid whose two constants both lie within `tolerance` (an absolute difference) of the given
/// ones; 29 when there is none.
[[nodiscard]] PELOR_EXPORT Spheroid FindSpheroid(double semi_axis, double inverse_flattening,
                                                 double tolerance) noexcept;

}  // namespace Pelor::MI
