#include <pelor/base/number_parse.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tobri {

namespace {

/// True when the number at `first`, known to be out of range, has no digit but 0 left of the scale's middle.
bool IsTiny(const char* first, const char* last) noexcept {
  const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  // The place of the first digit that counts: 1 for the one just before the point, 0 for the one behind it.
  const char* const point = std::find_if_not(first, last, is_digit);
  const char* at = std::find_if(first, last, [](char c) { return c >= '1' && c <= '9'; });
  std::ptrdiff_t place = at < point ? point - at : point + 1 - at;
  at = std::find_if_not(at, last, [&](char c) { return is_digit(c) || c == '.'; });
  if (at != last && (*at == 'e' || *at == 'E')) {
    ++at;
    const bool negative = at != last && *at == '-';
    if (at != last && (*at == '-' || *at == '+')) ++at;
    std::ptrdiff_t exponent = 0;
    constexpr std::ptrdiff_t kEnough = std::numeric_limits<std::ptrdiff_t>::max() / 20;
    for (; at != last && is_digit(*at); ++at) exponent = std::min(exponent * 10 + (*at - '0'), kEnough);
    place += negative ? -exponent : exponent;
  }
  return place <= 0;
}

}  // namespace

const char* Decimal::ParseLong(const char* first, const char* last, bool negative, double& value) noexcept {
  double magnitude = 0.0;
  const auto [end, error] = std::from_chars(first, last, magnitude);
  if (error == std::errc::result_out_of_range) {
    if (!IsTiny(first, end)) return nullptr;
    magnitude = 0.0;
  } else if (error != std::errc() || std::isinf(magnitude)) {
    return nullptr;
  }
  value = negative ? -magnitude : magnitude;
  return end;
}

}  // namespace Tobri
