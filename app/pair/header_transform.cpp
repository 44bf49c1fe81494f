#include "app/pair/header_transform.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace App {

namespace {

namespace MI = Pelor::MI;
using Vanth::Angle;
using Vanth::RectXY;

RectXY Transformed(const RectXY& rect, const MI::Transform& transform) {
  Vanth::PointXY a{rect.x1, rect.y1};
  Vanth::PointXY b{rect.x2, rect.y2};
  transform.Apply(a);
  transform.Apply(b);
  // What has mirrored an axis has changed the order of the corners as well.
  if (transform.scaleX < 0.0) std::swap(a.x, b.x);
  if (transform.scaleY < 0.0) std::swap(a.y, b.y);
  return {a.x, a.y, b.x, b.y};
}

// In degrees, so that whole ones stay whole.
Angle Transformed(const Angle& angle, const MI::Transform& transform) {
  constexpr double kQuarter = 90.0;
  double degrees = angle(Angle::Degrees, Angle::AsStored);
  const double scale_x = std::abs(transform.scaleX);
  const double scale_y = std::abs(transform.scaleY);
  if (scale_x != scale_y && std::fmod(degrees, kQuarter) != 0.0) {
    const double radians = angle(Angle::Radians, Angle::AsStored);
    const Angle leaning(std::atan2(std::sin(radians) * scale_y, std::cos(radians) * scale_x));
    degrees = leaning(Angle::Degrees, Angle::AsStored);
  }
  if (transform.scaleX < 0.0) degrees = 2 * kQuarter - degrees;
  if (transform.scaleY < 0.0) degrees = -degrees;
  return Angle(degrees, Angle::Degrees);
}

void Apply(MI::WArcBody& arc, const MI::Transform& transform) {
  Angle start = Transformed(arc.GetStartAngle(), transform);
  Angle end = Transformed(arc.GetEndAngle(), transform);
  // An arc runs counter-clockwise, in a mirror too.
  if ((transform.scaleX < 0.0) != (transform.scaleY < 0.0)) std::swap(start, end);
  arc.SetRect(Transformed(arc.GetRect(), transform));
  arc.SetStartAngle(start);
  arc.SetEndAngle(end);
}

void Apply(MI::WTextBody& text, const MI::Transform& transform) {
  const RectXY box = Transformed(text.GetBox(), transform);
  text.Apply(transform);
  text.SetBox(box);
}

template <class Body>
void ApplyToRect(MI::WObjBody& object, const MI::Transform& transform) {
  auto& body = static_cast<Body&>(object);
  body.SetRect(Transformed(body.GetRect(), transform));
}

}  // namespace

bool ReplaceUnusedFactors(MI::Transform& transform) noexcept {
  bool replaced = false;
  for (double* const factor : {&transform.scaleX, &transform.scaleY}) {
    if (*factor != 0.0) continue;
    *factor = 1.0;
    replaced = true;
  }
  return replaced;
}

void ApplyTransform(MI::WObjBody& object, const MI::Transform& transform) {
  switch (object.GetType()) {
    case MI::WObjType_Rect:
      ApplyToRect<MI::WRectBody>(object, transform);
      break;
    case MI::WObjType_RRect: {
      ApplyToRect<MI::WRRectBody>(object, transform);
      auto& rounded = static_cast<MI::WRRectBody&>(object);
      rounded.SetRounding(rounded.GetRounding() * std::abs(transform.scaleX));
      break;
    }
    case MI::WObjType_Ellipse:
      ApplyToRect<MI::WEllipseBody>(object, transform);
      break;
    case MI::WObjType_Arc:
      Apply(static_cast<MI::WArcBody&>(object), transform);
      break;
    case MI::WObjType_Text:
      Apply(static_cast<MI::WTextBody&>(object), transform);
      break;
    default:
      object.Apply(transform);
  }
}

}  // namespace App
