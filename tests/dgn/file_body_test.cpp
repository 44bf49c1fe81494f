#include <pelor/dgn/file.h>

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <numeric>
#include <sstream>
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

constexpr const char* kHead =
    "OFFSET | 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F\n"
    "---------------------------------------------------------------\n";

// Four words of body, a linkage of one word and one of none: 36 + 8 + 4 + 2 bytes.
constexpr const char* kElementWords = "0000*6 FFFF*6 0000 0006 0A00 0000 1111 2222 3333 4444 1001 5555 2000";

std::string OneElement() {
  return Design().Element(0x0308, kElementWords).Element(0x4200, "7777*30").End().Bytes();
}

// What a body function moves into a buffer of `size` bytes, in words.
std::string Got(unsigned size, const std::function<void(void*)>& read) {
  std::string bytes(size, '?');
  read(bytes.data());
  return InWords(bytes);
}

// --- whole bodies

TEST(FileBodyTest, SizesFollowFromTheHeaders) {
  const TempFile design(OneElement());
  const File file(design.Name(), kIn);
  EXPECT_EQ(file.EBodySize(), 46U);
  EXPECT_EQ(file.GEBodySize(), 22U);
  EXPECT_EQ(file.DEBodySize(true), 14U);
  EXPECT_EQ(file.DEBodySize(false), 8U);
  EXPECT_EQ(file.ABodySize(), 2U);
}

TEST(FileBodyTest, HeadersThatLeaveNoBodyGiveNoSize) {
  const TempFile design(
      Design().Element(0x0300, "0000*12 0000 0001 0000 0000").Element(0x0300, "0000*5").End().Bytes());
  File file(design.Name(), kIn);
  EXPECT_EQ(file.GEBodySize(), 8U);
  EXPECT_EQ(file.DEBodySize(true), 0U);
  EXPECT_EQ(file.DEBodySize(false), 0U);
  file.Next(false);
  EXPECT_EQ(file.GEBodySize(), 0U);
  EXPECT_EQ(file.DEBodySize(true), 0U);
}

TEST(FileBodyTest, SizesOfWhatIsNotThereAreReported) {
  const TempFile design(Design().Element(0x0900, "0001*20").End().Bytes());
  File file(design.Name(), kIn);
  EXPECT_EQ(file.EBodySize(), 40U);
  EXPECT_EQ(file.GEBodySize(), 16U);
  EXPECT_EQ(Reported([&] { EXPECT_EQ(file.DEBodySize(true), 0U); }), Texts{"Element is not displayable"});
  EXPECT_EQ(Reported([&] { EXPECT_EQ(file.DEBodySize(false), 0U); }), Texts{"Element is not displayable"});
  EXPECT_EQ(Reported([&] { EXPECT_EQ(file.ABodySize(), 0U); }), Texts{"Element has no attributes"});
}

TEST(FileBodyTest, BodiesAreRead) {
  const TempFile design(OneElement());
  File file(design.Name(), kIn);
  EXPECT_EQ(Got(46, [&](void* to) { file.ReadEBody(to); }), InWords(Words(kElementWords)));
  EXPECT_EQ(Got(22, [&](void* to) { file.ReadGEBody(to); }),
            "0000 0006 0A00 0000 1111 2222 3333 4444 1001 5555 2000");
  EXPECT_EQ(Got(14, [&](void* to) { file.ReadDEBody(to, true); }), "1111 2222 3333 4444 1001 5555 2000");
  EXPECT_EQ(Got(8, [&](void* to) { file.ReadDEBody(to, false); }), "1111 2222 3333 4444");
  EXPECT_EQ(Got(2, [&](void* to) { file.ReadABody(to); }), "5555");
  EXPECT_TRUE(file.good());
}

TEST(FileBodyTest, BodiesAreWritten) {
  const auto written = [](const std::string& words, const std::function<void(File&, const void*)>& write) {
    const TempFile design(OneElement());
    {
      File file(design.Name(), kUpdate);
      write(file, Words(words).data());
      EXPECT_TRUE(file.good());
    }
    return InWords(design.Content().substr(28, 24));
  };
  const std::string whole = "0001 0006 0A01 0001 AAAA BBBB CCCC DDDD 1001 EEEE 2000";
  // The headers that were read go back over what is written into them.
  EXPECT_EQ(written("0000*6 FFFF*6 " + whole, [](File& f, const void* from) { f.WriteEBody(from); }),
            "0000 0006 0A00 0000 AAAA BBBB CCCC DDDD 1001 EEEE 2000 4200");
  EXPECT_EQ(written(whole, [](File& f, const void* from) { f.WriteGEBody(from); }),
            "0000 0006 0A00 0000 AAAA BBBB CCCC DDDD 1001 EEEE 2000 4200");
  EXPECT_EQ(written("AAAA BBBB CCCC DDDD 1001 EEEE 2000",
                    [](File& f, const void* from) { f.WriteDEBody(from, true); }),
            "0000 0006 0A00 0000 AAAA BBBB CCCC DDDD 1001 EEEE 2000 4200");
  EXPECT_EQ(written("AAAA BBBB CCCC DDDD", [](File& f, const void* from) { f.WriteDEBody(from, false); }),
            "0000 0006 0A00 0000 AAAA BBBB CCCC DDDD 1001 5555 2000 4200");
  EXPECT_EQ(written("EEEE", [](File& f, const void* from) { f.WriteABody(from); }),
            "0000 0006 0A00 0000 1111 2222 3333 4444 1001 EEEE 2000 4200");
}

TEST(FileBodyTest, BodiesAreDumped) {
  const TempFile design(OneElement());
  File file(design.Name(), kIn);
  const auto dumped = [](const std::function<void(std::ostream&)>& dump) {
    std::ostringstream out;
    dump(out);
    return out.str();
  };
  const std::string head(kHead);
  EXPECT_EQ(dumped([&](std::ostream& out) { file.DumpEBody(out); }),
            head +
                " 00000000 :   00 00 00 00 00 00 00 00   00 00 00 00 ff ff ff ff\n"
                " 00000010 :   ff ff ff ff ff ff ff ff   00 00 06 00 00 0a 00 00\n"
                " 00000020 :   11 11 22 22 33 33 44 44   01 10 55 55 00 20\n");
  EXPECT_EQ(dumped([&](std::ostream& out) { file.DumpGEBody(out); }),
            head +
                " 00000000 :   00 00 06 00 00 0a 00 00   11 11 22 22 33 33 44 44\n"
                " 00000010 :   01 10 55 55 00 20\n");
  EXPECT_EQ(dumped([&](std::ostream& out) { file.DumpDEBody(out, true); }),
            head + " 00000000 :   11 11 22 22 33 33 44 44   01 10 55 55 00 20\n");
  EXPECT_EQ(dumped([&](std::ostream& out) { file.DumpDEBody(out, false); }),
            head + " 00000000 :   11 11 22 22 33 33 44 44\n");
  EXPECT_EQ(dumped([&](std::ostream& out) { file.DumpABody(out); }), head + " 00000000 :   55 55\n");
}

TEST(FileBodyTest, AtTheEndPlainBodiesDoNothing) {
  const TempFile design(Words("FFFF 0000*255"));
  File file(design.Name(), kUpdate);
  std::ostringstream out;
  const auto reported = Reported([&] {
    EXPECT_EQ(Got(2, [&](void* to) { file.ReadEBody(to); }), "3F3F");
    EXPECT_EQ(Got(2, [&](void* to) { file.ReadGEBody(to); }), "3F3F");
    file.WriteEBody("xx");
    file.WriteGEBody("xx");
    file.DumpEBody(out);
    file.DumpGEBody(out);
  });
  EXPECT_EQ(reported, Texts{});
  EXPECT_EQ(out.str(), "");
}

TEST(FileBodyTest, BodiesThatAreNotThereAreReported) {
  // At the end as well as on an element without them.
  for (const std::string& bytes :
       {Words("FFFF 0000*255"), Design().Element(0x0900, "0001*20").End().Bytes()}) {
    const TempFile design(bytes);
    File file(design.Name(), kUpdate);
    std::ostringstream out;
    std::string buffer(8, '?');
    const Texts displayable{"Element is not displayable"};
    const Texts attributes{"Element has no attributes"};
    EXPECT_EQ(Reported([&] { file.ReadDEBody(buffer.data(), true); }), displayable);
    EXPECT_EQ(Reported([&] { file.WriteDEBody(buffer.data(), true); }), displayable);
    EXPECT_EQ(Reported([&] { file.DumpDEBody(out, true); }), displayable);
    EXPECT_EQ(Reported([&] { file.ReadABody(buffer.data()); }), displayable) << "not what the others report";
    EXPECT_EQ(Reported([&] { file.WriteABody(buffer.data()); }), attributes);
    EXPECT_EQ(Reported([&] { file.DumpABody(out); }), attributes);
    EXPECT_EQ(buffer, "????????");
    EXPECT_EQ(out.str(), "");
    file.Close();
    EXPECT_EQ(design.Content(), bytes);
  }
}

// --- copying

// The body of the element at the start of a design, which is copied into another design's element.
std::string Copied(void (File::*copy)(File&), const std::string& source_bytes) {
  const TempFile source_design(source_bytes);
  const TempFile design(Design().Element(0x0309, "0000*6 FFFF*6 0000 0006 0A00 0000 0000*7").End().Bytes());
  {
    File source(source_design.Name(), kIn);
    File file(design.Name(), kUpdate);
    (file.*copy)(source);
    EXPECT_TRUE(file.good());
  }
  return InWords(design.Content().substr(28, 24));
}

TEST(FileCopyTest, BodiesAreCopied) {
  const char* const expected = "0000 0006 0A00 0000 1111 2222 3333 4444 1001 5555 2000 FFFF";
  EXPECT_EQ(Copied(&File::CopyEBody, OneElement()), expected);
  EXPECT_EQ(Copied(&File::CopyGEBody, OneElement()), expected);
  EXPECT_EQ(Copied(&File::CopyDEBody, OneElement()), expected);
}

TEST(FileCopyTest, ACopyOfManyBlocksIsWhole) {
  std::string body(2 * 60000, '\0');
  std::iota(body.begin(), body.end(), '\x01');
  const TempFile source_design(Design().Element(0x4200, InWords(body)).End().Bytes());
  const TempFile design;
  File source(source_design.Name(), kIn);
  File file;
  file.Create(design.Name(), "");
  file.EAppend(source.GetEHeader());
  file.CopyEBody(source);
  EXPECT_TRUE(file.good());
  file.Close();
  EXPECT_EQ(design.Content().substr(4, body.size()), body);
}

TEST(FileCopyTest, ASourceThatIsCutOffEndsTheCopy) {
  const TempFile source_design(Design().Displayable(0x0308, "1111 2222 3333 4444").Bytes().substr(0, 41));
  const TempFile design(Design().Displayable(0x0309, "9999*7").End().Bytes());
  File source(source_design.Name(), kIn);
  File file(design.Name(), kUpdate);
  file.CopyDEBody(source);
  EXPECT_TRUE(source.eof());
  EXPECT_TRUE(file.good());
  file.Close();
  EXPECT_EQ(InWords(design.Content().substr(36, 8)), "1111 2222 9933 9999");
}

TEST(FileCopyTest, AHeaderThatLeavesNoBodyCopiesNothing) {
  const TempFile source_design(Design().Element(0x0300, "1111*5").Element(0x0300, "2222*30").End().Bytes());
  const std::string bytes = Design().Displayable(0x0309, "9999*7").End().Bytes();
  const TempFile design(bytes);
  File source(source_design.Name(), kIn);
  File file(design.Name(), kUpdate);
  file.CopyGEBody(source);
  file.CopyDEBody(source);
  file.Close();
  EXPECT_EQ(InWords(design.Content()), InWords(bytes));
}

TEST(FileCopyTest, CopyingWhatIsNotDisplayableIsReported) {
  const TempFile source_design(Design().Element(0x0900, "0001*20").End().Bytes());
  const TempFile design(Design().Displayable(0x0309, "9999*7").End().Bytes());
  File source(source_design.Name(), kIn);
  File file(design.Name(), kUpdate);
  EXPECT_EQ(Reported([&] { file.CopyDEBody(source); }),
            (Texts{"Element is not displayable", "Element is not displayable"}));
}

TEST(FileCopyTest, WithinOneFileEveryOtherByteIsRepeated) {
  // Each byte is read at the joint position and written behind it.
  const TempFile design(
      Design().Element(0x4200, "2211 4433 6655 8877").Element(0x4200, "AAAA").End().Bytes());
  File file(design.Name(), kUpdate);
  file.GetGEHeader().assigned = false;
  file.CopyEBody(file);
  EXPECT_TRUE(file.good());
  file.Close();
  EXPECT_EQ(InWords(design.Content().substr(0, 22)),
            "4200 0004 1111 3333 5555 7777 0000 0101 AAAA FFFF 0000");
}

TEST(FileCopyTest, TwoFilesOnOneDesignCopyBetweenElements) {
  const TempFile design(Design().Element(0x4200, "1111*20").Element(0x4201, "2222*20").End().Bytes());
  File source(design.Name(), kIn);
  File file(design.Name(), kUpdate);
  file.Next(false);
  file.GetGEHeader().assigned = false;
  file.CopyEBody(source);
  file.Close();
  EXPECT_EQ(InWords(design.Content().substr(44, 44)), InWords(Words("4201 0014 1111*20")));
}

// --- values

TEST(FileValueTest, ValuesAreWrittenAndReadAtTheJointPosition) {
  const TempFile design(Design().Element(0x4200, "0000*30").End().Bytes());
  {
    File file(design.Name(), kUpdate);
    file.GEBodyWPosition(0);
    file.Write(static_cast<unsigned char>(0xAB));
    file.Write(static_cast<unsigned char>(0xCD));
    file.Write(static_cast<unsigned short>(0x1234));
    file.Write(0x12345678L);
    file.Write(-2.5);
    EXPECT_EQ(file.tellp(), 28 + 16);
    file.GEBodyRPosition(0);
    unsigned char byte = 0;
    unsigned short word = 0;
    long value = 0;
    double number = 0;
    file.Read(byte);
    EXPECT_EQ(byte, 0xAB);
    file.Read(byte);
    EXPECT_EQ(byte, 0xCD);
    file.Read(word);
    EXPECT_EQ(word, 0x1234);
    file.Read(value);
    EXPECT_EQ(value, 0x12345678);
    file.Read(number);
    EXPECT_EQ(number, -2.5);
    EXPECT_EQ(file.tellg(), 28 + 16);
  }
  EXPECT_EQ(InWords(design.Content().substr(28, 18)), "CDAB 1234 1234 5678 C120 0000 0000 0000 0000");
}

TEST(FileValueTest, LongsAreReadAsAnArray) {
  const TempFile design(Design().Element(0x4200, "0000*12 0000 0001 FFFF FFFE 1234 5678").End().Bytes());
  File file(design.Name(), kIn);
  file.GEBodyRPosition(0);
  std::array<std::int32_t, 3> values{};
  EXPECT_EQ(file.ReadLongs(values), 3U);
  EXPECT_EQ(values, (std::array<std::int32_t, 3>{1, -2, 0x12345678}));
  EXPECT_EQ(file.tellg(), 40);
  EXPECT_TRUE(file.good());
  EXPECT_EQ(file.ReadLongs({}), 0U);
  EXPECT_TRUE(file.good());
}

TEST(FileValueTest, AnArrayOfLongsEndsWithTheFile) {
  const std::string bytes = Design().Element(0x4200, "0001*15").Raw(Words("FFFF")).Bytes() + "xyz";
  ASSERT_EQ(bytes.size(), 39U);
  const TempFile design(bytes);
  File file(design.Name(), kIn);
  file.EBodyRPosition(-1);
  std::vector<std::int32_t> values(5000, 7);
  EXPECT_EQ(file.ReadLongs(values), 9U);
  EXPECT_EQ(values[8], 0x78FF7A79) << "the bytes FF 78 79 7A";
  EXPECT_EQ(values[9], 7);
  EXPECT_TRUE(file.eof());
  EXPECT_TRUE(file.fail());
  EXPECT_EQ(file.ReadLongs(values), 0U);
}

TEST(FileValueTest, AnArrayOfLongsBehindTheEndOfTheFileFails) {
  const TempFile design(Design().Element(0x4200, "0001*4").End().Bytes());
  File file(design.Name(), kIn);
  file.seekg(0, std::ios_base::end);
  EXPECT_EQ(file.peek(), std::char_traits<char>::eof());
  EXPECT_FALSE(file.fail());
  std::vector<std::int32_t> values(1);
  EXPECT_EQ(file.ReadLongs(values), 0U);
  EXPECT_TRUE(file.fail());
}

TEST(FileValueTest, LongArraysCrossTheBlocksOfTheBuffer) {
  std::string bytes = Words("4200 FFFF");
  for (int i = 0; i < 60000; ++i)
    bytes += Words("1234") + std::string{static_cast<char>(i), static_cast<char>(i >> 8)};
  const TempFile large(bytes);
  File file(large.Name(), kIn);
  file.EBodyRPosition(0);
  std::vector<std::int32_t> values(60000);
  EXPECT_EQ(file.ReadLongs(values), 60000U);
  for (std::int32_t i = 0; i < 60000; ++i) ASSERT_EQ(values[static_cast<std::size_t>(i)], 0x12340000 + i);
}

// --- texts

std::string WrittenText(const std::function<void(File&)>& write, std::size_t count) {
  const TempFile design(Design().Element(0x4200, "9999*40").End().Bytes());
  {
    File file(design.Name(), kUpdate);
    file.GEBodyWPosition(0);
    write(file);
    EXPECT_TRUE(file.good());
    EXPECT_EQ(file.tellp(), static_cast<std::streamoff>(28 + count));
  }
  return InWords(design.Content().substr(28, count + 2));
}

TEST(FileTextTest, RawTextHasExactlyItsBytes) {
  EXPECT_EQ(WrittenText([](File& file) { file.WriteString("abcd", 4); }, 4), "6261 6463 9999");
  EXPECT_EQ(WrittenText([](File& file) { file.WriteString("abcd", 2); }, 2), "6261 9999");
  EXPECT_EQ(WrittenText([](File& file) { file.WriteString("abcd", 6); }, 6), "6261 6463 0000 9999");
  EXPECT_EQ(WrittenText([](File& file) { file.WriteString("", 2); }, 2), "0000 9999");
}

TEST(FileTextTest, ALongFieldIsFilledUp) {
  const TempFile design;
  File file;
  file.Create(design.Name(), "");
  file.EAppend(EHeader(ApplicationType, 0, 0), 2000);
  file.EBodyWPosition(0);
  file.WriteString("x", 2000);
  file.Close();
  EXPECT_EQ(InWords(design.Content().substr(4, 2002)), InWords(Words("0078 0000*999 FFFF")));
}

TEST(FileTextTest, RawTextIsReadByteForByte) {
  const TempFile design(Design().Element(0x4200, "0000*12 6261 FF00 9999").End().Bytes());
  File file(design.Name(), kIn);
  file.GEBodyRPosition(0);
  EXPECT_EQ(file.ReadString(4).str(), std::string("ab\0\xFF", 4));
  EXPECT_EQ(file.ReadString(0).str(), "");
  EXPECT_TRUE(file.good());
}

TEST(FileTextTest, ALengthBeyondTheFileGivesWhatThereIs) {
  const TempFile design(Design().Element(0x4200, "0000*12 6261 FF00").End().Bytes());
  File file(design.Name(), kIn);
  file.GEBodyRPosition(0);
  EXPECT_EQ(file.ReadString(0xFFFFFFFF).Length(), 512U - 28);
  EXPECT_TRUE(file.eof());
  EXPECT_TRUE(file.fail());
  file.clear();
  file.GEBodyRPosition(1);
  EXPECT_EQ(file.Readrad50(0xFFFFFFFF).Length(), 3U * (512 - 30) / 2);
  EXPECT_TRUE(file.eof());
}

TEST(FileTextTest, Radix50WordsAreRead) {
  // ABC = 1683, "D. " = 7520.
  const TempFile design(Design().Element(0x4200, "0000*12 0693 1D60 9999").End().Bytes());
  File file(design.Name(), kIn);
  file.GEBodyRPosition(0);
  EXPECT_EQ(file.Readrad50(2).str(), "ABCD. ");
  EXPECT_EQ(file.tellg(), 32);
  EXPECT_EQ(file.Readrad50(0).str(), "");
}

TEST(FileTextTest, LongRadix50TextsAreReadInParts) {
  const TempFile design(Design().Element(0x4200, "0000*12 0693*1000").End().Bytes());
  File file(design.Name(), kIn);
  file.GEBodyRPosition(0);
  const std::string text = file.Readrad50(1000).str();
  ASSERT_EQ(text.size(), 3000U);
  for (std::size_t i = 0; i < text.size(); i += 3) ASSERT_EQ(text.substr(i, 3), "ABC");
}

TEST(FileTextTest, OnlyTheFirstHalfOfPackedTextIsWritten) {
  // ABC DEF GHI = 0693 19CE 2D09: as many bytes as there are words.
  EXPECT_EQ(WrittenText([](File& file) { file.Writerad50("ABCDEFGHI", 3); }, 3), "0693 99CE 99");
  EXPECT_EQ(WrittenText([](File& file) { file.Writerad50("ABCDEFGHI", 2); }, 2), "0693 9999");
  EXPECT_EQ(WrittenText([](File& file) { file.Writerad50("ABCDEFGHI", 1); }, 1), "9993 99");
}

TEST(FileTextTest, WordsMissingFromPackedTextAreZero) {
  EXPECT_EQ(WrittenText([](File& file) { file.Writerad50("ABCDEF", 4); }, 6), "0693 0000 0000 9999");
  EXPECT_EQ(WrittenText([](File& file) { file.Writerad50("", 2); }, 4), "0000 0000 9999");
  EXPECT_EQ(WrittenText([](File& file) { file.Writerad50("ABC", 0); }, 0), "9999");
}

}  // namespace
