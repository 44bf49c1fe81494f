#include "app/design/design_header.h"
#include "app/design/element_geometry.h"
#include "app/design/seed.h"
#include "app/inspect/design_check.h"
#include <pelor/mi.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <sstream>
#include <string>
#include <tests/app/convert_run.h>
#include <tests/app/design_elements.h>
#include <tests/app/failure_text.h>
#include <tests/app/sink_conversion.h>

// Three-dimensional designs to start from: what is written lies in them at the height 0.

namespace App {
namespace {

namespace DGN = Pelor::DGN;
namespace MI = Pelor::MI;
using app_test::HeaderText;

/// 10000 units of resolution to the metre.
std::string SpaceSeed(double origin_z) {
  return app_test::DesignBytes("", {.is_3d = true, .origin_x = 100, .origin_z = origin_z});
}

/// What is written of a point with this seed: header, colour table and the point.
std::vector<ElementView> PointIn(SinkConversion& conversion, const std::string& seed) {
  conversion.is_3d = true;
  conversion.options.seed = conversion.folder.Write("seed.dgn", seed);
  conversion.Add(MI::WPointObj({1, 2}, nullptr, MI::Symbol())).Run();
  return conversion.Elements();
}

Uor3 PointOf(const std::vector<ElementView>& elements) {
  return Vertices::Decode(elements.at(2)).value()[0];
}

TEST(SpaceSeedTest, GivesItsDimensionAndTheHeightOfItsOrigin) {
  SinkConversion conversion;
  conversion.options.units = {};
  const std::vector<ElementView> elements = PointIn(conversion, SpaceSeed(-70000));
  EXPECT_EQ(PointOf(elements), (Uor3{10100, 20000, -70000}));
  EXPECT_EQ(elements.at(2).Header().range.zlow, -70000);
  EXPECT_EQ(elements.at(2).Header().range.zhigh, -70000);
  EXPECT_TRUE(DesignHeader::Decode(elements.at(0).Bytes()).is_3d);
  EXPECT_EQ(conversion.Bytes().substr(0, 1536), SpaceSeed(-70000).substr(0, 1536));
  const std::vector<std::string>& said = conversion.account.GetAssumptions();
  EXPECT_NE(
      std::find(said.begin(), said.end(), "the seed is three-dimensional: everything lies at its height 0"),
      said.end());
}

TEST(SpaceSeedTest, ThePlaneIsSilentAboutHeights) {
  SinkConversion conversion;
  conversion.options.units = {};
  conversion.options.seed = conversion.folder.Write("seed.dgn", app_test::DesignBytes("", {.origin_z = 5}));
  conversion.Add(MI::WPointObj({1, 2}, nullptr, MI::Symbol())).Run();
  for (const std::string& sentence : conversion.account.GetAssumptions()) {
    EXPECT_EQ(sentence.find("three-dimensional"), std::string::npos);
  }
  EXPECT_EQ(conversion.Elements().at(2).Header().range.zlow, 0);
}

TEST(SpaceSeedTest, ItsUnitsCanBeReplaced) {
  SinkConversion conversion;
  conversion.options.units = {};
  conversion.options.units.uors_per_master = 1000;
  conversion.options.units.names = UnitNames{"yd", "ty"};
  conversion.options.units.middle = Vanth::PointXY{1, 0};
  const std::vector<ElementView> elements = PointIn(conversion, SpaceSeed(-70000));
  const DesignHeader header = DesignHeader::Decode(elements.at(0).Bytes());
  EXPECT_EQ(header.uors_per_sub, 1);
  EXPECT_EQ(header.master_name, "yd");
  // The plane is moved in x and y; in height the origin stays where it was, at -7 master units.
  EXPECT_EQ(header.origin, (std::array{-1000.0, 0.0, -7000.0}));
  EXPECT_EQ(PointOf(elements), (Uor3{0, 2000, -7000}));
  EXPECT_EQ(conversion.Bytes().substr(1264, 272), SpaceSeed(-70000).substr(1264, 272));
}

TEST(SpaceSeedTest, AnOriginOutsideItsCubeIsRefused) {
  SinkConversion conversion;
  conversion.options.units = {};
  EXPECT_EQ(
      FailureText([&] { PointIn(conversion, SpaceSeed(3e9)); }),
      (conversion.folder / "map.dgn").string() +
          " cannot be written: the height 0 does not fit: at 10000 units of resolution per m the design "
          "cube reaches from -514748.3648 to -85251.6353 m in height");
  EXPECT_EQ(conversion.folder.Names(), std::set<std::string>{"seed.dgn"});
}

/// Every kind of object, and some of them in other forms: a long path and a smooth one, an area of long
/// rings, and texts of all directions.
std::string MifOfAllForms() {
  std::ostringstream mif;
  mif << app_test::kMifOfAllKinds;
  const auto vertices = [&mif](int count, double radius) {
    mif << ' ' << count << '\n';
    for (int i = 0; i < count; ++i) {
      const double angle = 2 * std::numbers::pi * (i % (count - 1)) / (count - 1);
      mif << 500 + radius * std::cos(angle) << ' ' << radius * std::sin(angle) << '\n';
    }
  };
  mif << "Pline";
  vertices(250, 300);
  mif << "    Pen (1,2,0)\nPline";
  vertices(250, 200);
  mif << "    Pen (1,2,0)\n    Smooth\nRegion 2\n";
  vertices(300, 300);
  vertices(150, 100);
  mif << "    Pen (1,2,0)\n    Brush (2,255,16777215)\n";
  for (const char* const degrees : {"0", "33.3", "90", "135.0123", "180", "270", "329.99999"}) {
    mif << "Text \"Two\\nlines\"\n5 5 25 13\n    Font (\"Arial\",0,0,0)\n    Angle " << degrees
        << "\n    Justify Center\n    Spacing 1.5\n";
    mif << "Text \"One line\"\n-5 -5 25 1\n    Font (\"Arial\",0,0,0)\n    Angle " << degrees << '\n';
  }
  mif << "Arc -20 -10 20 10 350.5 20.25\n    Pen (1,2,0)\n";
  return mif.str();
}

class SpaceSeedConversionTest : public app_test::ConvertTest {
 protected:
  SpaceSeedConversionTest() {
    Write("in.mif", MifOfAllForms());
    std::string rows(app_test::kMidOfAllKinds);
    for (int i = 12; i < 30; ++i) rows += std::to_string(i) + ",more\n";
    Write("in.mid", rows);
  }

  void ConvertThereAndBack(const std::string& name, const HeaderText& seed,
                           const std::vector<std::string>& more = {}) const {
    Write("seed.dgn", app_test::DesignBytes("", seed));
    std::vector<std::string> arguments = {"/in.mif", "-o", "/" + name + ".dgn", "--seed", "/seed.dgn"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    EXPECT_EQ(Convert(arguments).err, "");
    EXPECT_EQ(Convert({"/" + name + ".dgn", "-o", "/" + name + "_back.mif"}).err, "");
  }

  void ExpectSamePairs(const std::string& a, const std::string& b) const {
    EXPECT_EQ(Read(a + "_back.mif"), Read(b + "_back.mif"));
    EXPECT_EQ(Read(a + "_back.mid"), Read(b + "_back.mid"));
    EXPECT_EQ(Read(a + ".csv"), Read(b + ".csv"));
  }

  [[nodiscard]] std::vector<std::string> Findings(const std::string& name) const {
    std::vector<std::string> findings;
    CheckDesign(RecogniseInput(Folder() / name),
                [&](const Finding& finding) { findings.push_back(ToText(finding)); });
    return findings;
  }
};

TEST_F(SpaceSeedConversionTest, TheDesignComesBackAsThePlaneOneDoes) {
  ConvertThereAndBack("plane", {});
  ConvertThereAndBack("space", {.is_3d = true, .origin_z = 70000});
  EXPECT_EQ(RecogniseInput(Folder() / "space.dgn").kind, InputKind::kDesign3D);
  // All objects but the one that is none.
  std::size_t texts = 0;
  const std::string back = Read("space_back.mif");
  for (std::size_t at = 0; (at = back.find("\nText ", at)) != std::string::npos; ++at) ++texts;
  EXPECT_EQ(texts, 15U);
  ExpectSamePairs("space", "plane");
}

TEST_F(SpaceSeedConversionTest, ChosenUnitsComeBackAsInThePlane) {
  const std::vector<std::string> units = {"--uor", "100000", "--unit", "m,mm", "--origin", "500,250"};
  ConvertThereAndBack("plane", {}, units);
  ConvertThereAndBack("space", {.is_3d = true, .origin_z = -70000}, units);
  ExpectSamePairs("space", "plane");
}

TEST_F(SpaceSeedConversionTest, NoHeightIsDroppedOnTheWayBack) {
  for (const double origin_z : {0.0, 12345.0, -7.25, 0.5, -2147483648.0}) {
    ConvertThereAndBack("space" + std::to_string(origin_z), {.is_3d = true, .origin_z = origin_z});
    Write("seed.dgn", SpaceSeed(origin_z));
    const app_test::ConvertRun run =
        Convert({"/space" + std::to_string(origin_z) + ".dgn", "-o", "/again.mif", "--overwrite"});
    EXPECT_EQ(run.out.find("height"), std::string::npos) << run.out;
  }
}

TEST_F(SpaceSeedConversionTest, CheckFindsNothingInTheDesign) {
  ConvertThereAndBack("space", {.is_3d = true, .origin_z = -12345});
  EXPECT_EQ(Findings("space.dgn"), std::vector<std::string>());
}

}  // namespace
}  // namespace App
