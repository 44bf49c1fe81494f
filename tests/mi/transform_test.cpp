#include <pelor/mi/transform.h>

#include <gtest/gtest.h>

namespace Pelor::MI {
namespace {

using Vanth::BoundsXY;
using Vanth::PointXY;
using Vanth::RectXY;

constexpr Transform kTransform{2, 3, 10, 20};

TEST(TransformTest, TheDefaultChangesNothing) {
  PointXY point{1.5, -2.5};
  Transform().Apply(point);
  EXPECT_EQ(point, (PointXY{1.5, -2.5}));
}

TEST(TransformTest, FieldsAreInTheirOrder) {
  EXPECT_EQ(kTransform.scaleX, 2);
  EXPECT_EQ(kTransform.scaleY, 3);
  EXPECT_EQ(kTransform.offsetX, 10);
  EXPECT_EQ(kTransform.offsetY, 20);
}

TEST(TransformTest, APointIsScaledByBothScales) {
  PointXY point{1, 1};
  kTransform.Apply(point);
  EXPECT_EQ(point, (PointXY{12, 23}));
}

TEST(TransformTest, ARectIsScaledByScaleXAlone) {
  RectXY rect{1, 1, 2, 2};
  kTransform.Apply(rect);
  EXPECT_EQ(rect, (RectXY{12, 22, 14, 24}));
}

TEST(TransformTest, ARectKeepsTheOrderOfItsCorners) {
  RectXY rect{1, 2, 3, 4};
  Transform{-1, 3, 10, 20}.Apply(rect);
  EXPECT_EQ(rect, (RectXY{9, 18, 7, 16}));
}

TEST(TransformTest, BoundsAreScaledByScaleXAlone) {
  BoundsXY bounds(1, 1, 2, 2);
  kTransform.Apply(bounds);
  EXPECT_EQ(bounds, BoundsXY(12, 22, 14, 24));
}

TEST(TransformTest, MirroredBoundsComeOutInOrder) {
  BoundsXY bounds(1, 2, 3, 4);
  Transform{-1, 3, 10, 20}.Apply(bounds);
  EXPECT_EQ(bounds.Min(), (PointXY{7, 16}));
  EXPECT_EQ(bounds.Max(), (PointXY{9, 18}));
}

TEST(TransformTest, EmptyBoundsStayEmpty) {
  BoundsXY bounds;
  kTransform.Apply(bounds);
  EXPECT_TRUE(bounds.IsEmpty());
}

}  // namespace
}  // namespace Pelor::MI
