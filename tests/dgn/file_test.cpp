#include <pelor/dgn/file.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <tests/dgn/reported.h>
#include <tests/dgn/words.h>
#include <vector>

namespace {

using namespace Pelor::DGN;
using dgn_test::Design;
using dgn_test::InWords;
using dgn_test::kDefaultRange;
using dgn_test::Reported;
using dgn_test::TempFile;
using dgn_test::Texts;
using dgn_test::Words;

constexpr auto kIn = std::ios_base::in;
constexpr auto kUpdate = std::ios_base::in | std::ios_base::out;

// A line from (1, 2) to (3, 4): 52 bytes.
constexpr const char* kLineBody = "0000 0001 0000 0002 0000 0003 0000 0004";

std::vector<std::int64_t> Offsets(File& file, bool skip_components = false) {
  std::vector<std::int64_t> offsets;
  for (file.Restart(); file; file.Next(skip_components)) offsets.push_back(file.CurrentPosition());
  return offsets;
}

using Positions = std::vector<std::int64_t>;

void ExpectClosed(const File& file) {
  EXPECT_FALSE(file.IsOpen());
  EXPECT_TRUE(file.AtEnd());
  EXPECT_FALSE(static_cast<bool>(file));
  EXPECT_EQ(file.CurrentPosition(), -1);
  EXPECT_EQ(file.NextPosition(), 0);
  EXPECT_EQ(file.NextPositionSkippingComponents(), 0);
  EXPECT_FALSE(file.IsWritable());
  EXPECT_FALSE(file.HasGraphicHeader());
  EXPECT_FALSE(file.HasDisplayableHeader());
  EXPECT_FALSE(file.HasAttributes());
}

// --- opening

TEST(FileTest, ANewFileIsClosed) {
  const File file;
  ExpectClosed(file);
  EXPECT_TRUE(file.good());
  EXPECT_TRUE(file.GetEHeader().IsEndOfDesign());
}

TEST(FileTest, OpenGoesToTheFirstElement) {
  const TempFile design(Design().Displayable(0x0308, kLineBody).End().Bytes());
  const File file(design.Name(), kIn);
  EXPECT_TRUE(static_cast<bool>(file));
  EXPECT_FALSE(file.AtEnd());
  EXPECT_FALSE(file.IsWritable());
  EXPECT_EQ(file.FileLength(), 512);
  EXPECT_EQ(file.CurrentPosition(), 0);
  EXPECT_EQ(file.NextPosition(), 52);
  EXPECT_EQ(file.NextPositionSkippingComponents(), 52);
  EXPECT_EQ(file.GetEHeader().Type(), LineType);
  EXPECT_EQ(file.GetEHeader().Level(), 8U);
  EXPECT_EQ(file.GetEHeader().words_to_follow, 24);
}

TEST(FileTest, OpenOfAnEmptyDesignIsAtEnd) {
  const TempFile design(Words("FFFF"));
  File file(design.Name(), kIn);
  EXPECT_FALSE(static_cast<bool>(file));
  EXPECT_TRUE(file.good());
  EXPECT_TRUE(file.AtEnd());
  EXPECT_EQ(file.CurrentPosition(), 0);
  EXPECT_EQ(file.NextPosition(), -1);
  EXPECT_EQ(file.NextPositionSkippingComponents(), -1);
  EXPECT_EQ(file.tellg(), 2) << "nothing but the marker is read";
}

TEST(FileTest, OpenAddsTheDefaultExtension) {
  const TempFile empty;
  const std::string base = empty.Name().substr(0, empty.Name().size() - 4);
  const TempFile upper(std::string_view{});
  std::filesystem::rename(upper.Name(), base + ".DGN");
  File file;
  file.Create(base, "");
  file.Close();
  EXPECT_EQ(std::filesystem::file_size(base + ".DGN"), 512U);
  file.Open(base, kIn);
  EXPECT_TRUE(file.IsOpen());
  file.Close();
  std::filesystem::remove(base + ".DGN");
}

TEST(FileTest, OpenOfAMissingFileShowsInTheState) {
  const TempFile missing;
  File file(missing.Name(), kIn);
  EXPECT_TRUE(file.fail());
  ExpectClosed(file);
  file.Next(false);
  EXPECT_FALSE(std::filesystem::exists(missing.Name()));
}

TEST(FileTest, OpenOfADirectoryShowsInTheState) {
  File file(std::filesystem::temp_directory_path().string() + "/.", kIn);
  EXPECT_TRUE(file.fail());
  ExpectClosed(file);
}

TEST(FileTest, OpenAfterAFailureStartsAfresh) {
  const TempFile missing;
  const TempFile design(Design().Displayable(0x0308, kLineBody).End().Bytes());
  File file(missing.Name(), kIn);
  file.Open(design.Name(), kIn);
  EXPECT_TRUE(static_cast<bool>(file));
}

TEST(FileTest, OpenClosesTheFileBefore) {
  const TempFile first(Design().Displayable(0x0308, kLineBody).End().Bytes());
  const TempFile second(Design().Element(0x0900, "0001").End().Bytes());
  File file(first.Name(), kUpdate);
  file.GetDEHeader().graphic_group = 7;
  file.Open(second.Name(), kIn);
  EXPECT_EQ(InWords(first.Content().substr(28, 2)), "0007");
  EXPECT_EQ(file.GetEHeader().Type(), DesignHeaderType);
  EXPECT_FALSE(file.IsWritable());
}

TEST(FileTest, AFileOpenedForOutputAloneStartsEmpty) {
  const TempFile design(Design().Displayable(0x0308, kLineBody).End().Bytes());
  File file(design.Name(), std::ios_base::out);
  EXPECT_TRUE(file.IsWritable());
  EXPECT_FALSE(static_cast<bool>(file));
  file.Close();
  EXPECT_EQ(design.Content(), "");
}

// --- creating

TEST(FileTest, CreateGivesOneBlockWithTheEndMarker) {
  const TempFile design;
  File file;
  file.Create(design.Name(), "");
  EXPECT_TRUE(file.good());
  EXPECT_TRUE(file.AtEnd());
  EXPECT_TRUE(file.IsWritable());
  EXPECT_EQ(file.CurrentPosition(), 0);
  EXPECT_EQ(file.FileLength(), 512);
  file.Close();
  EXPECT_EQ(InWords(design.Content()), InWords(Words("FFFF 0000*255")));
}

TEST(FileTest, CreateReplacesWhatWasThere) {
  const TempFile design(std::string(5000, 'x'));
  File file;
  file.Create(design.Name(), "");
  file.Close();
  EXPECT_EQ(InWords(design.Content()), InWords(Words("FFFF 0000*255")));
}

TEST(FileTest, CreateCopiesTheSeedAndPutsAnEndMarkerBehindIt) {
  const std::string bytes = Design().Displayable(0x0308, kLineBody).End().Bytes();
  ASSERT_EQ(bytes.size(), 512U);
  const TempFile seed(bytes);
  const TempFile design;
  File file;
  file.Create(design.Name(), seed.Name());
  EXPECT_TRUE(static_cast<bool>(file));
  EXPECT_EQ(file.GetEHeader().Type(), LineType);
  EXPECT_TRUE(file.HasDisplayableHeader());
  file.Close();
  EXPECT_EQ(InWords(design.Content()), InWords(bytes + Words("FFFF 0000*255")));
  EXPECT_EQ(seed.Content(), bytes);
}

TEST(FileTest, CreatePadsAfterAnUnevenSeed) {
  const TempFile seed(std::string(510, '\x01'));
  const TempFile longer(std::string(20000, '\x01'));
  const TempFile design;
  File file;
  file.Create(design.Name(), seed.Name());
  file.Close();
  EXPECT_EQ(InWords(design.Content()), InWords(std::string(510, '\x01') + Words("FFFF")));
  file.Create(design.Name(), longer.Name());
  file.Close();
  EXPECT_EQ(InWords(design.Content()),
            InWords(std::string(20000, '\x01') + Words("FFFF") + std::string(478, '\0')));
}

TEST(FileTest, CreateWithoutItsSeedCreatesNothing) {
  const TempFile missing;
  const TempFile design;
  File file;
  file.Create(design.Name(), missing.Name());
  EXPECT_TRUE(file.fail());
  ExpectClosed(file);
  EXPECT_FALSE(std::filesystem::exists(design.Name()));
}

TEST(FileTest, ADesignIsNotItsOwnSeed) {
  const std::string bytes = Design().Displayable(0x0308, kLineBody).End().Bytes();
  const TempFile design(bytes);
  File file;
  file.Create(design.Name(), design.Name());
  EXPECT_TRUE(file.fail());
  EXPECT_EQ(design.Content(), bytes);
}

TEST(FileTest, CreateWhereNothingCanBeCreatedShowsInTheState) {
  File file;
  file.Create("/no_such_folder/x.dgn", "");
  EXPECT_TRUE(file.fail());
  ExpectClosed(file);
}

// --- walking

TEST(FileTest, NextVisitsEveryElement) {
  const TempFile design(Design()
                            .Element(0x0900, "0001*14")
                            .Displayable(0x0308, kLineBody)
                            .Element(0x4200, "0002*20")
                            .End()
                            .Bytes());
  File file(design.Name(), kIn);
  EXPECT_EQ(Offsets(file), (Positions{0, 32, 84}));
  EXPECT_TRUE(file.good());
  EXPECT_TRUE(file.AtEnd());
  EXPECT_EQ(file.CurrentPosition(), 128);
}

TEST(FileTest, NextAtTheEndMarkerDoesNothing) {
  const TempFile design(Design().Displayable(0x0308, kLineBody).End().Bytes());
  File file(design.Name(), kIn);
  file.Next(false);
  ASSERT_TRUE(file.AtEnd());
  const auto position = file.tellg();
  file.Next(false);
  file.Next(true);
  EXPECT_TRUE(file.good());
  EXPECT_TRUE(file.AtEnd());
  EXPECT_EQ(file.CurrentPosition(), 52);
  EXPECT_EQ(file.tellg(), position);
  EXPECT_FALSE(file.HasGraphicHeader());
  EXPECT_FALSE(file.HasDisplayableHeader());
}

TEST(FileTest, NegationIsTheOppositeOfTheTest) {
  const TempFile design(Design().Displayable(0x0308, kLineBody).End().Bytes());
  File file(design.Name(), kIn);
  EXPECT_FALSE(!file);
  file.Next(false);
  EXPECT_TRUE(!file) << "at the end of a stream that is good";
  file.Restart();
  file.setstate(std::ios_base::eofbit);
  EXPECT_TRUE(!file);
}

TEST(FileTest, RestartAndPositionLeaveTheEnd) {
  const TempFile design(Design().Displayable(0x0308, kLineBody).Displayable(0x0309, kLineBody).End().Bytes());
  File file(design.Name(), kIn);
  file.Next(false);
  file.Next(false);
  ASSERT_TRUE(file.AtEnd());
  file.Restart();
  EXPECT_EQ(file.CurrentPosition(), 0);
  EXPECT_TRUE(static_cast<bool>(file));
  file.Position(52);
  EXPECT_EQ(file.GetEHeader().Level(), 9U);
  EXPECT_EQ(file.NextPosition(), 104);
}

TEST(FileTest, AnElementWithoutWordsAdvancesByFour) {
  const TempFile design(Design().Element(0x4200, "").Element(0x4200, "").End().Bytes());
  File file(design.Name(), kIn);
  EXPECT_EQ(Offsets(file), (Positions{0, 4}));
  EXPECT_TRUE(file.good());
  EXPECT_EQ(file.CurrentPosition(), 8);
}

TEST(FileTest, TheGraphicHeaderIsReadWhateverTheType) {
  const TempFile design(Design().Element(0x4200, "0001").Element(0x0501, "").End().Bytes());
  File file(design.Name(), kIn);
  EXPECT_TRUE(file.HasGraphicHeader());
  EXPECT_FALSE(file.HasDisplayableHeader());
  EXPECT_EQ(file.GetGEHeader().words_to_follow, 1);
  // The element's word and the next element's first, in range form.
  EXPECT_EQ(file.GetGEHeader().range.xlow, static_cast<std::int32_t>(0x80010501));
}

TEST(FileTest, ShortElementsAtTheVeryEndOfAFileHaveNoHeadersThere) {
  const TempFile design(Design().Element(0x0301, "0001").Element(0x4200, "").Raw(Words("FFFF")).Bytes());
  ASSERT_EQ(design.Content().size(), 12U);
  File file(design.Name(), kIn);
  EXPECT_TRUE(static_cast<bool>(file));
  EXPECT_FALSE(file.HasGraphicHeader());
  EXPECT_FALSE(file.HasDisplayableHeader());
  EXPECT_EQ(Offsets(file), (Positions{0, 6}));
  EXPECT_TRUE(file.good());
  EXPECT_TRUE(file.AtEnd());
}

TEST(FileTest, TheHeadersOfADisplayableElementAreRead) {
  const TempFile design(
      Design()
          .Element(0x0388, "8000 0001 8000 0002 8000 0003 8000 0004 8000 0005 8000 0006 0007 0004 0201 0809")
          .End()
          .Bytes());
  File file(design.Name(), kIn);
  EXPECT_TRUE(file.HasGraphicHeader());
  EXPECT_TRUE(file.HasDisplayableHeader());
  EXPECT_FALSE(file.HasAttributes());
  EXPECT_EQ(file.GetGEHeader().range, CoordsRange(1, 2, 3, 4, 5, 6));
  EXPECT_EQ(file.GetDEHeader().range, CoordsRange(1, 2, 3, 4, 5, 6));
  EXPECT_EQ(file.GetDEHeader().type_level, 0x0388);
  EXPECT_EQ(file.GetDEHeader().graphic_group, 7);
  EXPECT_EQ(file.GetDEHeader().attribute_index, 4);
  EXPECT_EQ(file.GetDEHeader().properties, 0x0201);
  EXPECT_EQ(file.GetDEHeader().symbology, 0x0809);
  EXPECT_TRUE(file.GetGEHeader().assigned);
  EXPECT_TRUE(file.GetDEHeader().assigned);
  EXPECT_FALSE(file.GetEHeader().assigned);
  EXPECT_EQ(file.tellg(), 36);
}

TEST(FileTest, TheDisplayableHeaderOfANonGraphicElementIsReported) {
  const TempFile design(Design().Element(0x0900, "0001*20").End().Bytes());
  File file(design.Name(), kIn);
  EXPECT_EQ(Reported([&] { file.GetDEHeader(); }), Texts{"Element is not displayable"});
  EXPECT_EQ(Reported([&] { file.GetGEHeader(); }), Texts{});
  EXPECT_EQ(file.tellg(), 28);
}

// --- complex elements

// A cell header whose word 18 is given, 40 words behind it, and a line.
std::string Cell(const char* description_words) {
  return Design()
      .Displayable(0x0201, std::string(description_words) + " 0000*3")
      .Element(0x0381, "0001*18")
      .Element(0x0481, "0001*15")
      .Displayable(0x0308, kLineBody)
      .End()
      .Bytes();
}

TEST(FileTest, NextSkipsTheComponentsOfAComplexElement) {
  // 40 words: the description reaches from byte 38 over the cell's own 3 words and two components.
  const TempFile design(Cell("0028"));
  File file(design.Name(), kIn);
  EXPECT_EQ(file.NextPosition(), 44);
  EXPECT_EQ(file.NextPositionSkippingComponents(), 38 + 80);
  EXPECT_EQ(file.tellg(), 38);
  EXPECT_EQ(Offsets(file, true), (Positions{0, 118}));
  EXPECT_EQ(Offsets(file), (Positions{0, 44, 84, 118}));
  EXPECT_TRUE(file.good());
}

TEST(FileTest, ADescriptionOf0WordsContinuesAtTheNextElement) {
  const TempFile design(Cell("0000"));
  File file(design.Name(), kIn);
  EXPECT_EQ(file.NextPositionSkippingComponents(), 44);
  EXPECT_EQ(Offsets(file, true), (Positions{0, 44, 84, 118}));
}

TEST(FileTest, ComplexElementsOfUnknownTypeHaveADescriptionToo) {
  const TempFile design(
      Design().Element(0x5700, std::string(kDefaultRange) + " 0000*4 0005 0000*5").End().Bytes());
  const File file(design.Name(), kIn);
  EXPECT_FALSE(file.HasDisplayableHeader());
  EXPECT_EQ(file.NextPositionSkippingComponents(), 48);
  EXPECT_EQ(file.NextPosition(), 48);
}

TEST(FileTest, ADescriptionBeyondTheFileEndsTheWalkInTheState) {
  const TempFile design(Cell("FFFF"));
  File file(design.Name(), kIn);
  file.Next(true);
  EXPECT_TRUE(file.eof());
  EXPECT_TRUE(file.fail());
  EXPECT_FALSE(static_cast<bool>(file));
}

// --- positions

TEST(FileTest, PositionsAreRelativeToTheBodies) {
  const TempFile design(Design().Element(0x4200, "").Displayable(0x0308, kLineBody).End().Bytes());
  File file(design.Name(), kUpdate);
  file.Next(false);
  ASSERT_EQ(file.CurrentPosition(), 4);
  const auto position = [&file](void (File::*seek)(long), long offset) {
    (file.*seek)(offset);
    EXPECT_EQ(file.tellg(), file.tellp()) << "one joint position";
    return static_cast<long>(file.tellg());
  };
  EXPECT_EQ(position(&File::EBodyRPosition, 3), 4 + 4 + 3);
  EXPECT_EQ(position(&File::EBodyWPosition, 3), 4 + 4 + 3);
  EXPECT_EQ(position(&File::GEBodyRPosition, 5), 4 + 28 + 5);
  EXPECT_EQ(position(&File::GEBodyWPosition, -5), 4 + 28 - 5);
  EXPECT_EQ(position(&File::DEBodyRPosition, 0), 4 + 36);
  EXPECT_EQ(position(&File::DEBodyWPosition, 16), 4 + 36 + 16);
  EXPECT_TRUE(file.good());
}

TEST(FileTest, PositionsAtTheEndAreReportedAndSeekNothing) {
  const TempFile design(Words("FFFF 0000*255"));
  File file(design.Name(), kUpdate);
  const auto before = file.tellg();
  for (const auto seek :
       {&File::EBodyRPosition, &File::EBodyWPosition, &File::GEBodyRPosition, &File::GEBodyWPosition,
        &File::DEBodyRPosition, &File::DEBodyWPosition, &File::AttrRPosition, &File::ABodyRPosition}) {
    EXPECT_EQ(Reported([&] { (file.*seek)(8); }), Texts{"End of File"});
    EXPECT_EQ(file.tellg(), before);
  }
  EXPECT_EQ(Reported([&] { EXPECT_FALSE(file.NextAttribute()); }), Texts{"End of File"});
}

TEST(FileTest, DisplayablePositionsOfOtherElementsAreReported) {
  const TempFile design(Design().Element(0x0900, "0001*20").End().Bytes());
  File file(design.Name(), kUpdate);
  const auto before = file.tellg();
  EXPECT_EQ(Reported([&] { file.DEBodyRPosition(0); }), Texts{"Element is not displayable"});
  EXPECT_EQ(Reported([&] { file.DEBodyWPosition(0); }), Texts{"Element is not displayable"});
  EXPECT_EQ(file.tellg(), before);
}

TEST(FileTest, PositionsOutsideAnyFileShowInTheState) {
  const TempFile design(Design().Displayable(0x0308, kLineBody).End().Bytes());
  File file(design.Name(), kIn);
  file.EBodyRPosition(-5);
  EXPECT_TRUE(file.fail());
  file.clear();
  file.EBodyRPosition(std::numeric_limits<long>::max());
  EXPECT_TRUE(file.fail());
  file.clear();
  file.Position(-1);
  EXPECT_TRUE(file.fail());
}

// --- attributes

// A line with three linkages of 1, 0 and 2 words: attribute index 10, 52 + 4 + 2 + 6 bytes.
std::string Attributed(const char* index = "000A") {
  return Design()
      .Element(0x0308, std::string(kDefaultRange) + " 0000 " + index + " 0A00 0000 " + kLineBody +
                           " 1001 1234 3500 8002 5678 9ABC")
      .Displayable(0x0309, kLineBody)
      .End()
      .Bytes();
}

TEST(FileTest, AttributesAreWalked) {
  const TempFile design(Attributed());
  File file(design.Name(), kIn);
  ASSERT_TRUE(file.HasAttributes());
  EXPECT_EQ(file.AttributePosition(), 52);
  EXPECT_EQ(file.tellg(), 54);
  EXPECT_EQ(file.GetAHeader().word, 0x1001);
  EXPECT_EQ(file.ABodySize(), 2U);
  EXPECT_TRUE(file.NextAttribute());
  EXPECT_EQ(file.AttributePosition(), 56);
  EXPECT_EQ(file.GetAHeader().word, 0x3500);
  EXPECT_EQ(file.ABodySize(), 0U);
  EXPECT_TRUE(file.NextAttribute());
  EXPECT_EQ(file.AttributePosition(), 58);
  EXPECT_EQ(file.GetAHeader().word, 0x8002);
  file.ABodyRPosition(2);
  unsigned short word = 0;
  file.Read(word);
  EXPECT_EQ(word, 0x9ABC);
  EXPECT_FALSE(file.NextAttribute());
  EXPECT_FALSE(file.HasAttributes());
  EXPECT_EQ(Reported([&] { EXPECT_FALSE(file.NextAttribute()); }), Texts{"Element has no attributes"});
  EXPECT_TRUE(file.good());
}

TEST(FileTest, AttrRPositionSetsTheAttributePosition) {
  const TempFile design(Attributed());
  File file(design.Name(), kIn);
  file.AttrRPosition(4);
  EXPECT_EQ(file.tellg(), 56);
  EXPECT_EQ(file.AttributePosition(), 56);
  EXPECT_EQ(file.GetAHeader().word, 0x1001) << "the header is not read";
  file.ABodyRPosition(1);
  EXPECT_EQ(file.tellg(), 59);
}

TEST(FileTest, AnElementWithoutAttributesReportsTheAskingForThem) {
  const TempFile design(Design().Displayable(0x0308, kLineBody).End().Bytes());
  File file(design.Name(), kIn);
  const Texts expected{"Element has no attributes"};
  EXPECT_EQ(Reported([&] { file.GetAHeader(); }), expected);
  EXPECT_EQ(Reported([&] { file.AttrRPosition(0); }), expected);
  EXPECT_EQ(Reported([&] { file.ABodyRPosition(0); }), expected);
  EXPECT_EQ(Reported([&] { EXPECT_FALSE(file.NextAttribute()); }), expected);
  EXPECT_EQ(Reported([&] { EXPECT_EQ(file.ABodySize(), 0U); }), expected);
}

TEST(FileTest, AttributesThatBeginBehindTheElementAreNotThere) {
  // Byte 64 is the element's end.
  for (const char* index : {"0010", "0011", "FFEC", "FFFF"}) {
    const TempFile design(Attributed(index));
    File file(design.Name(), kIn);
    EXPECT_FALSE(file.HasAttributes()) << index;
    EXPECT_TRUE(file.HasDisplayableHeader());
    EXPECT_EQ(Reported([&] { file.GetAHeader(); }), Texts{"Element has no attributes"});
    file.Next(false);
    EXPECT_EQ(file.CurrentPosition(), 64);
    EXPECT_TRUE(static_cast<bool>(file));
  }
}

TEST(FileTest, AttributesThatBeginInTheHeadersAreWalkedAsTheyStand) {
  const TempFile design(Attributed("0000"));
  File file(design.Name(), kIn);
  EXPECT_EQ(file.AttributePosition(), 32);
  int count = 1;
  while (file.NextAttribute()) ++count;
  // Byte 32 tells no words; from there every zero word is an empty linkage, up to 0001, which takes two
  // words.
  EXPECT_LE(count, 16);
  EXPECT_TRUE(file.good());
}

TEST(FileTest, ALinkageThatReachesBeyondItsElementIsTheLast) {
  std::string bytes = Attributed();
  bytes[52] = '\xFF';
  const TempFile design(bytes);
  File file(design.Name(), kIn);
  EXPECT_EQ(file.ABodySize(), 510U);
  EXPECT_FALSE(file.NextAttribute());
  EXPECT_TRUE(file.good());
}

// --- writing headers back

TEST(FileTest, HeadersOfVisitedElementsAreWrittenBackAsTheCallerChangedThem) {
  std::string bytes = Design()
                          .Element(0x4200, "0001*20")
                          .Displayable(0x0308, kLineBody)
                          .Displayable(0x0309, kLineBody)
                          .End()
                          .Bytes();
  const TempFile design(bytes);
  {
    File file(design.Name(), kUpdate);
    file.GetGEHeader().range = CoordsRange(1, 2, 3, 4, 5, 6);
    file.Next(false);
    file.GetDEHeader().SetLevel(63);
    file.GetDEHeader().symbology = 0x1234;
    file.Next(false);
    DEHeader header = file.GetDEHeader();
    header.graphic_group = 9;
    file.GetDEHeader() = header;
  }
  bytes.replace(4, 24, Words("8000 0001 8000 0002 8000 0003 8000 0004 8000 0005 8000 0006"));
  bytes.replace(44, 2, Words("033F"));
  bytes.replace(44 + 34, 2, Words("1234"));
  bytes.replace(96 + 28, 2, Words("0009"));
  EXPECT_EQ(InWords(design.Content()), InWords(bytes));
}

TEST(FileTest, TheFirstHeaderThatAppliesIsWritten) {
  std::string bytes = Design().Displayable(0x0308, kLineBody).End().Bytes();
  const TempFile design(bytes);
  {
    File file(design.Name(), kUpdate);
    file.GetEHeader() = EHeader(TextType, 1, 2);
    file.GetGEHeader().range = CoordsRange(1, 2, 3, 4, 5, 6);
  }
  EXPECT_EQ(InWords(design.Content()), InWords(bytes)) << "the displayable header holds the old words";
  {
    File file(design.Name(), kUpdate);
    file.GetGEHeader().range = CoordsRange(1, 2, 3, 4, 5, 6);
    file.GetDEHeader().assigned = false;
  }
  bytes.replace(4, 24, Words("8000 0001 8000 0002 8000 0003 8000 0004 8000 0005 8000 0006"));
  EXPECT_EQ(InWords(design.Content()), InWords(bytes)) << "the graphic header is the next";
  {
    File file(design.Name(), kUpdate);
    file.GetEHeader() = EHeader(TextType, 1, 24);
    file.GetGEHeader().assigned = false;
    file.GetDEHeader().assigned = false;
  }
  bytes.replace(0, 4, Words("1101 0018"));
  EXPECT_EQ(InWords(design.Content()), InWords(bytes)) << "the element header is the last";
  {
    File file(design.Name(), kUpdate);
    file.GetEHeader().type_level = 0x0101;
    file.GetGEHeader().assigned = false;
    file.GetDEHeader().assigned = false;
  }
  EXPECT_EQ(InWords(design.Content()), InWords(bytes)) << "unassigned headers are not written";
}

TEST(FileTest, FlushWritesAndKeepsTheFlags) {
  const TempFile design(Design().Displayable(0x0308, kLineBody).End().Bytes());
  File file(design.Name(), kUpdate);
  file.GetDEHeader().symbology = 1;
  file.Flush();
  EXPECT_EQ(InWords(design.Content().substr(34, 2)), "0001");
  EXPECT_TRUE(file.GetDEHeader().assigned);
  file.GetDEHeader().symbology = 2;
  file.Flush();
  EXPECT_EQ(InWords(design.Content().substr(34, 2)), "0002");
}

TEST(FileTest, AFileOpenedForInputIsNotWritten) {
  const std::string bytes = Design().Displayable(0x0308, kLineBody).End().Bytes();
  const TempFile design(bytes);
  File file(design.Name(), kIn);
  file.GetDEHeader() = DEHeader();
  file.Flush();
  EXPECT_TRUE(file.good());
  file.Next(false);
  EXPECT_TRUE(file.good());
  file.Close();
  EXPECT_EQ(design.Content(), bytes);
}

TEST(FileTest, AWalkInAWritableFileChangesNothing) {
  const std::string bytes = Cell("0028") + Attributed();
  const TempFile design(bytes);
  File file(design.Name(), kUpdate);
  EXPECT_EQ(Offsets(file), (Positions{0, 44, 84, 118}));
  file.Position(512);
  while (file) file.Next(false);
  file.Close();
  EXPECT_EQ(InWords(design.Content()), InWords(bytes));
}

TEST(FileTest, ClosingLeavesNoHeaderForTheNextFile) {
  const std::string bytes = Words("FFFF 0000*255");
  const TempFile first(Design().Displayable(0x0308, kLineBody).End().Bytes());
  const TempFile second(bytes);
  File file(first.Name(), kUpdate);
  file.GetEHeader() = EHeader(TextType, 1, 24);
  file.Close();
  ExpectClosed(file);
  EXPECT_TRUE(file.good());
  file.Open(second.Name(), kUpdate);
  file.Flush();
  EXPECT_TRUE(file.good());
  file.Create(second.Name(), "");
  EXPECT_TRUE(file.good());
  file.Close();
  EXPECT_EQ(InWords(second.Content()), InWords(bytes));
}

TEST(FileTest, ClosingTwiceIsHarmless) {
  const TempFile design(Design().Displayable(0x0308, kLineBody).End().Bytes());
  File file(design.Name(), kIn);
  file.Close();
  file.Close();
  EXPECT_TRUE(file.good());
  ExpectClosed(file);
}

TEST(FileTest, ReadingToTheVeryEndDoesNotStopTheWalk) {
  const TempFile design(Design().Displayable(0x0308, kLineBody).End().Bytes());
  File file(design.Name(), kIn);
  file.seekg(0, std::ios_base::end);
  EXPECT_EQ(file.peek(), std::char_traits<char>::eof());
  EXPECT_TRUE(file.eof());
  EXPECT_FALSE(static_cast<bool>(file));
  file.Next(false);
  EXPECT_TRUE(file.good());
  EXPECT_TRUE(file.AtEnd());
}

TEST(FileTest, AFailedFileMovesNoFurther) {
  const TempFile design(Design().Displayable(0x0308, kLineBody).Displayable(0x0309, kLineBody).End().Bytes());
  File file(design.Name(), kUpdate);
  file.setstate(std::ios_base::failbit);
  file.Next(false);
  EXPECT_TRUE(file.fail());
  EXPECT_FALSE(file.HasDisplayableHeader());
  file.clear();
  file.Next(false);
  EXPECT_EQ(file.CurrentPosition(), 52);
  EXPECT_TRUE(static_cast<bool>(file));
}

// --- large files

void ExpectWalkAcross(std::int64_t offset) {
  const TempFile design(Design().Displayable(0x0308, kLineBody).End().Bytes());
  std::filesystem::resize_file(design.Name(), static_cast<std::uintmax_t>(offset));
  {
    File file(design.Name(), kUpdate);
    EXPECT_EQ(file.FileLength(), offset);
    // Two elements by hand at the end of a sparse file.
    file.seekp(offset);
    const std::string tail =
        Design().Displayable(0x0208, "0020 0000*3").Displayable(0x0388, kLineBody).End().Bytes();
    file.write(tail.data(), static_cast<std::streamsize>(tail.size()));
  }
  File file(design.Name(), kUpdate);
  file.Position(offset);
  EXPECT_EQ(file.GetEHeader().Type(), CellHeaderType);
  EXPECT_EQ(file.NextPosition(), offset + 44);
  EXPECT_EQ(file.NextPositionSkippingComponents(), offset + 38 + 64);
  file.Next(false);
  EXPECT_EQ(file.CurrentPosition(), offset + 44);
  file.DEBodyRPosition(12);
  long y = 0;
  file.Read(y);
  EXPECT_EQ(y, 4);
  file.EAppend(EHeader(ApplicationType, 0, 0), 40);
  EXPECT_EQ(file.CurrentPosition(), offset + 96);
  file.Close();
  file.Open(design.Name(), kIn);
  EXPECT_EQ(file.FileLength() % 512, 0);
  file.Position(offset + 96);
  EXPECT_EQ(file.GetEHeader().Type(), ApplicationType);
  file.Next(false);
  EXPECT_TRUE(file.good());
  EXPECT_TRUE(file.AtEnd());
}

TEST(FileTest, OffsetsBeyond2And4GigabytesWork) {
  ExpectWalkAcross((std::int64_t{1} << 31U) - 8);
  ExpectWalkAcross((std::int64_t{1} << 32U) - 8);
  ExpectWalkAcross((std::int64_t{1} << 33U) + 512);
}

}  // namespace
