#include "app/design/object_writer.h"

#include "app/convert/arc_sweep.h"
#include "app/design/flatten.h"
#include "app/design/symbology.h"
#include "app/design/uor_point.h"

#include <algorithm>
#include <cmath>

namespace App {

namespace DGN = Pelor::DGN;
namespace MI = Pelor::MI;

namespace {

constexpr std::string_view kOffPlane = "coordinates outside the design plane";
constexpr std::string_view kTooFewVertices = "too few vertices";
constexpr std::string_view kEmptyText = "a text without characters";

constexpr std::string_view kPartLeftOut = "part of too few vertices left out";
constexpr std::string_view kNearestColor = "colour replaced by the nearest one of the colour table";
constexpr std::string_view kInvisiblePen = "invisible pen drawn";
constexpr std::string_view kLinePattern = "line pattern replaced by the nearest line style";
constexpr std::string_view kFillPattern = "fill pattern left out";
constexpr std::string_view kEmptyArc = "arc without length given as a point";
constexpr std::string_view kFlattened = "rounded corners flattened";
constexpr std::string_view kCutPath =
    "more vertices than an element holds: cut into several of one graphic group";
constexpr std::string_view kCutRing = "more vertices than an element holds: outline alone";
constexpr std::string_view kLooseRings = "more vertices than a cell holds: rings of one graphic group";
constexpr std::string_view kRounded = "coordinates rounded to the units of resolution";
constexpr std::string_view kNoGraphicGroup = "more objects of several elements than graphic groups";

constexpr std::int32_t kInvisiblePattern = 1;
constexpr std::int32_t kNoFillPattern = 1;
constexpr std::int32_t kSolidPattern = 2;
constexpr int kBoldWeight = 2;
constexpr std::uint16_t kBoldStyle = 1;

bool IsFilled(const MI::Brush& brush) {
  return brush.pattern == kSolidPattern && brush.foreColor >= 0;
}

}  // namespace

ObjectWriter::ObjectWriter(ElementBytes& bytes, Palette& palette, const Settings& settings)
    : units_(settings.units),
      tolerance_(settings.tolerance),
      largest_move_(settings.largest_move),
      palette_(palette),
      elements_(bytes, units_.Height()),
      paths_(elements_, settings.last_graphic_group),
      texts_(elements_, units_, settings.charset, notes_) {}

std::string_view ObjectWriter::Write(const MI::WObjBody& object, const ObjectLook& look) {
  notes_.clear();
  points_.clear();
  part_sizes_.clear();
  switch (object.GetType()) {
    case MI::WObjType_Point:
      return Put(static_cast<const MI::WPointBody&>(object), look);
    case MI::WObjType_Line:
      return Put(static_cast<const MI::WLineBody&>(object), look);
    case MI::WObjType_PLine:
      return Put(static_cast<const MI::WPLineBody&>(object), look);
    case MI::WObjType_Region:
      return Put(static_cast<const MI::WRegionBody&>(object), look);
    case MI::WObjType_Arc:
      return Put(static_cast<const MI::WArcBody&>(object), look);
    case MI::WObjType_Text:
      return Put(static_cast<const MI::WTextBody&>(object), look);
    case MI::WObjType_Rect:
      return Put(static_cast<const MI::WRectBody&>(object), look);
    case MI::WObjType_RRect:
      return Put(static_cast<const MI::WRRectBody&>(object), look);
    case MI::WObjType_Ellipse:
      return Put(static_cast<const MI::WEllipseBody&>(object), look);
    case MI::WObjType_None:
      break;
  }
  return {};
}

std::string_view ObjectWriter::Put(const MI::WPointBody& point, const ObjectLook& look) {
  const Vanth::PointXY vertices[] = {point.GetPoint()};
  if (!AppendPoints(vertices)) return kOffPlane;
  Style style = PlainStyle(point.GetSymbol().color, look);
  style.weight = static_cast<std::uint8_t>(PointWeight(point.GetSymbol()));
  elements_.Line(style, points_[0], points_[0], look.linkages);
  return {};
}

std::string_view ObjectWriter::Put(const MI::WLineBody& line, const ObjectLook& look) {
  const Vanth::PointXY vertices[] = {line.GetStart(), line.GetEnd()};
  if (!AppendPoints(vertices)) return kOffPlane;
  elements_.Line(LineStyleOf(line.GetPen(), look), points_[0], points_[1], look.linkages);
  return {};
}

std::string_view ObjectWriter::Put(const MI::WPLineBody& pline, const ObjectLook& look) {
  const bool smooth = pline.GetIsSmooth();
  bool is_cut = false;
  for (int part = 0; part < pline.GetNParts(); ++part) {
    const std::span<const Vanth::PointXY> vertices = pline.Vertices(part);
    if (vertices.size() < 2) {
      if (!vertices.empty()) Note(kPartLeftOut);
      continue;
    }
    if (!AppendPoints(vertices)) return kOffPlane;
    part_sizes_.push_back(vertices.size());
    is_cut = is_cut || !paths_.FitsOneElement(vertices.size(), smooth);
  }
  if (part_sizes_.empty()) return kTooFewVertices;

  Style style = LineStyleOf(pline.GetPen(), look);
  if (is_cut) Note(kCutPath);
  if (is_cut || part_sizes_.size() > 1) {
    style.graphic_group = paths_.NewGraphicGroup();
    if (style.graphic_group == 0) Note(kNoGraphicGroup);
  }
  std::span<const DGN::point2d> rest = points_;
  for (const std::size_t size : part_sizes_) {
    if (smooth) {
      paths_.SmoothPath(style, rest.first(size), look.linkages);
    } else {
      paths_.Path(style, rest.first(size), look.linkages);
    }
    rest = rest.subspan(size);
  }
  return {};
}

std::string_view ObjectWriter::Put(const MI::WArcBody& arc, const ObjectLook& look) {
  const std::optional<EllipseShape> ellipse = ToEllipse(arc.GetRect());
  if (!ellipse) return kOffPlane;
  ArcShape shape;
  shape.ellipse = *ellipse;
  shape.start_degrees = arc.GetStartAngle()(Vanth::Angle::Degrees, Vanth::Angle::Positive);
  shape.sweep_degrees = ArcSweepDegrees(arc);
  if (!std::isfinite(shape.sweep_degrees)) return kOffPlane;
  // To an arc element, no sweep is a whole turn.
  if (shape.sweep_degrees == 0) return PutStart(arc, look);
  elements_.Arc(LineStyleOf(arc.GetPen(), look), shape, look.linkages);
  return {};
}

/// Of an arc that goes nowhere.
std::string_view ObjectWriter::PutStart(const MI::WArcBody& arc, const ObjectLook& look) {
  const Vanth::RectXY& rect = arc.GetRect();
  const double radians = arc.GetStartAngle()(Vanth::Angle::Radians, Vanth::Angle::AsStored);
  const Vanth::PointXY vertices[] = {{rect.Center().x + std::fabs(rect.Width()) / 2 * std::cos(radians),
                                      rect.Center().y + std::fabs(rect.Height()) / 2 * std::sin(radians)}};
  if (!AppendPoints(vertices)) return kOffPlane;
  Note(kEmptyArc);
  elements_.Line(LineStyleOf(arc.GetPen(), look), points_[0], points_[0], look.linkages);
  return {};
}

std::string_view ObjectWriter::Put(const MI::WEllipseBody& ellipse, const ObjectLook& look) {
  const std::optional<EllipseShape> shape = ToEllipse(ellipse.GetRect());
  if (!shape) return kOffPlane;
  const Style style = AreaStyleOf(ellipse, look);
  elements_.Ellipse(style, *shape, FilledLinkages(ellipse.GetBrush(), look));
  return {};
}

std::string_view ObjectWriter::Put(const MI::WRectBody& rect, const ObjectLook& look) {
  const Vanth::RectXY& r = rect.GetRect();
  const Vanth::PointXY vertices[] = {{r.x1, r.y1}, {r.x2, r.y1}, {r.x2, r.y2}, {r.x1, r.y2}, {r.x1, r.y1}};
  if (!AppendPoints(vertices)) return kOffPlane;
  const Style style = AreaStyleOf(rect, look);
  paths_.Ring(style, points_, FilledLinkages(rect.GetBrush(), look));
  return {};
}

std::string_view ObjectWriter::Put(const MI::WRRectBody& rect, const ObjectLook& look) {
  // The object is only read, but a handle shares it for a while.
  const MI::WObjRf<MI::WObjBody> copy(rect.Clone());
  const double scale = units_.UorsPerMaster();
  const double radius = std::fabs(rect.GetRounding()) / 2;
  const double tolerance = ToleranceFor(radius * scale, tolerance_ * scale) / scale;
  const MI::WRegionObj flattened = MI::WVarObj(copy, tolerance, false).GetClosed();
  const Style style = AreaStyleOf(rect, look);
  if (rect.GetRounding() != 0) Note(kFlattened);
  return PutRings(*flattened->GetOutline(), style, look, FilledLinkages(rect.GetBrush(), look));
}

std::string_view ObjectWriter::Put(const MI::WRegionBody& region, const ObjectLook& look) {
  const MI::WPLineObj outline = region.GetOutline();
  const Style style = AreaStyleOf(region, look);
  return PutRings(*outline, style, look, FilledLinkages(region.GetBrush(), look));
}

std::string_view ObjectWriter::Put(const MI::WTextBody& text, const ObjectLook& look) {
  const TextWriter::Corners corners = TextWriter::CornersOf(text);
  for (const Vanth::PointXY& corner : corners.points) {
    if (!IsOnPlane(units_.X(corner.x)) || !IsOnPlane(units_.Y(corner.y))) return kOffPlane;
  }
  // Elements have the feet of their texts.
  if (IsMoved(units_.X(corners.points[3].x), units_.Y(corners.points[3].y))) Note(kRounded);
  Style style = PlainStyle(text.GetFont().foreColor, look);
  if ((text.GetFont().style & kBoldStyle) != 0) style.weight = kBoldWeight;
  return texts_.Write(style, text, look.linkages) ? std::string_view() : kEmptyText;
}

/// Rings have three vertices and more, and the first one once again.
std::string_view ObjectWriter::PutRings(const MI::WPLineBody& outline, const Style& style,
                                        const ObjectLook& look, const LinkageWords& filled) {
  constexpr std::size_t kFewestVertices = 4;
  for (int part = 0; part < outline.GetNParts(); ++part) {
    const std::span<const Vanth::PointXY> vertices = outline.Vertices(part);
    if (vertices.size() < kFewestVertices) {
      if (!vertices.empty()) Note(kPartLeftOut);
      continue;
    }
    if (!AppendPoints(vertices)) return kOffPlane;
    part_sizes_.push_back(vertices.size());
  }
  if (part_sizes_.empty()) return kTooFewVertices;

  const auto fits = [this](std::size_t size) { return paths_.FitsOneElement(size); };
  if (!std::all_of(part_sizes_.begin(), part_sizes_.end(), fits)) {
    Note(kCutRing);
    PutLooseRings(style, look, filled);
  } else if (part_sizes_.size() == 1) {
    paths_.Ring(style, points_, filled);
  } else if (paths_.FitOneCell(part_sizes_, look.linkages)) {
    PutCell(style, look, filled);
  } else {
    Note(kLooseRings);
    PutLooseRings(style, look, filled);
  }
  return {};
}

/// All rings but the first are marked as holes. Those that are islands are, by the even-odd rule, areas
/// nevertheless.
void ObjectWriter::PutCell(const Style& style, const ObjectLook& look, const LinkageWords& filled) {
  elements_.BeginCell(style, {}, points_.front(), look.linkages);
  std::span<const DGN::point2d> rest = points_;
  Style ring_style = style;
  for (const std::size_t size : part_sizes_) {
    paths_.Ring(ring_style, rest.first(size), ring_style.hole ? look.linkages : filled);
    ring_style.hole = true;
    rest = rest.subspan(size);
  }
  elements_.End();
}

void ObjectWriter::PutLooseRings(Style style, const ObjectLook& look, const LinkageWords& filled) {
  style.graphic_group = paths_.NewGraphicGroup();
  if (style.graphic_group == 0) Note(kNoGraphicGroup);
  std::span<const DGN::point2d> rest = points_;
  for (const std::size_t size : part_sizes_) {
    const bool is_area = !style.hole && paths_.FitsOneElement(size);
    paths_.Ring(style, rest.first(size), is_area ? filled : look.linkages);
    style.hole = true;
    rest = rest.subspan(size);
  }
}

ObjectWriter::Style ObjectWriter::PlainStyle(MI::Color color, const ObjectLook& look) {
  Style style;
  style.level = look.level;
  style.color = look.color ? *look.color : IndexOf(std::max(color, 0));
  return style;
}

ObjectWriter::Style ObjectWriter::LineStyleOf(const MI::Pen& pen, const ObjectLook& look) {
  Style style = PlainStyle(pen.color, look);
  style.line_style = static_cast<std::uint8_t>(LineStyle(pen.pattern));
  style.weight = static_cast<std::uint8_t>(LineWeight(pen));
  if (pen.pattern == kInvisiblePattern) {
    Note(kInvisiblePen);
  } else if (!HasLineStyle(pen)) {
    Note(kLinePattern);
  }
  return style;
}

/// The border of a filled area that has none takes the colour of the fill, which hides it.
ObjectWriter::Style ObjectWriter::AreaStyleOf(const MI::W2DBody& area, const ObjectLook& look) {
  if (area.GetPen().pattern == kInvisiblePattern && IsFilled(area.GetBrush())) {
    return PlainStyle(area.GetBrush().foreColor, look);
  }
  return LineStyleOf(area.GetPen(), look);
}

LinkageWords ObjectWriter::FilledLinkages(const MI::Brush& brush, const ObjectLook& look) {
  LinkageWords linkages = look.linkages;
  if (IsFilled(brush)) {
    linkages.AddFill(IndexOf(brush.foreColor));
  } else if (brush.pattern != kNoFillPattern && brush.pattern != kSolidPattern) {
    Note(kFillPattern);
  }
  return linkages;
}

std::uint8_t ObjectWriter::IndexOf(MI::Color color) {
  const Palette::Match match = palette_.Find(color);
  if (!match.is_exact) Note(kNearestColor);
  return match.index;
}

void ObjectWriter::Note(std::string_view note) {
  if (std::find(notes_.begin(), notes_.end(), note) == notes_.end()) notes_.push_back(note);
}

bool ObjectWriter::AppendPoints(std::span<const Vanth::PointXY> vertices) {
  const double scale = units_.UorsPerMaster();
  const std::size_t first = points_.size();
  points_.resize(first + vertices.size());
  DGN::point2d* to = points_.data() + first;
  for (const Vanth::PointXY& vertex : vertices) {
    const double x = vertex.x * scale + units_.origin_x;
    const double y = vertex.y * scale + units_.origin_y;
    if (!IsOnPlane(x) || !IsOnPlane(y)) return false;
    *to++ = {Rounded(x), Rounded(y)};
  }
  if (std::isfinite(largest_move_) && std::any_of(vertices.begin(), vertices.end(), [this](const auto& v) {
        return IsMoved(units_.X(v.x), units_.Y(v.y));
      })) {
    Note(kRounded);
  }
  return true;
}

/// By the rounding of a point in units of resolution.
bool ObjectWriter::IsMoved(double x, double y) const noexcept {
  return std::fabs(x - Rounded(x)) > largest_move_ || std::fabs(y - Rounded(y)) > largest_move_;
}

std::optional<EllipseShape> ObjectWriter::ToEllipse(const Vanth::RectXY& rect) const {
  EllipseShape shape;
  shape.x = units_.X(rect.Center().x);
  shape.y = units_.Y(rect.Center().y);
  shape.primary = std::fabs(rect.Width()) / 2 * units_.UorsPerMaster();
  shape.secondary = std::fabs(rect.Height()) / 2 * units_.UorsPerMaster();
  for (const double x : {shape.x - shape.primary, shape.x + shape.primary}) {
    if (!IsOnPlane(x)) return std::nullopt;
  }
  for (const double y : {shape.y - shape.secondary, shape.y + shape.secondary}) {
    if (!IsOnPlane(y)) return std::nullopt;
  }
  return shape;
}

}  // namespace App
