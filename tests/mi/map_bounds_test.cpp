#include <pelor/mi/map_bounds.h>

#include <gtest/gtest.h>

#include <limits>

namespace Pelor::MI {
namespace {

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

/// A box by its four fields, in whatever order they are.
MBnds Raw(std::int32_t xmin, std::int32_t ymin, std::int32_t xmax, std::int32_t ymax) {
  MBnds bounds;
  bounds.xmin = xmin;
  bounds.ymin = ymin;
  bounds.xmax = xmax;
  bounds.ymax = ymax;
  return bounds;
}

TEST(MPntTest, SumsAndDifferencesGoByComponent) {
  EXPECT_EQ((MPnt{1, -2} + MPnt{10, 20}), (MPnt{11, 18}));
  EXPECT_EQ((MPnt{1, -2} - MPnt{10, 20}), (MPnt{-9, -22}));
}

TEST(MPntTest, SumsAndDifferencesWrapAround) {
  EXPECT_EQ((MPnt{kMax, kMin} + MPnt{1, -1}), (MPnt{kMin, kMax}));
  EXPECT_EQ((MPnt{kMin, kMax} - MPnt{1, -1}), (MPnt{kMax, kMin}));
  EXPECT_EQ((MPnt{0, kMin} - MPnt{kMin, kMin}), (MPnt{kMin, 0}));
}

TEST(MRctTest, CornersStayAsGiven) {
  const MRct rect{{5, 6}, {1, 2}};
  EXPECT_EQ(rect.p1, (MPnt{5, 6}));
  EXPECT_EQ(rect.p2, (MPnt{1, 2}));
}

TEST(MBndsTest, TheEmptyBoxHasTheExtremesCrossed) {
  EXPECT_EQ(MBnds(), Raw(kMax, kMax, kMin, kMin));
  EXPECT_TRUE(MBnds().IsEmpty());
  MBnds bounds(1, 2, 3, 4);
  EXPECT_FALSE(bounds.IsEmpty());
  bounds.Empty();
  EXPECT_EQ(bounds, MBnds());
}

TEST(MBndsTest, OneCrossedAxisMakesABoxEmpty) {
  EXPECT_TRUE(Raw(1, 0, 0, 10).IsEmpty());
  EXPECT_TRUE(Raw(0, 1, 10, 0).IsEmpty());
  EXPECT_FALSE(Raw(0, 0, 0, 0).IsEmpty());
}

TEST(MBndsTest, EveryConstructorPutsTheCornersInOrder) {
  const MBnds expected = Raw(1, 2, 3, 4);
  EXPECT_EQ(MBnds(1, 2, 3, 4), expected);
  EXPECT_EQ(MBnds(3, 4, 1, 2), expected);
  EXPECT_EQ(MBnds(3, 2, 1, 4), expected);
  EXPECT_EQ(MBnds(1, 4, 3, 2), expected);
  EXPECT_EQ(MBnds(MPnt{3, 4}, MPnt{1, 2}), expected);
  EXPECT_EQ(MBnds(MRct{{3, 2}, {1, 4}}), expected);
  EXPECT_EQ(MBnds(MPnt{5, 6}), Raw(5, 6, 5, 6));
}

TEST(MBndsTest, LongNumbersCountByTheirLow32Bits) {
  EXPECT_EQ(MBnds(0x7fffffffL, -1L, -0x7fffffffL - 1, 0L), Raw(kMin, -1, kMax, 0));
  if constexpr (sizeof(long) > 4) {
    EXPECT_EQ(MBnds(0x1'0000'0005, 0, 7, 0), Raw(5, 0, 7, 0));
  }
}

TEST(MBndsTest, SortExchangesTheLimitsOfAnAxis) {
  MBnds bounds = Raw(5, 6, 1, 2);
  bounds.sort();
  EXPECT_EQ(bounds, Raw(1, 2, 5, 6));
  bounds.sort();
  EXPECT_EQ(bounds, Raw(1, 2, 5, 6));
}

TEST(MBndsTest, APointExtendsTheEmptyBoxToThatPoint) {
  MBnds bounds;
  bounds.Extend(MPnt{3, -4});
  EXPECT_EQ(bounds, Raw(3, -4, 3, -4));
  bounds.Extend(MPnt{-1, 7});
  EXPECT_EQ(bounds, Raw(-1, -4, 3, 7));
  bounds.Extend(MPnt{0, 0});
  EXPECT_EQ(bounds, Raw(-1, -4, 3, 7));
}

TEST(MBndsTest, TheBoxOfOnePointHasNoDimension) {
  const MPnt p{3, 4};
  const MBnds bounds(&p, 1);
  EXPECT_EQ(bounds, Raw(3, 4, 3, 4));
  EXPECT_TRUE(bounds.Is0D());
  EXPECT_FALSE(bounds.Is1D());
  EXPECT_FALSE(bounds.Is2D());
}

TEST(MBndsTest, NoPointsLeaveTheBoxAsItIs) {
  EXPECT_EQ(MBnds(nullptr, 0U), MBnds());
  MBnds bounds(1, 2, 3, 4);
  bounds.Extend(nullptr, 0U);
  EXPECT_EQ(bounds, Raw(1, 2, 3, 4));
}

TEST(MBndsTest, ManyPointsExtendTheBoxOnAllSides) {
  const MPnt points[] = {{0, 0}, {-5, 2}, {3, -7}, {3, 9}, {kMax, kMin}};
  EXPECT_EQ(MBnds(points, 4U), Raw(-5, -7, 3, 9));
  EXPECT_EQ(MBnds(points, 5U), Raw(-5, kMin, kMax, 9));
  MBnds bounds(100, 100, 101, 101);
  bounds.Extend(points, 3U);
  EXPECT_EQ(bounds, Raw(-5, -7, 101, 101));
}

TEST(MBndsTest, PointsReplaceABoxThatIsEmptyOnOneAxisOnly) {
  const MPnt points[] = {{50, 50}, {60, 60}};
  MBnds bounds = Raw(0, 10, 5, 0);
  bounds.Extend(points, 2U);
  EXPECT_EQ(bounds, Raw(50, 50, 60, 60));
}

TEST(MBndsTest, AnotherBoxExtendsThisOne) {
  MBnds bounds(0, 0, 10, 10);
  bounds.Extend(MBnds(5, -5, 20, 5));
  EXPECT_EQ(bounds, Raw(0, -5, 20, 10));
  bounds.Extend(MBnds());
  EXPECT_EQ(bounds, Raw(0, -5, 20, 10));
  MBnds empty;
  empty.Extend(bounds);
  EXPECT_EQ(empty, bounds);
}

TEST(MBndsTest, ABoxThatHasBecomeEmptyExtendsNothing) {
  MBnds apart(50, 50, 60, 60);
  apart.Intersect(MBnds(0, 0, 10, 10));
  ASSERT_EQ(apart, Raw(50, 50, 10, 10));
  MBnds bounds(100, 100, 110, 110);
  bounds.Extend(apart);
  EXPECT_EQ(bounds, Raw(100, 100, 110, 110));
  bounds.Extend(Raw(0, 9, 200, 8));
  EXPECT_EQ(bounds, Raw(100, 100, 110, 110));
}

TEST(MBndsTest, AnEmptyBoxExtendedByAnEmptyOneStaysEmpty) {
  MBnds bounds;
  bounds.Extend(MBnds());
  EXPECT_EQ(bounds, MBnds());
  bounds.ExtendSize(5, 5);
  EXPECT_EQ(bounds, MBnds());
  EXPECT_FALSE(bounds.Contains(MPnt{0, 0}));
  EXPECT_FALSE(bounds.Contains(MPnt{kMax, kMax}));
  EXPECT_FALSE(bounds.InnerContains(MPnt{0, 0}));
}

TEST(MBndsTest, IntersectLeavesWhatBothCover) {
  MBnds bounds(0, 0, 10, 10);
  bounds.Intersect(MBnds(5, -5, 20, 5));
  EXPECT_EQ(bounds, Raw(5, 0, 10, 5));
  bounds.Intersect(MBnds(50, 50, 60, 60));
  EXPECT_TRUE(bounds.IsEmpty());
  MBnds other(0, 0, 10, 10);
  other.Intersect(MBnds());
  EXPECT_TRUE(other.IsEmpty());
}

TEST(MBndsTest, ExtendSizeMovesEverySideOutward) {
  MBnds bounds(0, 0, 10, 20);
  bounds.ExtendSize(1, 2);
  EXPECT_EQ(bounds, Raw(-1, -2, 11, 22));
  bounds.ExtendSize(-6, -2);
  EXPECT_EQ(bounds, Raw(5, 0, 5, 20));
  bounds.ExtendSize(-1, 0);
  EXPECT_TRUE(bounds.IsEmpty());
}

TEST(MBndsTest, ExtendSizeStopsAtTheEndsOf32Bits) {
  MBnds bounds(-10, -10, 10, 10);
  bounds.ExtendSize(kMax, kMin);
  EXPECT_EQ(bounds, Raw(kMin, kMax - 9, kMax, kMin + 10)) << "the smallest number moves the sides inward";
  MBnds corner(kMin, kMin, kMax, kMax);
  corner.ExtendSize(1, 1);
  EXPECT_EQ(corner, Raw(kMin, kMin, kMax, kMax));
}

TEST(MBndsTest, ContainsIsClosedAndInnerContainsIsOpen) {
  const MBnds bounds(0, 0, 10, 10);
  for (const MPnt& p : {MPnt{0, 5}, MPnt{10, 5}, MPnt{5, 0}, MPnt{5, 10}, MPnt{0, 0}, MPnt{10, 10}}) {
    EXPECT_TRUE(bounds.Contains(p));
    EXPECT_FALSE(bounds.InnerContains(p));
  }
  for (const MPnt& p : {MPnt{-1, 5}, MPnt{11, 5}, MPnt{5, -1}, MPnt{5, 11}}) {
    EXPECT_FALSE(bounds.Contains(p));
    EXPECT_FALSE(bounds.InnerContains(p));
  }
  EXPECT_TRUE(bounds.Contains(MPnt{1, 9}));
  EXPECT_TRUE(bounds.InnerContains(MPnt{1, 9}));
}

TEST(MBndsTest, ContainsABoxWithinItsLimits) {
  const MBnds bounds(0, 0, 10, 10);
  EXPECT_TRUE(bounds.Contains(bounds));
  EXPECT_TRUE(bounds.Contains(MBnds(1, 1, 9, 9)));
  EXPECT_FALSE(bounds.Contains(MBnds(-1, 1, 9, 9)));
  EXPECT_FALSE(bounds.Contains(MBnds(1, -1, 9, 9)));
  EXPECT_FALSE(bounds.Contains(MBnds(1, 1, 11, 9)));
  EXPECT_FALSE(bounds.Contains(MBnds(1, 1, 9, 11)));
  EXPECT_TRUE(bounds.Contains(MBnds()));
}

TEST(MBndsTest, BoxesThatShareAnEdgeOrACornerIntersect) {
  const MBnds bounds(0, 0, 10, 10);
  EXPECT_TRUE(bounds.Intersects(MBnds(10, 10, 20, 20)));
  EXPECT_TRUE(bounds.Intersects(MBnds(10, 2, 20, 3)));
  EXPECT_TRUE(bounds.Intersects(MBnds(4, 4, 5, 5)));
  EXPECT_FALSE(bounds.Intersects(MBnds(11, 0, 20, 10)));
  EXPECT_FALSE(bounds.Intersects(MBnds(0, -9, 10, -1)));
  EXPECT_FALSE(bounds.Intersects(MBnds()));
  EXPECT_FALSE(MBnds().Intersects(MBnds()));
}

TEST(MBndsTest, TheDimensionCountsTheExtendedAxes) {
  const MBnds area(0, 0, 1, 1);
  EXPECT_TRUE(area.Is2D());
  EXPECT_FALSE(area.Is1D());
  EXPECT_FALSE(area.Is0D());
  for (const MBnds& line : {MBnds(0, 0, 1, 0), MBnds(0, 0, 0, 1)}) {
    EXPECT_FALSE(line.Is2D());
    EXPECT_TRUE(line.Is1D());
    EXPECT_FALSE(line.Is0D());
  }
  const MBnds empty;
  EXPECT_FALSE(empty.Is2D());
  EXPECT_FALSE(empty.Is1D());
  EXPECT_FALSE(empty.Is0D());
}

}  // namespace
}  // namespace Pelor::MI
