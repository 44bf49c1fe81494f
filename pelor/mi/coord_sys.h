#pragma once

#include <pelor/base/bounds.h>
#include <pelor/base/export.h>
#include <pelor/base/handle.h>
#include <pelor/mi/datum.h>
#include <pelor/mi/projection.h>
#include <pelor/mi/units.h>

#include <array>
#include <cstdint>
#include <initializer_list>

namespace Pelor::MI {

/// The description of a coordinate system. It is carried from file to file; no coordinate is projected by it.
/// Objects, readers and writers share one through Tobri::IRefC<CoordSys> and treat it as read-only from then
/// on.
///
/// nParameters is the number of bits set in parameterMask, and the first nParameters slots of parameterOrder
/// hold exactly those bit numbers, each once.
class PELOR_EXPORT CoordSys : public Tobri::Rep {
 public:
  static constexpr std::int32_t kEarth = 0;
  static constexpr std::int32_t kNonEarth = 1;

  /// The parameters that a projection takes, a mask per projection number: bit p stands for parameter p.
  static const std::uint16_t partab[26];

  /// Longitude and latitude on the default datum, without bounds.
  CoordSys();
  CoordSys(LongLat_t, const Datum& d, const Vanth::BoundsXY& b);
  /// A plane that is not on the earth.
  CoordSys(NonEarth_t, Units u, const Vanth::BoundsXY& b);

  // One per projection, with its parameters in their order.
  CoordSys(CylEqa_t, const Datum& d, Units u, double origin_longitude, double standard_parallel,
           const Vanth::BoundsXY& b);
  CoordSys(LambertConfConic_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
           double standard_parallel_1, double standard_parallel_2, double false_easting,
           double false_northing, const Vanth::BoundsXY& b);
  CoordSys(LambertAzEqa_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
           double range, const Vanth::BoundsXY& b);
  CoordSys(AzEqd_t, const Datum& d, Units u, double origin_longitude, double origin_latitude, double range,
           const Vanth::BoundsXY& b);
  CoordSys(EqdConic_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
           double standard_parallel_1, double standard_parallel_2, double false_easting,
           double false_northing, const Vanth::BoundsXY& b);
  CoordSys(HOM_t, const Datum& d, Units u, double origin_longitude, double origin_latitude, double azimuth,
           double scale_factor, double false_easting, double false_northing, const Vanth::BoundsXY& b);
  CoordSys(TM_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
           double scale_factor, double false_easting, double false_northing, const Vanth::BoundsXY& b);
  CoordSys(AlbersEqaConic_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
           double standard_parallel_1, double standard_parallel_2, double false_easting,
           double false_northing, const Vanth::BoundsXY& b);
  CoordSys(Mercator_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b);
  CoordSys(MillerCyl_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b);
  CoordSys(Robinson_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b);
  CoordSys(Mollweide_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b);
  CoordSys(EckertIV_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b);
  CoordSys(EckertVI_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b);
  CoordSys(Sinusoidal_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b);
  CoordSys(Gall_t, const Datum& d, Units u, double origin_longitude, const Vanth::BoundsXY& b);
  CoordSys(NZMapGrid_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
           double false_easting, double false_northing, const Vanth::BoundsXY& b);
  CoordSys(B72LambertConfConic_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
           double standard_parallel_1, double standard_parallel_2, double false_easting,
           double false_northing, const Vanth::BoundsXY& b);
  CoordSys(Stereographic_t, const Datum& d, Units u, double origin_longitude, double origin_latitude,
           double scale_factor, double false_easting, double false_northing, const Vanth::BoundsXY& b);

  /// Any projection on the earth, with all its parameters 0. A number outside partab has no parameters.
  CoordSys(Projection p, const Datum& d, Units u, const Vanth::BoundsXY& b);

  /// A transverse Mercator in metres for a zone of six degrees; zone 1 begins at 180 degrees west. The origin
  /// longitude is zone * 6 - 183, the scale factor 0.9996, the false easting 500000 and the rest 0, the false
  /// northing in the south, too. The zone is not checked.
  CoordSys(UTM_t, const Datum& d, int zone, const Vanth::BoundsXY& b);

  /// Forgets all parameters and adds those of the mask in ascending order, with the value 0.
  void initpar(unsigned short mask) noexcept;
  /// Adds a parameter behind the others. One that is there already changes its value and keeps its place.
  void addpar(PrjPar p, double value) noexcept;
  /// Whether the parameter belongs to the system.
  [[nodiscard]] bool IsApplicable(PrjPar p) const noexcept;

  /// The value of a parameter, whether or not it belongs to the system; 0 for NoParameter.
  [[nodiscard]] double Get(PrjPar p) const noexcept;
  /// Changes that value; a parameter that does not belong to the system does not join it by that.
  void Set(PrjPar p, double value) noexcept;

  [[nodiscard]] int GetNParameters() const noexcept { return nParameters; }
  /// The value of the i-th parameter in order, counted from 0; 0 where there is none.
  [[nodiscard]] double GetParameter(int i) const noexcept { return Get(Parameter(i)); }
  /// Changes that value; does nothing where there is none.
  void SetParameter(int i, double value) noexcept { Set(Parameter(i), value); }
  /// The i-th parameter in order, counted from 0; NoParameter where there is none.
  [[nodiscard]] PrjPar Parameter(int i) const noexcept;

  /// The bounds of a system without bounds.
  [[nodiscard]] static Vanth::BoundsXY EmptyBounds() noexcept { return {}; }

  /// True for a system with exactly the values that UTM_t gives. The origin longitude may stand less than
  /// 6e-12 degrees east of a zone's centre, but not a hair west of it.
  [[nodiscard]] bool IsUTM() const noexcept;
  /// The zone, 1 to 60; 0 when the system is no UTM.
  [[nodiscard]] int GetUTMZone() const noexcept;
  /// Moves a UTM system to another zone, which is not checked. No other system is changed.
  void SetUTMZone(int zone) noexcept;

  /// Compares kind, units, datum and the values of this system's parameters exactly. Projection and bounds
  /// take no part: conic projections with the same parameters are equal, by intent.
  bool operator==(const CoordSys& other) const noexcept;
  bool operator!=(const CoordSys& other) const noexcept { return !(*this == other); }

  std::int32_t kind = kEarth;  ///< kEarth or kNonEarth
  Units units = Units_deg;     ///< of the coordinates
  Vanth::BoundsXY bounds;      ///< of the coordinate space, in its units; empty when none are given
  Datum datum;
  Projection projection = Projection_LongLat;
  std::int32_t nParameters = 0;
  std::array<double, kPrjParCount> values{};  ///< indexed by PrjPar
  std::uint16_t parameterMask = 0;
  /// The parameters as they were added; unused slots hold NoParameter.
  std::array<PrjPar, kPrjParCount> parameterOrder{};

 private:
  CoordSys(Projection p, const Datum& d, Units u, std::initializer_list<double> parameters,
           const Vanth::BoundsXY& b);
};

}  // namespace Pelor::MI
