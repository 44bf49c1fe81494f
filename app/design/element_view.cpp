#include "app/design/element_view.h"

#include "app/design/d_float.h"

#include <array>
#include <string>

namespace App {

using namespace Pelor;

namespace {

constexpr std::size_t kTypes = 128;

std::array<std::string, kTypes> MakeKinds() {
  std::array<std::string, kTypes> kinds;
  for (std::size_t i = 0; i < kTypes; ++i) kinds[i] = DGN::Name(static_cast<DGN::EType>(i)).str();
  return kinds;
}

}  // namespace

std::string_view ElementKind(DGN::EType type) noexcept {
  static const std::array<std::string, kTypes> kKinds = MakeKinds();
  return kKinds[static_cast<std::size_t>(type) % kTypes];
}

bool IsDisplayed(DGN::EType type) noexcept {
  switch (type) {
    case DGN::DimensionType:
    case DGN::SharedCellDefinitionType:
    case DGN::SharedCellType:
    case DGN::MultilineType:
      return true;
    default:
      return DGN::TypeClass(type) == DGN::Displayable;
  }
}

ElementView::ElementView(std::span<const char> bytes, bool is_3d) noexcept
    : bytes_(bytes), geometry_end_(bytes.size()), attributes_(bytes.size()), is_3d_(is_3d) {
  header_.Decode(bytes);
  if (bytes.size() < DGN::DEHeader::kBytes) return;
  header_.range.Decode(bytes.subspan(DGN::EHeader::kBytes));
  header_.DecodeWords(bytes.subspan(DGN::GEHeader::kBytes));
  has_displayable_ = IsDisplayed(header_.Type());
  if (!has_displayable_ || !header_.HasAttributes()) return;
  const std::size_t begin = 32 + 2 * std::size_t{header_.attribute_index};
  if (begin < DGN::DEHeader::kBytes || begin >= bytes.size()) return;
  geometry_end_ = begin;
  attributes_ = begin;
}

double ElementView::Double(std::size_t offset) const noexcept {
  return DecodeDFloat(bytes_.data() + offset);
}

}  // namespace App
