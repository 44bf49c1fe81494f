#include <pelor/base/text_scanner.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

using Tobri::ChrS;
using Tobri::FltFmt;
using Tobri::IBText;
using Tobri::IntFmt;
using Tobri::IRefC;
using Tobri::IxText;
using Tobri::String;
using Tobri::TxtQuotes;
using Tobri::TxtRdr;
using Tobri::TxtSeparators;

TxtQuotes DoubledQuotes() {
  return TxtQuotes(IRefC<ChrS<char>>(new ChrS<char>('"')), '"', 0, true, false);
}

// Words: blanks and commas part values, double quotes hold them together.
struct Words {
  explicit Words(const std::string& text) : stream(text) {
    in.Set(stream, "words.txt");
    in.Def(DoubledQuotes());
  }
  std::istringstream stream;
  IxText in;
};

// Fields: only the delimiter and the line end part values.
struct Fields : Words {
  explicit Fields(const std::string& text, char delimiter = ',') : Words(text) {
    in.Def(TxtSeparators{IRefC<ChrS<char>>(new ChrS<char>(delimiter)), nullptr, delimiter, true});
  }
};

std::string Rest(IxText& in) {
  std::string rest;
  while (!in.AtEnd()) {
    rest += in.Window(1).front();
    in.Consume(1);
  }
  return rest;
}

std::vector<std::vector<std::string>> ReadRows(IxText& in) {
  std::vector<std::vector<std::string>> rows;
  while (TxtRdr::LookAheadCheck(in)) {
    IxText::ArgSep fields;
    fields.Set(in, false, false, false);
    rows.emplace_back();
    for (String value; fields.ReadNext(value);) rows.back().push_back(value.str());
    fields.Skip();
    fields.Release();
  }
  return rows;
}

TEST(TextReaderTest, IdentifierLettersAreLettersDigitsAndTheUnderscore) {
  for (int code = 0; code < 256; ++code) {
    const bool letter = (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') ||
                        (code >= '0' && code <= '9') || code == '_';
    EXPECT_EQ(TxtRdr::DefIDLetters()->Contains(static_cast<char>(code)), letter) << code;
  }
}

TEST(TextReaderTest, AnIdentifierIsTheLongestRunOfLetters) {
  Words words("  Round_Rect2(1");
  EXPECT_EQ(TxtRdr::GetIdentifier(words.in, TxtRdr::DefIDLetters(), false), "");
  EXPECT_EQ(words.in.Offset(), 0U);
  EXPECT_EQ(TxtRdr::GetIdentifier(words.in, TxtRdr::DefIDLetters(), true), "Round_Rect2");
  EXPECT_EQ(Rest(words.in), "(1");
}

TEST(TextReaderTest, AnIdentifierCanBeLongerThanAWindow) {
  const std::string name(3 * IBText::kBlock, 'n');
  Words words(name + " x");
  EXPECT_EQ(TxtRdr::GetIdentifier(words.in, TxtRdr::DefIDLetters(), false), String(name));
}

TEST(TextReaderTest, ASeparatorIsReadWithTheBlanksBeforeIt) {
  Words words(" \t, x");
  EXPECT_TRUE(TxtRdr::GetSep(words.in));
  EXPECT_EQ(words.in.Offset(), 3U);
  EXPECT_FALSE(TxtRdr::GetSep(words.in));
  EXPECT_EQ(words.in.Offset(), 3U);
}

TEST(TextReaderTest, LookingAheadReadsNothing) {
  Words words(" \n x");
  EXPECT_TRUE(TxtRdr::LookAheadCheck(words.in));
  EXPECT_EQ(words.in.Offset(), 0U);
  Words blank(" \n\t\r\n");
  EXPECT_FALSE(TxtRdr::LookAheadCheck(blank.in));
  EXPECT_EQ(blank.in.Offset(), 0U);
}

TEST(TextReaderTest, AnEmptyRecordIsInputToo) {
  Fields fields("\n");
  EXPECT_TRUE(TxtRdr::LookAheadCheck(fields.in));
  EXPECT_TRUE(fields.in.SkipLineEnd());
  EXPECT_FALSE(TxtRdr::LookAheadCheck(fields.in));
}

struct SeparatedCase {
  const char* text;
  const char* value;
  TxtRdr::EndMode end;
  const char* rest;
};

TEST(TextReaderTest, AWordSaysHowItEnded) {
  const SeparatedCase cases[] = {
      {"one,two", "one", IBText::EndSep, "two"},
      {"one ,two", "one", IBText::EndSep, "two"},
      {"one two", "one", IBText::EndSep, "two"},
      {"one, (two)", "one", IBText::EndSepBracket, " (two)"},
      {"one)two", "one", IBText::EndBracketed, ")two"},
      {"one(two)", "one", IBText::EndBracketed, "(two)"},
      {"one \ntwo", "one", IBText::EndLine, "\ntwo"},
      {"one\r\ntwo", "one", IBText::EndLine, "\r\ntwo"},
      {"one ", "one", IBText::EndInput, ""},
      {"", "", IBText::EndInput, ""},
      {"\"one, \"\"two\"\" (3)\"(4", "one, \"two\" (3)", IBText::EndBracketed, "(4"},
      {"\"one\ntwo\",x", "one\ntwo", IBText::EndSep, "x"},
      {"\"one", "one", IBText::EndNot, ""},
      {"o\"ne\" x", "o\"ne\"", IBText::EndSep, "x"},
  };
  for (const SeparatedCase& c : cases) {
    Words words(c.text);
    TxtRdr::EndMode end = IBText::EndNot;
    EXPECT_EQ(TxtRdr::GetSeparated(words.in, end, true, true, true, true), c.value) << c.text;
    EXPECT_EQ(end, c.end) << c.text;
    EXPECT_EQ(Rest(words.in), c.rest) << c.text;
  }
}

TEST(TextReaderTest, AFieldSaysHowItEnded) {
  const SeparatedCase cases[] = {
      {" one ;two", " one ", IBText::EndSep, "two"},
      {";two", "", IBText::EndSep, "two"},
      {"one (2)\ntwo", "one (2)", IBText::EndLine, "\ntwo"},
      {"one", "one", IBText::EndInput, ""},
      {"\"one;\"\"two\"\"\";x", "one;\"two\"", IBText::EndSep, "x"},
      {"\"one\r\ntwo\";x", "one\r\ntwo", IBText::EndSep, "x"},
      {"\"one\" two;x", "one two", IBText::EndSep, "x"},
      {"say \"one;two\";x", "say \"one", IBText::EndSep, "two\";x"},
      {"\"\";x", "", IBText::EndSep, "x"},
      {"\"one;two", "one;two", IBText::EndNot, ""},
  };
  for (const SeparatedCase& c : cases) {
    Fields fields(c.text, ';');
    TxtRdr::EndMode end = IBText::EndNot;
    EXPECT_EQ(TxtRdr::GetSeparated(fields.in, end, false, true, false, false), c.value) << c.text;
    EXPECT_EQ(end, c.end) << c.text;
    EXPECT_EQ(Rest(fields.in), c.rest) << c.text;
  }
}

TEST(TextReaderTest, TheFlagsOfASeparatedValue) {
  TxtRdr::EndMode end = IBText::EndNot;
  Words lines("\n one");
  EXPECT_EQ(TxtRdr::GetSeparated(lines.in, end, false, true, true, true), "");
  EXPECT_EQ(end, IBText::EndLine);
  Words quotes("\"one two\"");
  EXPECT_EQ(TxtRdr::GetSeparated(quotes.in, end, true, false, true, true), "\"one");
  Words brackets("on(e) x");
  EXPECT_EQ(TxtRdr::GetSeparated(brackets.in, end, true, true, false, true), "on(e)");
  Words untrimmed(" one");
  EXPECT_EQ(TxtRdr::GetSeparated(untrimmed.in, end, false, true, true, false), "");
  Fields trimmed(" \tone \t,x");
  EXPECT_EQ(TxtRdr::GetSeparated(trimmed.in, end, false, true, true, true), "one");
}

TEST(TextReaderTest, AnEscapeTakesTheMeaningFromTheNextCharacter) {
  Words words(R"('it\'s \\ "so"' x)");
  words.in.Def(TxtQuotes(IRefC<ChrS<char>>(new ChrS<char>("'\"")), '"', '\\', false, false));
  TxtRdr::EndMode end = IBText::EndNot;
  EXPECT_EQ(TxtRdr::GetSeparated(words.in, end, true, true, true, true), R"(it's \ "so")");
  EXPECT_EQ(Rest(words.in), "x");
}

TEST(TextReaderTest, ALineEndCanCloseAQuote) {
  for (const std::string line_end : {"\n", "\r\n", "\r"}) {
    Words words("\"one two" + line_end + "three");
    words.in.Def(TxtQuotes(IRefC<ChrS<char>>(new ChrS<char>('"')), '"', 0, true, true));
    TxtRdr::EndMode end = IBText::EndNot;
    EXPECT_EQ(TxtRdr::GetSeparated(words.in, end, true, true, true, true), "one two");
    EXPECT_EQ(end, IBText::EndLine);
    EXPECT_EQ(Rest(words.in), line_end + "three");
  }
}

TEST(TextReaderTest, QuotesAreReadWhereverTheWindowEnds) {
  // The doubled quote comes to lie on every byte around the end of a window.
  for (std::size_t before = IBText::kBlock + IBText::kHistory - 8;
       before < IBText::kBlock + IBText::kHistory + 8; ++before) {
    const std::string head(before, 'x');
    Words words("\"" + head + "\"\"tail\" next");
    TxtRdr::EndMode end = IBText::EndNot;
    ASSERT_EQ(TxtRdr::GetSeparated(words.in, end, true, true, true, true), String(head + "\"tail")) << before;
    ASSERT_EQ(Rest(words.in), "next");
  }
}

TEST(ScannerTest, StatusIsTheNameTheLineAndTheColumn) {
  Words words("one\r\n\r\n\t two");
  EXPECT_EQ(words.in.GetStatus(), "words.txt, line 1, column 1");
  String value;
  ASSERT_TRUE(words.in.ReadNextSep(value, true));
  EXPECT_EQ(words.in.GetStatus(), "words.txt, line 1, column 4");
  ASSERT_TRUE(words.in.ReadNextSep(value, true));
  EXPECT_EQ(words.in.GetStatus(), "words.txt, line 3, column 6");
}

TEST(ScannerTest, NumbersArePartedByBlanksCommasAndLineEnds) {
  Words words("1 2,3 , -4\n\n+5e1\r\n.5 6.)");
  for (const double expected : {1.0, 2.0, 3.0, -4.0, 50.0, 0.5, 6.0}) {
    double value = 0.0;
    ASSERT_TRUE(words.in.ReadNextSep(value, FltFmt(), true)) << expected;
    EXPECT_EQ(value, expected);
  }
  EXPECT_EQ(Rest(words.in), ")");
}

TEST(ScannerTest, NumbersOnTheLineStopAtItsEnd) {
  Words words("1 \n2");
  double value = 0.0;
  EXPECT_TRUE(words.in.ReadNextSep(value, FltFmt(), false));
  EXPECT_FALSE(words.in.ReadNextSep(value, FltFmt(), false));
  EXPECT_EQ(value, 1.0);
  EXPECT_EQ(Rest(words.in), " \n2");
}

TEST(ScannerTest, WhatIsNoNumberIsLeftUnreadAndTheTargetUnchanged) {
  for (const std::string text : {" abc", " , abc", " 1abc", " 1.5.2", " 0x10", " nan", " inf", " 1e999", " ",
                                 " ,", " (1)", " \"1\"", " -", " +-1", " ,,1"}) {
    Words words(text);
    double value = 7.0;
    EXPECT_FALSE(words.in.ReadNextSep(value, FltFmt(), true)) << text;
    EXPECT_EQ(value, 7.0) << text;
    EXPECT_EQ(Rest(words.in), text);
  }
}

TEST(ScannerTest, IntegersStayWithinTheirRange) {
  Words words("2147483647 -2147483648 2147483648 1.5 12");
  int value = 0;
  EXPECT_TRUE(words.in.ReadNextSep(value, IntFmt(), true));
  EXPECT_EQ(value, 2147483647);
  long wide = 0;
  EXPECT_TRUE(words.in.ReadNextSep(wide, IntFmt(), true));
  EXPECT_EQ(wide, -2147483648L);
  EXPECT_FALSE(words.in.ReadNextSep(value, IntFmt(), true));
  EXPECT_FALSE(words.in.ReadNextSep(wide, IntFmt(), true)) << "a long is a signed 32-bit quantity";
  double skipped = 0.0;
  EXPECT_TRUE(words.in.ReadNextSep(skipped, FltFmt(), true));
  EXPECT_FALSE(words.in.ReadNextSep(value, IntFmt(), true)) << "1.5 is no integer";
  EXPECT_TRUE(words.in.ReadNextSep(skipped, FltFmt(), true));
  EXPECT_TRUE(words.in.ReadNextSep(value, IntFmt(), true));
  EXPECT_EQ(value, 12);
}

TEST(ScannerTest, NumbersAreReadWhereverTheWindowEnds) {
  const std::string number = "-1234567.890625";
  for (std::size_t before = 0; before < 40; ++before) {
    const std::string blanks(IBText::kBlock + IBText::kHistory - before, ' ');
    Words words(blanks + number + " 2\n");
    double value = 0.0;
    ASSERT_TRUE(words.in.ReadNextSep(value, FltFmt(), true)) << before;
    ASSERT_EQ(value, -1234567.890625);
    ASSERT_TRUE(words.in.ReadNextSep(value, FltFmt(), true)) << before;
    ASSERT_EQ(value, 2.0);
  }
}

TEST(ScannerTest, ALongNumberIsReadAndAnEndlessOneIsNot) {
  double value = 0.0;
  Words is_long("1." + std::string(60000, '0') + "1 2");
  EXPECT_TRUE(is_long.in.ReadNextSep(value, FltFmt(), true));
  EXPECT_EQ(value, 1.0);
  EXPECT_EQ(Rest(is_long.in), " 2");
  Words endless(std::string(IBText::kBlock + IBText::kHistory + 1, '1'));
  EXPECT_FALSE(endless.in.ReadNextSep(value, FltFmt(), true));
}

TEST(ScannerTest, TextsAreWordsOrQuoted) {
  Words words("one \"two three\" , \"say \"\"hi\"\"\",\n\"\" last");
  for (const char* expected : {"one", "two three", "say \"hi\"", "", "last"}) {
    String value;
    ASSERT_TRUE(words.in.ReadNextSep(value, true)) << expected;
    EXPECT_EQ(value, expected);
  }
  String value;
  EXPECT_FALSE(words.in.ReadNextSep(value, true));
}

TEST(ScannerTest, ASeparatorBehindATextIsLeftUnread) {
  Words words("\"m\" , 1");
  String value;
  ASSERT_TRUE(words.in.ReadNextSep(value, false));
  EXPECT_TRUE(TxtRdr::GetSep(words.in));
}

TEST(ScannerTest, AnUnclosedQuoteFailsAndGivesWhatIsThere) {
  Words words("\"one\ntwo");
  String value;
  EXPECT_FALSE(words.in.ReadNextSep(value, true));
  EXPECT_EQ(value, "one\ntwo");
  EXPECT_TRUE(words.in.AtEnd());
}

TEST(ScannerTest, EveryCharacterButQuotesAndSpaceIsPartOfAWord) {
  Words words(std::string("a\0b\xE9'c", 7) + " d");
  String value;
  ASSERT_TRUE(words.in.ReadNextSep(value, true));
  EXPECT_EQ(value, String(std::string("a\0b\xE9'c", 7)));
}

TEST(ScannerTest, AFieldIsReadAsANumberWhole) {
  Fields fields("1,2x, 3 \n");
  int value = 0;
  EXPECT_TRUE(fields.in.ReadNextSep(value, IntFmt(), false));
  EXPECT_EQ(value, 1);
  EXPECT_FALSE(fields.in.ReadNextSep(value, IntFmt(), false));
  String text;
  EXPECT_TRUE(fields.in.ReadNextSep(text, false));
  EXPECT_EQ(text, "2x");
  EXPECT_TRUE(fields.in.ReadNextSep(value, IntFmt(), false));
  EXPECT_EQ(value, 3);
}

TEST(ScannerTest, NumbersInFieldsAreWholeFieldsHoweverMuchFollows) {
  Fields fields("1,2.5,8 9,4\n" + std::string(200, '7'));
  double value = 0.0;
  EXPECT_TRUE(fields.in.ReadNextSep(value, FltFmt(), false));
  EXPECT_EQ(value, 1.0);
  EXPECT_TRUE(fields.in.ReadNextSep(value, FltFmt(), false));
  EXPECT_EQ(value, 2.5);
  EXPECT_FALSE(fields.in.ReadNextSep(value, FltFmt(), false)) << "8 9 is no number";
  EXPECT_EQ(value, 2.5);
  EXPECT_EQ(fields.in.Offset(), 6U);
}

TEST(ScannerTest, AConventionCanTakeACharacterFromNumbers) {
  for (const std::size_t behind : {1U, 200U}) {
    Words words("15250 -3" + std::string(behind, '\n'));
    words.in.Def(TxtSeparators{IRefC<ChrS<char>>(new ChrS<char>('5')),
                               IRefC<ChrS<char>>(new ChrS<char>(" -\n")), '5', false});
    for (const double expected : {1.0, 2.0, 0.0, 3.0}) {
      double value = 9.0;
      EXPECT_TRUE(words.in.ReadNextSep(value, FltFmt(), false)) << expected;
      EXPECT_EQ(value, expected) << behind;
    }
  }
}

TEST(ArgumentsTest, NumbersAreReadAcrossLineEndsWhereAsked) {
  Words words("1 2\n 3\r\n4\nPen");
  IxText::ArgSep args;
  ASSERT_TRUE(args.Set(words.in, false, false, true));
  for (const double expected : {1.0, 2.0, 3.0, 4.0}) {
    double value = 0.0;
    ASSERT_TRUE(args.ReadNext(value, FltFmt()));
    EXPECT_EQ(value, expected);
  }
  double value = 0.0;
  EXPECT_FALSE(args.ReadNext(value, FltFmt()));
  EXPECT_TRUE(args.Skip());
  args.Release();
  EXPECT_EQ(Rest(words.in), "\nPen");
}

TEST(ArgumentsTest, OnTheLineTheyEndWithIt) {
  Words words("1, 2 rest of it\n3");
  IxText::ArgSep args;
  args.Set(words.in, false, false, false);
  int value = 0;
  EXPECT_TRUE(args.ReadNext(value, IntFmt()));
  EXPECT_TRUE(args.ReadNext(value, IntFmt()));
  EXPECT_EQ(value, 2);
  EXPECT_FALSE(args.ReadNext(value, IntFmt()));
  args.Skip();
  args.Release();
  EXPECT_EQ(Rest(words.in), "3");
}

TEST(ArgumentsTest, SkippingAcrossLinesStopsAtTheNextWord) {
  for (const auto& [text, rest] : {std::pair{"1 2 3 Pen (1,2,0)", "Pen (1,2,0)"},
                                   {"1 2, 3 4 \nPen", "\nPen"},
                                   {"1 2 , \"x y\" 5e3 (7) Pen", "Pen"},
                                   {"1 2", ""}}) {
    Words words(text);
    IxText::ArgSep args;
    args.Set(words.in, false, false, true);
    double value = 0.0;
    args.ReadNext(value, FltFmt());
    args.Skip();
    args.Release();
    EXPECT_EQ(Rest(words.in), rest) << text;
  }
}

TEST(ArgumentsTest, BracketsHoldThem) {
  Words words(" (1_pix, \"a, (b)\" ,3)rest");
  IxText::ArgSep args;
  ASSERT_TRUE(args.Set(words.in, true, false, false));
  String text;
  EXPECT_TRUE(args.ReadNext(text));
  EXPECT_EQ(text, "1_pix");
  EXPECT_TRUE(args.ReadNext(text));
  EXPECT_EQ(text, "a, (b)");
  long value = 0;
  EXPECT_TRUE(args.Next(false, false));
  EXPECT_TRUE(args.ReadNext(value, IntFmt()));
  EXPECT_EQ(value, 3);
  EXPECT_FALSE(args.Next(false, false));
  EXPECT_FALSE(args.ReadNext(value, IntFmt()));
  EXPECT_TRUE(args.Skip());
  args.Release();
  EXPECT_EQ(Rest(words.in), "rest");
}

TEST(ArgumentsTest, AMissingBracketIsToldAndNothingRead) {
  Words words("  1)");
  IxText::ArgSep args;
  EXPECT_FALSE(args.Set(words.in, true, false, false));
  EXPECT_EQ(words.in.Offset(), 0U);
}

TEST(ArgumentsTest, SkippingInBracketsGoesToTheClosingOne) {
  for (const auto& [text, closed] : {std::pair{"(1, \"a)\" , b 2)rest", true},
                                     {"(1, 2\n)rest", false},
                                     {"(1, (2)", false},
                                     {"(1", false}}) {
    Words words(text);
    IxText::ArgSep args;
    ASSERT_TRUE(args.Set(words.in, true, false, false));
    EXPECT_EQ(args.Skip(), closed) << text;
    if (closed) {
      EXPECT_EQ(Rest(words.in), "rest");
    }
  }
}

TEST(ArgumentsTest, SeparatedArgumentsNeedTheirSeparator) {
  Words words(",1 , 2 3");
  IxText::ArgSep args;
  args.Set(words.in, false, true, false);
  double value = 0.0;
  EXPECT_TRUE(args.ReadNext(value, FltFmt()));
  EXPECT_TRUE(args.ReadNext(value, FltFmt()));
  EXPECT_EQ(value, 2.0);
  EXPECT_FALSE(args.ReadNext(value, FltFmt()));
  EXPECT_EQ(Rest(words.in), " 3");
}

TEST(ArgumentsTest, NextCanReadTheSeparator) {
  Words words(",1,2");
  IxText::ArgSep args;
  args.Set(words.in, false, true, false);
  double value = 0.0;
  EXPECT_TRUE(args.Next(true, false));
  EXPECT_TRUE(args.ReadNext(value, FltFmt()));
  EXPECT_TRUE(args.Next(true, false));
  EXPECT_TRUE(args.ReadNext(value, FltFmt()));
  EXPECT_EQ(value, 2.0);
  EXPECT_FALSE(args.Next(true, false));
}

TEST(ArgumentsTest, NextFindsTheSeparatorBehindALineEndWhereAsked) {
  Words words("\n ,1");
  IxText::ArgSep args;
  args.Set(words.in, false, false, false);
  EXPECT_FALSE(args.Next(false, false));
  EXPECT_TRUE(args.Next(false, true));
  EXPECT_EQ(words.in.Offset(), 0U);
}

TEST(ArgumentsTest, RecordsAreReadFieldByField) {
  Fields fields("a,b\r\n,\n\n\"x,\r\ny\",\"\"\"z\"\"\",\rlast");
  const std::vector<std::vector<std::string>> expected = {
      {"a", "b"}, {"", ""}, {}, {"x,\r\ny", "\"z\"", ""}, {"last"}};
  EXPECT_EQ(ReadRows(fields.in), expected);
}

TEST(ArgumentsTest, BlanksBelongToAField) {
  Fields fields(" a ;\tb,c ; \n", ';');
  const std::vector<std::vector<std::string>> expected = {{" a ", "\tb,c ", " "}};
  EXPECT_EQ(ReadRows(fields.in), expected);
}

TEST(ArgumentsTest, UnreadFieldsAreSkippedWithTheirRecord) {
  Fields fields("a,b,c\nd\n");
  IxText::ArgSep args;
  args.Set(fields.in, false, false, false);
  String value;
  EXPECT_TRUE(args.ReadNext(value));
  args.Skip();
  args.Set(fields.in, false, false, false);
  EXPECT_TRUE(args.ReadNext(value));
  EXPECT_EQ(value, "d");
}

TEST(ArgumentsTest, AFieldThatIsNoNumberIsPassedOver) {
  Fields fields("1,x,3\n");
  IxText::ArgSep args;
  args.Set(fields.in, false, false, false);
  int value = 0;
  EXPECT_TRUE(args.ReadNext(value, IntFmt()));
  EXPECT_FALSE(args.ReadNext(value, IntFmt()));
  EXPECT_TRUE(args.ReadNext(value, IntFmt()));
  EXPECT_EQ(value, 3);
}

TEST(ArgumentsTest, AnUnclosedQuoteEndsTheRecordAndKeepsItsText) {
  Fields fields("a,\"b,c\nd,e\n");
  IxText::ArgSep args;
  args.Set(fields.in, false, false, false);
  String value;
  EXPECT_TRUE(args.ReadNext(value));
  EXPECT_FALSE(args.ReadNext(value));
  EXPECT_EQ(value, "b,c\nd,e\n");
  EXPECT_FALSE(args.ReadNext(value));
}

}  // namespace
