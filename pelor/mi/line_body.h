#pragma once

#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>

#include <cmath>
#include <utility>

namespace Pelor::MI {

/// A straight line between two points.
class PELOR_EXPORT WLineBody : public W1DBody {
 public:
  explicit WLineBody(Tobri::IRefC<CoordSys> wsys) : WLineBody({}, {}, std::move(wsys), Pen()) {}
  WLineBody(const Vanth::PointXY& start, const Vanth::PointXY& end, Tobri::IRefC<CoordSys> wsys,
            const Pen& pen)
      : W1DBody(WObjType_Line, std::move(wsys), pen), start_(start), end_(end) {}

  [[nodiscard]] WLineBody* Clone() const override { return WithFirstShare(new WLineBody(*this)); }
  [[nodiscard]] Vanth::BoundsXY GetBounds() const override { return {start_, end_}; }
  [[nodiscard]] Vanth::PointXY GetCentroid() const override {
    return {(start_.x + end_.x) / 2, (start_.y + end_.y) / 2};
  }
  [[nodiscard]] double GetLength() const override { return std::hypot(end_.x - start_.x, end_.y - start_.y); }
  [[nodiscard]] Vanth::Angle GetAlignment() const override {
    return Vanth::Angle(std::atan2(end_.y - start_.y, end_.x - start_.x));
  }
  void Apply(const Transform& transform) override {
    transform.Apply(start_);
    transform.Apply(end_);
  }
  void WriteMIF(std::ostream& out) const override;
  void ReadMIF(Tobri::IxText& in) override;
  [[nodiscard]] double DistTo(const WObjBody* other, bool swapped) const override;

  [[nodiscard]] const Vanth::PointXY& GetStart() const noexcept { return start_; }
  void SetStart(const Vanth::PointXY& start) noexcept { start_ = start; }
  [[nodiscard]] const Vanth::PointXY& GetEnd() const noexcept { return end_; }
  void SetEnd(const Vanth::PointXY& end) noexcept { end_ = end; }

 private:
  Vanth::PointXY start_;
  Vanth::PointXY end_;
};

/// Handle of a WLineBody; a constructor with arguments makes a new body of them.
class WLineObj : public WObjRf<WLineBody> {
 public:
  using WObjRf::WObjRf;
  WLineObj() noexcept = default;
  explicit WLineObj(Tobri::IRefC<CoordSys> wsys) : WObjRf(new WLineBody(std::move(wsys))) {}
  WLineObj(const Vanth::PointXY& start, const Vanth::PointXY& end, Tobri::IRefC<CoordSys> wsys,
           const Pen& pen)
      : WObjRf(new WLineBody(start, end, std::move(wsys), pen)) {}
};

}  // namespace Pelor::MI
