#include "inputs.h"

#include "app/design/element_writer.h"
#include "app/design/header_element.h"
#include <pelor/dgn.h>
#include <pelor/mi.h>
#include <pelor/mif.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <span>
#include <string_view>

namespace DGN = Pelor::DGN;
namespace MI = Pelor::MI;

namespace {

constexpr std::size_t kBufferBytes = 1U << 20U;
constexpr int kPolylineVertices = 10;
constexpr int kRingVertices = 8;

struct Spot {
  double x = 0.0;
  double y = 0.0;
};

// Objects lie in rows of a thousand, ten units apart.
Spot SpotOf(std::int64_t object) {
  return {500000.0 + 10.0 * static_cast<double>(object % 1000),
          5300000.0 + 10.0 * static_cast<double>(object / 1000)};
}

// Vertex `i` of a wavy line.
Spot OnLine(const Spot& spot, int i) {
  return {spot.x + 0.873 * i, spot.y + (i % 3) * 1.37 + 0.01 * i};
}

// Vertex `i` of a ring.
Spot OnRing(const Spot& spot, int i) {
  constexpr double kStep = 2.0 * 3.14159265358979 / (kRingVertices - 1);
  return {spot.x + 4.0 * std::cos(kStep * i), spot.y + 4.0 * std::sin(kStep * i)};
}

class DesignFile {
 public:
  explicit DesignFile(const std::string& name) : out_(name, std::ios::binary) {
    App::WriteHeaderElement(bytes_, units_, Vanth::BoundsXY(500000, 5300000, 510000, 5310000));
  }

  void Add(std::int64_t element) {
    const Spot spot = SpotOf(element);
    App::LinkageWords linkages;
    linkages.AddDatabase(1, static_cast<std::uint32_t>(element + 1));
    App::ElementStyle style;
    style.level = static_cast<std::uint8_t>(1 + element % 60);
    style.color = static_cast<std::uint8_t>(element % 10);
    std::array<DGN::point2d, kPolylineVertices> points;
    switch (element % 4) {
      case 0:
        writer_.Line(style, At(spot), At(OnLine(spot, 3)), linkages);
        break;
      case 1:
        for (int i = 0; i < kPolylineVertices; ++i) points[static_cast<std::size_t>(i)] = At(OnLine(spot, i));
        writer_.Vertices(DGN::LineStringType, style, points, linkages);
        break;
      case 2:
        for (int i = 0; i < kRingVertices; ++i) points[static_cast<std::size_t>(i)] = At(OnRing(spot, i));
        points[kRingVertices - 1] = points[0];
        writer_.Vertices(DGN::ShapeType, style, std::span(points).first(kRingVertices), linkages);
        break;
      default:
        writer_.Text(style, {}, At(spot), "Parcel " + std::to_string(element), linkages);
    }
    if (bytes_.Size() > kBufferBytes) Flush();
  }

  void Close() {
    bytes_.Word(DGN::EHeader::kEndOfDesign);
    Flush();
    out_.close();
    if (!out_) std::abort();
  }

 private:
  DGN::point2d At(const Spot& spot) const {
    return {static_cast<std::int32_t>(std::lround(spot.x * 100.0)),
            static_cast<std::int32_t>(std::lround(spot.y * 100.0))};
  }

  void Flush() {
    out_.write(bytes_.Data(), static_cast<std::streamsize>(bytes_.Size()));
    bytes_.Clear();
  }

  static App::WorkingUnits Centimetres() {
    App::WorkingUnits units;
    units.subs_per_master = 100;
    units.sub_name = "cm";
    return units;
  }

  std::ofstream out_;
  App::WorkingUnits units_ = Centimetres();
  App::ElementBytes bytes_;
  App::ElementWriter writer_{bytes_};
};

MI::WObjRf<MI::WObjBody> MakeObject(std::int64_t object) {
  const Spot spot = SpotOf(object);
  if (object % 3 == 0) return MI::WPointObj({spot.x, spot.y}, nullptr, MI::Symbol());
  MI::WPLineObj line(nullptr, MI::Pen(), false);
  line->AddPart();
  const bool is_ring = object % 3 == 2;
  for (int i = 0; i < (is_ring ? kRingVertices : kPolylineVertices); ++i) {
    const Spot vertex = is_ring ? OnRing(spot, i % (kRingVertices - 1)) : OnLine(spot, i);
    line->AddVertex({std::round(vertex.x * 1000.0) / 1000.0, std::round(vertex.y * 1000.0) / 1000.0});
  }
  if (!is_ring) return line;
  return MI::WRegionObj(line, MI::Brush());
}

}  // namespace

void MakeDesign(const std::string& name, std::int64_t elements) {
  DesignFile design(name);
  for (std::int64_t element = 0; element < elements; ++element) design.Add(element);
  design.Close();
}

void MakePair(const std::string& name, std::int64_t objects) {
  Pelor::oMIF out(Tobri::String(name), ',');
  out.SetLineFlush(false);
  out.SetCharSet(Tobri::String("WindowsLatin1"));
  out.SetCoordSys(
      MI::CoordSys(MI::NonEarth_t(), MI::Units_m, Vanth::BoundsXY(400000, 5200000, 600000, 5400000)));
  out.AddColumn(MI::Column("Id", MI::Integer_t(), 0));
  out.AddColumn(MI::Column("Name", MI::Character_t(), 20, 0));
  out.AddColumn(MI::Column("Area", MI::Decimal_t(), 12, 2, 0));
  out.AddColumn(MI::Column("Owner", MI::Character_t(), 30, 0));
  for (std::int64_t object = 0; object < objects; ++object) {
    out.AddObj(MakeObject(object));
    out.AddAttribute(Tobri::String(std::to_string(object + 1)));
    out.AddAttribute(Tobri::String("Parcel " + std::to_string(object)));
    out.AddAttribute(Tobri::String(std::to_string(object % 5000) + ".25"));
    out.AddAttribute(Tobri::String("Town of Lower Ashby"));
  }
  out.Close();
  if (!out.MIFStream() || !out.MIDStream()) std::abort();
}
