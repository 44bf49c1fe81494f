#pragma once

#include <pelor/base/export.h>

#include <array>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <system_error>

namespace Tobri {

namespace Decimal {

/// The powers of ten that a double holds exactly.
inline constexpr std::array<double, 23> kExactPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// Reads a number from its first digit or decimal point on, at any length and with an exponent.
PELOR_EXPORT const char* ParseLong(const char* first, const char* last, bool negative,
                                   double& value) noexcept;

/// Adds the decimal digits at `at` to `number` and gives the end of them.
inline const char* AddDigits(const char* at, const char* last, std::uint64_t& number) noexcept {
  for (; at != last; ++at) {
    const auto digit = static_cast<unsigned char>(*at - '0');
    if (digit > 9) break;
    number = number * 10 + digit;
  }
  return at;
}

}  // namespace Decimal

/// Reads a decimal number, [+-]digits[.digits][e[+-]digits] with a digit on at least one side of the point,
/// and gives the end of it, the nearest double in `value`. Null, and `value` as it was, when no number stands
/// at `first` or its magnitude is beyond the largest double; what is too small for a double gives 0 with its
/// sign. Words such as "inf" and "nan" are no numbers. Follows no locale.
[[nodiscard]] inline const char* ParseDouble(const char* first, const char* last, double& value) noexcept {
  const bool negative = first != last && *first == '-';
  if (first != last && (*first == '-' || *first == '+')) ++first;

  std::uint64_t mantissa = 0;
  const char* at = Decimal::AddDigits(first, last, mantissa);
  std::ptrdiff_t count = at - first;
  std::ptrdiff_t decimals = 0;
  if (at != last && *at == '.') {
    const char* const point = at + 1;
    at = Decimal::AddDigits(point, last, mantissa);
    decimals = at - point;
    count += decimals;
  }
  if (count == 0) return nullptr;

  // Up to 19 digits the mantissa has not wrapped; where both it and the power of ten are exact, one division
  // rounds once and gives the nearest double (Clinger, "How to Read Floating Point Numbers Accurately",
  // 1990).
  constexpr std::uint64_t kExactMantissa = std::uint64_t{1} << 53;
  const bool has_exponent = at != last && (*at == 'e' || *at == 'E');
  if (count > 19 || mantissa > kExactMantissa || has_exponent) [[unlikely]] {
    return Decimal::ParseLong(first, last, negative, value);
  }
  const double magnitude =
      static_cast<double>(mantissa) / Decimal::kExactPowers[static_cast<std::size_t>(decimals)];
  value = negative ? -magnitude : magnitude;
  return at;
}

/// Reads a whole number in `base` (2 to 36), with an optional sign, and gives the end of it. Null, and
/// `value` as it was, when no number stands at `first` or it does not fit; a minus fits no unsigned type.
template <std::integral T>
[[nodiscard]] const char* ParseInteger(const char* first, const char* last, T& value,
                                       int base = 10) noexcept {
  if (first != last && *first == '+') {
    ++first;
    if (first != last && *first == '-') return nullptr;
  }
  const auto [end, error] = std::from_chars(first, last, value, base);
  return error == std::errc() ? end : nullptr;
}

}  // namespace Tobri
