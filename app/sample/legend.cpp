#include "app/sample/landscape.h"

#include <array>
#include <iterator>
#include <string>
#include <string_view>

namespace App::Sample {

namespace {

constexpr double kLeft = 1230;
constexpr double kRight = 1560;
constexpr double kInner = kLeft + 24;

constexpr std::uint8_t kLeftCentre = 1;
constexpr std::uint8_t kCentreTop = 6;
constexpr std::uint8_t kCentreBottom = 8;

Look Frame(const MapColors& colors, std::uint8_t weight) {
  return {.level = kLegendLevel, .color = colors.lettering, .weight = weight};
}

void DrawColors(Sheet& sheet, const MapColors& colors) {
  for (std::uint8_t i = 0; i < 10; ++i) {
    const double x = kInner + 29.0 * i;
    sheet.Rectangle({.level = kLegendLevel, .color = colors.lettering, .fill = i}, {x, 500}, 22, 22);
    sheet.Text(Frame(colors, 0), {x + 11, 496}, std::to_string(i),
               {.height = 10, .justification = kCentreTop});
  }
}

void DrawSymbols(Sheet& sheet, const MapColors& colors) {
  struct Row {
    Look look;
    std::string_view name;
  };
  const Row rows[] = {
      {{.level = kLegendLevel, .color = MapColors::kRed, .weight = 3}, "survey point"},
      {{.level = kLegendLevel, .color = MapColors::kOrange, .weight = 1}, "lamp"},
      {{.level = kLegendLevel, .color = colors.tree, .weight = 2}, "fruit tree"},
      {{.level = kLegendLevel, .color = colors.water_lettering, .weight = 1}, "spring"},
  };
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const std::size_t column = i % 2;
    const std::size_t line = i / 2;
    const double x = kInner + 8 + 150 * static_cast<double>(column);
    const double y = 592 - 20 * static_cast<double>(line);
    sheet.Point(rows[i].look, {x, y});
    sheet.Text(Frame(colors, 0), {x + 18, y}, rows[i].name, {.height = 10, .justification = kLeftCentre});
  }
}

void DrawStyles(Sheet& sheet, const MapColors& colors) {
  constexpr std::array<std::string_view, 8> kNames = {"solid",       "dots",         "medium dashes",
                                                      "long dashes", "dot and dash", "short dashes",
                                                      "two dots",    "long, short"};
  std::uint8_t line_style = 0;
  for (const std::string_view name : kNames) {
    const double y = 440 - 20.0 * line_style;
    sheet.Line({.level = kLegendLevel, .color = colors.lettering, .weight = 1, .line_style = line_style},
               {kInner, y}, {kInner + 150, y});
    sheet.Text(Frame(colors, 0), {kInner + 164, y}, name, {.height = 10, .justification = kLeftCentre});
    ++line_style;
  }
}

/// All weights, the lighter over the heavier, and the first sixteen side by side.
void DrawWeights(Sheet& sheet, const MapColors& colors) {
  for (std::uint8_t i = 32; i-- > 0;) {
    sheet.Line({.level = kLegendLevel, .color = colors.depths[31U - i], .weight = i}, {kInner + 10, 232},
               {kRight - 34, 232});
  }
  double x = kInner + 2;
  for (std::uint8_t i = 0; i < 16; ++i) {
    sheet.Line({.level = kLegendLevel, .color = colors.lettering, .weight = i}, {x, 166}, {x, 188});
    x += 9 + 1.35 * i;
  }
}

void DrawNorthArrow(Sheet& sheet, const MapColors& colors) {
  constexpr Vanth::PointXY kFoot = {1512, 664};
  const Look edge = {.level = kLegendLevel, .color = colors.lettering};
  const Look dark = {.level = kLegendLevel, .color = colors.lettering, .fill = colors.lettering};
  sheet.BeginCell({.level = kLegendLevel}, "NORTH", kFoot);
  sheet.Area(dark, {kFoot, {kFoot.x, kFoot.y + 64}, {kFoot.x - 17, kFoot.y - 12}});
  sheet.Area(edge, {kFoot, {kFoot.x, kFoot.y + 64}, {kFoot.x + 17, kFoot.y - 12}});
  sheet.Text(Frame(colors, 2), {kFoot.x, kFoot.y + 70}, "N", {.height = 18, .justification = kCentreBottom});
  sheet.End();
}

void DrawScale(Sheet& sheet, const MapColors& colors) {
  for (int i = 0; i < 4; ++i) {
    const int fill = i % 2 == 0 ? colors.lettering : colors.paper;
    sheet.Rectangle({.level = kLegendLevel, .color = colors.lettering, .fill = fill}, {kInner + 50.0 * i, 90},
                    50, 8);
  }
  for (const int metres : {0, 100, 200}) {
    sheet.Text(Frame(colors, 0), {kInner + metres, 86}, std::to_string(metres) + (metres == 200 ? " m" : ""),
               {.height = 11, .justification = kCentreTop});
  }
}

}  // namespace

void DrawLegend(Sheet& sheet, const MapColors& colors) {
  sheet.Rectangle(Frame(colors, 2), {0, 0}, 1200, 800);
  sheet.Rectangle({.level = kLegendLevel, .color = colors.lettering, .weight = 2, .fill = colors.paper},
                  {kLeft, 0}, kRight - kLeft, 800);
  sheet.Text(Frame(colors, 3), {kInner, 736}, "MOSSWICK", {.height = 34, .spread = 0.75});
  constexpr std::array<std::string_view, 3> kLines = {"Town map of a place", "that is on no other map,",
                                                      "drawn by a program"};
  sheet.TextLines(Frame(colors, 0), {kInner, 664}, kLines, {.height = 13, .spread = 0.58});
  DrawNorthArrow(sheet, colors);

  const Lettering heading = {.height = 13};
  sheet.Text(Frame(colors, 2), {kInner, 610}, "Symbols", heading);
  DrawSymbols(sheet, colors);
  sheet.Text(Frame(colors, 2), {kInner, 534}, "Colours", heading);
  DrawColors(sheet, colors);
  sheet.Text(Frame(colors, 2), {kInner, 456}, "Line styles", heading);
  DrawStyles(sheet, colors);
  sheet.Text(Frame(colors, 2), {kInner, 262}, "Weights", heading);
  DrawWeights(sheet, colors);
  sheet.Text(Frame(colors, 2), {kInner, 108}, "Scale", heading);
  DrawScale(sheet, colors);
  sheet.Text({.level = kLegendLevel, .color = MapColors::kDarkGrey}, {kInner, 30}, "Sheet 1 of 1, metres, 2D",
             {.height = 9, .justification = 2});
}

}  // namespace App::Sample
