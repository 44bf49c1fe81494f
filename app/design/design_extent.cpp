#include "app/design/design_extent.h"

#include "app/design/text_writer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <span>

namespace App {

namespace MI = Pelor::MI;

namespace {

constexpr double kPowers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10};
static_assert(std::size(kPowers) == MapMeasure::kMostDecimals + 1);

/// Whether the number is what text with so many decimals reads as.
bool HasDecimals(double value, int decimals) {
  constexpr double kWhole = 4503599627370496.0;  // all doubles from here on are whole
  const double scaled = value * kPowers[decimals];
  if (std::fabs(scaled) >= kWhole) return true;
  // Two of these a vertex: a cast is many times as fast as a call of the rounding functions.
  const auto nearest = static_cast<std::int64_t>(scaled + std::copysign(0.5, scaled));
  return static_cast<double>(nearest) / kPowers[decimals] == value;
}

std::span<const Vanth::PointXY> VerticesOf(const MI::WObjBody& object) {
  if (object.GetType() == MI::WObjType_PLine) return static_cast<const MI::WPLineBody&>(object).Vertices();
  return static_cast<const MI::WRegionBody&>(object).GetOutline()->Vertices();
}

}  // namespace

void DesignExtent::Add(const MI::WObjBody& object) {
  switch (object.GetType()) {
    case MI::WObjType_PLine:
    case MI::WObjType_Region:
      for (const Vanth::PointXY& vertex : VerticesOf(object)) Add(vertex);
      return;
    case MI::WObjType_Text: {
      const auto& text = static_cast<const MI::WTextBody&>(object);
      for (const Vanth::PointXY& corner : TextWriter::CornersOf(text).points) {
        // Corners of a turned box have decimals that nobody wrote.
        if (std::isfinite(corner.x) && std::isfinite(corner.y)) measure_.extent.Extend(corner);
      }
      const double letter = TextWriter::LetterOf(text);
      if (std::isfinite(letter)) measure_.letter = std::max(measure_.letter, letter);
      return;
    }
    case MI::WObjType_Arc: {
      // The ellipse counts, whose centre is written.
      const Vanth::RectXY& rect = static_cast<const MI::WArcBody&>(object).GetRect();
      Add({rect.x1, rect.y1});
      Add({rect.x2, rect.y2});
      return;
    }
    default: {
      const Vanth::BoundsXY bounds = object.GetBounds();
      if (bounds.IsEmpty()) return;
      Add(bounds.Min());
      Add(bounds.Max());
    }
  }
}

void DesignExtent::Add(const Vanth::PointXY& point) {
  if (!std::isfinite(point.x) || !std::isfinite(point.y)) return;
  measure_.extent.Extend(point);
  while (measure_.decimals < MapMeasure::kMostDecimals &&
         !(HasDecimals(point.x, measure_.decimals) && HasDecimals(point.y, measure_.decimals))) {
    ++measure_.decimals;
  }
}

}  // namespace App
