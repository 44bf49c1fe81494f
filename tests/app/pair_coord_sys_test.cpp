#include "app/pair/coord_sys_text.h"
#include "failure_text.h"

#include <gtest/gtest.h>

#include <string>

namespace App {
namespace {

namespace MI = Pelor::MI;

std::string ParseFailure(const char* clause) {
  return FailureText([clause] { static_cast<void>(ParseCoordSys(clause)); });
}

TEST(CoordSysTextTest, ReadsAClauseWithAndWithoutItsKeyword) {
  const MI::CoordSys utm(MI::TM_t(), MI::Datum(MI::StdDatum{104}), MI::Units_m, 9, 0, 0.9996, 500000, 0, {});
  for (const char* clause : {"CoordSys Earth Projection 8, 104, \"m\", 9, 0, 0.9996, 500000, 0",
                             "coordsys earth projection 8,104,\"m\",9,0,0.9996,500000,0",
                             "  Earth\n Projection 8, 104, m, 9, 0, 0.9996, 500000, 0  "}) {
    EXPECT_EQ(*ParseCoordSys(clause), utm) << clause;
    EXPECT_EQ(ParseCoordSys(clause)->projection, utm.projection) << clause;
  }
}

TEST(CoordSysTextTest, ReadsAPlane) {
  const auto plane = ParseCoordSys("NonEarth Units \"ft\" Bounds (0, -1) (2, 3)");
  EXPECT_EQ(plane->kind, MI::CoordSys::kNonEarth);
  EXPECT_EQ(plane->units, MI::Units_ft);
  EXPECT_EQ(plane->bounds, Vanth::BoundsXY(0, -1, 2, 3));
}

TEST(CoordSysTextTest, FaultHasItsPlace) {
  EXPECT_EQ(
      ParseFailure("Earth Projection 8, 104, \"m\", 9"),
      "the coordinate system \"Earth Projection 8, 104, \"m\", 9\" is not understood: too few arguments at "
      "column 32");
  EXPECT_EQ(ParseFailure("Mars"),
            "the coordinate system \"Mars\" is not understood: Invalid CoordSys at column 5");
  EXPECT_EQ(
      ParseFailure("NonEarth Units \"m\""),
      "the coordinate system \"NonEarth Units \"m\"\" is not understood: Expected: Bounds at column 19");
  EXPECT_EQ(
      ParseFailure("Earth Projection 1, 104 please"),
      "the coordinate system \"Earth Projection 1, 104 please\" is not understood: nothing may follow at "
      "column 25");
}

TEST(CoordSysTextTest, UnknownUnitsAreRefused) {
  EXPECT_EQ(
      ParseFailure("NonEarth Units \"ell\" Bounds (0, 0) (1, 1)"),
      "the coordinate system \"NonEarth Units \"ell\" Bounds (0, 0) (1, 1)\" has units that are not known");
}

TEST(CoordSysTextTest, WritableSystemsHaveUnitsAndPlanesHaveBounds) {
  const auto failure = [](const MI::CoordSys& system) {
    return FailureText([&] { ThrowIfNotWritable(system); });
  };
  EXPECT_EQ(failure(MI::CoordSys()), "");
  EXPECT_EQ(failure(MI::CoordSys(MI::NonEarth_t(), MI::Units_m, {0, 0, 1, 1})), "");
  EXPECT_EQ(failure(MI::CoordSys(MI::NonEarth_t(), MI::Units_m, {})),
            "a coordinate system that is not on the earth needs bounds; give the system with --coordsys");
  EXPECT_EQ(failure(MI::CoordSys(MI::NonEarth_t(), MI::Units_Unknown, {0, 0, 1, 1})),
            "the units of the coordinate system are not known; give the system with --coordsys");
}

TEST(CoordSysTextTest, TellsWhetherTenDigitsAreEnough) {
  EXPECT_TRUE(IsWrittenExactly(*ParseCoordSys("Earth Projection 8, 104, \"m\", 9, 0, 0.9996, 500000, 0")));
  EXPECT_TRUE(IsWrittenExactly(*ParseCoordSys("Earth Projection 8, 104, \"m\", 9.123456789, 0, 1, 0, 0")));
  EXPECT_FALSE(IsWrittenExactly(*ParseCoordSys("Earth Projection 8, 104, \"m\", 9.12345678901, 0, 1, 0, 0")));
}

}  // namespace
}  // namespace App
