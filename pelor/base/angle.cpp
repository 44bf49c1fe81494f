#include <pelor/base/angle.h>
#include <pelor/base/numeric.h>

#include <cmath>

namespace Vanth {

double Angle::operator()(Units units, Range range) const noexcept {
  const double unit = Factor(units);
  double value = radians_ / unit;
  // A whole number of units comes back whole, though the division may miss it by the last bit. The range is
  // taken after that, so -90 degrees come back as 270, not as 269.99999999999994.
  if (const double whole = std::nearbyint(value); whole * unit == radians_) value = whole;
  if (range != Positive) return value;
  return Tobri::modulus(value, Full.radians_ / unit);
}

}  // namespace Vanth
