#include "tests/app/picture_tools.h"

#include <cmath>
#include <limits>

namespace App {
namespace {

constexpr char kSquareWithHole[] =
    "Region 2\n5\n20 20\n180 20\n180 80\n20 80\n20 20\n5\n60 40\n140 40\n140 60\n60 60\n60 40\n";

TEST(PainterTest, FillsARegionAndLeavesItsHole) {
  const Sheet sheet(std::string(kSquareWithHole) + "Pen (1,1,0)\nBrush (2,16711680,0)\n");
  EXPECT_EQ(sheet.At(30, 30), kRed);
  EXPECT_EQ(sheet.At(20, 20), kRed);     // the first pixel inside
  EXPECT_EQ(sheet.At(179, 79), kRed);    // the last one
  EXPECT_EQ(sheet.At(100, 50), kWhite);  // in the hole
  EXPECT_EQ(sheet.At(60, 40), kWhite);
  EXPECT_EQ(sheet.At(59, 40), kRed);
  EXPECT_EQ(sheet.At(19, 50), kWhite);
  EXPECT_EQ(sheet.At(180, 50), kWhite);
}

TEST(PainterTest, FillsAnIslandInAHole) {
  const Sheet sheet(
      "Region 3\n4\n20 20\n180 20\n180 80\n20 80\n4\n60 40\n140 40\n140 60\n60 60\n"
      "4\n90 45\n110 45\n110 55\n90 55\nPen (1,1,0)\nBrush (2,255,0)\n");
  EXPECT_EQ(sheet.At(100, 50), kBlue);
  EXPECT_EQ(sheet.At(70, 50), kWhite);
  EXPECT_EQ(sheet.At(30, 50), kBlue);
}

TEST(PainterTest, DrawsBordersOnTopOfTheFill) {
  const Sheet sheet(std::string(kSquareWithHole) + "Pen (2,2,65280)\nBrush (2,16711680,0)\n");
  for (const int x : {19, 20, 59, 60, 139, 140, 179, 180}) EXPECT_EQ(sheet.At(x, 50), kGreen) << x;
  EXPECT_EQ(sheet.At(18, 50), kWhite);
  EXPECT_EQ(sheet.At(21, 50), kRed);
}

TEST(PainterTest, AnEmptyBrushFillsNothing) {
  const Sheet sheet(std::string(kSquareWithHole) + "Pen (2,2,0)\nBrush (1,16711680,0)\n");
  EXPECT_EQ(sheet.At(30, 30), kWhite);
  EXPECT_EQ(sheet.At(20, 50), kBlack);
}

TEST(PainterTest, AnInvisiblePenDrawsNothing) {
  EXPECT_EQ(Sheet("Line 10 50 190 50\nPen (4,1,0)\n").Ink(), 0);
  EXPECT_EQ(Sheet(std::string(kSquareWithHole) + "Pen (4,1,0)\nBrush (1,0,0)\n").Ink(), 0);
}

// The rows that a horizontal line at height 50 covers in the middle of the picture.
int RowsOf(const std::string& pen) {
  const Sheet sheet("Line 10 50 190 50\nPen (" + pen + ",2,0)\n");
  int rows = 0;
  for (int y = 0; y < Sheet::kHeight; ++y) rows += sheet.At(100, y) == kBlack ? 1 : 0;
  EXPECT_EQ(sheet.Ink(100, 0, 101, Sheet::kHeight), rows) << "the line's edges lie between pixels";
  return rows;
}

TEST(PainterTest, PenWidthsAreInTheirUnits) {
  EXPECT_EQ(RowsOf("2"), 2);
  EXPECT_EQ(RowsOf("6"), 6);
  EXPECT_EQ(RowsOf("40"), 4);  // 3 points
  EXPECT_EQ(RowsOf("12_pix"), 12);
  EXPECT_EQ(RowsOf("100000_pix"), Sheet::kHeight);  // as wide as a pen gets
}

TEST(PainterTest, APenWithoutWidthDrawsOnePixel) {
  const Sheet sheet("Line 10 50.5 190 50.5\nPen (0,2,255)\n");
  EXPECT_EQ(sheet.At(100, 49), kBlue);
  EXPECT_EQ(sheet.Ink(100, 0, 101, Sheet::kHeight), 1);
}

TEST(PainterTest, DashesAreMeasuredInPenWidths) {
  // Pattern 6 has dashes of 6 and gaps of 3 pen widths: 12 and 6 pixels here.
  const Sheet sheet("Line 10 50 190 50\nPen (2,6,0)\n");
  EXPECT_EQ(sheet.Row(50, 8, 48), "..############......############......##");
  // Pattern 14 has a dot between its dashes.
  const Sheet dotted("Line 10 50 190 50\nPen (2,14,0)\n");
  EXPECT_EQ(dotted.Row(50, 10, 50), "################......####......########");
}

TEST(PainterTest, EveryPatternButTheFirstTwoHasGaps) {
  for (int pattern = 3; pattern <= 120; ++pattern) {
    const Sheet sheet("Line 10 50 190 50\nPen (2," + std::to_string(pattern) + ",0)\n");
    const std::string row = sheet.Row(50, 10, 190);
    EXPECT_EQ(row[0], '#') << pattern;
    EXPECT_NE(row.find('.'), std::string::npos) << pattern;
  }
  EXPECT_EQ(Sheet("Line 10 50 190 50\nPen (2,2,0)\n").Row(50, 10, 190), std::string(180, '#'));
}

TEST(PainterTest, DashesStayWhereTheyAreWhenTheLineIsCut) {
  // The line begins far outside of the picture. Its dashes count from there: 12 on, 6 off.
  const Sheet sheet("Line -10000 50 30000 50\nPen (2,6,0)\n");
  std::string expected;
  for (int x = 0; x < Sheet::kWidth; ++x) expected += (x + 10000) % 18 < 12 ? '#' : '.';
  EXPECT_EQ(sheet.Row(50, 0, Sheet::kWidth), expected);
}

TEST(PainterTest, APolylineThatComesBackIntoThePictureIsDrawnThereAgain) {
  const Sheet sheet("PLine 6\n-5000 80\n5000 80\n5000 50\n-5000 50\n-5000 20\n5000 20\nPen (2,2,0)\n");
  for (const int y : {20, 50, 80}) EXPECT_EQ(sheet.Row(y, 0, 200), std::string(200, '#')) << y;
  EXPECT_EQ(sheet.Ink(), 3 * 2 * 200);
}

TEST(PainterTest, TrianglesAreFilled) {
  const Sheet sheet("Region 1\n3\n50 10\n150 10\n100 90\nPen (1,1,0) Brush (2,255)\n");
  EXPECT_EQ(sheet.At(100, 70), kBlue);
  EXPECT_EQ(sheet.At(55, 30), kWhite);
}

TEST(PainterTest, AreasFarBeyondASideAreFilledUpToIt) {
  const std::string style = "Pen (1,1,0) Brush (2,255)\n";
  const Sheet up("Region 1\n4\n50 40\n150 40\n150 1e7\n50 1e7\n" + style);
  EXPECT_EQ(up.Ink(), 100 * 60);
  EXPECT_EQ(up.At(100, 0), kBlue);
  const Sheet down("Region 1\n4\n50 40\n150 40\n150 -1e7\n50 -1e7\n" + style);
  EXPECT_EQ(down.Ink(), 100 * 40);
  EXPECT_EQ(down.At(100, 99), kBlue);
  const Sheet left("Region 1\n4\n50 40\n50 60\n-1e7 60\n-1e7 40\n" + style);
  EXPECT_EQ(left.Ink(), 50 * 20);
  EXPECT_EQ(left.At(0, 50), kBlue);
  const Sheet right("Region 1\n4\n50 40\n50 60\n1e7 60\n1e7 40\n" + style);
  EXPECT_EQ(right.Ink(), 150 * 20);
  EXPECT_EQ(right.At(199, 50), kBlue);
}

TEST(PainterTest, BrushesWithoutColourDrawNothingOverWhatIsThere) {
  const Sheet sheet(
      "Rect 0 0 200 100\nPen (1,1,0) Brush (2,255)\nText \"\xE2\x96\x88\"\n20 20 180 80\n"
      "Font (\"Arial\",0,0,-1)\n");
  EXPECT_EQ(sheet.Ink(), 200 * 100);
  EXPECT_EQ(sheet.At(30, 50), kBlue);
}

TEST(PainterTest, PartsOfAPolylineAreNotJoined) {
  const Sheet sheet("PLine Multiple 2\n2\n10 80\n90 80\n2\n110 20\n190 20\nPen (2,2,0)\n");
  EXPECT_EQ(sheet.At(50, 20), kBlack);
  EXPECT_EQ(sheet.At(150, 80), kBlack);
  EXPECT_EQ(sheet.Ink(95, 0, 105, 100), 0);
}

TEST(PainterTest, LinesWithoutLengthAreDots) {
  const Sheet sheet(
      "Line 50 50 50 50\nPen (6,2,16711680)\n"
      "PLine Multiple 2\n2\n100 50\n100 50\n2\n150 50\n150 50\nPen (6,2,255)\n");
  EXPECT_EQ(sheet.At(50, 50), kRed);
  EXPECT_EQ(sheet.At(51, 50), kRed);
  EXPECT_EQ(sheet.At(54, 50), kWhite);
  EXPECT_EQ(sheet.At(100, 50), kBlue);
  EXPECT_EQ(sheet.At(150, 50), kBlue);
}

TEST(PainterTest, ARegionSmallerThanAPixelIsADot) {
  const Sheet sheet(
      "Region 1\n4\n50.5 50.5\n50.51 50.5\n50.51 50.51\n50.5 50.51\nPen (1,1,0)\nBrush (2,0,0)\n");
  EXPECT_GT(sheet.Ink(), 0);
  EXPECT_TRUE(sheet.HasInk(50, 49));
}

TEST(PainterTest, RectanglesTakeTheirCornersInAnyOrder) {
  for (const char* corners : {"20 20 60 80", "60 80 20 20", "20 80 60 20"}) {
    const Sheet sheet(std::string("Rect ") + corners + "\nPen (1,1,0) Brush (2,255,0)\n");
    EXPECT_EQ(sheet.Ink(), 40 * 60) << corners;
    EXPECT_EQ(sheet.At(20, 20), kBlue) << corners;
    EXPECT_EQ(sheet.At(59, 79), kBlue) << corners;
  }
}

TEST(PainterTest, RoundedRectanglesHaveCornersOfHalfTheRounding) {
  const Sheet sheet("RoundRect 20 20 120 80\n40\nPen (1,1,0) Brush (2,255,0)\n");
  // The corner's circle has its middle 20 inside of both sides: its border passes 20 - 20 / sqrt 2 = 5.86
  // inside.
  EXPECT_EQ(sheet.At(24, 24), kWhite);
  EXPECT_EQ(sheet.At(27, 27), kBlue);
  EXPECT_EQ(sheet.At(115, 24), kWhite);
  EXPECT_EQ(sheet.At(24, 75), kWhite);
  EXPECT_EQ(sheet.At(115, 75), kWhite);
  EXPECT_EQ(sheet.At(112, 72), kBlue);
  EXPECT_EQ(sheet.At(20, 50), kBlue);
  EXPECT_EQ(sheet.At(70, 20), kBlue);
}

TEST(PainterTest, ARoundingLargerThanTheRectangleMakesItsEndsRound) {
  const Sheet sheet("RoundRect 20 20 120 80\n1000\nPen (1,1,0) Brush (2,255,0)\n");
  EXPECT_EQ(sheet.At(21, 49), kBlue);
  EXPECT_EQ(sheet.At(27, 27), kWhite);  // 30 - 30 / sqrt 2 = 8.8
  EXPECT_EQ(sheet.At(30, 30), kBlue);
}

TEST(PainterTest, EllipsesFillTheirRectangle) {
  const Sheet sheet("Ellipse 20 20 180 80\nPen (1,1,0) Brush (2,255,0)\n");
  EXPECT_EQ(sheet.At(100, 50), kBlue);
  EXPECT_EQ(sheet.InkBox().left, 20);
  EXPECT_EQ(sheet.InkBox().right, 180);
  EXPECT_EQ(sheet.InkBox().top, 20);
  EXPECT_EQ(sheet.InkBox().bottom, 80);
  EXPECT_NEAR(sheet.Ink(), 3.14159 * 80 * 30, 250);  // pixels at the border count whole
  EXPECT_EQ(sheet.At(30, 30), kWhite);
}

TEST(PainterTest, ArcsRunCounterClockwiseFromStartToEnd) {
  // From east to north: the upper right quarter.
  const Sheet quarter("Arc 50 10 130 90\n0 90\nPen (2,2,0)\n");
  EXPECT_TRUE(quarter.HasInk(118, 22));  // 40 / sqrt 2 = 28 from the middle at (90, 50)
  EXPECT_EQ(quarter.Ink(0, 0, 88, 100), 0);
  EXPECT_EQ(quarter.Ink(0, 52, 200, 100), 0);
  // Across east.
  const Sheet across("Arc 50 10 130 90\n350 10\nPen (2,2,0)\n");
  EXPECT_TRUE(across.HasInk(129, 50));
  EXPECT_EQ(across.Ink(0, 0, 125, 100), 0);
}

TEST(PainterTest, AnArcThatEndsWhereItStartsGoesNowhere) {
  for (const char* angles : {"90 90", "-270 90"}) {
    const Sheet sheet(std::string("Arc 50 10 130 90\n") + angles + "\nPen (2,2,0)\n");
    const bool is_whole = std::string_view(angles) != "90 90";
    EXPECT_EQ(sheet.HasInk(129, 50), is_whole) << angles;
    EXPECT_EQ(sheet.HasInk(50, 50), is_whole) << angles;
  }
}

TEST(PainterTest, AnArcThatEndsATurnAheadIsAFullTurn) {
  for (const char* angles : {"0 360", "90 450"}) {
    const Sheet sheet(std::string("Arc 50 10 130 90\n") + angles + "\nPen (2,2,0)\n");
    for (const auto& [x, y] : {std::pair{129, 50}, {90, 10}, {50, 50}, {90, 89}}) {
      EXPECT_TRUE(sheet.HasInk(x, y)) << angles << ' ' << x << ' ' << y;
    }
  }
}

TEST(PainterTest, SmoothPolylinesRunThroughTheirPointsInABow) {
  const std::string points = "PLine 3\n50 20\n100 80\n150 20\nPen (2,2,0)\n";
  const Sheet straight(points);
  const Sheet smooth(points + "Smooth\n");
  for (const auto& [x, y] : {std::pair{50, 79}, {100, 20}, {149, 79}}) {
    EXPECT_TRUE(straight.HasInk(x, y));
    EXPECT_TRUE(smooth.HasInk(x, y));
  }
  // Halfway between the first two points the curve is (p0 + p1) / 2 + (slope 0 - slope 1) / 8 away: with
  // slopes (50, 60) and (50, 0) that is (75, 57.5), above the chord's (75, 50).
  EXPECT_TRUE(straight.HasInk(75, 50));
  EXPECT_FALSE(smooth.HasInk(75, 50));
  EXPECT_TRUE(smooth.HasInk(75, 42));
}

TEST(PainterTest, CoordinatesWithManyCommonDigitsAreDrawnSharply) {
  // A picture of one metre in a national grid: the pixel is 5 mm.
  const Frame frame = Sheet::MakeSheetFrame(200.0, {4500000.5, 5500000.25});
  const Sheet sheet("Rect 4500000.25 5500000.1 4500000.75 5500000.4\nPen (1,1,0) Brush (2,255,0)\n", frame);
  EXPECT_EQ(sheet.Ink(), 100 * 60);
  EXPECT_EQ(sheet.At(50, 20), kBlue);
  EXPECT_EQ(sheet.At(149, 79), kBlue);
}

TEST(PainterTest, ATinyWindowInAHugeAreaShowsTheArea) {
  // A million map units across, drawn at 1000 pixels for each: far beyond what cairo can hold.
  const Frame frame = Sheet::MakeSheetFrame(1000.0, {0, 0});
  const std::string ring = "Region 2\n4\n-500000 -500000\n500000 -500000\n500000 500000\n-500000 500000\n";
  const std::string hole = "4\n0 -400000\n400000 -400000\n400000 400000\n0 400000\n";
  const Sheet sheet(ring + hole + "Pen (2,2,0)\nBrush (2,16711680,0)\n", frame);
  EXPECT_EQ(sheet.At(0, 0), kRed);
  EXPECT_EQ(sheet.At(98, 99), kRed);
  EXPECT_EQ(sheet.At(99, 50), kBlack);  // the hole's border
  EXPECT_EQ(sheet.At(100, 50), kBlack);
  EXPECT_EQ(sheet.At(101, 50), kWhite);
  EXPECT_EQ(sheet.At(199, 0), kWhite);
}

TEST(PainterTest, AnAreaFarLargerThanThePictureHasNoSeam) {
  for (const double size : {1e9, 1e30, 1e90}) {
    const std::string s = std::to_string(size);
    const Sheet sheet("Region 1\n4\n-" + s + " -" + s + "\n" + s + " -" + s + "\n" + s + " " + s + "\n-" + s +
                      " " + s + "\nPen (2,2,0)\nBrush (2,255,0)\n");
    EXPECT_EQ(sheet.Ink(), Sheet::kWidth * Sheet::kHeight) << size;
    EXPECT_EQ(sheet.At(0, 0), kBlue) << size;
    EXPECT_EQ(sheet.At(199, 99), kBlue) << size;
  }
}

TEST(PainterTest, TheEdgeOfAHugeCircleIsRightToThePixel) {
  // A circle of a million pixels whose rightmost point is in the middle of the picture.
  const Sheet sheet("Ellipse -1999900 -999950 100 1000050\nPen (1,1,0) Brush (2,255,0)\n");
  for (const int y : {0, 50, 99}) {
    EXPECT_EQ(sheet.Row(y, 95, 105), "#####.....") << y;
    EXPECT_EQ(sheet.At(0, y), kBlue);
  }
}

TEST(PainterTest, ACurveFarOutsideTakesNoTime) {
  // Without a look at what is visible, its chords would number billions.
  const Sheet sheet(
      "Arc -1e12 -1e12 1e12 1e12\n0 350\nPen (2,2,0)\n"
      "PLine 3\n-1e14 -1e15\n1e15 5e14\n1e14 1e15\nPen (2,2,0)\nSmooth\n");
  EXPECT_EQ(sheet.Ink(), 0);
}

TEST(PainterTest, NothingIsDrawnOfTheEmptyObject) {
  const Sheet sheet("None\n");
  EXPECT_TRUE(sheet.all_drawn);
  EXPECT_EQ(sheet.Ink(), 0);
}

}  // namespace
}  // namespace App
