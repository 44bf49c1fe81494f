#include <pelor/mi/objects.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <numbers>
#include <tests/mi/objects.h>
#include <vector>

namespace Pelor::MI {
namespace {

using Vanth::BoundsXY;
using Vanth::PointXY;
using Vanth::RectXY;

constexpr double kPi = std::numbers::pi;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::vector<WObjRf<WObjBody>> OneOfEachKind(const Tobri::IRefC<CoordSys>& wsys) {
  return {
      WObjRf<WNoBody>(new WNoBody(wsys)),
      WPointObj(wsys),
      WLineObj(wsys),
      WPLineObj(wsys, Pen(), false),
      WRegionObj(wsys),
      WArcObj(wsys),
      WTextObj(wsys),
      WRectObj(wsys),
      WRRectObj(wsys),
      WEllipseObj(wsys),
  };
}

TEST(WObjBodyTest, EveryClassHasItsTypeCode) {
  std::int32_t code = 0;
  for (const auto& object : OneOfEachKind(nullptr)) EXPECT_EQ(object->GetType(), code++);
  EXPECT_EQ(code, 10);
}

TEST(WObjBodyTest, EveryClassCarriesItsStyle) {
  const auto objects = OneOfEachKind(nullptr);
  EXPECT_NE(dynamic_cast<W0DBody*>(objects[1].Get()), nullptr);
  for (const std::size_t linear : {2U, 3U, 5U}) {
    EXPECT_NE(dynamic_cast<W1DBody*>(objects[linear].Get()), nullptr) << linear;
  }
  for (const std::size_t area : {4U, 7U, 8U, 9U}) {
    EXPECT_NE(dynamic_cast<W2DBody*>(objects[area].Get()), nullptr) << area;
  }
  EXPECT_NE(dynamic_cast<WTxBody*>(objects[6].Get()), nullptr);
  for (const auto& object : objects) {
    const bool has_style =
        dynamic_cast<W0DBody*>(object.Get()) != nullptr || dynamic_cast<W1DBody*>(object.Get()) != nullptr ||
        dynamic_cast<W2DBody*>(object.Get()) != nullptr || dynamic_cast<WTxBody*>(object.Get()) != nullptr;
    EXPECT_EQ(has_style, object->GetType() != WObjType_None);
  }
}

TEST(WObjBodyTest, EveryClassSharesItsCoordinateSystem) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  const Tobri::IRefC<CoordSys> other = MakeCoordSys();
  for (const auto& object : OneOfEachKind(wsys)) {
    EXPECT_EQ(object->GetWSys(), wsys);
    object->SetWSys(other);
    EXPECT_EQ(object->GetWSys(), other);
    object->SetWSys(nullptr);
    EXPECT_EQ(object->GetWSys(), nullptr);
  }
  EXPECT_EQ(wsys->RefCount(), 1U);
  EXPECT_EQ(other->RefCount(), 1U);
}

TEST(WObjBodyTest, CloneIsOfTheSameClassWithTheCount1) {
  for (const auto& object : OneOfEachKind(MakeCoordSys())) {
    WObjBody* const clone = object->Clone();
    EXPECT_EQ(clone->RefCount(), 1U);
    const WObjRf<WObjBody> holder(clone);
    EXPECT_EQ(clone->RefCount(), 1U);
    EXPECT_NE(holder, object);
    const WObjBody& original = *object;
    EXPECT_EQ(typeid(*clone), typeid(original));
    EXPECT_EQ(clone->GetWSys(), object->GetWSys());
    EXPECT_EQ(object->RefCount(), 1U);
  }
}

TEST(WObjBodyTest, TheShareOfACloneIsItsCallers) {
  const WPointObj point({1, 2}, nullptr, Symbol());
  const WObjBody* const clone = point->Clone();
  ASSERT_TRUE(clone->deref());
  delete clone;
  EXPECT_EQ(point->RefCount(), 1U);
}

TEST(WObjBodyTest, DefaultsAreZeroGeometryAndDefaultStyles) {
  const WPointObj point((Tobri::IRefC<CoordSys>()));
  EXPECT_EQ(point->GetPoint(), (PointXY{0, 0}));
  EXPECT_EQ(point->GetSymbol(), Symbol());
  const WLineObj line((Tobri::IRefC<CoordSys>()));
  EXPECT_EQ(line->GetStart(), (PointXY{0, 0}));
  EXPECT_EQ(line->GetEnd(), (PointXY{0, 0}));
  EXPECT_EQ(line->GetPen(), Pen());
  const WRectObj rect((Tobri::IRefC<CoordSys>()));
  EXPECT_EQ(rect->GetRect(), (RectXY{0, 0, 0, 0}));
  EXPECT_EQ(rect->GetPen(), Pen());
  EXPECT_EQ(rect->GetBrush(), Brush());
  const WRRectObj rrect((Tobri::IRefC<CoordSys>()));
  EXPECT_EQ(rrect->GetRect(), (RectXY{0, 0, 0, 0}));
  EXPECT_EQ(rrect->GetRounding(), 0.0);
  const WEllipseObj ellipse((Tobri::IRefC<CoordSys>()));
  EXPECT_EQ(ellipse->GetRect(), (RectXY{0, 0, 0, 0}));
  const WArcObj arc((Tobri::IRefC<CoordSys>()));
  EXPECT_EQ(arc->GetRect(), (RectXY{0, 0, 0, 0}));
  EXPECT_EQ(Radians(arc->GetStartAngle()), 0.0);
  EXPECT_EQ(Radians(arc->GetEndAngle()), 0.0);
  EXPECT_EQ(arc->GetPen(), Pen());
  const WTextObj text((Tobri::IRefC<CoordSys>()));
  EXPECT_TRUE(text->GetText().IsEmpty());
  EXPECT_EQ(text->GetBox(), (RectXY{0, 0, 0, 0}));
  EXPECT_EQ(text->GetFont(), Font());
  EXPECT_EQ(text->GetSpacing(), 0);
  EXPECT_EQ(text->GetJustification(), 0);
  EXPECT_EQ(text->GetLabelKind(), 0);
  EXPECT_EQ(text->GetLabelPoint(), (PointXY{0, 0}));
  EXPECT_EQ(Radians(text->GetAngle()), 0.0);
}

TEST(WNoBodyTest, GeometryIsEmpty) {
  WNoBody none(nullptr);
  none.Apply({2, 3, 10, 20});
  EXPECT_TRUE(none.GetBounds().IsEmpty());
  EXPECT_EQ(none.GetCentroid(), (PointXY{0, 0}));
  EXPECT_EQ(none.GetLength(), 0.0);
  EXPECT_EQ(none.GetArea(), 0.0);
  EXPECT_EQ(Radians(none.GetAlignment()), 0.0);
}

TEST(WPointBodyTest, Geometry) {
  WPointBody point({1, 2}, nullptr, Symbol());
  EXPECT_EQ(point.GetBounds(), BoundsXY(1, 2, 1, 2));
  EXPECT_FALSE(point.GetBounds().IsEmpty());
  EXPECT_EQ(point.GetCentroid(), (PointXY{1, 2}));
  EXPECT_EQ(point.GetLength(), 0.0);
  EXPECT_EQ(point.GetArea(), 0.0);
  EXPECT_EQ(Radians(point.GetAlignment()), 0.0);
  point.Apply({2, 3, 10, 20});
  EXPECT_EQ(point.GetPoint(), (PointXY{12, 26}));
}

TEST(WPointBodyTest, KeepsItsArguments) {
  const Symbol picture("STAR.BMP", 0xFF, 18, 1, SLUnits_Point);
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  const WPointObj point({1, 2}, wsys, picture);
  EXPECT_EQ(point->GetPoint(), (PointXY{1, 2}));
  EXPECT_EQ(point->GetWSys(), wsys);
  EXPECT_EQ(point->GetSymbol(), picture);
  point->SetSymbol(Symbol());
  EXPECT_EQ(point->GetSymbol(), Symbol());
}

TEST(WLineBodyTest, Geometry) {
  WLineBody line({1, 6}, {4, 2}, nullptr, Pen());
  EXPECT_EQ(line.GetBounds(), BoundsXY(1, 2, 4, 6));
  EXPECT_EQ(line.GetCentroid(), (PointXY{2.5, 4}));
  EXPECT_EQ(line.GetLength(), 5.0);
  EXPECT_EQ(line.GetArea(), 0.0);
  EXPECT_EQ(Radians(line.GetAlignment()), std::atan2(-4.0, 3.0));
  line.Apply({2, 3, 10, 20});
  EXPECT_EQ(line.GetStart(), (PointXY{12, 38}));
  EXPECT_EQ(line.GetEnd(), (PointXY{18, 26}));
}

TEST(WRectBodyTest, Geometry) {
  WRectBody rect({4, 6, 1, 2}, nullptr, Pen(), Brush());
  EXPECT_EQ(rect.GetBounds(), BoundsXY(1, 2, 4, 6));
  EXPECT_EQ(rect.GetCentroid(), (PointXY{2.5, 4}));
  EXPECT_EQ(rect.GetLength(), 14.0);
  EXPECT_EQ(rect.GetArea(), 12.0);
  EXPECT_EQ(Radians(rect.GetAlignment()), 0.0);
}

TEST(WRectBodyTest, ApplyScalesBothAxesByTheScaleOfX) {
  WRectBody rect({1, 1, 2, 2}, nullptr, Pen(), Brush());
  rect.Apply({2, 3, 10, 20});
  EXPECT_EQ(rect.GetRect(), (RectXY{12, 22, 14, 24}));
}

TEST(WRRectBodyTest, LengthSubtractsPiMinusTwoTimesTheRounding) {
  const WRRectBody rrect({4, 6, 1, 2}, 0.5, nullptr, Pen(), Brush());
  EXPECT_DOUBLE_EQ(rrect.GetLength(), 14.0 - (kPi - 2) * 0.5);
  EXPECT_DOUBLE_EQ(rrect.GetLength(), 13.4292036732051);
}

TEST(WRRectBodyTest, Geometry) {
  WRRectBody rrect({4, 6, 1, 2}, 0.5, nullptr, Pen(), Brush());
  EXPECT_EQ(rrect.GetBounds(), BoundsXY(1, 2, 4, 6));
  EXPECT_EQ(rrect.GetCentroid(), (PointXY{2.5, 4}));
  EXPECT_DOUBLE_EQ(rrect.GetArea(), 12.0 + 0.25 * (kPi / 4 - 1));
  EXPECT_DOUBLE_EQ(rrect.GetArea(), 11.946349540849362);
  EXPECT_EQ(Radians(rrect.GetAlignment()), 0.0);
  rrect.Apply({2, 3, 10, 20});
  EXPECT_EQ(rrect.GetRect(), (RectXY{18, 32, 12, 24}));
  EXPECT_EQ(rrect.GetRounding(), 1.0);
  rrect.Apply({-2, 5, 0, 0});
  EXPECT_EQ(rrect.GetRounding(), -2.0);
}

TEST(WEllipseBodyTest, LengthIsHalfPiTimesTheHypotenuseOfTheHalfAxes) {
  const WEllipseBody ellipse({6, 8, 0, 0}, nullptr, Pen(), Brush());
  EXPECT_DOUBLE_EQ(ellipse.GetLength(), kPi / 2 * 5);
}

TEST(WEllipseBodyTest, Geometry) {
  WEllipseBody ellipse({6, 8, 0, 0}, nullptr, Pen(), Brush());
  EXPECT_EQ(ellipse.GetBounds(), BoundsXY(0, 0, 6, 8));
  EXPECT_EQ(ellipse.GetCentroid(), (PointXY{3, 4}));
  EXPECT_DOUBLE_EQ(ellipse.GetArea(), kPi * 12);
  EXPECT_EQ(Radians(ellipse.GetAlignment()), 0.0);
  ellipse.Apply({2, 3, 10, 20});
  EXPECT_EQ(ellipse.GetRect(), (RectXY{22, 36, 10, 20}));
}

TEST(WArcBodyTest, Geometry) {
  const WArcBody arc({6, 8, 0, 0}, Degrees(10), Degrees(50), nullptr, Pen());
  EXPECT_EQ(arc.GetCentroid(), (PointXY{3, 4}));
  EXPECT_EQ(arc.GetLength(), 0.0);
  EXPECT_EQ(arc.GetArea(), 0.0);
  EXPECT_EQ(Radians(arc.GetAlignment()), 0.0);
}

TEST(WArcBodyTest, EqualScalesKeepTheAngles) {
  WArcBody arc({0, 0, 2, 2}, Degrees(350), Degrees(370), nullptr, Pen());
  arc.Apply({2, 2, 10, 20});
  EXPECT_EQ(arc.GetRect(), (RectXY{10, 20, 14, 24}));
  EXPECT_EQ(arc.GetStartAngle(), Degrees(350));
  EXPECT_EQ(arc.GetEndAngle(), Degrees(370));
}

TEST(WArcBodyTest, UnequalScalesTurnTheAngles) {
  WArcBody arc({0, 0, 2, 2}, Degrees(45), Degrees(135), nullptr, Pen());
  arc.Apply({2, 1, 0, 0});
  EXPECT_DOUBLE_EQ(Radians(arc.GetStartAngle()), std::atan2(1.0, 2.0));
  EXPECT_DOUBLE_EQ(Radians(arc.GetEndAngle()), kPi - std::atan2(1.0, 2.0));
}

TEST(WTextBodyTest, Geometry) {
  WTextBody text("Main St", {0, 0, 6, 2}, nullptr, Font());
  text.SetAngle(Degrees(30));
  EXPECT_EQ(text.GetBounds(), BoundsXY(0, 0, 6, 2));
  EXPECT_EQ(text.GetCentroid(), (PointXY{3, 1}));
  EXPECT_EQ(text.GetLength(), 0.0);
  EXPECT_EQ(text.GetArea(), 0.0);
  EXPECT_EQ(text.GetAlignment(), Degrees(30));
}

TEST(WTextBodyTest, ApplyMovesBoxLabelAndAngle) {
  WTextBody text("Main St", {0, 0, 6, 2}, nullptr, Font());
  text.SetLabelPoint({1, 1});
  text.SetAngle(Degrees(45));
  text.Apply({2, 2, 10, 20});
  EXPECT_EQ(text.GetBox(), (RectXY{10, 20, 22, 24}));
  EXPECT_EQ(text.GetLabelPoint(), (PointXY{12, 22}));
  EXPECT_EQ(text.GetAngle(), Degrees(45));
  text.Apply({1, 3, 0, 0});
  EXPECT_EQ(text.GetLabelPoint(), (PointXY{12, 66}));
  EXPECT_DOUBLE_EQ(Radians(text.GetAngle()), std::atan2(3.0, 1.0));
}

TEST(WTextBodyTest, KeepsItsLayout) {
  const WTextObj text("Main St", {0, 0, 6, 2}, nullptr, Font::None());
  text->SetSpacing(2);
  text->SetJustification(1);
  text->SetLabelKind(-5);
  text->SetText("Side St");
  text->SetLabelPoint({7, 8});
  text->SetAngle(Degrees(30));
  const WTextObj clone(WObjRf<WObjBody>(text->Clone()));
  EXPECT_EQ(clone->GetText(), Tobri::String("Side St"));
  EXPECT_EQ(clone->GetFont(), Font::None());
  EXPECT_EQ(clone->GetSpacing(), 2);
  EXPECT_EQ(clone->GetJustification(), 1);
  EXPECT_EQ(clone->GetLabelKind(), -5);
  EXPECT_EQ(clone->GetBox(), (RectXY{0, 0, 6, 2}));
  EXPECT_EQ(clone->GetLabelPoint(), (PointXY{7, 8}));
  EXPECT_EQ(clone->GetAngle(), Degrees(30));
}

// Bounds of arcs of the circle of radius 10 around (0, 0), worked out from the end points (10 cos a, 10 sin
// a) and the extremes that the arc passes.
struct ArcCase {
  double start;
  double end;
  double x1, y1, x2, y2;
};

const double kC10 = 10 * std::cos(kPi / 18);  // 10 degrees
const double kS10 = 10 * std::sin(kPi / 18);
const double kC60 = 5.0;
const double kS60 = 10 * std::sin(kPi / 3);

class WArcBoundsTest : public testing::TestWithParam<ArcCase> {};

TEST_P(WArcBoundsTest, HoldTheEndPointsAndTheExtremesPassed) {
  const ArcCase& c = GetParam();
  const WArcBody arc({-10, -10, 10, 10}, Degrees(c.start), Degrees(c.end), nullptr, Pen());
  const BoundsXY bounds = arc.GetBounds();
  EXPECT_NEAR(bounds.Min().x, c.x1, 1e-12);
  EXPECT_NEAR(bounds.Min().y, c.y1, 1e-12);
  EXPECT_NEAR(bounds.Max().x, c.x2, 1e-12);
  EXPECT_NEAR(bounds.Max().y, c.y2, 1e-12);
}

INSTANTIATE_TEST_SUITE_P(Arcs, WArcBoundsTest,
                         testing::Values(ArcCase{350, 10, kC10, -kS10, 10, kS10},     // across 0
                                         ArcCase{-10, 10, kC10, -kS10, 10, kS10},     // the same arc
                                         ArcCase{10, 60, kC60, kS10, kC10, kS60},     // no extreme
                                         ArcCase{60, 120, -kC60, kS60, kC60, 10},     // 90
                                         ArcCase{170, 190, -10, -kS10, -kC10, kS10},  // 180
                                         ArcCase{240, 300, -kC60, -10, kC60, -kS60},  // 270
                                         ArcCase{10, 350, -10, -10, kC10, 10},        // all but 0
                                         ArcCase{60, 10, -10, -10, 10, 10},           // all, across 0
                                         ArcCase{0, 90, 0, 0, 10, 10},             // inclusive at both ends
                                         ArcCase{300, 120, -kC60, -kS60, 10, 10},  // 0 and 90 beyond the turn
                                         ArcCase{0, 360, 10, 0, 10, 0}));  // the whole turn reads as 0 to 0

TEST(WArcBodyTest, BoundsOfAnEllipseWithReversedCorners) {
  const WArcBody arc({30, 10, 10, 0}, Degrees(350), Degrees(10), nullptr, Pen());
  const BoundsXY bounds = arc.GetBounds();
  EXPECT_EQ(bounds.Max().x, 30.0);
  EXPECT_NEAR(bounds.Min().x, 20 + kC10, 1e-12);
  EXPECT_NEAR(bounds.Max().y, 5 + kS10 / 2, 1e-12);
  EXPECT_NEAR(bounds.Min().y, 5 - kS10 / 2, 1e-12);
}

TEST(WArcBodyTest, BoundsOfAnglesThatAreNoNumbersAreHarmless) {
  for (const double odd : {kNaN, std::numeric_limits<double>::infinity(), 1e308, -1e308}) {
    const WArcBody arc({0, 0, 2, 2}, Vanth::Angle(odd), Vanth::Angle(odd), nullptr, Pen());
    const BoundsXY bounds = arc.GetBounds();
    if (!bounds.IsEmpty()) {
      EXPECT_GE(bounds.Min().x, 0.0);
      EXPECT_LE(bounds.Max().x, 2.0);
    }
  }
}

TEST(WObjBodyTest, ACloneHasTheGeometryAndTheStyle) {
  const Pen pen{3, 4, 0xFF, SLUnits_Point, true};
  const Brush brush{12, 1, 2};
  const Symbol symbol(65, 0xFF, 12, "Marks", 7, 90, SLUnits_Point);
  const WPointObj point(WObjRf<WObjBody>(WPointBody({1, 2}, nullptr, symbol).Clone()));
  EXPECT_EQ(point->GetPoint(), (PointXY{1, 2}));
  EXPECT_EQ(point->GetSymbol(), symbol);
  const WLineObj line(WObjRf<WObjBody>(WLineBody({1, 2}, {3, 4}, nullptr, pen).Clone()));
  EXPECT_EQ(line->GetStart(), (PointXY{1, 2}));
  EXPECT_EQ(line->GetEnd(), (PointXY{3, 4}));
  EXPECT_EQ(line->GetPen(), pen);
  const WArcObj arc(WObjRf<WObjBody>(WArcBody({1, 2, 3, 4}, Degrees(5), Degrees(6), nullptr, pen).Clone()));
  EXPECT_EQ(arc->GetRect(), (RectXY{1, 2, 3, 4}));
  EXPECT_EQ(arc->GetStartAngle(), Degrees(5));
  EXPECT_EQ(arc->GetEndAngle(), Degrees(6));
  EXPECT_EQ(arc->GetPen(), pen);
  const WRectObj rect(WObjRf<WObjBody>(WRectBody({1, 2, 3, 4}, nullptr, pen, brush).Clone()));
  EXPECT_EQ(rect->GetRect(), (RectXY{1, 2, 3, 4}));
  EXPECT_EQ(rect->GetPen(), pen);
  EXPECT_EQ(rect->GetBrush(), brush);
  const WRRectObj rrect(WObjRf<WObjBody>(WRRectBody({1, 2, 3, 4}, 0.5, nullptr, pen, brush).Clone()));
  EXPECT_EQ(rrect->GetRect(), (RectXY{1, 2, 3, 4}));
  EXPECT_EQ(rrect->GetRounding(), 0.5);
  EXPECT_EQ(rrect->GetPen(), pen);
  EXPECT_EQ(rrect->GetBrush(), brush);
  const WEllipseObj ellipse(WObjRf<WObjBody>(WEllipseBody({1, 2, 3, 4}, nullptr, pen, brush).Clone()));
  EXPECT_EQ(ellipse->GetRect(), (RectXY{1, 2, 3, 4}));
  EXPECT_EQ(ellipse->GetPen(), pen);
  EXPECT_EQ(ellipse->GetBrush(), brush);
}

TEST(WObjBodyTest, AChangeOfACloneLeavesTheOriginalAlone) {
  const WTextObj text("Main St", {0, 0, 6, 2}, nullptr, Font());
  WTextObj copy = text;
  copy.Copy();
  copy->SetText("Side St");
  copy->SetBox({});
  copy->SetFont(Font::None());
  EXPECT_EQ(text->GetText(), Tobri::String("Main St"));
  EXPECT_EQ(text->GetBox(), (RectXY{0, 0, 6, 2}));
  EXPECT_EQ(text->GetFont(), Font());
}

}  // namespace
}  // namespace Pelor::MI
