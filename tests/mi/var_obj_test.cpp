#include <pelor/mi/build.h>
#include <pelor/mi/var_obj.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <tests/mi/objects.h>
#include <utility>

namespace Pelor::MI {
namespace {

using Vanth::PointXY;
using Vanth::RectXY;

constexpr double kPi = std::numbers::pi;
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

WVarObj MakeBuilder(double tolerance, bool lines, const Points& vertices = {}) {
  WVarObj builder(nullptr, Symbol(), Pen(), Brush(), tolerance, lines);
  for (const PointXY& vertex : vertices) builder.AddVertex(vertex);
  return builder;
}

Points VerticesOf(const WVarObj& builder) {
  return PointsOf(builder.GetOutline()->Vertices());
}

void ExpectNear(const Points& actual, const Points& expected) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < actual.size(); ++i) {
    EXPECT_NEAR(actual[i].x, expected[i].x, 1e-12) << "vertex " << i;
    EXPECT_NEAR(actual[i].y, expected[i].y, 1e-12) << "vertex " << i;
  }
}

TEST(WVarObjTest, NoVertexGivesTheEmptyObject) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  const WVarObj builder(wsys, Symbol(), Pen(), Brush(), 0, true);
  EXPECT_EQ(builder.GetWType(), WObjType_None);
  EXPECT_EQ(builder.GetOutline()->GetNParts(), 1);
  const WObjRf<WObjBody> result = builder;
  ASSERT_NE(WObjRf<WNoBody>(result), nullptr);
  EXPECT_EQ(result->GetWSys(), wsys);
}

TEST(WVarObjTest, OneVertexGivesAPoint) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  const Symbol symbol("STAR.BMP", 0xFF, 18, 1, SLUnits_Point);
  WVarObj builder(wsys, symbol, Pen(), Brush(), 0, true);
  builder.AddVertex({1, 2});
  EXPECT_EQ(builder.GetWType(), WObjType_Point);
  const WObjRf<WObjBody> result = builder;
  const WPointObj point(result);
  ASSERT_NE(point, nullptr);
  EXPECT_EQ(point->GetPoint(), (PointXY{1, 2}));
  EXPECT_EQ(point->GetSymbol(), symbol);
  EXPECT_EQ(point->GetWSys(), wsys);
}

TEST(WVarObjTest, TwoVerticesGiveALineWhenLinesAreAllowed) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  Pen pen;
  pen.width = 3;
  WVarObj builder(wsys, Symbol(), pen, Brush(), 0, true);
  builder.AddVertex({1, 2});
  builder.AddVertex({3, 4});
  EXPECT_EQ(builder.GetWType(), WObjType_Line);
  const WObjRf<WObjBody> result = builder;
  const WLineObj line(result);
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->GetStart(), (PointXY{1, 2}));
  EXPECT_EQ(line->GetEnd(), (PointXY{3, 4}));
  EXPECT_EQ(line->GetPen(), pen);
  EXPECT_EQ(line->GetWSys(), wsys);
}

TEST(WVarObjTest, TwoVerticesGiveAPolylineWhenLinesAreNotAllowed) {
  const WVarObj builder = MakeBuilder(0, false, {{1, 2}, {3, 4}});
  EXPECT_EQ(builder.GetWType(), WObjType_PLine);
  const WObjRf<WObjBody> result = builder;
  const WPLineObj pline(result);
  ASSERT_NE(pline, nullptr);
  EXPECT_EQ(pline.Get(), builder.GetOutline().Get());
}

TEST(WVarObjTest, ThreeVerticesGiveAPolyline) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  Pen pen;
  pen.width = 3;
  WVarObj builder(wsys, Symbol(), pen, Brush(), 0, true);
  for (const PointXY& vertex : Points{{0, 0}, {1, 0}, {1, 1}}) builder.AddVertex(vertex);
  EXPECT_EQ(builder.GetWType(), WObjType_PLine);
  const WObjRf<WObjBody> result = builder;
  const WPLineObj pline(result);
  ASSERT_NE(pline, nullptr);
  EXPECT_EQ(pline->GetPen(), pen);
  EXPECT_EQ(pline->GetWSys(), wsys);
  EXPECT_FALSE(pline->GetIsSmooth());
}

TEST(WVarObjTest, TheSamePointTwiceKeepsOneVertex) {
  EXPECT_EQ(VerticesOf(MakeBuilder(0, true, {{1, 1}, {1, 1}})), (Points{{1, 1}}));
}

TEST(WVarObjTest, APointExactlyTheToleranceAwayFromTheLastIsDropped) {
  EXPECT_EQ(VerticesOf(MakeBuilder(5, true, {{0, 0}, {3, 4}})), (Points{{0, 0}}));
  EXPECT_EQ(VerticesOf(MakeBuilder(4.999, true, {{0, 0}, {3, 4}})), (Points{{0, 0}, {3, 4}}));
}

TEST(WVarObjTest, DroppedPointsDoNotMoveTheLastVertex) {
  EXPECT_EQ(VerticesOf(MakeBuilder(1, true, {{0, 0}, {0.75, 0}, {1.5, 0}})), (Points{{0, 0}, {1.5, 0}}));
}

TEST(WVarObjTest, AVertexWithinTheToleranceOfTheFirstClosesTheRing) {
  const WVarObj builder = MakeBuilder(0.5, true, {{0, 0}, {4, 0}, {4, 3}, {0, 0.5}});
  EXPECT_EQ(builder.GetWType(), WObjType_Region);
  EXPECT_EQ(PointsOf(builder.GetOutline()->Vertices(0)), (Points{{0, 0}, {4, 0}, {4, 3}}));
  const WObjRf<WObjBody> result = builder;
  const WRegionObj region(result);
  ASSERT_NE(region, nullptr);
  EXPECT_EQ(PointsOf(region->GetOutline()->Vertices(0)), (Points{{0, 0}, {4, 0}, {4, 3}, {0, 0}}));
}

TEST(WVarObjTest, RingsFollowEachOther) {
  const WVarObj builder =
      MakeBuilder(0, true, {{0, 0}, {4, 0}, {4, 3}, {0, 0}, {10, 0}, {11, 0}, {11, 1}, {10, 0}, {20, 0}});
  EXPECT_EQ(builder.GetWType(), WObjType_Region);
  const WRegionObj region = builder.GetClosed();
  ASSERT_EQ(region->GetNParts(), 3);
  EXPECT_EQ(PointsOf(region->GetOutline()->Vertices(1)), (Points{{10, 0}, {11, 0}, {11, 1}, {10, 0}}));
  EXPECT_EQ(PointsOf(region->GetOutline()->Vertices(2)), (Points{{20, 0}}));
}

TEST(WVarObjTest, AddPartOpensARingButNoPartOfTheOutline) {
  WVarObj builder = MakeBuilder(0, true, {{0, 0}, {4, 0}, {4, 3}});
  builder.AddPart();
  builder.AddVertex({4, 3});  // the first of its ring: not measured against the vertex before
  builder.AddVertex({0, 0});  // no longer the first vertex of the ring
  EXPECT_EQ(VerticesOf(builder), (Points{{0, 0}, {4, 0}, {4, 3}, {4, 3}, {0, 0}}));
  EXPECT_EQ(builder.GetOutline()->GetNParts(), 1);
  EXPECT_EQ(builder.GetWType(), WObjType_PLine);
  builder.AddVertex({4, 3});
  EXPECT_EQ(builder.GetWType(), WObjType_Region);
}

TEST(WVarObjTest, CloseMakesARegionUntilEmpty) {
  Brush brush;
  brush.pattern = 12;
  WVarObj builder(nullptr, Symbol(), Pen(), brush, 0, true);
  builder.AddVertex({0, 0});
  builder.AddVertex({4, 0});
  builder.Close();
  EXPECT_EQ(builder.GetWType(), WObjType_Region);
  const WObjRf<WObjBody> result = builder;
  ASSERT_NE(WRegionObj(result), nullptr);
  EXPECT_EQ(WRegionObj(result)->GetBrush(), brush);
  EXPECT_EQ(WRegionObj(result)->GetNVertices(0), 3);
  builder.Empty();
  EXPECT_EQ(builder.GetWType(), WObjType_None);
  EXPECT_EQ(builder.GetOutline()->GetNParts(), 1);
  builder.AddVertex({9, 9});
  EXPECT_EQ(builder.GetWType(), WObjType_Point);
  EXPECT_EQ(WRegionObj(result)->GetNVertices(0), 3);
}

TEST(WVarObjTest, AResultIsNotChangedByTheBuilder) {
  WVarObj builder = MakeBuilder(0, false, {{0, 0}, {4, 0}});
  const WObjRf<WObjBody> result = builder;
  builder.AddVertex({4, 3});
  EXPECT_EQ(WPLineObj(result)->GetNVertices(0), 2);
  EXPECT_EQ(VerticesOf(builder).size(), 3U);
  const WPLineObj outline = builder.GetOutline();
  builder.Empty();
  EXPECT_EQ(outline->GetNVertices(0), 3);
}

TEST(WVarObjTest, ACopiedBuilderGoesItsOwnWay) {
  WVarObj builder = MakeBuilder(0, true, {{0, 0}, {4, 0}});
  WVarObj copy = builder;
  copy.AddVertex({4, 3});
  builder.AddVertex({9, 9});
  EXPECT_EQ(VerticesOf(copy), (Points{{0, 0}, {4, 0}, {4, 3}}));
  EXPECT_EQ(VerticesOf(builder), (Points{{0, 0}, {4, 0}, {9, 9}}));
  copy.Empty();
  EXPECT_EQ(VerticesOf(builder).size(), 3U);
}

TEST(WVarObjTest, ABuilderThatWasMovedFromIsUsable) {
  WVarObj builder = MakeBuilder(0, true, {{0, 0}, {4, 0}});
  const WVarObj moved = std::move(builder);
  builder.Empty();  // NOLINT(bugprone-use-after-move): what it tests
  builder.AddVertex({9, 9});
  EXPECT_EQ(VerticesOf(builder), (Points{{9, 9}}));
  EXPECT_EQ(VerticesOf(moved), (Points{{0, 0}, {4, 0}}));
}

TEST(WVarObjTest, AClosedRingEndsWithAnEmptyPart) {
  const WVarObj builder = MakeBuilder(0, true, {{0, 0}, {4, 0}, {0, 0}});
  EXPECT_EQ(builder.GetOutline()->GetNParts(), 2);
  EXPECT_EQ(builder.GetOutline()->GetNVertices(1), 0);
  EXPECT_EQ(builder.GetClosed()->GetNTotalVertices(), 3);
}

TEST(WVarObjTest, StylesAreReplaced) {
  WVarObj builder = MakeBuilder(0, true, {{0, 0}, {4, 0}, {4, 3}});
  const WPLineObj before = builder.GetOutline();
  Pen pen;
  pen.width = 9;
  Brush brush;
  brush.pattern = 12;
  const Symbol symbol("STAR.BMP", 0xFF, 18, 1, SLUnits_Point);
  builder.SetPen(pen);
  builder.SetBrush(brush);
  builder.SetSymbol(symbol);
  EXPECT_EQ(builder.GetPen(), pen);
  EXPECT_EQ(builder.GetBrush(), brush);
  EXPECT_EQ(builder.GetSymbol(), symbol);
  EXPECT_EQ(builder.GetOutline()->GetPen(), pen);
  EXPECT_EQ(builder.GetClosed()->GetPen(), pen);
  EXPECT_EQ(builder.GetClosed()->GetBrush(), brush);
  EXPECT_EQ(before->GetPen(), Pen());
}

TEST(WVarObjTest, SetWSysChangesTheOutlineInPlace) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  WVarObj builder = MakeBuilder(0, true, {{0, 0}, {4, 0}, {4, 3}});
  const WPLineObj shared = builder.GetOutline();
  builder.SetWSys(wsys);
  EXPECT_EQ(builder.GetOutline().Get(), shared.Get());
  EXPECT_EQ(shared->GetWSys(), wsys);
  EXPECT_EQ(builder.GetClosed()->GetWSys(), wsys);
}

TEST(WVarObjTest, TheAngularStepDeviatesByTheTolerance) {
  EXPECT_DOUBLE_EQ(WVarObj::angle_tol(1, 2), 2 * std::acos(0.5));
  const double step = WVarObj::angle_tol(0.01, 10);
  EXPECT_NEAR(10 * (1 - std::cos(step / 2)), 0.01, 1e-12);
}

TEST(WVarObjTest, AToleranceAsLargeAsTheRadiusGivesAQuarterTurn) {
  EXPECT_EQ(WVarObj::angle_tol(2, 2), kPi / 2);
  EXPECT_EQ(WVarObj::angle_tol(3, 2), kPi / 2);
  EXPECT_EQ(WVarObj::angle_tol(0, 0), kPi / 2);
}

TEST(WVarObjTest, TheAngularStepIsNeverBelowATenthOfADegree) {
  EXPECT_EQ(WVarObj::angle_tol(1e-12, 1), kPi / 1800);
  for (const double tolerance : {0.0, -1.0, -1e300, -kInf, 1e-300, 1.0, 1e300, kInf, kNaN}) {
    for (const double radius : {0.0, 1e-300, 1.0, 1e300, kInf, -1.0, -kInf, kNaN}) {
      EXPECT_GE(WVarObj::angle_tol(tolerance, radius), kPi / 1800) << tolerance << ' ' << radius;
    }
  }
}

TEST(WVarObjConversionTest, APointGivesItsVertexAndSymbol) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  const Symbol symbol("STAR.BMP", 0xFF, 18, 1, SLUnits_Point);
  const WVarObj builder(WPointObj({1, 2}, wsys, symbol), 0, true);
  EXPECT_EQ(VerticesOf(builder), (Points{{1, 2}}));
  EXPECT_EQ(builder.GetSymbol(), symbol);
  const WObjRf<WObjBody> result = builder;
  EXPECT_EQ(result->GetType(), WObjType_Point);
  EXPECT_EQ(result->GetWSys(), wsys);
}

TEST(WVarObjConversionTest, ALineGivesItsEndsAndPen) {
  Pen pen;
  pen.width = 3;
  const WVarObj builder(WLineObj({1, 2}, {3, 4}, nullptr, pen), 0, true);
  EXPECT_EQ(VerticesOf(builder), (Points{{1, 2}, {3, 4}}));
  EXPECT_EQ(builder.GetPen(), pen);
  EXPECT_EQ(builder.GetWType(), WObjType_Line);
  const WVarObj short_line(WLineObj({1, 2}, {3, 4}, nullptr, pen), 10, true);
  EXPECT_EQ(short_line.GetWType(), WObjType_Point);
}

TEST(WVarObjConversionTest, APolylineKeepsPartsAndVerticesAsTheyAre) {
  Pen pen;
  pen.width = 3;
  WPLineObj pline = MakePLine({{{0, 0}, {0, 0}, {1, 0}}, {{2, 0}, {3, 0}}});
  pline->SetPen(pen);
  pline->SetIsSmooth(true);
  WVarObj builder(pline, 100, true);
  EXPECT_NE(builder.GetOutline().Get(), pline.Get());
  EXPECT_EQ(builder.GetOutline()->GetNParts(), 2);
  EXPECT_EQ(VerticesOf(builder), PointsOf(pline->Vertices()));
  EXPECT_EQ(builder.GetPen(), pen);
  EXPECT_EQ(builder.GetWType(), WObjType_PLine);
  const WObjRf<WObjBody> result = builder;
  EXPECT_TRUE(WPLineObj(result)->GetIsSmooth());
  builder.AddVertex({9, 9});
  EXPECT_EQ(pline->GetNVertices(1), 2);
}

TEST(WVarObjConversionTest, APolylineWithoutAPartStaysAPolyline) {
  const WVarObj builder(WPLineObj(nullptr, Pen(), false), 0, true);
  EXPECT_EQ(builder.GetOutline()->GetNParts(), 0);
  EXPECT_EQ(builder.GetWType(), WObjType_PLine);
}

TEST(WVarObjConversionTest, ARegionKeepsItsClosedRings) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  Pen pen;
  pen.width = 3;
  Brush brush;
  brush.pattern = 12;
  const WRegionObj region = MakeRegion({{{0, 0}, {4, 0}, {4, 3}}, {{1, 1}, {2, 1}, {2, 2}}});
  region->SetPen(pen);
  region->SetBrush(brush);
  region->SetWSys(wsys);
  const WVarObj builder(region, 100, true);
  EXPECT_EQ(builder.GetWType(), WObjType_Region);
  EXPECT_EQ(builder.GetOutline()->GetNParts(), 2);
  EXPECT_EQ(VerticesOf(builder), (Points{{0, 0}, {4, 0}, {4, 3}, {0, 0}, {1, 1}, {2, 1}, {2, 2}, {1, 1}}));
  EXPECT_NE(builder.GetOutline().Get(), region->GetOutline().Get());
  EXPECT_EQ(builder.GetClosed()->GetPen(), pen);
  EXPECT_EQ(builder.GetClosed()->GetBrush(), brush);
  EXPECT_EQ(builder.GetClosed()->GetWSys(), wsys);
  EXPECT_EQ(region->GetOutline()->GetWSys(), nullptr);
}

TEST(WVarObjConversionTest, ARectangleGivesItsCornersInTurn) {
  Brush brush;
  brush.pattern = 12;
  const WVarObj builder(WRectObj({1, 2, 5, 4}, nullptr, Pen(), brush), 0, true);
  EXPECT_EQ(VerticesOf(builder), (Points{{1, 2}, {5, 2}, {5, 4}, {1, 4}}));
  EXPECT_EQ(builder.GetWType(), WObjType_Region);
  EXPECT_EQ(builder.GetBrush(), brush);
  EXPECT_EQ(PointsOf(builder.GetClosed()->GetOutline()->Vertices()),
            (Points{{1, 2}, {5, 2}, {5, 4}, {1, 4}, {1, 2}}));
}

TEST(WVarObjConversionTest, AFlatRectanglePassesTheToleranceFilter) {
  const WVarObj builder(WRectObj({0, 0, 10, 1}, nullptr, Pen(), Brush()), 1, true);
  EXPECT_EQ(VerticesOf(builder), (Points{{0, 0}, {10, 0}}));
  EXPECT_EQ(builder.GetWType(), WObjType_Region);
}

TEST(WVarObjConversionTest, ARoundedRectangleGivesFourQuarterArcs) {
  Pen pen;
  pen.width = 3;
  // The radius is 1 and so is the tolerance: each corner is one chord.
  const WVarObj builder(WRRectObj({0, 0, 10, 6}, 2, nullptr, pen, Brush()), 1, true);
  ExpectNear(VerticesOf(builder), {{0, 1}, {1, 0}, {9, 0}, {10, 1}, {10, 5}, {9, 6}, {1, 6}, {0, 5}});
  EXPECT_EQ(builder.GetWType(), WObjType_Region);
  EXPECT_EQ(builder.GetOutline()->GetNParts(), 1);
  EXPECT_EQ(builder.GetPen(), pen);
  // Steps of 60 degrees: a corner has its first point, one at 60 degrees and its last point.
  const WVarObj finer(WRRectObj({0, 0, 10, 6}, 2, nullptr, pen, Brush()), 1 - std::cos(kPi / 6), true);
  const Points vertices = VerticesOf(finer);
  ASSERT_EQ(vertices.size(), 12U);
  ExpectNear({vertices[0], vertices[1], vertices[2]},
             {{0, 1}, {1 + std::cos(4 * kPi / 3), 1 + std::sin(4 * kPi / 3)}, {1, 0}});
}

TEST(WVarObjConversionTest, AMirroredRoundedRectangleTurnsAsItsCornersDo) {
  const WVarObj builder(WRRectObj({10, 0, 0, 6}, -2, nullptr, Pen(), Brush()), 1, true);
  ExpectNear(VerticesOf(builder), {{10, 1}, {9, 0}, {1, 0}, {0, 1}, {0, 5}, {1, 6}, {9, 6}, {10, 5}});
}

TEST(WVarObjConversionTest, AnEllipseGivesOneTurnOfPoints) {
  // The larger half-axis is 4, the tolerance too: quarter steps.
  const WVarObj builder(WEllipseObj({-4, -3, 4, 3}, nullptr, Pen(), Brush()), 4, true);
  ExpectNear(VerticesOf(builder), {{4, 0}, {0, 3}, {-4, 0}, {0, -3}});
  EXPECT_EQ(builder.GetWType(), WObjType_Region);
  // Half the larger half-axis of tolerance: steps of 120 degrees.
  const WVarObj thirds(WEllipseObj({14, 7, 6, 1}, nullptr, Pen(), Brush()), 2, true);
  ExpectNear(VerticesOf(thirds),
             {{14, 4}, {10 - 2, 4 + 3 * std::sin(2 * kPi / 3)}, {10 - 2, 4 - 3 * std::sin(2 * kPi / 3)}});
}

TEST(WVarObjConversionTest, TheFinestEllipseHas3600Points) {
  for (const double tolerance : {0.0, -1.0, -kInf, 1e-12}) {
    const WVarObj builder(WEllipseObj({-4, -3, 4, 3}, nullptr, Pen(), Brush()), tolerance, true);
    EXPECT_EQ(VerticesOf(builder).size(), 3600U) << tolerance;
  }
}

TEST(WVarObjConversionTest, AnArcGivesItsPointsAndStaysOpen) {
  Pen pen;
  pen.width = 3;
  // Half a radius of tolerance: steps of 120 degrees, from 0 to 180.
  const WVarObj builder(WArcObj({-2, -2, 2, 2}, Degrees(0), Degrees(180), nullptr, pen), 1, true);
  ExpectNear(VerticesOf(builder), {{2, 0}, {-1, 2 * std::sin(2 * kPi / 3)}, {-2, 0}});
  EXPECT_EQ(builder.GetWType(), WObjType_PLine);
  EXPECT_EQ(builder.GetPen(), pen);
  EXPECT_EQ(builder.GetOutline()->GetPen(), pen);
}

TEST(WVarObjConversionTest, AnArcFrom350To10DegreesRunsAcrossZero) {
  const double tolerance = 2 * (1 - std::cos(kPi / 36 / 2));  // steps of 5 degrees
  const WVarObj builder(WArcObj({-2, -2, 2, 2}, Degrees(350), Degrees(10), nullptr, Pen()), tolerance, true);
  const Points vertices = VerticesOf(builder);
  ASSERT_GE(vertices.size(), 5U);
  ExpectNear({vertices[0], vertices[2], vertices.back()}, {{2 * std::cos(kPi / 18), -2 * std::sin(kPi / 18)},
                                                           {2, 0},
                                                           {2 * std::cos(kPi / 18), 2 * std::sin(kPi / 18)}});
}

TEST(WVarObjConversionTest, AnArcOfEqualAnglesIsItsOnePoint) {
  const WVarObj builder(WArcObj({-2, -2, 2, 2}, Degrees(90), Degrees(90), nullptr, Pen()), 1, true);
  ExpectNear(VerticesOf(builder), {{0, 2}});
}

TEST(WVarObjConversionTest, AnArcOfTwoTurnsIsFollowedAllTheWay) {
  const WVarObj builder(WArcObj({-2, -2, 2, 2}, Degrees(0), Degrees(720), nullptr, Pen()), 2, true);
  EXPECT_EQ(VerticesOf(builder).size(), 9U);
}

TEST(WVarObjConversionTest, HugeArcAnglesEndWithinOneTurn) {
  for (const double start : {0.0, -1e6, 1e6, 1e17, -1e17, 1e308, -1e308, kInf, -kInf, kNaN}) {
    for (const double end : {1e6, -1e6, 1e17, -1e17, 1e308, -1e308, kInf, -kInf, kNaN}) {
      const WArcObj arc({-2, -2, 2, 2}, Vanth::Angle(start), Vanth::Angle(end), nullptr, Pen());
      const WVarObj builder(arc, 0, true);
      EXPECT_LE(VerticesOf(builder).size(), 3601U) << start << ' ' << end;
      EXPECT_GE(VerticesOf(builder).size(), 1U) << start << ' ' << end;
    }
  }
  // 100 turns and 90 degrees, from 0: the points at 0 and at 90 degrees.
  const WVarObj builder(WArcObj({-2, -2, 2, 2}, Degrees(0), Degrees(36090), nullptr, Pen()), 2, true);
  ASSERT_EQ(VerticesOf(builder).size(), 2U);
  EXPECT_NEAR(VerticesOf(builder)[1].y, 2, 1e-9);
}

TEST(WVarObjConversionTest, FlattenedPointsPassNoToleranceFilter) {
  const WVarObj builder(WEllipseObj({-4, -3, 4, 3}, nullptr, Pen(), Brush()), 1000, true);
  EXPECT_EQ(VerticesOf(builder).size(), 4U);
}

TEST(WVarObjConversionTest, TextTheEmptyObjectAndNullGiveNothing) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  const WVarObj text(WTextObj("A", {0, 0, 1, 1}, wsys, Font()), 0, true);
  EXPECT_EQ(text.GetWType(), WObjType_None);
  EXPECT_EQ(WObjRf<WObjBody>(text)->GetWSys(), wsys);
  EXPECT_EQ(WVarObj(Build(WObjType_None, wsys), 0, true).GetWType(), WObjType_None);
  const WVarObj null(WObjRf<WObjBody>(), 0, true);
  EXPECT_EQ(null.GetWType(), WObjType_None);
  EXPECT_EQ(WObjRf<WObjBody>(null)->GetWSys(), nullptr);
}

TEST(WVarObjConversionTest, EveryKindGivesItsStylesAndItsCoordinateSystem) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  const Pen pen{3, 4, 0xFF, SLUnits_Point, true};
  const Brush brush{12, 1, 2};
  const RectXY box{0, 0, 10, 6};
  const WPLineObj pline(wsys, pen, false);
  pline->AddPart();
  for (const PointXY& vertex : Points{{0, 0}, {4, 0}, {4, 3}}) pline->AddVertex(vertex);

  for (const WObjRf<WObjBody>& object :
       {WObjRf<WObjBody>(WLineObj({0, 0}, {4, 0}, wsys, pen)), WObjRf<WObjBody>(pline),
        WObjRf<WObjBody>(WArcObj(box, Degrees(0), Degrees(90), wsys, pen))}) {
    const WVarObj builder(object, 1, false);
    EXPECT_EQ(builder.GetPen(), pen) << object->GetType();
    const WPLineObj result{WObjRf<WObjBody>(builder)};
    ASSERT_NE(result, nullptr) << object->GetType();
    EXPECT_EQ(result->GetPen(), pen) << object->GetType();
    EXPECT_EQ(result->GetWSys(), wsys) << object->GetType();
  }
  for (const WObjRf<WObjBody>& object :
       {WObjRf<WObjBody>(WRegionObj(pline, brush)), WObjRf<WObjBody>(WRectObj(box, wsys, pen, brush)),
        WObjRf<WObjBody>(WRRectObj(box, 2, wsys, pen, brush)),
        WObjRf<WObjBody>(WEllipseObj(box, wsys, pen, brush))}) {
    const WVarObj builder(object, 1, false);
    EXPECT_EQ(builder.GetPen(), pen) << object->GetType();
    EXPECT_EQ(builder.GetBrush(), brush) << object->GetType();
    const WRegionObj result{WObjRf<WObjBody>(builder)};
    ASSERT_NE(result, nullptr) << object->GetType();
    EXPECT_EQ(result->GetPen(), pen) << object->GetType();
    EXPECT_EQ(result->GetBrush(), brush) << object->GetType();
    EXPECT_EQ(result->GetWSys(), wsys) << object->GetType();
  }
}

TEST(WVarObjConversionTest, AStyleThatTheObjectLacksKeepsItsDefault) {
  const WVarObj builder(WPointObj({1, 2}, nullptr, Symbol("A", 1, 2, 3, SLUnits_Pixel)), 0, true);
  EXPECT_EQ(builder.GetPen(), Pen());
  EXPECT_EQ(builder.GetBrush(), Brush());
  EXPECT_EQ(WVarObj(WLineObj({0, 0}, {1, 1}, nullptr, Pen()), 0, true).GetSymbol(), Symbol());
}

TEST(WVarObjTest, NothingIsWithinANegativeToleranceOrOneThatIsNoNumber) {
  for (const double tolerance : {-1.0, -kInf, kNaN}) {
    const WVarObj builder = MakeBuilder(tolerance, true, {{1, 1}, {1, 1}, {2, 2}, {1, 1}});
    EXPECT_EQ(VerticesOf(builder).size(), 4U) << tolerance;
    EXPECT_EQ(builder.GetWType(), WObjType_PLine) << tolerance;
  }
}

TEST(WVarObjTest, AnInfiniteToleranceKeepsTheFirstVertex) {
  EXPECT_EQ(VerticesOf(MakeBuilder(kInf, true, {{1, 1}, {5, 5}, {9, 9}})), (Points{{1, 1}}));
}

TEST(WVarObjTest, CoordinatesThatAreNoNumbersEndToo) {
  const double odd[] = {kNaN, kInf, -kInf, 1e308, -1e308};
  for (const double a : odd) {
    for (const double b : odd) {
      const RectXY rect{a, b, b, a};
      for (const double tolerance : {0.0, 1.0, -1.0, kNaN, kInf}) {
        for (const WObjRf<WObjBody>& object :
             {WObjRf<WObjBody>(WRectObj(rect, nullptr, Pen(), Brush())),
              WObjRf<WObjBody>(WRRectObj(rect, b, nullptr, Pen(), Brush())),
              WObjRf<WObjBody>(WEllipseObj(rect, nullptr, Pen(), Brush())),
              WObjRf<WObjBody>(WArcObj(rect, Degrees(0), Degrees(90), nullptr, Pen()))}) {
          const WObjRf<WObjBody> result = WVarObj(object, tolerance, true);
          EXPECT_LE(WVarObj(result, tolerance, true).GetOutline()->Vertices().size(), 3605U);
        }
      }
    }
  }
}

}  // namespace
}  // namespace Pelor::MI
