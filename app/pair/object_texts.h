#pragma once

#include "app/io/transcoder.h"
#include <pelor/mi.h>

namespace App {

/// Converts the texts of an object in place: a text and the name of its font, the name of a symbol's font or
/// picture.
void ConvertTexts(Pelor::MI::WObjBody& object, Transcoder& transcoder);

/// Writes the line ends of a text as the two characters that stand for one in a MIF file: \ and n.
void EscapeLineEnds(Pelor::MI::WTextBody& text);

}  // namespace App
