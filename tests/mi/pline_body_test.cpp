#include <pelor/mi/pline_body.h>

#include <climits>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tests/mi/objects.h>

namespace Pelor::MI {
namespace {

using Vanth::BoundsXY;
using Vanth::PointXY;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// The vertices of all parts, part by part.
std::vector<Points> PartsOf(const WPLineBody& pline) {
  std::vector<Points> parts;
  for (int part = 0; part < pline.GetNParts(); ++part) parts.push_back(PointsOf(pline.Vertices(part)));
  return parts;
}

TEST(WPLineBodyTest, ANewPolylineHasNothing) {
  WPLineBody pline(nullptr);
  EXPECT_EQ(pline.GetNParts(), 0);
  EXPECT_TRUE(pline.Vertices().empty());
  EXPECT_FALSE(pline.GetIsSmooth());
  EXPECT_EQ(pline.GetPen(), Pen());
  EXPECT_EQ(pline.GetLength(), 0.0);
  EXPECT_TRUE(pline.GetBounds().IsEmpty());
  EXPECT_EQ(Radians(pline.GetAlignment()), 0.0);
  pline.Apply({2, 3, 10, 20});
  pline.CloseParts();
  EXPECT_TRUE(pline.Vertices().empty());
}

TEST(WPLineBodyTest, EmptyBeginsOnePart) {
  WPLineBody pline(nullptr);
  pline.Empty();
  EXPECT_EQ(pline.GetNParts(), 1);
  pline.AddVertex({1, 1});
  pline.AddVertex({2, 2});
  pline.AddPart();
  pline.AddVertex({3, 3});
  pline.Empty();
  EXPECT_EQ(PartsOf(pline), (std::vector<Points>{{}}));
}

TEST(WPLineBodyTest, AddPartTwiceGivesOnePart) {
  WPLineBody pline(nullptr);
  pline.AddPart();
  pline.AddPart();
  EXPECT_EQ(pline.GetNParts(), 1);
}

TEST(WPLineBodyTest, AddPartAfterOneVertexStillGivesOnePart) {
  WPLineBody pline(nullptr);
  pline.AddPart();
  pline.AddVertex({1, 1});
  pline.AddPart();
  pline.AddVertex({2, 2});
  EXPECT_EQ(PartsOf(pline), (std::vector<Points>{{{1, 1}, {2, 2}}}));
  pline.AddPart();
  EXPECT_EQ(PartsOf(pline), (std::vector<Points>{{{1, 1}, {2, 2}}, {}}));
  pline.AddPart();
  pline.AddVertex({3, 3});
  pline.AddPart();
  pline.AddVertex({4, 4});
  EXPECT_EQ(PartsOf(pline), (std::vector<Points>{{{1, 1}, {2, 2}}, {{3, 3}, {4, 4}}}));
}

TEST(WPLineBodyTest, AddPartDiscardsVerticesOutsideOfParts) {
  WPLineBody pline(nullptr);
  pline.AddVertex({1, 1});
  pline.AddVertex({2, 2});
  pline.AddVertex({3, 3});
  EXPECT_EQ(pline.GetNParts(), 0);
  EXPECT_EQ(pline.Vertices().size(), 3U);
  pline.AddPart();
  EXPECT_EQ(PartsOf(pline), (std::vector<Points>{{}}));
  EXPECT_TRUE(pline.Vertices().empty());
}

TEST(WPLineBodyTest, VerticesLieInOneRun) {
  const WPLineObj pline = MakePLine({{{0, 0}, {1, 0}}, {{2, 0}, {3, 0}, {4, 0}}});
  EXPECT_EQ(PointsOf(pline->Vertices()), (Points{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}}));
  EXPECT_EQ(pline->Vertices(1).data(), pline->Vertices().data() + 2);
}

TEST(WPLineBodyTest, CountsAndVerticesOfParts) {
  const WPLineObj pline = MakePLine({{{0, 0}, {1, 0}}, {{2, 0}, {3, 0}, {4, 0}}});
  EXPECT_EQ(pline->GetNParts(), 2);
  EXPECT_EQ(pline->GetNVertices(0), 2);
  EXPECT_EQ(pline->GetNVertices(1), 3);
  EXPECT_EQ(pline->GetVertex(0, 0), (PointXY{0, 0}));
  EXPECT_EQ(pline->GetVertex(1, 0), (PointXY{1, 0}));
  EXPECT_EQ(pline->GetVertex(2, 1), (PointXY{4, 0}));
}

TEST(WPLineBodyTest, AVertexIndexBeyondItsPartReadsOnInTheRun) {
  const WPLineObj pline = MakePLine({{{0, 0}, {1, 0}}, {{2, 0}, {3, 0}, {4, 0}}});
  EXPECT_EQ(pline->GetVertex(2, 0), (PointXY{2, 0}));
  EXPECT_EQ(pline->GetVertex(-1, 1), (PointXY{1, 0}));
}

TEST(WPLineBodyTest, PartsOutOfRangeGiveZeros) {
  const WPLineObj pline = MakePLine({{{1, 1}, {2, 2}}});
  for (const int part : {-1, 1, INT_MIN, INT_MAX}) {
    EXPECT_EQ(pline->GetNVertices(part), 0);
    EXPECT_EQ(pline->GetVertex(0, part), (PointXY{0, 0}));
    EXPECT_EQ(pline->GetVertex(INT_MAX, part), (PointXY{0, 0}));
    EXPECT_TRUE(pline->Vertices(part).empty());
    EXPECT_FALSE(pline->NeedsClosing(part));
    pline->InsertVertex({9, 9}, 0, part);
    EXPECT_EQ(PartsOf(*pline), (std::vector<Points>{{{1, 1}, {2, 2}}}));
  }
}

TEST(WPLineBodyTest, FirstAndLastVertexAreThoseOfTheWholeRun) {
  PointXY point{7, 7};
  EXPECT_FALSE(WPLineBody(nullptr).GetFirstVertex(point));
  EXPECT_FALSE(WPLineBody(nullptr).GetLastVertex(point));
  EXPECT_EQ(point, (PointXY{7, 7}));
  const WPLineObj pline = MakePLine({{{1, 1}, {2, 2}}, {{3, 3}, {4, 4}}});
  EXPECT_TRUE(pline->GetFirstVertex(point));
  EXPECT_EQ(point, (PointXY{1, 1}));
  EXPECT_TRUE(pline->GetLastVertex(point));
  EXPECT_EQ(point, (PointXY{4, 4}));
}

TEST(WPLineBodyTest, InsertVertexWithANegativePositionInsertsAtTheStartOfThePart) {
  for (const int pos : {-1, INT_MIN}) {
    const WPLineObj pline = MakePLine({{{1, 1}, {2, 2}}, {{3, 3}, {4, 4}}});
    pline->InsertVertex({9, 9}, pos, 1);
    EXPECT_EQ(PartsOf(*pline), (std::vector<Points>{{{1, 1}, {2, 2}}, {{9, 9}, {3, 3}, {4, 4}}}));
    pline->InsertVertex({8, 8}, pos, 0);
    EXPECT_EQ(PartsOf(*pline), (std::vector<Points>{{{8, 8}, {1, 1}, {2, 2}}, {{9, 9}, {3, 3}, {4, 4}}}));
  }
}

TEST(WPLineBodyTest, InsertVertexBeyondTheEndAppendsToThePartAndShiftsTheLaterOnes) {
  for (const int pos : {2, 3, INT_MAX}) {
    const WPLineObj pline = MakePLine({{{1, 1}, {2, 2}}, {{3, 3}, {4, 4}}, {{5, 5}, {6, 6}}});
    pline->InsertVertex({9, 9}, pos, 0);
    EXPECT_EQ(PartsOf(*pline),
              (std::vector<Points>{{{1, 1}, {2, 2}, {9, 9}}, {{3, 3}, {4, 4}}, {{5, 5}, {6, 6}}}));
    pline->InsertVertex({8, 8}, pos, 2);
    EXPECT_EQ(PartsOf(*pline),
              (std::vector<Points>{{{1, 1}, {2, 2}, {9, 9}}, {{3, 3}, {4, 4}}, {{5, 5}, {6, 6}, {8, 8}}}));
  }
}

TEST(WPLineBodyTest, InsertVertexInTheMiddleAndIntoAnEmptyPart) {
  const WPLineObj pline = MakePLine({{{1, 1}, {2, 2}}});
  pline->InsertVertex({9, 9}, 1, 0);
  EXPECT_EQ(PartsOf(*pline), (std::vector<Points>{{{1, 1}, {9, 9}, {2, 2}}}));
  WPLineBody empty(nullptr);
  empty.AddPart();
  empty.InsertVertex({1, 1}, 5, 0);
  EXPECT_EQ(PartsOf(empty), (std::vector<Points>{{{1, 1}}}));
}

TEST(WPLineBodyTest, BoundsAndCentroidAreThoseOfAllVertices) {
  const WPLineObj pline = MakePLine({{{1, 5}, {3, 2}}, {{8, 1}, {0, 0}}});
  EXPECT_EQ(pline->GetBounds(), BoundsXY(0, 0, 8, 5));
  EXPECT_EQ(pline->GetCentroid(), (PointXY{3, 2}));
  EXPECT_EQ(pline->GetArea(), 0.0);
}

TEST(WPLineBodyTest, TheCentroidOfNoVerticesIsNotANumber) {
  const PointXY centroid = WPLineBody(nullptr).GetCentroid();
  EXPECT_TRUE(std::isnan(centroid.x));
  EXPECT_TRUE(std::isnan(centroid.y));
}

TEST(WPLineBodyTest, TheLengthSkipsTheGapsBetweenParts) {
  const WPLineObj pline = MakePLine({{{0, 0}, {3, 4}, {3, 5}}, {{100, 0}, {100, 2}}});
  EXPECT_EQ(pline->GetLength(), 8.0);
}

TEST(WPLineBodyTest, PartsOfTwoVerticesHaveNoAlignment) {
  EXPECT_EQ(Radians(MakePLine({{{0, 0}, {1, 1}}, {{2, 2}, {2, 9}}})->GetAlignment()), 0.0);
}

TEST(WPLineBodyTest, AlignmentIsTheMiddleSegmentOfTheFirstLongPart) {
  // 3 vertices: the segment from 0 to 1.
  EXPECT_EQ(
      Radians(
          MakePLine({{{0, 0}, {1, 1}}, {{0, 0}, {0, 2}, {9, 9}}, {{0, 0}, {1, 0}, {2, 0}}})->GetAlignment()),
      std::atan2(2.0, 0.0));
  // 4 vertices: from 1 to 2; 5 vertices: from 1 to 2, too.
  EXPECT_EQ(Radians(MakePLine({{{0, 0}, {1, 0}, {0, -1}, {5, 5}}})->GetAlignment()), std::atan2(-1.0, -1.0));
  EXPECT_EQ(Radians(MakePLine({{{0, 0}, {1, 0}, {0, -1}, {5, 5}, {6, 6}}})->GetAlignment()),
            std::atan2(-1.0, -1.0));
}

TEST(WPLineBodyTest, ApplyTransformsEveryVertex) {
  const WPLineObj pline = MakePLine({{{0, 0}, {1, 1}}, {{2, 2}, {3, 3}}});
  pline->Apply({2, 3, 10, 20});
  EXPECT_EQ(PartsOf(*pline), (std::vector<Points>{{{10, 20}, {12, 23}}, {{14, 26}, {16, 29}}}));
}

TEST(WPLineBodyTest, ACloneIsIndependent) {
  WPLineObj pline = MakePLine({{{1, 1}, {2, 2}}});
  pline->SetIsSmooth(true);
  const Pen pen{3, 4, 0xFF, SLUnits_Point, true};
  pline->SetPen(pen);
  WPLineObj clone = pline;
  clone.Copy();
  EXPECT_EQ(clone->GetPen(), pen);
  EXPECT_TRUE(clone->GetIsSmooth());
  EXPECT_NE(clone->Vertices().data(), pline->Vertices().data());
  clone->AddVertex({3, 3});
  clone->AddPart();
  clone->SetIsSmooth(false);
  pline->InsertVertex({9, 9}, 0, 0);
  EXPECT_EQ(PartsOf(*pline), (std::vector<Points>{{{9, 9}, {1, 1}, {2, 2}}}));
  EXPECT_EQ(PartsOf(*clone), (std::vector<Points>{{{1, 1}, {2, 2}, {3, 3}}, {}}));
  EXPECT_TRUE(pline->GetIsSmooth());
  EXPECT_FALSE(clone->GetIsSmooth());
}

TEST(WPLineBodyTest, AssignmentMakesPrivateCopies) {
  const WPLineObj pline = MakePLine({{{1, 1}, {2, 2}}});
  WPLineBody other(nullptr);
  other.AddPart();
  other = *pline;
  EXPECT_NE(other.Vertices().data(), pline->Vertices().data());
  other.AddVertex({3, 3});
  pline->AddPart();
  EXPECT_EQ(PartsOf(other), (std::vector<Points>{{{1, 1}, {2, 2}, {3, 3}}}));
  EXPECT_EQ(PartsOf(*pline), (std::vector<Points>{{{1, 1}, {2, 2}}, {}}));
  const WPLineBody& self = other;
  other = self;
  EXPECT_EQ(PartsOf(other), (std::vector<Points>{{{1, 1}, {2, 2}, {3, 3}}}));
}

TEST(WPLineBodyTest, CopyOfAnUnsharedPolylineMovesNoVertex) {
  WPLineObj pline = MakePLine({{{1, 1}, {2, 2}}});
  const PointXY* const vertices = pline->Vertices().data();
  pline.Copy();
  pline->AddVertex({3, 3});
  EXPECT_EQ(pline->Vertices().data(), vertices);
}

TEST(WPLineBodyTest, AVertexOfThePolylineItselfCanBeAdded) {
  WPLineBody pline(nullptr);
  pline.AddPart();
  pline.AddVertex({1, 2});
  for (int i = 0; i < 100; ++i) pline.AddVertex(pline.Vertices().front());
  EXPECT_EQ(PointsOf(pline.Vertices()), Points(101, {1, 2}));
}

TEST(WPLineBodyTest, ClosePartsClosesEveryOpenPartInOnePass) {
  const WPLineObj pline = MakePLine({{{0, 0}, {1, 0}, {1, 1}},
                                     {{2, 0}, {3, 0}, {2, 0}},
                                     {{4, 0}, {5, 0}},
                                     {{6, 0}, {7, 0}, {7, 1}, {6, 1}},
                                     {{8, 0}}});
  EXPECT_TRUE(pline->NeedsClosing());
  EXPECT_TRUE(pline->NeedsClosing(0));
  EXPECT_FALSE(pline->NeedsClosing(1));
  EXPECT_FALSE(pline->NeedsClosing(4));
  pline->CloseParts();
  const std::vector<Points> closed{{{0, 0}, {1, 0}, {1, 1}, {0, 0}},
                                   {{2, 0}, {3, 0}, {2, 0}},
                                   {{4, 0}, {5, 0}, {4, 0}},
                                   {{6, 0}, {7, 0}, {7, 1}, {6, 1}, {6, 0}},
                                   {{8, 0}}};
  EXPECT_EQ(PartsOf(*pline), closed);
  EXPECT_FALSE(pline->NeedsClosing());
  pline->CloseParts();
  EXPECT_EQ(PartsOf(*pline), closed);
}

TEST(WPLineBodyTest, CoordinatesThatAreNoNumbersAreHarmless) {
  const WPLineObj pline = MakePLine({{{kNaN, 0}, {1, 1}, {kInf, -kInf}}, {{kNaN, kNaN}, {2, 2}}});
  EXPECT_EQ(pline->GetBounds().Max().x, kInf);
  EXPECT_TRUE(std::isnan(pline->GetCentroid().x));
  EXPECT_FALSE(pline->GetLength() < kInf);
  EXPECT_TRUE(std::isnan(Radians(pline->GetAlignment())));
  pline->Apply({kNaN, kInf, 0, 0});
  pline->CloseParts();
  EXPECT_EQ(pline->GetNVertices(0), 4);
  EXPECT_EQ(pline->GetNVertices(1), 3);
}

}  // namespace
}  // namespace Pelor::MI
