#include <pelor/mi/brush.h>
#include <pelor/mi/font.h>
#include <pelor/mi/pen.h>
#include <pelor/mi/symbol.h>

#include <gtest/gtest.h>

#include <limits>

namespace Pelor::MI {
namespace {

using Tobri::String;

TEST(PenTest, TheDefaultIsASolidBlackPixel) {
  const Pen pen;
  EXPECT_EQ(pen.width, 1);
  EXPECT_EQ(pen.pattern, 2);
  EXPECT_EQ(pen.color, 0);
  EXPECT_EQ(pen.widthUnits, SLUnits_Pixel);
  EXPECT_FALSE(pen.interleaved);
}

TEST(PenTest, FieldsAreInTheirOrder) {
  const Pen pen{4, 5, 6, SLUnits_Point, true};
  EXPECT_EQ(pen.width, 4);
  EXPECT_EQ(pen.pattern, 5);
  EXPECT_EQ(pen.color, 6);
  EXPECT_EQ(pen.widthUnits, SLUnits_Point);
  EXPECT_TRUE(pen.interleaved);
  EXPECT_NE(pen, Pen());
}

TEST(BrushTest, TheDefaultIsASolidWhiteWithoutABackground) {
  const Brush brush;
  EXPECT_EQ(brush.pattern, 2);
  EXPECT_EQ(brush.foreColor, 0xFFFFFF);
  EXPECT_EQ(brush.backColor, -1);
}

TEST(BrushTest, FieldsAreInTheirOrder) {
  const Brush brush{4, 5, 6};
  EXPECT_EQ(brush.pattern, 4);
  EXPECT_EQ(brush.foreColor, 5);
  EXPECT_EQ(brush.backColor, 6);
}

TEST(BrushTest, TheTypeIsThePatternsGroup) {
  EXPECT_EQ(Brush{1}.GetType(), 1);
  EXPECT_EQ(Brush{2}.GetType(), 2);
  EXPECT_EQ(Brush{3}.GetType(), 3);
  EXPECT_EQ(Brush{11}.GetType(), 3);
  EXPECT_EQ(Brush{12}.GetType(), 12);
  EXPECT_EQ(Brush{71}.GetType(), 12);
  EXPECT_EQ(Brush{0}.GetType(), 3);
  EXPECT_EQ(Brush{-5}.GetType(), 3);
  EXPECT_EQ(Brush{std::numeric_limits<std::int32_t>::max()}.GetType(), 12);
  EXPECT_EQ(Brush{std::numeric_limits<std::int32_t>::min()}.GetType(), 3);
}

TEST(SymbolTest, TheDefaultIsAStandardSymbol) {
  const Symbol symbol;
  EXPECT_EQ(symbol.kind, 0);
  EXPECT_EQ(symbol.shape, 32);
  EXPECT_EQ(symbol.color, 0);
  EXPECT_EQ(symbol.size, 8);
  EXPECT_EQ(symbol.name, String());
  EXPECT_EQ(symbol.rotation, 0);
  EXPECT_EQ(symbol.style, 0);
  EXPECT_EQ(symbol.sizeUnits, 3);
  EXPECT_EQ(symbol.extra, -1);
}

TEST(SymbolTest, AFontSymbolHasKind1) {
  const Symbol symbol(65, 0xFF, 12, "Marks", 7, 90, SLUnits_TenthPoint);
  EXPECT_EQ(symbol.kind, 1);
  EXPECT_EQ(symbol.shape, 65);
  EXPECT_EQ(symbol.color, 0xFF);
  EXPECT_EQ(symbol.size, 12);
  EXPECT_EQ(symbol.name, String("Marks"));
  EXPECT_EQ(symbol.rotation, 90);
  EXPECT_EQ(symbol.style, 7);
  EXPECT_EQ(symbol.sizeUnits, SLUnits_TenthPoint);
  EXPECT_EQ(symbol.extra, -1);
}

TEST(SymbolTest, APictureSymbolHasKind2) {
  const Symbol symbol("PIN.BMP", 0xFF00, 24, 0xFFFF, SLUnits_Pixel);
  EXPECT_EQ(symbol.kind, 2);
  EXPECT_EQ(symbol.color, 0xFF00);
  EXPECT_EQ(symbol.size, 24);
  EXPECT_EQ(symbol.name, String("PIN.BMP"));
  EXPECT_EQ(symbol.rotation, 0);
  EXPECT_EQ(symbol.style, 0xFFFF);
  EXPECT_EQ(symbol.sizeUnits, SLUnits_Pixel);
  EXPECT_EQ(symbol.extra, -1);
}

TEST(SymbolTest, AStdSymbolIsASymbolOfKind0) {
  const Symbol symbol(StdSymbol{33, 0xFF, 10, SLUnits_TenthPoint});
  EXPECT_EQ(symbol.kind, 0);
  EXPECT_EQ(symbol.shape, 33);
  EXPECT_EQ(symbol.color, 0xFF);
  EXPECT_EQ(symbol.size, 10);
  EXPECT_EQ(symbol.name, String());
  EXPECT_EQ(symbol.sizeUnits, SLUnits_TenthPoint);
  EXPECT_EQ(symbol.extra, -1);
  EXPECT_EQ(Symbol(StdSymbol()), Symbol());
}

TEST(FontTest, TheDefaultFontHasItsName) {
  EXPECT_EQ(Font::deffont(), String("MS Sans Serif"));
  const Font font;
  EXPECT_EQ(font.name, String("MS Sans Serif"));
  EXPECT_EQ(font.style, 0);
  EXPECT_EQ(font.size, 0);
  EXPECT_EQ(font.sizeUnits, 3);
  EXPECT_EQ(font.foreColor, 0);
  EXPECT_EQ(font.backColor, -1);
}

TEST(FontTest, FieldsAreInTheirOrder) {
  const Font font{"Roman", 4, 5, SLUnits_Pixel, 6, 7};
  EXPECT_EQ(font.name, String("Roman"));
  EXPECT_EQ(font.style, 4);
  EXPECT_EQ(font.size, 5);
  EXPECT_EQ(font.sizeUnits, SLUnits_Pixel);
  EXPECT_EQ(font.foreColor, 6);
  EXPECT_EQ(font.backColor, 7);
}

TEST(FontTest, NoneIsTheDefaultWithoutAName) {
  Font expected;
  expected.name = "";
  EXPECT_EQ(Font::None(), expected);
  EXPECT_NE(Font::None(), Font());
}

TEST(FontTest, SizesConvertBetweenPointsAndTenths) {
  const Font font{.size = 12};
  EXPECT_EQ(font.GetSize(SLUnits_TenthPoint), 120);
  EXPECT_EQ(font.GetSize(SLUnits_Point), 12);
  EXPECT_EQ(font.GetSize(SLUnits_Pixel), 0);
  EXPECT_EQ((Font{.size = 125, .sizeUnits = SLUnits_TenthPoint}).GetSize(SLUnits_Point), 12);
  EXPECT_EQ((Font{.size = 8, .sizeUnits = SLUnits_Pixel}).GetSize(SLUnits_Point), 0);
}

TEST(SymbolTest, SizesConvertBetweenPointsAndTenths) {
  EXPECT_EQ(Symbol().GetSize(SLUnits_TenthPoint), 80);
  EXPECT_EQ(Symbol().GetSize(SLUnits_Point), 8);
  EXPECT_EQ(Symbol().GetSize(SLUnits_HundredthMm), 0);
  EXPECT_EQ(Symbol("a", 0, 125, 0, SLUnits_TenthPoint).GetSize(SLUnits_Point), 12);
}

TEST(StdSymbolTest, SizesConvertBetweenPointsAndTenths) {
  EXPECT_EQ((StdSymbol{32, 0, 12, SLUnits_Point}).GetSize(SLUnits_TenthPoint), 120);
  EXPECT_EQ((StdSymbol{32, 0, 125, SLUnits_TenthPoint}).GetSize(SLUnits_Point), 12);
  EXPECT_EQ((StdSymbol{32, 0, 8, SLUnits_Pixel}).GetSize(SLUnits_Point), 0);
  EXPECT_EQ((StdSymbol{32, 0, 8, SLUnits_Pixel}).GetSize(SLUnits_Pixel), 8);
}

}  // namespace
}  // namespace Pelor::MI
