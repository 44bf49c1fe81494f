#pragma once

#include <pelor/mi.h>

namespace App {

/// What the writer of a MIF file will make of an object's geometry.
struct GeometryFacts {
  double largest = 0.0;   ///< the greatest coordinate, without its sign; infinite when one is no number
  int written_parts = 0;  ///< parts with enough vertices; 1 for what has no parts
  int dropped_parts = 0;  ///< parts with too few, but not those without any

  [[nodiscard]] bool IsFinite() const noexcept;
};

/// Linear in the vertices.
[[nodiscard]] GeometryFacts CheckGeometry(const Pelor::MI::WObjBody& object);

/// The significant digits with which coordinates are written.
inline constexpr int kWrittenDigits = 10;

/// Whether the coordinates of the object, the greatest of which is given, are the same when they are read
/// again.
[[nodiscard]] bool KeepsCoordinates(const Pelor::MI::WObjBody& object, double largest);

}  // namespace App
