#pragma once

// Notation of the object tests: vertex lists as braces of pairs, polylines as braces of parts.

#include <pelor/mi/objects.h>

#include <initializer_list>
#include <ostream>
#include <span>
#include <vector>

namespace Vanth {

inline void PrintTo(const PointXY& point, std::ostream* out) {
  *out << '(' << point.x << ", " << point.y << ')';
}

inline void PrintTo(const BoundsXY& bounds, std::ostream* out) {
  if (bounds.IsEmpty()) {
    *out << "empty";
    return;
  }
  PrintTo(bounds.Min(), out);
  *out << " - ";
  PrintTo(bounds.Max(), out);
}

}  // namespace Vanth

namespace Pelor::MI {

using Points = std::vector<Vanth::PointXY>;

inline Points PointsOf(std::span<const Vanth::PointXY> points) {
  return {points.begin(), points.end()};
}

inline WPLineObj MakePLine(std::initializer_list<Points> parts) {
  WPLineObj pline(nullptr, Pen(), false);
  for (const Points& part : parts) {
    pline->AddPart();
    for (const Vanth::PointXY& point : part) pline->AddVertex(point);
  }
  return pline;
}

inline WRegionObj MakeRegion(std::initializer_list<Points> rings) {
  WRegionObj region(nullptr, Pen(), Brush());
  for (const Points& ring : rings) {
    region->AddPart();
    for (const Vanth::PointXY& point : ring) region->AddVertex(point);
  }
  return region;
}

inline double Radians(const Vanth::Angle& angle) {
  return angle(Vanth::Angle::Radians, Vanth::Angle::AsStored);
}

inline Vanth::Angle Degrees(double degrees) {
  return {degrees, Vanth::Angle::Degrees};
}

inline Tobri::IRefC<CoordSys> MakeCoordSys() {
  return Tobri::IRef<CoordSys>(new CoordSys());
}

}  // namespace Pelor::MI
