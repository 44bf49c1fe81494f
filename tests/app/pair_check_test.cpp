#include "app/inspect/pair_check.h"

#include "app/inspect/finding.h"
#include "app/inspect/value_check.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace App {
namespace {

using Pelor::MI::Column;
using Texts = std::vector<std::string>;

constexpr std::string_view kHeader =
    "Version 300\n"
    "Charset \"WindowsLatin1\"\n"
    "Delimiter \",\"\n"
    "Columns 2\n"
    "  Id Integer\n"
    "  Name Char(5)\n"
    "Data\n"
    "\n";

// What is wrong with a pair whose MIF file holds `mif`.
Texts Findings(std::string_view mif, std::optional<std::string_view> mid) {
  static const ScratchFolder folder;
  Input input{InputKind::kPair, folder.Write("a.mif", mif), {}};
  if (mid) input.mid = folder.Write("a.mid", *mid);
  Texts texts;
  CheckPair(input, [&](const Finding& finding) {
    Finding without_folder = finding;
    without_folder.file = finding.file.filename();
    texts.push_back(ToText(without_folder));
  });
  return texts;
}

// With one row for each of these objects, which begin in line 9.
Texts FindingsIn(std::string_view objects, int rows = 1) {
  std::string mid;
  for (int i = 0; i < rows; ++i) mid += "1,\"a\"\n";
  return Findings(std::string(kHeader).append(objects), mid);
}

Texts FindingsInRows(std::string_view mid, int objects = 1) {
  std::string mif(kHeader);
  for (int i = 0; i < objects; ++i) mif += "Point 1 2\n";
  return Findings(mif, mid);
}

TEST(PairCheckTest, FindsNothingInASoundPair) {
  EXPECT_EQ(
      FindingsIn(
          "Point 1 2\n Symbol (35,0,12)\n"
          "Line 1 2 3 4\n Pen (1,2,0)\n"
          "Pline Multiple 2\n2\n1 2\n3 4\n2\n5 6\n7 8\n Pen (1,2,0)\n Smooth\n"
          "Region 1\n4\n0 0\n1 0\n1 1\n0 0\n Pen (1,2,0)\n Brush (2,0,0)\n Center 0.5 0.5\n"
          "RECT 1 2 3 4 PEN (1,2,0) BRUSH (1,0,0)\n"
          "RoundRect 1 2 3 4 0.5\n"
          "Ellipse 1 2 3 4\n"
          "Arc 1 2 3 4\n 10 20\n"
          "Text \"gr\xFC\xDF\"\n 1 2 3 4\n Font (\"Arial\",0,0,0)\n Angle 30\n Justify Center\n Spacing 1.5\n"
          " Label Line Simple 1 2\n"
          "None\n",
          10),
      Texts());
}

TEST(PairCheckTest, FindsFaultsOfTheHeader) {
  const auto header = [](std::string_view clauses) {
    return Findings(std::string(clauses) + "Columns 0\nData\n", {});
  };
  EXPECT_EQ(header("Charset \"Neutral\"\n"),
            Texts{"a.mif:1:1: error: the first word of the header is not Version [header-version]"});
  EXPECT_EQ(header("Version x\n"),
            Texts{"a.mif:1:1: error: the clause Version cannot be read whole [header-clause]"});
  EXPECT_EQ(header("Version 300\nFlavour \"sweet\"\n"),
            Texts{"a.mif:2:1: error: \"Flavour\" is no clause of a header [header-word]"});
  EXPECT_EQ(header("Version 300\nDelimiter \",\"\nCharset \"Neutral\"\n"),
            Texts{"a.mif:3:1: error: the clause Charset comes out of its order [header-order]"});
  EXPECT_EQ(header("Version 300\nCharset \"Klingon\"\n"),
            Texts{"a.mif:2:1: warning: the character set \"Klingon\" is unknown [charset-unknown]"});
  EXPECT_EQ(
      header("Version 300\nDelimiter \";;\"\n"),
      Texts{"a.mif:2:1: warning: the delimiter is more than one character, of which the first alone counts "
            "[delimiter-long]"});
  EXPECT_EQ(header("Version 300\nCoordSys Moon Projection 1\n"),
            Texts{"a.mif:2:1: error: the clause CoordSys cannot be read whole [header-clause]"});
  EXPECT_EQ(header("Version 300\nCoordSys Earth Projection 8, 104, \"ell\", 9, 0, 1, 0, 0\n"),
            Texts{"a.mif:2:1: warning: the coordinate system is in units that are unknown [units-unknown]"});
  EXPECT_EQ(header("Version 300\nTransform 1,x\n"),
            Texts{"a.mif:2:1: error: the clause Transform cannot be read whole [header-clause]"});
  EXPECT_EQ(
      header("Version 300\nUnique 1\n"),
      Texts{"a.mif:2:1: error: the clause Unique names column 1, and there are 0 columns [column-number]"});
}

TEST(PairCheckTest, NamesAByteOrderMark) {
  EXPECT_EQ(Findings("\xEF\xBB\xBFVersion 300\nColumns 0\nData\n", {}),
            Texts{"a.mif:1:1: error: the file begins with a byte order mark, which a MIF file must not have "
                  "[byte-order-mark]"});
}

TEST(PairCheckTest, FindsFaultsOfTheColumns) {
  EXPECT_EQ(Findings("Version 300\nColumns 2\n  Id LargeInt\n  Name Char(5)\nData\n", "1,2\n").at(0),
            "a.mif:3:3: error: the column Id has the type \"LargeInt\", which is unknown [column-type]");
  EXPECT_EQ(Findings("Version 300\nColumns 1\n  Name Char\nData\n", {}),
            Texts{"a.mif:3:3: error: the column Name cannot be read whole [column-type]"});
  EXPECT_EQ(Findings("Version 300\nColumns 2\n  Id Integer\nData\n", {}),
            Texts{"a.mif:2:1: error: the header says 2 columns, and lists 1 [column-count]"});
  EXPECT_EQ(Findings("Version 300\nData\n", {}),
            Texts{"a.mif:2:5: error: the header has no Columns clause [header-columns]"});
}

TEST(PairCheckTest, FindsAHeaderWithoutAnEnd) {
  EXPECT_EQ(Findings("Version 300\nColumns 0\n", {}),
            Texts{"a.mif:2:10: error: the header has no Data clause, so there are no objects [header-data]"});
  EXPECT_EQ(Findings("Version 300\nColumns 0\nPoint 1 2\n", {}),
            Texts{"a.mif:3:1: error: the header has no Data clause before the first object [header-data]"});
}

TEST(PairCheckTest, FindsUnknownObjects) {
  EXPECT_EQ(
      FindingsIn("Point 1 2\nMultipoint 2\n1 2\n3 4\nLine 1 2 3 4\nBlob 1\n", 4),
      (Texts{
          "a.mif:10:1: error: \"Multipoint\" (object 2) is no kind of object that can be read "
          "[object-unknown]",
          "a.mif:14:1: error: \"Blob\" (object 4) is no kind of object that can be read [object-unknown]"}));
}

TEST(PairCheckTest, TheObjectsOfACollectionHaveNoRows) {
  EXPECT_EQ(
      FindingsIn(
          "Collection 2\nRegion 1\n4\n0 0\n1 0\n1 1\n0 0\n Pen (1,2,0)\nPline 2\n0 0\n1 1\nPoint 1 2\n", 2),
      Texts{"a.mif:9:1: error: \"Collection\" (object 1) is no kind of object that can be read "
            "[object-unknown]"});
}

TEST(PairCheckTest, FindsWordsThatAreNotExpected) {
  EXPECT_EQ(FindingsIn("Point 1 2 3 4\n 5 6\n"),
            Texts{"a.mif:10:2: error: \"5\" stands where an object should begin [word-unexpected]"});
}

TEST(PairCheckTest, FindsClausesOutOfTheirOrder) {
  EXPECT_EQ(
      FindingsIn("Region 1\n4\n0 0\n1 0\n1 1\n0 0\n Brush (2,0,0)\n Pen (1,2,0)\n"),
      Texts{
          "a.mif:16:2: warning: the clause Pen of object 1 (Region) comes out of its order [clause-order]"});
  EXPECT_EQ(
      FindingsIn("Point 1 2\nText \"a\"\n 1 2 3 4\n Justify Left\n Font (\"Arial\",0,0,0)\n", 2),
      Texts{"a.mif:13:2: warning: the clause Font of object 2 (Text) comes out of its order [clause-order]"});
}

TEST(PairCheckTest, FindsClausesOfOtherObjects) {
  EXPECT_EQ(FindingsIn("Point 1 2\n Pen (1,2,0)\nPoint 3 4\n", 2),
            Texts{"a.mif:10:2: error: the clause Pen does not belong to object 1 (Point) [clause-foreign]"});
}

TEST(PairCheckTest, FindsObjectsThatCannotBeRead) {
  EXPECT_EQ(FindingsIn("Line 1 2 3\nPoint 1 2\n", 2),
            Texts{"a.mif:10:1: error: object 1 (Line) cannot be read whole (Invalid Line) [object-fault]"});
  EXPECT_EQ(FindingsIn("Point 1 2\n Symbol (x)\nPoint 1 2\n", 2).size(), 1U);
}

TEST(PairCheckTest, FindsUnclosedRings) {
  EXPECT_EQ(
      FindingsIn("Point 0 0\nRegion 2\n4\n0 0\n1 0\n1 1\n0 0\n3\n0 0\n1 0\n1 1\n", 2),
      Texts{"a.mif:10:1: warning: ring 2 of object 2 (Region) does not end where it began [ring-open]"});
}

TEST(PairCheckTest, FindsTooFewVertices) {
  EXPECT_EQ(
      FindingsIn("Region 1\n2\n0 0\n1 0\nPline 1\n5 5\n", 2),
      (Texts{
          "a.mif:9:1: warning: ring 1 of object 1 (Region) has 2 vertices; 3 are the least [few-vertices]",
          "a.mif:13:1: warning: part 1 of object 2 (PLine) has 1 vertex; 2 are the least [few-vertices]"}));
}

TEST(PairCheckTest, FindsObjectsAndRowsThatDifferInNumber) {
  EXPECT_EQ(FindingsIn("Point 1 2\nPoint 3 4\n", 1),
            Texts{"a.mid: error: there is 1 row for 2 objects [row-count]"});
  EXPECT_EQ(FindingsIn("Point 1 2\n", 3), Texts{"a.mid: error: there are 3 rows for 1 object [row-count]"});
  EXPECT_EQ(
      Findings(std::string(kHeader) + "Point 1 2\n", {}),
      Texts{"a.mif: warning: there is no MID file beside it, so the objects have no values [mid-missing]"});
}

TEST(PairCheckTest, AnEmptyLineIsARowOfOneColumn) {
  const std::string mif = "Version 300\nColumns 1\n  Name Char(5)\nData\nPoint 1 2\nPoint 1 2\n";
  EXPECT_EQ(Findings(mif, "\"a\"\n\n"), Texts());
}

TEST(PairCheckTest, EmptyLinesBehindTheLastRowAreNoRows) {
  EXPECT_EQ(FindingsInRows("1,a\n\n\n"), Texts());
  EXPECT_EQ(
      FindingsInRows("1,a\n\n\n2,b\n", 4),
      Texts{"a.mid:2:1: error: 2 rows up to row 3 have no values, and there are 2 columns [value-count]"});
}

TEST(PairCheckTest, FindsRowsWithOtherNumbersOfValues) {
  EXPECT_EQ(FindingsInRows("1\n1,a,b\n1,a\n", 3),
            (Texts{"a.mid:1:1: error: row 1 has 1 value, and there are 2 columns [value-count]",
                   "a.mid:2:1: error: row 2 has 3 values, and there are 2 columns [value-count]"}));
}

TEST(PairCheckTest, FindsValuesThatDoNotFitTheirColumn) {
  EXPECT_EQ(
      FindingsInRows("1,\"a\"\nx,\"too long\"\n", 2),
      (Texts{"a.mid:2:1: warning: the value of Id in row 2 is not a number, and the column is Integer "
             "[value-misfit]",
             "a.mid:2:3: warning: the value of Name in row 2 is 8 bytes long, and the column is Char(5) "
             "[value-misfit]"}));
}

TEST(PairCheckTest, AValueMayHoldLineEndsAndTheDelimiter) {
  EXPECT_EQ(FindingsInRows("1,\"a,\nb\"\n2,\"a\"\"b\"\n", 2), Texts());
}

TEST(PairCheckTest, FindsAQuoteThatNothingCloses) {
  const Texts found = FindingsInRows("1,\"abc\n");
  ASSERT_FALSE(found.empty());
  EXPECT_EQ(found.front(), "a.mid:1:3: error: a quote is never closed [quote-open]");
}

TEST(PairCheckTest, FindsWhatTheCharacterSetLacks) {
  EXPECT_EQ(
      FindingsInRows("1,\"\x81\"\n"),
      Texts{"a.mid:1:3: warning: the value of Name in row 1 holds bytes that are no characters of the set "
            "WindowsLatin1 [charset]"});
  EXPECT_EQ(
      FindingsIn("Text \"\x81\"\n 1 2 3 4\n"),
      Texts{"a.mif:9:1: warning: the text of object 1 (Text) holds bytes that are no characters of the set "
            "WindowsLatin1 [charset]"});
  EXPECT_EQ(Findings("Version 300\nColumns 1\n  Stra\xDF"
                     "e Char(5)\nData\n",
                     {}),
            Texts{"a.mif: warning: the name of the column Stra\xDF"
                  "e holds bytes beyond ASCII, and the set Neutral does not say what they are [charset]"});
}

TEST(PairCheckTest, CountsLinesWhateverTheirEnds) {
  EXPECT_EQ(
      FindingsIn("Point 1 2\r\n\r\nLine 1 2 3 4\rBlob\r\n", 3),
      Texts{"a.mif:12:1: error: \"Blob\" (object 3) is no kind of object that can be read [object-unknown]"});
}

TEST(PairCheckTest, EndsForAllPrefixesAndDamagedBytes) {
  const std::string mif = std::string(kHeader) +
                          "Region 1\n4\n0 0\n1 0\n1 1\n0 0\n Pen (1,2,0)\nText \"a\"\n 1 2 3 4\n Angle 3\n"
                          "Collection 1\nPline 2\n0 0\n1 1\n";
  const std::string mid = "1,\"a\"\n2,\"b\"\n3,\"c\"\n";
  for (std::size_t length = 0; length < mif.size(); ++length)
    static_cast<void>(Findings(mif.substr(0, length), mid));
  for (std::size_t at = 0; at < mif.size(); ++at) {
    std::string damaged = mif;
    damaged[at] = static_cast<char>(damaged[at] ^ (1 << at % 8));
    static_cast<void>(Findings(damaged, mid));
  }
  for (std::size_t at = 0; at < mid.size(); ++at) {
    std::string damaged = mid;
    damaged[at] = '"';
    static_cast<void>(Findings(mif, damaged));
  }
}

TEST(ValueCheckTest, HoldsValuesAgainstTheTypeOfTheirColumn) {
  using namespace Pelor;
  const Column text("c", MI::Character_t(), 3, 0);
  const Column integer("c", MI::Integer_t(), 0);
  const Column small("c", MI::SmallInt_t(), 0);
  const Column decimal("c", MI::Decimal_t(), 6, 2, 0);
  const Column whole("c", MI::Decimal_t(), 3, 0, 0);
  const Column real("c", MI::Float_t(), 0);
  const Column date("c", MI::Date_t(), 0);
  const Column logical("c", MI::Logical_t(), 0);
  const struct {
    const Column& column;
    std::string_view value;
    std::string_view misfit;
  } cases[] = {
      {text, "abc", ""},
      {text, "abcd", "is 4 bytes long"},
      {integer, "", ""},
      {integer, " 12 ", ""},
      {integer, "+12", ""},
      {integer, "2147483647", ""},
      {integer, "2147483648", "lies outside -2147483648 to 2147483647"},
      {integer, "1.5", "is not a whole number in the range"},
      {integer, "x", "is not a number"},
      {small, "-32768", ""},
      {small, "32768", "lies outside -32768 to 32767"},
      {decimal, "-12.34", ""},
      {decimal, "123.45", ""},
      {decimal, "1234.5", "takes 7 characters with sign, point and decimals"},
      {decimal, "-123.45", "takes 7 characters with sign, point and decimals"},
      {decimal, "-0.5", ""},
      {whole, "-12", ""},
      {whole, "-123", "takes 4 characters with sign, point and decimals"},
      {decimal, "1.234", "has 3 decimals"},
      {decimal, "1e2", ""},
      {decimal, "1,5", "is not a number"},
      {real, "1e300", ""},
      {real, "12 m", "is not a number"},
      {date, "20240229", ""},
      {date, "20230229", "is not a date"},
      {date, "20241301", "is not a date"},
      {date, "2024", "is not a date"},
      {date, "12/31/1999", ""},
      {date, "31/12/1999", "is not a date"},
      {logical, "T", ""},
      {logical, "0", ""},
      {logical, "yes", "is neither true nor false"},
  };
  for (const auto& [column, value, misfit] : cases) {
    EXPECT_EQ(MisfitOf(value, column), misfit) << TypeText(column) << ": " << value;
  }
}

TEST(ValueCheckTest, NamesTypesAsHeadersDo) {
  using namespace Pelor;
  EXPECT_EQ(TypeText(Column("c", MI::Character_t(), 20, 0)), "Char(20)");
  EXPECT_EQ(TypeText(Column("c", MI::Decimal_t(), 8, 2, 0)), "Decimal(8,2)");
  EXPECT_EQ(TypeText(Column("c", MI::Logical_t(), 0)), "Logical");
}

}  // namespace
}  // namespace App
