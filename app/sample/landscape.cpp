#include "app/sample/landscape.h"

#include <cmath>
#include <numbers>

namespace App::Sample {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;

/// A wavy ring around a centre.
Places Blob(Vanth::PointXY centre, double a, double b, double waviness, double phase, int count) {
  Places places;
  for (int i = 0; i < count; ++i) {
    const double t = kTurn * i / count;
    const double r = 1 + waviness * (std::sin(3 * t + phase) + 0.6 * std::sin(5 * t - 2 * phase));
    places.push_back({centre.x + a * r * std::cos(t), centre.y + b * r * std::sin(t)});
  }
  return places;
}

void DrawRiver(Sheet& sheet, const MapColors& colors) {
  constexpr double kStep = 8.0;
  Places banks;
  for (double x = 0; x <= 1200; x += kStep) banks.push_back({x, RiverAt(x) + 19 + 4 * std::sin(x / 61)});
  for (double x = 1200; x >= 0; x -= kStep) banks.push_back({x, RiverAt(x) - 19 - 3 * std::sin(x / 83 + 1)});
  sheet.Area({.level = kWaterLevel, .color = colors.bank, .fill = colors.water}, banks);
}

void DrawFields(Sheet& sheet, const MapColors& colors) {
  const auto field = [&](std::uint8_t color, const Places& places) {
    sheet.Area({.level = kGreenLevel, .color = colors.contour, .fill = color}, places);
  };
  field(colors.meadow, {{1122, 60}, {1188, 52}, {1188, 170}, {1128, 150}});
  field(colors.square, {{1108, 190}, {1126, 162}, {1188, 184}, {1188, 268}, {1104, 262}});
  field(colors.park, {{1126, 330}, {1188, 334}, {1188, 420}, {1120, 424}});
  field(colors.meadow, {{20, 12}, {250, 12}, {262, 74}, {20, 58}});
  field(colors.square, {{260, 12}, {470, 12}, {500, 90}, {420, 86}, {272, 76}});
  // Not tilled: no fill.
  sheet.Area({.level = kGreenLevel, .color = colors.contour}, {{480, 12}, {590, 12}, {590, 90}, {512, 90}});
}

/// The lake with its two islands is one area with holes.
void DrawLake(Sheet& sheet, const MapColors& colors) {
  const Vanth::PointXY centre = {850, 655};
  const Look water = {.level = kWaterLevel, .color = colors.bank, .fill = colors.water};
  const Look island = {.level = kWaterLevel, .color = colors.bank, .hole = true};
  sheet.BeginCell({.level = kWaterLevel}, "", centre);
  sheet.Area(water, Blob(centre, 120, 72, 0.05, 0.7, 72));
  sheet.Area(island, Blob({815, 668}, 26, 15, 0.06, 2.0, 28));
  sheet.Area(island, Blob({902, 640}, 13, 9, 0.05, 0.2, 20));
  sheet.End();
}

void DrawHill(Sheet& sheet, const MapColors& colors) {
  const Vanth::PointXY top = {245, 142};
  sheet.Area({.level = kGreenLevel, .color = colors.wood, .fill = colors.wood},
             Blob({250, 140}, 150, 48, 0.05, 1.1, 60));
  for (int i = 0; i < 4; ++i) {
    const double size = 1.0 - 0.22 * i;
    Places ring = Blob(top, 165 * size, 54 * size, 0.05, 1.1 + 0.15 * i, 40);
    ring.push_back(ring.front());
    sheet.SmoothPath(
        {.level = kReliefLevel, .color = colors.contour, .weight = static_cast<std::uint8_t>(i == 2)}, ring);
  }
}

}  // namespace

double RiverAt(double x) {
  return 265 + 36 * std::sin(x / 140 + 0.6);
}

void DrawLandscape(Sheet& sheet, const MapColors& colors) {
  sheet.Rectangle({.level = kGroundLevel, .color = colors.land, .fill = colors.land}, {0, 0}, 1200, 800);
  sheet.Area({.level = kGreenLevel, .color = colors.meadow, .fill = colors.meadow}, {{0, 84},
                                                                                     {600, 84},
                                                                                     {600, RiverAt(600)},
                                                                                     {440, RiverAt(440)},
                                                                                     {280, RiverAt(280)},
                                                                                     {140, RiverAt(140)},
                                                                                     {0, RiverAt(0)}});
  sheet.Area({.level = kGreenLevel, .color = colors.park, .fill = colors.park},
             {{645, 488}, {1050, 503}, {1062, 620}, {1040, 776}, {645, 776}});
  sheet.Area({.level = kGreenLevel, .color = colors.wood, .fill = colors.wood},
             {{1200, 545}, {1200, 800}, {1092, 800}, {1100, 720}, {1128, 660}, {1120, 600}, {1150, 560}});
  DrawFields(sheet, colors);
  DrawHill(sheet, colors);
  DrawRiver(sheet, colors);
  DrawLake(sheet, colors);
  // A pond that is an ellipse, turned, and the springs that feed it.
  sheet.Ellipse({.level = kWaterLevel, .color = colors.bank, .fill = colors.water}, {492, 150}, 44, 19, 28);
  for (const double x : {440.0, 452.0, 466.0}) {
    sheet.Point({.level = kWaterLevel, .color = colors.water_lettering, .weight = 1},
                {x, 176 - (x - 440) / 3});
  }
}

}  // namespace App::Sample
