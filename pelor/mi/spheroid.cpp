#include <pelor/base/tolerance.h>
#include <pelor/mi/spheroid.h>

#include <array>
#include <cstddef>

namespace Pelor::MI {

namespace {

struct SpheroidRow {
  double semi_axis;
  double inverse_flattening;
};

// Rows 28 and 29 are equal: a search finds the first of them, its fall-back is the second.
constexpr std::array<SpheroidRow, 48> kSpheroids{{
    {6378137.0, 298.257222101},        // 0
    {6378135.0, 298.26},               // 1
    {6378160.0, 298.25},               // 2
    {6378245.0, 298.3},                // 3
    {6378388.0, 297.0},                // 4
    {6378388.0, 297.0},                // 5
    {6378249.145, 293.465},            // 6
    {6378206.4, 294.9786982},          // 7
    {6378450.047484481, 294.9786982},  // 8
    {6377563.396, 299.3249646},        // 9
    {6377397.155, 299.1528128},        // 10
    {6377276.345, 300.8017},           // 11
    {6370997.0, 0.0},                  // 12
    {6377340.189, 299.3249646},        // 13
    {6377483.865, 299.1528128},        // 14
    {6378249.145326, 293.4663076},     // 15
    {6378249.2, 293.46598},            // 16
    {6377304.063, 300.8017},           // 17
    {6378166.0, 298.3},                // 18
    {6378155.0, 298.3},                // 19
    {6378150.0, 298.3},                // 20
    {6378160.0, 298.247167427},        // 21
    {6378200.0, 298.3},                // 22
    {6378270.0, 297.0},                // 23
    {6378160.0, 298.25},               // 24
    {6378300.583, 296.0},              // 25
    {6378165.0, 298.3},                // 26
    {6378145.0, 298.25},               // 27
    {6378137.0, 298.257223563},        // 28
    {6378137.0, 298.257223563},        // 29
    {6378249.2, 293.4660213},          // 30
    {6378140.0, 298.257222},           // 31
    {6378137.0, 298.257},              // 32
    {6378157.5, 298.25},               // 33
    {6376896.0, 302.78},               // 34
    {6377492.0176, 299.15281},         // 35
    {6378293.639, 294.26068},          // 36
    {6378249.136, 293.46631},          // 37
    {6378300.79, 293.46623},           // 38
    {6377298.556, 300.8017},           // 39
    {6377301.243, 300.80174},          // 40
    {6378160.0, 298.247},              // 41
    {6378145.0, 298.25},               // 42
    {6378135.0, 298.26},               // 43
    {6378136.2, 298.25722},            // 44
    {6378136.3, 298.25722},            // 45
    {6376523.0, 308.64},               // 46
    {6378297.0, 294.73},               // 47
}};

constexpr Spheroid kNoMatch{29};

const SpheroidRow* FindRow(Spheroid s) noexcept {
  if (s < 0) return nullptr;
  const auto index = static_cast<std::size_t>(s);
  return index < kSpheroids.size() ? &kSpheroids[index] : nullptr;
}

}  // namespace

double GetMajorSemiAxis(Spheroid s) noexcept {
  const SpheroidRow* const row = FindRow(s);
  return row != nullptr ? row->semi_axis : 0.0;
}

double GetInverseFlattening(Spheroid s) noexcept {
  const SpheroidRow* const row = FindRow(s);
  return row != nullptr ? row->inverse_flattening : 0.0;
}

Spheroid FindSpheroid(double semi_axis, double inverse_flattening, double tolerance) noexcept {
  const Vanth::Tolerance<double> within(tolerance, Vanth::Tol::Absolute);
  for (std::size_t i = 0; i < kSpheroids.size(); ++i) {
    if (within.Equals(kSpheroids[i].semi_axis, semi_axis) &&
        within.Equals(kSpheroids[i].inverse_flattening, inverse_flattening)) {
      return static_cast<Spheroid>(i);
    }
  }
  return kNoMatch;
}

}  // namespace Pelor::MI
