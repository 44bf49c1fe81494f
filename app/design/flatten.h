#pragma once

#include "app/design/element_geometry.h"
#include <pelor/mi.h>

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace App {

// Curves as chords. No chord is farther from its curve than the tolerance, which is in the units of the
// points. Points are appended.

/// The tolerance for a curve of this size when the user gives none, in units of resolution: a ten-thousandth,
/// but never below half a unit. A tolerance that is given counts as at least a hundredth of a unit.
[[nodiscard]] double ToleranceFor(double size, double given) noexcept;

/// From start to end; the ends are exact at the quarters of a turn, and a full turn ends where it begins. At
/// most 65536 chords.
void Flatten(const PlanEllipse& ellipse, double tolerance, std::vector<Vanth::PointXY>& points);

/// A curve element: it runs through all points but the first and the last two, which only set the slopes at
/// the ends. Between two points it is a cubic whose slopes follow from the two points on either side (Akima's
/// interpolation, in the form for curves in a plane). Fewer than six points are taken as they are.
void FlattenCurve(std::span<const Vanth::PointXY> points, double tolerance,
                  std::vector<Vanth::PointXY>& flat);

/// A rational Bezier curve: its control points times their weights, and the weights, all positive.
struct BezierPoint {
  double x = 0.0;
  double y = 0.0;
  double w = 1.0;
};
inline constexpr std::size_t kMaxOrder = 17;
using Bezier = std::array<BezierPoint, kMaxOrder>;

/// All but the first point of a curve with `order` control points.
void Flatten(const Bezier& curve, std::size_t order, double tolerance, std::vector<Vanth::PointXY>& points);

}  // namespace App
