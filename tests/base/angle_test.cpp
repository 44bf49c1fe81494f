#include <pelor/base/angle.h>

#include <gtest/gtest.h>

#include <numbers>

namespace {

using Vanth::Angle;

TEST(AngleTest, UnitFactorsAreTheSizesOfOneUnitInRadians) {
  EXPECT_EQ(Angle::ufact[0], 1.0);
  EXPECT_EQ(Angle::ufact[1], std::numbers::pi / 180.0);
}

TEST(AngleTest, Minus90DegreesReadInTheFullTurnGive270) {
  EXPECT_DOUBLE_EQ(Angle(-90.0, Angle::Degrees)(1, 1), 270.0);
}

TEST(AngleTest, RangeZeroGivesTheStoredValue) {
  EXPECT_EQ(Angle(-7.5)(0, 0), -7.5);
  EXPECT_DOUBLE_EQ(Angle(720.0, Angle::Degrees)(1, 0), 720.0);
}

TEST(AngleTest, AFullTurnReadInTheFullTurnIsZero) {
  EXPECT_EQ(Angle::Full(1, 1), 0.0);
  EXPECT_EQ(Angle(360.0, Angle::Degrees)(1, 1), 0.0);
}

TEST(AngleTest, TheFullTurnIsNeverReached) {
  EXPECT_LT(Angle(-1e-300)(0, 1), 2.0 * std::numbers::pi);
  EXPECT_LT(Angle(-1e-300)(1, 1), 360.0);
}

}  // namespace
