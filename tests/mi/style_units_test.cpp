#include <pelor/mi/style_units.h>

#include <gtest/gtest.h>

#include <limits>

namespace Pelor::MI {
namespace {

TEST(SLUnitsTest, NumbersAreThoseOfTheFiles) {
  EXPECT_EQ(SLUnits_Pixel, 0);
  EXPECT_EQ(SLUnits_HundredthMm, 1);
  EXPECT_EQ(SLUnits_TenthPoint, 2);
  EXPECT_EQ(SLUnits_Point, 3);
}

TEST(SLUnitsTest, TheSameUnitKeepsTheSize) {
  for (const int unit : {-1, 0, 1, 2, 3, 4}) {
    EXPECT_EQ(ConvertSize(-7, static_cast<SLUnits>(unit), static_cast<SLUnits>(unit)), -7);
  }
}

TEST(SLUnitsTest, PointsAndTheirTenthsConvert) {
  EXPECT_EQ(ConvertSize(12, SLUnits_Point, SLUnits_TenthPoint), 120);
  EXPECT_EQ(ConvertSize(125, SLUnits_TenthPoint, SLUnits_Point), 12);
  EXPECT_EQ(ConvertSize(129, SLUnits_TenthPoint, SLUnits_Point), 12);
  EXPECT_EQ(ConvertSize(-129, SLUnits_TenthPoint, SLUnits_Point), -12);
  EXPECT_EQ(ConvertSize(-1, SLUnits_Point, SLUnits_TenthPoint), -10);
}

TEST(SLUnitsTest, EveryOtherPairGivesZero) {
  for (int from = -1; from <= 4; ++from) {
    for (int to = -1; to <= 4; ++to) {
      if (from == to || (from + to == 5 && (from == 2 || from == 3))) continue;
      EXPECT_EQ(ConvertSize(80, static_cast<SLUnits>(from), static_cast<SLUnits>(to)), 0)
          << from << ' ' << to;
    }
  }
}

TEST(SLUnitsTest, TenthsBeyond32BitsSaturate) {
  EXPECT_EQ(ConvertSize(std::numeric_limits<std::int32_t>::max(), SLUnits_Point, SLUnits_TenthPoint),
            std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(ConvertSize(std::numeric_limits<std::int32_t>::min(), SLUnits_Point, SLUnits_TenthPoint),
            std::numeric_limits<std::int32_t>::min());
}

}  // namespace
}  // namespace Pelor::MI
