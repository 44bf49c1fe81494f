#include <pelor/base/decimal_power.h>

#include <gtest/gtest.h>

#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

namespace Decimal = Tobri::Decimal;

/// A whole number of any size, the lowest limb first.
using Limbs = std::vector<std::uint32_t>;

void Multiply(Limbs& number, std::uint32_t factor) {
  std::uint64_t carry = 0;
  for (std::uint32_t& limb : number) {
    carry += std::uint64_t{limb} * factor;
    limb = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
  if (carry != 0) number.push_back(static_cast<std::uint32_t>(carry));
}

Limbs ShiftedLeft(const Limbs& number, int bits) {
  Limbs shifted(static_cast<std::size_t>(bits / 32), 0);
  shifted.insert(shifted.end(), number.begin(), number.end());
  Multiply(shifted, std::uint32_t{1} << bits % 32);
  return shifted;
}

std::strong_ordering Compare(const Limbs& a, const Limbs& b) {
  if (a.size() != b.size()) return a.size() <=> b.size();
  for (std::size_t i = a.size(); i-- > 0;) {
    if (a[i] != b[i]) return a[i] <=> b[i];
  }
  return std::strong_ordering::equal;
}

/// The 128 bits of a power, with one added if asked.
Limbs Mantissa(const Decimal::Power& power, bool plus_one) {
  Limbs limbs = {static_cast<std::uint32_t>(power.low), static_cast<std::uint32_t>(power.low >> 32),
                 static_cast<std::uint32_t>(power.high), static_cast<std::uint32_t>(power.high >> 32)};
  if (!plus_one) return limbs;
  for (std::uint32_t& limb : limbs) {
    if (++limb != 0) return limbs;
  }
  limbs.push_back(1);
  return limbs;
}

Limbs PowerOfFive(int exponent) {
  Limbs number = {1};
  for (int i = 0; i < exponent; ++i) Multiply(number, 5);
  return number;
}

/// mantissa x 2^(BinaryExponent - 127) compared with 10^power, both brought to whole numbers.
std::strong_ordering CompareWithTrue(const Limbs& mantissa, int power) {
  // mantissa x 2^shift against 5^power; for a negative power mantissa x 5^-power x 2^shift against 1.
  const int shift = Decimal::BinaryExponent(power) - 127 - power;
  Limbs left = mantissa;
  Limbs right = {1};
  if (power >= 0) {
    right = PowerOfFive(power);
  } else {
    for (int i = 0; i < -power; ++i) Multiply(left, 5);
  }
  if (shift >= 0) {
    left = ShiftedLeft(left, shift);
  } else {
    right = ShiftedLeft(right, -shift);
  }
  return Compare(left, right);
}

TEST(DecimalPowerTest, EveryPowerIsTheTrueOneCutToItsLeading128Bits) {
  for (int power = Decimal::kFirstPower; power <= Decimal::kLastPower; ++power) {
    SCOPED_TRACE(power);
    const Decimal::Power& entry = Decimal::PowerOfTen(power);
    EXPECT_EQ(entry.high >> 63, 1U);
    const std::strong_ordering order = CompareWithTrue(Mantissa(entry, false), power);
    const bool exact = power >= 0 && power <= Decimal::kLastExactPower;
    EXPECT_EQ(order, exact ? std::strong_ordering::equal : std::strong_ordering::less);
    EXPECT_EQ(CompareWithTrue(Mantissa(entry, true), power), std::strong_ordering::greater);
  }
}

TEST(DecimalPowerTest, TheDecimalExponentIsThatOfThePowerOfTwo) {
  // 10^d <= 2^e < 10^(d+1); but for 10^0 no power of ten is a power of two.
  for (int exponent = -1074; exponent <= 1023; ++exponent) {
    SCOPED_TRACE(exponent);
    const int decimal = Decimal::DecimalExponent(exponent);
    const int lower = Decimal::BinaryExponent(decimal);
    EXPECT_TRUE(lower < exponent || (lower == exponent && decimal == 0));
    EXPECT_GE(Decimal::BinaryExponent(decimal + 1), exponent);
  }
}

}  // namespace
