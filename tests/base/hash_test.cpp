#include <pelor/base/hash.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace {

using Tobri::AssocKeyH16;
using Tobri::HashTable16_Size;
using Tobri::StrH16Rep;
using Tobri::String;

TEST(HashTest, TheTableSizeIsAPrimeThatLeavesAQuarterFree) {
  const struct {
    unsigned entries;
    unsigned size;
  } cases[] = {
      {0, 7},         {6, 7},         {7, 13},        {10, 13},       {11, 31},       {24, 31},
      {25, 61},       {46, 61},       {47, 127},      {96, 127},      {97, 251},      {189, 251},
      {190, 509},     {382, 509},     {383, 1021},    {766, 1021},    {767, 2039},    {1530, 2039},
      {1531, 4093},   {3070, 4093},   {3071, 8191},   {6144, 8191},   {6145, 16381},  {12286, 16381},
      {12287, 32749}, {24562, 32749}, {24563, 65521}, {49141, 65521}, {49142, 65521}, {4294967295U, 65521},
  };
  for (const auto& expected : cases)
    EXPECT_EQ(HashTable16_Size(expected.entries), expected.size) << expected.entries;
}

TEST(HashTest, TheDefaultHashIsTheFoldedFnv1a) {
  // The published 32-bit values are 811C9DC5, E40C292C and BF9CF968.
  EXPECT_EQ(StrH16Rep::Default(""), 0x811C ^ 0x9DC5);
  EXPECT_EQ(StrH16Rep::Default("a"), 0xE40C ^ 0x292C);
  EXPECT_EQ(StrH16Rep::Default("foobar"), 0xBF9C ^ 0xF968);
}

TEST(HashTest, TheRepresentationHashesWithTheHasherItWasGotWith) {
  const auto by_default = StrH16Rep::Get();
  EXPECT_EQ((*by_default)("foobar"), 0x46F4);
  EXPECT_EQ(by_default->RefCount(), 1U);
  const auto by_length =
      StrH16Rep::Get([](const String& key) noexcept { return static_cast<std::uint16_t>(key.Length()); });
  EXPECT_EQ((*by_length)("foobar"), 6);
}

TEST(AssocKeyH16Test, FindsWhatWasSetAndNothingElse) {
  AssocKeyH16<String, int> table(StrH16Rep::Get(), 46);
  EXPECT_EQ(table.Find("Version"), nullptr);
  table.Set("VERSION", 0);
  table.Set("MULTIPLE", 45);
  ASSERT_NE(table.Find("VERSION"), nullptr);
  EXPECT_EQ(*table.Find("VERSION"), 0);
  EXPECT_EQ(*table.Find("MULTIPLE"), 45);
  EXPECT_EQ(table.Find("Version"), nullptr) << "case counts";
  EXPECT_EQ(table.Find(""), nullptr);
  EXPECT_EQ(table.Find(std::string_view("VERSION\0", 8)), nullptr);
}

TEST(AssocKeyH16Test, SettingAKeyAgainReplacesItsValue) {
  AssocKeyH16<String, std::string> table(StrH16Rep::Get(), 1);
  table.Set("a", "one");
  table.Set("a", "two");
  EXPECT_EQ(*table.Find("a"), "two");
}

TEST(AssocKeyH16Test, KeysOfOneHashAndMoreEntriesThanExpectedStayApart) {
  for (const StrH16Rep::Hasher hasher :
       {StrH16Rep::Hasher(&StrH16Rep::Default),
        StrH16Rep::Hasher([](const String&) noexcept -> std::uint16_t { return 65535; })}) {
    AssocKeyH16<String, int> table(StrH16Rep::Get(hasher), 3);
    for (int i = 0; i < 500; ++i) table.Set(std::to_string(i), i);
    for (int i = 0; i < 500; ++i) {
      const int* const value = table.Find(std::to_string(i));
      ASSERT_NE(value, nullptr) << i;
      EXPECT_EQ(*value, i);
    }
    EXPECT_EQ(table.Find("500"), nullptr);
  }
}

}  // namespace
