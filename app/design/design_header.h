#pragma once

#include <pelor/dgn.h>

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace App {

/// The units in which coordinates are given.
enum class DesignUnits : std::uint8_t {
  kMaster,  ///< (uor - origin) / uors per master
  kSub,     ///< (uor - origin) / uors per sub-unit
  kUor,     ///< as they are stored
};

/// What the design file header (element type 9) says of the design. Without such an element the design counts
/// as 2D, with one unit of resolution per master unit and the origin (0, 0, 0).
struct DesignHeader {
  /// The last byte that is looked at, and one more.
  static constexpr std::size_t kBytes = 1264;

  bool found = false;
  bool is_3d = false;
  std::int32_t subs_per_master = 1;
  std::int32_t uors_per_sub = 1;
  std::string master_name;  ///< at most two characters, without blanks and zero bytes around
  std::string sub_name;
  std::array<double, 3> origin{};  ///< x, y and z, in units of resolution

  /// From the bytes of a header element, which may be cut: what is missing keeps its default.
  [[nodiscard]] static DesignHeader Decode(std::span<const char> element);
  /// From the first header element of the file; the file is left on the first element of all.
  [[nodiscard]] static DesignHeader Find(Pelor::DGN::File& file);

  /// Both unit counts are positive. Otherwise the three functions below count with 1 in their place.
  [[nodiscard]] bool HasUnits() const noexcept { return subs_per_master > 0 && uors_per_sub > 0; }
  [[nodiscard]] double UorsPerSub() const noexcept;
  [[nodiscard]] double UorsPerMaster() const noexcept;
  [[nodiscard]] double UorsPer(DesignUnits units) const noexcept;
};

/// The way from units of resolution to output units: (uor - origin) / scale.
struct DesignScale {
  double origin_x = 0.0;
  double origin_y = 0.0;
  double origin_z = 0.0;
  double uors_per_unit = 1.0;

  DesignScale() = default;
  DesignScale(const DesignHeader& header, DesignUnits units) noexcept;

  [[nodiscard]] double X(double uor) const noexcept { return (uor - origin_x) / uors_per_unit; }
  [[nodiscard]] double Y(double uor) const noexcept { return (uor - origin_y) / uors_per_unit; }
  [[nodiscard]] double Z(double uor) const noexcept { return (uor - origin_z) / uors_per_unit; }
  [[nodiscard]] double Length(double uors) const noexcept { return uors / uors_per_unit; }
};

}  // namespace App
