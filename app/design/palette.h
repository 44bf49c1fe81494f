#pragma once

#include "app/design/element_bytes.h"
#include <pelor/mi.h>

#include <array>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace App {

/// Gives colours the indexes of a colour table, by which elements name them. The table is either one of our
/// own, which takes up colours as they come, or a given one.
class Palette {
 public:
  static constexpr std::size_t kColors = 256;
  /// The index of the background, which no element is drawn in.
  static constexpr std::size_t kBackground = 255;
  /// Bytes of the element that holds a table.
  static constexpr std::size_t kElementBytes = 38 + 3 * kColors;

  struct Match {
    std::uint8_t index = 0;
    bool is_exact = true;
  };

  /// A table that takes up 255 colours. The usual ones keep their usual indexes, but for index 0: it is black
  /// instead of white, and the background white, as on paper.
  Palette();
  /// A table that stays as it is; by index, the background behind the last.
  explicit Palette(const std::array<Pelor::MI::Color, kColors>& colors);

  /// The index of the colour; without one, that of the nearest colour.
  [[nodiscard]] Match Find(Pelor::MI::Color color) {
    if (color != last_color_) {
      last_match_ = LookUp(color);
      last_color_ = color;
    }
    return last_match_;
  }
  /// Appends the colour table element.
  void Write(ElementBytes& bytes) const;

 private:
  [[nodiscard]] Match LookUp(Pelor::MI::Color color);
  [[nodiscard]] std::uint8_t Nearest(Pelor::MI::Color color) const;

  std::array<Pelor::MI::Color, kColors> colors_{};
  std::vector<std::uint8_t> free_;  // the next one to be taken up is the last
  std::unordered_map<Pelor::MI::Color, Match> matches_;
  Pelor::MI::Color last_color_ = -1;
  Match last_match_;
};

}  // namespace App
