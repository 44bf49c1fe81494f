#include "app/picture/brush_style.h"

#include "app/picture/pen_style.h"

namespace App {

namespace {

namespace MI = Pelor::MI;

enum HatchLine : unsigned { kHorizontal = 1, kVertical = 2, kFalling = 4, kRising = 8 };

constexpr double kHatchSpacing = 8.0;  // pixels
constexpr double kDenseSpacing = 4.0;

struct Hatch {
  unsigned lines;
  double spacing;
};

Hatch GetHatch(std::int32_t pattern) {
  switch (pattern) {
    case 4:
      return {kVertical, kHatchSpacing};
    case 5:
      return {kFalling, kHatchSpacing};
    case 6:
      return {kRising, kHatchSpacing};
    case 7:
      return {kHorizontal | kVertical, kHatchSpacing};
    case 8:
      return {kFalling | kRising, kHatchSpacing};
    case 9:
      return {kHorizontal, kDenseSpacing};
    case 10:
      return {kVertical, kDenseSpacing};
    case 11:
      return {kHorizontal | kVertical, kDenseSpacing};
    default:
      return {kHorizontal, kHatchSpacing};
  }
}

// Many lines to a tile: viewers of vector pictures show the seams between tiles.
constexpr int kHatchTile = 64;  // a multiple of every spacing

void DrawHatch(cairo_t* cairo, const Hatch& hatch) {
  const auto line = [&](double x1, double y1, double x2, double y2) {
    cairo_move_to(cairo, x1, y1);
    cairo_line_to(cairo, x2, y2);
  };
  // Diagonals also begin a whole tile before this one, and all end beyond its sides.
  for (double at = -kHatchTile; at <= kHatchTile; at += hatch.spacing) {
    // Straight lines through the middles of pixels are sharp.
    if ((hatch.lines & kHorizontal) != 0) line(0, at + 0.5, kHatchTile, at + 0.5);
    if ((hatch.lines & kVertical) != 0) line(at + 0.5, 0, at + 0.5, kHatchTile);
    if ((hatch.lines & kFalling) != 0) line(at - 1, -1, at + kHatchTile + 1, kHatchTile + 1);
    if ((hatch.lines & kRising) != 0) line(at - 1, kHatchTile + 1, at + kHatchTile + 1, -1);
  }
  cairo_set_line_width(cairo, 1.0);
  cairo_stroke(cairo);
}

constexpr std::int32_t kFirstTexture = 12;
constexpr int kMaskSize = 8;

// The rank of a cell in an ordered dither of 64 ranks, so that any number of cells is spread evenly.
int DitherRank(int x, int y) {
  int rank = 0;
  for (int bit = 0; bit < 3; ++bit) rank = rank * 4 + (((x ^ y) >> bit & 1) * 2 + (y >> bit & 1));
  return rank;
}

// Textures differ in how many dots they have and, from the eighth on, in the size of the dots.
constexpr int kDensities = 7;
constexpr int kDotSizes = 3;

int DotSize(std::int32_t pattern) {
  return 1 + (pattern - kFirstTexture) / kDensities % kDotSizes;
}

void DrawDots(cairo_t* cairo, std::int32_t pattern) {
  const int dots = 4 + 8 * ((pattern - kFirstTexture) % kDensities);
  const int size = DotSize(pattern);
  cairo_set_antialias(cairo, CAIRO_ANTIALIAS_NONE);
  for (int y = 0; y < kMaskSize; ++y) {
    for (int x = 0; x < kMaskSize; ++x) {
      if (DitherRank(x, y) < dots) cairo_rectangle(cairo, x * size, y * size, size, size);
    }
  }
  cairo_fill(cairo);
}

CairoPtr<cairo_pattern_t> MakeTile(cairo_t* cairo, const MI::Brush& brush) {
  const bool is_hatch = brush.pattern < kFirstTexture;
  const int size = is_hatch ? kHatchTile : kMaskSize * DotSize(brush.pattern);
  const CairoPtr<cairo_surface_t> surface(
      cairo_surface_create_similar(cairo_get_target(cairo), CAIRO_CONTENT_COLOR_ALPHA, size, size));
  const CairoPtr<cairo_t> tile(cairo_create(surface.get()));
  if (brush.backColor >= 0) {
    SetColor(tile.get(), brush.backColor);
    cairo_paint(tile.get());
  }
  SetColor(tile.get(), brush.foreColor);
  if (is_hatch) {
    DrawHatch(tile.get(), GetHatch(brush.pattern));
  } else {
    DrawDots(tile.get(), brush.pattern);
  }
  CairoPtr<cairo_pattern_t> pattern(cairo_pattern_create_for_surface(surface.get()));
  cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_REPEAT);
  cairo_pattern_set_filter(pattern.get(), CAIRO_FILTER_NEAREST);
  return pattern;
}

}  // namespace

bool BrushStyles::Apply(cairo_t* cairo, const MI::Brush& brush) {
  const int type = brush.GetType();
  if (type == 1) return false;
  if (type == 2) {
    SetColor(cairo, brush.foreColor);
    return brush.foreColor >= 0;
  }
  CairoPtr<cairo_pattern_t>& tile = tiles_[{brush.pattern, brush.foreColor, brush.backColor}];
  if (tile == nullptr) tile = MakeTile(cairo, brush);
  cairo_set_source(cairo, tile.get());
  return true;
}

}  // namespace App
