// Makes objects and values out of the input, writes them as a pair, and reads the pair: what comes back is
// what was written, to the ten digits of the format.

#include <pelor/base/error.h>
#include <pelor/mi.h>
#include <pelor/mif.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <sstream>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

using namespace Pelor;
using namespace Pelor::MI;
using Vanth::PointXY;
using Vanth::RectXY;

void Check(bool holds) {
  if (!holds) std::abort();
}

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : at_(data), end_(data + size) {}

  [[nodiscard]] bool More() const { return at_ != end_; }
  unsigned Byte() { return More() ? *at_++ : 0; }
  int Number() {
    unsigned number = 0;
    for (int i = 0; i < 4; ++i) number = number << 8 | Byte();
    return static_cast<int>(number);
  }
  // Of any size that files can have, and never NaN.
  double Coordinate() { return std::ldexp(Number(), static_cast<int>(Byte() % 64) - 40); }
  PointXY Point() {
    const double x = Coordinate();
    return {x, Coordinate()};
  }
  RectXY Rect() {
    const PointXY first = Point();
    const PointXY last = Point();
    return {first.x, first.y, last.x, last.y};
  }
  Vanth::Angle Angle() { return Vanth::Angle(Coordinate(), Vanth::Angle::Degrees); }
  Tobri::String Text() {
    std::string text;
    for (unsigned n = Byte() % 16; n > 0; --n) text += static_cast<char>(Byte());
    return text;
  }
  // Sizes that their text gives back.
  MI::Pen Pen() {
    const auto width = static_cast<std::int32_t>(1 + Byte());
    return {width, static_cast<std::int32_t>(1 + Byte() % 77), Color(), SLUnits_Pixel, Byte() % 2 != 0};
  }
  MI::Brush Brush() {
    MI::Brush brush{static_cast<std::int32_t>(1 + Byte() % 71), Color(), Color()};
    if (brush.pattern >= 3 && Byte() % 2 != 0) brush.backColor = -1;
    return brush;
  }
  MI::Symbol Symbol() {
    const int size = static_cast<int>(1 + Byte() % 48);
    const auto style = static_cast<unsigned short>(Byte());
    if (Byte() % 2 != 0) return MI::Symbol(Text(), Color(), size, style, SLUnits_Point);
    return StdSymbol{static_cast<std::int32_t>(31 + Byte() % 37), Color(), size, SLUnits_Point};
  }
  MI::Font Font() {
    MI::Font font;
    font.name = Text();
    font.style = static_cast<std::uint16_t>(Byte());
    font.foreColor = Color();
    return font;
  }
  MI::Color Color() { return static_cast<MI::Color>(static_cast<unsigned>(Number()) & 0xFFFFFFU); }

 private:
  const std::uint8_t* at_;
  const std::uint8_t* end_;
};

WPLineObj Parts(Input& in, std::size_t least) {
  WPLineObj pline(nullptr, in.Pen(), in.Byte() % 2 != 0);
  const unsigned parts = 1 + in.Byte() % 3;
  for (unsigned part = 0; part < parts; ++part) {
    pline->AddPart();
    const std::size_t vertices = least + in.Byte() % 8;
    for (std::size_t i = 0; i < vertices; ++i) pline->AddVertex(in.Point());
  }
  return pline;
}

WObjRf<WObjBody> Object(Input& in) {
  switch (in.Byte() % 10) {
    case WObjType_Point:
      return WPointObj(in.Point(), nullptr, in.Symbol());
    case WObjType_Line: {
      const PointXY start = in.Point();
      return WLineObj(start, in.Point(), nullptr, in.Pen());
    }
    case WObjType_PLine:
      return Parts(in, 2);
    case WObjType_Region: {
      const WPLineObj outline = Parts(in, 3);
      outline->SetIsSmooth(false);
      WRegionObj region(outline, in.Brush());
      region->Close();
      region->SetCentroid(in.Point());
      return region;
    }
    case WObjType_Arc: {
      const RectXY rect = in.Rect();
      const Vanth::Angle start = in.Angle();
      return WArcObj(rect, start, in.Angle(), nullptr, in.Pen());
    }
    case WObjType_Text: {
      const Tobri::String string = in.Text();
      WTextObj text(string, in.Rect(), nullptr, in.Font());
      text->SetAngle(in.Angle());
      text->SetJustification(static_cast<std::int32_t>(in.Byte() % 3));
      text->SetSpacing(static_cast<std::int32_t>(in.Byte() % 3));
      text->SetLabelKind(static_cast<std::int32_t>(in.Byte() % 3));
      text->SetLabelPoint(in.Point());
      return text;
    }
    case WObjType_Rect: {
      const RectXY rect = in.Rect();
      const Pen pen = in.Pen();
      return WRectObj(rect, nullptr, pen, in.Brush());
    }
    case WObjType_RRect: {
      const RectXY rect = in.Rect();
      const double rounding = in.Coordinate();
      const Pen pen = in.Pen();
      return WRRectObj(rect, rounding, nullptr, pen, in.Brush());
    }
    case WObjType_Ellipse: {
      const RectXY rect = in.Rect();
      const Pen pen = in.Pen();
      return WEllipseObj(rect, nullptr, pen, in.Brush());
    }
    default:
      return Build(WObjType_None, nullptr);
  }
}

// The object's clause with the ten digits of a file. Reading those digits and writing them again changes
// nothing, but for angles, which pass through radians: they get fewer.
std::string Clause(const WObjRf<WObjBody>& object, int digits) {
  std::ostringstream out;
  out.precision(digits);
  MIF::SetLineFlush(out, false);
  MIF::Write(object, out);
  return out.str();
}

bool HasAngle(const WObjRf<WObjBody>& object) {
  return object->GetType() == WObjType_Arc || object->GetType() == WObjType_Text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string name =
      (std::filesystem::temp_directory_path() / ("pelor_fuzz_" + std::to_string(getpid()) + "_objects"))
          .string();
  Input input(data, size);
  std::vector<std::pair<WObjRf<WObjBody>, std::string>> written;
  {
    oMIF out(name, '\x1f');
    out.SetLineFlush(input.Byte() % 2 != 0);
    out.AddColumn(Column("a", Character_t(), 0, 0));
    while (input.More()) {
      written.emplace_back(Object(input), "v");
      // A value that holds quotes, line ends or the delimiter does not come back as it was.
      for (unsigned n = input.Byte() % 8; n > 0; --n) {
        const char c = static_cast<char>(input.Byte());
        if (c != '"' && c != '\n' && c != '\r' && c != '\x1f') written.back().second += c;
      }
      out.AddObj(written.back().first);
      out.AddAttribute(written.back().second);
    }
    out.Close();
    Check(out.MIFStream().good() && out.MIDStream().good());
  }

  // No message is expected: they are thrown.
  iMIF in(name);
  in.Reset();
  for (const auto& [object, value] : written) {
    Check(in.IsValid());
    Check(in.GetObj()->GetType() == object->GetType());
    if (!HasAngle(object)) Check(Clause(in.GetObj(), 10) == Clause(object, 10));
    Check(in.GetNAttributes() == 1 && in.GetAttribute(0) == value);
    in.Next();
  }
  Check(!in.IsValid());
  in.Close();
  std::filesystem::remove(name + ".mif");
  std::filesystem::remove(name + ".mid");
  return 0;
}
