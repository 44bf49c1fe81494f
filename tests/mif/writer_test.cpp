#include <pelor/mi/build.h>
#include <pelor/mi/objects.h>
#include <pelor/mif/writer.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <numeric>
#include <string>
#include <tests/base/process_locale.h>
#include <tests/mif/pair_files.h>
#include <vector>

namespace {

using namespace Pelor;
using namespace Pelor::MI;
using Tobri::Chr8C;

Column Text(const char* name, int width, unsigned short flags = 0) {
  return Column(name, Character_t(), width, flags);
}

WPointObj Point(double x, double y) {
  return WPointObj({x, y}, nullptr, Symbol());
}

class WriterTest : public PairFiles {
 protected:
  // The MIF file up to the data.
  std::string Header(const std::string& name = "pair.mif") const {
    const std::string mif = Get(name);
    return mif.substr(0, mif.find("Data\n"));
  }
  std::string Data() const {
    const std::string mif = Get("pair.mif");
    return mif.substr(mif.find("Data\n"));
  }
};

const std::string kPoint = "Point 1 2\n Symbol (32,0,8)\n";

TEST_F(WriterTest, WritesTheWholeHeader) {
  oMIF out(Path("pair"), ',');
  out.SetVersion(300);
  out.SetCharSet("WindowsLatin1");
  out.SetTransform({2, 3, 10.5, -20});
  out.SetCoordSys(CoordSys());
  out.AddColumn(Text("Name", 20, 2));
  out.AddColumn(Column("Id", Integer_t(), 3));
  out.AddColumn(Column("Kind", SmallInt_t(), 1));
  out.AddColumn(Column("Price", Decimal_t(), 10, 2, 0));
  out.AddColumn(Column("Size", Float_t(), 0));
  out.AddColumn(Column("Day", Date_t(), 0));
  out.AddColumn(Column("Open", Logical_t(), 0));
  out.AddObj(Point(1, 2));
  out.Close();
  const std::string header = Header();
  const std::string::size_type system = header.find("CoordSys");
  EXPECT_EQ(header.substr(0, system),
            "Version 300\nCharSet \"WindowsLatin1\"\nDelimiter \",\"\nUnique 1, 2\nIndex 2, 3\n");
  EXPECT_EQ(header.substr(header.find("Transform")),
            "Transform 2,3,10.5,-20\nColumns 7\n Name\t\tChar(20)\n Id\t\tInteger\n Kind\t\tSmallInt\n"
            " Price\t\tDecimal(10,2)\n Size\t\tFloat\n Day\t\tDate\n Open\t\tLogical\n");
  EXPECT_EQ(Data(), "Data\n\n" + kPoint);
  EXPECT_EQ(Get("pair.mid"), "\n");
}

struct VersionCase {
  int version;
  const char* charset;
  const char* header;
};

TEST_F(WriterTest, VersionIsNormalised) {
  for (const VersionCase& c :
       {VersionCase{0, "", "Version 2\n"}, VersionCase{0, "X", "Version 300\nCharSet \"X\"\n"},
        VersionCase{1, "X", "Version 1\n"}, VersionCase{100, "", "Version 1\n"},
        VersionCase{2, "X", "Version 2\n"}, VersionCase{200, "X", "Version 2\n"},
        VersionCase{300, "", "Version 2\n"}, VersionCase{300, "X", "Version 300\nCharSet \"X\"\n"},
        VersionCase{450, "X", "Version 300\nCharSet \"X\"\n"}, VersionCase{-1, "", "Version 2\n"}}) {
    oMIF out(Path("pair"), '\t');
    out.SetVersion(c.version);
    out.SetCharSet(c.charset);
    out.BeginData();
    out.Close();
    EXPECT_EQ(Header(), std::string(c.header) + "Columns 0\n") << c.version << c.charset;
  }
}

TEST_F(WriterTest, VersionOneHasNoCoordinateSystemAndNoTransform) {
  oMIF out(Path("pair"), '\t');
  out.SetVersion(1);
  out.SetCoordSys(CoordSys());
  out.SetTransform({2, 2, 0, 0});
  out.BeginData();
  out.Close();
  EXPECT_EQ(Header(), "Version 1\nColumns 0\n");
}

TEST_F(WriterTest, TransformIsWrittenUnlessItChangesNothing) {
  const std::pair<Transform, std::string> transforms[] = {{{1, 1, 0, 0}, ""},
                                                          {{2, 1, 0, 0}, "Transform 2,1,0,0\n"},
                                                          {{1, 2, 0, 0}, "Transform 1,2,0,0\n"},
                                                          {{1, 1, 2, 0}, "Transform 1,1,2,0\n"},
                                                          {{1, 1, 0, 2}, "Transform 1,1,0,2\n"}};
  for (const auto& [transform, line] : transforms) {
    oMIF out(Path("pair"), '\t');
    out.SetTransform(transform);
    out.BeginData();
    out.Close();
    EXPECT_EQ(Header(), "Version 2\n" + line + "Columns 0\n");
  }
}

TEST_F(WriterTest, TabIsNotWrittenAsDelimiter) {
  oMIF tab(Path("tab"), '\t');
  tab.BeginData();
  tab.Close();
  EXPECT_EQ(Header("tab.mif"), "Version 2\nColumns 0\n");
  oMIF comma(Path("comma"), '\t');
  comma.SetDelimiter(',');
  comma.BeginData();
  comma.Close();
  EXPECT_EQ(Header("comma.mif"), "Version 2\nDelimiter \",\"\nColumns 0\n");
}

TEST_F(WriterTest, CharSetOfASetGivesItsName) {
  const std::pair<int, std::string> names[] = {{0, "Neutral"},       {1, "Neutral"},     {2, "ISO8859_1"},
                                               {3, "WindowsLatin1"}, {4, "CodePage437"}, {5, "CodePage850"},
                                               {6, "Neutral"},       {-1, "Neutral"}};
  for (const auto& [id, name] : names) {
    oMIF out(Path("pair"), '\t');
    out.SetCharSet(Chr8C::ById(static_cast<Chr8C::Id>(id)));
    out.BeginData();
    out.Close();
    EXPECT_EQ(Header(), "Version 300\nCharSet \"" + name + "\"\nColumns 0\n") << id;
  }
}

TEST_F(WriterTest, CharSetDoesNotConvertValues) {
  oMIF out(Path("pair"), '\t');
  out.SetCharSet(Chr8C::ById(Chr8C::WindowsLatin1));
  out.AddColumn(Text("a", 9));
  out.AddAttribute("\xC3\xA4");
  out.AddObj(Point(1, 2));
  out.Close();
  EXPECT_EQ(Get("pair.mid"), "\xC3\xA4\n");
}

TEST_F(WriterTest, SettingsBehindTheHeaderAreIgnored) {
  oMIF out(Path("pair"), ',');
  out.AddColumn(Text("a", 5));
  out.BeginData();
  out.SetVersion(1);
  out.SetDelimiter(';');
  out.SetCharSet("Neutral");
  out.SetCharSet(Chr8C());
  out.SetCoordSys(CoordSys());
  out.SetWSys(Tobri::IRefC<CoordSys>(new CoordSys()));
  out.SetTransform({2, 2, 2, 2});
  out.AddColumn(Text("b", 5));
  out.AddObj(Point(1, 2));
  out.AddAttribute("x,y");
  out.Close();
  EXPECT_EQ(Get("pair.mif"), "Version 2\nDelimiter \",\"\nColumns 1\n a\t\tChar(5)\nData\n\n" + kPoint);
  EXPECT_EQ(Get("pair.mid"), "\"x,y\"\n");
}

TEST_F(WriterTest, CoordinateSystemIsCopiedOrShared) {
  CoordSys system;
  oMIF copied(Path("copied"), '\t');
  copied.SetCoordSys(system);
  copied.BeginData();
  copied.Close();
  oMIF shared(Path("shared"), '\t');
  shared.SetWSys(Tobri::IRefC<CoordSys>(new CoordSys()));
  shared.BeginData();
  shared.Close();
  EXPECT_NE(Header("copied.mif").find("\nCoordSys "), std::string::npos);
  EXPECT_EQ(Header("copied.mif"), Header("shared.mif"));
}

TEST_F(WriterTest, LaterChangesReachOnlyTheSharedCoordinateSystem) {
  const Vanth::BoundsXY bounds(1, 2, 3, 4);
  CoordSys system;
  oMIF copied(Path("copied"), '\t');
  copied.SetCoordSys(system);
  system.bounds = bounds;
  copied.BeginData();
  copied.Close();
  const Tobri::IRef<CoordSys> held(new CoordSys());
  oMIF shared(Path("shared"), '\t');
  shared.SetWSys(held);
  held->bounds = bounds;
  shared.BeginData();
  shared.Close();
  EXPECT_EQ(Header("copied.mif").find(" Bounds (1, 2) (3, 4)"), std::string::npos);
  EXPECT_NE(Header("shared.mif").find(" Bounds (1, 2) (3, 4)"), std::string::npos);
}

TEST_F(WriterTest, FlushingARowWritesTheHeader) {
  oMIF out(Path("pair"), '\t');
  out.FlushAttr();
  out.Close();
  EXPECT_EQ(Get("pair.mif"), "Version 2\nColumns 0\nData\n\n");
  EXPECT_EQ(Get("pair.mid"), "\n");
}

TEST_F(WriterTest, ExtensionOfTheNameIsReplaced) {
  oMIF out(Path("roads.tab"), '\t');
  out.BeginData();
  out.Close();
  EXPECT_NE(Get("roads.mif"), "");
  EXPECT_TRUE(std::filesystem::exists(Path("roads.mid")));
  EXPECT_FALSE(std::filesystem::exists(Path("roads.tab")));
}

TEST_F(WriterTest, ObjectsWithoutValuesHaveEmptyRows) {
  oMIF out(Path("pair"), '\t');
  out.AddColumn(Text("a", 5));
  out.AddObj(Point(1, 2));
  out.AddObj(Point(1, 2));
  out.Close();
  EXPECT_EQ(Get("pair.mid"), "\n\n");
  EXPECT_EQ(Data(), "Data\n\n" + kPoint + kPoint);
}

TEST_F(WriterTest, ValuesBeforeTheFirstObjectBelongToIt) {
  oMIF out(Path("pair"), '\t');
  out.AddColumn(Text("a", 5));
  out.AddAttribute("one");
  out.AddObj(Point(1, 2));
  out.AddAttribute("two");
  out.AddObj(Point(3, 4));
  out.Close();
  EXPECT_EQ(Get("pair.mid"), "one\ntwo\n");
  EXPECT_EQ(Data(), "Data\n\n" + kPoint + "Point 3 4\n Symbol (32,0,8)\n");
}

TEST_F(WriterTest, ValuesBehindTheirObjectBelongToIt) {
  oMIF out(Path("pair"), '\t');
  out.AddColumn(Text("a", 5));
  out.AddColumn(Text("b", 5));
  out.AddObj(Point(1, 2));
  out.AddAttribute("1a");
  out.AddAttribute("1b");
  out.AddObj(Point(1, 2));
  out.AddAttribute("2a");
  out.Close();
  EXPECT_EQ(Get("pair.mid"), "1a\t1b\n2a\n");
  EXPECT_EQ(Data(), "Data\n\n" + kPoint + kPoint);
}

TEST_F(WriterTest, FullRowThatIsFollowedByAValueGetsNone) {
  oMIF out(Path("pair"), '\t');
  out.AddColumn(Text("a", 5));
  out.AddAttribute("1");
  out.AddAttribute("2");
  out.AddAttribute("3");
  out.AddObj(Point(1, 2));
  out.AddAttribute("4");
  out.AddAttribute("5");
  out.AddObj(Point(1, 2));
  out.Close();
  // The object behind 3 takes 3; 4 stands before 5, and has none.
  EXPECT_EQ(Data(), "Data\n\nNone\nNone\n" + kPoint + "None\n" + kPoint);
  EXPECT_EQ(Get("pair.mid"), "1\n2\n3\n4\n5\n");
}

TEST_F(WriterTest, FullRowBehindItsObjectNeedsNoOther) {
  oMIF out(Path("pair"), '\t');
  out.AddColumn(Text("a", 5));
  out.AddObj(Point(1, 2));
  out.AddAttribute("1");
  out.AddAttribute("2");
  out.AddObj(Point(3, 4));
  out.Close();
  EXPECT_EQ(Data(), "Data\n\n" + kPoint + "Point 3 4\n Symbol (32,0,8)\n");
  EXPECT_EQ(Get("pair.mid"), "1\n2\n");
}

TEST_F(WriterTest, ValuesThatWaitForTheirObjectAreLostAtTheEnd) {
  oMIF out(Path("pair"), '\t');
  out.AddColumn(Text("a", 5));
  out.AddAttribute("lost");
  out.Close();
  EXPECT_EQ(Data(), "Data\n\nNone\n");
  EXPECT_EQ(Get("pair.mid"), "");
}

TEST_F(WriterTest, RowsReachUpToTheirLastValue) {
  oMIF out(Path("pair"), ',');
  for (const char* name : {"a", "b", "c"}) out.AddColumn(Text(name, 5));
  out.SetAttribute(1, "x");
  out.SetAttribute(-1, "no");
  out.SetAttribute(3, "no");
  out.AddObj(Point(1, 2));
  out.SetAttribute(2, "z");
  out.SetAttribute(0, "");
  out.AddObj(Point(1, 2));
  out.Close();
  EXPECT_EQ(Get("pair.mid"), ",x\n,,z\n");
}

TEST_F(WriterTest, ValuesOfEveryLengthKeepTheirBytes) {
  std::vector<std::size_t> lengths(41);
  std::iota(lengths.begin(), lengths.end(), std::size_t{0});
  lengths.insert(lengths.end(), {1000, 1007, 1008, 1009, 5000, 100000});
  std::string rows;
  oMIF out(Path("pair"), ',');
  out.AddColumn(Text("Name", 0, Column::kWidthNotGiven));
  for (const std::size_t length : lengths) {
    std::string value;
    for (std::size_t i = 0; i < length; ++i) value += static_cast<char>('A' + i % 26);
    rows += value + '\n';
    out.AddObj(Point(1, 2));
    out.AddAttribute(value);
  }
  out.Close();
  EXPECT_EQ(Get("pair.mid"), rows);
}

TEST_F(WriterTest, RowsOfFilesThatCannotBeOpenedAreNotInTheNextPair) {
  oMIF out(Path("missing/pair"), ',');
  out.AddColumn(Text("Name", 10));
  out.AddObj(Point(1, 2));
  out.AddAttribute("lost");
  out.Open(Path("pair"), ',');
  out.AddColumn(Text("Name", 10));
  out.AddObj(Point(1, 2));
  out.AddAttribute("kept");
  out.Close();
  EXPECT_EQ(Get("pair.mid"), "kept\n");
}

TEST_F(WriterTest, ValueWithTheDelimiterIsQuoted) {
  oMIF out(Path("pair"), ',');
  out.AddColumn(Text("a", 9));
  out.AddColumn(Text("b", 9));
  out.AddAttribute("x,y");
  out.AddAttribute("say \"hi\"");
  out.AddObj(Point(1, 2));
  out.Close();
  EXPECT_EQ(Get("pair.mid"), "\"x,y\",say \"hi\"\n");
}

TEST_F(WriterTest, ValueWithDelimiterAndQuoteGoesToTheOtherFile) {
  oMIF out(Path("pair"), ',');
  out.AddColumn(Text("a", 9));
  out.AddColumn(Text("b", 9));
  out.AddAttribute("5\", wide");
  out.AddAttribute("b");
  out.AddObj(Point(1, 2));
  out.Close();
  EXPECT_EQ(Data(), "Data\n\n\"5\"\", wide\"" + kPoint);
  EXPECT_EQ(Get("pair.mid"), ",b\n");
}

TEST_F(WriterTest, ValueIsNeverQuotedWhenTheDelimiterIsTheQuote) {
  oMIF out(Path("pair"), '"');
  out.AddColumn(Text("a", 9));
  out.AddAttribute("a\"b");
  out.AddObj(Point(1, 2));
  out.Close();
  EXPECT_EQ(Get("pair.mid"), "a\"b\n");
}

TEST_F(WriterTest, OpenWidthsAreRewrittenInPlace) {
  oMIF out(Path("pair"), '\t');
  out.AddColumn(Text("a", 0));
  out.AddColumn(Text("b", 3));
  out.AddColumn(Text("c", 0));
  out.AddColumn(Text("d", 0));
  out.BeginData();
  out.AddAttribute("twelve chars");
  out.AddAttribute("longer than its width");
  out.AddAttribute(std::string(12345, 'x'));
  out.AddObj(Point(1, 2));
  out.AddAttribute("less");
  out.AddObj(Point(1, 2));
  out.Close();
  EXPECT_EQ(Header(),
            "Version 2\nColumns 4\n a\t\tChar(0012)\n b\t\tChar(3)\n c\t\tChar(9999)\n d\t\tChar(0001)\n");
  EXPECT_EQ(Data(), "Data\n\n" + kPoint + kPoint);
}

TEST_F(WriterTest, HeaderWithColumnsIsWrittenWithoutData) {
  oMIF out(Path("pair"), '\t');
  out.AddColumn(Text("a", 0));
  out.Close();
  EXPECT_EQ(Get("pair.mif"), "Version 2\nColumns 1\n a\t\tChar(0001)\nData\n\n");
}

TEST_F(WriterTest, NothingIsWrittenWithoutColumnsAndData) {
  oMIF out(Path("pair"), '\t');
  out.SetVersion(300);
  out.Close();
  EXPECT_TRUE(std::filesystem::exists(Path("pair.mif")));
  EXPECT_EQ(Get("pair.mif"), "");
  EXPECT_EQ(Get("pair.mid"), "");
}

TEST_F(WriterTest, ValueWithoutColumnsMakesAnEmptyRowAndIsDropped) {
  oMIF out(Path("pair"), '\t');
  out.AddAttribute("x");
  out.Close();
  EXPECT_EQ(Data(), "Data\n\nNone\n");
  EXPECT_EQ(Get("pair.mid"), "\n");
}

TEST_F(WriterTest, RowsAndNoneCanBeWrittenByHand) {
  oMIF out(Path("pair"), '\t');
  out.AddColumn(Text("a", 5));
  out.FlushNullObj();
  out.SetAttribute(0, "1");
  out.FlushAttr();
  out.FlushAttr();
  out.Close();
  EXPECT_EQ(Data(), "Data\n\nNone\nNone\n");
  EXPECT_EQ(Get("pair.mid"), "1\n\n");
}

TEST_F(WriterTest, CloseForgetsEverything) {
  oMIF out(Path("first"), ',');
  out.SetVersion(300);
  out.SetCharSet("Neutral");
  out.SetCoordSys(CoordSys());
  out.SetTransform({2, 2, 2, 2});
  out.AddColumn(Text("a", 0));
  out.AddAttribute("a value");
  out.AddObj(Point(1, 2));
  out.Close();
  out.Open(Path("second"), '\t');
  out.AddColumn(Text("b", 4));
  out.AddObj(Point(1, 2));
  out.Close();
  EXPECT_EQ(Get("second.mif"), "Version 2\nColumns 1\n b\t\tChar(4)\nData\n\n" + kPoint);
  EXPECT_EQ(Get("second.mid"), "\n");
  EXPECT_TRUE(out.MIFStream().good());
}

TEST_F(WriterTest, OpenClosesTheOpenPair) {
  oMIF out(Path("first"), '\t');
  out.AddObj(Point(1, 2));
  out.Open(Path("second"), '\t');
  EXPECT_EQ(Get("first.mif"), "Version 2\nColumns 0\nData\n\n" + kPoint);
  EXPECT_EQ(Get("first.mid"), "\n");
}

TEST_F(WriterTest, DestructorCloses) {
  {
    oMIF out(Path("pair"), '\t');
    out.AddObj(Point(1, 2));
  }
  EXPECT_EQ(Get("pair.mid"), "\n");
}

TEST_F(WriterTest, UnopenedWriterWritesNowhere) {
  oMIF out;
  out.AddColumn(Text("a", 0));
  out.AddAttribute("x");
  out.AddObj(Point(1, 2));
  out.Close();
  EXPECT_FALSE(out.MIFStream().good());
}

TEST_F(WriterTest, FileThatCannotBeOpenedShowsInItsStream) {
  oMIF out(Path("no/such/folder/pair"), '\t');
  EXPECT_FALSE(out.MIFStream().good());
  EXPECT_FALSE(out.MIDStream().good());
  out.AddObj(Point(1, 2));
  out.Open(Path("pair"), '\t');
  EXPECT_TRUE(out.MIFStream().good());
  EXPECT_TRUE(out.MIDStream().good());
}

TEST_F(WriterTest, FullDiskShowsInTheStreams) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no full device here";
  std::filesystem::create_symlink("/dev/full", Path("pair.mif"));
  std::filesystem::create_symlink("/dev/full", Path("pair.mid"));
  oMIF out(Path("pair"), '\t');
  out.SetLineFlush(false);
  out.AddObj(Point(1, 2));
  out.Close();
  EXPECT_TRUE(out.MIFStream().fail());
  EXPECT_TRUE(out.MIDStream().fail());
}

TEST_F(WriterTest, LineFlushDecidesWhenBytesReachTheFile) {
  oMIF out(Path("pair"), '\t');
  out.AddObj(Point(1, 2));
  EXPECT_EQ(Get("pair.mif"), "Version 2\nColumns 0\nData\n\n" + kPoint);
  out.SetLineFlush(false);
  out.AddObj(Point(1, 2));
  EXPECT_EQ(Get("pair.mif"), "Version 2\nColumns 0\nData\n\n" + kPoint);
  out.Close();
  EXPECT_EQ(Get("pair.mif"), "Version 2\nColumns 0\nData\n\n" + kPoint + kPoint);
}

TEST_F(WriterTest, NumbersHaveTenDigits) {
  oMIF out(Path("pair"), '\t');
  out.AddObj(Point(123456.78901234, 1.0 / 3.0));
  out.AddObj(Point(12345678901234, -0.00001));
  out.Close();
  EXPECT_EQ(Data(),
            "Data\n\nPoint 123456.789 0.3333333333\n Symbol (32,0,8)\n"
            "Point 1.23456789e+13 -1e-05\n Symbol (32,0,8)\n");
}

TEST_F(WriterTest, NumbersDoNotFollowTheLocale) {
  const CommaProcess commas;
  oMIF out(Path("pair"), ',');
  out.SetTransform({1.5, 1, 10000, 0});
  out.AddColumn(Column("a", Decimal_t(), 12000, 3, 0));
  out.AddColumn(Text("b", 0));
  out.AddAttribute("");
  out.AddAttribute(std::string(1234, 'b'));
  out.AddObj(Point(12345.5, 1e20));
  out.Close();
  EXPECT_EQ(Get("pair.mif"),
            "Version 2\nDelimiter \",\"\nTransform 1.5,1,10000,0\nColumns 2\n a\t\tDecimal(12000,3)\n"
            " b\t\tChar(1234)\nData\n\nPoint 12345.5 1e+20\n Symbol (32,0,8)\n");
}

}  // namespace
