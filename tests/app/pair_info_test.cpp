#include "app/inspect/pair_info.h"

#include "app/inspect/coord_sys_words.h"
#include "failure_text.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <string>

namespace App {
namespace {

namespace MI = Pelor::MI;

constexpr std::string_view kMif =
    "Version 650\n"
    "Charset \"WindowsLatin1\"\n"
    "Delimiter \",\"\n"
    "Unique 1\n"
    "Index 1,2\n"
    "CoordSys Earth Projection 8, 104, \"m\", 9, 0, 0.9996, 500000, 0\n"
    "Columns 2\n"
    "  Id Integer\n"
    "  Stra\xDF"
    "e Char(20)\n"
    "Data\n"
    "Point 1 2\n"
    "Multipoint 1\n"
    "5 5\n"
    "Line -1.5 2 3 40\n"
    "Point 3 4\n"
    "None\n";
constexpr std::string_view kMid = "1,a\n2,b\n3,c\n4,d\n5,e\n";

PairInfo InfoOf(const ScratchFolder& folder, std::string_view mif, std::string_view mid) {
  Input input{InputKind::kPair, folder.Write("a.mif", mif), {}};
  if (!mid.empty()) input.mid = folder.Write("a.mid", mid);
  PairInfo info = ReadPairInfo(input);
  info.mif = "a.mif";
  if (!mid.empty()) info.mid = "a.mid";
  return info;
}

TEST(PairInfoTest, TellsWhatIsInAPair) {
  const ScratchFolder folder;
  std::ostringstream out;
  Print(InfoOf(folder, kMif, kMid), out);
  EXPECT_EQ(out.str(),
            "a.mif\n"
            "  Kind              interchange pair, version 650, 237 bytes\n"
            "  Rows              5 in a.mid\n"
            "  Character set     WindowsLatin1\n"
            "  Delimiter         comma\n"
            "  Coordinates       UTM zone 32, datum 104 (WGS 84), in m\n"
            "                    CoordSys Earth Projection 8,104,\"m\",9,0,0.9996,500000,0\n"
            "  Columns           Id Integer, unique, indexed\n"
            "                    Straße Char(20), indexed\n"
            "  Objects           4\n"
            "  By kind           1 Line\n"
            "                    1 None\n"
            "                    2 Point\n"
            "  Not read          1 Multipoint: objects of this kind are not read\n"
            "  Extent            x from -1.5 to 3\n"
            "                    y from 2 to 40\n");
}

TEST(PairInfoTest, TellsItAsJson) {
  const ScratchFolder folder;
  EXPECT_EQ(ToJson(InfoOf(folder, kMif, kMid)), nlohmann::ordered_json::parse(R"--({
    "file": "a.mif", "format": "pair", "mid": "a.mid", "bytes": 237, "version": 650, "charset": "WindowsLatin1",
    "delimiter": ",",
    "coordsys": {"clause": "CoordSys Earth Projection 8,104,\"m\",9,0,0.9996,500000,0",
                 "text": "UTM zone 32, datum 104 (WGS 84), in m"},
    "columns": [{"name": "Id", "type": "Integer", "unique": true, "indexed": true},
                {"name": "Straße", "type": "Char(20)", "unique": false, "indexed": true}],
    "objects": {"count": 4,
      "by_kind": [{"kind": "Line", "count": 1}, {"kind": "None", "count": 1}, {"kind": "Point", "count": 2}],
      "skipped": [{"kind": "Multipoint", "reason": "objects of this kind are not read", "count": 1}]},
    "rows": 5,
    "extent": {"low": {"x": -1.5, "y": 2.0}, "high": {"x": 3.0, "y": 40.0}}})--"));
}

TEST(PairInfoTest, APairMayHaveNoRowsNoSystemAndNoGeometry) {
  const ScratchFolder folder;
  const PairInfo info = InfoOf(folder, "Version 300\nColumns 0\nData\n\nNone\n", "");
  std::ostringstream out;
  Print(info, out);
  EXPECT_EQ(out.str(),
            "a.mif\n"
            "  Kind              interchange pair, version 300, 33 bytes\n"
            "  Rows              none, as there is no MID file\n"
            "  Character set     WindowsLatin1\n"
            "  Delimiter         tab\n"
            "  Coordinates       longitude and latitude, as the header says nothing else\n"
            "  Columns           none\n"
            "  Objects           1\n"
            "  By kind           1 None\n"
            "  Extent            none, as there is no geometry\n");
  EXPECT_TRUE(ToJson(info).at("mid").is_null());
  EXPECT_TRUE(ToJson(info).at("coordsys").is_null());
  EXPECT_TRUE(ToJson(info).at("extent").is_null());
}

TEST(PairInfoTest, AFaultyHeaderIsAFailure) {
  const ScratchFolder folder;
  EXPECT_NE(FailureText([&] {
              static_cast<void>(InfoOf(folder, "Version 300\nColumns 1\n Id LargeInt\nData\n", "1\n"));
            }),
            "");
}

TEST(CoordSysWordsTest, NamesProjectionDatumUnitsAndParameters) {
  const Vanth::BoundsXY none;
  EXPECT_EQ(InWords(MI::CoordSys(MI::LongLat_t(), MI::Datum(MI::StdDatum_WGS84), none)),
            "longitude and latitude, datum 104 (WGS 84)");
  EXPECT_EQ(InWords(MI::CoordSys(MI::NonEarth_t(), MI::Units_mm, none)),
            "a plane that is not on the earth, in mm");
  EXPECT_EQ(InWords(MI::CoordSys(MI::NonEarth_t(), MI::Units_Unknown, none)),
            "a plane that is not on the earth, in unknown units");
  EXPECT_EQ(InWords(MI::CoordSys(MI::TM_t(), MI::Datum(static_cast<MI::StdDatum>(28)), MI::Units_km, 15, 0, 1,
                                 5000, 1, none)),
            "transverse Mercator, datum 28 (European 1950), in km; origin longitude 15; origin latitude 0; "
            "scale factor 1; "
            "false easting 5000; false northing 1");
  EXPECT_EQ(InWords(MI::CoordSys(static_cast<MI::Projection>(25), MI::Datum(static_cast<MI::StdDatum>(1)),
                                 MI::Units_m, none))
                .substr(0, 23),
            "projection 25, datum 1,");
  EXPECT_EQ(
      InWords(MI::CoordSys(MI::LongLat_t(), MI::Datum(static_cast<MI::Spheroid>(4), -303, -62, 105), none)),
      "longitude and latitude, a datum of its own");
}

}  // namespace
}  // namespace App
