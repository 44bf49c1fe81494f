#include "app/design/element_writer.h"
#include "app/design/stored_angle.h"
#include <pelor/dgn.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <tests/dgn/words.h>
#include <utility>
#include <vector>

// Elements of three-dimensional designs, all at the height 0x30002.

namespace App {
namespace {

namespace DGN = Pelor::DGN;
using dgn_test::InWords;
using dgn_test::TempFile;
using dgn_test::Words;

constexpr std::int32_t kHeight = 0x30002;

class Written {
 public:
  ElementWriter* operator->() { return &writer_; }

  [[nodiscard]] std::string InWords() const { return dgn_test::InWords(bytes_.View()); }
  [[nodiscard]] std::string Design() const { return std::string(bytes_.View()) + "\xFF\xFF"; }

 private:
  ElementBytes bytes_;
  ElementWriter writer_{bytes_, kHeight};
};

std::string Tidy(std::string_view words) {
  return InWords(Words(words));
}

TEST(StoredAngleTest, ATurnInSpaceIsAQuaternionAboutTheZAxis) {
  struct Case {
    double degrees;
    const char* w;
    const char* z;
  };
  for (const Case& c : {
           Case{0, "7FFF FFFF", "0000 0000"},
           Case{60, "6ED9 EBA1", "C000 0000"},
           Case{90, "5A82 799A", "A57D 8666"},
           Case{180, "0000 0000", "8000 0000"},
           Case{270, "A57D 8666", "A57D 8666"},
           Case{-90, "5A82 799A", "5A82 799A"},
           Case{360, "7FFF FFFF", "0000 0000"},
           Case{450, "5A82 799A", "A57D 8666"},
       }) {
    const DGN::quaternion turn = TurnInSpace(c.degrees);
    ElementBytes bytes;
    bytes.Long(turn.w);
    EXPECT_EQ(InWords(bytes.View()), c.w) << c.degrees;
    bytes.Clear();
    bytes.Long(turn.z);
    EXPECT_EQ(InWords(bytes.View()), c.z) << c.degrees;
    EXPECT_EQ(turn.x, 0);
    EXPECT_EQ(turn.y, 0);
  }
}

TEST(StoredAngleTest, ATurnInSpaceIsReadAsItWasMeant) {
  const DGN::dpoint3d turned = DGN::Trans3D(TurnInSpace(30), 1.0).Apply({1.0, 0.0, 0.0});
  EXPECT_NEAR(turned.x, 0.8660254037844386, 1e-9);
  EXPECT_NEAR(turned.y, 0.5, 1e-9);
  EXPECT_EQ(turned.z, 0.0);
}

TEST(ElementWriterSpaceTest, WritesALine) {
  Written written;
  written->Line({.level = 5, .color = 3, .line_style = 2, .weight = 4, .graphic_group = 7}, {0x12345678, -1},
                {0, 0}, {});
  EXPECT_EQ(written.InWords(), Tidy("0305 001C"
                                    " 8000 0000 7FFF FFFF 8003 0002 9234 5678 8000 0000 8003 0002"
                                    " 0007 000E 0200 0322"
                                    " 1234 5678 FFFF FFFF 0003 0002 0000 0000 0000 0000 0003 0002"));
}

TEST(ElementWriterSpaceTest, WritesVerticesWithLinkages) {
  LinkageWords linkages;
  linkages.AddDatabase(1, 0x00012345);
  linkages.AddFill(6);
  for (const auto& [type, word] : {std::pair(DGN::ShapeType, "06"), std::pair(DGN::LineStringType, "04"),
                                   std::pair(DGN::CurveType, "0B")}) {
    Written written;
    written->Vertices(type, {}, std::vector<DGN::point2d>{{1, 2}, {3, 2}, {3, 4}, {1, 2}}, linkages);
    EXPECT_EQ(written.InWords(),
              Tidy(std::string(word) + "01 0039"
                                       " 8000 0001 8000 0002 8003 0002 8000 0003 8000 0004 8003 0002"
                                       " 0000 001B 0A00 0000"
                                       " 0004 0000 0001 0000 0002 0003 0002 0000 0003 0000 0002 0003 0002"
                                       " 0000 0003 0000 0004 0003 0002 0000 0001 0000 0002 0003 0002"
                                       " 1007 5E62 0F81 0001 2345 0001 0000 0000"
                                       " 1007 0041 0802 0001 0006 0000 0000 0000"));
  }
}

TEST(ElementWriterSpaceTest, WritesAnEllipse) {
  Written written;
  written->Ellipse(
      {}, {.primary = 1000000.0, .secondary = 0.5, .rotation_degrees = 90.0, .x = 10.5, .y = -3.0}, {});
  EXPECT_EQ(written.InWords(), Tidy("0F01 002C"
                                    " 8000 000A 7FF0 BDBD 8003 0002 8000 000B 800F 423D 8003 0002"
                                    " 0000 001E 0200 0000"
                                    " 4A74 2400 0000 0000 4000 0000 0000 0000"
                                    " 5A82 799A 0000 0000 0000 0000 A57D 8666"
                                    " 4228 0000 0000 0000 C140 0000 0000 0000 4940 0080 0000 0000"));
}

TEST(ElementWriterSpaceTest, WritesAnArc) {
  Written written;
  written->Arc({}, {.ellipse = {.primary = 100, .secondary = 50}, .start_degrees = 90, .sweep_degrees = -90},
               {});
  EXPECT_EQ(written.InWords(), Tidy("1001 0030"
                                    " 8000 0000 8000 0000 8003 0002 8000 0064 8000 0032 8003 0002"
                                    " 0000 0022 0200 0000"
                                    " 01EE 6280 81EE 6280"
                                    " 43C8 0000 0000 0000 4348 0000 0000 0000"
                                    " 7FFF FFFF 0000*6"
                                    " 0000*8 4940 0080 0000 0000"));
}

TEST(ElementWriterSpaceTest, WritesATextPaddedToWholeWords) {
  Written written;
  written->Text({}, {.font = 3, .justification = 7, .length_multiplier = 2000, .height_multiplier = 5000},
                {100, 200}, "ABC", {});
  EXPECT_EQ(written.InWords(), Tidy("1101 0026"
                                    " 8000 0064 8000 00C8 8003 0002 8000 0088 8000 00E6 8003 0002"
                                    " 0000 0018 0200 0000"
                                    " 0703 0000 07D0 0000 1388 7FFF FFFF 0000*6 0000 0064 0000 00C8 0003 0002"
                                    " 0003 4241 0043"));
}

TEST(ElementWriterSpaceTest, WritesATextNode) {
  Written written;
  const TextShape shape = {
      .justification = 0, .length_multiplier = 500, .height_multiplier = 1000, .rotation_degrees = 180};
  written->BeginTextNode({}, shape, {7, 8}, 3, 5, {});
  written->Text({}, shape, {7, 8}, "first", {});
  written->Text({}, shape, {7, -1}, "2nd", {});
  written->End();
  // Behind the length: 24 words of the header, 41 and 40 of the texts.
  EXPECT_EQ(InWords(std::string_view(written.Design()).substr(0, 86)),
            Tidy("0701 0029 7FFF FFF8 7FFF FFF9 8003 0002 8000 0007 8000 0008 8003 0002 0000 001B 0200 0000"
                 " 0069 0002 0001 05FF 0001 0000 0003 0000 01F4 0000 03E8"
                 " 0000 0000 0000 0000 0000 0000 8000 0000 0000 0007 0000 0008 0003 0002"));
}

TEST(ElementWriterSpaceTest, WritesAComplexChain) {
  LinkageWords linkages;
  linkages.AddDatabase(1, 9);
  Written written;
  written->BeginComplex(DGN::ComplexStringType, {}, linkages);
  written->Vertices(DGN::LineStringType, {}, std::vector<DGN::point2d>{{0, 0}, {10, 5}}, {});
  written->Vertices(DGN::LineStringType, {}, std::vector<DGN::point2d>{{10, 5}, {-20, 7}}, {});
  written->End();
  // Behind the length: the count, the linkage, and two components of 31 words.
  EXPECT_EQ(written.InWords(),
            Tidy("0C01 001A"
                 " 7FFF FFEC 8000 0000 8003 0002 8000 000A 8000 0007 8003 0002"
                 " 0000 0004 0A00 0000"
                 " 0047 0002 1007 5E62 0F81 0001 0009 0000 0000 0000"
                 " 0481 001D 8000 0000 8000 0000 8003 0002 8000 000A 8000 0005 8003 0002 0000 000F 0200 0000"
                 " 0002 0000 0000 0000 0000 0003 0002 0000 000A 0000 0005 0003 0002"
                 " 0481 001D 7FFF FFEC 8000 0005 8003 0002 8000 000A 8000 0007 8003 0002 0000 000F 0200 0000"
                 " 0002 0000 000A 0000 0005 0003 0002 FFFF FFEC 0000 0007 0003 0002"));
}

TEST(ElementWriterSpaceTest, WritesACell) {
  Written written;
  written->BeginCell({.level = 2}, "AB1", {4, 1}, {});
  written->Vertices(DGN::ShapeType, {.level = 3}, std::vector<DGN::point2d>{{1, 2}, {9, 2}, {9, 8}, {1, 2}},
                    {});
  written->End();
  // Behind the length: 43 words of the header, and as many of the shape.
  EXPECT_EQ(InWords(std::string_view(written.Design()).substr(0, 124)),
            Tidy("0202 003C 8000 0001 8000 0002 8003 0002 8000 0009 8000 0008 8003 0002 0000 002E 0200 0000"
                 " 0056 06AF 0000 0001 0008 0000 0000 0000"
                 " FFFF FFFD 0000 0001 0000 0000 0000 0005 0000 0007 0000 0000"
                 " 0003 46DC 0000*6 0003 46DC 0000*6 0003 46DC"
                 " 0000 0004 0000 0001 0003 0002"));
}

TEST(ElementWriterSpaceTest, TheLibraryReadsBackWhatWasWritten) {
  Written written;
  written->Line({}, {1, -2}, {3, 4}, {});
  written->Ellipse(
      {}, {.primary = 1000000.0, .secondary = 10.25, .rotation_degrees = 60, .x = -7.5, .y = 123456.789}, {});
  const TempFile design(written.Design());

  DGN::File file(design.Name(), std::ios_base::in);
  const DGN::Line3D line(file);
  EXPECT_EQ(line.start, (DGN::point3d{1, -2, kHeight}));
  EXPECT_EQ(line.end, (DGN::point3d{3, 4, kHeight}));
  file.Next(false);
  const DGN::Ellipse3D ellipse(file);
  EXPECT_EQ(ellipse.primary_axis, 1000000.0);
  EXPECT_EQ(ellipse.secondary_axis, 10.25);
  EXPECT_EQ(ellipse.rotation, TurnInSpace(60));
  EXPECT_EQ(ellipse.origin, (DGN::dpoint3d{-7.5, 123456.789, kHeight}));
  file.Next(false);
  EXPECT_TRUE(file.AtEnd());
}

}  // namespace
}  // namespace App
