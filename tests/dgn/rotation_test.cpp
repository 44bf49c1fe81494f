#include <pelor/dgn/rotation.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

using namespace Pelor::DGN;

constexpr double kTransScale = 100000.0 / 2147483648.0;

TEST(QuaternionTest, TheDefaultHoldsTheRawNumberOneInItsFirstComponent) {
  EXPECT_EQ(quaternion(), (quaternion{1, 0, 0, 0}));
}

TEST(StoredTransTest, TheDefaultIsOneInTheCornerAndZeroElsewhere) {
  const trans2D plane;
  EXPECT_EQ(plane.m[0][0], 21474);  // 1.0 / (100000 / 2^31), truncated
  EXPECT_EQ(plane.m[1][0], 0);
  EXPECT_EQ(plane.m[0][1], 0);
  EXPECT_EQ(plane.m[1][1], 0);
  const trans3D space;
  EXPECT_EQ(space.m[0][0], 21474);
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      if (row + column != 0) {
        EXPECT_EQ(space.m[row][column], 0);
      }
    }
  }
}

TEST(Trans2DTest, TheDefaultSetsTheFirstColumnOnly) {
  const Trans2D t;
  EXPECT_EQ(t.m[0][0], 1.0);
  EXPECT_EQ(t.m[1][0], 0.0);
  EXPECT_EQ(t.m[1][1], 0.0);
  EXPECT_EQ(t.Apply({3.0, 5.0}), (dpoint2d{3.0, 0.0}));
}

TEST(Trans2DTest, AQuarterTurnAtScaleTwoMapsTheUnitXToTwiceTheUnitY) {
  const dpoint2d p = Trans2D(90.0, 2.0).Apply({1.0, 0.0});
  EXPECT_NEAR(p.x, 0.0, 1e-15);
  EXPECT_NEAR(p.y, 2.0, 1e-15);
}

TEST(Trans2DTest, ARotationTurnsCounterClockwise) {
  const Trans2D t(30.0, 1.0);
  EXPECT_DOUBLE_EQ(t.m[0][0], std::sqrt(3.0) / 2.0);
  EXPECT_DOUBLE_EQ(t.m[0][1], -0.5);
  EXPECT_DOUBLE_EQ(t.m[1][0], 0.5);
  EXPECT_DOUBLE_EQ(t.m[1][1], std::sqrt(3.0) / 2.0);
  const dpoint2d p = t.Apply({0.0, 4.0});
  EXPECT_DOUBLE_EQ(p.x, -2.0);
  EXPECT_DOUBLE_EQ(p.y, 2.0 * std::sqrt(3.0));
}

TEST(Trans2DTest, ConvertingVisitsTheFirstColumnOnly) {
  trans2D stored;
  stored.m[0][0] = 1000000;
  stored.m[0][1] = 2000000;
  stored.m[1][0] = -3000000;
  stored.m[1][1] = 4000000;
  const Trans2D t(stored);
  EXPECT_DOUBLE_EQ(t.m[0][0], 1000000 * kTransScale);
  EXPECT_DOUBLE_EQ(t.m[1][0], -3000000 * kTransScale);
  EXPECT_EQ(t.m[0][1], 0.0);
  EXPECT_EQ(t.m[1][1], 0.0);
}

TEST(Trans2DTest, ScalingVisitsTheFirstColumnOnly) {
  Trans2D t;
  t.m[0][0] = 1.0;
  t.m[0][1] = 2.0;
  t.m[1][0] = 3.0;
  t.m[1][1] = 4.0;
  t.Scale(10.0);
  EXPECT_EQ(t.m[0][0], 10.0);
  EXPECT_EQ(t.m[0][1], 2.0);
  EXPECT_EQ(t.m[1][0], 30.0);
  EXPECT_EQ(t.m[1][1], 4.0);
}

TEST(Trans2DTest, StoringVisitsTheFirstColumnOnly) {
  Trans2D t;
  t.m[0][0] = 2.0;
  t.m[0][1] = 2.0;
  t.m[1][0] = -0.5;
  t.m[1][1] = 2.0;
  trans2D stored;
  stored.m[0][1] = 7;
  stored.m[1][1] = 8;
  t.Store(stored);
  EXPECT_EQ(stored.m[0][0], 42949);   // 42949.67 truncated
  EXPECT_EQ(stored.m[1][0], -10737);  // -10737.4 truncated
  EXPECT_EQ(stored.m[0][1], 7);
  EXPECT_EQ(stored.m[1][1], 8);
}

TEST(Trans2DTest, StoringWhatDoesNotFitIsDefined) {
  Trans2D t;
  t.m[0][0] = 1e300;
  t.m[1][0] = -std::numeric_limits<double>::infinity();
  trans2D stored;
  t.Store(stored);
  EXPECT_EQ(stored.m[0][0], std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(stored.m[1][0], std::numeric_limits<std::int32_t>::min());
}

TEST(Trans3DTest, TheDefaultSetsTheFirstColumnOnly) {
  EXPECT_EQ(Trans3D().Apply({3.0, 5.0, 7.0}), (dpoint3d{3.0, 0.0, 0.0}));
}

TEST(Trans3DTest, AFullFirstComponentAtScaleOneIsCloseToTheIdentity) {
  const Trans3D t(quaternion{2147483647, 0, 0, 0}, 1.0);
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      EXPECT_NEAR(t.m[row][column], row == column ? 1.0 : 0.0, 2e-9) << row << ',' << column;
    }
  }
}

TEST(Trans3DTest, AllEntriesFollowFromTheQuaternion) {
  // Components 1/2, 1/4, -1/8 and 3/4 are exact; with the signs turned: w 1/2, x -1/4, y 1/8, z -3/4.
  const Trans3D t(quaternion{1 << 30, 1 << 29, -(1 << 28), (1 << 30) + (1 << 29)}, 64.0);
  // In units of 1/64: ww 16, xx 4, yy 1, zz 36, xy -2, xz 12, yz -6, wx -8, wy 4, wz -24.
  const double expected[3][3] = {
      {16 + 4 - 1 - 36, 2 * (-2 + 24), 2 * (12 + 4)},
      {2 * (-2 - 24), 16 - 4 + 1 - 36, 2 * (-6 + 8)},
      {2 * (12 - 4), 2 * (-6 - 8), 16 - 4 - 1 + 36},
  };
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      EXPECT_EQ(t.m[row][column], expected[row][column]) << row << ',' << column;
    }
  }
  EXPECT_EQ(t.Apply({1.0, 10.0, 100.0}),
            (dpoint3d{-17.0 + 440.0 + 3200.0, -52.0 - 230.0 + 400.0, 16.0 - 280.0 + 4700.0}));
}

TEST(Trans3DTest, ADefaultQuaternionGivesNextToNothing) {
  const Trans3D t(quaternion(), 1.0);
  EXPECT_EQ(t.m[0][0], 1.0 / (2147483648.0 * 2147483648.0));
  EXPECT_EQ(t.m[0][0], t.m[2][2]);
}

TEST(Trans3DTest, ConvertingVisitsTheFirstColumnOnly) {
  trans3D stored;
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) stored.m[row][column] = 1000000 * (row + 1) + column;
  }
  const Trans3D t(stored);
  for (int row = 0; row < 3; ++row) {
    EXPECT_DOUBLE_EQ(t.m[row][0], 1000000 * (row + 1) * kTransScale);
    EXPECT_EQ(t.m[row][1], 0.0);
    EXPECT_EQ(t.m[row][2], 0.0);
  }
}

TEST(Trans3DTest, ScalingAndStoringVisitTheFirstColumnOnly) {
  Trans3D t;
  for (auto& row : t.m) {
    for (double& entry : row) entry = 1.0;
  }
  t.Scale(3.0);
  trans3D stored;
  t.Store(stored);
  for (int row = 0; row < 3; ++row) {
    EXPECT_EQ(t.m[row][0], 3.0);
    EXPECT_EQ(t.m[row][1], 1.0);
    EXPECT_EQ(t.m[row][2], 1.0);
    EXPECT_EQ(stored.m[row][0], 64424);  // 64424.5 truncated
    EXPECT_EQ(stored.m[row][1], 0);
    EXPECT_EQ(stored.m[row][2], 0);
  }
}

}  // namespace
