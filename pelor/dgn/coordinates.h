#pragma once

#include <pelor/base/export.h>

#include <cstdint>

namespace Pelor::DGN {

class File;

/// A point in units of resolution: 8 bytes in the file.
struct PELOR_EXPORT point2d {
  std::int32_t x = 0;
  std::int32_t y = 0;

  void read(File& file);
  void write(File& file) const;

  friend constexpr bool operator==(const point2d&, const point2d&) noexcept = default;
};

/// A point in units of resolution: 12 bytes in the file.
struct PELOR_EXPORT point3d {
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t z = 0;

  void read(File& file);
  void write(File& file) const;

  friend constexpr bool operator==(const point3d&, const point3d&) noexcept = default;
};

/// A point in units of resolution, held as doubles: 16 bytes in the file.
struct PELOR_EXPORT dpoint2d {
  double x = 0.0;
  double y = 0.0;

  void read(File& file);
  void write(File& file) const;

  friend constexpr bool operator==(const dpoint2d&, const dpoint2d&) noexcept = default;
};

/// A point in units of resolution, held as doubles: 24 bytes in the file.
struct PELOR_EXPORT dpoint3d {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  void read(File& file);
  void write(File& file) const;

  friend constexpr bool operator==(const dpoint3d&, const dpoint3d&) noexcept = default;
};

}  // namespace Pelor::DGN
