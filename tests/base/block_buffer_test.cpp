#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <ios>
#include <iostream>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <tests/base/block_buffer_fixture.h>
#include <utility>
#include <vector>

namespace block_buffer_test {
namespace {

// --- opening and closing

TEST_F(BlockBufferTest, StartsClosed) {
  BlockBuffer buffer;
  EXPECT_FALSE(buffer.is_open());
  EXPECT_FALSE(buffer.close());
  EXPECT_EQ(buffer.Position(), -1);
  EXPECT_EQ(buffer.Size(), 0);
  EXPECT_FALSE(buffer.Seek(0));
  EXPECT_EQ(buffer.sgetc(), EOF);
  EXPECT_EQ(buffer.sputc('x'), EOF);
  EXPECT_EQ(buffer.sungetc(), EOF);
  EXPECT_EQ(buffer.in_avail(), -1);
  EXPECT_EQ(buffer.pubsync(), -1);
  EXPECT_EQ(std::streamoff(buffer.pubseekoff(0, ios_base::cur)), -1);
  EXPECT_EQ(std::streamoff(buffer.pubseekoff(0, ios_base::end)), -1);
}

TEST_F(BlockBufferTest, OpensWhatAStandardFileBufferOpensAndLeavesTheSameFile) {
  const ios_base::openmode modes[] = {ios_base::openmode(),
                                      ios_base::in,
                                      ios_base::out,
                                      ios_base::trunc,
                                      ios_base::in | ios_base::out,
                                      ios_base::in | ios_base::trunc,
                                      ios_base::out | ios_base::trunc,
                                      kCreate};
  for (const bool exists : {false, true}) {
    for (const ios_base::openmode mode : modes) {
      SCOPED_TRACE(testing::Message() << "mode " << mode << (exists ? ", existing file" : ", no file"));
      const auto prepare = [&] {
        std::filesystem::remove(name_);
        if (exists) Save("before");
      };
      prepare();
      std::filebuf standard;
      const bool opens = standard.open(name_, mode | ios_base::binary) != nullptr;
      const bool reads =
          opens && standard.sgetn(std::string(1, ' ').data(), 1) >= 0 && (mode & ios_base::in) != 0;
      const bool writes = opens && (mode & ios_base::out) != 0;
      standard.close();
      const bool left = std::filesystem::exists(name_);
      const std::string expected = Saved();

      prepare();
      BlockBuffer buffer;
      EXPECT_EQ(buffer.open(name_, mode), opens);
      EXPECT_EQ(buffer.is_open(), opens);
      EXPECT_EQ(std::filesystem::exists(name_), left);
      EXPECT_EQ(Saved(), expected);
      EXPECT_EQ(buffer.sgetc() != EOF, reads && !expected.empty());
      EXPECT_EQ(buffer.sputc('x') != EOF, writes);
      EXPECT_EQ(buffer.close(), opens);
      EXPECT_FALSE(buffer.is_open());
    }
  }
}

TEST_F(BlockBufferTest, TheBinaryBitChangesNothing) {
  Save(
      "a\r\nb\n\x1A"
      "c");
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kRead | ios_base::binary));
  EXPECT_EQ(Get(buffer, 100),
            "a\r\nb\n\x1A"
            "c");
}

TEST_F(BlockBufferTest, AteStartsAtTheEndAndAppIsRefused) {
  Save("12345");
  BlockBuffer buffer;
  EXPECT_FALSE(buffer.open(name_, kUpdate | ios_base::app));
  ASSERT_TRUE(buffer.open(name_, kUpdate | ios_base::ate));
  EXPECT_EQ(buffer.Position(), 5);
  EXPECT_EQ(Put(buffer, "6"), 1);
  EXPECT_TRUE(buffer.close());
  EXPECT_EQ(Saved(), "123456");
}

TEST_F(BlockBufferTest, AnOpenBufferRefusesToOpenAndStays) {
  Save("12345");
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kRead));
  EXPECT_EQ(buffer.sbumpc(), '1');
  EXPECT_FALSE(buffer.open(name_, kCreate));
  EXPECT_EQ(buffer.sbumpc(), '2');
  EXPECT_EQ(Saved(), "12345");
}

TEST_F(BlockBufferTest, OpensAgainAfterCloseWithNothingLeftOver) {
  Save("12345");
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kUpdate));
  EXPECT_EQ(Put(buffer, "ab"), 2);
  ASSERT_TRUE(buffer.close());
  Save("xyz");
  ASSERT_TRUE(buffer.open(name_, kRead));
  EXPECT_EQ(buffer.Position(), 0);
  EXPECT_EQ(buffer.Size(), 3);
  EXPECT_EQ(Get(buffer, 10), "xyz");
  EXPECT_EQ(buffer.sputc('x'), EOF);
}

TEST_F(BlockBufferTest, TheDestructorWritesAndCloses) {
  {
    BlockBuffer buffer;
    ASSERT_TRUE(buffer.open(name_, kWrite));
    EXPECT_EQ(Put(buffer, "abc"), 3);
    EXPECT_EQ(Saved(), "");
  }
  EXPECT_EQ(Saved(), "abc");
}

TEST_F(BlockBufferTest, WhatHasNoPositionsFailsToOpen) {
  BlockBuffer buffer;
  for (const auto mode : {kRead, kWrite, kUpdate, kCreate}) {
    EXPECT_FALSE(buffer.open(folder_.string(), mode)) << "a directory, mode " << mode;
    EXPECT_FALSE(buffer.open((folder_ / "none" / "file").string(), mode)) << "no such folder, mode " << mode;
    EXPECT_FALSE(buffer.open("", mode)) << "no name, mode " << mode;
    EXPECT_FALSE(buffer.open(folder_.string() + std::string("/a\0b", 4), mode))
        << "a NUL in the name, mode " << mode;
  }
  EXPECT_TRUE(std::filesystem::is_directory(folder_));
  const std::string pipe = (folder_ / "pipe").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(buffer.open(pipe, kRead));
  EXPECT_FALSE(buffer.open(pipe, kUpdate));
}

TEST_F(BlockBufferTest, ADeviceCountsAsEmpty) {
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open("/dev/zero", kRead));
  EXPECT_EQ(buffer.Size(), 0);
  EXPECT_EQ(buffer.sgetc(), EOF);
}

// --- positions

TEST_F(BlockBufferTest, ReadingAndWritingShareOnePosition) {
  Save("0123456789");
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kUpdate));
  std::iostream stream(&buffer);
  EXPECT_EQ(stream.get(), '0');
  stream.put('A');
  EXPECT_EQ(stream.get(), '2');
  stream.write("BC", 2);
  EXPECT_EQ(stream.tellg(), 5);
  EXPECT_EQ(stream.tellp(), 5);
  stream.seekp(7);
  EXPECT_EQ(stream.get(), '7');
  stream.seekg(9);
  stream.put('D');
  stream.put('E');
  EXPECT_TRUE(stream.flush());
  EXPECT_EQ(Saved(), "0A2BC5678DE");
}

TEST_F(BlockBufferTest, SeeksFromStartPositionAndEnd) {
  Save("0123456789");
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kUpdate));
  EXPECT_EQ(buffer.pubseekoff(3, ios_base::beg), 3);
  EXPECT_EQ(buffer.sgetc(), '3');
  EXPECT_EQ(buffer.pubseekoff(4, ios_base::cur), 7);
  EXPECT_EQ(buffer.pubseekoff(-2, ios_base::cur), 5);
  EXPECT_EQ(buffer.sgetc(), '5');
  EXPECT_EQ(buffer.pubseekoff(-1, ios_base::end), 9);
  EXPECT_EQ(buffer.sgetc(), '9');
  EXPECT_EQ(buffer.pubseekpos(2), 2);
  EXPECT_EQ(buffer.sgetc(), '2');
}

TEST_F(BlockBufferTest, ASeekOutsideAnyFileFailsAndMovesNothing) {
  Save("0123456789");
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kUpdate));
  ASSERT_TRUE(buffer.Seek(4));
  constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  for (const bool area : {false, true}) {
    if (area) {
      EXPECT_EQ(buffer.sgetc(), '4');
    }
    EXPECT_FALSE(buffer.Seek(-1));
    EXPECT_FALSE(buffer.Seek(kLeast));
    EXPECT_FALSE(buffer.Seek(kMost));
    EXPECT_EQ(std::streamoff(buffer.pubseekoff(-5, ios_base::cur)), -1);
    EXPECT_EQ(std::streamoff(buffer.pubseekoff(kLeast, ios_base::cur)), -1);
    EXPECT_EQ(std::streamoff(buffer.pubseekoff(kMost, ios_base::cur)), -1);
    EXPECT_EQ(std::streamoff(buffer.pubseekoff(kMost, ios_base::end)), -1);
    EXPECT_EQ(std::streamoff(buffer.pubseekoff(-11, ios_base::end)), -1);
    EXPECT_EQ(std::streamoff(buffer.pubseekpos(-1)), -1);
    EXPECT_EQ(buffer.Position(), 4);
  }
}

TEST_F(BlockBufferTest, SeekingFromTheEndSeesUnflushedGrowth) {
  Save("0123");
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kUpdate | ios_base::ate));
  EXPECT_EQ(Put(buffer, "456"), 3);
  EXPECT_EQ(buffer.Size(), 7);
  EXPECT_EQ(buffer.pubseekoff(-1, ios_base::end), 6);
  EXPECT_EQ(buffer.sgetc(), '6');
  EXPECT_EQ(Saved(), "0123");
}

TEST_F(BlockBufferTest, CharactersCanBePutBackAcrossBlocks) {
  Save(Bytes(0, 2 * kBlock));
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kRead));
  ASSERT_TRUE(buffer.Seek(kBlock));
  const auto byte = [](std::int64_t position) { return int{static_cast<unsigned char>(Byte(position))}; };
  EXPECT_EQ(buffer.sungetc(), byte(kBlock - 1));
  EXPECT_EQ(buffer.sputbackc(Byte(kBlock - 2)), byte(kBlock - 2));
  EXPECT_EQ(buffer.Position(), kBlock - 2);
  EXPECT_EQ(Get(buffer, 4), Bytes(kBlock - 2, 4));
  EXPECT_EQ(buffer.sputbackc(static_cast<char>(Byte(kBlock + 1) + 1)), EOF) << "another character is refused";
  EXPECT_EQ(buffer.Position(), kBlock + 2);
  ASSERT_TRUE(buffer.Seek(0));
  EXPECT_EQ(buffer.sungetc(), EOF);
  EXPECT_EQ(buffer.Position(), 0);
}

TEST_F(BlockBufferTest, InAvailIsWhatTheFileHolds) {
  Save(Bytes(0, 3 * kBlock));
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kRead));
  EXPECT_EQ(buffer.in_avail(), 3 * kBlock);
  ASSERT_TRUE(buffer.Seek(3 * kBlock));
  EXPECT_EQ(buffer.in_avail(), -1);
}

// --- reading

TEST_F(BlockBufferTest, ReadsRunsOfEverySizeAroundABlock) {
  Save(Bytes(0, 4 * kBlock + 10));
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kRead));
  for (const std::int64_t start : {std::int64_t{0}, std::int64_t{1}, kBlock - 1, kBlock, kBlock + 1}) {
    for (const std::int64_t blocks : {0, 1, 2}) {
      for (std::int64_t n = std::max<std::int64_t>(0, blocks * kBlock - 3); n <= blocks * kBlock + 3; ++n) {
        ASSERT_TRUE(buffer.Seek(start));
        ASSERT_EQ(Get(buffer, n), Bytes(start, n)) << start << " " << n;
        ASSERT_EQ(buffer.Position(), start + n);
      }
    }
  }
}

TEST_F(BlockBufferTest, AReadAtTheEndGivesEofAndStaysThere) {
  Save("0123456789");
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kRead));
  std::iostream stream(&buffer);
  stream.seekg(7);
  std::string bytes(5, '?');
  stream.read(bytes.data(), 5);
  EXPECT_EQ(stream.gcount(), 3);
  EXPECT_EQ(bytes, "789??");
  EXPECT_TRUE(stream.eof());
  EXPECT_TRUE(stream.fail());
  EXPECT_FALSE(stream.bad());
  EXPECT_EQ(buffer.Position(), 10);
  stream.clear();
  stream.seekg(1000000);
  EXPECT_EQ(stream.get(), EOF);
  EXPECT_EQ(buffer.Position(), 1000000);
  EXPECT_EQ(buffer.Size(), 10);
}

TEST_F(BlockBufferTest, GrowthAfterAnEofIsSeen) {
  Save("01");
  BlockBuffer buffer;
  BlockBuffer reader;
  ASSERT_TRUE(buffer.open(name_, kUpdate));
  ASSERT_TRUE(reader.open(name_, kRead));
  EXPECT_EQ(Get(buffer, 5), "01");
  EXPECT_EQ(Get(reader, 5), "01");
  EXPECT_EQ(Put(buffer, "23"), 2);
  ASSERT_TRUE(buffer.Seek(1));
  EXPECT_EQ(Get(buffer, 5), "123");
  EXPECT_EQ(Get(reader, 5), "") << "not written back yet";
  EXPECT_EQ(buffer.pubsync(), 0);
  EXPECT_EQ(Get(reader, 5), "23") << "growth by another";
  EXPECT_EQ(reader.Size(), 4);
}

TEST_F(BlockBufferTest, AFileThatOthersCutShortEndsThere) {
  Save(Bytes(0, 3 * kBlock));
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kRead));
  EXPECT_EQ(Get(buffer, 10), Bytes(0, 10));
  std::filesystem::resize_file(name_, static_cast<std::uintmax_t>(2 * kBlock + 5));
  ASSERT_TRUE(buffer.Seek(2 * kBlock));
  EXPECT_EQ(Get(buffer, 100), Bytes(2 * kBlock, 5));
  EXPECT_EQ(buffer.Size(), 2 * kBlock + 5);
  std::filesystem::resize_file(name_, 5);
  ASSERT_TRUE(buffer.Seek(kBlock));
  EXPECT_EQ(Get(buffer, 10), "") << "this block is read only now";
  ASSERT_TRUE(buffer.Seek(0));
  EXPECT_EQ(Get(buffer, 10), Bytes(0, 5)) << "this one was in memory";
}

TEST_F(BlockBufferTest, AnEmptyFileReadsAsNothing) {
  Save("");
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kUpdate));
  EXPECT_EQ(buffer.Size(), 0);
  EXPECT_EQ(buffer.sgetc(), EOF);
  EXPECT_TRUE(buffer.close());
  EXPECT_EQ(Saved(), "");
}

// --- the view

std::string Text(std::span<const std::byte> bytes) {
  std::string text(bytes.size(), '\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](std::byte byte) { return static_cast<char>(byte); });
  return text;
}

TEST_F(BlockBufferTest, PeekGivesTheNextBytesAndStays) {
  Save(Bytes(0, 2 * kBlock + 100));
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kRead));
  std::vector<std::byte> scratch(static_cast<std::size_t>(2 * kBlock));
  const auto peek = [&](std::int64_t position, std::size_t n) {
    EXPECT_TRUE(buffer.Seek(position));
    const std::span<const std::byte> bytes = buffer.Peek(std::span(scratch).first(n));
    EXPECT_EQ(buffer.Position(), position);
    const std::string text = Text(bytes);
    return std::pair(text, bytes.data() == scratch.data());
  };
  EXPECT_EQ(peek(0, 36), std::pair(Bytes(0, 36), false)) << "in the window";
  EXPECT_EQ(peek(kBlock - 36, 36), std::pair(Bytes(kBlock - 36, 36), false)) << "up to the window's end";
  EXPECT_EQ(peek(kBlock - 35, 36), std::pair(Bytes(kBlock - 35, 36), true)) << "across the window's end";
  EXPECT_EQ(peek(5, scratch.size()), std::pair(Bytes(5, 2 * kBlock), true)) << "more than a window";
  EXPECT_EQ(peek(2 * kBlock + 90, 36).first, Bytes(2 * kBlock + 90, 10)) << "up to the end";
  EXPECT_EQ(peek(2 * kBlock + 100, 36).first, "") << "at the end";
  EXPECT_EQ(peek(0, 0).first, "");
}

TEST_F(BlockBufferTest, PeekSeesWhatWasJustWritten) {
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kCreate));
  EXPECT_EQ(Put(buffer, "0123"), 4);
  ASSERT_TRUE(buffer.Seek(1));
  EXPECT_EQ(Put(buffer, "A"), 1);
  std::array<std::byte, 8> scratch{};
  const std::span<const std::byte> bytes = buffer.Peek(scratch);
  EXPECT_EQ(Text(bytes), "23");
}

// --- writing

TEST_F(BlockBufferTest, WritesRunsOfEverySizeAroundABlock) {
  const std::string before(static_cast<std::size_t>(3 * kBlock), '.');
  for (const std::int64_t start : {std::int64_t{0}, kBlock - 1, kBlock, 3 * kBlock}) {
    for (const std::int64_t n :
         {std::int64_t{0}, std::int64_t{1}, kBlock - 1, kBlock, kBlock + 1, 2 * kBlock + 1}) {
      SCOPED_TRACE(testing::Message() << n << " bytes at " << start);
      Save(before);
      BlockBuffer buffer;
      ASSERT_TRUE(buffer.open(name_, kUpdate));
      ASSERT_TRUE(buffer.Seek(start));
      EXPECT_EQ(Put(buffer, Bytes(start, n)), n);
      EXPECT_EQ(buffer.Position(), start + n);
      ASSERT_TRUE(buffer.close());
      std::string expected = before;
      expected.resize(static_cast<std::size_t>(std::max(3 * kBlock, start + n)));
      const std::string written = Bytes(start, n);
      std::copy(written.begin(), written.end(), expected.begin() + start);
      EXPECT_TRUE(Saved() == expected);
    }
  }
}

TEST_F(BlockBufferTest, AGapPastTheEndIsFilledWithZeros) {
  for (const std::int64_t size : {std::int64_t{0}, std::int64_t{5}, kBlock - 1, kBlock}) {
    for (const std::int64_t gap : {std::int64_t{1}, std::int64_t{100}, kBlock, 3 * kBlock + 7}) {
      SCOPED_TRACE(testing::Message() << "gap of " << gap << " after " << size);
      Save(Bytes(0, size));
      BlockBuffer buffer;
      ASSERT_TRUE(buffer.open(name_, kUpdate));
      ASSERT_TRUE(buffer.Seek(std::max<std::int64_t>(0, size - 1)));
      (void)buffer.sgetc();
      ASSERT_TRUE(buffer.Seek(size + gap));
      EXPECT_EQ(buffer.Size(), size) << "a seek alone grows nothing";
      EXPECT_EQ(buffer.sputc('x'), 'x');
      EXPECT_EQ(buffer.Size(), size + gap + 1);
      const std::string expected = Bytes(0, size) + std::string(static_cast<std::size_t>(gap), '\0') + "x";
      ASSERT_TRUE(buffer.Seek(0));
      EXPECT_TRUE(Get(buffer, size + gap + 10) == expected) << "before it is written back";
      ASSERT_TRUE(buffer.close());
      EXPECT_TRUE(Saved() == expected);
    }
  }
}

TEST_F(BlockBufferTest, BytesReachTheFileAtFlushAndAtEviction) {
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kCreate));
  EXPECT_EQ(Put(buffer, "abc"), 3);
  EXPECT_EQ(std::filesystem::file_size(name_), 0U);
  EXPECT_EQ(buffer.pubsync(), 0);
  EXPECT_EQ(Saved(), "abc");
  ASSERT_TRUE(buffer.Seek(0));
  EXPECT_EQ(buffer.sputc('A'), 'A');
  EXPECT_EQ(Saved(), "abc");
  for (int block = 1; block <= kBlocks; ++block) {
    ASSERT_TRUE(buffer.Seek(block * kBlock));
    EXPECT_EQ(buffer.sputc('x'), 'x');
  }
  EXPECT_EQ(Saved(), "Abc");
  ASSERT_TRUE(buffer.Seek(0));
  EXPECT_EQ(buffer.sgetc(), 'A') << "read again after eviction";
}

TEST_F(BlockBufferTest, AFileThatIsOnlyWrittenKeepsWhatWasWrittenBefore) {
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kWrite));
  std::string expected = Bytes(0, 2 * kBlocks * kBlock);
  EXPECT_EQ(Put(buffer, expected), 2 * kBlocks * kBlock);
  ASSERT_TRUE(buffer.Seek(10));
  EXPECT_EQ(buffer.sgetc(), EOF);
  EXPECT_EQ(Put(buffer, "header"), 6);
  expected.replace(10, 6, "header");
  EXPECT_EQ(buffer.Position(), 16);
  ASSERT_TRUE(buffer.close());
  EXPECT_TRUE(Saved() == expected);
}

TEST_F(BlockBufferTest, PositionsBeyondFourGiBWork) {
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kCreate));
  std::iostream stream(&buffer);
  constexpr std::int64_t kGiB = std::int64_t{1} << 30;
  const std::int64_t places[] = {5 * kGiB + 123, 2 * kGiB - 3, 4 * kGiB - 3, 3};
  for (const std::int64_t place : places) {
    stream.seekp(place);
    stream << "at " << place;
  }
  EXPECT_EQ(buffer.Size(), 5 * kGiB + 123 + 13);
  ASSERT_TRUE(buffer.close());
  ASSERT_TRUE(buffer.open(name_, kRead));
  for (const std::int64_t place : places) {
    stream.seekg(place);
    EXPECT_EQ(stream.tellg(), place);
    const std::string text = "at " + std::to_string(place);
    EXPECT_EQ(Get(buffer, static_cast<std::int64_t>(text.size())), text);
  }
  EXPECT_EQ(std::filesystem::file_size(name_), static_cast<std::uintmax_t>(5 * kGiB + 136));
}

}  // namespace
}  // namespace block_buffer_test
