#include "app/picture/scale_bar.h"

#include "app/picture/cairo_handles.h"
#include "app/picture/pen_style.h"

#include <cmath>

namespace App {

namespace {

namespace MI = Pelor::MI;

}  // namespace

double RoundLength(double most) {
  double power = std::pow(10.0, std::floor(std::log10(most)));
  // The logarithm may round up to a whole number.
  if (power > most) power /= 10;
  for (const double step : {10.0, 5.0, 2.0}) {
    if (step * power <= most) return step * power;
  }
  return power;
}

ScaleBar MakeScaleBar(double scale, double most_pixels, const MI::CoordSys* system) {
  double length = RoundLength(most_pixels / scale);
  ScaleBar bar;
  bar.pixels = length * scale;
  std::string unit;
  if (system != nullptr) {
    MI::Units units = system->units;
    if (units == MI::Units_m) {
      const MI::Units best = MI::AutoUnits(length, units);
      length = MI::UnitsConv(length, units, best);
      units = best;
    }
    unit = MI::GetUnitName(units).str();
  }
  // Twelve digits hide what the conversion and the powers of ten have rounded.
  char number[Tobri::kGeneralSize];
  bar.label.assign(number, Tobri::FormatGeneral(number, length, 12));
  if (unit.empty()) unit = length == 1 ? "unit" : "units";
  bar.label += ' ' + unit;
  return bar;
}

void DrawScaleBar(cairo_t* cairo, const ScaleBar& bar, const Frame& frame, MI::Color color) {
  constexpr double kBarHeight = 6.0;
  constexpr double kTextSize = 12.0;
  constexpr double kGap = 8.0;
  const CairoScope scope(cairo);
  const double left = std::round(frame.map.left) + 0.5;
  const double top = std::round(frame.map.bottom + (kScaleBarHeight - kBarHeight) / 2 + kGap) + 0.5;
  SetColor(cairo, color);
  cairo_set_dash(cairo, nullptr, 0, 0);
  cairo_set_line_width(cairo, 1.0);
  cairo_rectangle(cairo, left, top, bar.pixels, kBarHeight);
  cairo_stroke(cairo);
  cairo_rectangle(cairo, left, top, bar.pixels / 2, kBarHeight);
  cairo_fill(cairo);
  cairo_select_font_face(cairo, "sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(cairo, kTextSize);
  cairo_move_to(cairo, left + bar.pixels + kGap, top + kBarHeight / 2 + kTextSize * 0.36);
  cairo_show_text(cairo, bar.label.c_str());
}

}  // namespace App
