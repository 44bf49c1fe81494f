#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

namespace App {

/// Twelve significant digits at most, as short as can be.
[[nodiscard]] std::string ToText(double value);
/// With a comma between every three digits.
[[nodiscard]] std::string ToText(std::int64_t count);
/// "1 element", "2 elements": the plural is made with an s.
[[nodiscard]] std::string Counted(std::int64_t count, std::string_view noun);

/// "there is 1 element", "there are 2 elements".
[[nodiscard]] std::string ThereAre(std::int64_t count, std::string_view noun);

/// One line of a listing: what it tells in a column of its own, and the text.
void PrintLine(std::ostream& out, std::string_view what, std::string_view text);
/// A line that continues the one before.
void PrintMore(std::ostream& out, std::string_view text);

/// As text with two blanks for every level. What is not UTF-8 becomes the replacement character.
[[nodiscard]] std::string Dump(const nlohmann::ordered_json& json);

}  // namespace App
