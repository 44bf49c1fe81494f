#pragma once

#include "app/design/element_bytes.h"
#include "app/design/palette.h"
#include "app/design/working_units.h"
#include <pelor/mi.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace App {

/// What a design file gives to the designs that start from it: all its elements, and so its units.
struct Seed {
  std::filesystem::path path;
  std::int64_t length = 0;           ///< of its elements
  bool has_end_word = true;          ///< behind them
  std::int64_t header_position = 0;  ///< of the design file header
  ElementBytes header;               ///< that element
  WorkingUnits units;
  /// By index; of the colour table element, if there is one.
  std::optional<std::array<Pelor::MI::Color, Palette::kColors>> colors;
  std::uint16_t last_graphic_group = 0;  ///< the highest of its elements
  bool has_keys = false;                 ///< whether elements carry keys of the entity of a design's table

  /// Throws `Failure` for a file that is no design with units, and for one that ends inside an element.
  [[nodiscard]] static Seed Read(const std::filesystem::path& path);
};

}  // namespace App
