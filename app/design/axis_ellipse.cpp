#include "app/design/axis_ellipse.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace App {

namespace {

using Vanth::PointXY;

constexpr double kSlackUors = 0.01;
// Twice the step of a stored quaternion's components, 2^-31.
constexpr double kSlackOfSize = 2e-9;

double Degrees(std::int64_t angle_units) noexcept {
  return static_cast<double>(angle_units) / kAngleUnitsPerDegree;
}

double Normalized(double degrees) noexcept {
  const double rest = std::fmod(degrees, 360.0);
  const double positive = rest < 0.0 ? rest + 360.0 : rest;
  return positive < 360.0 ? positive : 0.0;
}

// A point's angle on the axis-parallel ellipse is offset + sign * t.
struct AngleMap {
  double offset;
  double sign;
};

double Quarter(double component, double angle_positive, double angle_negative) noexcept {
  return component < 0.0 ? angle_negative : angle_positive;
}

}  // namespace

std::optional<AxisEllipse> AxisEllipse::Of(const PlanEllipse& ellipse) noexcept {
  const PointXY& u = ellipse.u;
  const PointXY& v = ellipse.v;
  const double length_u = std::hypot(u.x, u.y);
  const double length_v = std::hypot(v.x, v.y);
  const double slack = std::max(kSlackUors, kSlackOfSize * (length_u + length_v));
  const double sign = u.x * v.y - u.y * v.x < 0.0 ? -1.0 : 1.0;

  double half_width = 0.0;
  double half_height = 0.0;
  AngleMap map{};
  if (std::fabs(u.y) <= slack && std::fabs(v.x) <= slack) {
    half_width = std::fabs(u.x);
    half_height = std::fabs(v.y);
    map = {Quarter(u.x, 0.0, 180.0), sign};
  } else if (std::fabs(u.x) <= slack && std::fabs(v.y) <= slack) {
    half_width = std::fabs(v.x);
    half_height = std::fabs(u.y);
    map = {Quarter(u.y, 90.0, 270.0), sign};
  } else if (std::fabs(length_u - length_v) <= slack &&
             std::fabs(u.x * v.x + u.y * v.y) <= slack * std::max(length_u, length_v)) {
    half_width = half_height = length_u;
    map = {std::atan2(u.y, u.x) * (180.0 / std::numbers::pi), sign};
  } else {
    return std::nullopt;
  }

  AxisEllipse result;
  const PointXY& center = ellipse.center;
  result.rect = {center.x - half_width, center.y - half_height, center.x + half_width,
                 center.y + half_height};
  const double from = map.offset + map.sign * Degrees(ellipse.start);
  const double to = map.offset + map.sign * Degrees(ellipse.start + ellipse.sweep);
  const bool is_clockwise = map.sign * static_cast<double>(ellipse.sweep) < 0.0;
  result.start_degrees = Normalized(is_clockwise ? to : from);
  result.end_degrees = Normalized(is_clockwise ? from : to);
  return result;
}

}  // namespace App
