#include "app/convert/key_set.h"

#include <algorithm>

namespace App {

namespace {

constexpr std::size_t kHalf = 65536;
// From here on bits take less room.
constexpr std::size_t kMostLows = kHalf / 16;

// Sets a bit; false when it is set already.
bool Set(std::vector<std::uint64_t>& bits, std::uint16_t index) {
  std::uint64_t& word = bits[index / 64];
  const std::uint64_t bit = std::uint64_t{1} << (index % 64U);
  const bool is_new = (word & bit) == 0;
  word |= bit;
  return is_new;
}

}  // namespace

bool KeySet::Insert(std::uint32_t number) {
  const std::size_t high = number / kHalf;
  if (blocks_.size() <= high) blocks_.resize(high + 1);
  return blocks_[high].Insert(static_cast<std::uint16_t>(number % kHalf));
}

bool KeySet::Block::Insert(std::uint16_t low) {
  if (!bits_.empty()) return Set(bits_, low);
  const auto at = std::lower_bound(lows_.begin(), lows_.end(), low);
  if (at != lows_.end() && *at == low) return false;
  if (lows_.size() < kMostLows) {
    lows_.insert(at, low);
    return true;
  }
  bits_.resize(kHalf / 64);
  for (const std::uint16_t known : lows_) Set(bits_, known);
  lows_ = {};
  return Set(bits_, low);
}

}  // namespace App
