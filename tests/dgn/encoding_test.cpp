#include <pelor/dgn/encoding.h>

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <memory>
#include <sstream>
#include <string>
#include <tests/dgn/words.h>
#include <vector>

namespace {

namespace DGN = Pelor::DGN;
using dgn_test::InBytes;
using dgn_test::InWords;
using dgn_test::Words;

template <class... Arguments>
std::string Written(Arguments... arguments) {
  std::ostringstream out;
  DGN::write(out, arguments...);
  return out.str();
}

template <class T, class... Arguments>
T Got(const std::string& bytes, Arguments... arguments) {
  std::istringstream in(bytes);
  T value = 99;
  DGN::read(in, value, arguments...);
  EXPECT_TRUE(in.good());
  return value;
}

double DFloat(const char* words) {
  return Got<double>(Words(words));
}

// --- bytes, words, longs

TEST(EncodingTest, AByteStandsAsItIs) {
  EXPECT_EQ(InBytes(Written(static_cast<unsigned char>(0xA5))), "A5");
  EXPECT_EQ(Got<unsigned char>("\xA5"), 0xA5);
}

TEST(EncodingTest, AWordIsStoredLowByteFirst) {
  EXPECT_EQ(InBytes(Written(static_cast<unsigned short>(0x1234))), "34 12");
  EXPECT_EQ(Got<unsigned short>("\x34\x12"), 0x1234);
  EXPECT_EQ(Got<unsigned short>("\xFE\xFF"), 0xFFFE);
}

TEST(EncodingTest, ALongIsStoredHighWordFirst) {
  EXPECT_EQ(InBytes(Written(0x12345678L, false)), "34 12 78 56");
  EXPECT_EQ(Got<long>("\x34\x12\x78\x56", false), 0x12345678L);
}

TEST(EncodingTest, ALongIsSignExtended) {
  EXPECT_EQ(Got<long>("\xFF\xFF\xFE\xFF", false), -2L);
  EXPECT_EQ(InBytes(Written(-2L, false)), "FF FF FE FF");
}

TEST(EncodingTest, TheLow32BitsOfALongAreWritten) {
  EXPECT_EQ(InBytes(Written(0x7712345678L, false)), "34 12 78 56");
}

TEST(EncodingTest, RangeFormInvertsTheSignBit) {
  EXPECT_EQ(InBytes(Written(0L, true)), "00 80 00 00");
  EXPECT_EQ(InBytes(Written(-1L, true)), "FF 7F FF FF");
  EXPECT_EQ(InBytes(Written(-2147483648L, true)), "00 00 00 00");
  EXPECT_EQ(InBytes(Written(2147483647L, true)), "FF FF FF FF");
  EXPECT_EQ(Got<long>(std::string("\x00\x80\x00\x00", 4), true), 0L);
  EXPECT_EQ(Got<long>(std::string(4, '\0'), true), -2147483648L);
}

TEST(EncodingTest, AValueThatIsCutOffStaysAsItWas) {
  const auto expect_unread = []<class T>(T value, std::size_t size, auto... arguments) {
    for (std::size_t length = 0; length < size; ++length) {
      std::istringstream in(std::string(length, 'x'));
      T target = value;
      DGN::read(in, target, arguments...);
      EXPECT_TRUE(in.fail()) << length;
      EXPECT_TRUE(in.eof()) << length;
      EXPECT_EQ(target, value) << length;
    }
  };
  expect_unread(static_cast<unsigned char>(7), 1);
  expect_unread(static_cast<unsigned short>(7), 2);
  expect_unread(7L, 4, true);
  expect_unread(7.0, 8);
}

// Takes no byte at all.
class FullBuffer : public std::streambuf {};

TEST(EncodingTest, AFailedWriteSetsTheBadState) {
  const auto expect_bad = [](auto... arguments) {
    FullBuffer buffer;
    std::ostream out(&buffer);
    DGN::write(out, arguments...);
    EXPECT_TRUE(out.bad());
  };
  expect_bad(static_cast<unsigned char>(1));
  expect_bad(static_cast<unsigned short>(1));
  expect_bad(1L, false);
  expect_bad(1.0);
}

// --- D-floats

TEST(DFloatTest, KnownWordsReadAsTheirNumbers) {
  EXPECT_EQ(DFloat("4080 0000 0000 0000"), 1.0);
  EXPECT_EQ(DFloat("C120 0000 0000 0000"), -2.5);
  EXPECT_EQ(DFloat("4774 2400 0000 0000"), 15625.0);
  EXPECT_EQ(DFloat("4A74 2400 0000 0000"), 1000000.0);
}

TEST(DFloatTest, ZeroAndTheBareSignReadAsZeroes) {
  EXPECT_EQ(DFloat("0000 0000 0000 0000"), 0.0);
  EXPECT_FALSE(std::signbit(DFloat("0000 0000 0000 0000")));
  EXPECT_EQ(DFloat("8000 0000 0000 0000"), 0.0);
  EXPECT_TRUE(std::signbit(DFloat("8000 0000 0000 0000")));
}

TEST(DFloatTest, TheThreeLowestFractionBitsAreCutOff) {
  EXPECT_EQ(DFloat("4080 0000 0000 0007"), 1.0);
  EXPECT_EQ(DFloat("4080 0000 0000 0008"), std::nextafter(1.0, 2.0));
  EXPECT_EQ(DFloat("4080 0000 0000 000F"), std::nextafter(1.0, 2.0));
}

TEST(DFloatTest, AFractionBelowTheExponentStaysSubnormal) {
  // Shifted by three the first word is 0, so the exponent is left alone.
  EXPECT_EQ(std::bit_cast<std::uint64_t>(DFloat("0000 0008 0000 0000")), 0x0000000100000000U);
  // The smallest that is not: 0008 becomes 0001 and 37E1.
  EXPECT_EQ(std::bit_cast<std::uint64_t>(DFloat("0008 0000 0000 0000")), 0x37E1000000000000U);
}

TEST(DFloatTest, EveryExponentFits) {
  EXPECT_EQ(DFloat("7FFF FFFF FFFF FFFF"), std::nextafter(std::ldexp(1.0, 127), 0.0));
  EXPECT_EQ(DFloat("FF80 0000 0000 0000"), -std::ldexp(1.0, 126));
  EXPECT_EQ(DFloat("0080 0000 0000 0000"), std::ldexp(1.0, -128));
}

TEST(DFloatTest, KnownNumbersAreWrittenAsTheirWords) {
  EXPECT_EQ(InWords(Written(1.0)), "4080 0000 0000 0000");
  EXPECT_EQ(InWords(Written(-2.5)), "C120 0000 0000 0000");
  EXPECT_EQ(InWords(Written(0.0)), "0000 0000 0000 0000");
}

TEST(DFloatTest, MinusZeroAndSubnormalsAreWrittenWithoutSign) {
  EXPECT_EQ(InWords(Written(-0.0)), "0000 0000 0000 0000");
  EXPECT_EQ(InWords(Written(-std::numeric_limits<double>::denorm_min())), "0000 0000 0000 0008");
}

TEST(DFloatTest, TheCarryBetweenWordsGoesToBit12) {
  EXPECT_EQ(InWords(Written(1000000.0)), "4A70 2400 0000 0000");
  EXPECT_EQ(DFloat("4A70 2400 0000 0000"), 983616.0);
  // Bits 15, 14 and 13 of a lower word leave it in that order; their carries end in bits 14, 13 and 12.
  const auto written = [](std::uint64_t bits) { return InWords(Written(std::bit_cast<double>(bits))); };
  EXPECT_EQ(written(0x3FF000000000E000), "4080 0000 7000 0000");
  EXPECT_EQ(written(0x3FF00000E0000000), "4080 7000 0000 0000");
  EXPECT_EQ(written(0x3FF0E00000000000), "7080 0000 0000 0000");
  EXPECT_EQ(written(0x3FF0000000008000), "4080 0000 4000 0000");
  EXPECT_EQ(written(0x3FF0000000004000), "4080 0000 2000 0000");
  EXPECT_EQ(written(0x3FF0000000002000), "4080 0000 1000 0000");
  EXPECT_EQ(written(0x3FF0000000001FFF), "4080 0000 0000 FFF8");
  // A carry that has reached a higher word is shifted on in it, but out of bit 12 nothing falls.
  EXPECT_EQ(written(0xBFFFFFFFFFFFFFFF), "F0F8 FFF8 FFF8 FFF8");
}

TEST(DFloatTest, ExponentsOutOfRangeWrapInSixteenBits) {
  EXPECT_EQ(InWords(Written(std::ldexp(1.0, 127))), "8000 0000 0000 0000");
  EXPECT_EQ(InWords(Written(std::ldexp(1.0, -129))), "0000 0000 0000 0000");
  EXPECT_EQ(InWords(Written(std::ldexp(1.0, -130))), "FF80 0000 0000 0000");
  EXPECT_EQ(InWords(Written(std::numeric_limits<double>::infinity())), "4080 0000 0000 0000");
}

TEST(DFloatTest, ConversionInPlaceIsTheSame) {
  const std::string bytes = Words("C120 0000 0000 0000");
  std::array<char, sizeof(double)> raw;
  std::copy(bytes.begin(), bytes.end(), raw.begin());
  auto value = std::bit_cast<double>(raw);
  DGN::DECDtoIEEE(&value);
  EXPECT_EQ(value, -2.5);
  DGN::IEEEtoDECD(&value);
  raw = std::bit_cast<std::array<char, sizeof(double)>>(value);
  EXPECT_EQ(InWords({raw.data(), raw.size()}), "C120 0000 0000 0000");
}

// --- Radix-50

std::vector<unsigned short> Packed(const std::string& text, unsigned capacity) {
  std::vector<unsigned short> words(capacity + 1, 0xBEEF);
  unsigned count = capacity;
  DGN::str2rd50(text.data(), static_cast<unsigned>(text.size()), words.data(), count);
  EXPECT_EQ(words[count], 0xBEEF) << "written past the count";
  words.resize(count);
  return words;
}

TEST(Radix50Test, LengthsAreRoundedUpToWords) {
  EXPECT_EQ(DGN::rad50length(0), 0U);
  EXPECT_EQ(DGN::rad50length(1), 1U);
  EXPECT_EQ(DGN::rad50length(3), 1U);
  EXPECT_EQ(DGN::rad50length(4), 2U);
  EXPECT_EQ(DGN::rad50length(0xFFFFFFFF), 0x55555555U);
}

TEST(Radix50Test, EveryCharacterHasItsCode) {
  for (int c = 0; c < 256; ++c) {
    int code = 29;
    if (c >= 'A' && c <= 'Z') code = c - 'A' + 1;
    if (c >= 'a' && c <= 'z') code = c - 'a' + 1;
    if (c >= '0' && c <= '9') code = c - '0' + 30;
    if (c == ' ') code = 0;
    if (c == '&') code = 27;
    if (c == '.') code = 28;
    EXPECT_EQ(Packed(std::string(2, ' ') + static_cast<char>(c), 1).at(0), code) << c;
  }
}

TEST(Radix50Test, EveryCodeHasItsCharacter) {
  const std::string alphabet = " ABCDEFGHIJKLMNOPQRSTUVWXYZ&._0123456789";
  ASSERT_EQ(alphabet.size(), 40U);
  for (unsigned short code = 0; code < 40; ++code) {
    EXPECT_EQ(DGN::tointernal(&code, 1).str(), "  " + alphabet.substr(code, 1));
  }
}

TEST(Radix50Test, AShortGroupIsFilledUpWithBlanks) {
  EXPECT_EQ(Packed("AB", 1), std::vector<unsigned short>{1680});
  EXPECT_EQ(Packed("A", 1), std::vector<unsigned short>{1600});
  const unsigned short word = 1680;
  EXPECT_EQ(DGN::tointernal(&word, 1).str(), "AB ");
}

TEST(Radix50Test, SmallLettersComeBackAsCapitals) {
  // HEL = 8 * 1600 + 5 * 40 + 12, LO = 12 * 1600 + 15 * 40.
  const auto packed = Packed("hello", 9);
  EXPECT_EQ(packed, (std::vector<unsigned short>{13012, 19800}));
  EXPECT_EQ(DGN::tointernal(packed.data(), 2).str(), "HELLO ");
}

TEST(Radix50Test, UnknownCharactersComeBackAsUnderscores) {
  EXPECT_EQ(Packed("$", 1), std::vector<unsigned short>{29 * 1600});
  const unsigned short word = 29 * 1600;
  EXPECT_EQ(DGN::tointernal(&word, 1).str(), "_  ");
}

TEST(Radix50Test, PackingStopsAtTheCapacity) {
  EXPECT_EQ(Packed("ABCDEF", 1), std::vector<unsigned short>{1683});
  EXPECT_TRUE(Packed("ABC", 0).empty());
  EXPECT_TRUE(Packed("", 4).empty());
}

TEST(Radix50Test, UnpackingStopsAtTheCapacity) {
  const unsigned short words[] = {1683, 4 * 1600 + 5 * 40 + 6};
  for (unsigned capacity = 0; capacity <= 8; ++capacity) {
    std::string text(9, '#');
    unsigned length = capacity;
    DGN::rd502str(words, 2, text.data(), length);
    EXPECT_EQ(length, std::min(capacity, 6U));
    EXPECT_EQ(text, std::string("ABCDEF").substr(0, length) + std::string(9 - length, '#'));
  }
}

TEST(Radix50Test, WordsAboveTheLastCodeGiveCharactersAboveNine) {
  const unsigned short words[] = {63999, 64000, 65535};
  EXPECT_EQ(DGN::tointernal(words, 3).str(), "999:  :8O");
}

TEST(Radix50Test, AStringIsPackedIntoAnArrayOfItsOwn) {
  const std::unique_ptr<unsigned short[]> packed(DGN::torad50("ab.1"));
  EXPECT_EQ(packed[0], 1 * 1600 + 2 * 40 + 28);
  EXPECT_EQ(packed[1], 31 * 1600);
  const std::unique_ptr<unsigned short[]> empty(DGN::torad50(""));
  EXPECT_NE(empty, nullptr);
}

TEST(RawTextTest, TheConversionPointsChangeNothing) {
  const Tobri::String text(std::string("a\0\xC3\xA9\xFF", 5));
  EXPECT_EQ(DGN::tointernal(text), text);
  EXPECT_EQ(DGN::toexternal(text), text);
}

// --- scaled numbers

TEST(ScaleTest, QuaternionParametersAreScaledByTwoTo31) {
  EXPECT_EQ(DGN::GetQuatParam(1073741824), 0.5);
  EXPECT_EQ(DGN::GetQuatParam(-2147483648L), -1.0);
  EXPECT_EQ(DGN::SetQuatParam(0.5), 1073741824);
  EXPECT_EQ(DGN::SetQuatParam(-1.0), -2147483648L);
}

TEST(ScaleTest, QuaternionParametersAreClampedAndPlusOneOverflows) {
  EXPECT_EQ(DGN::SetQuatParam(1.0), -2147483648L);
  EXPECT_EQ(DGN::SetQuatParam(2.0), -2147483648L);
  EXPECT_EQ(DGN::SetQuatParam(-2.0), -2147483648L);
  EXPECT_EQ(DGN::SetQuatParam(std::nan("")), -2147483648L);
}

TEST(ScaleTest, QuaternionParametersAreTruncatedTowardZero) {
  EXPECT_EQ(DGN::SetQuatParam(1.75 / 2147483648.0), 1);
  EXPECT_EQ(DGN::SetQuatParam(-1.75 / 2147483648.0), -1);
}

TEST(ScaleTest, TransformationEntriesAreScaledByAHundredThousandthOfThat) {
  EXPECT_EQ(DGN::GetTransEntry(2147483647), 2147483647 * (100000.0 / 2147483648.0));
  EXPECT_EQ(DGN::SetTransEntry(1.0), 21474);  // 21474.83648
  EXPECT_EQ(DGN::SetTransEntry(-1.0), -21474);
  EXPECT_EQ(DGN::SetTransEntry(0.0), 0);
  EXPECT_EQ(DGN::SetTransEntry(1e9), -2147483648L);
}

}  // namespace
