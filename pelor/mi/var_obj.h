#pragma once

#include <pelor/base/export.h>
#include <pelor/mi/objects.h>

namespace Pelor::MI {

/// Builds an object from vertices whose final kind is not known in advance, or turns any object into
/// vertices. Vertices that come within the tolerance of the one before are dropped, a ring that comes back to
/// its first vertex makes the object a region, and the result is the simplest object that fits. Distances are
/// in world units; nothing is within a tolerance that is negative or NaN.
class PELOR_EXPORT WVarObj {
 public:
  /// With `lines`, a single part of two vertices becomes a line; without, it stays a polyline.
  WVarObj(const Tobri::IRefC<CoordSys>& wsys, const Symbol& symbol, const Pen& pen, const Brush& brush,
          double tolerance, bool lines);
  /// Takes over an object: its coordinate system, the styles it has and its vertices. Curves are flattened so
  /// that they deviate by at most the tolerance. A text, the empty object and null give no vertices.
  WVarObj(const WObjRf<WObjBody>& object, double tolerance, bool lines);

  // Copies only: a builder is never without an outline.
  WVarObj(const WVarObj&) = default;
  WVarObj& operator=(const WVarObj&) = default;
  ~WVarObj() = default;

  /// As a new builder is, with the styles, the tolerance and the coordinate system that it has.
  void Empty();
  /// The next vertex opens a ring of its own. It still joins the outline's last part, which is intended.
  void AddPart() noexcept { part_is_pending_ = true; }
  /// Appends to the outline, unless the vertex is within the tolerance of the one before. A vertex within the
  /// tolerance of its ring's first one closes the ring instead.
  void AddVertex(const Vanth::PointXY& point);
  /// Makes the object a region, whatever its vertices.
  void Close() noexcept {
    if (kind_ == WObjType_None) kind_ = WObjType_Region;
  }

  /// The kind of the result.
  [[nodiscard]] WObjType GetWType() const noexcept;
  /// A share of the vertices as they are.
  [[nodiscard]] WPLineObj GetOutline() const noexcept { return outline_; }
  /// The vertices as a region, every ring closed.
  [[nodiscard]] WRegionObj GetClosed() const { return WRegionObj(outline_, brush_); }
  /// The result.
  operator WObjRf<WObjBody>() const;

  [[nodiscard]] const Pen& GetPen() const noexcept { return pen_; }
  /// Of the outline, too.
  void SetPen(const Pen& pen);
  [[nodiscard]] const Brush& GetBrush() const noexcept { return brush_; }
  void SetBrush(const Brush& brush) noexcept { brush_ = brush; }
  [[nodiscard]] const Symbol& GetSymbol() const noexcept { return symbol_; }
  void SetSymbol(const Symbol& symbol) { symbol_ = symbol; }
  /// Replaces the coordinate system, in place: whoever shares the outline sees it, which is intended.
  void SetWSys(const Tobri::IRefC<CoordSys>& wsys) noexcept;

  /// The angular step, in radians, at which the chords of a circle of this radius deviate by the tolerance:
  /// a quarter turn when the tolerance is not below the radius, never less than a tenth of a degree.
  [[nodiscard]] static double angle_tol(double tolerance, double radius) noexcept;

 private:
  void Append(const Vanth::PointXY& point) {
    outline_.Copy();
    outline_->AddVertex(point);
  }
  void Take(const WRectBody& rect);
  void Take(const WRRectBody& rect);
  void Take(const WEllipseBody& ellipse);
  void Take(const WArcBody& arc);

  Tobri::IRefC<CoordSys> wsys_;
  double tolerance_;
  bool lines_;
  bool part_is_pending_ = true;
  // None while the kind follows from the vertices.
  WObjType kind_ = WObjType_None;
  WPLineObj outline_;
  Vanth::PointXY first_;
  Vanth::PointXY last_;
  Pen pen_;
  Brush brush_;
  Symbol symbol_;
};

}  // namespace Pelor::MI
