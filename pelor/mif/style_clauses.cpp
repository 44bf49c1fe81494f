#include <pelor/base/number_format.h>
#include <pelor/base/numeric.h>
#include <pelor/mi/saturate.h>
#include <pelor/mif/keyword.h>
#include <pelor/mif/lexis.h>
#include <pelor/mif/style_clauses.h>
#include <pelor/mif/style_size.h>

#include <iomanip>
#include <limits>
#include <ostream>
#include <string_view>
#include <utility>

namespace Pelor::MIF {

using Tobri::FltFmt;
using Tobri::IntFmt;
using Tobri::IxText;
using Tobri::PutInteger;
using Tobri::String;

namespace {

constexpr std::int32_t kInterleaved = 128;

// Exchanges the red and the blue byte.
MI::Color Swapped(MI::Color color) {
  const auto bits = static_cast<std::uint32_t>(color);
  return static_cast<MI::Color>((bits & 0xFF00FF00U) | (bits & 0xFFU) << 16 | (bits >> 16 & 0xFFU));
}

// In double quotes, with those inside doubled.
auto Quoted(const String& text) {
  return std::quoted(std::string_view(text), '"', '"');
}

void PutColor(std::ostream& out, MI::Color color) {
  PutInteger(out, Swapped(color));
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

void WriteStandardSymbol(std::int32_t shape, MI::Color color, const StyleSize& size, std::ostream& out) {
  PutInteger(out, shape);
  out << ',';
  PutColor(out, color);
  out << ',';
  WriteSize(size, MI::SLUnits_Point, out);
}

}  // namespace

void Write(const MI::Pen& pen, std::ostream& out) {
  out << "Pen (";
  WriteSize({pen.width, pen.widthUnits}, MI::SLUnits_Pixel, out);
  out << ',';
  PutInteger(out, long{pen.pattern} + (pen.interleaved ? kInterleaved : 0));
  out << ',';
  PutColor(out, pen.color);
  out << ')';
}

bool Read(MI::Pen& pen, IxText& in) {
  MI::Pen read;
  StyleReader args(in, Pen);
  args.GetSize(read.width, read.widthUnits, MI::SLUnits_Pixel).Get(read.pattern).GetColor(read.color);
  if (read.pattern > kInterleaved) {
    read.interleaved = true;
    read.pattern -= kInterleaved;
  }
  return args.Finish(pen, std::move(read), "Invalid Pen");
}

void Write(const MI::Brush& brush, std::ostream& out) {
  out << "Brush (";
  PutInteger(out, brush.pattern);
  out << ',';
  PutColor(out, brush.foreColor);
  if (brush.backColor >= 0 || brush.pattern < 3) {
    out << ',';
    PutColor(out, brush.backColor < 0 ? 0 : brush.backColor);
  }
  out << ')';
}

bool Read(MI::Brush& brush, IxText& in) {
  MI::Brush read;
  StyleReader args(in, Brush);
  args.Get(read.pattern).GetColor(read.foreColor);
  if (args.More()) args.GetColor(read.backColor);
  return args.Finish(brush, std::move(read), "Invalid Brush");
}

void Write(const MI::Symbol& symbol, std::ostream& out) {
  const StyleSize size = {symbol.size, symbol.sizeUnits};
  out << "Symbol (";
  if (symbol.kind == MI::Symbol::Picture) {
    out << Quoted(symbol.name) << ',';
    PutColor(out, symbol.color);
    out << ',';
    WriteSize(size, MI::SLUnits_Point, out);
    out << ',';
    PutInteger(out, int{symbol.style});
  } else {
    WriteStandardSymbol(symbol.shape, symbol.color, size, out);
    if (symbol.kind == MI::Symbol::Character) {
      out << ", " << Quoted(symbol.name) << ',';
      PutInteger(out, int{symbol.style});
      out << ',';
      PutInteger(out, symbol.rotation);
    }
  }
  out << ')';
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
  out << "Symbol (";
  WriteStandardSymbol(symbol.shape, symbol.color, {symbol.size, symbol.sizeUnits}, out);
  out << ')';
}

bool Read(MI::StdSymbol& symbol, IxText& in) {
  MI::StdSymbol read;
  StyleReader args(in, Symbol);
  args.Get(read.shape).GetColor(read.color).GetSize(read.size, read.sizeUnits, MI::SLUnits_Point);
  return args.Finish(symbol, std::move(read), "Invalid Symbol");
}

void Write(const MI::Font& font, std::ostream& out) {
  out << "Font (" << Quoted(font.name) << ", ";
  PutInteger(out, int{font.style});
  out << ", ";
  WriteSize({font.size, font.sizeUnits}, MI::SLUnits_Point, out);
  out << ", ";
  PutColor(out, font.foreColor);
  if (font.backColor >= 0) {
    out << ", ";
    PutColor(out, font.backColor);
  }
  out << ')';
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
