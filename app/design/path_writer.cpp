#include "app/design/path_writer.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace App {

namespace DGN = Pelor::DGN;

namespace {

constexpr std::size_t kSegments = ElementWriter::kMaxVertices - 1;
/// Vertices of a curve that it runs through: two more at each end give its direction there.
constexpr std::size_t kSlopeVertices = 2;
constexpr std::size_t kCurveVertices = ElementWriter::kMaxVertices - 2 * kSlopeVertices;
constexpr std::size_t kCurveSegments = kCurveVertices - 1;

// Sizes in words.
constexpr std::size_t kLineStringHead = 19;
constexpr std::size_t kComplexHead = 20;
/// Of the head of every complex element, what comes before its description.
constexpr std::size_t kUndescribed = 19;
constexpr std::size_t kMostLinkages = 16;

/// What differs between the plane and space.
struct Sizes {
  std::size_t vertex;
  std::size_t cell_head;
};
constexpr Sizes kPlane = {4, 46};
constexpr Sizes kSpace = {6, 62};

/// Words of a complex element of so many components that hold so many vertices together.
constexpr std::size_t ComplexWords(const Sizes& sizes, std::size_t components, std::size_t vertices,
                                   std::size_t linkage_words) {
  return kComplexHead + linkage_words + components * kLineStringHead + vertices * sizes.vertex;
}

/// Components repeat the vertex of their joint.
constexpr std::size_t PathWords(const Sizes& sizes, std::size_t vertices, std::size_t linkage_words) {
  if (vertices <= ElementWriter::kMaxVertices) {
    return kLineStringHead + sizes.vertex * vertices + linkage_words;
  }
  const std::size_t components = (vertices - 1 + kSegments - 1) / kSegments;
  return ComplexWords(sizes, components, vertices + components - 1, linkage_words);
}

constexpr std::size_t SmoothPathWords(const Sizes& sizes, std::size_t vertices, std::size_t linkage_words) {
  const std::size_t components = (vertices - 1 + kCurveSegments - 1) / kCurveSegments;
  return ComplexWords(sizes, components, vertices + components - 1 + components * 2 * kSlopeVertices,
                      linkage_words);
}

/// Whether paths of so many vertices fit one element, and paths of one more do not.
constexpr bool AreMost(const Sizes& sizes, std::size_t vertices, std::size_t smooth_vertices) {
  constexpr std::size_t kMostWords = ElementFrame::kMaxDescriptionWords + kUndescribed;
  return PathWords(sizes, vertices, kMostLinkages) <= kMostWords &&
         PathWords(sizes, vertices + 1, kMostLinkages) > kMostWords &&
         SmoothPathWords(sizes, smooth_vertices, kMostLinkages) <= kMostWords &&
         SmoothPathWords(sizes, smooth_vertices + 1, kMostLinkages) > kMostWords;
}
static_assert(AreMost(kPlane, PathWriter::kMaxVertices, PathWriter::kMaxSmoothVertices));
static_assert(AreMost(kSpace, PathWriter::kMaxVertices3D, PathWriter::kMaxSmoothVertices3D));

/// The point as far behind `end` as `end` is behind `before`, times `factor`.
DGN::point2d Beyond(const DGN::point2d& end, const DGN::point2d& before, std::int64_t factor) {
  const auto axis = [factor](std::int64_t to, std::int64_t from) {
    constexpr std::int64_t kLow = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t kHigh = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(to + factor * (to - from), kLow, kHigh));
  };
  return {axis(end.x, before.x), axis(end.y, before.y)};
}

}  // namespace

void PathWriter::Path(const ElementStyle& style, std::span<const DGN::point2d> points,
                      const LinkageWords& linkages) {
  if (points.size() <= ElementWriter::kMaxVertices) {
    elements_.Vertices(DGN::LineStringType, style, points, linkages);
  } else if (FitsOneElement(points.size())) {
    elements_.BeginComplex(DGN::ComplexStringType, style, linkages);
    Pieces(style, points);
    elements_.End();
  } else {
    CutPath(style, points, linkages, false);
  }
}

void PathWriter::SmoothPath(const ElementStyle& style, std::span<const DGN::point2d> points,
                            const LinkageWords& linkages) {
  if (points.size() <= kCurveVertices) {
    Curve(style, points, 0, points.size(), linkages);
  } else if (FitsOneElement(points.size(), true)) {
    elements_.BeginComplex(DGN::ComplexStringType, style, linkages);
    for (std::size_t first = 0; first + 1 < points.size(); first += kCurveSegments) {
      Curve(style, points, first, std::min(kCurveVertices, points.size() - first), {});
    }
    elements_.End();
  } else {
    CutPath(style, points, linkages, true);
  }
}

void PathWriter::Ring(const ElementStyle& style, std::span<const DGN::point2d> points,
                      const LinkageWords& linkages) {
  if (points.size() <= ElementWriter::kMaxVertices) {
    elements_.Vertices(DGN::ShapeType, style, points, linkages);
  } else if (FitsOneElement(points.size())) {
    elements_.BeginComplex(DGN::ComplexShapeType, style, linkages);
    ElementStyle component = style;
    component.hole = false;
    Pieces(component, points);
    elements_.End();
  } else {
    CutPath(style, points, linkages, false);
  }
}

bool PathWriter::FitOneCell(std::span<const std::size_t> vertices,
                            const LinkageWords& linkages) const noexcept {
  const Sizes& sizes = elements_.Is3D() ? kSpace : kPlane;
  std::size_t words = sizes.cell_head + linkages.Words().size() - kUndescribed;
  for (const std::size_t ring : vertices) words += PathWords(sizes, ring, kMostLinkages);
  return words <= ElementFrame::kMaxDescriptionWords;
}

std::uint16_t PathWriter::NewGraphicGroup() noexcept {
  if (last_graphic_group_ == std::numeric_limits<std::uint16_t>::max()) return 0;
  return ++last_graphic_group_;
}

std::size_t PathWriter::MostVertices(bool smooth) const noexcept {
  if (elements_.Is3D()) return smooth ? kMaxSmoothVertices3D : kMaxVertices3D;
  return smooth ? kMaxSmoothVertices : kMaxVertices;
}

void PathWriter::Pieces(const ElementStyle& style, std::span<const DGN::point2d> points) {
  for (std::size_t first = 0; first + 1 < points.size(); first += kSegments) {
    elements_.Vertices(DGN::LineStringType, style,
                       points.subspan(first, std::min(ElementWriter::kMaxVertices, points.size() - first)),
                       {});
  }
}

void PathWriter::CutPath(const ElementStyle& style, std::span<const DGN::point2d> points,
                         const LinkageWords& linkages, bool smooth) {
  const std::size_t most = MostVertices(smooth);
  ElementStyle grouped = style;
  grouped.hole = false;
  if (grouped.graphic_group == 0) grouped.graphic_group = NewGraphicGroup();
  for (std::size_t first = 0; first + 1 < points.size(); first += most - 1) {
    const auto piece = points.subspan(first, std::min(most, points.size() - first));
    if (smooth) {
      SmoothPath(grouped, piece, linkages);
    } else {
      Path(grouped, piece, linkages);
    }
  }
}

void PathWriter::Curve(const ElementStyle& style, std::span<const DGN::point2d> points, std::size_t first,
                       std::size_t count, const LinkageWords& linkages) {
  // Where the path goes on beyond the piece, its own vertices give the direction; so joints stay smooth.
  const std::size_t last = first + count - 1;
  const DGN::point2d& start = points.front();
  const DGN::point2d& end = points.back();
  curve_.clear();
  for (std::size_t i = kSlopeVertices; i > 0; --i) {
    curve_.push_back(first >= i ? points[first - i]
                                : Beyond(start, points[1], static_cast<std::int64_t>(i - first)));
  }
  for (std::size_t i = first; i <= last; ++i) curve_.push_back(points[i]);
  for (std::size_t i = 1; i <= kSlopeVertices; ++i) {
    const std::size_t missing = last + i + 1 > points.size() ? last + i + 1 - points.size() : 0;
    curve_.push_back(missing == 0
                         ? points[last + i]
                         : Beyond(end, points[points.size() - 2], static_cast<std::int64_t>(missing)));
  }
  elements_.Vertices(DGN::CurveType, style, curve_, linkages);
}

}  // namespace App
