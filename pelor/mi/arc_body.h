#pragma once

#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>

#include <utility>

namespace Pelor::MI {

/// A part of an ellipse whose axes lie along the coordinate axes: the rectangle around the whole ellipse, and
/// the angles at which the arc starts and ends, counter-clockwise from the positive x axis.
class PELOR_EXPORT WArcBody : public W1DBody {
 public:
  explicit WArcBody(Tobri::IRefC<CoordSys> wsys)
      : WArcBody({}, Vanth::Angle(), Vanth::Angle(), std::move(wsys), Pen()) {}
  WArcBody(const Vanth::RectXY& rect, const Vanth::Angle& start, const Vanth::Angle& end,
           Tobri::IRefC<CoordSys> wsys, const Pen& pen)
      : W1DBody(WObjType_Arc, std::move(wsys), pen), rect_(rect), start_(start), end_(end) {}

  [[nodiscard]] WArcBody* Clone() const override { return WithFirstShare(new WArcBody(*this)); }
  /// The box of the arc itself. The angles count within one full turn, so an arc of a whole turn has the
  /// bounds of its start point.
  [[nodiscard]] Vanth::BoundsXY GetBounds() const override;
  /// The centre of the whole ellipse.
  [[nodiscard]] Vanth::PointXY GetCentroid() const override { return rect_.Center(); }
  /// Intended: arcs have no length.
  [[nodiscard]] double GetLength() const override { return 0.0; }
  void Apply(const Transform& transform) override;
  void WriteMIF(std::ostream& out) const override;
  void ReadMIF(Tobri::IxText& in) override;
  [[nodiscard]] double DistTo(const WObjBody* other, bool swapped) const override;

  [[nodiscard]] const Vanth::RectXY& GetRect() const noexcept { return rect_; }
  void SetRect(const Vanth::RectXY& rect) noexcept { rect_ = rect; }
  [[nodiscard]] const Vanth::Angle& GetStartAngle() const noexcept { return start_; }
  void SetStartAngle(const Vanth::Angle& start) noexcept { start_ = start; }
  [[nodiscard]] const Vanth::Angle& GetEndAngle() const noexcept { return end_; }
  void SetEndAngle(const Vanth::Angle& end) noexcept { end_ = end; }

 private:
  Vanth::RectXY rect_;
  Vanth::Angle start_;
  Vanth::Angle end_;
};

/// Handle of a WArcBody; a constructor with arguments makes a new body of them.
class WArcObj : public WObjRf<WArcBody> {
 public:
  using WObjRf::WObjRf;
  WArcObj() noexcept = default;
  explicit WArcObj(Tobri::IRefC<CoordSys> wsys) : WObjRf(new WArcBody(std::move(wsys))) {}
  WArcObj(const Vanth::RectXY& rect, const Vanth::Angle& start, const Vanth::Angle& end,
          Tobri::IRefC<CoordSys> wsys, const Pen& pen)
      : WObjRf(new WArcBody(rect, start, end, std::move(wsys), pen)) {}
};

}  // namespace Pelor::MI
