#include <pelor/base/array.h>
#include <pelor/base/point.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using Tobri::ArrayCommon;
using Tobri::ArrayStore;
using Tobri::btypes;
using Tobri::DArray;
using Tobri::DArrayR;
using Tobri::DArrayRC;
using Tobri::ICCRef;
using Tobri::IRef;
using Tobri::IRefC;
using Vanth::PointXY;
namespace Error = Tobri::Error;

template <class T>
std::vector<T> Values(const DArray<T>& array) {
  return {array.Span().begin(), array.Span().end()};
}

using Ints = std::vector<int>;

DArray<int> Array(const Ints& values) {
  DArray<int> array;
  for (const int value : values) array.Add(value);
  return array;
}

// Collects the texts of what is reported while it lives.
class Reports {
 public:
  Reports() : guard_([this](const Error::Msg& message) { texts_.emplace_back(message.what()); }) {}
  [[nodiscard]] const std::vector<std::string>& Texts() const { return texts_; }

 private:
  std::vector<std::string> texts_;
  Error::ScopedHandler guard_;
};

// --- sizes and stores

TEST(ArrayCommonTest, BlockedSizeRoundsUpToWholeBlocks) {
  const struct {
    unsigned n;
    unsigned block;
    unsigned size;
  } cases[] = {
      {0, 8, 0},
      {1, 8, 8},
      {7, 8, 8},
      {8, 8, 8},
      {9, 8, 16},
      {16, 8, 16},
      {5, 1, 5},
      {5, 0, 5},
      {1, 1000, 1000},
      {10, 3, 12},
      {2147483640U, 8, 2147483640U},
      {2147483641U, 8, 2147483647U},
      {2147483647U, 1000, 2147483647U},
      {4294967295U, 8, 4294967295U},
      {1, 4294967295U, 2147483647U},
  };
  for (const auto& expected : cases) {
    EXPECT_EQ(ArrayCommon::BlockedSize(expected.n, expected.block), expected.size)
        << expected.n << " in blocks of " << expected.block;
  }
}

TEST(ArrayStoreTest, ReservesWholeBlocks) {
  EXPECT_EQ(ArrayStore<int>(5, ArrayCommon::Init, 4).Capacity(), 8U);
  EXPECT_EQ(ArrayStore<int>(5, ArrayCommon::UnInit, 4).Capacity(), 8U);
  EXPECT_EQ(ArrayStore<int>(0, ArrayCommon::Init, 4).Capacity(), 0U);
  EXPECT_EQ(ArrayStore<int>().Data(), nullptr);
}

TEST(ArrayStoreTest, InitGivesDefaultElements) {
  const ArrayStore<PointXY> store(5, ArrayCommon::Init, 4);
  ASSERT_EQ(store.Capacity(), 8U);
  for (unsigned i = 0; i < 8; ++i) EXPECT_EQ(store.Data()[i], (PointXY{0, 0}));
}

TEST(ArrayStoreTest, ACapacityBeyondTheLimitIsReportedAndGivesAnEmptyStore) {
  const Reports reports;
  const ArrayStore<int> store(2147483648U, ArrayCommon::Init, 1);
  EXPECT_EQ(store.Capacity(), 0U);
  EXPECT_EQ(store.Data(), nullptr);
  EXPECT_EQ(reports.Texts(), std::vector<std::string>{"Array size 2147483648 exceeds the limit 2147483647"});
}

TEST(ArrayStoreTest, AMovedStoreIsEmpty) {
  ArrayStore<int> store(4, ArrayCommon::Init, 1);
  const ArrayStore<int> moved(std::move(store));
  EXPECT_EQ(moved.Capacity(), 4U);
  EXPECT_EQ(store.Capacity(), 0U);  // NOLINT(bugprone-use-after-move): what is left is what is tested
  EXPECT_EQ(store.Data(), nullptr);
}

template <class T>
class SizedEqTest : public testing::Test {};

using BuiltIn =
    testing::Types<char, unsigned char, short, unsigned short, int, unsigned int, long, unsigned long>;
TYPED_TEST_SUITE(SizedEqTest, BuiltIn);

TYPED_TEST(SizedEqTest, ComparesRunsOfBuiltInElements) {
  const TypeParam a[] = {1, 2, 3};
  const TypeParam b[] = {1, 2, 4};
  EXPECT_TRUE(btypes<TypeParam>::sized_eq(a, a, 3));
  EXPECT_TRUE(btypes<TypeParam>::sized_eq(a, b, 2));
  EXPECT_FALSE(btypes<TypeParam>::sized_eq(a, b, 3));
  EXPECT_TRUE(btypes<TypeParam>::sized_eq(nullptr, nullptr, 0));
}

// --- DArray

TEST(DArrayTest, StartsEmpty) {
  const DArray<int> array;
  EXPECT_EQ(array.Length(), 0U);
  EXPECT_TRUE(array.IsEmpty());
  EXPECT_TRUE(array.Span().empty());
}

TEST(DArrayTest, AddAppends) {
  DArray<int> array;
  Ints expected;
  for (int i = 0; i < 1000; ++i) {
    array.Add(i * i);
    expected.push_back(i * i);
  }
  EXPECT_EQ(Values(array), expected);
  EXPECT_EQ(array[999], 999 * 999);
}

TEST(DArrayTest, AnElementOfTheArrayItselfCanBeAddedAndInserted) {
  DArray<int> array = Array({5});
  for (int i = 0; i < 100; ++i) array.Add(array.Span()[0]);
  for (int i = 0; i < 100; ++i) array.Insert(0, array.Span()[array.Length() - 1]);
  EXPECT_EQ(Values(array), Ints(201, 5));
}

TEST(DArrayTest, InsertPutsBeforeThePositionAndAtTheLengthAppends) {
  DArray<int> array = Array({1, 2, 3});
  array.Insert(0, 10);
  EXPECT_EQ(Values(array), (Ints{10, 1, 2, 3}));
  array.Insert(2, 20);
  EXPECT_EQ(Values(array), (Ints{10, 1, 20, 2, 3}));
  array.Insert(5, 30);
  EXPECT_EQ(Values(array), (Ints{10, 1, 20, 2, 3, 30}));
  DArray<int> empty;
  empty.Insert(0, 1);
  EXPECT_EQ(Values(empty), Ints{1});
}

TEST(DArrayTest, AnInsertBeyondTheLengthIsReportedAndLeavesTheArrayAsItWas) {
  DArray<int> array = Array({1, 2});
  const Reports reports;
  array.Insert(3, 9);
  array.Insert(4294967295U, 9);
  EXPECT_EQ(Values(array), (Ints{1, 2}));
  EXPECT_EQ(reports.Texts(), (std::vector<std::string>{"Array index 3 is not below the size 2",
                                                       "Array index 4294967295 is not below the size 2"}));
}

TEST(DArrayTest, AnIndexOutOfRangeIsReportedAndGivesADefaultElement) {
  DArray<int> array = Array({1, 2});
  const Reports reports;
  EXPECT_EQ(array[1], 2);
  EXPECT_EQ(array[2], 0);
  array.Set(0, 7);
  array.Set(2, 8);
  EXPECT_EQ(Values(array), (Ints{7, 2}));
  EXPECT_EQ(reports.Texts(), (std::vector<std::string>(2, "Array index 2 is not below the size 2")));
}

TEST(DArrayTest, ASizeBeyondTheLimitIsReportedAndLeavesTheArrayAsItWas) {
  DArray<int> array = Array({1, 2});
  const Reports reports;
  EXPECT_FALSE(array.Reserve(2147483648U));
  array.Resize(4294967295U);
  EXPECT_EQ(Values(array), (Ints{1, 2}));
  EXPECT_EQ(reports.Texts(),
            (std::vector<std::string>{"Array size 2147483648 exceeds the limit 2147483647",
                                      "Array size 4294967295 exceeds the limit 2147483647"}));
}

TEST(DArrayTest, WithoutAHandlerAnErrorIsThrown) {
  DArray<int> array;
  EXPECT_THROW((void)array[0], Tobri::ArrayIndexErr);
  EXPECT_THROW(array.Insert(1, 0), Tobri::ArrayIndexErr);
  EXPECT_THROW(array.Resize(2147483648U), Tobri::ArraySizeErr);
}

TEST(DArrayTest, EmptyRemovesAllElements) {
  DArray<int> array = Array({1, 2, 3});
  array.Empty();
  EXPECT_EQ(array.Length(), 0U);
  array.Add(4);
  EXPECT_EQ(Values(array), Ints{4});
}

TEST(DArrayTest, ResizeCutsOrAddsDefaultElements) {
  DArray<int> array = Array({1, 2, 3});
  array.Resize(2);
  EXPECT_EQ(Values(array), (Ints{1, 2}));
  array.Resize(5);
  EXPECT_EQ(Values(array), (Ints{1, 2, 0, 0, 0})) << "what was cut off is gone";
}

TEST(DArrayTest, ACopyIsIndependent) {
  DArray<int> array = Array({1, 2, 3});
  DArray<int> copy(array);
  array.Set(0, 9);
  copy.Add(4);
  EXPECT_EQ(Values(copy), (Ints{1, 2, 3, 4}));
  EXPECT_EQ(Values(array), (Ints{9, 2, 3}));
  copy = array;
  EXPECT_EQ(Values(copy), (Ints{9, 2, 3}));
  const DArray<int>& same = copy;
  copy = same;
  EXPECT_EQ(Values(copy), (Ints{9, 2, 3}));
}

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

TEST(DArrayTest, EqualityIsOfLengthAndElements) {
  EXPECT_TRUE(Array({1, 2}) == Array({1, 2}));
  EXPECT_FALSE(Array({1, 2}) == Array({1, 3}));
  EXPECT_FALSE(Array({1, 2}) == Array({1, 2, 3}));
  EXPECT_TRUE(DArray<int>() == DArray<int>());
  DArray<PointXY> zero;
  zero.Add({0.0, 1.0});
  DArray<PointXY> minus_zero;
  minus_zero.Add({-0.0, 1.0});
  EXPECT_TRUE(zero == minus_zero) << "points are compared as numbers, not as bytes";
}

TEST(DArrayTest, HoldsElementsThatOwnMemory) {
  DArray<std::string> array;
  const std::string text(100, 'x');
  for (int i = 0; i < 50; ++i) array.Insert(0, text);
  array.Resize(60);
  array.Resize(10);
  EXPECT_EQ(Values(array), std::vector<std::string>(10, text));
  array.Empty();
  EXPECT_TRUE(array.IsEmpty());
}

// --- the views

TEST(DArrayRCTest, ANullHandleIsAnArrayOfLengthZero) {
  EXPECT_EQ(DArrayRC<int>(IRef<DArray<int>>()).Length(), 0U);
  EXPECT_EQ(DArrayRC<int>(IRefC<DArray<int>>()).Length(), 0U);
  EXPECT_EQ(DArrayRC<int>(ICCRef<DArray<int>>()).Length(), 0U);
  EXPECT_TRUE(DArrayRC<PointXY>(IRef<DArray<PointXY>>()).Span().empty());
}

TEST(DArrayRCTest, ShowsTheElementsOfTheArray) {
  const IRef<DArray<int>> handle(new DArray<int>(Array({1, 2, 3})));
  const DArrayRC<int> view(handle);
  EXPECT_EQ(view.Length(), 3U);
  EXPECT_EQ(Ints(view.begin(), view.end()), (Ints{1, 2, 3}));
  EXPECT_EQ(DArrayRC<int>(IRefC<DArray<int>>(handle)).Length(), 3U);
  EXPECT_EQ(DArrayRC<int>(*handle).Length(), 3U);
  EXPECT_EQ(handle->RefCount(), 1U) << "a view takes no share";
}

TEST(DArrayRTest, GivesANullHandleAnArray) {
  ICCRef<DArray<int>> handle;
  DArrayR<int> view(handle);
  EXPECT_EQ(view.Length(), 0U);
  view.Add(1);
  view.Add(2);
  ASSERT_TRUE(handle);
  EXPECT_EQ(Values(*handle), (Ints{1, 2}));
  EXPECT_EQ(view.Length(), 2U);
  view.Empty();
  EXPECT_EQ(handle->Length(), 0U);
}

TEST(DArrayRTest, AChangeIsSeenByNoOtherHolder) {
  ICCRef<DArray<int>> first(new DArray<int>(Array({1})));
  const ICCRef<DArray<int>> second(first);
  DArrayR<int>(first).Add(2);
  EXPECT_EQ(Values(*first), (Ints{1, 2}));
  EXPECT_EQ(Values(*second), Ints{1});
}

TEST(DArrayRTest, AnOnlyOwnerChangesInPlace) {
  ICCRef<DArray<int>> handle(new DArray<int>(Array({1, 3})));
  const DArray<int>* const array = handle.Get();
  DArrayR<int> view(handle);
  view.Insert(1, 2);
  view.Resize(4);
  view.Span()[3] = 4;
  EXPECT_EQ(handle.Get(), array);
  EXPECT_EQ(Values(*handle), (Ints{1, 2, 3, 4}));
}

}  // namespace
