#include "app/design/d_float.h"

#include <pelor/dgn.h>

#include <bit>
#include <cmath>

namespace App {

double DecodeDFloat(const char* bytes) noexcept {
  // Four words, the highest first: sign, eight bits of exponent in excess of 128, 55 bits of a fraction whose
  // leading 1 is not stored. The fraction lies in [1/2, 1).
  std::uint64_t bits = 0;
  for (int i = 0; i < 4; ++i) bits = bits << 16U | Pelor::DGN::LoadWord(bytes + 2 * i);
  const auto exponent = static_cast<int>(bits >> 55U & 0xFFU);
  if (exponent == 0) return 0.0;
  constexpr std::uint64_t kHidden = std::uint64_t{1} << 55U;
  const std::uint64_t fraction = (bits & (kHidden - 1)) | kHidden;
  const double magnitude = std::ldexp(static_cast<double>(fraction), exponent - 128 - 56);
  return bits >> 63U != 0 ? -magnitude : magnitude;
}

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
