#include "app/design/design_extent.h"

#include "app/convert/decimals.h"
#include "app/design/text_writer.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace App {

namespace MI = Pelor::MI;

namespace {

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
      const TextWriter::Corners corners = TextWriter::CornersOf(text);
      Add(corners.points[0]);
      for (const Vanth::PointXY& corner : corners.points) {
        // The other corners of a turned box have decimals that nobody wrote.
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
  while (measure_.decimals < kMostDecimals &&
         !(HasDecimals(point.x, measure_.decimals) && HasDecimals(point.y, measure_.decimals))) {
    ++measure_.decimals;
  }
}

}  // namespace App
