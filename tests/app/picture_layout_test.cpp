#include "app/picture/measure.h"
#include "app/picture/picture_path.h"
#include "app/picture/scale_bar.h"
#include "tests/app/picture_tools.h"

#include <limits>

namespace App {
namespace {

using Pelor::MI::CoordSys;
using Vanth::BoundsXY;
using Vanth::PointXY;

TEST(FrameTest, FillsTheWidthWithinTheMargin) {
  const Frame frame = MakeFrame({1000, 2000, 3000, 3000}, {500, 50, 30});
  EXPECT_EQ(frame.width, 500);
  EXPECT_EQ(frame.height, 50 + 200 + 50 + 30);
  EXPECT_DOUBLE_EQ(frame.scale, 0.2);
  EXPECT_EQ(frame.ToPicture(PointXY{1000, 3000}), (PointXY{50, 50}));
  EXPECT_EQ(frame.ToPicture(PointXY{3000, 2000}), (PointXY{450, 250}));
}

TEST(FrameTest, HighAndFlatMapsAreCentred) {
  const Frame high = MakeFrame({0, 0, 10, 1000}, {500, 50, 0});
  EXPECT_EQ(high.height, 900);  // twice the map's width, and the margin
  EXPECT_DOUBLE_EQ(high.scale, 0.8);
  EXPECT_EQ(high.ToPicture(PointXY{5, 1000}), (PointXY{250, 50}));
  const Frame flat = MakeFrame({0, 0, 1000, 10}, {500, 50, 0});
  EXPECT_EQ(flat.height, 180);  // a fifth of the map's width
  EXPECT_DOUBLE_EQ(flat.scale, 0.4);
  EXPECT_EQ(flat.ToPicture(PointXY{0, 5}), (PointXY{50, 90}));
}

TEST(FrameTest, BoundsWithoutSizeStandInTheMiddle) {
  for (const BoundsXY& bounds : {BoundsXY(7, 9, 7, 9), BoundsXY(1e15, 1e15, 1e15, 1e15), BoundsXY()}) {
    const Frame frame = MakeFrame(bounds, {500, 50, 0});
    EXPECT_DOUBLE_EQ(frame.scale, 400);
    EXPECT_EQ(frame.height, 500);
    EXPECT_EQ(frame.ToPicture(bounds.IsEmpty() ? PointXY{0.5, 0.5} : bounds.Min()), (PointXY{250, 250}));
  }
  EXPECT_DOUBLE_EQ(MakeFrame({0, 5, 0, 25}, {500, 50, 0}).scale, 40);  // a vertical line
  EXPECT_DOUBLE_EQ(MakeFrame({5, 0, 25, 0}, {500, 50, 0}).scale, 20);  // a horizontal one
}

TEST(FrameTest, ExtremeBoundsGiveFiniteScales) {
  for (const BoundsXY& bounds : {BoundsXY(-1e100, -1e100, 1e100, 1e100), BoundsXY(0, 0, 1e-300, 1e-300),
                                 BoundsXY(0, 0, 1e100, 1e-300), BoundsXY(0, 0, 1e-300, 1e100)}) {
    const Frame frame = MakeFrame(bounds, {500, 50, 0});
    EXPECT_TRUE(std::isfinite(frame.scale) && frame.scale > 0);
    EXPECT_TRUE(std::isfinite(frame.ToPicture(bounds.Max()).y));
    EXPECT_LE(frame.height, 900);
  }
}

TEST(ScaleBarTest, LengthsAreRound) {
  const std::pair<double, double> table[] = {
      {1, 1},       {1.99, 1},  {2, 2},       {4.99, 2},      {5, 5},         {9.99, 5},
      {10, 10},     {99, 50},   {100, 100},   {1000, 1000},   {999.999, 500}, {0.3, 0.2},
      {0.05, 0.05}, {1e6, 1e6}, {7e-5, 5e-5}, {1.5e99, 1e99},
  };
  for (const auto& [most, round] : table) EXPECT_DOUBLE_EQ(RoundLength(most), round) << most;
  // Whatever the logarithm rounds to.
  for (int power = -90; power <= 90; ++power) {
    const double most = std::pow(10.0, power);
    EXPECT_LE(RoundLength(most), most) << power;
    EXPECT_GE(RoundLength(most), most * 0.499) << power;
  }
}

std::string LabelOf(double scale, const CoordSys* system) {
  return MakeScaleBar(scale, 200, system).label;
}

TEST(ScaleBarTest, NamesTheUnit) {
  using Pelor::MI::NonEarth_t;
  const CoordSys metres(NonEarth_t(), Pelor::MI::Units_m, {});
  EXPECT_EQ(LabelOf(1.0, &metres), "200 m");
  EXPECT_EQ(LabelOf(0.03, &metres), "5 km");
  EXPECT_EQ(LabelOf(1000.0, &metres), "20 cm");
  EXPECT_EQ(LabelOf(1e5, &metres), "2 mm");
  const CoordSys feet(NonEarth_t(), Pelor::MI::Units_SurveyFt, {});
  EXPECT_EQ(LabelOf(0.01, &feet), "20000 survey ft");
  const CoordSys degrees;
  EXPECT_EQ(LabelOf(4.0, &degrees), "50 deg");
  EXPECT_EQ(LabelOf(1.0, nullptr), "200 units");
  EXPECT_EQ(LabelOf(150.0, nullptr), "1 unit");
  const CoordSys unknown(NonEarth_t(), Pelor::MI::Units_Unknown, {});
  EXPECT_EQ(LabelOf(1.0, &unknown), "200 units");
}

TEST(ScaleBarTest, IsAsLongAsItSays) {
  EXPECT_DOUBLE_EQ(MakeScaleBar(0.25, 200, nullptr).pixels, 125);  // 500 units
}

// The bounds of the one object of a MIF text.
std::optional<BoundsXY> MeasureText(const std::string& text) {
  return Measure(*ReadObjects(text).at(0));
}

TEST(MeasureTest, GivesTheBoundsOfEveryKind) {
  EXPECT_EQ(MeasureText("Point 3 4\nSymbol (32,0,8)\n"), BoundsXY(3, 4, 3, 4));
  EXPECT_EQ(MeasureText("Line 3 4 1 9\nPen (1,2,0)\n"), BoundsXY(1, 4, 3, 9));
  EXPECT_EQ(MeasureText("PLine 3\n3 4\n1 9\n5 5\nPen (1,2,0)\n"), BoundsXY(1, 4, 5, 9));
  EXPECT_EQ(MeasureText("Region 1\n3\n3 4\n1 9\n5 5\nPen (1,2,0)\n"), BoundsXY(1, 4, 5, 9));
  EXPECT_EQ(MeasureText("Rect 3 4 1 9\nPen (1,2,0)\n"), BoundsXY(1, 4, 3, 9));
  EXPECT_EQ(MeasureText("RoundRect 3 4 1 9\n1\nPen (1,2,0)\n"), BoundsXY(1, 4, 3, 9));
  EXPECT_EQ(MeasureText("Ellipse 3 4 1 9\nPen (1,2,0)\n"), BoundsXY(1, 4, 3, 9));
  EXPECT_EQ(MeasureText("Arc 0 0 10 20\n0 360\nPen (1,2,0)\n"), BoundsXY(0, 0, 10, 20));
  EXPECT_EQ(MeasureText("None\n"), BoundsXY());
  const BoundsXY arc = *MeasureText("Arc 0 0 10 20\n0 90\nPen (1,2,0)\n");
  EXPECT_NEAR(arc.Min().x, 5, 1e-12);
  EXPECT_NEAR(arc.Min().y, 10, 1e-12);
  EXPECT_EQ(arc.Max(), (PointXY{10, 20}));
}

TEST(MeasureTest, TextsAreMeasuredAsTheyAreTurned) {
  EXPECT_EQ(MeasureText("Text \"a\"\n10 10 30 14\n"), BoundsXY(10, 10, 30, 14));
  const BoundsXY up = *MeasureText("Text \"a\"\n10 10 30 14\nFont (\"A\",0,0,0)\nAngle 90\n");
  EXPECT_NEAR(up.Min().x, 10, 1e-9);
  EXPECT_NEAR(up.Min().y, 14, 1e-9);
  EXPECT_NEAR(up.Max().x, 14, 1e-9);
  EXPECT_NEAR(up.Max().y, 34, 1e-9);
  const BoundsXY labelled =
      *MeasureText("Text \"a\"\n10 10 30 14\nFont (\"A\",0,0,0)\nLabel Line Simple 100 200\n");
  EXPECT_EQ(labelled.Max(), (PointXY{100, 200}));
}

TEST(MeasureTest, FindsNumbersThatAreNone) {
  const double bad[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                        -std::numeric_limits<double>::infinity(), 1e200};
  namespace MI = Pelor::MI;
  for (const double value : bad) {
    const Vanth::RectXY rects[] = {{value, 0, 1, 1}, {0, value, 1, 1}, {0, 0, value, 1}, {0, 0, 1, value}};
    for (const Vanth::RectXY& rect : rects) {
      EXPECT_FALSE(Measure(*MI::WRectObj(rect, nullptr, {}, {})));
      EXPECT_FALSE(Measure(*MI::WRRectObj(rect, 1, nullptr, {}, {})));
      EXPECT_FALSE(Measure(*MI::WEllipseObj(rect, nullptr, {}, {})));
      EXPECT_FALSE(Measure(*MI::WArcObj(rect, Vanth::Angle(), Vanth::Angle(1), nullptr, {})));
      EXPECT_FALSE(Measure(*MI::WTextObj("a", rect, nullptr, {})));
      EXPECT_FALSE(Measure(*MI::WLineObj({rect.x1, rect.y1}, {rect.x2, rect.y2}, nullptr, {})));
    }
    EXPECT_FALSE(Measure(*MI::WPointObj({value, 0}, nullptr, {})));
    EXPECT_FALSE(Measure(*MI::WPointObj({0, value}, nullptr, {})));
    EXPECT_FALSE(Measure(*MI::WRRectObj({0, 0, 1, 1}, value, nullptr, {}, {})));
    EXPECT_FALSE(Measure(*MI::WArcObj({0, 0, 1, 1}, Vanth::Angle(value), Vanth::Angle(), nullptr, {})));
    MI::WTextObj text("a", {0, 0, 1, 1}, nullptr, {});
    text->SetAngle(Vanth::Angle(std::isfinite(value) ? std::numeric_limits<double>::infinity() : value));
    EXPECT_FALSE(Measure(*text));
    MI::WPLineObj line(nullptr, {}, false);
    line->AddPart();
    line->AddVertex({0, 0});
    line->AddVertex({1, value});
    EXPECT_FALSE(Measure(*line));
    EXPECT_FALSE(Measure(*MI::WRegionObj(line, {})));
  }
}

TEST(PicturePathTest, DropsPointsThatAreTooCloseButNotTheLast) {
  PicturePath path({0, 0, 100, 100});
  path.BeginPart();
  for (const double x : {1.0, 1.05, 1.09, 1.1, 1.15, 5.0, 5.01, 5.02}) path.Add({x, 0});
  path.EndPart();
  ASSERT_EQ(path.GetNParts(), 1U);
  std::vector<double> kept;
  for (const PointXY& point : path.Part(0)) kept.push_back(point.x);
  EXPECT_EQ(kept, (std::vector<double>{1.0, 1.1, 5.0, 5.02}));
}

TEST(PicturePathTest, PartsAreThinnedOnTheirOwn) {
  PicturePath path({0, 0, 100, 100});
  for (const double x : {1.0, 1.01}) {
    path.BeginPart();
    path.Add({x, 0});
    path.EndPart();
  }
  path.BeginPart();
  path.EndPart();
  ASSERT_EQ(path.GetNParts(), 3U);
  EXPECT_EQ(path.Part(1).size(), 1U);
  EXPECT_EQ(path.Part(2).size(), 0U);
  path.Clear();
  EXPECT_EQ(path.GetNParts(), 0U);
}

}  // namespace
}  // namespace App
