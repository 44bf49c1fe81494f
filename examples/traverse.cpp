// Walks the legs of a survey traverse from the origin and prints its stations, their extent, and by how much
// it fails to close. A leg is a line "BEARING DISTANCE", the bearing in degrees clockwise from north.

#include <pelor/base.h>

#include <cmath>
#include <cstdio>
#include <fstream>

namespace {

Vanth::ArcXY ReadTraverse(std::istream& legs) {
  Vanth::ArcXY stations;
  Vanth::PointXY station;
  stations.Add(station);
  double bearing_degrees = 0.0;
  double distance = 0.0;
  while (legs >> bearing_degrees >> distance) {
    const double bearing =
        Vanth::Angle(bearing_degrees, Vanth::Angle::Degrees)(Vanth::Angle::Radians, Vanth::Angle::Positive);
    station.x += distance * std::sin(bearing);
    station.y += distance * std::cos(bearing);
    stations.Add(station);
  }
  if (!legs.eof()) Tobri::Error::Handle(Tobri::ErrMsg("a leg is not two numbers"));
  return stations;
}

void Print(const Vanth::ArcXY& stations) {
  Vanth::BoundsXY extent;
  for (const Vanth::PointXY& station : stations.Points()) {
    std::printf("station %9.3f %9.3f\n", station.x, station.y);
    extent.Extend(station);
  }
  std::printf("extent  %9.3f %9.3f to %.3f %.3f\n", extent.Min().x, extent.Min().y, extent.Max().x,
              extent.Max().y);
  const Vanth::PointXY& last = stations.Points().back();
  std::printf("misses its start by %.3f\n", std::hypot(last.x, last.y));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: traverse FILE\n");
    return 2;
  }
  try {
    std::ifstream legs(argv[1]);
    if (!legs) Tobri::Error::Handle(Tobri::ErrMsg("the file cannot be opened"));
    Print(ReadTraverse(legs));
  } catch (const Tobri::Error::Msg& message) {
    std::fprintf(stderr, "%s: %s\n", argv[1], message.what());
    return 1;
  }
  return 0;
}
