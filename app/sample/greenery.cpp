#include "app/sample/landscape.h"

#include <array>
#include <cmath>

namespace App::Sample {

namespace {

void DrawTree(Sheet& sheet, const MapColors& colors, Vanth::PointXY place, double radius) {
  sheet.BeginCell({.level = kTreeLevel}, "TREE", place);
  sheet.Ellipse({.level = kTreeLevel, .color = colors.tree, .fill = colors.wood}, place, radius, radius);
  sheet.Point({.level = kTreeLevel, .color = colors.tree, .weight = 1}, place);
  sheet.End();
}

void DrawTrees(Sheet& sheet, const MapColors& colors) {
  constexpr std::array<Vanth::PointXY, 26> kPark = {{
      {662, 512},  {668, 560},  {658, 600},  {672, 640},  {660, 690}, {676, 735},  {700, 760},
      {745, 764},  {790, 768},  {850, 766},  {905, 764},  {960, 762}, {1015, 752}, {1028, 700},
      {1030, 650}, {1040, 600}, {1036, 550}, {1000, 522}, {950, 518}, {900, 520},  {850, 516},
      {800, 520},  {776, 548},  {1008, 560}, {985, 735},  {690, 700},
  }};
  for (std::size_t i = 0; i < kPark.size(); ++i) {
    DrawTree(sheet, colors, kPark[i], 7.5 + static_cast<double>(i % 3));
  }
  for (double x = 60; x <= 600; x += 27) DrawTree(sheet, colors, {x, RiverAt(x) + 36}, 6);
  for (double x = 640; x <= 900; x += 26) DrawTree(sheet, colors, {x, 317}, 6);
  for (double x = 1118; x <= 1200; x += 22) {
    for (double y = 590 + (x - 1118) / 3; y <= 790; y += 24) {
      const bool in_wood = x > 1130 || y > 715;
      if (in_wood && std::fabs(x - 6 - RailwayAt(y)) > 15) DrawTree(sheet, colors, {x - 6, y}, 8);
    }
  }
}

/// Seats around a stage.
void DrawTheatre(Sheet& sheet, const MapColors& colors) {
  constexpr Vanth::PointXY kStage = {716, 590};
  for (int i = 0; i < 5; ++i) {
    sheet.Arc(
        {.level = kPathLevel, .color = colors.path, .weight = static_cast<std::uint8_t>(i == 4 ? 1 : 0)},
        kStage, 12 + 5 * i, 200, 140);
  }
  sheet.Rectangle({.level = kPathLevel, .color = colors.path, .fill = colors.square}, {704, 588}, 24, 8);
}

/// A line on pylons, which are cells.
void DrawPowerLine(Sheet& sheet) {
  const Places pylons = {{640, 30}, {760, 78}, {915, 96}, {1060, 150}, {1180, 235}};
  const Look wire = {.level = kSupplyLevel, .color = MapColors::kRed, .line_style = 4};
  sheet.Path(wire, pylons);
  for (const Vanth::PointXY& at : pylons) {
    const Look beam = {.level = kSupplyLevel, .color = MapColors::kRed, .weight = 1};
    sheet.BeginCell({.level = kSupplyLevel}, "PYLON", at);
    sheet.Line(beam, {at.x - 6, at.y - 6}, {at.x + 6, at.y + 6});
    sheet.Line(beam, {at.x - 6, at.y + 6}, {at.x + 6, at.y - 6});
    sheet.Rectangle(beam, {at.x - 6, at.y - 6}, 12, 12);
    sheet.End();
  }
}

}  // namespace

void DrawGreenery(Sheet& sheet, const MapColors& colors) {
  DrawTheatre(sheet, colors);
  DrawTrees(sheet, colors);
  DrawPowerLine(sheet);

  // The lamps of the road to the east are one point string.
  Places lamps;
  for (double x = 660; x <= 990; x += 30) lamps.push_back({x, 474 + (x - 660) * 0.055});
  sheet.PointString({.level = kSupplyLevel, .color = MapColors::kOrange, .weight = 1}, lamps);

  // So are the trees of the orchard.
  Places orchard;
  for (double y = 369; y <= 417; y += 12) {
    for (double x = 208; x <= 292; x += 12) orchard.push_back({x, y});
  }
  sheet.Rectangle({.level = kGreenLevel, .color = colors.contour, .fill = colors.meadow}, {200, 361}, 100,
                  64);
  sheet.PointString({.level = kTreeLevel, .color = colors.tree, .weight = 2}, orchard);

  const Look boundary = {.level = kBoundaryLevel, .color = MapColors::kMagenta, .weight = 2, .line_style = 6};
  sheet.Path(
      boundary,
      {{1075, 0}, {1092, 120}, {1080, 220}, {1110, 330}, {1102, 430}, {1120, 520}, {1082, 640}, {1070, 800}});
}

}  // namespace App::Sample
