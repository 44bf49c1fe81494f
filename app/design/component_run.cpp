#include "app/design/component_run.h"

#include "app/design/element_geometry.h"

namespace App {

using namespace Pelor;

namespace {

bool IsSplinePart(DGN::EType type) noexcept {
  return type == DGN::BSplineKnotType || type == DGN::BSplinePoleType || type == DGN::BSplineWeightType;
}

// What chains and complex shapes are made of.
bool IsOpenPath(DGN::EType type) noexcept {
  return type == DGN::LineType || type == DGN::LineStringType || type == DGN::CurveType ||
         type == DGN::ArcType || type == DGN::BSplineCurveHeaderType || IsSplinePart(type);
}

}  // namespace

ComponentRun::ComponentRun(const ElementView& header, const Place& place) noexcept : type_(header.Type()) {
  if (type_ == DGN::BSplineCurveHeaderType || type_ == DGN::BSplineSurfaceHeaderType) return;
  std::size_t words = 0;
  if (const auto description = ComplexDescription::Decode(header)) {
    words = description->words;
    told_ = description->components;
  } else if (type_ == DGN::SharedCellDefinitionType && header.Reaches(DGN::DEHeader::kBytes, 2)) {
    words = header.Word(DGN::DEHeader::kBytes);
  }
  const auto behind_header = static_cast<std::int64_t>(header.Bytes().size());
  const auto size = static_cast<std::int64_t>(2 * (ComplexDescription::kWordsBefore + words));
  // A description without components is not to be believed where it counts some.
  if (words != 0 && (told_ == 0 ? size >= behind_header : size > behind_header)) end_ = place.position + size;
}

bool ComponentRun::Takes(const ElementView& element, const Place& place) const noexcept {
  if (!element.IsWhole() || !element.Header().IsComponent()) return false;
  if (end_ != 0 && place.position == end_) return false;
  const bool is_inside = place.position < end_;
  const DGN::EType type = element.Type();
  switch (type_) {
    case DGN::ComplexStringType:
    case DGN::ComplexShapeType:
      return IsOpenPath(type) || (is_inside && !DGN::IsComplex(type));
    case DGN::TextNodeType:
      return type == DGN::TextType;
    case DGN::CellHeaderType:
    case DGN::SurfaceType:
    case DGN::SolidType:
    case DGN::SharedCellDefinitionType:
      return is_inside || !DGN::IsComplex(type);
    case DGN::BSplineCurveHeaderType:
      return IsSplinePart(type);
    case DGN::BSplineSurfaceHeaderType:
      return IsSplinePart(type) || type == DGN::BSplineSurfaceBodyType;
    case DGN::RasterHeaderType:
      return type == DGN::RasterComponentType;
    default:
      return false;
  }
}

}  // namespace App
