#include "app/design/element_frame.h"

#include "app/design/stored_angle.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace App {

namespace DGN = Pelor::DGN;

namespace {

// Offsets in the element.
constexpr std::size_t kWordsToFollow = 2;
constexpr std::size_t kRange = 4;
constexpr std::size_t kAttributeIndex = 30;
constexpr std::size_t kProperties = 32;
/// What the attribute index counts from.
constexpr std::size_t kAttributeBase = 32;

constexpr std::uint16_t kComplexBit = 0x0080;
constexpr std::uint16_t kDeletedBit = 0x8000;
constexpr std::uint16_t kNewProperty = 0x0200;
constexpr std::uint16_t kAttributesProperty = 0x0800;
constexpr std::uint16_t kHoleProperty = 0x8000;

/// The diagonal of a cell's matrix that leaves the cell as it is.
constexpr std::int32_t kUnitMatrixEntry = 214748;

std::int32_t OnPlane(double coordinate) {
  constexpr double kLow = std::numeric_limits<std::int32_t>::min();
  constexpr double kHigh = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(coordinate, kLow, kHigh));
}

std::int32_t Saturated(std::int64_t value) {
  constexpr std::int64_t kLow = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t kHigh = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(value, kLow, kHigh));
}

std::uint16_t InWords(std::size_t bytes) {
  return static_cast<std::uint16_t>(bytes / 2);
}

}  // namespace

void ElementRange::Cover(const DGN::point2d& point) noexcept {
  x_low = std::min(x_low, point.x);
  y_low = std::min(y_low, point.y);
  x_high = std::max(x_high, point.x);
  y_high = std::max(y_high, point.y);
}

void ElementRange::Cover(double x, double y) noexcept {
  // What a rotation by whole quarters leaves of a zero is not worth a unit.
  constexpr double kNothing = 1e-6;
  Cover(DGN::point2d{OnPlane(std::floor(x + kNothing)), OnPlane(std::floor(y + kNothing))});
  Cover(DGN::point2d{OnPlane(std::ceil(x - kNothing)), OnPlane(std::ceil(y - kNothing))});
}

void ElementRange::Cover(const ElementRange& other) noexcept {
  x_low = std::min(x_low, other.x_low);
  y_low = std::min(y_low, other.y_low);
  x_high = std::max(x_high, other.x_high);
  y_high = std::max(y_high, other.y_high);
}

void ElementFrame::Begin(DGN::EType type, const ElementStyle& style) {
  start_ = bytes_.Size();
  level_ = style.level & 63U;
  deleted_ = style.deleted || (!open_.empty() && open_.back().deleted);
  range_ = ElementRange();

  auto type_level = static_cast<std::uint16_t>(level_ | static_cast<unsigned>(type) << 8U);
  if (!open_.empty()) type_level |= kComplexBit;
  if (deleted_) type_level |= kDeletedBit;
  std::uint16_t properties = (style.element_class & 15U) | kNewProperty;
  if (style.hole) properties |= kHoleProperty;
  const unsigned symbology =
      (style.line_style & 7U) | (style.weight & 31U) << 3U | unsigned{style.color} << 8U;

  bytes_.Word(type_level);
  bytes_.Word(0);
  bytes_.Zeros(DGN::CoordsRange::kBytes);
  bytes_.Word(style.graphic_group);
  bytes_.Word(0);
  bytes_.Word(properties);
  bytes_.Word(static_cast<std::uint16_t>(symbology));
}

void ElementFrame::PutPoint(const DGN::point2d& point) {
  if (height_) {
    bytes_.Point(point, *height_);
  } else {
    bytes_.Point(point);
  }
}

void ElementFrame::PutPoints(std::span<const DGN::point2d> points) {
  if (height_) {
    bytes_.Points(points, *height_);
  } else {
    bytes_.Points(points);
  }
}

void ElementFrame::PutCenter(double x, double y) {
  bytes_.Double(x);
  bytes_.Double(y);
  if (height_) bytes_.Double(*height_);
}

void ElementFrame::PutTurn(double degrees) {
  if (!height_) return bytes_.Long(TurnUnits(degrees));
  const DGN::quaternion turn = TurnInSpace(degrees);
  for (const std::int32_t part : {turn.w, turn.x, turn.y, turn.z}) bytes_.Long(part);
}

void ElementFrame::PutCellPlace() {
  const std::size_t axes = Is3D() ? 3 : 2;
  bytes_.Zeros(2 * axes * 4);
  for (std::size_t row = 0; row < axes; ++row) {
    for (std::size_t column = 0; column < axes; ++column) bytes_.Long(row == column ? kUnitMatrixEntry : 0);
  }
}

void ElementFrame::End(std::span<const std::uint16_t> linkages) {
  FinishHeader(linkages);
  WriteRange(start_, range_);
  AddToParent(range_, std::uint64_t{1} << level_);
}

void ElementFrame::EndHeader(std::span<const std::uint16_t> linkages, const ComplexLayout& layout,
                             const DGN::point2d& origin) {
  FinishHeader(linkages);
  open_.push_back({start_, layout, origin, deleted_, 0, 0, range_});
}

void ElementFrame::EndComplex() {
  const OpenComplex complex = open_.back();
  open_.pop_back();
  const std::size_t start = complex.start;
  const ElementRange& range = complex.range;

  const std::size_t described_from = start + complex.layout.length + 2;
  bytes_.SetWord(start + complex.layout.length, InWords(bytes_.Size() - described_from));
  if (complex.layout.count != 0) bytes_.SetWord(start + complex.layout.count, complex.components);
  if (complex.layout.level_map != 0) {
    for (std::size_t i = 0; i < 4; ++i) {
      bytes_.SetWord(start + complex.layout.level_map + 2 * i,
                     static_cast<std::uint16_t>(complex.levels >> 16 * i & 0xFFFFU));
    }
  }
  if (complex.layout.range != 0 && !range.IsEmpty()) {
    const std::int64_t x = complex.origin.x;
    const std::int64_t y = complex.origin.y;
    const std::size_t low = start + complex.layout.range;
    // The origin is as high as all else: what z has in space stays 0.
    const std::size_t high = low + (Is3D() ? 12 : 8);
    bytes_.SetLong(low, Saturated(range.x_low - x));
    bytes_.SetLong(low + 4, Saturated(range.y_low - y));
    bytes_.SetLong(high, Saturated(range.x_high - x));
    bytes_.SetLong(high + 4, Saturated(range.y_high - y));
  }
  WriteRange(start, range);
  AddToParent(range, complex.levels);
}

void ElementFrame::WriteRange(std::size_t start, const ElementRange& range) {
  const ElementRange written = range.IsEmpty() ? ElementRange{0, 0, 0, 0} : range;
  const std::int32_t z = height_.value_or(0);
  const std::int32_t values[] = {written.x_low, written.y_low, z, written.x_high, written.y_high, z};
  std::size_t position = start + kRange;
  for (const std::int32_t value : values) {
    bytes_.SetLong(position, DGN::FlipSign(value));
    position += 4;
  }
}

void ElementFrame::FinishHeader(std::span<const std::uint16_t> linkages) {
  if (bytes_.Size() % 2 != 0) bytes_.Byte(0);
  bytes_.SetWord(start_ + kAttributeIndex, InWords(bytes_.Size() - start_ - kAttributeBase));
  if (!linkages.empty()) {
    const std::uint16_t properties = DGN::LoadWord(bytes_.Data() + start_ + kProperties);
    bytes_.SetWord(start_ + kProperties, properties | kAttributesProperty);
    bytes_.Words(linkages);
  }
  bytes_.SetWord(start_ + kWordsToFollow, InWords(bytes_.Size() - start_ - 4));
}

void ElementFrame::AddToParent(const ElementRange& range, std::uint64_t levels) {
  if (open_.empty()) return;
  OpenComplex& parent = open_.back();
  parent.range.Cover(range);
  parent.levels |= levels;
  ++parent.components;
}

}  // namespace App
