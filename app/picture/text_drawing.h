#pragma once

#include "app/picture/frame.h"
#include <pelor/mi.h>

#include <cairo.h>

#include <string>
#include <string_view>
#include <vector>

namespace App {

/// The lines of a text: it breaks at line feeds, with or without a carriage return, and at the two characters
/// "\n" that stand for one in files. Bytes that are not valid UTF-8 become U+FFFD; other control characters,
/// and empty lines at the end, are left out.
[[nodiscard]] std::vector<std::string> TextLines(std::string_view text);

/// Draws a text into its box, turned about the box's upper left corner. The box's height gives the size of
/// the letters; a line wider than the box is narrowed, and one that is less wide stands as its justification
/// says. False, and nothing drawn, when the letters are so large that no picture shows even one.
bool DrawText(cairo_t* cairo, const Pelor::MI::WTextBody& text, const Frame& frame);

}  // namespace App
