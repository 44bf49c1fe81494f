#pragma once

#include <pelor/base/export.h>

namespace Tobri {

using Logical = bool;

namespace Mem {

/// Exchanges `count` items of `size` bytes at `a` with those at `b`. The two blocks must not overlap.
PELOR_EXPORT void Swap(void* a, void* b, unsigned size, unsigned count) noexcept;

}  // namespace Mem

/// The nearest whole number. A half goes away from zero, or to the even neighbour when `half_to_even` is set.
[[nodiscard]] PELOR_EXPORT double round(double value, Logical half_to_even) noexcept;

/// What stands above the next lower whole number: in [0, 1), also for negative values. NaN for
/// infinities and NaN.
[[nodiscard]] PELOR_EXPORT double fractpart(double value) noexcept;

/// x modulo m: in [0, m) for a positive m, also for negative x; the sign of m does not matter. A result that
/// would round up to m gives the double below m. NaN when m is 0, x infinite or either NaN.
[[nodiscard]] PELOR_EXPORT double modulus(double x, double m) noexcept;

}  // namespace Tobri
