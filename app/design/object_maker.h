#pragma once

#include "app/convert/feature.h"
#include "app/design/axis_ellipse.h"
#include "app/design/color_table.h"
#include "app/design/design_header.h"
#include "app/design/element_path.h"
#include "app/design/symbology.h"
#include <pelor/mi.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace App {

/// A text as it lies on the map, in units of resolution.
struct TextPlace {
  Vanth::PointXY lower_left;
  double width = 0.0;
  double height = 0.0;
  double angle_degrees = 0.0;
  std::int32_t justification = 0;  ///< 0 left, 1 centre, 2 right
  std::int32_t spacing = 0;        ///< 0 single, 1 one and a half, 2 double
};

/// Makes map objects of geometry in units of resolution. The object that a feature holds already is used
/// again when it is of the same kind and nobody else holds it.
class ObjectMaker {
 public:
  ObjectMaker(const DesignScale& scale, const ColorTable& colors, Tobri::IRefC<Pelor::MI::CoordSys> system)
      : scale_(scale), colors_(colors), system_(std::move(system)) {}

  void Point(Feature& feature, const Vanth::PointXY& point, const Pelor::MI::StdSymbol& symbol) const;
  void Line(Feature& feature, const Vanth::PointXY& start, const Vanth::PointXY& end,
            const Symbology& symbology) const;
  void PLine(Feature& feature, std::span<const Vanth::PointXY> points, const Symbology& symbology,
             bool is_smooth) const;
  /// All parts of the path that have an area; at least one must.
  void Region(Feature& feature, const Path& path, const Symbology& symbology,
              std::optional<std::uint8_t> fill_color) const;
  void Ellipse(Feature& feature, const AxisEllipse& ellipse, const Symbology& symbology,
               std::optional<std::uint8_t> fill_color) const;
  void Arc(Feature& feature, const AxisEllipse& arc, const Symbology& symbology) const;
  void Text(Feature& feature, const TextPlace& place, std::string_view text,
            const Symbology& symbology) const;

  [[nodiscard]] const ColorTable& Colors() const noexcept { return colors_; }
  [[nodiscard]] Vanth::PointXY ToMap(const Vanth::PointXY& point) const noexcept {
    return {scale_.X(point.x), scale_.Y(point.y)};
  }

 private:
  template <class Body>
  Body& Use(Feature& feature, Pelor::MI::WObjType type) const;
  [[nodiscard]] Vanth::RectXY ToMap(const Vanth::RectXY& rect) const noexcept;

  DesignScale scale_;
  const ColorTable& colors_;
  Tobri::IRefC<Pelor::MI::CoordSys> system_;
};

/// The box around what an object covers, with the turn of a text.
[[nodiscard]] Vanth::BoundsXY CoveredBounds(const Pelor::MI::WObjBody& object);

}  // namespace App
