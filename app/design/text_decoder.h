#pragma once

#include "app/io/transcoder.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace App {

/// Turns the raw texts of a design into UTF-8. A design does not say which character set its texts have.
class TextDecoder {
 public:
  /// `charset` as a `Transcoder` knows it. When it is empty, a text that is valid UTF-8 is taken as such, and
  /// any other as Western European.
  explicit TextDecoder(std::string_view charset);

  /// Appends a text: zero bytes at its end are dropped, and control characters become blanks. Gives the
  /// number of characters.
  std::size_t Append(std::string_view raw, std::string& text);

  /// Whether a text had to be taken as Western European.
  [[nodiscard]] bool HasGuessed() const noexcept { return has_guessed_; }

 private:
  Transcoder transcoder_;
  bool is_given_;
  bool has_guessed_ = false;
};

}  // namespace App
