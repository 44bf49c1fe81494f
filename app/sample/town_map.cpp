#include "app/sample/town_map.h"

#include "app/design/header_element.h"
#include "app/design/palette.h"
#include "app/sample/landscape.h"
#include "app/sample/map_colors.h"
#include "app/sample/sheet.h"

namespace App::Sample {

void WriteTownMap(ElementBytes& bytes) {
  constexpr std::uint16_t kEndOfDesign = 0xFFFF;
  constexpr std::size_t kBlock = 512;
  WorkingUnits units;
  units.subs_per_master = 1000;
  units.uors_per_sub = 1;
  WriteHeaderElement(bytes, units, {0, 0, 1560, 800});

  Palette palette;
  const MapColors colors(palette);
  palette.Write(bytes);
  Sheet sheet(bytes);
  DrawLandscape(sheet, colors);
  DrawRoads(sheet, colors);
  DrawBuildings(sheet, colors);
  DrawSportsGround(sheet, colors);
  DrawGreenery(sheet, colors);
  DrawNames(sheet, colors);
  DrawLegend(sheet, colors);

  bytes.Word(kEndOfDesign);
  bytes.Zeros((kBlock - bytes.Size() % kBlock) % kBlock);
}

}  // namespace App::Sample
