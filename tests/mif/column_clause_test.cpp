#include <pelor/mif/column_clause.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/mif/mif_text.h>

namespace {

using namespace Pelor;
using MI::Column;
using MI::Transform;

template <class T>
std::string Text(const T& value) {
  return MifText([&](std::ostream& out) { MIF::Write(value, out); });
}

TEST(ColumnClauseTest, EveryTypeHasItsText) {
  EXPECT_EQ(Text(Column("Name", MI::Character_t(), 12, 0)), "Name\t\tChar(12)");
  EXPECT_EQ(Text(Column("Pop", MI::Integer_t(), 0)), "Pop\t\tInteger");
  EXPECT_EQ(Text(Column("Code", MI::SmallInt_t(), 0)), "Code\t\tSmallInt");
  EXPECT_EQ(Text(Column("Area", MI::Decimal_t(), 10, 3, 0)), "Area\t\tDecimal(10,3)");
  EXPECT_EQ(Text(Column("Len", MI::Float_t(), 0)), "Len\t\tFloat");
  EXPECT_EQ(Text(Column("Day", MI::Date_t(), 0)), "Day\t\tDate");
  EXPECT_EQ(Text(Column("Is", MI::Logical_t(), 0)), "Is\t\tLogical");
}

TEST(ColumnClauseTest, AWidthThatWasNotGivenHasFourDigits) {
  EXPECT_EQ(Text(Column("A", MI::Character_t(), 0, 0)), "A\t\tChar(0001)");
  EXPECT_EQ(Text(Column("A", MI::Decimal_t(), 0, 2, 0)), "A\t\tDecimal(0001,2)");
  Column column("A", MI::Character_t(), 0, 0);
  column.width = 254;
  EXPECT_EQ(Text(column), "A\t\tChar(0254)");
  column.width = 123456;
  EXPECT_EQ(Text(column), "A\t\tChar(9999)") << "the text keeps its length";
}

TEST(ColumnClauseTest, TheFillCharacterOfTheStreamIsRestored) {
  std::ostringstream out;
  out.fill('*');
  MIF::Write(Column("A", MI::Character_t(), 0, 0), out);
  EXPECT_EQ(out.fill(), '*');
}

TEST(ColumnClauseTest, ATypeOutsideTheTableHasNoText) {
  Column column("A", MI::Integer_t(), 0);
  column.type = 7;
  EXPECT_EQ(Text(column), "A\t\t");
  column.type = -1;
  EXPECT_EQ(Text(column), "A\t\t");
}

TEST(ColumnClauseTest, EveryTypeIsReadBack) {
  for (const Column& column :
       {Column("Name", MI::Character_t(), 12, 0), Column("Pop", MI::Integer_t(), 0),
        Column("Code", MI::SmallInt_t(), 0), Column("Area", MI::Decimal_t(), 10, 3, 0),
        Column("Len", MI::Float_t(), 0), Column("Day", MI::Date_t(), 0), Column("Is", MI::Logical_t(), 0)}) {
    Mif mif("\n  " + Text(column) + "\nnext");
    Column read;
    EXPECT_TRUE(MIF::Read(read, mif.in));
    EXPECT_EQ(read, column);
    EXPECT_EQ(mif.Rest(), "\nnext");
  }
}

TEST(ColumnClauseTest, RealSpellingsAreRead) {
  Mif mif(
      "Gr\xF6\xDF"
      "e CHAR ( 0020 )\r\n\tB\tdecimal(5 , 2)\r\n");
  Column column;
  EXPECT_TRUE(MIF::Read(column, mif.in));
  EXPECT_EQ(column, Column("Gr\xF6\xDF"
                           "e",
                           MI::Character_t(), 20, 0));
  EXPECT_TRUE(MIF::Read(column, mif.in));
  EXPECT_EQ(column, Column("B", MI::Decimal_t(), 5, 2, 0));
}

TEST(ColumnClauseTest, WhatIsMalformedLeavesTheColumnUnchanged) {
  for (const char* text : {"", "A", "A LargeInt", "A Char", "A Char()", "A Char(x)", "A Char(1",
                           "A Char(1,2)", "A Decimal(5)", "A Decimal(5,2,1)", "A \"Char\""}) {
    Mif mif(text);
    Column column("Kept", MI::Date_t(), 0);
    EXPECT_FALSE(MIF::Read(column, mif.in)) << text;
    EXPECT_EQ(column, Column("Kept", MI::Date_t(), 0)) << text;
    ASSERT_EQ(mif.messages.size(), 1U) << text;
    EXPECT_TRUE(mif.messages[0].starts_with("Invalid Column@ test.mif, line 1, column ")) << mif.messages[0];
  }
}

TEST(TransformClauseTest, IsFourNumbers) {
  EXPECT_EQ(Text(Transform{0.001, -2, 1234567.891, 0}), "Transform 0.001,-2,1234567.891,0");
}

TEST(TransformClauseTest, IsReadWithOrWithoutItsKeyword) {
  for (const char* text :
       {"Transform 2,3,10,20\nColumns", "TRANSFORM 2, 3, 10, 20\nColumns", "2 3 10 20\nColumns"}) {
    Mif mif(text);
    Transform transform;
    EXPECT_TRUE(MIF::Read(transform, mif.in)) << text;
    EXPECT_EQ(transform, (Transform{2, 3, 10, 20}));
    EXPECT_EQ(mif.Rest(), "\nColumns");
  }
}

TEST(TransformClauseTest, WhatIsMalformedLeavesTheTransformUnchanged) {
  for (const char* text : {"Transform", "Transform 1,2,3", "Transform 1,2,3\n4", "Transform 1,2,x,4"}) {
    Mif mif(text);
    Transform transform{5, 6, 7, 8};
    EXPECT_FALSE(MIF::Read(transform, mif.in)) << text;
    EXPECT_EQ(transform, (Transform{5, 6, 7, 8})) << text;
    ASSERT_EQ(mif.messages.size(), 1U) << text;
    EXPECT_TRUE(mif.messages[0].starts_with("Invalid Transform@ test.mif, line 1, column "))
        << mif.messages[0];
  }
}

}  // namespace
