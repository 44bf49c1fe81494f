#pragma once

#include <pelor/mi/color.h>

#include <cstdint>

namespace Pelor::MI {

/// The style of fills. The default is a solid white.
struct Brush {
  std::int32_t pattern = 2;  ///< 1 no fill, 2 solid, 3 to 11 hatches, from 12 on patterns
  Color foreColor = 0xFFFFFF;
  Color backColor = -1;  ///< negative for a transparent background

  /// The first pattern of the group that the pattern belongs to: 1, 2, 3 or 12. Numbers below 1 count as
  /// hatches.
  [[nodiscard]] constexpr int GetType() const noexcept {
    if (pattern == 1 || pattern == 2) return pattern;
    return pattern < 12 ? 3 : 12;
  }

  friend constexpr bool operator==(const Brush&, const Brush&) noexcept = default;
};

}  // namespace Pelor::MI
