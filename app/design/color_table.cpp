#include "app/design/color_table.h"

namespace App {

using namespace Pelor;

namespace {

constexpr std::size_t kTriples = 38;
constexpr unsigned kTableLevel = 1;

constexpr MI::Color Rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return static_cast<MI::Color>(red | green << 8U | blue << 16U);
}

constexpr MI::Color kDefaults[] = {
    Rgb(255, 255, 255), Rgb(0, 0, 255),   Rgb(0, 255, 0),   Rgb(255, 0, 0),  Rgb(255, 255, 0),
    Rgb(255, 0, 255),   Rgb(255, 128, 0), Rgb(0, 255, 255), Rgb(64, 64, 64), Rgb(192, 192, 192),
};

}  // namespace

ColorTable::ColorTable() noexcept {
  for (std::size_t i = 0; i < kColors; ++i) colors_[i] = kDefaults[i % std::size(kDefaults)];
  colors_[kBackground] = Rgb(0, 0, 0);
}

bool ColorTable::Decode(const ElementView& element) noexcept {
  if (element.Type() != DGN::GroupType || element.Header().Level() != kTableLevel) return false;
  if (!element.Reaches(kTriples, 3 * kColors)) return false;
  for (std::size_t i = 0; i < kColors; ++i) {
    // The first triple is that of the background.
    const std::size_t index = (i + kBackground) % kColors;
    const std::size_t at = kTriples + 3 * i;
    colors_[index] = Rgb(element.Byte(at), element.Byte(at + 1), element.Byte(at + 2));
  }
  from_file_ = true;
  return true;
}

}  // namespace App
