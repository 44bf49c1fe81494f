#pragma once

#include <pelor/base/export.h>

#include <cstdint>
#include <numbers>

namespace Vanth {

/// An angle, kept in radians.
class PELOR_EXPORT Angle {
 public:
  enum Units : std::int32_t { Radians = 0, Degrees = 1, Gradians = 2, Turns = 3 };
  enum Range : std::int32_t {
    AsStored = 0,  ///< the stored value, unchanged
    Positive = 1,  ///< from 0 up to, but not including, one full turn
  };

  /// The size of one unit in radians, indexed by Units.
  static constexpr double ufact[] = {1.0, std::numbers::pi / 180.0, std::numbers::pi / 200.0,
                                     2.0 * std::numbers::pi};

  /// One full turn.
  static const Angle Full;

  constexpr Angle() noexcept = default;
  constexpr explicit Angle(double radians) noexcept : radians_(radians) {}
  constexpr Angle(double value, Units units) noexcept : radians_(value * Factor(units)) {}

  /// The value in `units`, brought into `range`; units outside the table count as radians, and any range but
  /// Positive as AsStored. An infinite angle has no place in a range and gives NaN.
  [[nodiscard]] double operator()(Units units, Range range) const noexcept;
  [[nodiscard]] double operator()(int units, int range) const noexcept {
    return (*this)(static_cast<Units>(units), static_cast<Range>(range));
  }

  friend constexpr bool operator==(const Angle&, const Angle&) noexcept = default;

 private:
  [[nodiscard]] static constexpr double Factor(Units units) noexcept {
    return units >= Radians && units <= Turns ? ufact[units] : ufact[Radians];
  }

  double radians_ = 0.0;
};

inline constexpr Angle Angle::Full{2.0 * std::numbers::pi};

}  // namespace Vanth
