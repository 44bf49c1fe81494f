#pragma once

#include <string>
#include <string_view>

namespace App {

/// The name that the header of a pair gives to a character set: "WindowsCyrillic" for "cp1251", for instance.
/// A set that such headers have no name for keeps the name it came with.
[[nodiscard]] std::string PairCharsetName(std::string_view charset);

/// How the characters of a set are stored, as far as that matters to a pair.
struct CharsetTraits {
  /// Whether a line-based text file may be in the set: plain ASCII stands for itself, and nothing else looks
  /// like it at its beginning. UTF-16 is not like that, nor is a set that shifts.
  bool fits_pairs = false;
  /// Whether a character may take more than one byte.
  bool is_multi_byte = false;
};
/// Throws `Failure` when nobody knows the set.
[[nodiscard]] CharsetTraits ProbeCharset(std::string_view charset);

}  // namespace App
