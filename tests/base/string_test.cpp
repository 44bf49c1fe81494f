#include <pelor/base/string.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_set>

namespace {

using Tobri::LocStr;
using Tobri::String;
using Tobri::StrModify;
using Tobri::SubString;

TEST(StringTest, ADefaultStringIsEmpty) {
  const String text;
  EXPECT_EQ(text.Length(), 0U);
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_STREQ(text.c_str(), "");
}

TEST(StringTest, IsBuiltFromEveryKindOfText) {
  EXPECT_EQ(String("abc").str(), "abc");
  EXPECT_EQ(String(std::string("abc")).str(), "abc");
  EXPECT_EQ(String(std::string_view("abcdef", 3)).str(), "abc");
  EXPECT_EQ(String('c').str(), "c");
  EXPECT_EQ(String(SubString("abc")).str(), "abc");
  EXPECT_EQ(String(static_cast<const char*>(nullptr)).str(), "");
}

TEST(StringTest, ACopyIsIndependent) {
  String text("abc");
  const String copy(text);
  text.Append("d");
  EXPECT_EQ(copy, String("abc"));
  EXPECT_EQ(text, String("abcd"));
}

TEST(StringTest, AssignReplacesTheValue) {
  String text("abc");
  text.Assign(String("xy"));
  EXPECT_EQ(text, String("xy"));
  text.Assign("z");
  EXPECT_EQ(text, String("z"));
  text.Assign(text);
  EXPECT_EQ(text, String("z"));
  text.Assign(static_cast<const char*>(nullptr));
  EXPECT_TRUE(text.IsEmpty());
}

TEST(StringTest, AppendAddsToTheEnd) {
  String text;
  text.Append(String("ab"));
  text.Append("cd");
  text.Append('e');
  text.Append(static_cast<const char*>(nullptr));
  EXPECT_EQ(text, String("abcde"));
  text.Append(text);
  EXPECT_EQ(text, String("abcdeabcde"));
}

TEST(StringTest, LeftAndRightGiveTheEndsAndNeverMoreThanThereIs) {
  const struct {
    unsigned n;
    const char* left;
    const char* right;
  } cases[] = {{0, "", ""},
               {1, "a", "e"},
               {2, "ab", "de"},
               {4, "abcd", "bcde"},
               {5, "abcde", "abcde"},
               {6, "abcde", "abcde"},
               {4294967295U, "abcde", "abcde"}};
  const String text("abcde");
  for (const auto& expected : cases) {
    EXPECT_EQ(String(text.Left(expected.n)), String(expected.left)) << expected.n;
    EXPECT_EQ(String(text.Right(expected.n)), String(expected.right)) << expected.n;
  }
  EXPECT_EQ(String(String().Left(3)), String());
  EXPECT_EQ(String(String().Right(3)), String());
}

TEST(StringTest, ContainsAfterLooksFromThePositionOn) {
  const String text("ab-ab-");
  EXPECT_TRUE(text.ContainsAfter("ab", 0));
  EXPECT_TRUE(text.ContainsAfter("ab", 1));
  EXPECT_TRUE(text.ContainsAfter("ab", 3)) << "at the position itself";
  EXPECT_FALSE(text.ContainsAfter("ab", 4));
  EXPECT_FALSE(text.ContainsAfter("AB", 0)) << "case counts";
  EXPECT_FALSE(text.ContainsAfter("ab-ab-x", 0)) << "longer than the text";
}

TEST(StringTest, ContainsAfterAPositionBeyondTheEndIsFalse) {
  EXPECT_TRUE(String("abc").ContainsAfter("", 3));
  EXPECT_FALSE(String("abc").ContainsAfter("", 4));
  EXPECT_FALSE(String("abc").ContainsAfter("c", 3));
  EXPECT_FALSE(String("abc").ContainsAfter("a", 4294967295U));
  EXPECT_FALSE(String().ContainsAfter("a", 0));
}

TEST(StringTest, ClearMakesEmpty) {
  String text("abc");
  text.Clear();
  EXPECT_EQ(text, String());
}

TEST(StringTest, ReallocResizesTheStorage) {
  String text("abc");
  text.realloc(100, 5, '-');
  EXPECT_EQ(text, String("abc--"));
  text.realloc(0, 2, '-');
  EXPECT_EQ(text, String("ab")) << "the length wins over a smaller capacity";
  text.realloc(10, 0, 0);
  EXPECT_TRUE(text.IsEmpty());
}

TEST(StringTest, EqualityIsExactAndOrderIsByBytes) {
  EXPECT_TRUE(String("abc") == String("abc"));
  EXPECT_FALSE(String("abc") == String("Abc"));
  EXPECT_FALSE(String("abc") == String("abc "));
  EXPECT_FALSE(String(std::string_view("a\0b", 3)) == String("a"));
  EXPECT_LT(String("Z"), String("a"));
  EXPECT_LT(String("ab"), String("abc"));
  EXPECT_LT(String("z"), String("\xC3\xA4"));
}

TEST(StringTest, StreamsItsCharactersAndNothingElse) {
  std::ostringstream out;
  out << std::setw(8) << std::setfill('*') << String(std::string_view("a\0b", 3));
  EXPECT_EQ(out.str(), std::string("a\0b", 3));
}

TEST(StringTest, HashesByValue) {
  const std::unordered_set<String> texts{"a", "b", "a"};
  EXPECT_EQ(texts.size(), 2U);
}

// --- StrModify

TEST(StrModifyTest, ReadsAFixedLengthTextThroughTheBuffer) {
  StrModify buffer(0);
  std::string_view("roads\0\0", 7).copy(buffer.GetBuffer(7, 0), 7);
  const String text = buffer.GetString(7);
  EXPECT_EQ(text.Length(), 7U);
  EXPECT_EQ(std::string_view(text), std::string_view("roads\0\0", 7));
}

TEST(StrModifyTest, GetStringCutsOrFillsUpWithZeros) {
  StrModify buffer(16);
  std::string_view("abcd").copy(buffer.GetBuffer(4, StrModify::GrowExact), 4);
  EXPECT_EQ(buffer.GetString(2), String("ab"));
  EXPECT_EQ(buffer.GetString(3), String(std::string_view("\0\0\0", 3))) << "the buffer was handed over";
  std::string_view("xy").copy(buffer.GetBuffer(2, StrModify::GrowExact), 2);
  EXPECT_EQ(buffer.GetString(0), String());
}

TEST(StrModifyTest, AGrowingBufferKeepsWhatWasWritten) {
  for (const auto mode : {StrModify::GrowExact, StrModify::GrowDouble}) {
    StrModify buffer(2);
    std::string expected;
    for (unsigned n = 1; n <= 300; ++n) {
      const char c = static_cast<char>('a' + n % 26);
      buffer.GetBuffer(n, mode)[n - 1] = c;
      expected += c;
    }
    EXPECT_EQ(buffer.GetString(300).str(), expected);
  }
}

// --- LocStr

struct Case {
  const char* upper;
  const char* lower;
};

// Whole alphabets.
constexpr Case kAlphabets[] = {
    {"ABCDEFGHIJKLMNOPQRSTUVWXYZ", "abcdefghijklmnopqrstuvwxyz"},
    {"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ", "àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ"},
    {"ĀĂĄĆĈĊČĎĐĒĔĖĘĚĜĞĠĢĤĦĨĪĬĮ", "āăąćĉċčďđēĕėęěĝğġģĥħĩīĭį"},
    {"IJĴĶĹĻĽĿŁŃŅŇŊŌŎŐŒŔŖŘŚŜŞŠŢŤŦŨŪŬŮŰŲŴŶŸŹŻŽ", "ijĵķĺļľŀłńņňŋōŏőœŕŗřśŝşšţťŧũūŭůűųŵŷÿźżž"},
    {"ƏƠƯǍǏǑǓǕǗǙǛǞǠǢǤǦǨǪǬǮǴǸǺǼǾ", "əơưǎǐǒǔǖǘǚǜǟǡǣǥǧǩǫǭǯǵǹǻǽǿ"},
    {"ȀȂȄȆȈȊȌȎȐȒȔȖȘȚȜȞȢȤȦȨȪȬȮȰȲ", "ȁȃȅȇȉȋȍȏȑȓȕȗșțȝȟȣȥȧȩȫȭȯȱȳ"},
    {"ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩΪΫΆΈΉΊΌΎΏ", "αβγδεζηθικλμνξοπρστυφχψωϊϋάέήίόύώ"},
    {"ЀЁЂЃЄЅІЇЈЉЊЋЌЍЎЏ", "ѐёђѓєѕіїјљњћќѝўџ"},
    {"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ", "абвгдежзийклмнопрстуфхцчшщъыьэюя"},
    {"ѢѲѴҊҌҐҒҖҘҚҜҢҪҮҰҲҺҼҾӀӁӃӅӇӉӋӍӐӒӖӘӠӨӰӾԀԐԚԮ",
     "ѣѳѵҋҍґғҗҙқҝңҫүұҳһҽҿӏӂӄӆӈӊӌӎӑӓӗәӡөӱӿԁԑԛԯ"},
};

TEST(LocStrTest, EveryLetterFindsItsPartner) {
  for (const Case& alphabet : kAlphabets) {
    EXPECT_EQ(LocStr::UpperCase(alphabet.lower), String(alphabet.upper));
    EXPECT_EQ(LocStr::LowerCase(alphabet.upper), String(alphabet.lower));
    EXPECT_EQ(LocStr::UpperCase(alphabet.upper), String(alphabet.upper));
    EXPECT_EQ(LocStr::LowerCase(alphabet.lower), String(alphabet.lower));
  }
}

TEST(LocStrTest, TheFinalSigmaHasTheCapitalOfTheOtherOne) {
  EXPECT_EQ(LocStr::UpperCase("ς"), String("Σ"));
  EXPECT_EQ(LocStr::LowerCase("Σ"), String("σ"));
}

TEST(LocStrTest, WhatHasNoPartnerOfTheSameLengthPasses) {
  // Digits and signs beside the letters in ASCII and Latin 1; sharp s; the Turkish i's, kra, n after an
  // apostrophe, long s, iota with two marks; three and four bytes.
  for (const char* text : {"0123456789 @[\\]^_`{|}~\x7F\t\n", "×÷ªº¿¡ß", "İıĸ\u0149ſ", "ΐΰ", "Ⅷⅷ€ẞ", "𝒜😀"}) {
    EXPECT_EQ(LocStr::UpperCase(text), String(text));
    EXPECT_EQ(LocStr::LowerCase(text), String(text));
  }
}

TEST(LocStrTest, BytesThatAreNotUtf8PassUnchanged) {
  for (const char* text : {"\xE4", "\xC3", "\xC3(", "\xFF\xFE", "\xC0\xA0", "\x80\xBF", "\xD0\xC3"}) {
    EXPECT_EQ(LocStr::UpperCase(text), String(text));
    EXPECT_EQ(LocStr::LowerCase(text), String(text));
  }
  EXPECT_EQ(LocStr::UpperCase("\xE4"
                              "a\xC3"
                              "b\xC3\xA4"),
            String("\xE4"
                   "A\xC3"
                   "B\xC3\x84"));
}

TEST(LocStrTest, ANulIsACharacterLikeAnyOther) {
  EXPECT_EQ(LocStr::UpperCase(std::string_view("a\0b", 3)), String(std::string_view("A\0B", 3)));
}

TEST(LocStrTest, TheTextGivenStaysAsItIs) {
  const String text("Abc");
  EXPECT_EQ(LocStr::UpperCase(text), String("ABC"));
  EXPECT_EQ(text, String("Abc"));
}

}  // namespace
