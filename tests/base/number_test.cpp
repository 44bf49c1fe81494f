#include "process_locale.h"
#include <pelor/base/number.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using Tobri::FltFmt;
using Tobri::IntFmt;
using Tobri::NumFmtGrp;
using Tobri::String;
using Tobri::TxtFmt;

constexpr int kIntMin = std::numeric_limits<int>::min();
constexpr int kIntMax = std::numeric_limits<int>::max();
constexpr const char* kMalformed[] = {"",    " ",  "x",   "12x",  "x12", "1 2", "+",   "-",    "+-1",
                                      "--1", "1-", "1,2", "0x10", "1e",  "inf", "nan", "1.2.3"};

TEST(TxtFmtTest, IntegersWithBlanksAroundAndASign) {
  EXPECT_EQ(TxtFmt<int>::Get("42", IntFmt()), 42);
  EXPECT_EQ(TxtFmt<int>::Get(" \t-42\r\n", IntFmt()), -42);
  EXPECT_EQ(TxtFmt<int>::Get("+7", IntFmt()), 7);
  EXPECT_EQ(TxtFmt<int>::Get("007", IntFmt()), 7);
  EXPECT_EQ(TxtFmt<int>::Get("-2147483648", IntFmt()), kIntMin);
  EXPECT_EQ(TxtFmt<long>::Get(" 2147483647 ", IntFmt()), 2147483647L);
}

TEST(TxtFmtTest, MalformedTextGivesZero) {
  for (const char* const text : kMalformed) {
    EXPECT_EQ(TxtFmt<int>::Get(text, IntFmt()), 0) << text;
    EXPECT_EQ(TxtFmt<long>::Get(text, IntFmt()), 0) << text;
    EXPECT_EQ(TxtFmt<double>::Get(text, FltFmt()), 0.0) << text;
  }
  EXPECT_EQ(TxtFmt<int>::Get("1.0", IntFmt()), 0);
  EXPECT_EQ(TxtFmt<int>::Get("1e3", IntFmt()), 0);
}

TEST(TxtFmtTest, IntegersOutOf32BitsGiveZero) {
  EXPECT_EQ(TxtFmt<int>::Get("2147483648", IntFmt()), 0);
  EXPECT_EQ(TxtFmt<int>::Get("-2147483649", IntFmt()), 0);
  EXPECT_EQ(TxtFmt<long>::Get("2147483648", IntFmt()), 0);
  EXPECT_EQ(TxtFmt<long>::Get("-2147483649", IntFmt()), 0);
  EXPECT_EQ(TxtFmt<long>::Get("99999999999999999999999", IntFmt()), 0);
}

TEST(TxtFmtTest, DoublesWithBlanksAroundSignAndExponent) {
  EXPECT_EQ(TxtFmt<double>::Get(" 12.5\t", FltFmt()), 12.5);
  EXPECT_EQ(TxtFmt<double>::Get("+1.5e3", FltFmt()), 1500.0);
  EXPECT_EQ(TxtFmt<double>::Get("-.25", FltFmt()), -0.25);
  EXPECT_EQ(TxtFmt<double>::Get("3", FltFmt()), 3.0);
}

TEST(TxtFmtTest, DoublesOutOfRangeGiveZero) {
  EXPECT_EQ(TxtFmt<double>::Get("1e400", FltFmt()), 0.0);
  EXPECT_FALSE(std::signbit(TxtFmt<double>::Get("-1e400", FltFmt())));
  EXPECT_TRUE(std::signbit(TxtFmt<double>::Get("-1e-400", FltFmt())));
}

TEST(TxtFmtTest, PutGivesTheDecimalDigits) {
  EXPECT_EQ(TxtFmt<int>::Put(0, IntFmt()), "0");
  EXPECT_EQ(TxtFmt<int>::Put(-15, IntFmt()), "-15");
  EXPECT_EQ(TxtFmt<int>::Put(kIntMin, IntFmt()), "-2147483648");
  EXPECT_EQ(TxtFmt<int>::Put(kIntMax, IntFmt()), "2147483647");
  EXPECT_EQ(TxtFmt<long>::Put(-7L, IntFmt()), "-7");
}

TEST(TxtFmtTest, ALongIsPutWithItsLow32Bits) {
  if constexpr (sizeof(long) > 4) {
    EXPECT_EQ(TxtFmt<long>::Put(std::numeric_limits<long>::max(), IntFmt()), "-1");
  }
}

TEST(TxtFmtTest, DoublesArePutAtThePrecisionOrAsShortAsReadsBack) {
  EXPECT_EQ(TxtFmt<double>::Put(0.1, FltFmt()), "0.1");
  EXPECT_EQ(TxtFmt<double>::Put(-512345.678901234, FltFmt()), "-512345.678901234");
  EXPECT_EQ(TxtFmt<double>::Put(13.377123456789, FltFmt{10}), "13.37712346");
  EXPECT_EQ(TxtFmt<double>::Put(0.1, FltFmt{17}), "0.10000000000000001");
  EXPECT_EQ(TxtFmt<double>::Put(0.1, FltFmt{99}), "0.10000000000000001");
  EXPECT_EQ(TxtFmt<double>::Put(-1.5e-300, FltFmt{-1}), "-1.5e-300");
}

TEST(TxtFmtTest, OtherBasesGoBothWays) {
  EXPECT_EQ(TxtFmt<int>::Put(-255, IntFmt{16, 0}), "-ff");
  EXPECT_EQ(TxtFmt<int>::Get("-FF", IntFmt{16, 0}), -255);
  EXPECT_EQ(TxtFmt<int>::Put(kIntMin, IntFmt{2, 0}), "-10000000000000000000000000000000");
  for (const int base : {-1, 0, 1, 37}) {
    EXPECT_EQ(TxtFmt<int>::Put(255, IntFmt{base, 0}), "255");
    EXPECT_EQ(TxtFmt<int>::Get("255", IntFmt{base, 0}), 255);
  }
}

TEST(TxtFmtTest, GroupsGoBothWays) {
  const IntFmt thousands{10, 3};
  EXPECT_EQ(TxtFmt<int>::Put(7, thousands), "7");
  EXPECT_EQ(TxtFmt<int>::Put(-123, thousands), "-123");
  EXPECT_EQ(TxtFmt<int>::Put(1234, thousands), "1,234");
  EXPECT_EQ(TxtFmt<int>::Put(-123456, thousands), "-123,456");
  EXPECT_EQ(TxtFmt<int>::Get(" -2,147,483,648 ", thousands), kIntMin);
  EXPECT_EQ(TxtFmt<int>::Get("1234", thousands), 1234);
  for (const char* const text : {",1", "1,", "1,,2", "-,1", "1,-2", ","}) {
    EXPECT_EQ(TxtFmt<int>::Get(text, thousands), 0) << text;
  }
  const IntFmt bits{2, 1};
  EXPECT_EQ(TxtFmt<int>::Get(TxtFmt<int>::Put(kIntMin, bits), bits), kIntMin);
}

TEST(TxtFmtTest, GroupingIsBounded) {
  EXPECT_EQ(TxtFmt<int>::Put(kIntMax, IntFmt{10, NumFmtGrp::max_grouping}), "2,147483647");
  EXPECT_EQ(TxtFmt<int>::Put(kIntMax, IntFmt{10, NumFmtGrp::max_grouping + 1}), "2,147483647");
  EXPECT_EQ(TxtFmt<int>::Put(kIntMax, IntFmt{10, -1}), "2147483647");
}

TEST(TxtFmtTest, NoLocaleChangesANumber) {
  const CommaProcess process;
  EXPECT_EQ(TxtFmt<int>::Put(1234567, IntFmt()), "1234567");
  EXPECT_EQ(TxtFmt<double>::Put(1234567.5, FltFmt{10}), "1234567.5");
  EXPECT_EQ(TxtFmt<double>::Get("1234567.5", FltFmt()), 1234567.5);
  EXPECT_EQ(TxtFmt<double>::Get("1,5", FltFmt()), 0.0);
}

}  // namespace
