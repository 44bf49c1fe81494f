#pragma once

#include <pelor/base/export.h>

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <limits>
#include <span>

namespace Pelor::DGN {

/// The range block of a graphic element, in units of resolution: six longs, 24 bytes in the file, there in
/// range form.
struct PELOR_EXPORT CoordsRange {
  static constexpr std::size_t kBytes = 24;
  static constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
  static constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

  std::int32_t xlow = kLowest;
  std::int32_t ylow = kLowest;
  std::int32_t zlow = kLowest;
  std::int32_t xhigh = kHighest;
  std::int32_t yhigh = kHighest;
  std::int32_t zhigh = kHighest;

  /// The whole coordinate space.
  constexpr CoordsRange() noexcept = default;
  constexpr CoordsRange(long x_low, long y_low, long x_high, long y_high) noexcept
      : xlow(Low32(x_low)), ylow(Low32(y_low)), xhigh(Low32(x_high)), yhigh(Low32(y_high)) {}
  constexpr CoordsRange(long x_low, long y_low, long z_low, long x_high, long y_high, long z_high) noexcept
      : xlow(Low32(x_low)),
        ylow(Low32(y_low)),
        zlow(Low32(z_low)),
        xhigh(Low32(x_high)),
        yhigh(Low32(y_high)),
        zhigh(Low32(z_high)) {}

  /// The range of the one point, over the whole height.
  void Reset(long x, long y) noexcept;
  /// Sets x, and z in place of y; the z values stay as they were. Files depend on this behaviour: it is
  /// intended.
  void Reset(long x, long y, long z) noexcept;

  void Expand(long x, long y) noexcept;
  void Expand(long x, long y, long z) noexcept;

  /// Converts six values that were taken from a file as little-endian 32-bit numbers.
  void tointernal() noexcept;
  /// The inverse of tointernal.
  void toexternal() noexcept;

  void read(std::istream& in);
  void write(std::ostream& out) const;

  /// Takes the values that lie whole in `bytes`; the others stay.
  void Decode(std::span<const char> bytes) noexcept;
  void Encode(std::span<char, kBytes> bytes) const noexcept;

  friend constexpr bool operator==(const CoordsRange&, const CoordsRange&) noexcept = default;

 private:
  [[nodiscard]] static constexpr std::int32_t Low32(long value) noexcept {
    return static_cast<std::int32_t>(value);
  }
};

}  // namespace Pelor::DGN
