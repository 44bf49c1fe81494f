#pragma once

#include "app/design/palette.h"

#include <array>
#include <cstdint>

namespace App::Sample {

/// The colours of the map, as indexes of its table. The first ten are those that every program knows.
struct MapColors {
  explicit MapColors(Palette& palette);

  static constexpr std::uint8_t kBlack = 0;
  static constexpr std::uint8_t kBlue = 1;
  static constexpr std::uint8_t kGreen = 2;
  static constexpr std::uint8_t kRed = 3;
  static constexpr std::uint8_t kYellow = 4;
  static constexpr std::uint8_t kMagenta = 5;
  static constexpr std::uint8_t kOrange = 6;
  static constexpr std::uint8_t kCyan = 7;
  static constexpr std::uint8_t kDarkGrey = 8;
  static constexpr std::uint8_t kLightGrey = 9;

  std::uint8_t paper;
  std::uint8_t land;
  std::uint8_t water;
  std::uint8_t bank;
  std::uint8_t park;
  std::uint8_t wood;
  std::uint8_t tree;
  std::uint8_t meadow;
  std::uint8_t contour;
  std::uint8_t building;
  std::uint8_t wall;
  std::uint8_t public_building;
  std::uint8_t industry;
  std::uint8_t square;
  std::uint8_t kerb;
  std::uint8_t main_road;
  std::uint8_t track;
  std::uint8_t turf;
  std::uint8_t path;
  std::uint8_t lettering;
  std::uint8_t water_lettering;
  std::array<std::uint8_t, 32> depths;  ///< from light to dark blue
};

}  // namespace App::Sample
