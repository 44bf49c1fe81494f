#pragma once

#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>
#include <pelor/mi/pline_body.h>

#include <utility>

namespace Pelor::MI {

/// An area bounded by rings, which are the parts of its outline. The outline may be shared with polylines and
/// other regions; every change of the region makes it private first. Rings that were left open are closed, by
/// repeating their first vertex, when they are asked for.
class PELOR_EXPORT WRegionBody : public W2DBody {
 public:
  explicit WRegionBody(Tobri::IRefC<CoordSys> wsys) : WRegionBody(std::move(wsys), Pen(), Brush()) {}
  WRegionBody(Tobri::IRefC<CoordSys> wsys, const Pen& pen, const Brush& brush);
  /// Takes a share of the polyline as the outline, with its pen and its coordinate system, and closes every
  /// part; the empty region when `pline` is null.
  WRegionBody(WPLineObj pline, const Brush& brush);
  // Copies only: a region is never without an outline.
  WRegionBody(const WRegionBody&) = default;
  WRegionBody& operator=(const WRegionBody&) = default;
  ~WRegionBody() override = default;

  [[nodiscard]] WRegionBody* Clone() const override { return WithFirstShare(new WRegionBody(*this)); }
  [[nodiscard]] Vanth::BoundsXY GetBounds() const override { return outline_->GetBounds(); }
  /// What SetCentroid gave; after any change of the vertices the mean of all vertices.
  [[nodiscard]] Vanth::PointXY GetCentroid() const override;
  /// Of all rings, closed.
  [[nodiscard]] double GetLength() const override;
  /// Intended: 0 for every region.
  [[nodiscard]] double GetArea() const override;
  void Apply(const Transform& transform) override;
  void WriteMIF(std::ostream& out) const override;
  void ReadMIF(Tobri::IxText& in) override;
  [[nodiscard]] double DistTo(const WObjBody* other, bool swapped) const override;

  /// Sets the pen of the region and of its outline.
  void SetPen(const Pen& pen) override;

  /// Removes all vertices and the centroid, and begins one ring.
  void Empty();
  /// Closes the last ring and begins a new one.
  void AddPart();
  /// Appends to the last ring. Amortised constant time.
  void AddVertex(const Vanth::PointXY& point) {
    outline_.Copy();
    outline_->AddVertex(point);
    centroid_is_set_ = false;
    is_closed_ = false;
  }
  void SetCentroid(const Vanth::PointXY& centroid) noexcept;

  /// Closes one ring: unless it has at most one vertex or ends where it begins, its first vertex is repeated
  /// at its end and a centroid that was set is forgotten. Closing is open to a const region: it shows the
  /// same area.
  void Close(int part) const;
  /// Closes the last ring when vertices were added since the last closing.
  void Close() const;

  /// The counts and vertices of the rings as they stand, closed or not.
  [[nodiscard]] int GetNParts() const noexcept { return outline_->GetNParts(); }
  [[nodiscard]] int GetNVertices(int part) const noexcept { return outline_->GetNVertices(part); }
  /// As WPLineBody::GetVertex: `vertex` is not checked.
  [[nodiscard]] Vanth::PointXY GetVertex(int vertex, int part) const noexcept {
    return outline_->GetVertex(vertex, part);
  }
  /// Of all rings, closed.
  [[nodiscard]] int GetNTotalVertices() const;
  /// A share of the outline, all rings closed.
  [[nodiscard]] WPLineObj GetOutline() const;

 private:
  mutable WPLineObj outline_;
  mutable Vanth::PointXY centroid_;
  mutable bool centroid_is_set_ = true;
  mutable bool is_closed_ = true;
};

/// Handle of a WRegionBody; a constructor with arguments makes a new body of them.
class WRegionObj : public WObjRf<WRegionBody> {
 public:
  using WObjRf::WObjRf;
  WRegionObj() noexcept = default;
  explicit WRegionObj(Tobri::IRefC<CoordSys> wsys) : WObjRf(new WRegionBody(std::move(wsys))) {}
  WRegionObj(Tobri::IRefC<CoordSys> wsys, const Pen& pen, const Brush& brush)
      : WObjRf(new WRegionBody(std::move(wsys), pen, brush)) {}
  WRegionObj(WPLineObj pline, const Brush& brush) : WObjRf(new WRegionBody(std::move(pline), brush)) {}
};

}  // namespace Pelor::MI
