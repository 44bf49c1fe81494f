#pragma once

#include <pelor/dgn.h>

#include <bit>
#include <cmath>
#include <cstdint>

namespace App {

/// The number that eight bytes in D-float form hold, rounded to the nearest double. Nothing is lost of the
/// numbers that a double can hold at all.
[[nodiscard]] inline double DecodeDFloat(const char* bytes) noexcept {
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

}  // namespace App
