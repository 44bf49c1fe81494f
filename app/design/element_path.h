#pragma once

#include "app/design/bspline.h"
#include "app/design/element_view.h"
#include <pelor/mi.h>

#include <cstddef>
#include <span>
#include <vector>

namespace App {

/// How curves become points.
struct PathSettings {
  double tolerance = 0.0;  ///< in units of resolution; 0 for one chosen by the size of each curve
  double origin_z = 0.0;   ///< what is off this height loses it in plan
};

/// The points of one element in plan, in units of resolution. Its memory is used again.
struct PathPiece {
  std::vector<Vanth::PointXY> points;
  bool is_exact = true;     ///< the points are as they are stored, not computed
  bool has_height = false;  ///< something is off the origin's height
  std::vector<Vanth::PointXY> scratch;

  /// Reads a line, string, shape or point string; curves, ellipses and arcs flattened. False, and no points,
  /// for a damaged element and one of another type.
  [[nodiscard]] bool Read(const ElementView& element, const PathSettings& settings);
  /// All vertices as they are stored, of a curve, too.
  [[nodiscard]] bool ReadVertices(const ElementView& element, const PathSettings& settings);
  void Read(BSpline& curve, const PathSettings& settings);
};

/// Paths put together from pieces, in parts.
class Path {
 public:
  void Clear() noexcept;
  void BeginPart();
  /// Goes on with a piece; where it begins at the end of the path, that point is not doubled. A piece that
  /// ends there is turned round. False when there was a gap, which then is bridged.
  bool Join(PathPiece& piece);
  /// Lets the last part end where it begins, if it does so all but exactly.
  void CloseExactly() noexcept;

  [[nodiscard]] bool HasHeight() const noexcept { return has_height_; }
  [[nodiscard]] std::size_t Parts() const noexcept { return starts_.size(); }
  [[nodiscard]] std::span<const Vanth::PointXY> Part(std::size_t i) const noexcept;
  /// Whether a part has three vertices, the closing one not counted.
  [[nodiscard]] bool HasArea(std::size_t i) const noexcept;

 private:
  std::vector<Vanth::PointXY> points_;
  std::vector<std::size_t> starts_;
  bool last_is_exact_ = true;
  bool first_is_exact_ = true;
  bool has_height_ = false;
};

}  // namespace App
