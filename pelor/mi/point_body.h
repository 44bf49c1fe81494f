#pragma once

#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>

#include <utility>

namespace Pelor::MI {

/// A point.
class PELOR_EXPORT WPointBody : public W0DBody {
 public:
  explicit WPointBody(Tobri::IRefC<CoordSys> wsys) : WPointBody({}, std::move(wsys), Symbol()) {}
  WPointBody(const Vanth::PointXY& point, Tobri::IRefC<CoordSys> wsys, Symbol symbol)
      : W0DBody(WObjType_Point, std::move(wsys), std::move(symbol)), point_(point) {}

  [[nodiscard]] WPointBody* Clone() const override { return WithFirstShare(new WPointBody(*this)); }
  [[nodiscard]] Vanth::BoundsXY GetBounds() const override { return {point_, point_}; }
  [[nodiscard]] Vanth::PointXY GetCentroid() const override { return point_; }
  void Apply(const Transform& transform) override { transform.Apply(point_); }
  void WriteMIF(std::ostream& out) const override;
  void ReadMIF(Tobri::IxText& in) override;
  [[nodiscard]] double DistTo(const WObjBody* other, bool swapped) const override;

  [[nodiscard]] const Vanth::PointXY& GetPoint() const noexcept { return point_; }
  void SetPoint(const Vanth::PointXY& point) noexcept { point_ = point; }

 private:
  Vanth::PointXY point_;
};

/// Handle of a WPointBody; a constructor with arguments makes a new body of them.
class WPointObj : public WObjRf<WPointBody> {
 public:
  using WObjRf::WObjRf;
  WPointObj() noexcept = default;
  explicit WPointObj(Tobri::IRefC<CoordSys> wsys) : WObjRf(new WPointBody(std::move(wsys))) {}
  WPointObj(const Vanth::PointXY& point, Tobri::IRefC<CoordSys> wsys, Symbol symbol)
      : WObjRf(new WPointBody(point, std::move(wsys), std::move(symbol))) {}
};

}  // namespace Pelor::MI
