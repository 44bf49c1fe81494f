#pragma once

#include <pelor/base/export.h>
#include <pelor/base/string.h>

#include <cstdint>
#include <vector>

namespace Pelor::DGN {

class File;

/// The working units and related values of a design, kept in its design file header (type 9). A coordinate c
/// of the file stands for (c - origin) * scale master units. Offsets below are those in the element.
struct PELOR_EXPORT Parameters {
  /// Bytes of a header element that are kept, counted from its third word. The body of a longer element is
  /// cut to this length; nothing beyond is read or written.
  static constexpr unsigned kBodyBytes = 2 * 778;

  bool valid = false;                    ///< the last Read or Search found a design file header
  std::int32_t first_unit = 0;           ///< bytes 1108-1111
  std::int32_t subunits_per_master = 0;  ///< bytes 1112-1115
  std::int32_t uors_per_subunit = 0;     ///< bytes 1116-1119
  std::int32_t uors_per_master = 0;      ///< the product of the two before, in 32 bits
  Tobri::String master_name;             ///< bytes 1120-1121
  Tobri::String subunit_name;            ///< bytes 1122-1123
  double scale = 1.0;                    ///< 1 / uors_per_master; 1 when that is 0
  double origin1 = 0.0;                  ///< of x, bytes 1240-1247
  double origin2 = 0.0;                  ///< of y, bytes 1248-1255
  double origin3 = 0.0;                  ///< of z, bytes 1256-1263
  double header_double = 0.0;            ///< bytes 30-37
  std::int32_t header_longs[6] = {};     ///< bytes 1216-1239
  std::uint16_t header_word = 0;         ///< bytes 1214-1215
  std::vector<char> body;                ///< the raw element from byte 4 on: kBodyBytes, or none

  Parameters() : body(kBodyBytes) {}
  explicit Parameters(File& file) { Read(file); }

  /// Reads the current element. When it is no design file header, `valid` is false, BadTypeErr ("Incorrect
  /// Element Type") is reported and everything else stays. What the element or the file is too short
  /// for keeps its default, and the stream fails.
  void Read(File& file);
  /// Writes the body and then the values into the current element; BadTypeErr when it is no design file
  /// header. The header word is read but never written: intended. What the element is too short for is not
  /// written, and the stream fails.
  void Write(File& file) const;
  /// Reads the first design file header of the file and stays on it. Without one, `valid` is false, the file
  /// is at its end, and nothing is reported.
  void Search(File& file);
};

}  // namespace Pelor::DGN
