#include <pelor/dgn/coords_range.h>

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <tests/dgn/words.h>

namespace Pelor::DGN {

void PrintTo(const CoordsRange& range, std::ostream* out) {
  *out << range.xlow << ' ' << range.ylow << ' ' << range.zlow << " - " << range.xhigh << ' ' << range.yhigh
       << ' ' << range.zhigh;
}

}  // namespace Pelor::DGN

namespace {

using dgn_test::InWords;
using dgn_test::Words;
using Pelor::DGN::CoordsRange;

constexpr long kLowest = -2147483648L;
constexpr long kHighest = 2147483647L;

TEST(CoordsRangeTest, TheDefaultIsTheWholeSpace) {
  EXPECT_EQ(CoordsRange(), CoordsRange(kLowest, kLowest, kLowest, kHighest, kHighest, kHighest));
}

TEST(CoordsRangeTest, APlaneRangeHasTheWholeHeight) {
  EXPECT_EQ(CoordsRange(1, 2, 3, 4), CoordsRange(1, 2, kLowest, 3, 4, kHighest));
}

TEST(CoordsRangeTest, ValuesStandInFileOrderAndRangeForm) {
  const CoordsRange range(1, -2, 0, 0x12345678, kHighest, kLowest);
  std::ostringstream out;
  range.write(out);
  EXPECT_EQ(InWords(out.str()), "8000 0001 7FFF FFFE 8000 0000 9234 5678 FFFF FFFF 0000 0000");
  std::istringstream in(out.str());
  CoordsRange back;
  back.read(in);
  EXPECT_EQ(back, range);
  EXPECT_TRUE(in.good());
}

TEST(CoordsRangeTest, ACutOffRangeHasTheValuesThatAreWhole) {
  const std::string bytes = Words("8000 0001 8000 0002 8000 0003 8000 0004 8000 0005 8000 0006");
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    std::istringstream in(bytes.substr(0, length));
    CoordsRange range(9, 9, 9, 9, 9, 9);
    range.read(in);
    EXPECT_TRUE(in.fail());
    const auto at = [length](std::size_t i) { return 4 * i <= length ? static_cast<long>(i) : 9L; };
    EXPECT_EQ(range, CoordsRange(at(1), at(2), at(3), at(4), at(5), at(6))) << length;
  }
}

TEST(CoordsRangeTest, RawValuesAreConvertedInPlace) {
  // The bytes 34 92 78 56 taken as a little-endian number.
  CoordsRange range(0x56789234, 0, 0, 0, 0, 0);
  range.tointernal();
  EXPECT_EQ(range, CoordsRange(0x12345678, kLowest, kLowest, kLowest, kLowest, kLowest));
  range.toexternal();
  EXPECT_EQ(range, CoordsRange(0x56789234, 0, 0, 0, 0, 0));
}

TEST(CoordsRangeTest, ExpandMovesTheBoundsOutward) {
  CoordsRange range(0, 0, 0, 0, 0, 0);
  range.Expand(5, -6);
  EXPECT_EQ(range, CoordsRange(0, -6, 0, 5, 0, 0));
  range.Expand(-1, 7, 8);
  EXPECT_EQ(range, CoordsRange(-1, -6, 0, 5, 7, 8));
  range.Expand(0, 0, -9);
  EXPECT_EQ(range, CoordsRange(-1, -6, -9, 5, 7, 8));
}

TEST(CoordsRangeTest, ExpandOfAnInvertedIntervalMovesOneBound) {
  CoordsRange range(10, 10, 0, 0);
  range.Expand(5, 5);
  EXPECT_EQ(range, CoordsRange(5, 5, 0, 0));
}

TEST(CoordsRangeTest, TheDefaultDoesNotGrow) {
  CoordsRange range;
  range.Expand(kLowest, kHighest, 0);
  range.Expand(kHighest, kLowest, kHighest);
  EXPECT_EQ(range, CoordsRange());
}

TEST(CoordsRangeTest, ResetWithTwoValuesIsThePointOverTheWholeHeight) {
  CoordsRange range(1, 2, 3, 4, 5, 6);
  range.Reset(7, 8);
  EXPECT_EQ(range, CoordsRange(7, 8, kLowest, 7, 8, kHighest));
}

TEST(CoordsRangeTest, ResetWithThreeValuesPutsZInPlaceOfY) {
  CoordsRange range(1, 2, 3, 4, 5, 6);
  range.Reset(7, 8, 9);
  EXPECT_EQ(range, CoordsRange(7, 9, 3, 7, 9, 6));
}

TEST(CoordsRangeTest, TheLow32BitsOfALongCount) {
  CoordsRange range(0x700000001L, 0, 0, 0);
  EXPECT_EQ(range.xlow, 1);
  range.Reset(0x700000002L, 3);
  EXPECT_EQ(range.xlow, 2);
  range.Expand(0x700000005L, 3);
  EXPECT_EQ(range.xhigh, 5);
}

}  // namespace
