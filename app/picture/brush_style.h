#pragma once

#include "app/picture/cairo_handles.h"
#include <pelor/mi.h>

#include <map>
#include <tuple>

namespace App {

/// Turns brushes into cairo's patterns, and keeps those that were made: a map has few brushes and many areas.
class BrushStyles {
 public:
  /// Makes `brush` the source of the next fill; false when it fills nothing.
  [[nodiscard]] bool Apply(cairo_t* cairo, const Pelor::MI::Brush& brush);

 private:
  using Key = std::tuple<std::int32_t, Pelor::MI::Color, Pelor::MI::Color>;

  std::map<Key, CairoPtr<cairo_pattern_t>> tiles_;
};

}  // namespace App
