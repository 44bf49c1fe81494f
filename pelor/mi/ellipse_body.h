#pragma once

#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>

#include <cmath>
#include <numbers>
#include <utility>

namespace Pelor::MI {

/// An ellipse with its axes along the coordinate axes, given by the rectangle around it.
class PELOR_EXPORT WEllipseBody : public W2DBody {
 public:
  explicit WEllipseBody(Tobri::IRefC<CoordSys> wsys) : WEllipseBody({}, std::move(wsys), Pen(), Brush()) {}
  WEllipseBody(const Vanth::RectXY& rect, Tobri::IRefC<CoordSys> wsys, const Pen& pen, const Brush& brush)
      : W2DBody(WObjType_Ellipse, std::move(wsys), pen, brush), rect_(rect) {}

  [[nodiscard]] WEllipseBody* Clone() const override { return WithFirstShare(new WEllipseBody(*this)); }
  [[nodiscard]] Vanth::BoundsXY GetBounds() const override { return Vanth::BoundsXY(rect_); }
  [[nodiscard]] Vanth::PointXY GetCentroid() const override { return rect_.Center(); }
  /// An intended rough measure, about a third of the circumference of a circle.
  [[nodiscard]] double GetLength() const override {
    return std::numbers::pi / 2 * std::hypot(std::fabs(rect_.Width()) / 2, std::fabs(rect_.Height()) / 2);
  }
  [[nodiscard]] double GetArea() const override {
    return std::numbers::pi * (std::fabs(rect_.Width()) / 2) * (std::fabs(rect_.Height()) / 2);
  }
  void Apply(const Transform& transform) override { transform.Apply(rect_); }
  void WriteMIF(std::ostream& out) const override;
  void ReadMIF(Tobri::IxText& in) override;
  [[nodiscard]] double DistTo(const WObjBody* other, bool swapped) const override;

  [[nodiscard]] const Vanth::RectXY& GetRect() const noexcept { return rect_; }
  void SetRect(const Vanth::RectXY& rect) noexcept { rect_ = rect; }

 private:
  Vanth::RectXY rect_;
};

/// Handle of a WEllipseBody; a constructor with arguments makes a new body of them.
class WEllipseObj : public WObjRf<WEllipseBody> {
 public:
  using WObjRf::WObjRf;
  WEllipseObj() noexcept = default;
  explicit WEllipseObj(Tobri::IRefC<CoordSys> wsys) : WObjRf(new WEllipseBody(std::move(wsys))) {}
  WEllipseObj(const Vanth::RectXY& rect, Tobri::IRefC<CoordSys> wsys, const Pen& pen, const Brush& brush)
      : WObjRf(new WEllipseBody(rect, std::move(wsys), pen, brush)) {}
};

}  // namespace Pelor::MI
