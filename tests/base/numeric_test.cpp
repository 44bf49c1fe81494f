#include <pelor/base/numeric.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace {

using Tobri::fractpart;
using Tobri::modulus;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kBelowOne = 1.0 - std::numeric_limits<double>::epsilon() / 2.0;

TEST(RoundTest, HalvesGoAwayFromZero) {
  EXPECT_EQ(Tobri::round(0.5, false), 1.0);
  EXPECT_EQ(Tobri::round(1.5, false), 2.0);
  EXPECT_EQ(Tobri::round(2.5, false), 3.0);
  EXPECT_EQ(Tobri::round(-0.5, false), -1.0);
  EXPECT_EQ(Tobri::round(-2.5, false), -3.0);
  EXPECT_EQ(Tobri::round(4503599627370495.5, false), 4503599627370496.0);
}

TEST(RoundTest, HalvesGoToTheEvenNeighbourWhenAsked) {
  EXPECT_EQ(Tobri::round(0.5, true), 0.0);
  EXPECT_EQ(Tobri::round(1.5, true), 2.0);
  EXPECT_EQ(Tobri::round(2.5, true), 2.0);
  EXPECT_EQ(Tobri::round(3.5, true), 4.0);
  EXPECT_EQ(Tobri::round(-0.5, true), 0.0);
  EXPECT_EQ(Tobri::round(-1.5, true), -2.0);
  EXPECT_EQ(Tobri::round(-2.5, true), -2.0);
  EXPECT_EQ(Tobri::round(4503599627370494.5, true), 4503599627370494.0);
  EXPECT_EQ(Tobri::round(4503599627370495.5, true), 4503599627370496.0);
}

TEST(RoundTest, AHairBesideAHalfIsNoHalf) {
  for (const bool half_to_even : {false, true}) {
    EXPECT_EQ(Tobri::round(0.49999999999999994, half_to_even), 0.0);
    EXPECT_EQ(Tobri::round(2.5000000000000004, half_to_even), 3.0);
    EXPECT_EQ(Tobri::round(-2.4999999999999996, half_to_even), -2.0);
  }
}

TEST(RoundTest, WholeHugeAndNonFiniteValuesStay) {
  for (const bool half_to_even : {false, true}) {
    for (const double value : {0.0, 7.0, -7.0, 9007199254740991.0, 1e300, kInfinity, -kInfinity}) {
      EXPECT_EQ(Tobri::round(value, half_to_even), value);
    }
    EXPECT_TRUE(std::isnan(Tobri::round(kNaN, half_to_even)));
  }
}

TEST(FractpartTest, IsWhatStandsAboveTheNextLowerWholeNumber) {
  EXPECT_EQ(fractpart(2.25), 0.25);
  EXPECT_EQ(fractpart(-2.25), 0.75);
  EXPECT_EQ(fractpart(7.0), 0.0);
  EXPECT_EQ(fractpart(1e300), 0.0);
}

TEST(FractpartTest, NegativeZeroAndNegativeWholeNumbersGivePositiveZero) {
  EXPECT_FALSE(std::signbit(fractpart(-0.0)));
  EXPECT_EQ(fractpart(-3.0), 0.0);
  EXPECT_FALSE(std::signbit(fractpart(-3.0)));
}

TEST(FractpartTest, AHairBelowZeroStaysBelowOne) {
  EXPECT_EQ(fractpart(-1e-300), kBelowOne);
  EXPECT_EQ(fractpart(-std::numeric_limits<double>::denorm_min()), kBelowOne);
}

TEST(FractpartTest, NonFiniteValuesGiveNaN) {
  EXPECT_TRUE(std::isnan(fractpart(kInfinity)));
  EXPECT_TRUE(std::isnan(fractpart(-kInfinity)));
  EXPECT_TRUE(std::isnan(fractpart(kNaN)));
}

TEST(ModulusTest, ResultsLieFromZeroUpToTheModulus) {
  EXPECT_EQ(modulus(370.0, 360.0), 10.0);
  EXPECT_EQ(modulus(-10.0, 360.0), 350.0);
  EXPECT_EQ(modulus(-370.0, 360.0), 350.0);
  EXPECT_EQ(modulus(360.0, 360.0), 0.0);
  EXPECT_EQ(modulus(-0.0, 360.0), 0.0);
  EXPECT_FALSE(std::signbit(modulus(-360.0, 360.0)));
}

TEST(ModulusTest, AHairBelowZeroStaysBelowTheModulus) {
  EXPECT_EQ(modulus(-1e-300, 60.0), std::nextafter(60.0, 0.0));
  EXPECT_EQ(modulus(-1e-17, 60.0), std::nextafter(60.0, 0.0));
}

TEST(ModulusTest, TheSignOfTheModulusDoesNotMatter) {
  EXPECT_EQ(modulus(370.0, -360.0), 10.0);
  EXPECT_EQ(modulus(-10.0, -360.0), 350.0);
}

TEST(ModulusTest, ZeroModulusGivesNaN) {
  EXPECT_TRUE(std::isnan(modulus(5.0, 0.0)));
  EXPECT_TRUE(std::isnan(modulus(-5.0, 0.0)));
  EXPECT_TRUE(std::isnan(modulus(0.0, 0.0)));
}

TEST(ModulusTest, NonFiniteValuesGiveNaN) {
  EXPECT_TRUE(std::isnan(modulus(kInfinity, 60.0)));
  EXPECT_TRUE(std::isnan(modulus(-kInfinity, 60.0)));
  EXPECT_TRUE(std::isnan(modulus(kNaN, 60.0)));
  EXPECT_TRUE(std::isnan(modulus(1.0, kNaN)));
}

TEST(MemTest, SwapExchangesCountItemsAndNothingElse) {
  std::array<short, 4> a = {1, 2, 3, 4};
  std::array<short, 4> b = {5, 6, 7, 8};
  Tobri::Mem::Swap(a.data(), b.data(), sizeof(short), 3);
  EXPECT_EQ(a, (std::array<short, 4>{5, 6, 7, 4}));
  EXPECT_EQ(b, (std::array<short, 4>{1, 2, 3, 8}));
}

TEST(MemTest, SwapOfNothingTouchesNothing) {
  int a = 1;
  int b = 2;
  Tobri::Mem::Swap(&a, &b, sizeof(int), 0);
  Tobri::Mem::Swap(&a, &b, 0, 7);
  Tobri::Mem::Swap(nullptr, nullptr, sizeof(int), 0);
  EXPECT_EQ(a, 1);
  EXPECT_EQ(b, 2);
}

}  // namespace
