#include "app/design/seed.h"

#include "app/design/color_table.h"
#include "app/design/design_header.h"
#include "app/design/element_writer.h"
#include "app/design/header_element.h"
#include "app/design/palette.h"
#include <pelor/mi.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tests/app/failure_text.h>
#include <tests/app/sink_conversion.h>

namespace App {
namespace {

namespace DGN = Pelor::DGN;
namespace MI = Pelor::MI;

constexpr std::string_view kEndWord("\xFF\xFF", 2);

/// A header of 10 x 12 units with its origin at (-240, 0), and a line of graphic group 41.
std::string SeedBytes(bool with_colors = false, const LinkageWords& linkages = {}) {
  WorkingUnits units;
  units.subs_per_master = 10;
  units.uors_per_sub = 12;
  units.master_name = "ft";
  units.sub_name = "tf";
  units.origin_x = -240;
  ElementBytes bytes;
  WriteHeaderElement(bytes, units, {});
  if (with_colors) {
    std::array<MI::Color, Palette::kColors> colors{};
    colors[77] = 0x0000FE;
    Palette(colors).Write(bytes);
  }
  ElementWriter(bytes).Line({.graphic_group = 41}, {1, 2}, {3, 4}, linkages);
  return std::string(bytes.View()) + std::string(kEndWord) + "garbage";
}

MI::WPLineObj TwoParts() {
  MI::WPLineObj pline(nullptr, MI::Pen{1, 2, 0x0000FF, MI::SLUnits_Pixel, false}, false);
  for (const double x : {1.0, 5.0}) {
    pline->AddPart();
    pline->AddVertex({x, 0});
    pline->AddVertex({x + 1, 1});
  }
  return pline;
}

TEST(SeedTest, IsCopiedAndGivesItsUnits) {
  SinkConversion conversion;
  conversion.options.units = {};
  conversion.options.seed = conversion.folder.Write("seed.dgn", SeedBytes());
  conversion.Add(TwoParts()).Run();
  const std::string seed = SeedBytes();
  const std::size_t length = seed.find(std::string(kEndWord) + "garbage");
  EXPECT_EQ(conversion.Bytes().substr(0, length), seed.substr(0, length));
  const std::vector<ElementView> elements = conversion.Elements();
  // Header, line, the colour table, and the parts.
  ASSERT_EQ(elements.size(), 5U);
  EXPECT_EQ(elements[2].Type(), DGN::GroupType);
  EXPECT_EQ(elements[3].Header().graphic_group, 42);
  // 1 ft is 120 units of resolution, counted from -240.
  EXPECT_EQ(elements[3].Long(38), -120);
  EXPECT_EQ(conversion.Bytes().size() % 512, 0U);
}

TEST(SeedTest, OtherUnitsThanTheMapsAreSaid) {
  const auto said = [](const UnitChoice& units) {
    SinkConversion conversion;
    conversion.options.units = units;
    conversion.options.seed = conversion.folder.Write("seed.dgn", SeedBytes());
    return conversion.Add(TwoParts()).Run().account.GetAssumptions();
  };
  const std::vector<std::string> in_feet = said({});
  ASSERT_EQ(in_feet.size(), 2U);
  EXPECT_EQ(in_feet[1], "the coordinates of the map, in m, are taken for ft as they are");
  EXPECT_EQ(said({.uors_per_master = {}, .names = UnitNames{"m", "x"}, .middle = {}}).size(), 1U);
  EXPECT_EQ(said({.uors_per_master = {}, .names = UnitNames{"xx", "x"}, .middle = {}}).size(), 1U);
}

TEST(SeedTest, ItsUnitsCanBeReplaced) {
  SinkConversion conversion;
  conversion.options.units = {};
  conversion.options.units.uors_per_master = 1000;
  conversion.options.units.names = UnitNames{"yd", "ty"};
  conversion.options.units.middle = Vanth::PointXY{1, 0};
  conversion.options.seed = conversion.folder.Write("seed.dgn", SeedBytes());
  conversion.Add(TwoParts()).Run();
  const DesignHeader header = DesignHeader::Decode(conversion.Elements().at(0).Bytes());
  EXPECT_EQ(header.subs_per_master, 10);
  EXPECT_EQ(header.uors_per_sub, 100);
  EXPECT_EQ(header.master_name, "yd");
  EXPECT_EQ(header.origin[0], -1000);
  EXPECT_EQ(conversion.Elements().at(3).Long(38), 0);
  // The rest of the header is the seed's.
  EXPECT_EQ(conversion.Bytes().substr(0, 30), SeedBytes().substr(0, 30));
  EXPECT_EQ(conversion.Bytes().substr(1264, 272), SeedBytes().substr(1264, 272));
}

TEST(SeedTest, ItsColorTableIsKept) {
  SinkConversion conversion;
  conversion.options.units = {};
  conversion.options.seed = conversion.folder.Write("seed.dgn", SeedBytes(true));
  conversion.Add(TwoParts()).Run();
  const std::vector<ElementView> elements = conversion.Elements();
  ASSERT_EQ(elements.size(), 5U);
  EXPECT_EQ(elements[3].Header().Color(), 77U);
  const auto& reasons = conversion.account.GetKinds().at("object").approximation_reasons;
  EXPECT_EQ(reasons.at("colour replaced by the nearest one of the colour table").count, 1);
}

TEST(SeedTest, KeysOfItsOwnAreTold) {
  const auto is_told = [](const LinkageWords& linkages) {
    SinkConversion conversion;
    conversion.options.units = {};
    conversion.options.seed = conversion.folder.Write("seed.dgn", SeedBytes(false, linkages));
    conversion.Add(TwoParts()).Run();
    const std::vector<std::string>& said = conversion.account.GetAssumptions();
    return std::count(said.begin(), said.end(),
                      "elements of the seed carry keys of entity 1, too: those may be keys of rows of the "
                      "table") == 1;
  };
  LinkageWords linkages;
  EXPECT_FALSE(is_told(linkages));
  linkages.AddFill(7);
  linkages.AddDatabase(1, 4711);
  EXPECT_TRUE(is_told(linkages));
  LinkageWords other;
  other.AddDatabase(2, 4711);
  EXPECT_FALSE(is_told(other));
}

TEST(SeedTest, AnExtentBeyondItsPlaneIsRefused) {
  SinkConversion conversion;
  conversion.options.units = {};
  conversion.options.seed = conversion.folder.Write("seed.dgn", SeedBytes());
  conversion.Add(MI::WPointObj({2e7, 0}, nullptr, MI::Symbol()));
  EXPECT_EQ(FailureText([&] { conversion.Run(); }),
            (conversion.folder / "map.dgn").string() +
                " cannot be written: the extent of the map, 20000000 to 20000000 by 0 to 0 ft, does not fit: "
                "at 120 units of resolution per ft the design plane reaches from -17895695.07 to 17895699.06 "
                "by -17895697.07 to 17895697.06 ft");
  EXPECT_EQ(conversion.folder.Names(), std::set<std::string>{"seed.dgn"});
}

TEST(SeedTest, WhatItsUnitsRoundIsCounted) {
  SinkConversion conversion;
  conversion.options.units = {};
  conversion.options.seed = conversion.folder.Write("seed.dgn", SeedBytes());
  conversion.Add(MI::WPointObj({1.25, 0}, nullptr, MI::Symbol()));
  conversion.Add(MI::WPointObj({1.123, 0}, nullptr, MI::Symbol())).Run();
  const auto& reasons = conversion.account.GetKinds().at("object").approximation_reasons;
  EXPECT_EQ(reasons.at("coordinates rounded to the units of resolution").count, 1);
  EXPECT_EQ(reasons.at("coordinates rounded to the units of resolution").places.at(0).number, 2);
}

TEST(SeedTest, IsNeverReplaced) {
  SinkConversion conversion;
  conversion.options.seed = conversion.folder.Write("map.dgn", SeedBytes());
  EXPECT_NE(FailureText([&] { conversion.Run(); }), "");
  conversion.overwrite = true;
  EXPECT_NE(FailureText([&] { conversion.Run(); }), "");
  EXPECT_EQ(ReadWhole(conversion.folder / "map.dgn"), SeedBytes());
}

TEST(SeedTest, NeedsNoEndWord) {
  const std::string elements = SeedBytes().substr(0, 1536 + 52);
  for (const std::size_t filler : {0U, 460U}) {
    SinkConversion conversion;
    conversion.options.units = {};
    conversion.options.seed = conversion.folder.Write("seed.dgn", elements + std::string(filler, '\0'));
    conversion.Add(TwoParts()).Run();
    EXPECT_EQ(conversion.Bytes().substr(0, elements.size()), elements);
    ASSERT_EQ(conversion.Elements().size(), 5U);
    EXPECT_EQ(conversion.Elements()[2].Type(), DGN::GroupType);
    EXPECT_EQ(conversion.Elements()[3].Header().graphic_group, 42);
    const std::vector<std::string>& said = conversion.account.GetAssumptions();
    EXPECT_NE(std::find(said.begin(), said.end(),
                        "the seed has no end-of-design word: it ends where its file does"),
              said.end());
  }
}

TEST(SeedTest, RefusesWhatIsNoSeed) {
  const ScratchFolder folder;
  ElementBytes lines;
  ElementWriter(lines).Line({}, {1, 2}, {3, 4}, {});
  WorkingUnits none;
  none.uors_per_sub = 0;
  ElementBytes unitless;
  WriteHeaderElement(unitless, none, {});
  const struct {
    std::string name;
    std::string bytes;
    const char* reason;
  } cases[] = {
      {"cut.dgn", SeedBytes().substr(0, 1536 + 50), "it ends inside an element"},
      {"lines.dgn", std::string(lines.View()) + std::string(kEndWord), "it has no design file header"},
      {"unitless.dgn", std::string(unitless.View()) + std::string(kEndWord), "it has no working units"},
      {"map.mif", "Version 300\nData\n", "it is no design file"},
  };
  for (const auto& c : cases) {
    const std::filesystem::path path = folder.Write(c.name, c.bytes);
    EXPECT_EQ(FailureText([&] { (void)Seed::Read(path); }), path.string() + " cannot be a seed: " + c.reason);
  }
  EXPECT_NE(FailureText([&] { (void)Seed::Read(folder / "missing.dgn"); }), "");
}

}  // namespace
}  // namespace App
