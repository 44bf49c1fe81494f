#pragma once

#include "app/picture/frame.h"
#include <pelor/mi.h>

#include <cmath>
#include <numbers>
#include <span>

namespace App {

/// How far a drawn chord may lie from its curve, in pixels.
inline constexpr double kFlatness = 0.02;

/// Where an arc begins and how far it runs counter-clockwise, in radians; the sweep is from 0 to a full turn.
struct ArcSpan {
  double start = 0.0;
  double sweep = 0.0;
};
[[nodiscard]] ArcSpan GetArcSpan(const Pelor::MI::WArcBody& arc);

/// An ellipse in the picture with its axes along the picture's. A negative radius mirrors it.
struct PictureEllipse {
  Vanth::PointXY center;
  double rx = 0.0;
  double ry = 0.0;

  [[nodiscard]] Vanth::PointXY At(double radians) const noexcept {
    return {center.x + rx * std::cos(radians), center.y - ry * std::sin(radians)};
  }
};

/// Hands the points of an arc to `add`, start and end included. What lies outside of `visible` is cut short
/// by chords that stay outside, so that the number of points depends on what can be seen.
template <class Add>
void FlattenArc(const PictureEllipse& ellipse, const ArcSpan& span, const PictureBox& visible, Add&& add);

/// Hands the points of a smooth curve through `points` to `add`, the first and the last included. A curve
/// that comes back to its first point is smooth there, too. Cut short outside of `visible` as arcs are.
template <class Add>
void FlattenSmooth(std::span<const Vanth::PointXY> points, const PictureBox& visible, Add&& add);

// ---------------------------------------------------------------------------------------------------------------

namespace Curves {

[[nodiscard]] inline PictureBox BoxOf(std::span<const Vanth::PointXY> points) noexcept {
  PictureBox box{points[0].x, points[0].y, points[0].x, points[0].y};
  for (const Vanth::PointXY& p : points) {
    box.left = std::min(box.left, p.x);
    box.top = std::min(box.top, p.y);
    box.right = std::max(box.right, p.x);
    box.bottom = std::max(box.bottom, p.y);
  }
  return box;
}

// The arc from `from` to `to`, without its first point; at most a quarter turn, so that the tangents at its
// ends meet and the arc lies within the triangle of the two ends and that meeting point.
template <class Add>
void AddArcPiece(const PictureEllipse& e, double from, double to, const PictureBox& visible, Add& add) {
  const double half = (to - from) / 2;
  const double sagitta = std::max(std::fabs(e.rx), std::fabs(e.ry)) * (1 - std::cos(half));
  if (sagitta > kFlatness) {
    const double middle = from + half;
    const double reach = 1 / std::cos(half);
    const Vanth::PointXY corner{e.center.x + e.rx * reach * std::cos(middle),
                                e.center.y - e.ry * reach * std::sin(middle)};
    const Vanth::PointXY hull[] = {e.At(from), corner, e.At(to)};
    if (BoxOf(hull).Meets(visible)) {
      AddArcPiece(e, from, middle, visible, add);
      AddArcPiece(e, middle, to, visible, add);
      return;
    }
  }
  add(e.At(to));
}

struct Cubic {
  Vanth::PointXY p[4];
};

[[nodiscard]] inline Vanth::PointXY Middle(const Vanth::PointXY& a, const Vanth::PointXY& b) noexcept {
  return {a.x / 2 + b.x / 2, a.y / 2 + b.y / 2};
}

// How far the second differences bend the curve from its chord, at most.
[[nodiscard]] inline double Bend(const Cubic& c) noexcept {
  const auto second = [](const Vanth::PointXY& a, const Vanth::PointXY& b, const Vanth::PointXY& d) {
    return std::hypot(a.x - 2 * b.x + d.x, a.y - 2 * b.y + d.y);
  };
  return 0.75 * std::max(second(c.p[0], c.p[1], c.p[2]), second(c.p[1], c.p[2], c.p[3]));
}

template <class Add>
void AddCubicPiece(const Cubic& c, int depth, const PictureBox& visible, Add& add) {
  if (depth > 0 && Bend(c) > kFlatness && BoxOf(c.p).Meets(visible)) {
    const Vanth::PointXY ab = Middle(c.p[0], c.p[1]);
    const Vanth::PointXY bc = Middle(c.p[1], c.p[2]);
    const Vanth::PointXY cd = Middle(c.p[2], c.p[3]);
    const Vanth::PointXY abc = Middle(ab, bc);
    const Vanth::PointXY bcd = Middle(bc, cd);
    const Vanth::PointXY middle = Middle(abc, bcd);
    AddCubicPiece({{c.p[0], ab, abc, middle}}, depth - 1, visible, add);
    AddCubicPiece({{middle, bcd, cd, c.p[3]}}, depth - 1, visible, add);
    return;
  }
  add(c.p[3]);
}

}  // namespace Curves

template <class Add>
void FlattenArc(const PictureEllipse& ellipse, const ArcSpan& span, const PictureBox& visible, Add&& add) {
  constexpr int kPieces = 8;
  add(ellipse.At(span.start));
  for (int i = 0; i < kPieces; ++i) {
    Curves::AddArcPiece(ellipse, span.start + span.sweep * i / kPieces,
                        span.start + span.sweep * (i + 1) / kPieces, visible, add);
  }
}

template <class Add>
void FlattenSmooth(std::span<const Vanth::PointXY> points, const PictureBox& visible, Add&& add) {
  // Every halving takes three quarters off the bend: from the largest picture number to the flatness in
  // fewer.
  constexpr int kDepth = 40;
  if (points.empty()) return;
  add(points.front());
  const std::size_t count = points.size();
  const bool is_closed = count > 3 && points.front() == points.back();
  for (std::size_t i = 0; i + 1 < count; ++i) {
    const Vanth::PointXY& from = points[i];
    const Vanth::PointXY& to = points[i + 1];
    const Vanth::PointXY& before = i > 0 ? points[i - 1] : is_closed ? points[count - 2] : from;
    const Vanth::PointXY& after = i + 2 < count ? points[i + 2] : is_closed ? points[1] : to;
    // The slope at each point is that of the chord between its neighbours.
    Curves::AddCubicPiece({{from,
                            {from.x + (to.x - before.x) / 6, from.y + (to.y - before.y) / 6},
                            {to.x - (after.x - from.x) / 6, to.y - (after.y - from.y) / 6},
                            to}},
                          kDepth, visible, add);
  }
}

}  // namespace App
