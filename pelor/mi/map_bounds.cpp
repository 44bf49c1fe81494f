#include <pelor/mi/map_bounds.h>
#include <pelor/mi/saturate.h>

#include <algorithm>
#include <utility>

namespace Pelor::MI {

namespace {

constexpr std::int32_t Low32(long value) noexcept {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

}  // namespace

MBnds::MBnds(long x1, long y1, long x2, long y2) noexcept
    : xmin(Low32(x1)), ymin(Low32(y1)), xmax(Low32(x2)), ymax(Low32(y2)) {
  sort();
}

void MBnds::sort() noexcept {
  if (xmin > xmax) std::swap(xmin, xmax);
  if (ymin > ymax) std::swap(ymin, ymax);
}

void MBnds::Extend(const MPnt& point) noexcept {
  xmin = std::min(xmin, point.x);
  ymin = std::min(ymin, point.y);
  xmax = std::max(xmax, point.x);
  ymax = std::max(ymax, point.y);
}

void MBnds::Extend(const MPnt* points, unsigned n) noexcept {
  if (n == 0) return;
  const MPnt* const end = points + n;
  // A box that is empty on one axis alone forgets the other axis, too.
  if (IsEmpty()) *this = MBnds(*points++);
  for (; points != end; ++points) Extend(*points);
}

void MBnds::Extend(const MBnds& other) noexcept {
  // The limits of an empty box that Intersect has left mean nothing.
  if (other.IsEmpty()) return;
  xmin = std::min(xmin, other.xmin);
  ymin = std::min(ymin, other.ymin);
  xmax = std::max(xmax, other.xmax);
  ymax = std::max(ymax, other.ymax);
}

void MBnds::Intersect(const MBnds& other) noexcept {
  xmin = std::max(xmin, other.xmin);
  ymin = std::max(ymin, other.ymin);
  xmax = std::min(xmax, other.xmax);
  ymax = std::min(ymax, other.ymax);
}

void MBnds::ExtendSize(long dx, long dy) noexcept {
  if (IsEmpty()) return;
  const std::int64_t wider = Low32(dx);
  const std::int64_t higher = Low32(dy);
  xmin = Saturated(xmin - wider);
  xmax = Saturated(xmax + wider);
  ymin = Saturated(ymin - higher);
  ymax = Saturated(ymax + higher);
}

bool MBnds::Contains(const MPnt& point) const noexcept {
  return xmin <= point.x && point.x <= xmax && ymin <= point.y && point.y <= ymax;
}

bool MBnds::InnerContains(const MPnt& point) const noexcept {
  return xmin < point.x && point.x < xmax && ymin < point.y && point.y < ymax;
}

bool MBnds::Contains(const MBnds& other) const noexcept {
  return other.xmin >= xmin && other.xmax <= xmax && other.ymin >= ymin && other.ymax <= ymax;
}

bool MBnds::Intersects(const MBnds& other) const noexcept {
  MBnds common = *this;
  common.Intersect(other);
  return !common.IsEmpty();
}

}  // namespace Pelor::MI
