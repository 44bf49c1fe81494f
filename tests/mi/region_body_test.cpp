#include <pelor/mi/region_body.h>

#include <climits>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tests/mi/objects.h>

namespace Pelor::MI {
namespace {

using Vanth::BoundsXY;
using Vanth::PointXY;

const Points kTriangle{{0, 0}, {4, 0}, {4, 3}};
const Points kClosedTriangle{{0, 0}, {4, 0}, {4, 3}, {0, 0}};

TEST(WRegionBodyTest, ANewRegionIsClosedAndEmpty) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  const WRegionObj region(wsys);
  EXPECT_EQ(region->GetNParts(), 0);
  EXPECT_EQ(region->GetNTotalVertices(), 0);
  EXPECT_EQ(region->GetCentroid(), (PointXY{0, 0}));
  EXPECT_EQ(region->GetPen(), Pen());
  EXPECT_EQ(region->GetBrush(), Brush());
  const WPLineObj outline = region->GetOutline();
  EXPECT_EQ(outline->GetWSys(), wsys);
  EXPECT_EQ(outline->GetPen(), Pen());
  EXPECT_FALSE(outline->GetIsSmooth());
  EXPECT_TRUE(region->GetBounds().IsEmpty());
}

TEST(WRegionBodyTest, TheOutlineHasThePenOfTheRegion) {
  Pen pen;
  pen.width = 7;
  EXPECT_EQ(WRegionObj(nullptr, pen, Brush())->GetOutline()->GetPen(), pen);
}

TEST(WRegionBodyTest, EmptyBeginsOnePartAndForgetsTheCentroid) {
  const WRegionObj region = MakeRegion({kTriangle});
  region->SetCentroid({5, 5});
  region->Empty();
  EXPECT_EQ(region->GetNParts(), 1);
  EXPECT_EQ(region->GetNVertices(0), 0);
  EXPECT_EQ(region->GetCentroid(), (PointXY{0, 0}));
  EXPECT_EQ(region->GetNTotalVertices(), 0);
}

TEST(WRegionBodyTest, AddPartClosesTheRingBefore) {
  const WRegionObj region = MakeRegion({kTriangle});
  EXPECT_EQ(region->GetNVertices(0), 3);
  region->AddPart();
  EXPECT_EQ(region->GetNParts(), 2);
  EXPECT_EQ(region->GetNVertices(0), 4);
  EXPECT_EQ(region->GetVertex(3, 0), (PointXY{0, 0}));
}

TEST(WRegionBodyTest, ReadingOperationsCloseTheLastRing) {
  EXPECT_EQ(MakeRegion({kTriangle})->GetLength(), 12.0);
  EXPECT_EQ(MakeRegion({kTriangle})->GetNTotalVertices(), 4);
  EXPECT_EQ(PointsOf(MakeRegion({kTriangle})->GetOutline()->Vertices()), kClosedTriangle);
  const WRegionObj area = MakeRegion({kTriangle});
  EXPECT_EQ(area->GetArea(), 0.0);
  EXPECT_EQ(area->GetNVertices(0), 4);
  const WRegionObj moved = MakeRegion({kTriangle});
  moved->Apply({1, 1, 0, 0});
  EXPECT_EQ(moved->GetNVertices(0), 4);
}

TEST(WRegionBodyTest, BoundsAndVertexQueriesLeaveTheRingOpen) {
  const WRegionObj region = MakeRegion({kTriangle});
  EXPECT_EQ(region->GetBounds(), BoundsXY(0, 0, 4, 3));
  EXPECT_EQ(Radians(region->GetAlignment()), 0.0);
  EXPECT_EQ(region->GetVertex(2, 0), (PointXY{4, 3}));
  EXPECT_EQ(region->GetNVertices(0), 3);
}

TEST(WRegionBodyTest, TheAreaIsAlwaysZero) {
  EXPECT_EQ(MakeRegion({{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}})->GetArea(), 0.0);
}

TEST(WRegionBodyTest, AClosedRingGetsNoVertex) {
  const WRegionObj region = MakeRegion({kClosedTriangle});
  region->Close();
  region->Close(0);
  EXPECT_EQ(region->GetNVertices(0), 4);
}

TEST(WRegionBodyTest, ARingOfOneVertexIsLeftAsItIs) {
  const WRegionObj region = MakeRegion({{{1, 1}}});
  region->Close();
  EXPECT_EQ(region->GetNVertices(0), 1);
  region->AddPart();
  EXPECT_EQ(region->GetNParts(), 1);
}

TEST(WRegionBodyTest, ClosingComparesExactly) {
  const WRegionObj region = MakeRegion({{{1, 1}, {2, 2}, {1, std::nextafter(1.0, 2.0)}}});
  region->Close();
  EXPECT_EQ(region->GetNVertices(0), 4);
  EXPECT_EQ(region->GetVertex(3, 0), (PointXY{1, 1}));
}

TEST(WRegionBodyTest, CloseOfAPartShiftsTheLaterOnes) {
  const WPLineObj pline = MakePLine({{{0, 0}, {1, 0}, {0, 0}}, {{5, 5}, {6, 5}, {5, 5}}});
  const WRegionObj region(pline, Brush());
  WPLineObj outline = region->GetOutline();
  outline->InsertVertex({9, 9}, 3, 0);  // a holder of the shared outline opens ring 0 again
  region->Close(0);
  EXPECT_EQ(region->GetNVertices(0), 5);
  EXPECT_EQ(region->GetVertex(4, 0), (PointXY{0, 0}));
  EXPECT_EQ(region->GetVertex(0, 1), (PointXY{5, 5}));
  EXPECT_EQ(region->GetNVertices(1), 3);
}

TEST(WRegionBodyTest, PartsOutOfRangeGiveZerosAndCloseNothing) {
  const WRegionObj region = MakeRegion({kTriangle});
  for (const int part : {-1, 1, INT_MIN, INT_MAX}) {
    EXPECT_EQ(region->GetNVertices(part), 0);
    EXPECT_EQ(region->GetVertex(0, part), (PointXY{0, 0}));
    region->Close(part);
  }
  EXPECT_EQ(region->GetNVertices(0), 3);
}

TEST(WRegionBodyTest, VerticesBeforeTheFirstPartAreDiscarded) {
  const WRegionObj region(nullptr, Pen(), Brush());
  region->AddVertex({1, 1});
  region->AddVertex({2, 2});
  region->Close();
  EXPECT_EQ(region->GetNTotalVertices(), 2);
  region->AddPart();
  EXPECT_EQ(region->GetNParts(), 1);
  EXPECT_EQ(region->GetNTotalVertices(), 0);
}

TEST(WRegionBodyTest, TheCentroidIsTheMeanUntilItIsSet) {
  const WRegionObj region = MakeRegion({{{0, 0}, {4, 0}, {4, 4}, {0, 4}}});
  EXPECT_EQ(region->GetCentroid(), (PointXY{2, 2}));
  region->Close();  // the first vertex counts twice now
  EXPECT_EQ(region->GetCentroid(), (PointXY{1.6, 1.6}));
  region->SetCentroid({9, 9});
  EXPECT_EQ(region->GetCentroid(), (PointXY{9, 9}));
  region->AddVertex({4, 0});
  EXPECT_EQ(region->GetCentroid(), (PointXY{2, 8.0 / 6}));
}

TEST(WRegionBodyTest, AClosingVertexForgetsACentroidThatWasSet) {
  const WRegionObj open = MakeRegion({{{0, 0}, {4, 0}, {4, 4}, {0, 4}}});
  open->SetCentroid({9, 9});
  EXPECT_EQ(open->GetCentroid(), (PointXY{9, 9}));
  EXPECT_EQ(open->GetArea(), 0.0);
  EXPECT_EQ(open->GetCentroid(), (PointXY{1.6, 1.6}));
  const WRegionObj closed = MakeRegion({kClosedTriangle});
  closed->SetCentroid({9, 9});
  closed->Close();
  EXPECT_EQ(closed->GetCentroid(), (PointXY{9, 9})) << "nothing was added";
}

TEST(WRegionBodyTest, AskingForTheCentroidDoesNotSetIt) {
  const WRegionObj region = MakeRegion({{{0, 0}, {4, 0}, {4, 4}, {0, 0}}});
  EXPECT_EQ(region->GetCentroid(), (PointXY{2, 1}));
  region->GetOutline()->AddVertex({2, 6});  // in the shared outline
  EXPECT_EQ(region->GetCentroid(), (PointXY{2, 2}));
}

TEST(WRegionBodyTest, ApplyMovesOutlineAndSetCentroid) {
  const WRegionObj region = MakeRegion({kTriangle});
  region->Close();
  region->SetCentroid({1, 1});
  region->Apply({2, 3, 10, 20});
  EXPECT_EQ(PointsOf(region->GetOutline()->Vertices()), (Points{{10, 20}, {18, 20}, {18, 29}, {10, 20}}));
  EXPECT_EQ(region->GetCentroid(), (PointXY{12, 23}));
}

TEST(WRegionBodyTest, ApplyRecomputesACentroidThatIsNotSet) {
  const WRegionObj region = MakeRegion({{{0, 0}, {4, 0}, {4, 4}, {0, 0}}});
  EXPECT_EQ(region->GetCentroid(), (PointXY{2, 1}));
  region->Apply({2, 3, 10, 20});
  EXPECT_EQ(region->GetCentroid(), (PointXY{14, 23}));
}

TEST(WRegionBodyTest, MadeFromAClosedPolylineItSharesTheBody) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  WPLineObj pline = MakePLine({kClosedTriangle, {{5, 5}, {6, 6}, {5, 5}}});
  Pen pen;
  pen.width = 3;
  Brush brush;
  brush.pattern = 12;
  pline->SetPen(pen);
  pline->SetWSys(wsys);
  const WRegionObj region(pline, brush);
  EXPECT_EQ(region->GetOutline().Get(), pline.Get());
  EXPECT_EQ(region->GetPen(), pen);
  EXPECT_EQ(region->GetBrush(), brush);
  EXPECT_EQ(region->GetWSys(), wsys);
  EXPECT_EQ(region->GetCentroid(), pline->GetCentroid());
}

TEST(WRegionBodyTest, MadeFromAnOpenPolylineItClosesACopy) {
  const WPLineObj pline = MakePLine({kTriangle, {{5, 5}, {6, 6}}, {{9, 9}}});
  const WRegionObj region(pline, Brush());
  EXPECT_EQ(pline->Vertices().size(), 6U);
  EXPECT_EQ(PointsOf(region->GetOutline()->Vertices(0)), kClosedTriangle);
  EXPECT_EQ(PointsOf(region->GetOutline()->Vertices(1)), (Points{{5, 5}, {6, 6}, {5, 5}}));
  EXPECT_EQ(PointsOf(region->GetOutline()->Vertices(2)), (Points{{9, 9}}));
  EXPECT_EQ(pline->RefCount(), 1U);
}

TEST(WRegionBodyTest, MadeFromAPolylineThatNobodyElseHoldsItTakesItOver) {
  WPLineObj pline = MakePLine({kTriangle});
  const WPLineBody* const body = pline.Get();
  const WRegionObj region(std::move(pline), Brush());
  EXPECT_EQ(region->GetNVertices(0), 4);
  EXPECT_EQ(region->GetOutline().Get(), body);
}

TEST(WRegionBodyTest, MadeFromANullPolylineItIsEmpty) {
  Brush brush;
  brush.pattern = 12;
  const WRegionObj region(WPLineObj(), brush);
  EXPECT_EQ(region->GetNParts(), 0);
  EXPECT_EQ(region->GetBrush(), brush);
  EXPECT_EQ(region->GetPen(), Pen());
  EXPECT_EQ(region->GetWSys(), nullptr);
  EXPECT_EQ(region->GetCentroid(), (PointXY{0, 0}));
  region->AddPart();
  region->AddVertex({1, 1});
  EXPECT_EQ(region->GetNTotalVertices(), 1);
}

TEST(WRegionBodyTest, ARegionWithoutANewVertexCountsAsClosed) {
  // An open ring comes in through a share of the outline, behind the region's back.
  const auto add_ring = [](const WPLineObj& outline) {
    outline->AddPart();
    for (const PointXY& vertex : kTriangle) outline->AddVertex(vertex);
  };
  const WRegionObj fresh(nullptr, Pen(), Brush());
  add_ring(fresh->GetOutline());
  EXPECT_EQ(fresh->GetNTotalVertices(), 3);
  const WPLineObj pline = MakePLine({kClosedTriangle});
  const WRegionObj made(pline, Brush());
  add_ring(pline);
  EXPECT_EQ(made->GetNTotalVertices(), 4 + 3);
}

TEST(WRegionBodyTest, NoChangeOfTheRegionReachesThePolyline) {
  const WPLineObj pline = MakePLine({kClosedTriangle});
  const auto expect_untouched = [&](const char* change) {
    EXPECT_EQ(PointsOf(pline->Vertices()), kClosedTriangle) << change;
    EXPECT_EQ(pline->GetNParts(), 1) << change;
    EXPECT_EQ(pline->GetPen(), Pen()) << change;
  };
  WRegionObj(pline, Brush())->AddVertex({9, 9});
  expect_untouched("AddVertex");
  WRegionObj(pline, Brush())->AddPart();
  expect_untouched("AddPart");
  WRegionObj(pline, Brush())->Empty();
  expect_untouched("Empty");
  WRegionObj(pline, Brush())->Apply({2, 2, 2, 2});
  expect_untouched("Apply");
  Pen pen;
  pen.width = 7;
  WRegionObj(pline, Brush())->SetPen(pen);
  expect_untouched("SetPen");
}

TEST(WRegionBodyTest, SetPenReachesTheOutlineThroughTheBaseClassToo) {
  const WRegionObj region = MakeRegion({kTriangle});
  Pen pen;
  pen.width = 7;
  W2DBody& base = *region;
  base.SetPen(pen);
  EXPECT_EQ(region->GetPen(), pen);
  EXPECT_EQ(region->GetOutline()->GetPen(), pen);
}

TEST(WRegionBodyTest, AClonesOutlineIsSharedUntilTheFirstChange) {
  const WRegionObj region = MakeRegion({kClosedTriangle});
  const WRegionObj clone(WObjRf<WObjBody>(region->Clone()));
  EXPECT_EQ(clone->GetOutline().Get(), region->GetOutline().Get());
  clone->AddVertex({9, 9});
  EXPECT_NE(clone->GetOutline().Get(), region->GetOutline().Get());
  EXPECT_EQ(region->GetNTotalVertices(), 4);
  EXPECT_EQ(clone->GetNTotalVertices(), 6);
}

TEST(WRegionBodyTest, ACloneHasTheStylesAndTheCentroid) {
  const Pen pen{3, 4, 0xFF, SLUnits_Point, true};
  const Brush brush{12, 1, 2};
  const WRegionObj region(nullptr, pen, brush);
  region->SetCentroid({5, 6});
  const WRegionObj clone(WObjRf<WObjBody>(region->Clone()));
  EXPECT_EQ(clone->GetPen(), pen);
  EXPECT_EQ(clone->GetBrush(), brush);
  EXPECT_EQ(clone->GetCentroid(), (PointXY{5, 6}));
}

TEST(WRegionBodyTest, ClosingACloneLeavesTheOriginalOpen) {
  const WRegionObj region = MakeRegion({kTriangle});
  const WRegionObj clone(WObjRf<WObjBody>(region->Clone()));
  clone->Close();
  EXPECT_EQ(clone->GetNVertices(0), 4);
  EXPECT_EQ(region->GetNVertices(0), 3);
}

TEST(WRegionBodyTest, AnAssignedRegionIsIndependent) {
  const WRegionObj region = MakeRegion({kClosedTriangle});
  const WRegionObj other(nullptr, Pen(), Brush());
  *other = *region;
  other->AddVertex({9, 9});
  EXPECT_EQ(region->GetNTotalVertices(), 4);
  EXPECT_EQ(other->GetNTotalVertices(), 6);
}

TEST(WRegionBodyTest, AddingToAnUnsharedOutlineCopiesNothing) {
  const WRegionObj region = MakeRegion({kTriangle});
  const WPLineBody* const body = region->GetOutline().Get();
  const PointXY* const vertices = body->Vertices().data();
  region->AddVertex({5, 5});
  region->AddVertex({6, 6});
  EXPECT_EQ(region->GetOutline().Get(), body);
  EXPECT_EQ(body->Vertices().data(), vertices);
}

TEST(WRegionBodyTest, ARingThatNeverEqualsItselfIsClosedOnce) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const WRegionObj region = MakeRegion({{{nan, 0}, {1, 1}}});
  EXPECT_EQ(region->GetNTotalVertices(), 3);
  EXPECT_EQ(region->GetNTotalVertices(), 3);
}

}  // namespace
}  // namespace Pelor::MI
