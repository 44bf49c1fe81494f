#include "app/pair/geometry_check.h"

#include "app/convert/decimals.h"
#include <pelor/base.h>

#include <algorithm>
#include <array>
#include <charconv>
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

// Hands each coordinate that is written to `visit`, until that answers false.
template <class Visit>
bool VisitAll(std::initializer_list<double> numbers, Visit& visit) {
  return std::all_of(numbers.begin(), numbers.end(), visit);
}

template <class Visit>
bool VisitAll(const Vanth::RectXY& rect, Visit& visit) {
  return VisitAll({rect.x1, rect.y1, rect.x2, rect.y2}, visit);
}

template <class Visit>
bool VisitAll(const MI::WPLineBody& line, std::size_t least, Visit& visit) {
  for (int part = 0; part < line.GetNParts(); ++part) {
    const std::span<const PointXY> vertices = line.Vertices(part);
    if (vertices.size() < least) continue;
    for (const PointXY& vertex : vertices) {
      if (!visit(vertex.x) || !visit(vertex.y)) return false;
    }
  }
  return true;
}

constexpr std::size_t kLeastOfLine = 2;
constexpr std::size_t kLeastOfRing = 3;

template <class Visit>
bool VisitAll(const MI::WObjBody& object, Visit visit) {
  switch (object.GetType()) {
    case MI::WObjType_None:
      break;
    case MI::WObjType_Point: {
      const PointXY point = object.GetCentroid();
      return VisitAll({point.x, point.y}, visit);
    }
    case MI::WObjType_Line: {
      const auto& line = static_cast<const MI::WLineBody&>(object);
      return VisitAll({line.GetStart().x, line.GetStart().y, line.GetEnd().x, line.GetEnd().y}, visit);
    }
    case MI::WObjType_PLine:
      return VisitAll(static_cast<const MI::WPLineBody&>(object), kLeastOfLine, visit);
    case MI::WObjType_Region:
      return VisitAll(*static_cast<const MI::WRegionBody&>(object).GetOutline(), kLeastOfRing, visit);
    case MI::WObjType_Arc:
      return VisitAll(static_cast<const MI::WArcBody&>(object).GetRect(), visit);
    case MI::WObjType_Text:
      return VisitAll(static_cast<const MI::WTextBody&>(object).GetBox(), visit);
    case MI::WObjType_Rect:
      return VisitAll(static_cast<const MI::WRectBody&>(object).GetRect(), visit);
    case MI::WObjType_RRect:
      return VisitAll(static_cast<const MI::WRRectBody&>(object).GetRect(), visit);
    case MI::WObjType_Ellipse:
      return VisitAll(static_cast<const MI::WEllipseBody&>(object).GetRect(), visit);
  }
  return true;
}

void CountParts(GeometryFacts& facts, const MI::WPLineBody& line, std::size_t least) {
  facts.written_parts = 0;
  for (int part = 0; part < line.GetNParts(); ++part) {
    const std::size_t vertices = line.Vertices(part).size();
    if (vertices >= least) {
      ++facts.written_parts;
    } else if (vertices != 0) {
      ++facts.dropped_parts;
    }
  }
}

// Whether the number as it is written reads as itself.
bool ReadsAsItself(double number) {
  std::array<char, Tobri::kGeneralSize> text{};
  const char* const end = Tobri::FormatGeneral(text.data(), number, kWrittenDigits);
  double again = 0.0;
  std::from_chars(text.data(), end, again);
  return again == number;
}

}  // namespace

bool GeometryFacts::IsFinite() const noexcept {
  return std::isfinite(largest);
}

GeometryFacts CheckGeometry(const MI::WObjBody& object) {
  GeometryFacts facts;
  facts.written_parts = 1;
  if (object.GetType() == MI::WObjType_PLine) {
    CountParts(facts, static_cast<const MI::WPLineBody&>(object), kLeastOfLine);
  } else if (object.GetType() == MI::WObjType_Region) {
    CountParts(facts, *static_cast<const MI::WRegionBody&>(object).GetOutline(), kLeastOfRing);
  }
  VisitAll(object, [&facts](double number) {
    Take(facts.largest, number);
    return true;
  });
  return facts;
}

bool KeepsCoordinates(const MI::WObjBody& object, double largest) {
  // The decimals that are left to the greatest coordinate do for all others, mostly.
  const double first = largest > 0.0 ? std::floor(std::log10(largest)) : 0.0;
  const int decimals = static_cast<int>(std::clamp(kWrittenDigits - 1 - first, -1.0, double{kMostDecimals}));
  return VisitAll(object, [decimals](double number) {
    return (decimals >= 0 && HasDecimals(number, decimals)) || ReadsAsItself(number);
  });
}

}  // namespace App
