#include <pelor/base/handle.h>

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace {

using Tobri::ICARef;
using Tobri::ICARefC;
using Tobri::ICCRef;
using Tobri::IRef;
using Tobri::IRefC;
using Tobri::IRefCommon;
using Tobri::RefCommon;
using Tobri::Rep;

// Bodies that are alive: every one must be deleted, and only once.
int live = 0;

struct Alive {
  Alive() { ++live; }
  Alive(const Alive&) { ++live; }
  Alive& operator=(const Alive&) = default;
  ~Alive() { --live; }
};

struct Plain : Rep {
  explicit Plain(int v) : value(v) {}
  int value;
  Alive alive;
};

class Shape : public Rep {
 public:
  virtual ~Shape() = default;
  [[nodiscard]] virtual Shape* Clone() const = 0;
  int value = 0;

 protected:
  Shape() = default;
  Shape(const Shape&) = default;
  Shape& operator=(const Shape&) = default;

 private:
  Alive alive_;
};

int clones = 0;

class Circle : public Shape {
 public:
  [[nodiscard]] Circle* Clone() const override {
    ++clones;
    return new Circle(*this);
  }

 private:
  Alive second_;  // counted only when the deletion reaches the derived class
};

// A clone that comes with a share for whoever asked for it.
class Square : public Shape {
 public:
  [[nodiscard]] Square* Clone() const override {
    auto* const clone = new Square(*this);
    clone->Assign(FromFreeStore);
    return clone;
  }
};

struct Node : Rep {
  IRef<Node> next;
  Alive alive;
};

class HandleTest : public testing::Test {
 protected:
  void SetUp() override {
    live = 0;
    clones = 0;
  }
  void TearDown() override { EXPECT_EQ(live, 0) << "bodies deleted exactly once"; }
};

// --- counts

TEST_F(HandleTest, TheCommonPartCountsShares) {
  const Plain body(1);
  EXPECT_EQ(body.RefCount(), 0U);
  body.Assign(RefCommon::FromFreeStore);
  EXPECT_EQ(body.RefCount(), 1U);
  body.Assign(RefCommon::FromRef);
  EXPECT_EQ(body.RefCount(), 2U);
  EXPECT_FALSE(body.deref());
  EXPECT_TRUE(body.deref());
}

TEST_F(HandleTest, CountsAreNeverCopied) {
  const Plain body(1);
  body.Assign(RefCommon::FromFreeStore);
  Plain copy(body);
  EXPECT_EQ(copy.RefCount(), 0U);
  copy = body;
  EXPECT_EQ(copy.RefCount(), 0U);
}

TEST_F(HandleTest, AssignTellsWhenTheOldBodyHasLostItsLastShare) {
  const Plain a(1);
  const Plain b(2);
  EXPECT_FALSE(IRefCommon::assign(nullptr, nullptr));
  EXPECT_FALSE(IRefCommon::assign(nullptr, &a));
  EXPECT_EQ(a.RefCount(), 1U);
  EXPECT_FALSE(IRefCommon::assign(&a, &a)) << "the new share is taken first";
  EXPECT_EQ(a.RefCount(), 1U);
  EXPECT_TRUE(IRefCommon::assign(&a, &b));
  EXPECT_EQ(a.RefCount(), 0U);
  EXPECT_EQ(b.RefCount(), 1U);
  EXPECT_TRUE(IRefCommon::assign(&b, nullptr));
}

// --- every kind of handle

template <class Handle>
struct BodyOf;
template <>
struct BodyOf<IRef<Plain>> {
  using Type = Plain;
  static Plain* New() { return new Plain(7); }
};
template <>
struct BodyOf<IRefC<Plain>> : BodyOf<IRef<Plain>> {};
template <>
struct BodyOf<ICCRef<Plain>> : BodyOf<IRef<Plain>> {};
template <>
struct BodyOf<ICARef<Shape>> {
  using Type = Shape;
  static Shape* New() { return new Circle(); }
};
template <>
struct BodyOf<ICARefC<Shape>> : BodyOf<ICARef<Shape>> {};

template <class Handle>
class EveryHandleTest : public HandleTest {};

using Handles = testing::Types<IRef<Plain>, IRefC<Plain>, ICARef<Shape>, ICARefC<Shape>, ICCRef<Plain>>;
TYPED_TEST_SUITE(EveryHandleTest, Handles);

TYPED_TEST(EveryHandleTest, ADefaultHandleIsNull) {
  const TypeParam handle;
  EXPECT_EQ(handle.Get(), nullptr);
  EXPECT_TRUE(handle == nullptr);
  EXPECT_FALSE(static_cast<bool>(handle));
  EXPECT_TRUE(TypeParam(nullptr) == handle);
}

TYPED_TEST(EveryHandleTest, HandlesShareOneBodyAndTheLastOneDeletesIt) {
  auto* const body = BodyOf<TypeParam>::New();
  const int each = live;
  {
    const TypeParam first(body);
    EXPECT_EQ(body->RefCount(), 1U);
    {
      const TypeParam second(first);
      EXPECT_EQ(body->RefCount(), 2U);
      EXPECT_TRUE(first == second);
      EXPECT_EQ(&*second, body);
    }
    EXPECT_EQ(body->RefCount(), 1U);
    EXPECT_EQ(live, each);
  }
  EXPECT_EQ(live, 0);
}

TYPED_TEST(EveryHandleTest, AssigningSharesTheOtherBodyAndReleasesTheOldOne) {
  TypeParam first(BodyOf<TypeParam>::New());
  const int each = live;
  TypeParam second(BodyOf<TypeParam>::New());
  EXPECT_EQ(live, 2 * each);
  second.Assign(first);
  EXPECT_EQ(live, each);
  EXPECT_EQ(first->RefCount(), 2U);
  second.Assign(BodyOf<TypeParam>::New());
  EXPECT_EQ(first->RefCount(), 1U);
  EXPECT_EQ(second->RefCount(), 1U);
  second = first;
  EXPECT_EQ(first->RefCount(), 2U);
  EXPECT_EQ(live, each);
}

TYPED_TEST(EveryHandleTest, AssigningAHandleToItselfKeepsTheBodyAlive) {
  TypeParam handle(BodyOf<TypeParam>::New());
  const int each = live;
  const TypeParam& same = handle;
  handle.Assign(same);
  handle = same;
  handle.Assign(handle.Get());
  TypeParam& moved = handle;
  handle = std::move(moved);
  EXPECT_EQ(live, each);
  ASSERT_TRUE(handle);
  EXPECT_EQ(handle->RefCount(), 1U);
}

TYPED_TEST(EveryHandleTest, AssigningABodyGotFromAnotherHandleShares) {
  const TypeParam owner(BodyOf<TypeParam>::New());
  TypeParam handle;
  handle.Assign(owner, owner.Get());
  EXPECT_EQ(owner->RefCount(), 2U);
}

TYPED_TEST(EveryHandleTest, AssignNullReleasesAndOnANullHandleDoesNothing) {
  TypeParam handle(BodyOf<TypeParam>::New());
  handle.AssignNull();
  EXPECT_EQ(live, 0);
  EXPECT_TRUE(handle == nullptr);
  handle.AssignNull();
  EXPECT_TRUE(handle == nullptr);
}

TYPED_TEST(EveryHandleTest, MovingTakesTheShareOver) {
  TypeParam first(BodyOf<TypeParam>::New());
  const auto* const body = first.Get();
  TypeParam second(std::move(first));
  EXPECT_TRUE(first == nullptr);  // NOLINT(bugprone-use-after-move): a moved handle is null
  EXPECT_EQ(second.Get(), body);
  EXPECT_EQ(body->RefCount(), 1U);
  TypeParam third(BodyOf<TypeParam>::New());
  third = std::move(second);
  EXPECT_EQ(third.Get(), body);
  EXPECT_EQ(body->RefCount(), 1U);
}

// --- Copy

template <class Handle>
class CopyTest : public HandleTest {};

using CopyHandles = testing::Types<ICARef<Shape>, ICARefC<Shape>, ICCRef<Plain>>;
TYPED_TEST_SUITE(CopyTest, CopyHandles);

TYPED_TEST(CopyTest, AnOnlyOwnerKeepsItsBody) {
  TypeParam handle(BodyOf<TypeParam>::New());
  const auto* const body = handle.Get();
  const int each = live;
  handle.Copy();
  EXPECT_EQ(handle.Get(), body);
  EXPECT_EQ(body->RefCount(), 1U);
  EXPECT_EQ(clones, 0);
  EXPECT_EQ(live, each);
}

TYPED_TEST(CopyTest, ANullHandleStaysNull) {
  TypeParam handle;
  handle.Copy();
  EXPECT_TRUE(handle == nullptr);
}

TYPED_TEST(CopyTest, ASharedBodyIsClonedAndTheOldOneLosesOneShare) {
  auto* const body = BodyOf<TypeParam>::New();
  const int each = live;
  body->value = 42;
  const TypeParam first(body);
  const TypeParam second(first);
  TypeParam third(first);
  third.Copy();
  EXPECT_NE(third.Get(), body);
  EXPECT_EQ(third->value, 42);
  EXPECT_EQ(third->RefCount(), 1U);
  EXPECT_EQ(body->RefCount(), 2U);
  EXPECT_EQ(live, 2 * each);
}

TEST_F(HandleTest, CopyTakesOverTheShareThatACloneComesWith) {
  ICARef<Shape> first(new Square());
  ICARef<Shape> second(first);
  second.Copy();
  EXPECT_EQ(first->RefCount(), 1U);
  EXPECT_EQ(second->RefCount(), 1U);
  ICARefC<Shape> third{IRefC<Shape>(first)};
  third.Copy();
  EXPECT_EQ(third->RefCount(), 1U);
}

TEST_F(HandleTest, CopyClonesAPolymorphicBodyThroughItsVirtualClone) {
  const ICARef<Shape> first(new Circle());
  ICARef<Shape> second(first);
  second.Copy();
  EXPECT_EQ(clones, 1);
  EXPECT_NE(dynamic_cast<Circle*>(second.Get()), nullptr);
}

TEST_F(HandleTest, AChangeAfterCopyIsSeenByNoOtherHolder) {
  const ICCRef<Plain> first(new Plain(1));
  ICCRef<Plain> second(first);
  second.Copy();
  second->value = 2;
  EXPECT_EQ(first->value, 1);
}

TEST_F(HandleTest, AChangeWithoutCopyIsSeenByAll) {
  const IRef<Plain> first(new Plain(1));
  const IRef<Plain> second(first);
  second->value = 2;
  EXPECT_EQ(first->value, 2);
}

// --- between kinds

TEST_F(HandleTest, AReaderSharesTheBodyOfAWriter) {
  const IRef<Plain> writer(new Plain(1));
  const IRefC<Plain> built(writer);
  IRefC<Plain> assigned;
  assigned.Assign(writer);
  IRefC<Plain> set;
  set = writer;
  EXPECT_EQ(writer->RefCount(), 4U);
  writer->value = 5;
  EXPECT_EQ(built->value, 5);
  EXPECT_EQ(assigned->value, 5);
}

TEST_F(HandleTest, CopyHandlesAreBuiltFromTheSharingKinds) {
  const IRef<Plain> plain(new Plain(1));
  const ICCRef<Plain> by_value(plain);
  EXPECT_EQ(plain->RefCount(), 2U);
  const IRef<Shape> shape(new Circle());
  const ICARef<Shape> by_clone(shape);
  const ICARefC<Shape> by_clone_const{IRefC<Shape>(shape)};
  EXPECT_EQ(shape->RefCount(), 3U);
}

// --- chains

TEST_F(HandleTest, AHandleMayTakeOverFromInsideTheBodyItReleases) {
  IRef<Node> head(new Node());
  head->next.Assign(new Node());
  head->next->next.Assign(new Node());
  const Node* const second = head->next.Get();
  head = std::move(head->next);
  EXPECT_EQ(head.Get(), second);
  EXPECT_EQ(live, 2);
  head = head->next;
  EXPECT_EQ(live, 1);
}

}  // namespace
