#pragma once

#include <pelor/base/export.h>
#include <pelor/dgn/coords_range.h>
#include <pelor/dgn/types.h>

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <span>

namespace Pelor::DGN {

/// The two words that begin every element.
///
/// A copy is unassigned; a header that is assigned from another one is marked `assigned`, which tells the
/// File it stands in to write it back. This asymmetry is intended.
struct PELOR_EXPORT EHeader {
  static constexpr std::size_t kBytes = 4;
  /// The type/level word that stands behind the last element of a design.
  static constexpr std::uint16_t kEndOfDesign = 0xFFFF;
  static constexpr std::uint16_t kReservedBit = 0x0040;
  static constexpr std::uint16_t kComponentBit = 0x0080;
  static constexpr std::uint16_t kDeletedBit = 0x8000;

  std::uint16_t type_level = kEndOfDesign;
  std::uint16_t words_to_follow = 0;
  bool assigned = false;

  EHeader() noexcept = default;
  /// A header of the type (0-127) on the level (0-63), neither deleted nor a component.
  EHeader(EType type, unsigned level, std::uint16_t length_words) noexcept;
  EHeader(const EHeader& other) noexcept
      : type_level(other.type_level), words_to_follow(other.words_to_follow) {}
  // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): assigning a header to itself marks it, too.
  EHeader& operator=(const EHeader& other) noexcept {
    type_level = other.type_level;
    words_to_follow = other.words_to_follow;
    assigned = true;
    return *this;
  }
  ~EHeader() = default;

  [[nodiscard]] EType Type() const noexcept { return static_cast<EType>(type_level >> 8U & 0x7FU); }
  [[nodiscard]] unsigned Level() const noexcept { return type_level & 0x3FU; }
  [[nodiscard]] bool IsComponent() const noexcept { return (type_level & kComponentBit) != 0; }
  [[nodiscard]] bool IsDeleted() const noexcept { return (type_level & kDeletedBit) != 0; }
  [[nodiscard]] bool IsEndOfDesign() const noexcept { return type_level == kEndOfDesign; }

  void SetType(EType type) noexcept;
  void SetLevel(unsigned level) noexcept;
  void SetComponent(bool component) noexcept;
  void SetDeleted(bool deleted) noexcept;

  /// Reads the two words, or the first alone when it marks the end of the design.
  void read(std::istream& in);
  void write(std::ostream& out) const;
  /// Writes a readable listing.
  void Dump(std::ostream& out) const;

  // The same on bytes in memory. Decode takes the fields that lie whole in `bytes`, the others stay.

  void Decode(std::span<const char> bytes) noexcept;
  void Encode(std::span<char, kBytes> bytes) const noexcept;
};

/// The header of a graphic element: words 0-13.
struct PELOR_EXPORT GEHeader : EHeader {
  static constexpr std::size_t kBytes = EHeader::kBytes + CoordsRange::kBytes;

  CoordsRange range;

  GEHeader() noexcept = default;
  GEHeader(const EHeader& header, const CoordsRange& coords) noexcept : EHeader(header), range(coords) {}

  void read(std::istream& in);
  /// Assigns the header (which marks this one) and reads the range behind it.
  void read(const EHeader& header, std::istream& in);
  void write(std::ostream& out) const;
  void Dump(std::ostream& out) const;

  void Encode(std::span<char, kBytes> bytes) const noexcept;
};

/// The header of a displayable element: words 0-17.
struct PELOR_EXPORT DEHeader : GEHeader {
  static constexpr std::size_t kBytes = GEHeader::kBytes + 8;
  static constexpr std::uint16_t kLockedBit = 0x0100;
  static constexpr std::uint16_t kNewBit = 0x0200;
  static constexpr std::uint16_t kAttributesBit = 0x0800;
  static constexpr std::uint16_t kScreenRelativeBit = 0x1000;
  static constexpr std::uint16_t kNonPlanarBit = 0x2000;
  static constexpr std::uint16_t kNonSnappableBit = 0x4000;
  static constexpr std::uint16_t kHoleBit = 0x8000;

  /// 0 means none.
  std::uint16_t graphic_group = 0;
  /// The words from word 16 to the attribute data.
  std::uint16_t attribute_index = 0;
  std::uint16_t properties = kNewBit | kNonPlanarBit | kNonSnappableBit;
  std::uint16_t symbology = 0;

  DEHeader() noexcept = default;
  /// Default properties and symbology; the attribute index stands for a body without attributes.
  DEHeader(const EHeader& header, const CoordsRange& coords) noexcept;

  [[nodiscard]] EClass Class() const noexcept { return static_cast<EClass>(properties & 0x0FU); }
  [[nodiscard]] bool IsLocked() const noexcept { return (properties & kLockedBit) != 0; }
  [[nodiscard]] bool IsNew() const noexcept { return (properties & kNewBit) != 0; }
  [[nodiscard]] bool HasAttributes() const noexcept { return (properties & kAttributesBit) != 0; }
  [[nodiscard]] bool IsScreenRelative() const noexcept { return (properties & kScreenRelativeBit) != 0; }
  [[nodiscard]] bool IsPlanar() const noexcept { return (properties & kNonPlanarBit) == 0; }
  [[nodiscard]] bool IsSnappable() const noexcept { return (properties & kNonSnappableBit) == 0; }
  [[nodiscard]] bool IsHole() const noexcept { return (properties & kHoleBit) != 0; }
  [[nodiscard]] SymbStyle Style() const noexcept { return static_cast<SymbStyle>(symbology & 0x07U); }
  [[nodiscard]] unsigned Weight() const noexcept { return symbology >> 3U & 0x1FU; }
  [[nodiscard]] unsigned Color() const noexcept { return symbology >> 8U; }

  void SetClass(EClass element_class) noexcept;
  void SetSymbology(SymbStyle style, unsigned weight, unsigned color) noexcept;
  /// Sets or clears bits of the properties.
  void SetProperty(std::uint16_t bits, bool on) noexcept;

  void read(std::istream& in);
  /// Takes the graphic header (which marks this one) and reads the four words behind it.
  void read(const GEHeader& header, std::istream& in);
  /// Assigns the header (which marks this one) and reads what follows it.
  void read(const EHeader& header, std::istream& in);
  void write(std::ostream& out) const;
  void Dump(std::ostream& out) const;

  /// Takes the words behind the graphic header that lie whole in `bytes`; the others stay.
  void DecodeWords(std::span<const char> bytes) noexcept;
  void Encode(std::span<char, kBytes> bytes) const noexcept;

 private:
  void ReadWords(std::istream& in);
};

/// The word that begins an attribute linkage. Copies and assignments mark as those of EHeader do.
struct PELOR_EXPORT AHeader {
  static constexpr std::size_t kBytes = 2;
  static constexpr std::uint16_t kUserBit = 0x1000;
  static constexpr std::uint16_t kModifiedBit = 0x2000;
  static constexpr std::uint16_t kRemoteBit = 0x4000;
  static constexpr std::uint16_t kInfoBit = 0x8000;

  std::uint16_t word = kUserBit;
  bool assigned = false;

  AHeader() noexcept = default;
  AHeader(const AHeader& other) noexcept : word(other.word) {}
  // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): assigning a header to itself marks it, too.
  AHeader& operator=(const AHeader& other) noexcept {
    word = other.word;
    assigned = true;
    return *this;
  }
  ~AHeader() = default;

  /// The words of data behind this one.
  [[nodiscard]] unsigned Length() const noexcept { return word & 0xFFU; }
  [[nodiscard]] unsigned Class() const noexcept { return word >> 8U & 0x0FU; }
  [[nodiscard]] bool IsUser() const noexcept { return (word & kUserBit) != 0; }
  [[nodiscard]] bool IsModified() const noexcept { return (word & kModifiedBit) != 0; }
  [[nodiscard]] bool IsRemote() const noexcept { return (word & kRemoteBit) != 0; }
  [[nodiscard]] bool IsInfo() const noexcept { return (word & kInfoBit) != 0; }

  void read(std::istream& in);
  void write(std::ostream& out) const;
  void Dump(std::ostream& out) const;
};

}  // namespace Pelor::DGN
