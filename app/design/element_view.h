#pragma once

#include <pelor/dgn.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace App {

/// The name of an element type, such as "Line String", as accounts and reports use it. Lives for ever.
[[nodiscard]] std::string_view ElementKind(Pelor::DGN::EType type) noexcept;

/// Whether elements of the type carry the displayable header in practice. More than the library's table: the
/// types 33 to 36 do, too.
[[nodiscard]] bool IsDisplayed(Pelor::DGN::EType type) noexcept;

/// One element as its bytes, from its first word on: headers decoded, body and attributes found. Nothing in
/// it reaches beyond the bytes given, whatever lengths they tell. It does not own the bytes.
class ElementView {
 public:
  ElementView() = default;
  /// `bytes` may be shorter than the element says; `IsWhole` tells.
  ElementView(std::span<const char> bytes, bool is_3d) noexcept;

  /// Element, graphic and displayable header; fields that the bytes do not reach keep their defaults.
  [[nodiscard]] const Pelor::DGN::DEHeader& Header() const noexcept { return header_; }
  [[nodiscard]] Pelor::DGN::EType Type() const noexcept { return header_.Type(); }
  [[nodiscard]] bool Is3D() const noexcept { return is_3d_; }
  [[nodiscard]] bool IsWhole() const noexcept {
    return bytes_.size() >= Pelor::DGN::EHeader::kBytes &&
           bytes_.size() == Pelor::DGN::EHeader::kBytes + 2U * std::size_t{header_.words_to_follow};
  }
  /// The type is displayable, and the bytes hold the displayable header.
  [[nodiscard]] bool HasDisplayableHeader() const noexcept { return has_displayable_; }

  [[nodiscard]] std::span<const char> Bytes() const noexcept { return bytes_; }
  /// All bytes but the attributes: what geometry may be read from. Offsets count from the element's start.
  [[nodiscard]] std::span<const char> Geometry() const noexcept { return bytes_.first(geometry_end_); }
  /// The attribute linkages; none unless the attributes bit is set and the index points into the element.
  [[nodiscard]] std::span<const char> Attributes() const noexcept { return bytes_.subspan(attributes_); }

  /// True when `count` bytes at `offset` belong to the geometry.
  [[nodiscard]] bool Reaches(std::size_t offset, std::size_t count) const noexcept {
    return offset <= geometry_end_ && count <= geometry_end_ - offset;
  }
  // Values of the geometry. Not checked: `Reaches` comes first.

  [[nodiscard]] std::uint8_t Byte(std::size_t offset) const noexcept {
    return static_cast<std::uint8_t>(bytes_[offset]);
  }
  [[nodiscard]] std::uint16_t Word(std::size_t offset) const noexcept {
    return Pelor::DGN::LoadWord(bytes_.data() + offset);
  }
  [[nodiscard]] std::int32_t Long(std::size_t offset) const noexcept {
    return Pelor::DGN::LoadLong(bytes_.data() + offset);
  }
  [[nodiscard]] double Double(std::size_t offset) const noexcept;

 private:
  std::span<const char> bytes_;
  std::size_t geometry_end_ = 0;
  std::size_t attributes_ = 0;
  Pelor::DGN::DEHeader header_;
  bool is_3d_ = false;
  bool has_displayable_ = false;
};

}  // namespace App
