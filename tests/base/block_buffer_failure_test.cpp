#include <gtest/gtest.h>

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>
#include <sys/resource.h>
#include <tests/base/block_buffer_fixture.h>
#include <unistd.h>

namespace block_buffer_test {
namespace {

// Files of this process end at `limit` bytes while it lives.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(std::int64_t limit) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit now{static_cast<rlim_t>(limit), before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &now);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  void (*signal_)(int);
  rlimit before_{};
};

TEST_F(BlockBufferTest, AFileOpenedForReadingRefusesEveryWriteAtOnce) {
  Save("0123");
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kRead));
  std::iostream stream(&buffer);
  EXPECT_EQ(buffer.sputc('x'), EOF);
  EXPECT_EQ(Put(buffer, "xyz"), 0);
  EXPECT_EQ(buffer.sgetc(), '0');
  EXPECT_EQ(buffer.sputc('x'), EOF) << "over a get area";
  stream.put('x');
  EXPECT_TRUE(stream.bad());
  EXPECT_EQ(buffer.pubsync(), 0);
  EXPECT_TRUE(buffer.close());
  EXPECT_EQ(Saved(), "0123");
}

TEST_F(BlockBufferTest, AFullDeviceFailsAtFlushAndAtEveryLaterOne) {
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open("/dev/full", kWrite));
  std::iostream stream(&buffer);
  stream << "text";
  EXPECT_TRUE(stream.good()) << "nothing is written yet";
  stream.flush();
  EXPECT_TRUE(stream.bad());
  EXPECT_EQ(buffer.pubsync(), -1);
  EXPECT_FALSE(buffer.close());
  EXPECT_FALSE(buffer.is_open());
  ASSERT_TRUE(buffer.open(name_, kWrite)) << "the descriptor was given back";
  EXPECT_EQ(buffer.pubsync(), 0);
}

// What the next open would give: it tells whether a descriptor was left open.
int LowestFreeDescriptor() {
  const int descriptor = dup(STDOUT_FILENO);
  close(descriptor);
  return descriptor;
}

TEST_F(BlockBufferTest, CloseReportsAFullDeviceAndGivesTheDescriptorBack) {
  const int free_before = LowestFreeDescriptor();
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open("/dev/full", kUpdate));
  EXPECT_EQ(buffer.sputc('x'), 'x');
  EXPECT_FALSE(buffer.close());
  EXPECT_FALSE(buffer.is_open());
  EXPECT_EQ(LowestFreeDescriptor(), free_before);
}

TEST_F(BlockBufferTest, AFailedOpenGivesTheDescriptorBack) {
  const int free_before = LowestFreeDescriptor();
  BlockBuffer buffer;
  EXPECT_FALSE(buffer.open(folder_.string(), kRead));
  EXPECT_EQ(LowestFreeDescriptor(), free_before);
}

TEST_F(BlockBufferTest, AWriteThatEvictsReportsAFullDevice) {
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open("/dev/full", kUpdate));
  EXPECT_EQ(Put(buffer, Bytes(0, (kBlocks + 2) * kBlock)), kBlocks * kBlock);
  EXPECT_EQ(buffer.sputc('x'), EOF);
  EXPECT_EQ(buffer.Position(), kBlocks * kBlock);
  ASSERT_TRUE(buffer.Seek(kBlock - 5));
  EXPECT_EQ(Get(buffer, 10), Bytes(kBlock - 5, 10)) << "nothing is lost";
  EXPECT_EQ(buffer.pubsync(), -1);
  EXPECT_FALSE(buffer.close());
}

TEST_F(BlockBufferTest, WhatCouldNotBeWrittenIsWrittenByALaterFlush) {
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kCreate));
  const std::string bytes = Bytes(0, 3 * kBlock);
  {
    const FileSizeLimit limit(kBlock + 100);
    EXPECT_EQ(Put(buffer, bytes), 3 * kBlock);
    EXPECT_EQ(buffer.pubsync(), -1);
    EXPECT_EQ(std::filesystem::file_size(name_), static_cast<std::uintmax_t>(kBlock + 100)) << "what fits";
    EXPECT_EQ(buffer.pubsync(), -1);
    ASSERT_TRUE(buffer.Seek(0));
    EXPECT_TRUE(Get(buffer, 3 * kBlock) == bytes);
  }
  EXPECT_EQ(buffer.pubsync(), 0);
  EXPECT_TRUE(Saved() == bytes);
  EXPECT_TRUE(buffer.close());
}

TEST_F(BlockBufferTest, AReadThatEvictsReportsAFailedWriteAndLosesNothing) {
  const std::string before = Bytes(0, 2 * kBlocks * kBlock);
  Save(before);
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kUpdate));
  {
    const FileSizeLimit limit(1);
    for (int block = 0; block < kBlocks; ++block) {
      ASSERT_TRUE(buffer.Seek(block * kBlock + 1));
      EXPECT_EQ(buffer.sputc('x'), 'x');
    }
    ASSERT_TRUE(buffer.Seek(kBlocks * kBlock));
    EXPECT_EQ(buffer.sgetc(), EOF);
    EXPECT_EQ(buffer.pubsync(), -1);
  }
  EXPECT_EQ(buffer.sgetc(), static_cast<unsigned char>(Byte(kBlocks * kBlock)));
  EXPECT_EQ(buffer.pubsync(), 0);
  std::string expected = before;
  for (int block = 0; block < kBlocks; ++block) expected[static_cast<std::size_t>(block * kBlock + 1)] = 'x';
  EXPECT_TRUE(Saved() == expected);
}

TEST_F(BlockBufferTest, CloseReportsWhatCouldNotBeWritten) {
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(name_, kCreate));
  const FileSizeLimit limit(2);
  EXPECT_EQ(Put(buffer, "0123"), 4);
  EXPECT_FALSE(buffer.close());
  EXPECT_FALSE(buffer.is_open());
  EXPECT_EQ(Saved(), "01");
}

}  // namespace
}  // namespace block_buffer_test
