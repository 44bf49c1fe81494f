#include <pelor/dgn/types.h>

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace {

using namespace Pelor::DGN;

// Every named type of the 128.
const std::map<int, std::string> kTypeNames = {
    {1, "Cell Library Header"},
    {2, "Cell Header"},
    {3, "Line"},
    {4, "Line String"},
    {5, "Group"},
    {6, "Shape"},
    {7, "Text Node"},
    {8, "Digitizer Setup Data"},
    {9, "Design File Header"},
    {10, "Level Symbology"},
    {11, "Curve"},
    {12, "Complex String"},
    {13, "Conic"},
    {14, "Complex Shape"},
    {15, "Ellipse"},
    {16, "Arc"},
    {17, "Text"},
    {18, "Surface"},
    {19, "Solid"},
    {20, "Subfigure"},
    {21, "B-Spline Pole"},
    {22, "Point String"},
    {23, "Truncated Cone"},
    {24, "B-Spline Surface Header"},
    {25, "B-Spline Surface Body"},
    {26, "B-Spline Knot"},
    {27, "B-Spline Curve Header"},
    {28, "B-Spline Weight Factor"},
    {33, "Dimension Element"},
    {34, "Shared Cell Definition"},
    {35, "Shared Cell"},
    {36, "Multiline Element"},
    {58, "MicroStation Text Array"},
    {59, "MicroStation Text Stack"},
    {66, "MicroStation Element"},
    {87, "Raster Header"},
    {88, "Raster Component"},
};

TEST(ETypeTest, EveryNumberHasItsNameOrIsUnknown) {
  for (int number = -2; number <= 130; ++number) {
    const auto named = kTypeNames.find(number);
    const std::string expected =
        named != kTypeNames.end() ? named->second : "Unknown Entity (" + std::to_string(number) + ")";
    EXPECT_EQ(Name(static_cast<EType>(number)).str(), expected);
  }
  EXPECT_EQ(Name(static_cast<EType>(37)).str(), "Unknown Entity (37)");
}

TEST(ETypeTest, ExtremeNumbersAreUnknown) {
  EXPECT_EQ(Name(static_cast<EType>(INT32_MIN)).str(), "Unknown Entity (-2147483648)");
  EXPECT_EQ(Name(static_cast<EType>(INT32_MAX)).str(), "Unknown Entity (2147483647)");
}

TEST(ETypeTest, TypeClassTellsDisplayableFromNonGraphicAndUnknown) {
  const std::set<int> displayable = {2,  3,  4,  6,  7,  11, 12, 13, 14, 15, 16, 17,
                                     18, 19, 21, 22, 23, 24, 25, 26, 27, 28, 88};
  const std::set<int> non_graphic = {1, 5, 8, 9, 10, 20, 66};
  for (int number = -1; number <= 128; ++number) {
    const int expected = displayable.contains(number) ? 1 : non_graphic.contains(number) ? 0 : 2;
    EXPECT_EQ(TypeClass(static_cast<EType>(number)), expected) << number;
  }
}

TEST(ETypeTest, ComplexTypesOwnComponents) {
  const std::set<int> complex = {1, 2, 7, 12, 14, 18, 19, 24, 27, 87};
  for (int number = -1; number <= 128; ++number) {
    EXPECT_EQ(IsComplex(static_cast<EType>(number)), complex.contains(number)) << number;
  }
}

TEST(EClassTest, EveryNumberHasItsNameOrIsUnknown) {
  const char* const names[] = {"Primary",
                               "Pattern Component",
                               "Construction Element",
                               "Dimensioning Element",
                               "Primary Rule Element",
                               "Linear Patterned Element",
                               "Construction Rule Element",
                               "Unknown Class (7)",
                               "Unknown Class (8)",
                               "Unknown Class (9)"};
  for (int number = 0; number < 10; ++number) {
    EXPECT_EQ(Name(static_cast<EClass>(number)).str(), names[number]);
  }
  EXPECT_EQ(Name(static_cast<EClass>(-1)).str(), "Unknown Class (-1)");
}

TEST(SymbStyleTest, EveryNumberHasItsNameOrIsUnknown) {
  const char* const names[] = {"Solid Line",
                               "Dashed Line",
                               "Medium Dashed Line",
                               "Long Dashed Line",
                               "Dash Dot Line",
                               "Short Dashed Line",
                               "Dash, Dot, Dot Line",
                               "Long Dash, Dash Line",
                               "Unknown Symbology Style (8)",
                               "Unknown Symbology Style (9)"};
  for (int number = 0; number < 10; ++number) {
    EXPECT_EQ(Name(static_cast<SymbStyle>(number)).str(), names[number]);
  }
  EXPECT_EQ(Name(static_cast<SymbStyle>(-1)).str(), "Unknown Symbology Style (-1)");
}

}  // namespace
