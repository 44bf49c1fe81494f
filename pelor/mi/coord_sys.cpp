#include <pelor/base/numeric.h>
#include <pelor/mi/coord_sys.h>

#include <cstddef>
#include <iterator>

namespace Pelor::MI {

namespace {

constexpr double kUTMScaleFactor = 0.9996;
constexpr double kUTMFalseEasting = 500000.0;

bool IsParameter(PrjPar p) noexcept {
  return p >= 0 && p < kPrjParCount;
}

std::uint16_t Bit(PrjPar p) noexcept {
  return static_cast<std::uint16_t>(1U << static_cast<unsigned>(p));
}

std::uint16_t ParametersOf(Projection p) noexcept {
  return p >= 0 && p < std::ssize(CoordSys::partab) ? CoordSys::partab[p] : std::uint16_t{0};
}

/// The central meridian of a zone, in degrees; of any zone, so it is reckoned as a double.
double CentralMeridian(int zone) noexcept {
  return zone * 6.0 - 183.0;
}

/// The inverse: a whole number for a central meridian. The constant has the extended precision, with which
/// the product is the double nearest to the quotient by 6; one sixth as a double would miss it at times.
double FractionalZone(double meridian) noexcept {
  return static_cast<double>((meridian + 183.0) * (1.0L / 6.0L));
}

}  // namespace

const std::uint16_t CoordSys::partab[26] = {
    0x0000, 0x0000, 0x0005, 0x00cf, 0x0103, 0x0103, 0x00cf, 0x00f3, 0x00e3, 0x00cf, 0x0001, 0x0001, 0x0001,
    0x0001, 0x0001, 0x0001, 0x0001, 0x0001, 0x00c3, 0x00cf, 0x00e3, 0x0000, 0x0000, 0x0000, 0x0000, 0x0000,
};

CoordSys::CoordSys() {
  initpar(0);
}

CoordSys::CoordSys(LongLat_t, const Datum& d, const Vanth::BoundsXY& b)
    : CoordSys(Projection_LongLat, d, Units_deg, b) {}

CoordSys::CoordSys(NonEarth_t, Units u, const Vanth::BoundsXY& b)
    : CoordSys(Projection_NonEarth, Datum(), u, b) {
  kind = kNonEarth;
}

CoordSys::CoordSys(Projection p, const Datum& d, Units u, const Vanth::BoundsXY& b)
    : units(u), bounds(b), datum(d), projection(p) {
  initpar(ParametersOf(p));
}

// A projection's list of parameters ascends, so the generic form has set up their order already.
CoordSys::CoordSys(Projection p, const Datum& d, Units u, std::initializer_list<double> parameters,
                   const Vanth::BoundsXY& b)
    : CoordSys(p, d, u, b) {
  int i = 0;
  for (const double value : parameters) SetParameter(i++, value);
}

CoordSys::CoordSys(CylEqa_t, const Datum& d, Units u, double origin_longitude, double standard_parallel,
                   const Vanth::BoundsXY& b)
    : CoordSys(Projection_CylEqa, d, u, {origin_longitude, standard_parallel}, b) {}

CoordSys::CoordSys(LambertConfConic_t, const Datum& d, Units u, double origin_longitude,
                   double origin_latitude, double standard_parallel_1, double standard_parallel_2,
                   double false_easting, double false_northing, const Vanth::BoundsXY& b)
    : CoordSys(Projection_LambertConfConic, d, u,
               {origin_longitude, origin_latitude, standard_parallel_1, standard_parallel_2, false_easting,
                false_northing},
               b) {}

CoordSys::CoordSys(LambertAzEqa_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
                   double range, const Vanth::BoundsXY& b)
    : CoordSys(Projection_LambertAzEqa, d, u, {origin_longitude, origin_latitude, range}, b) {}

CoordSys::CoordSys(AzEqd_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
                   double range, const Vanth::BoundsXY& b)
    : CoordSys(Projection_AzEqd, d, u, {origin_longitude, origin_latitude, range}, b) {}

CoordSys::CoordSys(EqdConic_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
                   double standard_parallel_1, double standard_parallel_2, double false_easting,
                   double false_northing, const Vanth::BoundsXY& b)
    : CoordSys(Projection_EqdConic, d, u,
               {origin_longitude, origin_latitude, standard_parallel_1, standard_parallel_2, false_easting,
                false_northing},
               b) {}

CoordSys::CoordSys(HOM_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
                   double azimuth, double scale_factor, double false_easting, double false_northing,
                   const Vanth::BoundsXY& b)
    : CoordSys(Projection_HOM, d, u,
               {origin_longitude, origin_latitude, azimuth, scale_factor, false_easting, false_northing}, b) {
}

CoordSys::CoordSys(TM_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
                   double scale_factor, double false_easting, double false_northing, const Vanth::BoundsXY& b)
    : CoordSys(Projection_TM, d, u,
               {origin_longitude, origin_latitude, scale_factor, false_easting, false_northing}, b) {}

CoordSys::CoordSys(AlbersEqaConic_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
                   double standard_parallel_1, double standard_parallel_2, double false_easting,
                   double false_northing, const Vanth::BoundsXY& b)
    : CoordSys(Projection_AlbersEqaConic, d, u,
               {origin_longitude, origin_latitude, standard_parallel_1, standard_parallel_2, false_easting,
                false_northing},
               b) {}

CoordSys::CoordSys(Mercator_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b)
    : CoordSys(Projection_Mercator, d, u, {origin_longitude}, b) {}

CoordSys::CoordSys(MillerCyl_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b)
    : CoordSys(Projection_MillerCyl, d, u, {origin_longitude}, b) {}

CoordSys::CoordSys(Robinson_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b)
    : CoordSys(Projection_Robinson, d, u, {origin_longitude}, b) {}

CoordSys::CoordSys(Mollweide_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b)
    : CoordSys(Projection_Mollweide, d, u, {origin_longitude}, b) {}

CoordSys::CoordSys(EckertIV_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b)
    : CoordSys(Projection_EckertIV, d, u, {origin_longitude}, b) {}

CoordSys::CoordSys(EckertVI_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b)
    : CoordSys(Projection_EckertVI, d, u, {origin_longitude}, b) {}

CoordSys::CoordSys(Sinusoidal_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b)
    : CoordSys(Projection_Sinusoidal, d, u, {origin_longitude}, b) {}

CoordSys::CoordSys(Gall_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b)
    : CoordSys(Projection_Gall, d, u, {origin_longitude}, b) {}

CoordSys::CoordSys(NZMapGrid_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
                   double false_easting, double false_northing, const Vanth::BoundsXY& b)
    : CoordSys(Projection_NZMapGrid, d, u, {origin_longitude, origin_latitude, false_easting, false_northing},
               b) {}

CoordSys::CoordSys(B72LambertConfConic_t, const Datum& d, Units u, double origin_longitude,
                   double origin_latitude, double standard_parallel_1, double standard_parallel_2,
                   double false_easting, double false_northing, const Vanth::BoundsXY& b)
    : CoordSys(Projection_B72LambertConfConic, d, u,
               {origin_longitude, origin_latitude, standard_parallel_1, standard_parallel_2, false_easting,
                false_northing},
               b) {}

CoordSys::CoordSys(Stereographic_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
                   double scale_factor, double false_easting, double false_northing, const Vanth::BoundsXY& b)
    : CoordSys(Projection_Stereographic, d, u,
               {origin_longitude, origin_latitude, scale_factor, false_easting, false_northing}, b) {}

CoordSys::CoordSys(UTM_t, const Datum& d, int zone, const Vanth::BoundsXY& b)
    : CoordSys(TM_t(), d, Units_m, CentralMeridian(zone), 0.0, kUTMScaleFactor, kUTMFalseEasting, 0.0, b) {}

void CoordSys::initpar(unsigned short mask) noexcept {
  nParameters = 0;
  parameterMask = 0;
  values.fill(0.0);
  parameterOrder.fill(NoParameter);
  for (int p = 0; p < kPrjParCount; ++p) {
    const auto parameter = static_cast<PrjPar>(p);
    if ((mask & Bit(parameter)) != 0) addpar(parameter, 0.0);
  }
}

void CoordSys::addpar(PrjPar p, double value) noexcept {
  if (!IsParameter(p)) return;
  Set(p, value);
  if (IsApplicable(p)) return;
  parameterMask = static_cast<std::uint16_t>(parameterMask | Bit(p));
  parameterOrder[static_cast<std::size_t>(nParameters++)] = p;
}

bool CoordSys::IsApplicable(PrjPar p) const noexcept {
  return IsParameter(p) && (parameterMask & Bit(p)) != 0;
}

double CoordSys::Get(PrjPar p) const noexcept {
  return IsParameter(p) ? values[static_cast<std::size_t>(p)] : 0.0;
}

void CoordSys::Set(PrjPar p, double value) noexcept {
  if (IsParameter(p)) values[static_cast<std::size_t>(p)] = value;
}

PrjPar CoordSys::Parameter(int i) const noexcept {
  return i >= 0 && i < nParameters ? parameterOrder[static_cast<std::size_t>(i)] : NoParameter;
}

bool CoordSys::IsUTM() const noexcept {
  return kind == kEarth && projection == Projection_TM && units == Units_m &&
         Get(ScaleFactor) == kUTMScaleFactor && Get(FalseEasting) == kUTMFalseEasting &&
         Get(FalseNorthing) == 0.0 && Get(OriginLatitude) == 0.0 &&
         Tobri::fractpart(FractionalZone(Get(OriginLongitude))) < 1e-12;
}

int CoordSys::GetUTMZone() const noexcept {
  if (!IsUTM()) return 0;
  double zone = Tobri::round(FractionalZone(Get(OriginLongitude)), false);
  if (zone < 1.0 || zone > 60.0) zone = Tobri::modulus(zone - 1.0, 60.0) + 1.0;
  return static_cast<int>(zone);
}

void CoordSys::SetUTMZone(int zone) noexcept {
  if (IsUTM()) Set(OriginLongitude, CentralMeridian(zone));
}

bool CoordSys::operator==(const CoordSys& other) const noexcept {
  if (kind != other.kind || units != other.units || datum != other.datum ||
      parameterMask != other.parameterMask) {
    return false;
  }
  for (int i = 0; i < nParameters; ++i) {
    if (GetParameter(i) != other.Get(Parameter(i))) return false;
  }
  return true;
}

}  // namespace Pelor::MI
