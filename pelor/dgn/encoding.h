#pragma once

#include <pelor/base/export.h>
#include <pelor/base/string.h>

#include <bit>
#include <cstdint>
#include <iosfwd>

namespace Pelor::DGN {

// Words and longs in memory. A word is stored low byte first; a long is two words, the high word first. In
// range form a long's sign bit is inverted, so that ranges compare as unsigned numbers.

[[nodiscard]] constexpr std::uint16_t LoadWord(const char* bytes) noexcept {
  const auto low = static_cast<unsigned char>(bytes[0]);
  const auto high = static_cast<unsigned char>(bytes[1]);
  return static_cast<std::uint16_t>(low | high << 8U);
}

constexpr void StoreWord(char* bytes, std::uint16_t word) noexcept {
  bytes[0] = static_cast<char>(word & 0xFFU);
  bytes[1] = static_cast<char>(word >> 8U);
}

[[nodiscard]] constexpr std::int32_t LoadLong(const char* bytes) noexcept {
  // Written as one little-endian load and a rotation, which compilers turn into vector code in a loop.
  const std::uint32_t swapped = static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[0])) |
                                static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[1])) << 8U |
                                static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[2])) << 16U |
                                static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[3])) << 24U;
  return static_cast<std::int32_t>(std::rotl(swapped, 16));
}

constexpr void StoreLong(char* bytes, std::int32_t value) noexcept {
  const auto bits = static_cast<std::uint32_t>(value);
  StoreWord(bytes, static_cast<std::uint16_t>(bits >> 16U));
  StoreWord(bytes + 2, static_cast<std::uint16_t>(bits & 0xFFFFU));
}

[[nodiscard]] constexpr std::int32_t FlipSign(std::int32_t value) noexcept {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value) ^ 0x80000000U);
}

/// The number that eight bytes in DEC D-float form hold, the three lowest of its fraction bits cut off.
[[nodiscard]] PELOR_EXPORT double LoadDFloat(const char* bytes) noexcept;
/// Puts a number in DEC D-float form into eight bytes; see IEEEtoDECD for what that loses.
PELOR_EXPORT void StoreDFloat(char* bytes, double value) noexcept;

// The same through streams in binary mode. A value that cannot be read whole stays as it was; the stream's
// state tells. A long is a signed 32-bit quantity: it is sign-extended on reading, and its low 32 bits are
// written.

PELOR_EXPORT void read(std::istream& in, unsigned char& value);
PELOR_EXPORT void read(std::istream& in, unsigned short& value);
PELOR_EXPORT void read(std::istream& in, long& value, bool range_form);
PELOR_EXPORT void read(std::istream& in, double& value);

PELOR_EXPORT void write(std::ostream& out, unsigned char value);
PELOR_EXPORT void write(std::ostream& out, unsigned short value);
PELOR_EXPORT void write(std::ostream& out, long value, bool range_form);
PELOR_EXPORT void write(std::ostream& out, const double& value);

/// Converts the eight D-float bytes that stand in *value to a native number, in place.
PELOR_EXPORT void DECDtoIEEE(double* value) noexcept;
/// Converts a native number to eight D-float bytes, in place. Exact only where no 16-bit word of the number
/// but the highest has its top bit set. There is no range check: magnitudes outside [2^-128, 2^127) wrap
/// around.
PELOR_EXPORT void IEEEtoDECD(double* value) noexcept;

// Radix-50: three characters of the set "A-Z 0-9 & . _ blank" to a word. Small letters become capitals, and
// whatever is outside the set becomes '_'.

/// Packs `length` characters; `words` is the capacity of `packed` on entry, the number of words written on
/// return. Missing characters of the last word are blanks.
PELOR_EXPORT void str2rd50(const char* text, unsigned length, unsigned short* packed,
                           unsigned& words) noexcept;
/// Unpacks `words` words; `length` is the capacity of `text` on entry, the number of characters written on
/// return.
PELOR_EXPORT void rd502str(const unsigned short* packed, unsigned words, char* text,
                           unsigned& length) noexcept;
/// The words that n characters take.
[[nodiscard]] constexpr unsigned rad50length(unsigned n) noexcept {
  return n / 3 + (n % 3 != 0 ? 1 : 0);
}
/// A new array of rad50length(text.Length()) words with the packed text; the caller releases it with
/// delete[].
[[nodiscard]] PELOR_EXPORT unsigned short* torad50(const Tobri::String& text);
/// The 3 * words characters that the packed words hold.
[[nodiscard]] PELOR_EXPORT Tobri::String tointernal(const unsigned short* packed, unsigned words);

// The conversion points between the library's texts and the raw texts of a file: the identity.

[[nodiscard]] PELOR_EXPORT Tobri::String tointernal(const Tobri::String& text);
[[nodiscard]] PELOR_EXPORT Tobri::String toexternal(const Tobri::String& text);

// Scaled numbers. A result beyond 32 bits, or one of no number at all, is -2147483648.

/// A quaternion component in [-1, 1], stored times 2^31.
[[nodiscard]] PELOR_EXPORT double GetQuatParam(long stored) noexcept;
[[nodiscard]] PELOR_EXPORT long SetQuatParam(double value) noexcept;
/// An entry of a transformation matrix, stored times 2^31 / 100000.
[[nodiscard]] PELOR_EXPORT double GetTransEntry(long stored) noexcept;
[[nodiscard]] PELOR_EXPORT long SetTransEntry(double value) noexcept;

}  // namespace Pelor::DGN
