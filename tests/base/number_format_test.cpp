#include "process_locale.h"
#include <pelor/base/number_format.h>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iomanip>
#include <ios>
#include <limits>
#include <ostream>
#include <random>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

namespace {

using Tobri::PutDouble;
using Tobri::PutInteger;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string General(double value, int precision) {
  char buffer[Tobri::kGeneralSize];
  return {buffer, Tobri::FormatGeneral(buffer, value, precision)};
}

std::string Printed(double value, int precision) {
  char buffer[64];
  return {buffer, static_cast<std::size_t>(std::snprintf(buffer, sizeof buffer, "%.*g", precision, value))};
}

/// Compares with snprintf at every precision; false, with the failure noted, at the first difference.
bool EqualsPrinted(double value) {
  for (int precision = 0; precision <= Tobri::kMaxPrecision; ++precision) {
    for (const double number : {value, -value}) {
      const std::string text = General(number, precision);
      const std::string expected = Printed(number, precision);
      if (text == expected) continue;
      ADD_FAILURE() << std::hexfloat << number << " at " << precision << ": " << text << ", not " << expected;
      return false;
    }
  }
  return true;
}

/// The value and its four neighbours.
bool NeighboursEqualPrinted(double value) {
  const double below = std::nextafter(value, 0.0);
  const double above = std::nextafter(value, kInfinity);
  return EqualsPrinted(value) && EqualsPrinted(below) && EqualsPrinted(std::nextafter(below, 0.0)) &&
         EqualsPrinted(above) && EqualsPrinted(std::nextafter(above, kInfinity));
}

/// A generator whose seed the test report carries.
std::mt19937_64 LoggedRandom() {
  const std::uint64_t seed = std::random_device()();
  testing::Test::RecordProperty("seed", std::to_string(seed));
  std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
  return std::mt19937_64(seed);
}

TEST(FormatGeneralTest, TextsWorkedOutByHand) {
  EXPECT_EQ(General(512345.678901234, 10), "512345.6789");
  EXPECT_EQ(General(13.377123456789, 10), "13.37712346");
  EXPECT_EQ(General(-0.001, 10), "-0.001");
  EXPECT_EQ(General(0.0001, 10), "0.0001");
  EXPECT_EQ(General(0.00001, 10), "1e-05");
  EXPECT_EQ(General(1234567.0, 6), "1.23457e+06");
  EXPECT_EQ(General(1e100, 10), "1e+100");
  EXPECT_EQ(General(500000.0, 10), "500000");
  EXPECT_EQ(General(0.1, 17), "0.10000000000000001");
  EXPECT_EQ(General(-1.7976931348623157e308, 17), "-1.7976931348623157e+308");
  EXPECT_EQ(General(4.9406564584124654e-324, 17), "4.9406564584124654e-324");
}

TEST(FormatGeneralTest, HalvesGoToTheEvenDigit) {
  EXPECT_EQ(General(0.5, 1), "0.5");
  EXPECT_EQ(General(2.5, 1), "2");
  EXPECT_EQ(General(3.5, 1), "4");
  EXPECT_EQ(General(9.5, 1), "1e+01");
  EXPECT_EQ(General(8.5, 1), "8");
  EXPECT_EQ(General(99.5, 2), "1e+02");
  EXPECT_EQ(General(98.5, 2), "98");
  EXPECT_EQ(General(999999999.5, 9), "1e+09");
  EXPECT_EQ(General(12345678905.0, 10), "1.23456789e+10");
  EXPECT_EQ(General(12345678915.0, 10), "1.234567892e+10");
}

TEST(FormatGeneralTest, ACarryThroughAllDigitsMovesTheExponent) {
  EXPECT_EQ(General(9.9999999996, 10), "10");
  EXPECT_EQ(General(0.000099999999999, 10), "0.0001");
  EXPECT_EQ(General(999999.99999, 10), "1000000");
  EXPECT_EQ(General(9999999999.7, 10), "1e+10");
}

TEST(FormatGeneralTest, ZeroInfinityAndNaNKeepTheirSign) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const int precision : {0, 1, 10, 17}) {
    EXPECT_EQ(General(0.0, precision), "0");
    EXPECT_EQ(General(-0.0, precision), "-0");
    EXPECT_EQ(General(kInfinity, precision), "inf");
    EXPECT_EQ(General(-kInfinity, precision), "-inf");
    EXPECT_EQ(General(std::copysign(nan, 1.0), precision), "nan");
    EXPECT_EQ(General(std::copysign(nan, -1.0), precision), "-nan");
  }
}

TEST(FormatGeneralTest, PrecisionZeroCountsAsOne) {
  EXPECT_EQ(General(123.0, 0), "1e+02");
  EXPECT_EQ(General(0.25, 0), "0.2");
}

TEST(FormatGeneralTest, TheTextStaysWithinItsRoom) {
  for (const double value : {-1.2345678901234567e-300, -0.00012345678901234567, -1.2345678901234567e16,
                             -123456789012345.67, -2.2250738585072014e-308}) {
    for (int precision = 0; precision <= Tobri::kMaxPrecision; ++precision) {
      std::vector<char> buffer(Tobri::kGeneralSize + 16, '#');
      Tobri::FormatGeneral(buffer.data(), value, precision);
      for (std::size_t i = Tobri::kGeneralSize; i < buffer.size(); ++i) ASSERT_EQ(buffer[i], '#');
    }
  }
}

TEST(FormatGeneralTest, RandomBitPatternsEqualPrintf) {
  std::mt19937_64 random = LoggedRandom();
  for (int i = 0; i < 20'000; ++i) ASSERT_TRUE(EqualsPrinted(std::bit_cast<double>(random())));
}

TEST(FormatGeneralTest, ShortDecimalsEqualPrintf) {
  std::mt19937_64 random = LoggedRandom();
  for (int i = 0; i < 10'000; ++i) {
    const auto digits = static_cast<double>(random() % 10'000'000);
    ASSERT_TRUE(EqualsPrinted(digits / std::pow(10.0, static_cast<double>(random() % 16))));
  }
}

TEST(FormatGeneralTest, CoordinatesEqualPrintf) {
  std::mt19937_64 random = LoggedRandom();
  std::uniform_real_distribution<double> metres(0.0, 1e7);
  std::uniform_real_distribution<double> degrees(0.0, 180.0);
  for (int i = 0; i < 5'000; ++i) {
    ASSERT_TRUE(EqualsPrinted(metres(random)));
    ASSERT_TRUE(EqualsPrinted(degrees(random)));
  }
}

TEST(FormatGeneralTest, ExactHalvesEqualPrintf) {
  // Multiples of 1/2, 1/4, ... end in a 5 that is exact, at some digit of theirs.
  std::mt19937_64 random = LoggedRandom();
  for (int shift = 1; shift <= 40; ++shift) {
    for (int i = 0; i < 200; ++i) {
      const auto odd = static_cast<double>(random() % 1'000'000 * 2 + 1);
      ASSERT_TRUE(NeighboursEqualPrinted(std::ldexp(odd, -shift)));
    }
  }
}

TEST(FormatGeneralTest, HalvesOfPowersOfTenEqualPrintf) {
  for (int power = -30; power <= 30; ++power) {
    for (int digits = 0; digits < 100; ++digits) {
      ASSERT_TRUE(NeighboursEqualPrinted((digits + 0.5) * std::pow(10.0, power)));
    }
  }
  for (const double value : {9.5, 99.5, 999999999.5, 0.00001234565, 1.00000000005, 1e22, 1e22 + 5e21, 1e23,
                             5e-324, 9007199254740993.0, 4503599627370497.5}) {
    ASSERT_TRUE(NeighboursEqualPrinted(value));
  }
}

TEST(FormatGeneralTest, PowersOfTenAndTheirNeighboursEqualPrintf) {
  for (int power = -323; power <= 308; ++power) {
    ASSERT_TRUE(NeighboursEqualPrinted(std::strtod(("1e" + std::to_string(power)).c_str(), nullptr)));
  }
}

TEST(FormatGeneralTest, PowersOfTwoFromTheSmallestToTheLargestEqualPrintf) {
  for (int power = -1074; power <= 1023; ++power) ASSERT_TRUE(NeighboursEqualPrinted(std::ldexp(1.0, power)));
}

TEST(FormatGeneralTest, SubnormalsEqualPrintf) {
  std::mt19937_64 random = LoggedRandom();
  for (int i = 0; i < 5'000; ++i) {
    ASSERT_TRUE(EqualsPrinted(std::bit_cast<double>(random() >> 12 >> random() % 52)));
  }
}

TEST(FormatGeneralTest, WholeNumbersEqualPrintf) {
  for (int i = 0; i < 3'000; ++i) ASSERT_TRUE(EqualsPrinted(i));
  std::mt19937_64 random = LoggedRandom();
  for (int i = 0; i < 10'000; ++i) {
    ASSERT_TRUE(EqualsPrinted(static_cast<double>(random() >> random() % 64)));
  }
}

std::string Put(double value, std::streamsize precision) {
  std::ostringstream out;
  out.precision(precision);
  PutDouble(out, value);
  return out.str();
}

TEST(PutDoubleTest, UsesThePrecisionOfTheStream) {
  EXPECT_EQ(Put(13.377123456789, 6), "13.3771");
  EXPECT_EQ(Put(13.377123456789, 10), "13.37712346");
  EXPECT_EQ(Put(13.377123456789, 0), "1e+01");
  EXPECT_EQ(Put(0.1, 17), "0.10000000000000001");
}

TEST(PutDoubleTest, PrecisionsBeyondTheFastPathAreTheStreamsOwn) {
  EXPECT_EQ(Put(0.1, 18), "0.100000000000000006");
  EXPECT_EQ(Put(0.1, 30), "0.100000000000000005551115123126");
  EXPECT_EQ(Put(0.1, -1), "0.1");
}

TEST(PutDoubleTest, EveryFormatOfTheStreamEqualsTheStream) {
  const auto formats = std::vector<std::ios_base& (*)(std::ios_base&)>{
      std::defaultfloat, std::fixed,     std::scientific, std::hexfloat,
      std::showpos,      std::showpoint, std::uppercase};
  for (const auto format : formats) {
    for (const int width : {0, 20}) {
      for (const double value : {1234.5, -1e-10, 0.0, kInfinity}) {
        std::ostringstream expected;
        std::ostringstream out;
        expected << format << std::setw(width) << std::setfill('*') << value;
        out << format << std::setw(width) << std::setfill('*');
        PutDouble(out, value);
        EXPECT_EQ(out.str(), expected.str());
        EXPECT_EQ(out.width(), 0);
      }
    }
  }
}

TEST(PutDoubleTest, NoLocaleChangesANumber) {
  const CommaProcess process;
  for (const bool on_stream : {false, true}) {
    std::ostringstream out;  // takes the process's locale
    if (on_stream) out.imbue(CommaLocale());
    PutDouble(out, 123456.75);
    out << std::fixed << std::setprecision(2) << std::setw(12) << std::setfill('_');
    PutDouble(out, 123456.75);
    PutInteger(out, 1234567);
    out << std::showpos;
    PutInteger(out, 1234567L);
    EXPECT_EQ(out.str(), "123457___123456.751234567+1234567");
    EXPECT_EQ(General(1234567.25, 17), "1234567.25");
  }
}

TEST(PutDoubleTest, TheLocaleOfTheStreamStaysAsItWas) {
  std::ostringstream out;
  out.imbue(CommaLocale());
  out << std::fixed;
  PutDouble(out, 1.5);
  out << ' ' << 1.5;
  EXPECT_EQ(out.str(), "1.500000 1,500000");
}

/// Takes `room` characters and no more.
class ShortBuffer : public std::streambuf {
 public:
  explicit ShortBuffer(int room) { setp(text_, text_ + room); }

 private:
  char text_[8] = {};
};

TEST(PutDoubleTest, AShortWriteSetsTheBadBit) {
  ShortBuffer plain_room(4);
  std::ostream plain(&plain_room);
  PutDouble(plain, 1.5);
  EXPECT_TRUE(plain.good());
  PutDouble(plain, 1.5);
  EXPECT_TRUE(plain.bad());

  ShortBuffer fixed_room(4);
  std::ostream fixed(&fixed_room);
  fixed.imbue(CommaLocale());
  fixed << std::fixed;
  PutDouble(fixed, 1.5);
  EXPECT_TRUE(fixed.bad());
}

TEST(PutIntegerTest, LimitsOfEveryType) {
  std::ostringstream out;
  PutInteger(out, std::numeric_limits<int>::min());
  out << ' ';
  PutInteger(out, std::numeric_limits<unsigned>::max());
  out << ' ';
  PutInteger(out, 0L);
  out << ' ';
  PutInteger(out, -2147483648L);
  EXPECT_EQ(out.str(), "-2147483648 4294967295 0 -2147483648");

  std::ostringstream wide;
  PutInteger(wide, std::numeric_limits<long>::min());
  PutInteger(wide, std::numeric_limits<unsigned long>::max());
  EXPECT_EQ(wide.str(), std::to_string(std::numeric_limits<long>::min()) +
                            std::to_string(std::numeric_limits<unsigned long>::max()));
}

TEST(PutIntegerTest, BaseWidthAndFillAreTheStreams) {
  std::ostringstream out;
  out.imbue(CommaLocale());
  out << std::hex << std::setw(10) << std::setfill('0');
  PutInteger(out, -2);
  PutInteger(out, 255U);
  EXPECT_EQ(out.str(), "00fffffffeff");
}

}  // namespace
