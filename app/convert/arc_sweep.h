#pragma once

#include <pelor/mi.h>

namespace App {

/// How far an arc runs counter-clockwise, in degrees, from 0 to 360: no way at all when both its angles are
/// the same, and all the way round when the end is a whole turn and more ahead of the start. Not finite when
/// an angle is not.
[[nodiscard]] double ArcSweepDegrees(const Pelor::MI::WArcBody& arc) noexcept;

/// Whether an arc is a whole ellipse.
[[nodiscard]] inline bool IsWholeTurn(const Pelor::MI::WArcBody& arc) noexcept {
  return ArcSweepDegrees(arc) == 360.0;
}

}  // namespace App
