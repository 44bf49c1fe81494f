#include "app/picture/measure.h"

#include "app/convert/arc_sweep.h"

#include <cmath>
#include <span>

namespace App {

namespace {

namespace MI = Pelor::MI;
using Vanth::Angle;
using Vanth::BoundsXY;
using Vanth::PointXY;
using Vanth::RectXY;

bool IsUsable(double number) {
  return std::fabs(number) <= kLargestCoordinate;  // false for NaN
}

// Collects points and remembers whether all were usable.
class Measurer {
 public:
  void Add(const PointXY& point) {
    is_usable_ = is_usable_ && IsUsable(point.x) && IsUsable(point.y);
    bounds_.Extend(point);
  }
  void Add(const RectXY& rect) {
    Add(PointXY{rect.x1, rect.y1});
    Add(PointXY{rect.x2, rect.y2});
  }
  void Add(std::span<const PointXY> points) {
    for (const PointXY& point : points) Add(point);
  }
  void Require(double number) { is_usable_ = is_usable_ && IsUsable(number); }

  [[nodiscard]] std::optional<BoundsXY> Result() const {
    return is_usable_ ? std::optional(bounds_) : std::nullopt;
  }

 private:
  BoundsXY bounds_;
  bool is_usable_ = true;
};

double Radians(const Angle& angle) {
  return angle(Angle::Radians, Angle::AsStored);
}

}  // namespace

std::array<PointXY, 4> TextCorners(const MI::WTextBody& text) {
  const BoundsXY box(text.GetBox());
  const double width = box.Max().x - box.Min().x;
  const double height = box.Max().y - box.Min().y;
  const double angle = Radians(text.GetAngle());
  const PointXY along{width * std::cos(angle), width * std::sin(angle)};
  const PointXY down{height * std::sin(angle), -height * std::cos(angle)};
  const PointXY pivot{box.Min().x, box.Max().y};
  return {pivot,
          {pivot.x + along.x, pivot.y + along.y},
          {pivot.x + along.x + down.x, pivot.y + along.y + down.y},
          {pivot.x + down.x, pivot.y + down.y}};
}

std::optional<BoundsXY> Measure(const MI::WObjBody& object) {
  Measurer measurer;
  switch (object.GetType()) {
    case MI::WObjType_Point:
      measurer.Add(static_cast<const MI::WPointBody&>(object).GetPoint());
      break;
    case MI::WObjType_Line: {
      const auto& line = static_cast<const MI::WLineBody&>(object);
      measurer.Add(line.GetStart());
      measurer.Add(line.GetEnd());
      break;
    }
    case MI::WObjType_PLine:
      measurer.Add(static_cast<const MI::WPLineBody&>(object).Vertices());
      break;
    case MI::WObjType_Region:
      measurer.Add(static_cast<const MI::WRegionBody&>(object).GetOutline()->Vertices());
      break;
    case MI::WObjType_Arc: {
      const auto& arc = static_cast<const MI::WArcBody&>(object);
      measurer.Require(Radians(arc.GetStartAngle()));
      measurer.Require(Radians(arc.GetEndAngle()));
      Measurer ellipse;
      ellipse.Add(arc.GetRect());
      if (!ellipse.Result() || !measurer.Result()) return std::nullopt;
      // The arc's own bounds count angles within one turn, so they do not know a full one.
      const BoundsXY bounds = IsWholeTurn(arc) ? BoundsXY(arc.GetRect()) : arc.GetBounds();
      measurer.Add(bounds.Min());
      measurer.Add(bounds.Max());
      break;
    }
    case MI::WObjType_Text: {
      const auto& text = static_cast<const MI::WTextBody&>(object);
      measurer.Add(text.GetBox());
      if (!measurer.Result()) return std::nullopt;
      Measurer turned;
      turned.Add(TextCorners(text));
      if (text.GetLabelKind() != 0) turned.Add(text.GetLabelPoint());
      return turned.Result();
    }
    case MI::WObjType_Rect:
      measurer.Add(static_cast<const MI::WRectBody&>(object).GetRect());
      break;
    case MI::WObjType_RRect: {
      const auto& rect = static_cast<const MI::WRRectBody&>(object);
      measurer.Add(rect.GetRect());
      measurer.Require(rect.GetRounding());
      break;
    }
    case MI::WObjType_Ellipse:
      measurer.Add(static_cast<const MI::WEllipseBody&>(object).GetRect());
      break;
    default:
      break;
  }
  return measurer.Result();
}

}  // namespace App
