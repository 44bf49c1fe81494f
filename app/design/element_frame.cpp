#include "app/design/element_frame.h"

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
    const std::size_t position = start + complex.layout.range;
    bytes_.SetLong(position, Saturated(range.x_low - x));
    bytes_.SetLong(position + 4, Saturated(range.y_low - y));
    bytes_.SetLong(position + 8, Saturated(range.x_high - x));
    bytes_.SetLong(position + 12, Saturated(range.y_high - y));
  }
  WriteRange(start, range);
  AddToParent(range, complex.levels);
}

void ElementFrame::WriteRange(std::size_t start, const ElementRange& range) {
  const ElementRange written = range.IsEmpty() ? ElementRange{0, 0, 0, 0} : range;
  const std::int32_t values[] = {written.x_low, written.y_low, 0, written.x_high, written.y_high, 0};
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
