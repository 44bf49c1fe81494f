#include <pelor/mif/style_clauses.h>
#include <pelor/mif/style_size.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <tests/mif/mif_text.h>

namespace {

using namespace Pelor;
using MI::Brush;
using MI::Font;
using MI::Pen;
using MI::StdSymbol;
using MI::Symbol;
using MIF::StyleSize;

constexpr int kMax = std::numeric_limits<std::int32_t>::max();

template <class T>
std::string Text(const T& value) {
  return MifText([&](std::ostream& out) { MIF::Write(value, out); });
}

std::string SizeText(const StyleSize& size, MI::SLUnits units) {
  return MifText([&](std::ostream& out) { MIF::WriteSize(size, units, out); });
}

constexpr auto kPixel = MI::SLUnits_Pixel;
constexpr auto kMm = MI::SLUnits_HundredthMm;
constexpr auto kTenth = MI::SLUnits_TenthPoint;
constexpr auto kPoint = MI::SLUnits_Point;

struct SizeCase {
  StyleSize size;
  MI::SLUnits default_units;
  const char* text;
};

constexpr SizeCase kSizes[] = {
    // pens
    {{1, kPixel}, kPixel, "1"},
    {{10, kPixel}, kPixel, "10"},
    {{11, kPixel}, kPixel, "11_pix"},
    {{12, kPixel}, kPixel, "12_pix"},
    {{0, kPixel}, kPixel, "0"},
    {{-3, kPixel}, kPixel, "-3"},
    {{1, kTenth}, kPixel, "11"},
    {{15, kTenth}, kPixel, "25"},
    {{150, kMm}, kPixel, "1.5_mm"},
    {{7, kMm}, kPixel, "0.07_mm"},
    {{-15, kTenth}, kPixel, "-1.5_pnt"},
    {{-2, kPoint}, kPixel, "-2_pnt"},
    // symbols and fonts
    {{12, kPoint}, kPoint, "12"},
    {{125, kTenth}, kPoint, "12.5"},
    {{8, kPixel}, kPoint, "8_pix"},
    {{11, kPixel}, kPoint, "11_pix"},
    {{150, kMm}, kPoint, "1.5_mm"},
};

TEST(StyleSizeTest, EverySizeHasItsTextAndIsReadBack) {
  for (const SizeCase& c : kSizes) {
    EXPECT_EQ(SizeText(c.size, c.default_units), c.text);
    StyleSize read;
    EXPECT_TRUE(MIF::ParseSize(c.text, c.default_units, read)) << c.text;
    EXPECT_EQ(read, c.size) << c.text;
  }
}

TEST(StyleSizeTest, TextsThatSeveralSizesShareAreReadAsTheSimplest) {
  EXPECT_EQ(SizeText({1, kPoint}, kPixel), "20");
  EXPECT_EQ(SizeText({120, kTenth}, kPoint), "12");
  EXPECT_EQ(SizeText({0, kTenth}, kPixel), "0_pnt");
  StyleSize read;
  EXPECT_TRUE(MIF::ParseSize("20", kPixel, read));
  EXPECT_EQ(read, (StyleSize{10, kTenth}));
  EXPECT_TRUE(MIF::ParseSize("12", kPoint, read));
  EXPECT_EQ(read, (StyleSize{12, kPoint}));
  EXPECT_TRUE(MIF::ParseSize("0_pnt", kPixel, read));
  EXPECT_EQ(read, (StyleSize{0, kPoint}));
}

TEST(StyleSizeTest, UnitsOutsideTheTableAreWrittenAsWholeNumbersWithoutSuffix) {
  EXPECT_EQ(SizeText({15, static_cast<MI::SLUnits>(7)}, kPixel), "15");
  EXPECT_EQ(SizeText({15, static_cast<MI::SLUnits>(-1)}, kPoint), "15");
}

TEST(StyleSizeTest, TheLargestSizesDoNotOverflow) {
  EXPECT_EQ(SizeText({kMax, kPoint}, kPixel), "21474836480");
  EXPECT_EQ(SizeText({kMax, kTenth}, kPixel), "2147483657");
}

TEST(StyleSizeTest, SuffixesAreReadInAnyCase) {
  StyleSize read;
  EXPECT_TRUE(MIF::ParseSize("1.5_MM", kPixel, read));
  EXPECT_EQ(read, (StyleSize{150, kMm}));
  EXPECT_TRUE(MIF::ParseSize("3_Pix", kPoint, read));
  EXPECT_EQ(read, (StyleSize{3, kPixel}));
}

TEST(StyleSizeTest, WhatIsNoSizeIsRefused) {
  for (const char* text :
       {"", "_pix", "x", "1_km", "1 _pix", "1.5", "1.5_pix", "11.5", "1e99", "1_pixx", "nan"}) {
    StyleSize read{5, kMm};
    EXPECT_FALSE(MIF::ParseSize(text, kPixel, read)) << text;
    EXPECT_EQ(read, (StyleSize{5, kMm})) << text;
  }
}

TEST(PenClauseTest, Texts) {
  EXPECT_EQ(Text(Pen()), "Pen (1,2,0)");
  EXPECT_EQ(Text(Pen{1, 2, 0x0000FF, kPoint, false}), "Pen (20,2,16711680)");
  EXPECT_EQ(Text(Pen{12, 59, 0xFF0000, kPixel, true}), "Pen (12_pix,187,255)");
  EXPECT_EQ(Text(Pen{15, 1, 0x00FF00, kTenth, false}), "Pen (25,1,65280)");
  EXPECT_EQ(Text(Pen{150, 2, 0x030201, kMm, false}), "Pen (1.5_mm,2,66051)");
}

TEST(PenClauseTest, IsReadWithItsKeywordOrFromItsBracketOn) {
  for (const char* text : {"Pen (25,187,16711680) x", "PEN(25,187,16711680) x",
                           " pen\t( 25 , 187 , 16711680 ) x", "(25, 187, 16711680) x"}) {
    Mif mif(text);
    Pen pen;
    EXPECT_TRUE(MIF::Read(pen, mif.in)) << text;
    EXPECT_EQ(pen, (Pen{15, 59, 0x0000FF, kTenth, true})) << text;
    EXPECT_EQ(mif.Rest(), " x");
  }
}

TEST(PenClauseTest, Pattern128IsNotInterleaved) {
  for (const auto& [written, pattern, interleaved] :
       {std::tuple{127, 127, false}, {128, 128, false}, {129, 1, true}, {256, 128, true}}) {
    Mif mif("Pen (1," + std::to_string(written) + ",0)");
    Pen pen;
    EXPECT_TRUE(MIF::Read(pen, mif.in));
    EXPECT_EQ(pen.pattern, pattern);
    EXPECT_EQ(pen.interleaved, interleaved);
  }
}

TEST(PenClauseTest, WhatIsMalformedLeavesThePenUnchanged) {
  for (const char* text : {"", "Pen", "Pen 1,2,0", "Pen ()", "Pen (1,2)", "Pen (1,2,0", "Pen (1,2,0\n)",
                           "Pen (1,2,0,4)", "Pen (1,x,0)", "Pen (1_km,2,0)", "Pen (1,2,99999999999)"}) {
    Mif mif(text);
    Pen pen{7, 8, 9, kMm, true};
    EXPECT_FALSE(MIF::Read(pen, mif.in)) << text;
    EXPECT_EQ(pen, (Pen{7, 8, 9, kMm, true})) << text;
    ASSERT_EQ(mif.messages.size(), 1U) << text;
    EXPECT_TRUE(mif.messages[0].starts_with("Invalid Pen@ test.mif, line 1, column ")) << mif.messages[0];
  }
}

TEST(BrushClauseTest, TheBackgroundIsWrittenWhereThereIsOneAndForTheFirstPatterns) {
  EXPECT_EQ(Text(Brush{2, 0xFFFFFF, -1}), "Brush (2,16777215,0)");
  EXPECT_EQ(Text(Brush{1, 0, -1}), "Brush (1,0,0)");
  EXPECT_EQ(Text(Brush{5, 0x0000FF, -1}), "Brush (5,16711680)");
  EXPECT_EQ(Text(Brush{5, 0x0000FF, 0xFF0000}), "Brush (5,16711680,255)");
  EXPECT_EQ(Text(Brush{3, 0, 0}), "Brush (3,0,0)");
}

TEST(BrushClauseTest, WithoutABackgroundItIsTransparent) {
  Mif with("Brush (5,16711680,255)");
  Brush brush;
  EXPECT_TRUE(MIF::Read(brush, with.in));
  EXPECT_EQ(brush, (Brush{5, 0x0000FF, 0xFF0000}));
  Mif without("brush(5 , 255)");
  EXPECT_TRUE(MIF::Read(brush, without.in));
  EXPECT_EQ(brush, (Brush{5, 0xFF0000, -1}));
}

TEST(BrushClauseTest, WhatIsMalformedLeavesTheBrushUnchanged) {
  for (const char* text : {"Brush (1)", "Brush (1,2,3,4)", "Brush (1,2", "Brush (a,2)"}) {
    Mif mif(text);
    Brush brush{7, 8, 9};
    EXPECT_FALSE(MIF::Read(brush, mif.in)) << text;
    EXPECT_EQ(brush, (Brush{7, 8, 9}));
    ASSERT_EQ(mif.messages.size(), 1U);
    EXPECT_TRUE(mif.messages[0].starts_with("Invalid Brush@ test.mif, ")) << mif.messages[0];
  }
}

TEST(SymbolClauseTest, TextsOfTheThreeKinds) {
  EXPECT_EQ(Text(Symbol()), "Symbol (32,0,8)");
  EXPECT_EQ(Text(Symbol(StdSymbol{35, 0x0000FF, 12, kPixel})), "Symbol (35,16711680,12_pix)");
  EXPECT_EQ(Text(Symbol(64, 0x00FF00, 18, "Map Symbols", 256, 45, kPoint)),
            "Symbol (64,65280,18, \"Map Symbols\",256,45)");
  EXPECT_EQ(Text(Symbol("pin1-32.bmp", 0xFF0000, 24, 3, kPoint)), "Symbol (\"pin1-32.bmp\",255,24,3)");
}

TEST(SymbolClauseTest, EveryKindIsReadBack) {
  for (const Symbol& symbol : {Symbol(), Symbol(StdSymbol{35, 0x0000FF, 12, kPixel}),
                               Symbol(64, 0x00FF00, 18, "Map Symbols", 256, 45, kPoint),
                               Symbol("a \"b\" c.bmp", 0xFF0000, 125, 65535, kTenth)}) {
    Mif mif(Text(symbol) + "\n");
    Symbol read("other", 1, 2, 3, kMm);
    EXPECT_TRUE(MIF::Read(read, mif.in));
    EXPECT_EQ(read, symbol);
  }
}

TEST(SymbolClauseTest, ARotationIsRounded) {
  Mif mif("Symbol (64,0,18,\"Font\",0,44.5)");
  Symbol symbol;
  EXPECT_TRUE(MIF::Read(symbol, mif.in));
  EXPECT_EQ(symbol.rotation, 45);
}

TEST(SymbolClauseTest, WhatIsMalformedLeavesTheSymbolUnchanged) {
  for (const char* text : {"Symbol (1,2)", "Symbol (1,2,3,\"f\")", "Symbol (1,2,3,\"f\",0)",
                           "Symbol (\"f\",1,2)", "Symbol (\"f\",1,2,3,4)", "Symbol (\"f\",1,2,65536)",
                           "Symbol (\"f\",1,2,-1)", "Symbol (\"f", "Symbol (name,1,2,3)"}) {
    Mif mif(text);
    Symbol symbol;
    EXPECT_FALSE(MIF::Read(symbol, mif.in)) << text;
    EXPECT_EQ(symbol, Symbol()) << text;
    ASSERT_EQ(mif.messages.size(), 1U) << text;
    EXPECT_TRUE(mif.messages[0].starts_with("Invalid Symbol@ test.mif, ")) << mif.messages[0];
  }
}

TEST(StdSymbolClauseTest, IsWrittenAndReadAsAStandardSymbol) {
  EXPECT_EQ(Text(StdSymbol{34, 0x0000FF, 15, kTenth}), "Symbol (34,16711680,1.5)");
  Mif mif("Symbol (34,16711680,1.5)");
  StdSymbol symbol;
  EXPECT_TRUE(MIF::Read(symbol, mif.in));
  EXPECT_EQ(symbol, (StdSymbol{34, 0x0000FF, 15, kTenth}));
}

TEST(StdSymbolClauseTest, TheOtherKindsAreInvalid) {
  for (const char* text : {"Symbol (64,65280,18, \"f\",256,45)", "Symbol (\"f\",1,2,3)", "Symbol (1,2)"}) {
    Mif mif(text);
    StdSymbol symbol{1, 2, 3, kMm};
    EXPECT_FALSE(MIF::Read(symbol, mif.in)) << text;
    EXPECT_EQ(symbol, (StdSymbol{1, 2, 3, kMm}));
    ASSERT_EQ(mif.messages.size(), 1U);
    EXPECT_TRUE(mif.messages[0].starts_with("Invalid Symbol@ test.mif, ")) << mif.messages[0];
  }
}

Font MakeFont(const char* name, std::uint16_t style, int size, MI::SLUnits units, int fore, int back) {
  Font font;
  font.name = name;
  font.style = style;
  font.size = size;
  font.sizeUnits = units;
  font.foreColor = fore;
  font.backColor = back;
  return font;
}

TEST(FontClauseTest, Texts) {
  EXPECT_EQ(Text(Font()), "Font (\"MS Sans Serif\", 0, 0, 0)");
  EXPECT_EQ(Text(MakeFont("Arial", 257, 12, kPoint, 0x0000FF, 0xFFFFFF)),
            "Font (\"Arial\", 257, 12, 16711680, 16777215)");
}

TEST(FontClauseTest, IsReadWithAndWithoutABackground) {
  Mif with("Font (\"Arial\",257,12.5,16711680,255)");
  Font font;
  EXPECT_TRUE(MIF::Read(font, with.in));
  EXPECT_EQ(font, MakeFont("Arial", 257, 125, kTenth, 0x0000FF, 0xFF0000));
  Mif without("FONT(\"B\", 0, 8_pix, 1)");
  EXPECT_TRUE(MIF::Read(font, without.in));
  EXPECT_EQ(font, MakeFont("B", 0, 8, kPixel, 0x010000, -1));
}

TEST(FontClauseTest, WhatIsMalformedLeavesTheFontUnchanged) {
  for (const char* text : {"Font", "Font (\"A\")", "Font (\"A\",0,12)", "Font (\"A\",0,12,0,0,0)",
                           "Font (\"A\",x,12,0)", "Font (\"A,0,12,0)"}) {
    Mif mif(text);
    Font font = MakeFont("kept", 1, 2, kMm, 3, 4);
    EXPECT_FALSE(MIF::Read(font, mif.in)) << text;
    EXPECT_EQ(font, MakeFont("kept", 1, 2, kMm, 3, 4)) << text;
    ASSERT_EQ(mif.messages.size(), 1U) << text;
    EXPECT_TRUE(mif.messages[0].starts_with("Invalid Font@ test.mif, ")) << mif.messages[0];
  }
}

}  // namespace
