#include "app/design/element_geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace App {

using namespace Pelor;
using Vanth::PointXY;

namespace {

constexpr std::size_t kBody = DGN::DEHeader::kBytes;
constexpr std::size_t kPoint2D = 8;
constexpr std::size_t kPoint3D = 12;
constexpr std::size_t kQuaternion = 16;
// Characters are this many thousandths of their multiplier wide and high.
constexpr double kTextUnit = 6.0 / 1000.0;

double SquaredNorm(const char* stored) noexcept {
  double square = 0.0;
  for (std::size_t i = 0; i < 4; ++i) {
    const double part = DGN::GetQuatParam(DGN::LoadLong(stored + 4 * i));
    square += part * part;
  }
  return square;
}

// The components of a stored rotation make a unit quaternion, or there is none.
bool IsQuaternion(const char* bytes) noexcept {
  return std::fabs(SquaredNorm(bytes) - 1.0) < 1e-3;
}

// As stored, components are out by up to 2^-31, which a large radius would show: the rotation is scaled back
// to one. None at all counts as no rotation.
DGN::Trans3D Rotation(const ElementView& element, std::size_t offset) noexcept {
  DGN::quaternion stored;
  stored.w = element.Long(offset);
  stored.x = element.Long(offset + 4);
  stored.y = element.Long(offset + 8);
  stored.z = element.Long(offset + 12);
  double norm = SquaredNorm(element.Bytes().data() + offset);
  if (norm == 0.0) {
    stored.w = std::numeric_limits<std::int32_t>::max();
    norm = 1.0;
  }
  DGN::Trans3D rotation(stored, 1.0);
  for (auto& row : rotation.m) {
    for (double& entry : row) entry /= norm;
  }
  return rotation;
}

// A text in space as it is seen from above. One that is seen from behind is mirrored.
void LayInPlan(const DGN::Trans3D& rotation, TextView& text) noexcept {
  constexpr double kLevel = 1e-6;
  const DGN::dpoint3d along = rotation.Apply({1.0, 0.0, 0.0});
  const DGN::dpoint3d up = rotation.Apply({0.0, 1.0, 0.0});
  const double length = std::hypot(along.x, along.y);
  text.is_tilted = std::fabs(along.z) > kLevel || std::fabs(up.z) > kLevel;
  // A base line that stands upright has no direction in plan, but what stands on it has.
  const double direction = length > kLevel ? std::atan2(along.y, along.x) : std::atan2(-up.x, up.y);
  // In whole units of plane angles: what is below them the stored rotation has from its own rounding.
  constexpr double kUnitsPerRadian = kAngleUnitsPerDegree * (180.0 / std::numbers::pi);
  const std::int64_t units = std::llround(direction * kUnitsPerRadian);
  text.rotation_degrees = static_cast<double>(units < 0 ? units + kFullTurn : units) / kAngleUnitsPerDegree;
  text.char_width *= length;
  text.char_height *= std::hypot(up.x, up.y) * (along.x * up.y - along.y * up.x < 0.0 ? -1.0 : 1.0);
}

}  // namespace

std::int64_t DecodeAngle(std::int32_t stored) noexcept {
  if (stored >= 0) return stored;
  const std::int64_t magnitude = static_cast<std::uint32_t>(stored) & 0x7FFFFFFFU;
  return magnitude <= 2 * kFullTurn ? -magnitude : stored;
}

Direction Direction::Of(std::int64_t angle_units) noexcept {
  constexpr std::int64_t kQuarter = kFullTurn / 4;
  const std::int64_t angle = (angle_units % kFullTurn + kFullTurn) % kFullTurn;
  switch (angle % kQuarter == 0 ? angle / kQuarter : -1) {
    case 0:
      return {1.0, 0.0};
    case 1:
      return {0.0, 1.0};
    case 2:
      return {-1.0, 0.0};
    case 3:
      return {0.0, -1.0};
    default:
      break;
  }
  const double radians = static_cast<double>(angle) * (std::numbers::pi / 180.0 / kAngleUnitsPerDegree);
  return {std::cos(radians), std::sin(radians)};
}

// --- vertices

std::optional<Vertices> Vertices::Decode(const ElementView& element) noexcept {
  Vertices vertices;
  vertices.has_z_ = element.Is3D();
  vertices.stride_ = element.Is3D() ? kPoint3D : kPoint2D;
  std::size_t first = kBody + 2;
  switch (element.Type()) {
    case DGN::LineType:
      first = kBody;
      vertices.count_ = 2;
      break;
    case DGN::LineStringType:
    case DGN::ShapeType:
    case DGN::CurveType:
    case DGN::PointStringType:
    case DGN::BSplinePoleType:
      if (!element.Reaches(kBody, 2)) return std::nullopt;
      vertices.count_ = element.Word(kBody);
      break;
    default:
      return std::nullopt;
  }
  if (!element.HasDisplayableHeader() || !element.Reaches(first, vertices.count_ * vertices.stride_)) {
    return std::nullopt;
  }
  vertices.first_ = element.Bytes().data() + first;

  // A point string in space gives a rotation with each point: behind it, or behind all points.
  constexpr std::size_t kTurned = kPoint3D + kQuaternion;
  if (element.Type() == DGN::PointStringType && element.Is3D() && vertices.count_ != 0 &&
      element.Reaches(first, vertices.count_ * kTurned) &&
      !IsQuaternion(vertices.first_ + vertices.count_ * kPoint3D)) {
    vertices.stride_ = kTurned;
  }
  return vertices;
}

// --- ellipses and arcs

std::optional<PlanEllipse> PlanEllipse::Decode(const ElementView& element) noexcept {
  PlanEllipse ellipse;
  std::size_t at = kBody;
  if (element.Type() == DGN::ArcType) {
    ellipse.is_arc = true;
    at += 8;
  } else if (element.Type() != DGN::EllipseType) {
    return std::nullopt;
  }
  const std::size_t size = element.Is3D() ? 16 + kQuaternion + 24 : 16 + 4 + 16;
  if (!element.HasDisplayableHeader() || !element.Reaches(at, size)) return std::nullopt;
  if (ellipse.is_arc) {
    ellipse.start = DecodeAngle(element.Long(kBody));
    const std::int64_t sweep = DecodeAngle(element.Long(kBody + 4));
    ellipse.sweep = sweep == 0 ? kFullTurn : std::clamp(sweep, -kFullTurn, kFullTurn);
  }
  const double a = element.Double(at);
  const double b = element.Double(at + 8);
  at += 16;
  if (element.Is3D()) {
    const DGN::Trans3D rotation = Rotation(element, at);
    const DGN::dpoint3d u = rotation.Apply({a, 0.0, 0.0});
    const DGN::dpoint3d v = rotation.Apply({0.0, b, 0.0});
    at += kQuaternion;
    ellipse.u = {u.x, u.y};
    ellipse.v = {v.x, v.y};
    const double z = element.Double(at + 16);
    const double reach = std::hypot(u.z, v.z);
    ellipse.z_low = z - reach;
    ellipse.z_high = z + reach;
  } else {
    const Direction turn = Direction::Of(DecodeAngle(element.Long(at)));
    at += 4;
    ellipse.u = {a * turn.cos, a * turn.sin};
    ellipse.v = {-b * turn.sin, b * turn.cos};
  }
  ellipse.center = {element.Double(at), element.Double(at + 8)};
  return ellipse;
}

PointXY PlanEllipse::At(double t) const noexcept {
  const double cosine = std::cos(t);
  const double sine = std::sin(t);
  return {center.x + u.x * cosine + v.x * sine, center.y + u.y * cosine + v.y * sine};
}

// --- texts

std::optional<TextView> TextView::Decode(const ElementView& element) noexcept {
  if (element.Type() != DGN::TextType || !element.HasDisplayableHeader()) return std::nullopt;
  const std::size_t rotation = kBody + 10;
  const std::size_t origin = rotation + (element.Is3D() ? kQuaternion : 4);
  const std::size_t counts = origin + (element.Is3D() ? kPoint3D : kPoint2D);
  const std::size_t characters = counts + 2;
  if (!element.Reaches(kBody, characters - kBody)) return std::nullopt;
  const std::size_t length = element.Byte(counts);
  if (!element.Reaches(characters, length)) return std::nullopt;

  TextView text;
  text.font = element.Byte(kBody);
  text.justification = element.Byte(kBody + 1);
  text.char_width = element.Long(kBody + 2) * kTextUnit;
  text.char_height = element.Long(kBody + 6) * kTextUnit;
  text.origin = {element.Long(origin), element.Long(origin + 4),
                 element.Is3D() ? element.Long(origin + 8) : 0};
  if (element.Is3D()) {
    LayInPlan(Rotation(element, rotation), text);
  } else {
    text.rotation_degrees = static_cast<double>(DecodeAngle(element.Long(rotation))) / kAngleUnitsPerDegree;
  }
  text.characters = {element.Bytes().data() + characters, length};
  return text;
}

TextView::Side TextView::GetSide() const noexcept {
  // Left and left margin, centre, right margin and right; three places in height each.
  const int column = justification / 3;
  if (column <= 1) return Side::kLeft;
  return column == 2 ? Side::kCenter : Side::kRight;
}

// --- complex elements

std::optional<ComplexDescription> ComplexDescription::Decode(const ElementView& element) noexcept {
  if (!element.HasDisplayableHeader() || !DGN::IsComplex(element.Type())) return std::nullopt;
  if (!element.Reaches(kBody, 4)) return std::nullopt;
  ComplexDescription description;
  switch (element.Type()) {
    case DGN::BSplineCurveHeaderType:
    case DGN::BSplineSurfaceHeaderType:
      // The length is a long here, and the components count from behind its first half.
      description.words = static_cast<std::uint32_t>(std::max(element.Long(kBody), 0));
      break;
    case DGN::CellHeaderType:
      description.words = element.Word(kBody);
      break;
    default:
      description.words = element.Word(kBody);
      description.components = element.Word(kBody + 2);
      break;
  }
  return description;
}

}  // namespace App
