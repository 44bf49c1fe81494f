#include "pair_fixture.h"

#include <filesystem>
#include <string>
#include <utility>

namespace App {
namespace {

namespace fs = std::filesystem;
namespace MI = Pelor::MI;

class PairSourceTest : public PairFixture {
 protected:
  // Reads a pair whose header is the given one, or that of two columns.
  Given ReadData(std::string_view data, std::string_view mid) const {
    return Read(Write(kHeader + std::string(data), mid));
  }

  static inline const std::string kHeader =
      "Version 300\nCharset \"WindowsLatin1\"\nColumns 2\n  Id Integer\n  Name Char(10)\nData\n\n";
  static inline const std::string kOneColumn =
      "Version 300\nCharset \"WindowsLatin1\"\nColumns 1\n  Name Char(10)\nData\n\n";
};

std::string Point(int x, int y) {
  return "Point " + std::to_string(x) + " " + std::to_string(y) + "\n Symbol (32,0,8)\n";
}

TEST_F(PairSourceTest, BeginsWithTheFirstObjectAndGivesAllOfThem) {
  const Given given = ReadData("Point 1 2\nPoint 3 4\nNone\n", "1\tone\n2\ttwo\n3\tthree\n");
  EXPECT_EQ(given.text, "Point #1@0|1|one\n" + Point(1, 2) + "Point #2@0|2|two\n" + Point(3, 4) +
                            "None #3@0|3|three\nNone\n");
  EXPECT_EQ(given.account, "None 1 = 1 + 0\nPoint 2 = 2 + 0\n");
}

TEST_F(PairSourceTest, PairWithoutObjectsGivesNothing) {
  const Given given = ReadData("", "");
  EXPECT_EQ(given.text, "");
  EXPECT_EQ(given.account, "");
}

TEST_F(PairSourceTest, GivesTheColumnsAndTheSystemOfTheHeader) {
  const fs::path name = Write(
      "VERSION 650\rCHARSET \"WindowsLatin1\"\rDELIMITER \",\"\rUNIQUE 1\rINDEX 1,2\r"
      "COORDSYS EARTH PROJECTION 1, 104\rCOLUMNS 2\r\tID Integer\r\tStra\xDF"
      "e Decimal (12, 3)\rDATA\r",
      "");
  const PairSource source(RecogniseInput(name));
  const Schema& schema = source.GetSchema();
  ASSERT_EQ(schema.columns.size(), 2U);
  EXPECT_EQ(schema.columns[0], MI::Column("ID", MI::Integer_t(), 3));
  EXPECT_EQ(schema.columns[1], MI::Column("Straße", MI::Decimal_t(), 12, 3, 1));
  ASSERT_TRUE(schema.system);
  EXPECT_EQ(*schema.system, MI::CoordSys(MI::LongLat_t(), MI::Datum(MI::StdDatum{104}), {}));
  EXPECT_EQ(source.GetVersion(), 650);
  EXPECT_EQ(source.GetDelimiter(), ',');
  EXPECT_EQ(source.GetCharset(), "WindowsLatin1");
}

TEST_F(PairSourceTest, HeaderWithoutASystemGivesNone) {
  const fs::path name = Write(kHeader, "");
  EXPECT_FALSE(PairSource(RecogniseInput(name)).GetSchema().system);
}

TEST_F(PairSourceTest, EitherFileNamesThePairInEitherCase) {
  static_cast<void>(Folder().Write("UP.MIF", kHeader + "Point 1 2\n"));
  static_cast<void>(Folder().Write("UP.MID", "1\tone\n"));
  const std::string expected = "Point #1@0|1|one\n" + Point(1, 2);
  EXPECT_EQ(Read(Folder() / "UP.MIF").text, expected);
  EXPECT_EQ(Read(Folder() / "UP.MID").text, expected);
  Write(kHeader + "Point 1 2\n", "1\tone\n");
  EXPECT_EQ(Read(Folder() / "in.mid").text, expected);
}

TEST_F(PairSourceTest, MissingMidFileIsAnAssumption) {
  const fs::path name = Folder().Write("lone.mif", kHeader + "Point 1 2\nPoint 3 4\n");
  const Given given = Read(name);
  EXPECT_EQ(given.text, "Point #1@0||\n" + Point(1, 2) + "Point #2@0||\n" + Point(3, 4));
  EXPECT_EQ(given.account, "Point 2 = 2 + 0\n! lone.mif has no MID file: all values are empty\n");
}

TEST_F(PairSourceTest, MidFileThatCannotBeReadIsAFailure) {
  const fs::path name = Folder().Write("in.mif", kHeader + "Point 1 2\n");
  fs::create_directory(Folder() / "in.mid");
  EXPECT_EQ(FailureOf([&] { PairSource(RecogniseInput(name)); }), "in.mid cannot be read: is a directory");
}

TEST_F(PairSourceTest, ReusesTheFeature) {
  const fs::path name = Write(kHeader + "Point 1 2\nNone\n", "1\tone\n2\n");
  PairSource source(RecogniseInput(name));
  Account account;
  Feature feature;
  feature.values = {"left", "over", "from before"};
  feature.count = 7;
  ASSERT_TRUE(source.Next(feature, account));
  EXPECT_EQ(feature.values, (std::vector<Tobri::String>{"1", "one"}));
  EXPECT_EQ(feature.count, 1);
  ASSERT_TRUE(source.Next(feature, account));
  EXPECT_EQ(feature.values, (std::vector<Tobri::String>{"2", ""}));
  EXPECT_FALSE(source.Next(feature, account));
  EXPECT_FALSE(source.Next(feature, account));
}

TEST_F(PairSourceTest, TellsHowFarItIs) {
  const std::string mif = kHeader + "Point 1 2\nPoint 3 4\n";
  PairSource source(RecogniseInput(Write(mif, "")));
  EXPECT_EQ(source.Total(), static_cast<std::int64_t>(mif.size()));
  Account account;
  Feature feature;
  ASSERT_TRUE(source.Next(feature, account));
  const std::int64_t after_first = source.Current();
  EXPECT_GT(after_first, static_cast<std::int64_t>(kHeader.size()));
  EXPECT_LT(after_first, source.Total());
  ASSERT_TRUE(source.Next(feature, account));
  EXPECT_FALSE(source.Next(feature, account));
  // The last line end is white space that nobody needed to read.
  EXPECT_GE(source.Current(), source.Total() - 1);
}

TEST_F(PairSourceTest, LineWithoutAPenHasTheUsualOne) {
  EXPECT_EQ(
      ReadData("Line 1 2 3 4\nLine 1 2 3 4 Pen (1,1,0)\nLine 1 2 3 4 Pen (3,5,255)\n", "1\ta\n2\tb\n3\tc\n")
          .text,
      "Line #1@0|1|a\nLine 1 2 3 4\n Pen (1,2,0)\n"
      "Line #2@0|2|b\nLine 1 2 3 4\n Pen (1,1,0)\n"
      "Line #3@0|3|c\nLine 1 2 3 4\n Pen (3,5,255)\n");
}

TEST_F(PairSourceTest, ArcOfAWholeTurnIsAnEmptyEllipse) {
  const Given given = ReadData(
      "Arc 0 0 10 5 0 360 Pen (3,5,255)\nArc 0 0 10 5 90 450\nArc 0 0 10 5 90 90\nArc 0 0 10 5 350 10\n",
      "1\ta\n2\tb\n3\tc\n4\td\n");
  EXPECT_EQ(given.text,
            "Arc #1@0|1|a\nEllipse 0 0 10 5\n Pen (3,5,255) Brush (1,16777215,0)\n"
            "Arc #2@0|2|b\nEllipse 0 0 10 5\n Pen (1,2,0) Brush (1,16777215,0)\n"
            "Arc #3@0|3|c\nArc 0 0 10 5\n 90 90\n Pen (1,2,0)\n"
            "Arc #4@0|4|d\nArc 0 0 10 5\n 350 10\n Pen (1,2,0)\n");
  EXPECT_EQ(given.account, "Arc 4 = 4 + 0\n");
}

TEST_F(PairSourceTest, QuotedValuesHoldDelimitersQuotesAndLineEnds) {
  EXPECT_EQ(ReadData("None\nNone\n", "1\t\"a\tb \"\"c\"\"\"\n2\t\"one\ntwo\"\n").text,
            "None #1@0|1|a\tb \"c\"\nNone\nNone #2@0|2|one\ntwo\nNone\n");
}

// Objects that later versions have, and words that are no kind of object.

TEST_F(PairSourceTest, UnknownObjectsAreSkippedWithTheirRows) {
  const Given given = ReadData(
      "Point 1 2\n"
      "Blob 1 2\n"
      "MULTIPOINT 2\n 1 2\n 3 4\n Symbol (32,0,8)\n"
      "Collection 2\nRegion 1\n 3\n 0 0\n 1 0\n 1 1\nMultipoint 1\n 5 6\n"
      "Point 3 4\n",
      "1\ta\n2\tb\n3\tc\n4\td\n5\te\n");
  EXPECT_EQ(given.text, "Point #1@0|1|a\n" + Point(1, 2) + "Point #5@0|5|e\n" + Point(3, 4));
  EXPECT_EQ(given.account,
            "Collection 1 = 0 + 1\n - objects of this kind are not read: 1 (#4@14)\n"
            "Multipoint 1 = 0 + 1\n - objects of this kind are not read: 1 (#3@10)\n"
            "Point 2 = 2 + 0\n"
            "unknown object 1 = 0 + 1\n - no kind of object has this name: 1 (#2@9)\n");
}

TEST_F(PairSourceTest, UnknownObjectsAtTheEndAreCountedToo) {
  EXPECT_EQ(ReadData("Point 1 2\nMultipoint 1\n 3 4\n", "1\ta\n2\tb\n").account,
            "Multipoint 1 = 0 + 1\n - objects of this kind are not read: 1 (#2@9)\nPoint 1 = 1 + 0\n");
}

TEST_F(PairSourceTest, ForeignClauseIsAnApproximationOfItsObject) {
  const Given given = ReadData("Point 1 2\n Brush (2,0)\nPoint 3 4\n", "1\ta\n2\tb\n");
  EXPECT_EQ(given.text, "Point #1@0|1|a\n" + Point(1, 2) + "Point #2@0|2|b\n" + Point(3, 4));
  EXPECT_EQ(given.account, "Point 2 = 2 + 0\n ~ what stands behind it is no clause of it: 1 (#1@9)\n");
}

TEST_F(PairSourceTest, TextBeforeTheFirstObjectIsSaid) {
  const Given given = ReadData("12 34\nPoint 1 2\n", "1\ta\n");
  EXPECT_EQ(given.text, "Point #1@0|1|a\n" + Point(1, 2));
  EXPECT_EQ(given.account,
            "Point 1 = 1 + 0\n! what stands before the first object of in.mif means nothing\n");
}

TEST_F(PairSourceTest, ClausesComeInAnyOrder) {
  const Given given = ReadData(
      "Text \"a\" 0 0 4 2 Font (\"Arial\",0,0,0) Spacing 1.5 Justify Right Angle 45 Label Line Simple 9 8\n",
      "1\ta\n");
  EXPECT_EQ(given.text,
            "Text #1@0|1|a\nText \"a\"\n 0 0 4 2\n Font (\"Arial\", 0, 0, 0)\n  Angle 45\n  Justify Right\n"
            "  Spacing 1.5\n  Label Line Simple 9 8\n\n");
  EXPECT_EQ(given.account, "Text 1 = 1 + 0\n");
}

// Malformed objects.

struct Damage {
  const char* object;
  const char* kind;
  const char* kept;  // what is given for it; empty: None
};

TEST_F(PairSourceTest, OfAMalformedObjectWhatCanBeReadIsKept) {
  for (const Damage& damage : {
           Damage{"Point 1 x", "Point", ""},
           Damage{"Line 1 2 3 x", "Line", ""},
           Damage{"Rect 1 2 3 x", "Rect", ""},
           Damage{"RoundRect 1 2 3 4 x", "RoundRect", ""},
           Damage{"Ellipse 1 2 3 x", "Ellipse", ""},
           Damage{"Arc 1 2 3 4 5 x", "Arc", ""},
           Damage{"Text \"a\" 1 2 3 x", "Text", ""},
           Damage{"Pline 3\n1 2 x", "PLine", ""},
           Damage{"Pline 3\n1 2\n3 4 x", "PLine", "PLine 2\n 1 2\n 3 4\n Pen (1,2,0)\n"},
           Damage{"Region 1\n4\n1 2\n3 4 x", "Region", ""},
           Damage{"Region 1\n4\n0 0\n4 0\n4 4 x", "Region",
                  "Region 1\n 4\n 0 0\n 4 0\n 4 4\n 0 0\n Pen (1,2,0)\n Brush (2,16777215,0)\n Center 2 1\n"},
           Damage{"Text \"a\" 1 2 3 4\nJustify up", "Text",
                  "Text \"a\"\n 1 2 3 4\n Font (\"MS Sans Serif\", 0, 0, 0)\n\n"},
       }) {
    const Given given =
        ReadData("None\n" + std::string(damage.object) + "\nPoint 5 6\n", "1\ta\n2\tb\n3\tc\n");
    const std::string kind = damage.kind;
    const std::string kept = damage.kept;
    const std::string reason =
        kept.empty() ? "malformed: only its row is kept" : "malformed: what could be read is kept";
    EXPECT_NE(given.account.find(" ~ " + reason + ": 1 (#2@"), std::string::npos) << given.account;
    EXPECT_NE(given.text.find(kind + " #2@"), std::string::npos) << given.text;
    EXPECT_NE(given.text.find("|2|b\n" + (kept.empty() ? "None\n" : kept) + "Point #3@0|3|c\n"),
              std::string::npos)
        << given.text;
  }
}

TEST_F(PairSourceTest, AMalformedStyleLeavesTheObjectWhole) {
  const std::string area = " Pen (1,2,0) Brush (2,16777215,0)\n";
  for (const auto& [object, given_for_it] : {
           std::pair<std::string, std::string>{"Point 1 2\n Symbol (35,0)", "Point 1 2\n Symbol (32,0,8)\n"},
           {"Line 0 0 1 1\n Pen (1,2)", "Line 0 0 1 1\n Pen (1,2,0)\n"},
           {"Pline 2\n0 0\n1 1\n Pen (1)", "PLine 2\n 0 0\n 1 1\n Pen (1,2,0)\n"},
           {"Arc 0 0 2 2 0 90\n Pen x", "Arc 0 0 2 2\n 0 90\n Pen (1,2,0)\n"},
           {"Rect 0 0 1 1\n Pen (1,2)", "Rect 0 0 1 1\n" + area},
           {"Rect 0 0 1 1\n Pen (2,3,255)\n Brush (2)",
            "Rect 0 0 1 1\n Pen (2,3,255) Brush (2,16777215,0)\n"},
           {"RoundRect 0 0 9 9 1\n Brush (x,0)", "RoundRect 0 0 9 9\n 1\n" + area},
           {"Ellipse 0 0 1 1\n Brush (2)", "Ellipse 0 0 1 1\n" + area},
           {"Region 1\n3\n0 0\n4 0\n4 4\n Pen (1,2)",
            "Region 1\n 4\n 0 0\n 4 0\n 4 4\n 0 0\n Pen (1,2,0)\n Brush (2,16777215,0)\n Center 2 1\n"},
           {"Text \"a\" 1 2 3 4\n Font (1)", "Text \"a\"\n 1 2 3 4\n Font (\"MS Sans Serif\", 0, 0, 0)\n\n"},
       }) {
    const Given given = ReadData("None\n" + object + "\nPoint 5 6\n", "1\ta\n2\tb\n3\tc\n");
    EXPECT_NE(given.account.find(" ~ malformed style clause: the usual style is taken: 1 (#2@"),
              std::string::npos)
        << object << '\n'
        << given.account;
    EXPECT_NE(given.text.find("|2|b\n" + given_for_it + "Point #3@0|3|c\n"), std::string::npos) << given.text;
  }
}

TEST_F(PairSourceTest, MalformedObjectHasItsLine) {
  const Given given = ReadData("None\nPoint 1 x\n", "1\ta\n2\tb\n");
  EXPECT_EQ(given.text, "None #1@0|1|a\nNone\nPoint #2@9|2|b\nNone\n");
}

TEST_F(PairSourceTest, RegionWithABadCentreIsKept) {
  const Given given = ReadData("Region 1\n3\n0 0\n4 0\n4 4\nCenter x\n", "1\ta\n");
  EXPECT_NE(given.text.find("Region 1\n 4\n 0 0\n 4 0\n 4 4\n 0 0\n"), std::string::npos) << given.text;
}

// Rows.

TEST_F(PairSourceTest, ObjectsWithoutARowAreSaid) {
  EXPECT_EQ(ReadData("Point 1 2\nPoint 3 4\nNone\n", "1\ta\n").account,
            "None 1 = 1 + 0\n ~ its row is missing or empty: 1 (#3@0)\n"
            "Point 2 = 2 + 0\n ~ its row is missing or empty: 1 (#2@0)\n");
}

TEST_F(PairSourceTest, RowsWithoutAnObjectAreSkipped) {
  const Given given = ReadData("Point 1 2\n", "1\ta\n2\tb\n3\tc\n");
  EXPECT_EQ(given.text, "Point #1@0|1|a\n" + Point(1, 2));
  EXPECT_EQ(given.account, "Point 1 = 1 + 0\nrow 2 = 0 + 2\n - there is no object for it: 2 (#2@0 #3@0)\n");
}

TEST_F(PairSourceTest, RowsOfAnotherLengthAreSaid) {
  const Given given = ReadData("Point 1 2\nPoint 3 4\nPoint 5 6\n", "1\n2\tb\tmore\n3\tc\n");
  EXPECT_EQ(given.text, "Point #1@0|1|\n" + Point(1, 2) + "Point #2@0|2|b\n" + Point(3, 4) +
                            "Point #3@0|3|c\n" + Point(5, 6));
  EXPECT_EQ(given.account,
            "Point 3 = 3 + 0\n ~ its row has fewer values than there are columns: 1 (#1@0)\n"
            " ~ its row has more values than there are columns: 1 (#2@0)\n");
}

TEST_F(PairSourceTest, EmptyValuesInTheOnlyColumnAreRows) {
  const std::string three = kOneColumn + "None\nNone\nNone\n";
  for (const char* mid : {"\n\n\n", "\r\n\r\n\r\n", "a\n\n\n", "\n\nc\n", "a\n\nc", "\r\r\r"}) {
    EXPECT_EQ(Read(Write(three, mid)).account, "None 3 = 3 + 0\n") << mid;
  }
}

TEST_F(PairSourceTest, MissingRowsOfTheOnlyColumnAreSaid) {
  const std::string three = kOneColumn + "None\nNone\nNone\n";
  const std::string said = "None 3 = 3 + 0\n ~ its row is missing or empty: ";
  EXPECT_EQ(Read(Write(three, "a\n")).account, said + "2 (#2@0)\n");
  EXPECT_EQ(Read(Write(three, "a")).account, said + "2 (#2@0)\n");
  EXPECT_EQ(Read(Write(three, "a\n\n")).account, said + "1 (#2@0)\n");
  EXPECT_EQ(Read(Write(three, "a\r\n\r\n")).account, said + "1 (#2@0)\n");
  EXPECT_EQ(Read(Write(three, "")).account, said + "3 (#1@0)\n");
  EXPECT_EQ(Read(Write(three, "\n")).account, said + "2 (#1@0)\n");
}

TEST_F(PairSourceTest, PairWithoutColumnsNeedsNoRows) {
  const fs::path name = Write("Version 300\nColumns 0\nData\n\nNone\nNone\n", "");
  const Given given = Read(name);
  EXPECT_EQ(given.text, "None #1@0\nNone\nNone #2@0\nNone\n");
  EXPECT_EQ(given.account, "None 2 = 2 + 0\n");
}

// Character sets. "\xCC\xE8\xF0" is "Мир" in WindowsCyrillic, and "Ìèð" in WindowsLatin1.

class PairSourceCharsetTest : public PairFixture {
 protected:
  std::filesystem::path WriteIn(std::string_view charset) const {
    const std::string clause = charset.empty() ? "" : "CharSet \"" + std::string(charset) + "\"\n";
    return Write("Version 300\n" + clause +
                     "Columns 1\n \xCC\xE8\xF0 Char(10)\nData\n\n"
                     "Text \"\xCC\xE8\xF0\" 0 0 4 2 Font (\"\xCC\xE8\xF0\",0,0,0)\n"
                     "Point 1 2 Symbol (\"\xCC\xE8\xF0.bmp\",0,18,0)\n"
                     "Point 1 2 Symbol (65,0,18,\"\xCC\xE8\xF0\",0,0)\n",
                 "\xCC\xE8\xF0\n\"\xCC\xE8\xF0\"\nplain\n");
  }
  static std::string Expected(const std::string& word) {
    return "Text #1@0|" + word + "\nText \"" + word + "\"\n 0 0 4 2\n Font (\"" + word +
           "\", 0, 0, 0)\n\n"
           "Point #2@0|" +
           word + "\nPoint 1 2\n Symbol (\"" + word +
           ".bmp\",0,18,0)\nPoint #3@0|plain\nPoint 1 2\n Symbol (65,0,18, \"" + word + "\",0,0)\n";
  }
};

constexpr const char* kClean = "Point 2 = 2 + 0\nText 1 = 1 + 0\n";

TEST_F(PairSourceCharsetTest, TextsValuesAndNamesBecomeUtf8) {
  const fs::path name = WriteIn("WindowsCyrillic");
  const Given given = Read(name);
  EXPECT_EQ(given.text, Expected("Мир"));
  EXPECT_EQ(given.account, kClean);
  EXPECT_EQ(PairSource(RecogniseInput(name)).GetSchema().columns[0].name, "Мир");
}

TEST_F(PairSourceCharsetTest, GivenSetGoesBeforeTheHeaders) {
  const fs::path name = WriteIn("WindowsCyrillic");
  EXPECT_EQ(Read(name, "WindowsLatin1").text, Expected("Ìèð"));
  EXPECT_EQ(Read(name, "cp1251").text, Expected("Мир"));
  EXPECT_EQ(PairSource(RecogniseInput(name), "cp1252").GetCharset(), "cp1252");
}

TEST_F(PairSourceCharsetTest, Utf8StaysAsItIs) {
  const fs::path name = Write(
      "Version 300\nCharSet \"UTF-8\"\nColumns 1\n Größe Char(10)\nData\n\nText \"Fluß\" 0 0 4 2\n", "Öl\n");
  const Given given = Read(name);
  EXPECT_EQ(given.text, "Text #1@0|Öl\nText \"Fluß\"\n 0 0 4 2\n Font (\"MS Sans Serif\", 0, 0, 0)\n\n");
  EXPECT_EQ(given.account, "Text 1 = 1 + 0\n");
  EXPECT_EQ(PairSource(RecogniseInput(name)).GetSchema().columns[0].name, "Größe");
}

TEST_F(PairSourceCharsetTest, BytesThatAreNoCharacterAreSaid) {
  const fs::path name = WriteIn("UTF-8");
  const Given given = Read(name);
  EXPECT_EQ(given.text, Expected("\xCC\xE8\xF0"));
  EXPECT_EQ(given.account,
            "Point 2 = 2 + 0\n ~ bytes that are no character of UTF-8 are kept as they are: 2 (#2@0 #3@0)\n"
            "Text 1 = 1 + 0\n ~ bytes that are no character of UTF-8 are kept as they are: 1 (#1@0)\n");
}

TEST_F(PairSourceCharsetTest, NeutralTextsStayAsTheyAre) {
  const Given given = Read(WriteIn("Neutral"));
  EXPECT_EQ(given.text, Expected("\xCC\xE8\xF0"));
  EXPECT_EQ(given.account, kClean);
}

TEST_F(PairSourceCharsetTest, UnknownSetIsAnAssumption) {
  const fs::path name = WriteIn("Klingon");
  const Given given = Read(name);
  EXPECT_EQ(given.text, Expected("\xCC\xE8\xF0"));
  EXPECT_EQ(given.account, std::string(kClean) +
                               "! the character set \"Klingon\" of in.mif is unknown: texts "
                               "are taken as they are\n");
  EXPECT_EQ(PairSource(RecogniseInput(name)).GetCharset(), "Neutral");
}

TEST_F(PairSourceCharsetTest, UnknownSetThatIsGivenIsAFailure) {
  const fs::path name = WriteIn("WindowsCyrillic");
  EXPECT_EQ(FailureOf([&] { PairSource(RecogniseInput(name), "Klingon"); }),
            "the character set \"Klingon\" is unknown");
}

TEST_F(PairSourceCharsetTest, WithoutASetTheUsualOneIsAssumed) {
  const Given given = Read(WriteIn(""));
  EXPECT_EQ(given.text, Expected("Ìèð"));
  EXPECT_EQ(given.account,
            std::string(kClean) + "! in.mif does not say its character set: WindowsLatin1 is assumed\n");
}

TEST_F(PairSourceCharsetTest, NoSetNeedsToBeAssumedForPlainTexts) {
  EXPECT_EQ(Read(Write("Version 2\nColumns 1\n A Char(5)\nData\n\nNone\n", "plain\n")).account,
            "None 1 = 1 + 0\n");
}

}  // namespace
}  // namespace App
