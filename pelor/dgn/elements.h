#pragma once

#include <pelor/base/export.h>
#include <pelor/base/string.h>
#include <pelor/dgn/coordinates.h>
#include <pelor/dgn/rotation.h>

#include <array>
#include <cstdint>
#include <vector>

namespace Pelor::DGN {

class File;

// Records of one kind of displayable element each. Read and Write work on the file's current element: on its
// body from word 18 on. When the type in the current element header does not fit, both report BadTypeErr
// ("Incorrect Element Type") and transfer nothing; errors of the file's positioning pass through. What the
// file cannot give or take shows in its stream state. Writing leaves the element's length and range alone.
// Angles are in units of 1/360000 degree, negative ones as sign and magnitude.

/// A line, type 3.
struct PELOR_EXPORT Line2D {
  point2d start;
  point2d end;

  Line2D() = default;
  explicit Line2D(File& file) { Read(file); }

  /// Lenient on purpose: another type is refused only when the element has exactly 16 bytes after its first
  /// two words.
  void Read(File& file);
  void Write(File& file) const;
};

/// A line in space, type 3.
struct PELOR_EXPORT Line3D {
  point3d start;
  point3d end;

  Line3D() = default;
  explicit Line3D(File& file) { Read(file); }

  void Read(File& file);
  void Write(File& file) const;
};

/// A line string, shape, curve or conic: types 4, 6, 11 and 13. A record that is read again keeps its
/// storage, so a walk that reuses one record does not allocate per element.
struct PELOR_EXPORT LineString2D {
  std::uint16_t count = 0;
  std::vector<point2d> points;

  LineString2D() = default;
  explicit LineString2D(File& file) { Read(file); }

  /// A count beyond the end of the element or of the file fails the stream; `points` and `count` are then the
  /// points that are really there.
  void Read(File& file);
  /// Writes `count` points; points that `points` lacks are written as (0, 0).
  void Write(File& file) const;
};

/// An ellipse, type 15. The axes are half-axes in units of resolution.
struct PELOR_EXPORT Ellipse2D {
  double primary_axis = 0.0;
  double secondary_axis = 0.0;
  std::int32_t rotation = 0;
  dpoint2d origin;

  Ellipse2D() = default;
  explicit Ellipse2D(File& file) { Read(file); }

  void Read(File& file);
  void Write(File& file) const;
};

/// An ellipse in space, type 15.
struct PELOR_EXPORT Ellipse3D {
  double primary_axis = 0.0;
  double secondary_axis = 0.0;
  quaternion rotation;
  dpoint3d origin;

  Ellipse3D() = default;
  explicit Ellipse3D(File& file) { Read(file); }

  void Read(File& file);
  void Write(File& file) const;
};

/// An arc of an ellipse, type 16. A sweep of 0 stands for the full turn.
struct PELOR_EXPORT Arc2D {
  std::int32_t start_angle = 0;
  std::int32_t sweep_angle = 0;
  double primary_axis = 0.0;
  double secondary_axis = 0.0;
  std::int32_t rotation = 0;
  dpoint2d origin;

  Arc2D() = default;
  explicit Arc2D(File& file) { Read(file); }

  void Read(File& file);
  void Write(File& file) const;
};

/// A text, type 17. `text` holds the file's raw characters; each enter-data field is three raw bytes.
struct PELOR_EXPORT Text2D {
  using Field = std::array<std::uint8_t, 3>;

  std::uint8_t font = 0;
  std::uint8_t justification = 0;
  std::int32_t length_multiplier = 0;
  std::int32_t height_multiplier = 0;
  std::int32_t rotation = 0;
  point2d origin;
  std::uint8_t char_count = 0;
  std::uint8_t field_count = 0;
  Tobri::String text;
  std::vector<Field> fields;

  Text2D() = default;
  explicit Text2D(File& file) { Read(file); }

  /// The enter-data fields are dropped before the type is looked at, so a refused read loses them. A count
  /// beyond the end of the element or of the file fails the stream; the counts are then what is really there.
  void Read(File& file);
  /// Writes `char_count` characters and `field_count` fields, what is missing of them as zero bytes; an odd
  /// number of fields is followed by one zero byte. An odd number of characters gets none; that is intended.
  void Write(File& file) const;
};

/// The description that begins a complex string or shape: types 12 and 14.
struct PELOR_EXPORT ComplexStrH {
  std::uint16_t words = 0;
  std::uint16_t components = 0;

  ComplexStrH() = default;
  explicit ComplexStrH(File& file) { Read(file); }

  void Read(File& file);
  void Write(File& file) const;
};

}  // namespace Pelor::DGN
