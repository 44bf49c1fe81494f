#pragma once

#include "app/design/element_writer.h"
#include "app/design/palette.h"
#include "app/design/path_writer.h"
#include "app/design/text_writer.h"
#include "app/design/working_units.h"
#include <pelor/mi.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace App {

/// What an object's elements have besides its own style.
struct ObjectLook {
  std::uint8_t level = 1;
  std::optional<std::uint8_t> color;  ///< instead of the object's own
  LinkageWords linkages;
};

/// Writes map objects as elements of a design.
class ObjectWriter {
 public:
  struct Settings {
    WorkingUnits units;
    double tolerance = 0.0;  ///< of flattened curves, in master units; 0 for one by their size
    std::string_view charset;
    std::uint16_t last_graphic_group = 0;  ///< the highest that is in use
    /// In units of resolution: objects that rounding moves farther are noted.
    double largest_move = std::numeric_limits<double>::infinity();
  };

  /// Appends to `bytes`. It and `palette` must live on.
  ObjectWriter(ElementBytes& bytes, Palette& palette, const Settings& settings);
  ObjectWriter(const ObjectWriter&) = delete;
  ObjectWriter& operator=(const ObjectWriter&) = delete;
  ~ObjectWriter() = default;

  /// Writes the object, or nothing: then the reason is given. Reasons and notes live for ever. The empty
  /// object has nothing to write and no reason.
  [[nodiscard]] std::string_view Write(const Pelor::MI::WObjBody& object, const ObjectLook& look);
  /// What could not be kept of the object that was written last.
  [[nodiscard]] std::span<const std::string_view> Notes() const noexcept { return notes_; }

  [[nodiscard]] const WorkingUnits& Units() const noexcept { return units_; }

 private:
  using Style = ElementStyle;

  [[nodiscard]] std::string_view Put(const Pelor::MI::WPointBody& point, const ObjectLook& look);
  [[nodiscard]] std::string_view Put(const Pelor::MI::WLineBody& line, const ObjectLook& look);
  [[nodiscard]] std::string_view Put(const Pelor::MI::WPLineBody& pline, const ObjectLook& look);
  [[nodiscard]] std::string_view Put(const Pelor::MI::WArcBody& arc, const ObjectLook& look);
  [[nodiscard]] std::string_view PutStart(const Pelor::MI::WArcBody& arc, const ObjectLook& look);
  [[nodiscard]] std::string_view Put(const Pelor::MI::WEllipseBody& ellipse, const ObjectLook& look);
  [[nodiscard]] std::string_view Put(const Pelor::MI::WRectBody& rect, const ObjectLook& look);
  [[nodiscard]] std::string_view Put(const Pelor::MI::WRRectBody& rect, const ObjectLook& look);
  [[nodiscard]] std::string_view Put(const Pelor::MI::WRegionBody& region, const ObjectLook& look);
  [[nodiscard]] std::string_view Put(const Pelor::MI::WTextBody& text, const ObjectLook& look);

  [[nodiscard]] std::string_view PutRings(const Pelor::MI::WPLineBody& outline, const Style& style,
                                          const ObjectLook& look, const LinkageWords& filled);
  void PutCell(const Style& style, const ObjectLook& look, const LinkageWords& filled);
  void PutLooseRings(Style style, const ObjectLook& look, const LinkageWords& filled);

  [[nodiscard]] Style PlainStyle(Pelor::MI::Color color, const ObjectLook& look);
  [[nodiscard]] Style LineStyleOf(const Pelor::MI::Pen& pen, const ObjectLook& look);
  [[nodiscard]] Style AreaStyleOf(const Pelor::MI::W2DBody& area, const ObjectLook& look);
  [[nodiscard]] LinkageWords FilledLinkages(const Pelor::MI::Brush& brush, const ObjectLook& look);
  [[nodiscard]] std::uint8_t IndexOf(Pelor::MI::Color color);
  void Note(std::string_view note);

  /// Appends the vertices in units of resolution; false when one is not on the plane.
  [[nodiscard]] bool AppendPoints(std::span<const Vanth::PointXY> vertices);
  [[nodiscard]] bool IsMoved(double x, double y) const noexcept;
  [[nodiscard]] std::optional<EllipseShape> ToEllipse(const Vanth::RectXY& rect) const;

  WorkingUnits units_;
  double tolerance_;
  double largest_move_;
  Palette& palette_;
  std::vector<std::string_view> notes_;
  ElementWriter elements_;
  PathWriter paths_;
  TextWriter texts_;

  // The vertices of the object at hand, and where each of its parts ends.
  std::vector<Pelor::DGN::point2d> points_;
  std::vector<std::size_t> part_sizes_;
};

}  // namespace App
