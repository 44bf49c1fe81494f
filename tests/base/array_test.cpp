#include <pelor/base/array.h>
#include <pelor/base/point.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

using Tobri::DArray;
using Vanth::PointXY;

template <class T>
class ArrayMoveTest : public testing::Test {};

using ElementTypes = testing::Types<int, PointXY, std::string>;
TYPED_TEST_SUITE(ArrayMoveTest, ElementTypes);

TYPED_TEST(ArrayMoveTest, AnArrayThatWasMovedFromCanBeUsedOn) {
  DArray<TypeParam> array;
  array.Add(TypeParam{});
  DArray<TypeParam> taken(std::move(array));
  EXPECT_EQ(taken.Length(), 1U);
  array.Add(TypeParam{});
  array.Add(TypeParam{});
  EXPECT_EQ(array.Length(), 2U);
  taken = std::move(array);
  EXPECT_EQ(taken.Length(), 2U);
  array.Add(TypeParam{});
  EXPECT_EQ(array.Length(), 1U);
}

TEST(ArrayStoreTest, InitGivesDefaultElements) {
  const Tobri::ArrayStore<PointXY> store(5, Tobri::ArrayCommon::Init, 4);
  ASSERT_EQ(store.Capacity(), 8U);
  for (unsigned i = 0; i < 8; ++i) EXPECT_EQ(store.Data()[i], (PointXY{0, 0}));
}

}  // namespace
