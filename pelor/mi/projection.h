#pragma once

#include <cstdint>

namespace Pelor::MI {

/// A map projection by its number, as the "CoordSys" of a MIF file counts them.
enum Projection : std::int32_t {
  Projection_NonEarth = 0,
  Projection_LongLat = 1,
  Projection_CylEqa = 2,
  Projection_LambertConfConic = 3,
  Projection_LambertAzEqa = 4,
  Projection_AzEqd = 5,
  Projection_EqdConic = 6,
  Projection_HOM = 7,
  Projection_TM = 8,
  Projection_AlbersEqaConic = 9,
  Projection_Mercator = 10,
  Projection_MillerCyl = 11,
  Projection_Robinson = 12,
  Projection_Mollweide = 13,
  Projection_EckertIV = 14,
  Projection_EckertVI = 15,
  Projection_Sinusoidal = 16,
  Projection_Gall = 17,
  Projection_NZMapGrid = 18,
  Projection_B72LambertConfConic = 19,
  Projection_Stereographic = 20,
};

/// The parameters that a projection can take. Angles are in degrees, easting and northing in the units of the
/// coordinate system.
enum PrjPar : std::int32_t {
  OriginLongitude = 0,
  OriginLatitude = 1,
  StandardParallel1 = 2,
  StandardParallel2 = 3,
  Azimuth = 4,  ///< of the central line
  ScaleFactor = 5,
  FalseEasting = 6,
  FalseNorthing = 7,
  Range = 8,  ///< of an azimuthal projection
  NoParameter = 9,
};

/// How many parameters there are.
inline constexpr int kPrjParCount = 9;

// Tags that choose the constructor of a coordinate system.
// clang-format off
struct NonEarth_t { explicit NonEarth_t() = default; };
struct LongLat_t { explicit LongLat_t() = default; };
struct CylEqa_t { explicit CylEqa_t() = default; };
struct LambertConfConic_t { explicit LambertConfConic_t() = default; };
struct LambertAzEqa_t { explicit LambertAzEqa_t() = default; };
struct AzEqd_t { explicit AzEqd_t() = default; };
struct EqdConic_t { explicit EqdConic_t() = default; };
struct HOM_t { explicit HOM_t() = default; };
struct TM_t { explicit TM_t() = default; };
struct UTM_t { explicit UTM_t() = default; };
struct AlbersEqaConic_t { explicit AlbersEqaConic_t() = default; };
struct Mercator_t { explicit Mercator_t() = default; };
struct MillerCyl_t { explicit MillerCyl_t() = default; };
struct Robinson_t { explicit Robinson_t() = default; };
struct Mollweide_t { explicit Mollweide_t() = default; };
struct EckertIV_t { explicit EckertIV_t() = default; };
struct EckertVI_t { explicit EckertVI_t() = default; };
struct Sinusoidal_t { explicit Sinusoidal_t() = default; };
struct Gall_t { explicit Gall_t() = default; };
struct NZMapGrid_t { explicit NZMapGrid_t() = default; };
struct B72LambertConfConic_t { explicit B72LambertConfConic_t() = default; };
struct Stereographic_t { explicit Stereographic_t() = default; };
// clang-format on

}  // namespace Pelor::MI
