#include "app/design/design_source.h"
#include "app/design/element_geometry.h"
#include "app/design/skip_reasons.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace App {

using Vanth::PointXY;

namespace {

// How interchange files write a line break.
constexpr std::string_view kLineBreak = "\\n";
// Sizes closer than this part of each other, and directions closer than this part of a degree, are alike.
constexpr double kAlike = 0.01;
// The line spacings there are: 1, 1.5 and 2 times the height. These lie between them.
constexpr double kOneAndAHalfFrom = 1.25;
constexpr double kDoubleFrom = 1.75;

// A turned frame, its x axis along the base line.
struct Frame {
  double cosine;
  double sine;

  explicit Frame(double degrees) noexcept
      : cosine(std::cos(degrees * (std::numbers::pi / 180.0))),
        sine(std::sin(degrees * (std::numbers::pi / 180.0))) {}

  [[nodiscard]] PointXY Out(const PointXY& p) const noexcept {
    return {p.x * cosine - p.y * sine, p.x * sine + p.y * cosine};
  }
  [[nodiscard]] PointXY In(const PointXY& p) const noexcept {
    return {p.x * cosine + p.y * sine, p.y * cosine - p.x * sine};
  }
};

std::int32_t Justification(const TextView& text) noexcept {
  return static_cast<std::int32_t>(text.GetSide());
}

// Where a text of so many characters lies. Characters of negative size run and grow the other way; with both
// sizes negative, that is the same as a turn.
TextPlace PlaceOf(const TextView& text, std::size_t characters) noexcept {
  TextPlace place;
  place.width = std::fabs(text.char_width) * static_cast<double>(characters);
  place.height = std::fabs(text.char_height);
  place.angle_degrees = text.rotation_degrees;
  place.justification = Justification(text);
  PointXY shift;
  if (text.char_width < 0.0 && text.char_height < 0.0) {
    place.angle_degrees += 180.0;
  } else if (text.char_width < 0.0) {
    shift.x = -place.width;
  } else if (text.char_height < 0.0) {
    shift.y = -place.height;
  }
  const PointXY moved = Frame(place.angle_degrees).Out(shift);
  const PointXY origin = text.origin.Plan();
  place.lower_left = {origin.x + moved.x, origin.y + moved.y};
  return place;
}

// Whether a text of one line will be read as two: interchange files know no other sense of \ and n.
bool LooksBroken(std::string_view line) noexcept {
  return line.find(kLineBreak) != std::string_view::npos;
}

bool IsMirrored(const TextView& text) noexcept {
  return (text.char_width < 0.0) != (text.char_height < 0.0);
}

// The place of several lines, added one by one, as one text.
class NodePlace {
 public:
  /// False when the line is not like the first one.
  bool Add(const TextPlace& line) noexcept {
    if (lines_++ == 0) {
      first_ = line;
      last_y_ = 0.0;
      right_ = line.width;
      top_ = line.height;
      return true;
    }
    const PointXY offset{line.lower_left.x - first_.lower_left.x, line.lower_left.y - first_.lower_left.y};
    const PointXY at = Frame(first_.angle_degrees).In(offset);
    left_ = std::min(left_, at.x);
    right_ = std::max(right_, at.x + line.width);
    bottom_ = std::min(bottom_, at.y);
    top_ = std::max(top_, at.y + line.height);
    last_y_ = at.y;
    return std::fabs(line.height - first_.height) <= kAlike * first_.height &&
           std::fabs(std::remainder(line.angle_degrees - first_.angle_degrees, 360.0)) <= kAlike;
  }

  [[nodiscard]] TextPlace Get() const noexcept {
    TextPlace place = first_;
    const PointXY corner = Frame(first_.angle_degrees).Out({left_, bottom_});
    place.lower_left = {first_.lower_left.x + corner.x, first_.lower_left.y + corner.y};
    place.width = right_ - left_;
    place.height = top_ - bottom_;
    if (lines_ > 1) {
      const double pitch = std::fabs(last_y_) / (lines_ - 1);
      if (pitch >= kOneAndAHalfFrom * first_.height) place.spacing = 1;
      if (pitch >= kDoubleFrom * first_.height) place.spacing = 2;
    }
    return place;
  }

 private:
  TextPlace first_;
  int lines_ = 0;
  double left_ = 0.0;
  double right_ = 0.0;
  double bottom_ = 0.0;
  double top_ = 0.0;
  double last_y_ = 0.0;
};

}  // namespace

bool DesignSource::ConvertText(const ElementView& element) {
  const auto text = TextView::Decode(element);
  if (!text) return Skip(Reason::kDamaged);
  text_.clear();
  const std::size_t characters = decoder_.Append(text->characters, text_);
  if (characters == 0) return Skip(Reason::kNoCharacters);
  if (element.Is3D() && (text->is_tilted || text->origin.z != path_settings_.origin_z)) {
    Note(Reason::kHeight);
  }
  if (IsMirrored(*text)) Note(Reason::kMirrored);
  if (LooksBroken(text_)) Note(Reason::kLineBreak);
  maker_.Text(*feature_, PlaceOf(*text, characters), text_, facts_.symbology);
  return Give(text_);
}

bool DesignSource::ConvertTextNode(const ComponentRun& run) {
  NodePlace place;
  bool has_lines = false;
  int components = 0;
  int left_out = 0;
  text_.clear();
  while (cursor_.Peek() && run.Takes(cursor_.Element(), cursor_.GetPlace())) {
    const ElementView& component = cursor_.Element();
    cursor_.Take();
    ++components;
    if (IsLeftOut(component)) {
      ++left_out;
      continue;
    }
    const auto line = TextView::Decode(component);
    if (!line) {
      Note(Reason::kLostComponents);
      continue;
    }
    if (has_lines) text_ += kLineBreak;
    const std::size_t begin = text_.size();
    const std::size_t characters = decoder_.Append(line->characters, text_);
    if (LooksBroken(std::string_view(text_).substr(begin))) Note(Reason::kLineBreak);
    if (!place.Add(PlaceOf(*line, characters))) Note(Reason::kMixedLines);
    if (!has_lines) {
      // The node itself is not drawn: it looks like its texts.
      const ElementFacts facts(component, cursor_.GetPlace());
      facts_.symbology = facts.symbology;
      if (!facts_.linkages.database) facts_.linkages.database = facts.linkages.database;
      has_lines = true;
    }
    if (IsMirrored(*line)) Note(Reason::kMirrored);
    if (component.Is3D() && (line->is_tilted || line->origin.z != path_settings_.origin_z)) {
      Note(Reason::kHeight);
    }
  }
  if (components < run.Told()) Note(Reason::kLostComponents);
  if (!has_lines) return Skip(left_out != 0 && notes_.empty() ? Reason::kDeleted : Reason::kNoCharacters);
  maker_.Text(*feature_, place.Get(), text_, facts_.symbology);
  return Give(text_);
}

}  // namespace App
