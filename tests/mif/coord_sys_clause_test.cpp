#include <pelor/mif/coord_sys_clause.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <tests/mif/mif_text.h>
#include <vector>

namespace {

using namespace Pelor;
using MI::CoordSys;
using MI::Datum;
using Vanth::BoundsXY;

template <class T>
std::string Text(const T& value) {
  return MifText([&](std::ostream& out) { MIF::Write(value, out); });
}

const BoundsXY kNone;

TEST(DatumClauseTest, AStandardDatumIsItsNumber) {
  EXPECT_EQ(Text(Datum(MI::StdDatum_WGS84)), "104");
  EXPECT_EQ(Text(Datum(static_cast<MI::StdDatum>(113))), "113");
  EXPECT_EQ(Text(Datum(static_cast<MI::StdDatum>(1000))), "1000");
}

TEST(DatumClauseTest, OtherDatumsAreTheirValues) {
  EXPECT_EQ(Text(Datum(static_cast<MI::Spheroid>(4), -303, -62, 105)), "999,4,-303,-62,105");
  EXPECT_EQ(Text(Datum(static_cast<MI::Spheroid>(10), 1.5, 2, 3, -1.04, -0.35, 3.08, 8.3, 2.33723)),
            "9999,10,1.5,2,3,-1.04,-0.35,3.08,8.3,2.33723");
}

TEST(DatumClauseTest, ValuesOfAFurtherStandardDatumStay999) {
  Mif mif("999,4,-303,-62,105 rest");
  Datum datum;
  EXPECT_TRUE(MIF::Read(datum, mif.in));
  EXPECT_EQ(datum.id, 999);
  EXPECT_EQ(static_cast<int>(datum.spheroid), 4);
  EXPECT_EQ(datum.dz, 105);
  EXPECT_EQ(mif.Rest(), " rest");
}

TEST(DatumClauseTest, ANumberIsReadAsTheStandardDatum) {
  Mif mif("113");
  Datum datum;
  EXPECT_TRUE(MIF::Read(datum, mif.in));
  EXPECT_EQ(datum.id, 113);
  EXPECT_EQ(datum.dx, -303);
}

TEST(DatumClauseTest, AnUnknownNumberGivesDatumZeroWithoutComplaint) {
  Mif mif("500");
  Datum datum(MI::StdDatum_WGS84);
  EXPECT_TRUE(MIF::Read(datum, mif.in));
  EXPECT_EQ(datum.id, 0);
  EXPECT_TRUE(mif.messages.empty());
}

TEST(DatumClauseTest, NineValuesAreReadIntoTheirFields) {
  Mif mif("9999 , 3, 1,2, 3,4 ,5,6,7,8");
  Datum datum;
  EXPECT_TRUE(MIF::Read(datum, mif.in));
  EXPECT_EQ(datum.id, 9999);
  EXPECT_EQ(static_cast<int>(datum.spheroid), 3);
  const std::vector<double> values = {datum.dx, datum.dy, datum.dz,    datum.rx,
                                      datum.ry, datum.rz, datum.scale, datum.primeMeridian};
  EXPECT_EQ(values, (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(DatumClauseTest, WhatIsMissingMakesItInvalid) {
  for (const char* text : {"", "x", "999", "999,4", "999,4,1,2", "999 4 1 2 3", "999,4,1,2,x",
                           "9999,4,1,2,3,4,5,6,7", "999,4.5,1,2,3"}) {
    Mif mif(text);
    Datum datum(MI::StdDatum_WGS84);
    EXPECT_FALSE(MIF::Read(datum, mif.in)) << text;
    EXPECT_EQ(datum.id, 104) << text;
    ASSERT_EQ(mif.messages.size(), 1U) << text;
    EXPECT_TRUE(mif.messages[0].starts_with("Invalid Datum@ test.mif, line 1, column ")) << mif.messages[0];
  }
}

TEST(BoundsClauseTest, IsWrittenWithTheBlankBeforeIt) {
  EXPECT_EQ(Text(BoundsXY(0, 0, 100, 100)), " Bounds (0, 0) (100, 100)");
  EXPECT_EQ(Text(BoundsXY(10.5, 3, -1234567.891, -0.25)), " Bounds (-1234567.891, -0.25) (10.5, 3)");
  EXPECT_EQ(Text(kNone), "");
}

TEST(BoundsClauseTest, IsReadWithAnySpacing) {
  for (const char* text : {" Bounds (-1, -2) (3, 4)", "bounds(-1,-2)(3,4)", "BOUNDS ( -1 , -2 ) , ( 3 , 4 )",
                           "Bounds\n(-1,\n-2)\r\n\t(3 4)"}) {
    Mif mif(text);
    BoundsXY bounds;
    EXPECT_TRUE(MIF::Read(bounds, mif.in)) << text;
    EXPECT_EQ(bounds, BoundsXY(-1, -2, 3, 4)) << text;
  }
}

TEST(BoundsClauseTest, WhatIsMalformedGivesEmptyBounds) {
  for (const char* text :
       {"", "(0, 0) (1, 1)", "Bounds", "Bounds (0, 0)", "Bounds (0) (1, 1)", "Bounds (0, 0, 0) (1, 1)",
        "Bounds (0, x) (1, 1)", "Bounds (0, 0) (1, 1", "Bounds 0, 0 1, 1"}) {
    Mif mif(text);
    BoundsXY bounds(5, 5, 6, 6);
    EXPECT_FALSE(MIF::Read(bounds, mif.in)) << text;
    EXPECT_TRUE(bounds.IsEmpty()) << text;
    ASSERT_EQ(mif.messages.size(), 1U) << text;
    EXPECT_TRUE(mif.messages[0].starts_with("Invalid Bounds@ test.mif, ")) << mif.messages[0];
  }
}

TEST(CoordSysClauseTest, TheTextsOfTheCommonSystems) {
  const Datum wgs84(MI::StdDatum_WGS84);
  EXPECT_EQ(Text(CoordSys(MI::LongLat_t(), wgs84, kNone)), "CoordSys Earth Projection 1,104");
  EXPECT_EQ(Text(CoordSys(MI::UTM_t(), wgs84, 18, kNone)),
            "CoordSys Earth Projection 8,104,\"m\",-75,0,0.9996,500000,0");
  EXPECT_EQ(Text(CoordSys(MI::NonEarth_t(), MI::Units_m, BoundsXY(0, 0, 100, 100))),
            "CoordSys NonEarth Units \"m\" Bounds (0, 0) (100, 100)");
  EXPECT_EQ(Text(CoordSys(MI::NonEarth_t(), MI::Units_SurveyFt, kNone)),
            "CoordSys NonEarth Units \"survey ft\"");
  EXPECT_EQ(Text(CoordSys(MI::LambertAzEqa_t(), Datum(static_cast<MI::Spheroid>(4), 1, 2, 3), MI::Units_km, 9,
                          48, 90, BoundsXY(-1, -2, 3, 4))),
            "CoordSys Earth Projection 4,999,4,1,2,3,\"km\",9,48,90 Bounds (-1, -2) (3, 4)");
}

TEST(CoordSysClauseTest, LongitudeAndLatitudeReadsBackToTheSameText) {
  Mif mif("CoordSys Earth Projection 1,104");
  CoordSys system(MI::UTM_t(), Datum(), 31, kNone);
  EXPECT_TRUE(MIF::Read(system, mif.in));
  EXPECT_EQ(static_cast<int>(system.units), -1);
  EXPECT_EQ(system.GetNParameters(), 0);
  EXPECT_EQ(Text(system), "CoordSys Earth Projection 1,104");
}

// Every projection number, with all its parameters, written and read back.
TEST(CoordSysClauseTest, EveryProjectionReadsBackToTheSameText) {
  for (int number = 1; number <= 25; ++number) {
    CoordSys system(static_cast<MI::Projection>(number), Datum(static_cast<MI::StdDatum>(66)),
                    number == 1 ? MI::Units_deg : MI::Units_ft, BoundsXY(-10, -20, 30, 40));
    for (int i = 0; i < system.GetNParameters(); ++i) system.SetParameter(i, i * 10 + 0.5);
    const std::string text = Text(system);
    Mif mif(text + "\nTransform");
    CoordSys read;
    EXPECT_TRUE(MIF::Read(read, mif.in)) << text;
    EXPECT_EQ(Text(read), text);
    EXPECT_EQ(static_cast<int>(read.projection), number);
    EXPECT_EQ(read.datum.id, 66);
    EXPECT_EQ(mif.Rest(), "\nTransform");
  }
}

TEST(CoordSysClauseTest, RealSpellingsAreRead) {
  for (const char* text : {"Earth Projection 8,104,\"m\",-75,0,0.9996,500000,0",
                           "COORDSYS EARTH PROJECTION 8, 104, \"m\", -75, 0, 0.9996, 500000, 0",
                           "coordsys earth\tprojection 8,104,\"M\",-7.5e1,+0,.9996,5E5,0"}) {
    Mif mif(text);
    CoordSys system;
    EXPECT_TRUE(MIF::Read(system, mif.in)) << text;
    EXPECT_EQ(system.GetUTMZone(), 18) << text;
  }
}

TEST(CoordSysClauseTest, AnUnknownUnitNameIsAcceptedAndGives33) {
  Mif earth("CoordSys Earth Projection 10,104,\"metre\",7");
  CoordSys system;
  EXPECT_TRUE(MIF::Read(system, earth.in));
  EXPECT_EQ(static_cast<int>(system.units), 33);
  EXPECT_TRUE(earth.messages.empty());
  Mif plane("CoordSys NonEarth Units \"metre\" Bounds (0,0) (1,1)");
  EXPECT_TRUE(MIF::Read(system, plane.in));
  EXPECT_EQ(static_cast<int>(system.units), 33);
  EXPECT_TRUE(plane.messages.empty());
}

struct Fault {
  const char* text;
  const char* message;
};

TEST(CoordSysClauseTest, EveryFaultHasItsMessage) {
  const Fault faults[] = {
      {"", "Invalid CoordSys@ test.mif, line 1, column 1"},
      {"CoordSys Layout", "Invalid CoordSys@ test.mif, line 1, column 16"},
      {"CoordSys\n Mars", "Invalid CoordSys@ test.mif, line 2, column 6"},
      {"CoordSys NonEarth \"m\"", "Expected: Units@ test.mif, line 1, column 18"},
      {"CoordSys NonEarth Units", "Invalid CoordSys@ test.mif, line 1, column 24"},
      {"CoordSys NonEarth Units \"m\"", "Expected: Bounds@ test.mif, line 1, column 28"},
      {"CoordSys NonEarth Units \"m\" Data", "Expected: Bounds@ test.mif, line 1, column 28"},
      {"CoordSys NonEarth Units \"m\", Bounds (0,0) (1,1)",
       "comma not expected@ test.mif, line 1, column 29"},
      {"CoordSys Earth 8,104", "Expected: Projection@ test.mif, line 1, column 15"},
      {"CoordSys Earth Projection x", "Invalid CoordSys@ test.mif, line 1, column 26"},
      {"CoordSys Earth Projection 8", "Invalid Datum@ test.mif, line 1, column 28"},
      {"CoordSys Earth Projection 8,999,4", "Invalid Datum@ test.mif, line 1, column 34"},
      {"CoordSys Earth Projection 8,104", "Invalid CoordSys@ test.mif, line 1, column 32"},
      {"CoordSys Earth Projection 10,104,\"m\"", "Invalid number of parameters@ test.mif, line 1, column 37"},
      {"CoordSys Earth Projection 10,104,\"m\" 7",
       "Invalid number of parameters@ test.mif, line 1, column 37"},
      {"CoordSys Earth Projection 10,104,\"m\",x",
       "Invalid number of parameters@ test.mif, line 1, column 37"},
      {"CoordSys Earth Projection 2,104,\"m\",7", "too few arguments@ test.mif, line 1, column 38"},
      {"CoordSys Earth Projection 2,104,\"m\",7,8,9", "too many arguments@ test.mif, line 1, column 40"},
      {"CoordSys Earth Projection 1,104 Bounds 1", "Invalid Bounds@ test.mif, line 1, column 39"},
      {"CoordSys NonEarth Units \"m\" Bounds (1)", "Invalid Bounds@ test.mif, line 1, column 38"},
  };
  for (const Fault& fault : faults) {
    Mif mif(fault.text);
    CoordSys system;
    EXPECT_FALSE(MIF::Read(system, mif.in)) << fault.text;
    ASSERT_EQ(mif.messages.size(), 1U) << fault.text;
    EXPECT_EQ(mif.messages[0], fault.message) << fault.text;
  }
}

TEST(CoordSysClauseTest, ParametersBeforeAFaultStay) {
  Mif mif("CoordSys Earth Projection 2,104,\"m\",7");
  CoordSys system;
  EXPECT_FALSE(MIF::Read(system, mif.in));
  EXPECT_EQ(static_cast<int>(system.projection), 2);
  EXPECT_EQ(system.GetParameter(0), 7);
}

TEST(CoordSysClauseTest, NumbersFollowTheStreamsPrecision) {
  std::ostringstream out;
  out.precision(3);
  MIF::Write(CoordSys(MI::Mercator_t(), Datum(MI::StdDatum_WGS84), MI::Units_m, 7.12345, kNone), out);
  EXPECT_EQ(out.str(), "CoordSys Earth Projection 10,104,\"m\",7.12");
}

}  // namespace
