#include <pelor/dgn/file.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <tests/dgn/exercise.h>
#include <tests/dgn/words.h>
#include <vector>

namespace {

using namespace Pelor::DGN;
using dgn_test::Design;
using dgn_test::InWords;
using dgn_test::kDefaultRange;
using dgn_test::ReadEverything;
using dgn_test::TempFile;
using dgn_test::WalkEverything;
using dgn_test::Words;

constexpr auto kIn = std::ios_base::in;
constexpr auto kUpdate = std::ios_base::in | std::ios_base::out;

// A design with elements of all kinds of header, and where they begin.
struct Sample {
  std::string bytes;
  std::vector<std::size_t> offsets;
};

Sample MakeSample() {
  Sample sample;
  Design design;
  const auto begin = [&] { sample.offsets.push_back(design.Bytes().size()); };
  begin();
  design.Element(0x0908, "0102*24");
  begin();
  design.Displayable(0x0202, "0032 0000*3");
  begin();
  design.Element(0x0382, std::string(kDefaultRange) + " 0000 0006 0A00 0000 0001*4 1001 1234 3500");
  begin();
  design.Displayable(0x0382, "0001*4");
  begin();
  design.Displayable(0x1105, "0100 0000*14 6261");
  begin();
  design.Element(0x4200, "");
  begin();
  design.Element(0x5700, std::string(kDefaultRange) + " 0000*4 0004");
  sample.offsets.push_back(design.Bytes().size());
  design.Raw(Words("FFFF"));
  sample.bytes = design.Bytes();
  return sample;
}

// Where the headers of an element end, those that reading it needs.
std::size_t HeaderEnd(const Sample& sample, std::size_t element) {
  constexpr std::size_t kLongest = 54 + 2;  // up to the linkage word of the third element
  return std::min(sample.offsets[element] + kLongest, sample.offsets[element + 1]);
}

TEST(FileDamageTest, TheSampleIsReadWhole) {
  const Sample sample = MakeSample();
  const TempFile design(sample.bytes);
  File file(design.Name(), kIn);
  std::vector<std::size_t> offsets;
  for (; file; file.Next(false)) offsets.push_back(static_cast<std::size_t>(file.CurrentPosition()));
  EXPECT_TRUE(file.good());
  offsets.push_back(static_cast<std::size_t>(file.CurrentPosition()));
  EXPECT_EQ(offsets, sample.offsets);
}

TEST(FileDamageTest, AFileCutAtAnyByteIsReadUpToThere) {
  const Sample sample = MakeSample();
  const TempFile good(sample.bytes);
  File file(good.Name(), kIn);
  const std::vector<std::string> whole = WalkEverything(file, false);
  ASSERT_EQ(whole.size() + 1, sample.offsets.size());
  for (std::size_t length = 0; length < sample.bytes.size(); ++length) {
    const std::string bytes = sample.bytes.substr(0, length);
    const TempFile design(bytes);
    for (const bool skip : {false, true}) {
      file.Open(design.Name(), kUpdate);
      std::size_t visited = 0;
      while (file) {
        const auto position = static_cast<std::size_t>(file.CurrentPosition());
        const auto found = std::find(sample.offsets.begin(), sample.offsets.end(), position);
        ASSERT_NE(found, sample.offsets.end());
        const auto element = static_cast<std::size_t>(found - sample.offsets.begin());
        ASSERT_TRUE(skip || element == visited);
        EXPECT_LT(position, length);
        const std::string read = ReadEverything(file);
        // All but the last two, which are short, know no byte behind their end.
        if (element < 5 && length >= sample.offsets[element + 1]) {
          EXPECT_EQ(read, whole[element]) << length;
        }
        file.Next(skip);
        ++visited;
      }
      std::size_t complete = 0;
      while (complete < whole.size() && HeaderEnd(sample, complete) <= length) ++complete;
      EXPECT_TRUE(skip || visited >= complete) << length;
      EXPECT_TRUE(file.eof()) << length;
      EXPECT_TRUE(file.fail()) << length;
      file.Close();
    }
    ASSERT_EQ(InWords(design.Content()), InWords(bytes)) << "nothing may be written back";
  }
}

TEST(FileDamageTest, AnyFlippedBitOfTheHeadersLeavesWhatWasBefore) {
  const Sample sample = MakeSample();
  const TempFile good(sample.bytes);
  File file(good.Name(), kIn);
  std::vector<EHeader> headers;
  for (; file; file.Next(false)) headers.push_back(file.GetEHeader());
  for (std::size_t element = 0; element + 1 < sample.offsets.size(); ++element) {
    for (std::size_t bit = 8 * sample.offsets[element]; bit < 8 * HeaderEnd(sample, element); ++bit) {
      std::string bytes = sample.bytes;
      bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ 1 << bit % 8);
      const TempFile design(bytes);
      for (const bool skip : {false, true}) {
        file.Open(design.Name(), kUpdate);
        std::size_t steps = 0;
        std::int64_t last = -1;
        while (file) {
          ASSERT_GT(file.CurrentPosition(), last) << "the walk goes forward";
          last = file.CurrentPosition();
          if (!skip && steps < element) {
            ASSERT_EQ(last, static_cast<std::int64_t>(sample.offsets[steps]));
            ASSERT_EQ(file.GetEHeader().type_level, headers[steps].type_level);
          }
          if (!skip) ReadEverything(file);
          file.Next(skip);
          ASSERT_LE(++steps, bytes.size() / 4);
        }
        ASSERT_TRUE(skip || steps >= element);
        file.Close();
      }
      ASSERT_EQ(InWords(design.Content()), InWords(bytes)) << bit;
    }
  }
}

TEST(FileDamageTest, AnElementBeyondTheFileEndsTheWalkInTheState) {
  const TempFile design(Design().Displayable(0x0308, "0001*4").Raw(Words("4200 FFFF 0001*14")).Bytes());
  File file(design.Name(), kUpdate);
  EXPECT_TRUE(static_cast<bool>(file));
  file.Next(false);
  EXPECT_TRUE(static_cast<bool>(file)) << "its headers are there";
  EXPECT_EQ(file.NextPosition(), 44 + 4 + 131070);
  file.Next(false);
  EXPECT_FALSE(static_cast<bool>(file));
  EXPECT_TRUE(file.eof());
  EXPECT_TRUE(file.fail());
  EXPECT_FALSE(file.HasGraphicHeader());
}

TEST(FileDamageTest, AnElementCutInItsHeadersIsNeverWrittenBack) {
  const std::string bytes = Design().Displayable(0x0308, "0001*4").Displayable(0x0309, "0001*4").Bytes();
  for (const std::size_t length : {45U, 46U, 47U, 48U, 60U, 72U, 79U}) {
    const TempFile design(bytes.substr(0, length));
    File file(design.Name(), kUpdate);
    file.GetEHeader() = EHeader(TextType, 1, 2);  // marked, and a mark outlives reading
    file.Next(false);
    EXPECT_TRUE(file.fail());
    file.clear();
    file.Flush();
    file.Next(false);
    EXPECT_TRUE(file.fail());
    file.clear();
    file.Close();
    EXPECT_EQ(InWords(design.Content()), InWords(bytes.substr(0, length)));
  }
}

TEST(FileDamageTest, EmptyLinkagesDoNotStopTheWalkOverThem) {
  std::string linkages;
  for (int i = 0; i < 1000; ++i) linkages += " 1000";
  const TempFile design(
      Design().Element(0x0308, std::string(kDefaultRange) + " 0000 0002 0A00 0000" + linkages).End().Bytes());
  File file(design.Name(), kIn);
  int count = 1;
  while (file.NextAttribute()) ++count;
  EXPECT_EQ(count, 1000);
  EXPECT_TRUE(file.good());
}

TEST(FileDamageTest, ALinkageThatTheFileCutsOffShowsInTheState) {
  const TempFile design(
      Design()
          .Element(0x0308, std::string(kDefaultRange) + " 0000 0002 0A00 0000 1002 0001*2 1000")
          .Bytes()
          .substr(0, 42));
  File file(design.Name(), kIn);
  ASSERT_TRUE(file.HasAttributes());
  EXPECT_FALSE(file.NextAttribute());
  EXPECT_TRUE(file.eof());
  EXPECT_TRUE(file.fail());
  EXPECT_FALSE(file.HasAttributes());
}

// --- writes that fail

TEST(FileDamageTest, WritingToAFileOpenedForInputShowsInTheState) {
  const std::string bytes = Design().Displayable(0x0308, "0001*4").End().Bytes();
  const TempFile design(bytes);
  File file(design.Name(), kIn);
  file.DEBodyWPosition(0);
  file.Write(1L);
  EXPECT_TRUE(file.bad());
  EXPECT_FALSE(static_cast<bool>(file));
  file.Close();
  EXPECT_EQ(design.Content(), bytes);
}

#ifdef __linux__
class FullDisk {
 public:
  FullDisk() { std::filesystem::create_symlink("/dev/full", link_.Name()); }
  [[nodiscard]] const std::string& Name() const { return link_.Name(); }

 private:
  TempFile link_;
};

TEST(FileDamageTest, AFullDiskShowsWhenTheFileIsFlushed) {
  const FullDisk disk;
  File file;
  file.Create(disk.Name(), "");
  file.Flush();
  EXPECT_TRUE(file.bad());
  EXPECT_FALSE(static_cast<bool>(file));
}

TEST(FileDamageTest, AFullDiskShowsWhenTheFileIsClosed) {
  const FullDisk disk;
  File file;
  file.Create(disk.Name(), "");
  file.EAppend(EHeader(ApplicationType, 0, 0), 40);
  file.Close();
  EXPECT_TRUE(file.fail());
}

TEST(FileDamageTest, AFullDiskShowsWhenMoreIsWrittenThanIsBuffered) {
  const FullDisk disk;
  File file;
  file.Create(disk.Name(), "");
  const std::vector<char> body(131070, 'x');
  int count = 0;
  for (; file.good() && count < 1000; ++count) {
    file.EAppend(EHeader(ApplicationType, 0, 0), 131070);
    file.WriteEBody(body.data());
  }
  EXPECT_TRUE(file.fail());
  EXPECT_LT(count, 1000);
}
#endif

}  // namespace
