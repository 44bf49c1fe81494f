#include <pelor/mi/var_obj.h>

#include <cmath>
#include <numbers>

namespace Pelor::MI {

namespace {

using Vanth::Angle;
using Vanth::PointXY;

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kQuarter = std::numbers::pi / 2;
constexpr double kMinStep = std::numbers::pi / 1800;
// Arc angles beyond this are read within one turn: adding turns one by one would not end, and a record of a
// few bytes must not ask for endless vertices.
constexpr double kMaxArcAngle = 8 * kTurn;

double Distance(const PointXY& a, const PointXY& b) {
  return std::hypot(b.x - a.x, b.y - a.y);
}

/// An ellipse along the axes. Its half-axes may be negative: that mirrors it.
struct Ellipse {
  explicit Ellipse(const Vanth::RectXY& rect)
      : center(rect.Center()), a(std::fabs(rect.Width()) / 2), b(std::fabs(rect.Height()) / 2) {}
  Ellipse(const PointXY& c, double half_x, double half_y) : center(c), a(half_x), b(half_y) {}

  [[nodiscard]] PointXY At(double radians) const {
    return {center.x + a * std::cos(radians), center.y + b * std::sin(radians)};
  }
  /// Appends the points from `start` on, one per step, that stand before `end`.
  void AppendTo(WPLineBody& outline, double start, double end, double step) const {
    double angle = start;
    for (int i = 1; angle < end; ++i) {
      outline.AddVertex(At(angle));
      angle = start + i * step;
    }
  }

  PointXY center;
  double a;
  double b;
};

template <class T>
const T* As(const WObjRf<WObjBody>& object) {
  return dynamic_cast<const T*>(object.Get());
}

double ArcAngle(const Angle& angle, bool within_one_turn) {
  return angle(Angle::Radians, within_one_turn ? Angle::Positive : Angle::AsStored);
}

}  // namespace

WVarObj::WVarObj(const Tobri::IRefC<CoordSys>& wsys, const Symbol& symbol, const Pen& pen, const Brush& brush,
                 double tolerance, bool lines)
    : wsys_(wsys),
      tolerance_(tolerance),
      lines_(lines),
      outline_(wsys, pen, false),
      pen_(pen),
      brush_(brush),
      symbol_(symbol) {
  Empty();
}

WVarObj::WVarObj(const WObjRf<WObjBody>& object, double tolerance, bool lines)
    : WVarObj(object ? object->GetWSys() : nullptr, Symbol(), Pen(), Brush(), tolerance, lines) {
  if (const auto* const point = As<WPointBody>(object)) {
    AddVertex(point->GetPoint());
  } else if (const auto* const line = As<WLineBody>(object)) {
    AddVertex(line->GetStart());
    AddVertex(line->GetEnd());
  } else if (As<WPLineBody>(object) != nullptr) {
    outline_ = WPLineObj(object);
    outline_.Copy();
  } else if (const auto* const region = As<WRegionBody>(object)) {
    outline_ = region->GetOutline();
    outline_.Copy();
    outline_->SetWSys(wsys_);  // an outline keeps the one it was made with
    Close();
  } else if (const auto* const rect = As<WRectBody>(object)) {
    Take(*rect);
  } else if (const auto* const rrect = As<WRRectBody>(object)) {
    Take(*rrect);
  } else if (const auto* const ellipse = As<WEllipseBody>(object)) {
    Take(*ellipse);
  } else if (const auto* const arc = As<WArcBody>(object)) {
    Take(*arc);
  }

  if (const auto* const body_0d = As<W0DBody>(object)) SetSymbol(body_0d->GetSymbol());
  if (const auto* const body_1d = As<W1DBody>(object)) SetPen(body_1d->GetPen());
  if (const auto* const body_2d = As<W2DBody>(object)) {
    SetPen(body_2d->GetPen());
    SetBrush(body_2d->GetBrush());
  }
}

void WVarObj::Empty() {
  outline_.Copy();
  outline_->Empty();
  part_is_pending_ = true;
  kind_ = WObjType_None;
}

void WVarObj::AddVertex(const PointXY& point) {
  if (part_is_pending_) {
    part_is_pending_ = false;
    first_ = point;
  } else if (Distance(last_, point) <= tolerance_) {
    return;
  } else if (Distance(first_, point) <= tolerance_) {
    // The region repeats the ring's first vertex when it closes it.
    outline_.Copy();
    outline_->AddPart();
    part_is_pending_ = true;
    kind_ = WObjType_Region;
    return;
  }
  last_ = point;
  Append(point);
}

WObjType WVarObj::GetWType() const noexcept {
  if (kind_ != WObjType_None) return kind_;
  if (outline_->GetNParts() != 1) return WObjType_PLine;
  switch (outline_->GetNVertices(0)) {
    case 0:
      return WObjType_None;
    case 1:
      return WObjType_Point;
    case 2:
      return lines_ ? WObjType_Line : WObjType_PLine;
    default:
      return WObjType_PLine;
  }
}

WVarObj::operator WObjRf<WObjBody>() const {
  switch (GetWType()) {
    case WObjType_None:
      return WObjRf<WObjBody>(new WNoBody(wsys_));
    case WObjType_Point:
      return WPointObj(outline_->GetVertex(0, 0), wsys_, symbol_);
    case WObjType_Line:
      return WLineObj(outline_->GetVertex(0, 0), outline_->GetVertex(1, 0), wsys_, pen_);
    case WObjType_Region:
      return GetClosed();
    default:
      return outline_;
  }
}

void WVarObj::SetPen(const Pen& pen) {
  pen_ = pen;
  outline_.Copy();
  outline_->SetPen(pen);
}

void WVarObj::SetWSys(const Tobri::IRefC<CoordSys>& wsys) noexcept {
  wsys_ = wsys;
  outline_->SetWSys(wsys);
}

double WVarObj::angle_tol(double tolerance, double radius) noexcept {
  if (!(tolerance < radius)) return kQuarter;
  const double step = 2 * std::acos(1 - tolerance / radius);
  return step > kMinStep ? step : kMinStep;  // also when it is NaN
}

void WVarObj::Take(const WRectBody& rect) {
  const Vanth::RectXY& r = rect.GetRect();
  AddVertex({r.x1, r.y1});
  AddVertex({r.x2, r.y1});
  AddVertex({r.x2, r.y2});
  AddVertex({r.x1, r.y2});
  Close();
}

void WVarObj::Take(const WRRectBody& rect) {
  const Vanth::RectXY& r = rect.GetRect();
  const double radius = std::fabs(rect.GetRounding()) / 2;
  const double step = angle_tol(tolerance_, radius);
  // Signed like the sides, so that the corners follow the turn of a mirrored rectangle.
  const double rx = std::copysign(radius, r.Width());
  const double ry = std::copysign(radius, r.Height());
  const Ellipse corners[] = {
      {{r.x1 + rx, r.y1 + ry}, rx, ry},
      {{r.x2 - rx, r.y1 + ry}, rx, ry},
      {{r.x2 - rx, r.y2 - ry}, rx, ry},
      {{r.x1 + rx, r.y2 - ry}, rx, ry},
  };
  outline_.Copy();
  double start = 2 * kQuarter;
  for (const Ellipse& corner : corners) {
    corner.AppendTo(*outline_, start, start + kQuarter, step);
    outline_->AddVertex(corner.At(start + kQuarter));
    start += kQuarter;
  }
  Close();
}

void WVarObj::Take(const WEllipseBody& ellipse) {
  const Ellipse shape(ellipse.GetRect());
  outline_.Copy();
  shape.AppendTo(*outline_, 0, kTurn, angle_tol(tolerance_, std::fmax(shape.a, shape.b)));
  Close();
}

void WVarObj::Take(const WArcBody& arc) {
  const Ellipse shape(arc.GetRect());
  double start = ArcAngle(arc.GetStartAngle(), false);
  double end = ArcAngle(arc.GetEndAngle(), false);
  if (!(std::fabs(start) <= kMaxArcAngle && std::fabs(end) <= kMaxArcAngle)) {
    start = ArcAngle(arc.GetStartAngle(), true);
    end = ArcAngle(arc.GetEndAngle(), true);
  }
  while (end < start) end += kTurn;
  outline_.Copy();
  shape.AppendTo(*outline_, start, end, angle_tol(tolerance_, std::fmax(shape.a, shape.b)));
  outline_->AddVertex(shape.At(end));
}

}  // namespace Pelor::MI
