#include <pelor/mi/datum.h>

#include <array>
#include <cstddef>

namespace Pelor::MI {

namespace {

struct ShiftRow {
  std::int16_t spheroid;
  std::int16_t dx;
  std::int16_t dy;
  std::int16_t dz;
};

constexpr std::array<ShiftRow, 113> kShiftRows{{
    {29, 0, 0, 0},          // 0
    {6, -162, -12, 206},    // 1
    {3, -43, -163, 45},     // 2
    {4, -150, -251, -2},    // 3
    {2, -491, -22, 435},    // 4
    {15, -143, -90, -294},  // 5
    {6, -160, -8, -300},    // 6
    {4, -207, 107, 52},     // 7
    {4, 145, 75, -272},     // 8
    {4, 114, -116, -333},   // 9
    {4, -320, 550, -494},   // 10
    {4, 124, -234, -25},    // 11
    {2, -133, -48, 148},    // 12
    {2, -134, -48, 149},    // 13
    {4, -127, -769, 472},   // 14
    {7, -73, 213, 296},     // 15
    {4, 307, 304, -318},    // 16
    {4, -148, 136, 90},     // 17
    {4, 298, -304, -375},   // 18
    {6, -136, -108, -292},  // 19
    {7, -2, 150, 181},      // 20
    {6, -263, 6, 431},      // 21
    {4, 175, -38, 113},     // 22
    {4, -134, 229, -29},    // 23
    {4, -206, 172, -6},     // 24
    {10, -377, 681, -50},   // 25
    {4, 230, -199, -752},   // 26
    {4, 211, 147, 111},     // 27
    {4, -87, -98, -121},    // 28
    {4, -86, -98, -119},    // 29
    {4, -133, -321, 50},    // 30
    {4, 84, -22, 209},      // 31
    {21, 0, 0, 0},          // 32
    {0, 0, 0, 0},           // 33
    {7, -100, -248, 259},   // 34
    {4, 252, -209, -751},   // 35
    {4, 16, 196, 93},       // 36
    {4, -73, 46, -86},      // 37
    {4, -156, -271, -189},  // 38
    {4, -634, -549, -201},  // 39
    {11, 214, 836, 303},    // 40
    {11, 289, 734, 257},    // 41
    {0, 506, -122, 611},    // 42
    {4, 208, -435, -229},   // 43
    {4, 191, -77, -204},    // 44
    {11, -97, 787, 86},     // 45
    {4, 145, -187, 103},    // 46
    {17, -11, 851, 5},      // 47
    {7, 42, 124, 147},      // 48
    {6, -90, 40, 88},       // 49
    {7, -133, -77, -51},    // 50
    {7, -133, -79, -72},    // 51
    {6, 41, -220, -134},    // 52
    {4, -289, -124, 60},    // 53
    {10, 639, 405, 60},     // 54
    {16, 31, 146, 47},      // 55
    {4, 912, -58, 1227},    // 56
    {6, -92, -93, 122},     // 57
    {6, -247, -148, 369},   // 58
    {6, -249, -156, 381},   // 59
    {6, -231, -196, 482},   // 60
    {4, -2, 374, 172},      // 61
    {7, -8, 160, 176},      // 62
    {7, -5, 135, 172},      // 63
    {7, -4, 154, 178},      // 64
    {7, 1, 140, 165},       // 65
    {7, -10, 158, 187},     // 66
    {7, 0, 125, 201},       // 67
    {7, -7, 152, 178},      // 68
    {7, 0, 125, 194},       // 69
    {7, -9, 152, 178},      // 70
    {7, 11, 114, 195},      // 71
    {7, -12, 130, 190},     // 72
    {8, -8, 160, 176},      // 73
    {0, 0, 0, 0},           // 74
    {4, -425, -169, 81},    // 75
    {22, -130, 110, -13},   // 76
    {7, 61, -285, -181},    // 77
    {6, -346, -1, 224},     // 78
    {9, 375, -111, 431},    // 79
    {4, -307, -92, 127},    // 80
    {4, 185, 165, 42},      // 81
    {4, -288, 175, -376},   // 82
    {7, 11, 72, -101},      // 83
    {4, -128, -283, 22},    // 84
    {4, 164, 138, -189},    // 85
    {4, 94, -948, -1262},   // 86
    {4, -225, -65, 9},      // 87
    {4, 170, 42, 84},       // 88
    {4, -203, 141, 53},     // 89
    {4, -355, 16, 74},      // 90
    {14, 616, 97, -251},    // 91
    {24, -57, 1, -41},      // 92
    {19, 7, -10, -26},      // 93
    {4, -499, -249, 314},   // 94
    {4, -104, 167, -38},    // 95
    {11, -689, 691, -46},   // 96
    {10, -128, 481, 664},   // 97
    {4, -632, 438, -609},   // 98
    {6, 51, 391, -36},      // 99
    {23, 101, 52, -39},     // 100
    {0, 0, 0, 0},           // 101
    {27, 0, 0, 0},          // 102
    {1, 0, 8, 10},          // 103
    {28, 0, 0, 0},          // 104
    {4, -155, 171, 37},     // 105
    {4, -265, 120, -358},   // 106
    {30, -168, -60, 320},   // 107
    {4, -83, -96, -113},    // 108
    {10, 593, 26, 478},     // 109
    {4, 81, 120, 129},      // 110
    {1, -1, 15, 1},         // 111
    {10, 498, -36, 568},    // 112
}};

/// A standard datum that is given in full; the values are those of Datum.
struct FullRow {
  std::int32_t number;
  std::int32_t kind;
  Spheroid spheroid;
  double dx, dy, dz;
  double rx, ry, rz;
  double scale;
  double prime_meridian;
};

constexpr std::array<FullRow, 5> kFullRows{{
    {113, kShiftDatum, Spheroid{4}, -303, -62, 105, 0, 0, 0, 0, 0},
    {114, kShiftDatum, Spheroid{4}, -223, 110, 37, 0, 0, 0, 0, 0},
    {1000, kFullDatum, Spheroid{10}, 582, 105, 414, -1.04, -0.35, 3.08, 8.3, 0},
    {1001, kFullDatum, Spheroid{3}, 24, -123, -94, -0.02, 0.25, 0.13, 1.1, 0},
    {1002, kFullDatum, Spheroid{30}, -168, -60, 320, 0, 0, 0, 0, 2.33723},
}};

constexpr FullRow FromShiftRow(std::size_t number) noexcept {
  const ShiftRow& row = kShiftRows[number];
  return {.number = static_cast<std::int32_t>(number),
          .kind = kShiftDatum,
          .spheroid = static_cast<Spheroid>(row.spheroid),
          .dx = static_cast<double>(row.dx),
          .dy = static_cast<double>(row.dy),
          .dz = static_cast<double>(row.dz),
          .rx = 0.0,
          .ry = 0.0,
          .rz = 0.0,
          .scale = 0.0,
          .prime_meridian = 0.0};
}

FullRow FindStdDatum(StdDatum n) noexcept {
  if (n >= 0 && static_cast<std::size_t>(n) < kShiftRows.size()) {
    return FromShiftRow(static_cast<std::size_t>(n));
  }
  for (const FullRow& row : kFullRows) {
    if (row.number == n) return row;
  }
  return FromShiftRow(StdDatum_Default);
}

bool Matches(const ShiftRow& row, const Datum& datum) noexcept {
  return row.spheroid == datum.spheroid && row.dx == datum.dx && row.dy == datum.dy && row.dz == datum.dz;
}

/// A row's third shift is compared with the datum's second one. That is intended: no full row is recognised
/// from its values, so files carry these datums by number only.
bool Matches(const FullRow& row, const Datum& datum, std::int32_t kind) noexcept {
  if (row.kind != kind || row.spheroid != datum.spheroid || row.dx != datum.dx || row.dy != datum.dy ||
      row.dz != datum.dy) {
    return false;
  }
  return kind == kShiftDatum || (row.rx == datum.rx && row.ry == datum.ry && row.rz == datum.rz &&
                                 row.scale == datum.scale && row.prime_meridian == datum.primeMeridian);
}

/// The number of the first standard datum with exactly these values, else their kind.
std::int32_t Identify(const Datum& datum) noexcept {
  const bool shifts_only = datum.rx == 0.0 && datum.ry == 0.0 && datum.rz == 0.0 && datum.scale == 0.0 &&
                           datum.primeMeridian == 0.0;
  const std::int32_t kind = shifts_only ? kShiftDatum : kFullDatum;
  if (shifts_only) {
    for (std::size_t i = 0; i < kShiftRows.size(); ++i) {
      if (Matches(kShiftRows[i], datum)) return static_cast<std::int32_t>(i);
    }
  }
  for (const FullRow& row : kFullRows) {
    if (Matches(row, datum, kind)) return row.number;
  }
  return kind;
}

}  // namespace

void Datum::SetDatum(StdDatum n) noexcept {
  const FullRow row = FindStdDatum(n);
  id = row.number;
  spheroid = row.spheroid;
  dx = row.dx;
  dy = row.dy;
  dz = row.dz;
  rx = row.rx;
  ry = row.ry;
  rz = row.rz;
  scale = row.scale;
  primeMeridian = row.prime_meridian;
}

void Datum::SetDatum(Spheroid s, double shift_x, double shift_y, double shift_z) noexcept {
  SetDatum(s, shift_x, shift_y, shift_z, 0.0, 0.0, 0.0, 0.0, 0.0);
}

void Datum::SetDatum(Spheroid s, double shift_x, double shift_y, double shift_z, double rotation_x,
                     double rotation_y, double rotation_z, double scale_ppm, double prime_meridian) noexcept {
  spheroid = s;
  dx = shift_x;
  dy = shift_y;
  dz = shift_z;
  rx = rotation_x;
  ry = rotation_y;
  rz = rotation_z;
  scale = scale_ppm;
  primeMeridian = prime_meridian;
  id = Identify(*this);
}

bool Datum::operator==(const Datum& other) const noexcept {
  return spheroid == other.spheroid && dx == other.dx && dy == other.dz && dz == other.dz && rx == other.rx &&
         ry == other.rz && rz == other.rz && scale == other.scale && primeMeridian == other.primeMeridian;
}

}  // namespace Pelor::MI
