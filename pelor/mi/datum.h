#pragma once

#include <pelor/base/export.h>
#include <pelor/mi/spheroid.h>

#include <cstdint>

namespace Pelor::MI {

/// A standard datum by its number: 0 to 114 and 1000 to 1002, as the "Datum" of a MIF file counts them. Any
/// other number stands for StdDatum_Default.
enum StdDatum : std::int32_t {
  StdDatum_Default = 0,
  StdDatum_WGS84 = 104,
};

/// The two kinds of datum, which are also the ids of the datums that are no standard ones.
inline constexpr std::int32_t kShiftDatum = 999;  ///< a spheroid and three shifts
inline constexpr std::int32_t kFullDatum = 9999;  ///< with rotations, scale or prime meridian

/// A geodetic datum: a spheroid and its way to WGS 84.
class PELOR_EXPORT Datum {
 public:
  Datum() noexcept : Datum(StdDatum_Default) {}
  Datum(StdDatum n) noexcept { SetDatum(n); }
  Datum(Spheroid s, double shift_x, double shift_y, double shift_z) noexcept {
    SetDatum(s, shift_x, shift_y, shift_z);
  }
  Datum(Spheroid s, double shift_x, double shift_y, double shift_z, double rotation_x, double rotation_y,
        double rotation_z, double scale_ppm, double prime_meridian) noexcept {
    SetDatum(s, shift_x, shift_y, shift_z, rotation_x, rotation_y, rotation_z, scale_ppm, prime_meridian);
  }

  /// Takes over a standard datum; an unknown number gives StdDatum_Default.
  void SetDatum(StdDatum n) noexcept;
  /// Sets the values, zero for those not given, and the id: the first standard datum from 0 to 112 that
  /// has exactly these values, else the kind. The further ones are recognised by number alone, by intent.
  void SetDatum(Spheroid s, double shift_x, double shift_y, double shift_z) noexcept;
  void SetDatum(Spheroid s, double shift_x, double shift_y, double shift_z, double rotation_x,
                double rotation_y, double rotation_z, double scale_ppm, double prime_meridian) noexcept;

  /// Compares the values exactly and leaves the number out. The second shift and the second rotation are
  /// compared with the third ones of `other`; that is intended, and a == b does not imply b == a.
  bool operator==(const Datum& other) const noexcept;
  bool operator!=(const Datum& other) const noexcept { return !(*this == other); }

  std::int32_t id = 0;  ///< a StdDatum, or the kind when the values are no standard datum's
  Spheroid spheroid{};
  double dx = 0.0;             ///< shift to WGS 84 along the x axis, metres
  double dy = 0.0;             ///< along the y axis
  double dz = 0.0;             ///< along the z axis
  double rx = 0.0;             ///< rotation about the x axis, arc seconds
  double ry = 0.0;             ///< about the y axis
  double rz = 0.0;             ///< about the z axis
  double scale = 0.0;          ///< correction in parts per million
  double primeMeridian = 0.0;  ///< degrees east of Greenwich
};

}  // namespace Pelor::MI
