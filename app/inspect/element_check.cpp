#include "app/inspect/element_check.h"

#include "app/design/cell_header.h"
#include "app/design/element_geometry.h"
#include "app/design/linkage.h"
#include "app/inspect/layout.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace App {

namespace DGN = Pelor::DGN;

namespace {

constexpr std::size_t kBody = DGN::DEHeader::kBytes;
constexpr std::size_t kMaxVertices = 101;
constexpr std::size_t kSlopePoints = 2;
// Where the attribute data begin when the index is 0.
constexpr std::size_t kAttributeBase = 32;

std::string KindOf(const ElementView& element) {
  return std::string(ElementKind(element.Type()));
}

// Types that begin with a count of vertices, and the fewest that make sense.
std::optional<std::size_t> FewestVertices(DGN::EType type) {
  switch (type) {
    case DGN::LineStringType:
    case DGN::BSplinePoleType:
      return 2;
    case DGN::ShapeType:
      return 3;
    case DGN::CurveType:
      return 2 * kSlopePoints + 2;
    case DGN::PointStringType:
      return 1;
    default:
      return std::nullopt;
  }
}

void CheckVertices(const ElementView& element, const ElementReport& report) {
  const std::optional<std::size_t> fewest = FewestVertices(element.Type());
  if (!fewest) return;
  const std::string kind = KindOf(element);
  if (!element.Reaches(kBody, 2)) {
    report(Severity::kError, "too-short", kind + " ends before its vertices");
    return;
  }
  const std::size_t point_bytes = element.Is3D() ? 12 : 8;
  const std::size_t told = element.Word(kBody);
  const std::size_t room = (element.Geometry().size() - kBody - 2) / point_bytes;
  // The points of a point string in space have a rotation each.
  const bool has_rotations = element.Type() == DGN::PointStringType && element.Is3D();
  if (told > room || (told < room && !has_rotations)) {
    report(told > room ? Severity::kError : Severity::kWarning, "vertex-count",
           kind + " says " + std::to_string(told) + " vertices, and has room for " + std::to_string(room));
    if (told > room) return;
  }
  if (told < *fewest) {
    report(Severity::kWarning, "few-vertices",
           kind + " has " + std::to_string(told) + (told == 1 ? " vertex; " : " vertices; ") +
               std::to_string(*fewest) + " are the least");
  } else if (told > kMaxVertices) {
    report(Severity::kWarning, "many-vertices",
           kind + " has " + std::to_string(told) + " vertices; " + std::to_string(kMaxVertices) +
               " are the most");
  }
}

void CheckClosed(const ElementView& element, const ElementReport& report) {
  if (element.Type() != DGN::ShapeType) return;
  const std::optional<Vertices> vertices = Vertices::Decode(element);
  if (!vertices || vertices->Size() < 2 || (*vertices)[0] == (*vertices)[vertices->Size() - 1]) return;
  report(Severity::kWarning, "ring-open", "Shape does not end where it began");
}

void CheckBody(const ElementView& element, const ElementReport& report) {
  const auto too_short = [&] {
    report(Severity::kError, "too-short", KindOf(element) + " is too short for what it has to hold");
  };
  switch (element.Type()) {
    case DGN::LineType:
      if (!Vertices::Decode(element)) too_short();
      return;
    case DGN::EllipseType:
    case DGN::ArcType: {
      const std::optional<PlanEllipse> ellipse = PlanEllipse::Decode(element);
      if (!ellipse) return too_short();
      const bool has_axes =
          (ellipse->u.x != 0.0 || ellipse->u.y != 0.0) && (ellipse->v.x != 0.0 || ellipse->v.y != 0.0);
      if (!has_axes && !element.Is3D()) {
        report(Severity::kWarning, "axis-zero", KindOf(element) + " has an axis of length 0");
      }
      return;
    }
    case DGN::TextType:
      if (!TextView::Decode(element)) {
        report(Severity::kError, "text-length", "Text has less room than its characters need");
      }
      return;
    case DGN::CellHeaderType: {
      const std::optional<CellHeader> cell = CellHeader::Decode(element);
      if (!cell) return too_short();
      const auto is_zero = [](std::int32_t entry) { return entry == 0; };
      if (std::all_of(cell->matrix.begin(), cell->matrix.end(), is_zero)) {
        report(Severity::kWarning, "matrix-zero", "Cell Header has a matrix of zeros");
      }
      return;
    }
    default:
      if (DGN::IsComplex(element.Type()) && element.HasDisplayableHeader() &&
          !ComplexDescription::Decode(element)) {
        too_short();
      }
  }
}

void CheckAttributes(const ElementView& element, const ElementReport& report) {
  const DGN::DEHeader& header = element.Header();
  const std::size_t begin = kAttributeBase + 2 * std::size_t{header.attribute_index};
  const std::size_t size = element.Bytes().size();
  if (begin < kBody || begin > size || (header.HasAttributes() && begin == size)) {
    report(header.HasAttributes() ? Severity::kError : Severity::kWarning, "attribute-index",
           "the attribute index " + std::to_string(header.attribute_index) +
               (begin < kBody ? " points into the header" : " points past the element"));
    return;
  }
  LinkageWalker walker(element.Attributes());
  Linkage linkage;
  while (walker.Next(linkage)) {
    DGN::AHeader told;
    told.word = DGN::LoadWord(linkage.bytes.data());
    const std::size_t told_bytes = 2 * (std::size_t{told.Length()} + 1);
    if (told.IsUser() && told_bytes > linkage.bytes.size()) {
      report(Severity::kWarning, "linkage-length",
             "the linkage at byte " + std::to_string(begin + linkage.offset) + " of the element says " +
                 Counted(static_cast<std::int64_t>(told_bytes), "byte") + ", and " +
                 std::to_string(linkage.bytes.size()) + " are left");
    }
  }
}

bool IsKnownType(DGN::EType type) {
  return !ElementKind(type).starts_with("Unknown");
}

}  // namespace

void CheckElement(const ElementView& element, const ElementReport& report) {
  const DGN::DEHeader& header = element.Header();
  if (!IsKnownType(element.Type())) {
    report(Severity::kWarning, "type-unknown", "the type " + std::to_string(element.Type()) + " is unknown");
    return;
  }
  if ((header.type_level & DGN::EHeader::kReservedBit) != 0 && element.Type() != DGN::DesignHeaderType) {
    report(Severity::kWarning, "reserved-bit", KindOf(element) + " has the reserved bit of its header set");
  }
  if (!IsDisplayed(element.Type())) return;
  if (!element.HasDisplayableHeader()) {
    report(Severity::kError, "too-short", KindOf(element) + " is too short for its header");
    return;
  }
  if (header.IsDeleted()) return;
  CheckAttributes(element, report);
  CheckVertices(element, report);
  CheckClosed(element, report);
  CheckBody(element, report);
}

void CheckRange(const ElementView& element, const Extent& extent, const ElementReport& report) {
  // Ranges are whole units; the course of an ellipse is not.
  constexpr double kRounding = 1.0;
  constexpr std::string_view kAxes = "xyz";
  const DGN::CoordsRange& range = element.Header().range;
  const std::array<std::int32_t, 3> low = {range.xlow, range.ylow, range.zlow};
  const std::array<std::int32_t, 3> high = {range.xhigh, range.yhigh, range.zhigh};
  if (extent.IsEmpty()) return;
  for (std::size_t i = 0; i < (element.Is3D() ? 3U : 2U); ++i) {
    const bool is_held = low[i] - kRounding <= extent.low[i] && extent.high[i] <= high[i] + kRounding;
    if (is_held) continue;
    report(Severity::kWarning, "range",
           "the range of the " + KindOf(element) + " does not hold its geometry: " + kAxes[i] +
               " runs from " + ToText(extent.low[i]) + " to " + ToText(extent.high[i]) + ", the range from " +
               std::to_string(low[i]) + " to " + std::to_string(high[i]));
    return;
  }
}

std::optional<Course> CourseOf(const ElementView& element) {
  if (const std::optional<Vertices> vertices = Vertices::Decode(element)) {
    const bool is_curve = element.Type() == DGN::CurveType;
    if (element.Type() == DGN::BSplinePoleType || element.Type() == DGN::PointStringType) return std::nullopt;
    const std::size_t slopes = is_curve ? kSlopePoints : 0;
    if (vertices->Size() < 2 * slopes + 2) return std::nullopt;
    const Uor3 begin = (*vertices)[slopes];
    const Uor3 end = (*vertices)[vertices->Size() - 1 - slopes];
    return Course{{static_cast<double>(begin.x), static_cast<double>(begin.y)},
                  {static_cast<double>(end.x), static_cast<double>(end.y)}};
  }
  const std::optional<PlanEllipse> ellipse = PlanEllipse::Decode(element);
  if (!ellipse || !ellipse->is_arc) return std::nullopt;
  constexpr double kRadians = std::numbers::pi / 180.0 / kAngleUnitsPerDegree;
  return Course{ellipse->At(static_cast<double>(ellipse->start) * kRadians),
                ellipse->At(static_cast<double>(ellipse->start + ellipse->sweep) * kRadians)};
}

}  // namespace App
