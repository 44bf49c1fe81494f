#pragma once

#include "app/design/element_view.h"
#include <pelor/mi.h>

#include <array>
#include <cstdint>

namespace App {

/// The colours that the colour indexes of a design stand for.
class ColorTable {
 public:
  static constexpr std::size_t kColors = 256;
  /// The index that is the background.
  static constexpr std::size_t kBackground = 255;

  /// What a design without a table has: ten colours, over and over.
  ColorTable() noexcept;

  /// Takes the table from an element of type 5 on level 1. False, and nothing changed, for any other element
  /// and for one that does not hold the whole table.
  bool Decode(const ElementView& element) noexcept;
  /// Whether the colours come from the file.
  [[nodiscard]] bool IsFromFile() const noexcept { return from_file_; }

  /// By default index 0 is given as black, because the white it usually stands for cannot be seen on a map.
  void KeepIndex0(bool keep) noexcept { keep_index_0_ = keep; }
  [[nodiscard]] Pelor::MI::Color operator[](std::uint8_t index) const noexcept {
    return index == 0 && !keep_index_0_ ? Pelor::MI::Color{0} : colors_[index];
  }

 private:
  std::array<Pelor::MI::Color, kColors> colors_{};
  bool from_file_ = false;
  bool keep_index_0_ = false;
};

}  // namespace App
