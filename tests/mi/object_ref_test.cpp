#include <pelor/mi/objects.h>

#include <gtest/gtest.h>

#include <tests/mi/objects.h>
#include <type_traits>

namespace Pelor::MI {
namespace {

TEST(WObjRfTest, ALineHandleMadeFromARegionIsNull) {
  const WRegionObj region(nullptr, Pen(), Brush());
  EXPECT_EQ(WObjRf<WLineBody>(region), nullptr);
  EXPECT_EQ(WLineObj(WObjRf<WObjBody>(region)), nullptr);
  EXPECT_EQ(region->RefCount(), 1U);
}

TEST(WObjRfTest, AMatchingHandleHoldsTheSameBody) {
  const WRegionObj region(nullptr, Pen(), Brush());
  const WObjRf<WObjBody> object = region;
  const WObjRf<WRegionBody> again(object);
  EXPECT_EQ(again.Get(), region.Get());
  EXPECT_EQ(region->RefCount(), 3U);
  const WRegionObj typed(again);
  EXPECT_EQ(typed.Get(), region.Get());
}

TEST(WObjRfTest, AnAbstractClassIsATargetToo) {
  const WObjRf<WObjBody> region = WRegionObj(nullptr, Pen(), Brush());
  EXPECT_NE(WObjRf<W2DBody>(region), nullptr);
  EXPECT_EQ(WObjRf<W1DBody>(region), nullptr);
}

TEST(WObjRfTest, NullStaysNull) {
  const WObjRf<WObjBody> null;
  EXPECT_EQ(WObjRf<WPointBody>(null), nullptr);
  EXPECT_EQ(WObjRf<WObjBody>(WPLineObj()), nullptr);
  EXPECT_EQ(WPLineObj(nullptr), nullptr);
}

TEST(WObjRfTest, TheFirstHandleMakesTheCountOne) {
  auto* const body = new WPointBody(nullptr);
  EXPECT_EQ(body->RefCount(), 0U);
  const WObjRf<WPointBody> handle(body);
  EXPECT_EQ(body->RefCount(), 1U);
}

TEST(WObjRfTest, AChangeThroughAHandleIsSeenByAll) {
  const WPointObj point({1, 2}, nullptr, Symbol());
  const WPointObj same = point;
  same->SetPoint({3, 4});
  EXPECT_EQ(point->GetPoint(), (Vanth::PointXY{3, 4}));
}

TEST(WObjRfTest, CopySeparatesASharedBodyAndKeepsAnOnlyOwners) {
  const WPointObj point({1, 2}, nullptr, Symbol());
  WObjRf<WObjBody> copy = point;
  copy.Copy();
  EXPECT_NE(copy.Get(), point.Get());
  EXPECT_EQ(copy->RefCount(), 1U);
  EXPECT_EQ(point->RefCount(), 1U);
  const WObjBody* const own = copy.Get();
  copy.Copy();
  EXPECT_EQ(copy.Get(), own);
  WPointObj(copy)->SetPoint({3, 4});
  EXPECT_EQ(point->GetPoint(), (Vanth::PointXY{1, 2}));
  EXPECT_EQ(WPointObj(copy)->GetPoint(), (Vanth::PointXY{3, 4}));
}

TEST(WObjRfTest, HandlesMakeBodiesFromTheirArguments) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  const Vanth::RectXY box{1, 2, 3, 4};
  Pen pen;
  pen.width = 3;
  Brush brush;
  brush.pattern = 5;

  const WLineObj line({1, 2}, {3, 4}, wsys, pen);
  EXPECT_EQ(line->GetStart(), (Vanth::PointXY{1, 2}));
  EXPECT_EQ(line->GetEnd(), (Vanth::PointXY{3, 4}));
  EXPECT_EQ(line->GetPen(), pen);
  const WPLineObj pline(wsys, pen, true);
  EXPECT_EQ(pline->GetPen(), pen);
  EXPECT_TRUE(pline->GetIsSmooth());
  const WRectObj rect(box, wsys, pen, brush);
  EXPECT_EQ(rect->GetRect(), box);
  EXPECT_EQ(rect->GetPen(), pen);
  EXPECT_EQ(rect->GetBrush(), brush);
  const WEllipseObj ellipse(box, wsys, pen, brush);
  EXPECT_EQ(ellipse->GetRect(), box);
  EXPECT_EQ(ellipse->GetPen(), pen);
  EXPECT_EQ(ellipse->GetBrush(), brush);
  const WRRectObj rrect(box, 0.5, wsys, pen, brush);
  EXPECT_EQ(rrect->GetRect(), box);
  EXPECT_EQ(rrect->GetRounding(), 0.5);
  EXPECT_EQ(rrect->GetPen(), pen);
  EXPECT_EQ(rrect->GetBrush(), brush);
  const WArcObj arc(box, Degrees(10), Degrees(20), wsys, pen);
  EXPECT_EQ(arc->GetRect(), box);
  EXPECT_EQ(arc->GetStartAngle(), Degrees(10));
  EXPECT_EQ(arc->GetEndAngle(), Degrees(20));
  EXPECT_EQ(arc->GetPen(), pen);
  const WTextObj text("A", box, wsys, Font::None());
  EXPECT_EQ(text->GetText(), Tobri::String("A"));
  EXPECT_EQ(text->GetBox(), box);
  EXPECT_EQ(text->GetFont(), Font::None());
  const WRegionObj region(wsys, pen, brush);
  EXPECT_EQ(region->GetPen(), pen);
  EXPECT_EQ(region->GetBrush(), brush);
  for (const WObjRf<WObjBody>& object :
       {WObjRf<WObjBody>(line), WObjRf<WObjBody>(pline), WObjRf<WObjBody>(rect), WObjRf<WObjBody>(ellipse),
        WObjRf<WObjBody>(rrect), WObjRf<WObjBody>(arc), WObjRf<WObjBody>(text), WObjRf<WObjBody>(region)}) {
    EXPECT_EQ(object->GetWSys(), wsys);
  }
}

TEST(WPLineObjTest, HasNoConstructorFromTheCoordinateSystemAlone) {
  EXPECT_FALSE((std::is_constructible_v<WPLineObj, Tobri::IRefC<CoordSys>>));
  EXPECT_TRUE((std::is_constructible_v<WRegionObj, Tobri::IRefC<CoordSys>>));
}

}  // namespace
}  // namespace Pelor::MI
