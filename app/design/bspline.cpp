#include "app/design/bspline.h"

#include "app/design/element_geometry.h"
#include "app/design/flatten.h"

#include <algorithm>
#include <cmath>

namespace App {

using namespace Pelor;
using Vanth::PointXY;

namespace {

constexpr std::size_t kBody = DGN::DEHeader::kBytes;
constexpr std::size_t kFlags = 40;
constexpr std::size_t kPoleCount = 42;
constexpr std::size_t kKnotCount = 44;
constexpr std::uint8_t kOrderMask = 0x0F;
constexpr std::uint8_t kRationalBit = 0x40;
constexpr std::uint8_t kClosedBit = 0x80;
// Knots and weights are fractions of 2^31.
constexpr double kFraction = 2147483648.0;

// Appends the longs of a component's body as fractions.
void AppendFractions(const ElementView& element, std::size_t most, std::vector<double>& values) {
  const std::size_t count = (element.Geometry().size() - kBody) / 4;
  for (std::size_t i = 0; i < count && values.size() < most; ++i) {
    values.push_back(element.Long(kBody + 4 * i) / kFraction);
  }
}

}  // namespace

bool BSpline::Begin(const ElementView& header) {
  poles_.clear();
  weights_.clear();
  knots_.clear();
  if (header.Type() != DGN::BSplineCurveHeaderType || !header.HasDisplayableHeader()) return false;
  if (!header.Reaches(kBody, kKnotCount + 2 - kBody)) return false;
  const std::uint8_t flags = header.Byte(kFlags);
  order_ = (flags & kOrderMask) + std::size_t{2};
  is_rational_ = (flags & kRationalBit) != 0;
  is_closed_ = (flags & kClosedBit) != 0;
  told_poles_ = header.Word(kPoleCount);
  told_knots_ = header.Word(kKnotCount);
  return true;
}

bool BSpline::Add(const ElementView& component) {
  if (!component.HasDisplayableHeader()) return false;
  switch (component.Type()) {
    case DGN::BSplineKnotType:
      AppendFractions(component, told_knots_, knots_);
      return true;
    case DGN::BSplineWeightType:
      AppendFractions(component, told_poles_, weights_);
      return true;
    case DGN::BSplinePoleType:
      break;
    default:
      return false;
  }
  const auto vertices = Vertices::Decode(component);
  if (!vertices) return false;
  for (std::size_t i = 0; i < vertices->Size(); ++i) {
    const Uor3 pole = (*vertices)[i];
    if (poles_.empty()) z_low_ = z_high_ = pole.z;
    z_low_ = std::min(z_low_, static_cast<double>(pole.z));
    z_high_ = std::max(z_high_, static_cast<double>(pole.z));
    poles_.push_back(pole.Plan());
  }
  return true;
}

bool BSpline::IsComplete() const noexcept {
  if (poles_.size() != told_poles_ || knots_.size() != told_knots_) return false;
  if (poles_.size() < (is_closed_ ? 3 : order_)) return false;
  if (!knots_.empty()) {
    if (knots_.size() != poles_.size() - (is_closed_ ? 1 : order_)) return false;
    if (!std::is_sorted(knots_.begin(), knots_.end()) || knots_.front() < 0.0) return false;
  }
  if (!is_rational_) return true;
  return weights_.size() == poles_.size() &&
         std::all_of(weights_.begin(), weights_.end(), [](double weight) { return weight > 0.0; });
}

// Open curves begin and end at a pole: the ends of the vector are repeated. In closed curves the vector goes
// on with the same steps beyond both ends, and the first poles follow the last one again.
void BSpline::MakeKnotVector() {
  const std::size_t degree = order_ - 1;
  const std::size_t inner = is_closed_ ? poles_.size() - 1 : poles_.size() - order_;
  vector_.clear();
  const auto knot = [&](std::size_t i) {  // 0 is the first, inner + 1 the last of [0, 1]
    if (i == 0) return 0.0;
    if (i > inner) return 1.0;
    return knots_.empty() ? static_cast<double>(i) / static_cast<double>(inner + 1) : knots_[i - 1];
  };
  const std::size_t period = inner + 1;
  for (std::size_t i = degree; i > 0; --i) {
    const std::size_t turns = (i + period - 1) / period;
    vector_.push_back(is_closed_ ? knot(turns * period - i) - static_cast<double>(turns) : 0.0);
  }
  for (std::size_t i = 0; i <= period; ++i) vector_.push_back(knot(i));
  for (std::size_t i = 1; i <= degree; ++i) {
    const std::size_t turns = i / period + 1;
    vector_.push_back(is_closed_ ? knot(i % period) + static_cast<double>(turns) : 1.0);
  }
}

void BSpline::Flatten(double given_tolerance, std::vector<PointXY>& points) {
  MakeKnotVector();
  const std::size_t degree = order_ - 1;
  PointXY low = poles_.front();
  PointXY high = low;
  for (const PointXY& pole : poles_) {
    low = {std::min(low.x, pole.x), std::min(low.y, pole.y)};
    high = {std::max(high.x, pole.x), std::max(high.y, pole.y)};
  }
  const double tolerance = ToleranceFor(std::hypot(high.x - low.x, high.y - low.y), given_tolerance);

  const auto pole = [&](std::size_t i) -> BezierPoint {
    const std::size_t at = i % poles_.size();
    const double w = is_rational_ ? weights_[at] : 1.0;
    return {poles_[at].x * w, poles_[at].y * w, w};
  };
  const std::size_t first_new = points.size();
  for (std::size_t span = degree; span + degree + 1 < vector_.size(); ++span) {
    const double from = vector_[span];
    const double to = vector_[span + 1];
    if (!(from < to)) continue;
    // The control points of the piece over one span are the values of its polar form at the span's two ends,
    // each taken so many times.
    Bezier piece;
    for (std::size_t k = 0; k < order_; ++k) {
      Bezier values;
      for (std::size_t i = 0; i < order_; ++i) values[i] = pole(span - degree + i);
      for (std::size_t round = 1; round <= degree; ++round) {
        const double at = round <= k ? to : from;
        for (std::size_t i = degree; i >= round; --i) {
          const double left = vector_[span - degree + i];
          const double right = vector_[span + i + 1 - round];
          const double part = (at - left) / (right - left);
          const BezierPoint& a = values[i - 1];
          BezierPoint& b = values[i];
          b = {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part, a.w + (b.w - a.w) * part};
        }
      }
      piece[k] = values[degree];
    }
    if (points.size() == first_new) points.push_back({piece[0].x / piece[0].w, piece[0].y / piece[0].w});
    App::Flatten(piece, order_, tolerance, points);
  }
  if (is_closed_ && points.size() > first_new) points.back() = points[first_new];
}

}  // namespace App
