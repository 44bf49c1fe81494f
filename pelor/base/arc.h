#pragma once

#include <pelor/base/point.h>

#include <span>
#include <vector>

namespace Vanth {

/// An arc built from successive points.
class ArcXY {
 public:
  void Add(const PointXY& point) { points_.push_back(point); }

  /// The points in the order in which they were added; good until the next change of the arc.
  [[nodiscard]] std::span<const PointXY> Points() const noexcept { return points_; }

 private:
  std::vector<PointXY> points_;
};

}  // namespace Vanth
