#include "app/design/design_header.h"
#include "app/design/element_writer.h"
#include "app/design/header_element.h"
#include "app/pair/pair_source.h"
#include "convert_run.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace app_test {
namespace {

namespace DGN = Pelor::DGN;
namespace MI = Pelor::MI;
using Ring = std::vector<Vanth::PointXY>;
using Area = std::vector<Ring>;

// Twice the area of a closed ring.
double DoubleArea(const Ring& ring) {
  double sum = 0.0;
  for (std::size_t i = 1; i < ring.size(); ++i) {
    sum += (ring[i - 1].x - ring[0].x) * (ring[i].y - ring[0].y) -
           (ring[i].x - ring[0].x) * (ring[i - 1].y - ring[0].y);
  }
  return std::fabs(sum);
}

// A closed ring as coastlines are: irregular, and with all digits that a double has.
Ring Coast(std::mt19937& random, const Vanth::PointXY& center, double radius, std::size_t vertices) {
  Ring ring;
  for (std::size_t i = 0; i < vertices; ++i) {
    const double angle =
        2.0 * 3.14159265358979323846 * static_cast<double>(i) / static_cast<double>(vertices);
    const double wave = radius * (0.8 + 0.2 * static_cast<double>(random() % 1000) / 1000.0);
    ring.push_back({center.x + wave * std::cos(angle), center.y + wave * std::sin(angle)});
  }
  ring.push_back(ring.front());
  return ring;
}

// Countries of few and of very many vertices, some of several islands, some with a lake.
std::vector<Area> Countries() {
  std::mt19937 random(6);
  std::vector<Area> countries;
  for (int i = 0; i < 60; ++i) {
    const Vanth::PointXY center = {-170.0 + 34.0 * (i % 11), -70.0 + 28.0 * (i / 11)};
    const std::size_t vertices = i % 5 == 0 ? 900 : i % 5 == 1 ? 101 : 4 + static_cast<std::size_t>(i);
    Area area = {Coast(random, center, 6.0, vertices)};
    if (i % 4 == 1) area.push_back(Coast(random, center, 2.0, 3 + vertices / 2));
    if (i % 7 == 3) area.push_back(Coast(random, {center.x + 11.0, center.y}, 3.0, 150));
    countries.push_back(area);
  }
  return countries;
}

std::string MifOf(const std::vector<Area>& areas) {
  std::ostringstream mif;
  mif.precision(17);
  mif << "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\nCoordSys Earth Projection 1, 104\n"
         "Columns 1\n  Id Integer\nData\n\n";
  for (const Area& area : areas) {
    mif << "Region " << area.size() << '\n';
    for (const Ring& ring : area) {
      mif << ring.size() << '\n';
      for (const Vanth::PointXY& point : ring) mif << point.x << ' ' << point.y << '\n';
    }
  }
  return mif.str();
}

Area RingsOf(const MI::WRegionObj& region) {
  Area area;
  const MI::WPLineObj outline = region->GetOutline();
  for (int part = 0; part < outline->GetNParts(); ++part) {
    const auto vertices = outline->Vertices(part);
    area.emplace_back(vertices.begin(), vertices.end());
  }
  return area;
}

class ConvertRoundTripTest : public ConvertTest {
 protected:
  [[nodiscard]] std::vector<Area> ReadAreas(const std::string& name) const {
    App::PairSource source(App::RecogniseInput(Folder() / name));
    std::vector<Area> areas;
    App::Feature feature;
    App::Account account;
    while (source.Next(feature, account)) {
      const MI::WRegionObj region(feature.object);
      areas.push_back(region == nullptr ? Area() : RingsOf(region));
    }
    return areas;
  }

  [[nodiscard]] double UnitOf(const std::string& name) const {
    DGN::File file((Folder() / name).string(), std::ios::in);
    return 1.0 / App::DesignHeader::Find(file).UorsPerMaster();
  }
};

TEST_F(ConvertRoundTripTest, CountriesComeBackWithinHalfAUnit) {
  const std::vector<Area> countries = Countries();
  Write("in.mif", MifOf(countries));
  Write("in.mid", "");
  ASSERT_EQ(Convert({"/in.mif", "-o", "/there.dgn"}).err, "");
  ASSERT_EQ(Convert({"/there.dgn", "-o", "/back.mif", "--coordsys", "Earth Projection 1, 104"}).err, "");
  const double unit = UnitOf("there.dgn");
  EXPECT_LE(unit, 1e-7);
  const std::vector<Area> back = ReadAreas("back.mif");
  ASSERT_EQ(back.size(), countries.size());
  // Ten digits are written, which are 1e-7 here: what lies on that grid comes back as it was.
  const double tolerance = 0.5 * unit * 1.000001;
  for (std::size_t i = 0; i < countries.size(); ++i) {
    SCOPED_TRACE(i);
    ASSERT_EQ(back[i].size(), countries[i].size());
    double area = 0.0;
    double area_back = 0.0;
    for (std::size_t j = 0; j < countries[i].size(); ++j) {
      const Ring& ring = countries[i][j];
      ASSERT_EQ(back[i][j].size(), ring.size());
      for (std::size_t k = 0; k < ring.size(); ++k) {
        EXPECT_NEAR(back[i][j][k].x, ring[k].x, tolerance);
        EXPECT_NEAR(back[i][j][k].y, ring[k].y, tolerance);
      }
      area += DoubleArea(ring);
      area_back += DoubleArea(back[i][j]);
    }
    EXPECT_NEAR(area_back / area, 1.0, 1e-6);
  }
}

TEST_F(ConvertRoundTripTest, TheDesignOfAnyPairIsSound) {
  Write("in.mif", MifOf(Countries()));
  Write("in.mid", "");
  ASSERT_EQ(Convert({"/in.mif", "-o", "/there.dgn"}).err, "");
  ASSERT_EQ(Convert({"/there.dgn", "-o", "/copy.dgn"}).err, "");
  EXPECT_EQ(Read("copy.dgn"), Read("there.dgn"));
}

TEST_F(ConvertRoundTripTest, EachComplexShapeIsOneRegionAndACellKeepsItsHole) {
  Write("in.dgn", DesignOfAllKinds());
  ASSERT_EQ(
      Convert({"/in.dgn", "-o", "/out.mif", "--type", "complex-shape,cell-header", "--level", "3,4"}).err,
      "");
  const std::vector<Area> areas = ReadAreas("out.mif");
  ASSERT_EQ(areas.size(), 2U);
  EXPECT_EQ(areas[0], (Area{{{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}}}));
  EXPECT_EQ(areas[1],
            (Area{{{0, 0}, {5, 0}, {5, 5}, {0, 5}, {0, 0}}, {{1, 1}, {2, 1}, {2, 2}, {1, 2}, {1, 1}}}));
}

TEST_F(ConvertRoundTripTest, FiftyTextsKeepTheirHeightAndAngleBothWays) {
  App::ElementBytes bytes;
  App::WorkingUnits units;
  units.uors_per_sub = 10;
  App::WriteHeaderElement(bytes, units, Vanth::BoundsXY(0, 0, 100, 100));
  App::ElementWriter writer(bytes);
  App::TextShape shape;
  shape.rotation_degrees = 30.0;
  // 0.5 master units are 5000 units of resolution, of which a multiplier holds 1000 / 6.
  shape.length_multiplier = shape.height_multiplier = 5000 * 1000 / 6;
  for (int i = 0; i < 50; ++i) {
    writer.Text({}, shape, {1000 * i, 2000 * i}, "Text " + std::to_string(i), {});
  }
  bytes.Word(DGN::EHeader::kEndOfDesign);
  Write("in.dgn", bytes.View());
  ASSERT_EQ(Convert({"/in.dgn", "-o", "/out.mif"}).err, "");
  ASSERT_EQ(Convert({"/out.mif", "-o", "/back.dgn"}).err, "");
  ASSERT_EQ(Convert({"/back.dgn", "-o", "/again.mif"}).err, "");
  for (const char* const name : {"out.mif", "again.mif"}) {
    App::PairSource source(App::RecogniseInput(Folder() / name));
    App::Feature feature;
    App::Account account;
    int count = 0;
    while (source.Next(feature, account)) {
      const MI::WObjRf<MI::WTextBody> text(feature.object);
      ASSERT_NE(text, nullptr) << name;
      EXPECT_EQ(text->GetText(), "Text " + std::to_string(count));
      EXPECT_NEAR(std::fabs(text->GetBox().y2 - text->GetBox().y1), 0.5, 1e-4);
      EXPECT_NEAR(text->GetAngle()(Vanth::Angle::Degrees, Vanth::Angle::AsStored), 30.0, 1e-9);
      ++count;
    }
    EXPECT_EQ(count, 50) << name;
  }
}

}  // namespace
}  // namespace app_test
