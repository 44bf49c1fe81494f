#include "app/sample/sheet.h"

#include "app/design/uor_point.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace App::Sample {

namespace DGN = Pelor::DGN;

namespace {

/// The entity number of the table of buildings.
constexpr std::uint16_t kBuildings = 1;

}  // namespace

void Sheet::Point(const Look& look, Vanth::PointXY place) {
  Line(look, place, place);
}

void Sheet::Line(const Look& look, Vanth::PointXY from, Vanth::PointXY to) {
  elements_.Line(StyleOf(look), At(from), At(to), LinkagesOf(look));
}

void Sheet::Path(const Look& look, const Places& places) {
  paths_.Path(StyleOf(look), Convert(places), LinkagesOf(look));
}

void Sheet::SmoothPath(const Look& look, const Places& places) {
  paths_.SmoothPath(StyleOf(look), Convert(places), LinkagesOf(look));
}

void Sheet::PointString(const Look& look, const Places& places) {
  elements_.Vertices(DGN::PointStringType, StyleOf(look), Convert(places), LinkagesOf(look));
}

void Sheet::Area(const Look& look, Places places) {
  places.push_back(places.front());
  paths_.Ring(StyleOf(look), Convert(places), LinkagesOf(look));
}

void Sheet::Rectangle(const Look& look, Vanth::PointXY low, double width, double height) {
  Area(look, {low, {low.x + width, low.y}, {low.x + width, low.y + height}, {low.x, low.y + height}});
}

void Sheet::Ellipse(const Look& look, Vanth::PointXY centre, double a, double b, double rotation_degrees) {
  elements_.Ellipse(StyleOf(look),
                    {a * kUorsPerMetre, b * kUorsPerMetre, rotation_degrees, centre.x * kUorsPerMetre,
                     centre.y * kUorsPerMetre},
                    LinkagesOf(look));
}

void Sheet::Arc(const Look& look, Vanth::PointXY centre, double radius, double start, double sweep) {
  ArcShape shape;
  shape.ellipse = {radius * kUorsPerMetre, radius * kUorsPerMetre, 0.0, centre.x * kUorsPerMetre,
                   centre.y * kUorsPerMetre};
  shape.start_degrees = start;
  shape.sweep_degrees = sweep;
  elements_.Arc(StyleOf(look), shape, LinkagesOf(look));
}

void Sheet::Text(const Look& look, Vanth::PointXY place, std::string_view text, const Lettering& lettering) {
  elements_.Text(StyleOf(look), ShapeOf(lettering), At(LowerLeft(place, text.size(), lettering)), text,
                 LinkagesOf(look));
}

void Sheet::TextLines(const Look& look, Vanth::PointXY place, std::span<const std::string_view> lines,
                      const Lettering& lettering) {
  constexpr double kRoom = 0.5;  // between two lines, in heights
  std::size_t longest = 0;
  for (const std::string_view line : lines) longest = std::max(longest, line.size());
  elements_.BeginTextNode(StyleOf(look), ShapeOf(lettering), At(place),
                          Rounded(lettering.height * kRoom * kUorsPerMetre), longest, LinkagesOf(look));
  double y = place.y + static_cast<double>(lines.size() - 1) * (1 + kRoom) * lettering.height;
  for (const std::string_view line : lines) {
    Text({.level = look.level, .color = look.color, .weight = look.weight}, {place.x, y}, line, lettering);
    y -= (1 + kRoom) * lettering.height;
  }
  elements_.End();
}

void Sheet::AreaWithShortLinkage(const Look& look, Places places) {
  places.push_back(places.front());
  const std::span<const DGN::point2d> points = Convert(places);
  ElementFrame& frame = elements_.Frame();
  frame.Begin(DGN::ShapeType, StyleOf(look));
  frame.Bytes().Word(static_cast<std::uint16_t>(points.size()));
  frame.Bytes().Points(points);
  for (const DGN::point2d& point : points) frame.Range().Cover(point);
  const std::uint16_t linkage[] = {0, kBuildings, static_cast<std::uint16_t>(look.key & 0xFFFFU),
                                   static_cast<std::uint16_t>(look.key >> 16U)};
  frame.End(linkage);
}

void Sheet::BeginChain(const Look& look) {
  elements_.BeginComplex(DGN::ComplexStringType, StyleOf(look), LinkagesOf(look));
}

void Sheet::BeginComplexShape(const Look& look) {
  elements_.BeginComplex(DGN::ComplexShapeType, StyleOf(look), LinkagesOf(look));
}

void Sheet::BeginCell(const Look& look, std::string_view name, Vanth::PointXY origin) {
  elements_.BeginCell(StyleOf(look), name, At(origin), LinkagesOf(look));
}

void Sheet::BSpline(const Look& look, const Spline& spline) {
  constexpr std::uint8_t kRational = 0x40;
  constexpr std::uint8_t kClosed = 0x80;
  const ElementStyle style = StyleOf(look);
  unsigned flags = spline.order - 2;
  if (!spline.weights.empty()) flags |= kRational;
  if (spline.closed) flags |= kClosed;

  ElementFrame& frame = elements_.Frame();
  frame.Begin(DGN::BSplineCurveHeaderType, style);
  frame.Bytes().Long(0);
  frame.Bytes().Byte(static_cast<std::uint8_t>(flags));
  frame.Bytes().Byte(0);
  frame.Bytes().Word(static_cast<std::uint16_t>(spline.poles.size()));
  frame.Bytes().Word(static_cast<std::uint16_t>(spline.knots.size()));
  // The length is a long, but its upper word is never needed.
  frame.EndHeader(LinkagesOf(look).Words(), {.length = 38});
  if (!spline.knots.empty()) Fractions(DGN::BSplineKnotType, style, spline.knots);
  elements_.Vertices(DGN::BSplinePoleType, style, Convert(spline.poles), {});
  if (!spline.weights.empty()) Fractions(DGN::BSplineWeightType, style, spline.weights);
  elements_.End();
}

DGN::point2d Sheet::At(Vanth::PointXY place) {
  return RoundedToPlane(place.x * kUorsPerMetre, place.y * kUorsPerMetre);
}

ElementStyle Sheet::StyleOf(const Look& look) {
  return {.level = look.level,
          .color = look.color,
          .line_style = look.line_style,
          .weight = look.weight,
          .element_class = look.element_class,
          .graphic_group = look.group,
          .hole = look.hole,
          .deleted = look.deleted};
}

LinkageWords Sheet::LinkagesOf(const Look& look) {
  LinkageWords linkages;
  if (look.key != 0) linkages.AddDatabase(kBuildings, look.key);
  if (look.fill >= 0) linkages.AddFill(static_cast<std::uint8_t>(look.fill));
  return linkages;
}

std::span<const DGN::point2d> Sheet::Convert(const Places& places) {
  points_.clear();
  for (const Vanth::PointXY& place : places) points_.push_back(At(place));
  return points_;
}

TextShape Sheet::ShapeOf(const Lettering& lettering) {
  const double multiplier = lettering.height * kUorsPerMetre / TextShape::kMultiplierUnit;
  TextShape shape;
  shape.justification = lettering.justification;
  shape.height_multiplier = Rounded(multiplier);
  shape.length_multiplier = Rounded(multiplier * lettering.spread);
  shape.rotation_degrees = lettering.rotation_degrees;
  return shape;
}

Vanth::PointXY Sheet::LowerLeft(Vanth::PointXY place, std::size_t characters, const Lettering& lettering) {
  // Shares of the width by column, and of the height by row: top, centre, bottom.
  constexpr double kWidths[] = {0.0, 0.0, 0.5, 1.0, 1.0};
  constexpr double kHeights[] = {1.0, 0.5, 0.0};
  const double width = static_cast<double>(characters) * lettering.height * lettering.spread;
  const double right = -width * kWidths[lettering.justification / 3 % 5];
  const double up = -lettering.height * kHeights[lettering.justification % 3];
  const double angle = lettering.rotation_degrees * std::numbers::pi / 180.0;
  return {place.x + right * std::cos(angle) - up * std::sin(angle),
          place.y + right * std::sin(angle) + up * std::cos(angle)};
}

void Sheet::Fractions(DGN::EType type, const ElementStyle& style, std::span<const double> values) {
  constexpr double kWhole = 2147483648.0;
  ElementFrame& frame = elements_.Frame();
  frame.Begin(type, style);
  for (const double value : values) frame.Bytes().Long(static_cast<std::int32_t>(value * kWhole));
  frame.End({});
}

}  // namespace App::Sample
