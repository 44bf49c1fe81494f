#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace Tobri::Decimal {

/// The leading 128 bits of a power of ten, cut off (never rounded up), the highest bit set.
struct Power {
  std::uint64_t high;
  std::uint64_t low;
};

// Any double is compared with the power of ten above it, 10^-323 for the smallest, and scaled to 1 to 17
// digits, by up to 10^340.
inline constexpr int kFirstPower = -323;
inline constexpr int kLastPower = 340;
/// 10^0 to 10^55 fit in 128 bits after their factors of two are taken out; no other power is exact.
inline constexpr int kLastExactPower = 55;

/// floor(log2(10^power)), for every power of the table.
[[nodiscard]] constexpr int BinaryExponent(int power) noexcept {
  return (power * 1741647) >> 19;
}

/// floor(log10(2^exponent)), for the binary exponent of every double.
[[nodiscard]] constexpr int DecimalExponent(int exponent) noexcept {
  return (exponent * 78913) >> 18;
}

/// A whole number of up to 896 bits, for building the table.
class WideNumber {
 public:
  static constexpr int kBits = 896;

  static constexpr WideNumber PowerOfTwo(int exponent) noexcept {
    WideNumber number;
    number.limbs_[static_cast<std::size_t>(exponent / 32)] = std::uint32_t{1} << exponent % 32;
    return number;
  }

  constexpr void MultiplyByFive() noexcept {
    std::uint64_t carry = 0;
    for (std::uint32_t& limb : limbs_) {
      carry += std::uint64_t{limb} * 5;
      limb = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
  }

  constexpr void DivideByFive() noexcept {
    std::uint64_t rest = 0;
    for (std::size_t i = limbs_.size(); i-- > 0;) {
      rest = rest << 32 | limbs_[i];
      limbs_[i] = static_cast<std::uint32_t>(rest / 5);
      rest %= 5;
    }
  }

  /// The leading 128 bits of a number that is not 0.
  [[nodiscard]] constexpr Power Leading() const noexcept {
    std::size_t top = limbs_.size() - 1;
    while (limbs_[top] == 0) --top;
    const int shift = std::countl_zero(limbs_[top]);
    const auto pair = [&](std::size_t depth) {
      const std::uint64_t upper = std::uint64_t{Limb(top, depth)} << 32 | Limb(top, depth + 1);
      return shift == 0 ? upper : upper << shift | Limb(top, depth + 2) >> (32 - shift);
    };
    return {pair(0), pair(2)};
  }

 private:
  /// The limb `depth` places below `top`; 0 below the last.
  [[nodiscard]] constexpr std::uint32_t Limb(std::size_t top, std::size_t depth) const noexcept {
    return depth <= top ? limbs_[top - depth] : 0;
  }

  std::array<std::uint32_t, kBits / 32> limbs_{};
};

/// 10^kFirstPower to 10^kLastPower. A factor of two moves no leading bit, so powers of five are enough; the
/// inverse ones are floor(2^895 / 5^n), where a floor of a floor is the floor of the whole.
inline constexpr auto kPowers = [] {
  std::array<Power, kLastPower - kFirstPower + 1> powers{};
  constexpr auto kOne = static_cast<std::size_t>(-kFirstPower);
  WideNumber number = WideNumber::PowerOfTwo(0);
  for (std::size_t i = kOne; i < powers.size(); ++i) {
    powers[i] = number.Leading();
    number.MultiplyByFive();
  }
  number = WideNumber::PowerOfTwo(WideNumber::kBits - 1);
  for (std::size_t i = kOne; i-- > 0;) {
    number.DivideByFive();
    powers[i] = number.Leading();
  }
  return powers;
}();

[[nodiscard]] constexpr const Power& PowerOfTen(int power) noexcept {
  return kPowers[static_cast<std::size_t>(power - kFirstPower)];
}

}  // namespace Tobri::Decimal
