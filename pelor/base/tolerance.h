#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace Vanth {

struct Tol {
  enum Mode : std::int32_t {
    Absolute = 0,  ///< the difference itself is compared
    Relative = 1,  ///< the difference as a part of the larger magnitude
  };
};

/// A numeric tolerance. Nothing is within a tolerance that is NaN, or of a NaN; an infinity equals only
/// itself.
template <class T>
class Tolerance {
 public:
  constexpr Tolerance(T tolerance, Tol::Mode mode) noexcept : tolerance_(tolerance), mode_(mode) {}

  [[nodiscard]] bool Equals(T a, T b) const noexcept {
    if (a == b) return tolerance_ >= 0;
    const T scale = mode_ == Tol::Relative ? std::max(std::fabs(a), std::fabs(b)) : T{1};
    const T difference = std::fabs(a - b);
    return std::isfinite(difference) && difference <= tolerance_ * scale;
  }

 private:
  T tolerance_;
  Tol::Mode mode_;
};

}  // namespace Vanth
