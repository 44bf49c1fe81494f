#pragma once

#include "app/sample/map_colors.h"
#include "app/sample/sheet.h"

namespace App::Sample {

// The parts of the map, drawn one over the other. The map is 1200 by 800 metres, with its lower left corner
// at (0, 0); the legend stands to its right.

void DrawLandscape(Sheet& sheet, const MapColors& colors);
void DrawRoads(Sheet& sheet, const MapColors& colors);
void DrawBuildings(Sheet& sheet, const MapColors& colors);
void DrawSportsGround(Sheet& sheet, const MapColors& colors);
void DrawGreenery(Sheet& sheet, const MapColors& colors);
void DrawNames(Sheet& sheet, const MapColors& colors);
void DrawLegend(Sheet& sheet, const MapColors& colors);

/// The middle of the river at this distance from the left edge.
[[nodiscard]] double RiverAt(double x);
/// The railway at this distance from the lower edge, north of the bend that ends at 232.
[[nodiscard]] double RailwayAt(double y);

/// Levels of the design, by what is on them.
enum Level : std::uint8_t {
  kGroundLevel = 1,
  kWaterLevel = 2,
  kGreenLevel = 3,
  kReliefLevel = 4,
  kRoadLevel = 10,
  kRailwayLevel = 11,
  kPathLevel = 12,
  kBuildingLevel = 20,
  kSportsLevel = 21,
  kTreeLevel = 30,
  kSupplyLevel = 31,
  kBoundaryLevel = 40,
  kSurveyLevel = 41,
  kNameLevel = 50,
  kLegendLevel = 60,
  kDraftLevel = 63,
};

}  // namespace App::Sample
