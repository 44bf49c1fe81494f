#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

namespace App {

/// Why an element of a design gives no feature, or one that is not all it was.
namespace Reason {

// Skipped, and nothing is lost: what holds no graphics, and what the user did not ask for.
inline constexpr std::string_view kHeaderData = "settings of the design, no graphics";
inline constexpr std::string_view kGroupData = "group data, no graphics";
inline constexpr std::string_view kApplicationData = "data of an application, no graphics";
inline constexpr std::string_view kDeleted = "deleted";
inline constexpr std::string_view kOtherType = "of a type that was not chosen";
inline constexpr std::string_view kOtherLevel = "on a level that was not chosen";
inline constexpr std::string_view kOtherClass = "of a class that was not chosen";
inline constexpr std::string_view kOutside = "outside the window";

// Skipped, and lost.
inline constexpr std::string_view kLibraryData = "part of a cell library, not placed in the design";
inline constexpr std::string_view kUnknownType = "unknown element type";
inline constexpr std::string_view kNoCounterpart = "no counterpart on the map";
inline constexpr std::string_view kSharedCell = "shared cells are not resolved";
inline constexpr std::string_view kCutOff = "cut off by the end of the file";
inline constexpr std::string_view kShortHeader = "damaged: too short for its header";
inline constexpr std::string_view kDamaged = "damaged: holds less than it tells";
inline constexpr std::string_view kNoComponents = "no component that could be used";
inline constexpr std::string_view kNoPoints = "no points";
inline constexpr std::string_view kNoCharacters = "no characters";
inline constexpr std::string_view kTooDeep = "cells nested too deep";
inline constexpr std::string_view kStrayComponent = "component without its header";

// Approximated.
inline constexpr std::string_view kHeight = "z dropped";
inline constexpr std::string_view kFlattened = "curve given as chords within the tolerance";
inline constexpr std::string_view kGap = "gaps between components bridged";
inline constexpr std::string_view kLostComponents = "components missing or damaged";
inline constexpr std::string_view kNoArea = "too few points for an area, given as a line or point";
inline constexpr std::string_view kLostRing = "rings of too few points left out";
inline constexpr std::string_view kShortCurve = "too few points for a curve, given as a straight line string";
inline constexpr std::string_view kMirrored = "mirrored text given unmirrored";
inline constexpr std::string_view kLineBreak = "a backslash before n in its text: a line break in a pair";
inline constexpr std::string_view kMixedLines = "lines of different size or direction given alike";
inline constexpr std::string_view kPartOutside = "some of its points outside the window";
inline constexpr std::string_view kBoundary = "given as its boundary and rule elements";

/// Whether what was left out for this reason is missed by nobody.
[[nodiscard]] constexpr bool IsExpected(std::string_view reason) noexcept {
  constexpr std::string_view kExpected[] = {kHeaderData, kGroupData, kApplicationData,
                                            kDeleted,    kOtherType, kOtherLevel,
                                            kOtherClass, kOutside,   kPartOutside};
  return std::find(std::begin(kExpected), std::end(kExpected), reason) != std::end(kExpected);
}

/// Whether an element has graphics and was skipped because the user did not choose it.
[[nodiscard]] constexpr bool IsByChoice(std::string_view reason) noexcept {
  return IsExpected(reason) && reason != kHeaderData && reason != kGroupData && reason != kApplicationData &&
         reason != kDeleted;
}

}  // namespace Reason

}  // namespace App
