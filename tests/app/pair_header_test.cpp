#include "app/pair/library_message.h"
#include "pair_fixture.h"

#include <string>

namespace App {
namespace {

using PairHeaderTest = PairFixture;

TEST(LibraryMessageTest, IsTakenApart) {
  const LibraryMessage message =
      ParseLibraryMessage("Invalid Column@ /tmp/a, line 3@ b.mif, line 12, column 34");
  EXPECT_EQ(message.text, "Invalid Column");
  EXPECT_EQ(message.line, 12);
  EXPECT_EQ(message.column, 34);
}

TEST(LibraryMessageTest, TextWithoutAPlaceHasNone) {
  for (const char* text : {"out of range", "Invalid Point@ a.mif, line x, column y", "Invalid Point@ "}) {
    const LibraryMessage message = ParseLibraryMessage(text);
    EXPECT_EQ(message.text, std::string_view(text).substr(0, std::string_view(text).find('@')));
    EXPECT_EQ(message.line, 0);
    EXPECT_EQ(message.column, 0);
  }
}

TEST_F(PairHeaderTest, ColumnOfAnUnknownTypeIsNamed) {
  for (const char* type : {"LargeInt", "Time", "DateTime", "BigInt", "Money"}) {
    const std::string header =
        "Version 900\n\nColumns 3\n A Integer\n B " + std::string(type) + "\n C Char(3)\nData\n";
    EXPECT_EQ(OpenFailure(header),
              "in.mif, line 5: column \"B\" has the type \"" + std::string(type) +
                  "\", which is none of Char, Integer, SmallInt, Decimal, Float, Date and Logical");
  }
}

TEST_F(PairHeaderTest, ColumnIsNamedInTheCharacterSetOfTheFile) {
  EXPECT_EQ(OpenFailure(
                "Version 900\r\nCharset \"WindowsCyrillic\"\r\nColumns 1\r\n \xCC\xE8\xF0 Time\r\nData\r\n"),
            "in.mif, line 4: column \"Мир\" has the type \"Time\", which is none of Char, Integer, SmallInt, "
            "Decimal, Float, Date and Logical");
}

TEST_F(PairHeaderTest, QuotedNameOfAColumnIsShownWhole) {
  EXPECT_EQ(OpenFailure("Version 900\rColumns 1\r \"Big one\" LargeInt\rData\r"),
            "in.mif, line 3: column \"Big one\" has the type \"LargeInt\", which is none of Char, Integer, "
            "SmallInt, Decimal, Float, Date and Logical");
}

TEST_F(PairHeaderTest, MalformedWidthIsShown) {
  EXPECT_EQ(OpenFailure("Version 300\nColumns 1\n A Char\nData\n"),
            "in.mif, line 3: column \"A\" has a malformed width: \"Char\"");
  EXPECT_EQ(OpenFailure("Version 300\nColumns 1\n A Decimal(12)\nData\n"),
            "in.mif, line 3: column \"A\" has a malformed width: \"Decimal(12)\"");
}

TEST_F(PairHeaderTest, FewerColumnsThanSaidAreSaid) {
  EXPECT_EQ(OpenFailure("Version 300\nColumns 2\n A Integer\nData\n\nPoint 1 2\n"),
            "in.mif, line 6: there are fewer columns than the Columns clause says");
}

TEST_F(PairHeaderTest, MoreColumnsThanSaidAreShown) {
  EXPECT_EQ(OpenFailure("Version 300\nColumns 1\n A Integer\n B Integer\nData\n"),
            "in.mif, line 4: the header is malformed at \"B Integer\"");
}

TEST_F(PairHeaderTest, HeaderThatEndsIsSaid) {
  EXPECT_EQ(OpenFailure("Version 300\nColumns 1\n A Integer\n"),
            "in.mif, line 3: the header ends before its Data clause");
  EXPECT_EQ(OpenFailure("Version 300"), "in.mif, line 1: the header ends before its Data clause");
}

TEST_F(PairHeaderTest, ForeignTextIsShownInPart) {
  EXPECT_EQ(OpenFailure("<html>\n"), "in.mif, line 1: the header is malformed at \"<html>\"");
  EXPECT_EQ(OpenFailure("Version 300\n\n\nAffine \x01 with a very long line that goes on and on\n"),
            "in.mif, line 4: the header is malformed at \"Affine ? with a very long line t...\"");
}

TEST_F(PairHeaderTest, ColumnNumbersOutsideTheColumnsAreSaid) {
  EXPECT_EQ(OpenFailure("Version 300\nUnique 3\nColumns 1\n A Integer\nData\n\nPoint 1 2\n"),
            "in.mif, line 5: the Unique or the Index clause names a column that is not there");
}

TEST_F(PairHeaderTest, CoordinateSystemFaultHasItsPlace) {
  EXPECT_EQ(
      OpenFailure("Version 300\nCoordSys Earth Projection 8, 104, \"m\", 9\nColumns 1\n A Integer\nData\n"),
      "in.mif, line 2: too few arguments before column 41 of \"CoordSys Earth Projection 8, 104...\"");
}

TEST_F(PairHeaderTest, ByteOrderMarkIsSaid) {
  EXPECT_EQ(OpenFailure("\xEF\xBB\xBFVersion 300\nColumns 1\n A Integer\nData\n"),
            "in.mif begins with a byte order mark, which a MIF file must not have");
}

TEST_F(PairHeaderTest, FaultsOfTheFirstObjectsAreNoneOfTheHeader) {
  EXPECT_EQ(OpenFailure("Version 300\nColumns 1\n A Integer\nData\n\nPoint x\nPoint y\n"), "");
}

}  // namespace
}  // namespace App
