#include "app/design/text_writer.h"

#include "app/design/uor_point.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace App {

namespace DGN = Pelor::DGN;
namespace MI = Pelor::MI;

namespace {

constexpr std::string_view kLostCharacters = "characters that the character set lacks";
constexpr std::string_view kTooLarge = "text larger than the units allow";
constexpr std::string_view kTooLong = "text cut at the end";
constexpr std::string_view kLabelLine = "label line left out";

/// The distance of two lines' feet in heights of a line, by the code of the spacing.
double Pitch(std::int32_t spacing) {
  switch (spacing) {
    case 0:
      return 1.0;
    case 1:
      return 1.5;
    default:
      return 2.0;
  }
}

/// The bottom row, at the left, centre or right.
std::uint8_t Justification(std::int32_t justification) {
  constexpr std::uint8_t kBottom[] = {2, 8, 14};
  return justification >= 0 && justification < 3 ? kBottom[justification] : kBottom[0];
}

/// The share of what a line is shorter than the longest that goes before it.
double Indent(std::int32_t justification) {
  constexpr double kShares[] = {0.0, 0.5, 1.0};
  return justification >= 0 && justification < 3 ? kShares[justification] : 0.0;
}

/// The lines of a text, parted by a line feed or by the two characters \n. The last one may be empty.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(text) {}

  [[nodiscard]] bool HasNext() const { return has_next_; }
  std::string_view Next() {
    const std::size_t feed = rest_.find('\n');
    const std::size_t escape = rest_.find("\\n");
    const std::size_t end = std::min(feed, escape);
    std::string_view line = rest_.substr(0, end);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    has_next_ = end != std::string_view::npos;
    if (has_next_) rest_.remove_prefix(end + (end == escape ? 2 : 1));
    return line;
  }

 private:
  std::string_view rest_;
  bool has_next_ = true;
};

bool IsTrail(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80;
}

/// Of UTF-8, which may be broken: where there are bytes, there is at least one.
std::size_t CountCharacters(std::string_view text) {
  const auto count = std::count_if(text.begin(), text.end(), [](char c) { return !IsTrail(c); });
  return std::max(static_cast<std::size_t>(count), text.empty() ? std::size_t{0} : std::size_t{1});
}

/// The first characters of a text, so many at most.
std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    if (end != 0 && !IsTrail(text[end]) && count-- == 1) break;
  }
  return text.substr(0, end);
}

}  // namespace

/// What the box and the lines of a text make its characters, in map units.
struct TextWriter::Lettering {
  std::size_t lines = 0;
  std::size_t longest = 0;  // of the lines, in characters
  double pitch = 1.0;       // in heights
  double height = 0.0;
  double width = 0.0;

  explicit Lettering(const MI::WTextBody& text) : pitch(Pitch(text.GetSpacing())) {
    for (LineReader reader(text.GetText()); reader.HasNext(); ++lines) {
      longest = std::max(longest, CountCharacters(reader.Next()));
    }
    const Vanth::RectXY& box = text.GetBox();
    height = std::fabs(box.Height()) / (1.0 + pitch * (static_cast<double>(lines) - 1.0));
    width = std::fabs(box.Width()) / static_cast<double>(std::max<std::size_t>(longest, 1));
  }
};

/// How the lines of a text lie in its box, which is turned about its upper left corner.
struct TextWriter::Layout {
  TextShape shape;
  Vanth::PointXY pivot;  // in units of resolution, as all below
  double cosine = 1.0;
  double sine = 0.0;
  double line_height = 0.0;
  double pitch = 0.0;
  double char_width = 0.0;
  double indent = 0.0;
  std::size_t longest = 0;

  /// The point `right` of and `below` the pivot, before the box is turned.
  [[nodiscard]] DGN::point2d At(double right, double below) const {
    return RoundedToPlane(pivot.x + right * cosine + below * sine, pivot.y + right * sine - below * cosine);
  }
};

TextWriter::Corners TextWriter::CornersOf(const MI::WTextBody& text) {
  const Vanth::RectXY& box = text.GetBox();
  const double width = std::fabs(box.Width());
  const double height = std::fabs(box.Height());
  const Vanth::PointXY pivot{std::min(box.x1, box.x2), std::max(box.y1, box.y2)};
  const double angle = text.GetAngle()(Vanth::Angle::Radians, Vanth::Angle::AsStored);
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  const auto at = [&](double right, double below) {
    return Vanth::PointXY{pivot.x + right * cosine + below * sine, pivot.y + right * sine - below * cosine};
  };
  return {{pivot, at(width, 0), at(width, height), at(0, height)}};
}

double TextWriter::LetterOf(const MI::WTextBody& text) {
  const Lettering letters(text);
  return letters.longest == 0 ? 0.0 : std::max(letters.height, letters.width);
}

bool TextWriter::Write(const ElementStyle& style, const MI::WTextBody& text, const LinkageWords& linkages) {
  const Lettering letters(text);
  if (letters.longest == 0) return false;
  SplitIntoPieces(text.GetText());
  if (piece_count_ == 0) return false;
  if (text.GetLabelKind() != 0) notes_.push_back(kLabelLine);

  const Vanth::RectXY& box = text.GetBox();
  const double angle = text.GetAngle()(Vanth::Angle::Radians, Vanth::Angle::AsStored);
  const double scale = units_.UorsPerMaster();
  Layout layout;
  layout.pivot = {units_.X(std::min(box.x1, box.x2)), units_.Y(std::max(box.y1, box.y2))};
  layout.cosine = std::cos(angle);
  layout.sine = std::sin(angle);
  layout.line_height = letters.height * scale;
  layout.pitch = layout.line_height * letters.pitch;
  layout.char_width = letters.width * scale;
  layout.indent = Indent(text.GetJustification());
  layout.longest = letters.longest;
  layout.shape.justification = Justification(text.GetJustification());
  layout.shape.length_multiplier = Multiplier(layout.char_width);
  layout.shape.height_multiplier = Multiplier(layout.line_height);
  layout.shape.rotation_degrees = text.GetAngle()(Vanth::Angle::Degrees, Vanth::Angle::AsStored);
  if (IsTooLarge(layout.char_width) || IsTooLarge(layout.line_height)) notes_.push_back(kTooLarge);

  if (letters.lines == 1 && piece_count_ == 1) {
    WritePiece(style, layout, pieces_.front(), linkages);
    return true;
  }
  const double box_height = layout.pitch * (static_cast<double>(letters.lines) - 1.0) + layout.line_height;
  const std::int32_t spacing = RoundedToPlane(layout.pitch - layout.line_height, 0).x;
  elements_.BeginTextNode(style, layout.shape, layout.At(0, box_height), spacing, letters.longest, linkages);
  for (std::size_t i = 0; i < piece_count_; ++i) WritePiece(style, layout, pieces_[i], {});
  elements_.End();
  return true;
}

void TextWriter::SplitIntoPieces(std::string_view text) {
  // A description has room for at least so many bytes of text, even in lines of one character.
  constexpr std::size_t kMostBytes = 2000;
  const std::int64_t lost = transcoder_.GetLost();
  std::size_t room = kMostBytes;
  piece_count_ = 0;
  bool is_cut = false;
  std::size_t line = 0;
  for (LineReader reader(text); reader.HasNext() && !is_cut; ++line) {
    const std::string_view whole = reader.Next();
    is_cut = !SplitLine(whole, line, room) || (reader.HasNext() && room <= 1);
    room -= std::min<std::size_t>(room, 1);
  }
  if (is_cut) notes_.push_back(kTooLong);
  if (transcoder_.GetLost() > lost) notes_.push_back(kLostCharacters);
}

/// Takes from `room` the bytes that the line needs; false when that is not enough for all of it.
bool TextWriter::SplitLine(std::string_view line, std::size_t index, std::size_t& room) {
  const std::size_t characters = CountCharacters(line);
  for (std::size_t before = 0; !line.empty();) {
    // As many characters as fit; how many bytes they take is known behind the conversion alone.
    const std::size_t most = std::min(room, ElementWriter::kMaxCharacters);
    std::size_t count = most;
    std::string_view taken;
    std::string_view converted;
    while (count != 0) {
      taken = FirstCharacters(line, count);
      converted = transcoder_.Convert(taken);
      if (converted.size() <= most) break;
      count = std::min(count - 1, count * most / converted.size());
    }
    if (count == 0) return false;

    if (pieces_.size() == piece_count_) pieces_.emplace_back();
    Piece& piece = pieces_[piece_count_++];
    piece.bytes = converted;
    piece.line = index;
    piece.characters_in_line = characters;
    piece.characters_before = before;
    room -= converted.size();
    before += CountCharacters(taken);
    line.remove_prefix(taken.size());
  }
  return true;
}

bool TextWriter::IsTooLarge(double uors) {
  return std::round(uors / TextShape::kMultiplierUnit) > std::numeric_limits<std::int32_t>::max();
}

std::int32_t TextWriter::Multiplier(double uors) {
  if (IsTooLarge(uors)) return std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::max(std::round(uors / TextShape::kMultiplierUnit), 1.0));
}

void TextWriter::WritePiece(const ElementStyle& style, const Layout& layout, const Piece& piece,
                            const LinkageWords& linkages) {
  const double below = layout.pitch * static_cast<double>(piece.line) + layout.line_height;
  const auto shorter = static_cast<double>(layout.longest - piece.characters_in_line);
  const double right =
      (shorter * layout.indent + static_cast<double>(piece.characters_before)) * layout.char_width;
  elements_.Text(style, layout.shape, layout.At(right, below), piece.bytes, linkages);
}

}  // namespace App
