#pragma once

#include <pelor/base/angle.h>
#include <pelor/base/arc.h>
#include <pelor/base/export.h>

namespace Pelor::DGN {

struct Arc2D;
struct Ellipse2D;
struct Line2D;
struct LineString2D;
struct Parameters;

/// Turns element records into points in master units, relative to the design's global origin. Curves are
/// flattened, at a fixed angular step or at one that keeps their chords within a tolerance.
///
/// The step has to be positive: its lower bound, times the sweep, is what limits the number of points. A step
/// that does not move the angle on (0, or too small against it) gives the ends of the curve alone.
class PELOR_EXPORT ToArc {
 public:
  /// Curves at a fixed step. `parameters` must outlive the converter.
  ToArc(const Parameters& parameters, Vanth::Angle step) noexcept;
  /// Curves within `tolerance` master units of their chords, at a step from `min_step` to `max_step`.
  ToArc(const Parameters& parameters, double tolerance, Vanth::Angle min_step,
        Vanth::Angle max_step) noexcept;
  ToArc(Parameters&&, Vanth::Angle) = delete;
  ToArc(Parameters&&, double, Vanth::Angle, Vanth::Angle) = delete;

  /// The step, in radians, for a circle of this radius in master units.
  [[nodiscard]] double TolRad(double radius) const noexcept;
  /// The step, in radians, for an ellipse with these half-axes in units of resolution: that of its larger
  /// one.
  [[nodiscard]] double TolRad(double a, double b) const noexcept;

  /// The two ends.
  [[nodiscard]] Vanth::ArcXY Arc(const Line2D& line) const;
  /// The vertices; when `trimmed`, without the first two and the last two, so of five only the middle one.
  [[nodiscard]] Vanth::ArcXY Arc(const LineString2D& line_string, bool trimmed) const;
  /// Once round from the end of the primary axis; the last point is the first again.
  [[nodiscard]] Vanth::ArcXY Arc(const Ellipse2D& ellipse) const;
  /// From start to end, clockwise for a negative sweep; the last point is the exact end. A sweep of 0 is a
  /// full turn.
  [[nodiscard]] Vanth::ArcXY Arc(const Arc2D& record) const;

 private:
  const Parameters& parameters_;
  double fixed_step_ = 0.0;
  double max_step_ = 0.0;
  double min_step_ = 0.0;
  double tolerance_ = 0.0;
};

}  // namespace Pelor::DGN
