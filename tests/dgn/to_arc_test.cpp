#include <pelor/dgn/elements.h>
#include <pelor/dgn/parameters.h>
#include <pelor/dgn/to_arc.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <utility>
#include <vector>

namespace {

using namespace Pelor::DGN;
using Vanth::Angle;
using Vanth::ArcXY;
using Vanth::PointXY;

constexpr double kPi = std::numbers::pi;
constexpr std::int32_t kDegree = 360000;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// An angle of the file: negative values as sign and magnitude.
std::int32_t Angle32(int degrees) {
  const auto magnitude = static_cast<std::uint32_t>(std::abs(degrees)) * kDegree;
  return static_cast<std::int32_t>(degrees < 0 ? magnitude | 0x80000000U : magnitude);
}

/// 1000 units of resolution per master unit, origin at (2000, -4000).
Parameters Thousandths() {
  Parameters parameters;
  parameters.scale = 0.001;
  parameters.origin1 = 2000.0;
  parameters.origin2 = -4000.0;
  return parameters;
}

Arc2D CircleArc(std::int32_t start, std::int32_t sweep) {
  Arc2D arc;
  arc.start_angle = start;
  arc.sweep_angle = sweep;
  arc.primary_axis = 10000.0;
  arc.secondary_axis = 10000.0;
  arc.origin = {2000.0, -4000.0};
  return arc;
}

void ExpectPoints(const ArcXY& arc, const std::vector<PointXY>& expected) {
  const auto points = arc.Points();
  ASSERT_EQ(points.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_NEAR(points[i].x, expected[i].x, 1e-12) << "point " << i;
    EXPECT_NEAR(points[i].y, expected[i].y, 1e-12) << "point " << i;
  }
}

LineString2D LineStringOf(unsigned count) {
  LineString2D line_string;
  line_string.count = static_cast<std::uint16_t>(count);
  for (unsigned i = 0; i < count; ++i) {
    line_string.points.push_back({2000 + 1000 * static_cast<std::int32_t>(i), -4000});
  }
  return line_string;
}

class ToArcTest : public testing::Test {
 protected:
  Parameters parameters_ = Thousandths();
  ToArc quarters_{parameters_, Angle(90.0, Angle::Degrees)};
};

TEST_F(ToArcTest, TheStepIsTheFixedOneWhenTheToleranceIsZero) {
  EXPECT_EQ(ToArc(parameters_, Angle(0.25)).TolRad(1e9), 0.25);
  EXPECT_EQ(ToArc(parameters_, 0.0, Angle(0.1), Angle(1.0)).TolRad(10.0), 0.0);
}

TEST_F(ToArcTest, ATwentiethOnARadiusOfTenGivesTwiceTheArcCosine) {
  const double step = ToArc(parameters_, 0.05, Angle(0.01), Angle(1.0)).TolRad(10.0);
  EXPECT_DOUBLE_EQ(step, 2.0 * std::acos(0.995));
  EXPECT_NEAR(step, 0.2, 1e-3);
  EXPECT_NEAR(10.0 * (1.0 - std::cos(step / 2.0)), 0.05, 1e-12);  // how far the chord departs
}

TEST_F(ToArcTest, TheStepIsKeptBetweenTheMinimumAndTheMaximum) {
  EXPECT_EQ(ToArc(parameters_, 0.05, Angle(0.3), Angle(1.0)).TolRad(10.0), 0.3);
  EXPECT_EQ(ToArc(parameters_, 0.05, Angle(0.01), Angle(0.1)).TolRad(10.0), 0.1);
}

TEST_F(ToArcTest, AStepAboveTheMaximumIsTheMaximumEvenBelowTheMinimum) {
  EXPECT_EQ(ToArc(parameters_, 0.05, Angle(0.5), Angle(0.1)).TolRad(10.0), 0.1);
}

TEST_F(ToArcTest, AStepUpToTheMaximumIsRaisedToTheMinimumEvenBeyondIt) {
  // The step is 0.063.
  EXPECT_EQ(ToArc(parameters_, 0.005, Angle(0.5), Angle(0.1)).TolRad(10.0), 0.5);
}

TEST_F(ToArcTest, AToleranceFromTheRadiusOnGivesHalfATurn) {
  EXPECT_EQ(ToArc(parameters_, 20.0, Angle(0.01), Angle(10.0)).TolRad(10.0), kPi);
  EXPECT_EQ(ToArc(parameters_, 10.0, Angle(0.01), Angle(10.0)).TolRad(10.0), kPi);
  EXPECT_EQ(ToArc(parameters_, 20.0, Angle(0.01), Angle(3.0)).TolRad(10.0), 3.0);
}

TEST_F(ToArcTest, TheStepOfAnEllipseIsThatOfItsLargerHalfAxisInMasterUnits) {
  const ToArc converter(parameters_, 0.05, Angle(0.001), Angle(10.0));
  EXPECT_EQ(converter.TolRad(10000.0, 2000.0), converter.TolRad(10.0));
  EXPECT_EQ(converter.TolRad(2000.0, 10000.0), converter.TolRad(10.0));
  EXPECT_EQ(converter.TolRad(10000.0, 10000.0), converter.TolRad(10.0));
}

TEST_F(ToArcTest, ALineGivesItsTwoEndsInMasterUnits) {
  Line2D line;
  line.start = {2500, -4250};
  line.end = {-2147483648, 2147483647};
  ExpectPoints(quarters_.Arc(line), {{0.5, -0.25}, {-2147485.648, 2147487.647}});
}

TEST_F(ToArcTest, ALineStringGivesItsVertices) {
  ExpectPoints(quarters_.Arc(LineStringOf(3), false), {{0, 0}, {1, 0}, {2, 0}});
  ExpectPoints(quarters_.Arc(LineString2D(), false), {});
}

TEST_F(ToArcTest, ATrimmedLineStringLosesTwoVerticesAtEachEnd) {
  ExpectPoints(quarters_.Arc(LineStringOf(7), true), {{2, 0}, {3, 0}, {4, 0}});
  ExpectPoints(quarters_.Arc(LineStringOf(5), true), {{2, 0}});
}

TEST_F(ToArcTest, ATrimmedLineStringOfFourOrFewerVerticesIsEmpty) {
  for (unsigned count = 0; count <= 4; ++count) {
    EXPECT_TRUE(quarters_.Arc(LineStringOf(count), true).Points().empty()) << count;
  }
}

TEST_F(ToArcTest, AnEllipseIsWalkedOnceRoundAndClosed) {
  Ellipse2D ellipse;
  ellipse.primary_axis = 10000.0;
  ellipse.secondary_axis = 4000.0;
  ellipse.origin = {3000.0, -4000.0};
  ExpectPoints(quarters_.Arc(ellipse), {{11, 0}, {1, 4}, {-9, 0}, {1, -4}, {11, 0}});
}

TEST_F(ToArcTest, TheRotationTurnsTheEllipseCounterClockwise) {
  Ellipse2D ellipse;
  ellipse.primary_axis = 10000.0;
  ellipse.secondary_axis = 4000.0;
  ellipse.origin = {2000.0, -4000.0};
  ellipse.rotation = Angle32(30);
  const double c = std::sqrt(3.0) / 2.0;
  ExpectPoints(quarters_.Arc(ellipse), {{10 * c, 5}, {-2, 4 * c}, {-10 * c, -5}, {2, -4 * c}, {10 * c, 5}});
  ellipse.rotation = Angle32(-30);
  ExpectPoints(quarters_.Arc(ellipse), {{10 * c, -5}, {2, 4 * c}, {-10 * c, 5}, {-2, -4 * c}, {10 * c, -5}});
}

TEST_F(ToArcTest, AnEllipseAtAToleranceBeyondItsRadiusIsTwoPointsAndTheClosingOne) {
  Ellipse2D ellipse;
  ellipse.primary_axis = 10000.0;
  ellipse.secondary_axis = 10000.0;
  ellipse.origin = {2000.0, -4000.0};
  ExpectPoints(ToArc(parameters_, 20.0, Angle(0.01), Angle(kPi)).Arc(ellipse), {{10, 0}, {-10, 0}, {10, 0}});
}

TEST_F(ToArcTest, TheOriginOfACurveIsTruncatedToWholeUnits) {
  Ellipse2D ellipse;
  ellipse.origin = {2001.9, -4001.9};
  ExpectPoints(quarters_.Arc(ellipse),
               {{0.001, -0.001}, {0.001, -0.001}, {0.001, -0.001}, {0.001, -0.001}, {0.001, -0.001}});
}

TEST_F(ToArcTest, AnOriginThatDoesNotFitInALongIsDefined) {
  Ellipse2D ellipse;
  ellipse.origin = {1e30, -kInfinity};
  const PointXY corner = quarters_.Arc(ellipse).Points()[0];
  EXPECT_DOUBLE_EQ(corner.x, (2147483647.0 - 2000.0) * 0.001);
  EXPECT_DOUBLE_EQ(corner.y, (-2147483648.0 + 4000.0) * 0.001);
  ellipse.origin = {kNaN, kNaN};
  EXPECT_DOUBLE_EQ(quarters_.Arc(ellipse).Points()[0].x, -2.0);
}

TEST_F(ToArcTest, AnArcIsWalkedFromItsStartAndEndsExactlyAtItsEnd) {
  const double c = std::sqrt(3.0) / 2.0;
  const double h = std::sqrt(0.5);
  ExpectPoints(quarters_.Arc(CircleArc(Angle32(30), Angle32(105))),
               {{10 * c, 5}, {-5, 10 * c}, {-10 * h, 10 * h}});
}

TEST_F(ToArcTest, AnArcWithANegativeSweepIsWalkedClockwise) {
  ExpectPoints(quarters_.Arc(CircleArc(Angle32(90), Angle32(-180))), {{0, 10}, {10, 0}, {0, -10}});
}

TEST_F(ToArcTest, AStartAngleIsSignAndMagnitude) {
  ExpectPoints(quarters_.Arc(CircleArc(Angle32(-90), Angle32(90))), {{0, -10}, {10, 0}});
}

TEST_F(ToArcTest, AnArcWithSweepZeroIsAFullTurnThatEndsOnItsStart) {
  ExpectPoints(quarters_.Arc(CircleArc(Angle32(90), 0)), {{0, 10}, {-10, 0}, {0, -10}, {10, 0}, {0, 10}});
}

TEST_F(ToArcTest, AFullTurnOfAnArcTakesAsManyStepsAsItsSweepHolds) {
  ExpectPoints(quarters_.Arc(CircleArc(0, Angle32(360))), {{10, 0}, {0, 10}, {-10, 0}, {0, -10}, {10, 0}});
}

TEST_F(ToArcTest, ASweepOfMinusZeroIsTheStartAlone) {
  ExpectPoints(quarters_.Arc(CircleArc(Angle32(90), std::numeric_limits<std::int32_t>::min())), {{0, 10}});
}

TEST_F(ToArcTest, AnArcKeepsItsChordsWithinTheTolerance) {
  const ArcXY arc = ToArc(parameters_, 0.05, Angle(0.001), Angle(kPi)).Arc(CircleArc(0, Angle32(180)));
  const auto points = arc.Points();
  ASSERT_EQ(points.size(), 17U);  // 16 steps of 0.2003 rad begin below pi
  for (std::size_t i = 1; i < points.size(); ++i) {
    const double depth =
        10.0 - std::hypot((points[i - 1].x + points[i].x) / 2, (points[i - 1].y + points[i].y) / 2);
    EXPECT_LE(depth, 0.05 + 1e-12) << i;
  }
}

TEST_F(ToArcTest, AStepThatDoesNotAdvanceGivesTheEndsAlone) {
  const Ellipse2D ellipse;
  EXPECT_EQ(ToArc(parameters_, Angle(0.0)).Arc(ellipse).Points().size(), 2U);
  EXPECT_EQ(ToArc(parameters_, 0.0, Angle(0.0), Angle(1.0)).Arc(ellipse).Points().size(), 2U);
  EXPECT_EQ(ToArc(parameters_, Angle(kNaN)).Arc(ellipse).Points().size(), 2U);
  ExpectPoints(ToArc(parameters_, Angle(0.0)).Arc(CircleArc(0, Angle32(90))), {{10, 0}, {0, 10}});
  ExpectPoints(ToArc(parameters_, Angle(1e-300)).Arc(CircleArc(Angle32(90), Angle32(90))),
               {{0, 10}, {-10, 0}});
}

TEST_F(ToArcTest, AnyAxesAndScaleEndWithinTheStepsOfTheMinimum) {
  for (const double axis : {kNaN, kInfinity, -kInfinity, 1.7e38, -1.7e38, 1e-300, 0.0}) {
    for (const double scale : {0.001, kNaN, kInfinity, 0.0, -1.0}) {
      parameters_.scale = scale;
      const ToArc converter(parameters_, 0.05, Angle(0.1), Angle(1.0));
      Ellipse2D ellipse;
      ellipse.primary_axis = axis;
      Arc2D arc =
          CircleArc(std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::max());
      arc.secondary_axis = axis;
      EXPECT_LE(converter.Arc(ellipse).Points().size(), 65U) << axis << ' ' << scale;
      EXPECT_LE(converter.Arc(arc).Points().size(), 1100U) << axis << ' ' << scale;
    }
  }
}

}  // namespace
