#include "app/design/text_decoder.h"

namespace App {

namespace {

constexpr std::string_view kGuess = "WindowsLatin1";

bool IsTrail(char c) noexcept {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80;
}

bool IsControl(char c) noexcept {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

bool IsAscii(std::string_view text) noexcept {
  for (const char c : text) {
    if (static_cast<unsigned char>(c) >= 0x80) return false;
  }
  return true;
}

// By the form of its sequences.
bool IsUtf8(std::string_view text) noexcept {
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i++]);
    if (lead < 0x80) continue;
    if (lead < 0xC2 || lead > 0xF4) return false;
    const int trail = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    for (int k = 0; k < trail; ++k, ++i) {
      if (i >= text.size() || !IsTrail(text[i])) return false;
    }
  }
  return true;
}

}  // namespace

TextDecoder::TextDecoder(std::string_view charset)
    : transcoder_(charset.empty() ? kGuess : charset, Transcoder::Direction::kToUtf8),
      is_given_(!charset.empty()) {}

std::size_t TextDecoder::Append(std::string_view raw, std::string& text) {
  while (!raw.empty() && raw.back() == '\0') raw.remove_suffix(1);
  std::string_view decoded = raw;
  if (is_given_) {
    decoded = transcoder_.Convert(raw);
  } else if (!IsAscii(raw) && !IsUtf8(raw)) {
    has_guessed_ = true;
    decoded = transcoder_.Convert(raw);
  }
  std::size_t characters = 0;
  for (const char c : decoded) {
    if (!IsTrail(c)) ++characters;
    text.push_back(IsControl(c) ? ' ' : c);
  }
  return characters;
}

}  // namespace App
