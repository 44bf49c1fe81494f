#pragma once

#include "app/design/element_geometry.h"

#include <optional>

namespace App {

/// An ellipse whose axes lie along the coordinate axes, or the part of one that is passed counter-clockwise
/// from one angle to the other: what the map model can hold. In units of resolution.
struct AxisEllipse {
  Vanth::RectXY rect;
  double start_degrees = 0.0;  ///< in [0, 360), as is the next one
  double end_degrees = 0.0;

  /// Nothing when the axes are not parallel to those of the map. A hundredth of a unit of resolution, and
  /// what a stored rotation in space is out by, do not count; the axes of a circle are always parallel.
  [[nodiscard]] static std::optional<AxisEllipse> Of(const PlanEllipse& ellipse) noexcept;
};

}  // namespace App
