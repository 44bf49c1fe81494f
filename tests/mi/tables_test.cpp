// Holds every table of the map model against a second copy of it: a listing in data/, one row a line. The
// listings were made apart from the library's tables, so that a slip of a digit in either of them shows.

#include <pelor/mi/column.h>
#include <pelor/mi/coord_sys.h>
#include <pelor/mi/datum.h>
#include <pelor/mi/object_type.h>
#include <pelor/mi/projection.h>
#include <pelor/mi/spheroid.h>
#include <pelor/mi/units.h>

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <initializer_list>
#include <iomanip>
#include <limits>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace Pelor::MI;

// The rows of a listing; lines that begin with '#' are remarks.
std::string Listing(const std::string& name) {
  std::ifstream in(PELOR_MI_TEST_DATA + ("/" + name));
  EXPECT_TRUE(in.is_open()) << name;
  std::string rows;
  for (std::string line; std::getline(in, line);) {
    if (!line.starts_with('#')) rows += line + '\n';
  }
  return rows;
}

std::vector<std::vector<std::string>> Fields(const std::string& rows) {
  std::vector<std::vector<std::string>> fields;
  std::istringstream lines(rows);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream row(line);
    fields.emplace_back();
    for (std::string field; row >> field;) fields.back().push_back(field);
  }
  return fields;
}

// The shortest decimal number that reads back as `value`, without an exponent.
std::string Number(double value) {
  std::array<char, 400> buffer;
  const auto end = std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::fixed).ptr;
  return {buffer.begin(), end};
}

// Numbers on both sides of every table, and the two ends of the type.
std::vector<std::int32_t> Numbers() {
  std::vector<std::int32_t> numbers = {std::numeric_limits<std::int32_t>::min()};
  for (std::int32_t number = -100; number < 12000; ++number) numbers.push_back(number);
  numbers.push_back(std::numeric_limits<std::int32_t>::max());
  return numbers;
}

TEST(TablesTest, Units) {
  std::ostringstream rows;
  for (const std::int32_t number : Numbers()) {
    const auto unit = static_cast<Units>(number);
    const double factor = UnitsConv(1.0, unit, Units_m);
    const Tobri::String name = GetUnitName(unit);
    if (factor != 0.0 || !name.IsEmpty()) rows << number << ' ' << Number(factor) << ' ' << name << '\n';
  }
  EXPECT_EQ(rows.str(), Listing("units.txt"));
}

TEST(TablesTest, UnitNamesAreReadAsTheirNumbers) {
  std::ostringstream rows;
  std::istringstream listing(Listing("units.txt"));
  std::string number;
  std::string factor;
  std::string name;
  while (listing >> number >> factor && std::getline(listing >> std::ws, name)) {
    rows << GetUnits(name) << ' ' << factor << ' ' << name << '\n';
  }
  EXPECT_EQ(rows.str(), Listing("units.txt"));
}

TEST(TablesTest, Spheroids) {
  std::ostringstream rows;
  for (const std::int32_t number : Numbers()) {
    const auto spheroid = static_cast<Spheroid>(number);
    const double axis = GetMajorSemiAxis(spheroid);
    const double flattening = GetInverseFlattening(spheroid);
    if (axis != 0.0 || flattening != 0.0) {
      rows << number << ' ' << Number(axis) << ' ' << Number(flattening) << '\n';
    }
  }
  EXPECT_EQ(rows.str(), Listing("spheroids.txt"));
}

TEST(TablesTest, Datums) {
  std::ostringstream rows;
  for (const std::int32_t number : Numbers()) {
    const Datum datum(static_cast<StdDatum>(number));
    if (datum.id != number) continue;
    rows << number << ' ' << datum.spheroid;
    for (const double value :
         {datum.dx, datum.dy, datum.dz, datum.rx, datum.ry, datum.rz, datum.scale, datum.primeMeridian}) {
      rows << ' ' << Number(value);
    }
    rows << '\n';
  }
  EXPECT_EQ(rows.str(), Listing("datums.txt"));
}

TEST(TablesTest, DatumNumbersOutsideTheTableGiveDatumZero) {
  int outside = 0;
  for (const std::int32_t number : Numbers()) {
    const Datum datum(static_cast<StdDatum>(number));
    if (datum.id == number) continue;
    EXPECT_EQ(datum.id, 0) << number;
    EXPECT_EQ(datum, Datum(StdDatum_Default)) << number;
    ++outside;
  }
  EXPECT_EQ(outside, 12102 - 118);
}

// The value that a constructor is given as its parameter i, counted from 0.
double ParameterValue(std::size_t i) {
  return 10.5 + static_cast<double>(i);
}

template <std::size_t>
using Double = double;

// Calls the constructor of the tag with as many numbers as it takes.
template <class Tag, std::size_t... I>
CoordSys MakeWith(std::index_sequence<I...>) {
  static_assert(sizeof...(I) <= kPrjParCount, "no constructor takes that many parameters");
  if constexpr (std::is_constructible_v<CoordSys, Tag, Datum, Units, Double<I>..., Vanth::BoundsXY>) {
    return CoordSys(Tag(), Datum(), Units_km, ParameterValue(I)..., Vanth::BoundsXY());
  } else {
    return MakeWith<Tag>(std::make_index_sequence<sizeof...(I) + 1>());
  }
}

template <class Tag>
CoordSys Make() {
  if constexpr (std::same_as<Tag, NonEarth_t>) {
    return CoordSys(Tag(), Units_km, Vanth::BoundsXY());
  } else if constexpr (std::same_as<Tag, LongLat_t>) {
    return CoordSys(Tag(), Datum(), Vanth::BoundsXY());
  } else if constexpr (std::same_as<Tag, UTM_t>) {
    return CoordSys(Tag(), Datum(), 31, Vanth::BoundsXY());
  } else {
    return MakeWith<Tag>(std::make_index_sequence<1>());
  }
}

std::string ParameterList(const CoordSys& system) {
  std::ostringstream list;
  for (int i = 0; i < system.GetNParameters(); ++i) list << ' ' << system.Parameter(i);
  return list.str();
}

template <class Tag>
void PutProjection(std::ostream& rows, const char* tag) {
  const CoordSys system = Make<Tag>();
  rows << system.projection << ' ' << tag << ParameterList(system) << '\n';
  if constexpr (!std::same_as<Tag, UTM_t>) {
    for (int i = 0; i < system.GetNParameters(); ++i) {
      EXPECT_EQ(system.GetParameter(i), ParameterValue(static_cast<std::size_t>(i))) << tag << ' ' << i;
    }
  }
}

TEST(TablesTest, Projections) {
  std::ostringstream rows;
  PutProjection<NonEarth_t>(rows, "NonEarth_t");
  PutProjection<LongLat_t>(rows, "LongLat_t");
  PutProjection<CylEqa_t>(rows, "CylEqa_t");
  PutProjection<LambertConfConic_t>(rows, "LambertConfConic_t");
  PutProjection<LambertAzEqa_t>(rows, "LambertAzEqa_t");
  PutProjection<AzEqd_t>(rows, "AzEqd_t");
  PutProjection<EqdConic_t>(rows, "EqdConic_t");
  PutProjection<HOM_t>(rows, "HOM_t");
  PutProjection<TM_t>(rows, "TM_t");
  PutProjection<UTM_t>(rows, "UTM_t");
  PutProjection<AlbersEqaConic_t>(rows, "AlbersEqaConic_t");
  PutProjection<Mercator_t>(rows, "Mercator_t");
  PutProjection<MillerCyl_t>(rows, "MillerCyl_t");
  PutProjection<Robinson_t>(rows, "Robinson_t");
  PutProjection<Mollweide_t>(rows, "Mollweide_t");
  PutProjection<EckertIV_t>(rows, "EckertIV_t");
  PutProjection<EckertVI_t>(rows, "EckertVI_t");
  PutProjection<Sinusoidal_t>(rows, "Sinusoidal_t");
  PutProjection<Gall_t>(rows, "Gall_t");
  PutProjection<NZMapGrid_t>(rows, "NZMapGrid_t");
  PutProjection<B72LambertConfConic_t>(rows, "B72LambertConfConic_t");
  PutProjection<Stereographic_t>(rows, "Stereographic_t");
  EXPECT_EQ(rows.str(), Listing("projections.txt"));
}

TEST(TablesTest, TheGenericConstructorTakesTheSameParameters) {
  std::ostringstream expected;
  for (const auto& row : Fields(Listing("projections.txt"))) {
    ASSERT_GE(row.size(), 2U);
    if (row[1] == "UTM_t") continue;
    expected << row[0];
    for (std::size_t i = 2; i < row.size(); ++i) expected << ' ' << row[i];
    expected << '\n';
  }
  std::ostringstream rows;
  for (int number = 0; number <= 20; ++number) {
    const CoordSys system(static_cast<Projection>(number), Datum(), Units_km, Vanth::BoundsXY());
    rows << system.projection << ParameterList(system) << '\n';
  }
  EXPECT_EQ(rows.str(), expected.str());
}

TEST(TablesTest, ProjectionNumbersFrom21OnTakeNoParameters) {
  for (const std::int32_t number : Numbers()) {
    if (number >= 0 && number <= 20) continue;
    const CoordSys system(static_cast<Projection>(number), Datum(), Units_km, Vanth::BoundsXY());
    EXPECT_EQ(system.GetNParameters(), 0) << number;
  }
}

TEST(TablesTest, ProjectionParameters) {
  std::ostringstream rows;
  rows << OriginLongitude << " OriginLongitude\n"
       << OriginLatitude << " OriginLatitude\n"
       << StandardParallel1 << " StandardParallel1\n"
       << StandardParallel2 << " StandardParallel2\n"
       << Azimuth << " Azimuth\n"
       << ScaleFactor << " ScaleFactor\n"
       << FalseEasting << " FalseEasting\n"
       << FalseNorthing << " FalseNorthing\n"
       << Range << " Range\n"
       << NoParameter << " NoParameter\n";
  EXPECT_EQ(rows.str(), Listing("parameters.txt"));
}

TEST(TablesTest, ParameterMasks) {
  std::ostringstream rows;
  int number = 0;
  for (const std::uint16_t mask : CoordSys::partab) {
    rows << std::dec << number++ << " 0x" << std::hex << std::setw(4) << std::setfill('0') << mask << '\n';
  }
  EXPECT_EQ(rows.str(), Listing("partab.txt"));
}

TEST(TablesTest, ObjectKindsAndClasses) {
  std::ostringstream rows;
  for (int t = 0; t <= 10; ++t) {
    rows << "GetWObjClass " << t << ' ' << GetWObjClass(static_cast<WObjType>(t)) << '\n';
  }
  for (const int c : {0, 1, 2, 3, 4, 5, 7}) {
    rows << "StylesSet " << c << ' ' << StylesSet(static_cast<WObjClass>(c)) << '\n';
  }
  for (int t = 0; t <= 46; ++t) {
    rows << "GetMObjClass " << t << ' ' << GetMObjClass(static_cast<MObjType>(t)) << '\n';
  }
  for (int t = 0; t <= 46; ++t) {
    rows << "GetMObjStorage " << t << ' ' << GetMObjStorage(static_cast<MObjType>(t)) << '\n';
  }
  for (int c = 0; c <= 17; ++c) {
    rows << "GetWObjType " << c << ' ' << GetWObjType(static_cast<MObjClass>(c)) << '\n';
  }
  EXPECT_EQ(rows.str(), Listing("object_classes.txt"));
}

TEST(TablesTest, ColumnTypes) {
  std::ostringstream rows;
  const auto put = [&rows](const char* tag, const Column& column, bool is_given) {
    rows << column.type << ' ' << tag << ' ' << (is_given ? "given" : std::to_string(column.width)) << '\n';
    EXPECT_EQ(column.width == 77, is_given) << tag;
  };
  put("Character_t", Column("name", Character_t(), 77, 0), true);
  put("Integer_t", Column("name", Integer_t(), 0), false);
  put("SmallInt_t", Column("name", SmallInt_t(), 0), false);
  put("Decimal_t", Column("name", Decimal_t(), 77, 2, 0), true);
  put("Float_t", Column("name", Float_t(), 0), false);
  put("Date_t", Column("name", Date_t(), 0), false);
  put("Logical_t", Column("name", Logical_t(), 0), false);
  EXPECT_EQ(rows.str(), Listing("columns.txt"));
}

}  // namespace
