#pragma once

#include <pelor/base/export.h>
#include <pelor/base/string.h>
#include <pelor/base/text_scanner.h>

#include <cstdint>

namespace Pelor::MIF {

/// The keywords of MIF. The order is binding: the object keywords None to Ellipse are the object kinds plus
/// 20, and the column-type keywords Char to Logical are the column types plus 8.
enum KeyWord : std::int32_t {
  NoKeyWord = -1,
  Version = 0,
  Delimiter,
  Unique,
  Index,
  CoordSys,
  Transform,
  Columns,
  Data,
  Char,
  Integer,
  SmallInt,
  Decimal,
  Float,
  Date,
  Logical,
  Earth,
  NonEarth,
  Units,
  Bounds,
  Projection,
  None,
  Point,
  Line,
  PLine,
  Region,
  Arc,
  Text,
  Rect,
  RoundRect,
  Ellipse,
  Symbol,
  Pen,
  Brush,
  Font,
  Smooth,
  Center,
  Spacing,
  Justify,
  Angle,
  Label,
  Simple,
  Arrow,
  Left,
  Right,
  CharSet,
  Multiple,
};

/// The text of a keyword, in the case in which it is written; empty for any other number.
[[nodiscard]] PELOR_EXPORT Tobri::String KeyWordText(KeyWord keyword);

/// The keyword of a text, whatever its case; NoKeyWord for any other text.
[[nodiscard]] PELOR_EXPORT KeyWord KeyWordID(const Tobri::String& text);

/// One keyword that was read, and where to go back to.
struct PELOR_EXPORT ReadKW {
  Tobri::String text;      ///< the identifier as it stood in the input
  KeyWord id = NoKeyWord;  ///< its keyword
  Tobri::IBText::Pos pos;  ///< the position before the identifier and before any blanks ahead of it

  /// Skips blanks and reads one identifier. An empty or unknown one gives NoKeyWord; nothing is reported.
  void Read(Tobri::IxText& in);
};

/// True, and the keyword read, if the next identifier is `keyword`; otherwise the scanner stays where it was.
/// NoKeyWord is any identifier that is no keyword, also an empty one.
PELOR_EXPORT bool ReadSpecifier(Tobri::IxText& in, KeyWord keyword);

}  // namespace Pelor::MIF
