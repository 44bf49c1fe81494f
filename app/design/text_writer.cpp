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

}  // namespace

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
  const Vanth::RectXY& box = text.GetBox();
  const auto characters = static_cast<double>(std::max<std::size_t>(text.GetText().Length(), 1));
  return std::max(std::fabs(box.Height()), std::fabs(box.Width()) / characters);
}

bool TextWriter::Write(const ElementStyle& style, const MI::WTextBody& text, const LinkageWords& linkages) {
  SplitIntoLines(text.GetText());
  std::size_t longest = 0;
  for (std::size_t i = 0; i < line_count_; ++i) longest = std::max(longest, lines_[i].size());
  if (longest == 0) return false;
  if (text.GetLabelKind() != 0) notes_.push_back(kLabelLine);

  const Vanth::RectXY& box = text.GetBox();
  const double pitch = Pitch(text.GetSpacing());
  const double angle = text.GetAngle()(Vanth::Angle::Radians, Vanth::Angle::AsStored);
  const double scale = units_.UorsPerMaster();
  Layout layout;
  layout.pivot = {units_.X(std::min(box.x1, box.x2)), units_.Y(std::max(box.y1, box.y2))};
  layout.cosine = std::cos(angle);
  layout.sine = std::sin(angle);
  layout.line_height =
      std::fabs(box.Height()) * scale / (1.0 + pitch * (static_cast<double>(line_count_) - 1.0));
  layout.pitch = layout.line_height * pitch;
  layout.char_width = std::fabs(box.Width()) * scale / static_cast<double>(longest);
  layout.indent = Indent(text.GetJustification());
  layout.longest = longest;
  layout.shape.justification = Justification(text.GetJustification());
  layout.shape.length_multiplier = Multiplier(layout.char_width);
  layout.shape.height_multiplier = Multiplier(layout.line_height);
  layout.shape.rotation_degrees = text.GetAngle()(Vanth::Angle::Degrees, Vanth::Angle::AsStored);

  if (line_count_ == 1 && longest <= ElementWriter::kMaxCharacters) {
    WriteLine(style, layout, 0, linkages);
    return true;
  }
  const double box_height = layout.pitch * static_cast<double>(line_count_ - 1) + layout.line_height;
  const std::int32_t spacing = RoundedToPlane(layout.pitch - layout.line_height, 0).x;
  elements_.BeginTextNode(style, layout.shape, layout.At(0, box_height), spacing, longest, linkages);
  for (std::size_t i = 0; i < line_count_; ++i) {
    if (!lines_[i].empty()) WriteLine(style, layout, i, {});
  }
  elements_.End();
  return true;
}

void TextWriter::SplitIntoLines(std::string_view text) {
  // A description has room for at least so many bytes of text, even in lines of one character.
  constexpr std::size_t kMostBytes = 2000;
  const std::int64_t lost = transcoder_.GetLost();
  std::size_t bytes = 0;
  line_count_ = 0;
  bool is_cut = false;
  for (bool at_end = false; !at_end && !is_cut;) {
    // Lines are parted by a line feed, or by the two characters \n.
    const std::size_t feed = text.find('\n');
    const std::size_t escape = text.find("\\n");
    const std::size_t end = std::min(feed, escape);
    at_end = end == std::string_view::npos;
    std::string_view line = text.substr(0, end);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (!at_end) text.remove_prefix(end + (end == escape ? 2 : 1));

    if (lines_.size() == line_count_) lines_.emplace_back();
    std::string& converted = lines_[line_count_++];
    converted = transcoder_.Convert(line);
    const std::size_t room = kMostBytes - bytes;
    is_cut = converted.size() > room || (!at_end && room <= converted.size() + 1);
    if (converted.size() > room) converted.resize(room);
    bytes += converted.size() + 1;
  }
  if (is_cut) notes_.push_back(kTooLong);
  if (transcoder_.GetLost() > lost) notes_.push_back(kLostCharacters);
}

std::int32_t TextWriter::Multiplier(double uors) {
  constexpr double kLargest = std::numeric_limits<std::int32_t>::max();
  const double multiplier = std::round(uors / TextShape::kMultiplierUnit);
  if (multiplier > kLargest) {
    notes_.push_back(kTooLarge);
    return static_cast<std::int32_t>(kLargest);
  }
  return static_cast<std::int32_t>(std::max(multiplier, 1.0));
}

/// A line with more characters than an element takes becomes several elements behind each other.
void TextWriter::WriteLine(const ElementStyle& style, const Layout& layout, std::size_t line,
                           const LinkageWords& linkages) {
  const std::string_view text = lines_[line];
  const double below = layout.pitch * static_cast<double>(line) + layout.line_height;
  const double shorter = static_cast<double>(layout.longest - text.size());
  for (std::size_t at = 0; at < text.size(); at += ElementWriter::kMaxCharacters) {
    const double right = (shorter * layout.indent + static_cast<double>(at)) * layout.char_width;
    elements_.Text(style, layout.shape, layout.At(right, below),
                   text.substr(at, ElementWriter::kMaxCharacters), linkages);
  }
}

}  // namespace App
