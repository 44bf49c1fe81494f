#include "app/design/axis_ellipse.h"
#include "app/design/bspline.h"
#include "app/design/element_path.h"
#include "app/design/flatten.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <string>
#include <tests/app/design_elements.h>
#include <tests/dgn/words.h>
#include <vector>

namespace App {
namespace {

using app_test::DFloat;
using app_test::ElementBytes;
using app_test::Longs;
using Vanth::PointXY;
using Points = std::vector<PointXY>;

constexpr double kPi = std::numbers::pi;

double DistanceToPath(const PointXY& p, const Points& path) {
  double least = std::numeric_limits<double>::infinity();
  for (std::size_t i = 1; i < path.size(); ++i) {
    const PointXY& a = path[i - 1];
    const double dx = path[i].x - a.x;
    const double dy = path[i].y - a.y;
    const double square = dx * dx + dy * dy;
    const double t = square > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / square, 0.0, 1.0) : 0.0;
    least = std::min(least, std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy));
  }
  return least;
}

// How far the curve strays from the path.
double Deviation(const std::function<PointXY(double)>& curve, const Points& path) {
  constexpr int kSamples = 1000;
  double most = 0.0;
  for (int i = 0; i <= kSamples; ++i) {
    most = std::max(most, DistanceToPath(curve(static_cast<double>(i) / kSamples), path));
  }
  return most;
}

// --- ellipses

TEST(FlattenTest, ChoosesATolerance) {
  EXPECT_EQ(ToleranceFor(1e6, 0), 100.0);
  EXPECT_EQ(ToleranceFor(100, 0), 0.5);
  EXPECT_EQ(ToleranceFor(1e6, 7), 7.0);
  EXPECT_EQ(ToleranceFor(1e6, 1e-9), 0.01);
  EXPECT_EQ(ToleranceFor(1e6, -1), 100.0);
}

TEST(FlattenTest, KeepsEllipsesWithinTheTolerance) {
  for (const double tolerance : {0.01, 1.0, 30.0, 900.0, 5000.0}) {
    for (const double skew : {0.0, 700.0}) {
      PlanEllipse ellipse;
      ellipse.center = {5000, -300};
      ellipse.u = {1000, skew};
      ellipse.v = {-skew, 200};
      ellipse.start = 17 * kAngleUnitsPerDegree;
      for (const std::int64_t sweep : {kFullTurn, -100 * kAngleUnitsPerDegree, 3 * kAngleUnitsPerDegree}) {
        ellipse.sweep = sweep;
        Points points;
        Flatten(ellipse, tolerance, points);
        const auto curve = [&](double t) {
          return ellipse.At((17 + t * static_cast<double>(sweep) / kAngleUnitsPerDegree) * kPi / 180);
        };
        EXPECT_LE(Deviation(curve, points), tolerance * (1 + 1e-9))
            << tolerance << ' ' << skew << ' ' << sweep;
        // Not with many more chords than it takes.
        if (tolerance < 100.0 && sweep == kFullTurn) {
          EXPECT_GE(Deviation(curve, points), tolerance * 0.8) << tolerance << ' ' << skew;
        }
      }
    }
  }
}

TEST(FlattenTest, GivesTheEndsOfArcsExactlyAtQuarters) {
  PlanEllipse ellipse;
  ellipse.center = {1, 2};
  ellipse.u = {3, 0};
  ellipse.v = {0, 4};
  ellipse.start = 90 * kAngleUnitsPerDegree;
  ellipse.sweep = -270 * kAngleUnitsPerDegree;
  Points points;
  Flatten(ellipse, 0.5, points);
  EXPECT_EQ(points.front(), (PointXY{1, 6}));
  EXPECT_EQ(points.back(), (PointXY{-2, 2}));
  ellipse.start = 33 * kAngleUnitsPerDegree;
  ellipse.sweep = kFullTurn;
  points.clear();
  Flatten(ellipse, 0.5, points);
  EXPECT_EQ(points.front(), points.back());
}

TEST(FlattenTest, NeverMakesMoreThan65536Chords) {
  PlanEllipse ellipse;
  ellipse.u = {1e38, 0};
  ellipse.v = {0, 1e38};
  Points points;
  Flatten(ellipse, 0.01, points);
  EXPECT_EQ(points.size(), 65537U);
  ellipse.u = ellipse.v = {};
  points.clear();
  Flatten(ellipse, 0.01, points);
  EXPECT_LE(points.size(), 5U);
}

TEST(AxisEllipseTest, FindsAxesThatAreParallelToThoseOfTheMap) {
  struct Case {
    PointXY u;
    PointXY v;
    double start;
    double end;
  };
  // An arc from 10 to 40 degrees; what is seen from below runs the other way.
  const Case cases[] = {
      {{3, 0}, {0, 2}, 10, 40},    {{-3, 0}, {0, -2}, 190, 220}, {{3, 0}, {0, -2}, 320, 350},
      {{-3, 0}, {0, 2}, 140, 170}, {{0, 2}, {-3, 0}, 100, 130},  {{0, -2}, {3, 0}, 280, 310},
      {{0, 2}, {3, 0}, 50, 80},    {{0, -2}, {-3, 0}, 230, 260},
  };
  for (const Case& c : cases) {
    PlanEllipse ellipse;
    ellipse.center = {10, 20};
    ellipse.u = c.u;
    ellipse.v = c.v;
    ellipse.start = 10 * kAngleUnitsPerDegree;
    ellipse.sweep = 30 * kAngleUnitsPerDegree;
    const auto found = AxisEllipse::Of(ellipse);
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->rect, (Vanth::RectXY{7, 18, 13, 22}));
    EXPECT_NEAR(found->start_degrees, c.start, 1e-9);
    EXPECT_NEAR(found->end_degrees, c.end, 1e-9);
    // Both of its ends are where the arc has one.
    const auto at = [&](double degrees) -> PointXY {
      return {10 + 3 * std::cos(degrees * kPi / 180), 20 + 2 * std::sin(degrees * kPi / 180)};
    };
    const PointXY ends[] = {at(c.start), at(c.end)};
    for (const double t : {10.0, 40.0}) {
      const PointXY end = ellipse.At(t * kPi / 180);
      EXPECT_TRUE(std::any_of(std::begin(ends), std::end(ends), [&](const PointXY& p) {
        return std::hypot(p.x - end.x, p.y - end.y) < 1e-12;
      }));
    }
  }
}

TEST(AxisEllipseTest, KnowsTurnedOnesAndCircles) {
  PlanEllipse ellipse;
  ellipse.u = {300, 0.02};
  ellipse.v = {-0.02, 200};
  EXPECT_FALSE(AxisEllipse::Of(ellipse).has_value());
  ellipse.u = {300, 0.009};
  ellipse.v = {-0.009, 200};
  EXPECT_TRUE(AxisEllipse::Of(ellipse).has_value());
  ellipse.u = {300, 400};
  ellipse.v = {-400, 300};
  ASSERT_TRUE(AxisEllipse::Of(ellipse).has_value());
  EXPECT_EQ(AxisEllipse::Of(ellipse)->rect, (Vanth::RectXY{-500, -500, 500, 500}));
  ellipse.v = {400, 300};
  EXPECT_FALSE(AxisEllipse::Of(ellipse).has_value());
}

// --- curves

TEST(FlattenTest, LetsACurveRunThroughItsPoints) {
  const Points given = {{-300, 100},  {-100, 300}, {0, 0},    {1000, 800},
                        {2000, -500}, {2500, 900}, {3000, 0}, {3100, 0}};
  Points points;
  FlattenCurve(given, 1.0, points);
  EXPECT_EQ(points.front(), given[2]);
  EXPECT_EQ(points.back(), given[5]);
  for (std::size_t i = 2; i < 6; ++i) {
    EXPECT_NE(std::find(points.begin(), points.end(), given[i]), points.end()) << i;
  }
}

TEST(FlattenTest, LetsACurveOfPointsOnALineBeThatLine) {
  const Points given = {{-200, 0}, {-100, 0}, {0, 0}, {100, 0}, {350, 0}, {400, 0}, {500, 0}, {600, 0}};
  Points points;
  FlattenCurve(given, 0.01, points);
  EXPECT_EQ(points, (Points{{0, 0}, {100, 0}, {350, 0}, {400, 0}}));
}

TEST(FlattenTest, LetsACurveThroughACircleBeNearlyOne) {
  Points given;
  for (int i = -2; i <= 14; ++i) {
    given.push_back({1000 * std::cos(i * kPi / 6), 1000 * std::sin(i * kPi / 6)});
  }
  Points points;
  FlattenCurve(given, 0.1, points);
  const auto circle = [](double t) -> PointXY {
    return {1000 * std::cos(2 * kPi * t), 1000 * std::sin(2 * kPi * t)};
  };
  // The chords alone would be 34 off.
  EXPECT_LE(Deviation(circle, points), 4.0);
}

TEST(FlattenTest, KeepsAPieceOfACurveWithinTheTolerance) {
  // By the slopes at its ends: horizontal at (0, 0) and at (900, 900).
  const Points given = {{-200, 0}, {-100, 0}, {0, 0}, {900, 900}, {1000, 900}, {1100, 900}};
  for (const double tolerance : {0.05, 2.0, 50.0}) {
    Points points;
    FlattenCurve(given, tolerance, points);
    const double third = 900 * std::numbers::sqrt2 / 3;
    const auto cubic = [&](double t) -> PointXY {
      const double s = 1 - t;
      const double b1 = 3 * s * s * t;
      const double b2 = 3 * s * t * t;
      return {b1 * third + b2 * (900 - third) + t * t * t * 900, b2 * 900 + t * t * t * 900};
    };
    EXPECT_LE(Deviation(cubic, points), tolerance);
  }
}

TEST(FlattenTest, TakesFewPointsOfACurveAsTheyAre) {
  const Points given = {{0, 0}, {1, 1}, {2, 0}, {3, 1}, {4, 0}};
  Points points;
  FlattenCurve(given, 1.0, points);
  EXPECT_EQ(points, given);
}

// --- B-splines

// Components of a B-spline in the order: knots, poles, weights.
struct SplineText {
  int order = 4;
  bool closed = false;
  std::vector<PointXY> poles;
  std::vector<double> knots = {};
  std::vector<double> weights = {};
};

std::string Fractions(const std::vector<double>& values) {
  std::string words;
  for (const double value : values)
    words += app_test::Long(std::min(std::llround(value * 2147483648.0), 2147483647LL));
  return words;
}

std::string Word(std::size_t value) {
  return app_test::Long(static_cast<std::int64_t>(value)).substr(5, 5);
}

bool Build(const SplineText& text, BSpline& spline) {
  const auto flags = static_cast<std::size_t>((text.order - 2) | (text.closed ? 0x80 : 0) |
                                              (text.weights.empty() ? 0 : 0x40));
  const std::string header = ElementBytes(
      {.type = 27, .body = "0000 0000 " + Word(flags) + Word(text.poles.size()) + Word(text.knots.size())});
  if (!spline.Begin(ElementView(header, false))) return false;
  if (!text.knots.empty()) {
    const std::string knots = ElementBytes({.type = 26, .body = Fractions(text.knots), .component = true});
    if (!spline.Add(ElementView(knots, false))) return false;
  }
  std::string body = Word(text.poles.size());
  for (const PointXY& pole : text.poles) body += Longs({std::llround(pole.x), std::llround(pole.y)});
  const std::string poles = ElementBytes({.type = 21, .body = body, .component = true});
  if (!spline.Add(ElementView(poles, false))) return false;
  if (!text.weights.empty()) {
    const std::string weights =
        ElementBytes({.type = 28, .body = Fractions(text.weights), .component = true});
    if (!spline.Add(ElementView(weights, false))) return false;
  }
  return spline.IsComplete();
}

// The curve by the recursive definition of its basis functions, over knots that are given whole.
PointXY SplinePoint(const Points& poles, const std::vector<double>& weights, const std::vector<double>& knots,
                    int order, double t) {
  const std::function<double(std::size_t, int)> basis = [&](std::size_t i, int k) -> double {
    if (k == 1) return knots[i] <= t && t < knots[i + 1] ? 1.0 : 0.0;
    const auto step = static_cast<std::size_t>(k);
    double sum = 0.0;
    if (knots[i + step - 1] > knots[i]) {
      sum += (t - knots[i]) / (knots[i + step - 1] - knots[i]) * basis(i, k - 1);
    }
    if (knots[i + step] > knots[i + 1]) {
      sum += (knots[i + step] - t) / (knots[i + step] - knots[i + 1]) * basis(i + 1, k - 1);
    }
    return sum;
  };
  double x = 0.0;
  double y = 0.0;
  double w = 0.0;
  for (std::size_t i = 0; i + static_cast<std::size_t>(order) < knots.size(); ++i) {
    const std::size_t at = i % poles.size();
    const double part = basis(i, order) * (weights.empty() ? 1.0 : weights[at]);
    x += part * poles[at].x;
    y += part * poles[at].y;
    w += part;
  }
  return {x / w, y / w};
}

void ExpectWithin(const SplineText& text, const std::vector<double>& all_knots) {
  for (const double tolerance : {0.05, 1.0, 40.0}) {
    BSpline spline;
    ASSERT_TRUE(Build(text, spline));
    Points points;
    spline.Flatten(tolerance, points);
    const auto curve = [&](double t) {
      return SplinePoint(text.poles, text.weights, all_knots, text.order, t * (1 - 1e-12));
    };
    EXPECT_LE(Deviation(curve, points), tolerance * (1 + 1e-6) + 1e-5);
    // And no point of the path is off the curve.
    Points dense;
    for (int i = 0; i <= 2000; ++i) dense.push_back(curve(i / 2000.0));
    for (const PointXY& point : points) EXPECT_LE(DistanceToPath(point, dense), 0.1);
  }
}

const Points kPoles = {{0, 0}, {1000, 3000}, {2500, -2000}, {4000, 2500}, {5000, 0}, {7000, 1000}};

TEST(BSplineTest, FlattensUniformOpenCurves) {
  ExpectWithin({.order = 4, .poles = kPoles}, {0, 0, 0, 0, 1.0 / 3, 2.0 / 3, 1, 1, 1, 1});
  ExpectWithin({.order = 2, .poles = {{0, 0}, {100, 300}, {500, 0}}}, {0, 0, 0.5, 1, 1});
  ExpectWithin({.order = 6, .poles = kPoles}, {0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1});
}

TEST(BSplineTest, FlattensKnotsThatAreNotUniform) {
  ExpectWithin({.order = 4, .poles = kPoles, .knots = {0.125, 0.75}}, {0, 0, 0, 0, 0.125, 0.75, 1, 1, 1, 1});
  // A knot of full multiplicity makes a corner.
  ExpectWithin({.order = 3, .poles = kPoles, .knots = {0.5, 0.5, 0.75}}, {0, 0, 0, 0.5, 0.5, 0.75, 1, 1, 1});
}

TEST(BSplineTest, FlattensRationalCurves) {
  ExpectWithin({.order = 4, .poles = kPoles, .weights = {1.0 - 0x1p-31, 0.25, 0.5, 0.125, 0.5, 0.75}},
               {0, 0, 0, 0, 1.0 / 3, 2.0 / 3, 1, 1, 1, 1});
  // A quarter of a circle.
  BSpline spline;
  ASSERT_TRUE(Build({.order = 3,
                     .poles = {{10000, 0}, {10000, 10000}, {0, 10000}},
                     .weights = {1.0, std::numbers::sqrt2 / 2, 1.0}},
                    spline));
  Points points;
  spline.Flatten(1.0, points);
  EXPECT_GT(points.size(), 10U);
  for (const PointXY& point : points) EXPECT_NEAR(std::hypot(point.x, point.y), 10000, 1e-4);
}

TEST(BSplineTest, FlattensClosedCurves) {
  const double n = 1.0 / 6;
  const SplineText cubic = {.order = 4, .closed = true, .poles = kPoles};
  ExpectWithin(cubic, {-3 * n, -2 * n, -n, 0, n, 2 * n, 3 * n, 4 * n, 5 * n, 1, 1 + n, 1 + 2 * n, 1 + 3 * n});
  BSpline spline;
  ASSERT_TRUE(Build(cubic, spline));
  EXPECT_TRUE(spline.IsClosed());
  Points points;
  spline.Flatten(1.0, points);
  EXPECT_EQ(points.front(), points.back());
  ExpectWithin({.order = 3, .closed = true, .poles = kPoles, .knots = {0.125, 0.25, 0.5, 0.625, 0.875}},
               {-0.375, -0.125, 0, 0.125, 0.25, 0.5, 0.625, 0.875, 1, 1.125, 1.25});
}

TEST(BSplineTest, FlattensClosedCurvesOfFewPoles) {
  BSpline spline;
  ASSERT_TRUE(Build({.order = 15, .closed = true, .poles = {{0, 0}, {1000, 0}, {0, 1000}}}, spline));
  Points points;
  spline.Flatten(0.0, points);
  ASSERT_GE(points.size(), 4U);
  for (const PointXY& point : points) {
    EXPECT_GE(point.x, 0);
    EXPECT_LE(point.x + point.y, 1000);
  }
}

TEST(BSplineTest, IsIncompleteUnlessAllFits) {
  BSpline spline;
  const SplineText good = {.order = 4, .poles = kPoles, .knots = {0.25, 0.75}, .weights = {1, 1, 1, 1, 1, 1}};
  EXPECT_TRUE(Build(good, spline));
  SplineText bad = good;
  bad.knots = {0.75, 0.25};
  EXPECT_FALSE(Build(bad, spline));
  bad.knots = {0.25};
  EXPECT_FALSE(Build(bad, spline));
  bad = good;
  bad.weights = {1, 1, 1, 0, 1, 1};
  EXPECT_FALSE(Build(bad, spline));
  bad.weights = {1, 1};
  EXPECT_FALSE(Build(bad, spline));
  bad = good;
  bad.knots.clear();
  bad.order = 7;
  EXPECT_FALSE(Build(bad, spline));
  EXPECT_FALSE(Build({.order = 2, .closed = true, .poles = {{0, 0}, {1, 1}}}, spline));
}

// --- paths

TEST(PathTest, KeepsTheStoredPointWhereAComputedOneMeetsIt) {
  PathPiece computed;
  computed.points = {{0, 0}, {5, 5}, {9.7, 10.4}};
  computed.is_exact = false;
  PathPiece stored;
  stored.points = {{10, 10}, {20, 10}};
  Path path;
  EXPECT_TRUE(path.Join(computed));
  EXPECT_TRUE(path.Join(stored));
  const auto part = path.Part(0);
  EXPECT_EQ(Points(part.begin(), part.end()), (Points{{0, 0}, {5, 5}, {10, 10}, {20, 10}}));
}

TEST(PathTest, DoesNotTakeStoredPointsForEachOtherThatAreAUnitApart) {
  PathPiece piece;
  piece.points = {{0, 0}, {10, 10}};
  Path path;
  EXPECT_TRUE(path.Join(piece));
  piece.points = {{11, 10}, {20, 10}};
  EXPECT_FALSE(path.Join(piece));
  EXPECT_EQ(path.Part(0).size(), 4U);
}

TEST(PathTest, ClosesExactlyWhatIsAlmostClosed) {
  PathPiece stored;
  stored.points = {{0, 0}, {10, 0}};
  PathPiece computed;
  computed.points = {{10, 0}, {8, 8}, {0.6, -0.3}};
  computed.is_exact = false;
  Path path;
  EXPECT_TRUE(path.Join(stored));
  EXPECT_TRUE(path.Join(computed));
  path.CloseExactly();
  EXPECT_EQ(path.Part(0).front(), (PointXY{0, 0}));
  EXPECT_EQ(path.Part(0).back(), (PointXY{0, 0}));
  EXPECT_TRUE(path.HasArea(0));
}

TEST(PathTest, HasAnAreaWithThreeVertices) {
  PathPiece piece;
  piece.points = {{0, 0}, {1, 0}, {0, 0}};
  Path path;
  EXPECT_TRUE(path.Join(piece));
  EXPECT_FALSE(path.HasArea(0));
  path.Clear();
  piece.points = {{0, 0}, {1, 0}, {1, 1}};
  EXPECT_TRUE(path.Join(piece));
  EXPECT_TRUE(path.HasArea(0));
  path.BeginPart();
  EXPECT_EQ(path.Parts(), 2U);
  EXPECT_FALSE(path.HasArea(1));
}

}  // namespace
}  // namespace App
