#pragma once

#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>

#include <cmath>
#include <utility>

namespace Pelor::MI {

/// A rectangle along the axes. Its corners stay as given.
class PELOR_EXPORT WRectBody : public W2DBody {
 public:
  explicit WRectBody(Tobri::IRefC<CoordSys> wsys) : WRectBody({}, std::move(wsys), Pen(), Brush()) {}
  WRectBody(const Vanth::RectXY& rect, Tobri::IRefC<CoordSys> wsys, const Pen& pen, const Brush& brush)
      : W2DBody(WObjType_Rect, std::move(wsys), pen, brush), rect_(rect) {}

  [[nodiscard]] WRectBody* Clone() const override { return WithFirstShare(new WRectBody(*this)); }
  [[nodiscard]] Vanth::BoundsXY GetBounds() const override { return Vanth::BoundsXY(rect_); }
  [[nodiscard]] Vanth::PointXY GetCentroid() const override { return rect_.Center(); }
  [[nodiscard]] double GetLength() const override {
    return 2 * std::fabs(rect_.Width()) + 2 * std::fabs(rect_.Height());
  }
  [[nodiscard]] double GetArea() const override {
    return std::fabs(rect_.Width()) * std::fabs(rect_.Height());
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

/// Handle of a WRectBody; a constructor with arguments makes a new body of them.
class WRectObj : public WObjRf<WRectBody> {
 public:
  using WObjRf::WObjRf;
  WRectObj() noexcept = default;
  explicit WRectObj(Tobri::IRefC<CoordSys> wsys) : WObjRf(new WRectBody(std::move(wsys))) {}
  WRectObj(const Vanth::RectXY& rect, Tobri::IRefC<CoordSys> wsys, const Pen& pen, const Brush& brush)
      : WObjRf(new WRectBody(rect, std::move(wsys), pen, brush)) {}
};

}  // namespace Pelor::MI
