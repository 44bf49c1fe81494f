#include "app/picture/painter.h"

#include "app/picture/symbol_mark.h"
#include "app/picture/text_drawing.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

namespace App {

namespace {

namespace MI = Pelor::MI;
using Vanth::PointXY;
using Vanth::RectXY;

constexpr double kTurn = 2 * std::numbers::pi;

// Nothing that is cut this far outside of the picture shows inside.
constexpr double kCutMargin = kLargestMark + 16;

}  // namespace

Painter::Painter(cairo_t* cairo, const Frame& frame)
    : cairo_(cairo), frame_(frame), path_(PictureBox{0, 0, frame.width, frame.height}.Grown(kCutMargin)) {
  cairo_set_fill_rule(cairo_, CAIRO_FILL_RULE_EVEN_ODD);
}

bool Painter::Draw(const MI::WObjBody& object) {
  path_.Clear();
  switch (object.GetType()) {
    case MI::WObjType_Point: {
      const auto& point = static_cast<const MI::WPointBody&>(object);
      const PointXY at = frame_.ToPicture(point.GetPoint());
      if (path_.GetVisible().Contains(at)) DrawSymbol(cairo_, point.GetSymbol(), at);
      break;
    }
    case MI::WObjType_Line:
      Draw(static_cast<const MI::WLineBody&>(object));
      break;
    case MI::WObjType_PLine:
      Draw(static_cast<const MI::WPLineBody&>(object));
      break;
    case MI::WObjType_Region:
      Draw(static_cast<const MI::WRegionBody&>(object));
      break;
    case MI::WObjType_Arc:
      Draw(static_cast<const MI::WArcBody&>(object));
      break;
    case MI::WObjType_Text:
      return DrawText(cairo_, static_cast<const MI::WTextBody&>(object), frame_);
    case MI::WObjType_Rect:
      Draw(static_cast<const MI::WRectBody&>(object));
      break;
    case MI::WObjType_RRect:
      Draw(static_cast<const MI::WRRectBody&>(object));
      break;
    case MI::WObjType_Ellipse:
      Draw(static_cast<const MI::WEllipseBody&>(object));
      break;
    default:
      break;
  }
  return true;
}

void Painter::Draw(const MI::WLineBody& line) {
  path_.BeginPart();
  path_.Add(frame_.ToPicture(line.GetStart()));
  path_.Add(frame_.ToPicture(line.GetEnd()));
  path_.EndPart();
  Stroke(line.GetPen());
}

void Painter::Draw(const MI::WPLineBody& line) {
  if (!line.GetIsSmooth()) {
    AddParts(line);
  } else {
    for (int part = 0; part < line.GetNParts(); ++part) {
      smooth_.clear();
      for (const PointXY& vertex : line.Vertices(part)) smooth_.push_back(frame_.ToPicture(vertex));
      path_.BeginPart();
      FlattenSmooth(smooth_, path_.GetVisible(), [this](const PointXY& point) { path_.Add(point); });
      path_.EndPart();
    }
  }
  Stroke(line.GetPen());
}

void Painter::Draw(const MI::WRegionBody& region) {
  AddParts(*region.GetOutline());
  FillAndStroke(region);
}

void Painter::AddParts(const MI::WPLineBody& line) {
  for (int part = 0; part < line.GetNParts(); ++part) {
    path_.BeginPart();
    for (const PointXY& vertex : line.Vertices(part)) path_.Add(frame_.ToPicture(vertex));
    path_.EndPart();
  }
}

PictureEllipse Painter::ToPicture(const RectXY& rect) const {
  return {frame_.ToPicture(rect.Center()), std::fabs(rect.Width()) / 2 * frame_.scale,
          std::fabs(rect.Height()) / 2 * frame_.scale};
}

void Painter::AddArc(const PictureEllipse& ellipse, const ArcSpan& span) {
  FlattenArc(ellipse, span, path_.GetVisible(), [this](const PointXY& point) { path_.Add(point); });
}

void Painter::Draw(const MI::WArcBody& arc) {
  path_.BeginPart();
  AddArc(ToPicture(arc.GetRect()), GetArcSpan(arc));
  path_.EndPart();
  Stroke(arc.GetPen());
}

void Painter::Draw(const MI::WEllipseBody& ellipse) {
  const PictureEllipse outline = ToPicture(ellipse.GetRect());
  path_.BeginPart();
  AddArc(outline, {0, kTurn});
  path_.Add(outline.At(0));
  path_.EndPart();
  FillAndStroke(ellipse);
}

void Painter::Draw(const MI::WRectBody& rect) {
  const PointXY a = frame_.ToPicture({rect.GetRect().x1, rect.GetRect().y1});
  const PointXY b = frame_.ToPicture({rect.GetRect().x2, rect.GetRect().y2});
  path_.BeginPart();
  for (const PointXY& corner : {a, PointXY{b.x, a.y}, b, PointXY{a.x, b.y}, a}) path_.Add(corner);
  path_.EndPart();
  FillAndStroke(rect);
}

void Painter::Draw(const MI::WRRectBody& rect) {
  const RectXY& r = rect.GetRect();
  const PictureEllipse all = ToPicture(r);
  // The rounding is the corners' diameter.
  const double radius = std::min({std::fabs(rect.GetRounding()) / 2 * frame_.scale, all.rx, all.ry});
  const double x = all.rx - radius;
  const double y = all.ry - radius;
  const PointXY centers[] = {
      {all.center.x + x, all.center.y - y},
      {all.center.x - x, all.center.y - y},
      {all.center.x - x, all.center.y + y},
      {all.center.x + x, all.center.y + y},
  };
  path_.BeginPart();
  double start = 0.0;
  for (const PointXY& center : centers) {
    AddArc({center, radius, radius}, {start, kTurn / 4});
    start += kTurn / 4;
  }
  path_.Add({centers[0].x + radius, centers[0].y});
  path_.EndPart();
  FillAndStroke(rect);
}

void Painter::Stroke(const MI::Pen& pen) {
  const PenStyle style(pen);
  if (!style.IsVisible()) return;
  style.Apply(cairo_);
  path_.Stroke(cairo_, style.GetDashes());
  Dots(style.GetWidth());
}

void Painter::FillAndStroke(const MI::W2DBody& area) {
  if (brushes_.Apply(cairo_, area.GetBrush())) {
    path_.ToFill(cairo_);
    cairo_fill(cairo_);
    // A ring that thinning has left as one point still shows as one pixel.
    Dots(1.0);
  }
  Stroke(area.GetPen());
}

// Parts without length are dots.
void Painter::Dots(double width) {
  bool has_dots = false;
  for (std::size_t i = 0; i < path_.GetNParts(); ++i) {
    const std::span<const PointXY> part = path_.Part(i);
    if (part.size() != 1 || !path_.GetVisible().Contains(part[0])) continue;
    cairo_new_sub_path(cairo_);
    cairo_arc(cairo_, part[0].x, part[0].y, width / 2, 0, kTurn);
    has_dots = true;
  }
  if (!has_dots) return;
  cairo_set_fill_rule(cairo_, CAIRO_FILL_RULE_WINDING);
  cairo_fill(cairo_);
  cairo_set_fill_rule(cairo_, CAIRO_FILL_RULE_EVEN_ODD);
}

}  // namespace App
