#pragma once

#include "app/convert/feature.h"
#include "app/convert/number_set.h"
#include "app/picture/picture_format.h"
#include <pelor/mi.h>

#include <iosfwd>
#include <optional>
#include <string_view>

namespace App {

struct PictureOptions {
  double width = 1200.0;  ///< pixels; the height follows from the map
  double margin = 24.0;
  Pelor::MI::Color background = 0xFFFFFF;  ///< negative for none
  std::optional<Vanth::BoundsXY> window;   ///< the part of the map to draw; all of it without one
  std::optional<NumberSet> levels;         ///< the levels to draw; all of them without a set
};

/// The widths that a picture may have.
inline constexpr double kSmallestPicture = 100.0;
inline constexpr double kLargestPicture = 16384.0;

// Reasons for what is not drawn.
inline constexpr std::string_view kNoNumbers = "coordinates that are no numbers";
inline constexpr std::string_view kTooLarge = "text too large for the picture";
inline constexpr std::string_view kOtherLevel = "on a level that was not chosen";
inline constexpr std::string_view kOutside = "outside the window";

/// Draws the features of a source and writes the picture to `out`; false when there was none to draw. A
/// picture without a window takes two sources: one to find the extent, and one to draw. Throws `Failure` when
/// it cannot, and when levels are chosen and there is no column of them. Whether all could be written is for
/// the stream to say.
bool WritePicture(const SourceOpener& open, const PictureOptions& options, PictureFormat format,
                  std::ostream& out, Account& account);

}  // namespace App
