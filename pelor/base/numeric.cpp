#include <pelor/base/numeric.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Tobri {

void Mem::Swap(void* a, void* b, unsigned size, unsigned count) noexcept {
  auto* const first = static_cast<std::byte*>(a);
  std::swap_ranges(first, first + std::size_t{size} * count, static_cast<std::byte*>(b));
}

double round(double value, Logical half_to_even) noexcept {
  const double nearest = std::round(value);
  if (half_to_even && std::fabs(value - std::trunc(value)) == 0.5) return 2.0 * std::round(value / 2.0);
  return nearest;
}

double fractpart(double value) noexcept {
  return modulus(value, 1.0);
}

double modulus(double x, double m) noexcept {
  const double rest = std::fmod(x, m);
  if (std::isnan(rest)) return rest;
  if (rest >= 0.0) return rest == 0.0 ? 0.0 : rest;  // no negative zero
  const double size = std::fabs(m);
  const double shifted = rest + size;
  // A rest a hair below zero can round up to the size itself, which is outside the range.
  return shifted < size ? shifted : std::nextafter(size, 0.0);
}

}  // namespace Tobri
