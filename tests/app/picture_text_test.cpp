#include "app/picture/text_drawing.h"
#include "tests/app/picture_tools.h"

#include <cmath>

namespace App {
namespace {

using Lines = std::vector<std::string>;

TEST(TextLinesTest, BreakAtLineFeedsAndTheirTwoCharacters) {
  EXPECT_EQ(TextLines("one\\ntwo\nthree\r\nfour"), (Lines{"one", "two", "three", "four"}));
  EXPECT_EQ(TextLines("a\\n\\nb"), (Lines{"a", "", "b"}));
  EXPECT_EQ(TextLines("a\\t"), (Lines{"a\\t"}));
  EXPECT_EQ(TextLines("a\\"), (Lines{"a\\"}));
  EXPECT_EQ(TextLines("a\\n"), (Lines{"a"}));
  EXPECT_EQ(TextLines(""), Lines{});
  EXPECT_EQ(TextLines("\n\n"), Lines{});
}

TEST(TextLinesTest, HoldValidUtf8AndNoControls) {
  EXPECT_EQ(TextLines("Gr\xC3\xBC\xC3\x9F"
                      "e"),
            (Lines{"Gr\xC3\xBC\xC3\x9F"
                   "e"}));
  EXPECT_EQ(TextLines("Gr\xFC"
                      "n"),
            (Lines{"Gr\xEF\xBF\xBDn"}));
  EXPECT_EQ(TextLines(std::string_view("a\0b\tc\x7F"
                                       "d",
                                       7)),
            (Lines{"abcd"}));
  EXPECT_EQ(TextLines("\xE2\x82"), (Lines{"\xEF\xBF\xBD\xEF\xBF\xBD"}));  // cut off
}

Sheet TextSheet(const std::string& text, const std::string& box, const std::string& clauses = "",
                const std::string& font = "(\"Arial\",0,0,0)") {
  return Sheet("Text \"" + text + "\"\n" + box + "\nFont " + font + "\n" + clauses);
}

TEST(TextTest, StandsWithinItsBox) {
  const Sheet sheet = TextSheet("Hamburgefonts", "20 40 180 60");
  const PictureBox ink = sheet.InkBox();
  EXPECT_GE(ink.left, 20);
  EXPECT_LE(ink.left, 26);
  EXPECT_GE(ink.top, 40);
  EXPECT_LE(ink.bottom, 60);
  EXPECT_GT(ink.Height(), 14);  // capitals and descenders of a letter size of 20
  EXPECT_LE(ink.right, 180);
}

TEST(TextTest, IsAsHighAsItsBoxSaysWhateverTheFontSize) {
  const double small = TextSheet("Hg", "20 40 180 60").InkBox().Height();
  const double large = TextSheet("Hg", "20 20 180 80").InkBox().Height();
  const double with_size = TextSheet("Hg", "20 20 180 80", "", "(\"Arial\",0,8,0)").InkBox().Height();
  EXPECT_NEAR(large, 3 * small, 4);
  EXPECT_EQ(with_size, large);
}

TEST(TextTest, TurnsAboutTheUpperLeftCornerOfItsBox) {
  // The box is 100 x 20 with its upper left corner at the picture point (100, 60), and goes up by 90 degrees:
  // along the text is up, down the box is right.
  const PictureBox up = TextSheet("Hamburg", "100 20 200 40", "Angle 90\n").InkBox();
  EXPECT_GE(up.left, 100);
  EXPECT_LE(up.right, 120);
  EXPECT_LE(up.bottom, 60);
  EXPECT_GE(up.bottom, 54);
  EXPECT_LT(up.top, 10);
  // Upside down, it lies left of the corner and above it.
  const PictureBox turned = TextSheet("Hamburg", "150 30 250 50", "Angle 180\n").InkBox();
  EXPECT_LE(turned.right, 150);
  EXPECT_GE(turned.left, 50);
  EXPECT_GE(turned.top, 30);
  EXPECT_LE(turned.bottom, 50);
}

TEST(TextTest, StandsWithinItsTurnedRectangle) {
  constexpr double kAngle = 30 * 3.14159265358979 / 180;
  const Sheet sheet = TextSheet("Hamburg", "40 5 140 25", "Angle 30\n");  // upper left corner at (40, 75)
  const double width = 100;
  const double height = 20;
  ASSERT_GT(sheet.Ink(), 100);
  for (int y = 0; y < Sheet::kHeight; ++y) {
    for (int x = 0; x < Sheet::kWidth; ++x) {
      if (!sheet.HasInk(x, y)) continue;
      const double dx = x + 0.5 - 40;
      const double dy = y + 0.5 - 75;
      const double along = dx * std::cos(kAngle) - dy * std::sin(kAngle);
      const double down = dx * std::sin(kAngle) + dy * std::cos(kAngle);
      EXPECT_TRUE(along > -1 && along < width + 1 && down > -1 && down < height + 1) << x << ' ' << y;
    }
  }
}

TEST(TextTest, LinesShareTheHeightOfTheBox) {
  const Sheet sheet = TextSheet("HH\\nHH", "20 20 180 80");
  EXPECT_GT(sheet.Ink(0, 20, 200, 50), 0);
  EXPECT_GT(sheet.Ink(0, 50, 200, 80), 0);
  EXPECT_EQ(sheet.Ink(0, 80, 200, 100), 0);
  EXPECT_EQ(sheet.Ink(0, 0, 200, 20), 0);
  // Capitals leave the room of the descenders of the first line free.
  EXPECT_EQ(sheet.Ink(0, 46, 200, 50), 0);
  const double one = TextSheet("H", "20 50 180 80").InkBox().Height();
  EXPECT_NEAR(TextSheet("H\\nH", "20 20 180 80").InkBox().Height(), 30 + one, 2);
}

TEST(TextTest, SpacingPutsRoomBetweenLines) {
  // Two lines with the spacing 2 are three line heights: the middle one is free.
  const Sheet sheet = TextSheet("Hg\\nHg", "20 20 180 80", "Spacing 2\n");
  EXPECT_GT(sheet.Ink(0, 20, 200, 40), 0);
  EXPECT_EQ(sheet.Ink(0, 41, 200, 60), 0);
  EXPECT_GT(sheet.Ink(0, 60, 200, 80), 0);
}

TEST(TextTest, IsJustifiedWithinItsBox) {
  const PictureBox left = TextSheet("HH", "20 40 180 60").InkBox();
  const PictureBox center = TextSheet("HH", "20 40 180 60", "Justify Center\n").InkBox();
  const PictureBox right = TextSheet("HH", "20 40 180 60", "Justify Right\n").InkBox();
  EXPECT_NEAR(left.left, 22, 2);
  EXPECT_NEAR((center.left + center.right) / 2, 100, 1.5);
  EXPECT_NEAR(right.right, 178, 2);
}

TEST(TextTest, IsNarrowedToTheWidthOfItsBox) {
  const PictureBox ink = TextSheet("A rather long text for so small a box", "80 40 120 60").InkBox();
  EXPECT_GE(ink.left, 79);
  EXPECT_LE(ink.right, 121);
  EXPECT_GT(ink.Width(), 34);
}

TEST(TextTest, StylesChangeTheLetters) {
  const std::string box = "20 30 180 60";
  const int plain = TextSheet("Hamburg", box).Ink();
  const auto styled = [&](int style) {
    return TextSheet("Hamburg", box, "", "(\"Arial\"," + std::to_string(style) + ",0,0)");
  };
  EXPECT_GT(styled(1).Ink(), plain + 50);          // bold
  EXPECT_NE(styled(2).Ink(), plain);               // italic
  EXPECT_GT(styled(4).InkBox().Width() * 1.0, 0);  // underlined
  EXPECT_GT(styled(4).Ink(), plain + 50);
  EXPECT_EQ(styled(4).At(24, 69), kWhite);
  EXPECT_NE(styled(16).Ink(), plain);                                                         // outline
  EXPECT_GT(styled(32).Ink(), plain + 50);                                                    // shadow
  EXPECT_GT(styled(1024).InkBox().Width(), TextSheet("Hamburg", box).InkBox().Width() + 20);  // expanded
  EXPECT_EQ(styled(512).Ink(), TextSheet("HAMBURG", box).Ink());                              // capitals
}

TEST(TextTest, AHaloKeepsTheLettersApartFromWhatIsBehindThem) {
  const std::string ground = "Rect 0 0 200 100\nPen (1,1,0) Brush (2,255,0)\n";
  const std::string text = "Text \"H\"\n20 20 180 80\n";
  const Sheet halo(ground + text + "Font (\"Arial\",256,0,0,16711680)\n");
  const Sheet box(ground + text + "Font (\"Arial\",0,0,0,16711680)\n");
  const Sheet none(ground + text + "Font (\"Arial\",0,0,0)\n");
  const auto count = [](const Sheet& sheet, std::uint32_t color) {
    int pixels = 0;
    for (int y = 0; y < 100; ++y) {
      for (int x = 0; x < 200; ++x) pixels += sheet.At(x, y) == color ? 1 : 0;
    }
    return pixels;
  };
  EXPECT_EQ(count(none, kRed), 0);
  EXPECT_GT(count(halo, kRed), 100);
  EXPECT_LT(count(halo, kRed), 3000);
  EXPECT_GT(count(box, kRed), 8000);
  EXPECT_EQ(box.At(20, 20), kRed);
  EXPECT_EQ(box.At(179, 79), kRed);
  EXPECT_EQ(box.At(181, 50), kBlue);
  EXPECT_GT(count(halo, kBlack), 100);
}

TEST(TextTest, BoldLettersAreNotSetWide) {
  const std::string box = "20 30 180 60";
  const double plain = TextSheet("Hamburg", box).InkBox().Width();
  EXPECT_LT(TextSheet("Hamburg", box, "", "(\"Arial\",1,0,0)").InkBox().Width(), plain + 20);
}

TEST(TextTest, TheLineBelowStandsJustBelowTheLetters) {
  const PictureBox plain = TextSheet("HHH", "20 30 180 70").InkBox();
  const PictureBox underlined = TextSheet("HHH", "20 30 180 70", "", "(\"Arial\",4,0,0)").InkBox();
  // The letter size is about 34: the line stands 4 below the letters' foot, and is 2 high.
  EXPECT_NEAR(underlined.bottom - plain.bottom, 6, 1.5);
}

TEST(TextTest, HasItsColour) {
  const Sheet sheet =
      TextSheet("\xE2\x96\x88", "20 20 180 80", "", "(\"Arial\",0,0,16711680)");  // a full block
  bool has_red = false;
  for (int x = 20; x < 60; ++x) has_red = has_red || sheet.At(x, 50) == kRed;
  EXPECT_TRUE(has_red);
}

TEST(TextTest, ALabelLineLeadsToItsPoint) {
  const std::string box = "20 40 60 60";
  const int plain = TextSheet("H", box).Ink();
  const Sheet simple = TextSheet("H", box, "Label Line Simple 160 50\n");
  EXPECT_TRUE(simple.HasInk(110, 50));
  EXPECT_TRUE(simple.HasInk(158, 50));
  EXPECT_FALSE(simple.HasInk(163, 50));
  const Sheet arrow = TextSheet("H", box, "Label Line Arrow 160 50\n");
  EXPECT_GT(arrow.Ink(), simple.Ink() + 10);
  EXPECT_GT(simple.Ink(), plain + 50);
}

TEST(TextTest, TinyLettersAreALine) {
  const Sheet sheet = TextSheet("Hamburg", "20 50 60 51");
  EXPECT_GT(sheet.Ink(), 20);
  EXPECT_LE(sheet.InkBox().Height(), 2);
}

TEST(TextTest, ABoxWithoutHeightLeavesTheFontsOwnSize) {
  const PictureBox ink = TextSheet("H", "20 50 60 50", "", "(\"Arial\",0,30,0)").InkBox();
  EXPECT_NEAR(ink.Height(), 40 * 0.63, 3);
  EXPECT_EQ(TextSheet("H", "20 50 60 50").Ink(), 0);
}

TEST(TextTest, LettersFarLargerThanThePictureAreNotDrawn) {
  const Sheet huge = TextSheet("H", "0 0 1e9 1e9");
  EXPECT_FALSE(huge.all_drawn);
  EXPECT_EQ(huge.Ink(), 0);
  // But the inside of a large letter is.
  EXPECT_GT(TextSheet("\xE2\x96\x88", "-2000 -2000 3000 3000").Ink(), 10000);
}

TEST(TextTest, BytesThatAreNoTextDoNotSpoilWhatFollows) {
  const Sheet sheet(
      "Text \"\xFF\xFE\"\n20 40 180 60\nFont (\"Arial\",0,0,0)\n"
      "Rect 0 0 10 10\nPen (1,1,0) Brush (2,255,0)\n");
  EXPECT_EQ(sheet.At(5, 95), kBlue);
}

}  // namespace
}  // namespace App
