#include "app/convert/number_set.h"

#include "failure_text.h"

#include <gtest/gtest.h>

#include <vector>

namespace App {
namespace {

std::vector<unsigned> Members(const NumberSet& set) {
  std::vector<unsigned> members;
  for (unsigned i = 0; i < 2 * NumberSet::kLimit; ++i) {
    if (set.Contains(i)) members.push_back(i);
  }
  return members;
}

std::string LevelRefusal(std::string_view text) {
  return FailureText([&] { static_cast<void>(ParseLevels(text)); });
}

TEST(NumberSetTest, TakesNumbersAndRanges) {
  EXPECT_EQ(Members(ParseLevels("1,3-5,63")), (std::vector<unsigned>{1, 3, 4, 5, 63}));
  EXPECT_EQ(Members(ParseLevels("0")), std::vector<unsigned>{0});
  EXPECT_EQ(Members(NumberSet()), std::vector<unsigned>{});
  EXPECT_EQ(Members(NumberSet::All()).size(), NumberSet::kLimit);
  EXPECT_TRUE(NumberSet::All().IsAll());
  EXPECT_FALSE(ParseLevels("0-63").IsAll());
}

TEST(NumberSetTest, BlanksAroundNumbersDoNotMatter) {
  EXPECT_EQ(Members(ParseLevels(" 1, 3 - 5 ,\t63 ")), (std::vector<unsigned>{1, 3, 4, 5, 63}));
  EXPECT_EQ(Members(ParseElementTypes("3, text , 12 - 14")), (std::vector<unsigned>{3, 12, 13, 14, 17}));
  EXPECT_EQ(LevelRefusal("1 2"), "\"1 2\" is not a level");
  EXPECT_EQ(LevelRefusal("1, "), "\"\" is not a level");
}

TEST(NumberSetTest, RefusesAnythingElseInPlainWords) {
  EXPECT_EQ(LevelRefusal(""), "\"\" is not a level");
  EXPECT_EQ(LevelRefusal("1,,2"), "\"\" is not a level");
  EXPECT_EQ(LevelRefusal("1,x"), "\"x\" is not a level");
  EXPECT_EQ(LevelRefusal("3-"), "\"3-\" is not a level");
  EXPECT_EQ(LevelRefusal("-3"), "\"-3\" is not a level");
  EXPECT_EQ(LevelRefusal("64"), "\"64\" is not a level: they end at 63");
  EXPECT_EQ(LevelRefusal("99999999999"), "\"99999999999\" is not a level");
  EXPECT_EQ(LevelRefusal("5-3"), "\"5-3\" is not a level range: it runs backwards");
}

TEST(NumberSetTest, KnowsElementTypesByName) {
  EXPECT_EQ(Members(ParseElementTypes("line,TEXT,line-string,\"Line String\",12-14,b-spline-pole")),
            (std::vector<unsigned>{3, 4, 12, 13, 14, 17, 21}));
  EXPECT_EQ(FailureText([] { static_cast<void>(ParseElementTypes("blob")); }),
            "\"blob\" is not a type of elements");
}

TEST(NumberSetTest, KnowsElementClassesByName) {
  EXPECT_EQ(Members(ParseElementClasses("primary,2,dimensioning-element")), (std::vector<unsigned>{0, 2, 3}));
}

}  // namespace
}  // namespace App
