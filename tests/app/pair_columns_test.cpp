#include "app/pair/pair_columns.h"

#include "failure_text.h"

#include <gtest/gtest.h>

namespace App {
namespace {

namespace MI = Pelor::MI;

const std::vector<MI::Column> kColumns = {MI::Column("Id", MI::Integer_t(), 0),
                                          MI::Column("Größe", MI::Float_t(), 0),
                                          MI::Column("Name", MI::Character_t(), 8, 0)};

TEST(PairColumnsTest, AllAreSelectedByDefault) {
  EXPECT_EQ(SelectColumns(kColumns, {}), (std::vector<std::size_t>{0, 1, 2}));
  EXPECT_EQ(SelectColumns({}, {}), std::vector<std::size_t>());
}

TEST(PairColumnsTest, NamesSelectInTheirOrderAndInAnyCase) {
  EXPECT_EQ(SelectColumns(kColumns, std::vector<std::string>{"NAME", "id"}),
            (std::vector<std::size_t>{2, 0}));
  EXPECT_EQ(SelectColumns(kColumns, std::vector<std::string>{"größe"}), (std::vector<std::size_t>{1}));
  EXPECT_EQ(SelectColumns(kColumns, std::vector<std::string>{"Id", "Id"}), (std::vector<std::size_t>{0, 0}));
}

TEST(PairColumnsTest, UnknownNameIsAFailureThatTellsTheNames) {
  const std::vector<std::string> names = {"Id", "Nam"};
  EXPECT_EQ(FailureText([&] { static_cast<void>(SelectColumns(kColumns, names)); }),
            "there is no column \"Nam\"; there are Id, Größe, Name");
  EXPECT_EQ(FailureText([&] { static_cast<void>(SelectColumns({}, names)); }), "there is no column \"Id\"");
}

TEST(PairColumnsTest, NamesBecomeFitForAHeader) {
  EXPECT_EQ(PairColumnName("Name_2", 1), "Name_2");
  EXPECT_EQ(PairColumnName("Größe", 1), "Größe");
  EXPECT_EQ(PairColumnName("a b(c),\"d\"", 1), "a_b_c___d_");
  EXPECT_EQ(PairColumnName("2nd", 1), "_2nd");
  EXPECT_EQ(PairColumnName("", 7), "COL7");
}

}  // namespace
}  // namespace App
