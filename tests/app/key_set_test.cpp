#include "app/convert/key_set.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <set>

namespace App {
namespace {

TEST(KeySetTest, TakesEveryNumberOnce) {
  KeySet set;
  for (const std::uint32_t number : {0U, 1U, 65535U, 65536U, 2147483647U, 4294967295U}) {
    EXPECT_TRUE(set.Insert(number)) << number;
    EXPECT_FALSE(set.Insert(number)) << number;
  }
}

TEST(KeySetTest, RemembersWhatLiesCloseTogether) {
  KeySet set;
  // Backwards, and past the number from which a block is kept as bits.
  for (std::uint32_t number = 200000; number-- > 100000;) EXPECT_TRUE(set.Insert(number)) << number;
  for (std::uint32_t number = 100000; number < 200000; ++number) EXPECT_FALSE(set.Insert(number)) << number;
  EXPECT_TRUE(set.Insert(99999));
  EXPECT_TRUE(set.Insert(200000));
}

TEST(KeySetTest, DoesAsASetDoes) {
  std::mt19937 random(4711);
  KeySet set;
  std::set<std::uint32_t> other;
  for (int i = 0; i < 50000; ++i) {
    const auto number = static_cast<std::uint32_t>(random() % 300000);
    EXPECT_EQ(set.Insert(number), other.insert(number).second) << number;
  }
}

}  // namespace
}  // namespace App
