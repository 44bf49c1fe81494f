#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <tests/dgn/words.h>

namespace dgn_test {

/// What stands behind the last element.
inline constexpr std::string_view kEndOfDesign = "\xFF\xFF";

/// The bytes of a displayable element of this type on level 1, its body given in words. The words to follow
/// are right unless they are given.
inline std::string ElementBytes(int type, std::string_view body, int words_to_follow = -1) {
  std::string bytes = Design().Displayable(static_cast<std::uint16_t>(type << 8 | 1), body).Bytes();
  if (words_to_follow >= 0) {
    bytes[2] = static_cast<char>(words_to_follow & 0xFF);
    bytes[3] = static_cast<char>(words_to_follow >> 8);
  }
  return bytes;
}

/// A design of the one element, or of several one behind the other, and the end-of-design word.
inline std::string DesignOf(const std::string& elements) {
  return elements + std::string(kEndOfDesign);
}

}  // namespace dgn_test
