#pragma once

#include "app/design/element_frame.h"
#include <pelor/dgn.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace App {

/// An ellipse, in units of resolution; fractions of them are kept.
struct EllipseShape {
  double primary = 0.0;  ///< half axes
  double secondary = 0.0;
  double rotation_degrees = 0.0;  ///< of the primary axis, counter-clockwise
  double x = 0.0;                 ///< centre
  double y = 0.0;
};

/// A part of an ellipse: the angles are those of the ellipse's equation (cos t, sin t), before its rotation.
struct ArcShape {
  EllipseShape ellipse;
  double start_degrees = 0.0;
  double sweep_degrees = 360.0;  ///< negative for clockwise
};

/// What all characters of a text have in common.
struct TextShape {
  /// The edge of a character is its multiplier times this, in units of resolution.
  static constexpr double kMultiplierUnit = 6.0 / 1000.0;

  std::uint8_t font = 1;
  /// Row (0 top, 1 centre, 2 bottom) + 3 * column (0 left, 1 left margin, 2 centre, 3 right margin, 4 right).
  std::uint8_t justification = 2;
  std::int32_t length_multiplier = 1000;
  std::int32_t height_multiplier = 1000;
  double rotation_degrees = 0.0;
};

/// Writes the elements of a design, one call each. What is written between a Begin... and its End is a
/// component of the complex element.
class ElementWriter {
 public:
  /// Line strings, shapes and curves of one element have no more vertices than this.
  static constexpr std::size_t kMaxVertices = 101;
  /// Texts have no more bytes than this.
  static constexpr std::size_t kMaxCharacters = 255;

  /// Appends to `bytes`, which must live on. With a `height`, in units of resolution, the design is
  /// three-dimensional, and everything lies there.
  explicit ElementWriter(ElementBytes& bytes, std::optional<std::int32_t> height = std::nullopt)
      : frame_(bytes, height) {}

  [[nodiscard]] bool Is3D() const noexcept { return frame_.Is3D(); }

  /// For elements of other types.
  [[nodiscard]] ElementFrame& Frame() noexcept { return frame_; }

  void Line(const ElementStyle& style, const Pelor::DGN::point2d& start, const Pelor::DGN::point2d& end,
            const LinkageWords& linkages);
  /// A line string, shape, curve or point string of at most `kMaxVertices` points. Those of a point string
  /// are not turned: in space, no rotations follow them.
  void Vertices(Pelor::DGN::EType type, const ElementStyle& style,
                std::span<const Pelor::DGN::point2d> points, const LinkageWords& linkages);
  void Ellipse(const ElementStyle& style, const EllipseShape& shape, const LinkageWords& linkages);
  void Arc(const ElementStyle& style, const ArcShape& shape, const LinkageWords& linkages);
  /// `origin` is the lower left corner, whatever the justification; `text` has at most `kMaxCharacters`
  /// bytes.
  void Text(const ElementStyle& style, const TextShape& shape, const Pelor::DGN::point2d& origin,
            std::string_view text, const LinkageWords& linkages);

  /// A chain or a complex shape; its components begin where the one before ends.
  void BeginComplex(Pelor::DGN::EType type, const ElementStyle& style, const LinkageWords& linkages);
  /// A cell that is neither scaled nor turned. `name` has up to six letters, digits, blanks, '&' and '.'.
  void BeginCell(const ElementStyle& style, std::string_view name, const Pelor::DGN::point2d& origin,
                 const LinkageWords& linkages);
  /// `spacing` is the room between two lines, `longest` the characters of the longest one.
  void BeginTextNode(const ElementStyle& style, const TextShape& shape, const Pelor::DGN::point2d& origin,
                     std::int32_t spacing, std::size_t longest, const LinkageWords& linkages);
  void End() { frame_.EndComplex(); }

 private:
  ElementFrame frame_;
  std::uint16_t next_node_number_ = 1;
};

}  // namespace App
