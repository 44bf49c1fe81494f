#include "app/inspect/charset_check.h"

#include <algorithm>

namespace App {

namespace {

bool IsNeutral(std::string_view charset) {
  constexpr std::string_view kNeutral = "neutral";
  return charset.empty() ||
         std::equal(charset.begin(), charset.end(), kNeutral.begin(), kNeutral.end(), [](char a, char b) {
           return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
         });
}

}  // namespace

CharsetCheck::CharsetCheck(std::string_view charset) : charset_(IsNeutral(charset) ? "Neutral" : charset) {
  if (!IsNeutral(charset) && IsKnownCharset(charset))
    transcoder_.emplace(charset, Transcoder::Direction::kToUtf8);
}

std::string CharsetCheck::MisfitOf(std::string_view text) {
  if (transcoder_) {
    const std::int64_t before = transcoder_->GetInvalid();
    static_cast<void>(transcoder_->Convert(text));
    if (transcoder_->GetInvalid() == before) return {};
    return "holds bytes that are no characters of the set " + charset_;
  }
  const bool is_ascii =
      std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  return is_ascii ? std::string()
                  : "holds bytes beyond ASCII, and the set " + charset_ + " does not say what they are";
}

}  // namespace App
