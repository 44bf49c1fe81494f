// Numbers in and out. The first eight bytes are a double, the ninth a precision: its text must be that of
// snprintf and read back as strtod reads it. All bytes are a text too: what is taken from it as a number must
// be what strtod takes, and the parser must refuse what is none.

#include <pelor/base/number.h>
#include <pelor/base/number_format.h>
#include <pelor/base/number_parse.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

bool SameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

void Format(const std::uint8_t* data) {
  std::uint64_t bits = 0;
  for (int i = 0; i < 8; ++i) bits |= std::uint64_t{data[i]} << 8 * i;
  const auto value = std::bit_cast<double>(bits);
  const int precision = data[8] % (Tobri::kMaxPrecision + 1);

  char text[Tobri::kGeneralSize];
  const char* const end = Tobri::FormatGeneral(text, value, precision);
  char expected[64];
  const int length = std::snprintf(expected, sizeof expected, "%.*g", precision, value);
  Require(std::string_view(text, end) == std::string_view(expected, static_cast<std::size_t>(length)));

  double back = 0.0;
  const char* const read = Tobri::ParseDouble(text, end, back);
  const double by_strtod = std::strtod(expected, nullptr);
  if (!std::isfinite(by_strtod)) {
    Require(read == nullptr);
  } else {
    Require(read == end && SameBits(back, by_strtod));
    if (precision == Tobri::kMaxPrecision) Require(SameBits(back, value));
  }
}

/// How far a number in the parser's grammar reaches: 0 for none. Hexadecimal numbers and words are none,
/// which strtod would take.
std::size_t NumberLength(std::string_view text) {
  const auto is_digit = [&](std::size_t at) {
    return at < text.size() && text[at] >= '0' && text[at] <= '9';
  };
  const auto is_one_of = [&](std::size_t at, std::string_view set) {
    return at < text.size() && set.find(text[at]) != std::string_view::npos;
  };
  std::size_t at = is_one_of(0, "+-") ? 1 : 0;
  const std::size_t whole = at;
  while (is_digit(at)) ++at;
  std::size_t digits = at - whole;
  if (is_one_of(at, ".")) {
    const std::size_t point = ++at;
    while (is_digit(at)) ++at;
    digits += at - point;
  }
  if (digits == 0) return 0;
  if (is_one_of(at, "eE")) {
    std::size_t exponent = at + 1;
    if (is_one_of(exponent, "+-")) ++exponent;
    if (is_digit(exponent)) {
      at = exponent;
      while (is_digit(at)) ++at;
    }
  }
  return at;
}

void Parse(const std::string& text) {
  const char* const first = text.data();
  const char* const last = first + text.size();
  const std::size_t length = NumberLength(text);
  const double expected = std::strtod(text.substr(0, length).c_str(), nullptr);

  double value = 0.25;
  const char* const end = Tobri::ParseDouble(first, last, value);
  if (length == 0 || !std::isfinite(expected)) {
    Require(end == nullptr && SameBits(value, 0.25));
  } else {
    Require(end == first + length && SameBits(value, expected));
  }

  const bool plus = !text.empty() && text[0] == '+' && (text.size() < 2 || text[1] != '-');
  int whole = 0;
  int from_chars_value = 0;
  const auto [ptr, error] = std::from_chars(first + (plus ? 1 : 0), last, from_chars_value);
  const char* const whole_end = Tobri::ParseInteger(first, last, whole);
  Require(whole_end == (error == std::errc() ? ptr : nullptr) && whole == from_chars_value);

  static_cast<void>(Tobri::TxtFmt<int>::Get(text, Tobri::IntFmt{10, 3}));
  static_cast<void>(Tobri::TxtFmt<long>::Get(text, Tobri::IntFmt()));
  static_cast<void>(Tobri::TxtFmt<double>::Get(text, Tobri::FltFmt()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size >= 9) Format(data);
  Parse(std::string(data, data + size));
  return 0;
}
