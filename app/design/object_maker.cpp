#include "app/design/object_maker.h"

#include <cmath>
#include <numbers>

namespace App {

using namespace Pelor;
using Vanth::PointXY;

namespace {

PointXY Turned(const PointXY& point, double radians) noexcept {
  const double cosine = std::cos(radians);
  const double sine = std::sin(radians);
  return {point.x * cosine - point.y * sine, point.x * sine + point.y * cosine};
}

double Radians(double degrees) noexcept {
  return degrees * (std::numbers::pi / 180.0);
}

}  // namespace

// The object of the feature before, or a new one. All that makes an object of the kind is set by the caller.
template <class Body>
Body& ObjectMaker::Use(Feature& feature, MI::WObjType type) const {
  MI::WObjBody* const object = feature.object.Get();
  if (object == nullptr || object->GetType() != type || object->RefCount() != 1) {
    auto* const body = new Body(system_);
    feature.object.Assign(body);
    return *body;
  }
  if (object->GetWSys() != system_) object->SetWSys(system_);
  return static_cast<Body&>(*object);
}

Vanth::RectXY ObjectMaker::ToMap(const Vanth::RectXY& rect) const noexcept {
  return {scale_.X(rect.x1), scale_.Y(rect.y1), scale_.X(rect.x2), scale_.Y(rect.y2)};
}

void ObjectMaker::Point(Feature& feature, const PointXY& point, const MI::StdSymbol& symbol) const {
  auto& body = Use<MI::WPointBody>(feature, MI::WObjType_Point);
  body.SetPoint(ToMap(point));
  body.SetSymbol(symbol);
}

void ObjectMaker::Line(Feature& feature, const PointXY& start, const PointXY& end,
                       const Symbology& symbology) const {
  auto& body = Use<MI::WLineBody>(feature, MI::WObjType_Line);
  body.SetStart(ToMap(start));
  body.SetEnd(ToMap(end));
  body.SetPen(MakePen(symbology, colors_));
}

void ObjectMaker::PLine(Feature& feature, std::span<const PointXY> points, const Symbology& symbology,
                        bool is_smooth) const {
  auto& body = Use<MI::WPLineBody>(feature, MI::WObjType_PLine);
  body.SetPen(MakePen(symbology, colors_));
  body.SetIsSmooth(is_smooth);
  body.Empty();
  for (const PointXY& point : points) body.AddVertex(ToMap(point));
}

void ObjectMaker::Region(Feature& feature, const Path& path, const Symbology& symbology,
                         std::optional<std::uint8_t> fill_color) const {
  auto& body = Use<MI::WRegionBody>(feature, MI::WObjType_Region);
  body.SetPen(MakePen(symbology, colors_));
  body.SetBrush(MakeBrush(fill_color, colors_));
  body.Empty();
  bool is_first = true;
  for (std::size_t i = 0; i < path.Parts(); ++i) {
    if (!path.HasArea(i)) continue;
    if (!is_first) body.AddPart();
    is_first = false;
    for (const PointXY& point : path.Part(i)) body.AddVertex(ToMap(point));
  }
  body.Close();
}

void ObjectMaker::Ellipse(Feature& feature, const AxisEllipse& ellipse, const Symbology& symbology,
                          std::optional<std::uint8_t> fill_color) const {
  auto& body = Use<MI::WEllipseBody>(feature, MI::WObjType_Ellipse);
  body.SetRect(ToMap(ellipse.rect));
  body.SetPen(MakePen(symbology, colors_));
  body.SetBrush(MakeBrush(fill_color, colors_));
}

void ObjectMaker::Arc(Feature& feature, const AxisEllipse& arc, const Symbology& symbology) const {
  auto& body = Use<MI::WArcBody>(feature, MI::WObjType_Arc);
  body.SetRect(ToMap(arc.rect));
  body.SetStartAngle(Vanth::Angle(arc.start_degrees, Vanth::Angle::Degrees));
  body.SetEndAngle(Vanth::Angle(arc.end_degrees, Vanth::Angle::Degrees));
  body.SetPen(MakePen(symbology, colors_));
}

void ObjectMaker::Text(Feature& feature, const TextPlace& place, std::string_view text,
                       const Symbology& symbology) const {
  auto& body = Use<MI::WTextBody>(feature, MI::WObjType_Text);
  // On the map the box lies straight, and it is turned about its upper left corner.
  const PointXY up = Turned({0.0, place.height}, Radians(place.angle_degrees));
  const PointXY upper_left = ToMap(PointXY{place.lower_left.x + up.x, place.lower_left.y + up.y});
  const Vanth::RectXY box{upper_left.x, upper_left.y - scale_.Length(place.height),
                          upper_left.x + scale_.Length(place.width), upper_left.y};
  body.SetText(Tobri::String(text));
  body.SetBox(box);
  body.SetAngle(Vanth::Angle(place.angle_degrees, Vanth::Angle::Degrees));
  body.SetJustification(place.justification);
  body.SetSpacing(place.spacing);
  body.SetLabelKind(0);
  body.SetLabelPoint(box.Center());
  body.SetFont(MakeFont(symbology, colors_));
}

Vanth::BoundsXY CoveredBounds(const MI::WObjBody& object) {
  if (object.GetType() != MI::WObjType_Text) return object.GetBounds();
  const auto& text = static_cast<const MI::WTextBody&>(object);
  const Vanth::RectXY& box = text.GetBox();
  const double radians = text.GetAngle()(Vanth::Angle::Radians, Vanth::Angle::AsStored);
  Vanth::BoundsXY bounds;
  for (const double x : {box.x1, box.x2}) {
    for (const double y : {box.y1, box.y2}) {
      const PointXY corner = Turned({x - box.x1, y - box.y2}, radians);
      bounds.Extend({box.x1 + corner.x, box.y2 + corner.y});
    }
  }
  return bounds;
}

}  // namespace App
