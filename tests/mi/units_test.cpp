#include <pelor/mi/units.h>

#include <gtest/gtest.h>

#include <limits>
#include <string_view>

namespace Pelor::MI {
namespace {

struct UnitCase {
  int number;
  const char* name;
  double metres;
};

constexpr UnitCase kUnitCases[] = {
    {-1, "deg", 111195.05197560512},
    {0, "mi", 1609.344},
    {1, "km", 1000.0},
    {2, "in", 0.0254},
    {3, "ft", 0.3048},
    {4, "yd", 0.9144},
    {5, "mm", 0.001},
    {6, "cm", 0.01},
    {7, "m", 1.0},
    {8, "survey ft", 0.30480060960121924},
    {9, "nmi", 1852.0},
    {30, "li", 0.201168},
    {31, "ch", 20.1168},
    {32, "rd", 5.0292},
};

constexpr int kNoUnits[] = {
    -2, 10, 15, 29, 33, 34, 1000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};

TEST(UnitsTest, EveryUnitHasItsNameAndFactor) {
  for (const UnitCase& c : kUnitCases) {
    SCOPED_TRACE(c.name);
    const auto unit = static_cast<Units>(c.number);
    EXPECT_EQ(GetUnitName(unit), Tobri::String(c.name));
    EXPECT_EQ(GetUnits(c.name), c.number);
    EXPECT_EQ(UnitsConv(1.0, unit, Units_m), c.metres);
  }
}

TEST(UnitsTest, EnumeratorsHaveTheNumbersOfTheTable) {
  EXPECT_EQ(Units_deg, -1);
  EXPECT_EQ(Units_mi, 0);
  EXPECT_EQ(Units_km, 1);
  EXPECT_EQ(Units_in, 2);
  EXPECT_EQ(Units_ft, 3);
  EXPECT_EQ(Units_yd, 4);
  EXPECT_EQ(Units_mm, 5);
  EXPECT_EQ(Units_cm, 6);
  EXPECT_EQ(Units_m, 7);
  EXPECT_EQ(Units_SurveyFt, 8);
  EXPECT_EQ(Units_nmi, 9);
  EXPECT_EQ(Units_li, 30);
  EXPECT_EQ(Units_ch, 31);
  EXPECT_EQ(Units_rd, 32);
  EXPECT_EQ(Units_Unknown, 33);
}

TEST(UnitsTest, TheSurveyFootIs1200Of3937Metres) {
  EXPECT_DOUBLE_EQ(UnitsConv(1.0, Units_SurveyFt, Units_m), 1200.0 / 3937.0);
}

TEST(UnitsTest, AUnitOutsideTheTableHasNoName) {
  for (const int number : kNoUnits) EXPECT_EQ(GetUnitName(static_cast<Units>(number)), Tobri::String());
}

TEST(UnitsTest, NamesAreFoundInAnyCase) {
  EXPECT_EQ(GetUnits("M"), 7);
  EXPECT_EQ(GetUnits("m"), 7);
  EXPECT_EQ(GetUnits("Survey FT"), 8);
  EXPECT_EQ(GetUnits("DEG"), -1);
}

TEST(UnitsTest, OnlyAWholeNameIsFound) {
  EXPECT_EQ(GetUnits("metre"), 33);
  EXPECT_EQ(GetUnits("m "), 33);
  EXPECT_EQ(GetUnits(" m"), 33);
  EXPECT_EQ(GetUnits("survey"), 33);
  EXPECT_EQ(GetUnits(""), 33);
  EXPECT_EQ(GetUnits(Tobri::String(std::string_view("m\0", 2))), 33);
}

TEST(UnitsTest, ConversionGoesThroughMetres) {
  EXPECT_EQ(UnitsConv(1.0, Units_ft, Units_m), 0.3048);
  EXPECT_EQ(UnitsConv(1.0, Units_deg, Units_km), 111.19505197560512);
  EXPECT_EQ(UnitsConv(2.0, Units_km, Units_m), 2000.0);
  EXPECT_EQ(UnitsConv(-3.0, Units_yd, Units_ft), -3.0 * 0.9144 / 0.3048);
}

TEST(UnitsTest, ATargetOutsideTheTableSkipsTheDivision) {
  for (const int number : kNoUnits) {
    EXPECT_EQ(UnitsConv(5.0, Units_m, static_cast<Units>(number)), 5.0);
    EXPECT_EQ(UnitsConv(5.0, Units_km, static_cast<Units>(number)), 5000.0);
  }
}

TEST(UnitsTest, ASourceOutsideTheTableGivesZero) {
  for (const int number : kNoUnits) EXPECT_EQ(UnitsConv(5.0, static_cast<Units>(number), Units_m), 0.0);
}

TEST(UnitsTest, AutoUnitsStepsAtTenMillimetresAMetreAndAKilometre) {
  EXPECT_EQ(AutoUnits(9.99, Units_mm), Units_mm);
  EXPECT_EQ(AutoUnits(10.0, Units_mm), Units_cm);
  EXPECT_EQ(AutoUnits(1.0, Units_cm), Units_cm);
  EXPECT_EQ(AutoUnits(999.0, Units_mm), Units_cm);
  EXPECT_EQ(AutoUnits(1.0, Units_m), Units_m);
  EXPECT_EQ(AutoUnits(999.9, Units_m), Units_m);
  EXPECT_EQ(AutoUnits(1000.0, Units_m), Units_km);
  EXPECT_EQ(AutoUnits(1.0, Units_deg), Units_km);
}

TEST(UnitsTest, AutoUnitsOfANegativeLengthIsMillimetres) {
  EXPECT_EQ(AutoUnits(-5.0, Units_km), Units_mm);
  EXPECT_EQ(AutoUnits(-std::numeric_limits<double>::infinity(), Units_km), Units_mm);
}

TEST(UnitsTest, AutoUnitsOfNoNumberIsKilometres) {
  EXPECT_EQ(AutoUnits(std::numeric_limits<double>::quiet_NaN(), Units_m), Units_km);
  EXPECT_EQ(AutoUnits(std::numeric_limits<double>::infinity(), Units_m), Units_km);
}

TEST(UnitsTest, AutoUnitsOfAUnitOutsideTheTableIsMillimetres) {
  for (const int number : kNoUnits) EXPECT_EQ(AutoUnits(1e9, static_cast<Units>(number)), Units_mm);
}

}  // namespace
}  // namespace Pelor::MI
