#include "app/design/element_path.h"

#include "app/design/element_geometry.h"
#include "app/design/flatten.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace App {

using namespace Pelor;
using Vanth::PointXY;

namespace {

// A point that was computed and one that was stored are the same within the rounding of both.
constexpr double kJointUors = 1.5;

bool Meet(const PointXY& a, const PointXY& b, bool exact) noexcept {
  if (a == b) return true;
  return !exact && std::fabs(a.x - b.x) <= kJointUors && std::fabs(a.y - b.y) <= kJointUors;
}

}  // namespace

// --- pieces

bool PathPiece::ReadVertices(const ElementView& element, const PathSettings& settings) {
  points.clear();
  is_exact = true;
  has_height = false;
  const auto vertices = Vertices::Decode(element);
  if (!vertices) return false;
  const std::size_t size = vertices->Size();
  points.resize(size);
  if (!element.Is3D()) {
    for (std::size_t i = 0; i < size; ++i) points[i] = (*vertices)[i].Plan();
    return true;
  }
  for (std::size_t i = 0; i < size; ++i) {
    const Uor3 vertex = (*vertices)[i];
    points[i] = vertex.Plan();
    if (vertex.z != settings.origin_z) has_height = true;
  }
  return true;
}

bool PathPiece::Read(const ElementView& element, const PathSettings& settings) {
  switch (element.Type()) {
    case DGN::EllipseType:
    case DGN::ArcType: {
      points.clear();
      const auto ellipse = PlanEllipse::Decode(element);
      if (!ellipse) return false;
      const double size =
          std::max(std::hypot(ellipse->u.x, ellipse->u.y), std::hypot(ellipse->v.x, ellipse->v.y));
      Flatten(*ellipse, ToleranceFor(size, settings.tolerance), points);
      is_exact = false;
      has_height = element.Is3D() && ellipse->HasHeight(settings.origin_z);
      return true;
    }
    case DGN::CurveType: {
      if (!ReadVertices(element, settings)) return false;
      scratch.swap(points);
      points.clear();
      double size = 0.0;
      for (const PointXY& point : scratch) {
        size = std::max(size, std::hypot(point.x - scratch[0].x, point.y - scratch[0].y));
      }
      FlattenCurve(scratch, ToleranceFor(size, settings.tolerance), points);
      return true;
    }
    default:
      return ReadVertices(element, settings);
  }
}

void PathPiece::Read(BSpline& curve, const PathSettings& settings) {
  points.clear();
  curve.Flatten(settings.tolerance, points);
  is_exact = false;
  has_height = curve.HasHeight(settings.origin_z);
}

// --- paths

void Path::Clear() noexcept {
  points_.clear();
  starts_.clear();
  has_height_ = false;
}

void Path::BeginPart() {
  starts_.push_back(points_.size());
}

bool Path::Join(PathPiece& piece) {
  if (starts_.empty()) BeginPart();
  std::span<const PointXY> added = piece.points;
  if (added.empty()) return true;
  has_height_ = has_height_ || piece.has_height;
  bool is_joined = true;
  if (points_.size() == starts_.back()) {
    first_is_exact_ = piece.is_exact;
  } else {
    const bool exact = last_is_exact_ && piece.is_exact;
    if (!Meet(points_.back(), added.front(), exact) && Meet(points_.back(), added.back(), exact)) {
      std::reverse(piece.points.begin(), piece.points.end());
    }
    is_joined = Meet(points_.back(), added.front(), exact);
    if (is_joined) {
      // Of a stored and a computed point the stored one stays.
      if (piece.is_exact) points_.back() = added.front();
      added = added.subspan(1);
    }
  }
  points_.insert(points_.end(), added.begin(), added.end());
  last_is_exact_ = piece.is_exact;
  return is_joined;
}

void Path::CloseExactly() noexcept {
  if (starts_.empty() || points_.size() - starts_.back() < 2) return;
  PointXY& first = points_[starts_.back()];
  PointXY& last = points_.back();
  if (!Meet(first, last, first_is_exact_ && last_is_exact_)) return;
  if (last_is_exact_) {
    first = last;
  } else {
    last = first;
  }
}

std::span<const PointXY> Path::Part(std::size_t i) const noexcept {
  const std::size_t begin = starts_[i];
  const std::size_t end = i + 1 < starts_.size() ? starts_[i + 1] : points_.size();
  return std::span(points_).subspan(begin, end - begin);
}

bool Path::HasArea(std::size_t i) const noexcept {
  const std::span<const PointXY> part = Part(i);
  if (part.empty()) return false;
  return part.size() - (part.front() == part.back() ? 1 : 0) >= 3;
}

}  // namespace App
