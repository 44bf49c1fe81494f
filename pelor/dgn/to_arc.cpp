#include <pelor/dgn/elements.h>
#include <pelor/dgn/parameters.h>
#include <pelor/dgn/rotation.h>
#include <pelor/dgn/to_arc.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numbers>
#include <span>

namespace Pelor::DGN {

namespace {

using Vanth::Angle;
using Vanth::ArcXY;
using Vanth::PointXY;

constexpr std::int32_t kUnitsPerDegree = 360000;
constexpr std::int32_t kFullTurn = 360 * kUnitsPerDegree;
// Extended precision keeps whole degrees whole: a full turn is 360 degrees, not the neighbour of 360.
constexpr long double kDegreesPerUnit = 1.0L / kUnitsPerDegree;

/// Toward zero; what does not fit becomes the nearest long, and NaN 0.
std::int32_t Truncate(double value) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (std::isnan(value)) return 0;
  return static_cast<std::int32_t>(std::clamp<double>(value, Limits::min(), Limits::max()));
}

double Degrees(std::int32_t units) {
  constexpr std::uint32_t kSign = 0x80000000U;
  const auto bits = static_cast<std::uint32_t>(units);
  const long double degrees = static_cast<long double>(bits & ~kSign) * kDegreesPerUnit;
  return static_cast<double>((bits & kSign) != 0 ? -degrees : degrees);
}

double Radians(std::int32_t units) {
  return Degrees(units) * Angle::ufact[1];
}

PointXY MasterUnits(const Parameters& parameters, std::int32_t x, std::int32_t y) {
  return {(x - parameters.origin1) * parameters.scale, (y - parameters.origin2) * parameters.scale};
}

PointXY MasterUnits(const Parameters& parameters, const point2d& p) {
  return MasterUnits(parameters, p.x, p.y);
}

/// An ellipse placed in the plane, in master units.
class Curve {
 public:
  template <class Record>
  Curve(const Parameters& parameters, const Record& record)
      : a_(record.primary_axis * parameters.scale),
        b_(record.secondary_axis * parameters.scale),
        rotation_(Degrees(record.rotation), 1.0),
        centre_(MasterUnits(parameters, Truncate(record.origin.x), Truncate(record.origin.y))) {}

  [[nodiscard]] PointXY At(double t) const {
    const dpoint2d p = rotation_.Apply({std::cos(t) * a_, std::sin(t) * b_});
    return {p.x + centre_.x, p.y + centre_.y};
  }

  /// Adds the points from `start` on, up to but not including the end of the sweep.
  void Walk(double start, double sweep, double step, ArcXY& arc) const {
    for (double t = start; std::fabs(t - start) < std::fabs(sweep);) {
      arc.Add(At(t));
      const double next = t + step;
      if (next == t) break;
      t = next;
    }
  }

 private:
  double a_;
  double b_;
  Trans2D rotation_;
  PointXY centre_;
};

}  // namespace

ToArc::ToArc(const Parameters& parameters, Angle step) noexcept
    : parameters_(parameters), fixed_step_(step(0, 0)) {}

ToArc::ToArc(const Parameters& parameters, double tolerance, Angle min_step, Angle max_step) noexcept
    : parameters_(parameters), max_step_(max_step(0, 0)), min_step_(min_step(0, 0)), tolerance_(tolerance) {}

double ToArc::TolRad(double radius) const noexcept {
  if (tolerance_ == 0.0) return fixed_step_;
  const double step = tolerance_ >= radius ? std::numbers::pi : 2.0 * std::acos(1.0 - tolerance_ / radius);
  if (step > max_step_) return max_step_;  // first: it wins over a larger minimum
  return step < min_step_ ? min_step_ : step;
}

double ToArc::TolRad(double a, double b) const noexcept {
  const double ra = a * parameters_.scale;
  const double rb = b * parameters_.scale;
  return TolRad(ra > rb ? ra : rb);
}

ArcXY ToArc::Arc(const Line2D& line) const {
  ArcXY arc;
  arc.Add(MasterUnits(parameters_, line.start));
  arc.Add(MasterUnits(parameters_, line.end));
  return arc;
}

ArcXY ToArc::Arc(const LineString2D& line_string, bool trimmed) const {
  ArcXY arc;
  std::span<const point2d> vertices(line_string.points);
  vertices = vertices.first(std::min<std::size_t>(line_string.count, vertices.size()));
  if (trimmed) {
    // Two at each end, where one might be expected: intended.
    vertices = vertices.size() > 4 ? vertices.subspan(2, vertices.size() - 4) : std::span<const point2d>();
  }
  for (const point2d& vertex : vertices) arc.Add(MasterUnits(parameters_, vertex));
  return arc;
}

ArcXY ToArc::Arc(const Ellipse2D& ellipse) const {
  ArcXY arc;
  const Curve curve(parameters_, ellipse);
  curve.Walk(0.0, Angle::Full(0, 0), TolRad(ellipse.primary_axis, ellipse.secondary_axis), arc);
  arc.Add(curve.At(0.0));
  return arc;
}

ArcXY ToArc::Arc(const Arc2D& record) const {
  ArcXY arc;
  const Curve curve(parameters_, record);
  const double start = Radians(record.start_angle);
  const double sweep = Radians(record.sweep_angle != 0 ? record.sweep_angle : kFullTurn);
  const double step = TolRad(record.primary_axis, record.secondary_axis);
  curve.Walk(start, sweep, sweep <= 0.0 ? -step : step, arc);
  arc.Add(curve.At(start + sweep));
  return arc;
}

}  // namespace Pelor::DGN
