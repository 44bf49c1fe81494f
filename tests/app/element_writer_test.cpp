#include "app/design/element_writer.h"

#include "app/design/d_float.h"
#include <pelor/dgn.h>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <tests/dgn/words.h>
#include <vector>

namespace App {
namespace {

namespace DGN = Pelor::DGN;
using dgn_test::InWords;
using dgn_test::TempFile;
using dgn_test::Words;

std::string WordsOf(double value) {
  ElementBytes bytes;
  bytes.Double(value);
  return InWords(bytes.View());
}

/// The elements in words, and as a file that the library can read.
class Written {
 public:
  ElementWriter& operator*() { return writer_; }
  ElementWriter* operator->() { return &writer_; }

  [[nodiscard]] std::string InWords() const { return dgn_test::InWords(bytes_.View()); }
  [[nodiscard]] std::string Design() const { return std::string(bytes_.View()) + "\xFF\xFF"; }

 private:
  ElementBytes bytes_;
  ElementWriter writer_{bytes_};
};

std::string Tidy(std::string_view words) {
  return InWords(Words(words));
}

std::vector<DGN::point2d> Staircase(std::size_t count) {
  std::vector<DGN::point2d> points;
  for (std::size_t i = 0; i < count; ++i) {
    points.push_back({static_cast<std::int32_t>(10 * i), static_cast<std::int32_t>(i % 7)});
  }
  return points;
}

TEST(DFloatTest, KeepsEveryBitOfTheNumber) {
  EXPECT_EQ(WordsOf(0.0), "0000 0000 0000 0000");
  EXPECT_EQ(WordsOf(-0.0), "0000 0000 0000 0000");
  EXPECT_EQ(WordsOf(1.0), "4080 0000 0000 0000");
  EXPECT_EQ(WordsOf(-2.5), "C120 0000 0000 0000");
  EXPECT_EQ(WordsOf(0.5), "4000 0000 0000 0000");
  EXPECT_EQ(WordsOf(1000000.0), "4A74 2400 0000 0000");
  EXPECT_EQ(WordsOf(0.1), "3ECC CCCC CCCC CCD0");
  EXPECT_EQ(WordsOf(-1.0 / 3.0), "BFAA AAAA AAAA AAA8");
}

TEST(DFloatTest, MeetsTheLimitsOfTheForm) {
  EXPECT_EQ(WordsOf(std::ldexp(1.0, -128)), "0080 0000 0000 0000");
  EXPECT_EQ(WordsOf(std::ldexp(1.0, -129)), "0000 0000 0000 0000");
  EXPECT_EQ(WordsOf(std::ldexp(1.0, 126)), "7F80 0000 0000 0000");
  EXPECT_EQ(WordsOf(std::ldexp(1.0, 127)), "7FFF FFFF FFFF FFFF");
  EXPECT_EQ(WordsOf(-std::numeric_limits<double>::infinity()), "FFFF FFFF FFFF FFFF");
  EXPECT_EQ(WordsOf(std::numeric_limits<double>::quiet_NaN()), "0000 0000 0000 0000");
  EXPECT_EQ(WordsOf(std::numeric_limits<double>::denorm_min()), "0000 0000 0000 0000");
}

TEST(DFloatTest, IsReadBackByTheLibraryUnchanged) {
  for (const double value : {1000000.0, 983616.0, 0.1, 123456789.123456789, -6378137.0, 1.0 / 3.0, 1e-30}) {
    ElementBytes bytes;
    bytes.Double(value);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(DGN::LoadDFloat(bytes.Data())),
              std::bit_cast<std::uint64_t>(value));
  }
}

TEST(ElementWriterTest, WritesALine) {
  Written written;
  written->Line({.level = 5, .color = 3, .line_style = 2, .weight = 4, .graphic_group = 7}, {0x12345678, -1},
                {0, 0}, {});
  EXPECT_EQ(written.InWords(), Tidy("0305 0018"
                                    " 8000 0000 7FFF FFFF 8000 0000 9234 5678 8000 0000 8000 0000"
                                    " 0007 000A 0200 0322"
                                    " 1234 5678 FFFF FFFF 0000 0000 0000 0000"));
}

TEST(ElementWriterTest, WritesTheBitsOfTheStyle) {
  Written written;
  written->Vertices(DGN::ShapeType,
                    {.level = 63,
                     .color = 255,
                     .line_style = 7,
                     .weight = 31,
                     .element_class = 2,
                     .hole = true,
                     .deleted = true},
                    Staircase(4), {});
  EXPECT_EQ(written.InWords().substr(0, 9), "863F 0021");
  EXPECT_EQ(written.InWords().substr(5 * 14, 19), "0000 0013 8202 FFFF");
}

TEST(ElementWriterTest, WritesVerticesWithLinkages) {
  LinkageWords linkages;
  linkages.AddDatabase(1, 0x00012345);
  linkages.AddFill(6);
  Written written;
  written->Vertices(DGN::ShapeType, {}, std::vector<DGN::point2d>{{1, 2}, {3, 2}, {3, 4}, {1, 2}}, linkages);
  EXPECT_EQ(written.InWords(), Tidy("0601 0031"
                                    " 8000 0001 8000 0002 8000 0000 8000 0003 8000 0004 8000 0000"
                                    " 0000 0013 0A00 0000"
                                    " 0004 0000 0001 0000 0002 0000 0003 0000 0002"
                                    " 0000 0003 0000 0004 0000 0001 0000 0002"
                                    " 1007 5E62 0F81 0001 2345 0001 0000 0000"
                                    " 1007 0041 0802 0001 0006 0000 0000 0000"));
}

TEST(ElementWriterTest, WritesAnEllipse) {
  Written written;
  written->Ellipse(
      {}, {.primary = 1000000.0, .secondary = 0.5, .rotation_degrees = 90.0, .x = 10.5, .y = -3.0}, {});
  EXPECT_EQ(written.InWords(), Tidy("0F01 0022"
                                    " 8000 000A 7FF0 BDBD 8000 0000 8000 000B 800F 423D 8000 0000"
                                    " 0000 0014 0200 0000"
                                    " 4A74 2400 0000 0000 4000 0000 0000 0000 01EE 6280"
                                    " 4228 0000 0000 0000 C140 0000 0000 0000"));
}

TEST(ElementWriterTest, WritesAClockwiseArcWithASignBit) {
  Written written;
  written->Arc({}, {.ellipse = {.primary = 100, .secondary = 50}, .start_degrees = 90, .sweep_degrees = -90},
               {});
  EXPECT_EQ(written.InWords(), Tidy("1001 0026"
                                    " 8000 0000 8000 0000 8000 0000 8000 0064 8000 0032 8000 0000"
                                    " 0000 0018 0200 0000"
                                    " 01EE 6280 81EE 6280"
                                    " 43C8 0000 0000 0000 4348 0000 0000 0000 0000 0000"
                                    " 0000*8"));
}

/// The range of the only element, as "x low, y low, x high, y high".
std::string RangeOf(const Written& written) {
  const TempFile design(written.Design());
  DGN::File file(design.Name(), std::ios_base::in);
  const DGN::CoordsRange range = file.GetGEHeader().range;
  EXPECT_EQ(range.zlow, 0);
  EXPECT_EQ(range.zhigh, 0);
  return std::to_string(range.xlow) + ", " + std::to_string(range.ylow) + ", " + std::to_string(range.xhigh) +
         ", " + std::to_string(range.yhigh);
}

TEST(ElementWriterTest, ArcRangesHoldTheExtremesWithinTheSweep) {
  struct Case {
    double start;
    double sweep;
    double rotation;
    const char* range;
  };
  for (const Case& c : {
           Case{350, 20, 0, "98, -9, 100, 9"},
           Case{10, -20, 0, "98, -9, 100, 9"},
           Case{0, 360, 0, "-100, -50, 100, 50"},
           Case{0, 360, 90, "-50, -100, 50, 100"},
           Case{90, 180, 0, "-100, -50, 0, 50"},
           Case{270, 180, 0, "0, -50, 100, 50"},
           Case{0, 90, 180, "-100, -50, 0, 0"},
           Case{30, 30, 0, "50, 25, 87, 44"},
       }) {
    Written written;
    written->Arc({},
                 {.ellipse = {.primary = 100, .secondary = 50, .rotation_degrees = c.rotation},
                  .start_degrees = c.start,
                  .sweep_degrees = c.sweep},
                 {});
    EXPECT_EQ(RangeOf(written), c.range) << c.start << " + " << c.sweep << " turned by " << c.rotation;
  }
}

TEST(ElementWriterTest, RangesStayOnThePlane) {
  Written written;
  written->Ellipse({}, {.primary = 4e9, .secondary = 1}, {});
  EXPECT_EQ(RangeOf(written), "-2147483648, -1, 2147483647, 1");
}

TEST(ElementWriterTest, WritesATextPaddedToWholeWords) {
  Written written;
  written->Text({}, {.font = 3, .justification = 7, .length_multiplier = 2000, .height_multiplier = 5000},
                {100, 200}, "ABC", {});
  EXPECT_EQ(written.InWords(), Tidy("1101 001E"
                                    " 8000 0064 8000 00C8 8000 0000 8000 0088 8000 00E6 8000 0000"
                                    " 0000 0010 0200 0000"
                                    " 0703 0000 07D0 0000 1388 0000 0000 0000 0064 0000 00C8"
                                    " 0003 4241 0043"));
}

TEST(ElementWriterTest, TextRangesFollowTheRotation) {
  Written written;
  written->Text({}, {.length_multiplier = 1000, .height_multiplier = 2000, .rotation_degrees = -90},
                {100, 200}, "ABCDE", {});
  EXPECT_EQ(RangeOf(written), "100, 170, 112, 200");
}

TEST(ElementWriterTest, WritesAComplexChain) {
  LinkageWords linkages;
  linkages.AddDatabase(1, 9);
  Written written;
  written->BeginComplex(DGN::ComplexStringType, {}, linkages);
  written->Vertices(DGN::LineStringType, {}, std::vector<DGN::point2d>{{0, 0}, {10, 5}}, {});
  written->Vertices(DGN::LineStringType, {}, std::vector<DGN::point2d>{{10, 5}, {-20, 7}}, {});
  written->End();
  // Behind the length: the count, the linkage, and two components of 27 words.
  EXPECT_EQ(written.InWords(),
            Tidy("0C01 001A"
                 " 7FFF FFEC 8000 0000 8000 0000 8000 000A 8000 0007 8000 0000"
                 " 0000 0004 0A00 0000"
                 " 003F 0002 1007 5E62 0F81 0001 0009 0000 0000 0000"
                 " 0481 0019 8000 0000 8000 0000 8000 0000 8000 000A 8000 0005 8000 0000 0000 000B 0200 0000"
                 " 0002 0000 0000 0000 0000 0000 000A 0000 0005"
                 " 0481 0019 7FFF FFEC 8000 0005 8000 0000 8000 000A 8000 0007 8000 0000 0000 000B 0200 0000"
                 " 0002 0000 000A 0000 0005 FFFF FFEC 0000 0007"));
}

TEST(ElementWriterTest, WritesACellAroundAComplexShape) {
  Written written;
  written->BeginCell({.level = 2}, "AB1", {4, 1}, {});
  written->Vertices(DGN::ShapeType, {.level = 3}, std::vector<DGN::point2d>{{1, 2}, {9, 2}, {9, 8}, {1, 2}},
                    {});
  written->BeginComplex(DGN::ComplexShapeType, {.level = 17}, {});
  written->Arc({.level = 17}, {.ellipse = {.primary = 1, .secondary = 1}}, {});
  written->End();
  written->End();
  const TempFile design(written.Design());

  DGN::File file(design.Name(), std::ios_base::in);
  EXPECT_EQ(file.GetEHeader().Type(), DGN::CellHeaderType);
  EXPECT_FALSE(file.GetEHeader().IsComponent());
  EXPECT_EQ(InWords(std::string_view(written.Design()).substr(4, 24)),
            "7FFF FFFF 7FFF FFFF 8000 0000 8000 0009 8000 0008 8000 0000");
  // Behind the length: 27 words of the header, 35 of the shape, 20 and 40 of the complex shape.
  EXPECT_EQ(InWords(std::string_view(written.Design()).substr(36, 56)),
            Tidy("007A 06AF 0000 0001 0008 0002 0000 0000"
                 " FFFF FFFB FFFF FFFE 0000 0005 0000 0007"
                 " 0003 46DC 0000 0000 0000 0000 0003 46DC 0000 0004 0000 0001"));
  file.Next(false);
  EXPECT_EQ(file.GetEHeader().Type(), DGN::ShapeType);
  EXPECT_TRUE(file.GetEHeader().IsComponent());
  file.Next(false);
  EXPECT_EQ(file.GetEHeader().Type(), DGN::ComplexShapeType);
  EXPECT_TRUE(file.GetEHeader().IsComponent());
  const DGN::ComplexStrH header(file);
  EXPECT_EQ(header.words, 41);
  EXPECT_EQ(header.components, 1);
  file.Restart();
  file.Next(true);
  EXPECT_TRUE(file.AtEnd());
}

TEST(ElementWriterTest, ComponentsOfADeletedElementAreDeleted) {
  Written written;
  written->BeginComplex(DGN::ComplexStringType, {.deleted = true}, {});
  written->Line({}, {0, 0}, {1, 1}, {});
  written->End();
  written->Line({}, {0, 0}, {1, 1}, {});
  EXPECT_EQ(InWords(std::string_view(written.Design()).substr(0, 2)), "8C01");
  EXPECT_EQ(InWords(std::string_view(written.Design()).substr(40, 2)), "8381");
  EXPECT_EQ(InWords(std::string_view(written.Design()).substr(92, 2)), "0301");
}

TEST(ElementWriterTest, WritesATextNode) {
  Written written;
  const TextShape shape = {.justification = 0, .length_multiplier = 500, .height_multiplier = 1000};
  written->BeginTextNode({}, shape, {7, 8}, 3, 5, {});
  written->Text({}, shape, {7, 8}, "first", {});
  written->Text({}, shape, {7, -1}, "2nd", {});
  written->End();
  // Behind the length: 16 words of the header, 33 and 32 of the texts.
  EXPECT_EQ(InWords(std::string_view(written.Design()).substr(0, 70)),
            Tidy("0701 0021 8000 0007 7FFF FFFF 8000 0000 8000 0016 8000 000E 8000 0000 0000 0013 0200 0000"
                 " 0051 0002 0001 05FF 0001 0000 0003 0000 01F4 0000 03E8 0000 0000 0000 0007 0000 0008"));
}

TEST(ElementWriterTest, TheLibraryReadsBackWhatWasWritten) {
  LinkageWords linkages;
  linkages.AddDatabase(1, 70000);
  Written written;
  written->Vertices(DGN::LineStringType, {.weight = 3}, Staircase(101), linkages);
  written->Arc(
      {}, {.ellipse = {1000000.0, 10.25, 30, -7.5, 123456.789}, .start_degrees = 45, .sweep_degrees = 90},
      linkages);
  written->Text({}, {.rotation_degrees = 30}, {5, 6}, "Main Street", {});
  const TempFile design(written.Design());

  DGN::File file(design.Name(), std::ios_base::in);
  const DGN::LineString2D string(file);
  ASSERT_EQ(string.count, 101);
  EXPECT_EQ(string.points[100], (DGN::point2d{1000, 2}));
  EXPECT_EQ(file.GetDEHeader().Weight(), 3);
  EXPECT_EQ(file.GetAHeader().word, 0x1007);
  EXPECT_FALSE(file.NextAttribute());
  file.Next(false);
  const DGN::Arc2D arc(file);
  EXPECT_EQ(arc.start_angle, 45 * 360000);
  EXPECT_EQ(arc.sweep_angle, 90 * 360000);
  EXPECT_EQ(arc.primary_axis, 1000000.0);
  EXPECT_EQ(arc.secondary_axis, 10.25);
  EXPECT_EQ(arc.rotation, 30 * 360000);
  EXPECT_EQ(arc.origin, (DGN::dpoint2d{-7.5, 123456.789}));
  file.Next(false);
  const DGN::Text2D text(file);
  EXPECT_EQ(text.text, "Main Street");
  EXPECT_EQ(text.rotation, 30 * 360000);
  EXPECT_EQ(text.origin, (DGN::point2d{5, 6}));
  file.Next(false);
  EXPECT_TRUE(file.AtEnd());
}

}  // namespace
}  // namespace App
