#include <pelor/mif/keyword.h>

#include <gtest/gtest.h>

#include <tests/mif/mif_text.h>

namespace {

using namespace Pelor;

struct Row {
  MIF::KeyWord keyword;
  int value;
  const char* text;
};

constexpr Row kRows[] = {
    {MIF::Version, 0, "Version"},
    {MIF::Delimiter, 1, "Delimiter"},
    {MIF::Unique, 2, "Unique"},
    {MIF::Index, 3, "Index"},
    {MIF::CoordSys, 4, "CoordSys"},
    {MIF::Transform, 5, "Transform"},
    {MIF::Columns, 6, "Columns"},
    {MIF::Data, 7, "Data"},
    {MIF::Char, 8, "Char"},
    {MIF::Integer, 9, "Integer"},
    {MIF::SmallInt, 10, "SmallInt"},
    {MIF::Decimal, 11, "Decimal"},
    {MIF::Float, 12, "Float"},
    {MIF::Date, 13, "Date"},
    {MIF::Logical, 14, "Logical"},
    {MIF::Earth, 15, "Earth"},
    {MIF::NonEarth, 16, "NonEarth"},
    {MIF::Units, 17, "Units"},
    {MIF::Bounds, 18, "Bounds"},
    {MIF::Projection, 19, "Projection"},
    {MIF::None, 20, "None"},
    {MIF::Point, 21, "Point"},
    {MIF::Line, 22, "Line"},
    {MIF::PLine, 23, "PLine"},
    {MIF::Region, 24, "Region"},
    {MIF::Arc, 25, "Arc"},
    {MIF::Text, 26, "Text"},
    {MIF::Rect, 27, "Rect"},
    {MIF::RoundRect, 28, "RoundRect"},
    {MIF::Ellipse, 29, "Ellipse"},
    {MIF::Symbol, 30, "Symbol"},
    {MIF::Pen, 31, "Pen"},
    {MIF::Brush, 32, "Brush"},
    {MIF::Font, 33, "Font"},
    {MIF::Smooth, 34, "Smooth"},
    {MIF::Center, 35, "Center"},
    {MIF::Spacing, 36, "Spacing"},
    {MIF::Justify, 37, "Justify"},
    {MIF::Angle, 38, "Angle"},
    {MIF::Label, 39, "Label"},
    {MIF::Simple, 40, "Simple"},
    {MIF::Arrow, 41, "Arrow"},
    {MIF::Left, 42, "Left"},
    {MIF::Right, 43, "Right"},
    {MIF::CharSet, 44, "CharSet"},
    {MIF::Multiple, 45, "Multiple"},
};

TEST(KeyWordTest, EveryKeywordHasItsNumberAndItsText) {
  ASSERT_EQ(std::size(kRows), 46U);
  for (const Row& row : kRows) {
    EXPECT_EQ(static_cast<int>(row.keyword), row.value);
    EXPECT_EQ(MIF::KeyWordText(row.keyword), row.text);
    EXPECT_EQ(MIF::KeyWordID(row.text), row.keyword);
    EXPECT_EQ(MIF::KeyWordID(Tobri::LocStr::UpperCase(row.text)), row.keyword);
    EXPECT_EQ(MIF::KeyWordID(Tobri::LocStr::LowerCase(row.text)), row.keyword);
  }
}

TEST(KeyWordTest, NumbersOutsideTheTableHaveNoText) {
  EXPECT_EQ(MIF::KeyWordText(static_cast<MIF::KeyWord>(46)), "");
  EXPECT_EQ(MIF::KeyWordText(static_cast<MIF::KeyWord>(-1)), "");
  EXPECT_EQ(MIF::KeyWordText(static_cast<MIF::KeyWord>(0)), "Version");
}

TEST(KeyWordTest, OnlyWholeTextsAreKeywords) {
  EXPECT_EQ(static_cast<int>(MIF::KeyWordID("multiple")), 45);
  EXPECT_EQ(static_cast<int>(MIF::KeyWordID("Multi")), -1);
  EXPECT_EQ(static_cast<int>(MIF::KeyWordID("")), -1);
  EXPECT_EQ(static_cast<int>(MIF::KeyWordID("Pen ")), -1);
}

TEST(ReadKWTest, KeepsTheCaseOfTheTextAndThePositionBeforeTheBlanks) {
  Mif mif("\n \tpLiNe 3");
  MIF::ReadKW word;
  word.Read(mif.in);
  EXPECT_EQ(word.text, "pLiNe");
  EXPECT_EQ(word.id, MIF::PLine);
  EXPECT_EQ(word.pos.offset, 0U);
  EXPECT_EQ(mif.Rest(), " 3");
}

TEST(ReadKWTest, WhatIsNoKeywordReportsNothing) {
  Mif unknown("Multipoint 3");
  MIF::ReadKW word;
  word.Read(unknown.in);
  EXPECT_EQ(word.text, "Multipoint");
  EXPECT_EQ(word.id, MIF::NoKeyWord);
  Mif bracket("  (1)");
  word.Read(bracket.in);
  EXPECT_EQ(word.text, "");
  EXPECT_EQ(word.id, MIF::NoKeyWord);
  Mif empty("");
  word.Read(empty.in);
  EXPECT_EQ(word.id, MIF::NoKeyWord);
}

TEST(ReadSpecifierTest, AMismatchLeavesBlanksAndWordUnread) {
  Mif mif("  Brush (1,0)");
  EXPECT_FALSE(MIF::ReadSpecifier(mif.in, MIF::Pen));
  EXPECT_EQ(mif.Rest(), "  Brush (1,0)");
}

TEST(ReadSpecifierTest, AMatchIsReadWhateverItsCase) {
  Mif mif("pen (1,2,0)");
  EXPECT_TRUE(MIF::ReadSpecifier(mif.in, MIF::Pen));
  EXPECT_EQ(mif.Rest(), " (1,2,0)");
}

TEST(ReadSpecifierTest, NoBlankIsNeededBeforeABracket) {
  Mif mif("PEN(1,2,0)");
  EXPECT_TRUE(MIF::ReadSpecifier(mif.in, MIF::Pen));
  EXPECT_EQ(mif.Rest(), "(1,2,0)");
}

TEST(ReadSpecifierTest, LongerAndShorterWordsAreOthers) {
  for (const std::string text : {"Pentagon", "Pen_", "Pen2", "Pe", "P", "", "Pe\nn"}) {
    Mif mif(text);
    EXPECT_FALSE(MIF::ReadSpecifier(mif.in, MIF::Pen)) << text;
    EXPECT_EQ(mif.Rest(), text);
  }
}

TEST(ReadSpecifierTest, WordAtTheEndOfTheInputIsRead) {
  Mif mif("\n\tPen");
  EXPECT_TRUE(MIF::ReadSpecifier(mif.in, MIF::Pen));
  EXPECT_EQ(mif.Rest(), "");
}

TEST(ReadSpecifierTest, NoKeyWordIsAnyWordThatIsNone) {
  Mif unknown(" word 1");
  EXPECT_TRUE(MIF::ReadSpecifier(unknown.in, MIF::NoKeyWord));
  EXPECT_EQ(unknown.Rest(), " 1");
  Mif known(" Pen (1,2,0)");
  EXPECT_FALSE(MIF::ReadSpecifier(known.in, MIF::NoKeyWord));
  EXPECT_EQ(known.Rest(), " Pen (1,2,0)");
}

TEST(ReadSpecifierTest, NumbersBehindTheTableAreNoWord) {
  for (const std::string text : {" word", " Multiple", " ("}) {
    Mif mif(text);
    EXPECT_FALSE(MIF::ReadSpecifier(mif.in, static_cast<MIF::KeyWord>(46))) << text;
    EXPECT_EQ(mif.Rest(), text);
  }
}

}  // namespace
