#include "app/pair/pair_options.h"
#include "app/pair/value_writer.h"
#include "failure_text.h"

#include <gtest/gtest.h>

#include <string>

namespace App {
namespace {

struct Fitted {
  std::string value;
  std::int64_t joined;
  std::int64_t changed;

  friend bool operator==(const Fitted&, const Fitted&) = default;
  friend void PrintTo(const Fitted& f, std::ostream* out) {
    *out << '"' << f.value << "\" joined " << f.joined << " changed " << f.changed;
  }
};

Fitted Fit(const char* value, char delimiter = ',', const char* charset = "WindowsLatin1") {
  Transcoder transcoder(charset, Transcoder::Direction::kFromUtf8);
  ValueWriter writer(transcoder, delimiter);
  const Tobri::String text(value);
  const std::string fitted = writer.Fit(text).str();
  return {fitted, writer.GetJoined(), writer.GetChanged()};
}

TEST(ValueWriterTest, PlainValuesStayAsTheyAre) {
  for (const char* value : {"", "abc", "  12.5 ", "one, two", "tab\there", "it's"}) {
    EXPECT_EQ(Fit(value), (Fitted{value, 0, 0}));
  }
}

TEST(ValueWriterTest, PlainValuesAreNotCopied) {
  Transcoder transcoder("WindowsLatin1", Transcoder::Direction::kFromUtf8);
  ValueWriter writer(transcoder, ',');
  const Tobri::String value("plain, with a comma");
  EXPECT_EQ(&writer.Fit(value), &value);
}

TEST(ValueWriterTest, QuotesAreQuotedHere) {
  EXPECT_EQ(Fit("\""), (Fitted{"\"\"\"\"", 0, 0}));
  EXPECT_EQ(Fit("a \"b\" c"), (Fitted{"\"a \"\"b\"\" c\"", 0, 0}));
  EXPECT_EQ(Fit("3\" pipe"), (Fitted{"\"3\"\" pipe\"", 0, 0}));
}

TEST(ValueWriterTest, DelimiterBesideAQuoteBecomesABlank) {
  EXPECT_EQ(Fit("3\", steel, old"), (Fitted{"\"3\"\"  steel  old\"", 0, 1}));
  EXPECT_EQ(Fit("3\", steel", '\t'), (Fitted{"\"3\"\", steel\"", 0, 0}));
}

TEST(ValueWriterTest, EveryLineEndBecomesOneBlank) {
  EXPECT_EQ(Fit("a\nb"), (Fitted{"a b", 1, 0}));
  EXPECT_EQ(Fit("a\r\nb\rc\n\nd\n\re"), (Fitted{"a b c  d  e", 1, 0}));
  EXPECT_EQ(Fit("\r\n"), (Fitted{" ", 1, 0}));
  EXPECT_EQ(Fit("a,\n\"b\""), (Fitted{"\"a  \"\"b\"\"\"", 1, 1}));
}

TEST(ValueWriterTest, LineEndsDoNotTakeTheDelimiterWithThem) {
  EXPECT_EQ(Fit("a,\nb"), (Fitted{"a, b", 1, 0}));
}

TEST(ValueWriterTest, ValuesAreConverted) {
  EXPECT_EQ(Fit("Größe"), (Fitted{"Gr\xF6\xDF"
                                  "e",
                                  0, 0}));
  EXPECT_EQ(Fit("Мир \"x\"", ',', "WindowsCyrillic"), (Fitted{"\"\xCC\xE8\xF0 \"\"x\"\"\"", 0, 0}));
  EXPECT_EQ(Fit("Мир"), (Fitted{"???", 0, 0}));
}

TEST(ValueWriterTest, DelimiterInsideACharacterLeavesNoQuoteBesideIt) {
  // In this set the character is the byte 83 and the sign |.
  EXPECT_EQ(Fit("ポ", '|', "CP932"), (Fitted{"\x83|", 0, 0}));
  EXPECT_EQ(Fit("ポ \"a\"", '|', "CP932"), (Fitted{"\x83| 'a'", 0, 1}));
  EXPECT_EQ(Fit("ポ \"a\"", ',', "CP932"), (Fitted{"\"\x83| \"\"a\"\"\"", 0, 0}));
}

TEST(ValueWriterTest, KnowsWhatDelimitersWouldKeepAllValues) {
  Transcoder transcoder("CP932", Transcoder::Direction::kFromUtf8);
  ValueWriter writer(transcoder, ',');
  for (const char* const value : {"a;b", "3\" pipe, steel", "\" ポ"}) {
    static_cast<void>(writer.Fit(Tobri::String(value)));
  }
  EXPECT_FALSE(writer.WouldKeepAll(',')) << "beside a quote";
  EXPECT_FALSE(writer.WouldKeepAll('|')) << "a part of a character beside a quote";
  EXPECT_TRUE(writer.WouldKeepAll(';')) << "in a value without a quote";
  EXPECT_TRUE(writer.WouldKeepAll('\t')) << "in no value";
}

TEST(PairOptionsTest, DelimitersAreSignsOrTheirNames) {
  EXPECT_EQ(ParseDelimiter("tab"), '\t');
  EXPECT_EQ(ParseDelimiter("\\t"), '\t');
  EXPECT_EQ(ParseDelimiter("\t"), '\t');
  EXPECT_EQ(ParseDelimiter("comma"), ',');
  EXPECT_EQ(ParseDelimiter("semicolon"), ';');
  EXPECT_EQ(ParseDelimiter("blank"), ' ');
  for (const char c : std::string(" ,;|:!#/")) EXPECT_EQ(ParseDelimiter(std::string(1, c)), c);
  for (const char* text : {"", "\"", "a", "7", "\n", "\r", ",,", "ö", "\xF6", "\x01"}) {
    EXPECT_EQ(FailureText([text] { static_cast<void>(ParseDelimiter(text)); }),
              "the delimiter \"" + std::string(text) + "\" cannot part values; tab is the usual one");
  }
}

TEST(PairOptionsTest, ThereAreThreeVersions) {
  EXPECT_EQ(ParsePairVersion("1"), 1);
  EXPECT_EQ(ParsePairVersion("100"), 1);
  EXPECT_EQ(ParsePairVersion("2"), 2);
  EXPECT_EQ(ParsePairVersion("200"), 2);
  EXPECT_EQ(ParsePairVersion("300"), 300);
  for (const char* text : {"", "3", "450", "650", "300 ", "x"}) {
    EXPECT_EQ(FailureText([text] { static_cast<void>(ParsePairVersion(text)); }),
              "the version \"" + std::string(text) + "\" cannot be written; there are 1, 2 and 300");
  }
  EXPECT_EQ(WrittenVersion(650), 300);
  EXPECT_EQ(WrittenVersion(0), 300);
}

}  // namespace
}  // namespace App
