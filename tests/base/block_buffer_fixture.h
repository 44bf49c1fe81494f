#pragma once

#include <pelor/base/block_buffer.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <ios>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace block_buffer_test {

using std::ios_base;
using Tobri::BlockBuffer;

inline constexpr auto kRead = ios_base::in;
inline constexpr auto kWrite = ios_base::out;
inline constexpr auto kUpdate = ios_base::in | ios_base::out;
inline constexpr auto kCreate = ios_base::in | ios_base::out | ios_base::trunc;

inline constexpr std::int64_t kBlock = BlockBuffer::kBlockSize;
inline constexpr int kBlocks = BlockBuffer::kBlockCount;

// A byte that tells its position.
inline char Byte(std::int64_t position) {
  return static_cast<char>(position * 131 + position / 251 + 7);
}

inline std::string Bytes(std::int64_t begin, std::int64_t n) {
  std::string bytes(static_cast<std::size_t>(n), '\0');
  for (std::int64_t i = 0; i < n; ++i) bytes[static_cast<std::size_t>(i)] = Byte(begin + i);
  return bytes;
}

class BlockBufferTest : public testing::Test {
 protected:
  void SetUp() override {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = std::filesystem::path(testing::TempDir()) /
              ("block_buffer_" + std::string(test->name()) + "_" + std::to_string(std::random_device()()));
    std::filesystem::create_directories(folder_);
    name_ = (folder_ / "file.dat").string();
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  void Save(std::string_view bytes) const {
    std::ofstream(name_, ios_base::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
  [[nodiscard]] std::string Saved() const {
    std::ifstream file(name_, ios_base::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::filesystem::path folder_;
  std::string name_;
};

inline std::string Get(BlockBuffer& buffer, std::int64_t n) {
  std::string bytes(static_cast<std::size_t>(n), '?');
  bytes.resize(static_cast<std::size_t>(buffer.sgetn(bytes.data(), n)));
  return bytes;
}

inline std::int64_t Put(BlockBuffer& buffer, std::string_view bytes) {
  return buffer.sputn(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace block_buffer_test
