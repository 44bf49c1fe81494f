#include <pelor/dgn/elements.h>
#include <pelor/dgn/errors.h>
#include <pelor/dgn/file.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <ios>
#include <string>
#include <tests/dgn/element_bytes.h>
#include <tests/dgn/record_samples.h>
#include <tests/dgn/words.h>
#include <vector>

namespace {

using namespace Pelor::DGN;
using namespace dgn_test;

constexpr auto kIn = std::ios_base::in;

TEST(Text2DTest, StartsEmpty) {
  const Text2D text;
  EXPECT_EQ(text.char_count, 0);
  EXPECT_EQ(text.field_count, 0);
  EXPECT_TRUE(text.text.IsEmpty());
  EXPECT_TRUE(text.fields.empty());
}

TEST(Text2DTest, ReadsItsFieldsTheCharactersAndTheEnterDataFields) {
  const auto text = ReadBack<Text2D>(17, kText2D);
  EXPECT_EQ(text.font, 7);
  EXPECT_EQ(text.justification, 2);
  EXPECT_EQ(text.length_multiplier, 6000);
  EXPECT_EQ(text.height_multiplier, 5000);
  EXPECT_EQ(text.rotation, kLowestLong + 1);
  EXPECT_EQ(text.origin, (point2d{100, -100}));
  EXPECT_EQ(text.char_count, 5);
  EXPECT_EQ(text.field_count, 3);
  EXPECT_EQ(text.text, "Hello");
  EXPECT_EQ(text.fields, (std::vector<Text2D::Field>{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
}

TEST(Text2DTest, FiveCharactersAndThreeFieldsAreWrittenAsFiveNineAndOneByte) {
  EXPECT_EQ(Written(17, SampleText2D(), 20).substr(24),
            std::string("Hello\1\2\3\4\5\6\7\x8\x9\0\xFF\xFF\xFF", 18));
}

TEST(Text2DTest, OnlyAnOddNumberOfFieldsIsPadded) {
  Text2D text = SampleText2D();
  text.field_count = 2;
  EXPECT_EQ(Written(17, text, 18).substr(24), "Hello\1\2\3\4\5\6\xFF\xFF\xFF");
  text.field_count = 0;
  EXPECT_EQ(Written(17, text, 15).substr(24), "Hello\xFF\xFF\xFF");
}

TEST(Text2DTest, TheTextIsCutOrFilledUpToItsCount) {
  Text2D text = SampleText2D();
  text.field_count = 0;
  text.char_count = 2;
  EXPECT_EQ(Written(17, text, 14).substr(24), "He\xFF\xFF\xFF\xFF");
  text.char_count = 8;
  EXPECT_EQ(Written(17, text, 16).substr(24), std::string("Hello\0\0\0\xFF\xFF", 10));
}

TEST(Text2DTest, MissingFieldsAreWrittenAsZeroBytes) {
  Text2D text = SampleText2D();
  text.char_count = 0;
  text.fields.resize(1);
  EXPECT_EQ(Written(17, text, 17).substr(24), std::string("\1\2\3\0\0\0\0\0\0\0\xFF\xFF", 12));
}

TEST(Text2DTest, ZeroCountsReadAsEmpty) {
  const TempFile design(
      DesignOf(ElementBytes(17, "0207 0000 1770 0000 1388 8000 0001 0000 0064 FFFF FF9C 0000")));
  File file(design.Name(), kIn);
  Text2D text = SampleText2D();
  text.Read(file);
  EXPECT_TRUE(file.good());
  EXPECT_TRUE(text.text.IsEmpty());
  EXPECT_TRUE(text.fields.empty());
}

TEST(Text2DTest, TheFieldsAreReleasedBeforeTheTypeIsLookedAt) {
  const TempFile design(DesignOf(ElementBytes(16, kArc2D)));
  File file(design.Name(), kIn);
  Text2D text = SampleText2D();
  EXPECT_THROW(text.Read(file), BadTypeErr);
  EXPECT_TRUE(text.fields.empty());
  EXPECT_EQ(text.field_count, 0);
  EXPECT_EQ(text.text, "Hello");
  EXPECT_EQ(text.char_count, 5);
}

TEST(Text2DTest, CountsBeyondTheElementFailTheStreamAndKeepWhatIsThere) {
  constexpr char kHead[] = "0207 0000 1770 0000 1388 8000 0001 0000 0064 FFFF FF9C ";
  struct {
    const char* rest;
    const char* text;
    std::vector<Text2D::Field> fields;
  } const cases[] = {
      {"0007 6548 6C6C 216F", "Hello!", {}},
      {"01FF 6548 6C6C 216F", "Hello!", {}},
      {"FF01 0141 0302 0504", "A", {{1, 2, 3}}},
  };
  for (const auto& c : cases) {
    const TempFile design(DesignOf(ElementBytes(17, std::string(kHead) + c.rest) + ElementBytes(3, kLine2D)));
    File file(design.Name(), kIn);
    const Text2D text(file);
    EXPECT_TRUE(file.fail()) << c.rest;
    EXPECT_EQ(text.text, c.text);
    EXPECT_EQ(text.char_count, text.text.Length());
    EXPECT_EQ(text.fields, c.fields);
    EXPECT_EQ(text.field_count, c.fields.size());
  }
}

TEST(Text2DTest, CountsBeyondTheFileFailTheStreamAndKeepWhatIsThere) {
  const std::string whole = ElementBytes(17, kText2D);
  {
    const TempFile design(whole.substr(0, kBodyOffset + 24 + 3));
    File file(design.Name(), kIn);
    const Text2D text(file);
    EXPECT_TRUE(file.fail());
    EXPECT_EQ(text.text, "Hel");
    EXPECT_EQ(text.char_count, 3);
    EXPECT_EQ(text.field_count, 0);
  }
  const TempFile design(whole.substr(0, kBodyOffset + 24 + 5 + 8));
  File file(design.Name(), kIn);
  const Text2D text(file);
  EXPECT_TRUE(file.fail());
  EXPECT_EQ(text.text, "Hello");
  EXPECT_EQ(text.fields, (std::vector<Text2D::Field>{{1, 2, 3}, {4, 5, 6}}));
  EXPECT_EQ(text.field_count, 2);
}

TEST(Text2DTest, CopiesDoNotShareTheirFields) {
  const Text2D original = SampleText2D();
  Text2D copy = original;
  copy.fields[0][0] = 99;
  EXPECT_EQ(original.fields[0][0], 1);
}

}  // namespace
