#include <pelor/base/decimal_power.h>
#include <pelor/base/number_format.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <locale>
#include <ostream>
#include <sstream>
#include <string_view>

namespace Tobri {

namespace {

__extension__ using Wide = unsigned __int128;

constexpr std::uint64_t kTenTo8 = 100'000'000;
constexpr std::uint64_t kTenTo16 = kTenTo8 * kTenTo8;

constexpr auto kSmallPowers = [] {
  std::array<std::uint64_t, kMaxPrecision> powers{};
  std::uint64_t power = 1;
  for (std::uint64_t& entry : powers) {
    entry = power;
    power *= 10;
  }
  return powers;
}();

/// A positive double as digits[0].digits[1]... x 10^exponent, rounded to the asked precision.
struct DecimalDigits {
  std::uint64_t digits;  ///< always 17 digits, the first one not 0
  int exponent;
};

/// A positive double as mantissa x 2^(exponent - 63), the highest bit of the mantissa set.
struct Normalized {
  std::uint64_t mantissa;
  int exponent;
};

Normalized Normalize(std::uint64_t magnitude) noexcept {
  const auto biased = static_cast<int>(magnitude >> 52);
  if (biased != 0) return {magnitude << 11 | std::uint64_t{1} << 63, biased - 1023};
  const int zeros = std::countl_zero(magnitude);
  return {magnitude << zeros, -1011 - zeros};
}

/// Rounds to `precision` digits. False when a value so near to a half that the cut-off power of ten does not
/// decide needs another way; that takes a run of 63 equal bits behind the last digit.
bool RoundToDigits(const Normalized& value, int precision, DecimalDigits& result) noexcept {
  // The estimate from the binary exponent is one too low when a power of ten stands between 2^exponent and
  // the value.
  int exponent = Decimal::DecimalExponent(value.exponent);
  exponent += static_cast<int>(Decimal::BinaryExponent(exponent + 1) == value.exponent) &
              static_cast<int>(value.mantissa >= Decimal::PowerOfTen(exponent + 1).high);

  // mantissa x power is 192 bits wide: at most 57 of them before the point, the others behind it. The part of
  // the power that was cut off is worth less than one unit of `middle`.
  const int scale = precision - 1 - exponent;
  const Decimal::Power& power = Decimal::PowerOfTen(scale);
  const Wide lower = Wide{value.mantissa} * power.low;
  const Wide upper = Wide{value.mantissa} * power.high + static_cast<std::uint64_t>(lower >> 64);
  const auto top = static_cast<std::uint64_t>(upper >> 64);
  const auto middle = static_cast<std::uint64_t>(upper);
  const int shift = 62 - value.exponent - Decimal::BinaryExponent(scale);

  constexpr std::uint64_t kHalf = std::uint64_t{1} << 63;
  std::uint64_t digits = top >> shift;
  const std::uint64_t fraction = top << (64 - shift) | middle >> shift;
  if (fraction - (kHalf - 1) <= 1) [[unlikely]] {
    if (scale < 0 || scale > Decimal::kLastExactPower) return false;
    const bool beyond = (middle << (64 - shift) | static_cast<std::uint64_t>(lower)) != 0;
    digits += static_cast<std::uint64_t>(fraction == kHalf && (beyond || digits % 2 != 0));
  } else {
    digits += fraction >> 63;
  }

  digits *= kSmallPowers[static_cast<std::size_t>(kMaxPrecision - precision)];
  const bool carried = digits == 10 * kTenTo16;
  result = {carried ? kTenTo16 : digits, exponent + static_cast<int>(carried)};
  return true;
}

/// Eight decimal digits, 0 to 9 each, the first one in the lowest byte. The halves, quarters and single
/// digits are split side by side in one word, by multiplying with rounded-up inverses that are exact in this
/// range.
inline std::uint64_t SplitDigits(std::uint64_t number) noexcept {
  const std::uint64_t fours = number / 10'000 | number % 10'000 << 32;
  const std::uint64_t hundreds = (fours * 10'486 >> 20) & 0x0000007F'0000007F;
  const std::uint64_t twos = hundreds | (fours - 100 * hundreds) << 16;
  const std::uint64_t tens = (twos * 103 >> 10) & 0x000F000F'000F000F;
  return tens | (twos - 10 * tens) << 8;
}

void Store(char* at, std::uint64_t bytes) noexcept {
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(at, &bytes, sizeof bytes);
  } else {
    for (unsigned i = 0; i < 8; ++i) at[i] = static_cast<char>(bytes >> 8 * i);
  }
}

/// Writes the eight characters with a decimal point before character `pos` (0 to 7): nine characters.
void StoreWithPoint(char* at, std::uint64_t text, int pos) noexcept {
  const int bit = 8 * pos;
  const std::uint64_t before = (std::uint64_t{1} << bit) - 1;
  Store(at, (text & before) | std::uint64_t{'.'} << bit | (text & ~before) << 8);
  at[8] = static_cast<char>(text >> 56);
}

char* PutExponent(char* at, int exponent) noexcept {
  *at++ = 'e';
  *at++ = exponent < 0 ? '-' : '+';
  auto magnitude = static_cast<unsigned>(exponent < 0 ? -exponent : exponent);
  if (magnitude >= 100) {
    *at++ = static_cast<char>('0' + magnitude / 100);
    magnitude %= 100;
  }
  *at++ = static_cast<char>('0' + magnitude / 10);
  *at++ = static_cast<char>('0' + magnitude % 10);
  return at;
}

char* LayOut(char* first, const DecimalDigits& decimal, int precision) noexcept {
  constexpr std::uint64_t kZeros = 0x30303030'30303030;
  const std::uint64_t rest = decimal.digits % kTenTo16;
  const auto leading = static_cast<char>('0' + decimal.digits / kTenTo16);
  const std::uint64_t front = SplitDigits(rest / kTenTo8);
  const std::uint64_t back = SplitDigits(rest % kTenTo8);
  // The highest byte that is not 0 is the last digit that counts.
  const int zeros = std::countl_zero(back != 0 ? back : front) >> 3;
  const int count = (back != 0 ? 17 : 9) - zeros;
  const int exponent = decimal.exponent;

  if (exponent < -4 || exponent >= precision) {
    first[0] = leading;
    first[1] = '.';
    Store(first + 2, front | kZeros);
    Store(first + 10, back | kZeros);
    return PutExponent(first + (count > 1 ? count + 1 : 1), exponent);
  }
  if (exponent < 0) {
    Store(first, kZeros);
    first[1] = '.';
    first += 1 - exponent;
    first[0] = leading;
    Store(first + 1, front | kZeros);
    Store(first + 9, back | kZeros);
    return first + count;
  }
  first[0] = leading;
  if (exponent < 8) {
    StoreWithPoint(first + 1, front | kZeros, exponent);
    Store(first + 10, back | kZeros);
  } else if (exponent < 16) {
    Store(first + 1, front | kZeros);
    StoreWithPoint(first + 9, back | kZeros, exponent - 8);
  } else {
    Store(first + 1, front | kZeros);
    Store(first + 9, back | kZeros);
  }
  return first + (count > exponent + 1 ? count + 1 : exponent + 1);
}

char* PutWord(char* at, std::string_view word) noexcept {
  return std::copy(word.begin(), word.end(), at);
}

/// Puts the number by a stream's own formatting, in the classic locale.
template <class T>
void PutByStream(std::ostream& out, T value) {
  if (out.getloc() == std::locale::classic()) {
    out << value;
    return;
  }
  // Another locale on the stream itself would reach its buffer and the conversion there: a stream beside it.
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text.flags(out.flags());
  text.precision(out.precision());
  text.width(out.width(0));
  text.fill(out.fill());
  text << value;
  const std::string_view characters = text.view();
  out.write(characters.data(), static_cast<std::streamsize>(characters.size()));
}

template <class T>
void PutWhole(std::ostream& out, T value) {
  using std::ios_base;
  if ((out.flags() & ios_base::basefield) != ios_base::dec || (out.flags() & ios_base::showpos) != 0 ||
      out.width() != 0) {
    PutByStream(out, value);
    return;
  }
  char buffer[std::numeric_limits<T>::digits10 + 2];
  out.write(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr - buffer);
}

}  // namespace

char* FormatGeneral(char* first, double value, int precision) noexcept {
  assert(precision >= 0 && precision <= kMaxPrecision);
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const std::uint64_t magnitude = bits & ~(std::uint64_t{1} << 63);
  constexpr std::uint64_t kInfinity = std::uint64_t{0x7FF} << 52;

  char* at = first;
  *at = '-';
  at += bits >> 63;
  if (magnitude - 1 >= kInfinity - 1) [[unlikely]] {
    if (magnitude == 0) return PutWord(at, "0");
    return PutWord(at, magnitude == kInfinity ? "inf" : "nan");
  }
  precision = std::max(precision, 1);
  DecimalDigits decimal;
  if (RoundToDigits(Normalize(magnitude), precision, decimal)) [[likely]] {
    return LayOut(at, decimal, precision);
  }
  return std::to_chars(first, first + kGeneralSize, value, std::chars_format::general, precision).ptr;
}

void PutDouble(std::ostream& out, double value) {
  using std::ios_base;
  constexpr ios_base::fmtflags kNotPlain =
      ios_base::floatfield | ios_base::showpos | ios_base::showpoint | ios_base::uppercase;
  const std::streamsize precision = out.precision();
  if ((out.flags() & kNotPlain) != 0 || out.width() != 0 || precision < 0 || precision > kMaxPrecision) {
    PutByStream(out, value);
    return;
  }
  char buffer[kGeneralSize];
  out.write(buffer, FormatGeneral(buffer, value, static_cast<int>(precision)) - buffer);
}

void PutInteger(std::ostream& out, int value) {
  PutWhole(out, value);
}
void PutInteger(std::ostream& out, unsigned value) {
  PutWhole(out, value);
}
void PutInteger(std::ostream& out, long value) {
  PutWhole(out, value);
}
void PutInteger(std::ostream& out, unsigned long value) {
  PutWhole(out, value);
}

}  // namespace Tobri
