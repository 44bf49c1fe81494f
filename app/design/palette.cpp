#include "app/design/palette.h"

#include "app/design/color_table.h"
#include "app/design/element_frame.h"
#include <pelor/dgn.h>

#include <algorithm>
#include <cstddef>

namespace App {

namespace DGN = Pelor::DGN;
namespace MI = Pelor::MI;

namespace {

constexpr MI::Color kBlack = 0;
constexpr MI::Color kWhite = 0xFFFFFF;
constexpr std::uint8_t kTableLevel = 1;
/// The colours that every program knows by number.
constexpr std::size_t kUsualColors = 10;

int Part(MI::Color color, int shift) {
  return color >> shift & 0xFF;
}

int DistanceSquared(MI::Color a, MI::Color b) {
  int sum = 0;
  for (const int shift : {0, 8, 16}) {
    const int difference = Part(a, shift) - Part(b, shift);
    sum += difference * difference;
  }
  return sum;
}

}  // namespace

Palette::Palette() {
  ColorTable usual;
  usual.KeepIndex0(true);
  for (std::size_t i = 0; i < kColors; ++i) colors_[i] = usual[static_cast<std::uint8_t>(i)];
  colors_[0] = kBlack;
  colors_[kBackground] = kWhite;
  for (std::size_t i = 0; i < kUsualColors; ++i) free_.push_back(static_cast<std::uint8_t>(i));
  for (std::size_t i = kBackground; i-- > kUsualColors;) free_.push_back(static_cast<std::uint8_t>(i));
}

Palette::Palette(const std::array<MI::Color, kColors>& colors) : colors_(colors) {
  for (std::size_t i = kBackground; i-- > 0;) {
    matches_[colors_[i]] = {static_cast<std::uint8_t>(i), true};
  }
}

Palette::Match Palette::LookUp(MI::Color color) {
  const auto known = matches_.find(color);
  if (known != matches_.end()) return known->second;
  Match match;
  if (free_.empty()) {
    match = {Nearest(color), false};
  } else {
    const auto usual = std::find_if(free_.begin(), free_.end(), [&](std::uint8_t index) {
      return index < kUsualColors && colors_[index] == color;
    });
    const auto taken = usual != free_.end() ? usual : std::prev(free_.end());
    match = {*taken, true};
    free_.erase(taken);
    colors_[match.index] = color;
  }
  matches_.emplace(color, match);
  return match;
}

std::uint8_t Palette::Nearest(MI::Color color) const {
  const auto* const nearest = std::min_element(
      colors_.begin(), colors_.begin() + kBackground,
      [color](MI::Color a, MI::Color b) { return DistanceSquared(a, color) < DistanceSquared(b, color); });
  return static_cast<std::uint8_t>(nearest - colors_.begin());
}

void Palette::Write(ElementBytes& bytes) const {
  ElementFrame frame(bytes);
  frame.Begin(DGN::GroupType, {.level = kTableLevel});
  bytes.Word(0);
  for (std::size_t i = 0; i < kColors; ++i) {
    // The background comes first.
    const MI::Color color = colors_[(i + kBackground) % kColors];
    for (const int shift : {0, 8, 16}) bytes.Byte(static_cast<std::uint8_t>(Part(color, shift)));
  }
  frame.End({});
}

}  // namespace App
