#include "app/io/transcoder.h"

#include "failure_text.h"

#include <gtest/gtest.h>

#include <string>

namespace App {
namespace {

std::string ToUtf8(std::string_view charset, std::string_view text) {
  Transcoder transcoder(charset, Transcoder::Direction::kToUtf8);
  return std::string(transcoder.Convert(text));
}

std::string FromUtf8(std::string_view charset, std::string_view text) {
  Transcoder transcoder(charset, Transcoder::Direction::kFromUtf8);
  return std::string(transcoder.Convert(text));
}

TEST(TranscoderTest, KnowsTheNamesOfInterchangePairs) {
  const struct {
    std::string_view name;
    std::string_view coded;
    std::string_view utf8;
  } cases[] = {
      {"WindowsLatin1", "\x80", "\u20AC"},
      {"WindowsLatin2", "\x8A\xB9", "\u0160\u0105"},
      {"WindowsCyrillic", "\xCC\xE8\xF0", "Мир"},
      {"WindowsGreek", "\xC1", "\u0391"},
      {"WindowsTurkish", "\xFD", "\u0131"},
      {"WindowsBalticRim", "\xC0", "\u0104"},
      {"WindowsHebrew", "\xE0", "\u05D0"},
      {"WindowsArabic", "\xC7", "\u0627"},
      {"WindowsVietnamese", "\xFE", "\u20AB"},
      {"WindowsThai", "\xA1", "\u0E01"},
      {"WindowsSimpChinese", "\xD6\xD0", "中"},
      {"WindowsTradChinese", "\xA4\xA4", "中"},
      {"WindowsJapanese", "\x92\x86", "中"},
      {"WindowsKorean", "\xC7\xD1", "한"},
      {"PackedEUCJapanese", "\xC3\xE6", "中"},
      {"MacRoman", "\x8A", "ä"},
      {"ISO8859_1", "\xE4", "ä"},
      {"ISO8859_2", "\xA1", "\u0104"},
      {"ISO8859_3", "\xA1", "\u0126"},
      {"ISO8859_4", "\xA2", "\u0138"},
      {"ISO8859_5", "\xB0", "\u0410"},
      {"ISO8859_6", "\xC7", "\u0627"},
      {"ISO8859_7", "\xC1", "\u0391"},
      {"ISO8859_8", "\xE0", "\u05D0"},
      {"ISO8859_9", "\xFD", "\u0131"},
      {"ISO8859_15", "\xA4", "\u20AC"},
      {"CodePage437", "\x84", "ä"},
      {"CodePage850", "\xE1", "ß"},
      {"CodePage852", "\x88", "\u0142"},
      {"CodePage855", "\xA0", "\u0430"},
      {"CodePage857", "\x8D", "\u0131"},
      {"CodePage860", "\x84", "ã"},
      {"CodePage861", "\x8D", "Þ"},
      {"CodePage863", "\x84", "Â"},
      {"CodePage864", "\xC7", "\uFE8D"},
      {"CodePage865", "\x9B", "ø"},
      {"CodePage869", "\xA4", "\u0391"},
      {"UTF-8", "ä", "ä"},
      {"KOI8-R", "\xC1", "\u0430"},
      {"windowslatin1", "\x80", "\u20AC"},
      {"CODEPAGE437", "\x84", "ä"},
  };
  for (const auto& [name, coded, utf8] : cases) {
    EXPECT_TRUE(IsKnownCharset(name)) << name;
    EXPECT_EQ(ToUtf8(name, coded), utf8) << name;
    EXPECT_EQ(FromUtf8(name, utf8), coded) << name;
  }
}

TEST(TranscoderTest, RefusesUnknownNames) {
  for (const char* const name : {"Klingon", "", "UTF-8//IGNORE", "UTF-8,", "WindowsLatin9"}) {
    EXPECT_FALSE(IsKnownCharset(name)) << name;
    EXPECT_EQ(FailureText([&] { Transcoder(name, Transcoder::Direction::kToUtf8); }),
              "the character set \"" + std::string(name) + "\" is unknown");
  }
}

TEST(TranscoderTest, NeutralLeavesTextsAsTheyAre) {
  const std::string_view text = "a\x80\xFF z\xC3\xA4";
  EXPECT_EQ(ToUtf8("Neutral", text), text);
  EXPECT_EQ(FromUtf8("NEUTRAL", text), text);
}

TEST(TranscoderTest, AsciiIsNotCopied) {
  const std::string text = "a plain text, longer than a short string";
  for (const auto direction : {Transcoder::Direction::kToUtf8, Transcoder::Direction::kFromUtf8}) {
    Transcoder transcoder("WindowsCyrillic", direction);
    EXPECT_EQ(transcoder.Convert(text).data(), text.data());
  }
}

TEST(TranscoderTest, SetsThatAreNotAsciiAreConvertedThroughout) {
  EXPECT_EQ(ToUtf8("UTF-16LE", std::string_view("a\0b\0", 4)), "ab");
  EXPECT_EQ(FromUtf8("UTF-16LE", "ab"), std::string("a\0b\0", 4));
  EXPECT_EQ(FromUtf8("UTF-16LE", ""), "");
}

TEST(TranscoderTest, AMissingCharacterBecomesAQuestionMarkAndIsCounted) {
  Transcoder transcoder("WindowsLatin1", Transcoder::Direction::kFromUtf8);
  EXPECT_EQ(transcoder.Convert("Zoë, Мир, 中"), "Zo\xEB, ???, ?");
  EXPECT_EQ(transcoder.GetLost(), 4);
  EXPECT_EQ(transcoder.GetInvalid(), 0);
  EXPECT_EQ(transcoder.Convert("ü"), "\xFC");
  EXPECT_EQ(transcoder.GetLost(), 4);
}

TEST(TranscoderTest, InvalidBytesPassUnchangedAndAreCounted) {
  Transcoder from_utf8("WindowsLatin1", Transcoder::Direction::kFromUtf8);
  EXPECT_EQ(from_utf8.Convert("\xFF\xC3\xA4\xC3"), "\xFF\xE4\xC3");
  EXPECT_EQ(from_utf8.GetInvalid(), 2);
  EXPECT_EQ(from_utf8.GetLost(), 0);

  Transcoder to_utf8("WindowsLatin1", Transcoder::Direction::kToUtf8);
  EXPECT_EQ(to_utf8.Convert("\x81\xE4"), "\x81\xC3\xA4");
  EXPECT_EQ(to_utf8.GetInvalid(), 1);

  Transcoder cut_off("WindowsJapanese", Transcoder::Direction::kToUtf8);
  EXPECT_EQ(cut_off.Convert("a\x92"), "a\x92");
  EXPECT_EQ(cut_off.GetInvalid(), 1);
}

TEST(TranscoderTest, LongTextsGrowTheBuffer) {
  std::string coded;
  std::string utf8;
  for (int i = 0; i < 1000; ++i) {
    coded += "\xCC";
    utf8 += "М";
  }
  EXPECT_EQ(ToUtf8("WindowsCyrillic", coded), utf8);
  EXPECT_EQ(FromUtf8("WindowsCyrillic", utf8), coded);
}

TEST(TranscoderTest, EveryTextOfASetWithStatesStandsAlone) {
  Transcoder transcoder("ISO-2022-JP", Transcoder::Direction::kFromUtf8);
  const std::string first(transcoder.Convert("中"));
  EXPECT_EQ(first, "\x1B$BCf\x1B(B");
  EXPECT_EQ(transcoder.Convert("中"), first);
}

}  // namespace
}  // namespace App
