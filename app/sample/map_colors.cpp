#include "app/sample/map_colors.h"

namespace App::Sample {

namespace {

constexpr Pelor::MI::Color Rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return static_cast<Pelor::MI::Color>(red | green << 8U | blue << 16U);
}

}  // namespace

MapColors::MapColors(Palette& palette)
    : paper(palette.Find(Rgb(255, 255, 255)).index),
      land(palette.Find(Rgb(247, 243, 233)).index),
      water(palette.Find(Rgb(170, 206, 230)).index),
      bank(palette.Find(Rgb(104, 158, 198)).index),
      park(palette.Find(Rgb(213, 231, 186)).index),
      wood(palette.Find(Rgb(176, 209, 150)).index),
      tree(palette.Find(Rgb(110, 158, 86)).index),
      meadow(palette.Find(Rgb(229, 237, 205)).index),
      contour(palette.Find(Rgb(196, 168, 122)).index),
      building(palette.Find(Rgb(221, 203, 178)).index),
      wall(palette.Find(Rgb(160, 136, 104)).index),
      public_building(palette.Find(Rgb(232, 176, 150)).index),
      industry(palette.Find(Rgb(217, 208, 222)).index),
      square(palette.Find(Rgb(240, 228, 206)).index),
      kerb(palette.Find(Rgb(184, 176, 162)).index),
      main_road(palette.Find(Rgb(250, 217, 136)).index),
      track(palette.Find(Rgb(217, 145, 112)).index),
      turf(palette.Find(Rgb(163, 206, 138)).index),
      path(palette.Find(Rgb(150, 112, 72)).index),
      lettering(palette.Find(Rgb(52, 48, 44)).index),
      water_lettering(palette.Find(Rgb(40, 94, 140)).index),
      depths() {
  for (std::uint32_t i = 0; i < depths.size(); ++i) {
    depths[i] = palette.Find(Rgb(214 - 6 * i, 232 - 5 * i, 244 - 3 * i)).index;
  }
}

}  // namespace App::Sample
