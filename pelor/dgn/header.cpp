#include <pelor/dgn/encoding.h>
#include <pelor/dgn/header.h>

#include <algorithm>
#include <array>
#include <istream>
#include <ostream>

namespace Pelor::DGN {

namespace {

// Replaces the bits of `mask` in `word`.
constexpr std::uint16_t Replace(std::uint16_t word, unsigned mask, unsigned bits) noexcept {
  return static_cast<std::uint16_t>((word & ~mask) | (bits & mask));
}

constexpr std::uint16_t Switch(std::uint16_t word, unsigned mask, bool on) noexcept {
  return Replace(word, mask, on ? mask : 0);
}

template <class Header>
void WriteHeader(std::ostream& out, const Header& header) {
  std::array<char, Header::kBytes> bytes{};
  header.Encode(bytes);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

// --- EHeader

EHeader::EHeader(EType type, unsigned level, std::uint16_t length_words) noexcept
    : type_level(0), words_to_follow(length_words) {
  SetType(type);
  SetLevel(level);
}

void EHeader::SetType(EType type) noexcept {
  type_level = Replace(type_level, 0x7F00U, static_cast<unsigned>(type) << 8U);
}

void EHeader::SetLevel(unsigned level) noexcept {
  type_level = Replace(type_level, 0x003FU, level);
}

void EHeader::SetComponent(bool component) noexcept {
  type_level = Switch(type_level, kComponentBit, component);
}

void EHeader::SetDeleted(bool deleted) noexcept {
  type_level = Switch(type_level, kDeletedBit, deleted);
}

void EHeader::read(std::istream& in) {
  DGN::read(in, type_level);
  if (!IsEndOfDesign()) DGN::read(in, words_to_follow);
}

void EHeader::write(std::ostream& out) const {
  WriteHeader(out, *this);
}

void EHeader::Decode(std::span<const char> bytes) noexcept {
  if (bytes.size() < 2) return;
  type_level = LoadWord(bytes.data());
  if (!IsEndOfDesign() && bytes.size() >= kBytes) words_to_follow = LoadWord(bytes.data() + 2);
}

void EHeader::Encode(std::span<char, kBytes> bytes) const noexcept {
  StoreWord(bytes.data(), type_level);
  StoreWord(bytes.data() + 2, words_to_follow);
}

// --- GEHeader

void GEHeader::read(std::istream& in) {
  EHeader::read(in);
  range.read(in);
}

void GEHeader::read(const EHeader& header, std::istream& in) {
  EHeader::operator=(header);
  range.read(in);
}

void GEHeader::write(std::ostream& out) const {
  WriteHeader(out, *this);
}

void GEHeader::Encode(std::span<char, kBytes> bytes) const noexcept {
  EHeader::Encode(bytes.first<EHeader::kBytes>());
  range.Encode(bytes.last<CoordsRange::kBytes>());
}

// --- DEHeader

DEHeader::DEHeader(const EHeader& header, const CoordsRange& coords) noexcept
    : GEHeader(header, coords),
      // The index counts from word 16, the words to follow from word 2.
      attribute_index(static_cast<std::uint16_t>(std::max<int>(header.words_to_follow, 14) - 14)) {}

void DEHeader::SetClass(EClass element_class) noexcept {
  properties = Replace(properties, 0x000FU, static_cast<unsigned>(element_class));
}

void DEHeader::SetSymbology(SymbStyle style, unsigned weight, unsigned color) noexcept {
  symbology = static_cast<std::uint16_t>((static_cast<unsigned>(style) & 0x07U) | (weight & 0x1FU) << 3U |
                                         (color & 0xFFU) << 8U);
}

void DEHeader::SetProperty(std::uint16_t bits, bool on) noexcept {
  properties = Switch(properties, bits, on);
}

void DEHeader::read(std::istream& in) {
  GEHeader::read(in);
  ReadWords(in);
}

void DEHeader::read(const GEHeader& header, std::istream& in) {
  GEHeader::operator=(header);
  ReadWords(in);
}

void DEHeader::read(const EHeader& header, std::istream& in) {
  GEHeader::read(header, in);
  ReadWords(in);
}

void DEHeader::ReadWords(std::istream& in) {
  std::array<char, kBytes - GEHeader::kBytes> bytes{};
  in.read(bytes.data(), bytes.size());
  DecodeWords(std::span(bytes).first(static_cast<std::size_t>(in.gcount())));
}

void DEHeader::write(std::ostream& out) const {
  WriteHeader(out, *this);
}

void DEHeader::DecodeWords(std::span<const char> bytes) noexcept {
  for (std::uint16_t* word : {&graphic_group, &attribute_index, &properties, &symbology}) {
    if (bytes.size() < 2) return;
    *word = LoadWord(bytes.data());
    bytes = bytes.subspan(2);
  }
}

void DEHeader::Encode(std::span<char, kBytes> bytes) const noexcept {
  GEHeader::Encode(bytes.first<GEHeader::kBytes>());
  char* to = bytes.data() + GEHeader::kBytes;
  for (const std::uint16_t word : {graphic_group, attribute_index, properties, symbology}) {
    StoreWord(to, word);
    to += 2;
  }
}

// --- AHeader

void AHeader::read(std::istream& in) {
  DGN::read(in, word);
}

void AHeader::write(std::ostream& out) const {
  DGN::write(out, word);
}

}  // namespace Pelor::DGN
