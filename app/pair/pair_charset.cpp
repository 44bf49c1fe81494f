#include "app/pair/pair_charset.h"

#include "app/io/transcoder.h"

#include <algorithm>
#include <array>

namespace App {

namespace {

struct NamedSet {
  std::string_view plain;  // small letters and digits alone
  std::string_view name;
};

// The sets by what is left of their names without capitals, hyphens, underlines and blanks.
constexpr std::array kNamedSets = {
    NamedSet{"neutral", "Neutral"},
    NamedSet{"ascii", "Neutral"},
    NamedSet{"usascii", "Neutral"},
    NamedSet{"utf8", "UTF-8"},
    NamedSet{"windowslatin1", "WindowsLatin1"},
    NamedSet{"windowslatin2", "WindowsLatin2"},
    NamedSet{"windowscyrillic", "WindowsCyrillic"},
    NamedSet{"windowsgreek", "WindowsGreek"},
    NamedSet{"windowsturkish", "WindowsTurkish"},
    NamedSet{"windowshebrew", "WindowsHebrew"},
    NamedSet{"windowsarabic", "WindowsArabic"},
    NamedSet{"windowsbalticrim", "WindowsBalticRim"},
    NamedSet{"windowsvietnamese", "WindowsVietnamese"},
    NamedSet{"windowsthai", "WindowsThai"},
    NamedSet{"windowsjapanese", "WindowsJapanese"},
    NamedSet{"windowssimpchinese", "WindowsSimpChinese"},
    NamedSet{"windowskorean", "WindowsKorean"},
    NamedSet{"windowstradchinese", "WindowsTradChinese"},
    NamedSet{"gbk", "WindowsSimpChinese"},
    NamedSet{"uhc", "WindowsKorean"},
    NamedSet{"big5", "WindowsTradChinese"},
    NamedSet{"packedeucjapanese", "PackedEUCJapanese"},
    NamedSet{"eucjp", "PackedEUCJapanese"},
    NamedSet{"macroman", "MacRoman"},
    NamedSet{"macintosh", "MacRoman"},
    NamedSet{"latin1", "ISO8859_1"},
    NamedSet{"latin2", "ISO8859_2"},
    NamedSet{"latin3", "ISO8859_3"},
    NamedSet{"latin4", "ISO8859_4"},
    NamedSet{"latin5", "ISO8859_9"},
};

// The code pages that have names of their own.
constexpr std::array kNamedPages = {
    NamedSet{"1250", "WindowsLatin2"},     NamedSet{"1251", "WindowsCyrillic"},
    NamedSet{"1252", "WindowsLatin1"},     NamedSet{"1253", "WindowsGreek"},
    NamedSet{"1254", "WindowsTurkish"},    NamedSet{"1255", "WindowsHebrew"},
    NamedSet{"1256", "WindowsArabic"},     NamedSet{"1257", "WindowsBalticRim"},
    NamedSet{"1258", "WindowsVietnamese"}, NamedSet{"874", "WindowsThai"},
    NamedSet{"932", "WindowsJapanese"},    NamedSet{"936", "WindowsSimpChinese"},
    NamedSet{"949", "WindowsKorean"},      NamedSet{"950", "WindowsTradChinese"},
};

constexpr std::array<std::string_view, 4> kPagePrefixes = {"codepage", "cp", "windows", "ibm"};
constexpr std::string_view kIsoPrefix = "iso8859";

std::string Plain(std::string_view name) {
  std::string plain;
  for (const char c : name) {
    if (c == '-' || c == '_' || c == ' ') continue;
    plain += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return plain;
}

bool IsNumber(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string PageName(std::string_view page) {
  for (const NamedSet& named : kNamedPages) {
    if (named.plain == page) return std::string(named.name);
  }
  return "CodePage" + std::string(page);
}

}  // namespace

std::string PairCharsetName(std::string_view charset) {
  const std::string plain = Plain(charset);
  for (const NamedSet& named : kNamedSets) {
    if (named.plain == plain) return std::string(named.name);
  }
  for (const std::string_view prefix : kPagePrefixes) {
    if (!plain.starts_with(prefix)) continue;
    const std::string_view page = std::string_view(plain).substr(prefix.size());
    if (IsNumber(page)) return PageName(page);
  }
  if (plain.starts_with(kIsoPrefix) && IsNumber(std::string_view(plain).substr(kIsoPrefix.size()))) {
    return "ISO8859_" + plain.substr(kIsoPrefix.size());
  }
  return std::string(charset);
}

CharsetTraits ProbeCharset(std::string_view charset) {
  // What files of this kind are written with; a backslash is another sign in some sets that do fit.
  constexpr std::string_view kPlain = "AZaz09 \t\r\n!\"#%&'()*+,-./:;<=>?_";
  constexpr std::array<std::string_view, 6> kLetters = {"é", "ж", "あ", "한", "字", "ก"};
  Transcoder transcoder(charset, Transcoder::Direction::kFromUtf8);
  CharsetTraits traits;
  traits.fits_pairs = transcoder.Convert(kPlain) == kPlain;
  for (const std::string_view letter : kLetters) {
    const std::string_view bytes = transcoder.Convert(letter);
    if (bytes.size() > 1) traits.is_multi_byte = true;
    const bool has_letter = bytes != "?";
    if (has_letter && (bytes.empty() || static_cast<unsigned char>(bytes.front()) < 0x80)) {
      traits.fits_pairs = false;
    }
  }
  return traits;
}

}  // namespace App
