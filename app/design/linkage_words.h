#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace App {

/// The attribute linkages that an element is written with.
class LinkageWords {
 public:
  /// Ties the element to the row `key` of the database table `entity`.
  void AddDatabase(std::uint16_t entity, std::uint32_t key) noexcept {
    Add({0x1007, 0x5E62, 0x0F81, entity, static_cast<std::uint16_t>(key & 0xFFFFU),
         static_cast<std::uint16_t>(key >> 16U), 0, 0});
  }
  /// Fills the area with the colour of this index.
  void AddFill(std::uint8_t color) noexcept { Add({0x1007, 0x0041, 0x0802, 0x0001, color, 0, 0, 0}); }

  [[nodiscard]] std::span<const std::uint16_t> Words() const noexcept { return {words_.data(), used_}; }

 private:
  static constexpr std::size_t kLinkageWords = 8;

  void Add(const std::array<std::uint16_t, kLinkageWords>& linkage) noexcept {
    if (used_ == words_.size()) return;
    for (const std::uint16_t word : linkage) words_[used_++] = word;
  }

  // One of each kind.
  std::array<std::uint16_t, 2 * kLinkageWords> words_{};
  std::size_t used_ = 0;
};

}  // namespace App
