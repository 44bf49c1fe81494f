#pragma once

#include <pelor/base.h>

namespace App {

/// A rectangle of a picture, in pixels; y grows downward.
struct PictureBox {
  double left = 0.0;
  double top = 0.0;
  double right = 0.0;
  double bottom = 0.0;

  [[nodiscard]] double Width() const noexcept { return right - left; }
  [[nodiscard]] double Height() const noexcept { return bottom - top; }
  /// Closed: a point on the border is inside.
  [[nodiscard]] bool Contains(const Vanth::PointXY& p) const noexcept {
    return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom;
  }
  [[nodiscard]] bool Meets(const PictureBox& other) const noexcept {
    return left <= other.right && right >= other.left && top <= other.bottom && bottom >= other.top;
  }
  [[nodiscard]] PictureBox Grown(double by) const noexcept {
    return {left - by, top - by, right + by, bottom + by};
  }
};

/// Where the map lies in its picture. One pixel is 1/96 inch on paper.
struct Frame {
  double width = 0.0;     ///< of the whole picture, a whole number
  double height = 0.0;    ///< likewise
  PictureBox map;         ///< the part of the picture that the map takes, within the margin
  double scale = 1.0;     ///< pixels for one map unit
  Vanth::PointXY center;  ///< the map point in the middle of `map`

  /// The picture point of a map point. The centre is taken off first, so that digits that all points share
  /// are gone before anything is rounded.
  [[nodiscard]] Vanth::PointXY ToPicture(const Vanth::PointXY& p) const noexcept {
    return {(p.x - center.x) * scale + (map.left + map.right) / 2,
            (map.top + map.bottom) / 2 - (p.y - center.y) * scale};
  }
  [[nodiscard]] PictureBox ToPicture(const Vanth::BoundsXY& bounds) const noexcept {
    const Vanth::PointXY low = ToPicture(bounds.Min());
    const Vanth::PointXY high = ToPicture(bounds.Max());
    return {low.x, high.y, high.x, low.y};
  }
};

/// What a frame is made of.
struct FrameOptions {
  double width = 1200.0;  ///< of the picture, pixels
  double margin = 24.0;   ///< on all sides, pixels
  double footer = 0.0;    ///< height kept free below the map, pixels
};

/// The frame that shows `bounds` as large as it can be. The height follows from the shape of the bounds,
/// within a fifth and twice of the map's width. Bounds without any size, or none at all, become one unit
/// square.
[[nodiscard]] Frame MakeFrame(const Vanth::BoundsXY& bounds, const FrameOptions& options);

}  // namespace App
