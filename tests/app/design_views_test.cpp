#include "app/design/cell_header.h"
#include "app/design/color_table.h"
#include "app/design/d_float.h"
#include "app/design/design_header.h"
#include "app/design/element_view.h"
#include "app/design/linkage.h"
#include "app/design/symbology.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tests/app/design_elements.h>
#include <tests/dgn/words.h>
#include <vector>

namespace App {
namespace {

using app_test::DFloat;
using app_test::ElementBytes;
using app_test::HeaderBytes;
using app_test::Longs;
using dgn_test::Words;
using namespace Pelor;

// --- D-floats

TEST(DFloatTest, DecodesNumbersToTheLastBit) {
  EXPECT_EQ(DecodeDFloat(Words("4080 0000*3").data()), 1.0);
  EXPECT_EQ(DecodeDFloat(Words("C080 0000*3").data()), -1.0);
  EXPECT_EQ(DecodeDFloat(Words("0000*4").data()), 0.0);
  // A million is 0.95367431640625 * 2^20.
  EXPECT_EQ(DecodeDFloat(Words("4A74 2400 0000*2").data()), 1000000.0);
  EXPECT_EQ(DecodeDFloat(Words("4080 0000 0000 0008").data()), 1.0 + 0x1p-52);
  // The three bits that a double lacks are rounded: here up, and to even.
  EXPECT_EQ(DecodeDFloat(Words("4080 0000 0000 0007").data()), 1.0 + 0x1p-52);
  EXPECT_EQ(DecodeDFloat(Words("4080 0000 0000 0004").data()), 1.0);
  EXPECT_EQ(DecodeDFloat(Words("4080 0000 0000 000C").data()), 1.0 + 0x2p-52);
  EXPECT_EQ(DecodeDFloat(Words("CFFF FFFF FFFF FFF8").data()), -0x1.fffffffffffffp30);
}

TEST(DFloatTest, GivesWhatTheFixturesEncode) {
  for (const double value : {1.0, -0.1, 1e6, -2147483648.0, 3.5e-30, 123456.789}) {
    EXPECT_EQ(DecodeDFloat(Words(DFloat(value)).data()), value);
  }
}

// --- design header

TEST(DesignHeaderTest, ReadsUnitsNamesAndOrigin) {
  app_test::HeaderText text;
  text.origin_x = 1234567.25;
  text.origin_y = -0.1;
  text.origin_z = 4294967296.0;
  const std::string bytes = HeaderBytes(text);
  const DesignHeader header = DesignHeader::Decode(bytes);
  EXPECT_TRUE(header.found);
  EXPECT_FALSE(header.is_3d);
  EXPECT_EQ(header.subs_per_master, 1000);
  EXPECT_EQ(header.uors_per_sub, 10);
  EXPECT_EQ(header.master_name, "m");
  EXPECT_EQ(header.sub_name, "mm");
  EXPECT_EQ(header.origin, (std::array<double, 3>{1234567.25, -0.1, 4294967296.0}));
  EXPECT_EQ(header.UorsPer(DesignUnits::kMaster), 10000.0);
  EXPECT_EQ(header.UorsPer(DesignUnits::kSub), 10.0);
  EXPECT_EQ(header.UorsPer(DesignUnits::kUor), 1.0);
}

TEST(DesignHeaderTest, KnowsSpaceByTheBitAndByTheFlagsOfTheElement) {
  std::string bytes = HeaderBytes();
  bytes[1214] = 0x40;
  EXPECT_TRUE(DesignHeader::Decode(bytes).is_3d);
  bytes = HeaderBytes();
  bytes[0] = '\xC8';
  EXPECT_TRUE(DesignHeader::Decode(bytes).is_3d);
  bytes[0] = '\x88';
  EXPECT_FALSE(DesignHeader::Decode(bytes).is_3d);
}

TEST(DesignHeaderTest, TakesOneForUnitsThatAreNotPositive) {
  app_test::HeaderText text;
  for (const auto& [subs, uors] : {std::pair(0, 10), std::pair(1000, 0), std::pair(-5, 10)}) {
    text.subs_per_master = subs;
    text.uors_per_sub = uors;
    const DesignHeader header = DesignHeader::Decode(HeaderBytes(text));
    EXPECT_FALSE(header.HasUnits());
    EXPECT_EQ(header.UorsPerMaster(), 1.0);
    EXPECT_EQ(header.UorsPerSub(), 1.0);
  }
}

TEST(DesignHeaderTest, MultipliesUnitsBeyond32Bits) {
  app_test::HeaderText text;
  text.subs_per_master = 1000000;
  text.uors_per_sub = 1000000;
  EXPECT_EQ(DesignHeader::Decode(HeaderBytes(text)).UorsPerMaster(), 1e12);
}

TEST(DesignHeaderTest, KeepsDefaultsWhereItIsCut) {
  const std::string bytes = HeaderBytes();
  for (std::size_t size = 0; size <= bytes.size(); ++size) {
    const std::vector<char> cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    const DesignHeader header = DesignHeader::Decode(cut);
    EXPECT_EQ(header.found, size >= 2);
    EXPECT_EQ(header.subs_per_master, size >= 1116 ? 1000 : 1) << size;
    EXPECT_EQ(header.sub_name, size >= 1124 ? "mm" : "") << size;
  }
}

TEST(DesignHeaderTest, IsFoundBehindElementsWithoutGraphics) {
  const dgn_test::TempFile file(Words("4219 0002 0001 0002") + app_test::DesignBytes(""));
  DGN::File design(file.Name(), std::ios::in);
  const DesignHeader header = DesignHeader::Find(design);
  EXPECT_TRUE(header.found);
  EXPECT_EQ(header.uors_per_sub, 10);
  EXPECT_EQ(design.CurrentPosition(), 0);
  EXPECT_TRUE(static_cast<bool>(design));
}

TEST(DesignHeaderTest, IsDoneWithoutWhenThereIsNone) {
  const dgn_test::TempFile file(ElementBytes({.type = 3, .body = "0000*8"}));
  DGN::File design(file.Name(), std::ios::in);
  const DesignHeader header = DesignHeader::Find(design);
  EXPECT_FALSE(header.found);
  EXPECT_FALSE(header.is_3d);
  EXPECT_EQ(header.UorsPerMaster(), 1.0);
  EXPECT_EQ(header.origin, (std::array<double, 3>{}));
  EXPECT_EQ(design.CurrentPosition(), 0);
  EXPECT_TRUE(static_cast<bool>(design));
}

TEST(DesignScaleTest, TakesTheOriginAwayAndDividesExactly) {
  app_test::HeaderText text;
  text.origin_x = 100.0;
  text.origin_y = -50.5;
  const DesignHeader header = DesignHeader::Decode(HeaderBytes(text));
  const DesignScale master(header, DesignUnits::kMaster);
  EXPECT_EQ(master.X(123556), 12.3456);
  EXPECT_EQ(master.Y(0), 50.5 / 10000);
  const DesignScale sub(header, DesignUnits::kSub);
  EXPECT_EQ(sub.X(123556), 12345.6);
  const DesignScale uor(header, DesignUnits::kUor);
  EXPECT_EQ(uor.X(123556), 123556.0);
}

// --- elements

TEST(ElementViewTest, FindsHeadersGeometryAndAttributes) {
  const std::string bytes = ElementBytes({.type = 3,
                                          .body = "0000 0001 0000 0002 0000 0003 FFFF FFFF",
                                          .level = 63,
                                          .component = true,
                                          .group = 7,
                                          .properties = 0x8002,
                                          .style = 3,
                                          .weight = 5,
                                          .color = 9,
                                          .attributes = "1003 0001 0002 0003"});
  const ElementView view(bytes, false);
  EXPECT_TRUE(view.IsWhole());
  EXPECT_TRUE(view.HasDisplayableHeader());
  EXPECT_EQ(view.Type(), DGN::LineType);
  EXPECT_EQ(view.Header().Level(), 63U);
  EXPECT_TRUE(view.Header().IsComponent());
  EXPECT_FALSE(view.Header().IsDeleted());
  EXPECT_EQ(view.Header().graphic_group, 7);
  EXPECT_EQ(view.Header().Class(), DGN::ConstructionClass);
  EXPECT_TRUE(view.Header().IsHole());
  EXPECT_EQ(view.Geometry().size(), 52U);
  EXPECT_EQ(view.Attributes().size(), 8U);
  EXPECT_TRUE(view.Reaches(36, 16));
  EXPECT_FALSE(view.Reaches(36, 17));
  EXPECT_FALSE(view.Reaches(53, 0));
  EXPECT_EQ(view.Long(36), 1);
  EXPECT_EQ(view.Long(48), -1);
  EXPECT_EQ(view.Word(38), 1);
  EXPECT_EQ(view.Byte(38), 1);
}

TEST(ElementViewTest, HasNoAttributesWhereTheIndexPointsOutOfTheElementOrIntoItsHeaders) {
  std::string bytes = ElementBytes({.type = 3, .body = "0000*8", .attributes = "1001 0002"});
  const auto with_index = [&](unsigned index) {
    bytes[30] = static_cast<char>(index & 0xFFU);
    bytes[31] = static_cast<char>(index >> 8U);
    const ElementView view(bytes, false);
    return std::pair(view.Attributes().size(), view.Geometry().size());
  };
  using Sizes = std::pair<std::size_t, std::size_t>;
  EXPECT_EQ(with_index(10), Sizes(4, 52));
  EXPECT_EQ(with_index(11), Sizes(2, 54));
  EXPECT_EQ(with_index(12), Sizes(0, 56));
  EXPECT_EQ(with_index(65516), Sizes(0, 56));
  EXPECT_EQ(with_index(1), Sizes(0, 56));
  EXPECT_EQ(with_index(2), Sizes(20, 36));
}

TEST(ElementViewTest, HasNoAttributesWithoutTheirBit) {
  std::string bytes = ElementBytes({.type = 3, .body = "0000*8", .attributes = "1001 0002"});
  bytes[33] = 0;
  const ElementView view(bytes, false);
  EXPECT_TRUE(view.Attributes().empty());
  EXPECT_EQ(view.Geometry().size(), 56U);
}

TEST(ElementViewTest, StaysInsideTheBytesWhereverTheyAreCut) {
  const std::string bytes = ElementBytes({.type = 3, .body = "0000*8", .attributes = "1001 0002"});
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const std::vector<char> cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    const ElementView view(cut, false);
    EXPECT_FALSE(view.IsWhole()) << size;
    EXPECT_EQ(view.HasDisplayableHeader(), size >= 36) << size;
    EXPECT_EQ(view.Geometry().size() + view.Attributes().size(), size);
  }
}

TEST(ElementViewTest, NamesEveryType) {
  EXPECT_EQ(ElementKind(DGN::LineStringType), "Line String");
  EXPECT_EQ(ElementKind(DGN::SharedCellType), "Shared Cell");
  EXPECT_EQ(ElementKind(static_cast<DGN::EType>(99)), "Unknown Entity (99)");
  EXPECT_TRUE(IsDisplayed(DGN::DimensionType));
  EXPECT_TRUE(IsDisplayed(DGN::ArcType));
  EXPECT_FALSE(IsDisplayed(DGN::ApplicationType));
}

// --- colours

TEST(ColorTableTest, RepeatsTenColoursWithoutATable) {
  ColorTable colors;
  const MI::Color expected[] = {0x000000, 0xFF0000, 0x00FF00, 0x0000FF, 0x00FFFF,
                                0xFF00FF, 0x0080FF, 0xFFFF00, 0x404040, 0xC0C0C0};
  for (std::uint8_t i = 0; i < 10; ++i) EXPECT_EQ(colors[i], expected[i]) << int{i};
  EXPECT_EQ(colors[13], 0x0000FF);
  EXPECT_FALSE(colors.IsFromFile());
  colors.KeepIndex0(true);
  EXPECT_EQ(colors[0], 0xFFFFFF);
}

std::string TableElement(int level) {
  std::string words = "0000";  // up to byte 38
  for (int i = 0; i < 256; ++i) words += " 0000";
  std::string bytes = ElementBytes({.type = 5, .body = words + " 0000*128", .level = level});
  for (int i = 0; i < 256; ++i) {
    bytes[static_cast<std::size_t>(38 + 3 * i)] = static_cast<char>(i);
    bytes[static_cast<std::size_t>(39 + 3 * i)] = static_cast<char>(255 - i);
    bytes[static_cast<std::size_t>(40 + 3 * i)] = 7;
  }
  return bytes;
}

TEST(ColorTableTest, TakesTheTableOfTheFileTheBackgroundFirst) {
  ColorTable colors;
  const std::string bytes = TableElement(1);
  ASSERT_TRUE(colors.Decode(ElementView(bytes, false)));
  EXPECT_TRUE(colors.IsFromFile());
  EXPECT_EQ(colors[255], 0x07FF00);
  EXPECT_EQ(colors[0], 0);
  EXPECT_EQ(colors[1], 0x07FD02);
  EXPECT_EQ(colors[254], 0x0700FF);
  colors.KeepIndex0(true);
  EXPECT_EQ(colors[0], 0x07FE01);
}

TEST(ColorTableTest, LeavesOtherElementsAlone) {
  ColorTable colors;
  const std::string other_level = TableElement(2);
  EXPECT_FALSE(colors.Decode(ElementView(other_level, false)));
  std::string cut = TableElement(1);
  cut.resize(38 + 3 * 256 - 1);
  EXPECT_FALSE(colors.Decode(ElementView(cut, false)));
  std::string other_type = TableElement(1);
  other_type[1] = 4;
  EXPECT_FALSE(colors.Decode(ElementView(other_type, false)));
  EXPECT_EQ(colors[1], 0xFF0000);
}

// --- linkages

std::string Walk(std::string_view words) {
  const std::string bytes = Words(words);
  LinkageWalker walker(bytes);
  Linkage linkage;
  std::string text;
  while (walker.Next(linkage)) {
    if (!text.empty()) text += "; ";
    text += std::to_string(linkage.offset) + ' ';
    const std::string row =
        std::to_string(linkage.database.entity) + ' ' + std::to_string(linkage.database.key);
    switch (linkage.kind) {
      case Linkage::Kind::kUser:
        text += "user " + std::to_string(linkage.id) + ' ' + std::to_string(linkage.bytes.size());
        break;
      case Linkage::Kind::kDatabase4:
        text += "four " + row;
        break;
      case Linkage::Kind::kDatabase8:
        text += "eight " + row;
        break;
      case Linkage::Kind::kFill:
        text += "fill " + std::to_string(linkage.fill_color);
        break;
    }
  }
  return text;
}

TEST(LinkageTest, WalksEveryKind) {
  EXPECT_EQ(Walk(""), "");
  EXPECT_EQ(Walk("1003 0010 0001 0002"), "0 user 16 8");
  EXPECT_EQ(Walk("0000 0005 0102 0003"), "0 four 5 196866");
  EXPECT_EQ(Walk("1007 5E62 0000 0007 0001 0002 0000 0000"), "0 eight 7 131073");
  EXPECT_EQ(Walk("1007 0041 0802 0001 0006 0000*3"), "0 fill 6");
}

TEST(LinkageTest, StepsOverFourWordDatabaseLinkagesThatTellNoLength) {
  EXPECT_EQ(Walk("0000 0005 0102 0003 0000 0006 0001 0000 1001 0010"),
            "0 four 5 196866; 8 four 6 1; 16 user 16 4");
  // With bits of the class or the flags set it is no less one.
  EXPECT_EQ(Walk("6000 0005 0102 FF00 1000"), "0 four 5 258; 8 user 0 2");
}

TEST(LinkageTest, PassesOverFiller) {
  EXPECT_EQ(Walk("0000*7"), "");
  EXPECT_EQ(Walk("1002 0010 0001 0000 0000*2 1001 0011"), "0 user 16 6; 12 user 17 4");
  EXPECT_EQ(Walk("1002 0010 0001 0000 1001 0011 0000 0000"), "0 user 16 6; 8 user 17 4");
  EXPECT_EQ(Walk("1007 0041 0802 0001 0006 0000*3 0000*4"), "0 fill 6");
}

TEST(LinkageTest, CutsWhatIsLongerThanTheRest) {
  EXPECT_EQ(Walk("10FF 5E62 0001"), "0 user 24162 6");
  EXPECT_EQ(Walk("1007 0041 0802 0001"), "0 user 65 8");
  EXPECT_EQ(Walk("2000 0005 0001"), "0 four 0 0");
  EXPECT_EQ(Walk("1007"), "0 user 0 2");
}

TEST(LinkageTest, KnowsEveryIdentifierOfADatabase) {
  for (const char* const id : {"1971", "3848", "4F58", "5E62", "6091", "71FB"}) {
    EXPECT_EQ(Walk(std::string("1007 ") + id + " 0000 0001 FFFF FFFF 0000*2"), "0 eight 1 4294967295") << id;
  }
  EXPECT_EQ(Walk("1007 5E63 0000 0001 0002 0000*3"), "0 user 24163 16");
  EXPECT_EQ(Walk("1006 5E62 0000 0001 0002 0000*2"), "0 user 24162 14");
}

TEST(LinkageTest, EndsForAnyBytes) {
  unsigned state = 1;
  for (int round = 0; round < 2000; ++round) {
    std::vector<char> bytes(static_cast<std::size_t>(round % 67));
    for (char& byte : bytes) {
      state = state * 1664525U + 1013904223U;
      byte = static_cast<char>(state >> 24U);
    }
    LinkageWalker walker(bytes);
    Linkage linkage;
    std::size_t steps = 0;
    while (walker.Next(linkage)) ASSERT_LE(++steps, bytes.size());
  }
}

TEST(LinkageTest, GivesTheFirstRowThatIsOneAndTheFirstFill) {
  const std::string bytes = Words(
      "1007 5E62 0F81 0000 0000*4 1007 0041 0802 0001 0006 0000*3 0000 0005 0102 0003 "
      "1007 0041 0802 0001 0009 0000*3 1007 5E62 0000 0007 0001 0002 0000 0000");
  const LinkageFacts facts = ReadLinkages(bytes);
  EXPECT_EQ(facts.database, (DatabaseKey{5, 0x30102}));
  EXPECT_EQ(facts.fill_color, 6);
  EXPECT_EQ(ReadLinkages({}).database, std::nullopt);
  EXPECT_EQ(ReadLinkages({}).fill_color, std::nullopt);
}

// --- cells

TEST(CellHeaderTest, ReadsTheOneOfAPlane) {
  // "TREE 1" in Radix-50 is (20, 18, 5) and (5, 0, 31).
  const std::string bytes =
      ElementBytes({.type = 2,
                    .body = "0012 7FD5 1F5F 0003 0001 0002 0003 0004" +
                            Longs({-10, -20, 30, 40, 214748, -1, 2, 214747, 100, -200})});
  const auto cell = CellHeader::Decode(ElementView(bytes, false));
  ASSERT_TRUE(cell.has_value());
  EXPECT_EQ(cell->description_words, 0x12);
  EXPECT_EQ(cell->name, "TREE 1");
  EXPECT_EQ(cell->class_map, 3);
  EXPECT_EQ(cell->level_map, (std::array<std::uint16_t, 4>{1, 2, 3, 4}));
  EXPECT_EQ(cell->low, (std::array<std::int32_t, 3>{-10, -20, 0}));
  EXPECT_EQ(cell->high, (std::array<std::int32_t, 3>{30, 40, 0}));
  EXPECT_EQ(cell->matrix, (std::array<std::int32_t, 9>{214748, -1, 0, 2, 214747, 0, 0, 0, 0}));
  EXPECT_EQ(cell->origin, (std::array<std::int32_t, 3>{100, -200, 0}));
}

TEST(CellHeaderTest, ReadsTheOneInSpace) {
  const std::string bytes =
      ElementBytes({.type = 2,
                    .body = "0012 0000 0000 0003 0001 0002 0003 0004" +
                            Longs({-1, -2, -3, 1, 2, 3, 11, 12, 13, 21, 22, 23, 31, 32, 33, 100, 200, 300})});
  const auto cell = CellHeader::Decode(ElementView(bytes, true));
  ASSERT_TRUE(cell.has_value());
  EXPECT_EQ(cell->name, "");
  EXPECT_EQ(cell->low, (std::array<std::int32_t, 3>{-1, -2, -3}));
  EXPECT_EQ(cell->high, (std::array<std::int32_t, 3>{1, 2, 3}));
  EXPECT_EQ(cell->matrix, (std::array<std::int32_t, 9>{11, 12, 13, 21, 22, 23, 31, 32, 33}));
  EXPECT_EQ(cell->origin, (std::array<std::int32_t, 3>{100, 200, 300}));
}

TEST(CellHeaderTest, IsNothingForOtherElementsAndShortOnes) {
  const std::string bytes = ElementBytes({.type = 2, .body = "0000*28"});
  EXPECT_TRUE(CellHeader::Decode(ElementView(bytes, false)).has_value());
  EXPECT_FALSE(CellHeader::Decode(ElementView(bytes, true)).has_value());
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const std::vector<char> cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_FALSE(CellHeader::Decode(ElementView(cut, false)).has_value()) << size;
  }
  const std::string shape = ElementBytes({.type = 6, .body = "0000*28"});
  EXPECT_FALSE(CellHeader::Decode(ElementView(shape, false)).has_value());
}

// --- styles

TEST(SymbologyTest, PenPatternsGoThereAndBack) {
  const int patterns[] = {2, 3, 6, 8, 14, 5, 20, 16};
  for (int style = 0; style < 8; ++style) {
    EXPECT_EQ(PenPattern(style), patterns[style]);
    EXPECT_EQ(LineStyle(patterns[style]), style);
  }
  EXPECT_EQ(PenPattern(8), 2);
  EXPECT_EQ(PenPattern(-1), 2);
  EXPECT_EQ(LineStyle(1), 0);
  EXPECT_EQ(LineStyle(4), 1);
  EXPECT_EQ(LineStyle(7), 2);
  EXPECT_EQ(LineStyle(13), 3);
  EXPECT_EQ(LineStyle(15), 4);
  EXPECT_EQ(LineStyle(25), 6);
  EXPECT_EQ(LineStyle(77), 0);
}

TEST(SymbologyTest, OnlyThePatternsOfTheEightStylesHaveAStyle) {
  const std::set<int> patterns = {2, 3, 6, 8, 14, 5, 20, 16};
  for (int pattern = 0; pattern < 128; ++pattern) {
    MI::Pen pen;
    pen.pattern = pattern;
    EXPECT_EQ(HasLineStyle(pen), patterns.contains(pattern)) << pattern;
    pen.interleaved = true;
    EXPECT_EQ(HasLineStyle(pen), pattern == 2) << pattern;
  }
}

TEST(SymbologyTest, WeightsGoThereAndBack) {
  const ColorTable colors;
  for (int weight = 0; weight < 32; ++weight) {
    Symbology symbology;
    symbology.weight = static_cast<std::uint8_t>(weight);
    symbology.color = 3;
    const MI::Pen pen = MakePen(symbology, colors);
    EXPECT_EQ(pen.color, 0x0000FF);
    EXPECT_EQ(LineWeight(pen), weight);
    if (weight < 7) {
      EXPECT_EQ(pen.width, weight + 1);
    }
    EXPECT_EQ(pen.widthUnits, weight < 7 ? MI::SLUnits_Pixel : MI::SLUnits_TenthPoint) << weight;
  }
  Symbology heavy;
  heavy.weight = 7;
  EXPECT_EQ(MakePen(heavy, colors).width, 60);
}

TEST(SymbologyTest, MakesBrushesSymbolsAndFonts) {
  const ColorTable colors;
  EXPECT_EQ(MakeBrush(std::nullopt, colors).pattern, 1);
  EXPECT_EQ(MakeBrush(2, colors).pattern, 2);
  EXPECT_EQ(MakeBrush(2, colors).foreColor, 0x00FF00);
  Symbology symbology;
  symbology.color = 1;
  symbology.weight = 1;
  EXPECT_EQ(MakePointSymbol(symbology, colors).shape, 34);
  EXPECT_EQ(MakePointSymbol(symbology, colors).color, 0xFF0000);
  EXPECT_EQ(MakePointSymbol(symbology, colors).size, 5);
  EXPECT_EQ(MakeCellSymbol(symbology, colors).shape, 32);
  EXPECT_EQ(MakeFont(symbology, colors).foreColor, 0xFF0000);
  EXPECT_EQ(MakeFont(symbology, colors).style, 0);
  EXPECT_EQ(MakeFont(symbology, colors).size, 0);
  symbology.weight = 2;
  EXPECT_EQ(MakeFont(symbology, colors).style, 1);
}

}  // namespace
}  // namespace App
