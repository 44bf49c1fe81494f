#include "app/design/flatten.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace App {

namespace {

using Vanth::PointXY;

constexpr double kPartOfSize = 1e-4;
constexpr double kSmallestChosen = 0.5;
constexpr double kSmallestGiven = 0.01;
constexpr double kMostChords = 65536.0;
// Every halving brings the chords four times closer to the curve.
constexpr int kMostHalvings = 14;

PointXY operator-(const PointXY& a, const PointXY& b) noexcept {
  return {a.x - b.x, a.y - b.y};
}

double Cross(const PointXY& a, const PointXY& b) noexcept {
  return a.x * b.y - a.y * b.x;
}

// The direction of a curve at the point between the second and the third of four consecutive chords.
PointXY Tangent(const PointXY& a1, const PointXY& a2, const PointXY& a3, const PointXY& a4) noexcept {
  double w2 = std::sqrt(std::fabs(Cross(a3, a4)));
  double w3 = std::sqrt(std::fabs(Cross(a1, a2)));
  if (w2 == 0.0 && w3 == 0.0) w2 = w3 = 1.0;
  const PointXY sum{w2 * a2.x + w3 * a3.x, w2 * a2.y + w3 * a3.y};
  const double length = std::hypot(sum.x, sum.y);
  return length > 0.0 ? PointXY{sum.x / length, sum.y / length} : PointXY{};
}

PointXY Projected(const BezierPoint& point) noexcept {
  return {point.x / point.w, point.y / point.w};
}

BezierPoint Middle(const BezierPoint& a, const BezierPoint& b) noexcept {
  return {(a.x + b.x) / 2, (a.y + b.y) / 2, (a.w + b.w) / 2};
}

double DistanceToSegment(const PointXY& point, const PointXY& from, const PointXY& to) noexcept {
  const PointXY along = to - from;
  const PointXY offset = point - from;
  const double square = along.x * along.x + along.y * along.y;
  const double at =
      square > 0.0 ? std::clamp((offset.x * along.x + offset.y * along.y) / square, 0.0, 1.0) : 0.0;
  return std::hypot(offset.x - at * along.x, offset.y - at * along.y);
}

// A curve stays in the hull of its control points.
bool IsFlat(const Bezier& curve, std::size_t order, double tolerance) noexcept {
  const PointXY from = Projected(curve[0]);
  const PointXY to = Projected(curve[order - 1]);
  for (std::size_t i = 1; i + 1 < order; ++i) {
    if (!(DistanceToSegment(Projected(curve[i]), from, to) <= tolerance)) return false;
  }
  return true;
}

void FlattenHalves(const Bezier& curve, std::size_t order, double tolerance, int halvings,
                   std::vector<PointXY>& points) {
  if (halvings == 0 || IsFlat(curve, order, tolerance)) {
    points.push_back(Projected(curve[order - 1]));
    return;
  }
  Bezier left;
  Bezier right = curve;
  for (std::size_t i = 0; i < order; ++i) {
    left[i] = right[0];
    for (std::size_t j = 0; j + 1 + i < order; ++j) right[j] = Middle(right[j], right[j + 1]);
  }
  FlattenHalves(left, order, tolerance, halvings - 1, points);
  FlattenHalves(right, order, tolerance, halvings - 1, points);
}

}  // namespace

double ToleranceFor(double size, double given) noexcept {
  return given > 0.0 ? std::max(given, kSmallestGiven) : std::max(size * kPartOfSize, kSmallestChosen);
}

void Flatten(const PlanEllipse& ellipse, double tolerance, std::vector<PointXY>& points) {
  // The ellipse is a circle with its larger half-axis as the radius, seen at a slant. That brings the chords
  // closer.
  const double square_u = ellipse.u.x * ellipse.u.x + ellipse.u.y * ellipse.u.y;
  const double square_v = ellipse.v.x * ellipse.v.x + ellipse.v.y * ellipse.v.y;
  const double skew = std::fabs(ellipse.u.x * ellipse.v.x + ellipse.u.y * ellipse.v.y);
  const double radius = std::sqrt((square_u + square_v + std::hypot(square_u - square_v, 2 * skew)) / 2);

  constexpr double kUnit = std::numbers::pi / 180.0 / kAngleUnitsPerDegree;
  const double start = static_cast<double>(ellipse.start) * kUnit;
  const double sweep = static_cast<double>(ellipse.sweep) * kUnit;
  // Through the sine of a quarter of the step, which keeps its digits where the tolerance is small.
  const double ratio = tolerance / radius;
  const double step = ratio < 1.0 ? 4 * std::asin(std::sqrt(ratio / 2)) : std::numbers::pi / 2;
  const double wanted = std::ceil(std::fabs(sweep) / std::min(step, std::numbers::pi / 2));
  const auto chords = static_cast<int>(std::clamp(wanted, 1.0, kMostChords));

  const auto exact = [&](std::int64_t angle) -> PointXY {
    const Direction at = Direction::Of(angle);
    return {ellipse.center.x + ellipse.u.x * at.cos + ellipse.v.x * at.sin,
            ellipse.center.y + ellipse.u.y * at.cos + ellipse.v.y * at.sin};
  };
  points.push_back(exact(ellipse.start));
  for (int i = 1; i < chords; ++i) points.push_back(ellipse.At(start + sweep * i / chords));
  points.push_back(exact(ellipse.start + ellipse.sweep));
}

void FlattenCurve(std::span<const PointXY> points, double tolerance, std::vector<PointXY>& flat) {
  constexpr std::size_t kFewest = 6;
  if (points.size() < kFewest) {
    flat.insert(flat.end(), points.begin(), points.end());
    return;
  }
  const auto tangent_at = [&](std::size_t i) {
    return Tangent(points[i - 1] - points[i - 2], points[i] - points[i - 1], points[i + 1] - points[i],
                   points[i + 2] - points[i + 1]);
  };
  flat.push_back(points[2]);
  PointXY from = tangent_at(2);
  for (std::size_t i = 2; i + 3 < points.size(); ++i) {
    const PointXY& p = points[i];
    const PointXY& q = points[i + 1];
    const PointXY to = tangent_at(i + 1);
    const double third = std::hypot(q.x - p.x, q.y - p.y) / 3;
    Bezier cubic;
    cubic[0] = {p.x, p.y};
    cubic[1] = {p.x + third * from.x, p.y + third * from.y};
    cubic[2] = {q.x - third * to.x, q.y - third * to.y};
    cubic[3] = {q.x, q.y};
    Flatten(cubic, 4, tolerance, flat);
    from = to;
  }
}

void Flatten(const Bezier& curve, std::size_t order, double tolerance, std::vector<PointXY>& points) {
  FlattenHalves(curve, order, tolerance, kMostHalvings, points);
}

}  // namespace App
