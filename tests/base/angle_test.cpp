#include <pelor/base/angle.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

using Vanth::Angle;

TEST(AngleTest, UnitFactorsAreTheSizesOfOneUnitInRadians) {
  EXPECT_EQ(Angle::ufact[0], 1.0);
  EXPECT_EQ(Angle::ufact[1], std::numbers::pi / 180.0);
  EXPECT_EQ(Angle::ufact[2], std::numbers::pi / 200.0);
  EXPECT_EQ(Angle::ufact[3], 2.0 * std::numbers::pi);
}

TEST(AngleTest, IsGivenAndReadInEveryUnit) {
  const struct {
    double value;
    Angle::Units units;
  } quarter_turns[] = {{std::numbers::pi / 2, Angle::Radians},
                       {90.0, Angle::Degrees},
                       {100.0, Angle::Gradians},
                       {0.25, Angle::Turns}};
  for (const auto& from : quarter_turns) {
    for (const auto& to : quarter_turns) {
      EXPECT_DOUBLE_EQ(Angle(from.value, from.units)(to.units, Angle::AsStored), to.value);
      EXPECT_DOUBLE_EQ(Angle(-3.0 * from.value, from.units)(to.units, Angle::Positive), to.value);
      EXPECT_DOUBLE_EQ(Angle(5.0 * from.value, from.units)(to.units, Angle::Positive), to.value);
    }
  }
}

TEST(AngleTest, UnitsAndRangesOutsideTheTablesAreRadiansAsStored) {
  EXPECT_EQ(Angle(2.5, static_cast<Angle::Units>(4))(0, 0), 2.5);
  EXPECT_EQ(Angle(2.5, static_cast<Angle::Units>(-1))(0, 0), 2.5);
  EXPECT_EQ(Angle(-7.5)(4, 0), -7.5);
  EXPECT_EQ(Angle(-7.5)(-1, 2), -7.5);
}

TEST(AngleTest, WholeDegreesComeBackExactly) {
  for (int degrees = -360; degrees <= 360; ++degrees) {
    const Angle angle(degrees, Angle::Degrees);
    EXPECT_EQ(angle(1, 0), degrees);
    EXPECT_EQ(angle(1, 1), (degrees + 720) % 360);
  }
}

TEST(AngleTest, AnInfiniteAngleHasNoPlaceInARange) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Angle(kInfinity)(0, 0), kInfinity);
  EXPECT_TRUE(std::isnan(Angle(kInfinity)(0, 1)));
  EXPECT_TRUE(std::isnan(Angle(-kInfinity)(1, 1)));
}

TEST(AngleTest, EqualityIsOfTheStoredValue) {
  EXPECT_EQ(Angle(), Angle(0.0));
  EXPECT_FALSE(Angle(0.0) == Angle::Full);
}

TEST(AngleTest, Minus90DegreesReadInTheFullTurnGive270) {
  EXPECT_EQ(Angle(-90.0, Angle::Degrees)(1, 1), 270.0);
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
