#pragma once

#include <pelor/base/string.h>
#include <pelor/mi/color.h>
#include <pelor/mi/style_units.h>

#include <cstdint>
#include <utility>

namespace Pelor::MI {

/// The simple style of points: a standard shape.
struct StdSymbol {
  std::int32_t shape = 32;  ///< number of a standard symbol
  Color color = 0;
  std::int32_t size = 8;  ///< in sizeUnits
  SLUnits sizeUnits = SLUnits_Point;

  /// The size as ConvertSize gives it.
  [[nodiscard]] constexpr int GetSize(SLUnits units) const noexcept {
    return ConvertSize(size, sizeUnits, units);
  }

  friend constexpr bool operator==(const StdSymbol&, const StdSymbol&) noexcept = default;
};

/// The style of points.
class Symbol {
 public:
  enum Kind : std::int32_t {
    Standard = 0,   ///< shape, colour and size, as a StdSymbol has them
    Character = 1,  ///< a character of a symbol font
    Picture = 2,    ///< a picture from a file
  };

  /// A standard symbol: a black shape 32 of 8 points.
  Symbol() = default;
  Symbol(const StdSymbol& s) : shape(s.shape), color(s.color), size(s.size), sizeUnits(s.sizeUnits) {}
  /// A character of a font.
  Symbol(int character, Color c, int font_size, Tobri::String font_name, unsigned short font_style, int angle,
         SLUnits units)
      : kind(Character),
        shape(character),
        color(c),
        size(font_size),
        name(std::move(font_name)),
        rotation(angle),
        style(font_style),
        sizeUnits(units) {}
  /// A picture from a file.
  Symbol(Tobri::String file_name, Color c, int picture_size, unsigned short picture_style, SLUnits units)
      : kind(Picture),
        shape(0),
        color(c),
        size(picture_size),
        name(std::move(file_name)),
        style(picture_style),
        sizeUnits(units) {}

  /// The size as ConvertSize gives it.
  [[nodiscard]] int GetSize(SLUnits units) const noexcept { return ConvertSize(size, sizeUnits, units); }

  friend bool operator==(const Symbol&, const Symbol&) noexcept = default;

  std::int32_t kind = Standard;
  std::int32_t shape = 32;  ///< a standard shape or a character code; a picture has none
  Color color = 0;
  std::int32_t size = 8;      ///< in sizeUnits
  Tobri::String name;         ///< of the font or of the picture's file
  std::int32_t rotation = 0;  ///< of a character, carried unchanged
  std::uint16_t style = 0;    ///< style bits, carried unchanged
  SLUnits sizeUnits = SLUnits_Point;
  std::int32_t extra = -1;  ///< carried unchanged; -1 in every new symbol
};

}  // namespace Pelor::MI
