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

 private:
  enum Special : std::uint8_t { kLineEnd = 1, kQuote = 2, kDelimiter = 4 };

  [[nodiscard]] unsigned SpecialsOf(std::string_view value) const noexcept;
  void Replace(unsigned specials);

  Transcoder& transcoder_;
  char delimiter_;
  std::array<std::uint8_t, 256> specials_{};
  std::string plain_;  // the value with specials replaced
  Tobri::String fitted_;
  std::int64_t joined_ = 0;
  std::int64_t changed_ = 0;
};

}  // namespace App
