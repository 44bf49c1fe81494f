#include <pelor/base/char_set.h>
#include <pelor/base/loc_char.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Tobri::ChrM;
using Tobri::ChrS;
using Tobri::IRefC;
using Tobri::LocChar;

static_assert(std::forward_iterator<ChrS<char>::Iter>);
static_assert(std::sentinel_for<std::default_sentinel_t, ChrS<char>::Iter>);

std::string Members(const ChrS<char>& set) {
  std::string members;
  for (const char member : set) members += member;
  return members;
}

TEST(ChrSTest, ANewSetHoldsNothing) {
  const ChrS<char> set;
  EXPECT_TRUE(set.IsEmpty());
  for (int code = 0; code < 256; ++code) EXPECT_FALSE(set.Contains(static_cast<char>(code))) << code;
  EXPECT_EQ(Members(set), "");
}

TEST(ChrSTest, AOneCharacterSetHoldsJustThat) {
  for (int one = 0; one < 256; ++one) {
    const ChrS<char> set(static_cast<char>(one));
    EXPECT_FALSE(set.IsEmpty());
    for (int code = 0; code < 256; ++code) {
      ASSERT_EQ(set.Contains(static_cast<char>(code)), code == one) << one << ' ' << code;
    }
    EXPECT_EQ(Members(set), std::string(1, static_cast<char>(one)));
  }
}

TEST(ChrSTest, ASetFromATextHoldsItsCharactersOnce) {
  const ChrS<char> set("banana");
  EXPECT_EQ(Members(set), "abn");
  EXPECT_TRUE(set.Contains('b'));
  EXPECT_FALSE(set.Contains('c'));
}

TEST(ChrSTest, NulAndBytesAbove127AreOrdinaryMembers) {
  using namespace std::string_view_literals;
  const ChrS<char> set("\xFF\0\x80z"sv);
  EXPECT_TRUE(set.Contains('\0'));
  EXPECT_TRUE(set.Contains('\xFF'));
  EXPECT_EQ(Members(set), "\0z\x80\xFF"sv);
}

TEST(ChrSTest, AddJoinsMembers) {
  ChrS<char> set(',');
  set.Add(';');
  set.Add("\t ,");
  EXPECT_EQ(Members(set), "\t ,;");
}

TEST(ChrSTest, TheIteratorWalksInAscendingOrderOfUnsignedCodes) {
  ChrS<char> set;
  for (int code = 255; code >= 0; --code) set.Add(static_cast<char>(code));
  int expected = 0;
  for (auto it = set.GetIter(); it; ++it) ASSERT_EQ(static_cast<unsigned char>(*it), expected++);
  EXPECT_EQ(expected, 256);
}

TEST(ChrSTest, TheIteratorOutlivesItsSetAndSeesNoLaterChange) {
  ChrS<char>::Iter it;
  EXPECT_FALSE(it);
  {
    ChrS<char> set("ac");
    it = set.GetIter();
    set.Add('b');
  }
  EXPECT_EQ(*it++, 'a');
  EXPECT_EQ(*it, 'c');
  EXPECT_EQ(++it, std::default_sentinel);
}

TEST(ChrSTest, SetsAreEqualWhenTheirMembersAre) {
  EXPECT_EQ(ChrS<char>("abc"), ChrS<char>("ccba"));
  EXPECT_NE(ChrS<char>("abc"), ChrS<char>("ab"));
  EXPECT_EQ(ChrS<char>(""), ChrS<char>());
}

TEST(ChrSTest, ASetIsSharedThroughItsHandle) {
  const IRefC<ChrS<char>> first(new ChrS<char>('"'));
  const IRefC<ChrS<char>> second(first);
  EXPECT_EQ(first->RefCount(), 2U);
  EXPECT_TRUE(second->Contains('"'));
}

TEST(ChrMTest, ANewMapLeavesEveryCharacterAsItIs) {
  const ChrM<char> map;
  for (int code = 0; code < 256; ++code) {
    EXPECT_EQ(map[static_cast<char>(code)], static_cast<char>(code)) << code;
  }
}

TEST(ChrMTest, SetChangesOneCharacter) {
  ChrM<char> map;
  map.Set('\xE4', 'a');
  for (int code = 0; code < 256; ++code) {
    EXPECT_EQ(map[static_cast<char>(code)], code == 0xE4 ? 'a' : static_cast<char>(code)) << code;
  }
  EXPECT_NE(map, ChrM<char>());
  map.Set('\xE4', '\xE4');
  EXPECT_EQ(map, ChrM<char>());
}

TEST(ChrMTest, AMapIsSharedThroughItsHandle) {
  const IRefC<ChrM<char>> first(new ChrM<char>());
  const IRefC<ChrM<char>> second(first);
  EXPECT_EQ((*second)['x'], 'x');
  EXPECT_EQ(first->RefCount(), 2U);
}

// The classes spelled out as the characters that are in them.
struct ClassMembers {
  LocChar::Class bit;
  std::string_view members;
};

constexpr std::string_view kControls(
    "\x00\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0A\x0B\x0C\x0D\x0E\x0F"
    "\x10\x11\x12\x13\x14\x15\x16\x17\x18\x19\x1A\x1B\x1C\x1D\x1E\x1F\x7F",
    33);

constexpr ClassMembers kClasses[] = {
    {LocChar::Upper, "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
    {LocChar::Lower, "abcdefghijklmnopqrstuvwxyz"},
    {LocChar::Letter, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"},
    {LocChar::Digit, "0123456789"},
    {LocChar::HexDigit, "0123456789ABCDEFabcdef"},
    {LocChar::Space, "\t\n\v\f\r "},
    {LocChar::Punct, "!\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~"},
    {LocChar::Control, kControls},
};

TEST(LocCharTest, EveryAsciiByteIsInExactlyItsClasses) {
  for (const ClassMembers& row : kClasses) {
    for (int code = 0; code < 0x80; ++code) {
      const char c = static_cast<char>(code);
      const bool expected = row.members.find(c) != std::string_view::npos;
      EXPECT_EQ(LocChar::Is(c, row.bit), expected) << "class " << row.bit << " code " << code;
    }
  }
}

TEST(LocCharTest, BytesFrom128OnAreLettersAndNothingElse) {
  for (std::size_t code = 0x80; code < 0x100; ++code)
    EXPECT_EQ(LocChar::ctype[code], LocChar::Letter) << code;
}

TEST(LocCharTest, IsTakesSeveralClassesAtOnce) {
  EXPECT_TRUE(LocChar::Is('7', LocChar::Letter | LocChar::Digit));
  EXPECT_TRUE(LocChar::Is('q', LocChar::Letter | LocChar::Digit));
  EXPECT_FALSE(LocChar::Is('_', LocChar::Letter | LocChar::Digit));
}

}  // namespace
