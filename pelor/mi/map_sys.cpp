#include <pelor/mi/map_sys.h>
#include <pelor/mi/saturate.h>

#include <algorithm>
#include <cmath>

namespace Pelor::MI {

namespace {

constexpr int kMaxDecimals = 9;

void CheckDecimals(int n) {
  if (n < 0 || n > kMaxDecimals) Tobri::Error::Handle(InvalidMapSys());
}

/// The direction of the angle when the axes are scaled apart.
Vanth::Angle Scaled(Vanth::Angle a, double scale_x, double scale_y) noexcept {
  if (scale_x == scale_y) return a;
  const double radians = a(Vanth::Angle::Radians, Vanth::Angle::AsStored);
  return Vanth::Angle(std::atan2(std::sin(radians) * scale_y, std::cos(radians) * scale_x));
}

}  // namespace

InvalidMapSys::InvalidMapSys() : Raisable("Invalid MapSys") {}

InvalidMapSys::~InvalidMapSys() = default;

void MapSys::Set(Identity_MSt) noexcept {
  SetScale(1.0, 1.0);
}

void MapSys::Set(Geographic_MSt, Orientation orientation) noexcept {
  SetScale(1000000.0, 1.0 / 1000000.0);
  Orient(orientation);
}

MapSys::MapSys(Decimals_MSt, int n, Orientation orientation) {
  SetPowerOfTen(n);
  CheckDecimals(n);
  Orient(orientation);
}

void MapSys::Set(Decimals_MSt, int n, Orientation orientation) {
  CheckDecimals(n);
  SetPowerOfTen(n);
  Orient(orientation);
}

void MapSys::Set(Bounds_MSt, double x1, double y1, double x2, double y2) {
  if (x1 == x2 || y1 == y2) {
    Set(Identity_MSt());
    Tobri::Error::Handle(InvalidMapSys());
    return;
  }
  scaleX = 2.0 * kMapLimit / std::fabs(x2 - x1);
  scaleY = 2.0 * kMapLimit / std::fabs(y2 - y1);
  offsetX = (-scaleX * 0.5) * (x1 + x2);
  offsetY = (-scaleY * 0.5) * (y1 + y2);
  invScaleX = 1.0 / scaleX;
  invScaleY = 1.0 / scaleY;
}

void MapSys::Set(Bounds_MSt t, const Vanth::BoundsXY& bounds) {
  // Empty bounds have no numbers worth reading; as a box they have no extent.
  const Vanth::BoundsXY box = bounds.IsEmpty() ? Vanth::BoundsXY(0.0, 0.0, 0.0, 0.0) : bounds;
  Set(t, box.Min().x, box.Min().y, box.Max().x, box.Max().y);
}

void MapSys::Set(BoundsDec_MSt, double magnitude) {
  if (magnitude == 0.0) {
    Set(Identity_MSt());
    Tobri::Error::Handle(InvalidMapSys());
    return;
  }
  SetPowerOfTen(std::floor(kMaxDecimals - std::log10(std::fabs(magnitude))));
}

void MapSys::Set(BoundsDec_MSt t, double a, double b) {
  Set(t, std::max(std::fabs(a), std::fabs(b)));
}

void MapSys::Set(BoundsDec_MSt t, double x1, double y1, double x2, double y2) {
  Set(t, std::min(x1, y1), std::max(x2, y2));
}

void MapSys::Set(BoundsDec_MSt t, const Vanth::BoundsXY& bounds) {
  const Vanth::BoundsXY box = bounds.IsEmpty() ? Vanth::BoundsXY(0.0, 0.0, 0.0, 0.0) : bounds;
  Set(t, box.Min().x, box.Min().y, box.Max().x, box.Max().y);
}

int MapSys::GetDecimals() const noexcept {
  if (scaleX == 0.0 || scaleY == 0.0) return -1;
  return std::min(Saturated(std::log10(std::fabs(scaleX))), Saturated(std::log10(std::fabs(scaleY))));
}

Orientation MapSys::GetOrientation() const noexcept {
  return static_cast<Orientation>((scaleX < 0.0 ? Orientation_MirrorX : 0) +
                                  (scaleY < 0.0 ? Orientation_MirrorY : 0));
}

MRct MapSys::ToMap(const Vanth::RectXY& rect) const noexcept {
  return {PointToMap(rect.x1, rect.y1), PointToMap(rect.x2, rect.y2)};
}

MBnds MapSys::ToMap(const Vanth::BoundsXY& bounds) const noexcept {
  if (bounds.IsEmpty()) return {};
  return {PointToMap(bounds.Min().x, bounds.Min().y), PointToMap(bounds.Max().x, bounds.Max().y)};
}

int MapSys::ToMap(Vanth::Angle a) const noexcept {
  const double degrees = Angle_WorldToMap(a)(Vanth::Angle::Degrees, Vanth::Angle::AsStored);
  return Saturated(std::floor(degrees * 10.0 + 0.5));
}

Vanth::RectXY MapSys::ToWorld(const MRct& rect) const noexcept {
  const Vanth::PointXY p1 = PointToWorld(rect.p1);
  const Vanth::PointXY p2 = PointToWorld(rect.p2);
  return {p1.x, p1.y, p2.x, p2.y};
}

Vanth::BoundsXY MapSys::ToWorld(const MBnds& bounds) const noexcept {
  if (bounds.IsEmpty()) return {};
  return {PointToWorld({bounds.xmin, bounds.ymin}), PointToWorld({bounds.xmax, bounds.ymax})};
}

Vanth::Angle MapSys::ToWorld(int tenths_of_a_degree) const noexcept {
  return Angle_MapToWorld(Vanth::Angle(tenths_of_a_degree * 0.1, Vanth::Angle::Degrees));
}

Vanth::Angle MapSys::Angle_WorldToMap(Vanth::Angle a) const noexcept {
  return Scaled(a, scaleX, scaleY);
}

Vanth::Angle MapSys::Angle_MapToWorld(Vanth::Angle a) const noexcept {
  return Scaled(a, invScaleX, invScaleY);
}

void MapSys::SetScale(double scale, double inverse) noexcept {
  scaleX = scaleY = scale;
  offsetX = offsetY = 0.0;
  invScaleX = invScaleY = inverse;
}

void MapSys::SetPowerOfTen(double n) noexcept {
  SetScale(std::pow(10.0, n), std::pow(10.0, -n));
}

void MapSys::Orient(Orientation orientation) noexcept {
  if (orientation == Orientation_MirrorX || orientation == Orientation_MirrorXY) {
    scaleX = -scaleX;
    invScaleX = -invScaleX;
  }
  if (orientation == Orientation_MirrorY || orientation == Orientation_MirrorXY) {
    scaleY = -scaleY;
    invScaleY = -invScaleY;
  }
}

MPnt MapSys::PointToMap(double x, double y) const noexcept {
  return {Saturated(x * scaleX + offsetX), Saturated(y * scaleY + offsetY)};
}

Vanth::PointXY MapSys::PointToWorld(const MPnt& point) const noexcept {
  return {(point.x - offsetX) * invScaleX, (point.y - offsetY) * invScaleY};
}

}  // namespace Pelor::MI
