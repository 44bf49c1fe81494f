#include "app/design/symbology.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace App {

using namespace Pelor;

namespace {

constexpr int kSolid = 2;
constexpr int kNoFill = 1;
// By line style: solid, dots, medium dashes, long dashes, dash-dot, short dashes, dash-dot-dot, long and
// short dash.
constexpr int kPatterns[] = {kSolid, 3, 6, 8, 14, 5, 20, 16};
constexpr int kInvisible = 1;

constexpr int kWidestPixels = 7;
constexpr double kTenthsPerPixel = 7.5;
constexpr int kHeaviest = 31;

constexpr int kDot = 34;
constexpr int kSquare = 32;
constexpr int kSmallestDot = 4;
constexpr int kCellSymbolSize = 8;

constexpr int kBoldFromWeight = 2;
constexpr std::uint16_t kBold = 1;

}  // namespace

int PenPattern(int style) noexcept {
  return style >= 0 && style < static_cast<int>(std::size(kPatterns)) ? kPatterns[style] : kSolid;
}

bool HasLineStyle(const MI::Pen& pen) noexcept {
  if (pen.pattern == kSolid) return true;
  return !pen.interleaved &&
         std::find(std::begin(kPatterns), std::end(kPatterns), pen.pattern) != std::end(kPatterns);
}

int LineStyle(int pen_pattern) noexcept {
  const auto* const exact = std::find(std::begin(kPatterns), std::end(kPatterns), pen_pattern);
  if (exact != std::end(kPatterns)) return static_cast<int>(exact - std::begin(kPatterns));
  if (pen_pattern <= kInvisible) return DGN::SolidStyle;
  // The patterns come in groups: dots and dashes of growing length, dash-dot, dash-dot-dot, and the rest.
  if (pen_pattern < 5) return DGN::DashedStyle;
  if (pen_pattern < 8) return DGN::MediumDashedStyle;
  if (pen_pattern < 14) return DGN::LongDashedStyle;
  if (pen_pattern < 20) return DGN::DashDotStyle;
  if (pen_pattern < 26) return DGN::DashDotDotStyle;
  return DGN::SolidStyle;
}

MI::Pen MakePen(const Symbology& symbology, const ColorTable& colors) noexcept {
  MI::Pen pen;
  pen.pattern = PenPattern(symbology.style);
  pen.color = colors[symbology.color];
  pen.width = symbology.weight + 1;
  if (pen.width > kWidestPixels) {
    pen.width = static_cast<int>(std::lround(pen.width * kTenthsPerPixel));
    pen.widthUnits = MI::SLUnits_TenthPoint;
  }
  return pen;
}

int LineWeight(const MI::Pen& pen) noexcept {
  double pixels = pen.width;
  if (pen.widthUnits == MI::SLUnits_TenthPoint) pixels /= kTenthsPerPixel;
  if (pen.widthUnits == MI::SLUnits_Point) pixels /= kTenthsPerPixel / 10;
  if (pen.widthUnits == MI::SLUnits_HundredthMm) pixels /= 25.4 / 96 * 100;
  return static_cast<int>(std::clamp(std::round(pixels) - 1, 0.0, double{kHeaviest}));
}

MI::Brush MakeBrush(std::optional<std::uint8_t> fill_color, const ColorTable& colors) noexcept {
  MI::Brush brush;
  brush.pattern = fill_color ? kSolid : kNoFill;
  if (fill_color) brush.foreColor = colors[*fill_color];
  return brush;
}

MI::StdSymbol MakePointSymbol(const Symbology& symbology, const ColorTable& colors) noexcept {
  MI::StdSymbol symbol;
  symbol.shape = kDot;
  symbol.color = colors[symbology.color];
  symbol.size = kSmallestDot + symbology.weight;
  return symbol;
}

int PointWeight(const MI::Symbol& symbol) noexcept {
  return std::clamp(symbol.GetSize(MI::SLUnits_Point), kSmallestDot, kSmallestDot + kHeaviest) - kSmallestDot;
}

MI::StdSymbol MakeCellSymbol(const Symbology& symbology, const ColorTable& colors) noexcept {
  MI::StdSymbol symbol;
  symbol.shape = kSquare;
  symbol.color = colors[symbology.color];
  symbol.size = kCellSymbolSize;
  return symbol;
}

MI::Font MakeFont(const Symbology& symbology, const ColorTable& colors) {
  MI::Font font;
  font.name = "Arial";
  font.foreColor = colors[symbology.color];
  if (symbology.weight >= kBoldFromWeight) font.style |= kBold;
  return font;
}

}  // namespace App
