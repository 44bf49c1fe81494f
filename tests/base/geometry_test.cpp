#include <pelor/base/arc.h>
#include <pelor/base/bounds.h>
#include <pelor/base/point.h>
#include <pelor/base/tolerance.h>

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {

using Tobri::DArray;
using Tobri::DArrayRC;
using Tobri::IRef;
using Vanth::ArcXY;
using Vanth::BoundsXY;
using Vanth::PointXY;
using Vanth::RectXY;
using Vanth::Tol;
using Vanth::Tolerance;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(PointXYTest, HoldsXAndYInThatOrder) {
  constexpr PointXY point{1.0, 2.0};
  EXPECT_EQ(point.x, 1.0);
  EXPECT_EQ(point.y, 2.0);
  EXPECT_EQ(PointXY(), (PointXY{0.0, 0.0}));
  EXPECT_NE(point, (PointXY{2.0, 1.0}));
}

TEST(RectXYTest, TheCornersStayAsGiven) {
  constexpr RectXY rect{10.0, 5.0, 4.0, 8.0};
  EXPECT_EQ(rect.x1, 10.0);
  EXPECT_EQ(rect.y1, 5.0);
  EXPECT_EQ(rect.x2, 4.0);
  EXPECT_EQ(rect.y2, 8.0);
  EXPECT_EQ(rect.Width(), -6.0);
  EXPECT_EQ(rect.Height(), 3.0);
  EXPECT_EQ(rect.Center(), (PointXY{7.0, 6.5}));
}

// --- bounds

TEST(BoundsXYTest, StartsEmpty) {
  EXPECT_TRUE(BoundsXY().IsEmpty());
  EXPECT_TRUE(BoundsXY() == BoundsXY());
}

TEST(BoundsXYTest, PointsInReverseOrderGiveTheSameBox) {
  const BoundsXY expected(1.0, 2.0, 3.0, 4.0);
  EXPECT_EQ(expected.Min(), (PointXY{1.0, 2.0}));
  EXPECT_EQ(expected.Max(), (PointXY{3.0, 4.0}));
  EXPECT_EQ(BoundsXY(PointXY{1.0, 2.0}, PointXY{3.0, 4.0}), expected);
  EXPECT_EQ(BoundsXY(PointXY{3.0, 4.0}, PointXY{1.0, 2.0}), expected);
  EXPECT_EQ(BoundsXY(PointXY{1.0, 4.0}, PointXY{3.0, 2.0}), expected);
  EXPECT_EQ(BoundsXY(3.0, 2.0, 1.0, 4.0), expected);
  EXPECT_EQ(BoundsXY(RectXY{3.0, 4.0, 1.0, 2.0}), expected);
  EXPECT_EQ(BoundsXY(RectXY{1.0, 4.0, 3.0, 2.0}), expected);
}

TEST(BoundsXYTest, ExtendingEmptyBoundsGivesTheBoxOfThePoint) {
  BoundsXY bounds;
  bounds.Extend({-3.0, 7.0});
  EXPECT_FALSE(bounds.IsEmpty());
  EXPECT_EQ(bounds, BoundsXY(-3.0, 7.0, -3.0, 7.0));
}

TEST(BoundsXYTest, ExtendGrowsOnEverySideAndNeverShrinks) {
  BoundsXY bounds(0.0, 0.0, 1.0, 1.0);
  bounds.Extend({0.5, 0.5});
  EXPECT_EQ(bounds, BoundsXY(0.0, 0.0, 1.0, 1.0));
  bounds.Extend({-1.0, 0.5});
  bounds.Extend({0.5, -2.0});
  bounds.Extend({3.0, 0.5});
  bounds.Extend({0.5, 4.0});
  EXPECT_EQ(bounds, BoundsXY(-1.0, -2.0, 3.0, 4.0));
}

TEST(BoundsXYTest, ACopyIsIndependent) {
  const BoundsXY bounds(0.0, 0.0, 1.0, 1.0);
  BoundsXY copy(bounds);
  copy.Extend({5.0, 5.0});
  EXPECT_EQ(bounds, BoundsXY(0.0, 0.0, 1.0, 1.0));
  copy = bounds;
  EXPECT_EQ(copy, bounds);
}

TEST(BoundsXYTest, TheBoxOfAnArrayHoldsAllItsPoints) {
  IRef<DArray<PointXY>> points(new DArray<PointXY>());
  EXPECT_TRUE(BoundsXY(DArrayRC<PointXY>(points)).IsEmpty());
  points->Add({1.0, 5.0});
  points->Add({-2.0, 7.0});
  points->Add({0.0, -1.0});
  EXPECT_EQ(BoundsXY(DArrayRC<PointXY>(points)), BoundsXY(-2.0, -1.0, 1.0, 7.0));
  points.AssignNull();
  EXPECT_TRUE(BoundsXY(DArrayRC<PointXY>(points)).IsEmpty()) << "a null handle is an empty array";
}

TEST(BoundsXYTest, NaNCoordinatesNeverExtendInWhicheverOrder) {
  BoundsXY bounds(0.0, 0.0, 1.0, 1.0);
  bounds.Extend({kNaN, kNaN});
  EXPECT_EQ(bounds, BoundsXY(0.0, 0.0, 1.0, 1.0));
  EXPECT_EQ(BoundsXY(kNaN, kNaN, 2.0, 3.0), BoundsXY(2.0, 3.0, 2.0, 3.0));
  EXPECT_EQ(BoundsXY(2.0, 3.0, kNaN, kNaN), BoundsXY(2.0, 3.0, 2.0, 3.0));
  BoundsXY from_nan(kNaN, kNaN, kNaN, kNaN);
  EXPECT_TRUE(from_nan.IsEmpty());
  from_nan.Extend({2.0, 3.0});
  EXPECT_EQ(from_nan, BoundsXY(2.0, 3.0, 2.0, 3.0));
}

TEST(BoundsXYTest, EmptyBoundsEqualNoBoxAndADifferentBoxIsDifferent) {
  EXPECT_FALSE(BoundsXY() == BoundsXY(0.0, 0.0, 0.0, 0.0));
  EXPECT_FALSE(BoundsXY(0.0, 0.0, 1.0, 1.0) == BoundsXY(0.0, 0.0, 1.0, 2.0));
  EXPECT_FALSE(BoundsXY(0.0, 0.0, 1.0, 1.0) == BoundsXY(-1.0, 0.0, 1.0, 1.0));
}

TEST(BoundsXYTest, AllEmptyBoundsAreEqual) {
  EXPECT_TRUE(BoundsXY() == BoundsXY(kNaN, 1.0, kNaN, 2.0));
}

// --- tolerance

TEST(ToleranceTest, AnAbsoluteToleranceComparesTheDifference) {
  const Tolerance<double> tolerance(0.5, Tol::Absolute);
  EXPECT_TRUE(tolerance.Equals(1.0, 1.0));
  EXPECT_TRUE(tolerance.Equals(1.0, 1.5)) << "the tolerance itself is within";
  EXPECT_TRUE(tolerance.Equals(1.5, 1.0));
  EXPECT_FALSE(tolerance.Equals(1.0, 1.5000000000000002));
  EXPECT_TRUE(tolerance.Equals(-0.25, 0.25));
  EXPECT_FALSE(tolerance.Equals(1e9, 1e9 + 1.0));
}

TEST(ToleranceTest, ARelativeToleranceScalesWithTheLargerMagnitude) {
  const Tolerance<double> tolerance(0.25, Tol::Relative);
  EXPECT_TRUE(tolerance.Equals(3.0, 4.0));
  EXPECT_TRUE(tolerance.Equals(4.0, 3.0));
  EXPECT_TRUE(tolerance.Equals(-4.0, -3.0));
  EXPECT_FALSE(tolerance.Equals(2.9, 4.0));
  EXPECT_TRUE(tolerance.Equals(3e9, 4e9));
  EXPECT_FALSE(tolerance.Equals(-1.0, 1.0));
  EXPECT_TRUE(tolerance.Equals(0.0, 0.0));
  EXPECT_FALSE(tolerance.Equals(0.0, 1e-300));
}

TEST(ToleranceTest, AZeroToleranceIsEqualityAndANegativeOneMatchesNothing) {
  for (const auto mode : {Tol::Absolute, Tol::Relative}) {
    EXPECT_TRUE(Tolerance<double>(0.0, mode).Equals(2.0, 2.0));
    EXPECT_TRUE(Tolerance<double>(0.0, mode).Equals(0.0, -0.0));
    EXPECT_FALSE(Tolerance<double>(0.0, mode).Equals(2.0, 2.0000000000000004));
    EXPECT_FALSE(Tolerance<double>(-1.0, mode).Equals(2.0, 2.0));
  }
}

TEST(ToleranceTest, NaNMatchesNothingAndAnInfinityOnlyItself) {
  for (const auto mode : {Tol::Absolute, Tol::Relative}) {
    const Tolerance<double> tolerance(0.5, mode);
    EXPECT_FALSE(tolerance.Equals(kNaN, kNaN));
    EXPECT_FALSE(tolerance.Equals(kNaN, 1.0));
    EXPECT_FALSE(tolerance.Equals(1.0, kNaN));
    EXPECT_TRUE(tolerance.Equals(kInf, kInf));
    EXPECT_FALSE(tolerance.Equals(kInf, -kInf));
    EXPECT_FALSE(tolerance.Equals(kInf, 1.0));
    EXPECT_FALSE(tolerance.Equals(1.0, -kInf));
    EXPECT_FALSE(Tolerance<double>(kNaN, mode).Equals(1.0, 1.0));
    EXPECT_FALSE(Tolerance<double>(kNaN, mode).Equals(1.0, 2.0));
  }
}

// --- arc

TEST(ArcXYTest, GivesItsPointsInTheOrderInWhichTheyWereAdded) {
  ArcXY arc;
  EXPECT_TRUE(arc.Points().empty());
  const std::vector<PointXY> points{{1.0, 2.0}, {3.0, 4.0}, {1.0, 2.0}};
  for (const PointXY& point : points) arc.Add(point);
  EXPECT_EQ(std::vector<PointXY>(arc.Points().begin(), arc.Points().end()), points);
}

TEST(ArcXYTest, ACopyIsIndependent) {
  ArcXY arc;
  arc.Add({1.0, 2.0});
  ArcXY copy(arc);
  copy.Add({3.0, 4.0});
  EXPECT_EQ(arc.Points().size(), 1U);
  EXPECT_EQ(copy.Points().size(), 2U);
}

}  // namespace
