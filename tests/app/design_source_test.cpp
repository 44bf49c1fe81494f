#include "app/design/design_source.h"

#include "app/design/skip_reasons.h"
#include "app/io/failure.h"

#include <gtest/gtest.h>

#include <numbers>
#include <tests/app/design_conversion.h>
#include <tests/app/design_elements.h>
#include <tests/dgn/words.h>

// One unit of resolution is 0.0001 master units here.

namespace App {
namespace {

using app_test::Conversion;
using app_test::Convert;
using app_test::ConvertFile;
using app_test::DFloat;
using app_test::ElementBytes;
using app_test::Longs;
using Row = std::vector<std::string>;

constexpr const char* kPen = " | Pen (1,2,0)";
constexpr const char* kNoFill = " | Brush (1,16777215,0) | Center ";

std::string Line(int x1, int y1, int x2, int y2, bool component = false) {
  return ElementBytes({.type = 3, .body = Longs({x1, y1, x2, y2}), .component = component});
}

// A component that is a line string from (x, 0) on.
std::string Component(int type, std::string_view body, unsigned properties = 0) {
  return ElementBytes({.type = type, .body = body, .component = true, .properties = properties});
}

std::string Hex4(std::size_t value) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  std::string text;
  for (int i = 3; i >= 0; --i) text += kDigits[value >> (4 * i) & 0xFU];
  return text + ' ';
}

// A header of a chain, complex shape, text node or surface, its description right, and its components.
std::string Complex(int type, int count, const std::string& components, bool component = false) {
  const std::size_t words = (40 - 38 + components.size()) / 2;
  return ElementBytes({.type = type,
                       .body = Hex4(words) + Hex4(static_cast<std::size_t>(count)),
                       .component = component}) +
         components;
}

// A cell of the plane: its name packed in two words.
std::string Cell(std::string_view name, const std::string& components, bool component = false,
                 std::string_view attributes = {}, bool deleted = false) {
  const std::size_t header = 92 + dgn_test::Words(attributes).size();
  return ElementBytes({.type = 2,
                       .body = Hex4((header - 38 + components.size()) / 2) + std::string(name) + " 0000*5 " +
                               Longs({0, 0, 0, 0, 214748, 0, 0, 214748, 70000, 80000}),
                       .component = component,
                       .deleted = deleted,
                       .attributes = attributes}) +
         components;
}
constexpr const char* kUnnamed = "0000 0000";
constexpr const char* kTree = "7FD5 1F5F";  // "TREE 1"

std::string Square(int x, int y, int size, bool hole = false) {
  return Component(6, "0005 " + Longs({x, y, x + size, y, x + size, y + size, x, y + size, x, y}),
                   hole ? 0x8000U : 0U);
}

// --- the table, row by row

TEST(DesignSourceTest, GivesALineAsALine) {
  const Conversion result = Convert(
      ElementBytes({.type = 3, .body = Longs({10000, 20000, -30000, 45678}), .style = 1, .color = 3}));
  EXPECT_EQ(result.Objects(), "Line 1 2 -3 4.5678 | Pen (1,3,16711680)\n");
  EXPECT_EQ(result.Counts(), "Line 1=1+0");
}

TEST(DesignSourceTest, GivesALineOfNoLengthAsAPoint) {
  EXPECT_EQ(Convert(Line(10000, 20000, 10000, 20000)).Objects(), "Point 1 2 | Symbol (34,0,4)\n");
}

TEST(DesignSourceTest, GivesEveryPointOfAPointString) {
  const Conversion result =
      Convert(ElementBytes({.type = 22, .body = "0003 " + Longs({1, 2, 3, 4, 5, 6})}) + Line(0, 0, 1, 1));
  EXPECT_EQ(result.Objects(),
            "Point 0.0001 0.0002 | Symbol (34,0,4)\n"
            "Point 0.0003 0.0004 | Symbol (34,0,4)\n"
            "Point 0.0005 0.0006 | Symbol (34,0,4)\n"
            "Line 0 0 0.0001 0.0001 | Pen (1,2,0)\n");
  EXPECT_EQ(result.counts, (std::vector<std::int64_t>{1, 0, 0, 1}));
  EXPECT_EQ(result.Counts(), "Line 1=1+0; Point String 1=1+0");
  EXPECT_EQ(result.account.GetAssumptions().front(),
            "point strings are given as one point object for each of their points");
}

TEST(DesignSourceTest, GivesALineStringAsAPolyline) {
  const Conversion result =
      Convert(ElementBytes({.type = 4, .body = "0003 " + Longs({0, 0, 10000, 0, 10000, -5000})}));
  EXPECT_EQ(result.Objects(), "PLine 3 | 0 0 | 1 0 | 1 -0.5 | Pen (1,2,0)\n");
}

TEST(DesignSourceTest, GivesACurveAsTheSmoothPolylineItRunsThrough) {
  const std::string points = Longs({9, 9, 8, 8, 10000, 0, 20000, 10000, 30000, 0, 7, 7, 6, 6});
  EXPECT_EQ(Convert(ElementBytes({.type = 11, .body = "0007 " + points})).Objects(),
            "PLine 3 | 1 0 | 2 1 | 3 0 | Pen (1,2,0) | Smooth\n");
}

TEST(DesignSourceTest, GivesACurveOfTooFewPointsAsItStands) {
  const Conversion result =
      Convert(ElementBytes({.type = 11, .body = "0003 " + Longs({0, 0, 10000, 0, 20000, 10000})}));
  EXPECT_EQ(result.Objects(), "PLine 3 | 0 0 | 1 0 | 2 1 | Pen (1,2,0)\n");
  EXPECT_EQ(result.Counts(), "Curve 1=1+0 approximated{" + std::string(Reason::kShortCurve) + " 1}");
}

TEST(DesignSourceTest, GivesAShapeAsARegion) {
  const std::string shape =
      ElementBytes({.type = 6, .body = "0005 " + Longs({0, 0, 10000, 0, 10000, 10000, 0, 10000, 0, 0})});
  EXPECT_EQ(Convert(shape).Objects(),
            "Region 1 | 5 | 0 0 | 1 0 | 1 1 | 0 1 | 0 0" + std::string(kPen) + kNoFill + "0.4 0.4\n");
}

TEST(DesignSourceTest, ClosesAShapeThatIsOpen) {
  const std::string shape =
      ElementBytes({.type = 6, .body = "0003 " + Longs({0, 0, 10000, 0, 10000, 10000})});
  EXPECT_EQ(Convert(shape).Objects(),
            "Region 1 | 4 | 0 0 | 1 0 | 1 1 | 0 0" + std::string(kPen) + kNoFill + "0.5 0.25\n");
}

TEST(DesignSourceTest, GivesShapesWithoutAnAreaAsLinesAndPoints) {
  const Conversion result =
      Convert(ElementBytes({.type = 6, .body = "0003 " + Longs({0, 0, 10000, 0, 0, 0})}) +
              ElementBytes({.type = 6, .body = "0001 " + Longs({10000, 0})}) +
              ElementBytes({.type = 6, .body = "0000"}) + ElementBytes({.type = 4, .body = "0000"}));
  EXPECT_EQ(result.Objects(), "PLine 3 | 0 0 | 1 0 | 0 0 | Pen (1,2,0)\nPoint 1 0 | Symbol (34,0,4)\n");
  EXPECT_EQ(result.Counts(),
            "Line String 1=0+1 skipped{no points 1}; Shape 3=2+1 skipped{no points 1} approximated{" +
                std::string(Reason::kNoArea) + " 2}");
}

TEST(DesignSourceTest, FillsAreasWithTheColourOfTheirLinkage) {
  const std::string shape = ElementBytes({.type = 6,
                                          .body = "0003 " + Longs({0, 0, 10000, 0, 10000, 10000}),
                                          .attributes = "1007 0041 0802 0001 0002 0000*3"});
  EXPECT_EQ(Convert(shape).Objects(),
            "Region 1 | 4 | 0 0 | 1 0 | 1 1 | 0 0 | Pen (1,2,0) | Brush (2,65280,0) | Center 0.5 0.25\n");
}

TEST(DesignSourceTest, JoinsAComplexShapeToOneRingWithoutDoublingJoints) {
  const std::string components = Component(4, "0003 " + Longs({0, 0, 10000, 0, 10000, 10000})) +
                                 Line(10000, 10000, 0, 10000, true) + Line(0, 10000, 0, 0, true);
  const Conversion result = Convert(Complex(14, 3, components) + Line(0, 0, 5, 5));
  EXPECT_EQ(result.Objects(), "Region 1 | 5 | 0 0 | 1 0 | 1 1 | 0 1 | 0 0" + std::string(kPen) + kNoFill +
                                  "0.4 0.4\nLine 0 0 0.0005 0.0005 | Pen (1,2,0)\n");
  EXPECT_EQ(result.Counts(), "Complex Shape 1=1+0; Line 1=1+0");
}

TEST(DesignSourceTest, JoinsAChainToOnePolylineAndFlattensItsArcs) {
  // A quarter of a circle from (2, 0) to (1, 1), counter-clockwise around (1, 0), and on to (0, 1).
  const std::string components = Line(0, 0, 20000, 0, true) +
                                 Component(16, Longs({0, 90 * 360000}) + DFloat(10000) + DFloat(10000) +
                                                   Longs({0}) + DFloat(10000) + DFloat(0)) +
                                 Line(10000, 10000, 0, 10000, true);
  DesignOptions options;
  options.tolerance = 0.1;
  const Conversion result = Convert(Complex(12, 3, components), options);
  EXPECT_EQ(result.Objects(), "PLine 5 | 0 0 | 2 0 | 1.707106781 0.7071067812 | 1 1 | 0 1 | Pen (1,2,0)\n");
  EXPECT_EQ(result.Counts(), "Complex String 1=1+0 approximated{" + std::string(Reason::kFlattened) + " 1}");
}

TEST(DesignSourceTest, TurnsComponentsThatRunTheOtherWay) {
  const std::string components = Line(0, 0, 10000, 0, true) + Line(20000, 0, 10000, 0, true);
  EXPECT_EQ(Convert(Complex(12, 2, components)).Objects(), "PLine 3 | 0 0 | 1 0 | 2 0 | Pen (1,2,0)\n");
}

TEST(DesignSourceTest, BridgesGapsAndSaysSo) {
  const std::string components = Line(0, 0, 10000, 0, true) + Line(10001, 0, 20000, 0, true);
  const Conversion result = Convert(Complex(12, 2, components));
  EXPECT_EQ(result.Objects(), "PLine 4 | 0 0 | 1 0 | 1.0001 0 | 2 0 | Pen (1,2,0)\n");
  EXPECT_EQ(result.Counts(), "Complex String 1=1+0 approximated{" + std::string(Reason::kGap) + " 1}");
}

TEST(DesignSourceTest, GivesAnEllipseOnTheAxesAsOne) {
  const auto ellipse = [](int degrees) {
    return ElementBytes(
        {.type = 15,
         .body = DFloat(20000) + DFloat(10000) + Longs({degrees * 360000}) + DFloat(10000) + DFloat(20000)});
  };
  const std::string styles = " | Pen (1,2,0) Brush (1,16777215,0)\n";
  EXPECT_EQ(Convert(ellipse(0)).Objects(), "Ellipse -1 1 3 3" + styles);
  EXPECT_EQ(Convert(ellipse(90)).Objects(), "Ellipse 0 0 2 4" + styles);
  EXPECT_EQ(Convert(ellipse(180)).Objects(), "Ellipse -1 1 3 3" + styles);
  EXPECT_EQ(Convert(ellipse(-90)).Objects(), "Ellipse 0 0 2 4" + styles);
}

TEST(DesignSourceTest, GivesACircleAsAnEllipseHoweverItIsTurned) {
  const std::string circle = ElementBytes(
      {.type = 15, .body = DFloat(10000) + DFloat(10000) + Longs({33 * 360000}) + DFloat(0) + DFloat(0)});
  EXPECT_EQ(Convert(circle).Objects(), "Ellipse -1 -1 1 1 | Pen (1,2,0) Brush (1,16777215,0)\n");
}

TEST(DesignSourceTest, FlattensATurnedEllipse) {
  const std::string ellipse = ElementBytes(
      {.type = 15, .body = DFloat(20000) + DFloat(10000) + Longs({45 * 360000}) + DFloat(0) + DFloat(0)});
  DesignOptions options;
  options.tolerance = 0.3;
  const Conversion result = Convert(ellipse, options);
  // Chords of at most 63.6 degrees: six of 60.
  EXPECT_EQ(result.Objects().substr(0, 37), "Region 1 | 7 | 1.414213562 1.41421356");
  EXPECT_EQ(result.Counts(), "Ellipse 1=1+0 approximated{" + std::string(Reason::kFlattened) + " 1}");
}

std::string Arc(int start, int sweep, int rotation, int a = 20000, int b = 10000) {
  return ElementBytes({.type = 16,
                       .body = Longs({start * 360000, sweep * 360000}) + DFloat(a) + DFloat(b) +
                               Longs({rotation * 360000}) + DFloat(10000) + DFloat(20000)});
}

TEST(DesignSourceTest, GivesAnArcOnTheAxesAsOneCounterClockwise) {
  EXPECT_EQ(Convert(Arc(30, 60, 0)).Objects(), "Arc -1 1 3 3 | 30 90 | Pen (1,2,0)\n");
  EXPECT_EQ(Convert(Arc(30, -60, 0)).Objects(), "Arc -1 1 3 3 | 330 30 | Pen (1,2,0)\n");
  EXPECT_EQ(Convert(Arc(30, 60, 90)).Objects(), "Arc 0 0 2 4 | 120 180 | Pen (1,2,0)\n");
  EXPECT_EQ(Convert(Arc(30, 60, 270)).Objects(), "Arc 0 0 2 4 | 300 0 | Pen (1,2,0)\n");
  EXPECT_EQ(Convert(Arc(350, 20, 180)).Objects(), "Arc -1 1 3 3 | 170 190 | Pen (1,2,0)\n");
  EXPECT_EQ(Convert(Arc(10, 20, 45, 10000, 10000)).Objects(), "Arc 0 1 2 3 | 55 75 | Pen (1,2,0)\n");
}

TEST(DesignSourceTest, ReadsNegativeAnglesInBothForms) {
  std::string magnitude = Arc(30, 60, 0);
  const std::string sweep = dgn_test::Words(app_test::Long(0x80000000LL + 60 * 360000));
  magnitude.replace(40, 4, sweep);
  EXPECT_EQ(Convert(magnitude).Objects(), "Arc -1 1 3 3 | 330 30 | Pen (1,2,0)\n");
}

TEST(DesignSourceTest, GivesAnArcOfAFullTurnAsAnEllipseWithoutFill) {
  EXPECT_EQ(Convert(Arc(30, 0, 0)).Objects(), "Ellipse -1 1 3 3 | Pen (1,2,0) Brush (1,16777215,0)\n");
  EXPECT_EQ(Convert(Arc(30, 360, 0)).Objects(), "Ellipse -1 1 3 3 | Pen (1,2,0) Brush (1,16777215,0)\n");
}

TEST(DesignSourceTest, FlattensATurnedArcAndAllArcsWhenToldTo) {
  DesignOptions options;
  options.tolerance = 0.3;
  EXPECT_EQ(Convert(Arc(0, 90, 45), options).Objects(),
            "PLine 3 | 2.414213562 3.414213562 | 1.5 3.5 | 0.2928932188 2.707106781 | Pen (1,2,0)\n");
  options.arcs_as_lines = true;
  EXPECT_EQ(Convert(Arc(0, 90, 0), options).Objects(),
            "PLine 3 | 3 2 | 2.414213562 2.707106781 | 1 3 | Pen (1,2,0)\n");
  EXPECT_EQ(Convert(Arc(0, 0, 0), options).objects.at(0).substr(0, 9), "PLine 7 |");
}

TEST(DesignSourceTest, GivesABSplineAsAPolyline) {
  // A parabola by three poles.
  const std::string spline = ElementBytes({.type = 27, .body = "0000 0010 0001 0003 0000"}) +
                             Component(21, "0003 " + Longs({0, 0, 10000, 20000, 20000, 0}));
  DesignOptions options;
  options.tolerance = 0.3;
  const Conversion result = Convert(spline + Line(0, 0, 1, 0), options);
  EXPECT_EQ(result.objects.at(0), "PLine 5 | 0 0 | 0.5 0.75 | 1 1 | 1.5 0.75 | 2 0 | Pen (1,2,0)");
  EXPECT_EQ(result.Counts(), "B-Spline Curve Header 1=1+0 approximated{" + std::string(Reason::kFlattened) +
                                 " 1}; Line 1=1+0");
}

TEST(DesignSourceTest, SkipsADamagedBSplineWithItsParts) {
  const std::string spline = ElementBytes({.type = 27, .body = "0000 0010 0001 0004 0000"}) +
                             Component(21, "0003 " + Longs({0, 0, 10000, 20000, 20000, 0}));
  const Conversion result = Convert(spline + Line(0, 0, 1, 0));
  EXPECT_EQ(result.Counts(),
            "B-Spline Curve Header 1=0+1 skipped{" + std::string(Reason::kDamaged) + " 1}; Line 1=1+0");
}

TEST(DesignSourceTest, SkipsWhatHasNoCounterpartWithItsParts) {
  const Conversion result =
      Convert(ElementBytes({.type = 24, .body = "0000*10"}) + Component(21, "0000") + Component(25, "0000") +
              ElementBytes({.type = 13, .body = "0000"}) + ElementBytes({.type = 23, .body = "0000"}) +
              ElementBytes({.type = 33, .body = "0000"}) + ElementBytes({.type = 36, .body = "0000"}) +
              ElementBytes({.type = 35, .body = "0000"}) + ElementBytes({.type = 34, .body = Hex4(27)}) +
              Line(0, 0, 1, 1, true) + Line(0, 0, 1, 1));
  const std::string reason = " 1=0+1 skipped{no counterpart on the map 1}; ";
  EXPECT_EQ(result.Counts(), "B-Spline Surface Header" + reason + "Conic" + reason + "Dimension Element" +
                                 reason + "Line 1=1+0; Multiline Element" + reason +
                                 "Shared Cell 1=0+1 skipped{" + std::string(Reason::kSharedCell) +
                                 " 1}; Shared Cell Definition 1=0+1 skipped{" +
                                 std::string(Reason::kSharedCell) + " 1}; Truncated Cone" +
                                 reason.substr(0, reason.size() - 2));
}

TEST(DesignSourceTest, GivesSurfacesAndSolidsAsTheirElements) {
  const Conversion result = Convert(Complex(18, 2, Line(0, 0, 1, 0, true) + Line(1, 0, 1, 1, true)));
  EXPECT_EQ(result.objects.size(), 2U);
  EXPECT_EQ(result.Counts(),
            "Line 2=2+0; Surface 1=1+0 approximated{" + std::string(Reason::kBoundary) + " 1}");
}

// --- cells

TEST(DesignSourceTest, GivesACellWithHolesAsOneRegion) {
  const std::string hole = Square(2000, 2000, 1000, true);
  const std::string cell = Cell(kUnnamed, Square(0, 0, 10000) + hole, false, "0000 0005 0102 0003");
  const Conversion result = Convert(cell + Line(0, 0, 1, 1));
  EXPECT_EQ(
      result.objects.at(0),
      "Region 2 | 5 | 0 0 | 1 0 | 1 1 | 0 1 | 0 0 | 5 | 0.2 0.2 | 0.3 0.2 | 0.3 0.3 | 0.2 0.3 | 0.2 0.2" +
          std::string(kPen) + kNoFill + "0.32 0.32");
  EXPECT_EQ(result.rows.at(0), (Row{"Cell Header", "1", "0", "0", "0", "0", "0", "", "5", "196866", ""}));
  EXPECT_EQ(result.Counts(), "Cell Header 1=1+0; Line 1=1+0");
}

TEST(DesignSourceTest, GivesComplexShapesAndEllipsesOfACellWithHolesAsRings) {
  const std::string outline = Complex(14, 2,
                                      Component(4, "0003 " + Longs({0, 0, 90000, 0, 90000, 90000})) +
                                          Component(4, "0003 " + Longs({90000, 90000, 0, 90000, 0, 0})),
                                      true);
  const std::string hole =
      Component(15, DFloat(10000) + DFloat(10000) + Longs({0}) + DFloat(50000) + DFloat(50000), 0x8000);
  DesignOptions options;
  options.tolerance = 1;
  const Conversion result = Convert(Cell(kUnnamed, outline + hole), options);
  EXPECT_EQ(result.objects.at(0),
            "Region 2 | 5 | 0 0 | 9 0 | 9 9 | 0 9 | 0 0 | 5 | 6 5 | 5 6 | 4 5 | 5 4 | 6 5" +
                std::string(kPen) + kNoFill + "4.4 4.3");
}

TEST(DesignSourceTest, SaysWhichRingsOfACellWithHolesAreNone) {
  const std::string hole = Component(6, "0002 " + Longs({2000, 2000, 3000, 3000}), 0x8000);
  const Conversion result = Convert(Cell(kUnnamed, Square(0, 0, 10000) + hole));
  EXPECT_EQ(result.objects.at(0),
            "Region 1 | 5 | 0 0 | 1 0 | 1 1 | 0 1 | 0 0" + std::string(kPen) + kNoFill + "0.4 0.4");
  EXPECT_EQ(result.Counts(), "Cell Header 1=1+0 approximated{" + std::string(Reason::kLostRing) + " 1}");
}

TEST(DesignSourceTest, GivesALoneShapeWithTheHoleBitAsARegion) {
  const std::string shape = ElementBytes(
      {.type = 6, .body = "0003 " + Longs({0, 0, 10000, 0, 10000, 10000}), .properties = 0x8000});
  EXPECT_EQ(Convert(shape).objects.at(0).substr(0, 12), "Region 1 | 4");
}

TEST(DesignSourceTest, ExplodesOtherCellsAndNamesThemInTheRows) {
  const std::string inner = Cell("0000 0000", Line(0, 0, 1, 1, true), true);
  const std::string cell =
      Cell(kTree, Line(0, 0, 2, 2, true) + inner + Line(0, 0, 3, 3, true), false, "0000 0005 0007 0000");
  const Conversion result = Convert(cell + Line(0, 0, 4, 4));
  ASSERT_EQ(result.objects.size(), 4U);
  EXPECT_EQ(result.objects[1], "Line 0 0 0.0001 0.0001 | Pen (1,2,0)");
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(result.rows[i], (Row{"Line", "1", "0", "0", "0", "0", "0", "TREE 1", "5", "7", ""})) << i;
  }
  EXPECT_EQ(result.rows[3], (Row{"Line", "1", "0", "0", "0", "0", "0", "", "", "", ""}));
  EXPECT_EQ(result.Counts(), "Cell Header 2=2+0; Line 4=4+0");
}

TEST(DesignSourceTest, GivesCellsAsPointsOrBoth) {
  const std::string design = Cell(kTree, Line(0, 0, 2, 2, true)) + Line(0, 0, 4, 4);
  DesignOptions options;
  options.cells = CellMode::kPoint;
  const Conversion points = Convert(design, options);
  EXPECT_EQ(points.Objects(), "Point 7 8 | Symbol (32,0,8)\nLine 0 0 0.0004 0.0004 | Pen (1,2,0)\n");
  EXPECT_EQ(points.rows.at(0).at(7), "TREE 1");
  EXPECT_EQ(points.rows.at(1).at(7), "");
  EXPECT_EQ(points.Counts(), "Cell Header 1=1+0; Line 1=1+0");
  EXPECT_EQ(points.account.GetAssumptions().front(),
            "cells are given as points at their origins, without their components");
  options.cells = CellMode::kBoth;
  const Conversion both = Convert(design, options);
  EXPECT_EQ(both.objects.size(), 3U);
  EXPECT_EQ(both.rows.at(1).at(7), "TREE 1");
  EXPECT_EQ(both.Counts(), "Cell Header 1=1+0; Line 2=2+0");
}

TEST(DesignSourceTest, CountsACellOfNothingAsSkipped) {
  EXPECT_EQ(Convert(Cell(kTree, "")).Counts(),
            "Cell Header 1=0+1 skipped{" + std::string(Reason::kNoComponents) + " 1}");
}

TEST(DesignSourceTest, DoesNotNestCellsWithoutEnd) {
  std::string cells;
  for (int i = 0; i < 1000; ++i) {
    cells += ElementBytes({.type = 2, .body = "FFFF " + std::string(kTree) + " 0000*25", .component = true});
  }
  const Conversion result = Convert(cells);
  const Account::Kind& kind = result.account.GetKinds().at("Cell Header");
  EXPECT_EQ(kind.skip_reasons.at("cells nested too deep").count, 1000 - 32);
}

TEST(DesignSourceTest, EndsAShapeWhereItsDescriptionSaysInsideACell) {
  // The line behind the complex shape belongs to the cell, though a complex shape could have it.
  const std::string shape =
      Complex(14, 1, Component(4, "0004 " + Longs({0, 0, 10000, 0, 10000, 10000, 0, 0})), true);
  const Conversion result = Convert(Cell(kTree, shape + Line(0, 0, 4, 4, true)));
  EXPECT_EQ(result.Counts(), "Cell Header 1=1+0; Complex Shape 1=1+0; Line 1=1+0");
}

TEST(DesignSourceTest, TellsComponentsByTheirBitWhereTheDescriptionIsWrong) {
  const std::string first = Line(0, 0, 10000, 0, true);
  const std::string second = Line(10000, 0, 20000, 0, true);
  for (const std::size_t words : {0U, 1U, 25U, 28U, 60U, 65535U}) {
    const Conversion result = Convert(ElementBytes({.type = 12, .body = Hex4(words) + "0002"}) + first +
                                      second + Line(0, 0, 10000, 0));
    EXPECT_EQ(result.Objects(), "PLine 3 | 0 0 | 1 0 | 2 0 | Pen (1,2,0)\nLine 0 0 1 0 | Pen (1,2,0)\n")
        << words;
  }
}

TEST(DesignSourceTest, BelievesADescriptionThatEndsBetweenElements) {
  const Conversion result = Convert(ElementBytes({.type = 12, .body = "001B 0002"}) +
                                    Line(0, 0, 10000, 0, true) + Line(10000, 0, 20000, 0, true));
  EXPECT_EQ(result.Objects(), "PLine 2 | 0 0 | 1 0 | Pen (1,2,0)\nLine 1 0 2 0 | Pen (1,2,0)\n");
  EXPECT_EQ(result.Counts(), "Complex String 1=1+0 approximated{" + std::string(Reason::kLostComponents) +
                                 " 1}; Line 1=1+0 approximated{" + std::string(Reason::kStrayComponent) +
                                 " 1}");
}

TEST(DesignSourceTest, TakesAHeaderWithTheComplexBitForOneOfItsOwn) {
  const std::string chain = Complex(12, 1, Line(0, 0, 10000, 0, true), true);
  const Conversion result = Convert(chain + chain);
  EXPECT_EQ(result.Objects(), "PLine 2 | 0 0 | 1 0 | Pen (1,2,0)\nPLine 2 | 0 0 | 1 0 | Pen (1,2,0)\n");
  EXPECT_EQ(result.Counts(), "Complex String 2=2+0");
}

// --- choosing

TEST(DesignSourceTest, SkipsDeletedElementsAndTheirComponentsUnlessAskedFor) {
  std::string chain = Complex(12, 1, Line(0, 0, 10000, 0, true));
  chain[1] = static_cast<char>(chain[1] | '\x80');
  const std::string design = ElementBytes({.type = 3, .body = Longs({0, 0, 1, 1}), .deleted = true}) + chain +
                             Cell(kTree, Line(0, 0, 1, 1, true), false, {}, true);
  EXPECT_EQ(Convert(design).Counts(),
            "Cell Header 1=0+1 skipped{deleted 1}; Complex String 1=0+1 skipped{deleted 1}; "
            "Line 2=0+2 skipped{deleted 2}");
  DesignOptions options;
  options.with_deleted = true;
  EXPECT_EQ(Convert(design, options).Counts(), "Cell Header 1=1+0; Complex String 1=1+0; Line 2=2+0");
}

TEST(DesignSourceTest, LeavesDeletedComponentsOut) {
  const std::string deleted =
      ElementBytes({.type = 3, .body = Longs({10000, 0, 20000, 0}), .component = true, .deleted = true});
  EXPECT_EQ(Convert(Complex(12, 2, Line(0, 0, 10000, 0, true) + deleted)).Objects(),
            "PLine 2 | 0 0 | 1 0 | Pen (1,2,0)\n");
}

TEST(DesignSourceTest, ChoosesByLevelTypeAndClass) {
  const std::string design =
      ElementBytes({.type = 3, .body = Longs({0, 0, 1, 1}), .level = 5}) +
      ElementBytes({.type = 3, .body = Longs({0, 0, 1, 1}), .level = 6, .properties = 2}) +
      ElementBytes({.type = 6, .body = "0003 " + Longs({0, 0, 1, 1, 2, 0}), .level = 6});
  DesignOptions options;
  options.levels = ParseLevels("6");
  EXPECT_EQ(Convert(design, options).Counts(),
            "Line 2=1+1 skipped{" + std::string(Reason::kOtherLevel) + " 1}; Shape 1=1+0");
  options = DesignOptions();
  options.types = ParseElementTypes("6");
  EXPECT_EQ(Convert(design, options).Counts(),
            "Line 2=0+2 skipped{" + std::string(Reason::kOtherType) + " 2}; Shape 1=1+0");
  options = DesignOptions();
  options.classes = ParseElementClasses("2");
  const std::string other_class = " skipped{" + std::string(Reason::kOtherClass) + " 1}";
  EXPECT_EQ(Convert(design, options).Counts(), "Line 2=1+1" + other_class + "; Shape 1=0+1" + other_class);
}

TEST(DesignSourceTest, ChoosesComponentsByTheirTypeOrTheCells) {
  const std::string cell = Cell(kTree, Line(0, 0, 1, 1, true) + Square(0, 0, 10));
  DesignOptions options;
  options.types = ParseElementTypes("2");
  EXPECT_EQ(Convert(cell, options).Counts(), "Cell Header 1=1+0; Line 1=1+0; Shape 1=1+0");
  options.types = ParseElementTypes("3");
  const std::string other_type = " skipped{" + std::string(Reason::kOtherType) + " 1}";
  EXPECT_EQ(Convert(cell, options).Counts(),
            "Cell Header 1=0+1" + other_type + "; Line 1=1+0; Shape 1=0+1" + other_type);
}

TEST(DesignSourceTest, AGroupOfWhichNothingWasChosenIsNotLost) {
  const std::string line = Line(0, 0, 1, 1, true);
  const std::string damaged = Component(4, "0003 " + Longs({0, 0, 1, 1}));
  const std::string surface = Complex(18, 2, line + line);
  DesignOptions level;
  level.levels = ParseLevels("7");
  const std::string other_level = " skipped{on a level that was not chosen ";
  EXPECT_EQ(Convert(Cell(kTree, line + line), level).Counts(),
            "Cell Header 1=0+1" + other_level + "1}; Line 2=0+2" + other_level + "2}");
  EXPECT_EQ(Convert(Cell(kTree, Cell(kTree, line, true)), level).Counts(),
            "Cell Header 2=0+2" + other_level + "2}; Line 1=0+1" + other_level + "1}");
  EXPECT_EQ(
      Convert(Cell(kTree, Cell(kUnnamed, Square(0, 0, 9) + Square(2, 2, 3, true), true)), level).Counts(),
      "Cell Header 2=0+2" + other_level + "2}");
  EXPECT_EQ(Convert(Cell(kTree, ""), level).Counts(), "Cell Header 1=0+1" + other_level + "1}");
  EXPECT_EQ(Convert(surface, level).Counts(),
            "Line 2=0+2" + other_level + "2}; Surface 1=0+1" + other_level + "1}");

  DesignOptions window;
  window.window = Vanth::BoundsXY(1, 1, 2, 2);
  EXPECT_EQ(Convert(Cell(kTree, line), window).Counts(),
            "Cell Header 1=0+1 skipped{outside the window 1}; Line 1=0+1 skipped{outside the window 1}");
  EXPECT_EQ(Convert(Cell(kTree, damaged + line), window).Counts(),
            "Cell Header 1=0+1 skipped{no component that could be used 1}; "
            "Line 1=0+1 skipped{outside the window 1}; "
            "Line String 1=0+1 skipped{damaged: holds less than it tells 1}");
  EXPECT_EQ(Convert(Cell(kTree, line + damaged), window).Counts(),
            Convert(Cell(kTree, damaged + line), window).Counts());
  EXPECT_EQ(Convert(Cell(kTree, Cell(kTree, "", true) + line), window).Counts(),
            "Cell Header 2=0+2 skipped{no component that could be used 2}; "
            "Line 1=0+1 skipped{outside the window 1}");

  const std::string deleted =
      ElementBytes({.type = 3, .body = Longs({0, 0, 1, 1}), .component = true, .deleted = true});
  EXPECT_EQ(Convert(Cell(kTree, deleted)).Counts(),
            "Cell Header 1=0+1 skipped{deleted 1}; Line 1=0+1 skipped{deleted 1}");
  EXPECT_EQ(Convert(Complex(12, 1, deleted)).Counts(), "Complex String 1=0+1 skipped{deleted 1}");
  EXPECT_EQ(Convert(Complex(12, 2, deleted)).Counts(),
            "Complex String 1=0+1 skipped{no component that could be used 1}");
}

TEST(DesignSourceTest, WhatIsOfAnotherTypeIsNotLostWhateverItIs) {
  DesignOptions options;
  options.types = ParseElementTypes("line");
  const std::string other_type = " 1=0+1 skipped{of a type that was not chosen 1}";
  EXPECT_EQ(Convert(dgn_test::Words("0100 0002 0000*2 5700 0000 6300 0000"), options).Counts(),
            "Cell Library Header" + other_type + "; Raster Header" + other_type + "; Unknown Entity (99)" +
                other_type);
}

TEST(DesignSourceTest, ChoosesWhatTouchesTheWindow) {
  DesignOptions options;
  options.window = Vanth::BoundsXY(1, 1, 2, 2);
  EXPECT_EQ(Convert(Line(0, 0, 10000, 10000), options).objects.size(), 1U);
  const Conversion outside = Convert(Line(0, 0, 9999, 10000), options);
  EXPECT_EQ(outside.Counts(), "Line 1=0+1 skipped{outside the window 1}");
  EXPECT_EQ(Convert(Arc(0, 90, 0), options).objects.size(), 1U);
}

TEST(DesignSourceTest, ChoosesThePointsOfAPointStringOneByOne) {
  DesignOptions options;
  options.window = Vanth::BoundsXY(1, 1, 2, 2);
  const Conversion some = Convert(
      ElementBytes({.type = 22, .body = "0003 " + Longs({0, 0, 15000, 15000, 20000, 20000})}), options);
  EXPECT_EQ(some.Objects(), "Point 1.5 1.5 | Symbol (34,0,4)\nPoint 2 2 | Symbol (34,0,4)\n");
  EXPECT_EQ(some.Counts(), "Point String 1=1+0 approximated{" + std::string(Reason::kPartOutside) + " 1}");
  const Conversion none = Convert(ElementBytes({.type = 22, .body = "0001 " + Longs({0, 0})}), options);
  EXPECT_EQ(none.Counts(), "Point String 1=0+1 skipped{outside the window 1}");
}

// --- units, columns, colours

TEST(DesignSourceTest, GivesCoordinatesInTheUnitsAskedFor) {
  app_test::HeaderText header;
  header.origin_x = 100;
  header.origin_y = -200;
  const std::string design = app_test::DesignBytes(Line(100, -200, 10100, 9800), header);
  DesignOptions options;
  EXPECT_EQ(ConvertFile(design, options).Objects(), "Line 0 0 1 1 | Pen (1,2,0)\n");
  options.units = DesignUnits::kSub;
  EXPECT_EQ(ConvertFile(design, options).Objects(), "Line 0 0 1000 1000 | Pen (1,2,0)\n");
  options.units = DesignUnits::kUor;
  EXPECT_EQ(ConvertFile(design, options).Objects(), "Line 100 -200 10100 9800 | Pen (1,2,0)\n");
}

TEST(DesignSourceTest, FillsTheColumnsAskedFor) {
  const std::string line = ElementBytes({.type = 3,
                                         .body = Longs({0, 0, 1, 1}),
                                         .level = 63,
                                         .group = 65535,
                                         .properties = 6,
                                         .style = 7,
                                         .weight = 31,
                                         .color = 254,
                                         .attributes = "1007 5E62 0000 0007 FFFF FFFF 0000*2"});
  EXPECT_EQ(Convert(line).rows.at(0), (Row{"Line", "63", "254", "31", "7", "6", "65535", "", "7", "-1", ""}));
  DesignOptions options;
  options.columns = {DesignColumn::kKey, DesignColumn::kLevel};
  EXPECT_EQ(Convert(line, options).rows.at(0), (Row{"-1", "63"}));
}

TEST(DesignSourceTest, DescribesItsColumns) {
  const dgn_test::TempFile file(app_test::DesignBytes(""));
  const DesignSource source(Input{InputKind::kDesign2D, file.Name(), {}}, {});
  std::string text;
  for (const Pelor::MI::Column& column : source.GetSchema().columns) {
    text += column.name.str() + ' ' + std::to_string(column.type) + ' ' + std::to_string(column.width) + ' ' +
            std::to_string(column.flags) + "; ";
  }
  EXPECT_EQ(
      text,
      "Type 0 24 0; Level 2 2 0; Color 2 2 0; Weight 2 2 0; Style 2 2 0; Class 2 2 0; GraphicGroup 1 4 0; "
      "Cell 0 6 0; Entity 1 4 0; MSLink 1 4 0; Text 0 1 4; ");
  EXPECT_EQ(source.GetSchema().system, nullptr);
  EXPECT_EQ(FindDesignColumn("graphicgroup"), DesignColumn::kGroup);
  EXPECT_EQ(FindDesignColumn("group"), std::nullopt);
}

TEST(DesignSourceTest, UsesTheColourTableWhereverItStands) {
  std::string triples;
  for (int i = 0; i < 384; ++i) triples += "0302 ";
  const std::string table = ElementBytes({.type = 5, .body = "0000 " + triples});
  const std::string line = ElementBytes({.type = 3, .body = Longs({0, 0, 1, 1}), .color = 1});
  const Conversion result = Convert(table + line);
  EXPECT_EQ(result.Objects(), "Line 0 0 0.0001 0.0001 | Pen (1,2,131842)\n");
  EXPECT_EQ(result.Counts(), "Group 1=0+1 skipped{group data, no graphics 1}; Line 1=1+0");
  EXPECT_TRUE(result.account.GetAssumptions().empty());
}

TEST(DesignSourceTest, DrawsIndex0AsBlackUnlessToldOtherwise) {
  DesignOptions options;
  options.keep_color_0 = true;
  EXPECT_EQ(Convert(Line(0, 0, 1, 1), options).Objects(), "Line 0 0 0.0001 0.0001 | Pen (1,2,16777215)\n");
}

TEST(DesignSourceTest, GivesItsSystemToSchemaAndObjects) {
  const dgn_test::TempFile file(app_test::DesignBytes(Line(0, 0, 1, 1) + Line(0, 0, 2, 2)));
  DesignOptions options;
  const Tobri::IRefC<Pelor::MI::CoordSys> system(new Pelor::MI::CoordSys());
  options.system = system;
  DesignSource source(Input{InputKind::kDesign2D, file.Name(), {}}, options);
  EXPECT_EQ(source.GetSchema().system, system);
  Feature feature;
  Account account;
  ASSERT_TRUE(source.Next(feature, account));
  EXPECT_EQ(feature.object->GetWSys(), system);
  // The object is used again unless somebody holds it.
  const Pelor::MI::WObjBody* const first = feature.object.Get();
  ASSERT_TRUE(source.Next(feature, account));
  EXPECT_EQ(feature.object.Get(), first);
}

TEST(DesignSourceTest, LeavesObjectsAloneThatSomebodyHolds) {
  const dgn_test::TempFile file(app_test::DesignBytes(Line(0, 0, 1, 1) + Line(0, 0, 2, 2)));
  DesignSource source(Input{InputKind::kDesign2D, file.Name(), {}}, {});
  Feature feature;
  Account account;
  ASSERT_TRUE(source.Next(feature, account));
  const auto held = feature.object;
  ASSERT_TRUE(source.Next(feature, account));
  EXPECT_NE(feature.object, held);
  EXPECT_EQ(held->GetBounds(), Vanth::BoundsXY(0, 0, 0.0001, 0.0001));
}

// --- the rest of a file

TEST(DesignSourceTest, CountsWhatHasNoGraphicsByItsReason) {
  const Conversion result =
      Convert(dgn_test::Words("0800 0002 0000*2 0A00 0000 4219 0001 0000 0101 0000 "
                              "6300 0000 5700 0000 3A00 0000 0301 0003 0000*3"));
  EXPECT_EQ(result.Counts(),
            "Cell Library Header 1=0+1 skipped{" + std::string(Reason::kLibraryData) +
                " 1}; Digitizer Setup Data 1=0+1 skipped{settings of the design, no graphics 1}; "
                "Level Symbology 1=0+1 skipped{settings of the design, no graphics 1}; "
                "Line 1=0+1 skipped{" +
                std::string(Reason::kShortHeader) +
                " 1}; MicroStation Element 1=0+1 skipped{data of an application, no graphics 1}; "
                "MicroStation Text Array 1=0+1 skipped{no counterpart on the map 1}; "
                "Raster Header 1=0+1 skipped{no counterpart on the map 1}; "
                "Unknown Entity (99) 1=0+1 skipped{unknown element type 1}");
}

TEST(DesignSourceTest, KnowsWhichReasonsLoseNothing) {
  EXPECT_TRUE(Reason::IsExpected(Reason::kHeaderData));
  EXPECT_TRUE(Reason::IsExpected(Reason::kDeleted));
  EXPECT_TRUE(Reason::IsExpected("outside the window"));
  EXPECT_TRUE(Reason::IsExpected(Reason::kPartOutside));
  EXPECT_FALSE(Reason::IsExpected(Reason::kDamaged));
  EXPECT_FALSE(Reason::IsExpected(Reason::kSharedCell));
}

TEST(DesignSourceTest, SkipsDamagedElementsAndReadsTheRest) {
  const std::string damaged = ElementBytes({.type = 4, .body = "0003 " + Longs({0, 0, 1, 1})});
  const Conversion result = Convert(damaged + Line(0, 0, 1, 1));
  EXPECT_EQ(result.Counts(), "Line 1=1+0; Line String 1=0+1 skipped{damaged: holds less than it tells 1}");
  const Place place =
      result.account.GetKinds().at("Line String").skip_reasons.at(std::string(Reason::kDamaged)).places.at(0);
  EXPECT_EQ(place.number, 2);
  EXPECT_EQ(place.position, 1536);
}

TEST(DesignSourceTest, SaysWhichCellTheEndOfTheFileCutsOff) {
  const std::string line = Line(0, 0, 1, 1, true);
  const std::string cells = Cell(kTree, line) + Cell(kTree, Cell(kTree, line + line, true) + line);
  const std::string told = " approximated{components missing or damaged ";
  EXPECT_EQ(Convert(cells).Counts(), "Cell Header 3=3+0; Line 4=4+0");
  EXPECT_EQ(Convert(cells.substr(0, cells.size() - line.size())).Counts(),
            "Cell Header 3=3+0" + told + "1}; Line 3=3+0");
  EXPECT_EQ(Convert(cells.substr(0, cells.size() - 2 * line.size())).Counts(),
            "Cell Header 3=3+0" + told + "2}; Line 2=2+0");
  EXPECT_EQ(ConvertFile(app_test::HeaderBytes() + cells.substr(0, cells.size() - 2)).Counts(),
            "Cell Header 3=3+0" + told + "1}; Line 4=3+1 skipped{cut off by the end of the file 1}");
}

TEST(DesignSourceTest, DoesWithoutAnEndWordAndSaysSo) {
  std::string bytes = app_test::DesignBytes(Line(0, 0, 1, 1));
  bytes.resize(bytes.size() - 2);
  const char* const sentence = "the file has no end-of-design word: the design ends where the file does";
  const auto says_so = [&](const Conversion& result) {
    const auto& said = result.account.GetAssumptions();
    return std::find(said.begin(), said.end(), sentence) != said.end();
  };
  EXPECT_TRUE(says_so(ConvertFile(bytes)));
  EXPECT_EQ(ConvertFile(bytes).Counts(), "Line 1=1+0");
  // Zeros up to the end of the last block are no elements.
  const Conversion filled = ConvertFile(bytes + std::string(9000, '\0'));
  EXPECT_TRUE(says_so(filled));
  EXPECT_EQ(filled.Counts(), "Line 1=1+0");
  // But zeros with something behind are.
  const Conversion zeros = ConvertFile(bytes + std::string(8, '\0') + Line(0, 0, 1, 1) + "\xFF\xFF");
  EXPECT_FALSE(says_so(zeros));
  EXPECT_EQ(zeros.Counts(), "Line 2=2+0; Unknown Entity (0) 2=0+2 skipped{unknown element type 2}");
}

TEST(DesignSourceTest, DoesWithoutAHeaderAndSaysSo) {
  const Conversion result = ConvertFile(Line(10, 20, 30, 40) + "\xFF\xFF");
  EXPECT_EQ(result.Objects(), "Line 10 20 30 40 | Pen (1,2,0)\n");
  EXPECT_EQ(result.account.GetAssumptions().front(),
            "the design has no header: taken as two-dimensional, one unit of resolution per unit");
}

TEST(DesignSourceTest, SaysWhenTheWorkingUnitsAreNone) {
  app_test::HeaderText header;
  header.subs_per_master = 0;
  const Conversion result = ConvertFile(app_test::DesignBytes(Line(10, 20, 30, 40), header));
  EXPECT_EQ(result.Objects(), "Line 10 20 30 40 | Pen (1,2,0)\n");
  EXPECT_EQ(result.account.GetAssumptions().front(),
            "the working units of the design are not positive: one unit of resolution per unit");
}

TEST(DesignSourceTest, GivesComponentsThatHaveLostTheirHeader) {
  const Conversion result = Convert(Line(0, 0, 1, 1, true) + Component(21, "0000"));
  EXPECT_EQ(result.Counts(),
            "B-Spline Pole 1=0+1 skipped{component without its header 1}; "
            "Line 1=1+0 approximated{component without its header 1}");
}

TEST(DesignSourceTest, RefusesAFileThatIsNotThere) {
  EXPECT_THROW(DesignSource(Input{InputKind::kDesign2D, "/nowhere/design.dgn", {}}, {}), Failure);
}

TEST(DesignSourceTest, TellsHowFarItHasRead) {
  const dgn_test::TempFile file(app_test::DesignBytes(Line(0, 0, 1, 1)));
  DesignSource source(Input{InputKind::kDesign2D, file.Name(), {}}, {});
  EXPECT_EQ(source.Total(), 1536 + 52 + 2);
  Feature feature;
  Account account;
  ASSERT_TRUE(source.Next(feature, account));
  EXPECT_EQ(source.Current(), 1536);
  EXPECT_EQ(feature.place.number, 2);
  EXPECT_EQ(feature.place.position, 1536);
  ASSERT_FALSE(source.Next(feature, account));
  EXPECT_EQ(source.Current(), 1536 + 52);
  EXPECT_FALSE(source.Next(feature, account));
}

}  // namespace
}  // namespace App
