#include <pelor/mi/map_sys.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace Pelor::MI {
namespace {

using Vanth::Angle;
using Vanth::BoundsXY;
using Vanth::RectXY;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

/// Collects the messages of its lifetime instead of throwing them.
class Messages {
 public:
  [[nodiscard]] const std::vector<std::string>& Texts() const { return texts_; }

 private:
  std::vector<std::string> texts_;
  Tobri::Error::ScopedHandler guard_{[this](const Tobri::Error::Msg& m) { texts_.emplace_back(m.what()); }};
};

const std::vector<std::string> kOneError{"Invalid MapSys"};

void ExpectMapping(const MapSys& m, double scale_x, double scale_y, double offset_x, double offset_y) {
  EXPECT_EQ(m.scaleX, scale_x);
  EXPECT_EQ(m.scaleY, scale_y);
  EXPECT_EQ(m.offsetX, offset_x);
  EXPECT_EQ(m.offsetY, offset_y);
  EXPECT_DOUBLE_EQ(m.invScaleX, 1.0 / scale_x);
  EXPECT_DOUBLE_EQ(m.invScaleY, 1.0 / scale_y);
}

void ExpectIdentity(const MapSys& m) {
  ExpectMapping(m, 1.0, 1.0, 0.0, 0.0);
}

/// A mapping that differs from every other one of these tests.
MapSys Odd() {
  return {Bounds_MSt(), 1.0, 2.0, 5.0, 10.0};
}

double Degrees(const Angle& a) {
  return a(1, 0);
}

TEST(MapSysTest, ANewMappingHasTheCountZeroAndCopiesDoNotShareIt) {
  EXPECT_EQ(MapSys(Identity_MSt()).RefCount(), 0U);
  const Tobri::IRefC<MapSys> held(new MapSys(Identity_MSt()));
  EXPECT_EQ(held->RefCount(), 1U);
  EXPECT_EQ(MapSys(*held).RefCount(), 0U);
}

TEST(MapSysTest, IdentityHasScalesOneAndOffsetsZero) {
  ExpectIdentity(MapSys(Identity_MSt()));
  MapSys m = Odd();
  m.Set(Identity_MSt());
  ExpectIdentity(m);
}

TEST(MapSysTest, GeographicCountsMillionthsOfAWorldUnit) {
  const MapSys m(Geographic_MSt(), Orientation_AsWorld);
  ExpectMapping(m, 1e6, 1e6, 0.0, 0.0);
  EXPECT_EQ(m.invScaleX, 1.0 / 1e6);
  MapSys again = Odd();
  again.Set(Geographic_MSt(), Orientation_MirrorXY);
  ExpectMapping(again, -1e6, -1e6, 0.0, 0.0);
}

TEST(MapSysTest, AnOrientationMirrorsItsAxes) {
  for (const Orientation o :
       {Orientation_AsWorld, Orientation_MirrorX, Orientation_MirrorY, Orientation_MirrorXY}) {
    const double x = o == 1 || o == 3 ? -1.0 : 1.0;
    const double y = o == 2 || o == 3 ? -1.0 : 1.0;
    const MapSys geographic(Geographic_MSt(), o);
    ExpectMapping(geographic, x * 1e6, y * 1e6, 0.0, 0.0);
    EXPECT_EQ(geographic.GetOrientation(), o);
    const MapSys decimals(Decimals_MSt(), 3, o);
    ExpectMapping(decimals, x * 1e3, y * 1e3, 0.0, 0.0);
    EXPECT_EQ(decimals.GetOrientation(), o);
    MapSys set = Odd();
    set.Set(Decimals_MSt(), 3, o);
    ExpectMapping(set, x * 1e3, y * 1e3, 0.0, 0.0);
  }
}

TEST(MapSysTest, AnUnknownOrientationMirrorsNothing) {
  for (const int number : {-1, 4, 7, kMax, kMin}) {
    ExpectMapping(MapSys(Geographic_MSt(), static_cast<Orientation>(number)), 1e6, 1e6, 0.0, 0.0);
  }
}

TEST(MapSysTest, DecimalsAreAPowerOfTen) {
  for (int n = 0; n <= 9; ++n) {
    const MapSys m(Decimals_MSt(), n, Orientation_AsWorld);
    ExpectMapping(m, std::pow(10.0, n), std::pow(10.0, n), 0.0, 0.0);
    EXPECT_EQ(m.GetDecimals(), n);
  }
}

TEST(MapSysTest, DecimalsOutside0To9AreReported) {
  for (const int n : {-1, 10, 1000, kMin, kMax}) {
    EXPECT_THROW(MapSys(Decimals_MSt(), n, Orientation_AsWorld), InvalidMapSys);
    MapSys m = Odd();
    EXPECT_THROW(m.Set(Decimals_MSt(), n, Orientation_AsWorld), InvalidMapSys);
  }
}

TEST(MapSysTest, TheMessageIsAnErrMsgWithItsText) {
  try {
    const MapSys m(Decimals_MSt(), 10, Orientation_AsWorld);
    FAIL();
  } catch (const Tobri::ErrMsg& message) {
    EXPECT_STREQ(message.what(), "Invalid MapSys");
    EXPECT_EQ(message.GetText(), Tobri::String("Invalid MapSys"));
    EXPECT_NE(dynamic_cast<const InvalidMapSys*>(&message), nullptr);
  }
}

TEST(MapSysTest, DecimalsOutside0To9AreUsedWhenTheHandlerReturns) {
  const Messages messages;
  const MapSys made(Decimals_MSt(), 10, Orientation_MirrorY);
  ExpectMapping(made, 1e10, -1e10, 0.0, 0.0);
  MapSys set = Odd();
  set.Set(Decimals_MSt(), -2, Orientation_MirrorX);
  ExpectMapping(set, -0.01, 0.01, 0.0, 0.0);
  EXPECT_EQ(messages.Texts(), (std::vector<std::string>{"Invalid MapSys", "Invalid MapSys"}));
}

TEST(MapSysTest, SetTestsDecimalsBeforeItChangesAnything) {
  MapSys m = Odd();
  EXPECT_THROW(m.Set(Decimals_MSt(), 10, Orientation_MirrorX), InvalidMapSys);
  ExpectMapping(m, 5e8, 2.5e8, -1.5e9, -1.5e9);
  double scale_seen_by_the_handler = 0.0;
  const Tobri::Error::ScopedHandler guard(
      [&](const Tobri::Error::Msg&) { scale_seen_by_the_handler = m.scaleX; });
  m.Set(Decimals_MSt(), 10, Orientation_AsWorld);
  EXPECT_EQ(scale_seen_by_the_handler, 5e8);
  EXPECT_EQ(m.scaleX, 1e10);
}

TEST(MapSysTest, ExtremeDecimalsGiveScalesOfTheirOwn) {
  const Messages messages;
  const MapSys fine(Decimals_MSt(), kMax, Orientation_AsWorld);
  EXPECT_EQ(fine.scaleX, kInfinity);
  EXPECT_EQ(fine.invScaleX, 0.0);
  EXPECT_EQ(fine.GetDecimals(), kMax);
  const MapSys coarse(Decimals_MSt(), kMin, Orientation_AsWorld);
  EXPECT_EQ(coarse.scaleX, 0.0);
  EXPECT_EQ(coarse.invScaleX, kInfinity);
  EXPECT_EQ(coarse.GetDecimals(), -1);
}

TEST(MapSysTest, BoundsFillMapSpace) {
  const MapSys m(Bounds_MSt(), 0.0, 0.0, 100.0, 50.0);
  ExpectMapping(m, 20000000.0, 40000000.0, -1e9, -1e9);
  EXPECT_EQ(m.ToMap(RectXY{100.0, 50.0, 0.0, 0.0}),
            (MRct{{1000000000, 1000000000}, {-1000000000, -1000000000}}));
  EXPECT_EQ(m.GetMinX(), 0.0);
  EXPECT_EQ(m.GetMaxX(), 100.0);
  EXPECT_EQ(m.GetMinY(), 0.0);
  EXPECT_EQ(m.GetMaxY(), 50.0);
  EXPECT_EQ(m.GetBounds(), BoundsXY(0.0, 0.0, 100.0, 50.0));
  EXPECT_EQ(m.GetOrientation(), 0);
}

TEST(MapSysTest, EveryFormOfBoundsGivesTheSameMapping) {
  ExpectMapping(MapSys(Bounds_MSt(), BoundsXY(0.0, 0.0, 100.0, 50.0)), 2e7, 4e7, -1e9, -1e9);
  MapSys m = Odd();
  m.Set(Bounds_MSt(), 0.0, 0.0, 100.0, 50.0);
  ExpectMapping(m, 2e7, 4e7, -1e9, -1e9);
  m = Odd();
  m.Set(Bounds_MSt(), BoundsXY(0.0, 0.0, 100.0, 50.0));
  ExpectMapping(m, 2e7, 4e7, -1e9, -1e9);
}

TEST(MapSysTest, TheOrderOfTheBoundsDoesNotMirror) {
  ExpectMapping(MapSys(Bounds_MSt(), 100.0, 50.0, 0.0, 0.0), 2e7, 4e7, -1e9, -1e9);
  ExpectMapping(MapSys(Bounds_MSt(), -100.0, -50.0, 100.0, 50.0), 1e7, 2e7, 0.0, 0.0);
}

TEST(MapSysTest, BoundsWithoutWidthOrHeightGiveTheIdentity) {
  {
    const Messages messages;
    ExpectIdentity(MapSys(Bounds_MSt(), 5.0, 1.0, 5.0, 9.0));
    ExpectIdentity(MapSys(Bounds_MSt(), 1.0, 5.0, 9.0, 5.0));
    ExpectIdentity(MapSys(Bounds_MSt(), BoundsXY(1.0, 5.0, 9.0, 5.0)));
    EXPECT_EQ(messages.Texts(), std::vector<std::string>(3, "Invalid MapSys"));
  }
  EXPECT_THROW(MapSys(Bounds_MSt(), 5.0, 1.0, 5.0, 9.0), InvalidMapSys);
  MapSys m = Odd();
  EXPECT_THROW(m.Set(Bounds_MSt(), 5.0, 1.0, 5.0, 9.0), InvalidMapSys);
  ExpectIdentity(m);
}

TEST(MapSysTest, EmptyBoundsHaveNoExtent) {
  const Messages messages;
  MapSys m = Odd();
  m.Set(Bounds_MSt(), BoundsXY());
  ExpectIdentity(m);
  m = Odd();
  m.Set(BoundsDec_MSt(), BoundsXY());
  ExpectIdentity(m);
  EXPECT_EQ(messages.Texts(), (std::vector<std::string>{"Invalid MapSys", "Invalid MapSys"}));
}

TEST(MapSysTest, BoundsDecTakesTheLargestMagnitude) {
  MapSys m = Odd();
  m.Set(BoundsDec_MSt(), BoundsXY(-180.0, -90.0, 180.0, 90.0));
  ExpectMapping(m, 1e6, 1e6, 0.0, 0.0);
  EXPECT_EQ(m.GetDecimals(), 6);
  m = Odd();
  m.Set(BoundsDec_MSt(), -180.0, -90.0, 180.0, 90.0);
  ExpectMapping(m, 1e6, 1e6, 0.0, 0.0);
  m = Odd();
  m.Set(BoundsDec_MSt(), -180.0, 20.0);
  ExpectMapping(m, 1e6, 1e6, 0.0, 0.0);
  m = Odd();
  m.Set(BoundsDec_MSt(), -180.0);
  ExpectMapping(m, 1e6, 1e6, 0.0, 0.0);
}

TEST(MapSysTest, BoundsDecOfFourNumbersSpansBothAxes) {
  MapSys m{Identity_MSt()};
  m.Set(BoundsDec_MSt(), 1.0, -50000.0, 2.0, 3.0);
  EXPECT_EQ(m.GetDecimals(), 4) << "the low end of y is the largest magnitude";
  m.Set(BoundsDec_MSt(), 1.0, 2.0, 3.0, 4000.0);
  EXPECT_EQ(m.GetDecimals(), 5) << "the high end of y is";
  m.Set(BoundsDec_MSt(), 4000.0, 2.0, 3.0, 4.0);
  EXPECT_EQ(m.GetDecimals(), 8) << "the first x counts as a low end only";
}

TEST(MapSysTest, BoundsDecHasNoRange) {
  MapSys m{Identity_MSt()};
  m.Set(BoundsDec_MSt(), 0.002);
  ExpectMapping(m, 1e11, 1e11, 0.0, 0.0);
  m.Set(BoundsDec_MSt(), 2e12);
  ExpectMapping(m, 1e-4, 1e-4, 0.0, 0.0);
  EXPECT_EQ(m.GetDecimals(), -4);
}

TEST(MapSysTest, BoundsDecOfZeroGivesTheIdentity) {
  {
    const Messages messages;
    MapSys m = Odd();
    m.Set(BoundsDec_MSt(), 0.0, 0.0, 0.0, 0.0);
    ExpectIdentity(m);
    EXPECT_EQ(messages.Texts(), kOneError);
    m = Odd();
    m.Set(BoundsDec_MSt(), -0.0);
    ExpectIdentity(m);
    EXPECT_EQ(messages.Texts(), std::vector<std::string>(2, "Invalid MapSys"));
  }
  MapSys m = Odd();
  EXPECT_THROW(m.Set(BoundsDec_MSt(), 0.0, 0.0), InvalidMapSys);
  ExpectIdentity(m);
}

TEST(MapSysTest, NumbersThatAreNoneStillGiveAMappingThatAnswers) {
  for (const double bad : {kNaN, kInfinity, -kInfinity}) {
    MapSys m{Identity_MSt()};
    for (int mode = 0; mode < 3; ++mode) {
      if (mode == 0) m.Set(Bounds_MSt(), bad, 0.0, 1.0, 1.0);
      if (mode == 1) m.Set(BoundsDec_MSt(), bad);
      if (mode == 2) m.Set(BoundsDec_MSt(), bad, bad, bad, bad);
      (void)m.GetDecimals();
      (void)m.GetBounds();
      (void)m.ToMap(RectXY{1.0, kNaN, kInfinity, -kInfinity});
      (void)m.ToMap(BoundsXY(1.0, 2.0, 3.0, 4.0));
      (void)m.ToMap(Angle(1.0));
      (void)m.ToWorld(MRct{{kMin, kMax}, {0, 0}});
      (void)m.ToWorld(MBnds(kMin, kMin, kMax, kMax));
      (void)m.ToWorld(kMin);
      EXPECT_EQ(m.GetOrientation(), 0);
    }
  }
}

TEST(MapSysTest, TheMinimumOfAMirroredAxisIsTheLargerNumber) {
  const MapSys m(Decimals_MSt(), 0, Orientation_MirrorX);
  EXPECT_EQ(m.GetMinX(), 1e9);
  EXPECT_EQ(m.GetMaxX(), -1e9);
  EXPECT_EQ(m.GetMinY(), -1e9);
  EXPECT_EQ(m.GetMaxY(), 1e9);
}

TEST(MapSysTest, DecimalsOfTheCoarserAxisAreTruncatedTowardZero) {
  MapSys m{Identity_MSt()};
  m.scaleX = -999.0;
  m.scaleY = 1e5;
  EXPECT_EQ(m.GetDecimals(), 2);
  m.scaleY = 0.02;
  EXPECT_EQ(m.GetDecimals(), -1) << "log10 is -1.7";
  m.scaleY = 0.2;
  EXPECT_EQ(m.GetDecimals(), 0) << "log10 is -0.7";
  m.scaleY = 0.0;
  EXPECT_EQ(m.GetDecimals(), -1);
  m.scaleX = 0.0;
  m.scaleY = 10.0;
  EXPECT_EQ(m.GetDecimals(), -1);
}

TEST(MapSysTest, MapCoordinatesAreTruncatedTowardZero) {
  const MapSys m{Identity_MSt()};
  EXPECT_EQ(m.ToMap(RectXY{-0.7, 0.7, 1.999, -1.999}), (MRct{{0, 0}, {1, -1}}));
}

TEST(MapSysTest, ARectKeepsTheOrderOfItsCornersAndABoxDoesNot) {
  const MapSys m(Geographic_MSt(), Orientation_MirrorY);
  EXPECT_EQ(m.ToMap(RectXY{1.0, 2.0, 3.0, 4.0}), (MRct{{1000000, -2000000}, {3000000, -4000000}}));
  const MBnds bounds = m.ToMap(BoundsXY(1.0, 2.0, 3.0, 4.0));
  EXPECT_EQ(bounds, MBnds(1000000, -4000000, 3000000, -2000000));
  EXPECT_LE(bounds.ymin, bounds.ymax);
}

TEST(MapSysTest, MapCoordinatesBeyond32BitsSaturate) {
  const MapSys m(Decimals_MSt(), 9, Orientation_AsWorld);
  EXPECT_EQ(m.ToMap(RectXY{3.0, -3.0, kInfinity, -kInfinity}), (MRct{{kMax, kMin}, {kMax, kMin}}));
  EXPECT_EQ(m.ToMap(RectXY{kNaN, 1.0, 1e300, kNaN}), (MRct{{0, 1000000000}, {kMax, 0}}));
}

TEST(MapSysTest, EmptyBoundsStayEmpty) {
  const MapSys m = Odd();
  EXPECT_EQ(m.ToMap(BoundsXY()), MBnds());
  EXPECT_TRUE(m.ToWorld(MBnds()).IsEmpty());
}

TEST(MapSysTest, ToWorldInvertsTheMapping) {
  const MapSys m(Bounds_MSt(), 0.0, 0.0, 100.0, 50.0);
  EXPECT_EQ(m.ToWorld(MRct{{1000000000, -1000000000}, {-1000000000, 0}}), (RectXY{100.0, 0.0, 0.0, 25.0}));
  EXPECT_EQ(m.ToWorld(MBnds(-1000000000, -1000000000, 0, 1000000000)), BoundsXY(0.0, 0.0, 50.0, 50.0));
  const MapSys mirrored(Decimals_MSt(), 1, Orientation_MirrorXY);
  EXPECT_EQ(mirrored.ToWorld(MBnds(10, 20, 30, 40)), BoundsXY(-3.0, -4.0, -1.0, -2.0));
}

TEST(MapSysTest, AnglesKeepTheirValueUnderEqualScales) {
  const MapSys m(Geographic_MSt(), Orientation_MirrorXY);
  EXPECT_EQ(m.Angle_WorldToMap(Angle(7.5)), Angle(7.5));
  EXPECT_EQ(m.Angle_MapToWorld(Angle(-7.5)), Angle(-7.5));
}

TEST(MapSysTest, AnglesFollowUnequalScales) {
  const MapSys m(Bounds_MSt(), 0.0, 0.0, 100.0, 50.0);
  EXPECT_DOUBLE_EQ(Degrees(m.Angle_WorldToMap(Angle(45.0, Angle::Degrees))),
                   std::atan(2.0) * 180.0 / std::numbers::pi);
  EXPECT_DOUBLE_EQ(Degrees(m.Angle_MapToWorld(Angle(45.0, Angle::Degrees))),
                   std::atan(0.5) * 180.0 / std::numbers::pi);
  EXPECT_DOUBLE_EQ(Degrees(m.Angle_WorldToMap(Angle(135.0, Angle::Degrees))),
                   180.0 - std::atan(2.0) * 180.0 / std::numbers::pi);
}

TEST(MapSysTest, AMirroredAxisTurnsAngles) {
  const MapSys m(Decimals_MSt(), 0, Orientation_MirrorY);
  EXPECT_DOUBLE_EQ(Degrees(m.Angle_WorldToMap(Angle(30.0, Angle::Degrees))), -30.0);
  EXPECT_EQ(m.ToMap(Angle(30.0, Angle::Degrees)), -300);
  EXPECT_DOUBLE_EQ(Degrees(m.ToWorld(-300)), 30.0);
  const MapSys x(Decimals_MSt(), 0, Orientation_MirrorX);
  EXPECT_DOUBLE_EQ(Degrees(x.Angle_WorldToMap(Angle(30.0, Angle::Degrees))), 150.0);
}

TEST(MapSysTest, MapAnglesAreTenthsOfADegree) {
  const MapSys m{Identity_MSt()};
  EXPECT_EQ(m.ToMap(Angle(45.04, Angle::Degrees)), 450);
  EXPECT_EQ(m.ToMap(Angle(45.06, Angle::Degrees)), 451);
  EXPECT_EQ(m.ToMap(Angle(-45.06, Angle::Degrees)), -451);
  EXPECT_EQ(m.ToMap(Angle(0.25, Angle::Degrees)), 3);
  EXPECT_EQ(m.ToMap(Angle(-0.25, Angle::Degrees)), -2) << "a half goes up";
  EXPECT_EQ(m.ToMap(Angle(720.0, Angle::Degrees)), 7200) << "no turn is taken off";
  EXPECT_DOUBLE_EQ(Degrees(m.ToWorld(450)), 45.0);
  EXPECT_EQ(m.ToWorld(450)(0, 0), 450 * 0.1 * Angle::ufact[1]);
}

TEST(MapSysTest, AnglesThatAreNoNumberAreAbsorbed) {
  const MapSys m{Identity_MSt()};
  EXPECT_EQ(m.ToMap(Angle(kNaN)), 0);
  EXPECT_EQ(m.ToMap(Angle(kInfinity)), kMax);
  EXPECT_EQ(m.ToMap(Angle(-1e300)), kMin);
  const MapSys mirrored(Decimals_MSt(), 0, Orientation_MirrorY);
  EXPECT_EQ(mirrored.ToMap(Angle(kInfinity)), 0);
}

}  // namespace
}  // namespace Pelor::MI
