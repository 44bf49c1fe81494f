#include <pelor/mi/objects.h>
#include <pelor/mif/object_clauses.h>
#include <pelor/mif/reader.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/base/process_locale.h>
#include <tests/mif/mif_text.h>
#include <tests/mif/pair_files.h>
#include <vector>

namespace {

using namespace Pelor;
using namespace Pelor::MI;
using Messages = std::vector<std::string>;

class ReaderTest : public PairFiles {
 protected:
  // The objects and rows from the first to the last: the first line of each object's clause, a colon, and the
  // values with bars between them.
  static std::vector<std::string> All(iMIF& in) {
    std::vector<std::string> all;
    for (in.Reset(); in.IsValid(); in.Next()) {
      std::string line = MifText([&](std::ostream& out) { MIF::Write(in.GetObj(), out); });
      line.resize(line.find('\n'));
      line += ':';
      for (int i = 0; i < in.GetNAttributes(); ++i) line += (i > 0 ? "|" : "") + in.GetAttribute(i).str();
      all.push_back(line);
    }
    return all;
  }
  std::vector<std::string> All() {
    iMIF in(Path("pair"));
    return All(in);
  }

  // The messages that reading the pair from its opening to its end reports.
  Messages Report() {
    Messages messages;
    const std::string folder = Path("");
    const Tobri::Error::ScopedHandler guard([&](const Tobri::Error::Msg& message) {
      std::string text = message.what();
      if (const auto at = text.find(folder); at != std::string::npos) text.erase(at, folder.size());
      messages.push_back(text);
    });
    iMIF in(Path("pair"));
    All(in);
    return messages;
  }
};

TEST_F(ReaderTest, OpenStandsOnTheSecondObject) {
  PutPair("Version 1\nColumns 1\n a Integer\nData\nPoint 1 1\nPoint 2 2\nPoint 3 3\n", "1\n2\n3\n");
  iMIF in(Path("pair"));
  EXPECT_EQ(in.GetAttribute(0), "2");
  EXPECT_EQ(WPointObj(in.GetObj())->GetPoint().x, 2);
  in.Reset();
  EXPECT_EQ(in.GetAttribute(0), "1");
  EXPECT_EQ(WPointObj(in.GetObj())->GetPoint().x, 1);
  in.Next();
  in.Next();
  EXPECT_EQ(in.GetAttribute(0), "3");
  in.Next();
  EXPECT_FALSE(in.IsValid());
  EXPECT_EQ(in.GetAttribute(0), "");
  EXPECT_EQ(in.GetNAttributes(), 0);
  in.Next();
  EXPECT_FALSE(in.IsValid());
}

TEST_F(ReaderTest, PairOfOneObjectIsExhaustedAfterOpen) {
  PutPair("Version 1\nColumns 0\nData\nPoint 1 1\n", "");
  iMIF in(Path("pair"));
  EXPECT_FALSE(in.IsValid());
  in.Reset();
  EXPECT_TRUE(in.IsValid());
}

TEST_F(ReaderTest, HeaderIsReadWhole) {
  PutPair(
      "Version 300\nCharSet \"WindowsLatin1\"\nDelimiter \",\"\nUnique 1,3\nIndex 2, 3\n"
      "CoordSys Earth Projection 8, 33, 7, 12, 0, 0.9996, 500000, 0\nTransform 2,3,10,20\nColumns 3\n"
      " Name\tChar (20)\n Price Decimal(10,2)\n Ready Logical\nData\n\nPoint 1 1\n",
      "");
  iMIF in(Path("pair"));
  EXPECT_EQ(in.GetVersion(), 300);
  EXPECT_EQ(in.GetCharSetName(), "WindowsLatin1");
  EXPECT_EQ(in.GetDelimiter(), ',');
  EXPECT_EQ(in.GetTransform(), (Transform{2, 3, 10, 20}));
  ASSERT_EQ(in.GetNColumns(), 3);
  EXPECT_EQ(in.GetColumn(0), Column("Name", Character_t(), 20, 2));
  EXPECT_EQ(in.GetColumn(1), Column("Price", Decimal_t(), 10, 2, 1));
  EXPECT_EQ(in.GetColumn(2), Column("Ready", Logical_t(), 3));
  ASSERT_NE(in.GetWSys(), nullptr);
  EXPECT_EQ(in.GetCoordSys(), *in.GetWSys());
  in.Reset();
  EXPECT_EQ(in.GetObj()->GetWSys(), in.GetWSys());
}

TEST_F(ReaderTest, HeaderNeedsLittle) {
  PutPair("VERSION 1\rCOLUMNS 0\rDATA\rPOINT 1 1\r", "");
  iMIF in(Path("pair"));
  EXPECT_EQ(in.GetVersion(), 1);
  EXPECT_EQ(in.GetDelimiter(), '\t');
  EXPECT_EQ(in.GetCharSetName(), "");
  EXPECT_EQ(in.GetWSys(), nullptr);
  EXPECT_EQ(in.GetCoordSys(), CoordSys());
  EXPECT_EQ(in.GetTransform(), Transform());
  EXPECT_EQ(in.GetNColumns(), 0);
}

TEST_F(ReaderTest, ClauseOutOfOrderEndsTheHeader) {
  PutPair("Version 300\nDelimiter \",\"\nCharset \"Neutral\"\nColumns 0\nData\n", "");
  EXPECT_EQ(Report(), (Messages{"Invalid MIF@ pair.mif, line 2, column 14"}));
}

TEST_F(ReaderTest, EveryHeaderFaultIsInvalidMif) {
  const std::pair<std::string, Messages> faults[] = {
      {"", {"Invalid MIF@ pair.mif, line 1, column 1"}},
      {"Columns 0\nData\n", {"Invalid MIF@ pair.mif, line 1, column 1"}},
      {"\n\r\n  Data\n", {"Invalid MIF@ pair.mif, line 1, column 1"}},
      {"Version\nColumns 0\nData\n", {"Invalid MIF@ pair.mif, line 2, column 1"}},
      {"Version 1\nData\n", {"Invalid MIF@ pair.mif, line 1, column 10"}},
      {"Version 1\nColumns x\nData\n", {"Invalid MIF@ pair.mif, line 2, column 9"}},
      {"Version 1\nColumns 1\nData\n",
       {"Invalid Column@ pair.mif, line 4, column 1", "Invalid MIF@ pair.mif, line 4, column 1"}},
      {"Version 1\nColumns 1\n a BigInt\nData\n",
       {"Invalid Column@ pair.mif, line 3, column 10", "Invalid MIF@ pair.mif, line 3, column 10"}},
      {"Version 1\nColumns 0\nPoint 1 1\n", {"Invalid MIF@ pair.mif, line 2, column 10"}},
      {"Version 1\nUnique 2\nColumns 1\na Integer\nData\n", {"Invalid MIF@ pair.mif, line 5, column 5"}},
      {"Version 1\nIndex 0\nColumns 1\na Integer\nData\n", {"Invalid MIF@ pair.mif, line 5, column 5"}},
      {"Version 1\nTransform 1,2,3\nColumns 0\nData\n", {"Invalid Transform@ pair.mif, line 2, column 16"}},
  };
  for (const auto& [mif, messages] : faults) {
    PutPair(mif, "");
    EXPECT_EQ(Report(), messages) << mif;
  }
}

TEST_F(ReaderTest, NumbersInsideTheColumnsAreMarkedBesideThoseOutside) {
  PutPair("Version 1\nUnique 9,1,-1\nIndex 2,4294967297\nColumns 2\na Integer\nb Float\nData\n", "");
  const Tobri::Error::ScopedHandler guard([](const Tobri::Error::Msg&) {});
  iMIF in(Path("pair"));
  EXPECT_EQ(in.GetColumn(0).flags, 2);
  EXPECT_EQ(in.GetColumn(1).flags, 1);
}

TEST_F(ReaderTest, MalformedHeaderThrowsByDefault) {
  PutPair("Columns 0\n", "");
  iMIF in;
  EXPECT_THROW(in.Open(Path("pair")), MIF::SyntaxError);
}

TEST_F(ReaderTest, WithoutADelimiterTheTabPartsValues) {
  PutPair("Version 1\nColumns 2\na Char(9)\nb Char(9)\nData\nPoint 1 1\n", "a,b c\td;e\n");
  EXPECT_EQ(All(), std::vector<std::string>{"Point 1 1:a,b c|d;e"});
}

TEST_F(ReaderTest, DelimiterIsTheOnlySeparator) {
  PutPair("Version 1\nDelimiter \";\"\nColumns 2\na Char(9)\nb Char(9)\nData\nPoint 1 1\n", " a,\tb ; c\n");
  EXPECT_EQ(All(), std::vector<std::string>{"Point 1 1: a,\tb | c"});
}

TEST_F(ReaderTest, RowsAreReadAsTheyAre) {
  PutPair(
      "Version 1\nDelimiter \",\"\nColumns 2\na Char(9)\nb Char(9)\nData\n"
      "Point 1 1\nPoint 2 2\nPoint 3 3\nPoint 4 4\nPoint 5 5\nPoint 6 6\nPoint 7 7\n",
      "\"a \"\"b\"\"\",\"c\r\nd\"\r\n\n,\n\"\",\"x,y\"\nlast,1,2,3\n5\" wide,b\n");
  EXPECT_EQ(All(), (std::vector<std::string>{"Point 1 1:a \"b\"|c\r\nd", "Point 2 2:", "Point 3 3:|",
                                             "Point 4 4:|x,y", "Point 5 5:last|1|2|3", "Point 6 6:5\" wide|b",
                                             "Point 7 7:"}));
}

TEST_F(ReaderTest, RowsBehindTheLastObjectAreRead) {
  PutPair("Version 1\nColumns 1\na Integer\nData\nPoint 1 1\n", "1\n2\n");
  iMIF in(Path("pair"));
  EXPECT_FALSE(in.IsValid());
  EXPECT_EQ(in.GetAttribute(0), "2");
}

TEST_F(ReaderTest, UnclosedQuoteTakesTheRestOfTheFile) {
  PutPair("Version 1\nDelimiter \",\"\nColumns 1\na Char(9)\nData\nPoint 1 1\nPoint 2 2\n", "\"a,b\nc\n");
  EXPECT_EQ(All(), (std::vector<std::string>{"Point 1 1:a,b\nc\n", "Point 2 2:"}));
}

TEST_F(ReaderTest, ValuesOutsideTheRowAreEmpty) {
  PutPair("Version 1\nColumns 2\na Integer\nb Integer\nData\nNone\n", "1\n");
  iMIF in(Path("pair"));
  in.Reset();
  EXPECT_EQ(in.GetNAttributes(), 1);
  EXPECT_EQ(in.GetAttribute(0), "1");
  EXPECT_EQ(in.GetAttribute(1), "");
  EXPECT_EQ(in.GetAttribute(-1), "");
}

TEST_F(ReaderTest, ColumnOutsideTheHeaderIsReported) {
  PutPair("Version 1\nColumns 1\na Integer\nData\n", "");
  iMIF in(Path("pair"));
  EXPECT_THROW((void)in.GetColumn(1), Tobri::ArrayIndexErr);
  EXPECT_THROW((void)in.GetColumn(-1), Tobri::ArrayIndexErr);
}

TEST_F(ReaderTest, ColumnsAreFoundWhateverTheirCase) {
  PutPair("Version 1\nColumns 3\nName Char(5)\n\xC3\x84rea Float\nNAME Float\nData\n", "");
  iMIF in(Path("pair"));
  EXPECT_EQ(in.GetColIndex("NAME"), 0);
  EXPECT_EQ(in.GetColIndex("name"), 0);
  EXPECT_EQ(in.GetColIndex("\xC3\xA4REA"), 1);
  EXPECT_EQ(in.GetColIndex("nam"), -1);
  EXPECT_EQ(in.GetColIndex(""), -1);
}

struct CharSetCase {
  const char* name;
  const char* value;  // of the byte 84
};

TEST_F(ReaderTest, CharSetsAreMappedWhenTheyAreKnown) {
  for (const CharSetCase& c :
       {CharSetCase{"windowslatin1", "\xE2\x80\x9E"}, CharSetCase{"WindowsLatin1", "\xE2\x80\x9E"},
        CharSetCase{"ISO8859_1", "\xC2\x84"}, CharSetCase{"CodePage437", "\xC3\xA4"},
        CharSetCase{"CODEPAGE850", "\xC3\xA4"}, CharSetCase{"Neutral", "\x84"}, CharSetCase{"", "\x84"},
        CharSetCase{"WindowsCyrillic", "\x84"}}) {
    PutPair(std::string("Version 300\nCharset \"") + c.name + "\"\nColumns 1\na Char(9)\nData\nNone\n",
            "\x84\n");
    iMIF in(Path("pair"));
    EXPECT_FALSE(in.GetCharSetMapping());
    in.Reset();
    EXPECT_EQ(in.GetAttribute(0), "\x84");
    in.SetCharSetMapping(true);
    EXPECT_TRUE(in.GetCharSetMapping());
    EXPECT_EQ(in.GetAttribute(0), c.value) << c.name;
    in.SetCharSetMapping(false);
    EXPECT_EQ(in.GetAttribute(0), "\x84");
  }
}

TEST_F(ReaderTest, TransformIsAppliedUntilSwitchedOff) {
  PutPair("Version 1\nTransform 2,3,10,20\nColumns 0\nData\nPoint 1 1\nLine 1 2 3 4\n", "");
  iMIF in(Path("pair"));
  EXPECT_TRUE(in.GetAutoTransform());
  EXPECT_EQ(All(in), (std::vector<std::string>{"Point 12 23:", "Line 12 26 16 32:"}));
  in.SetAutoTransform(false);
  EXPECT_FALSE(in.GetAutoTransform());
  EXPECT_EQ(All(in), (std::vector<std::string>{"Point 1 1:", "Line 1 2 3 4:"}));
  in.SetAutoTransform(true);
  EXPECT_EQ(WPointObj(in.GetObj())->GetPoint().x, 12);
}

TEST_F(ReaderTest, OneValueMakesATransform) {
  for (const auto& [transform, object] : {std::pair{"1,1,0,0", "Point 3 5:"},
                                          {"2,1,0,0", "Point 6 5:"},
                                          {"1,2,0,0", "Point 3 10:"},
                                          {"1,1,7,0", "Point 10 5:"},
                                          {"1,1,0,7", "Point 3 12:"}}) {
    PutPair(std::string("Version 1\nTransform ") + transform + "\nColumns 0\nData\nPoint 3 5\n", "");
    EXPECT_EQ(All(), std::vector<std::string>{object}) << transform;
  }
}

TEST_F(ReaderTest, SwitchesGoToTheFirstObject) {
  PutPair("Version 1\nColumns 1\na Integer\nData\nPoint 1 1\nPoint 2 2\n", "1\n2\n");
  iMIF in(Path("pair"));
  EXPECT_EQ(in.GetAttribute(0), "2");
  in.SetCharSetMapping(true);
  EXPECT_EQ(in.GetAttribute(0), "1");
  in.Next();
  in.SetAutoTransform(true);
  EXPECT_EQ(in.GetAttribute(0), "1");
}

TEST_F(ReaderTest, ObjectsHeldSurviveTheCursor) {
  PutPair("Version 1\nColumns 0\nData\nPoint 1 1\nPoint 2 2\n", "");
  iMIF in(Path("pair"));
  in.Reset();
  const WPointObj first(in.GetObj());
  in.Next();
  in.Close();
  EXPECT_EQ(first->GetPoint().x, 1);
}

TEST_F(ReaderTest, ProgressReachesTheSizeOfTheFile) {
  const std::string mif = "Version 1\nColumns 0\nData\nPoint 1 1\nPoint 2 2\n";
  PutPair(mif, "");
  iMIF in(Path("pair"));
  EXPECT_EQ(in.Total(), static_cast<long>(mif.size()));
  in.Reset();
  EXPECT_GT(in.Current(), 0);
  EXPECT_LE(in.Current(), in.Total());
  in.Next();
  in.Next();
  EXPECT_EQ(in.Current(), in.Total() - 1);
  in.Close();
  EXPECT_EQ(in.Current(), 0);
  EXPECT_EQ(in.Total(), 0);
}

TEST_F(ReaderTest, CloseForgetsEverything) {
  PutPair(
      "Version 300\nCharset \"ISO8859_1\"\nDelimiter \",\"\nCoordSys NonEarth Units \"m\" Bounds (0, 0) (1, "
      "1)\nTransform "
      "2,2,2,2\n"
      "Columns 1\na Integer\nData\nPoint 1 1\nPoint 2 2\n",
      "1\n2\n");
  iMIF in(Path("pair"));
  in.SetCharSetMapping(true);
  in.Close();
  EXPECT_FALSE(in.IsValid());
  EXPECT_EQ(in.GetObj(), nullptr);
  EXPECT_EQ(in.GetNAttributes(), 0);
  EXPECT_EQ(in.GetNColumns(), 0);
  EXPECT_EQ(in.GetVersion(), 0);
  EXPECT_EQ(in.GetDelimiter(), '\t');
  EXPECT_EQ(in.GetWSys(), nullptr);
  EXPECT_EQ(in.GetTransform(), Transform());
  EXPECT_EQ(in.GetCharSetName(), "");
  EXPECT_FALSE(in.GetCharSetMapping());
  EXPECT_FALSE(in.GetAutoTransform());
  in.Next();
  in.Reset();
  EXPECT_FALSE(in.IsValid());
}

TEST_F(ReaderTest, MissingFileLeavesTheReaderClosedWithoutAWord) {
  Put("onlymif.mif", "Version 1\nColumns 0\nData\nPoint 1 1\nPoint 1 1\n");
  Put("onlymid.mid", "1\n");
  for (const char* name : {"onlymif", "onlymid", "neither", "no/folder/pair"}) {
    iMIF in(Path(name));
    EXPECT_FALSE(in.IsValid()) << name;
    EXPECT_EQ(in.Total(), 0) << name;
    in.Reset();
    EXPECT_FALSE(in.IsValid()) << name;
  }
}

TEST_F(ReaderTest, FolderIsNoFile) {
  std::filesystem::create_directory(Path("pair.mif"));
  Put("pair.mid", "");
  iMIF in(Path("pair"));
  EXPECT_FALSE(in.IsValid());
  EXPECT_EQ(in.Total(), 0);
}

TEST_F(ReaderTest, ExtensionOfTheNameIsReplaced) {
  PutPair("Version 1\nColumns 0\nData\nPoint 1 1\nPoint 2 2\n", "");
  EXPECT_TRUE(iMIF(Path("pair.tab")).IsValid());
  EXPECT_TRUE(iMIF(Path("pair.mif")).IsValid());
}

TEST_F(ReaderTest, CapitalExtensionsAreFound) {
  Put("PAIR.MIF", "Version 1\nColumns 1\na Integer\nData\nPoint 1 1\nPoint 2 2\n");
  Put("PAIR.MID", "1\n2\n");
  iMIF in(Path("PAIR.MIF"));
  EXPECT_EQ(in.GetAttribute(0), "2");
}

TEST_F(ReaderTest, OpenClosesTheOpenPair) {
  PutPair("Version 300\nCharset \"Neutral\"\nColumns 1\na Integer\nData\nPoint 1 1\nPoint 2 2\n", "1\n2\n");
  Put("other.mif", "Version 1\nColumns 0\nData\nPoint 3 3\nPoint 4 4\n");
  Put("other.mid", "");
  iMIF in(Path("pair"));
  in.Open(Path("other"));
  EXPECT_EQ(in.GetVersion(), 1);
  EXPECT_EQ(in.GetNColumns(), 0);
  EXPECT_EQ(in.GetCharSetName(), "");
  EXPECT_EQ(WPointObj(in.GetObj())->GetPoint().x, 4);
}

TEST_F(ReaderTest, UnknownObjectEndsTheReading) {
  PutPair("Version 1\nColumns 0\nData\nPoint 1 1\nMultipoint 1\n5 5\nPoint 2 2\n", "");
  EXPECT_EQ(All(), std::vector<std::string>{"Point 1 1:"});
  EXPECT_EQ(Report(), Messages());
}

TEST_F(ReaderTest, ObjectsAreReadInAnyLayout) {
  PutPair(
      "version 1\r\ncolumns 1\r\na integer\r\ndata\r\n\r\npoint 1 1\r\n\r\n\r\n  symbol(35,0,12)\r\n\r\n"
      "PLINE\r\n2\r\n+1 1e0\r\n2.5E+1,3\r\npen(1,2,0)\r\n",
      "1\r\n2\r\n");
  EXPECT_EQ(All(), (std::vector<std::string>{"Point 1 1:1", "PLine 2:2"}));
}

TEST_F(ReaderTest, FaultsInObjectsHaveTheirPlace) {
  PutPair("Version 1\nColumns 0\nData\nPoint 1 1\n\nLine 1 2 3 x\n", "");
  // Once for the opening, which stands on the second object, and once for the way through.
  EXPECT_EQ(Report(), (Messages{"Invalid Line@ pair.mif, line 6, column 12",
                                "Invalid Line@ pair.mif, line 6, column 12"}));
}

TEST_F(ReaderTest, GiantCountsCostNothing) {
  PutPair("Version 1\nColumns 2000000000\na Integer\nData\n", "");
  EXPECT_EQ(Report().size(), 2U);
  PutPair("Version 1\nColumns 0\nData\nRegion 1\n2000000000\n1 1\n2 2\n", "");
  EXPECT_EQ(Report(), (Messages{"Invalid Region@ pair.mif, line 8, column 1",
                                "Invalid Region@ pair.mif, line 8, column 1"}));
}

TEST_F(ReaderTest, ZeroByteIsAValueLikeAnyOtherAndNoPartOfANumber) {
  const std::string point = "Point 1 1";
  PutPair("Version 1\nColumns 1\na Char(5)\nData\n" + point + "\n" + point + std::string(1, '\0') + "\n",
          std::string("a\0b\n", 4));
  EXPECT_EQ(Report(), (Messages{"Invalid Point@ pair.mif, line 6, column 9",
                                "Invalid Point@ pair.mif, line 6, column 9"}));
  const Tobri::Error::ScopedHandler guard([](const Tobri::Error::Msg&) {});
  iMIF in(Path("pair"));
  in.Reset();
  EXPECT_EQ(in.GetAttribute(0), std::string("a\0b", 3));
}

TEST_F(ReaderTest, LongLinesAreReadWhole) {
  const std::string wide(3'000'000, 'x');
  PutPair("Version 1\nDelimiter \",\"\nColumns 1\na Char(5)\nData\n" + std::string(1'000'000, ' ') +
              "Point 1 1\n",
          wide + "," + std::string(200'000, ',') + "\n");
  iMIF in(Path("pair"));
  in.Reset();
  ASSERT_TRUE(in.IsValid());
  EXPECT_EQ(in.GetAttribute(0), wide);
  EXPECT_EQ(in.GetNAttributes(), 200'002);
}

TEST_F(ReaderTest, NumbersDoNotFollowTheLocale) {
  PutPair("Version 1\nTransform 1.5,1,0,0\nColumns 1\na Decimal(10,2)\nData\nPoint 1000.5 1\nPoint 1 1\n",
          "1.5\n");
  const CommaProcess commas;
  iMIF in(Path("pair"));
  in.Reset();
  EXPECT_EQ(WPointObj(in.GetObj())->GetPoint().x, 1500.75);
}

TEST_F(ReaderTest, EveryPrefixEnds) {
  const std::string mif =
      "Version 300\nCharSet \"WindowsLatin1\"\nDelimiter \",\"\nUnique 1\nIndex 2\n"
      "CoordSys NonEarth Units \"m\" Bounds (0, 0) (9, 9)\nTransform 2,3,10,20\nColumns 2\n a Char (5)\n"
      " b Float\nData\n\nPLine Multiple 2\n 2\n1 1\n2 2\n2\n3 3\n4 4\n Pen (1,2,0)\nText \"a\"\n1 2 3 4\n"
      " Font (\"Arial\",0,0,0)\n Angle 30\nPoint 1 1\n Symbol (32,0,8)\n";
  const std::string mid = "\"a,b\",1\n\"c\"\"d\",2\nx,3\n";
  const Tobri::Error::ScopedHandler guard([](const Tobri::Error::Msg&) {});
  for (const bool lenient : {false, true}) {
    for (std::size_t i = 0; i <= mif.size(); ++i) {
      PutPair(mif.substr(0, i), mid.substr(0, i * mid.size() / mif.size()));
      iMIF in;
      in.SetLenient(lenient);
      in.Open(Path("pair"));
      EXPECT_LE(All(in).size(), 4U) << i;
    }
  }
}

}  // namespace
