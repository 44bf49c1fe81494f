#pragma once

#include "app/design/element_view.h"
#include <pelor/mi.h>

#include <cstddef>
#include <vector>

namespace App {

/// A B-spline curve, put together from its header element (type 27) and the components that follow it: knots
/// (26), poles (21) and weights (28). In plan and in units of resolution.
class BSpline {
 public:
  /// Begins a curve; false when the element is no header of one, or damaged.
  [[nodiscard]] bool Begin(const ElementView& header);
  /// Takes a component; false when it is none, or damaged.
  [[nodiscard]] bool Add(const ElementView& component);
  /// All that the header told is there, and fits: enough poles, knots in ascending order, positive weights.
  [[nodiscard]] bool IsComplete() const noexcept;

  /// Appends the curve as chords within the tolerance in units of resolution, 0 for one chosen by its size. A
  /// closed curve ends where it begins. The curve must be complete.
  void Flatten(double given_tolerance, std::vector<Vanth::PointXY>& points);

  [[nodiscard]] bool IsClosed() const noexcept { return is_closed_; }
  /// Whether any pole is off this height.
  [[nodiscard]] bool HasHeight(double origin_z) const noexcept {
    return z_low_ != origin_z || z_high_ != origin_z;
  }

 private:
  void MakeKnotVector();

  std::size_t order_ = 0;
  std::size_t told_poles_ = 0;
  std::size_t told_knots_ = 0;
  bool is_rational_ = false;
  bool is_closed_ = false;
  std::vector<Vanth::PointXY> poles_;
  std::vector<double> weights_;
  std::vector<double> knots_;   // those between 0 and 1 that are stored; none when they are uniform
  std::vector<double> vector_;  // the whole knot vector
  double z_low_ = 0.0;
  double z_high_ = 0.0;
};

}  // namespace App
