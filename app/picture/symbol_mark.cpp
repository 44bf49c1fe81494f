#include "app/picture/symbol_mark.h"

#include "app/picture/cairo_handles.h"
#include "app/picture/pen_style.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace App {

namespace {

namespace MI = Pelor::MI;

enum class Outline : std::uint8_t {
  kNone,
  kSquare,
  kDiamond,
  kCircle,
  kStar,
  kTriangleUp,
  kTriangleDown,
  kPlus,
  kCross,
  kAsterisk,
  kTarget,
};

enum class Paint : std::uint8_t { kFilled, kHollow };

struct Mark {
  Outline outline;
  Paint paint;
};

constexpr std::int32_t kFirstShape = 31;

// Shapes from 31 on.
constexpr std::array<Mark, 21> kMarks{{
    {Outline::kNone, Paint::kHollow},          // 31
    {Outline::kSquare, Paint::kFilled},        // 32
    {Outline::kDiamond, Paint::kFilled},       // 33
    {Outline::kCircle, Paint::kFilled},        // 34
    {Outline::kStar, Paint::kFilled},          // 35
    {Outline::kTriangleUp, Paint::kFilled},    // 36
    {Outline::kTriangleDown, Paint::kFilled},  // 37
    {Outline::kSquare, Paint::kHollow},        // 38
    {Outline::kDiamond, Paint::kHollow},       // 39
    {Outline::kCircle, Paint::kHollow},        // 40
    {Outline::kStar, Paint::kHollow},          // 41
    {Outline::kTriangleUp, Paint::kHollow},    // 42
    {Outline::kTriangleDown, Paint::kHollow},  // 43
    {Outline::kSquare, Paint::kFilled},        // 44
    {Outline::kTriangleUp, Paint::kFilled},    // 45
    {Outline::kCircle, Paint::kFilled},        // 46
    {Outline::kTarget, Paint::kHollow},        // 47
    {Outline::kTarget, Paint::kHollow},        // 48
    {Outline::kPlus, Paint::kHollow},          // 49
    {Outline::kCross, Paint::kHollow},         // 50
    {Outline::kAsterisk, Paint::kHollow},      // 51
}};

Mark GetMark(const MI::Symbol& symbol) {
  const auto row = static_cast<std::int64_t>(symbol.shape) - kFirstShape;
  if (symbol.kind != MI::Symbol::Standard || row < 0 || row >= std::ssize(kMarks)) {
    return {Outline::kTarget, Paint::kHollow};
  }
  return kMarks[static_cast<std::size_t>(row)];
}

// A closed figure of `n` corners around the origin, the first one at `start` radians, clockwise on the page.
// Every second corner lies at `inner` times the radius.
void Polygon(cairo_t* cairo, int n, double start, double radius, double inner = 1.0) {
  for (int i = 0; i < n; ++i) {
    const double angle = start + 2 * std::numbers::pi * i / n;
    const double r = i % 2 == 0 ? radius : radius * inner;
    cairo_line_to(cairo, r * std::cos(angle), r * std::sin(angle));
  }
  cairo_close_path(cairo);
}

void Ring(cairo_t* cairo, double radius) {
  cairo_new_sub_path(cairo);
  cairo_arc(cairo, 0, 0, radius, 0, 2 * std::numbers::pi);
}

void Bar(cairo_t* cairo, double x, double y) {
  cairo_move_to(cairo, -x, -y);
  cairo_line_to(cairo, x, y);
}

// The mark's path around the origin, within a square of twice the radius.
void AddOutline(cairo_t* cairo, Outline outline, double radius) {
  constexpr double kUp = -std::numbers::pi / 2;
  constexpr double kDown = std::numbers::pi / 2;
  constexpr double kStarWaist = 0.382;  // of a five-pointed star with straight edges
  const double diagonal = radius * std::numbers::sqrt2 / 2;
  switch (outline) {
    case Outline::kNone:
      break;
    case Outline::kSquare:
      cairo_rectangle(cairo, -radius, -radius, 2 * radius, 2 * radius);
      break;
    case Outline::kDiamond:
      Polygon(cairo, 4, kUp, radius);
      break;
    case Outline::kCircle:
      Ring(cairo, radius);
      break;
    case Outline::kStar:
      Polygon(cairo, 10, kUp, radius, kStarWaist);
      break;
    case Outline::kTriangleUp:
      Polygon(cairo, 3, kUp, radius);
      break;
    case Outline::kTriangleDown:
      Polygon(cairo, 3, kDown, radius);
      break;
    case Outline::kPlus:
      Bar(cairo, radius, 0);
      Bar(cairo, 0, radius);
      break;
    case Outline::kCross:
      Bar(cairo, radius, radius);
      Bar(cairo, radius, -radius);
      break;
    case Outline::kAsterisk:
      Bar(cairo, radius, 0);
      Bar(cairo, 0, radius);
      Bar(cairo, diagonal, diagonal);
      Bar(cairo, diagonal, -diagonal);
      break;
    case Outline::kTarget:
      Ring(cairo, radius);
      Ring(cairo, radius / 4);
      break;
  }
}

}  // namespace

void DrawSymbol(cairo_t* cairo, const MI::Symbol& symbol, const Vanth::PointXY& at) {
  const double size = ToPixels(symbol.size, symbol.sizeUnits);
  if (!(size > 0) || symbol.color < 0) return;
  const Mark mark = GetMark(symbol);
  const CairoScope scope(cairo);
  cairo_translate(cairo, at.x, at.y);
  cairo_new_path(cairo);
  SetColor(cairo, symbol.color);
  if (mark.paint == Paint::kFilled) {
    AddOutline(cairo, mark.outline, size / 2);
    cairo_fill(cairo);
    return;
  }
  // The line stays within the symbol's size.
  const double line = std::clamp(size / 10, 1.0, 4.0);
  AddOutline(cairo, mark.outline, std::max(size - line, 0.5) / 2);
  cairo_set_dash(cairo, nullptr, 0, 0);
  cairo_set_line_width(cairo, line);
  cairo_set_line_cap(cairo, CAIRO_LINE_CAP_BUTT);
  cairo_set_line_join(cairo, CAIRO_LINE_JOIN_ROUND);
  cairo_stroke(cairo);
}

}  // namespace App
