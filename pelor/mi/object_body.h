#pragma once

#include <pelor/base/angle.h>
#include <pelor/base/bounds.h>
#include <pelor/base/export.h>
#include <pelor/base/handle.h>
#include <pelor/base/point.h>
#include <pelor/mi/brush.h>
#include <pelor/mi/coord_sys.h>
#include <pelor/mi/font.h>
#include <pelor/mi/object_type.h>
#include <pelor/mi/pen.h>
#include <pelor/mi/symbol.h>
#include <pelor/mi/transform.h>

#include <iosfwd>
#include <utility>

namespace Tobri {
class IxText;
}

namespace Pelor::MI {

/// Base of all map objects: geometry in the world coordinates of a coordinate system, with a style. Bodies
/// are counted and held through WObjRf handles. Only ReadMIF reports errors.
class PELOR_EXPORT WObjBody : public Tobri::Rep {
 public:
  virtual ~WObjBody();

  /// An independent copy with the count 1: its first share is the caller's, and a WObjRf made of the copy
  /// takes that share over.
  [[nodiscard]] virtual WObjBody* Clone() const = 0;
  [[nodiscard]] virtual Vanth::BoundsXY GetBounds() const = 0;
  [[nodiscard]] virtual Vanth::PointXY GetCentroid() const = 0;
  /// In world units; of an area, the length of its border.
  [[nodiscard]] virtual double GetLength() const = 0;
  /// In square world units.
  [[nodiscard]] virtual double GetArea() const = 0;
  /// The direction that a text along the object takes, counter-clockwise from the positive x axis.
  [[nodiscard]] virtual Vanth::Angle GetAlignment() const { return Vanth::Angle(); }
  /// Transforms the geometry in place.
  virtual void Apply(const Transform& transform) = 0;
  /// Writes the object's clause of a MIF file.
  virtual void WriteMIF(std::ostream& out) const = 0;
  /// Reads the clause, with its keyword or from behind it. A fault is reported as a MIF::SyntaxError; what
  /// was read before it stays.
  virtual void ReadMIF(Tobri::IxText& in) = 0;
  /// The distance to `other`, which must not be null. Only two points have a measure; every other pair is 0
  /// apart, which is intended. `swapped` tells that `other` handed the call over.
  [[nodiscard]] virtual double DistTo(const WObjBody* other, bool swapped) const;

  [[nodiscard]] WObjType GetType() const noexcept { return type_; }
  /// The coordinate system of the coordinates; may be null.
  [[nodiscard]] const Tobri::IRefC<CoordSys>& GetWSys() const noexcept { return wsys_; }
  void SetWSys(Tobri::IRefC<CoordSys> wsys) noexcept { wsys_ = std::move(wsys); }

 protected:
  WObjBody(WObjType type, Tobri::IRefC<CoordSys> wsys) noexcept : type_(type), wsys_(std::move(wsys)) {}
  WObjBody(const WObjBody&) = default;
  WObjBody& operator=(const WObjBody&) = default;

  /// `copy` with the share that a clone comes with.
  template <class Body>
  [[nodiscard]] static Body* WithFirstShare(Body* copy) noexcept {
    copy->Assign(FromFreeStore);
    return copy;
  }

  /// `angle` as it stands after `transform`: unequal scales of the axes turn it.
  [[nodiscard]] static Vanth::Angle Transformed(const Vanth::Angle& angle,
                                                const Transform& transform) noexcept;

 private:
  WObjType type_;
  Tobri::IRefC<CoordSys> wsys_;
};

/// The empty object.
class PELOR_EXPORT WNoBody : public WObjBody {
 public:
  explicit WNoBody(Tobri::IRefC<CoordSys> wsys) noexcept : WObjBody(WObjType_None, std::move(wsys)) {}

  [[nodiscard]] WNoBody* Clone() const override;
  [[nodiscard]] Vanth::BoundsXY GetBounds() const override { return {}; }
  [[nodiscard]] Vanth::PointXY GetCentroid() const override { return {}; }
  [[nodiscard]] double GetLength() const override { return 0.0; }
  [[nodiscard]] double GetArea() const override { return 0.0; }
  void Apply(const Transform& /*transform*/) override {}
  void WriteMIF(std::ostream& out) const override;
  void ReadMIF(Tobri::IxText& in) override;
};

/// A zero-dimensional object, drawn with a symbol.
class PELOR_EXPORT W0DBody : public WObjBody {
 public:
  [[nodiscard]] double GetLength() const override { return 0.0; }
  [[nodiscard]] double GetArea() const override { return 0.0; }

  [[nodiscard]] const Symbol& GetSymbol() const noexcept { return symbol_; }
  void SetSymbol(Symbol symbol) noexcept { symbol_ = std::move(symbol); }

 protected:
  W0DBody(WObjType type, Tobri::IRefC<CoordSys> wsys, Symbol symbol)
      : WObjBody(type, std::move(wsys)), symbol_(std::move(symbol)) {}
  W0DBody(const W0DBody&) = default;
  W0DBody& operator=(const W0DBody&) = default;

 private:
  Symbol symbol_;
};

/// A one-dimensional object, drawn with a pen.
class PELOR_EXPORT W1DBody : public WObjBody {
 public:
  [[nodiscard]] double GetArea() const override { return 0.0; }

  [[nodiscard]] const Pen& GetPen() const noexcept { return pen_; }
  void SetPen(const Pen& pen) noexcept { pen_ = pen; }

 protected:
  W1DBody(WObjType type, Tobri::IRefC<CoordSys> wsys, const Pen& pen)
      : WObjBody(type, std::move(wsys)), pen_(pen) {}
  W1DBody(const W1DBody&) = default;
  W1DBody& operator=(const W1DBody&) = default;

 private:
  Pen pen_;
};

/// A two-dimensional object, its border drawn with a pen and filled with a brush.
class PELOR_EXPORT W2DBody : public WObjBody {
 public:
  [[nodiscard]] const Pen& GetPen() const noexcept { return pen_; }
  /// Virtual because the border of some bodies is an object with a pen of its own.
  virtual void SetPen(const Pen& pen) { pen_ = pen; }
  [[nodiscard]] const Brush& GetBrush() const noexcept { return brush_; }
  void SetBrush(const Brush& brush) noexcept { brush_ = brush; }

 protected:
  W2DBody(WObjType type, Tobri::IRefC<CoordSys> wsys, const Pen& pen, const Brush& brush)
      : WObjBody(type, std::move(wsys)), pen_(pen), brush_(brush) {}
  W2DBody(const W2DBody&) = default;
  W2DBody& operator=(const W2DBody&) = default;

 private:
  Pen pen_;
  Brush brush_;
};

/// A text, drawn with a font.
class PELOR_EXPORT WTxBody : public WObjBody {
 public:
  [[nodiscard]] const Font& GetFont() const noexcept { return font_; }
  void SetFont(Font font) noexcept { font_ = std::move(font); }

 protected:
  WTxBody(WObjType type, Tobri::IRefC<CoordSys> wsys, Font font)
      : WObjBody(type, std::move(wsys)), font_(std::move(font)) {}
  WTxBody(const WTxBody&) = default;
  WTxBody& operator=(const WTxBody&) = default;

 private:
  Font font_;
};

}  // namespace Pelor::MI
