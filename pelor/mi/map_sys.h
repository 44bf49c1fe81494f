#pragma once

#include <pelor/base/angle.h>
#include <pelor/base/bounds.h>
#include <pelor/base/error.h>
#include <pelor/base/export.h>
#include <pelor/base/handle.h>
#include <pelor/base/point.h>
#include <pelor/mi/map_bounds.h>

#include <cstdint>

namespace Pelor::MI {

/// Which axes of map space run against those of the world.
enum Orientation : std::int32_t {
  Orientation_AsWorld = 0,
  Orientation_MirrorX = 1,
  Orientation_MirrorY = 2,
  Orientation_MirrorXY = 3,
};

/// "Invalid MapSys": a mapping that cannot be set as asked for.
class PELOR_EXPORT InvalidMapSys : public Tobri::Error::Raisable<InvalidMapSys, Tobri::ErrMsg> {
 public:
  InvalidMapSys();
  ~InvalidMapSys() override;
};

// Tags that choose the way in which a MapSys is set.
// clang-format off
struct Identity_MSt { explicit Identity_MSt() = default; };
struct Geographic_MSt { explicit Geographic_MSt() = default; };
struct Decimals_MSt { explicit Decimals_MSt() = default; };
struct Bounds_MSt { explicit Bounds_MSt() = default; };
struct BoundsDec_MSt { explicit BoundsDec_MSt() = default; };
// clang-format on

/// The linear mapping between world coordinates and the integer map space: a scale and an offset per axis,
/// map = world * scale + offset. Map coordinates are meant to lie within plus and minus kMapLimit.
///
/// Conversions never fail: a map coordinate that does not fit in 32 bits becomes the nearest one that does,
/// NaN becomes 0, and empty bounds stay empty.
class PELOR_EXPORT MapSys : public Tobri::Rep {
 public:
  static constexpr double kMapLimit = 1000000000.0;

  /// Scales 1, offsets 0.
  explicit MapSys(Identity_MSt t) noexcept { Set(t); }
  void Set(Identity_MSt) noexcept;

  /// Map units of one millionth of a world unit.
  MapSys(Geographic_MSt t, Orientation orientation) noexcept { Set(t, orientation); }
  void Set(Geographic_MSt, Orientation orientation) noexcept;

  /// Scales of 10 to the power of n. An n outside 0 to 9 is reported as InvalidMapSys; it is used
  /// nevertheless when the handler returns, while one that throws leaves the mapping as it was before Set.
  MapSys(Decimals_MSt, int n, Orientation orientation);
  void Set(Decimals_MSt, int n, Orientation orientation);

  /// Lets the box fill map space: its centre is at map 0, and each axis is stretched on its own. The scales
  /// are always positive. A box without width or height gives the identity, and InvalidMapSys is reported.
  MapSys(Bounds_MSt t, double x1, double y1, double x2, double y2) { Set(t, x1, y1, x2, y2); }
  MapSys(Bounds_MSt t, const Vanth::BoundsXY& bounds) { Set(t, bounds); }
  void Set(Bounds_MSt, double x1, double y1, double x2, double y2);
  void Set(Bounds_MSt t, const Vanth::BoundsXY& bounds);

  /// The largest power of ten as scale of both axes with which the magnitude stays within map space, however
  /// many or few decimals that makes. Magnitude 0 gives the identity, and InvalidMapSys is reported.
  void Set(BoundsDec_MSt, double magnitude);
  /// The same for the larger magnitude of two numbers.
  void Set(BoundsDec_MSt t, double a, double b);
  /// The same for one range over both axes: from the smaller of x1 and y1 to the larger of x2 and y2.
  void Set(BoundsDec_MSt t, double x1, double y1, double x2, double y2);
  void Set(BoundsDec_MSt t, const Vanth::BoundsXY& bounds);

  /// The world coordinates of the ends of map space. On a mirrored axis the minimum is the larger number.
  [[nodiscard]] double GetMinX() const noexcept { return (-kMapLimit - offsetX) * invScaleX; }
  [[nodiscard]] double GetMaxX() const noexcept { return (kMapLimit - offsetX) * invScaleX; }
  [[nodiscard]] double GetMinY() const noexcept { return (-kMapLimit - offsetY) * invScaleY; }
  [[nodiscard]] double GetMaxY() const noexcept { return (kMapLimit - offsetY) * invScaleY; }
  [[nodiscard]] Vanth::BoundsXY GetBounds() const noexcept {
    return {GetMinX(), GetMinY(), GetMaxX(), GetMaxY()};
  }

  /// How many decimals of a world coordinate map space keeps, on the coarser axis: log10 of the scale,
  /// truncated toward zero; -1 when a scale is 0.
  [[nodiscard]] int GetDecimals() const noexcept;
  /// The mirrored axes, by the signs of the scales.
  [[nodiscard]] Orientation GetOrientation() const noexcept;

  /// Coordinates are truncated toward zero.
  [[nodiscard]] MRct ToMap(const Vanth::RectXY& rect) const noexcept;
  [[nodiscard]] MBnds ToMap(const Vanth::BoundsXY& bounds) const noexcept;
  /// The angle in map space in tenths of a degree, a half going up. No full turn is taken off.
  [[nodiscard]] int ToMap(Vanth::Angle a) const noexcept;

  /// world = (map - offset) * invScale
  [[nodiscard]] Vanth::RectXY ToWorld(const MRct& rect) const noexcept;
  [[nodiscard]] Vanth::BoundsXY ToWorld(const MBnds& bounds) const noexcept;
  [[nodiscard]] Vanth::Angle ToWorld(int tenths_of_a_degree) const noexcept;

  /// The direction that an angle becomes by the scales, atan2(sin(a) * scaleY, cos(a) * scaleX); unchanged
  /// when the scales are equal, signs included.
  [[nodiscard]] Vanth::Angle Angle_WorldToMap(Vanth::Angle a) const noexcept;
  [[nodiscard]] Vanth::Angle Angle_MapToWorld(Vanth::Angle a) const noexcept;

  double scaleX = 1.0;  ///< map units per world unit; negative on a mirrored axis
  double scaleY = 1.0;
  double offsetX = 0.0;  ///< the map coordinate of the world's origin
  double offsetY = 0.0;
  double invScaleX = 1.0;  ///< 1 / scaleX
  double invScaleY = 1.0;

 private:
  void SetScale(double scale, double inverse) noexcept;
  void SetPowerOfTen(double n) noexcept;
  void Orient(Orientation orientation) noexcept;
  [[nodiscard]] MPnt PointToMap(double x, double y) const noexcept;
  [[nodiscard]] Vanth::PointXY PointToWorld(const MPnt& point) const noexcept;
};

}  // namespace Pelor::MI
