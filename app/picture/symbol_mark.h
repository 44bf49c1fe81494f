#pragma once

#include <pelor/mi.h>

#include <cairo.h>

namespace App {

/// Draws a point's symbol with its middle at a picture point, in its own size and colour. Shapes that are not
/// in the table of standard shapes, characters and pictures become a ring with a dot.
void DrawSymbol(cairo_t* cairo, const Pelor::MI::Symbol& symbol, const Vanth::PointXY& at);

}  // namespace App
