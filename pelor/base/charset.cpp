#include <pelor/base/charset.h>
#include <pelor/base/utf8.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace Tobri {

namespace {

// The characters of the codes 0x80 to 0xFF. All of them lie in the basic plane, from U+0080 on.
using UpperHalf = std::array<std::uint16_t, 128>;

constexpr UpperHalf kIso8859_1 = [] {
  UpperHalf half{};
  for (unsigned i = 0; i < half.size(); ++i) half[i] = static_cast<std::uint16_t>(0x80 + i);
  return half;
}();

// Code page 1252 defines no character for 81, 8D, 8F, 90 and 9D; they stand for the control characters of the
// same number, so that every byte survives the way there and back.
constexpr UpperHalf kWindowsLatin1 = [] {
  constexpr std::array<std::uint16_t, 32> kOwn = {
      0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
      0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
  };
  UpperHalf half = kIso8859_1;
  std::copy(kOwn.begin(), kOwn.end(), half.begin());
  return half;
}();

constexpr UpperHalf kCodePage437 = {
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7,  // 80
    0x00EA, 0x00EB, 0x00E8, 0x00EF, 0x00EE, 0x00EC, 0x00C4, 0x00C5,  // 88
    0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9,  // 90
    0x00FF, 0x00D6, 0x00DC, 0x00A2, 0x00A3, 0x00A5, 0x20A7, 0x0192,  // 98
    0x00E1, 0x00ED, 0x00F3, 0x00FA, 0x00F1, 0x00D1, 0x00AA, 0x00BA,  // A0
    0x00BF, 0x2310, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB,  // A8
    0x2591, 0x2592, 0x2593, 0x2502, 0x2524, 0x2561, 0x2562, 0x2556,  // B0
    0x2555, 0x2563, 0x2551, 0x2557, 0x255D, 0x255C, 0x255B, 0x2510,  // B8
    0x2514, 0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x255E, 0x255F,  // C0
    0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550, 0x256C, 0x2567,  // C8
    0x2568, 0x2564, 0x2565, 0x2559, 0x2558, 0x2552, 0x2553, 0x256B,  // D0
    0x256A, 0x2518, 0x250C, 0x2588, 0x2584, 0x258C, 0x2590, 0x2580,  // D8
    0x03B1, 0x00DF, 0x0393, 0x03C0, 0x03A3, 0x03C3, 0x00B5, 0x03C4,  // E0
    0x03A6, 0x0398, 0x03A9, 0x03B4, 0x221E, 0x03C6, 0x03B5, 0x2229,  // E8
    0x2261, 0x00B1, 0x2265, 0x2264, 0x2320, 0x2321, 0x00F7, 0x2248,  // F0
    0x00B0, 0x2219, 0x00B7, 0x221A, 0x207F, 0x00B2, 0x25A0, 0x00A0,  // F8
};

constexpr UpperHalf kCodePage850 = {
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7,  // 80
    0x00EA, 0x00EB, 0x00E8, 0x00EF, 0x00EE, 0x00EC, 0x00C4, 0x00C5,  // 88
    0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9,  // 90
    0x00FF, 0x00D6, 0x00DC, 0x00F8, 0x00A3, 0x00D8, 0x00D7, 0x0192,  // 98
    0x00E1, 0x00ED, 0x00F3, 0x00FA, 0x00F1, 0x00D1, 0x00AA, 0x00BA,  // A0
    0x00BF, 0x00AE, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB,  // A8
    0x2591, 0x2592, 0x2593, 0x2502, 0x2524, 0x00C1, 0x00C2, 0x00C0,  // B0
    0x00A9, 0x2563, 0x2551, 0x2557, 0x255D, 0x00A2, 0x00A5, 0x2510,  // B8
    0x2514, 0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x00E3, 0x00C3,  // C0
    0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550, 0x256C, 0x00A4,  // C8
    0x00F0, 0x00D0, 0x00CA, 0x00CB, 0x00C8, 0x0131, 0x00CD, 0x00CE,  // D0
    0x00CF, 0x2518, 0x250C, 0x2588, 0x2584, 0x00A6, 0x00CC, 0x2580,  // D8
    0x00D3, 0x00DF, 0x00D4, 0x00D2, 0x00F5, 0x00D5, 0x00B5, 0x00FE,  // E0
    0x00DE, 0x00DA, 0x00DB, 0x00D9, 0x00FD, 0x00DD, 0x00AF, 0x00B4,  // E8
    0x00AD, 0x00B1, 0x2017, 0x00BE, 0x00B6, 0x00A7, 0x00F7, 0x00B8,  // F0
    0x00B0, 0x00A8, 0x00B7, 0x00B9, 0x00B3, 0x00B2, 0x25A0, 0x00A0,  // F8
};

// Both directions of one set, made from its upper half when the library is compiled.
class Tables {
 public:
  explicit constexpr Tables(const UpperHalf& half) {
    for (unsigned i = 0; i < half.size(); ++i) {
      to_utf8_[i] = Encode(half[i]);
      unsigned slot = Hash(half[i]);
      while (codes_[slot].character != 0) slot = (slot + 1) % kSlots;
      codes_[slot] = {half[i], static_cast<char>(0x80 + i)};
    }
  }

  // The UTF-8 text of a code from 0x80 on.
  std::string_view Utf8(char c) const noexcept {
    const Sequence& sequence = to_utf8_[static_cast<unsigned char>(c) - 0x80U];
    return {sequence.bytes, sequence.length};
  }

  // The code of a character from U+0080 on, '?' when the set lacks it.
  char Code(char32_t character) const noexcept {
    for (unsigned slot = Hash(character); codes_[slot].character != 0; slot = (slot + 1) % kSlots) {
      if (codes_[slot].character == character) return codes_[slot].code;
    }
    return '?';
  }

 private:
  struct Sequence {
    char bytes[3];
    std::uint8_t length;
  };
  // A slot of an open hash table; no character is 0, so 0 marks an empty slot.
  struct Slot {
    std::uint16_t character;
    char code;
  };
  // Half of the slots stay empty, which keeps the probes short.
  static constexpr unsigned kSlots = 256;

  static constexpr unsigned Hash(char32_t character) noexcept {
    return static_cast<unsigned>((character * 0x9E3779B1U) >> 24) % kSlots;  // 2^32 over the golden ratio
  }
  static constexpr Sequence Encode(unsigned character) noexcept {
    const auto trail = [](unsigned bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); };
    if (character < 0x800) return {{static_cast<char>(0xC0U | character >> 6), trail(character), 0}, 2};
    return {{static_cast<char>(0xE0U | character >> 12), trail(character >> 6), trail(character)}, 3};
  }

  std::array<Sequence, 128> to_utf8_{};
  std::array<Slot, kSlots> codes_{};
};

constexpr Tables kTablesIso8859_1(kIso8859_1);
constexpr Tables kTablesWindowsLatin1(kWindowsLatin1);
constexpr Tables kTablesCodePage437(kCodePage437);
constexpr Tables kTablesCodePage850(kCodePage850);

const Tables* FindTables(Chr8C::Id id) noexcept {
  switch (id) {
    case Chr8C::Iso8859_1:
      return &kTablesIso8859_1;
    case Chr8C::WindowsLatin1:
      return &kTablesWindowsLatin1;
    case Chr8C::CodePage437:
      return &kTablesCodePage437;
    case Chr8C::CodePage850:
      return &kTablesCodePage850;
    default:
      return nullptr;
  }
}

bool IsAscii(char c) noexcept {
  return static_cast<unsigned char>(c) < 0x80;
}

// The first byte from 0x80 on, or `end`; eight bytes a step.
const char* SkipAscii(const char* text, const char* end) noexcept {
  constexpr std::uint64_t kHighBits = 0x8080808080808080U;
  while (end - text >= 8) {
    std::uint64_t bytes;
    std::memcpy(&bytes, text, sizeof bytes);
    if ((bytes & kHighBits) != 0) break;
    text += 8;
  }
  while (text != end && IsAscii(*text)) ++text;
  return text;
}

// Copies the ASCII characters at `in`, moves `in` behind them and returns the new end of the output.
char* CopyAscii(const char*& in, const char* end, char* out) noexcept {
  const char* const run = std::exchange(in, SkipAscii(in, end));
  return std::copy(run, in, out);
}

}  // namespace

bool Chr8C::HasTable() const noexcept {
  return FindTables(id_) != nullptr;
}

String Chr8C::FromLoc(const String& text) const {
  std::string result(text.str());
  const Tables* const tables = FindTables(id_);
  if (tables == nullptr) return result;

  // No sequence grows, so the result is written over its own copy of the text.
  const char* const end = text.str().data() + text.str().size();
  const char* in = SkipAscii(text.str().data(), end);
  char* out = result.data() + (in - text.str().data());
  while (in != end) {
    if (IsAscii(*in)) {
      out = CopyAscii(in, end, out);
    } else if (const Utf8Char character = DecodeUtf8(in, end); character.length != 0) {
      *out++ = tables->Code(character.code);
      in += character.length;
    } else {
      *out++ = *in++;
    }
  }
  result.resize(static_cast<std::size_t>(out - result.data()));
  return result;
}

String Chr8C::ToLoc(const String& text) const {
  const Tables* const tables = FindTables(id_);
  const std::string_view source = text;
  const char* const end = source.data() + source.size();
  const char* in = SkipAscii(source.data(), end);
  if (tables == nullptr || in == end) return text;

  std::size_t size = static_cast<std::size_t>(in - source.data());
  for (const char* p = in; p != end; ++p) {
    size += IsAscii(*p) ? 1 : tables->Utf8(*p).size();
  }
  std::string result(size, '\0');
  char* out = std::copy(source.data(), in, result.data());
  while (in != end) {
    if (IsAscii(*in)) {
      out = CopyAscii(in, end, out);
    } else {
      for (const char byte : tables->Utf8(*in++)) *out++ = byte;
    }
  }
  return result;
}

}  // namespace Tobri
