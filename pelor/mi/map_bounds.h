#pragma once

#include <pelor/base/export.h>

#include <cstdint>
#include <limits>

namespace Pelor::MI {

/// A point of the integer map space. Sums and differences are those of 32-bit arithmetic and wrap around.
struct MPnt {
  std::int32_t x = 0;
  std::int32_t y = 0;

  friend constexpr MPnt operator+(const MPnt& a, const MPnt& b) noexcept {
    return {Wrapped(std::int64_t{a.x} + b.x), Wrapped(std::int64_t{a.y} + b.y)};
  }
  friend constexpr MPnt operator-(const MPnt& a, const MPnt& b) noexcept {
    return {Wrapped(std::int64_t{a.x} - b.x), Wrapped(std::int64_t{a.y} - b.y)};
  }
  friend constexpr bool operator==(const MPnt&, const MPnt&) noexcept = default;

 private:
  static constexpr std::int32_t Wrapped(std::int64_t value) noexcept {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
  }
};

/// A rectangle of map space, given by two opposite corners. They stay as given.
struct MRct {
  MPnt p1;
  MPnt p2;

  friend constexpr bool operator==(const MRct&, const MRct&) noexcept = default;
};

/// A bounding box of map space that can be empty. Its numbers are signed 32-bit: where an operation takes
/// `long`, the low 32 bits count.
class PELOR_EXPORT MBnds {
 public:
  constexpr MBnds() noexcept = default;
  /// The box between two opposite corners, in whichever order they are given.
  MBnds(long x1, long y1, long x2, long y2) noexcept;
  MBnds(const MPnt& p1, const MPnt& p2) noexcept : MBnds(p1.x, p1.y, p2.x, p2.y) {}
  explicit MBnds(const MRct& rect) noexcept : MBnds(rect.p1, rect.p2) {}
  /// The point as a box without extent.
  explicit MBnds(const MPnt& point) noexcept : MBnds(point, point) {}
  /// The box of `n` points.
  MBnds(const MPnt* points, unsigned n) noexcept { Extend(points, n); }

  /// Makes the box empty.
  void Empty() noexcept { *this = MBnds(); }
  [[nodiscard]] bool IsEmpty() const noexcept { return xmax < xmin || ymax < ymin; }

  /// Puts the limits of each axis into order. The box that Empty leaves becomes the whole 32-bit range by
  /// that.
  void sort() noexcept;

  /// Grows to hold the point; the box that Empty leaves becomes that point.
  void Extend(const MPnt& point) noexcept;
  /// Grows to hold `n` points; any empty box starts anew at the first of them.
  void Extend(const MPnt* points, unsigned n) noexcept;
  /// Grows to hold the other box, too; an empty one changes nothing.
  void Extend(const MBnds& other) noexcept;

  /// Leaves what both boxes cover, which may be nothing.
  void Intersect(const MBnds& other) noexcept;

  /// Moves each side outward, or inward for negative numbers, as far as 32 bits reach. An empty box stays as
  /// it is.
  void ExtendSize(long dx, long dy) noexcept;

  /// Whether the point lies inside or on the border.
  [[nodiscard]] bool Contains(const MPnt& point) const noexcept;
  /// Whether the point lies inside, off the border.
  [[nodiscard]] bool InnerContains(const MPnt& point) const noexcept;
  [[nodiscard]] bool Contains(const MBnds& other) const noexcept;
  /// Whether the boxes share a point; a common edge or corner is enough.
  [[nodiscard]] bool Intersects(const MBnds& other) const noexcept;

  /// Extended on both axes, on exactly one, on none. An empty box has no dimension of its own: what these
  /// answer for it is what the comparisons of its limits say.
  [[nodiscard]] bool Is2D() const noexcept { return xmax > xmin && ymax > ymin; }
  [[nodiscard]] bool Is1D() const noexcept { return (xmax == xmin) != (ymax == ymin); }
  [[nodiscard]] bool Is0D() const noexcept { return xmax == xmin && ymax == ymin; }

  friend constexpr bool operator==(const MBnds&, const MBnds&) noexcept = default;

  std::int32_t xmin = std::numeric_limits<std::int32_t>::max();
  std::int32_t ymin = std::numeric_limits<std::int32_t>::max();
  std::int32_t xmax = std::numeric_limits<std::int32_t>::min();
  std::int32_t ymax = std::numeric_limits<std::int32_t>::min();
};

}  // namespace Pelor::MI
