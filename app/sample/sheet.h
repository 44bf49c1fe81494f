#pragma once

#include "app/design/element_writer.h"
#include "app/design/palette.h"
#include "app/design/path_writer.h"
#include <pelor/mi.h>

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace App::Sample {

using Places = std::vector<Vanth::PointXY>;

/// How an element is drawn, in the words of a map maker. Colours are indexes of the colour table.
struct Look {
  std::uint8_t level = 1;
  std::uint8_t color = 0;
  std::uint8_t weight = 0;
  std::uint8_t line_style = 0;
  int fill = -1;  ///< a colour index, or -1 for none
  std::uint8_t element_class = 0;
  std::uint16_t group = 0;
  bool hole = false;
  bool deleted = false;
  std::uint32_t key = 0;  ///< of the row in the table of buildings; 0 for none
};

/// How a text is placed.
struct Lettering {
  double height = 10.0;
  double rotation_degrees = 0.0;
  std::uint8_t justification = 2;  ///< the code of the element: the point given is that corner or side
  double spread = 0.62;            ///< the width of a character in heights
};

/// Draws on a design in metres, a thousand units of resolution each.
class Sheet {
 public:
  static constexpr double kUorsPerMetre = 1000.0;

  explicit Sheet(ElementBytes& bytes) : elements_(bytes), paths_(elements_, kLastGroup) {}

  void Point(const Look& look, Vanth::PointXY place);
  void Line(const Look& look, Vanth::PointXY from, Vanth::PointXY to);
  /// A line string, or a chain of them.
  void Path(const Look& look, const Places& places);
  /// A curve, or a chain of curves.
  void SmoothPath(const Look& look, const Places& places);
  void PointString(const Look& look, const Places& places);
  /// A shape or a complex shape around the places, whose first is repeated.
  void Area(const Look& look, Places places);
  void Rectangle(const Look& look, Vanth::PointXY low, double width, double height);
  void Ellipse(const Look& look, Vanth::PointXY centre, double a, double b, double rotation_degrees = 0);
  void Arc(const Look& look, Vanth::PointXY centre, double radius, double start, double sweep);
  void Text(const Look& look, Vanth::PointXY place, std::string_view text, const Lettering& lettering);
  /// Lines below each other, the foot of the last one at `place`.
  void TextLines(const Look& look, Vanth::PointXY place, std::span<const std::string_view> lines,
                 const Lettering& lettering);
  /// An area whose row is named by a linkage of four words.
  void AreaWithShortLinkage(const Look& look, Places places);

  /// What the calls up to End write are components of a chain, of a complex shape, of a cell.
  void BeginChain(const Look& look);
  void BeginComplexShape(const Look& look);
  void BeginCell(const Look& look, std::string_view name, Vanth::PointXY origin);
  void End() { elements_.End(); }

  /// A B-spline curve of the poles. With knots between 0 and 1, or evenly spread without; with weights
  /// between 0 and 1, or not rational without.
  struct Spline {
    unsigned order = 4;
    bool closed = false;
    Places poles;
    std::vector<double> knots;
    std::vector<double> weights;
  };
  void BSpline(const Look& look, const Spline& spline);

 private:
  /// Graphic groups up to this one are the caller's.
  static constexpr std::uint16_t kLastGroup = 99;

  [[nodiscard]] static Pelor::DGN::point2d At(Vanth::PointXY place);
  [[nodiscard]] static ElementStyle StyleOf(const Look& look);
  [[nodiscard]] static LinkageWords LinkagesOf(const Look& look);
  [[nodiscard]] std::span<const Pelor::DGN::point2d> Convert(const Places& places);
  [[nodiscard]] static TextShape ShapeOf(const Lettering& lettering);
  /// The lower left corner of a text that is placed by another point.
  [[nodiscard]] static Vanth::PointXY LowerLeft(Vanth::PointXY place, std::size_t characters,
                                                const Lettering& lettering);
  void Fractions(Pelor::DGN::EType type, const ElementStyle& style, std::span<const double> values);

  ElementWriter elements_;
  PathWriter paths_;
  std::vector<Pelor::DGN::point2d> points_;
};

}  // namespace App::Sample
