#include "app/sample/landscape.h"

#include <cmath>
#include <numbers>

namespace App::Sample {

namespace {

constexpr Vanth::PointXY kRoundabout = {620, 460};

/// A quay that follows the river: a curve that runs through these places.
Places Quay() {
  Places places;
  for (double x = 30; x <= 620; x += 59) places.push_back({x, RiverAt(x) + 52});
  return places;
}

/// The side streets of the town.
void DrawStreets(Sheet& sheet, const Look& look) {
  for (const double x : {40.0, 180.0, 320.0, 460.0}) sheet.Line(look, {x, RiverAt(x) + 52}, {x, 770});
  for (const double y : {560.0, 665.0, 770.0}) sheet.Line(look, {40, y}, {620, y});
  sheet.SmoothPath(look, Quay());
  sheet.Path(look, {{620, 330}, {900, 330}, {930, 345}, {944, 380}, {944, 470}});
}

/// The main road is two chains that meet at the roundabout.
void DrawMainRoad(Sheet& sheet, const Look& look) {
  // Two bends of the same radius bring it up by twenty metres.
  constexpr double kRadius = 120;
  const double bend = std::acos(1 - 10 / kRadius);
  const double bend_degrees = bend * 180 / std::numbers::pi;
  const double half = kRadius * std::sin(bend);
  sheet.BeginChain(look);
  sheet.Path(look, {{7, 440}, {40, 440}});
  sheet.Arc(look, {40, 440 + kRadius}, kRadius, 270, bend_degrees);
  sheet.Arc(look, {40 + 2 * half, 460 - kRadius}, kRadius, 90 + bend_degrees, -bend_degrees);
  sheet.Path(look, {{40 + 2 * half, 460}, kRoundabout});
  sheet.End();
  sheet.BeginChain(look);
  sheet.Path(look, {kRoundabout, {620, 130}});
  sheet.Arc(look, {700, 130}, 80, 180, 90);
  sheet.Path(look, {{700, 50}, {1010, 50}, {1193, 22}});
  sheet.End();
  sheet.Path(look, {kRoundabout, {780, 464}, {1000, 478}, {1090, 500}, {1193, 512}});
  sheet.Path(look, {kRoundabout, {620, 793}});
  sheet.Ellipse(look, kRoundabout, 17, 17);
}

void DrawPaths(Sheet& sheet, const MapColors& colors) {
  const Look look = {.level = kPathLevel, .color = colors.path, .weight = 1, .line_style = 5};
  // Around the lake, over the hill with closer turns at its end, and a half circle as a rational curve.
  sheet.BSpline(
      look,
      {.order = 4,
       .closed = true,
       .poles =
           {{700, 655}, {735, 560}, {860, 555}, {990, 580}, {1010, 680}, {930, 752}, {800, 758}, {715, 735}},
       .knots = {},
       .weights = {}});
  sheet.BSpline(look, {.order = 4,
                       .closed = false,
                       .poles = {{30, 96},
                                 {110, 190},
                                 {170, 90},
                                 {245, 150},
                                 {320, 185},
                                 {380, 95},
                                 {430, 112},
                                 {470, 120},
                                 {500, 109}},
                       .knots = {0.12, 0.3, 0.45, 0.6, 0.85},
                       .weights = {}});
  const double quarter = std::numbers::sqrt2 / 2;
  sheet.BSpline(look, {.order = 3,
                       .closed = false,
                       .poles = {{680, 500}, {680, 536}, {716, 536}, {752, 536}, {752, 500}},
                       .knots = {0.5, 0.5},
                       .weights = {0.9999999, quarter, 0.9999999, quarter, 0.9999999}});
}

void DrawRailway(Sheet& sheet, const MapColors& colors) {
  const Look rails = {.level = kRailwayLevel, .color = MapColors::kDarkGrey, .weight = 4};
  const Look sleepers = {.level = kRailwayLevel, .color = colors.paper, .weight = 2, .line_style = 2};
  for (const Look& look : {rails, sleepers}) {
    constexpr double kBendEnd = 231.59597133486623;
    sheet.BeginChain(look);
    sheet.Path(look, {{3, 70}, {420, 100}, {800, 100}});
    sheet.Arc(look, {800, 300}, 200, 270, 70);
    sheet.Path(look, {{RailwayAt(kBendEnd), kBendEnd}, {RailwayAt(797), 797}});
    sheet.End();
  }
}

}  // namespace

double RailwayAt(double y) {
  // From the end of a bend of 200 metres, at 70 degrees.
  const double turn = 70 * std::numbers::pi / 180;
  const double x = 800 + 200 * std::sin(turn);
  return x + (y - 300 + 200 * std::cos(turn)) / std::tan(turn);
}

void DrawRoads(Sheet& sheet, const MapColors& colors) {
  DrawPaths(sheet, colors);
  DrawStreets(sheet, {.level = kRoadLevel, .color = colors.kerb, .weight = 8});
  DrawMainRoad(sheet, {.level = kRoadLevel, .color = colors.kerb, .weight = 12});
  DrawStreets(sheet, {.level = kRoadLevel, .color = colors.paper, .weight = 6});
  DrawMainRoad(sheet, {.level = kRoadLevel, .color = colors.main_road, .weight = 9});
  sheet.Ellipse({.level = kRoadLevel, .color = colors.kerb, .fill = colors.park}, kRoundabout, 11, 11);
  DrawRailway(sheet, colors);

  // A by-pass that was planned: a draft, then given up.
  sheet.Path({.level = kDraftLevel, .color = MapColors::kCyan, .line_style = 1, .element_class = 2},
             {{0, 500}, {26, 640}, {20, 800}});
  sheet.BeginChain({.level = kDraftLevel, .color = MapColors::kRed, .weight = 8, .deleted = true});
  sheet.Path({.level = kDraftLevel, .color = MapColors::kRed, .weight = 8},
             {{0, 600}, {400, 620}, {700, 600}});
  sheet.Arc({.level = kDraftLevel, .color = MapColors::kRed, .weight = 8}, {700, 500}, 100, 90, -90);
  sheet.End();
}

}  // namespace App::Sample
