#include <pelor/mi/arc_body.h>

#include <cmath>

namespace Pelor::MI {

Vanth::BoundsXY WArcBody::GetBounds() const {
  using Vanth::Angle;
  const Vanth::PointXY center = rect_.Center();
  const double a = std::fabs(rect_.Width()) / 2;
  const double b = std::fabs(rect_.Height()) / 2;
  const auto point_at = [&](const Angle& angle) -> Vanth::PointXY {
    const double radians = angle(Angle::Radians, Angle::AsStored);
    return {center.x + a * std::cos(radians), center.y + b * std::sin(radians)};
  };
  Vanth::BoundsXY bounds(point_at(start_), point_at(end_));

  const double start = start_(Angle::Degrees, Angle::Positive);
  double end = end_(Angle::Degrees, Angle::Positive);
  if (end < start) end += 360;
  const auto passes = [&](double degrees) {
    return (start <= degrees && degrees <= end) || (start <= degrees + 360 && degrees + 360 <= end);
  };
  if (passes(0)) bounds.Extend({center.x + a, center.y});
  if (passes(90)) bounds.Extend({center.x, center.y + b});
  if (passes(180)) bounds.Extend({center.x - a, center.y});
  if (passes(270)) bounds.Extend({center.x, center.y - b});
  return bounds;
}

void WArcBody::Apply(const Transform& transform) {
  transform.Apply(rect_);
  start_ = Transformed(start_, transform);
  end_ = Transformed(end_, transform);
}

}  // namespace Pelor::MI
