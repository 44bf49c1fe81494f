#include "app/io/transcoder.h"

#include "app/io/failure.h"
#include <pelor/base/utf8.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>

namespace App {

namespace {

struct Alias {
  std::string_view name;
  std::string_view iconv_name;
};

// Names of interchange pairs that follow no rule.
constexpr std::array kAliases = {
    Alias{"windowslatin1", "CP1252"},     Alias{"windowslatin2", "CP1250"},
    Alias{"windowscyrillic", "CP1251"},   Alias{"windowsgreek", "CP1253"},
    Alias{"windowsturkish", "CP1254"},    Alias{"windowshebrew", "CP1255"},
    Alias{"windowsarabic", "CP1256"},     Alias{"windowsbalticrim", "CP1257"},
    Alias{"windowsvietnamese", "CP1258"}, Alias{"windowsthai", "CP874"},
    Alias{"windowssimpchinese", "CP936"}, Alias{"windowstradchinese", "CP950"},
    Alias{"windowsjapanese", "CP932"},    Alias{"windowskorean", "CP949"},
    Alias{"packedeucjapanese", "EUC-JP"}, Alias{"macroman", "MACINTOSH"},
};

constexpr std::string_view kNeutral = "neutral";
constexpr std::string_view kIsoPrefix = "iso8859_";
constexpr std::string_view kCodePagePrefix = "codepage";

// The name that iconv knows a set by, or the name itself.
std::string IconvName(std::string_view name) {
  std::string lower(name);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  if (lower == kNeutral) return lower;
  for (const Alias& alias : kAliases) {
    if (alias.name == lower) return std::string(alias.iconv_name);
  }
  if (lower.starts_with(kIsoPrefix)) return "ISO-8859-" + lower.substr(kIsoPrefix.size());
  if (lower.starts_with(kCodePagePrefix)) return "CP" + lower.substr(kCodePagePrefix.size());
  return std::string(name);
}

iconv_t Open(std::string_view charset, bool from_utf8) {
  const std::string name = IconvName(charset);
  // An empty name would stand for the process's locale, and what follows a slash for other ways to convert.
  if (!name.empty() && name.find_first_of("/,") == std::string::npos) {
    iconv_t converter = from_utf8 ? ::iconv_open(name.c_str(), "UTF-8") : ::iconv_open("UTF-8", name.c_str());
    // The C library marks failure by the pointer -1.
    if (std::bit_cast<std::intptr_t>(converter) != -1) return converter;
  }
  throw Failure("the character set \"" + std::string(charset) + "\" is unknown");
}

bool IsAscii(std::string_view text) {
  unsigned all = 0;
  for (const char c : text) all |= static_cast<unsigned char>(c);
  return all < 0x80;
}

}  // namespace

Transcoder::Transcoder(std::string_view charset, Direction direction)
    : from_utf8_(direction == Direction::kFromUtf8) {
  if (IconvName(charset) == kNeutral) return;
  converter_.reset(Open(charset, from_utf8_));
  keeps_ascii_ = KeepsAscii();
}

std::string_view Transcoder::Convert(std::string_view text) {
  if (!converter_ || (keeps_ascii_ && IsAscii(text))) return text;
  return ConvertAll(text);
}

bool Transcoder::KeepsAscii() {
  std::array<char, 128> ascii = {};
  for (std::size_t i = 0; i < ascii.size(); ++i) ascii[i] = static_cast<char>(i);
  const std::string_view text(ascii.data(), ascii.size());
  const bool same = ConvertAll(text) == text;
  lost_ = 0;
  invalid_ = 0;
  return same;
}

std::string_view Transcoder::ConvertAll(std::string_view text) {
  used_ = 0;
  while (!Feed(text)) {
    const Tobri::Utf8Char stopper =
        from_utf8_ ? Tobri::DecodeUtf8(text.data(), text.data() + text.size()) : Tobri::Utf8Char();
    if (stopper.length != 0) {
      ++lost_;
      std::string_view mark = "?";
      static_cast<void>(Feed(mark));
      text.remove_prefix(stopper.length);
    } else {
      ++invalid_;
      EndSequence();
      Append(text.front());
      text.remove_prefix(1);
    }
  }
  EndSequence();
  return {buffer_.data(), used_};
}

// Converts as much of `rest` as can be, and takes it away. False when it stops before a character.
bool Transcoder::Feed(std::string_view& rest) {
  while (!rest.empty()) {
    // The C library takes the text by a pointer to what it does not change.
    char* in = const_cast<char*>(rest.data());  // NOLINT(cppcoreguidelines-pro-type-const-cast)
    std::size_t in_left = rest.size();
    char* out = buffer_.data() + used_;
    std::size_t out_left = buffer_.size() - used_;
    const std::size_t outcome = ::iconv(converter_.get(), &in, &in_left, &out, &out_left);
    const int error = errno;
    used_ = buffer_.size() - out_left;
    rest.remove_prefix(rest.size() - in_left);
    if (outcome != static_cast<std::size_t>(-1)) break;
    if (error != E2BIG) return false;
    Grow();
  }
  return true;
}

// Lets out what the converter still holds, and brings it back to where it began.
void Transcoder::EndSequence() {
  while (true) {
    char* out = buffer_.data() + used_;
    std::size_t out_left = buffer_.size() - used_;
    const std::size_t outcome = ::iconv(converter_.get(), nullptr, nullptr, &out, &out_left);
    const int error = errno;
    used_ = buffer_.size() - out_left;
    if (outcome != static_cast<std::size_t>(-1) || error != E2BIG) return;
    Grow();
  }
}

void Transcoder::Append(char byte) {
  if (used_ == buffer_.size()) Grow();
  buffer_[used_++] = byte;
}

void Transcoder::Grow() {
  buffer_.resize(std::max<std::size_t>(256, 2 * buffer_.size()));
}

bool IsKnownCharset(std::string_view name) {
  try {
    const Transcoder transcoder(name, Transcoder::Direction::kToUtf8);
    return true;
  } catch (const Failure&) {
    return false;
  }
}

}  // namespace App
