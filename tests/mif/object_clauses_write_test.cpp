#include <pelor/mi/build.h>
#include <pelor/mi/objects.h>
#include <pelor/mif/object_clauses.h>

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <ostream>
#include <sstream>
#include <string>
#include <tests/mif/mif_text.h>

namespace {

using namespace Pelor;
using namespace Pelor::MI;
using Vanth::Angle;
using Vanth::PointXY;
using Vanth::RectXY;

constexpr Pen kPen{3, 2, 0x0000FF, SLUnits_Pixel, false};
constexpr Brush kBrush{5, 0xFF0000, -1};

Angle Degrees(double degrees) {
  return Angle(degrees, Angle::Degrees);
}

std::string Text(const WObjRf<WObjBody>& object) {
  return MifText([&](std::ostream& out) { MIF::Write(object, out); });
}

WPLineObj Parts(std::initializer_list<int> counts) {
  WPLineObj pline(nullptr, kPen, false);
  double x = 0.0;
  for (const int count : counts) {
    pline->AddPart();
    for (int i = 0; i < count; ++i) {
      pline->AddVertex({x, i % 2 == 0 ? 0.5 : -x});
      x += 1.0;
    }
  }
  return pline;
}

TEST(WriteObjectTest, NoObjectIsOneWord) {
  EXPECT_EQ(Text(Build(WObjType_None, nullptr)), "None\n");
}

TEST(WriteObjectTest, PointHasItsSymbolOnTheNextLine) {
  EXPECT_EQ(Text(WPointObj({12.5, -3}, nullptr, StdSymbol{35, 0xFF, 12, SLUnits_Point})),
            "Point 12.5 -3\n Symbol (35,16711680,12)\n");
}

TEST(WriteObjectTest, LineHasItsPenOnTheNextLine) {
  EXPECT_EQ(Text(WLineObj({1, 2}, {3.25, 4e20}, nullptr, kPen)),
            "Line 1 2 3.25 4e+20\n Pen (3,2,16711680)\n");
}

TEST(WriteObjectTest, NumbersFollowTheStream) {
  const WPointObj point({1.0 / 3.0, 1234567.8}, nullptr, Symbol());
  std::ostringstream out;
  out.precision(3);
  MIF::Write(point, out);
  EXPECT_EQ(out.str(), "Point 0.333 1.23e+06\n Symbol (32,0,8)\n");

  WPLineObj pline(nullptr, Pen(), false);
  pline->AddPart();
  pline->AddVertex({1.0 / 3.0, 2});
  pline->AddVertex({3, 4});
  std::ostringstream fixed;
  fixed.precision(2);
  fixed << std::fixed;
  MIF::SetLineFlush(fixed, false);
  MIF::Write(pline, fixed);
  EXPECT_EQ(fixed.str(), "PLine 2\n 0.33 2.00\n 3.00 4.00\n Pen (1,2,0)\n");
}

TEST(WriteObjectTest, PolylineWithOnePartHasItsCountOnTheKeywordsLine) {
  EXPECT_EQ(Text(Parts({3})), "PLine 3\n 0 0.5\n 1 -1\n 2 0.5\n Pen (3,2,16711680)\n");
}

TEST(WriteObjectTest, PolylineWritesOnlyThePartsOfTwoVerticesAndMore) {
  // Only the last part can have a single vertex: AddPart would use it on.
  WPLineObj pline(nullptr, kPen, false);
  pline->Empty();
  for (const auto count : {4, 2}) {
    if (count == 2) pline->AddPart();
    for (int i = 0; i < count; ++i) pline->AddVertex({double(count), double(i)});
  }
  pline->AddPart();
  pline->AddVertex({9, 9});
  ASSERT_EQ(pline->GetNParts(), 3);
  EXPECT_EQ(Text(pline),
            "PLine Multiple 2\n 4\n 4 0\n 4 1\n 4 2\n 4 3\n 2\n 2 0\n 2 1\n Pen (3,2,16711680)\n");
}

TEST(WriteObjectTest, OnePartLeftOfSeveralIsWrittenAsTheOnlyOne) {
  WPLineObj pline = Parts({2});
  pline->AddPart();
  pline->AddVertex({7, 7});
  ASSERT_EQ(pline->GetNParts(), 2);
  EXPECT_EQ(Text(pline), "PLine 2\n 0 0.5\n 1 -1\n Pen (3,2,16711680)\n");
}

TEST(WriteObjectTest, SmoothPolylineSaysSoBehindItsPen) {
  WPLineObj pline = Parts({2});
  pline->SetIsSmooth(true);
  EXPECT_EQ(Text(pline), "PLine 2\n 0 0.5\n 1 -1\n Pen (3,2,16711680)\n Smooth\n");
}

TEST(WriteObjectTest, PolylineWithoutAPartOfTwoVerticesIsNone) {
  EXPECT_EQ(Text(Parts({})), "None\n");
  EXPECT_EQ(Text(Parts({1})), "None\n");
}

TEST(WriteObjectTest, RegionClosesItsRingsAndEndsWithItsCentre) {
  WRegionObj region(nullptr, kPen, kBrush);
  region->AddPart();
  for (const PointXY& point : {PointXY{0, 0}, PointXY{4, 0}, PointXY{4, 4}}) region->AddVertex(point);
  region->AddPart();
  for (const PointXY& point : {PointXY{1, 1}, PointXY{2, 1}, PointXY{2, 2}, PointXY{1, 1}}) {
    region->AddVertex(point);
  }
  // The mean of all eight vertices is (8 + 6, 4 + 5) / 8.
  EXPECT_EQ(Text(region),
            "Region 2\n 4\n 0 0\n 4 0\n 4 4\n 0 0\n 4\n 1 1\n 2 1\n 2 2\n 1 1\n"
            " Pen (3,2,16711680)\n Brush (5,255)\n Center 1.75 1.125\n");
}

TEST(WriteObjectTest, RegionWritesTheCentreThatWasSet) {
  WRegionObj region(nullptr, kPen, kBrush);
  region->AddPart();
  for (const PointXY& point : {PointXY{0, 0}, PointXY{4, 0}, PointXY{4, 4}, PointXY{0, 0}}) {
    region->AddVertex(point);
  }
  region->Close();
  region->SetCentroid({2.5, 1.5});
  EXPECT_EQ(Text(region),
            "Region 1\n 4\n 0 0\n 4 0\n 4 4\n 0 0\n Pen (3,2,16711680)\n Brush (5,255)\n Center 2.5 1.5\n");
}

TEST(WriteObjectTest, RegionWritesOnlyTheRingsOfThreeVerticesAndMore) {
  WRegionObj region(nullptr, kPen, kBrush);
  region->AddPart();
  for (const PointXY& point : {PointXY{0, 0}, PointXY{4, 0}, PointXY{4, 4}, PointXY{0, 0}}) {
    region->AddVertex(point);
  }
  region->AddPart();
  region->AddVertex({1, 1});
  region->SetCentroid({3, 1});
  const std::string text = Text(region);
  EXPECT_EQ(text.substr(0, text.find(" Pen")), "Region 1\n 4\n 0 0\n 4 0\n 4 4\n 0 0\n");
}

TEST(WriteObjectTest, RegionWithoutARingIsNone) {
  WRegionObj region(nullptr, kPen, kBrush);
  EXPECT_EQ(Text(region), "None\n");
  region->AddPart();
  region->AddVertex({1, 1});
  EXPECT_EQ(Text(region), "None\n");
}

TEST(WriteObjectTest, RingsAreCountedWhenTheyAreClosed) {
  const auto text = [](std::initializer_list<PointXY> ring) {
    WRegionObj region(nullptr, kPen, kBrush);
    region->AddPart();
    for (const PointXY& point : ring) region->AddVertex(point);
    const std::string all = Text(region);
    return all.substr(0, all.find(" Pen"));
  };
  EXPECT_EQ(text({{1, 1}, {1, 1}}), "None\n");
  EXPECT_EQ(text({{1, 1}, {2, 3}}), "Region 1\n 3\n 1 1\n 2 3\n 1 1\n");
}

TEST(WriteObjectTest, RectangleHasPenAndBrushOnOneLine) {
  EXPECT_EQ(Text(WRectObj(RectXY{1, 2, 3, 4}, nullptr, kPen, kBrush)),
            "Rect 1 2 3 4\n Pen (3,2,16711680) Brush (5,255)\n");
}

TEST(WriteObjectTest, RoundedRectangleHasItsRadiusOnTheNextLine) {
  EXPECT_EQ(Text(WRRectObj(RectXY{1, 2, 3, 4}, 0.25, nullptr, kPen, kBrush)),
            "RoundRect 1 2 3 4\n 0.25\n Pen (3,2,16711680) Brush (5,255)\n");
}

TEST(WriteObjectTest, EllipseHasPenAndBrushOnOneLine) {
  EXPECT_EQ(Text(WEllipseObj(RectXY{1, 2, 3, 4}, nullptr, kPen, kBrush)),
            "Ellipse 1 2 3 4\n Pen (3,2,16711680) Brush (5,255)\n");
}

TEST(WriteObjectTest, ArcHasItsAnglesInPositiveDegreesOnTheNextLine) {
  EXPECT_EQ(Text(WArcObj(RectXY{1, 2, 3, 4}, Degrees(-90), Degrees(405), nullptr, kPen)),
            "Arc 1 2 3 4\n 270 45\n Pen (3,2,16711680)\n");
}

TEST(WriteObjectTest, TextWithoutQuotesHasItsBoxOnTheNextLine) {
  EXPECT_EQ(Text(WTextObj("Main Street", RectXY{1, 2, 3, 4}, nullptr, Font())),
            "Text \"Main Street\"\n 1 2 3 4\n Font (\"MS Sans Serif\", 0, 0, 0)\n\n");
}

TEST(WriteObjectTest, TextWithQuotesDoublesThemAndHasItsBoxOnTheSameLine) {
  EXPECT_EQ(Text(WTextObj("He said \"hi\"", RectXY{1, 2, 3, 4}, nullptr, Font())),
            "Text \"He said \"\"hi\"\"\" 1 2 3 4\n Font (\"MS Sans Serif\", 0, 0, 0)\n\n");
}

TEST(WriteObjectTest, TextKeepsABackslashAsItIs) {
  EXPECT_EQ(Text(WTextObj("a\\nb\"", RectXY{1, 2, 3, 4}, nullptr, Font())),
            "Text \"a\\nb\"\"\" 1 2 3 4\n Font (\"MS Sans Serif\", 0, 0, 0)\n\n");
}

TEST(WriteObjectTest, TextHasItsOptionsOnLinesOfTheirOwn) {
  WTextObj text("a", RectXY{1, 2, 3, 4}, nullptr, Font());
  text->SetAngle(Degrees(-30));
  text->SetJustification(1);
  text->SetSpacing(1);
  text->SetLabelKind(2);
  text->SetLabelPoint({5, 6.5});
  EXPECT_EQ(Text(text),
            "Text \"a\"\n 1 2 3 4\n Font (\"MS Sans Serif\", 0, 0, 0)\n  Angle 330\n  Justify Center\n"
            "  Spacing 1.5\n  Label Line Arrow 5 6.5\n\n");
}

TEST(WriteObjectTest, EveryTextOptionHasItsText) {
  const auto lines = [](auto&& change) {
    WTextObj text("a", RectXY{1, 2, 3, 4}, nullptr, Font());
    change(*text);
    const std::string all = Text(text);
    return all.substr(all.find(")\n") + 2);
  };
  EXPECT_EQ(lines([](WTextBody&) {}), "\n");
  EXPECT_EQ(lines([](WTextBody& text) { text.SetJustification(2); }), "  Justify Right\n\n");
  EXPECT_EQ(lines([](WTextBody& text) { text.SetJustification(3); }), "  Justify\n\n");
  EXPECT_EQ(lines([](WTextBody& text) { text.SetSpacing(2); }), "  Spacing 2\n\n");
  EXPECT_EQ(lines([](WTextBody& text) { text.SetSpacing(-1); }), "  Spacing 2\n\n");
  EXPECT_EQ(lines([](WTextBody& text) { text.SetLabelKind(1); }), "  Label Line Simple 0 0\n\n");
}

// Counts how often it is flushed.
class FlushCounter : public std::stringbuf {
 public:
  int flushes = 0;

 protected:
  int sync() override {
    ++flushes;
    return std::stringbuf::sync();
  }
};

TEST(WriteObjectTest, LineEndsFlushTheStreamUnlessToldOtherwise) {
  const WPLineObj pline = Parts({3, 200});
  FlushCounter flushed;
  std::ostream out(&flushed);
  EXPECT_TRUE(MIF::GetLineFlush(out));
  MIF::Write(pline, out);
  EXPECT_EQ(flushed.flushes, 1 + 1 + 3 + 1 + 200 + 1);

  FlushCounter unflushed;
  std::ostream quick(&unflushed);
  MIF::SetLineFlush(quick, false);
  EXPECT_FALSE(MIF::GetLineFlush(quick));
  MIF::Write(pline, quick);
  EXPECT_EQ(unflushed.flushes, 0);
  EXPECT_EQ(unflushed.str(), flushed.str());
}

TEST(WriteObjectTest, OddNumbersAreWrittenAsTheStreamWould) {
  WPLineObj pline(nullptr, kPen, false);
  pline->AddPart();
  pline->AddVertex({-0.0, 5e-324});
  pline->AddVertex({std::nan(""), -HUGE_VAL});
  const std::string text = Text(pline);
  EXPECT_EQ(text.substr(0, text.find(" Pen")), "PLine 2\n -0 4.940656458e-324\n nan -inf\n");
}

}  // namespace
