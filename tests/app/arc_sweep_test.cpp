#include "app/convert/arc_sweep.h"

#include <gtest/gtest.h>

#include <cmath>

namespace App {
namespace {

namespace MI = Pelor::MI;
using Vanth::Angle;

MI::WArcObj Arc(double start_degrees, double end_degrees) {
  return {
      {0, 0, 2, 2}, Angle(start_degrees, Angle::Degrees), Angle(end_degrees, Angle::Degrees), nullptr, {}};
}

TEST(ArcSweepTest, RunsCounterClockwiseFromStartToEnd) {
  const struct {
    double start;
    double end;
    double sweep;
  } cases[] = {
      {0, 90, 90},        {90, 0, 270},     {350, 10, 20},   {350, 370, 20},  {-10, 10, 20}, {10, -10, 340},
      {0, 359.5, 359.5},  {720, 810, 90},   {810, 720, 270}, {0, 1e-7, 1e-7}, {90, 90, 0},   {0, 0, 0},
      {360, 360, 0},      {360, 0, 0},      {810, 90, 0},    {0.1, 0.1, 0},   {0, 360, 360}, {90, 450, 360},
      {12.3, 372.3, 360}, {-180, 180, 360}, {0, 720, 360},   {0, 450, 360},
  };
  for (const auto& c : cases) {
    EXPECT_NEAR(ArcSweepDegrees(*Arc(c.start, c.end)), c.sweep, 1e-12) << c.start << " to " << c.end;
    EXPECT_EQ(IsWholeTurn(*Arc(c.start, c.end)), c.sweep == 360) << c.start << " to " << c.end;
  }
}

TEST(ArcSweepTest, IsExactWhereThereIsNothingOrAll) {
  // In radians the ends of a turn are not exactly one turn apart.
  for (double start = -720; start <= 720; start += 0.7) {
    EXPECT_EQ(ArcSweepDegrees(*Arc(start, start)), 0) << start;
    EXPECT_EQ(ArcSweepDegrees(*Arc(start, start - 360)), 0) << start;
    EXPECT_EQ(ArcSweepDegrees(*Arc(start, start + 360)), 360) << start;
  }
}

TEST(ArcSweepTest, IsNotFiniteWhereAnAngleIsNot) {
  for (const double bad : {std::nan(""), double{INFINITY}, double{-INFINITY}}) {
    EXPECT_FALSE(std::isfinite(ArcSweepDegrees(*Arc(bad, 0)))) << bad;
    EXPECT_FALSE(std::isfinite(ArcSweepDegrees(*Arc(0, bad)))) << bad;
    EXPECT_FALSE(IsWholeTurn(*Arc(0, bad))) << bad;
  }
}

}  // namespace
}  // namespace App
