#pragma once

#include <algorithm>
#include <string_view>

namespace App {

/// The text without the blanks and tabs around it.
[[nodiscard]] inline std::string_view WithoutBlanks(std::string_view text) noexcept {
  constexpr std::string_view kBlanks = " \t";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

}  // namespace App
