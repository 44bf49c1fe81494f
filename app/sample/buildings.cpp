#include "app/sample/landscape.h"

#include <array>
#include <cstdint>

namespace App::Sample {

namespace {

/// Small numbers that look random and are the same every time.
class Chance {
 public:
  /// From `low` to `high`, in steps of a half.
  double Between(int low, int high) {
    state_ = state_ * 1103515245U + 12345U;
    const auto steps = static_cast<unsigned>(2 * (high - low) + 1);
    return low + static_cast<double>((state_ >> 16U) % steps) / 2;
  }

 private:
  std::uint32_t state_ = 7;
};

class Town {
 public:
  Town(Sheet& sheet, const MapColors& colors) : sheet_(sheet), colors_(colors) {}

  /// A row of houses that stand on one line, their backs `depth` away: upwards or, negative, downwards.
  void Row(double x, double end, double y, double depth) {
    while (true) {
      const double width = chance_.Between(13, 24);
      if (x + width > end) return;
      House(x, y, width, depth > 0 ? chance_.Between(13, 19) : -chance_.Between(13, 19));
      x += width + chance_.Between(3, 7);
    }
  }

  [[nodiscard]] Look Next() {
    return {.level = kBuildingLevel, .color = colors_.wall, .fill = colors_.building, .key = ++last_key_};
  }

 private:
  /// Every fifth has a wing.
  void House(double x, double y, double width, double depth) {
    const Look look = Next();
    const double back = y + depth;
    if (last_key_ % 5 != 0) {
      sheet_.Area(look, {{x, y}, {x + width, y}, {x + width, back}, {x, back}});
      return;
    }
    const double wing = back + depth / 2;
    sheet_.Area(look, {{x, y},
                       {x + width, y},
                       {x + width, wing},
                       {x + width * 0.55, wing},
                       {x + width * 0.55, back},
                       {x, back}});
  }

  Sheet& sheet_;
  const MapColors& colors_;
  Chance chance_;
  std::uint32_t last_key_ = 0;
};

/// The fountain of the square: a cell with its basin as a cell inside.
void DrawFountain(Sheet& sheet, const MapColors& colors, Vanth::PointXY centre) {
  const Look stone = {.level = kBuildingLevel, .color = colors.wall, .fill = colors.industry};
  const Look water = {.level = kBuildingLevel, .color = colors.bank, .fill = colors.water};
  sheet.BeginCell({.level = kBuildingLevel}, "FOUNT", centre);
  sheet.Ellipse(stone, centre, 11, 11);
  sheet.BeginCell({.level = kBuildingLevel}, "BASIN", centre);
  sheet.Ellipse(water, centre, 8, 8);
  sheet.Point({.level = kBuildingLevel, .color = colors.water_lettering, .weight = 4}, centre);
  sheet.End();
  sheet.End();
}

/// A nave with a half round apse, which is a complex shape of lines and an arc, and a tower.
void DrawChurch(Sheet& sheet, const MapColors& colors) {
  const Look church = {
      .level = kBuildingLevel, .color = colors.wall, .weight = 1, .fill = colors.public_building, .key = 900};
  const Look part = {.level = kBuildingLevel, .color = colors.wall, .weight = 1};
  sheet.BeginComplexShape(church);
  sheet.Path(part, {{412, 600}, {352, 600}, {352, 626}, {412, 626}});
  sheet.Arc(part, {412, 613}, 13, 90, -180);
  sheet.End();
  sheet.Rectangle(
      {.level = kBuildingLevel, .color = colors.wall, .weight = 1, .fill = colors.path, .key = 901},
      {338, 605}, 16, 16);
}

void DrawIndustry(Sheet& sheet, const MapColors& colors) {
  const Look works = {.level = kBuildingLevel, .color = colors.wall, .fill = colors.industry};
  sheet.Rectangle(works, {660, 130}, 74, 42);
  sheet.Area(works, {{752, 124}, {830, 124}, {830, 146}, {800, 146}, {800, 176}, {752, 176}});
  for (const double x : {852.0, 884.0, 868.0}) sheet.Ellipse(works, {x, x == 868 ? 166.0 : 140.0}, 12, 12);
  // The platform, and the station.
  sheet.Rectangle({.level = kRailwayLevel, .color = colors.wall, .fill = MapColors::kLightGrey}, {500, 106},
                  96, 6);
  sheet.Rectangle({.level = kBuildingLevel, .color = colors.wall, .fill = colors.public_building, .key = 902},
                  {526, 112}, 44, 16);
}

void DrawSchool(Sheet& sheet, const MapColors& colors) {
  sheet.Rectangle({.level = kBuildingLevel, .color = colors.square, .fill = colors.square}, {478, 322}, 126,
                  98);
  sheet.Area(
      {.level = kBuildingLevel, .color = colors.wall, .fill = colors.public_building, .key = 904},
      {{486, 376}, {486, 412}, {596, 412}, {596, 352}, {574, 352}, {574, 388}, {524, 388}, {524, 376}});
}

}  // namespace

void DrawBuildings(Sheet& sheet, const MapColors& colors) {
  Town town(sheet, colors);
  sheet.Rectangle({.level = kBuildingLevel, .color = colors.square, .fill = colors.square}, {330, 570}, 120,
                  85);
  constexpr std::array<double, 5> kStreets = {40, 180, 320, 460, 620};
  for (std::size_t i = 0; i + 1 < kStreets.size(); ++i) {
    const double left = kStreets[i] + 11;
    const double right = kStreets[i + 1] - 10;
    const Look garden = {.level = kGreenLevel, .color = colors.meadow, .fill = colors.meadow};
    sheet.Rectangle(garden, {left, 677}, right - left, 82);
    if (i != 2) sheet.Rectangle(garden, {left, 572}, right - left, 82);
    sheet.Rectangle(garden, {left, 474}, right - left, 75);
    town.Row(left, right, 759, -1);
    town.Row(left, right, 677, 1);
    if (i != 2) {
      town.Row(left, right, 654, -1);
      town.Row(left, right, 572, 1);
    }
    town.Row(left, right, 549, -1);
    town.Row(left, right, 474, 1);
    if (i == 0 || i == 3) town.Row(left, right, i == 0 ? 425 : 446, -1);
  }
  town.Row(660, 930, 447, -1);
  town.Row(960, 1060, 459, -1);
  DrawSchool(sheet, colors);
  DrawChurch(sheet, colors);
  DrawFountain(sheet, colors, {428, 640});
  DrawIndustry(sheet, colors);

  // The town hall has a court: a shape with the hole bit. Its row is named by a linkage of the short form.
  sheet.AreaWithShortLinkage({.level = kBuildingLevel, .color = colors.wall, .weight = 1, .key = 70001},
                             {{344, 575}, {400, 575}, {400, 590}, {344, 590}});
  sheet.Rectangle({.level = kBuildingLevel, .color = colors.wall, .fill = colors.public_building, .key = 903},
                  {352, 390}, 72, 42);
  sheet.Rectangle({.level = kBuildingLevel, .color = colors.wall, .fill = colors.square, .hole = true},
                  {370, 401}, 36, 20);
  // Pulled down.
  sheet.Rectangle({.level = kBuildingLevel, .color = colors.wall, .fill = MapColors::kRed, .deleted = true},
                  {700, 600}, 60, 60);
}

}  // namespace App::Sample
