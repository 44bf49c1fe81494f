#include "pair_fixture.h"

#include <cmath>
#include <csignal>
#include <filesystem>
#include <limits>
#include <string>
#include <sys/resource.h>

namespace App {
namespace {

namespace fs = std::filesystem;
namespace MI = Pelor::MI;
using Object = MI::WObjRf<MI::WObjBody>;
using Names = std::set<std::string>;

const std::string kPoint = "Point 1 2\n Symbol (32,0,8)\n";

MI::WPointObj Point(double x = 1, double y = 2) {
  return MI::WPointObj({x, y}, nullptr, MI::Symbol());
}

class PairSinkTest : public PairFixture {
 public:
  PairSinkTest() {
    schema.columns = {MI::Column("Id", MI::Integer_t(), 0), MI::Column("Name", MI::Character_t(), 10, 0)};
    schema.system = Tobri::IRefC<MI::CoordSys>(new MI::CoordSys());
  }

  // Makes the sink once it is needed.
  PairSink& Sink() {
    if (!sink_) sink_ = std::make_unique<PairSink>(Folder() / name, Outputs(overwrite), schema, options);
    return *sink_;
  }
  PairSinkTest& Put(const Object& object, std::vector<Tobri::String> values = {}, std::int64_t count = 1) {
    Feature feature;
    feature.object = object;
    feature.values = std::move(values);
    feature.kind = "thing";
    feature.count = count;
    feature.place = {++number_, 0};
    account.Read(feature.kind, count);
    Sink().Put(feature, account);
    return *this;
  }
  std::string Close() {
    Sink().Close(account);
    sink_.reset();
    return AccountText(account);
  }
  void Forget() { sink_.reset(); }
  std::string MakeFailure() {
    return FailureOf([this] { Sink(); });
  }

  Schema schema;
  PairOptions options;
  Account account;
  std::string name = "out.mif";
  bool overwrite = false;

 private:
  std::unique_ptr<PairSink> sink_;
  std::int64_t number_ = 0;
};

TEST_F(PairSinkTest, WritesHeaderObjectsAndRows) {
  schema.columns[0].flags = 3;
  Put(Point(), {"1", "one"}).Put(Point(3, 4), {"2", "two"});
  EXPECT_EQ(Close(), "thing 2 = 2 + 0\n");
  EXPECT_EQ(
      Mif(),
      "Version 300\nCharSet \"WindowsLatin1\"\nUnique 1\nIndex 1\nCoordSys Earth Projection 1,0\nColumns 2\n"
      " Id\t\tInteger\n Name\t\tChar(10)\nData\n\n" +
          kPoint + "Point 3 4\n Symbol (32,0,8)\n");
  EXPECT_EQ(Mid(), "1\tone\n2\ttwo\n");
  EXPECT_EQ(Folder().Names(), (Names{"out.mid", "out.mif"}));
}

TEST_F(PairSinkTest, PairOfNothingHasAHeader) {
  EXPECT_EQ(Close(), "");
  EXPECT_EQ(MifData(), "");
  EXPECT_EQ(Mid(), "");
  options.charset = "cp1251";
  options.columns = {};
  schema.columns.clear();
  name = "none.mif";
  Close();
  EXPECT_EQ(ReadWhole(Folder() / "none.mif"),
            "Version 300\nCharSet \"WindowsCyrillic\"\nCoordSys Earth Projection 1,0\nColumns 0\nData\n\n");
}

TEST_F(PairSinkTest, RowsOfTheLastObjectAreNotLost) {
  Put(Point(), {"1"}).Put(Point(), {}).Put(Point(), {"3", "three", "beyond"});
  Close();
  EXPECT_EQ(MifData(), kPoint + kPoint + kPoint);
  EXPECT_EQ(Mid(), "1\t\n\t\n3\tthree\n");
}

TEST_F(PairSinkTest, CountsWhatAFeatureStandsFor) {
  Put(Point(), {}, 3).Put(Point(), {}, 0);
  EXPECT_EQ(Close(), "thing 3 = 3 + 0\n");
}

TEST_F(PairSinkTest, NamesOfBothFilesFollowTheGivenOne) {
  for (const auto& [given, mif, mid] :
       {std::tuple{"a.mif", "a.mif", "a.mid"}, std::tuple{"b.MIF", "b.MIF", "b.MID"},
        std::tuple{"c.mid", "c.mif", "c.mid"}, std::tuple{"d.MID", "d.MIF", "d.MID"},
        std::tuple{"e.f.mif", "e.f.mif", "e.f.mid"}}) {
    name = given;
    Put(Point(), {"1", "one"});
    Close();
    EXPECT_EQ(ReadWhole(Folder() / mif).substr(0, 12), "Version 300\n") << given;
    EXPECT_EQ(ReadWhole(Folder() / mid), "1\tone\n") << given;
  }
}

// The header.

TEST_F(PairSinkTest, VersionsSayWhatTheyCan) {
  options.version = 2;
  Put(Point());
  EXPECT_EQ(Close(), "thing 1 = 1 + 0\n! version 2 does not say its character set, which is WindowsLatin1\n");
  EXPECT_EQ(MifHeader(),
            "Version 2\nCoordSys Earth Projection 1,0\nColumns 2\n Id\t\tInteger\n Name\t\tChar(10)\n");
  options.version = 100;
  overwrite = true;
  account = Account();
  Put(Point());
  EXPECT_EQ(Close(),
            "thing 1 = 1 + 0\n! version 1 does not say the coordinate system\n"
            "! version 1 does not say its character set, which is WindowsLatin1\n");
  EXPECT_EQ(MifHeader(), "Version 1\nColumns 2\n Id\t\tInteger\n Name\t\tChar(10)\n");
  options.version = 650;
  Put(Point());
  Close();
  EXPECT_EQ(MifHeader().substr(0, 12), "Version 300\n");
}

TEST_F(PairSinkTest, CharacterSetIsWrittenAsHeadersCallIt) {
  options.charset = "iso-8859-1";
  Close();
  EXPECT_EQ(MifHeader().substr(0, 32), "Version 300\nCharSet \"ISO8859_1\"\n");
}

TEST_F(PairSinkTest, SetsThatCannotBeUsedAreRefused) {
  options.charset = "UTF-16";
  EXPECT_EQ(MakeFailure(), "interchange pairs cannot be in the character set \"UTF-16\"");
  options.charset = "Klingon";
  EXPECT_EQ(MakeFailure(), "the character set \"Klingon\" is unknown");
  EXPECT_EQ(Folder().Names(), Names());
}

TEST_F(PairSinkTest, DelimiterIsSaidUnlessItIsTab) {
  options.delimiter = ';';
  Put(Point(), {"1", "one"});
  Close();
  EXPECT_NE(MifHeader().find("Delimiter \";\"\n"), std::string::npos);
  EXPECT_EQ(Mid(), "1;one\n");
}

TEST_F(PairSinkTest, TabTakesThePlaceOfAnImpossibleDelimiter) {
  for (const char delimiter : {'"', '\n', '\r', 'a', '\0', '\xF6'}) {
    options.delimiter = delimiter;
    overwrite = true;
    Put(Point(), {"1", "one"});
    Close();
    EXPECT_EQ(MifHeader().find("Delimiter"), std::string::npos);
    EXPECT_EQ(Mid(), "1\tone\n");
  }
}

TEST_F(PairSinkTest, GivenClauseGoesBeforeTheSystemOfTheSchema) {
  options.coordsys = "Earth Projection 10, 104, \"km\", 5";
  options.bounds = {0, 0, 1, 1};
  EXPECT_EQ(Close(), "! the coordinates are taken to be in the given coordinate system as they are\n");
  EXPECT_NE(MifHeader().find("CoordSys Earth Projection 10,104,\"km\",5\n"), std::string::npos);
}

TEST_F(PairSinkTest, ClauseThatIsNotUnderstoodIsAFailure) {
  options.coordsys = "Earth Projection 10, 104, \"km\"";
  EXPECT_EQ(MakeFailure(),
            "the coordinate system \"Earth Projection 10, 104, \"km\"\" is not understood: Invalid number of "
            "parameters at column 31");
  EXPECT_EQ(Folder().Names(), Names());
}

TEST_F(PairSinkTest, BoundsMakeAPlaneWhereNoSystemIsKnown) {
  options.bounds = {-1, -2, 3, 4};
  options.units = MI::Units_ft;
  schema.system.AssignNull();
  EXPECT_EQ(Close(), "");
  EXPECT_NE(MifHeader().find("CoordSys NonEarth Units \"ft\" Bounds (-1, -2) (3, 4)\n"), std::string::npos);
}

TEST_F(PairSinkTest, WithoutAnySystemThePairSaysNone) {
  schema.system.AssignNull();
  EXPECT_EQ(Close(), "! no coordinate system is known: the pair says longitude and latitude\n");
  EXPECT_EQ(MifHeader().find("CoordSys"), std::string::npos);
}

TEST_F(PairSinkTest, PlaneWithoutBoundsIsRefused) {
  schema.system.Assign(new MI::CoordSys(MI::NonEarth_t(), MI::Units_m, {}));
  EXPECT_EQ(MakeFailure(),
            "a coordinate system that is not on the earth needs bounds; give the system with --coordsys");
}

TEST_F(PairSinkTest, RoundedSystemIsSaid) {
  options.coordsys = "Earth Projection 10, 104, \"m\", 5.12345678901";
  Close();
  EXPECT_EQ(account.GetAssumptions().back(),
            "the numbers of the coordinate system are rounded to ten digits");
}

TEST_F(PairSinkTest, ColumnsAreSelectedAndOrderedByName) {
  schema.columns.emplace_back("Size", MI::Decimal_t(), 8, 2, 0);
  options.columns = {"SIZE", "id"};
  Put(Point(), {"1", "one", "2.5"}).Put(Point(), {"2"});
  Close();
  EXPECT_NE(MifHeader().find("Columns 2\n Size\t\tDecimal(8,2)\n Id\t\tInteger\n"), std::string::npos);
  EXPECT_EQ(Mid(), "2.5\t1\n\t2\n");
  options.columns = {"Depth"};
  EXPECT_EQ(MakeFailure(), "there is no column \"Depth\"; there are Id, Name, Size");
}

TEST_F(PairSinkTest, NamesThatAHeaderCannotHoldAreChangedAndSaid) {
  schema.columns[0].name = "my id";
  schema.columns[1].name = "Größe Ж";
  EXPECT_EQ(Close(),
            "! the column \"my id\" is called \"my_id\"\n! the column \"Größe Ж\" is called \"Größe__\"\n");
  EXPECT_NE(MifHeader().find(" my_id\t\tInteger\n Gr\xF6\xDF"
                             "e__\t\tChar(10)\n"),
            std::string::npos);
}

TEST_F(PairSinkTest, OpenWidthIsThatOfTheLongestValue) {
  schema.columns[1] = MI::Column("Name", MI::Character_t(), 0, 0);
  Put(Point(), {"1", "four"}).Put(Point(), {"2", "thirteen char"}).Put(Point(), {"3", ""});
  Close();
  EXPECT_NE(MifHeader().find(" Name\t\tChar(0013)\n"), std::string::npos);
}

TEST_F(PairSinkTest, WidthsGrowWhereCharactersTakeSeveralBytes) {
  options.charset = "UTF-8";
  Put(Point(), {"1", "Größenmaß"});
  Close();
  EXPECT_NE(MifHeader().find(" Name\t\tChar(0012)\n"), std::string::npos);
}

// Values and texts.

TEST_F(PairSinkTest, ValuesNeverGoToTheMifFile) {
  Put(Point(), {"1", "tab\there"}).Put(Point(), {"2", "quote\"here"}).Put(Point(), {"3", "both\t\"here\""});
  EXPECT_EQ(Close(), "thing 3 = 3 + 0\n ~ delimiters beside quotes in values became blanks: 1 (#3@0)\n");
  EXPECT_EQ(MifData(), kPoint + kPoint + kPoint);
  EXPECT_EQ(Mid(), "1\t\"tab\there\"\n2\t\"quote\"\"here\"\n3\t\"both \"\"here\"\"\"\n");
}

TEST_F(PairSinkTest, LineEndsInValuesBecomeBlanks) {
  Put(Point(), {"1", "one\r\ntwo"}).Put(Point(), {"2\n", "three\nfour"});
  EXPECT_EQ(Close(), "thing 2 = 2 + 0\n ~ line ends in values became blanks: 2 (#1@0 #2@0)\n");
  EXPECT_EQ(Mid(), "1\tone two\n2 \tthree four\n");
}

TEST_F(PairSinkTest, TextsAndValuesAreConverted) {
  options.charset = "WindowsCyrillic";
  MI::Font font;
  font.name = "Шрифт";
  Put(MI::WTextObj("Мир", {0, 0, 4, 2}, nullptr, font), {"1", "Мир"});
  Put(MI::WPointObj({1, 2}, nullptr, MI::Symbol("Мир.bmp", 0, 18, 0, MI::SLUnits_Point)), {"2", ""});
  EXPECT_EQ(Close(), "thing 2 = 2 + 0\n");
  EXPECT_EQ(MifData(),
            "Text \"\xCC\xE8\xF0\"\n 0 0 4 2\n Font (\"\xD8\xF0\xE8\xF4\xF2\", 0, 0, 0)\n\n"
            "Point 1 2\n Symbol (\"\xCC\xE8\xF0.bmp\",0,18,0)\n");
  EXPECT_EQ(Mid(), "1\t\xCC\xE8\xF0\n2\t\n");
}

TEST_F(PairSinkTest, LostCharactersAreSaid) {
  Put(Point(), {"1", "Ω"}).Put(MI::WTextObj("Ω Ω", {0, 0, 4, 2}, nullptr, MI::Font()), {"2", "ö"});
  EXPECT_EQ(Close(), "thing 2 = 2 + 0\n ~ characters that the character set lacks became ?: 2 (#1@0 #2@0)\n");
  EXPECT_EQ(Mid(), "1\t?\n2\t\xF6\n");
}

TEST_F(PairSinkTest, LineEndsInTextsBecomeBackslashN) {
  Put(MI::WTextObj("one\ntwo\r\nthree\\nfour\n", {0, 0, 4, 2}, nullptr, MI::Font()), {"1", ""});
  EXPECT_EQ(Close(), "thing 1 = 1 + 0\n");
  EXPECT_EQ(MifData(),
            "Text \"one\\ntwo\\nthree\\nfour\\n\"\n 0 0 4 2\n Font (\"MS Sans Serif\", 0, 0, 0)\n\n");
}

// Geometry.

TEST_F(PairSinkTest, CoordinatesThatAreNoNumbersAreSkipped) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  MI::WPLineObj line(nullptr, MI::Pen(), false);
  line->AddPart();
  line->AddVertex({0, 0});
  line->AddVertex({1, nan});
  const auto add_rect = [this](const Vanth::RectXY& rect) {
    Put(MI::WRectObj(rect, nullptr, MI::Pen(), MI::Brush()));
  };
  Put(Point(nan, 0)).Put(Point(0, -infinity)).Put(line).Put(Point(), {"1", "kept"});
  add_rect({0, 0, nan, 1});
  EXPECT_EQ(Close(), "thing 5 = 1 + 4\n - a coordinate is no number: 4 (#1@0 #2@0 #3@0 #5@0)\n");
  EXPECT_EQ(MifData(), kPoint);
  EXPECT_EQ(Mid(), "1\tkept\n");
}

TEST_F(PairSinkTest, PartsThatTheWriterDropsAreSaid) {
  MI::WPLineObj line(nullptr, MI::Pen(), false);
  line->AddPart();
  line->AddVertex({0, 0});
  line->AddVertex({1, 1});
  line->AddPart();
  line->AddVertex({2, 2});
  MI::WPLineObj dot(nullptr, MI::Pen(), false);
  dot->AddPart();
  dot->AddVertex({2, 2});
  MI::WRegionObj empty(nullptr, MI::Pen(), MI::Brush());
  Put(line, {"1"}).Put(dot, {"2"}).Put(empty, {"3"});
  EXPECT_EQ(Close(),
            "thing 3 = 3 + 0\n ~ parts of too few vertices are left out: 1 (#1@0)\n"
            " ~ too few vertices: only its row is kept: 2 (#2@0 #3@0)\n");
  EXPECT_EQ(MifData(), "PLine 2\n 0 0\n 1 1\n Pen (1,2,0)\nNone\nNone\n");
  EXPECT_EQ(Mid(), "1\t\n2\t\n3\t\n");
}

std::string TenDigits(const std::string& step) {
  return "thing 1 = 1 + 0\n! coordinates are written with ten digits: the largest ones are multiples of " +
         step + "\n";
}

TEST_F(PairSinkTest, CoordinatesOfMoreThanTenDigitsAreSaid) {
  overwrite = true;
  for (const double kept : {0.0, 9999999.99, 1e7, -123456789.5, 1e10, 1234567890000.0, 0.1234567891, 1e-9}) {
    account = Account();
    Put(Point(kept, 0));
    EXPECT_EQ(Close(), "thing 1 = 1 + 0\n") << kept;
  }
  for (const auto& [rounded, step] :
       {std::pair{-12345678.125, "0.01"}, std::pair{123456789.25, "0.1"}, std::pair{1234567890.5, "1"},
        std::pair{12345678901.0, "10"}, std::pair{3500009.079935, "0.001"},
        std::pair{13.123456789012, "1e-08"}}) {
    account = Account();
    Put(Point(1, rounded));
    EXPECT_EQ(Close(), TenDigits(step));
  }
}

TEST_F(PairSinkTest, SmallCoordinatesBesideLargeOnesHaveTenDigitsToo) {
  MI::WPLineObj line(nullptr, MI::Pen(), false);
  line->AddPart();
  line->AddVertex({0.01234567891, 5300000.125});
  line->AddVertex({1, 1});
  Put(line);
  EXPECT_EQ(Close(), "thing 1 = 1 + 0\n");
  overwrite = true;
  account = Account();
  line->AddVertex({0.012345678912, 1});
  Put(line);
  EXPECT_EQ(Close(), TenDigits("0.001"));
}

TEST_F(PairSinkTest, KnownResolutionIsComparedWithTheDigits) {
  overwrite = true;
  options.resolution = 0.0001;
  for (const auto& [largest, says] : {std::pair{5300000.2501, TenDigits("0.001")},
                                      std::pair{530000.2501, std::string("thing 1 = 1 + 0\n")}}) {
    account = Account();
    Put(Point(1, largest));
    EXPECT_EQ(Close(), says);
  }
  // A twelfth of a thousandth: what ten digits round stays nearest to its unit.
  options.resolution = 1.0 / 12000;
  account = Account();
  Put(Point(1, 100000.0 / 12000));
  EXPECT_EQ(Close(), "thing 1 = 1 + 0\n");
}

// Files that appear whole or not at all.

TEST_F(PairSinkTest, NothingRemainsOfAPairThatIsNotClosed) {
  Put(Point(), {"1", "one"});
  EXPECT_EQ(Folder().Names().size(), 2U);
  Forget();
  EXPECT_EQ(Folder().Names(), Names());
}

TEST_F(PairSinkTest, ExistingFilesAreRefusedAndUnharmed) {
  static_cast<void>(Folder().Write("out.mid", "mine"));
  EXPECT_EQ(MakeFailure(), "out.mid exists; --overwrite replaces it");
  EXPECT_EQ(Folder().Names(), Names{"out.mid"});
  overwrite = true;
  Put(Point(), {"1", "one"});
  EXPECT_EQ(Mid(), "mine");
  Forget();
  EXPECT_EQ(Mid(), "mine");
  EXPECT_EQ(Folder().Names(), Names{"out.mid"});
  Put(Point(), {"1", "one"});
  Close();
  EXPECT_EQ(Mid(), "1\tone\n");
}

TEST_F(PairSinkTest, InputIsNotOverwritten) {
  const std::string mif = "Version 300\nColumns 1\n A Char(1)\nData\n\nNone\n";
  const fs::path input = Write(mif, "a\n");
  auto outputs = Outputs(true);
  outputs->AddInput(input);
  EXPECT_EQ(FailureOf([&] { PairSink(input, std::move(outputs), schema, options); }),
            "in.mif is an input as well; write to another file");
  EXPECT_EQ(ReadWhole(input), mif);
}

// While it lives, no file grows beyond the limit, as on a disk that is full.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : old_handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &old_limit_);
    rlimit limit = old_limit_;
    limit.rlim_cur = bytes;
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &old_limit_);
    std::signal(SIGXFSZ, old_handler_);
  }

 private:
  rlimit old_limit_ = {};
  void (*old_handler_)(int);
};

TEST_F(PairSinkTest, DiskThatIsFullAtTheEndIsAFailure) {
  Put(Point(), {"1", "one"});
  const FileSizeLimit limit(16);
  EXPECT_EQ(FailureOf([this] { Close(); }), "out.mif cannot be written: file too large");
  Forget();
  EXPECT_EQ(Folder().Names(), Names());
}

TEST_F(PairSinkTest, FullDiskStopsTheWritingOfEitherFile) {
  const FileSizeLimit limit(100000);
  EXPECT_EQ(FailureOf([this] {
              for (int i = 0; i < 20000; ++i) Put(Point(), {"1", ""});
            }),
            "out.mif cannot be written: file too large");
  Forget();
  EXPECT_EQ(FailureOf([this] {
              const Tobri::String value(std::string(1000, 'x'));
              for (int i = 0; i < 1000; ++i) Put(Point(), {"1", value});
            }),
            "out.mid cannot be written: file too large");
  Forget();
  EXPECT_EQ(Folder().Names(), Names());
}

}  // namespace
}  // namespace App
