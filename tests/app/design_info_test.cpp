#include "app/inspect/design_info.h"

#include "app/inspect/layout.h"
#include "design_elements.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <string>

namespace App {
namespace {

using app_test::DesignBytes;
using app_test::ElementText;
using app_test::Long;
using app_test::Longs;

DesignInfo InfoOf(const ScratchFolder& folder, std::string_view design) {
  Input input;
  input.path = folder.Write("a.dgn", design);
  DesignInfo info = ReadDesignInfo(input);
  info.file = "a.dgn";
  return info;
}

// Origin (100, 200) in units of resolution, 10000 of them per master unit.
constexpr app_test::HeaderText kHeader = {.origin_x = 100.0, .origin_y = 200.0};

std::string Elements() {
  const std::string line = Longs({100, 200, 10100, 20200});
  ElementText fill{.type = 6, .body = "0003 0000*12", .level = 5};
  fill.attributes = "1007 0041 0802 0001 0003 0000*3 1007 5E62 0F81 0002 0007 0000*3 1003 1234 0000*2";
  const std::string far = Longs({999999, 999999, 999999, 999999});
  const std::string cell = "001D 0690 0000*6 " + Longs({0, 0, 0, 0, 214748, 0, 0, 214748, 0, 0});
  const std::string text = "0001 " + Longs({1000, 1000, 0, 200, 200}) + "0002 E441";
  return app_test::ElementBytes({.type = 3, .body = line}) + app_test::ElementBytes(fill) +
         app_test::ElementBytes({.type = 3, .body = far, .deleted = true}) +
         app_test::ElementBytes({.type = 2, .body = cell}) +
         app_test::ElementBytes({.type = 17, .body = text, .level = 63, .component = true});
}

TEST(DesignInfoTest, CountsWhatIsInADesign) {
  const ScratchFolder folder;
  const DesignInfo info = InfoOf(folder, DesignBytes(Elements(), kHeader));
  EXPECT_EQ(info.elements, 6);
  EXPECT_EQ(info.deleted, 1);
  EXPECT_EQ(info.components, 1);
  EXPECT_EQ(info.types[3].count, 2);
  EXPECT_EQ(info.types[3].deleted, 1);
  EXPECT_EQ(info.types[9].count, 1);
  EXPECT_EQ(info.levels[1], 2);
  EXPECT_EQ(info.levels[5], 1);
  EXPECT_EQ(info.levels[63], 1);
  EXPECT_EQ(info.cells, (std::map<std::string, std::int64_t>{{"AB", 1}}));
  EXPECT_EQ(info.texts_beyond_ascii, 1);
  EXPECT_EQ(info.fill_linkages, 1);
  EXPECT_EQ(info.database_linkages, (std::map<std::uint16_t, std::int64_t>{{2, 1}}));
  EXPECT_EQ(info.user_linkages, (std::map<std::uint16_t, std::int64_t>{{0x1234, 1}}));
  EXPECT_FALSE(info.has_color_table);
}

TEST(DesignInfoTest, TellsItInLines) {
  const ScratchFolder folder;
  std::ostringstream out;
  const std::string design = DesignBytes(Elements(), kHeader);
  Print(InfoOf(folder, design), out);
  EXPECT_EQ(out.str(),
            "a.dgn\n"
            "  Kind              design file, version 7, 2D, 1,898 bytes\n"
            "  Units             1 m = 1,000 mm, each 10 units of resolution\n"
            "  Global origin     0.01, 0.02 m\n"
            "  Extent            x from -0.01 to 1\n"
            "                    y from -0.02 to 2\n"
            "  Elements          6: 1 of them components, 1 deleted\n"
            "  By type           1 Cell Header (type 2)\n"
            "                    2 Line (type 3), 1 of them deleted\n"
            "                    1 Shape (type 6)\n"
            "                    1 Design File Header (type 9)\n"
            "                    1 Text (type 17)\n"
            "  By level          2 on level 1\n"
            "                    1 on level 5\n"
            "                    1 on level 63\n"
            "  Cells             1 AB\n"
            "  Linkages          1 to database entity 2\n"
            "                    1 for filling\n"
            "                    1 of application 0x1234\n"
            "  Texts             1 text beyond ASCII: their character set is not stored\n"
            "  Colour table      none: the default colours\n"
            "  End               end-of-design word at byte 1896\n");
}

TEST(DesignInfoTest, TellsItAsJson) {
  const ScratchFolder folder;
  const auto json = ToJson(InfoOf(folder, DesignBytes(Elements(), kHeader)));
  const auto expected = nlohmann::ordered_json::parse(R"({
    "file": "a.dgn", "format": "design", "bytes": 1898, "dimensions": 2,
    "units": {"master": "m", "sub": "mm", "subs_per_master": 1000, "uors_per_sub": 10, "uors_per_master": 10000.0},
    "origin": {"x": 0.01, "y": 0.02},
    "extent": {"low": {"x": -0.01, "y": -0.02}, "high": {"x": 1.0, "y": 2.0}},
    "elements": {"count": 6, "components": 1, "deleted": 1,
      "by_type": [
        {"type": 2, "name": "Cell Header", "count": 1, "deleted": 0},
        {"type": 3, "name": "Line", "count": 2, "deleted": 1},
        {"type": 6, "name": "Shape", "count": 1, "deleted": 0},
        {"type": 9, "name": "Design File Header", "count": 1, "deleted": 0},
        {"type": 17, "name": "Text", "count": 1, "deleted": 0}],
      "by_level": [{"level": 1, "count": 2}, {"level": 5, "count": 1}, {"level": 63, "count": 1}]},
    "cells": [{"name": "AB", "count": 1}],
    "linkages": {"database": [{"entity": 2, "count": 1}], "fill": 1, "user": [{"id": 4660, "count": 1}]},
    "texts_beyond_ascii": 1,
    "color_table": false,
    "end": {"kind": "end-word", "offset": 1896}
  })");
  EXPECT_EQ(json, expected);
}

TEST(DesignInfoTest, AnEmptyDesignHasNoExtentAndNoUnits) {
  const ScratchFolder folder;
  const DesignInfo info = InfoOf(folder, "\xFF\xFF");
  std::ostringstream out;
  Print(info, out);
  EXPECT_EQ(out.str(),
            "a.dgn\n"
            "  Kind              design file, version 7, 2D, 2 bytes\n"
            "  Units             unknown, as there is no design file header: counted as units of resolution\n"
            "  Extent            none, as there is no geometry\n"
            "  Elements          0: 0 of them components, 0 deleted\n"
            "  Colour table      none: the default colours\n"
            "  End               end-of-design word at byte 0\n");
  EXPECT_TRUE(ToJson(info).at("units").is_null());
  EXPECT_TRUE(ToJson(info).at("extent").is_null());
}

TEST(DesignInfoTest, TellsHowADamagedDesignEnds) {
  const ScratchFolder folder;
  const std::string design = DesignBytes(Elements(), kHeader);
  const DesignInfo no_end = InfoOf(folder, design.substr(0, design.size() - 2));
  EXPECT_EQ(ToJson(no_end).at("end").at("kind"), "no-end-word");
  const DesignInfo cut = InfoOf(folder, design.substr(0, design.size() - 3));
  EXPECT_EQ(ToJson(cut).at("end").at("kind"), "cut-off");
}

TEST(DesignInfoTest, ThreeDimensionsHaveAThirdAxis) {
  const ScratchFolder folder;
  const std::string line = Longs({10000, 20000, 30000, 10000, 20000, -30000});
  const DesignInfo info =
      InfoOf(folder, DesignBytes(app_test::ElementBytes({.type = 3, .body = line}), {.is_3d = true}));
  const auto json = ToJson(info);
  EXPECT_EQ(json.at("dimensions"), 3);
  EXPECT_EQ(json.at("extent").at("low"), (nlohmann::ordered_json{{"x", 1.0}, {"y", 2.0}, {"z", -3.0}}));
  EXPECT_EQ(json.at("extent").at("high"), (nlohmann::ordered_json{{"x", 1.0}, {"y", 2.0}, {"z", 3.0}}));
  EXPECT_EQ(info.components, 0);
}

TEST(ExtentTest, FollowsTheCourseOfAnArc) {
  // A quarter from north-east to north-west: its top is inside, its sides are its ends.
  const std::string body = Longs({45 * 360000, 90 * 360000}) + app_test::DFloat(100.0) +
                           app_test::DFloat(100.0) + Long(0) + app_test::DFloat(1000.0) +
                           app_test::DFloat(0.0);
  const std::string arc = app_test::ElementBytes({.type = 16, .body = body});
  const Extent extent = ExtentOf(ElementView(arc, false), TextExtent::kBox);
  EXPECT_NEAR(extent.low[0], 1000.0 - 70.710678, 1e-5);
  EXPECT_NEAR(extent.high[0], 1000.0 + 70.710678, 1e-5);
  EXPECT_NEAR(extent.low[1], 70.710678, 1e-5);
  EXPECT_NEAR(extent.high[1], 100.0, 1e-9);
}

TEST(ExtentTest, AClockwiseArcCoversTheSame) {
  const std::string axes = app_test::DFloat(100.0) + app_test::DFloat(50.0) + Long(0) +
                           app_test::DFloat(0.0) + app_test::DFloat(0.0);
  const std::string there =
      app_test::ElementBytes({.type = 16, .body = Longs({10 * 360000, 200 * 360000}) + axes});
  const std::string back =
      app_test::ElementBytes({.type = 16, .body = Longs({210 * 360000, -200 * 360000}) + axes});
  const Extent a = ExtentOf(ElementView(there, false), TextExtent::kBox);
  const Extent b = ExtentOf(ElementView(back, false), TextExtent::kBox);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_NEAR(a.low[i], b.low[i], 1e-6);
    EXPECT_NEAR(a.high[i], b.high[i], 1e-6);
  }
  EXPECT_NEAR(a.low[0], -100.0, 1e-9);
  EXPECT_NEAR(a.high[1], 50.0, 1e-9);
}

TEST(ExtentTest, TheEndsOfACurveOnlySetItsSlopes) {
  const std::string curve = app_test::ElementBytes(
      {.type = 11, .body = "0006 " + Longs({-900, 0, -90, 0, 0, 0, 10, 20, 90, 0, 900, 0})});
  const Extent extent = ExtentOf(ElementView(curve, false), TextExtent::kBox);
  EXPECT_EQ(extent.low[0], 0.0);
  EXPECT_EQ(extent.high[0], 10.0);
}

TEST(ExtentTest, ATextTurnedByNinetyDegreesRunsUp) {
  // Three characters, 6 units wide and 12 high.
  const std::string text = app_test::ElementBytes(
      {.type = 17, .body = "0001 " + Longs({1000, 2000, 90 * 360000, 100, 200}) + "0003 4141 0041"});
  const Extent box = ExtentOf(ElementView(text, false), TextExtent::kBox);
  EXPECT_NEAR(box.low[0], 88.0, 1e-9);
  EXPECT_NEAR(box.high[0], 100.0, 1e-9);
  EXPECT_NEAR(box.low[1], 200.0, 1e-9);
  EXPECT_NEAR(box.high[1], 218.0, 1e-9);
  const Extent origin = ExtentOf(ElementView(text, false), TextExtent::kOrigin);
  EXPECT_EQ(origin.low[0], 100.0);
  EXPECT_EQ(origin.high[1], 200.0);
}

TEST(ExtentTest, ATextWithoutCharactersIsItsOrigin) {
  const std::string text =
      app_test::ElementBytes({.type = 17, .body = "0001 " + Longs({1000, 2000, 0, 100, 200}) + "0000"});
  const Extent box = ExtentOf(ElementView(text, false), TextExtent::kBox);
  EXPECT_EQ(box.low[0], 100.0);
  EXPECT_EQ(box.high[0], 100.0);
  EXPECT_EQ(box.high[1], 200.0);
}

TEST(LayoutTest, WritesNumbersForPeople) {
  EXPECT_EQ(ToText(std::int64_t{0}), "0");
  EXPECT_EQ(ToText(std::int64_t{-1234567}), "-1,234,567");
  EXPECT_EQ(ToText(std::int64_t{999}), "999");
  EXPECT_EQ(ToText(0.1 + 0.2), "0.3");
  EXPECT_EQ(ToText(123456789.0), "123456789");
  EXPECT_EQ(Counted(1, "byte"), "1 byte");
  EXPECT_EQ(Counted(2000, "byte"), "2,000 bytes");
}

}  // namespace
}  // namespace App
