#pragma once

#include "app/design/element_bytes.h"
#include "app/design/working_units.h"

#include <cstddef>

namespace App {

/// Bytes of a design file header element.
inline constexpr std::size_t kHeaderElementBytes = 1536;

/// Appends the header of a two-dimensional design: its units, views that show all levels of the extent, and
/// settings as a new design has them.
void WriteHeaderElement(ElementBytes& bytes, const WorkingUnits& units, const Vanth::BoundsXY& extent);

/// Sets the units in the header element that begins at `position`.
void SetHeaderUnits(ElementBytes& bytes, std::size_t position, const WorkingUnits& units);

}  // namespace App
