#include "app/sample/landscape.h"

#include <array>
#include <cmath>
#include <numbers>
#include <string_view>

namespace App::Sample {

namespace {

// Codes of justifications.
constexpr std::uint8_t kLeftBottom = 2;
constexpr std::uint8_t kCentreTop = 6;
constexpr std::uint8_t kCentre = 7;
constexpr std::uint8_t kCentreBottom = 8;
constexpr std::uint8_t kRightCentre = 13;

void DrawSurveyPoints(Sheet& sheet) {
  struct Place {
    Vanth::PointXY at;
    std::string_view name;
  };
  for (const Place& point :
       {Place{{245, 142}, "K12"}, Place{{1000, 400}, "K13"}, Place{{1150, 120}, "K14"}}) {
    sheet.Point({.level = kSurveyLevel, .color = MapColors::kRed, .weight = 3}, point.at);
    sheet.Text({.level = kSurveyLevel, .color = MapColors::kRed}, {point.at.x + 8, point.at.y - 4},
               point.name, {.height = 10, .justification = kLeftBottom});
  }
}

}  // namespace

void DrawNames(Sheet& sheet, const MapColors& colors) {
  const Look name = {.level = kNameLevel, .color = colors.lettering};
  const Look water = {.level = kNameLevel, .color = colors.water_lettering};
  sheet.Text(name, {250, 560}, "Brewer Street", {.height = 9, .justification = kCentre});
  sheet.Text(name, {540, 665}, "Linden Street", {.height = 9, .justification = kCentre});
  sheet.Text(name, {180, 715}, "Mill Lane", {.height = 9, .rotation_degrees = 90, .justification = kCentre});
  sheet.Text(name, {460, 510}, "Glass Lane", {.height = 9, .rotation_degrees = 90, .justification = kCentre});
  sheet.Text(name, {320, 715}, "Tower Lane", {.height = 9, .rotation_degrees = 90, .justification = kCentre});
  sheet.Text({.level = kNameLevel, .color = colors.lettering, .weight = 2}, {520, 460}, "Western Road",
             {.height = 10, .justification = kCentre});
  sheet.Text({.level = kNameLevel, .color = colors.lettering, .weight = 2}, {620, 690}, "North Road",
             {.height = 10, .rotation_degrees = 90, .justification = kCentre});
  sheet.Text({.level = kNameLevel, .color = colors.lettering, .weight = 2}, {862, 469}, "Eastern Road",
             {.height = 10, .rotation_degrees = 3.2, .justification = kCentre});
  sheet.Text(name, {424, 578}, "Market", {.height = 10, .justification = kCentreBottom});
  sheet.Text(name, {388, 386}, "Town hall", {.height = 10, .justification = kCentreTop});
  sheet.Text(name, {548, 133}, "Station", {.height = 10, .justification = kCentreBottom});
  sheet.Text(name, {745, 186}, "Glass works", {.height = 10, .justification = kCentreBottom});
  constexpr std::array<std::string_view, 2> kSports = {"Sports", "ground"};
  sheet.TextLines(name, {884, 378}, kSports, {.height = 10, .justification = kLeftBottom});
  sheet.Text({.level = kNameLevel, .color = colors.tree, .weight = 2}, {850, 545}, "CASTLE PARK",
             {.height = 14, .justification = kCentre, .spread = 0.9});
  sheet.Text({.level = kNameLevel, .color = colors.tree, .weight = 2}, {262, 104}, "Fox Hill",
             {.height = 14, .justification = kCentre});
  sheet.Text({.level = kNameLevel, .color = MapColors::kMagenta}, {1066, 300}, "Parish of Ash",
             {.height = 10, .rotation_degrees = 74, .justification = kCentre});
  sheet.Text(water, {860, 662}, "Swan Lake", {.height = 14, .justification = kCentre});
  for (const double x : {200.0, 860.0}) {
    const double slope = std::atan2(RiverAt(x + 20) - RiverAt(x - 20), 40) * 180 / std::numbers::pi;
    sheet.Text(water, {x, RiverAt(x)}, "River Ouzel",
               {.height = 15, .rotation_degrees = slope, .justification = kCentre, .spread = 0.75});
  }
  sheet.Text(name, {540, 332}, "School", {.height = 10, .justification = kCentreBottom});
  sheet.Text(name, {250, 430}, "Orchard", {.height = 9, .justification = kCentreBottom});
  sheet.Text(water, {566, 190}, "Mill pond", {.height = 10, .justification = kRightCentre});
  DrawSurveyPoints(sheet);
  // What stood here before.
  sheet.Text({.level = kNameLevel, .color = MapColors::kRed, .deleted = true}, {730, 630}, "Old mill",
             {.height = 14});
}

}  // namespace App::Sample
