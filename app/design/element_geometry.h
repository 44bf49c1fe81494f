#pragma once

#include "app/design/element_view.h"
#include <pelor/mi.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace App {

// The geometry of elements, read from their bytes, in plan and in units of resolution. Every function gives
// nothing for an element of another type and for one whose bytes do not hold what they tell.

/// A point in space, in units of resolution.
struct Uor3 {
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t z = 0;  ///< 0 in 2D

  [[nodiscard]] Vanth::PointXY Plan() const noexcept {
    return {static_cast<double>(x), static_cast<double>(y)};
  }

  friend bool operator==(const Uor3&, const Uor3&) = default;
};

/// An angle in units of 1/360000 degree. Negative ones occur as sign and magnitude and as a two's complement:
/// which it is shows in the size, because no angle is meant to have more than two turns.
[[nodiscard]] std::int64_t DecodeAngle(std::int32_t stored) noexcept;
inline constexpr std::int64_t kAngleUnitsPerDegree = 360000;
inline constexpr std::int64_t kFullTurn = 360 * kAngleUnitsPerDegree;

/// The vertices of an element, still in its bytes.
class Vertices {
 public:
  /// Of a line, line string, shape, curve, point string or the poles of a B-spline.
  [[nodiscard]] static std::optional<Vertices> Decode(const ElementView& element) noexcept;

  [[nodiscard]] std::size_t Size() const noexcept { return count_; }
  /// Not checked.
  [[nodiscard]] Uor3 operator[](std::size_t i) const noexcept {
    const char* const at = first_ + i * stride_;
    return {Pelor::DGN::LoadLong(at), Pelor::DGN::LoadLong(at + 4),
            has_z_ ? Pelor::DGN::LoadLong(at + 8) : 0};
  }

 private:
  const char* first_ = nullptr;
  std::size_t count_ = 0;
  std::size_t stride_ = 0;
  bool has_z_ = false;
};

/// An ellipse, or a part of one: center + u cos t + v sin t. In plan an ellipse in space is one again, but u
/// and v need not be its axes then.
struct PlanEllipse {
  Vanth::PointXY center;
  Vanth::PointXY u;
  Vanth::PointXY v;
  std::int64_t start = 0;          ///< t, in units of 1/360000 degree
  std::int64_t sweep = kFullTurn;  ///< its sign is the direction; a whole turn is the most
  bool is_arc = false;
  /// The highest and lowest z lie here; both 0 in 2D.
  double z_low = 0.0;
  double z_high = 0.0;

  [[nodiscard]] static std::optional<PlanEllipse> Decode(const ElementView& element) noexcept;

  /// The point at the parameter t, in radians.
  [[nodiscard]] Vanth::PointXY At(double t) const noexcept;
  [[nodiscard]] bool IsFullTurn() const noexcept { return sweep == kFullTurn || sweep == -kFullTurn; }
  /// Whether any of it is off this height; what rounding gives a level one does not count.
  [[nodiscard]] bool HasHeight(double origin_z) const noexcept {
    return z_low < origin_z - 0.5 || z_high > origin_z + 0.5;
  }
};

/// A text (type 17).
struct TextView {
  /// How the text was placed. Its origin is the lower left corner, whatever this is.
  enum class Side : std::uint8_t { kLeft, kCenter, kRight };

  std::uint8_t font = 0;
  std::uint8_t justification = 0;  ///< 0 to 14
  double char_width = 0.0;         ///< negative when mirrored
  double char_height = 0.0;        ///< likewise
  double rotation_degrees = 0.0;   ///< of the base line
  bool is_tilted = false;          ///< it does not lie in the plan; its sizes are as seen in plan
  Uor3 origin;
  std::string_view characters;  ///< raw; good as long as the element's bytes

  [[nodiscard]] static std::optional<TextView> Decode(const ElementView& element) noexcept;
  [[nodiscard]] Side GetSide() const noexcept;
};

/// The description that begins a complex element: types 2, 7, 12, 14, 18, 19 and 27.
struct ComplexDescription {
  /// So many words of the element are not counted in `words`.
  static constexpr std::size_t kWordsBefore = 19;

  std::uint32_t words = 0;       ///< 0 when unknown
  std::uint16_t components = 0;  ///< of chains, shapes, surfaces, solids and text nodes; else 0

  [[nodiscard]] static std::optional<ComplexDescription> Decode(const ElementView& element) noexcept;
};

/// Sine and cosine, exact at the quarters of a turn.
struct Direction {
  double cos = 1.0;
  double sin = 0.0;

  [[nodiscard]] static Direction Of(std::int64_t angle_units) noexcept;
};

}  // namespace App
