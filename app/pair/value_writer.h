#pragma once

#include "app/io/transcoder.h"
#include <pelor/base/string.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace App {

/// Makes values fit for a MID file: converts them, and keeps them off what the library's writer cannot do.
class ValueWriter {
 public:
  ValueWriter(Transcoder& transcoder, char delimiter);

  /// The value as it goes to the library's writer; good until the next call, and no longer than `value`.
  [[nodiscard]] const Tobri::String& Fit(const Tobri::String& value);

  /// Values whose line ends became blanks so far.
  [[nodiscard]] std::int64_t GetJoined() const noexcept { return joined_; }
  /// Values that lost the delimiter or their quotes so far.
  [[nodiscard]] std::int64_t GetChanged() const noexcept { return changed_; }
  /// Whether this delimiter would have left all values so far as they are: none holds both it and a quote.
  [[nodiscard]] bool WouldKeepAll(char delimiter) const noexcept {
    return !beside_quotes_[static_cast<unsigned char>(delimiter)];
  }

 private:
  enum Special : std::uint8_t { kLineEnd = 1, kQuote = 2, kDelimiter = 4 };

  [[nodiscard]] unsigned SpecialsOf(std::string_view value) const noexcept;
  void Replace(unsigned specials);
  void NoteBesideQuotes(std::string_view text) noexcept;

  Transcoder& transcoder_;
  char delimiter_;
  std::array<std::uint8_t, 256> specials_{};
  std::array<bool, 256> beside_quotes_{};  // what values with quotes hold, before and after conversion
  std::string plain_;                      // the value with specials replaced
  Tobri::String fitted_;
  std::int64_t joined_ = 0;
  std::int64_t changed_ = 0;
};

}  // namespace App
