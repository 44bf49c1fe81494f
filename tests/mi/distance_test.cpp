#include <pelor/mi/build.h>
#include <pelor/mi/objects.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Pelor::MI {
namespace {

// Settles[a] lists the kinds whose pair with kind a is settled by a.
const std::vector<std::vector<int>> kSettles = {
    {0, 1, 2, 3, 4, 5, 6, 7, 8, 9},  // none
    {1},                             // point
    {1, 2},                          // line
    {1, 2, 3, 7},                    // polyline
    {1, 2, 3, 4, 7},                 // region
    {1, 2, 3, 4, 5, 6, 7, 8, 9},     // arc
    {1, 2, 3, 4, 6, 7},              // text
    {1, 2, 7},                       // rectangle
    {1, 2, 3, 4, 6, 7, 8, 9},        // rounded rectangle
    {1, 2, 3, 4, 6, 7, 9},           // ellipse
};

// Stands for the other object: has its kind, and counts the calls that are handed over to it.
class Probe : public WObjBody {
 public:
  explicit Probe(int kind) : WObjBody(static_cast<WObjType>(kind), nullptr) {}

  [[nodiscard]] Probe* Clone() const override { return new Probe(*this); }
  [[nodiscard]] Vanth::BoundsXY GetBounds() const override { return {}; }
  [[nodiscard]] Vanth::PointXY GetCentroid() const override { return {}; }
  [[nodiscard]] double GetLength() const override { return 0.0; }
  [[nodiscard]] double GetArea() const override { return 0.0; }
  void Apply(const Transform& /*transform*/) override {}
  void WriteMIF(std::ostream& /*out*/) const override {}
  void ReadMIF(Tobri::IxText& /*in*/) override {}
  [[nodiscard]] double DistTo(const WObjBody* other, bool swapped) const override {
    ++calls;
    from = other;
    was_swapped = swapped;
    return 42.0;
  }

  mutable int calls = 0;
  mutable const WObjBody* from = nullptr;
  mutable bool was_swapped = false;
};

TEST(DistToTest, EveryPairIsSettledOrHandedOverAsItsKindsRank) {
  for (int self = 0; self < 10; ++self) {
    const WObjRf<WObjBody> object = Build(static_cast<WObjType>(self), nullptr);
    for (int other = 0; other < 10; ++other) {
      bool settles = false;
      for (const int kind : kSettles[static_cast<std::size_t>(self)]) settles |= kind == other;
      const Probe probe(other);
      const double distance = object->DistTo(&probe, false);
      EXPECT_EQ(probe.calls, settles ? 0 : 1) << self << " to " << other;
      EXPECT_EQ(distance, settles ? 0.0 : 42.0) << self << " to " << other;
      if (settles) continue;
      EXPECT_EQ(probe.from, object.Get());
      EXPECT_TRUE(probe.was_swapped);
    }
  }
}

int call_count = 0;

// A real object that counts the calls it gets.
template <class Body>
class Counting : public Body {
 public:
  Counting() : Body(nullptr) {}

  [[nodiscard]] double DistTo(const WObjBody* other, bool swapped) const override {
    ++call_count;
    return Body::DistTo(other, swapped);
  }
};

TEST(DistToTest, WhoeverReceivesACallThatWasHandedOverSettlesIt) {
  const Counting<WNoBody> none;
  const Counting<WPointBody> point;
  const Counting<WLineBody> line;
  const Counting<WPLineBody> pline;
  const Counting<WRegionBody> region;
  const Counting<WArcBody> arc;
  const Counting<WTextBody> text;
  const Counting<WRectBody> rect;
  const Counting<WRRectBody> rrect;
  const Counting<WEllipseBody> ellipse;
  const WObjBody* const bodies[] = {&none, &point, &line, &pline, &region,
                                    &arc,  &text,  &rect, &rrect, &ellipse};
  for (const WObjBody* const self : bodies) {
    const std::vector<int>& settles = kSettles[static_cast<std::size_t>(self->GetType())];
    for (const WObjBody* const other : bodies) {
      const bool is_settled = std::find(settles.begin(), settles.end(), other->GetType()) != settles.end();
      call_count = 0;
      EXPECT_EQ(self->DistTo(other, false), 0.0);
      EXPECT_EQ(call_count, is_settled ? 1 : 2) << self->GetType() << " to " << other->GetType();
    }
  }
}

TEST(DistToTest, AllPairsOfRealObjectsAreZeroApartInBothDirections) {
  for (int a = 0; a < 10; ++a) {
    const WObjRf<WObjBody> first = Build(static_cast<WObjType>(a), nullptr);
    for (int b = 0; b < 10; ++b) {
      const WObjRf<WObjBody> second = Build(static_cast<WObjType>(b), nullptr);
      EXPECT_EQ(first->DistTo(second.Get(), false), 0.0) << a << " to " << b;
      EXPECT_EQ(first->DistTo(second.Get(), true), 0.0) << a << " to " << b;
    }
  }
}

TEST(DistToTest, TwoPointsAreTheirDistanceApart) {
  const WPointObj a({0, 0}, nullptr, Symbol());
  const WPointObj b({3, 4}, nullptr, Symbol());
  EXPECT_EQ(a->DistTo(b.Get(), false), 5.0);
  EXPECT_EQ(b->DistTo(a.Get(), false), 5.0);
  EXPECT_EQ(b->DistTo(a.Get(), true), 5.0);
  EXPECT_EQ(a->DistTo(a.Get(), false), 0.0);
}

TEST(DistToTest, ALineHandsItsCallToTheRegion) {
  const WLineObj line({0, 0}, {1, 1}, nullptr, Pen());
  const Probe region(4);
  EXPECT_EQ(line->DistTo(&region, false), 42.0);
  EXPECT_EQ(region.from, line.Get());
  EXPECT_EQ(line->DistTo(WRegionObj(nullptr, Pen(), Brush()).Get(), false), 0.0);
}

TEST(DistToTest, AnUnknownKindGetsTheCall) {
  for (const int kind : {-1, 10, 1000}) {
    const Probe probe(kind);
    EXPECT_EQ(WArcObj({}, {}, {}, nullptr, Pen())->DistTo(&probe, false), 42.0) << kind;
  }
}

}  // namespace
}  // namespace Pelor::MI
