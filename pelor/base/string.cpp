#include <pelor/base/string.h>

#include <algorithm>
#include <cstdint>
#include <ostream>

namespace Tobri {

SubString String::Left(unsigned n) const noexcept {
  return SubString(std::string_view(text_).substr(0, n));
}

SubString String::Right(unsigned n) const noexcept {
  const std::size_t length = std::min<std::size_t>(n, text_.size());
  return SubString(std::string_view(text_).substr(text_.size() - length));
}

bool String::ContainsAfter(const String& part, unsigned pos) const noexcept {
  return text_.find(part.text_, pos) != std::string::npos;
}

void String::realloc(unsigned capacity, unsigned length, int fill) {
  text_.reserve(std::max(capacity, length));
  text_.resize(length, static_cast<char>(fill));
}

std::ostream& operator<<(std::ostream& out, const String& text) {
  return out.write(text.c_str(), static_cast<std::streamsize>(text.Length()));
}

char* StrModify::GetBuffer(unsigned n, GrowMode mode) {
  if (n > buffer_.size()) {
    if (mode == GrowDouble && n > buffer_.capacity()) {
      buffer_.reserve(std::max<std::size_t>(n, 2 * buffer_.capacity()));
    }
    buffer_.resize(n);
  }
  return buffer_.data();
}

String StrModify::GetString(unsigned length) {
  buffer_.resize(length);
  String result(std::move(buffer_));
  buffer_.clear();
  return result;
}

namespace {

// Code points whose partner differs by a fixed distance, and blocks in which capital and small letter
// alternate, all within two UTF-8 bytes (Unicode 15.0, UnicodeData.txt, simple case mappings).
struct CaseRange {
  std::uint16_t first_upper;
  std::uint16_t last_upper;
  std::uint16_t to_lower;  // distance to the small letter; 1 marks an alternating block
};

constexpr CaseRange kCaseRanges[] = {
    {0x00C0, 0x00D6, 32}, {0x00D8, 0x00DE, 32}, {0x0100, 0x012E, 1},  {0x0132, 0x0136, 1},
    {0x0139, 0x0147, 1},  {0x014A, 0x0176, 1},  {0x0179, 0x017D, 1},  {0x01CD, 0x01DB, 1},
    {0x01DE, 0x01EE, 1},  {0x01F8, 0x021E, 1},  {0x0222, 0x0232, 1},  {0x0388, 0x038A, 37},
    {0x0391, 0x03A1, 32}, {0x03A3, 0x03AB, 32}, {0x0400, 0x040F, 80}, {0x0410, 0x042F, 32},
    {0x0460, 0x0480, 1},  {0x048A, 0x04BE, 1},  {0x04C1, 0x04CD, 1},  {0x04D0, 0x052E, 1},
};

// Single letters outside the ranges.
struct CasePair {
  std::uint16_t upper;
  std::uint16_t lower;
};

constexpr CasePair kCasePairs[] = {
    {0x0178, 0x00FF}, {0x018F, 0x0259}, {0x01A0, 0x01A1}, {0x01AF, 0x01B0}, {0x01F4, 0x01F5},
    {0x0386, 0x03AC}, {0x038C, 0x03CC}, {0x038E, 0x03CD}, {0x038F, 0x03CE}, {0x04C0, 0x04CF},
};

constexpr unsigned kCapitalSigma = 0x03A3;
constexpr unsigned kFinalSigma = 0x03C2;  // the second small letter of that capital

unsigned ToUpper(unsigned code) {
  if (code == kFinalSigma) return kCapitalSigma;
  for (const CasePair& pair : kCasePairs) {
    if (code == pair.lower) return pair.upper;
  }
  for (const CaseRange& range : kCaseRanges) {
    if (code < range.first_upper + range.to_lower || code > range.last_upper + range.to_lower) continue;
    if (range.to_lower != 1) return code - range.to_lower;
    return (code - range.first_upper) % 2 == 1 ? code - 1 : code;
  }
  return code;
}

unsigned ToLower(unsigned code) {
  for (const CasePair& pair : kCasePairs) {
    if (code == pair.upper) return pair.lower;
  }
  for (const CaseRange& range : kCaseRanges) {
    if (code < range.first_upper || code > range.last_upper) continue;
    if (range.to_lower != 1) return code + range.to_lower;
    return (code - range.first_upper) % 2 == 0 ? code + 1 : code;
  }
  return code;
}

template <class AsciiRule, class CodeRule>
String Convert(const String& text, AsciiRule ascii, CodeRule rule) {
  std::string result(text.str());
  for (std::size_t i = 0; i < result.size(); ++i) {
    const auto lead = static_cast<unsigned char>(result[i]);
    if (lead < 0x80) {
      result[i] = ascii(result[i]);
      continue;
    }
    if (lead < 0xC2 || lead > 0xDF || i + 1 == result.size()) continue;
    const auto trail = static_cast<unsigned char>(result[i + 1]);
    if ((trail & 0xC0U) != 0x80) continue;
    const unsigned code = rule((lead & 0x1FU) << 6 | (trail & 0x3FU));
    result[i] = static_cast<char>(0xC0U | code >> 6);
    result[++i] = static_cast<char>(0x80U | (code & 0x3FU));
  }
  return result;
}

}  // namespace

String LocStr::UpperCase(const String& text) {
  return Convert(
      text, [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }, ToUpper);
}

String LocStr::LowerCase(const String& text) {
  return Convert(
      text, [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }, ToLower);
}

}  // namespace Tobri
