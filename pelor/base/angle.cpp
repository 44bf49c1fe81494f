#include <pelor/base/angle.h>
#include <pelor/base/numeric.h>

namespace Vanth {

double Angle::operator()(Units units, Range range) const noexcept {
  const double unit = ufact[units];
  // Dividing first keeps whole degrees whole: -90 degrees come back as 270, not as 269.99999999999994.
  const double value = radians_ / unit;
  if (range != Positive) return value;
  return Tobri::modulus(value, Full.radians_ / unit);
}

}  // namespace Vanth
