#include "app/inspect/layout.h"

#include <nlohmann/json.hpp>

#include <array>
#include <charconv>
#include <iomanip>
#include <ostream>

namespace App {

namespace {

constexpr int kSignificantDigits = 12;
constexpr int kWhatWidth = 16;

}  // namespace

std::string ToText(double value) {
  std::array<char, 64> digits = {};
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                        std::chars_format::general, kSignificantDigits)
                              .ptr;
  return std::string(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

std::string ToText(std::int64_t count) {
  std::string digits = std::to_string(count);
  const std::size_t first = count < 0 ? 1 : 0;
  for (std::size_t at = digits.size(); at > first + 3;) digits.insert(at -= 3, 1, ',');
  return digits;
}

std::string Counted(std::int64_t count, std::string_view noun) {
  return ToText(count).append(" ").append(noun).append(count == 1 ? "" : "s");
}

std::string ThereAre(std::int64_t count, std::string_view noun) {
  return (count == 1 ? "there is " : "there are ") + Counted(count, noun);
}

void PrintLine(std::ostream& out, std::string_view what, std::string_view text) {
  out << "  " << std::left << std::setfill(' ') << std::setw(kWhatWidth) << what << "  " << text << '\n';
}

void PrintMore(std::ostream& out, std::string_view text) {
  PrintLine(out, "", text);
}

std::string Dump(const nlohmann::ordered_json& json) {
  return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

}  // namespace App
