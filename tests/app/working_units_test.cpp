#include "app/design/working_units.h"

#include "app/design/design_header.h"
#include "app/design/header_element.h"
#include <pelor/dgn.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/app/failure_text.h>
#include <tests/dgn/words.h>

namespace App {
namespace {

namespace DGN = Pelor::DGN;
namespace MI = Pelor::MI;

const UnitNames kMetres = {"m", "mm"};
const UnitNames kDegrees = {"dg", "md"};

/// "sub-units per master x units of resolution per sub-unit, origin".
std::string Describe(const WorkingUnits& units) {
  return std::to_string(units.subs_per_master) + " " + units.sub_name + " per " + units.master_name + " x " +
         std::to_string(units.uors_per_sub) + " from " + PrintedNumber(units.origin_x) + ", " +
         PrintedNumber(units.origin_y);
}

TEST(WorkingUnitsTest, KeepATenthOfTheLastPrintedDigitWhereThereIsRoom) {
  // 600000.0000 has its last digit at 0.001 when 5400000 stands beside it.
  const Vanth::BoundsXY extent(500000, 5300000, 600000, 5400000);
  const WorkingUnits units = ChooseUnits({extent, 3}, kMetres, {});
  EXPECT_EQ(Describe(units), "1000 mm per m x 10 from -6000000000, -5.4e+10");
  EXPECT_TRUE(KeepsAllDigits(units, {extent, 3}));
}

TEST(WorkingUnitsTest, KeepUpToFifteenSignificantDigits) {
  const Vanth::BoundsXY small(3500000, 5300000, 3500010, 5300010);
  EXPECT_EQ(Describe(ChooseUnits({small, 3}, kMetres, {})), "1000 mm per m x 10 from -3.5e+10, -5.3e+10");
  EXPECT_EQ(Describe(ChooseUnits({small, 6}, kMetres, {})), "1000 mm per m x 10000 from -3.5e+13, -5.3e+13");
  // The eighth decimal would be the fifteenth digit, and a tenth of it does not fit.
  const WorkingUnits units = ChooseUnits({small, 10}, kMetres, {});
  EXPECT_EQ(Describe(units), "1000 mm per m x 100000 from -3.5e+14, -5.3e+14");
  EXPECT_TRUE(KeepsAllDigits(units, {small, 10}));
}

TEST(WorkingUnitsTest, StayAtTheOriginWhereTheExtentAllowsIt) {
  EXPECT_EQ(Describe(ChooseUnits({{-20, 0, 20, 10}}, kMetres, {})), "1000 mm per m x 100000 from 0, 0");
  EXPECT_EQ(Describe(ChooseUnits({}, kMetres, {})), "1000 mm per m x 1 from 0, 0");
  EXPECT_EQ(Describe(ChooseUnits({{0, 0, 0, 0}}, kMetres, {})), "1000 mm per m x 1 from 0, 0");
}

TEST(WorkingUnitsTest, AreAsFineAsTheExtentAllowsElse) {
  const Vanth::BoundsXY world(-180, -90, 180, 83.6);
  const WorkingUnits units = ChooseUnits({world}, kDegrees, {});
  EXPECT_EQ(Describe(units), "1000 md per dg x 10000 from 0, 0");
  EXPECT_FALSE(KeepsAllDigits(units, {world}));
  EXPECT_EQ(Describe(ChooseUnits({{0, 0, 4e7, 1}}, kMetres, {})), "1 m per m x 100 from -2000000000, 0");
  EXPECT_EQ(Describe(ChooseUnits({{0, 0, 0.001, 0.001}}, kMetres, {})), "1000 mm per m x 1000000 from 0, 0");
}

TEST(WorkingUnitsTest, LeaveRoomForTheLargestCharacters) {
  // At a million units of resolution per metre characters end at 12.88 m.
  const Vanth::BoundsXY extent(0, 0, 420, 300);
  EXPECT_EQ(Describe(ChooseUnits({extent, 2, 12.8}, kMetres, {})), "1000 mm per m x 1000 from 0, 0");
  EXPECT_EQ(Describe(ChooseUnits({extent, 2, 12.9}, kMetres, {})), "1000 mm per m x 100 from 0, 0");
  EXPECT_EQ(Describe(ChooseUnits({extent, 2, 2000}, kMetres, {})), "1000 mm per m x 1 from 0, 0");
  // Also where coordinates are rounded for it.
  const WorkingUnits coarse = ChooseUnits({extent, 4, 2000}, kMetres, {});
  EXPECT_EQ(Describe(coarse), "1000 mm per m x 1 from 0, 0");
  EXPECT_FALSE(KeepsAllDigits(coarse, {extent, 4, 2000}));
}

TEST(WorkingUnitsTest, KeepTheDigitsThatAreThere) {
  const Vanth::BoundsXY extent(0, 0, 42000, 30000);
  WorkingUnits units;
  units.uors_per_sub = 10;
  EXPECT_TRUE(KeepsAllDigits(units, {extent, 3}));
  EXPECT_TRUE(KeepsAllDigits(units, {extent, 4}));
  EXPECT_FALSE(KeepsAllDigits(units, {extent, 5}));
  units.subs_per_master = 1;
  units.uors_per_sub = 12;
  EXPECT_TRUE(KeepsAllDigits(units, {extent, 1}));
  EXPECT_FALSE(KeepsAllDigits(units, {extent, 2}));
  EXPECT_TRUE(KeepsAllDigits(units, {}));
}

TEST(WorkingUnitsTest, TellHowFarRoundingMayMoveCoordinates) {
  WorkingUnits units;
  EXPECT_DOUBLE_EQ(HalfOfLastDigit(units, {{0, 0, 420, 300}, 4}), 0.05);
  EXPECT_DOUBLE_EQ(HalfOfLastDigit(units, {{0, 0, 420, 300}, 3}), 0.5);
  // The fifteenth digit is the eighth decimal; the rest is below what doubles hold.
  EXPECT_NEAR(HalfOfLastDigit(units, {{0, 0, 5300000, 300}, 10}), 0.000005, 1e-9);
}

TEST(WorkingUnitsTest, AreComparedWithThoseThatWouldBeChosen) {
  WorkingUnits units;
  const MapMeasure measure = {{0, 0, 420, 300}, 4};
  EXPECT_TRUE(AreCoarserThanChosen(units, measure));
  units.uors_per_sub = 10000;
  EXPECT_FALSE(AreCoarserThanChosen(units, measure));
  units.uors_per_sub = 1;
  EXPECT_FALSE(AreCoarserThanChosen(units, {{0, 0, 420, 300}, 4, 2000}));
}

TEST(WorkingUnitsTest, AreTakenAsGiven) {
  UnitChoice choice;
  choice.uors_per_master = 120;
  choice.names = ParseUnitNames("ft,tf");
  choice.middle = Vanth::PointXY{1000, -2000};
  EXPECT_EQ(Describe(ChooseUnits({{0, 0, 10, 10}}, kMetres, choice)),
            "1 ft per ft x 120 from -120000, 240000");
  choice.uors_per_master = 12000;
  EXPECT_EQ(Describe(ChooseUnits({{0, 0, 10, 10}}, kMetres, choice)),
            "1000 tf per ft x 12 from -12000000, 24000000");
}

TEST(WorkingUnitsTest, HaveAsManySubUnitsAsTheirNamesSay) {
  UnitChoice choice;
  const auto chosen = [&](const char* names, std::optional<std::int32_t> uors) {
    choice.names = ParseUnitNames(names);
    choice.uors_per_master = uors;
    return Describe(ChooseUnits({{0, 0, 100, 100}, 2}, kMetres, choice));
  };
  EXPECT_EQ(chosen("m,cm", 1000), "100 cm per m x 10 from 0, 0");
  EXPECT_EQ(chosen("FT,IN", 1200), "12 IN per FT x 100 from 0, 0");
  EXPECT_EQ(chosen("ft,ft", 7), "1 ft per ft x 7 from 0, 0");
  EXPECT_EQ(chosen("m,cm", {}), "100 cm per m x 100000 from 0, 0");
  EXPECT_EQ(chosen("ft,in", {}), "12 in per ft x 1000000 from 0, 0");
  EXPECT_EQ(chosen("dg,md", {}), "1000 md per dg x 10000 from 0, 0");
  EXPECT_EQ(FailureText([&] { (void)chosen("ft,in", 1000); }),
            "one ft is 12 in, among which 1000 units of resolution cannot be parted; a multiple of 12 can");
  // The plane ends at 2147483 m.
  EXPECT_EQ(
      FailureText([&] {
        choice = {};
        choice.names = ParseUnitNames("m,mm");
        (void)ChooseUnits({{0, 0, 4e7, 1}}, kMetres, choice);
      }),
      "the extent of the map, 0 to 40000000 by 0 to 1 m, does not fit: at 1000 units of resolution per m "
      "the design plane reaches from -2147483.648 to 2147483.647 by -2147483.648 to 2147483.647 m");
}

TEST(WorkingUnitsTest, LeaveRoomForCharactersInUnitsOfAnyNames) {
  UnitChoice choice;
  choice.names = ParseUnitNames("ft,in");
  EXPECT_EQ(Describe(ChooseUnits({{0, 0, 420, 300}, 2, 100}, kMetres, choice)),
            "12 in per ft x 10000 from 0, 0");
}

TEST(WorkingUnitsTest, RefuseAnExtentThatCannotFit) {
  EXPECT_EQ(
      FailureText([] {
        (void)ChooseUnits({{0, 0, 5e9, 10}}, kMetres, {});
      }),
      "the extent of the map, 0 to 5000000000 by 0 to 10 m, does not fit: at 1 units of resolution per m "
      "the design plane reaches from -2147483648 to 2147483647 by -2147483648 to 2147483647 m");
  EXPECT_NE(FailureText([] { (void)ChooseUnits({{-3e9, 0, 3e9, 10}}, kMetres, {}); }), "");
  UnitChoice choice;
  choice.uors_per_master = 100000000;
  EXPECT_EQ(FailureText([&] {
              (void)ChooseUnits({{-180, -90, 180, 90}}, kDegrees, choice);
            }),
            "the extent of the map, -180 to 180 by -90 to 90 dg, does not fit: at 100000000 units of "
            "resolution per dg the design plane reaches from -21.47483648 to 21.47483647 by -21.47483648 to "
            "21.47483647 dg");
  UnitChoice moved;
  moved.uors_per_master = 10;
  moved.middle = Vanth::PointXY{1e9, 0};
  EXPECT_NE(FailureText([&] { (void)ChooseUnits({{-180, -90, 180, 90}}, kDegrees, moved); }), "");
}

TEST(WorkingUnitsTest, HoldBothEndsOfThePlane) {
  UnitChoice choice;
  choice.uors_per_master = 1;
  EXPECT_EQ(FailureText([&] {
              (void)ChooseUnits({{-2147483648.0, 0, 2147483647, 1}}, kMetres, choice);
            }),
            "");
  EXPECT_NE(FailureText([&] {
              (void)ChooseUnits({{-2147483648.0, 0, 2147483648.0, 1}}, kMetres, choice);
            }),
            "");
}

TEST(WorkingUnitsTest, ChangeOnlyWhatIsAskedFor) {
  WorkingUnits seed;
  seed.subs_per_master = 10;
  seed.uors_per_sub = 12;
  seed.master_name = "ft";
  seed.sub_name = "tf";
  seed.origin_x = -240;
  EXPECT_EQ(Describe(ChangeUnits(seed, {})), "10 tf per ft x 12 from -240, 0");
  UnitChoice choice;
  choice.uors_per_master = 1200;
  EXPECT_EQ(Describe(ChangeUnits(seed, choice)), "10 tf per ft x 120 from -2400, 0");
  choice.uors_per_master = 15;
  choice.names = UnitNames{"yd", "ty"};
  choice.middle = Vanth::PointXY{2, 4};
  EXPECT_EQ(Describe(ChangeUnits(seed, choice)), "1 yd per yd x 15 from -30, -60");
  seed.origin_x = -0.25;
  EXPECT_EQ(ChangeUnits(seed, {}).origin_x, -0.25);
  EXPECT_EQ(ChangeUnits(seed, {.uors_per_master = {}, .names = UnitNames{"yd", "ty"}, .middle = {}}).origin_x,
            -0.25);
}

TEST(WorkingUnitsTest, OfASeedHaveAsManySubUnitsAsTheirNamesSay) {
  WorkingUnits seed;
  seed.subs_per_master = 12;
  seed.uors_per_sub = 100;
  seed.master_name = "ft";
  seed.sub_name = "in";
  UnitChoice choice;
  choice.uors_per_master = 1000;
  EXPECT_EQ(FailureText([&] { (void)ChangeUnits(seed, choice); }),
            "one ft is 12 in, among which 1000 units of resolution cannot be parted; a multiple of 12 can");
  choice.names = ParseUnitNames("m,mm");
  EXPECT_EQ(Describe(ChangeUnits(seed, choice)), "1000 mm per m x 1 from 0, 0");
  choice.uors_per_master = {};
  EXPECT_EQ(
      FailureText([&] { (void)ChangeUnits(seed, choice); }),
      "one m is 1000 mm, among which 1200 units of resolution cannot be parted; a multiple of 1000 can");
  // Too many for a long.
  seed.uors_per_sub = 2000000000;
  choice.names = ParseUnitNames("m,m");
  EXPECT_NE(FailureText([&] { (void)ChangeUnits(seed, choice); }), "");
}

TEST(UnitNamesTest, FollowTheCoordinateSystem) {
  const auto master = [](MI::Units units) {
    return NamesOf(Tobri::IRefC<MI::CoordSys>(new MI::CoordSys(MI::NonEarth_t(), units, {}))).master;
  };
  EXPECT_EQ(master(MI::Units_m), "m");
  EXPECT_EQ(master(MI::Units_km), "km");
  EXPECT_EQ(master(MI::Units_SurveyFt), "sf");
  EXPECT_EQ(master(MI::Units_deg), "dg");
  EXPECT_EQ(master(MI::Units_Unknown), "mu");
}

TEST(UnitNamesTest, OfAMapWithoutACoordinateSystemAreDegrees) {
  EXPECT_EQ(NamesOf(nullptr).master, "dg");
  EXPECT_EQ(NamesOf(nullptr).sub, "md");
}

TEST(UnitNamesTest, AreDifferentWhenBothAreKnown) {
  EXPECT_TRUE(AreDifferentUnits("m", "ft"));
  EXPECT_TRUE(AreDifferentUnits("ft", "sf"));
  EXPECT_TRUE(AreDifferentUnits("dg", "M"));
  EXPECT_FALSE(AreDifferentUnits("m", "M"));
  EXPECT_FALSE(AreDifferentUnits("m", "mu"));
  EXPECT_FALSE(AreDifferentUnits("mu", "m"));
}

TEST(UnitNamesTest, AreOneOrTwoLettersEach) {
  EXPECT_EQ(ParseUnitNames("m,mm").master, "m");
  EXPECT_EQ(ParseUnitNames("m,mm").sub, "mm");
  EXPECT_EQ(ParseUnitNames("km").sub, "su");
  for (const char* text : {"", "mm,", ",mm", "met", "m,mil", "m,m,m", "\xC2\xB5"}) {
    EXPECT_EQ(FailureText([&] { (void)ParseUnitNames(text); }),
              '"' + std::string(text) +
                  "\" names no units; give one or two letters for the master unit and, behind a comma, for "
                  "the sub-unit, as in m,mm");
  }
}

TEST(UnitNamesTest, OfKnownUnitsAreWholeNumbersOfEachOther) {
  EXPECT_EQ(SubsPerMaster({"km", "mm"}), 1000000);
  EXPECT_EQ(SubsPerMaster({"mi", "ft"}), 5280);
  EXPECT_EQ(SubsPerMaster({"yd", "in"}), 36);
  EXPECT_EQ(SubsPerMaster({"ch", "li"}), 100);
  EXPECT_EQ(SubsPerMaster({"ft", "th"}), std::nullopt);
  EXPECT_EQ(SubsPerMaster({"dg", "m"}), std::nullopt);
  EXPECT_EQ(SubsPerMaster({"m", "ft"}), std::nullopt);
  EXPECT_EQ(FailureText([] { (void)ParseUnitNames("m,ft"); }),
            "one m is 3.280839895 ft: designs have whole numbers of sub-units alone");
  EXPECT_EQ(FailureText([] { (void)ParseUnitNames("mm,m"); }),
            "one mm is 0.001 m: designs have whole numbers of sub-units alone");
}

TEST(HeaderElementTest, HoldsUnitsThatAllReadersSee) {
  WorkingUnits units;
  units.subs_per_master = 1000;
  units.uors_per_sub = 10000;
  units.master_name = "dg";
  units.sub_name = "md";
  units.origin_x = -1000000.0;
  units.origin_y = 0.1;
  ElementBytes bytes;
  WriteHeaderElement(bytes, units, {-1, -2, 3, 4});
  ASSERT_EQ(bytes.Size(), 1536U);
  EXPECT_EQ(dgn_test::InWords(bytes.View().substr(0, 28)),
            "0908 02FE 0000 0000 0000 0000 0000 0000 0000 0000"
            " 0000 0000 0000 0000");
  // The plane is 429.4967296 units wide.
  EXPECT_EQ(dgn_test::InWords(bytes.View().substr(1108, 12)), "0000 01AD 0000 03E8 0000 2710");
  EXPECT_EQ(dgn_test::InWords(bytes.View().substr(1240, 8)), "CA74 2400 0000 0000");

  const DesignHeader header = DesignHeader::Decode({bytes.Data(), bytes.Size()});
  EXPECT_FALSE(header.is_3d);
  EXPECT_EQ(header.UorsPerMaster(), 1e7);
  EXPECT_EQ(header.master_name, "dg");
  EXPECT_EQ(header.sub_name, "md");
  EXPECT_EQ(header.origin[0], -1000000.0);
  EXPECT_EQ(header.origin[1], 0.1);
  EXPECT_EQ(header.origin[2], 0.0);

  const dgn_test::TempFile design(std::string(bytes.View()) + "\xFF\xFF");
  DGN::File file(design.Name(), std::ios_base::in);
  const DGN::Parameters parameters(file);
  EXPECT_TRUE(parameters.valid);
  EXPECT_EQ(parameters.uors_per_master, 10000000);
  EXPECT_EQ(parameters.master_name, "dg");
  EXPECT_EQ(parameters.origin1, -1000000.0);
  EXPECT_EQ(parameters.header_word & 0x40, 0);
}

TEST(HeaderElementTest, ShowsTheExtentInItsViews) {
  ElementBytes bytes;
  WriteHeaderElement(bytes, {}, {-1, -2, 3, 8});
  // From (-1000, -2000), 4000 by 10000 units of resolution, with a margin of 500 around.
  for (std::size_t view = 0; view < 8; ++view) {
    EXPECT_EQ(dgn_test::InWords(bytes.View().substr(46 + 118 * view + 10, 8)), "FFFF FA24 FFFF F63C") << view;
    EXPECT_EQ(dgn_test::InWords(bytes.View().substr(46 + 118 * view + 22, 8)), "0000 1388 0000 2AF8") << view;
  }
}

}  // namespace
}  // namespace App
