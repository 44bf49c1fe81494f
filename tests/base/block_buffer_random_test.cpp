#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <ios>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <tests/base/block_buffer_fixture.h>

namespace block_buffer_test {
namespace {

// Random steps on a standard file stream and on the block buffer; both must tell the same all the way, and
// leave the same file.
void CompareWithAStandardStream(const std::string& folder, unsigned seed, std::int64_t reach, int steps) {
  SCOPED_TRACE(testing::Message() << "seed " << seed << ", reach " << reach);
  std::mt19937 random(seed);
  const auto below = [&](std::int64_t n) {
    return std::uniform_int_distribution<std::int64_t>(0, n - 1)(random);
  };
  const std::string names[] = {folder + "/standard", folder + "/block"};
  std::fstream standard(names[0], kCreate | ios_base::binary);
  BlockBuffer buffer;
  ASSERT_TRUE(buffer.open(names[1], kCreate));
  std::iostream stream(&buffer);
  std::int64_t position = 0;
  for (int step = 0; step < steps; ++step) {
    SCOPED_TRACE(testing::Message() << "step " << step);
    // Mostly short runs, now and then some that cross blocks; places near each other, or near a border.
    const std::int64_t n = below(8) == 0 ? below(2 * kBlock) : below(200);
    const auto expected_size = static_cast<std::int64_t>(standard.seekg(0, ios_base::end).tellg());
    switch (below(7)) {
      case 0:
        position = below(reach);
        stream.seekg(position);
        break;
      case 1:
        position = std::max<std::int64_t>(0, (below(reach / kBlock + 1) * kBlock) + below(5) - 2);
        stream.seekp(position);
        break;
      case 2: {
        const std::int64_t offset = below(400) - 200;
        if (position + offset < 0) break;
        position += offset;
        stream.seekg(offset, ios_base::cur);
        break;
      }
      case 3: {
        const std::int64_t offset = -below(std::min<std::int64_t>(expected_size, 1000) + 1);
        position = expected_size + offset;
        stream.seekp(offset, ios_base::end);
        break;
      }
      case 4:
      case 5: {
        std::string a(static_cast<std::size_t>(n), '?');
        std::string b = a;
        standard.seekg(position);
        standard.read(a.data(), n);
        stream.read(b.data(), n);
        ASSERT_EQ(stream.rdstate(), standard.rdstate());
        ASSERT_EQ(stream.gcount(), standard.gcount());
        ASSERT_TRUE(a == b);
        position += standard.gcount();
        standard.clear();
        stream.clear();
        break;
      }
      default: {
        std::string bytes(static_cast<std::size_t>(n), '\0');
        std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random()); });
        standard.seekp(position);
        if (below(4) == 0) {
          for (const char c : bytes) stream.put(c);
        } else {
          stream.write(bytes.data(), n);
        }
        standard.write(bytes.data(), n);
        position += n;
        if (below(10) == 0) stream.flush();
        break;
      }
    }
    standard.seekg(0, ios_base::end);
    ASSERT_TRUE(stream.good());
    ASSERT_EQ(stream.tellg(), position);
    ASSERT_EQ(buffer.Size(), standard.tellg());
  }
  standard.close();
  ASSERT_TRUE(buffer.close());
  const auto saved = [](const std::string& name) {
    std::ifstream file(name, ios_base::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  };
  EXPECT_TRUE(saved(names[0]) == saved(names[1]));
}

TEST_F(BlockBufferTest, RandomStepsGiveWhatAStandardStreamGives) {
  const unsigned seed = std::random_device()();
  RecordProperty("seed", std::to_string(seed));
  CompareWithAStandardStream(folder_.string(), seed, 2 * kBlock, 2000);
  CompareWithAStandardStream(folder_.string(), seed + 1, 3 * kBlocks * kBlock, 2000);
}

}  // namespace
}  // namespace block_buffer_test
