#include "app/design/d_float.h"

#include <bit>
#include <cmath>

namespace App {

std::array<std::uint16_t, 4> DFloatWords(double value) noexcept {
  // A native double has 11 bits of exponent, for a fraction 1.f, and 52 of fraction. A D-float has 8, for a
  // fraction 0.1f, and 55.
  constexpr std::uint64_t kBiasDifference = 1023 - 128 - 1;
  constexpr std::uint64_t kFractionMask = (std::uint64_t{1} << 52U) - 1;
  constexpr std::uint64_t kLargest = ~(std::uint64_t{1} << 63U);
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const std::uint64_t sign = bits >> 63U << 63U;
  const std::uint64_t exponent = bits >> 52U & 0x7FFU;

  std::uint64_t form = 0;
  if (std::isnan(value) || exponent <= kBiasDifference) {
    form = 0;
  } else if (exponent - kBiasDifference > 0xFF) {
    form = sign | kLargest;
  } else {
    form = sign | (exponent - kBiasDifference) << 55U | (bits & kFractionMask) << 3U;
  }
  return {static_cast<std::uint16_t>(form >> 48U), static_cast<std::uint16_t>(form >> 32U & 0xFFFFU),
          static_cast<std::uint16_t>(form >> 16U & 0xFFFFU), static_cast<std::uint16_t>(form & 0xFFFFU)};
}

}  // namespace App
