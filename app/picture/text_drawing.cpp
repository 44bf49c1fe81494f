#include "app/picture/text_drawing.h"

#include "app/picture/cairo_handles.h"
#include "app/picture/measure.h"
#include "app/picture/pen_style.h"

#include <algorithm>
#include <cmath>

namespace App {

namespace {

namespace MI = Pelor::MI;
using Vanth::BoundsXY;
using Vanth::PointXY;

enum FontBit : unsigned {
  kBold = 1,
  kItalic = 2,
  kUnderline = 4,
  kHollow = 16,
  kShadow = 32,
  kHalo = 256,
  kCapitals = 512,
  kExpanded = 1024,
};

constexpr char kFamily[] = "sans";
constexpr MI::Color kWhite = 0xFFFFFF;
constexpr MI::Color kShadowColor = 0xA0A0A0;

// In heights of the letters.
constexpr double kExpansion = 0.25;
constexpr double kHaloWidth = 0.2;
constexpr double kShadowShift = 0.06;
constexpr double kHollowLine = 0.03;
constexpr double kUnderlinePlace = 0.12;
constexpr double kUnderlineWidth = 0.06;

// Letters below this size, in pixels, are a line; from the next on they are drawn as areas, since cairo keeps
// pictures of smaller ones; beyond the last their areas would leave cairo's coordinates.
constexpr double kSmallest = 1.5;
constexpr double kLargestKept = 128.0;
constexpr double kLargest = 1e6;

constexpr double kNarrowest = 0.01;

// The points at which fonts are measured: extents grow with the size.
constexpr double kMeasureSize = 64.0;

// One line of glyphs, its baseline beginning at the origin.
struct Glyphs {
  CairoPtr<cairo_glyph_t> array;
  int count = 0;
  double advance = 0.0;
};

Glyphs MakeGlyphs(cairo_t* cairo, const std::string& line, double spacing) {
  Glyphs glyphs;
  cairo_glyph_t* array = nullptr;
  cairo_scaled_font_t* const font = cairo_get_scaled_font(cairo);
  if (cairo_scaled_font_text_to_glyphs(font, 0, 0, line.data(), static_cast<int>(line.size()), &array,
                                       &glyphs.count, nullptr, nullptr, nullptr) != CAIRO_STATUS_SUCCESS) {
    return {};
  }
  glyphs.array.reset(array);
  for (int i = 0; i < glyphs.count; ++i) array[i].x += i * spacing;
  cairo_text_extents_t extents;
  cairo_scaled_font_glyph_extents(font, array, glyphs.count, &extents);
  glyphs.advance = extents.x_advance;
  return glyphs;
}

// How a text's letters are drawn, in pixels of the text's own turned plane.
struct Layout {
  double size = 0.0;    // of the font
  double narrow = 1.0;  // width of the letters against their natural one
  double ascent = 0.0;  // of the first baseline below the top of its line
  double line = 0.0;    // height of one line
  double step = 0.0;    // from line to line
  double width = 0.0;   // of the box
};

class TextPainter {
 public:
  TextPainter(cairo_t* cairo, const MI::WTextBody& text)
      : cairo_(cairo), text_(text), style_(text.GetFont().style) {}

  bool Draw(const Frame& frame);

 private:
  [[nodiscard]] bool Has(FontBit bit) const noexcept { return (style_ & bit) != 0; }
  void SelectFont() const;
  [[nodiscard]] Layout MakeLayout(double width, double height, const std::vector<std::string>& lines) const;
  void DrawLine(const std::string& line, double top, const Layout& layout) const;
  void DrawGlyphs(const Glyphs& glyphs, const Layout& layout) const;
  void DrawBackground(double width, double height) const;
  void DrawLabelLine(const Frame& frame) const;
  // Whether one colour fills the box behind the text.
  [[nodiscard]] bool HasBackground() const noexcept { return text_.GetFont().backColor >= 0 && !Has(kHalo); }

  cairo_t* cairo_;
  const MI::WTextBody& text_;
  unsigned style_;
};

void TextPainter::SelectFont() const {
  cairo_select_font_face(cairo_, kFamily, Has(kItalic) ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                         Has(kBold) ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  // Letters are shaped alike in every size and at every angle.
  const CairoPtr<cairo_font_options_t> options(cairo_font_options_create());
  cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
  cairo_set_font_options(cairo_, options.get());
}

Layout TextPainter::MakeLayout(double width, double height, const std::vector<std::string>& lines) const {
  const double spacing = text_.GetSpacing() == 0 ? 1.0 : text_.GetSpacing() == 1 ? 1.5 : 2.0;
  Layout layout;
  layout.width = width;
  layout.line = height / (1 + static_cast<double>(lines.size() - 1) * spacing);
  layout.step = layout.line * spacing;

  cairo_set_font_size(cairo_, kMeasureSize);
  cairo_font_extents_t font;
  cairo_font_extents(cairo_, &font);
  const double full = font.ascent + font.descent;
  layout.size = full > 0 ? layout.line * kMeasureSize / full : layout.line;
  layout.ascent = full > 0 ? layout.line * font.ascent / full : layout.line;
  double widest = 0.0;
  for (const std::string& line : lines) {
    const double spacing_between = Has(kExpanded) ? kExpansion * kMeasureSize : 0.0;
    widest = std::max(widest, MakeGlyphs(cairo_, line, spacing_between).advance);
  }
  widest *= layout.size / kMeasureSize;
  if (width > 0 && widest > width) layout.narrow = std::max(width / widest, kNarrowest);
  return layout;
}

void TextPainter::DrawBackground(double width, double height) const {
  if (!HasBackground()) return;
  SetColor(cairo_, text_.GetFont().backColor);
  cairo_rectangle(cairo_, 0, 0, width, height);
  cairo_fill(cairo_);
}

void TextPainter::DrawGlyphs(const Glyphs& glyphs, const Layout& layout) const {
  if (layout.size > kLargestKept || Has(kHollow)) {
    cairo_new_path(cairo_);
    cairo_glyph_path(cairo_, glyphs.array.get(), glyphs.count);
    if (Has(kHollow)) {
      cairo_set_line_width(cairo_, std::max(layout.size * kHollowLine, 0.5));
      cairo_stroke(cairo_);
    } else {
      cairo_fill(cairo_);
    }
  } else {
    cairo_show_glyphs(cairo_, glyphs.array.get(), glyphs.count);
  }
}

void TextPainter::DrawLine(const std::string& line, double top, const Layout& layout) const {
  if (line.empty()) return;
  const double spacing = Has(kExpanded) ? kExpansion * layout.size * layout.narrow : 0.0;
  const Glyphs glyphs = MakeGlyphs(cairo_, line, spacing);
  const double room = layout.width - glyphs.advance;
  const double part = text_.GetJustification() == 1 ? 0.5 : text_.GetJustification() == 2 ? 1.0 : 0.0;
  const CairoScope scope(cairo_);
  cairo_translate(cairo_, layout.width > 0 ? room * part : 0.0, top + layout.ascent);
  const MI::Font& font = text_.GetFont();
  if (Has(kHalo)) {
    SetColor(cairo_, font.backColor >= 0 ? font.backColor : kWhite);
    cairo_new_path(cairo_);
    cairo_glyph_path(cairo_, glyphs.array.get(), glyphs.count);
    cairo_set_line_join(cairo_, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_width(cairo_, std::max(kHaloWidth * layout.size, 2.0));
    cairo_stroke(cairo_);
  }
  if (Has(kShadow)) {
    const CairoScope shadow(cairo_);
    const double shift = std::max(kShadowShift * layout.size, 1.0);
    cairo_translate(cairo_, shift, shift);
    SetColor(cairo_, kShadowColor);
    DrawGlyphs(glyphs, layout);
  }
  SetColor(cairo_, font.foreColor);
  DrawGlyphs(glyphs, layout);
  if (Has(kUnderline)) {
    cairo_rectangle(cairo_, 0, kUnderlinePlace * layout.size, glyphs.advance,
                    std::max(kUnderlineWidth * layout.size, 0.75));
    cairo_fill(cairo_);
  }
}

// From the middle of the box's nearest side to the point that the text belongs to.
void TextPainter::DrawLabelLine(const Frame& frame) const {
  constexpr int kSimple = 1;
  constexpr int kArrow = 2;
  constexpr double kHeadLength = 8.0;  // pixels
  constexpr double kHeadHalfWidth = 3.0;
  const std::int32_t kind = text_.GetLabelKind();
  if (kind != kSimple && kind != kArrow) return;
  const PointXY to = frame.ToPicture(text_.GetLabelPoint());
  const auto corners = TextCorners(text_);
  PointXY from = to;
  double shortest = HUGE_VAL;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const PointXY& a = corners[i];
    const PointXY& b = corners[(i + 1) % corners.size()];
    const PointXY middle = frame.ToPicture({(a.x + b.x) / 2, (a.y + b.y) / 2});
    const double distance = std::hypot(middle.x - to.x, middle.y - to.y);
    if (distance >= shortest) continue;
    shortest = distance;
    from = middle;
  }
  const PictureBox near = PictureBox{0, 0, frame.width, frame.height}.Grown(1e5);
  if (!(shortest > 0) || !near.Contains(from) || !near.Contains(to)) return;
  SetColor(cairo_, text_.GetFont().foreColor);
  cairo_set_dash(cairo_, nullptr, 0, 0);
  cairo_set_line_width(cairo_, 1.0);
  cairo_move_to(cairo_, from.x, from.y);
  cairo_line_to(cairo_, to.x, to.y);
  cairo_stroke(cairo_);
  if (kind != kArrow) return;
  const PointXY along{(to.x - from.x) / shortest, (to.y - from.y) / shortest};
  const PointXY back{to.x - kHeadLength * along.x, to.y - kHeadLength * along.y};
  cairo_move_to(cairo_, to.x, to.y);
  cairo_line_to(cairo_, back.x - kHeadHalfWidth * along.y, back.y + kHeadHalfWidth * along.x);
  cairo_line_to(cairo_, back.x + kHeadHalfWidth * along.y, back.y - kHeadHalfWidth * along.x);
  cairo_close_path(cairo_);
  cairo_fill(cairo_);
}

bool TextPainter::Draw(const Frame& frame) {
  const std::vector<std::string> lines =
      TextLines(Has(kCapitals) ? Tobri::LocStr::UpperCase(text_.GetText()) : text_.GetText());
  if (lines.empty()) return true;
  const BoundsXY box(text_.GetBox());
  const double width = (box.Max().x - box.Min().x) * frame.scale;
  double height = (box.Max().y - box.Min().y) * frame.scale;
  const MI::Font& font = text_.GetFont();
  // A box without a height leaves the font's own size, if it has one.
  if (!(height > 0)) height = ToPixels(font.size, font.sizeUnits) * static_cast<double>(lines.size());
  const CairoScope scope(cairo_);
  cairo_new_path(cairo_);
  DrawLabelLine(frame);
  const PointXY pivot = frame.ToPicture({box.Min().x, box.Max().y});
  std::size_t longest = 0;
  for (const std::string& line : lines) longest = std::max(longest, line.size());
  if (std::max(width, height * static_cast<double>(longest + 1)) > kLargest) return false;

  cairo_translate(cairo_, pivot.x, pivot.y);
  cairo_rotate(cairo_, -text_.GetAngle()(Vanth::Angle::Radians, Vanth::Angle::AsStored));
  DrawBackground(width, height);
  SelectFont();
  const Layout layout = MakeLayout(width, height, lines);
  if (layout.line < kSmallest) {
    SetColor(cairo_, font.foreColor);
    cairo_rectangle(cairo_, 0, height / 4, width, height / 2);
    cairo_fill(cairo_);
    return true;
  }
  cairo_matrix_t matrix;
  cairo_matrix_init_scale(&matrix, layout.size * layout.narrow, layout.size);
  cairo_set_font_matrix(cairo_, &matrix);
  double top = 0.0;
  for (const std::string& line : lines) {
    DrawLine(line, top, layout);
    top += layout.step;
  }
  return true;
}

}  // namespace

std::vector<std::string> TextLines(std::string_view text) {
  constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
  std::vector<std::string> lines(1);
  const char* const end = text.data() + text.size();
  for (const char* at = text.data(); at < end;) {
    const Tobri::Utf8Char c = Tobri::DecodeUtf8(at, end);
    const bool is_escape = *at == '\\' && end - at > 1 && at[1] == 'n';
    if (is_escape || *at == '\n') {
      lines.emplace_back();
      at += is_escape ? 2 : 1;
      continue;
    }
    if (c.length == 0) {
      lines.back() += kReplacement;
    } else if (c.code >= 0x20 && c.code != 0x7F) {
      lines.back().append(at, c.length);
    }
    at += std::max(c.length, 1U);
  }
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

bool DrawText(cairo_t* cairo, const MI::WTextBody& text, const Frame& frame) {
  return TextPainter(cairo, text).Draw(frame);
}

}  // namespace App
