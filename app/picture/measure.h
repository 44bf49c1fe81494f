#pragma once

#include <pelor/mi.h>

#include <array>
#include <optional>

namespace App {

/// Coordinates up to here are drawn. It is far beyond any map, and its square is still a number.
inline constexpr double kLargestCoordinate = 1e100;

/// The corners of a text's box as it is drawn, turned about the upper left one: upper left, upper right,
/// lower right, lower left.
[[nodiscard]] std::array<Vanth::PointXY, 4> TextCorners(const Pelor::MI::WTextBody& text);

/// The bounds of an object as it is drawn; empty bounds for an object without any point. Nothing when a
/// coordinate is no number, is infinite, or is so large that nothing can be reckoned with it.
[[nodiscard]] std::optional<Vanth::BoundsXY> Measure(const Pelor::MI::WObjBody& object);

}  // namespace App
