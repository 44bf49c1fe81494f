#pragma once

#include "app/convert/decimals.h"
#include <pelor/dgn.h>
#include <pelor/mi.h>

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace App {

/// The units of a design and where its plane lies on the map: a coordinate c, in master units, is stored as
/// c * uors per master + origin.
struct WorkingUnits {
  std::int32_t subs_per_master = 1000;
  std::int32_t uors_per_sub = 1;
  std::string master_name = "m";  ///< one or two characters
  std::string sub_name = "mm";
  double origin_x = 0.0;  ///< in units of resolution
  double origin_y = 0.0;
  std::optional<double> origin_z;  ///< of a three-dimensional design

  [[nodiscard]] double UorsPerMaster() const noexcept {
    return static_cast<double>(subs_per_master) * static_cast<double>(uors_per_sub);
  }
  [[nodiscard]] double X(double x) const noexcept { return x * UorsPerMaster() + origin_x; }
  [[nodiscard]] double Y(double y) const noexcept { return y * UorsPerMaster() + origin_y; }
  /// Where the map lies in a three-dimensional design: at 0 master units, in units of resolution.
  [[nodiscard]] std::optional<std::int32_t> Height() const noexcept;
};

/// A number as coordinates are printed, with ten significant digits at most.
[[nodiscard]] std::string PrintedNumber(double value);

/// Both names of the units that the coordinates of a map are in.
struct UnitNames {
  std::string master;
  std::string sub;  ///< a thousandth of the master unit
};
/// By the map's coordinate system; maps without one are in longitude and latitude.
[[nodiscard]] UnitNames NamesOf(const Tobri::IRefC<Pelor::MI::CoordSys>& system);
/// Whether both names are of known units that differ.
[[nodiscard]] bool AreDifferentUnits(const std::string& a, const std::string& b);
/// Of "MASTER" or "MASTER,SUB", each one or two ASCII characters. Throws `Failure` for other texts, and for
/// known units of which no whole number makes the other.
[[nodiscard]] UnitNames ParseUnitNames(std::string_view text);

/// How many sub-units a master unit has, when the names are of known units of one kind, and that is a whole
/// number.
[[nodiscard]] std::optional<std::int32_t> SubsPerMaster(const UnitNames& names);

/// What the units of a map depend on.
struct MapMeasure {
  Vanth::BoundsXY extent;
  /// The most decimals that any coordinate has been written with; `kMostDecimals` also for more.
  int decimals = kMostDecimals;
  double letter = 0.0;  ///< the longest edge of a text's character
};

/// What the user wants of the units; the rest is chosen.
struct UnitChoice {
  /// Positive; a multiple of the sub-units per master unit, where those are known by the names.
  std::optional<std::int32_t> uors_per_master;
  std::optional<UnitNames> names;
  /// The map coordinates that stand in the middle of the design plane.
  std::optional<Vanth::PointXY> middle;
};

/// Units in which the extent of the map fits the design plane. What `choice` leaves open is a power of ten,
/// by the sub-units of the names that it has: where there is room, a tenth of the last of ten significant
/// digits of the largest coordinate, or of the fifteen that coordinates have at most, else as fine as the
/// extent and the largest characters allow, as the size of a text is limited. The plane is moved, by a round
/// number, only when the extent needs it. Throws `Failure`, with the numbers, when the extent cannot fit, and
/// when units of resolution cannot be parted among the sub-units.
[[nodiscard]] WorkingUnits ChooseUnits(const MapMeasure& measure, const UnitNames& names,
                                       const UnitChoice& choice);

/// Units as a design has them already, changed to what `choice` says. Throws `Failure`, with the numbers,
/// when units of resolution cannot be parted among the sub-units.
[[nodiscard]] WorkingUnits ChangeUnits(const WorkingUnits& units, const UnitChoice& choice);

/// Whether the units keep the last digit of every coordinate, of fifteen significant ones at most.
[[nodiscard]] bool KeepsAllDigits(const WorkingUnits& units, const MapMeasure& measure);

/// Whether the units are coarser than those that would be chosen for the map, so that who wanted them is
/// answerable for what they round.
[[nodiscard]] bool AreCoarserThanChosen(const WorkingUnits& units, const MapMeasure& measure);

/// Half of the last digit that coordinates have, in units of resolution: what rounding may move them by.
[[nodiscard]] double HalfOfLastDigit(const WorkingUnits& units, const MapMeasure& measure);

/// Throws `Failure`, with the numbers, when the extent does not lie on the plane, or the height 0 not in the
/// cube of a three-dimensional design.
void ThrowUnlessFits(const WorkingUnits& units, const Vanth::BoundsXY& extent);

}  // namespace App
