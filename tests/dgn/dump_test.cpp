#include <pelor/dgn/dump.h>
#include <pelor/dgn/header.h>

#include <gtest/gtest.h>

#include <locale>
#include <sstream>
#include <string>
#include <tests/dgn/words.h>

namespace {

using namespace Pelor::DGN;

template <class Header>
std::string Dumped(const Header& header) {
  std::ostringstream out;
  header.Dump(out);
  return out.str();
}

EHeader Head(std::uint16_t type_level, std::uint16_t words) {
  EHeader header;
  header.type_level = type_level;
  header.words_to_follow = words;
  return header;
}

constexpr const char* kWholeSpace =
    "** Range:\n"
    "     X: Low: -2147483648    2147483647\n"
    "     Y: Low: -2147483648    2147483647\n"
    "     Z: Low: -2147483648    2147483647\n";

// --- headers

TEST(EHeaderDumpTest, AnActiveElementTakesTwoLines) {
  EXPECT_EQ(Dumped(Head(0x0408, 14)),
            "** Active Element    **Element Type: Line String**   -Not Component of Complex Element\n"
            "   Level: 8   [Words to follow: 14 ]\n");
}

TEST(EHeaderDumpTest, ADeletedComponentWithTheReservedBitTakesFourLines) {
  EXPECT_EQ(Dumped(Head(0xA5FF, 65535)),
            "** Reserved Bit is not 0!!! **\n"
            "** Deleted Element  \n"
            " **Element Type: Unknown Entity (37)**   -Component of Complex Element\n"
            "   Level: 63   [Words to follow: 65535 ]\n");
}

TEST(EHeaderDumpTest, AnEndMarkerIsOneLine) {
  EXPECT_EQ(Dumped(EHeader()), "** End of File **\n");
}

TEST(GEHeaderDumpTest, TheRangeFollowsInColumns) {
  const GEHeader header(Head(0x0301, 20), CoordsRange(1, -22, 333, 4444, 55555, -2147483648L));
  EXPECT_EQ(Dumped(header),
            "** Active Element    **Element Type: Line**   -Not Component of Complex Element\n"
            "   Level: 1   [Words to follow: 20 ]\n"
            "** Range:\n"
            "     X: Low:           1          4444\n"
            "     Y: Low:         -22         55555\n"
            "     Z: Low:         333   -2147483648\n");
}

TEST(GEHeaderDumpTest, AnEndMarkerStillHasItsRange) {
  EXPECT_EQ(Dumped(GEHeader()), std::string("** End of File **\n") + kWholeSpace);
}

TEST(GEHeaderDumpTest, TheFillCharacterBecomesABlank) {
  std::ostringstream out;
  out.fill('0');
  GEHeader().Dump(out);
  EXPECT_EQ(out.str(), std::string("** End of File **\n") + kWholeSpace);
  EXPECT_EQ(out.fill(), ' ');
}

TEST(DEHeaderDumpTest, TheDefaultHasNoWordForNonPlanar) {
  EXPECT_EQ(Dumped(DEHeader()), std::string("** End of File **\n") + kWholeSpace +
                                    "** Graphic Group Number: 0   <Index to Attributes: 0 >\n"
                                    "   Class: Primary\n"
                                    "<Not Locked> <New> <No Attributes> <DataBase Relative Orientation>\n"
                                    " <NonSnappable> <Solid>\n"
                                    "** Symbology:  [color=0]   [style=Solid Line]   [weight=0]\n");
}

TEST(DEHeaderDumpTest, TheOtherPropertiesHaveTheirWords) {
  DEHeader header;
  header.graphic_group = 65535;
  header.attribute_index = 65516;
  header.properties = 0x9909;
  header.symbology = 0xFFFE;
  EXPECT_EQ(Dumped(header), std::string("** End of File **\n") + kWholeSpace +
                                "** Graphic Group Number: 65535   <Index to Attributes: 65516 >\n"
                                "   Class: Unknown Class (9)\n"
                                "<Locked> <Old> <with Attributes> <Screen Relative Orientation>\n"
                                " <Planar> <Snappable> <Hole>\n"
                                "** Symbology:  [color=255]   [style=Dash, Dot, Dot Line]   [weight=31]\n");
}

TEST(AHeaderDumpTest, EveryBitHasItsWord) {
  const auto dumped = [](std::uint16_t word) {
    AHeader header;
    header.word = word;
    return Dumped(header);
  };
  EXPECT_EQ(dumped(0x1000), "** Attribute Class: 0\n  <User>\n");
  EXPECT_EQ(dumped(0x2F00), "** Attribute Class: 15\n  <Modified>\n");
  EXPECT_EQ(dumped(0x4100), "** Attribute Class: 1\n  <Remote>\n");
  EXPECT_EQ(dumped(0x82FF), "** Attribute Class: 2\n <Info>\n");
  EXPECT_EQ(dumped(0xF000), "** Attribute Class: 0\n  <User>  <Modified>  <Remote> <Info>\n");
  EXPECT_EQ(dumped(0x0000), "** Attribute Class: 0\n\n");
}

class GroupedDigits : public std::numpunct<char> {
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(HeaderDumpTest, NumbersFollowNeitherTheLocaleNorTheBaseOfTheStream) {
  std::ostringstream out;
  out.imbue(std::locale(std::locale::classic(), new GroupedDigits));
  out << std::hex << std::showbase;
  GEHeader(Head(0x0408, 1000), CoordsRange()).Dump(out);
  EXPECT_EQ(
      out.str(),
      std::string("** Active Element    **Element Type: Line String**   -Not Component of Complex Element\n"
                  "   Level: 8   [Words to follow: 1000 ]\n") +
          kWholeSpace);
}

// --- HexDump

constexpr const char* kHead =
    "OFFSET | 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F\n"
    "---------------------------------------------------------------\n";

std::string HexDumped(const std::string& bytes, unsigned count) {
  std::istringstream in(bytes);
  std::ostringstream out;
  HexDump(out, in, count);
  return out.str();
}

// The bytes 0, 1, 2, ...
std::string Ascending(int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += static_cast<char>(i);
  return bytes;
}

TEST(HexDumpTest, NoBytesGiveTheHeadAlone) {
  EXPECT_EQ(HexDumped("abc", 0), kHead);
}

TEST(HexDumpTest, AShortRowEndsWithItsLastByte) {
  EXPECT_EQ(HexDumped("\x01\x02\x0A", 3), std::string(kHead) + " 00000000 :   01 02 0a\n");
}

TEST(HexDumpTest, TwoBlanksStandBeforeTheNinthByte) {
  EXPECT_EQ(HexDumped(Ascending(9), 8), std::string(kHead) + " 00000000 :   00 01 02 03 04 05 06 07\n");
  EXPECT_EQ(HexDumped(Ascending(9), 9), std::string(kHead) + " 00000000 :   00 01 02 03 04 05 06 07   08\n");
}

TEST(HexDumpTest, RowsHaveSixteenBytes) {
  const std::string row = " 00000000 :   00 01 02 03 04 05 06 07   08 09 0a 0b 0c 0d 0e 0f\n";
  EXPECT_EQ(HexDumped(Ascending(20), 16), kHead + row);
  EXPECT_EQ(HexDumped(Ascending(20), 17), kHead + row + " 00000010 :   10\n");
}

TEST(HexDumpTest, AnExhaustedInputIsMarkedAndLeavesAnEmptyLine) {
  EXPECT_EQ(HexDumped(Ascending(18), 20),
            std::string(kHead) +
                " 00000000 :   00 01 02 03 04 05 06 07   08 09 0a 0b 0c 0d 0e 0f\n"
                " 00000010 :   10 11 EOF!\n\n");
  EXPECT_EQ(HexDumped("", 1), std::string(kHead) + " 00000000 :   EOF!\n\n");
  EXPECT_EQ(HexDumped(Ascending(8), 9),
            std::string(kHead) + " 00000000 :   00 01 02 03 04 05 06 07   EOF!\n\n");
}

TEST(HexDumpTest, OffsetsHaveEightDigits) {
  const std::string dump = HexDumped(std::string(0x1000 + 1, '\xFF'), 0x1000 + 1);
  EXPECT_TRUE(dump.ends_with("\n 00001000 :   ff\n")) << dump.substr(dump.size() - 40);
}

TEST(HexDumpTest, TheStreamIsLeftDecimalWithTheFillCharacterZero) {
  std::istringstream in("a");
  std::ostringstream out;
  out << std::hex;
  HexDump(out, in, 1);
  EXPECT_EQ(out.fill(), '0');
  out.str("");
  out << 10;
  EXPECT_EQ(out.str(), "10");
}

TEST(HexDumpTest, NoMoreThanTheCountIsRead) {
  std::istringstream in("abcd");
  std::ostringstream out;
  HexDump(out, in, 3);
  EXPECT_EQ(in.tellg(), 3);
  EXPECT_TRUE(in.good());
}

}  // namespace
