#include "app/sample/landscape.h"

namespace App::Sample {

namespace {

/// Both straights and both bends of a track, as one complex shape.
void DrawOval(Sheet& sheet, const Look& look, Vanth::PointXY centre, double straight, double radius) {
  const double left = centre.x - straight / 2;
  const double right = centre.x + straight / 2;
  const Look part = {.level = look.level, .color = look.color, .weight = look.weight};
  sheet.BeginComplexShape(look);
  sheet.Line(part, {left, centre.y - radius}, {right, centre.y - radius});
  sheet.Arc(part, {right, centre.y}, radius, 270, 180);
  sheet.Line(part, {right, centre.y + radius}, {left, centre.y + radius});
  sheet.Arc(part, {left, centre.y}, radius, 90, 180);
  sheet.End();
}

}  // namespace

void DrawSportsGround(Sheet& sheet, const MapColors& colors) {
  constexpr Vanth::PointXY kCentre = {778, 385};
  DrawOval(sheet, {.level = kSportsLevel, .color = colors.wall, .fill = colors.track}, kCentre, 100, 43);
  DrawOval(sheet, {.level = kSportsLevel, .color = colors.paper, .fill = colors.turf}, kCentre, 100, 33);

  // The lines of the pitch belong to one graphic group.
  const Look line = {.level = kSportsLevel, .color = colors.paper, .weight = 1, .group = 1};
  sheet.Rectangle(line, {kCentre.x - 50, kCentre.y - 27}, 100, 54);
  sheet.Line(line, {kCentre.x, kCentre.y - 27}, {kCentre.x, kCentre.y + 27});
  sheet.Ellipse(line, kCentre, 9, 9);
  sheet.Point(line, kCentre);
  for (const double side : {-1.0, 1.0}) {
    const double goal = kCentre.x + side * 50;
    sheet.Path(line, {{goal, kCentre.y - 14},
                      {goal - side * 16, kCentre.y - 14},
                      {goal - side * 16, kCentre.y + 14},
                      {goal, kCentre.y + 14}});
    sheet.Arc(line, {goal - side * 11, kCentre.y}, 9, side < 0 ? -56 : 124, 112);
  }
}

}  // namespace App::Sample
