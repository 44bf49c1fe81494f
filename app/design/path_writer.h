#pragma once

#include "app/design/element_writer.h"
#include <pelor/dgn.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace App {

/// Writes paths and rings of any number of vertices: as one element where the format allows it, else as a
/// complex one, else as several in one graphic group.
class PathWriter {
 public:
  /// What one chain or complex shape can hold: its description has words for no more.
  static constexpr std::size_t kMaxVertices = 15489;
  /// The same for a smooth path, whose components have fewer segments.
  static constexpr std::size_t kMaxSmoothVertices = 14869;
  /// Both in space, where vertices are longer.
  static constexpr std::size_t kMaxVertices3D = 10483;
  static constexpr std::size_t kMaxSmoothVertices3D = 10063;

  /// `last_graphic_group` is the highest number that is in use.
  PathWriter(ElementWriter& elements, std::uint16_t last_graphic_group)
      : elements_(elements), last_graphic_group_(last_graphic_group) {}

  /// Whether a path or ring does not have to be cut.
  [[nodiscard]] bool FitsOneElement(std::size_t vertices, bool smooth = false) const noexcept {
    return vertices <= MostVertices(smooth);
  }

  /// A path of two vertices or more. What has to be cut joins the style's graphic group, or a new one.
  void Path(const ElementStyle& style, std::span<const Pelor::DGN::point2d> points,
            const LinkageWords& linkages);
  /// A path that runs smoothly through its vertices.
  void SmoothPath(const ElementStyle& style, std::span<const Pelor::DGN::point2d> points,
                  const LinkageWords& linkages);
  /// A closed ring, its first vertex repeated at its end: an area, unless it has to be cut.
  void Ring(const ElementStyle& style, std::span<const Pelor::DGN::point2d> points,
            const LinkageWords& linkages);

  /// Whether rings, as ranges of vertices, fit one cell.
  [[nodiscard]] bool FitOneCell(std::span<const std::size_t> vertices,
                                const LinkageWords& linkages) const noexcept;

  /// A number that no element has yet; 0, which groups nothing, when all are in use.
  [[nodiscard]] std::uint16_t NewGraphicGroup() noexcept;

 private:
  /// Of one element.
  [[nodiscard]] std::size_t MostVertices(bool smooth) const noexcept;
  void Pieces(const ElementStyle& style, std::span<const Pelor::DGN::point2d> points);
  void CutPath(const ElementStyle& style, std::span<const Pelor::DGN::point2d> points,
               const LinkageWords& linkages, bool smooth);
  void Curve(const ElementStyle& style, std::span<const Pelor::DGN::point2d> points, std::size_t first,
             std::size_t count, const LinkageWords& linkages);

  ElementWriter& elements_;
  std::uint16_t last_graphic_group_;
  std::vector<Pelor::DGN::point2d> curve_;
};

}  // namespace App
