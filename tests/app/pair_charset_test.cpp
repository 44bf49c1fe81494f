#include "app/pair/pair_charset.h"

#include "failure_text.h"

#include <gtest/gtest.h>

namespace App {
namespace {

struct NameCase {
  const char* charset;
  const char* name;
};

TEST(PairCharsetTest, SetsHaveTheNamesOfHeaders) {
  for (const NameCase& c : {
           NameCase{"utf-8", "UTF-8"},
           NameCase{"UTF8", "UTF-8"},
           NameCase{"Neutral", "Neutral"},
           NameCase{"us-ascii", "Neutral"},
           NameCase{"ASCII", "Neutral"},
           NameCase{"windowslatin1", "WindowsLatin1"},
           NameCase{"CP1252", "WindowsLatin1"},
           NameCase{"windows-1252", "WindowsLatin1"},
           NameCase{"CodePage1252", "WindowsLatin1"},
           NameCase{"cp1250", "WindowsLatin2"},
           NameCase{"WINDOWSLATIN2", "WindowsLatin2"},
           NameCase{"windows-1251", "WindowsCyrillic"},
           NameCase{"WindowsCyrillic", "WindowsCyrillic"},
           NameCase{"cp1253", "WindowsGreek"},
           NameCase{"windowsgreek", "WindowsGreek"},
           NameCase{"cp1254", "WindowsTurkish"},
           NameCase{"windowsturkish", "WindowsTurkish"},
           NameCase{"cp1255", "WindowsHebrew"},
           NameCase{"windowshebrew", "WindowsHebrew"},
           NameCase{"cp1256", "WindowsArabic"},
           NameCase{"windowsarabic", "WindowsArabic"},
           NameCase{"cp1257", "WindowsBalticRim"},
           NameCase{"windowsbalticrim", "WindowsBalticRim"},
           NameCase{"cp1258", "WindowsVietnamese"},
           NameCase{"windowsvietnamese", "WindowsVietnamese"},
           NameCase{"cp874", "WindowsThai"},
           NameCase{"windowsthai", "WindowsThai"},
           NameCase{"cp932", "WindowsJapanese"},
           NameCase{"windowsjapanese", "WindowsJapanese"},
           NameCase{"GBK", "WindowsSimpChinese"},
           NameCase{"cp936", "WindowsSimpChinese"},
           NameCase{"windowssimpchinese", "WindowsSimpChinese"},
           NameCase{"UHC", "WindowsKorean"},
           NameCase{"cp949", "WindowsKorean"},
           NameCase{"windowskorean", "WindowsKorean"},
           NameCase{"Big5", "WindowsTradChinese"},
           NameCase{"cp950", "WindowsTradChinese"},
           NameCase{"windowstradchinese", "WindowsTradChinese"},
           NameCase{"EUC-JP", "PackedEUCJapanese"},
           NameCase{"packedeucjapanese", "PackedEUCJapanese"},
           NameCase{"macroman", "MacRoman"},
           NameCase{"MACINTOSH", "MacRoman"},
           NameCase{"latin1", "ISO8859_1"},
           NameCase{"latin2", "ISO8859_2"},
           NameCase{"latin3", "ISO8859_3"},
           NameCase{"latin4", "ISO8859_4"},
           NameCase{"latin5", "ISO8859_9"},
           NameCase{"ISO-8859-1", "ISO8859_1"},
           NameCase{"iso_8859-15", "ISO8859_15"},
           NameCase{"ISO8859_5", "ISO8859_5"},
           NameCase{"cp437", "CodePage437"},
           NameCase{"IBM850", "CodePage850"},
           NameCase{"codepage852", "CodePage852"},
           NameCase{"KOI8-R", "KOI8-R"},
           NameCase{"cpX", "cpX"},
       }) {
    EXPECT_EQ(PairCharsetName(c.charset), c.name) << c.charset;
  }
}

TEST(PairCharsetTest, SetsOfOneByteFit) {
  for (const char* charset : {"WindowsLatin1", "WindowsCyrillic", "WindowsThai", "CodePage437", "ISO8859_5",
                              "KOI8-R", "ASCII", "MacRoman"}) {
    const CharsetTraits traits = ProbeCharset(charset);
    EXPECT_TRUE(traits.fits_pairs) << charset;
    EXPECT_FALSE(traits.is_multi_byte) << charset;
  }
}

TEST(PairCharsetTest, SetsOfSeveralBytesFit) {
  for (const char* charset : {"UTF-8", "WindowsJapanese", "WindowsSimpChinese", "WindowsKorean",
                              "WindowsTradChinese", "EUC-JP", "GB18030"}) {
    const CharsetTraits traits = ProbeCharset(charset);
    EXPECT_TRUE(traits.fits_pairs) << charset;
    EXPECT_TRUE(traits.is_multi_byte) << charset;
  }
}

TEST(PairCharsetTest, SetsThatAreNoPlainTextDoNotFit) {
  for (const char* charset : {"UTF-16", "UTF-16LE", "UCS-4", "UTF-7", "ISO-2022-JP", "CP037", "EBCDIC-US"}) {
    EXPECT_FALSE(ProbeCharset(charset).fits_pairs) << charset;
  }
}

TEST(PairCharsetTest, UnknownSetIsAFailure) {
  EXPECT_EQ(FailureText([] { static_cast<void>(ProbeCharset("Klingon")); }),
            "the character set \"Klingon\" is unknown");
}

}  // namespace
}  // namespace App
