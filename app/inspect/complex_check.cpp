#include "app/inspect/complex_check.h"

#include "app/design/element_geometry.h"
#include "app/inspect/layout.h"

#include <cmath>
#include <string>
#include <utility>

namespace App {

namespace DGN = Pelor::DGN;

namespace {

// Distances in units of resolution up to this are the rounding of an arc's end.
constexpr double kTouch = 1.5;

bool IsChain(DGN::EType type) {
  return type == DGN::ComplexStringType || type == DGN::ComplexShapeType;
}

// Whether the header counts its components.
bool CountsComponents(DGN::EType type) {
  return IsChain(type) || type == DGN::SurfaceType || type == DGN::SolidType || type == DGN::TextNodeType;
}

// Whether the header's words reach to the end of the last component. Those of B-splines are counted in
// another way, and the header of a cell library has none.
bool TellsLength(DGN::EType type) {
  return CountsComponents(type) || type == DGN::CellHeaderType;
}

// Some writers give a text a range without an area, which tells of its origin at most.
TextExtent TextExtentIn(const DGN::CoordsRange& range) {
  const bool has_area = range.xlow != range.xhigh && range.ylow != range.yhigh;
  return has_area ? TextExtent::kBox : TextExtent::kOrigin;
}

double Distance(const Vanth::PointXY& a, const Vanth::PointXY& b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

}  // namespace

void ComplexCheck::Element(const ElementView& element, const Place& place, std::int64_t end) {
  const bool is_component = element.Header().IsComponent() && element.Type() != DGN::DesignHeaderType;
  CloseUpTo(place.position, is_component);
  const bool is_inside = !open_.empty();
  const ElementReport report = reports_(place);
  const std::string kind(ElementKind(element.Type()));
  if (is_inside && !is_component && open_.back().end >= 0) {
    report(Severity::kWarning, "component-bit",
           kind + " lies inside the " + std::string(ElementKind(open_.back().type)) + " of element " +
               std::to_string(open_.back().place.number) + ", but is not marked as its component");
  }
  if (is_inside && open_.back().end >= 0 && end > open_.back().end) {
    report(Severity::kError, "complex-length",
           kind + " runs past the end of the " + std::string(ElementKind(open_.back().type)) +
               " of element " + std::to_string(open_.back().place.number) + " that it is in");
  }
  // Some writers mark the headers of complex elements as well.
  if (!is_inside && is_component && !DGN::IsComplex(element.Type())) {
    report(Severity::kWarning, "component-alone", kind + " is marked as a component, but of no element");
  }
  if (is_inside) AddComponent(element, place);
  if (DGN::IsComplex(element.Type())) {
    OpenComplex(element, place, end);
  } else if (!element.Header().IsDeleted() && element.Type() != DGN::BSplinePoleType) {
    const Extent extent = ExtentOf(element, TextExtentIn(element.Header().range));
    CheckRange(element, extent, report);
    if (is_inside) open_.back().extent.Cover(extent);
  }
}

void ComplexCheck::End(std::int64_t end) {
  while (!open_.empty()) {
    const Open& complex = open_.back();
    if (complex.end > end) {
      reports_(complex.place)(Severity::kError, "complex-length",
                              "the " + std::string(ElementKind(complex.type)) + " reaches to byte " +
                                  std::to_string(complex.end) + ", and the design ends at byte " +
                                  std::to_string(end));
    }
    Close();
  }
}

// Closes what ends before the element that begins at `offset`.
void ComplexCheck::CloseUpTo(std::int64_t offset, bool is_component) {
  while (!open_.empty() && (open_.back().end >= 0 ? offset >= open_.back().end : !is_component)) Close();
}

void ComplexCheck::Close() {
  const Open complex = std::move(open_.back());
  open_.pop_back();
  const ElementReport report = reports_(complex.place);
  const std::string kind(ElementKind(complex.type));
  if (complex.told && *complex.told != complex.components) {
    report(Severity::kError, "component-count",
           kind + " says " + Counted(*complex.told, "component") + ", and has " + ToText(complex.components));
  }
  if (complex.is_deleted) return;
  if (complex.type == DGN::ComplexShapeType && complex.first && complex.last &&
      Distance(complex.first->begin, complex.last->end) > kTouch) {
    report(Severity::kWarning, "ring-open", "Complex Shape does not end where it began");
  }
  CheckRange(ElementView(complex.header, complex.is_3d), complex.extent, report);
  if (!open_.empty()) open_.back().extent.Cover(complex.extent);
}

void ComplexCheck::AddComponent(const ElementView& element, const Place& place) {
  Open& complex = open_.back();
  ++complex.components;
  if (!IsChain(complex.type) || complex.is_deleted) return;
  const std::optional<Course> course = CourseOf(element);
  if (course && complex.last) {
    const double gap = Distance(complex.last->end, course->begin);
    if (gap > kTouch) {
      reports_(place)(Severity::kWarning, "component-gap",
                      std::string(ElementKind(element.Type())) + " begins " + ToText(gap) +
                          " units of resolution away from where the component before it ended");
    }
  }
  if (complex.components == 1) complex.first = course;
  complex.last = course;
}

void ComplexCheck::OpenComplex(const ElementView& element, const Place& place, std::int64_t end) {
  Open complex;
  complex.type = element.Type();
  complex.place = place;
  complex.header.assign(element.Bytes().begin(), element.Bytes().end());
  complex.is_3d = element.Is3D();
  complex.is_deleted = element.Header().IsDeleted();
  const std::optional<ComplexDescription> description = ComplexDescription::Decode(element);
  if (description && CountsComponents(complex.type)) complex.told = description->components;
  if (description && description->words != 0 && TellsLength(complex.type)) {
    complex.end = place.position +
                  static_cast<std::int64_t>(2 * (ComplexDescription::kWordsBefore + description->words));
    if (complex.end < end) {
      reports_(place)(Severity::kError, "complex-length",
                      std::string(ElementKind(complex.type)) + " ends inside its own header");
      complex.end = -1;
    }
  }
  if (!open_.empty() && open_.back().end >= 0 && complex.end > open_.back().end) {
    reports_(place)(Severity::kError, "complex-length",
                    std::string(ElementKind(complex.type)) + " says that it goes on past the end of the " +
                        std::string(ElementKind(open_.back().type)) + " of element " +
                        std::to_string(open_.back().place.number) + " that it is in");
  }
  open_.push_back(std::move(complex));
}

}  // namespace App
