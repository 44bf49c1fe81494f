#pragma once

#include "app/design/element_view.h"

#include <array>
#include <limits>

namespace App {

/// A box in space.
struct Extent {
  static constexpr double kInfinity = std::numeric_limits<double>::infinity();

  std::array<double, 3> low = {kInfinity, kInfinity, kInfinity};
  std::array<double, 3> high = {-kInfinity, -kInfinity, -kInfinity};

  [[nodiscard]] bool IsEmpty() const noexcept { return !(low[0] <= high[0]); }
  void Cover(double x, double y, double z) noexcept;
  void Cover(const Extent& other) noexcept;
};

/// How the room of a text counts: its characters as wide as they are told, or only its origin.
enum class TextExtent {
  kBox,
  kOrigin,
};

/// What the geometry of an element covers, in units of resolution: points, the course of ellipses and arcs,
/// the points that curves run through, the poles of B-splines. Empty for elements without geometry of their
/// own and for those that cannot be read.
[[nodiscard]] Extent ExtentOf(const ElementView& element, TextExtent texts);

}  // namespace App
