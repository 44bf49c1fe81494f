#pragma once

#include <array>
#include <cstdint>

namespace Tobri {

/// Character classes of the local character set, UTF-8, byte by byte.
class LocChar {
 public:
  /// Bits of a table entry; a byte may be in several classes.
  enum Class : std::int32_t {
    Upper = 1 << 0,     ///< A to Z
    Lower = 1 << 1,     ///< a to z
    Letter = 1 << 2,    ///< upper and lower, and every byte from 0x80 on, which is part of a longer sequence
    Digit = 1 << 3,     ///< 0 to 9
    HexDigit = 1 << 4,  ///< 0 to 9, A to F, a to f
    Space = 1 << 5,     ///< blank, tab, LF, VT, FF, CR
    Punct = 1 << 6,     ///< every visible ASCII character that is neither a letter nor a digit
    Control = 1 << 7,   ///< below 0x20, and 0x7F
  };

  using Table = std::array<std::uint8_t, 256>;

  /// The classes of each byte, by its unsigned code.
  static const Table ctype;

  /// True when `c` is in any of the classes, given as bits.
  [[nodiscard]] static bool Is(char c, int classes) noexcept;

 private:
  static constexpr Table MakeTable() noexcept;
};

constexpr LocChar::Table LocChar::MakeTable() noexcept {
  Table table{};
  for (unsigned code = 0; code < table.size(); ++code) {
    const bool upper = code >= 'A' && code <= 'Z';
    const bool lower = code >= 'a' && code <= 'z';
    const bool digit = code >= '0' && code <= '9';
    int classes = 0;
    if (upper) classes |= Upper;
    if (lower) classes |= Lower;
    if (upper || lower || code >= 0x80) classes |= Letter;
    if (digit) classes |= Digit;
    if (digit || (code >= 'A' && code <= 'F') || (code >= 'a' && code <= 'f')) classes |= HexDigit;
    if (code == ' ' || (code >= '\t' && code <= '\r')) classes |= Space;
    if (code > ' ' && code < 0x7F && !upper && !lower && !digit) classes |= Punct;
    if (code < ' ' || code == 0x7F) classes |= Control;
    table[code] = static_cast<std::uint8_t>(classes);
  }
  return table;
}

inline constexpr LocChar::Table LocChar::ctype = LocChar::MakeTable();

inline bool LocChar::Is(char c, int classes) noexcept {
  return (ctype[static_cast<unsigned char>(c)] & classes) != 0;
}

}  // namespace Tobri
