#pragma once

#include <pelor/base/export.h>
#include <pelor/mi/style_units.h>

#include <cstdint>
#include <iosfwd>
#include <string_view>

namespace Pelor::MIF {

/// A pen width, symbol size or font size in its units.
struct StyleSize {
  std::int32_t value = 0;
  MI::SLUnits units = MI::SLUnits_Pixel;

  friend bool operator==(const StyleSize&, const StyleSize&) = default;
};

// The text of a size depends on the units that its clause takes for granted: pixels for pens, points for
// symbols and fonts. Other units have a suffix, "_mm", "_pnt" or "_pix". A pen's number from 11 on is 10 plus
// tenths of a point, so pixels from 11 on have their suffix, too.

PELOR_EXPORT void WriteSize(const StyleSize& size, MI::SLUnits default_units, std::ostream& out);

/// Reads the whole text as a size, its suffix in any case. Millimetres become hundredths; points that are not
/// whole become tenths, and so do pen widths from 11 on. False, and `size` as it was, for any other text, for
/// pixels that are not whole, and for a size beyond 32 bits.
[[nodiscard]] PELOR_EXPORT bool ParseSize(std::string_view text, MI::SLUnits default_units, StyleSize& size);

}  // namespace Pelor::MIF
