#pragma once

#include "app/io/transcoder.h"

#include <optional>
#include <string>
#include <string_view>

namespace App {

/// Tells whether the bytes of texts are characters of a pair's character set.
class CharsetCheck {
 public:
  /// A set that nobody knows has no characters beyond ASCII, as "Neutral" has none.
  explicit CharsetCheck(std::string_view charset);

  /// What is wrong with the text, in a few words; empty when nothing is.
  [[nodiscard]] std::string MisfitOf(std::string_view text);

 private:
  std::string charset_;
  std::optional<Transcoder> transcoder_;
};

}  // namespace App
