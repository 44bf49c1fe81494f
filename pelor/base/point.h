#pragma once

namespace Vanth {

/// A point of the plane, in world units.
struct PointXY {
  double x = 0.0;
  double y = 0.0;

  friend constexpr bool operator==(const PointXY&, const PointXY&) noexcept = default;
};

static_assert(sizeof(PointXY) == 2 * sizeof(double), "vertex arrays are read as pairs of doubles");

/// A rectangle given by two opposite corners. They stay as given, so width and height may be negative.
struct RectXY {
  double x1 = 0.0;
  double y1 = 0.0;
  double x2 = 0.0;
  double y2 = 0.0;

  [[nodiscard]] constexpr double Width() const noexcept { return x2 - x1; }
  [[nodiscard]] constexpr double Height() const noexcept { return y2 - y1; }
  [[nodiscard]] constexpr PointXY Center() const noexcept { return {(x1 + x2) / 2, (y1 + y2) / 2}; }

  friend constexpr bool operator==(const RectXY&, const RectXY&) noexcept = default;
};

}  // namespace Vanth
