#include "app/inspect/value_check.h"

#include "app/inspect/layout.h"
#include "app/io/blanks.h"
#include <pelor/mif.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>

namespace App {

using Pelor::MI::Column;

namespace {

template <class Number>
std::optional<Number> Read(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::string MisfitOfInteger(std::string_view value, std::int64_t lowest, std::int64_t highest) {
  const std::optional<std::int64_t> number = Read<std::int64_t>(value);
  if (!number) return Read<double>(value) ? "is not a whole number in the range" : "is not a number";
  if (*number < lowest || *number > highest) {
    return "lies outside " + std::to_string(lowest) + " to " + std::to_string(highest);
  }
  return {};
}

// A width counts all digits, the point and the sign; a leading 0 before the point does not need its place.
std::string MisfitOfDecimal(std::string_view value, const Column& column) {
  if (!Read<double>(value)) return "is not a number";
  if (value.find_first_of("eEnN") != std::string_view::npos) return {};
  const std::size_t point = value.find('.');
  const std::size_t decimals = point == std::string_view::npos ? 0 : value.size() - point - 1;
  const std::size_t whole = value.size() - (point == std::string_view::npos ? 0 : decimals + 1);
  if (decimals > static_cast<std::size_t>(std::max(column.decimals, 0))) {
    return "has " + Counted(static_cast<std::int64_t>(decimals), "decimal");
  }
  const std::int64_t behind = column.decimals > 0 ? std::int64_t{column.decimals} + 1 : 0;
  const auto before = static_cast<std::int64_t>(whole);
  if (before > std::max<std::int64_t>(column.width - behind, 1)) {
    return "takes " + Counted(before + behind, "character") + " with sign, point and decimals";
  }
  return {};
}

bool IsDay(int year, int month, int day) {
  constexpr int kDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (year < 0 || month < 1 || month > 12 || day < 1 || day > kDays[month - 1]) return false;
  const bool is_leap_year = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month != 2 || day < 29 || is_leap_year;
}

// Year, month and day in eight digits; older files have month/day/year.
bool IsDate(std::string_view value) {
  const std::size_t slash = value.find('/');
  if (slash == std::string_view::npos) {
    const std::optional<int> number = Read<int>(value);
    return value.size() == 8 && number && IsDay(*number / 10000, *number / 100 % 100, *number % 100);
  }
  const std::size_t second = value.find('/', slash + 1);
  if (second == std::string_view::npos) return false;
  const std::optional<int> month = Read<int>(value.substr(0, slash));
  const std::optional<int> day = Read<int>(value.substr(slash + 1, second - slash - 1));
  const std::optional<int> year = Read<int>(value.substr(second + 1));
  return month && day && year && IsDay(*year, *month, *day);
}

bool IsLogical(std::string_view value) {
  return value.size() == 1 && std::string_view("TtFfYyNn01").find(value.front()) != std::string_view::npos;
}

}  // namespace

std::string MisfitOf(std::string_view value, const Column& column) {
  if (column.type == Column::Character) {
    if (value.size() <= static_cast<std::size_t>(std::max(column.width, 0))) return {};
    return "is " + Counted(static_cast<std::int64_t>(value.size()), "byte") + " long";
  }
  const std::string_view text = WithoutBlanks(value);
  if (text.empty()) return {};
  switch (column.type) {
    case Column::Integer:
      return MisfitOfInteger(text, std::numeric_limits<std::int32_t>::min(),
                             std::numeric_limits<std::int32_t>::max());
    case Column::SmallInt:
      return MisfitOfInteger(text, std::numeric_limits<std::int16_t>::min(),
                             std::numeric_limits<std::int16_t>::max());
    case Column::Decimal:
      return MisfitOfDecimal(text, column);
    case Column::Float:
      return Read<double>(text) ? std::string() : "is not a number";
    case Column::Date:
      return IsDate(text) ? std::string() : "is not a date";
    case Column::Logical:
      return IsLogical(text) ? std::string() : "is neither true nor false";
    default:
      return {};
  }
}

std::string TypeText(const Column& column) {
  std::string text(std::string_view(
      Pelor::MIF::KeyWordText(static_cast<Pelor::MIF::KeyWord>(column.type + Pelor::MIF::Char))));
  if (column.type == Column::Character) text += '(' + std::to_string(column.width) + ')';
  if (column.type == Column::Decimal) {
    text += '(' + std::to_string(column.width) + ',' + std::to_string(column.decimals) + ')';
  }
  return text;
}

}  // namespace App
