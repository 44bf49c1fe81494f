#include <pelor/mi/saturate.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace {

using Pelor::MI::Saturated;

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(SaturatedTest, AWholeNumberBeyond32BitsBecomesTheNearest) {
  EXPECT_EQ(Saturated(std::int64_t{kMax}), kMax);
  EXPECT_EQ(Saturated(std::int64_t{kMax} + 1), kMax);
  EXPECT_EQ(Saturated(std::int64_t{kMin}), kMin);
  EXPECT_EQ(Saturated(std::int64_t{kMin} - 1), kMin);
  EXPECT_EQ(Saturated(std::numeric_limits<std::int64_t>::max()), kMax);
  EXPECT_EQ(Saturated(std::numeric_limits<std::int64_t>::min()), kMin);
}

TEST(SaturatedTest, ADoubleIsTruncatedTowardZero) {
  EXPECT_EQ(Saturated(0.999), 0);
  EXPECT_EQ(Saturated(-0.999), 0);
  EXPECT_EQ(Saturated(2147483646.9), kMax - 1);
  EXPECT_EQ(Saturated(-2147483647.9), kMin + 1);
}

TEST(SaturatedTest, ADoubleBeyond32BitsBecomesTheNearest) {
  EXPECT_EQ(Saturated(2147483647.0), kMax);
  EXPECT_EQ(Saturated(2147483648.0), kMax);
  EXPECT_EQ(Saturated(-2147483648.0), kMin);
  EXPECT_EQ(Saturated(-2147483649.0), kMin);
  EXPECT_EQ(Saturated(1e300), kMax);
  EXPECT_EQ(Saturated(kInfinity), kMax);
  EXPECT_EQ(Saturated(-kInfinity), kMin);
}

TEST(SaturatedTest, NaNBecomesZero) {
  EXPECT_EQ(Saturated(std::numeric_limits<double>::quiet_NaN()), 0);
}

}  // namespace
