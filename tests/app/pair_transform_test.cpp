#include "pair_fixture.h"

#include <string>

namespace App {
namespace {

class PairTransformTest : public PairFixture {
 protected:
  // The object under the transform, without what it looks like.
  std::string Transformed(const std::string& transform, const std::string& object) const {
    const Given given = Read(Write(
        "Version 300\nTransform " + transform + "\nColumns 1\n A Char(1)\nData\n\n" + object + "\n", "a\n"));
    const std::size_t begin = given.text.find('\n') + 1;
    std::string text = given.text.substr(begin);
    for (const char* style : {" Pen", " Symbol", " Font"}) text = text.substr(0, text.find(style));
    return text;
  }
};

TEST_F(PairTransformTest, AppliesToEveryKind) {
  const std::string t = "2,3,100,200";
  EXPECT_EQ(Transformed(t, "Point 1 2"), "Point 102 206\n");
  EXPECT_EQ(Transformed(t, "Line 1 2 3 4"), "Line 102 206 106 212\n");
  EXPECT_EQ(Transformed(t, "Pline 2\n1 2\n3 4"), "PLine 2\n 102 206\n 106 212\n");
  EXPECT_EQ(Transformed(t, "Region 1\n3\n0 0\n1 0\n1 1"),
            "Region 1\n 4\n 100 200\n 102 200\n 102 203\n 100 200\n");
  EXPECT_EQ(Transformed(t, "None"), "None\n");
}

TEST_F(PairTransformTest, ScalesBothAxesOfBoxesOnTheirOwn) {
  const std::string t = "2,3,100,200";
  EXPECT_EQ(Transformed(t, "Rect 1 2 3 4"), "Rect 102 206 106 212\n");
  EXPECT_EQ(Transformed(t, "RoundRect 1 2 3 4 5"), "RoundRect 102 206 106 212\n 10\n");
  EXPECT_EQ(Transformed(t, "Ellipse 1 2 3 4"), "Ellipse 102 206 106 212\n");
  EXPECT_EQ(Transformed(t, "Arc 1 2 3 4 90 180"), "Arc 102 206 106 212\n 90 180\n");
  EXPECT_EQ(Transformed(t, "Text \"a\" 1 2 3 4"), "Text \"a\"\n 102 206 106 212\n");
}

TEST_F(PairTransformTest, StretchedArcsLean) {
  // atan(3 / 2) and what mirrors it.
  EXPECT_EQ(Transformed("2,3,0,0", "Arc 0 0 2 2 45 90"), "Arc 0 0 4 6\n 56.30993247 90\n");
  EXPECT_EQ(Transformed("-2,3,0,0", "Arc 0 0 2 2 45 90"), "Arc -4 0 0 6\n 90 123.6900675\n");
}

TEST_F(PairTransformTest, StretchedWholeTurnsStayWhole) {
  EXPECT_EQ(Transformed("2,3,0,0", "Arc 0 0 2 2 45 405"), "Ellipse 0 0 4 6\n");
}

TEST_F(PairTransformTest, KeepsTheCornersOfMirroredBoxesInOrder) {
  EXPECT_EQ(Transformed("1,-1,0,0", "Text \"a\" 1 2 3 4"), "Text \"a\"\n 1 -4 3 -2\n");
  EXPECT_EQ(Transformed("-1,-1,0,0", "Rect 1 2 3 4"), "Rect -3 -4 -1 -2\n");
  EXPECT_EQ(Transformed("-1,1,0,0", "RoundRect 1 2 3 4 5"), "RoundRect -3 2 -1 4\n 5\n");
}

TEST_F(PairTransformTest, MirroredArcsStillRunCounterClockwise) {
  // From the top over the left to below becomes from above the middle line to the top.
  EXPECT_EQ(Transformed("1,-1,0,0", "Arc 0 0 10 10 90 180"), "Arc 0 -10 10 0\n 180 270\n");
  EXPECT_EQ(Transformed("-1,1,0,0", "Arc 0 0 10 10 90 180"), "Arc -10 0 0 10\n 0 90\n");
}

TEST_F(PairTransformTest, HalfATurnTurnsArcs) {
  EXPECT_EQ(Transformed("-1,-1,0,0", "Arc 0 0 10 10 90 180"), "Arc -10 -10 0 0\n 270 0\n");
}

TEST_F(PairTransformTest, EqualScalesLeaveAnglesExact) {
  EXPECT_EQ(Transformed("0.01,0.01,0,0", "Arc 0 0 1000 1000 12.34 56.78"), "Arc 0 0 10 10\n 12.34 56.78\n");
}

TEST_F(PairTransformTest, FactorsOfZeroAreNotUsed) {
  EXPECT_EQ(Transformed("0,0,0,0", "Line 1 2 3 4"), "Line 1 2 3 4\n");
  EXPECT_EQ(Transformed("0,2,10,20", "Line 1 2 3 4"), "Line 11 24 13 28\n");
  EXPECT_EQ(Transformed("-1,0,0,0", "Line 1 2 3 4"), "Line -1 2 -3 4\n");
  const Given given =
      Read(Write("Version 300\nTransform 0,1,0,0\nColumns 1\n A Char(1)\nData\n\nPoint 1 2\n", "a\n"));
  EXPECT_EQ(given.account,
            "Point 1 = 1 + 0\n! the transform of in.mif has a factor of 0, which is taken as 1\n");
}

TEST_F(PairTransformTest, LeavesNoTransformBehind) {
  const std::string account =
      Copy(Write("Version 300\nTransform 2,2,1,1\nColumns 1\n A Char(1)\nData\n\nPoint 1 2\n", "a\n"));
  EXPECT_EQ(MifHeader().find("Transform"), std::string::npos);
  EXPECT_EQ(MifData(), "Point 3 5\n Symbol (32,0,8)\n");
}

}  // namespace
}  // namespace App
