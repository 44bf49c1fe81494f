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

/// 10^0 to 10^17.
constexpr auto kTenTo = [] {
  std::array<std::uint64_t, kMaxPrecision + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = 10 * powers[i - 1];
  return powers;
}();

constexpr std::uint64_t TenTo(int power) noexcept {
  return kTenTo[static_cast<std::size_t>(power)];
}

/// A positive double rounded to some count of digits: d.ddd x 10^exponent, the first digit not 0.
struct DecimalDigits {
  std::uint64_t digits;
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

/// Rounds to `precision` digits. False for a value so near to a half, but not known to be one, that the
/// cut-off power of ten does not decide; that takes a run of 63 equal bits behind the last digit.
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
    const bool exact = scale >= 0 && scale <= Decimal::kLastExactPower;
    const std::uint64_t beyond = middle << (64 - shift) | static_cast<std::uint64_t>(lower);
    if (!exact || fraction != kHalf || beyond != 0) return false;
    digits += digits % 2;
  } else {
    digits += fraction >> 63;
  }

  if (digits == TenTo(precision)) [[unlikely]] {
    digits = TenTo(precision - 1);
    ++exponent;
  }
  result = {digits, exponent};
  return true;
}

/// Eight decimal digits, 0 to 9 each, the first one in the lowest byte. The halves, quarters and single
/// digits are split side by side in one word, by multiplying with rounded-up inverses that are exact in this
/// range.
std::uint64_t SplitDigits(std::uint64_t number) noexcept {
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

/// Digits as characters, filled up with zeros.
struct DecimalText {
  std::uint64_t front;  ///< the first eight, the first one in the lowest byte
  std::uint64_t back;   ///< the next eight
  char last;            ///< the seventeenth
  int count;            ///< how many there are up to the last one that is not 0
};

/// A word of eight digits as characters.
constexpr std::uint64_t kZeros = 0x30303030'30303030;

/// How many of the sixteen digits stand up to the last one that is not 0.
int CountDigits(std::uint64_t front, std::uint64_t back) noexcept {
  return back != 0 ? 16 - (std::countl_zero(back) >> 3) : 8 - (std::countl_zero(front) >> 3);
}

DecimalText ToText(std::uint64_t digits, int precision) noexcept {
  // Coordinates are put with ten digits or less: then two digits behind the first eight are all there is, and
  // a third of the time is saved.
  constexpr int kShort = 10;
  if (precision <= kShort) {
    digits *= TenTo(kShort - precision);
    const std::uint64_t front = SplitDigits(digits / 100);
    const std::uint64_t rest = digits % 100;
    const std::uint64_t back = rest / 10 | rest % 10 << 8;
    return {front | kZeros, back | kZeros, '0', CountDigits(front, back)};
  }
  digits *= TenTo(kMaxPrecision - precision);
  const std::uint64_t front = SplitDigits(digits / TenTo(9));
  const std::uint64_t rest = digits % TenTo(9);
  const std::uint64_t back = SplitDigits(rest / 10);
  const std::uint64_t last = rest % 10;
  const int count = last != 0 ? kMaxPrecision : CountDigits(front, back);
  return {front | kZeros, back | kZeros, static_cast<char>('0' + last), count};
}

/// Writes all 17 digits.
void PutDigits(char* at, const DecimalText& text) noexcept {
  Store(at, text.front);
  Store(at + 8, text.back);
  at[16] = text.last;
}

/// Writes the digits with a point behind digit `pos` (0 to 16) if any digit counts there, and gives the end.
char* PutWithPoint(char* at, const DecimalText& text, int pos) noexcept {
  // Stores overlap: what the one writes too far, the next one puts right.
  if (pos < 8) [[likely]] {
    Store(at, text.front);
    Store(at + pos + 2, text.front >> 8 * pos >> 8);
    Store(at + 9, text.back);
    at[17] = text.last;
  } else {
    PutDigits(at, text);
    if (text.count <= pos + 1) return at + pos + 1;
    Store(at + pos + 2, text.back >> 8 * (pos - 8) >> 8);
    at[17] = text.last;
  }
  at[pos + 1] = '.';
  return at + (text.count > pos + 1 ? text.count + 1 : pos + 1);
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
  const DecimalText text = ToText(decimal.digits, precision);
  const int exponent = decimal.exponent;
  if (exponent >= 0 && exponent < precision) [[likely]]
    return PutWithPoint(first, text, exponent);
  if (exponent < 0 && exponent >= -4) {
    Store(first, kZeros);
    first[1] = '.';
    PutDigits(first + 1 - exponent, text);
    return first + 1 - exponent + text.count;
  }
  return PutExponent(PutWithPoint(first, text, 0), exponent);
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
  DecimalDigits decimal{};
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
