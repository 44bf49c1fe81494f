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

/// What stands above the next lower whole number: in [0, 1), also for negative values.
[[nodiscard]] PELOR_EXPORT double fractpart(double value) noexcept;

/// x modulo m: in [0, m) for a positive m, also for negative x. NaN when m is 0.
[[nodiscard]] PELOR_EXPORT double modulus(double x, double m) noexcept;

}  // namespace Tobri
