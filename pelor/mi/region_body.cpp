#include <pelor/mi/region_body.h>

namespace Pelor::MI {

WRegionBody::WRegionBody(Tobri::IRefC<CoordSys> wsys, const Pen& pen, const Brush& brush)
    : W2DBody(WObjType_Region, wsys, pen, brush), outline_(std::move(wsys), pen, false) {}

WRegionBody::WRegionBody(WPLineObj pline, const Brush& brush)
    : W2DBody(WObjType_Region, pline ? pline->GetWSys() : nullptr, pline ? pline->GetPen() : Pen(), brush) {
  if (pline == nullptr) {
    outline_ = WPLineObj(nullptr, Pen(), false);
    return;
  }
  outline_ = std::move(pline);
  centroid_is_set_ = false;
  if (outline_->NeedsClosing()) {
    outline_.Copy();
    outline_->CloseParts();
  }
}

Vanth::PointXY WRegionBody::GetCentroid() const {
  if (!centroid_is_set_) centroid_ = outline_->GetCentroid();
  return centroid_;
}

double WRegionBody::GetLength() const {
  Close();
  return outline_->GetLength();
}

double WRegionBody::GetArea() const {
  Close();
  return 0.0;
}

void WRegionBody::Apply(const Transform& transform) {
  Close();
  outline_.Copy();
  outline_->Apply(transform);
  if (centroid_is_set_) transform.Apply(centroid_);
}

void WRegionBody::SetPen(const Pen& pen) {
  W2DBody::SetPen(pen);
  outline_.Copy();
  outline_->SetPen(pen);
}

void WRegionBody::Empty() {
  outline_.Copy();
  outline_->Empty();
  centroid_ = {};
  centroid_is_set_ = true;
  is_closed_ = true;
}

void WRegionBody::AddPart() {
  Close();
  outline_.Copy();
  outline_->AddPart();
}

void WRegionBody::SetCentroid(const Vanth::PointXY& centroid) noexcept {
  centroid_ = centroid;
  centroid_is_set_ = true;
}

void WRegionBody::Close(int part) const {
  if (!outline_->NeedsClosing(part)) return;
  outline_.Copy();
  outline_->InsertVertex(outline_->GetVertex(0, part), outline_->GetNVertices(part), part);
  centroid_is_set_ = false;
}

void WRegionBody::Close() const {
  if (is_closed_ || GetNParts() == 0) return;
  Close(GetNParts() - 1);
  is_closed_ = true;
}

int WRegionBody::GetNTotalVertices() const {
  Close();
  return static_cast<int>(outline_->Vertices().size());
}

WPLineObj WRegionBody::GetOutline() const {
  Close();
  return outline_;
}

}  // namespace Pelor::MI
