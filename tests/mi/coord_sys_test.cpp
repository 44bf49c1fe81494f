#include <pelor/mi/coord_sys.h>

#include <gtest/gtest.h>

#include <cmath>
#include <concepts>
#include <cstdint>
#include <iterator>
#include <limits>
#include <vector>

namespace Pelor::MI {
namespace {

using Vanth::BoundsXY;

const BoundsXY kBounds(-10, -20, 30, 40);
const Datum kDatum(Spheroid{5}, 1, 2, 2, 3, 4, 4, 5, 6);

std::vector<int> Order(const CoordSys& system) {
  std::vector<int> order;
  for (int i = 0; i < system.GetNParameters(); ++i) order.push_back(system.Parameter(i));
  return order;
}

std::vector<double> Values(const CoordSys& system) {
  std::vector<double> values;
  for (int i = 0; i < system.GetNParameters(); ++i) values.push_back(system.GetParameter(i));
  return values;
}

/// What holds of every system, however it was made.
void ExpectInvariants(const CoordSys& system) {
  EXPECT_EQ(system.RefCount(), 0U);
  std::uint16_t mask = 0;
  for (int i = 0; i < kPrjParCount; ++i) {
    const PrjPar p = system.parameterOrder[static_cast<std::size_t>(i)];
    if (i < system.nParameters) {
      ASSERT_GE(p, 0);
      ASSERT_LT(p, NoParameter);
      EXPECT_EQ(mask & (1 << p), 0);
      mask = static_cast<std::uint16_t>(mask | (1 << p));
    } else {
      EXPECT_EQ(p, NoParameter);
    }
  }
  EXPECT_EQ(mask, system.parameterMask);
}

/// A system on kDatum, in feet and with kBounds, whose i-th parameter is i + 1 and a half.
void ExpectProjected(const CoordSys& system, int projection, const std::vector<int>& order) {
  SCOPED_TRACE(projection);
  ExpectInvariants(system);
  EXPECT_EQ(system.kind, 0);
  EXPECT_EQ(system.units, Units_ft);
  EXPECT_EQ(system.bounds, kBounds);
  EXPECT_TRUE(system.datum == kDatum);
  EXPECT_EQ(system.projection, projection);
  EXPECT_EQ(Order(system), order);
  std::vector<double> expected;
  for (std::size_t i = 0; i < order.size(); ++i) expected.push_back(static_cast<double>(i) + 1.5);
  EXPECT_EQ(Values(system), expected);
  for (int p = 0; p < kPrjParCount; ++p) {
    const bool belongs = std::find(order.begin(), order.end(), p) != order.end();
    EXPECT_EQ(system.IsApplicable(static_cast<PrjPar>(p)), belongs);
    if (!belongs) {
      EXPECT_EQ(system.Get(static_cast<PrjPar>(p)), 0.0);
    }
  }

  // The generic form gives the same system with all its parameters 0.
  const CoordSys generic(static_cast<Projection>(projection), kDatum, Units_ft, kBounds);
  ExpectInvariants(generic);
  EXPECT_EQ(generic.projection, projection);
  EXPECT_EQ(generic.units, Units_ft);
  EXPECT_EQ(generic.bounds, kBounds);
  EXPECT_EQ(generic.datum.id, kDatum.id);
  EXPECT_EQ(generic.parameterMask, system.parameterMask);
  EXPECT_EQ(Order(generic), order);
  EXPECT_EQ(Values(generic), std::vector<double>(order.size(), 0.0));
}

CoordSys MakeTM(double longitude, double latitude, double scale, double easting, double northing) {
  return CoordSys(TM_t(), Datum(), Units_m, longitude, latitude, scale, easting, northing, BoundsXY());
}

CoordSys MakeUTM(double longitude) {
  return MakeTM(longitude, 0.0, 0.9996, 500000.0, 0.0);
}

TEST(CoordSysTest, TheDefaultIsLongitudeAndLatitude) {
  const CoordSys system;
  ExpectInvariants(system);
  EXPECT_EQ(system.kind, 0);
  EXPECT_EQ(system.units, -1);
  EXPECT_TRUE(system.bounds.IsEmpty());
  EXPECT_EQ(system.datum.id, 0);
  EXPECT_EQ(system.projection, 1);
  EXPECT_EQ(system.GetNParameters(), 0);
}

TEST(CoordSysTest, LongLatIsInDegreesWithoutParameters) {
  const CoordSys system(LongLat_t(), kDatum, kBounds);
  ExpectInvariants(system);
  EXPECT_EQ(system.kind, 0);
  EXPECT_EQ(system.units, -1);
  EXPECT_EQ(system.bounds, kBounds);
  EXPECT_TRUE(system.datum == kDatum);
  EXPECT_EQ(system.projection, 1);
  EXPECT_EQ(system.GetNParameters(), 0);
}

TEST(CoordSysTest, NonEarthIsOnTheDefaultDatum) {
  const CoordSys system(NonEarth_t(), Units_in, kBounds);
  ExpectInvariants(system);
  EXPECT_EQ(system.kind, 1);
  EXPECT_EQ(system.units, Units_in);
  EXPECT_EQ(system.bounds, kBounds);
  EXPECT_EQ(system.datum.id, 0);
  EXPECT_EQ(system.projection, 0);
  EXPECT_EQ(system.GetNParameters(), 0);
}

TEST(CoordSysTest, EveryProjectionHasItsNumberAndItsParametersInOrder) {
  const Datum& d = kDatum;
  const BoundsXY& b = kBounds;
  const Units ft = Units_ft;
  ExpectProjected(CoordSys(CylEqa_t(), d, ft, 1.5, 2.5, b), 2, {0, 2});
  ExpectProjected(CoordSys(LambertConfConic_t(), d, ft, 1.5, 2.5, 3.5, 4.5, 5.5, 6.5, b), 3,
                  {0, 1, 2, 3, 6, 7});
  ExpectProjected(CoordSys(LambertAzEqa_t(), d, ft, 1.5, 2.5, 3.5, b), 4, {0, 1, 8});
  ExpectProjected(CoordSys(AzEqd_t(), d, ft, 1.5, 2.5, 3.5, b), 5, {0, 1, 8});
  ExpectProjected(CoordSys(EqdConic_t(), d, ft, 1.5, 2.5, 3.5, 4.5, 5.5, 6.5, b), 6, {0, 1, 2, 3, 6, 7});
  ExpectProjected(CoordSys(HOM_t(), d, ft, 1.5, 2.5, 3.5, 4.5, 5.5, 6.5, b), 7, {0, 1, 4, 5, 6, 7});
  ExpectProjected(CoordSys(TM_t(), d, ft, 1.5, 2.5, 3.5, 4.5, 5.5, b), 8, {0, 1, 5, 6, 7});
  ExpectProjected(CoordSys(AlbersEqaConic_t(), d, ft, 1.5, 2.5, 3.5, 4.5, 5.5, 6.5, b), 9,
                  {0, 1, 2, 3, 6, 7});
  ExpectProjected(CoordSys(Mercator_t(), d, ft, 1.5, b), 10, {0});
  ExpectProjected(CoordSys(MillerCyl_t(), d, ft, 1.5, b), 11, {0});
  ExpectProjected(CoordSys(Robinson_t(), d, ft, 1.5, b), 12, {0});
  ExpectProjected(CoordSys(Mollweide_t(), d, ft, 1.5, b), 13, {0});
  ExpectProjected(CoordSys(EckertIV_t(), d, ft, 1.5, b), 14, {0});
  ExpectProjected(CoordSys(EckertVI_t(), d, ft, 1.5, b), 15, {0});
  ExpectProjected(CoordSys(Sinusoidal_t(), d, ft, 1.5, b), 16, {0});
  ExpectProjected(CoordSys(Gall_t(), d, ft, 1.5, b), 17, {0});
  ExpectProjected(CoordSys(NZMapGrid_t(), d, ft, 1.5, 2.5, 3.5, 4.5, b), 18, {0, 1, 6, 7});
  ExpectProjected(CoordSys(B72LambertConfConic_t(), d, ft, 1.5, 2.5, 3.5, 4.5, 5.5, 6.5, b), 19,
                  {0, 1, 2, 3, 6, 7});
  ExpectProjected(CoordSys(Stereographic_t(), d, ft, 1.5, 2.5, 3.5, 4.5, 5.5, b), 20, {0, 1, 5, 6, 7});
}

TEST(CoordSysTest, TheParameterTableHasAMaskForEveryProjection) {
  constexpr std::uint16_t kMasks[] = {0, 0, 0x5, 0xcf, 0x103, 0x103, 0xcf, 0xf3, 0xe3, 0xcf, 1, 1, 1,
                                      1, 1, 1,   1,    1,     0xc3,  0xcf, 0xe3, 0,    0,    0, 0, 0};
  ASSERT_EQ(std::size(CoordSys::partab), 26U);
  for (std::size_t i = 0; i < 26; ++i) EXPECT_EQ(CoordSys::partab[i], kMasks[i]) << i;
}

TEST(CoordSysTest, ProjectionNumbersOutsideTheTableHaveNoParameters) {
  for (const int number :
       {-1, 0, 1, 21, 25, 26, 27, 1000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    const CoordSys system(static_cast<Projection>(number), kDatum, Units_m, kBounds);
    ExpectInvariants(system);
    EXPECT_EQ(system.kind, 0);
    EXPECT_EQ(system.projection, number);
    EXPECT_EQ(system.GetNParameters(), 0);
  }
}

TEST(CoordSysTest, TagsAreChosenByNameAlone) {
  static_assert(!std::convertible_to<std::initializer_list<int>, TM_t>);
  static_assert(!std::constructible_from<CoordSys, TM_t, Datum, Units, BoundsXY>);
}

TEST(CoordSysTest, ACopyHasACountOfItsOwn) {
  Tobri::IRef<CoordSys> held(new CoordSys(UTM_t(), kDatum, 18, kBounds));
  held->Set(Range, 7.0);
  Tobri::IRefC<CoordSys> held_again(held);
  EXPECT_EQ(held->RefCount(), 2U);
  const CoordSys copy(*held);
  ExpectInvariants(copy);
  EXPECT_TRUE(copy == *held);
  EXPECT_EQ(copy.bounds, kBounds);
  EXPECT_EQ(copy.projection, 8);
  EXPECT_EQ(copy.datum.id, 9999);
  EXPECT_EQ(copy.values, held->values);
  EXPECT_EQ(copy.parameterOrder, held->parameterOrder);
  *held = CoordSys(NonEarth_t(), Units_m, BoundsXY());
  EXPECT_EQ(held->RefCount(), 2U);
  EXPECT_EQ(held_again->kind, 1);
  EXPECT_EQ(held_again->GetNParameters(), 0);
}

TEST(CoordSysTest, AddparOfAParameterThatIsThereKeepsItsPlace) {
  CoordSys system(TM_t(), kDatum, Units_m, 1, 2, 3, 4, 5, kBounds);
  system.addpar(OriginLongitude, 10);
  EXPECT_EQ(system.GetNParameters(), 5);
  EXPECT_EQ(Order(system), (std::vector<int>{0, 1, 5, 6, 7}));
  EXPECT_EQ(Values(system), (std::vector<double>{10, 2, 3, 4, 5}));
  ExpectInvariants(system);
}

TEST(CoordSysTest, AddparAppendsInTheOrderOfTheCalls) {
  CoordSys system;
  for (const PrjPar p : {Range, OriginLongitude, Azimuth, FalseNorthing, StandardParallel2, FalseEasting,
                         StandardParallel1, ScaleFactor, OriginLatitude}) {
    system.addpar(p, static_cast<int>(p) + 10);
  }
  EXPECT_EQ(Order(system), (std::vector<int>{8, 0, 4, 7, 3, 6, 2, 5, 1}));
  EXPECT_EQ(Values(system), (std::vector<double>{18, 10, 14, 17, 13, 16, 12, 15, 11}));
  ExpectInvariants(system);
}

TEST(CoordSysTest, InitparForgetsEverythingAndAddsTheMask) {
  CoordSys system(TM_t(), kDatum, Units_m, 1, 2, 3, 4, 5, kBounds);
  system.Set(Azimuth, 9);
  system.initpar(0x0105);
  EXPECT_EQ(Order(system), (std::vector<int>{0, 2, 8}));
  for (const double value : system.values) EXPECT_EQ(value, 0.0);
  ExpectInvariants(system);
  system.initpar(0xfe00);
  EXPECT_EQ(system.GetNParameters(), 0) << "bits beyond the parameters mean nothing";
  ExpectInvariants(system);
  system.initpar(0xffff);
  EXPECT_EQ(system.GetNParameters(), 9);
  ExpectInvariants(system);
}

TEST(CoordSysTest, ParametersBeyondTheLastAreAbsorbed) {
  CoordSys system(TM_t(), kDatum, Units_m, 1, 2, 3, 4, 5, kBounds);
  EXPECT_EQ(system.GetParameter(4), 5.0);
  EXPECT_EQ(system.Parameter(2), 5);
  for (const int i : {-1, 5, 9, 100, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_EQ(system.GetParameter(i), 0.0);
    EXPECT_EQ(system.Parameter(i), 9);
    system.SetParameter(i, 77.0);
  }
  EXPECT_EQ(Values(system), (std::vector<double>{1, 2, 3, 4, 5}));
  for (const double value : system.values) EXPECT_NE(value, 77.0);
  system.SetParameter(2, 0.5);
  EXPECT_EQ(system.Get(ScaleFactor), 0.5);
}

TEST(CoordSysTest, NumbersThatAreNoParameterAreAbsorbed) {
  CoordSys system(TM_t(), kDatum, Units_m, 1, 2, 3, 4, 5, kBounds);
  const CoordSys before(system);
  for (const int number :
       {-1, 9, 16, 32, 100, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    const auto p = static_cast<PrjPar>(number);
    EXPECT_FALSE(system.IsApplicable(p));
    EXPECT_EQ(system.Get(p), 0.0);
    system.Set(p, 77.0);
    system.addpar(p, 77.0);
  }
  ExpectInvariants(system);
  EXPECT_EQ(system.values, before.values);
}

TEST(CoordSysTest, SetDoesNotAddAParameter) {
  CoordSys system(Mercator_t(), Datum(), Units_m, 12, kBounds);
  const CoordSys before(system);
  system.Set(ScaleFactor, 2);
  EXPECT_EQ(system.GetNParameters(), 1);
  EXPECT_FALSE(system.IsApplicable(ScaleFactor));
  EXPECT_EQ(system.Get(ScaleFactor), 2.0);
  EXPECT_TRUE(system == before);
}

TEST(CoordSysTest, EmptyBoundsAreEmpty) {
  EXPECT_TRUE(CoordSys::EmptyBounds().IsEmpty());
}

TEST(CoordSysTest, AUTMSystemIsATransverseMercatorInMetres) {
  const CoordSys system(UTM_t(), kDatum, 31, kBounds);
  ExpectInvariants(system);
  EXPECT_EQ(system.kind, 0);
  EXPECT_EQ(system.projection, 8);
  EXPECT_EQ(system.units, 7);
  EXPECT_EQ(system.bounds, kBounds);
  EXPECT_TRUE(system.datum == kDatum);
  EXPECT_EQ(Order(system), (std::vector<int>{0, 1, 5, 6, 7}));
  EXPECT_EQ(Values(system), (std::vector<double>{3, 0, 0.9996, 500000, 0}));
  EXPECT_TRUE(system.IsUTM());
  EXPECT_EQ(system.GetUTMZone(), 31);
}

TEST(CoordSysTest, EveryZoneIsFoundFromItsMeridian) {
  EXPECT_EQ(CoordSys(UTM_t(), Datum(), 1, BoundsXY()).Get(OriginLongitude), -177.0);
  EXPECT_EQ(CoordSys(UTM_t(), Datum(), 60, BoundsXY()).Get(OriginLongitude), 177.0);
  for (int zone = 1; zone <= 60; ++zone) {
    const CoordSys system(UTM_t(), Datum(), zone, BoundsXY());
    EXPECT_EQ(system.Get(OriginLongitude), zone * 6 - 183);
    EXPECT_TRUE(system.IsUTM()) << zone;
    EXPECT_EQ(system.GetUTMZone(), zone);
  }
}

TEST(CoordSysTest, ZonesBeyondTheGlobeWrapAround) {
  CoordSys system(UTM_t(), Datum(), 31, BoundsXY());
  system.SetUTMZone(61);
  EXPECT_EQ(system.Get(OriginLongitude), 183.0);
  EXPECT_TRUE(system.IsUTM());
  EXPECT_EQ(system.GetUTMZone(), 1);
  system.SetUTMZone(0);
  EXPECT_EQ(system.Get(OriginLongitude), -183.0);
  EXPECT_TRUE(system.IsUTM());
  EXPECT_EQ(system.GetUTMZone(), 60);
  system.SetUTMZone(-59);
  EXPECT_EQ(system.GetUTMZone(), 1);
  system.SetUTMZone(-60);
  EXPECT_EQ(system.GetUTMZone(), 60);
  system.SetUTMZone(120);
  EXPECT_EQ(system.GetUTMZone(), 60);
  system.SetUTMZone(121);
  EXPECT_EQ(system.GetUTMZone(), 1);
}

TEST(CoordSysTest, ExtremeZonesAreReckonedWithoutOverflow) {
  for (const int zone : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    CoordSys system(UTM_t(), Datum(), zone, BoundsXY());
    EXPECT_EQ(system.Get(OriginLongitude), zone * 6.0 - 183.0);
    EXPECT_TRUE(system.IsUTM());
    EXPECT_GE(system.GetUTMZone(), 1);
    EXPECT_LE(system.GetUTMZone(), 60);
    system.SetUTMZone(zone);
    EXPECT_EQ(system.Get(OriginLongitude), zone * 6.0 - 183.0);
  }
}

TEST(CoordSysTest, SetUTMZoneLeavesEveryOtherSystemAlone) {
  CoordSys system(TM_t(), Datum(), Units_m, 4, 0, 0.9996, 500000, 0, BoundsXY());
  system.SetUTMZone(31);
  EXPECT_EQ(system.Get(OriginLongitude), 4.0);
}

TEST(CoordSysTest, EveryConditionOfUTMCounts) {
  EXPECT_TRUE(MakeUTM(3).IsUTM());
  CoordSys system = MakeUTM(3);
  system.kind = 1;
  EXPECT_FALSE(system.IsUTM());
  system = MakeUTM(3);
  system.projection = Projection_Stereographic;
  EXPECT_FALSE(system.IsUTM());
  system = CoordSys(TM_t(), Datum(), Units_ft, 3, 0, 0.9996, 500000, 0, BoundsXY());
  EXPECT_FALSE(system.IsUTM());
  EXPECT_EQ(system.GetUTMZone(), 0);
  EXPECT_FALSE(MakeTM(3, 0, 0.99961, 500000, 0).IsUTM());
  EXPECT_FALSE(MakeTM(3, 0, 0.9996, 500001, 0).IsUTM());
  EXPECT_FALSE(MakeTM(3, 0, 0.9996, 500000, 10000000).IsUTM());
  EXPECT_FALSE(MakeTM(3, 1, 0.9996, 500000, 0).IsUTM());
}

TEST(CoordSysTest, TheParametersOfUTMAreComparedExactly) {
  constexpr double kLeast = std::numeric_limits<double>::denorm_min();
  EXPECT_TRUE(MakeTM(3, -0.0, 0.9996, 500000, -0.0).IsUTM());
  EXPECT_FALSE(MakeTM(3, kLeast, 0.9996, 500000, 0).IsUTM());
  EXPECT_FALSE(MakeTM(3, 0, std::nextafter(0.9996, 1.0), 500000, 0).IsUTM());
  EXPECT_FALSE(MakeTM(3, 0, 0.9996, std::nextafter(500000.0, 0.0), 0).IsUTM());
  EXPECT_FALSE(MakeTM(3, 0, 0.9996, 500000, kLeast).IsUTM());
}

TEST(CoordSysTest, AMeridianBetweenZonesIsNotUTM) {
  EXPECT_FALSE(MakeUTM(4).IsUTM());
  EXPECT_EQ(MakeUTM(4).GetUTMZone(), 0);
  EXPECT_FALSE(MakeUTM(0).IsUTM());
}

TEST(CoordSysTest, AMeridianAHairEastIsUTMAndOneAHairWestIsNot) {
  EXPECT_TRUE(MakeUTM(3.000000000001).IsUTM());
  EXPECT_TRUE(MakeUTM(3 + 5.9e-12).IsUTM()) << "0.984e-12 of a zone";
  EXPECT_EQ(MakeUTM(3 + 5.9e-12).GetUTMZone(), 31);
  EXPECT_FALSE(MakeUTM(3 + 6.1e-12).IsUTM()) << "1.02e-12 of a zone";
  EXPECT_FALSE(MakeUTM(3.0000000001).IsUTM());
  EXPECT_FALSE(MakeUTM(2.999999999999).IsUTM());
}

TEST(CoordSysTest, AMeridianThatIsNoNumberIsNotUTM) {
  for (const double longitude :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity()}) {
    CoordSys system = MakeUTM(longitude);
    EXPECT_FALSE(system.IsUTM());
    EXPECT_EQ(system.GetUTMZone(), 0);
    system.SetUTMZone(31);
    EXPECT_FALSE(system.IsUTM());
  }
}

TEST(CoordSysTest, AHugeMeridianStillHasAZone) {
  for (const double longitude : {1e20, -1e20, 1e308, -1e308}) {
    const CoordSys system = MakeUTM(longitude);
    ASSERT_TRUE(system.IsUTM());
    EXPECT_GE(system.GetUTMZone(), 1);
    EXPECT_LE(system.GetUTMZone(), 60);
  }
}

TEST(CoordSysTest, BoundsTakeNoPartInEquality) {
  EXPECT_TRUE(CoordSys(UTM_t(), Datum(), 31, kBounds) == CoordSys(UTM_t(), Datum(), 31, BoundsXY()));
}

TEST(CoordSysTest, TheProjectionTakesNoPartInEquality) {
  const CoordSys lambert(LambertConfConic_t(), Datum(), Units_m, 1, 2, 3, 4, 5, 6, kBounds);
  const CoordSys albers(AlbersEqaConic_t(), Datum(), Units_m, 1, 2, 3, 4, 5, 6, kBounds);
  const CoordSys equidistant(EqdConic_t(), Datum(), Units_m, 1, 2, 3, 4, 5, 6, kBounds);
  const CoordSys belgian(B72LambertConfConic_t(), Datum(), Units_m, 1, 2, 3, 4, 5, 6, kBounds);
  EXPECT_TRUE(lambert == albers);
  EXPECT_TRUE(albers == equidistant);
  EXPECT_TRUE(equidistant == belgian);
  EXPECT_TRUE(belgian == lambert);
  EXPECT_FALSE(belgian != lambert);
}

TEST(CoordSysTest, KindUnitsDatumAndMaskTakePartInEquality) {
  const CoordSys base(CylEqa_t(), Datum(), Units_m, 1, 2, kBounds);
  CoordSys other(base);
  EXPECT_TRUE(base == other);
  other.kind = 1;
  EXPECT_FALSE(base == other);
  other = base;
  other.units = Units_km;
  EXPECT_TRUE(base != other);
  other = base;
  other.datum.SetDatum(StdDatum_WGS84);
  EXPECT_FALSE(base == other);
  other = base;
  other.addpar(Range, 0.0);
  EXPECT_FALSE(base == other);
  EXPECT_FALSE(other == base);
}

TEST(CoordSysTest, ParametersAreComparedExactlyAndByMeaning) {
  CoordSys a(CylEqa_t(), Datum(), Units_m, 1, 2, kBounds);
  CoordSys b(CylEqa_t(), Datum(), Units_m, 1, std::nextafter(2.0, 3.0), kBounds);
  EXPECT_FALSE(a == b);
  b = a;
  b.initpar(0);
  b.addpar(StandardParallel1, 2);
  b.addpar(OriginLongitude, 1);
  EXPECT_TRUE(a == b) << "the order takes no part";
  a.Set(OriginLongitude, std::numeric_limits<double>::quiet_NaN());
  EXPECT_FALSE(a == a);
}

TEST(CoordSysTest, EqualityInheritsTheAsymmetryOfDatums) {
  const CoordSys a(LongLat_t(), Datum(Spheroid{4}, 1, 2, 3), kBounds);
  const CoordSys b(LongLat_t(), Datum(Spheroid{4}, 1, 3, 3), kBounds);
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(b == a);
}

}  // namespace
}  // namespace Pelor::MI
