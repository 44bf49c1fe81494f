#include "app/design/palette.h"

#include "app/design/color_table.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <tests/dgn/words.h>

namespace App {
namespace {

namespace MI = Pelor::MI;

MI::Color Rgb(int red, int green, int blue) {
  return red | green << 8 | blue << 16;
}

ColorTable Decoded(const Palette& palette) {
  ElementBytes bytes;
  palette.Write(bytes);
  ColorTable table;
  EXPECT_TRUE(table.Decode(ElementView({bytes.Data(), bytes.Size()}, false)));
  table.KeepIndex0(true);
  return table;
}

TEST(PaletteTest, KeepsTheUsualIndexesOfUsualColors) {
  Palette palette;
  const MI::Color usual[] = {Rgb(0, 0, 0),     Rgb(0, 0, 255),    Rgb(0, 255, 0),   Rgb(255, 0, 0),
                             Rgb(255, 255, 0), Rgb(255, 0, 255),  Rgb(255, 128, 0), Rgb(0, 255, 255),
                             Rgb(64, 64, 64),  Rgb(192, 192, 192)};
  for (int i = 9; i >= 0; --i) {
    const Palette::Match match = palette.Find(usual[i]);
    EXPECT_EQ(match.index, i);
    EXPECT_TRUE(match.is_exact);
  }
}

TEST(PaletteTest, GivesOtherColorsTheIndexesFromTenOn) {
  Palette palette;
  EXPECT_EQ(palette.Find(Rgb(255, 255, 255)).index, 10);
  EXPECT_EQ(palette.Find(Rgb(1, 2, 3)).index, 11);
  EXPECT_EQ(palette.Find(Rgb(255, 255, 255)).index, 10);
  const ColorTable table = Decoded(palette);
  EXPECT_EQ(table[10], Rgb(255, 255, 255));
  EXPECT_EQ(table[11], Rgb(1, 2, 3));
  EXPECT_EQ(table[0], 0);
  EXPECT_EQ(table[255], Rgb(255, 255, 255));
}

TEST(PaletteTest, TakesUp255ColorsExactlyAndTheNearestThen) {
  Palette palette;
  std::set<int> indexes;
  for (int i = 1; i <= 255; ++i) {
    const Palette::Match match = palette.Find(Rgb(i, 100, 7));
    EXPECT_TRUE(match.is_exact) << i;
    EXPECT_NE(match.index, Palette::kBackground);
    indexes.insert(match.index);
  }
  EXPECT_EQ(indexes.size(), 255U);
  EXPECT_FALSE(palette.Find(Rgb(40, 101, 7)).is_exact);
  EXPECT_EQ(palette.Find(Rgb(40, 101, 7)).index, palette.Find(Rgb(40, 100, 7)).index);
  const ColorTable table = Decoded(palette);
  for (int i = 1; i <= 255; ++i) EXPECT_EQ(table[palette.Find(Rgb(i, 100, 7)).index], Rgb(i, 100, 7)) << i;
}

TEST(PaletteTest, LeavesAGivenTableAsItIs) {
  std::array<MI::Color, Palette::kColors> colors{};
  colors[7] = Rgb(200, 0, 0);
  colors[9] = Rgb(200, 0, 0);
  colors[Palette::kBackground] = Rgb(0, 0, 200);
  Palette palette(colors);
  EXPECT_EQ(palette.Find(Rgb(200, 0, 0)).index, 7);
  EXPECT_TRUE(palette.Find(Rgb(200, 0, 0)).is_exact);
  EXPECT_EQ(palette.Find(Rgb(190, 0, 0)).index, 7);
  EXPECT_FALSE(palette.Find(Rgb(190, 0, 0)).is_exact);
  EXPECT_EQ(palette.Find(Rgb(0, 0, 200)).index, 0);
}

TEST(PaletteTest, WritesTheBackgroundFirst) {
  Palette palette;
  ElementBytes bytes;
  palette.Write(bytes);
  ASSERT_EQ(bytes.Size(), Palette::kElementBytes);
  EXPECT_EQ(dgn_test::InWords(bytes.View().substr(0, 4)), "0501 0191");
  EXPECT_EQ(dgn_test::InWords(bytes.View().substr(28, 8)), "0000 0183 0200 0000");
  EXPECT_EQ(dgn_test::InBytes(bytes.View().substr(36, 14)), "00 00 FF FF FF 00 00 00 00 00 FF 00 FF 00");
}

}  // namespace
}  // namespace App
