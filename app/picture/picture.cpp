#include "app/picture/picture.h"

#include "app/io/failure.h"
#include "app/io/interrupt.h"
#include "app/picture/canvas.h"
#include "app/picture/measure.h"
#include "app/picture/painter.h"
#include "app/picture/scale_bar.h"

#include <charconv>
#include <string>

namespace App {

namespace {

namespace MI = Pelor::MI;
using Vanth::BoundsXY;

constexpr MI::Color kBlack = 0;
constexpr MI::Color kWhite = 0xFFFFFF;
constexpr std::string_view kLevelColumn = "level";

// The column that holds the level; -1 without one.
std::ptrdiff_t FindLevelColumn(const Schema& schema) {
  for (std::size_t i = 0; i < schema.columns.size(); ++i) {
    if (std::string_view(Tobri::LocStr::LowerCase(schema.columns[i].name)) == kLevelColumn)
      return static_cast<std::ptrdiff_t>(i);
  }
  return -1;
}

bool Meet(const BoundsXY& a, const BoundsXY& b) {
  return a.Min().x <= b.Max().x && a.Max().x >= b.Min().x && a.Min().y <= b.Max().y && a.Max().y >= b.Min().y;
}

// Lets through the features that a picture shows.
class Selection {
 public:
  Selection(const Schema& schema, const PictureOptions& options)
      : options_(options), level_column_(options.levels ? FindLevelColumn(schema) : -1) {
    if (options.levels && level_column_ < 0) {
      throw Failure("levels cannot be chosen: there is no column named Level");
    }
  }

  // The bounds of a feature that is drawn; nothing, and the reason, for one that is not.
  [[nodiscard]] std::optional<BoundsXY> Choose(const Feature& feature, std::string_view& reason) const {
    if (level_column_ >= 0 && !IsOnShownLevel(feature)) {
      reason = kOtherLevel;
      return std::nullopt;
    }
    const std::optional<BoundsXY> bounds = Measure(*feature.object);
    if (!bounds) {
      reason = kNoNumbers;
    } else if (options_.window && !bounds->IsEmpty() && !Meet(*bounds, *options_.window)) {
      reason = kOutside;
      return std::nullopt;
    }
    return bounds;
  }

 private:
  [[nodiscard]] bool IsOnShownLevel(const Feature& feature) const {
    const auto column = static_cast<std::size_t>(level_column_);
    if (column >= feature.values.size()) return false;
    const std::string_view text = feature.values[column];
    unsigned level = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), level);
    return error == std::errc() && end == text.data() + text.size() && options_.levels->Contains(level);
  }

  const PictureOptions& options_;
  std::ptrdiff_t level_column_;
};

BoundsXY FindExtent(FeatureSource& source, const PictureOptions& options) {
  const Selection selection(source.GetSchema(), options);
  BoundsXY extent;
  Account unused;  // the drawing keeps the account
  Feature feature;
  std::string_view reason;
  while (source.Next(feature, unused)) {
    ThrowIfInterrupted();
    const std::optional<BoundsXY> bounds = selection.Choose(feature, reason);
    if (!bounds || bounds->IsEmpty()) continue;
    extent.Extend(bounds->Min());
    extent.Extend(bounds->Max());
  }
  return extent;
}

// Whether there was anything to draw.
bool DrawFeatures(FeatureSource& source, const PictureOptions& options, Painter& painter, Account& account) {
  const Selection selection(source.GetSchema(), options);
  Feature feature;
  std::string_view reason;
  bool has_drawn = false;
  while (source.Next(feature, account)) {
    ThrowIfInterrupted();
    if (!selection.Choose(feature, reason)) {
      account.Skipped(feature.kind, reason, feature.place, feature.count);
    } else if (!painter.Draw(*feature.object)) {
      account.Skipped(feature.kind, kTooLarge, feature.place, feature.count);
    } else {
      account.Written(feature.kind, feature.count);
      has_drawn = true;
    }
  }
  return has_drawn;
}

}  // namespace

bool WritePicture(const SourceOpener& open, const PictureOptions& options, PictureFormat format,
                  std::ostream& out, Account& account) {
  const BoundsXY extent = options.window ? *options.window : FindExtent(*open(), options);
  const Frame frame = MakeFrame(extent, {options.width, options.margin, kScaleBarHeight});

  Canvas canvas(format, frame.width, frame.height, out);
  cairo_t* const cairo = canvas.Context();
  if (options.background >= 0) {
    SetColor(cairo, options.background);
    cairo_paint(cairo);
  }
  const std::unique_ptr<FeatureSource> source = open();
  bool has_drawn = false;
  {
    const CairoScope scope(cairo);
    if (options.window) {
      const PictureBox box = frame.ToPicture(*options.window);
      cairo_rectangle(cairo, box.left, box.top, box.Width(), box.Height());
      cairo_clip(cairo);
    }
    Painter painter(cairo, frame);
    has_drawn = DrawFeatures(*source, options, painter, account);
  }
  constexpr double kBarPart = 0.25;  // of the map's width
  const ScaleBar bar =
      MakeScaleBar(frame.scale, kBarPart * frame.map.Width(), source->GetSchema().system.Get());
  DrawScaleBar(cairo, bar, frame, IsDark(options.background) ? kWhite : kBlack);
  canvas.Finish();
  return has_drawn;
}

}  // namespace App
