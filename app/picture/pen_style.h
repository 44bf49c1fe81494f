#pragma once

#include <pelor/mi.h>

#include <cairo.h>

#include <array>
#include <cstddef>
#include <span>

namespace App {

/// A size in pixels of 1/96 inch, at most `kLargestMark`; units outside the table count as pixels.
[[nodiscard]] double ToPixels(double size, Pelor::MI::SLUnits units) noexcept;

/// Wider pens and larger symbols are drawn in this size, in pixels.
inline constexpr double kLargestMark = 400.0;

/// Makes a map colour the source of what is drawn next. A negative colour is transparent.
void SetColor(cairo_t* cairo, Pelor::MI::Color color) noexcept;

/// How a pen draws.
class PenStyle {
 public:
  static constexpr std::size_t kMostDashes = 8;

  explicit PenStyle(const Pelor::MI::Pen& pen) noexcept;

  /// Pattern 1, and a pen without colour, draw nothing.
  [[nodiscard]] bool IsVisible() const noexcept { return is_visible_; }
  /// At least one pixel.
  [[nodiscard]] double GetWidth() const noexcept { return width_; }
  /// Lengths of dashes and gaps in turn, in pixels, longer for wider pens; none for a solid line.
  [[nodiscard]] std::span<const double> GetDashes() const noexcept { return {dashes_.data(), n_dashes_}; }

  /// Sets colour, width, caps and joints; the dashes are the path's business.
  void Apply(cairo_t* cairo) const noexcept;

 private:
  bool is_visible_;
  double width_;
  Pelor::MI::Color color_;
  std::array<double, kMostDashes> dashes_{};
  std::size_t n_dashes_ = 0;
};

}  // namespace App
