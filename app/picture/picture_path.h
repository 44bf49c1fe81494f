#pragma once

#include "app/picture/frame.h"

#include <cairo.h>

#include <span>
#include <vector>

namespace App {

/// Parts of picture points, on their way to cairo: thinned, since points closer than a tenth of a pixel
/// change nothing, and cut at a box somewhat larger than the picture, since cairo's coordinates end at some
/// millions. Used again and again, it keeps its memory.
class PicturePath {
 public:
  /// `visible` is the box to cut at. Lines of up to its margin around the picture must not show their cut.
  explicit PicturePath(const PictureBox& visible) : visible_(visible) {}

  [[nodiscard]] const PictureBox& GetVisible() const noexcept { return visible_; }

  void Clear() noexcept;
  void BeginPart();
  /// Appends to the last part, unless it is too close to the point before.
  void Add(const Vanth::PointXY& point);
  /// Ends the last part with its true last point; after the last Add of every part.
  void EndPart();

  [[nodiscard]] std::size_t GetNParts() const noexcept { return starts_.size(); }
  [[nodiscard]] std::span<const Vanth::PointXY> Part(std::size_t i) const noexcept;

  /// Makes the inside of all parts, each closed, the current path. The even-odd rule is for the caller to
  /// set.
  void ToFill(cairo_t* cairo);
  /// Draws all parts as lines with the current source and line width. `dashes` is the pattern of dashes, in
  /// pixels; none for solid lines. A cut does not shift the dashes. Parts of one point are left out.
  void Stroke(cairo_t* cairo, std::span<const double> dashes);

 private:
  enum class Side { kLeft, kRight, kTop, kBottom };

  void Keep(const Vanth::PointXY& point);
  [[nodiscard]] bool IsVisible(std::span<const Vanth::PointXY> part) const noexcept;
  static void AddTo(cairo_t* cairo, std::span<const Vanth::PointXY> points);
  void StrokeCut(cairo_t* cairo, std::span<const Vanth::PointXY> part, std::span<const double> dashes) const;
  [[nodiscard]] bool CutSegment(const Vanth::PointXY& a, const Vanth::PointXY& b, double& from,
                                double& to) const noexcept;
  [[nodiscard]] Vanth::PointXY Within(const Vanth::PointXY& p) const noexcept;
  [[nodiscard]] double Depth(Side side, const Vanth::PointXY& p) const noexcept;
  [[nodiscard]] std::span<const Vanth::PointXY> CutRing(std::span<const Vanth::PointXY> ring);
  void CutRingAt(Side side, std::span<const Vanth::PointXY> ring, std::vector<Vanth::PointXY>& result) const;

  PictureBox visible_;
  std::vector<Vanth::PointXY> points_;
  std::vector<std::size_t> starts_;
  bool is_all_visible_ = true;
  Vanth::PointXY last_;  // as given, dropped or not
  std::vector<Vanth::PointXY> cut_;
  std::vector<Vanth::PointXY> cut_before_;
};

}  // namespace App
