#pragma once

#include <pelor/base/array.h>
#include <pelor/base/point.h>

#include <algorithm>
#include <limits>

namespace Vanth {

/// A bounding box that can be empty. NaN coordinates never extend it.
class BoundsXY {
 public:
  constexpr BoundsXY() noexcept = default;
  /// The smallest box that holds both points, in whichever order they are given.
  constexpr BoundsXY(const PointXY& a, const PointXY& b) noexcept : BoundsXY(a.x, a.y, b.x, b.y) {}
  constexpr explicit BoundsXY(const RectXY& rect) noexcept : BoundsXY(rect.x1, rect.y1, rect.x2, rect.y2) {}
  constexpr BoundsXY(double x1, double y1, double x2, double y2) noexcept {
    Extend({x1, y1});
    Extend({x2, y2});
  }
  /// The box of all points of an array; empty for none.
  explicit BoundsXY(const Tobri::DArrayRC<PointXY>& points) noexcept {
    for (const PointXY& point : points) Extend(point);
  }

  constexpr void Extend(const PointXY& point) noexcept {
    min_.x = std::min(min_.x, point.x);
    min_.y = std::min(min_.y, point.y);
    max_.x = std::max(max_.x, point.x);
    max_.y = std::max(max_.y, point.y);
  }

  [[nodiscard]] constexpr bool IsEmpty() const noexcept { return !(min_.x <= max_.x && min_.y <= max_.y); }

  /// The lower left and the upper right corner; meaningless when empty.
  [[nodiscard]] constexpr const PointXY& Min() const noexcept { return min_; }
  [[nodiscard]] constexpr const PointXY& Max() const noexcept { return max_; }

  /// All empty bounds are equal.
  friend constexpr bool operator==(const BoundsXY& a, const BoundsXY& b) noexcept {
    return (a.IsEmpty() && b.IsEmpty()) || (a.min_ == b.min_ && a.max_ == b.max_);
  }

 private:
  PointXY min_{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
  PointXY max_{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
};

}  // namespace Vanth
