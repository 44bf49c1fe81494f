#include <pelor/mi/objects.h>

#include <cmath>
#include <cstddef>
#include <iterator>

namespace Pelor::MI {

namespace {

// Every pair of kinds is settled by the body of the higher rank; the other one hands the call over. By object
// kind. The empty object, and any kind of a caller's own, settles all pairs through the base operation.
constexpr int kRanks[] = {
    10,  // none
    1,   // point
    2,   // line
    4,   // polyline
    5,   // region
    9,   // arc
    6,   // text
    3,   // rectangle
    8,   // rounded rectangle
    7,   // ellipse
};

int Rank(WObjType type) {
  return type >= 0 && static_cast<std::size_t>(type) < std::size(kRanks) ? kRanks[type]
                                                                         : kRanks[WObjType_None];
}

// The pairs without a measure: intended to be 0 apart.
double Dispatch(const WObjBody* self, const WObjBody* other) {
  return Rank(other->GetType()) <= Rank(self->GetType()) ? 0.0 : other->DistTo(self, true);
}

}  // namespace

double WObjBody::DistTo(const WObjBody* /*other*/, bool /*swapped*/) const {
  return 0.0;
}

double WPointBody::DistTo(const WObjBody* other, bool /*swapped*/) const {
  if (const auto* const point = dynamic_cast<const WPointBody*>(other)) {
    return std::hypot(point->point_.x - point_.x, point->point_.y - point_.y);
  }
  return Dispatch(this, other);
}

double WLineBody::DistTo(const WObjBody* other, bool /*swapped*/) const {
  return Dispatch(this, other);
}

double WPLineBody::DistTo(const WObjBody* other, bool /*swapped*/) const {
  return Dispatch(this, other);
}

double WRegionBody::DistTo(const WObjBody* other, bool /*swapped*/) const {
  return Dispatch(this, other);
}

double WArcBody::DistTo(const WObjBody* other, bool /*swapped*/) const {
  return Dispatch(this, other);
}

double WTextBody::DistTo(const WObjBody* other, bool /*swapped*/) const {
  return Dispatch(this, other);
}

double WRectBody::DistTo(const WObjBody* other, bool /*swapped*/) const {
  return Dispatch(this, other);
}

double WRRectBody::DistTo(const WObjBody* other, bool /*swapped*/) const {
  return Dispatch(this, other);
}

double WEllipseBody::DistTo(const WObjBody* other, bool /*swapped*/) const {
  return Dispatch(this, other);
}

}  // namespace Pelor::MI
