#include "app/pair/geometry_check.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <span>

namespace App {

namespace {

namespace MI = Pelor::MI;
using Vanth::PointXY;

// Grows `largest` to the size of the number; to infinity, where it stays, when that is none.
void Take(double& largest, double number) {
  const double size = std::abs(number);
  if (!(size <= largest)) largest = size >= 0.0 ? size : std::numeric_limits<double>::infinity();
}

void Take(GeometryFacts& facts, std::initializer_list<double> numbers) {
  for (const double number : numbers) Take(facts.largest, number);
}

void Take(GeometryFacts& facts, const Vanth::RectXY& rect) {
  Take(facts, {rect.x1, rect.y1, rect.x2, rect.y2});
}

void Take(GeometryFacts& facts, const MI::WPLineBody& line, std::size_t least) {
  facts.written_parts = 0;
  for (int part = 0; part < line.GetNParts(); ++part) {
    const std::span<const PointXY> vertices = line.Vertices(part);
    if (vertices.size() < least) {
      if (!vertices.empty()) ++facts.dropped_parts;
      continue;
    }
    ++facts.written_parts;
    for (const PointXY& vertex : vertices) {
      Take(facts.largest, vertex.x);
      Take(facts.largest, vertex.y);
    }
  }
}

}  // namespace

bool GeometryFacts::IsFinite() const noexcept {
  return std::isfinite(largest);
}

GeometryFacts CheckGeometry(const MI::WObjBody& object) {
  GeometryFacts facts;
  facts.written_parts = 1;
  switch (object.GetType()) {
    case MI::WObjType_None:
      break;
    case MI::WObjType_Point: {
      const PointXY point = object.GetCentroid();
      Take(facts, {point.x, point.y});
      break;
    }
    case MI::WObjType_Line: {
      const auto& line = static_cast<const MI::WLineBody&>(object);
      Take(facts, {line.GetStart().x, line.GetStart().y, line.GetEnd().x, line.GetEnd().y});
      break;
    }
    case MI::WObjType_PLine:
      Take(facts, static_cast<const MI::WPLineBody&>(object), 2);
      break;
    case MI::WObjType_Region:
      Take(facts, *static_cast<const MI::WRegionBody&>(object).GetOutline(), 3);
      break;
    case MI::WObjType_Arc:
      Take(facts, static_cast<const MI::WArcBody&>(object).GetRect());
      break;
    case MI::WObjType_Text:
      Take(facts, static_cast<const MI::WTextBody&>(object).GetBox());
      break;
    case MI::WObjType_Rect:
      Take(facts, static_cast<const MI::WRectBody&>(object).GetRect());
      break;
    case MI::WObjType_RRect:
      Take(facts, static_cast<const MI::WRRectBody&>(object).GetRect());
      break;
    case MI::WObjType_Ellipse:
      Take(facts, static_cast<const MI::WEllipseBody&>(object).GetRect());
      break;
  }
  return facts;
}

}  // namespace App
