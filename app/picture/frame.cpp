#include "app/picture/frame.h"

#include <algorithm>
#include <cmath>

namespace App {

namespace {

constexpr double kLowest = 0.2;
constexpr double kHighest = 2.0;
// Sizes below this part of the coordinates are lost in the coordinates' own rounding.
constexpr double kSmallestPart = 1e-14;
constexpr double kSmallest = 1e-200;

}  // namespace

Frame MakeFrame(const Vanth::BoundsXY& bounds, const FrameOptions& options) {
  const bool has_bounds = !bounds.IsEmpty();
  const Vanth::PointXY low = has_bounds ? bounds.Min() : Vanth::PointXY{0.0, 0.0};
  const Vanth::PointXY high = has_bounds ? bounds.Max() : Vanth::PointXY{1.0, 1.0};
  const double largest = std::max({std::fabs(low.x), std::fabs(low.y), std::fabs(high.x), std::fabs(high.y)});
  const double floor = std::max(largest * kSmallestPart, kSmallest);
  double world_width = high.x - low.x;
  double world_height = high.y - low.y;
  if (std::max(world_width, world_height) <= floor) {
    world_width = 1.0;
    world_height = 1.0;
  }

  Frame frame;
  frame.width = std::round(options.width);
  const double map_width = std::max(frame.width - 2 * options.margin, 1.0);
  const double wanted = world_width > 0 ? map_width * (world_height / world_width) : kHighest * map_width;
  const double map_height = std::clamp(wanted, kLowest * map_width, kHighest * map_width);
  frame.height = std::ceil(map_height + 2 * options.margin + options.footer);
  frame.map = {options.margin, options.margin, options.margin + map_width, options.margin + map_height};
  const double scale_x = world_width > 0 ? map_width / world_width : HUGE_VAL;
  const double scale_y = world_height > 0 ? map_height / world_height : HUGE_VAL;
  frame.scale = std::min(scale_x, scale_y);
  frame.center = {low.x + (high.x - low.x) / 2, low.y + (high.y - low.y) / 2};
  return frame;
}

}  // namespace App
