#include <pelor/mi/datum.h>

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace Pelor::MI {
namespace {

auto Values(const Datum& d) {
  return std::tuple(static_cast<int>(d.spheroid), d.dx, d.dy, d.dz, d.rx, d.ry, d.rz, d.scale,
                    d.primeMeridian);
}

TEST(DatumTest, TheDefaultIsDatum0) {
  EXPECT_EQ(Datum().id, 0);
  EXPECT_EQ(Values(Datum()), std::tuple(29, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0));
}

TEST(DatumTest, AStandardDatumKeepsItsNumber) {
  for (int number = 0; number <= 114; ++number) {
    EXPECT_EQ(Datum(static_cast<StdDatum>(number)).id, number);
  }
  for (int number = 1000; number <= 1002; ++number) {
    EXPECT_EQ(Datum(static_cast<StdDatum>(number)).id, number);
  }
}

TEST(DatumTest, StandardDatumsWithNamesHaveTheirValues) {
  EXPECT_EQ(StdDatum_Default, 0);
  EXPECT_EQ(Datum(StdDatum_WGS84).id, 104);
  EXPECT_EQ(Values(Datum(StdDatum_WGS84)), std::tuple(28, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0));
}

TEST(DatumTest, TheFurtherStandardDatumsHaveAllTheirValues) {
  EXPECT_EQ(Values(Datum(StdDatum{113})), std::tuple(4, -303.0, -62.0, 105.0, 0.0, 0.0, 0.0, 0.0, 0.0));
  EXPECT_EQ(Values(Datum(StdDatum{114})), std::tuple(4, -223.0, 110.0, 37.0, 0.0, 0.0, 0.0, 0.0, 0.0));
  EXPECT_EQ(Values(Datum(StdDatum{1000})), std::tuple(10, 582.0, 105.0, 414.0, -1.04, -0.35, 3.08, 8.3, 0.0));
  EXPECT_EQ(Values(Datum(StdDatum{1001})), std::tuple(3, 24.0, -123.0, -94.0, -0.02, 0.25, 0.13, 1.1, 0.0));
  EXPECT_EQ(Values(Datum(StdDatum{1002})), std::tuple(30, -168.0, -60.0, 320.0, 0.0, 0.0, 0.0, 0.0, 2.33723));
}

TEST(DatumTest, AnUnknownOrNegativeNumberGivesDatum0) {
  for (const int number :
       {-1, 115, 500, 999, 1003, 9999, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    const Datum datum(static_cast<StdDatum>(number));
    EXPECT_EQ(datum.id, 0) << number;
    EXPECT_TRUE(datum == Datum(StdDatum{0})) << number;
  }
}

TEST(DatumTest, SetDatumReplacesEveryValue) {
  Datum datum(Spheroid{5}, 1, 2, 3, 4, 5, 6, 7, 8);
  EXPECT_EQ(datum.id, 9999);
  EXPECT_EQ(Values(datum), std::tuple(5, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0));
  datum.SetDatum(Spheroid{6}, -162, -12, 206);
  EXPECT_EQ(datum.id, 1);
  EXPECT_EQ(Values(datum), std::tuple(6, -162.0, -12.0, 206.0, 0.0, 0.0, 0.0, 0.0, 0.0));
  datum.SetDatum(Spheroid{5}, 1, 2, 3, 4, 5, 6, 7, 8);
  datum.SetDatum(StdDatum{113});
  EXPECT_EQ(datum.id, 113);
  EXPECT_EQ(Values(datum), std::tuple(4, -303.0, -62.0, 105.0, 0.0, 0.0, 0.0, 0.0, 0.0));
}

TEST(DatumTest, EveryRowIsIdentifiedFromItsValues) {
  // Rows 74 and 101 repeat row 33: the first of equal rows is the answer.
  for (int number = 0; number <= 112; ++number) {
    const Datum standard(static_cast<StdDatum>(number));
    const int expected = number == 74 || number == 101 ? 33 : number;
    EXPECT_EQ(Datum(standard.spheroid, standard.dx, standard.dy, standard.dz).id, expected);
    EXPECT_EQ(Datum(standard.spheroid, standard.dx, standard.dy, standard.dz, 0, 0, 0, 0, 0).id, expected);
  }
}

TEST(DatumTest, AnyOtherNumberIsTheKind) {
  EXPECT_EQ(Datum(Spheroid{6}, -162, -12, 205).id, 999);
  EXPECT_EQ(Datum(Spheroid{6}, -162, -12, 206.0000001).id, 999);
  EXPECT_EQ(Datum(Spheroid{7}, -162, -12, 206).id, 999);
  EXPECT_EQ(Datum(Spheroid{48}, 0, 0, 0).id, 999);
}

TEST(DatumTest, OneOfTheFiveFurtherValuesMakesTheKind9999) {
  EXPECT_EQ(Datum(Spheroid{28}, 0, 0, 0, 1e-300, 0, 0, 0, 0).id, 9999);
  EXPECT_EQ(Datum(Spheroid{28}, 0, 0, 0, 0, 1, 0, 0, 0).id, 9999);
  EXPECT_EQ(Datum(Spheroid{28}, 0, 0, 0, 0, 0, 1, 0, 0).id, 9999);
  EXPECT_EQ(Datum(Spheroid{28}, 0, 0, 0, 0, 0, 0, 1, 0).id, 9999);
  EXPECT_EQ(Datum(Spheroid{28}, 0, 0, 0, 0, 0, 0, 0, 1).id, 9999);
  EXPECT_EQ(Datum(Spheroid{28}, 0, 0, 0, -0.0, -0.0, -0.0, -0.0, -0.0).id, 104);
}

TEST(DatumTest, TheFurtherStandardDatumsAreNotRecognisedFromTheirValues) {
  EXPECT_EQ(Datum(Spheroid{4}, -303, -62, 105).id, 999);
  for (const int number : {113, 114, 1000, 1001, 1002}) {
    const Datum d(static_cast<StdDatum>(number));
    const int kind = number < 1000 ? 999 : 9999;
    EXPECT_EQ(Datum(d.spheroid, d.dx, d.dy, d.dz, d.rx, d.ry, d.rz, d.scale, d.primeMeridian).id, kind);
    // Nor are they from values that repeat one of the two shifts that are compared with each other.
    EXPECT_EQ(Datum(d.spheroid, d.dx, d.dy, d.dy, d.rx, d.ry, d.rz, d.scale, d.primeMeridian).id, kind);
    EXPECT_EQ(Datum(d.spheroid, d.dx, d.dz, d.dz, d.rx, d.ry, d.rz, d.scale, d.primeMeridian).id, kind);
  }
}

TEST(DatumTest, NaNIsNoStandardDatum) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(Datum(Spheroid{28}, kNaN, 0, 0).id, 999);
  EXPECT_EQ(Datum(Spheroid{28}, 0, 0, 0, kNaN, 0, 0, 0, 0).id, 9999);
  EXPECT_FALSE(Datum(Spheroid{28}, kNaN, 0, 0) == Datum(Spheroid{28}, kNaN, 0, 0));
}

TEST(DatumTest, EqualityComparesTheSecondShiftWithTheOthersThird) {
  const Datum a(Spheroid{4}, 1, 2, 3);
  const Datum b(Spheroid{4}, 1, 3, 3);
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(b == a);
  EXPECT_TRUE(a != b);
  EXPECT_FALSE(b != a);
  EXPECT_FALSE(a == a) << "a datum whose second and third shift differ does not equal itself";
  EXPECT_TRUE(b == b);
}

TEST(DatumTest, EqualityComparesTheSecondRotationWithTheOthersThird) {
  const Datum a(Spheroid{4}, 0, 0, 0, 1, 2, 3, 0, 0);
  const Datum b(Spheroid{4}, 0, 0, 0, 1, 3, 3, 0, 0);
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(b == a);
}

TEST(DatumTest, EveryValueTakesPartInEqualityButNotTheNumber) {
  const Datum base(Spheroid{4}, 1, 2, 2, 3, 4, 4, 5, 6);
  EXPECT_TRUE(base == Datum(Spheroid{4}, 1, 2, 2, 3, 4, 4, 5, 6));
  EXPECT_FALSE(base == Datum(Spheroid{5}, 1, 2, 2, 3, 4, 4, 5, 6));
  EXPECT_FALSE(base == Datum(Spheroid{4}, 9, 2, 2, 3, 4, 4, 5, 6));
  EXPECT_TRUE(base == Datum(Spheroid{4}, 1, 9, 2, 3, 4, 4, 5, 6)) << "the other's second shift is not read";
  EXPECT_FALSE(base == Datum(Spheroid{4}, 1, 2, 9, 3, 4, 4, 5, 6));
  EXPECT_FALSE(base == Datum(Spheroid{4}, 1, 2, 2, 9, 4, 4, 5, 6));
  EXPECT_TRUE(base == Datum(Spheroid{4}, 1, 2, 2, 3, 9, 4, 5, 6)) << "nor is its second rotation";
  EXPECT_FALSE(base == Datum(Spheroid{4}, 1, 2, 2, 3, 4, 9, 5, 6));
  EXPECT_FALSE(base == Datum(Spheroid{4}, 1, 2, 2, 3, 4, 4, 9, 6));
  EXPECT_FALSE(base == Datum(Spheroid{4}, 1, 2, 2, 3, 4, 4, 5, 9));
  Datum renumbered = base;
  renumbered.id = 7;
  EXPECT_TRUE(base == renumbered);
}

}  // namespace
}  // namespace Pelor::MI
