#include "app/design/color_table.h"
#include "app/design/design_header.h"
#include "app/design/linkage.h"
#include "app/design/symbology.h"
#include <pelor/dgn.h>
#include <pelor/mi.h>

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <tests/app/failure_text.h>
#include <tests/app/sink_conversion.h>
#include <tests/dgn/words.h>

namespace App {
namespace {

namespace DGN = Pelor::DGN;
namespace MI = Pelor::MI;
using dgn_test::InWords;
using dgn_test::Words;
using Object = SinkConversion::Object;

constexpr MI::Color kRed = 0x0000FF;
constexpr MI::Color kBlue = 0xFF0000;

std::string Tidy(std::string_view words) {
  return InWords(Words(words));
}
std::string InWords(const ElementView& element) {
  return InWords(std::string_view(element.Bytes().data(), element.Bytes().size()));
}

Object Point(double x, double y, const MI::Symbol& symbol = {}) {
  return MI::WPointObj({x, y}, nullptr, symbol);
}
Object Line(double x1, double y1, double x2, double y2, const MI::Pen& pen = {}) {
  return MI::WLineObj({x1, y1}, {x2, y2}, nullptr, pen);
}

using Parts = std::vector<std::vector<Vanth::PointXY>>;

MI::WPLineObj PLine(const Parts& parts, bool smooth = false, const MI::Pen& pen = {}) {
  MI::WPLineObj pline(nullptr, pen, smooth);
  for (const auto& part : parts) {
    pline->AddPart();
    for (const Vanth::PointXY& vertex : part) pline->AddVertex(vertex);
  }
  return pline;
}
Object Region(const Parts& rings, const MI::Brush& brush = {1, 0, -1}) {
  return MI::WRegionObj(PLine(rings), brush);
}

/// What an element of the first row begins and ends with, at 100 units of resolution to the metre.
const std::string kFirstRow = " 1007 5E62 0F81 0001 0001 0000 0000 0000";

TEST(DesignSinkTest, WritesAWholeDesignFile) {
  SinkConversion conversion;
  conversion.Add(Point(1, 2)).Run();
  EXPECT_EQ(conversion.Bytes().size() % 512, 0U);
  const std::vector<ElementView> elements = conversion.Elements();
  ASSERT_EQ(elements.size(), 3U);
  const DesignHeader header = DesignHeader::Decode(elements[0].Bytes());
  EXPECT_EQ(header.UorsPerMaster(), 100.0);
  EXPECT_EQ(header.master_name, "m");
  EXPECT_EQ(header.origin[0], 0.0);
  EXPECT_EQ(elements[1].Type(), DGN::GroupType);
  const std::size_t end = 1536 + 806 + elements[2].Bytes().size();
  EXPECT_EQ(InWords(std::string_view(conversion.Bytes()).substr(end, 4)), "FFFF 0000");
  EXPECT_EQ(conversion.folder.Names(), (std::set<std::string>{"map.csv", "map.dgn"}));
}

TEST(DesignSinkTest, WritesAPointAsALineWithoutLength) {
  SinkConversion conversion;
  conversion.Add(Point(1, -2, MI::Symbol(MI::StdSymbol{34, kRed, 9, MI::SLUnits_Point}))).Run();
  EXPECT_EQ(InWords(conversion.Drawing().at(0)),
            Tidy("0301 0020 8000 0064 7FFF FF38 8000 0000 8000 0064 7FFF FF38 8000 0000"
                 " 0000 000A 0A00 0328 0000 0064 FFFF FF38 0000 0064 FFFF FF38" +
                 kFirstRow));
}

TEST(DesignSinkTest, WritesALineWithItsPen) {
  SinkConversion conversion;
  conversion.Add(Line(0, 0, 0.004, 0.005, {3, 8, kRed, MI::SLUnits_Pixel, false})).Run();
  // Halves of a unit round up.
  EXPECT_EQ(InWords(conversion.Drawing().at(0)),
            Tidy("0301 0020 8000 0000 8000 0000 8000 0000 8000 0000 8000 0001 8000 0000"
                 " 0000 000A 0A00 0313 0000 0000 0000 0000 0000 0000 0000 0001" +
                 kFirstRow));
}

TEST(DesignSinkTest, WritesAPolylineOfOnePartWithoutAGraphicGroup) {
  SinkConversion conversion;
  conversion.Add(PLine({{{0, 0}, {1, 1}}})).Run();
  EXPECT_EQ(InWords(conversion.Drawing().at(0)),
            Tidy("0401 0021 8000 0000 8000 0000 8000 0000 8000 0064 8000 0064 8000 0000"
                 " 0000 000B 0A00 0000 0002 0000 0000 0000 0000 0000 0064 0000 0064" +
                 kFirstRow));
}

TEST(DesignSinkTest, JoinsTheLinesOfAMultiPartPolylineInAGraphicGroup) {
  SinkConversion conversion;
  conversion.Add(PLine({{{0, 0}, {1, 1}}, {{2, 2}, {3, 3}}}));
  conversion.Add(PLine({{{0, 0}, {1, 1}}, {{2, 2}, {3, 3}}, {{5, 5}, {6, 6}, {7, 5}}}));
  conversion.Run();
  const std::vector<ElementView> drawing = conversion.Drawing();
  ASSERT_EQ(drawing.size(), 5U);
  const std::uint16_t groups[] = {1, 1, 2, 2, 2};
  const std::uint32_t keys[] = {1, 1, 2, 2, 2};
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(drawing[i].Type(), DGN::LineStringType);
    EXPECT_EQ(drawing[i].Header().graphic_group, groups[i]);
    EXPECT_EQ(ReadLinkages(drawing[i].Attributes()).database, (DatabaseKey{1, keys[i]}));
  }
  EXPECT_EQ(conversion.account.GetApproximated(), 0);
}

TEST(DesignSinkTest, WritesASmoothPolylineAsACurve) {
  SinkConversion conversion;
  conversion.Add(PLine({{{0, 0}, {1, 0}, {1, 2}}}, true)).Run();
  // Two points before the first and two behind the last go on in the same direction.
  EXPECT_EQ(InWords(conversion.Drawing().at(0)).substr(0, 5 * 47),
            Tidy("0B01 0035 7FFF FF38 8000 0000 8000 0000 8000 0064 8000 0258 8000 0000"
                 " 0000 001F 0A00 0000 0007"
                 " FFFF FF38 0000 0000 FFFF FF9C 0000 0000"
                 " 0000 0000 0000 0000 0000 0064 0000 0000 0000 0064 0000 00C8"
                 " 0000 0064 0000 0190 0000 0064 0000 0258") +
                " ");
}

TEST(DesignSinkTest, LeavesOutPartsThatAreNoLines) {
  SinkConversion conversion;
  conversion.Add(PLine({{{0, 0}, {1, 1}}, {{2, 2}}}));
  conversion.Add(PLine({{{2, 2}}}));
  conversion.Add(PLine({}));
  conversion.Add(Region({{{0, 0}, {1, 1}}}));
  conversion.Run();
  EXPECT_EQ(conversion.Drawing().size(), 1U);
  const Account::Kind& kind = conversion.account.GetKinds().at("object");
  EXPECT_EQ(kind.written, 1);
  EXPECT_EQ(kind.approximation_reasons.at("part of too few vertices left out").count, 1);
  EXPECT_EQ(kind.skip_reasons.at("too few vertices").count, 3);
  // Their rows stay.
  EXPECT_EQ(conversion.Table(), "mslink\r\n1\r\n2\r\n3\r\n4\r\n");
}

TEST(DesignSinkTest, WritesARegionAsAShapeWithItsFill) {
  SinkConversion conversion;
  conversion.Add(Region({{{0, 0}, {1, 0}, {1, 1}}}, {2, kBlue, -1})).Run();
  EXPECT_EQ(InWords(conversion.Drawing().at(0)),
            Tidy("0601 0031 8000 0000 8000 0000 8000 0000 8000 0064 8000 0064 8000 0000"
                 " 0000 0013 0A00 0000 0004 0000 0000 0000 0000 0000 0064 0000 0000"
                 " 0000 0064 0000 0064 0000 0000 0000 0000" +
                 kFirstRow + " 1007 0041 0802 0001 0001 0000 0000 0000"));
}

TEST(DesignSinkTest, GathersARegionsRingsAsHolesUnderAnUnnamedCell) {
  SinkConversion conversion;
  conversion.Add(
      Region({{{0, 0}, {9, 0}, {9, 9}}, {{5, 1}, {6, 1}, {6, 2}}, {{7, 1}, {8, 1}, {8, 2}}}, {2, kRed, -1}));
  conversion.Run();
  const std::vector<ElementView> drawing = conversion.Drawing();
  ASSERT_EQ(drawing.size(), 4U);
  EXPECT_EQ(drawing[0].Type(), DGN::CellHeaderType);
  EXPECT_FALSE(drawing[0].Header().IsComponent());
  // Unnamed; 27 words of the head, its linkage, and three shapes of 35 words with four linkages in all.
  EXPECT_EQ(InWords(drawing[0]).substr(5 * 18, 14), Tidy("00AC 0000 0000"));
  EXPECT_EQ(ReadLinkages(drawing[0].Attributes()).database, (DatabaseKey{1, 1}));
  for (std::size_t i = 1; i < 4; ++i) {
    EXPECT_EQ(drawing[i].Type(), DGN::ShapeType);
    EXPECT_TRUE(drawing[i].Header().IsComponent());
    EXPECT_EQ(drawing[i].Header().properties, i == 1 ? 0x0A00 : 0x8A00);
    const LinkageFacts facts = ReadLinkages(drawing[i].Attributes());
    EXPECT_EQ(facts.database, (DatabaseKey{1, 1}));
    EXPECT_EQ(facts.fill_color.has_value(), i == 1);
  }
  EXPECT_EQ(drawing[0].Header().range, (DGN::CoordsRange(0, 0, 0, 900, 900, 0)));
}

TEST(DesignSinkTest, WritesRectanglesEllipsesAndArcs) {
  SinkConversion conversion;
  conversion.Add(MI::WRectObj({3, 2, 1, 1}, nullptr, {}, {1, 0, -1}));
  conversion.Add(MI::WEllipseObj({-10000, 4, 10000, 9}, nullptr, {}, {2, kRed, -1}));
  conversion.Add(MI::WArcObj({-1, -0.5, 1, 0.5}, Vanth::Angle(350, Vanth::Angle::Degrees),
                             Vanth::Angle(10, Vanth::Angle::Degrees), nullptr, {}));
  conversion.Add(MI::WArcObj({-1, -1, 1, 1}, Vanth::Angle(90, Vanth::Angle::Degrees),
                             Vanth::Angle(450, Vanth::Angle::Degrees), nullptr, {}));
  conversion.Run();
  const std::vector<ElementView> drawing = conversion.Drawing();
  ASSERT_EQ(drawing.size(), 4U);
  EXPECT_EQ(InWords(drawing[0]).substr(5 * 18, 5 * 21 - 1),
            Tidy("0005 0000 012C 0000 00C8 0000 0064 0000 00C8 0000 0064 0000 0064 0000 012C 0000 0064"
                 " 0000 012C 0000 00C8"));
  // The axes 1000000 and 250, not turned, the centre at (0, 650).
  EXPECT_EQ(
      InWords(drawing[1]).substr(5 * 18, 5 * 18 - 1),
      Tidy("4A74 2400 0000 0000 447A 0000 0000 0000 0000 0000 0000 0000 0000 0000 4522 8000 0000 0000"));
  EXPECT_EQ(ReadLinkages(drawing[1].Attributes()).fill_color, 3);
  EXPECT_EQ(drawing[2].Type(), DGN::ArcType);
  EXPECT_EQ(InWords(drawing[2]).substr(5 * 18, 19), Tidy("0782 9B80 006D DD00"));
  EXPECT_EQ(drawing[2].Header().range, (DGN::CoordsRange(98, -9, 0, 100, 9, 0)));
  EXPECT_EQ(InWords(drawing[3]).substr(5 * 18, 19), Tidy("01EE 6280 07B9 8A00"));
  EXPECT_EQ(conversion.account.GetApproximated(), 0);
}

TEST(DesignSinkTest, WritesAnArcWithoutLengthAsItsStart) {
  SinkConversion conversion;
  conversion
      .Add(MI::WArcObj({0, 0, 4, 2}, Vanth::Angle(90, Vanth::Angle::Degrees),
                       Vanth::Angle(90, Vanth::Angle::Degrees), nullptr,
                       {3, 2, kRed, MI::SLUnits_Pixel, false}))
      .Run();
  // As a line from (2, 2) to itself.
  EXPECT_EQ(InWords(conversion.Drawing().at(0)),
            Tidy("0301 0020 8000 00C8 8000 00C8 8000 0000 8000 00C8 8000 00C8 8000 0000"
                 " 0000 000A 0A00 0310 0000 00C8 0000 00C8 0000 00C8 0000 00C8" +
                 kFirstRow));
  const auto& reasons = conversion.account.GetKinds().at("object").approximation_reasons;
  EXPECT_EQ(reasons.at("arc without length given as a point").count, 1);
}

TEST(DesignSinkTest, FlattensRoundedRectangles) {
  SinkConversion conversion;
  conversion.options.tolerance = 0.1;
  conversion.Add(MI::WRRectObj({0, 0, 10, 20}, 4, nullptr, {}, {1, 0, -1})).Run();
  const std::vector<ElementView> drawing = conversion.Drawing();
  ASSERT_EQ(drawing.size(), 1U);
  EXPECT_EQ(drawing[0].Type(), DGN::ShapeType);
  EXPECT_EQ(drawing[0].Header().range, (DGN::CoordsRange(0, 0, 0, 1000, 2000, 0)));
  // A quarter takes two chords and more at this tolerance, far from a hundred.
  EXPECT_GT(drawing[0].Word(36), 12);
  EXPECT_LT(drawing[0].Word(36), 30);
  EXPECT_EQ(
      conversion.account.GetKinds().at("object").approximation_reasons.at("rounded corners flattened").count,
      1);
}

MI::WTextObj Text(const char* text, const Vanth::RectXY& box, double degrees = 0) {
  MI::WTextObj object(text, box, nullptr, MI::Font());
  object->SetAngle(Vanth::Angle(degrees, Vanth::Angle::Degrees));
  return object;
}

TEST(DesignSinkTest, WritesATextFromItsBox) {
  SinkConversion conversion;
  conversion.Add(Text("Town", {1, 2, 13, 5})).Run();
  // Characters of 300 by 300 units of resolution, their feet at (100, 200).
  EXPECT_EQ(
      InWords(conversion.Drawing().at(0)),
      Tidy("1101 0026 8000 0064 8000 00C8 8000 0000 8000 0514 8000 01F4 8000 0000"
           " 0000 0010 0A00 0000 0201 0000 C350 0000 C350 0000 0000 0000 0064 0000 00C8 0004 6F54 6E77" +
           kFirstRow));
}

TEST(DesignSinkTest, TurnsATextAboutTheUpperLeftCornerOfItsBox) {
  SinkConversion conversion;
  conversion.Add(Text("Town", {1, 2, 13, 5}, 90)).Run();
  const ElementView text = conversion.Drawing().at(0);
  // The corner (1, 5) stays; the feet of the text turn from below it to its right.
  EXPECT_EQ(text.Long(46), 90 * 360000);
  EXPECT_EQ(text.Long(50), 400);
  EXPECT_EQ(text.Long(54), 500);
  EXPECT_EQ(text.Header().range, (DGN::CoordsRange(100, 500, 0, 400, 1700, 0)));
}

TEST(DesignSinkTest, WritesTheLinesOfATextAsATextNode) {
  for (const char* lines : {"first\\n2nd\\nlast!", "first\n2nd\r\nlast!"}) {
    SinkConversion conversion;
    const MI::WTextObj object = Text(lines, {0, 0, 10, 6});
    object->SetJustification(2);
    conversion.Add(object).Run();
    const std::vector<ElementView> drawing = conversion.Drawing();
    ASSERT_EQ(drawing.size(), 4U);
    EXPECT_EQ(drawing[0].Type(), DGN::TextNodeType);
    EXPECT_EQ(drawing[0].Word(38), 3);
    EXPECT_EQ(ReadLinkages(drawing[0].Attributes()).database, (DatabaseKey{1, 1}));
    const int left[] = {0, 400, 0};
    for (int i = 0; i < 3; ++i) {
      const ElementView& line = drawing[static_cast<std::size_t>(i) + 1];
      EXPECT_TRUE(line.Header().IsComponent());
      EXPECT_EQ(line.Byte(37), 14) << "bottom, right";
      EXPECT_EQ(line.Long(42), 33333) << "200 units of resolution high";
      EXPECT_EQ(line.Long(50), left[i]);
      EXPECT_EQ(line.Long(54), 400 - 200 * i);
    }
  }
}

TEST(DesignSinkTest, SpreadsLinesBySpacing) {
  SinkConversion conversion;
  const MI::WTextObj object = Text("a\\nb", {0, 0, 10, 6});
  object->SetSpacing(2);
  conversion.Add(object).Run();
  const std::vector<ElementView> drawing = conversion.Drawing();
  EXPECT_EQ(drawing.at(0).Long(46), 200) << "room between the lines";
  EXPECT_EQ(drawing.at(1).Long(54), 400);
  EXPECT_EQ(drawing.at(2).Long(54), 0);
}

TEST(DesignSinkTest, ConvertsTextsToTheCharacterSet) {
  SinkConversion conversion;
  conversion.Add(Text("Z\xC3\xBCrich", {0, 0, 6, 1}));
  conversion.Add(Text("\xE4\xB8\xADZ", {0, 0, 2, 1}));
  conversion.Run();
  const std::vector<ElementView> drawing = conversion.Drawing();
  EXPECT_EQ(drawing.at(0).Byte(58), 6);
  EXPECT_EQ(drawing.at(0).Byte(61), 0xFC);
  EXPECT_EQ(drawing.at(1).Byte(58), 2);
  EXPECT_EQ(drawing.at(1).Byte(60), '?');
  const auto& reasons = conversion.account.GetKinds().at("object").approximation_reasons;
  EXPECT_EQ(reasons.at("characters that the character set lacks").places.at(0).number, 2);
}

TEST(DesignSinkTest, CutsLongLinesOfTextIntoElementsAndVeryLongTexts) {
  SinkConversion conversion;
  conversion.Add(Text(std::string(300, 'x').c_str(), {0, 0, 300, 1}));
  conversion.Add(Text(std::string(5000, 'x').c_str(), {0, 0, 300, 1}));
  conversion.Add(Text("", {0, 0, 300, 1}));
  conversion.Run();
  const std::vector<ElementView> drawing = conversion.Drawing();
  ASSERT_EQ(drawing.size(), 3U + 1U + 8U);
  EXPECT_EQ(drawing[0].Type(), DGN::TextNodeType);
  EXPECT_EQ(drawing[1].Byte(58), 255);
  EXPECT_EQ(drawing[2].Byte(58), 45);
  EXPECT_EQ(drawing[2].Long(50), 25500);
  const Account::Kind& kind = conversion.account.GetKinds().at("object");
  EXPECT_EQ(kind.approximation_reasons.at("text cut at the end").count, 1);
  EXPECT_EQ(kind.skip_reasons.at("a text without characters").count, 1);
}

TEST(DesignSinkTest, SaysWhatATextLoses) {
  SinkConversion conversion;
  conversion.options.units.uors_per_master = 1000000;
  MI::WTextObj labelled = Text("a", {0, 0, 1, 1});
  labelled->SetLabelKind(1);
  conversion.Add(labelled);
  conversion.Add(Text("a", {0, 0, 1, 20}));
  conversion.Run();
  const auto& reasons = conversion.account.GetKinds().at("object").approximation_reasons;
  EXPECT_EQ(reasons.at("label line left out").places.at(0).number, 1);
  EXPECT_EQ(reasons.at("text larger than the units allow").places.at(0).number, 2);
  EXPECT_EQ(conversion.Drawing().at(1).Long(42), 2147483647);
}

TEST(DesignSinkTest, SaysWhatStylesLose) {
  SinkConversion conversion;
  conversion.Add(Line(0, 0, 1, 1, {1, 1, 0, MI::SLUnits_Pixel, false}));
  conversion.Add(Region({{{0, 0}, {1, 0}, {1, 1}}}, {5, kRed, -1}));
  conversion.Run();
  const auto& reasons = conversion.account.GetKinds().at("object").approximation_reasons;
  EXPECT_EQ(reasons.at("invisible pen drawn").places.at(0).number, 1);
  EXPECT_EQ(reasons.at("fill pattern left out").places.at(0).number, 2);
  EXPECT_FALSE(ReadLinkages(conversion.Drawing().at(1).Attributes()).fill_color.has_value());
}

TEST(DesignSinkTest, CountsLinePatternsThatNoStyleDraws) {
  const auto pen = [](int pattern, bool interleaved = false) {
    return MI::Pen{1, pattern, 0, MI::SLUnits_Pixel, interleaved};
  };
  SinkConversion conversion;
  conversion.Add(Line(0, 0, 1, 1, pen(26)));
  conversion.Add(Line(0, 0, 1, 1, pen(10)));
  conversion.Add(PLine({{{0, 0}, {1, 1}}}, false, pen(59)));
  conversion.Add(MI::WRectObj({0, 0, 1, 1}, nullptr, pen(77), {1, 0, -1}));
  conversion.Add(Line(0, 0, 1, 1, pen(3, true)));
  for (int style = 0; style < 8; ++style) conversion.Add(Line(0, 0, 1, 1, pen(PenPattern(style))));
  conversion.Add(Line(0, 0, 1, 1, pen(2, true)));
  conversion.Run();
  const auto& reasons = conversion.account.GetKinds().at("object").approximation_reasons;
  ASSERT_EQ(reasons.size(), 1U);
  EXPECT_EQ(reasons.at("line pattern replaced by the nearest line style").count, 5);
  const std::vector<ElementView> drawing = conversion.Drawing();
  const unsigned styles[] = {0, 3, 0, 0, 1, 0, 1, 2, 3, 4, 5, 6, 7, 0};
  ASSERT_EQ(drawing.size(), std::size(styles));
  for (std::size_t i = 0; i < drawing.size(); ++i) EXPECT_EQ(drawing[i].Header().Style(), styles[i]) << i;
}

TEST(DesignSinkTest, HidesTheBorderOfAnAreaWithoutOne) {
  SinkConversion conversion;
  conversion.Add(MI::WRectObj({0, 0, 1, 1}, nullptr, {1, 1, 0, MI::SLUnits_Pixel, false}, {2, kRed, -1}))
      .Run();
  EXPECT_EQ(conversion.Drawing().at(0).Header().Color(), 3U);
  EXPECT_EQ(conversion.account.GetApproximated(), 0);
}

TEST(DesignSinkTest, WritesTheColorsThatWereUsed) {
  SinkConversion conversion;
  conversion.Add(Line(0, 0, 1, 1, {1, 2, 0x112233, MI::SLUnits_Pixel, false})).Run();
  ColorTable table;
  ASSERT_TRUE(table.Decode(conversion.Elements().at(1)));
  EXPECT_EQ(table[static_cast<std::uint8_t>(conversion.Drawing().at(0).Header().Color())], 0x112233);
}

TEST(DesignSinkTest, CountsColorsBeyondTheTableAsApproximated) {
  SinkConversion conversion;
  for (int i = 0; i < 256; ++i)
    conversion.Add(Line(0, 0, 1, 1, {1, 2, 0x640001 + i * 256, MI::SLUnits_Pixel, false}));
  conversion.Run();
  const auto& reasons = conversion.account.GetKinds().at("object").approximation_reasons;
  EXPECT_EQ(reasons.at("colour replaced by the nearest one of the colour table").count, 1);
  EXPECT_EQ(conversion.Drawing().at(255).Header().Color(), conversion.Drawing().at(254).Header().Color());
}

TEST(DesignSinkTest, TakesLevelColorAndKeyFromColumns) {
  SinkConversion conversion;
  conversion.schema.columns = {
      {"ID", MI::Integer_t(), 0}, {"Lvl", MI::Integer_t(), 0}, {"Col", MI::Integer_t(), 0}};
  conversion.options.key_column = "id";
  conversion.options.level_column = "LVL";
  conversion.options.color_column = "col";
  conversion.options.level = 9;
  conversion.Add(Line(0, 0, 1, 1, {1, 2, kRed, MI::SLUnits_Pixel, false}), {"70000", "63", " 255 "});
  conversion.Add(Line(0, 0, 1, 1, {1, 2, kRed, MI::SLUnits_Pixel, false}), {"x", "64", "-1"});
  conversion.Run();
  const std::vector<ElementView> drawing = conversion.Drawing();
  EXPECT_EQ(ReadLinkages(drawing.at(0).Attributes()).database, (DatabaseKey{1, 70000}));
  EXPECT_EQ(drawing.at(0).Header().Level(), 63U);
  EXPECT_EQ(drawing.at(0).Header().Color(), 255U);
  EXPECT_FALSE(drawing.at(1).Header().HasAttributes());
  EXPECT_EQ(drawing.at(1).Header().Level(), 9U);
  EXPECT_EQ(drawing.at(1).Header().Color(), 3U);
  const auto& reasons = conversion.account.GetKinds().at("object").approximation_reasons;
  EXPECT_EQ(reasons.size(), 3U);
  EXPECT_EQ(reasons.at("without a key: its value is no whole number from 1 to 2147483647").count, 1);
  EXPECT_EQ(reasons.at("level of all elements: its value is no whole number from 0 to 63").count, 1);
  EXPECT_EQ(reasons.at("colour of the object: its value is no whole number from 0 to 255").count, 1);
  EXPECT_EQ(conversion.Table(), "mslink,ID,Lvl,Col\r\n70000,70000,63, 255 \r\n,x,64,-1\r\n");
}

TEST(DesignSinkTest, TakesKeysThatASignedNumberHolds) {
  SinkConversion conversion;
  conversion.schema.columns = {{"ID", MI::Integer_t(), 0}};
  conversion.options.key_column = "ID";
  for (const char* key : {"1", "2147483647", "0", "2147483648", "3000000000", "-1"}) {
    conversion.Add(Line(0, 0, 1, 1), {key});
  }
  conversion.Run();
  const std::vector<ElementView> drawing = conversion.Drawing();
  EXPECT_EQ(ReadLinkages(drawing.at(0).Attributes()).database, (DatabaseKey{1, 1}));
  EXPECT_EQ(ReadLinkages(drawing.at(1).Attributes()).database, (DatabaseKey{1, 2147483647}));
  for (std::size_t i = 2; i < 6; ++i) EXPECT_FALSE(drawing.at(i).Header().HasAttributes()) << i;
  const auto& reasons = conversion.account.GetKinds().at("object").approximation_reasons;
  const Account::Entry& entry =
      reasons.at("without a key: its value is no whole number from 1 to 2147483647");
  EXPECT_EQ(entry.count, 4);
  EXPECT_EQ(entry.places.at(0).number, 3);
  EXPECT_EQ(conversion.Table(),
            "mslink,ID\r\n1,1\r\n2147483647,2147483647\r\n,0\r\n,2147483648\r\n,3000000000\r\n,-1\r\n");
}

TEST(DesignSinkTest, SaysHowManyRowsHaveAKeyThatAnotherRowHas) {
  const auto said = [](const std::vector<const char*>& keys) {
    SinkConversion conversion;
    conversion.schema.columns = {{"ID", MI::Integer_t(), 0}};
    conversion.options.key_column = "ID";
    for (const char* key : keys) conversion.Add(Point(0, 0), {key});
    conversion.Run();
    std::string sentence;
    for (const std::string& assumption : conversion.account.GetAssumptions()) {
      if (assumption.starts_with("rows whose key")) sentence += assumption;
    }
    return sentence;
  };
  EXPECT_EQ(said({"7", "8", "2147483647", "x", "x", "0", "0"}), "");
  EXPECT_EQ(said({"7", "8", " 7"}), "rows whose key another row has as well: 2");
  EXPECT_EQ(said({"7", "8", "7", "9", "7", "8"}), "rows whose key another row has as well: 5");
}

TEST(DesignSinkTest, RefusesAColumnThatIsNotThere) {
  SinkConversion conversion;
  conversion.options.level_column = "Street";
  EXPECT_EQ(FailureText([&] { conversion.Run(); }), "there is no column \"Street\" to take the level from");
  EXPECT_TRUE(conversion.folder.Names().empty());
}

TEST(DesignSinkTest, KeepsRowsWithoutAnObjectInTheTable) {
  SinkConversion conversion;
  conversion.schema.columns = {{"name", MI::Character_t(), 9, 0}};
  conversion.Add(Object(new MI::WNoBody(nullptr)), {"nothing"});
  conversion.Add(Point(0, 0), {"point"});
  conversion.Run();
  EXPECT_EQ(conversion.Table(), "mslink,name\r\n1,nothing\r\n2,point\r\n");
  EXPECT_EQ(conversion.Drawing().size(), 1U);
  EXPECT_EQ(ReadLinkages(conversion.Drawing().at(0).Attributes()).database, (DatabaseKey{1, 2}));
  EXPECT_EQ(conversion.account.GetWritten(), 2);
  const std::vector<std::string>& said = conversion.account.GetAssumptions();
  EXPECT_EQ(std::count(said.begin(), said.end(), "rows without an object are in the table alone: 1"), 1);
}

TEST(DesignSinkTest, SkipsWhatHasNoPlaceOnThePlane) {
  SinkConversion conversion;
  conversion.Add(Point(std::nan(""), 1));
  conversion.Add(Line(0, 0, INFINITY, 1));
  conversion.Add(MI::WEllipseObj({0, 0, std::nan(""), 1}, nullptr, {}, {}));
  conversion.Add(Text("a", {0, 0, INFINITY, 1}));
  conversion.Add(MI::WRRectObj({0, 0, std::nan(""), 1}, 1, nullptr, {}, {}));
  conversion.Run();
  EXPECT_TRUE(conversion.Drawing().empty());
  EXPECT_EQ(conversion.account.GetKinds()
                .at("object")
                .skip_reasons.at("coordinates outside the design plane")
                .count,
            5);
}

TEST(DesignSinkTest, RefusesAnExtentThatDoesNotFitAndLeavesNothing) {
  SinkConversion conversion;
  conversion.Add(Line(0, 0, 3e7, 1));
  EXPECT_EQ(FailureText([&] { conversion.Run(); }),
            (conversion.folder / "map.dgn").string() +
                " cannot be written: the extent of the map, 0 to 30000000 by 0 to 1 m, does not fit: at 100 "
                "units of resolution per m the design plane reaches from -21474836.48 to 21474836.47 by "
                "-21474836.48 to 21474836.47 m");
  EXPECT_TRUE(conversion.folder.Names().empty());
}

TEST(DesignSinkTest, LeavesNothingBehindWithoutClose) {
  const ScratchFolder folder;
  {
    DesignSink sink(folder / "map.dgn", std::make_unique<OutputFiles>(false), {}, {}, {});
    EXPECT_EQ(folder.Names().size(), 2U);
  }
  EXPECT_TRUE(folder.Names().empty());
}

MapMeasure Measured(const std::vector<Object>& objects) {
  DesignExtent extent;
  for (const Object& object : objects) extent.Add(*object);
  return extent.Measure();
}

TEST(DesignExtentTest, CountsTheDecimalsOfCoordinates) {
  EXPECT_EQ(Measured({}).decimals, 0);
  EXPECT_EQ(Measured({Point(1, -200)}).decimals, 0);
  EXPECT_EQ(Measured({Point(1, -200.5)}).decimals, 1);
  EXPECT_EQ(Measured({Line(0, 0, 0.07, 1), Point(5300000.123, 1)}).decimals, 3);
  EXPECT_EQ(Measured({PLine({{{0, 0}, {1, 0.0025}}})}).decimals, 4);
  EXPECT_EQ(Measured({Region({{{0, 0}, {1, 0.1}, {1, 1}}})}).decimals, 1);
  EXPECT_EQ(Measured({Point(1.0 / 3, 0)}).decimals, kMostDecimals);
  // The upper left corner of a turned text is as it was written.
  EXPECT_EQ(Measured({Text("Town", {0.5, 0, 4, 1.25}, 30)}).decimals, 2);
  EXPECT_EQ(Measured({Point(1e300, 1)}).decimals, 0);
}

TEST(DesignExtentTest, HoldsWhatIsWritten) {
  const Object arc = MI::WArcObj({0, 0, 10, 4}, Vanth::Angle(0), Vanth::Angle(1), nullptr, {});
  EXPECT_EQ(Measured({arc}).extent, Vanth::BoundsXY(0, 0, 10, 4));
  const Vanth::BoundsXY turned = Measured({Text("Town", {0, 0, 4, 1}, 90)}).extent;
  EXPECT_NEAR(turned.Max().x, 1, 1e-12);
  EXPECT_NEAR(turned.Max().y, 5, 1e-12);
  EXPECT_EQ(Measured({Text("Town", {0, 0, 4, 1.5})}).letter, 1.5);
  EXPECT_EQ(Measured({Text("Town", {0, 0, 8, 1.5})}).letter, 2);
  EXPECT_EQ(Measured({Text("", {0, 0, 8, 1.5})}).letter, 0);
  // Two lines, the longest of five characters.
  EXPECT_EQ(Measured({Text("Old\\nTown!", {0, 0, 20, 6})}).letter, 4);
  EXPECT_EQ(Measured({Text("Old\nT\xC3\xB6wn!", {0, 0, 20, 12})}).letter, 6);
  EXPECT_EQ(
      Measured({Point(std::nan(""), 1), Point(INFINITY, 1), Point(2, 3), Object(new MI::WNoBody(nullptr))})
          .extent,
      Vanth::BoundsXY(2, 3, 2, 3));
}

TEST(DesignSinkTest, MakesRoomForLargeTexts) {
  SinkConversion conversion;
  conversion.options.units = {};
  conversion.Add(Text("Town", {0, 0, 400, 100.5})).Run();
  EXPECT_EQ(conversion.account.GetApproximated(), 0);
  EXPECT_EQ(DesignHeader::Decode(conversion.Elements().at(0).Bytes()).UorsPerMaster(), 1e5);
}

TEST(DesignSinkTest, RoundsCoordinatesRatherThanShrinkTexts) {
  SinkConversion conversion;
  conversion.options.units = {};
  conversion.Add(Text("Town", {0, 0, 400, 100.5})).Add(Line(0, 0, 1.123456, 1)).Run();
  EXPECT_EQ(conversion.account.GetApproximated(), 0);
  EXPECT_EQ(conversion.account.GetAssumptions().at(1), "coordinates are rounded to 1e-05 m");
}

TEST(DesignSinkTest, CountsATextThatIsTooLargeBothWaysOnce) {
  SinkConversion conversion;
  conversion.options.units.uors_per_master = 1000000;
  conversion.Add(Text("a", {0, 0, 20, 20})).Run();
  const auto& reasons = conversion.account.GetKinds().at("object").approximation_reasons;
  EXPECT_EQ(reasons.at("text larger than the units allow").count, 1);
}

TEST(DesignSinkTest, DividesTheWidthOfABoxByCharacters) {
  for (const char* charset : {"WindowsCyrillic", "UTF-8"}) {
    SinkConversion conversion;
    conversion.options.charset = charset;
    // Zhuk, in three letters of two bytes each.
    conversion.Add(Text("\xD0\x96\xD1\x83\xD0\xBA", {0, 0, 30, 4})).Run();
    EXPECT_EQ(conversion.Drawing().at(0).Long(38), 166667) << charset << ": 1000 units of resolution wide";
  }
}

TEST(DesignSinkTest, NeverCutsACharacterInTwo) {
  SinkConversion conversion;
  conversion.options.charset = "UTF-8";
  std::string letters;
  for (int i = 0; i < 200; ++i) letters += "\xD0\x96";
  conversion.Add(Text(letters.c_str(), {0, 0, 200, 1})).Run();
  const std::vector<ElementView> drawing = conversion.Drawing();
  ASSERT_EQ(drawing.size(), 3U);
  EXPECT_EQ(drawing[1].Byte(58), 254);
  EXPECT_EQ(drawing[2].Byte(58), 146);
  EXPECT_EQ(drawing[2].Byte(60), 0xD0);
  EXPECT_EQ(drawing[2].Long(50), 12700) << "behind 127 characters";
  EXPECT_EQ(conversion.account.GetApproximated(), 0);
}

TEST(DesignSinkTest, StatesTheUnitsItChose) {
  SinkConversion conversion;
  conversion.options.units = {};
  conversion.schema.system =
      Tobri::IRefC<MI::CoordSys>(new MI::CoordSys(MI::NonEarth_t(), MI::Units_deg, {}));
  conversion.Add(Line(-180, -90, 180, 90)).Run();
  EXPECT_EQ(conversion.account.GetAssumptions(),
            (std::vector<std::string>{"working units: 1000 md per dg, 10000 units of resolution per md"}));

  SinkConversion rounded;
  rounded.options.units = {};
  rounded.Add(Line(-180.00000001, -90, 180, 90)).Run();
  EXPECT_EQ(rounded.account.GetAssumptions().at(1), "coordinates are rounded to 1e-07 m");
  EXPECT_EQ(rounded.account.GetApproximated(), 0);
}

TEST(DesignSinkTest, KeepsMoreThanTenDigitsWhereThePlaneHasRoom) {
  SinkConversion conversion;
  conversion.options.units = {};
  conversion.Add(Line(3500000, 5300000, 3500009.079935, 5300001)).Run();
  EXPECT_EQ(conversion.account.GetAssumptions(),
            (std::vector<std::string>{"working units: 1000 mm per m, 10000 units of resolution per mm"}));
  const DesignHeader header = DesignHeader::Decode(conversion.Elements().at(0).Bytes());
  EXPECT_EQ((conversion.Drawing().at(0).Long(44) - header.origin[0]) / header.UorsPerMaster(),
            3500009.079935);
}

TEST(DesignSinkTest, CountsWhatTheGivenUnitsRound) {
  SinkConversion conversion;
  conversion.options.units = {.uors_per_master = 1, .names = std::nullopt, .middle = std::nullopt};
  conversion.Add(Point(500.5, 1)).Add(Point(500, 1)).Add(Line(0, 0, 1, 0.1)).Add(Text("a", {1, 0.5, 3, 2}));
  conversion.Add(Text("a", {1, 1, 3, 2})).Run();
  const auto& reasons = conversion.account.GetKinds().at("object").approximation_reasons;
  const Account::Entry& rounded = reasons.at("coordinates rounded to the units of resolution");
  EXPECT_EQ(rounded.count, 3);
  EXPECT_EQ(rounded.places.at(1).number, 3);
  EXPECT_EQ(rounded.places.at(2).number, 4);
  EXPECT_EQ(conversion.account.GetAssumptions().at(1), "coordinates are rounded to 1 m");
}

TEST(DesignSinkTest, CountsNothingThatTheGivenUnitsKeep) {
  SinkConversion conversion;
  conversion.options.units.uors_per_master = 12;
  conversion.Add(Point(500.5, 1.1)).Run();
  EXPECT_EQ(conversion.account.GetApproximated(), 0);
  EXPECT_EQ(conversion.account.GetAssumptions().size(), 2U);
}

}  // namespace
}  // namespace App
