#include "app/picture/pen_style.h"

#include <algorithm>

namespace App {

namespace {

namespace MI = Pelor::MI;

constexpr double kPixelsPerInch = 96.0;
constexpr double kPointsPerInch = 72.0;
constexpr double kMillimetresPerInch = 25.4;

struct DashRow {
  std::size_t count;
  std::array<double, PenStyle::kMostDashes> lengths;  // of a pen of one pixel
};

// Patterns from 3 on; behind the last row they begin over again.
constexpr std::int32_t kFirstDashed = 3;
// clang-format off
constexpr std::array<DashRow, 23> kDashes{{
    {2, {1, 2}},                     // 3: dots
    {2, {1, 4}},
    {2, {3, 2}},                     // 5: short and medium dashes
    {2, {6, 3}},
    {2, {8, 5}},
    {2, {12, 4}},                    // 8: long dashes
    {2, {16, 6}},
    {2, {24, 8}},
    {2, {10, 10}},
    {2, {16, 16}},
    {2, {24, 16}},
    {4, {8, 3, 2, 3}},               // 14: dashes with dots, long with short dashes
    {4, {16, 4, 2, 4}},
    {4, {16, 4, 6, 4}},
    {4, {24, 6, 8, 6}},
    {4, {16, 4, 4, 4}},
    {4, {24, 4, 2, 4}},
    {6, {8, 3, 2, 3, 2, 3}},         // 20: dashes with several dots
    {6, {16, 4, 2, 4, 2, 4}},
    {6, {12, 3, 4, 3, 4, 3}},
    {6, {24, 4, 2, 4, 2, 4}},
    {8, {8, 3, 2, 3, 2, 3, 2, 3}},
    {8, {16, 4, 2, 4, 2, 4, 2, 4}},
}};
// clang-format on

}  // namespace

double ToPixels(double size, MI::SLUnits units) noexcept {
  double pixels = size;
  switch (units) {
    case MI::SLUnits_HundredthMm:
      pixels = size / 100 * kPixelsPerInch / kMillimetresPerInch;
      break;
    case MI::SLUnits_TenthPoint:
      pixels = size / 10 * kPixelsPerInch / kPointsPerInch;
      break;
    case MI::SLUnits_Point:
      pixels = size * kPixelsPerInch / kPointsPerInch;
      break;
    default:
      break;
  }
  return std::min(pixels, kLargestMark);
}

void SetColor(cairo_t* cairo, MI::Color color) noexcept {
  const auto part = [color](int shift) { return ((color >> shift) & 0xFF) / 255.0; };
  if (color < 0) {
    cairo_set_source_rgba(cairo, 0, 0, 0, 0);
  } else {
    cairo_set_source_rgb(cairo, part(0), part(8), part(16));
  }
}

PenStyle::PenStyle(const MI::Pen& pen) noexcept
    : is_visible_(pen.pattern != 1 && pen.color >= 0),
      width_(std::max(ToPixels(pen.width, pen.widthUnits), 1.0)),
      color_(pen.color) {
  if (pen.pattern < kFirstDashed) return;
  const DashRow& row = kDashes[static_cast<std::size_t>(pen.pattern - kFirstDashed) % kDashes.size()];
  n_dashes_ = row.count;
  for (std::size_t i = 0; i < n_dashes_; ++i) dashes_[i] = row.lengths[i] * width_;
}

void PenStyle::Apply(cairo_t* cairo) const noexcept {
  SetColor(cairo, color_);
  cairo_set_line_width(cairo, width_);
  // Round ends would fill the gaps between the dashes of wide pens.
  cairo_set_line_cap(cairo, n_dashes_ == 0 ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
  cairo_set_line_join(cairo, CAIRO_LINE_JOIN_ROUND);
}

}  // namespace App
