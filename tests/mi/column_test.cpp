#include <pelor/mi/column.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace Pelor::MI {
namespace {

using Tobri::String;

void ExpectColumn(const Column& column, const char* name, int type, int width, int decimals, int flags) {
  EXPECT_EQ(column.name, String(name));
  EXPECT_EQ(column.type, type);
  EXPECT_EQ(column.width, width);
  EXPECT_EQ(column.decimals, decimals);
  EXPECT_EQ(column.flags, flags);
}

// The only test of this program that makes default columns: their numbers count for the whole process.
TEST(ColumnTest, DefaultColumnsAreNumberedFrom1To9999AndOverAgain) {
  ExpectColumn(Column(), "COL1", 0, 1, 0, 4);
  ExpectColumn(Column(), "COL2", 0, 1, 0, 4);
  ExpectColumn(Column(), "COL3", 0, 1, 0, 4);
  for (int number = 4; number < 9999; ++number) ASSERT_EQ(Column().name, "COL" + std::to_string(number));
  EXPECT_EQ(Column().name, String("COL9999"));
  EXPECT_EQ(Column().name, String("COL1")) << "the 10000th";
  EXPECT_EQ(Column().name, String("COL2"));
}

TEST(ColumnTest, EveryTypeHasItsNumberAndWidth) {
  ExpectColumn(Column("a", Character_t(), 12, 3), "a", 0, 12, 0, 3);
  ExpectColumn(Column("b", Integer_t(), 3), "b", 1, 4, 0, 3);
  ExpectColumn(Column("c", SmallInt_t(), 3), "c", 2, 2, 0, 3);
  ExpectColumn(Column("d", Decimal_t(), 10, 2, 3), "d", 3, 10, 2, 3);
  ExpectColumn(Column("e", Float_t(), 3), "e", 4, 4, 0, 3);
  ExpectColumn(Column("f", Date_t(), 3), "f", 5, 6, 0, 3);
  ExpectColumn(Column("g", Logical_t(), 3), "g", 6, 1, 0, 3);
}

TEST(ColumnTest, AWidthBelow1BecomesOneThatWasNotGiven) {
  for (const int width : {0, -1, std::numeric_limits<int>::min()}) {
    ExpectColumn(Column("a", Character_t(), width, 0), "a", 0, 1, 0, 4);
    ExpectColumn(Column("a", Character_t(), width, 0xFFFB), "a", 0, 1, 0, 0xFFFF);
    ExpectColumn(Column("a", Decimal_t(), width, -3, 0), "a", 3, 1, -3, 4);
  }
}

TEST(ColumnTest, AGivenWidthKeepsTheFlagsAsGiven) {
  ExpectColumn(Column("a", Character_t(), 12, 4), "a", 0, 12, 0, 4);
  ExpectColumn(Column("a", Character_t(), 1, 0), "a", 0, 1, 0, 0);
  ExpectColumn(Column("a", Decimal_t(), 12, 3, 0xFFFF), "a", 3, 12, 3, 0xFFFF);
}

TEST(ColumnTest, AFixedWidthClearsTheFlagOfAWidthNotGiven) {
  ExpectColumn(Column("a", Integer_t(), 4), "a", 1, 4, 0, 0);
  ExpectColumn(Column("a", SmallInt_t(), 0xFFFF), "a", 2, 2, 0, 0xFFFB);
  ExpectColumn(Column("a", Float_t(), 6), "a", 4, 4, 0, 2);
  ExpectColumn(Column("a", Date_t(), 4), "a", 5, 6, 0, 0);
  ExpectColumn(Column("a", Logical_t(), 5), "a", 6, 1, 0, 1);
}

TEST(ColumnTest, ColumnsCompareByAllTheirFields) {
  const Column base("a", Decimal_t(), 10, 2, 0);
  EXPECT_EQ(base, Column("a", Decimal_t(), 10, 2, 0));
  EXPECT_NE(base, Column("b", Decimal_t(), 10, 2, 0));
  EXPECT_NE(base, Column("a", Character_t(), 10, 0));
  EXPECT_NE(base, Column("a", Decimal_t(), 11, 2, 0));
  EXPECT_NE(base, Column("a", Decimal_t(), 10, 3, 0));
  EXPECT_NE(base, Column("a", Decimal_t(), 10, 2, 1));
}

}  // namespace
}  // namespace Pelor::MI
