#pragma once

#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>

#include <cmath>
#include <numbers>
#include <utility>

namespace Pelor::MI {

/// A rectangle along the axes with rounded corners. The rounding, in world units, is the diameter of the
/// corners' circles.
class PELOR_EXPORT WRRectBody : public W2DBody {
 public:
  explicit WRRectBody(Tobri::IRefC<CoordSys> wsys) : WRRectBody({}, 0.0, std::move(wsys), Pen(), Brush()) {}
  WRRectBody(const Vanth::RectXY& rect, double rounding, Tobri::IRefC<CoordSys> wsys, const Pen& pen,
             const Brush& brush)
      : W2DBody(WObjType_RRect, std::move(wsys), pen, brush), rect_(rect), rounding_(rounding) {}

  [[nodiscard]] WRRectBody* Clone() const override { return WithFirstShare(new WRRectBody(*this)); }
  [[nodiscard]] Vanth::BoundsXY GetBounds() const override { return Vanth::BoundsXY(rect_); }
  [[nodiscard]] Vanth::PointXY GetCentroid() const override { return rect_.Center(); }
  /// The factor pi - 2 of the rounding is intended.
  [[nodiscard]] double GetLength() const override {
    return 2 * std::fabs(rect_.Width()) + 2 * std::fabs(rect_.Height()) - (std::numbers::pi - 2) * rounding_;
  }
  [[nodiscard]] double GetArea() const override {
    return std::fabs(rect_.Width()) * std::fabs(rect_.Height()) +
           rounding_ * rounding_ * (std::numbers::pi / 4 - 1);
  }
  /// The rounding follows the scale of x alone.
  void Apply(const Transform& transform) override {
    transform.Apply(rect_);
    rounding_ *= transform.scaleX;
  }
  void WriteMIF(std::ostream& out) const override;
  void ReadMIF(Tobri::IxText& in) override;
  [[nodiscard]] double DistTo(const WObjBody* other, bool swapped) const override;

  [[nodiscard]] const Vanth::RectXY& GetRect() const noexcept { return rect_; }
  void SetRect(const Vanth::RectXY& rect) noexcept { rect_ = rect; }
  [[nodiscard]] double GetRounding() const noexcept { return rounding_; }
  void SetRounding(double rounding) noexcept { rounding_ = rounding; }

 private:
  Vanth::RectXY rect_;
  double rounding_;
};

/// Handle of a WRRectBody; a constructor with arguments makes a new body of them.
class WRRectObj : public WObjRf<WRRectBody> {
 public:
  using WObjRf::WObjRf;
  WRRectObj() noexcept = default;
  explicit WRRectObj(Tobri::IRefC<CoordSys> wsys) : WObjRf(new WRRectBody(std::move(wsys))) {}
  WRRectObj(const Vanth::RectXY& rect, double rounding, Tobri::IRefC<CoordSys> wsys, const Pen& pen,
            const Brush& brush)
      : WObjRf(new WRRectBody(rect, rounding, std::move(wsys), pen, brush)) {}
};

}  // namespace Pelor::MI
