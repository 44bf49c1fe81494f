#pragma once

#include <pelor/base/array.h>
#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>

#include <span>
#include <utility>

namespace Pelor::MI {

/// A polyline: parts that follow each other in one contiguous run of vertices. Parts and vertices count
/// from 0. A new polyline has no part: AddPart() or Empty() begins the first one.
class PELOR_EXPORT WPLineBody : public W1DBody {
 public:
  explicit WPLineBody(Tobri::IRefC<CoordSys> wsys, const Pen& pen = Pen(), bool smooth = false)
      : W1DBody(WObjType_PLine, std::move(wsys), pen), is_smooth_(smooth) {}
  WPLineBody(const WPLineBody& other);
  WPLineBody& operator=(const WPLineBody& other);
  ~WPLineBody() override = default;

  [[nodiscard]] WPLineBody* Clone() const override { return WithFirstShare(new WPLineBody(*this)); }
  [[nodiscard]] Vanth::BoundsXY GetBounds() const override;
  /// The mean of all vertices; NaN, which is intended, when there are none.
  [[nodiscard]] Vanth::PointXY GetCentroid() const override;
  /// Without the gaps between the parts.
  [[nodiscard]] double GetLength() const override;
  /// The direction of the middle segment of the first part with more than two vertices; 0 without such a
  /// part. That parts of two vertices are passed over is intended.
  [[nodiscard]] Vanth::Angle GetAlignment() const override;
  void Apply(const Transform& transform) override;
  void WriteMIF(std::ostream& out) const override;
  void ReadMIF(Tobri::IxText& in) override;
  [[nodiscard]] double DistTo(const WObjBody* other, bool swapped) const override;

  /// Removes all vertices and parts, and begins one part.
  void Empty();
  /// Begins a new part. A last part of fewer than two vertices is used on, and vertices that stand outside of
  /// any part are discarded; both are intended.
  void AddPart();
  /// Appends to the last part. Amortised constant time.
  void AddVertex(const Vanth::PointXY& point) { Tobri::DArrayR<Vanth::PointXY>(vertices_).Add(point); }
  /// Inserts before vertex `pos` of the part, brought into the part's range; nothing without such a part.
  /// Linear in the vertices behind.
  void InsertVertex(const Vanth::PointXY& point, int pos, int part);

  /// Whether the part has more than one vertex and does not end where it begins. Exact comparison.
  [[nodiscard]] bool NeedsClosing(int part) const noexcept;
  /// Whether any part needs closing.
  [[nodiscard]] bool NeedsClosing() const noexcept;
  /// Repeats the first vertex at the end of every part that needs closing. Linear in all vertices.
  void CloseParts();

  [[nodiscard]] int GetNParts() const noexcept { return static_cast<int>(PartStarts().size()); }
  /// 0 without such a part.
  [[nodiscard]] int GetNVertices(int part) const noexcept { return static_cast<int>(Vertices(part).size()); }
  /// (0, 0) without such a part. `vertex` is not checked: it must be below GetNVertices(part).
  [[nodiscard]] Vanth::PointXY GetVertex(int vertex, int part) const noexcept;
  /// The first and the last vertex of all; false, with `point` left alone, when there are none.
  [[nodiscard]] bool GetFirstVertex(Vanth::PointXY& point) const noexcept;
  [[nodiscard]] bool GetLastVertex(Vanth::PointXY& point) const noexcept;

  /// All vertices, or those of one part; good until the next change of the polyline.
  [[nodiscard]] std::span<const Vanth::PointXY> Vertices() const noexcept {
    return Tobri::DArrayRC<Vanth::PointXY>(vertices_).Span();
  }
  [[nodiscard]] std::span<const Vanth::PointXY> Vertices(int part) const noexcept;

  void SetIsSmooth(bool smooth) noexcept { is_smooth_ = smooth; }
  [[nodiscard]] bool GetIsSmooth() const noexcept { return is_smooth_; }

 private:
  [[nodiscard]] std::span<const int> PartStarts() const noexcept {
    return Tobri::DArrayRC<int>(part_starts_).Span();
  }

  bool is_smooth_;
  Tobri::ICCRef<Tobri::DArray<Vanth::PointXY>> vertices_;
  // Ascending; the first one is 0.
  Tobri::ICCRef<Tobri::DArray<int>> part_starts_;
};

/// Handle of a WPLineBody; a constructor with arguments makes a new body of them.
class WPLineObj : public WObjRf<WPLineBody> {
 public:
  using WObjRf::WObjRf;
  WPLineObj() noexcept = default;
  WPLineObj(Tobri::IRefC<CoordSys> wsys, const Pen& pen, bool smooth)
      : WObjRf(new WPLineBody(std::move(wsys), pen, smooth)) {}
};

}  // namespace Pelor::MI
