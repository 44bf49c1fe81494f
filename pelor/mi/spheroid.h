#pragma once

#include <pelor/base/export.h>

#include <cstdint>

namespace Pelor::MI {

/// A reference ellipsoid by its number, 0 to 47. Among them are GRS 80 (0), the International 1924 (4 and 5),
/// the Clarke 1880 and 1866 (6 and 7), the Airy 1830 (9), the Bessel 1841 (10), a sphere (12) and WGS 84 (28
/// and 29).
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
