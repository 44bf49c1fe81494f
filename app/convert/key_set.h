#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace App {

/// A set of numbers that many rows are looked up in. Takes about two bytes for each number, however they lie,
/// and an eighth of a byte where they lie close together.
class KeySet {
 public:
  /// False when the number is in the set already. At most some thousand bytes are moved.
  bool Insert(std::uint32_t number);

 private:
  // The numbers with the same high half: by their low halves, in order, as long as they are few; then as
  // bits.
  class Block {
   public:
    bool Insert(std::uint16_t low);

   private:
    std::vector<std::uint16_t> lows_;
    std::vector<std::uint64_t> bits_;
  };

  std::vector<Block> blocks_;  // by the high half
};

}  // namespace App
