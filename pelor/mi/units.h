#pragma once

#include <pelor/base/export.h>
#include <pelor/base/string.h>

#include <cstdint>

namespace Pelor::MI {

/// A linear unit. The degree stands beside the others so that a length in degrees has an approximate metric
/// length: 111195.05197560512 m, one degree of arc on a sphere of about 6371007.18 m radius. Any other number
/// is a unit without a name, of the factor 0.
enum Units : std::int32_t {
  Units_deg = -1,
  Units_mi = 0,
  Units_km = 1,
  Units_in = 2,
  Units_ft = 3,
  Units_yd = 4,
  Units_mm = 5,
  Units_cm = 6,
  Units_m = 7,
  Units_SurveyFt = 8,  ///< 1200/3937 m
  Units_nmi = 9,
  Units_li = 30,       ///< link
  Units_ch = 31,       ///< chain
  Units_rd = 32,       ///< rod
  Units_Unknown = 33,  ///< what GetUnits answers for a name it does not know
};

/// The unit's name as it stands in files; empty for a unit outside the table.
[[nodiscard]] PELOR_EXPORT Tobri::String GetUnitName(Units u);

/// The unit of a name, whatever its case; Units_Unknown when the whole text is not a unit's name.
[[nodiscard]] PELOR_EXPORT Units GetUnits(const Tobri::String& s);

/// Converts a length by way of metres. A target outside the table gives the length in metres, a source
/// outside it gives 0.
[[nodiscard]] PELOR_EXPORT double UnitsConv(double value, Units from, Units to) noexcept;

/// The unit in which a length reads best: mm below 10 mm, cm below 1 m, m below 1 km, else km. The sign
/// counts, so a negative length gives mm.
[[nodiscard]] PELOR_EXPORT Units AutoUnits(double value, Units u) noexcept;

}  // namespace Pelor::MI
