#include <pelor/mi/spheroid.h>

#include <gtest/gtest.h>

#include <limits>

namespace Pelor::MI {
namespace {

constexpr int kNoSpheroids[] = {
    -1, 48, 49, 1000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};

TEST(SpheroidTest, ANumberOutsideTheTableHasNoAxis) {
  for (const int number : kNoSpheroids) {
    EXPECT_EQ(GetMajorSemiAxis(static_cast<Spheroid>(number)), 0.0);
    EXPECT_EQ(GetInverseFlattening(static_cast<Spheroid>(number)), 0.0);
  }
}

TEST(SpheroidTest, TheFirstAndTheLastRowAreInTheTable) {
  EXPECT_EQ(GetMajorSemiAxis(Spheroid{0}), 6378137.0);
  EXPECT_EQ(GetInverseFlattening(Spheroid{0}), 298.257222101);
  EXPECT_EQ(GetMajorSemiAxis(Spheroid{47}), 6378297.0);
  EXPECT_EQ(GetInverseFlattening(Spheroid{47}), 294.73);
}

TEST(SpheroidTest, TheSphereHasNoFlattening) {
  EXPECT_EQ(GetMajorSemiAxis(Spheroid{12}), 6370997.0);
  EXPECT_EQ(GetInverseFlattening(Spheroid{12}), 0.0);
}

TEST(SpheroidTest, ASearchFindsTheFirstOfTwoEqualRows) {
  EXPECT_EQ(FindSpheroid(6378137.0, 298.257223563, 1e-9), 28);
  EXPECT_EQ(FindSpheroid(6378388.0, 297.0, 0.0), 4);
}

TEST(SpheroidTest, ASearchWithoutAMatchGives29) {
  EXPECT_EQ(FindSpheroid(1.0, 1.0, 0.0), 29);
  EXPECT_EQ(FindSpheroid(6378137.0, 1.0, 1e-9), 29);
  EXPECT_EQ(FindSpheroid(1.0, 298.257223563, 1e-9), 29);
}

TEST(SpheroidTest, EveryRowIsFoundFromItsConstants) {
  // Rows that repeat an earlier one are found as that one.
  const auto first = [](int number) {
    switch (number) {
      case 5:
        return 4;
      case 24:
        return 2;
      case 29:
        return 28;
      case 42:
        return 27;
      case 43:
        return 1;
      default:
        return number;
    }
  };
  for (int number = 0; number < 48; ++number) {
    const auto spheroid = static_cast<Spheroid>(number);
    EXPECT_EQ(FindSpheroid(GetMajorSemiAxis(spheroid), GetInverseFlattening(spheroid), 0.0), first(number));
  }
}

TEST(SpheroidTest, TheToleranceIsAnAbsoluteDifferenceOfEachConstant) {
  // Row 7 and row 8 share the flattening and lie about 243.6 m apart.
  EXPECT_EQ(FindSpheroid(6378206.4 - 0.5, 294.9786982, 0.5), 7);
  EXPECT_EQ(FindSpheroid(6378206.4 - 0.5, 294.9786982, 0.4), 29);
  EXPECT_EQ(FindSpheroid(6378206.4, 294.9786982 + 0.25, 0.2), 29);
  EXPECT_EQ(FindSpheroid(6378206.4, 294.9786982 + 0.25, 0.3), 7);
  EXPECT_EQ(FindSpheroid(0.0, 0.0, 1e9), 0);
}

TEST(SpheroidTest, NoSpheroidLiesWithinAToleranceThatIsNoMeasure) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(FindSpheroid(6378137.0, 298.257222101, kNaN), 29);
  EXPECT_EQ(FindSpheroid(6378137.0, 298.257222101, -1.0), 29);
  EXPECT_EQ(FindSpheroid(kNaN, 298.257222101, 1e9), 29);
  EXPECT_EQ(FindSpheroid(std::numeric_limits<double>::infinity(), 298.257222101, 1e9), 29);
}

}  // namespace
}  // namespace Pelor::MI
