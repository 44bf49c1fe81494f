#include "tests/app/picture_tools.h"

#include <cmath>
#include <iterator>
#include <string>

namespace App {
namespace {

// A symbol of 40 pixels at the picture point (100, 50).
std::string PointWith(const std::string& symbol) {
  return "Point 100 50\nSymbol (" + symbol + ")\n";
}

Sheet SheetOfShape(int shape) {
  return Sheet(PointWith(std::to_string(shape) + ",255,30"));  // 30 points
}

TEST(SymbolTest, Shape31IsInvisible) {
  EXPECT_EQ(SheetOfShape(31).Ink(), 0);
}

TEST(SymbolTest, ShapesHaveTheirSizeInPoints) {
  const PictureBox box = SheetOfShape(32).InkBox();
  EXPECT_EQ(box.left, 80);
  EXPECT_EQ(box.right, 120);
  EXPECT_EQ(box.top, 30);
  EXPECT_EQ(box.bottom, 70);
  EXPECT_EQ(Sheet(PointWith("32,255,10_pix")).InkBox().Width(), 10);
}

TEST(SymbolTest, NoShapeIsLargerThanItsSize) {
  for (int shape = 30; shape <= 70; ++shape) {
    if (shape == 31) continue;
    const PictureBox box = SheetOfShape(shape).InkBox();
    EXPECT_LE(box.Width(), 42) << shape;
    EXPECT_LE(box.Height(), 42) << shape;
    EXPECT_GE(box.Width(), 25) << shape;
  }
}

TEST(SymbolTest, FilledShapesAreFilledAndHollowOnesAreNot) {
  for (const int shape : {32, 33, 34, 35, 36, 37}) {
    EXPECT_EQ(SheetOfShape(shape).At(100, 50), kBlue) << shape;
    EXPECT_EQ(SheetOfShape(shape + 6).At(100, 50), kWhite) << shape + 6;
    EXPECT_GT(SheetOfShape(shape + 6).Ink(), 50) << shape + 6;
  }
}

TEST(SymbolTest, ShapesHaveTheirCorners) {
  // Corners of the square, of the circle's box, and the middles of its sides.
  EXPECT_TRUE(SheetOfShape(32).HasInk(82, 32));
  EXPECT_FALSE(SheetOfShape(34).HasInk(82, 32));
  EXPECT_TRUE(SheetOfShape(34).HasInk(88, 38));  // 20 / sqrt 2 = 14.1 from the middle
  EXPECT_FALSE(SheetOfShape(33).HasInk(88, 38));
  EXPECT_TRUE(SheetOfShape(33).HasInk(92, 44));
  EXPECT_FALSE(SheetOfShape(35).HasInk(88, 38));
  EXPECT_TRUE(SheetOfShape(35).HasInk(100, 34));
  // The triangles' tips are at the top and at the bottom.
  EXPECT_TRUE(SheetOfShape(36).HasInk(100, 35));
  EXPECT_FALSE(SheetOfShape(36).HasInk(100, 63));
  EXPECT_FALSE(SheetOfShape(37).HasInk(100, 37));
  EXPECT_TRUE(SheetOfShape(37).HasInk(100, 65));
  // Plus and cross.
  const Sheet plus = SheetOfShape(49);
  EXPECT_TRUE(plus.HasInk(82, 50));
  EXPECT_TRUE(plus.HasInk(100, 32));
  EXPECT_FALSE(plus.HasInk(84, 34));
  const Sheet cross = SheetOfShape(50);
  EXPECT_FALSE(cross.HasInk(82, 50));
  EXPECT_TRUE(cross.HasInk(84, 34));
  EXPECT_TRUE(cross.HasInk(84, 66));
}

TEST(SymbolTest, CharactersPicturesAndUnknownShapesAreARingWithADot) {
  const int ring = SheetOfShape(67).Ink();
  EXPECT_GT(ring, 100);
  EXPECT_EQ(Sheet(PointWith("99,255,30,\"Some Symbols\",0,0")).Ink(), ring);
  EXPECT_EQ(Sheet(PointWith("\"pin.bmp\",255,30,0")).Ink(), ring);
  EXPECT_EQ(SheetOfShape(20).Ink(), ring);
  EXPECT_EQ(SheetOfShape(2000000000).Ink(), ring);
  EXPECT_EQ(SheetOfShape(-2000000000).Ink(), ring);
}

TEST(SymbolTest, SizesThatAreNoneDrawNothing) {
  EXPECT_EQ(Sheet(PointWith("32,255,0")).Ink(), 0);
  EXPECT_EQ(Sheet(PointWith("32,255,-5")).Ink(), 0);
}

// A square from (40, 20) to (104, 84) without a border.
Sheet SheetOfBrush(const std::string& brush) {
  return Sheet("Rect 40 16 104 80\nPen (1,1,0) Brush (" + brush + ")\n");
}

TEST(BrushTest, HatchesRunInTheirDirections) {
  // Which of the four lines through a point of the tile is drawn shows at the pixels beside its corner. The
  // tile is 8 wide, and the square begins at a multiple of 8, so the tile's corner is at (48, 24).
  struct Row {
    int pattern;
    bool horizontal, vertical, falling, rising;
  };
  for (const Row& row :
       {Row{3, true, false, false, false}, Row{4, false, true, false, false},
        Row{5, false, false, true, false}, Row{6, false, false, false, true},
        Row{7, true, true, false, false}, Row{8, false, false, true, true}, Row{9, true, false, false, false},
        Row{10, false, true, false, false}, Row{11, true, true, false, false}}) {
    const Sheet sheet = SheetOfBrush(std::to_string(row.pattern) + ",255");
    EXPECT_EQ(sheet.HasInk(51, 24), row.horizontal) << row.pattern;
    EXPECT_EQ(sheet.HasInk(48, 27), row.vertical) << row.pattern;
    // The diagonals cross in the middle of the tile; at (50, 26) the falling one, at (53, 26) the rising one.
    EXPECT_EQ(sheet.HasInk(50, 26), row.falling) << row.pattern;
    EXPECT_EQ(sheet.HasInk(53, 26), row.rising) << row.pattern;
    EXPECT_EQ(sheet.Ink(0, 0, 40, 100), 0) << "outside of the area";
  }
}

TEST(BrushTest, HatchesRepeat) {
  EXPECT_EQ(SheetOfBrush("4,0").Row(50, 40, 60), "#.......#.......#...");
  EXPECT_EQ(SheetOfBrush("10,0").Row(50, 40, 60), "#...#...#...#...#...");
}

TEST(BrushTest, PatternsHaveABackgroundWhenTheyNameOne) {
  EXPECT_EQ(SheetOfBrush("4,0").At(42, 50), kWhite);
  const Sheet sheet = SheetOfBrush("4,255,16711680");
  EXPECT_EQ(sheet.At(42, 50), kRed);
  EXPECT_EQ(sheet.At(48, 50), kBlue);
  EXPECT_EQ(SheetOfBrush("4,255,0").At(42, 50), kBlack);
}

TEST(BrushTest, BrushesOfOnePatternInTwoColoursAreTwo) {
  const Sheet sheet(
      "Rect 0 0 96 96\nPen (1,1,0) Brush (4,255)\nRect 96 0 192 96\nPen (1,1,0) Brush (4,16711680)\n");
  EXPECT_EQ(sheet.At(48, 50), kBlue);
  EXPECT_EQ(sheet.At(144, 50), kRed);
}

TEST(BrushTest, TexturesHaveTheirDensity) {
  // Of 64 cells 4, 12, 20 ... 52 are dots; from pattern 19 on the dots are larger.
  for (int pattern = 12; pattern < 33; ++pattern) {
    const int dots = 4 + 8 * ((pattern - 12) % 7);
    const int tile = 8 * (1 + (pattern - 12) / 7);
    const Sheet sheet("Rect 0 4 192 100\nPen (1,1,0) Brush (" + std::to_string(pattern) + ",255)\n");
    EXPECT_EQ(sheet.Ink(0, 0, tile, tile), dots * tile * tile / 64) << pattern;
  }
  EXPECT_GT(SheetOfBrush("71,255").Ink(), 0);
  EXPECT_GT(SheetOfBrush("2000000000,255").Ink(), 0);
}

TEST(BrushTest, PatternsBelowOneAreHatches) {
  EXPECT_EQ(SheetOfBrush("0,255").Ink(), SheetOfBrush("3,255").Ink());
  EXPECT_EQ(SheetOfBrush("-5,255").Ink(), SheetOfBrush("3,255").Ink());
}

// Dashes and gaps of a pattern, in pen widths.
std::string DashesOf(std::int32_t pattern, std::int32_t width = 1) {
  const PenStyle style({.width = width, .pattern = pattern, .color = 0});
  std::string text;
  for (const double dash : style.GetDashes()) {
    text += (text.empty() ? "" : " ") + std::to_string(static_cast<int>(dash / width));
  }
  return text;
}

TEST(PenStyleTest, PatternsHaveTheirDashes) {
  const char* const dashes[] = {"1 2",      "1 4",      "3 2",      "6 3",      "8 5",      "12 4",
                                "16 6",     "24 8",     "10 10",    "16 16",    "24 16",    "8 3 2 3",
                                "16 4 2 4", "16 4 6 4", "24 6 8 6", "16 4 4 4", "24 4 2 4", "8 3 2 3 2 3"};
  for (std::int32_t i = 0; i < std::ssize(dashes); ++i) {
    EXPECT_EQ(DashesOf(3 + i), dashes[i]) << 3 + i;
    EXPECT_EQ(DashesOf(3 + i, 7), dashes[i]) << 3 + i;
  }
  EXPECT_EQ(DashesOf(21), "16 4 2 4 2 4");
  EXPECT_EQ(DashesOf(22), "12 3 4 3 4 3");
  EXPECT_EQ(DashesOf(23), "24 4 2 4 2 4");
  EXPECT_EQ(DashesOf(24), "8 3 2 3 2 3 2 3");
  EXPECT_EQ(DashesOf(25), "16 4 2 4 2 4 2 4");
  EXPECT_EQ(DashesOf(26), "1 2") << "behind the last the first follows";
  for (const std::int32_t solid : {-3, 0, 1, 2}) EXPECT_EQ(DashesOf(solid), "") << solid;
}

TEST(PenStyleTest, SizesBecomePixelsOf96ToTheInch) {
  EXPECT_DOUBLE_EQ(ToPixels(3, Pelor::MI::SLUnits_Pixel), 3);
  EXPECT_DOUBLE_EQ(ToPixels(254, Pelor::MI::SLUnits_HundredthMm), 9.6);
  EXPECT_DOUBLE_EQ(ToPixels(75, Pelor::MI::SLUnits_TenthPoint), 10);
  EXPECT_DOUBLE_EQ(ToPixels(9, Pelor::MI::SLUnits_Point), 12);
  EXPECT_DOUBLE_EQ(ToPixels(9, static_cast<Pelor::MI::SLUnits>(77)), 9);
  EXPECT_DOUBLE_EQ(ToPixels(1e9, Pelor::MI::SLUnits_Pixel), kLargestMark);
}

}  // namespace
}  // namespace App
