#include "pair_fixture.h"

namespace App {
namespace {

using PairCopyTest = PairFixture;

// Every kind of object as the writer puts it.
const std::string kEveryKind =
    "None\n"
    "Point 1 2\n Symbol (35,255,12)\n"
    "Point 3 4\n Symbol (99,255,14, \"Map Symbols\",0,30)\n"
    "Point 5 6\n Symbol (\"pin.bmp\",0,18,0)\n"
    "Line 1 2 3 4\n Pen (1,2,255)\n"
    "PLine 3\n 1 2\n 3 4\n 5 6\n Pen (2,2,0)\n Smooth\n"
    "PLine Multiple 2\n 2\n 1 2\n 3 4\n 2\n 5 6\n 7 8\n Pen (1,2,0)\n"
    "Region 2\n 5\n 0 0\n 10 0\n 10 10\n 0 10\n 0 0\n 4\n 1 1\n 3 1\n 2 3\n 1 1\n Pen (1,2,0)\n"
    " Brush (2,16777168,16777215)\n Center 5 6\n"
    "Arc 0 0 10 5\n 350 10\n Pen (1,2,0)\n"
    "Text \"One\\nTwo\"\n 0 0 10 2\n Font (\"Arial\", 1, 0, 255, 16777215)\n  Angle 30.5\n  Justify Center\n"
    "  Spacing 1.5\n  Label Line Arrow 20 3\n\n"
    "Rect 0 0 10 5\n Pen (1,2,0) Brush (1,0,16777215)\n"
    "RoundRect 0 0 10 5\n 2\n Pen (1,2,0) Brush (5,255)\n"
    "Ellipse 0 0 10 5\n Pen (1,2,0) Brush (2,65280,16777215)\n";

const std::string kHeader =
    "Version 300\nCharSet \"WindowsLatin1\"\nUnique 1\nIndex 1, 2\n"
    "CoordSys Earth Projection 8,104,\"m\",9,0,0.9996,500000,0 Bounds (-7745844.25, -9997964.5) "
    "(8745844.25, 9997964.5)\n"
    "Columns 7\n Id\t\tInteger\n Name\t\tChar(24)\n Kind\t\tSmallInt\n Len\t\tDecimal(12,3)\n Size\t\tFloat\n"
    " Day\t\tDate\n Open\t\tLogical\n";

std::string Rows(int count) {
  std::string rows;
  for (int i = 1; i <= count; ++i) {
    rows += std::to_string(i) + "\tWeg " + std::to_string(i) + "\t2\t12.500\t0.25\t20260201\tT\n";
  }
  return rows;
}

TEST_F(PairCopyTest, IsEqualByteForByteWhereNothingIsAsked) {
  const std::string mif = kHeader + "Data\n\n" + kEveryKind;
  const std::string mid = Rows(13);
  EXPECT_EQ(Copy(Write(mif, mid)),
            "Arc 1 = 1 + 0\nEllipse 1 = 1 + 0\nLine 1 = 1 + 0\nNone 1 = 1 + 0\nPLine 2 = 2 + 0\n"
            "Point 3 = 3 + 0\nRect 1 = 1 + 0\nRegion 1 = 1 + 0\nRoundRect 1 = 1 + 0\nText 1 = 1 + 0\n");
  EXPECT_EQ(Mif(), mif);
  EXPECT_EQ(Mid(), mid);
}

}  // namespace
}  // namespace App
