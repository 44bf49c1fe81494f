#include <pelor/base/number.h>
#include <pelor/base/number_format.h>
#include <pelor/base/number_parse.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string_view>

namespace Tobri {

namespace {

constexpr char kGroupMark = ',';
/// Room for a 32-bit number in base 2, its sign, and a mark behind every digit.
constexpr std::size_t kWholeSize = 1 + 2 * 32;

std::string_view WithoutBlanks(std::string_view text) noexcept {
  constexpr std::string_view kBlanks = " \t\n\v\f\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

int Base(const IntFmt& format) noexcept {
  return format.base >= 2 && format.base <= 36 ? format.base : 10;
}

std::size_t Grouping(const IntFmt& format) noexcept {
  return static_cast<std::size_t>(std::clamp(format.grouping, 0, NumFmtGrp::max_grouping));
}

std::int32_t GetWhole(std::string_view text, const IntFmt& format) noexcept {
  text = WithoutBlanks(text);
  char buffer[kWholeSize];
  if (Grouping(format) != 0 && text.size() <= sizeof buffer) {
    // A mark stands between two digits, never at an end, behind a sign or beside another mark.
    char* end = buffer;
    char before = kGroupMark;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const bool mark = text[i] == kGroupMark && i + 1 < text.size();
      if (!mark || before == kGroupMark || before == '-' || before == '+') *end++ = text[i];
      before = text[i];
    }
    text = {buffer, end};
  }
  std::int32_t value = 0;
  const char* const last = text.data() + text.size();
  return ParseInteger(text.data(), last, value, Base(format)) == last ? value : 0;
}

String PutWhole(std::int32_t value, const IntFmt& format) {
  char digits[kWholeSize];
  const char* const end = std::to_chars(digits, digits + sizeof digits, value, Base(format)).ptr;
  const std::size_t grouping = Grouping(format);
  if (grouping == 0) return std::string_view(digits, end);

  char grouped[kWholeSize];
  char* out = grouped;
  for (const char* at = digits; at != end; ++at) {
    *out++ = *at;
    const auto left = static_cast<std::size_t>(end - at - 1);
    if (*at != '-' && left != 0 && left % grouping == 0) *out++ = kGroupMark;
  }
  return std::string_view(grouped, out);
}

}  // namespace

int TxtFmt<int>::Get(const String& text, IntFmt format) noexcept {
  return GetWhole(text, format);
}

String TxtFmt<int>::Put(int value, IntFmt format) {
  return PutWhole(value, format);
}

long TxtFmt<long>::Get(const String& text, IntFmt format) noexcept {
  return GetWhole(text, format);
}

String TxtFmt<long>::Put(long value, IntFmt format) {
  return PutWhole(static_cast<std::int32_t>(value), format);
}

double TxtFmt<double>::Get(const String& text, FltFmt /*format*/) noexcept {
  const std::string_view number = WithoutBlanks(text);
  const char* const last = number.data() + number.size();
  double value = 0.0;
  return ParseDouble(number.data(), last, value) == last ? value : 0.0;
}

String TxtFmt<double>::Put(double value, FltFmt format) {
  char buffer[kGeneralSize];
  const char* const end = format.precision > 0
                              ? FormatGeneral(buffer, value, std::min(format.precision, kMaxPrecision))
                              : std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  return std::string_view(buffer, end);
}

}  // namespace Tobri
