#include <pelor/dgn/file.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <tests/dgn/words.h>

namespace {

using namespace Pelor::DGN;
using dgn_test::Design;
using dgn_test::InWords;
using dgn_test::TempFile;
using dgn_test::Words;

constexpr auto kIn = std::ios_base::in;
constexpr auto kUpdate = std::ios_base::in | std::ios_base::out;

constexpr const char* kRange = "8000 0001 8000 0002 8000 0003 8000 0004 8000 0005 8000 0006";

class FileAppendTest : public testing::Test {
 protected:
  FileAppendTest() { file_.Create(design_.Name(), ""); }

  // The words of the closed file from `first` on, `count` of them.
  std::string WordsAt(std::size_t first, std::size_t count) {
    file_.Close();
    return InWords(design_.Content().substr(2 * first, 2 * count));
  }

  TempFile design_;
  File file_;
};

TEST_F(FileAppendTest, AnOddSizeIsRoundedUpAndTheEndMarkerFollows) {
  file_.EAppend(EHeader(ApplicationType, 5, 99), 7);
  EXPECT_TRUE(static_cast<bool>(file_));
  EXPECT_EQ(file_.CurrentPosition(), 0);
  EXPECT_EQ(file_.NextPosition(), 12);
  EXPECT_EQ(file_.NextPositionSkippingComponents(), 12);
  EXPECT_EQ(file_.GetEHeader().words_to_follow, 4);
  EXPECT_TRUE(file_.GetEHeader().assigned);
  EXPECT_FALSE(file_.HasGraphicHeader());
  EXPECT_FALSE(file_.HasDisplayableHeader());
  file_.Close();
  EXPECT_EQ(InWords(design_.Content()), InWords(Words("4205 0004 0000*4 FFFF 0000*248 FFFF")));
}

TEST_F(FileAppendTest, TheBodyIsWrittenByTheCaller) {
  file_.EAppend(EHeader(ApplicationType, 5, 0), 4);
  file_.EBodyWPosition(0);
  file_.Write(0x12345678L);
  EXPECT_EQ(WordsAt(0, 6), "4205 0002 1234 5678 FFFF 0000");
}

TEST_F(FileAppendTest, ElementsFollowEachOther) {
  file_.EAppend(EHeader(ApplicationType, 1, 0), 2);
  file_.EBodyWPosition(0);
  file_.Write(std::uint16_t{0x1111});
  file_.EAppend(EHeader(ApplicationType, 2, 0), 4);
  EXPECT_EQ(file_.CurrentPosition(), 6);
  file_.EBodyWPosition(0);
  file_.Write(0x22222222L);
  file_.EAppend(EHeader(ApplicationType, 3, 0), 0);
  EXPECT_EQ(WordsAt(0, 11), "4201 0001 1111 4202 0002 2222 2222 4203 0000 FFFF 0000");
}

TEST_F(FileAppendTest, TheFileEndsOnTheBlockBeyondTheEndMarker) {
  // The last word of the file stands before the block border beyond next + 6, one block on when that is one.
  const auto expect_length = [this](unsigned body_bytes, std::uint64_t length) {
    file_.Create(design_.Name(), "");
    file_.EAppend(EHeader(ApplicationType, 0, 0), body_bytes);
    file_.Close();
    const std::string content = design_.Content();
    EXPECT_EQ(content.size(), length) << body_bytes;
    EXPECT_EQ(InWords(content.substr(4 + body_bytes, 2)), "FFFF") << body_bytes;
    EXPECT_EQ(InWords(content.substr(content.size() - 2)), "FFFF") << body_bytes;
  };
  expect_length(500, 512);   // next 504, next + 6 = 510
  expect_length(502, 1024);  // next 506, next + 6 = 512
  expect_length(504, 1024);
  expect_length(1012, 1024);
  expect_length(1014, 1536);
}

TEST_F(FileAppendTest, AnExistingDesignIsExtended) {
  const TempFile design(Design().Element(0x0900, "0001*16").Element(0x0501, "0002*13").End().Bytes());
  File file(design.Name(), kUpdate);
  file.EAppend(EHeader(ApplicationType, 5, 0), 4);
  EXPECT_EQ(file.CurrentPosition(), 66);
  file.EBodyWPosition(0);
  file.Write(7L);
  file.Close();
  EXPECT_EQ(InWords(design.Content()),
            InWords(Words("0900 0010 0001*16 0501 000D 0002*13 4205 0002 0000 0007 FFFF 0000*217 FFFF")));
}

TEST_F(FileAppendTest, ASeedGrowsFromItsFirstEndMarker) {
  const TempFile seed(Design().Element(0x0900, "0001*16").End().Bytes());
  file_.Create(design_.Name(), seed.Name());
  file_.EAppend(EHeader(ApplicationType, 5, 0), 0);
  EXPECT_EQ(file_.CurrentPosition(), 36);
  file_.Close();
  EXPECT_EQ(InWords(design_.Content()),
            InWords(Words("0900 0010 0001*16 4205 0000 FFFF 0000*234 FFFF | FFFF 0000*255")));
}

TEST_F(FileAppendTest, AppendingFromTheMiddleGoesToTheEnd) {
  for (unsigned level = 0; level < 5; ++level) file_.EAppend(EHeader(ApplicationType, level, 0), 40);
  file_.Restart();
  file_.EAppend(EHeader(ApplicationType, 5, 0), 40);
  EXPECT_EQ(file_.CurrentPosition(), 5 * 44);
}

TEST_F(FileAppendTest, ReadingToTheVeryEndDoesNotStopAnAppend) {
  file_.EAppend(EHeader(ApplicationType, 1, 0), 2);
  file_.seekg(0, std::ios_base::end);
  EXPECT_EQ(file_.peek(), std::char_traits<char>::eof());
  file_.EAppend(EHeader(ApplicationType, 2, 0), 2);
  EXPECT_TRUE(static_cast<bool>(file_));
  EXPECT_EQ(WordsAt(0, 7), "4201 0001 0000 4202 0001 0000 FFFF");
}

TEST_F(FileAppendTest, AGraphicElementHasItsRange) {
  file_.GEAppend(GEHeader(EHeader(GroupType, 5, 14), CoordsRange(1, 2, 3, 4, 5, 6)), 28);
  EXPECT_TRUE(file_.HasGraphicHeader());
  EXPECT_FALSE(file_.HasDisplayableHeader());
  EXPECT_EQ(file_.GEBodySize(), 4U);
  file_.GEBodyWPosition(0);
  file_.Write(7L);
  EXPECT_EQ(WordsAt(0, 18), InWords(Words("0505 000E " + std::string(kRange) + " 0000 0007 FFFF 0000")));
}

TEST_F(FileAppendTest, AGraphicHeaderKeepsItsOwnWordsToFollow) {
  file_.GEAppend(GEHeader(EHeader(GroupType, 5, 77), CoordsRange()), 28);
  EXPECT_EQ(file_.GetEHeader().words_to_follow, 14);
  EXPECT_EQ(file_.GetGEHeader().words_to_follow, 77);
  EXPECT_EQ(file_.NextPosition(), 32);
  EXPECT_EQ(WordsAt(0, 2), "0505 004D");
}

TEST_F(FileAppendTest, ADisplayableElementHasItsWordsAndAlwaysTheSameAttributeIndex) {
  DEHeader header(EHeader(LineType, 5, 24), CoordsRange(1, 2, 3, 4, 5, 6));
  header.graphic_group = 0x0102;
  header.attribute_index = 10;
  header.properties = 0x0203;
  header.symbology = 0x0405;
  file_.EAppend(EHeader(ApplicationType, 0, 0), 0);
  file_.DEAppend(header, 48);
  EXPECT_TRUE(file_.HasGraphicHeader());
  EXPECT_TRUE(file_.HasDisplayableHeader());
  EXPECT_FALSE(file_.HasAttributes());
  EXPECT_EQ(file_.GetDEHeader().attribute_index, 65516);
  EXPECT_EQ(file_.DEBodySize(true), 16U);
  EXPECT_EQ(file_.DEBodySize(false), 2 * 65516U - 4);
  EXPECT_EQ(WordsAt(2, 18), InWords(Words("0305 0018 " + std::string(kRange) + " 0102 FFEC 0203 0405")));
}

TEST_F(FileAppendTest, TheAttributeIndexOfAnAppendedElementCanBeSet) {
  DEHeader header(EHeader(LineType, 5, 26), CoordsRange());
  header.SetProperty(DEHeader::kAttributesBit, true);
  file_.DEAppend(header, 52);
  file_.GetDEHeader().attribute_index = 10;
  file_.EBodyWPosition(48);
  file_.Write(std::uint16_t{0x1001});
  file_.Write(std::uint16_t{0x1234});
  file_.Restart();
  ASSERT_TRUE(file_.HasAttributes());
  EXPECT_EQ(file_.AttributePosition(), 52);
  EXPECT_EQ(file_.GetAHeader().word, 0x1001);
}

TEST_F(FileAppendTest, WithoutASizeTheElementHeaderTellsIt) {
  file_.EAppend(EHeader(ApplicationType, 5, 3));
  EXPECT_EQ(file_.NextPosition(), 10);
  EXPECT_EQ(WordsAt(0, 7), "4205 0003 0000 0000 0000 FFFF 0000");
}

TEST_F(FileAppendTest, WithoutASizeAGraphicHeaderIs12WordsShorterAndLosesItsRange) {
  file_.GEAppend(GEHeader(EHeader(GroupType, 5, 14), CoordsRange(1, 2, 3, 4, 5, 6)));
  EXPECT_FALSE(file_.HasGraphicHeader());
  EXPECT_EQ(file_.NextPosition(), 8);
  EXPECT_EQ(WordsAt(0, 6), "0505 0002 0000 0000 FFFF 0000");
}

TEST_F(FileAppendTest, WithoutASizeADisplayableHeaderIs16WordsShorterAndLosesItsWords) {
  file_.DEAppend(DEHeader(EHeader(LineType, 5, 18), CoordsRange(1, 2, 3, 4, 5, 6)));
  EXPECT_FALSE(file_.HasGraphicHeader());
  EXPECT_FALSE(file_.HasDisplayableHeader());
  EXPECT_EQ(file_.NextPosition(), 8);
  EXPECT_EQ(WordsAt(0, 6), "0305 0002 0000 0000 FFFF 0000");
}

TEST_F(FileAppendTest, TheFilesOwnHeaderCanBeAppendedAgain) {
  DEHeader header(EHeader(LineType, 5, 24), CoordsRange(1, 2, 3, 4, 5, 6));
  file_.DEAppend(header, 48);
  file_.DEAppend(file_.GetDEHeader(), 48);
  EXPECT_EQ(file_.CurrentPosition(), 52);
  file_.EAppend(file_.GetEHeader(), 4);
  EXPECT_EQ(file_.CurrentPosition(), 104);
  EXPECT_EQ(file_.GetEHeader().Type(), LineType);
}

TEST_F(FileAppendTest, TheLargestElementFitsAndNothingLarger) {
  file_.EAppend(EHeader(ApplicationType, 0, 0), 131070);
  EXPECT_EQ(file_.GetEHeader().words_to_follow, 65535);
  EXPECT_EQ(file_.NextPosition(), 131074);
  file_.EAppend(EHeader(ApplicationType, 0, 0), 131071);
  EXPECT_TRUE(file_.fail());
  EXPECT_TRUE(file_.AtEnd());
  file_.Close();
  EXPECT_EQ(design_.Content().size(), 131584U);
}

TEST_F(FileAppendTest, AHeaderTooShortForItsKindIsNotAppended) {
  file_.DEAppend(DEHeader(EHeader(LineType, 5, 15), CoordsRange()));
  EXPECT_TRUE(file_.fail());
  EXPECT_EQ(WordsAt(0, 2), "FFFF 0000");
}

TEST_F(FileAppendTest, AFileOpenedForInputCannotBeAppendedTo) {
  const std::string bytes = Design().Element(0x0900, "0001*16").End().Bytes();
  const TempFile design(bytes);
  File file(design.Name(), kIn);
  file.EAppend(EHeader(ApplicationType, 5, 0), 4);
  EXPECT_TRUE(file.bad());
  EXPECT_TRUE(file.AtEnd());
  file.Close();
  EXPECT_EQ(design.Content(), bytes);
}

TEST_F(FileAppendTest, AClosedFileCannotBeAppendedTo) {
  File file;
  file.DEAppend(DEHeader(EHeader(LineType, 5, 24), CoordsRange()), 48);
  EXPECT_TRUE(file.bad());
  EXPECT_TRUE(file.AtEnd());
  EXPECT_EQ(file.CurrentPosition(), -1);
}

TEST_F(FileAppendTest, ADesignWithoutItsEndMarkerCannotBeAppendedTo) {
  const std::string bytes = Design().Element(0x0900, "0001*16").Bytes();
  const TempFile design(bytes);
  File file(design.Name(), kUpdate);
  file.EAppend(EHeader(ApplicationType, 5, 0), 4);
  EXPECT_TRUE(file.eof());
  EXPECT_TRUE(file.fail());
  file.Close();
  EXPECT_EQ(design.Content(), bytes);
}

TEST_F(FileAppendTest, TheMarkOfAnAppendedHeaderWritesTheEndMarkerToo) {
  // Reading the end marker keeps both the mark and the words to follow, so leaving the end by Restart writes
  // the marker with them: this behaviour is intended.
  file_.EAppend(EHeader(ApplicationType, 5, 0), 4);
  file_.Next(false);
  ASSERT_TRUE(file_.AtEnd());
  file_.Restart();
  EXPECT_EQ(WordsAt(0, 7), "4205 0002 0000 0000 FFFF 0002 0000");
}

TEST_F(FileAppendTest, ThousandsOfElementsAreWalkedAsTheyWereAppended) {
  constexpr unsigned kCount = 20000;
  for (unsigned i = 0; i < kCount; ++i) {
    file_.EAppend(EHeader(ApplicationType, i % 64, 0), 4 + 2 * (i % 7));
    file_.EBodyWPosition(0);
    file_.Write(static_cast<long>(i));
  }
  ASSERT_TRUE(file_.good());
  file_.Close();
  file_.Open(design_.Name(), kIn);
  unsigned count = 0;
  for (; file_; file_.Next(false)) {
    ASSERT_EQ(file_.GetEHeader().Level(), count % 64);
    ASSERT_EQ(file_.EBodySize(), 4 + 2 * (count % 7));
    file_.EBodyRPosition(0);
    long value = -1;
    file_.Read(value);
    ASSERT_EQ(value, count);
    ++count;
  }
  EXPECT_EQ(count, kCount);
  EXPECT_TRUE(file_.good());
}

}  // namespace
