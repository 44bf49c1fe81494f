#pragma once

#include <cstddef>

namespace Tobri {

/// One character at the head of a UTF-8 text: its code and the bytes it takes. A length of 0 says that no
/// valid character begins there.
struct Utf8Char {
  char32_t code = 0;
  unsigned length = 0;
};

/// Decodes the character that begins at `text` and ends before `end`; `text` is below `end`. Strict: a
/// sequence that is cut off, longer than need be, a surrogate or beyond U+10FFFF is not valid (Unicode 15.0,
/// table 3-7).
[[nodiscard]] constexpr Utf8Char DecodeUtf8(const char* text, const char* end) noexcept {
  const auto byte = [text](std::ptrdiff_t i) {
    return static_cast<unsigned>(static_cast<unsigned char>(text[i]));
  };
  const std::ptrdiff_t available = end - text;
  const auto is_trail = [&](std::ptrdiff_t i) { return i < available && (byte(i) & 0xC0U) == 0x80; };
  const unsigned lead = byte(0);
  if (lead < 0x80) return {lead, 1};
  if (lead < 0xC2 || lead > 0xF4 || !is_trail(1)) return {};
  if (lead < 0xE0) return {(lead & 0x1FU) << 6 | (byte(1) & 0x3FU), 2};
  if (!is_trail(2)) return {};
  if (lead < 0xF0) {
    const char32_t code = (lead & 0x0FU) << 12 | (byte(1) & 0x3FU) << 6 | (byte(2) & 0x3FU);
    if (code < 0x800 || (code >= 0xD800 && code <= 0xDFFF)) return {};
    return {code, 3};
  }
  if (!is_trail(3)) return {};
  const char32_t code =
      (lead & 0x07U) << 18 | (byte(1) & 0x3FU) << 12 | (byte(2) & 0x3FU) << 6 | (byte(3) & 0x3FU);
  if (code < 0x10000 || code > 0x10FFFF) return {};
  return {code, 4};
}

}  // namespace Tobri
