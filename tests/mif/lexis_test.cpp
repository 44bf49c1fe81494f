#include <pelor/mif/lexis.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

using namespace Pelor;
using Tobri::ChrS;
using Tobri::IRefC;
using Tobri::IxText;
using Tobri::String;

std::string Members(const IRefC<ChrS<char>>& set) {
  std::string members;
  for (int code = 0; code < 256; ++code) {
    if (set->Contains(static_cast<char>(code))) members += static_cast<char>(code);
  }
  return members;
}

TEST(LexisTest, MifValuesStandBetweenCommasAndWhiteSpace) {
  const Tobri::TxtSeparators separators = MIF::MIFSeparators();
  EXPECT_EQ(Members(separators.separators), ",");
  EXPECT_EQ(Members(separators.whitespace), "\t\n\v\f\r ");
  EXPECT_EQ(separators.principal, ',');
  EXPECT_FALSE(separators.fields);
}

TEST(LexisTest, MidValuesStandBetweenDelimitersAlone) {
  const Tobri::TxtSeparators separators = MIF::MIDSeparators('\t');
  EXPECT_EQ(Members(separators.separators), "\t");
  EXPECT_TRUE(separators.whitespace == nullptr);
  EXPECT_EQ(separators.principal, '\t');
  EXPECT_TRUE(separators.fields);
}

TEST(LexisTest, PlainValuesStandBetweenWhiteSpace) {
  const Tobri::TxtSeparators separators = MIF::WSSeparators();
  EXPECT_TRUE(separators.separators == nullptr);
  EXPECT_EQ(Members(separators.whitespace), "\t\n\v\f\r ");
  EXPECT_EQ(separators.principal, ' ');
  EXPECT_FALSE(separators.fields);
}

TEST(LexisTest, QuotesAreDoubleQuotes) {
  const Tobri::TxtQuotes quotes = MIF::Quotes();
  EXPECT_EQ(Members(quotes.Characters()), "\"");
  EXPECT_EQ(quotes.Principal(), '"');
  EXPECT_EQ(quotes.Escape(), 0);
  EXPECT_TRUE(quotes.Doubled());
  EXPECT_FALSE(quotes.LineEndsClose());
}

TEST(LexisTest, CommentsRunFromAnApostropheToTheLineFeed) {
  EXPECT_EQ(MIF::MBComments().open, '\'');
  EXPECT_EQ(MIF::MBComments().close, '\n');
  EXPECT_EQ(MIF::NoComments(), (Tobri::TxtComments{0, 0}));
}

TEST(LexisTest, IdentifierLettersAreTheDefaultOnes) {
  EXPECT_EQ(Members(MIF::IDLetters()), Members(Tobri::TxtRdr::DefIDLetters()));
}

TEST(LexisTest, PlainTextWithCommentsIsReadWordByWord) {
  std::istringstream stream("a,b 'c d\n\"e f\" g");
  IxText in;
  in.Set(stream, "plain");
  in.Def(MIF::WSSeparators());
  in.Def(MIF::Quotes());
  in.Def(MIF::MBComments(), false);
  for (const char* expected : {"a,b", "e f", "g"}) {
    String value;
    ASSERT_TRUE(in.ReadNextSep(value, true));
    EXPECT_EQ(value, expected);
  }
}

TEST(SyntaxErrorTest, WithoutAScannerItIsTheMessageAlone) {
  EXPECT_STREQ(MIF::SyntaxError("Invalid Line", nullptr).what(), "Invalid Line");
}

TEST(SyntaxErrorTest, WithAScannerTheStatusFollowsTheMessageDirectly) {
  std::istringstream stream("\r\n\r\n  Line");
  IxText in;
  in.Set(stream, "roads.mif");
  in.SkipBlanks(true);
  EXPECT_STREQ(MIF::SyntaxError("Invalid Line", &in).what(), "Invalid Line@ roads.mif, line 3, column 3");
}

TEST(SyntaxErrorTest, IsThrownAsItself) {
  EXPECT_THROW(Tobri::Error::Handle(MIF::SyntaxError("x", nullptr)), MIF::SyntaxError);
  EXPECT_THROW(Tobri::Error::Handle(MIF::SyntaxError("x", nullptr)), MIF::Error);
  EXPECT_THROW(Tobri::Error::Handle(MIF::SyntaxError("x", nullptr)), Tobri::ErrMsg);
}

}  // namespace
