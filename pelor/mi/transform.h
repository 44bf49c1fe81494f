#pragma once

#include <pelor/base/bounds.h>
#include <pelor/base/point.h>

namespace Pelor::MI {

/// Scales and shifts coordinates as they are read. The default changes nothing.
struct Transform {
  double scaleX = 1.0;
  double scaleY = 1.0;
  double offsetX = 0.0;
  double offsetY = 0.0;

  constexpr void Apply(Vanth::PointXY& point) const noexcept {
    point.x = scaleX * point.x + offsetX;
    point.y = scaleY * point.y + offsetY;
  }

  /// Scales y by scaleX, too. That is intended, here and for bounds; only a point has its y scaled by scaleY.
  constexpr void Apply(Vanth::RectXY& rect) const noexcept {
    rect.x1 = scaleX * rect.x1 + offsetX;
    rect.y1 = scaleX * rect.y1 + offsetY;
    rect.x2 = scaleX * rect.x2 + offsetX;
    rect.y2 = scaleX * rect.y2 + offsetY;
  }

  /// As for a rectangle; a mirrored box comes out in order again, an empty one stays empty.
  constexpr void Apply(Vanth::BoundsXY& bounds) const noexcept {
    if (bounds.IsEmpty()) return;
    Vanth::RectXY rect{bounds.Min().x, bounds.Min().y, bounds.Max().x, bounds.Max().y};
    Apply(rect);
    bounds = Vanth::BoundsXY(rect.x1, rect.y1, rect.x2, rect.y2);
  }

  friend constexpr bool operator==(const Transform&, const Transform&) noexcept = default;
};

}  // namespace Pelor::MI
