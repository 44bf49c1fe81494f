#pragma once

#include "app/picture/frame.h"
#include <pelor/mi.h>

#include <cairo.h>

#include <string>

namespace App {

/// The longest length of one, two or five and zeros that is not above `most`, which is above 0.
[[nodiscard]] double RoundLength(double most);

/// What a scale bar shows.
struct ScaleBar {
  double pixels = 0.0;
  std::string label;  ///< the length and its unit, such as "500 m"
};

/// A bar for a map in the units of `system`, null for none, of at most `most_pixels`. Metres become
/// kilometres or millimetres where those read better.
[[nodiscard]] ScaleBar MakeScaleBar(double scale, double most_pixels, const Pelor::MI::CoordSys* system);

/// The height that the bar takes below the map, in pixels.
inline constexpr double kScaleBarHeight = 28.0;

/// Draws the bar at the lower left of the map, into the footer below it.
void DrawScaleBar(cairo_t* cairo, const ScaleBar& bar, const Frame& frame, Pelor::MI::Color color);

}  // namespace App
