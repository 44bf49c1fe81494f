#include <pelor/dgn/header.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <tests/dgn/words.h>

namespace {

using namespace Pelor::DGN;
using dgn_test::InWords;
using dgn_test::Words;

template <class Header>
std::string Written(const Header& header) {
  std::ostringstream out;
  header.write(out);
  return InWords(out.str());
}

// Values 1 to 6 in range form.
constexpr const char* kRange = "8000 0001 8000 0002 8000 0003 8000 0004 8000 0005 8000 0006";

// --- EHeader

TEST(EHeaderTest, TheDefaultIsAnEndMarker) {
  const EHeader header;
  EXPECT_EQ(header.type_level, 0xFFFF);
  EXPECT_EQ(header.words_to_follow, 0);
  EXPECT_FALSE(header.assigned);
  EXPECT_TRUE(header.IsEndOfDesign());
}

TEST(EHeaderTest, ACopyIsUnassignedAndAnAssignmentMarks) {
  EHeader header(LineType, 8, 14);
  EHeader target;
  target = header;
  EXPECT_TRUE(target.assigned);
  EXPECT_EQ(target.type_level, 0x0308);
  EXPECT_EQ(target.words_to_follow, 14);
  const EHeader copy(target);
  EXPECT_FALSE(copy.assigned);
  EXPECT_EQ(copy.type_level, 0x0308);
  EXPECT_EQ(copy.words_to_follow, 14);
  EHeader& self = header;
  header = self;
  EXPECT_TRUE(header.assigned);
}

TEST(EHeaderTest, TheFirstWordHoldsLevelComponentTypeAndDeleted) {
  EHeader header;
  header.type_level = 0x0408;
  EXPECT_EQ(header.Type(), LineStringType);
  EXPECT_EQ(header.Level(), 8U);
  EXPECT_FALSE(header.IsComponent());
  EXPECT_FALSE(header.IsDeleted());
  header.type_level = 0xFFBF;
  EXPECT_EQ(header.Type(), 127);
  EXPECT_EQ(header.Level(), 63U);
  EXPECT_TRUE(header.IsComponent());
  EXPECT_TRUE(header.IsDeleted());
  header.type_level = 0x0040;
  EXPECT_EQ(header.Type(), 0);
  EXPECT_EQ(header.Level(), 0U);
}

TEST(EHeaderTest, SettersChangeTheirBitsAlone) {
  EHeader header(static_cast<EType>(0), 0, 0);
  EXPECT_EQ(header.type_level, 0);
  header.SetType(TextType);
  EXPECT_EQ(header.type_level, 0x1100);
  header.SetLevel(63);
  EXPECT_EQ(header.type_level, 0x113F);
  header.SetComponent(true);
  EXPECT_EQ(header.type_level, 0x11BF);
  header.SetDeleted(true);
  EXPECT_EQ(header.type_level, 0x91BF);
  header.SetType(LineType);
  header.SetLevel(1);
  EXPECT_EQ(header.type_level, 0x8381);
  header.SetComponent(false);
  header.SetDeleted(false);
  EXPECT_EQ(header.type_level, 0x0301);
  EXPECT_FALSE(header.assigned);
}

TEST(EHeaderTest, BothWordsAreReadAndWritten) {
  std::istringstream in(Words("0408 000E 1234"));
  EHeader header;
  header.read(in);
  EXPECT_EQ(in.tellg(), 4);
  EXPECT_EQ(header.type_level, 0x0408);
  EXPECT_EQ(header.words_to_follow, 14);
  EXPECT_FALSE(header.assigned);
  EXPECT_EQ(Written(header), "0408 000E");
}

TEST(EHeaderTest, ReadingKeepsTheFlag) {
  EHeader header;
  header = EHeader();
  std::istringstream in(Words("0408 000E"));
  header.read(in);
  EXPECT_TRUE(header.assigned);
}

TEST(EHeaderTest, AnEndMarkerIsReadWithoutTheSecondWord) {
  std::istringstream in(Words("FFFF 1234"));
  EHeader header(LineType, 0, 77);
  header.read(in);
  EXPECT_EQ(in.tellg(), 2);
  EXPECT_TRUE(header.IsEndOfDesign());
  EXPECT_EQ(header.words_to_follow, 77);
}

TEST(EHeaderTest, AnEndMarkerIsWrittenWithTheSecondWord) {
  EHeader header;
  header.words_to_follow = 0x1234;
  EXPECT_EQ(Written(header), "FFFF 1234");
}

TEST(EHeaderTest, ACutOffHeaderHasTheWordsThatAreWhole) {
  const std::string bytes = Words("0408 000E");
  for (std::size_t length = 0; length < 4; ++length) {
    std::istringstream in(bytes.substr(0, length));
    EHeader header(LineType, 1, 77);
    header.read(in);
    EXPECT_TRUE(in.fail()) << length;
    EXPECT_EQ(header.type_level, length < 2 ? 0x0301 : 0x0408) << length;
    EXPECT_EQ(header.words_to_follow, 77) << length;
  }
}

// --- GEHeader

TEST(GEHeaderTest, TheDefaultIsAnEndMarkerOverTheWholeSpace) {
  const GEHeader header;
  EXPECT_EQ(Written(header), "FFFF 0000 0000 0000 0000 0000 0000 0000 FFFF FFFF FFFF FFFF FFFF FFFF");
  EXPECT_FALSE(header.assigned);
}

TEST(GEHeaderTest, ACopyIsUnassignedAndAnAssignmentMarks) {
  const GEHeader header(EHeader(LineType, 8, 14), CoordsRange(1, 2, 3, 4, 5, 6));
  GEHeader target;
  target = header;
  EXPECT_TRUE(target.assigned);
  EXPECT_EQ(target.range, header.range);
  const GEHeader copy(target);
  EXPECT_FALSE(copy.assigned);
  EXPECT_EQ(copy.type_level, 0x0308);
  EXPECT_EQ(copy.range, header.range);
}

TEST(GEHeaderTest, TheRangeFollowsTheElementHeader) {
  const std::string bytes = Words("0408 000E " + std::string(kRange) + " 1234");
  std::istringstream in(bytes);
  GEHeader header;
  header.read(in);
  EXPECT_EQ(in.tellg(), 28);
  EXPECT_EQ(header.type_level, 0x0408);
  EXPECT_EQ(header.range, CoordsRange(1, 2, 3, 4, 5, 6));
  EXPECT_FALSE(header.assigned);
  EXPECT_EQ(Written(header), "0408 000E " + std::string(kRange));
}

TEST(GEHeaderTest, ReadingBehindAnElementHeaderMarks) {
  std::istringstream in(Words(kRange));
  GEHeader header;
  header.read(EHeader(LineType, 8, 14), in);
  EXPECT_EQ(in.tellg(), 24);
  EXPECT_TRUE(header.assigned);
  EXPECT_EQ(Written(header), "0308 000E " + std::string(kRange));
}

// --- DEHeader

TEST(DEHeaderTest, TheDefaultIsNewNonPlanarAndNotSnappable) {
  const DEHeader header;
  EXPECT_EQ(header.graphic_group, 0);
  EXPECT_EQ(header.attribute_index, 0);
  EXPECT_EQ(header.properties, 0x6200);
  EXPECT_EQ(header.symbology, 0);
  EXPECT_FALSE(header.assigned);
}

TEST(DEHeaderTest, AHeaderMadeFromPartsHasNoAttributes) {
  // 4 + 2 * 18 bytes end at 32 + 2 * 4.
  const DEHeader header(EHeader(LineType, 8, 18), CoordsRange(1, 2, 3, 4, 5, 6));
  EXPECT_EQ(Written(header), "0308 0012 " + std::string(kRange) + " 0000 0004 6200 0000");
  EXPECT_EQ(DEHeader(EHeader(LineType, 8, 3), CoordsRange()).attribute_index, 0);
}

TEST(DEHeaderTest, ACopyIsUnassignedAndAnAssignmentMarks) {
  DEHeader header;
  header.graphic_group = 1;
  header.attribute_index = 2;
  header.properties = 3;
  header.symbology = 4;
  DEHeader target;
  target = header;
  EXPECT_TRUE(target.assigned);
  const DEHeader copy(target);
  EXPECT_FALSE(copy.assigned);
  EXPECT_EQ(Written(copy), Written(header));
  EXPECT_EQ(Written(copy).substr(28 / 2 * 5), "0001 0002 0003 0004");
}

TEST(DEHeaderTest, FourWordsFollowTheGraphicHeader) {
  const std::string words = "0408 000E " + std::string(kRange) + " 0102 0304 0506 0708";
  std::istringstream in(Words(words + " 9999"));
  DEHeader header;
  header.read(in);
  EXPECT_EQ(in.tellg(), 36);
  EXPECT_EQ(header.graphic_group, 0x0102);
  EXPECT_EQ(header.attribute_index, 0x0304);
  EXPECT_EQ(header.properties, 0x0506);
  EXPECT_EQ(header.symbology, 0x0708);
  EXPECT_FALSE(header.assigned);
  EXPECT_EQ(Written(header), words);
}

TEST(DEHeaderTest, ReadingBehindAGraphicHeaderMarks) {
  std::istringstream in(Words("0102 0304 0506 0708"));
  DEHeader header;
  header.read(GEHeader(EHeader(LineType, 8, 14), CoordsRange(1, 2, 3, 4, 5, 6)), in);
  EXPECT_EQ(in.tellg(), 8);
  EXPECT_TRUE(header.assigned);
  EXPECT_EQ(Written(header), "0308 000E " + std::string(kRange) + " 0102 0304 0506 0708");
}

TEST(DEHeaderTest, ReadingBehindAnElementHeaderMarks) {
  std::istringstream in(Words(std::string(kRange) + " 0102 0304 0506 0708"));
  DEHeader header;
  header.read(EHeader(LineType, 8, 14), in);
  EXPECT_EQ(in.tellg(), 32);
  EXPECT_TRUE(header.assigned);
  EXPECT_EQ(Written(header), "0308 000E " + std::string(kRange) + " 0102 0304 0506 0708");
}

TEST(DEHeaderTest, ACutOffHeaderHasTheWordsThatAreWhole) {
  const std::string bytes = Words("0408 000E " + std::string(kRange) + " 0102 0304 0506 0708");
  for (std::size_t length = 28; length < 36; ++length) {
    std::istringstream in(bytes.substr(0, length));
    DEHeader header;
    header.read(in);
    EXPECT_TRUE(in.fail()) << length;
    EXPECT_EQ(header.range, CoordsRange(1, 2, 3, 4, 5, 6));
    EXPECT_EQ(header.graphic_group, length < 30 ? 0 : 0x0102) << length;
    EXPECT_EQ(header.attribute_index, length < 32 ? 0 : 0x0304) << length;
    EXPECT_EQ(header.properties, length < 34 ? 0x6200 : 0x0506) << length;
    EXPECT_EQ(header.symbology, 0) << length;
  }
}

TEST(DEHeaderTest, PropertiesHaveTheirBits) {
  DEHeader header;
  header.properties = 0xF3FF & ~0x0200;
  EXPECT_EQ(header.Class(), 15);
  EXPECT_TRUE(header.IsLocked());
  EXPECT_FALSE(header.IsNew());
  EXPECT_FALSE(header.HasAttributes());
  EXPECT_TRUE(header.IsScreenRelative());
  EXPECT_FALSE(header.IsPlanar());
  EXPECT_FALSE(header.IsSnappable());
  EXPECT_TRUE(header.IsHole());
  header.properties = 0x0A06;
  EXPECT_EQ(header.Class(), ConstructionRuleClass);
  EXPECT_FALSE(header.IsLocked());
  EXPECT_TRUE(header.IsNew());
  EXPECT_TRUE(header.HasAttributes());
  EXPECT_FALSE(header.IsScreenRelative());
  EXPECT_TRUE(header.IsPlanar());
  EXPECT_TRUE(header.IsSnappable());
  EXPECT_FALSE(header.IsHole());
  header.SetClass(DimensioningClass);
  EXPECT_EQ(header.properties, 0x0A03);
  header.SetProperty(DEHeader::kLockedBit | DEHeader::kHoleBit, true);
  EXPECT_EQ(header.properties, 0x8B03);
  header.SetProperty(DEHeader::kAttributesBit, false);
  EXPECT_EQ(header.properties, 0x8303);
}

TEST(DEHeaderTest, SymbologyHasStyleWeightAndColor) {
  DEHeader header;
  header.symbology = 0x1234;
  EXPECT_EQ(header.Color(), 0x12U);
  EXPECT_EQ(header.Weight(), 6U);
  EXPECT_EQ(header.Style(), DashDotStyle);
  header.SetSymbology(LongDashDashStyle, 31, 254);
  EXPECT_EQ(header.symbology, 0xFEFF);
}

// --- AHeader

TEST(AHeaderTest, TheDefaultIsAnEmptyUserLinkage) {
  const AHeader header;
  EXPECT_EQ(header.word, 0x1000);
  EXPECT_FALSE(header.assigned);
  EXPECT_TRUE(header.IsUser());
  EXPECT_EQ(header.Length(), 0U);
}

TEST(AHeaderTest, ACopyIsUnassignedAndAnAssignmentMarks) {
  AHeader header;
  header.word = 0x1207;
  AHeader target;
  target = header;
  EXPECT_TRUE(target.assigned);
  const AHeader copy(target);
  EXPECT_FALSE(copy.assigned);
  EXPECT_EQ(copy.word, 0x1207);
}

TEST(AHeaderTest, TheWordHasItsBits) {
  AHeader header;
  header.word = 0xAB12;
  EXPECT_EQ(header.Length(), 0x12U);
  EXPECT_EQ(header.Class(), 0xBU);
  EXPECT_FALSE(header.IsUser());
  EXPECT_TRUE(header.IsModified());
  EXPECT_FALSE(header.IsRemote());
  EXPECT_TRUE(header.IsInfo());
  header.word = 0x50FF;
  EXPECT_EQ(header.Length(), 255U);
  EXPECT_EQ(header.Class(), 0U);
  EXPECT_TRUE(header.IsUser());
  EXPECT_FALSE(header.IsModified());
  EXPECT_TRUE(header.IsRemote());
  EXPECT_FALSE(header.IsInfo());
}

TEST(AHeaderTest, TheWordIsReadAndWritten) {
  std::istringstream in(Words("1207 9999"));
  AHeader header;
  header.read(in);
  EXPECT_EQ(in.tellg(), 2);
  EXPECT_FALSE(header.assigned);
  EXPECT_EQ(Written(header), "1207");
}

}  // namespace
