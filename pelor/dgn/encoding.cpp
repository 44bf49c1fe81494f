#include <pelor/dgn/encoding.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <istream>
#include <memory>
#include <ostream>
#include <string>

namespace Pelor::DGN {

namespace {

template <std::size_t N>
bool ReadBytes(std::istream& in, std::array<char, N>& bytes) {
  return static_cast<bool>(in.read(bytes.data(), N));
}

template <std::size_t N>
void WriteBytes(std::ostream& out, const std::array<char, N>& bytes) {
  out.write(bytes.data(), N);
}

// --- Radix-50

constexpr unsigned kRadix = 40;
constexpr unsigned kFirstDigitCode = 30;
constexpr unsigned kUnknownCode = 29;

constexpr unsigned CodeOf(char c) noexcept {
  if (c >= 'A' && c <= 'Z') return static_cast<unsigned>(c - 'A') + 1;
  if (c >= 'a' && c <= 'z') return static_cast<unsigned>(c - 'a') + 1;
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0') + kFirstDigitCode;
  if (c == ' ') return 0;
  if (c == '&') return 27;
  if (c == '.') return 28;
  return kUnknownCode;
}

constexpr char CharacterOf(unsigned code) noexcept {
  if (code == 0) return ' ';
  if (code <= 26) return static_cast<char>(code + 0x40);
  if (code == 27) return '&';
  if (code == 28) return '.';
  if (code == kUnknownCode) return '_';
  // Words above 63999 give a code of 40 and thus ':'.
  return static_cast<char>(code + 0x12);
}

// --- scaled numbers

constexpr double kTwoTo31 = 2147483648.0;
constexpr double kTransScale = 100000.0 / kTwoTo31;

// Toward zero; what does not fit is the lowest long, as a processor's own conversion gives it.
long Truncate(double value) noexcept {
  constexpr std::int32_t kOverflow = std::int32_t{-2147483647} - 1;
  if (!(value > -kTwoTo31 - 1.0 && value < kTwoTo31)) return kOverflow;
  return static_cast<std::int32_t>(value);
}

}  // namespace

double LoadDFloat(const char* bytes) noexcept {
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63U;
  constexpr std::uint64_t kBiasChange = std::uint64_t{0x37E0} << 48U;  // 1023 - 128 - 1, in the exponent
  std::uint64_t bits = 0;
  for (unsigned i = 0; i < 8; i += 2) bits = bits << 16U | LoadWord(bytes + i);
  const std::uint64_t sign = bits & kSign;
  // Three exponent bits more, so three fraction bits less: they are cut off, not rounded.
  bits = (bits & ~kSign) >> 3U;
  if (bits >> 48U != 0) bits += kBiasChange;
  return std::bit_cast<double>(bits | sign);
}

void StoreDFloat(char* bytes, double value) noexcept {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  std::array<unsigned, 4> words{};  // most significant first
  for (unsigned i = 0; i < 4; ++i) words[i] = static_cast<unsigned>(bits >> (48U - 16U * i)) & 0xFFFFU;

  unsigned exponent = words[0] & 0x7FF0U;
  if (exponent != 0) exponent = (((exponent >> 4U) + 0xFC82U) << 7U & 0xFFFFU) | (words[0] & 0x8000U);
  words[0] &= 0x000FU;
  for (int shift = 0; shift < 3; ++shift) {
    for (unsigned i = 0; i < 4; ++i) {
      // The carry goes to bit 12 of the next higher word, not to bit 0: readers of these files expect exactly
      // these bits, so this is intended.
      const unsigned carry = i < 3 && (words[i + 1] & 0x8000U) != 0 ? 0x1000U : 0U;
      words[i] = (words[i] << 1U | carry) & 0xFFFFU;
    }
  }
  words[0] |= exponent;
  for (unsigned i = 0; i < 4; ++i) StoreWord(bytes + 2 * i, static_cast<std::uint16_t>(words[i]));
}

void read(std::istream& in, unsigned char& value) {
  char byte = 0;
  if (in.get(byte)) value = static_cast<unsigned char>(byte);
}

void read(std::istream& in, unsigned short& value) {
  std::array<char, 2> bytes{};
  if (ReadBytes(in, bytes)) value = LoadWord(bytes.data());
}

void read(std::istream& in, long& value, bool range_form) {
  std::array<char, 4> bytes{};
  if (!ReadBytes(in, bytes)) return;
  const std::int32_t stored = LoadLong(bytes.data());
  value = range_form ? FlipSign(stored) : stored;
}

void read(std::istream& in, double& value) {
  std::array<char, 8> bytes{};
  if (ReadBytes(in, bytes)) value = LoadDFloat(bytes.data());
}

void write(std::ostream& out, unsigned char value) {
  out.put(static_cast<char>(value));
}

void write(std::ostream& out, unsigned short value) {
  std::array<char, 2> bytes{};
  StoreWord(bytes.data(), value);
  WriteBytes(out, bytes);
}

void write(std::ostream& out, long value, bool range_form) {
  const auto low = static_cast<std::int32_t>(value);
  std::array<char, 4> bytes{};
  StoreLong(bytes.data(), range_form ? FlipSign(low) : low);
  WriteBytes(out, bytes);
}

void write(std::ostream& out, const double& value) {
  std::array<char, 8> bytes{};
  StoreDFloat(bytes.data(), value);
  WriteBytes(out, bytes);
}

void DECDtoIEEE(double* value) noexcept {
  std::array<char, sizeof *value> bytes{};
  std::memcpy(bytes.data(), value, bytes.size());
  *value = LoadDFloat(bytes.data());
}

void IEEEtoDECD(double* value) noexcept {
  std::array<char, sizeof *value> bytes{};
  StoreDFloat(bytes.data(), *value);
  std::memcpy(value, bytes.data(), bytes.size());
}

void str2rd50(const char* text, unsigned length, unsigned short* packed, unsigned& words) noexcept {
  const unsigned count = std::min(words, rad50length(length));
  for (words = 0; words < count; ++words) {
    const unsigned at = 3 * words;
    unsigned word = CodeOf(text[at]) * kRadix * kRadix;
    if (at + 1 < length) word += CodeOf(text[at + 1]) * kRadix;
    if (at + 2 < length) word += CodeOf(text[at + 2]);
    packed[words] = static_cast<unsigned short>(word);
  }
}

void rd502str(const unsigned short* packed, unsigned words, char* text, unsigned& length) noexcept {
  const unsigned capacity = length;
  length = 0;
  for (unsigned i = 0; i < words; ++i) {
    const unsigned word = packed[i];
    for (const unsigned code : {word / (kRadix * kRadix), word / kRadix % kRadix, word % kRadix}) {
      if (length == capacity) return;
      text[length++] = CharacterOf(code);
    }
  }
}

unsigned short* torad50(const Tobri::String& text) {
  unsigned words = rad50length(text.Length());
  auto packed = std::make_unique<unsigned short[]>(words);
  str2rd50(text.c_str(), text.Length(), packed.get(), words);
  return packed.release();
}

Tobri::String tointernal(const unsigned short* packed, unsigned words) {
  unsigned length = 3 * words;
  std::string text(length, '\0');
  rd502str(packed, words, text.data(), length);
  return text;
}

Tobri::String tointernal(const Tobri::String& text) {
  return text;
}

Tobri::String toexternal(const Tobri::String& text) {
  return text;
}

double GetQuatParam(long stored) noexcept {
  return static_cast<double>(stored) / kTwoTo31;
}

long SetQuatParam(double value) noexcept {
  // 1.0 does not fit and becomes the lowest long, which reads as -1.0: this behaviour is intended.
  return Truncate(std::clamp(value, -1.0, 1.0) * kTwoTo31);
}

double GetTransEntry(long stored) noexcept {
  return static_cast<double>(stored) * kTransScale;
}

long SetTransEntry(double value) noexcept {
  return Truncate(value / kTransScale);
}

}  // namespace Pelor::DGN
