#include "app/design/element_writer.h"

#include "app/design/stored_angle.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace App {

namespace DGN = Pelor::DGN;

namespace {

constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;

/// Adds the point of an ellipse at the angle t to the range.
void CoverAt(ElementRange& range, const EllipseShape& shape, double t) {
  const double rotation = shape.rotation_degrees * kRadiansPerDegree;
  const double along = shape.primary * std::cos(t);
  const double across = shape.secondary * std::sin(t);
  range.Cover(shape.x + along * std::cos(rotation) - across * std::sin(rotation),
              shape.y + along * std::sin(rotation) + across * std::cos(rotation));
}

/// Adds the part of an ellipse between two angles, the lower one first, to the range: its ends, and those of
/// its four extreme points that lie between them.
void CoverArc(ElementRange& range, const EllipseShape& shape, double from, double to) {
  CoverAt(range, shape, from);
  CoverAt(range, shape, to);
  const double rotation = shape.rotation_degrees * kRadiansPerDegree;
  const double extremes[] = {
      std::atan2(-shape.secondary * std::sin(rotation), shape.primary * std::cos(rotation)),
      std::atan2(shape.secondary * std::cos(rotation), shape.primary * std::sin(rotation)),
  };
  for (const double extreme : extremes) {
    for (double t = extreme + std::ceil((from - extreme) / std::numbers::pi) * std::numbers::pi; t < to;
         t += std::numbers::pi) {
      CoverAt(range, shape, t);
    }
  }
}

}  // namespace

void ElementWriter::Line(const ElementStyle& style, const DGN::point2d& start, const DGN::point2d& end,
                         const LinkageWords& linkages) {
  frame_.Begin(DGN::LineType, style);
  frame_.PutPoint(start);
  frame_.PutPoint(end);
  frame_.Range().Cover(start);
  frame_.Range().Cover(end);
  frame_.End(linkages.Words());
}

void ElementWriter::Vertices(DGN::EType type, const ElementStyle& style, std::span<const DGN::point2d> points,
                             const LinkageWords& linkages) {
  frame_.Begin(type, style);
  frame_.Bytes().Word(static_cast<std::uint16_t>(points.size()));
  frame_.PutPoints(points);
  for (const DGN::point2d& point : points) frame_.Range().Cover(point);
  frame_.End(linkages.Words());
}

void ElementWriter::Ellipse(const ElementStyle& style, const EllipseShape& shape,
                            const LinkageWords& linkages) {
  frame_.Begin(DGN::EllipseType, style);
  ElementBytes& bytes = frame_.Bytes();
  bytes.Double(shape.primary);
  bytes.Double(shape.secondary);
  frame_.PutTurn(shape.rotation_degrees);
  frame_.PutCenter(shape.x, shape.y);
  CoverArc(frame_.Range(), shape, 0, 2 * std::numbers::pi);
  frame_.End(linkages.Words());
}

void ElementWriter::Arc(const ElementStyle& style, const ArcShape& shape, const LinkageWords& linkages) {
  const EllipseShape& ellipse = shape.ellipse;
  frame_.Begin(DGN::ArcType, style);
  ElementBytes& bytes = frame_.Bytes();
  bytes.Long(TurnUnits(shape.start_degrees));
  bytes.Long(SweepUnits(shape.sweep_degrees));
  bytes.Double(ellipse.primary);
  bytes.Double(ellipse.secondary);
  frame_.PutTurn(ellipse.rotation_degrees);
  frame_.PutCenter(ellipse.x, ellipse.y);
  const double start = shape.start_degrees * kRadiansPerDegree;
  const double end = start + shape.sweep_degrees * kRadiansPerDegree;
  CoverArc(frame_.Range(), ellipse, std::min(start, end), std::max(start, end));
  frame_.End(linkages.Words());
}

void ElementWriter::Text(const ElementStyle& style, const TextShape& shape, const DGN::point2d& origin,
                         std::string_view text, const LinkageWords& linkages) {
  frame_.Begin(DGN::TextType, style);
  ElementBytes& bytes = frame_.Bytes();
  bytes.Byte(shape.font);
  bytes.Byte(shape.justification);
  bytes.Long(shape.length_multiplier);
  bytes.Long(shape.height_multiplier);
  frame_.PutTurn(shape.rotation_degrees);
  frame_.PutPoint(origin);
  bytes.Byte(static_cast<std::uint8_t>(text.size()));
  bytes.Byte(0);
  bytes.Raw(text);

  const double width =
      static_cast<double>(text.size()) * shape.length_multiplier * TextShape::kMultiplierUnit;
  const double height = shape.height_multiplier * TextShape::kMultiplierUnit;
  const double rotation = shape.rotation_degrees * kRadiansPerDegree;
  const double cosine = std::cos(rotation);
  const double sine = std::sin(rotation);
  ElementRange& range = frame_.Range();
  range.Cover(origin);
  range.Cover(origin.x + width * cosine, origin.y + width * sine);
  range.Cover(origin.x - height * sine, origin.y + height * cosine);
  range.Cover(origin.x + width * cosine - height * sine, origin.y + width * sine + height * cosine);
  frame_.End(linkages.Words());
}

void ElementWriter::BeginComplex(DGN::EType type, const ElementStyle& style, const LinkageWords& linkages) {
  frame_.Begin(type, style);
  frame_.Bytes().Zeros(4);
  frame_.EndHeader(linkages.Words(), {.length = 36, .count = 38});
}

void ElementWriter::BeginCell(const ElementStyle& style, std::string_view name, const DGN::point2d& origin,
                              const LinkageWords& linkages) {
  std::uint16_t packed[2] = {0, 0};
  unsigned packed_words = 2;
  const std::string_view packable = name.substr(0, 6);
  DGN::str2rd50(packable.data(), static_cast<unsigned>(packable.size()), packed, packed_words);

  frame_.Begin(DGN::CellHeaderType, style);
  ElementBytes& bytes = frame_.Bytes();
  bytes.Word(0);
  bytes.Words(packed);
  bytes.Word(static_cast<std::uint16_t>(1U << (style.element_class & 15U)));
  bytes.Zeros(8);
  frame_.PutCellPlace();
  frame_.PutPoint(origin);
  frame_.EndHeader(linkages.Words(), {.length = 36, .level_map = 44, .range = 52}, origin);
}

void ElementWriter::BeginTextNode(const ElementStyle& style, const TextShape& shape,
                                  const DGN::point2d& origin, std::int32_t spacing, std::size_t longest,
                                  const LinkageWords& linkages) {
  const auto length = static_cast<std::uint8_t>(std::min(longest, kMaxCharacters));
  frame_.Begin(DGN::TextNodeType, style);
  ElementBytes& bytes = frame_.Bytes();
  bytes.Zeros(4);
  bytes.Word(next_node_number_++);
  bytes.Byte(static_cast<std::uint8_t>(kMaxCharacters));
  bytes.Byte(length);
  bytes.Byte(shape.font);
  bytes.Byte(shape.justification);
  bytes.Long(spacing);
  bytes.Long(shape.length_multiplier);
  bytes.Long(shape.height_multiplier);
  frame_.PutTurn(shape.rotation_degrees);
  frame_.PutPoint(origin);
  frame_.EndHeader(linkages.Words(), {.length = 36, .count = 38});
}

}  // namespace App
