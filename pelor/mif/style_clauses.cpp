#include <pelor/base/numeric.h>
#include <pelor/mi/saturate.h>
#include <pelor/mif/clause_text.h>
#include <pelor/mif/keyword.h>
#include <pelor/mif/lexis.h>
#include <pelor/mif/style_clauses.h>
#include <pelor/mif/style_size.h>

#include <limits>
#include <ostream>
#include <string_view>
#include <utility>

namespace Pelor::MIF {

using Tobri::FltFmt;
using Tobri::IntFmt;
using Tobri::IxText;
using Tobri::String;

namespace {

constexpr std::int32_t kInterleaved = 128;

// Exchanges the red and the blue byte.
MI::Color Swapped(MI::Color color) {
  const auto bits = static_cast<std::uint32_t>(color);
  return static_cast<MI::Color>((bits & 0xFF00FF00U) | (bits & 0xFFU) << 16 | (bits >> 16 & 0xFFU));
}

void PutColor(ClauseText& text, MI::Color color) {
  text.PutInteger(Swapped(color));
}

// Reads the bracketed arguments of a style clause, one after the other, until one fails.
class StyleReader {
 public:
  StyleReader(IxText& in, KeyWord keyword) : in_(in) {
    ReadSpecifier(in, keyword);
    good_ = args_.Set(in, true, false, false);
  }

  [[nodiscard]] bool More() { return good_ && args_.Next(false, false); }
  [[nodiscard]] bool NextIsQuoted() {
    in_.SkipBlanks(false);
    const std::string_view window = in_.Window(1);
    return !window.empty() && (in_.ClassOf(window.front()) & IxText::kQuote) != 0;
  }

  StyleReader& Get(std::int32_t& value) {
    good_ = good_ && args_.ReadNext(value, IntFmt());
    return *this;
  }
  StyleReader& Get(String& text) {
    good_ = good_ && args_.ReadNext(text);
    return *this;
  }
  StyleReader& GetColor(MI::Color& color) {
    std::int32_t written = 0;
    if (Get(written).good_) color = Swapped(written);
    return *this;
  }
  StyleReader& GetSize(std::int32_t& value, MI::SLUnits& units, MI::SLUnits default_units) {
    String text;
    StyleSize size;
    good_ = Get(text).good_ && ParseSize(text, default_units, size);
    if (good_) {
      value = size.value;
      units = size.units;
    }
    return *this;
  }
  StyleReader& GetBits(std::uint16_t& bits) {
    std::int32_t value = 0;
    good_ = Get(value).good_ && value >= 0 && value <= std::numeric_limits<std::uint16_t>::max();
    if (good_) bits = static_cast<std::uint16_t>(value);
    return *this;
  }
  StyleReader& GetRounded(std::int32_t& value) {
    double number = 0.0;
    good_ = good_ && args_.ReadNext(number, FltFmt());
    if (good_) value = MI::Saturated(Tobri::round(number, false));
    return *this;
  }

  // Ends the clause. If it was whole, `target` becomes `value`; otherwise `message` is reported.
  template <class T>
  bool Finish(T& target, T value, const char* message) {
    good_ = good_ && !More() && args_.Skip();
    if (good_) {
      target = std::move(value);
    } else {
      Tobri::Error::Handle(SyntaxError(message, &in_));
    }
    return good_;
  }

 private:
  IxText& in_;
  IxText::ArgSep args_;
  bool good_;
};

void PutStandardSymbol(std::int32_t shape, MI::Color color, const StyleSize& size, ClauseText& text) {
  text.PutInteger(shape);
  text.Put(',');
  PutColor(text, color);
  text.Put(',');
  Put(text, size, MI::SLUnits_Point);
}

template <class Style>
void WriteText(const Style& style, std::ostream& out) {
  ClauseText text(out);
  Put(text, style);
  text.Give();
}

}  // namespace

void Put(ClauseText& text, const MI::Pen& pen) {
  text.Put("Pen (");
  Put(text, {pen.width, pen.widthUnits}, MI::SLUnits_Pixel);
  text.Put(',');
  text.PutInteger(long{pen.pattern} + (pen.interleaved ? kInterleaved : 0));
  text.Put(',');
  PutColor(text, pen.color);
  text.Put(')');
}

void Write(const MI::Pen& pen, std::ostream& out) {
  WriteText(pen, out);
}

bool Read(MI::Pen& pen, IxText& in) {
  MI::Pen read;
  StyleReader args(in, Pen);
  args.GetSize(read.width, read.widthUnits, MI::SLUnits_Pixel).Get(read.pattern).GetColor(read.color);
  if (read.pattern > kInterleaved) {
    read.interleaved = true;
    read.pattern -= kInterleaved;
  }
  return args.Finish(pen, read, "Invalid Pen");
}

void Put(ClauseText& text, const MI::Brush& brush) {
  text.Put("Brush (");
  text.PutInteger(brush.pattern);
  text.Put(',');
  PutColor(text, brush.foreColor);
  if (brush.backColor >= 0 || brush.pattern < 3) {
    text.Put(',');
    PutColor(text, brush.backColor < 0 ? 0 : brush.backColor);
  }
  text.Put(')');
}

void Write(const MI::Brush& brush, std::ostream& out) {
  WriteText(brush, out);
}

bool Read(MI::Brush& brush, IxText& in) {
  MI::Brush read;
  StyleReader args(in, Brush);
  args.Get(read.pattern).GetColor(read.foreColor);
  if (args.More()) args.GetColor(read.backColor);
  return args.Finish(brush, read, "Invalid Brush");
}

void Put(ClauseText& text, const MI::Symbol& symbol) {
  const StyleSize size = {symbol.size, symbol.sizeUnits};
  text.Put("Symbol (");
  if (symbol.kind == MI::Symbol::Picture) {
    text.PutQuoted(symbol.name);
    text.Put(',');
    PutColor(text, symbol.color);
    text.Put(',');
    Put(text, size, MI::SLUnits_Point);
    text.Put(',');
    text.PutInteger(int{symbol.style});
  } else {
    PutStandardSymbol(symbol.shape, symbol.color, size, text);
    if (symbol.kind == MI::Symbol::Character) {
      text.Put(", ");
      text.PutQuoted(symbol.name);
      text.Put(',');
      text.PutInteger(int{symbol.style});
      text.Put(',');
      text.PutInteger(symbol.rotation);
    }
  }
  text.Put(')');
}

void Write(const MI::Symbol& symbol, std::ostream& out) {
  WriteText(symbol, out);
}

bool Read(MI::Symbol& symbol, IxText& in) {
  MI::Symbol read;
  StyleReader args(in, Symbol);
  if (args.NextIsQuoted()) {
    read.kind = MI::Symbol::Picture;
    read.shape = 0;
    args.Get(read.name).GetColor(read.color).GetSize(read.size, read.sizeUnits, MI::SLUnits_Point);
    args.GetBits(read.style);
  } else {
    args.Get(read.shape).GetColor(read.color).GetSize(read.size, read.sizeUnits, MI::SLUnits_Point);
    if (args.More()) {
      read.kind = MI::Symbol::Character;
      args.Get(read.name).GetBits(read.style).GetRounded(read.rotation);
    }
  }
  return args.Finish(symbol, std::move(read), "Invalid Symbol");
}

void Write(const MI::StdSymbol& symbol, std::ostream& out) {
  Write(MI::Symbol(symbol), out);
}

bool Read(MI::StdSymbol& symbol, IxText& in) {
  MI::StdSymbol read;
  StyleReader args(in, Symbol);
  args.Get(read.shape).GetColor(read.color).GetSize(read.size, read.sizeUnits, MI::SLUnits_Point);
  return args.Finish(symbol, read, "Invalid Symbol");
}

void Put(ClauseText& text, const MI::Font& font) {
  text.Put("Font (");
  text.PutQuoted(font.name);
  text.Put(", ");
  text.PutInteger(int{font.style});
  text.Put(", ");
  Put(text, {font.size, font.sizeUnits}, MI::SLUnits_Point);
  text.Put(", ");
  PutColor(text, font.foreColor);
  if (font.backColor >= 0) {
    text.Put(", ");
    PutColor(text, font.backColor);
  }
  text.Put(')');
}

void Write(const MI::Font& font, std::ostream& out) {
  WriteText(font, out);
}

bool Read(MI::Font& font, IxText& in) {
  MI::Font read;
  StyleReader args(in, Font);
  args.Get(read.name).GetBits(read.style).GetSize(read.size, read.sizeUnits, MI::SLUnits_Point);
  args.GetColor(read.foreColor);
  if (args.More()) args.GetColor(read.backColor);
  return args.Finish(font, std::move(read), "Invalid Font");
}

}  // namespace Pelor::MIF
