#pragma once

#include <pelor/base/string.h>
#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>

#include <cstdint>
#include <utility>

namespace Pelor::MI {

/// A text in a box, turned by an angle, with an optional line to a label point.
class PELOR_EXPORT WTextBody : public WTxBody {
 public:
  explicit WTextBody(Tobri::IRefC<CoordSys> wsys) : WTextBody(Tobri::String(), {}, std::move(wsys), Font()) {}
  WTextBody(Tobri::String text, const Vanth::RectXY& box, Tobri::IRefC<CoordSys> wsys, Font font)
      : WTxBody(WObjType_Text, std::move(wsys), std::move(font)), text_(std::move(text)), box_(box) {}

  [[nodiscard]] WTextBody* Clone() const override { return WithFirstShare(new WTextBody(*this)); }
  [[nodiscard]] Vanth::BoundsXY GetBounds() const override { return Vanth::BoundsXY(box_); }
  [[nodiscard]] Vanth::PointXY GetCentroid() const override { return box_.Center(); }
  [[nodiscard]] double GetLength() const override { return 0.0; }
  [[nodiscard]] double GetArea() const override { return 0.0; }
  [[nodiscard]] Vanth::Angle GetAlignment() const override { return angle_; }
  void Apply(const Transform& transform) override;
  void WriteMIF(std::ostream& out) const override;
  void ReadMIF(Tobri::IxText& in) override;
  [[nodiscard]] double DistTo(const WObjBody* other, bool swapped) const override;

  [[nodiscard]] const Tobri::String& GetText() const noexcept { return text_; }
  void SetText(Tobri::String text) noexcept { text_ = std::move(text); }
  [[nodiscard]] const Vanth::RectXY& GetBox() const noexcept { return box_; }
  void SetBox(const Vanth::RectXY& box) noexcept { box_ = box; }
  /// Line spacing: 0 single, 1 one and a half, 2 double.
  [[nodiscard]] std::int32_t GetSpacing() const noexcept { return spacing_; }
  void SetSpacing(std::int32_t spacing) noexcept { spacing_ = spacing; }
  /// 0 left, 1 centre, 2 right.
  [[nodiscard]] std::int32_t GetJustification() const noexcept { return justification_; }
  void SetJustification(std::int32_t justification) noexcept { justification_ = justification; }
  /// Line from the text to the label point: 0 none, 1 simple, 2 arrow.
  [[nodiscard]] std::int32_t GetLabelKind() const noexcept { return label_kind_; }
  void SetLabelKind(std::int32_t kind) noexcept { label_kind_ = kind; }
  [[nodiscard]] const Vanth::PointXY& GetLabelPoint() const noexcept { return label_point_; }
  void SetLabelPoint(const Vanth::PointXY& point) noexcept { label_point_ = point; }
  [[nodiscard]] const Vanth::Angle& GetAngle() const noexcept { return angle_; }
  void SetAngle(const Vanth::Angle& angle) noexcept { angle_ = angle; }

 private:
  Tobri::String text_;
  Vanth::RectXY box_;
  std::int32_t spacing_ = 0;
  std::int32_t justification_ = 0;
  std::int32_t label_kind_ = 0;
  Vanth::PointXY label_point_;
  Vanth::Angle angle_;
};

/// Handle of a WTextBody; a constructor with arguments makes a new body of them.
class WTextObj : public WObjRf<WTextBody> {
 public:
  using WObjRf::WObjRf;
  WTextObj() noexcept = default;
  explicit WTextObj(Tobri::IRefC<CoordSys> wsys) : WObjRf(new WTextBody(std::move(wsys))) {}
  WTextObj(Tobri::String text, const Vanth::RectXY& box, Tobri::IRefC<CoordSys> wsys, Font font)
      : WObjRf(new WTextBody(std::move(text), box, std::move(wsys), std::move(font))) {}
};

}  // namespace Pelor::MI
