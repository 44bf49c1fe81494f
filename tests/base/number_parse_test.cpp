#include "process_locale.h"
#include <pelor/base/number_format.h>
#include <pelor/base/number_parse.h>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <string_view>

namespace {

constexpr double kUntouched = -77.25;

struct Parsed {
  double value = kUntouched;
  std::ptrdiff_t length = -1;  ///< -1 for no number
};

Parsed Parse(std::string_view text) {
  Parsed parsed;
  const char* const end = Tobri::ParseDouble(text.data(), text.data() + text.size(), parsed.value);
  if (end != nullptr) parsed.length = end - text.data();
  return parsed;
}

/// The whole text is one number, and of this value, sign included.
void ExpectNumber(std::string_view text, double value) {
  const Parsed parsed = Parse(text);
  EXPECT_EQ(parsed.length, static_cast<std::ptrdiff_t>(text.size())) << text;
  EXPECT_EQ(parsed.value, value) << text;
  EXPECT_EQ(std::signbit(parsed.value), std::signbit(value)) << text;
}

void ExpectNoNumber(std::string_view text) {
  const Parsed parsed = Parse(text);
  EXPECT_EQ(parsed.length, -1) << text;
  EXPECT_EQ(parsed.value, kUntouched) << text;
}

TEST(ParseDoubleTest, TakesSignsPointsAndExponents) {
  ExpectNumber("0", 0.0);
  ExpectNumber("-0", -0.0);
  ExpectNumber("+7", 7.0);
  ExpectNumber("-512345.6789", -512345.6789);
  ExpectNumber(".5", 0.5);
  ExpectNumber("-.5", -0.5);
  ExpectNumber("5.", 5.0);
  ExpectNumber("1e3", 1000.0);
  ExpectNumber("+1.5E-3", 0.0015);
  ExpectNumber("1.e+2", 100.0);
  ExpectNumber("007.50", 7.5);
  ExpectNumber("0e999999999999999999999", 0.0);
}

TEST(ParseDoubleTest, StopsBehindTheNumber) {
  EXPECT_EQ(Parse("12.5 7").length, 4);
  EXPECT_EQ(Parse("12,5").length, 2);
  EXPECT_EQ(Parse("1.2.3").length, 3);
  EXPECT_EQ(Parse("1-2").length, 1);
  EXPECT_EQ(Parse("12e").length, 2);
  EXPECT_EQ(Parse("12e+").length, 2);
  EXPECT_EQ(Parse("12end").length, 2);
  EXPECT_EQ(Parse("0x10").length, 1);
  EXPECT_EQ(Parse("0x10").value, 0.0);
}

TEST(ParseDoubleTest, WhatIsNoNumberLeavesTheValue) {
  for (const char* const text :
       {"",    "+",  "-", ".",   "-.",   "+.",        "e5",  ".e5",  "+-5",    "-+5",
        "--5", " 5", "x", "inf", "-inf", "+infinity", "nan", "-nan", "NAN(1)", "INF"}) {
    ExpectNoNumber(text);
  }
}

TEST(ParseDoubleTest, NeverReadsBehindTheRange) {
  const std::string_view text = "123456.789e5";
  for (std::size_t length = 1; length <= text.size(); ++length) {
    const std::string exact(text.substr(0, length));
    double expected = std::strtod(exact.c_str(), nullptr);
    EXPECT_EQ(Parse(exact).value, expected) << exact;
    EXPECT_EQ(Parse(text.substr(0, length)).value, expected) << exact;
  }
}

TEST(ParseDoubleTest, AMagnitudeBeyondTheLargestDoubleIsNoNumber) {
  ExpectNumber("1.7976931348623157e308", std::numeric_limits<double>::max());
  for (const std::string& text : {std::string("1e309"), std::string("-1e309"), std::string("1.8e308"),
                                  std::string("1e99999999999999999999"), std::string(400, '9'),
                                  "0." + std::string(400, '0') + "1e800"}) {
    ExpectNoNumber(text);
  }
}

TEST(ParseDoubleTest, AMagnitudeBelowTheSmallestDoubleIsZeroWithItsSign) {
  ExpectNumber("4.9406564584124654e-324", std::numeric_limits<double>::denorm_min());
  ExpectNumber("1e-310", 1e-310);
  ExpectNumber("1e-400", 0.0);
  ExpectNumber("-1e-400", -0.0);
  ExpectNumber("1e-99999999999999999999", 0.0);
  ExpectNumber("0." + std::string(400, '0') + "1", 0.0);
  ExpectNumber("-" + std::string(400, '9') + "e-9999", -0.0);
}

TEST(ParseDoubleTest, TheLimitsOfTheExactDivision) {
  ExpectNumber("9007199254740992", 9007199254740992.0);
  ExpectNumber("9007199254740993", 9007199254740992.0);
  ExpectNumber("900719925474099.3", 900719925474099.3);
  ExpectNumber("0.0000000000000000001", 1e-19);
  ExpectNumber("0.000000000000000000000001", 1e-24);
  ExpectNumber("9999999999999999999", 9999999999999999999.0);
  ExpectNumber("18446744073709551617", 18446744073709551617.0);
  ExpectNumber("123456789012345678901234567890", 123456789012345678901234567890.0);
}

TEST(ParseDoubleTest, RandomNumbersAreReadAsStrtodReadsThem) {
  const std::uint64_t seed = std::random_device()();
  std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
  std::mt19937_64 random(seed);
  for (int i = 0; i < 200'000; ++i) {
    const double value = i % 2 == 0 ? std::bit_cast<double>(random())
                                    : static_cast<double>(random() >> 20) / std::pow(10.0, random() % 20);
    if (!std::isfinite(value)) continue;
    char text[Tobri::kGeneralSize + 1];
    char* const end = Tobri::FormatGeneral(text, value, 1 + i / 2 % Tobri::kMaxPrecision);
    *end = '\0';
    double expected = std::strtod(text, nullptr);
    if (std::isinf(expected)) continue;
    double parsed = 0.0;
    ASSERT_EQ(Tobri::ParseDouble(text, end, parsed), end) << text;
    ASSERT_EQ(parsed, expected) << text;
  }
}

TEST(ParseDoubleTest, NoLocaleChangesANumber) {
  const CommaProcess process;
  ExpectNumber("1234567.5", 1234567.5);
  ExpectNumber("12345678901234567890.5", 12345678901234567890.5);
  EXPECT_EQ(Parse("1,5").length, 1);
}

TEST(ParseIntegerTest, TakesOneSignAndStopsBehindTheDigits) {
  const auto parse = [](std::string_view text, int& value) {
    const char* const end = Tobri::ParseInteger(text.data(), text.data() + text.size(), value);
    return end == nullptr ? -1 : static_cast<int>(end - text.data());
  };
  int value = 0;
  EXPECT_EQ(parse("+12 ", value), 3);
  EXPECT_EQ(value, 12);
  EXPECT_EQ(parse("-2147483648", value), 11);
  EXPECT_EQ(value, std::numeric_limits<int>::min());
  EXPECT_EQ(parse("7.9", value), 1);
  EXPECT_EQ(value, 7);
  for (const char* const text : {"", "+", "-", "+-1", "-+1", " 1", "x", "2147483648", "-2147483649"}) {
    EXPECT_EQ(parse(text, value), -1) << text;
    EXPECT_EQ(value, 7) << text;
  }
}

TEST(ParseIntegerTest, UnsignedTypesAndOtherBases) {
  const std::string_view text = "ffff";
  std::uint16_t value = 0;
  EXPECT_EQ(Tobri::ParseInteger(text.data(), text.data() + 4, value, 16), text.data() + 4);
  EXPECT_EQ(value, 65535);
  const std::string_view negative = "-1";
  EXPECT_EQ(Tobri::ParseInteger(negative.data(), negative.data() + 2, value), nullptr);
}

}  // namespace
