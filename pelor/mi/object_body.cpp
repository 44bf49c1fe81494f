#include <pelor/mi/object_body.h>

#include <cmath>

namespace Pelor::MI {

WObjBody::~WObjBody() = default;

Vanth::Angle WObjBody::Transformed(const Vanth::Angle& angle, const Transform& transform) noexcept {
  if (transform.scaleX == transform.scaleY) return angle;
  const double radians = angle(Vanth::Angle::Radians, Vanth::Angle::AsStored);
  return Vanth::Angle(std::atan2(std::sin(radians) * transform.scaleY, std::cos(radians) * transform.scaleX));
}

WNoBody* WNoBody::Clone() const {
  return WithFirstShare(new WNoBody(*this));
}

}  // namespace Pelor::MI
