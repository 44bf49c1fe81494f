#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace App {

/// What the library reports about a text file, taken apart.
struct LibraryMessage {
  std::string text;         ///< "Invalid Column"
  std::int64_t line = 0;    ///< from 1; 0 when the message has no place
  std::int64_t column = 0;  ///< in bytes, from 1
};

/// Takes apart "TEXT@ NAME, line L, column C". A text of another form has no place.
[[nodiscard]] LibraryMessage ParseLibraryMessage(std::string_view what);

}  // namespace App
