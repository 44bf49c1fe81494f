#include "app/design/header_element.h"

#include <pelor/dgn.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace App {

namespace DGN = Pelor::DGN;

namespace {

// Offsets in the element.
constexpr std::size_t kUorsPerSub = 30;
constexpr std::size_t kUorsPerGrid = 38;
constexpr std::size_t kGridsPerReference = 42;
constexpr std::size_t kViews = 46;
constexpr std::size_t kRangeLow = 1000;
constexpr std::size_t kRangeHigh = 1012;
constexpr std::size_t kAuxiliaryAxes = 1024;
constexpr std::size_t kUnits = 1108;
constexpr std::size_t kActiveScales = 1140;
constexpr std::size_t kTextMultipliers = 1172;
constexpr std::size_t kOrigin = 1240;

// A view, and offsets in it.
constexpr std::size_t kViewCount = 8;
constexpr std::size_t kViewBytes = 118;
constexpr std::size_t kViewLevels = 2;
constexpr std::size_t kViewOrigin = 10;
constexpr std::size_t kViewDelta = 22;
constexpr std::size_t kViewAxes = 34;
constexpr std::size_t kViewConversion = 106;

constexpr std::uint8_t kLevel = 8;
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr double kPlane = 4294967296.0;

std::int32_t OnPlane(double coordinate) {
  return static_cast<std::int32_t>(std::clamp(coordinate, double{kLowest}, double{kHighest}));
}

/// Fills the design's views, each with the whole extent and a margin around it.
void SetViews(ElementBytes& bytes, std::size_t position, const WorkingUnits& units,
              const Vanth::BoundsXY& extent) {
  constexpr std::uint16_t kFlags = 0xB01C;
  constexpr std::uint16_t kOpenFlag = 0x0080;
  constexpr double kMargin = 0.05;
  constexpr double kPixels = 1280.0;

  const double x = units.X(extent.Min().x);
  const double y = units.Y(extent.Min().y);
  const double width = std::max(units.X(extent.Max().x) - x, 1.0);
  const double height = std::max(units.Y(extent.Max().y) - y, 1.0);
  const double margin = std::max(width, height) * kMargin;
  const std::int32_t delta_x = OnPlane(width + 2 * margin);
  const std::int32_t delta_y = OnPlane(height + 2 * margin);
  for (std::size_t i = 0; i < kViewCount; ++i) {
    const std::size_t view = position + kViews + i * kViewBytes;
    bytes.SetWord(view, i == 0 ? kFlags | kOpenFlag : kFlags);
    for (std::size_t word = 0; word < 4; ++word) bytes.SetWord(view + kViewLevels + 2 * word, 0xFFFF);
    bytes.SetLong(view + kViewOrigin, OnPlane(x - margin));
    bytes.SetLong(view + kViewOrigin + 4, OnPlane(y - margin));
    bytes.SetLong(view + kViewDelta, delta_x);
    bytes.SetLong(view + kViewDelta + 4, delta_y);
    // Two rows of two.
    bytes.SetDouble(view + kViewAxes, 1.0);
    bytes.SetDouble(view + kViewAxes + 24, 1.0);
    bytes.SetDouble(view + kViewConversion, kPixels / delta_x);
  }
}

}  // namespace

void SetHeaderUnits(ElementBytes& bytes, std::size_t position, const WorkingUnits& units) {
  const std::size_t at = position + kUnits;
  // The edge of the plane in master units.
  bytes.SetLong(at, OnPlane(std::floor(kPlane / units.UorsPerMaster())));
  bytes.SetLong(at + 4, units.subs_per_master);
  bytes.SetLong(at + 8, units.uors_per_sub);
  bytes.SetName(at + 12, units.master_name);
  bytes.SetName(at + 14, units.sub_name);
  bytes.SetDouble(position + kUorsPerSub, units.uors_per_sub);
  bytes.SetDouble(position + kOrigin, units.origin_x);
  bytes.SetDouble(position + kOrigin + 8, units.origin_y);
  if (units.origin_z) bytes.SetDouble(position + kOrigin + 16, *units.origin_z);
}

void WriteHeaderElement(ElementBytes& bytes, const WorkingUnits& units, const Vanth::BoundsXY& extent) {
  const std::size_t position = bytes.Size();
  bytes.Zeros(kHeaderElementBytes);
  bytes.SetWord(position, static_cast<std::uint16_t>(DGN::DesignHeaderType << 8 | kLevel));
  bytes.SetWord(position + 2, static_cast<std::uint16_t>((kHeaderElementBytes - 4) / 2));

  bytes.SetLong(position + kUorsPerGrid, OnPlane(units.UorsPerMaster()));
  bytes.SetWord(position + kGridsPerReference, 10);
  SetViews(bytes, position, units, extent.IsEmpty() ? Vanth::BoundsXY(0, 0, 0, 0) : extent);
  for (std::size_t axis = 0; axis < 2; ++axis) {
    bytes.SetLong(position + kRangeLow + 4 * axis, kLowest);
    bytes.SetLong(position + kRangeHigh + 4 * axis, kHighest);
  }
  // Three rows of three.
  for (std::size_t row = 0; row < 3; ++row) bytes.SetDouble(position + kAuxiliaryAxes + 32 * row, 1.0);
  // Of x, y and z, and the unit to which places are rounded.
  for (std::size_t i = 0; i < 4; ++i) bytes.SetDouble(position + kActiveScales + 8 * i, 1.0);
  // Characters of one master unit.
  const std::int32_t multiplier = OnPlane(units.UorsPerMaster() * 1000.0 / 6.0);
  bytes.SetLong(position + kTextMultipliers, multiplier);
  bytes.SetLong(position + kTextMultipliers + 4, multiplier);
  SetHeaderUnits(bytes, position, units);
}

}  // namespace App
