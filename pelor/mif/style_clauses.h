#pragma once

#include <pelor/base/export.h>
#include <pelor/base/text_scanner.h>
#include <pelor/mi/brush.h>
#include <pelor/mi/font.h>
#include <pelor/mi/pen.h>
#include <pelor/mi/symbol.h>

#include <iosfwd>

namespace Pelor::MIF {

// Colours are written as one decimal number, red in the highest byte. The readers take a clause with its
// keyword or from its bracket on. One that is malformed, or that has an argument too many, leaves the style
// unchanged, reports a SyntaxError, "Invalid Pen" for instance, and gives false.

PELOR_EXPORT void Write(const MI::Pen& pen, std::ostream& out);
/// A pattern above 128 is that of an interleaved pen, and 128 is taken off; 128 itself is a pattern.
PELOR_EXPORT bool Read(MI::Pen& pen, Tobri::IxText& in);

PELOR_EXPORT void Write(const MI::Brush& brush, std::ostream& out);
PELOR_EXPORT bool Read(MI::Brush& brush, Tobri::IxText& in);

PELOR_EXPORT void Write(const MI::Symbol& symbol, std::ostream& out);
/// A quoted first argument makes it a picture, six arguments a character; the rotation may be any number and
/// is rounded.
PELOR_EXPORT bool Read(MI::Symbol& symbol, Tobri::IxText& in);

PELOR_EXPORT void Write(const MI::StdSymbol& symbol, std::ostream& out);
/// "Invalid Symbol" for the other kinds of symbol, too.
PELOR_EXPORT bool Read(MI::StdSymbol& symbol, Tobri::IxText& in);

PELOR_EXPORT void Write(const MI::Font& font, std::ostream& out);
PELOR_EXPORT bool Read(MI::Font& font, Tobri::IxText& in);

}  // namespace Pelor::MIF
