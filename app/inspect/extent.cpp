#include "app/inspect/extent.h"

#include "app/design/element_geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace App {

namespace DGN = Pelor::DGN;

namespace {

// The points at both ends of a curve that only set its slopes.
constexpr std::size_t kSlopePoints = 2;

constexpr double kRadiansPerAngleUnit = std::numbers::pi / 180.0 / kAngleUnitsPerDegree;

void CoverVertices(const ElementView& element, const Vertices& vertices, Extent& extent) {
  std::size_t begin = 0;
  std::size_t end = vertices.Size();
  if (element.Type() == DGN::CurveType && end > 2 * kSlopePoints) {
    begin += kSlopePoints;
    end -= kSlopePoints;
  }
  for (std::size_t i = begin; i < end; ++i) {
    const Uor3 point = vertices[i];
    extent.Cover(point.x, point.y, point.z);
  }
}

void CoverEllipse(const PlanEllipse& ellipse, Extent& extent) {
  const auto cover = [&](double t) {
    const Vanth::PointXY point = ellipse.At(t);
    extent.Cover(point.x, point.y, ellipse.z_low);
    extent.Cover(point.x, point.y, ellipse.z_high);
  };
  const double begin =
      static_cast<double>(std::min(ellipse.start, ellipse.start + ellipse.sweep)) * kRadiansPerAngleUnit;
  const double sweep = std::fabs(static_cast<double>(ellipse.sweep)) * kRadiansPerAngleUnit;
  cover(begin);
  cover(begin + sweep);
  // The utmost points in x and y, as far as the arc comes by them.
  constexpr double kTurn = 2.0 * std::numbers::pi;
  for (const double first : {std::atan2(ellipse.v.x, ellipse.u.x), std::atan2(ellipse.v.y, ellipse.u.y)}) {
    for (const double t : {first, first + std::numbers::pi}) {
      const double behind_begin = std::fmod(std::fmod(t - begin, kTurn) + kTurn, kTurn);
      if (behind_begin <= sweep) cover(begin + behind_begin);
    }
  }
}

void CoverText(const TextView& text, TextExtent texts, Extent& extent) {
  extent.Cover(text.origin.x, text.origin.y, text.origin.z);
  if (texts == TextExtent::kOrigin || text.characters.empty()) return;
  const double radians = text.rotation_degrees * (std::numbers::pi / 180.0);
  const double width = text.char_width * static_cast<double>(text.characters.size());
  const double along_x = width * std::cos(radians);
  const double along_y = width * std::sin(radians);
  const double up_x = -text.char_height * std::sin(radians);
  const double up_y = text.char_height * std::cos(radians);
  extent.Cover(text.origin.x + along_x, text.origin.y + along_y, text.origin.z);
  extent.Cover(text.origin.x + up_x, text.origin.y + up_y, text.origin.z);
  extent.Cover(text.origin.x + along_x + up_x, text.origin.y + along_y + up_y, text.origin.z);
}

}  // namespace

void Extent::Cover(double x, double y, double z) noexcept {
  const std::array<double, 3> point = {x, y, z};
  for (std::size_t i = 0; i < point.size(); ++i) {
    low[i] = std::min(low[i], point[i]);
    high[i] = std::max(high[i], point[i]);
  }
}

void Extent::Cover(const Extent& other) noexcept {
  for (std::size_t i = 0; i < low.size(); ++i) {
    low[i] = std::min(low[i], other.low[i]);
    high[i] = std::max(high[i], other.high[i]);
  }
}

Extent ExtentOf(const ElementView& element, TextExtent texts) {
  Extent extent;
  if (const std::optional<Vertices> vertices = Vertices::Decode(element)) {
    CoverVertices(element, *vertices, extent);
  } else if (const std::optional<PlanEllipse> ellipse = PlanEllipse::Decode(element)) {
    CoverEllipse(*ellipse, extent);
  } else if (const std::optional<TextView> text = TextView::Decode(element)) {
    CoverText(*text, texts, extent);
  }
  return extent;
}

}  // namespace App
