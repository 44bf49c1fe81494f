#include "app/design/working_units.h"

#include "app/design/element_writer.h"
#include "app/design/uor_point.h"
#include "app/io/failure.h"
#include <pelor/base.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace App {

namespace MI = Pelor::MI;

namespace {

/// Both ends of the design plane, in units of resolution.
constexpr double kLowest = std::numeric_limits<std::int32_t>::min();
constexpr double kHighest = std::numeric_limits<std::int32_t>::max();

/// Significant digits of a printed coordinate.
constexpr int kDigits = 10;
/// The most that a coordinate holds, whatever it has been read from.
constexpr int kMostDigits = 15;
/// The count of units of resolution per master unit is a long in all programs.
constexpr double kMostUors = 1e9;
constexpr std::int64_t kMostLong = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSubsPerMaster = 1000;

struct NamesRow {
  MI::Units units;
  const char* master;
  const char* sub;
};
constexpr NamesRow kNames[] = {
    {MI::Units_deg, "dg", "md"}, {MI::Units_mi, "mi", "th"},       {MI::Units_km, "km", "m"},
    {MI::Units_in, "in", "th"},  {MI::Units_ft, "ft", "th"},       {MI::Units_yd, "yd", "th"},
    {MI::Units_mm, "mm", "um"},  {MI::Units_cm, "cm", "th"},       {MI::Units_m, "m", "mm"},
    {MI::Units_nmi, "nm", "th"}, {MI::Units_SurveyFt, "sf", "th"}, {MI::Units_li, "li", "th"},
    {MI::Units_ch, "ch", "th"},  {MI::Units_rd, "rd", "th"},
};

/// A unit by the one or two letters that designs have for it, unless those stand for several units.
struct KnownUnit {
  std::string_view name;
  bool is_angle;
  double size;  // in metres or degrees
};
constexpr KnownUnit kKnownUnits[] = {
    {"um", false, 1e-6},
    {"mm", false, 1e-3},
    {"cm", false, 1e-2},
    {"dm", false, 1e-1},
    {"m", false, 1.0},
    {"km", false, 1e3},
    {"in", false, 0.0254},
    {"ft", false, 0.3048},
    {"yd", false, 0.9144},
    {"mi", false, 1609.344},
    {"sf", false, 1200.0 / 3937.0},
    {"li", false, 0.201168},
    {"ch", false, 20.1168},
    {"rd", false, 5.0292},
    {"dg", true, 1.0},
    {"md", true, 1e-3},
};

/// In any case; null for a name that nobody knows.
const KnownUnit* FindKnownUnit(const std::string& name) {
  const Tobri::String wanted = Tobri::LocStr::LowerCase(Tobri::String(name));
  const auto* const found =
      std::find_if(std::begin(kKnownUnits), std::end(kKnownUnits),
                   [&](const KnownUnit& unit) { return unit.name == std::string_view(wanted); });
  return found == std::end(kKnownUnits) ? nullptr : found;
}

/// Sub-units per master unit, if the names say that.
std::optional<double> TrueRatio(const UnitNames& names) {
  const KnownUnit* const master = FindKnownUnit(names.master);
  const KnownUnit* const sub = FindKnownUnit(names.sub);
  if (master == nullptr || sub == nullptr || master->is_angle != sub->is_angle) return std::nullopt;
  return master->size / sub->size;
}

std::optional<std::int32_t> WholeNumber(double ratio) {
  constexpr double kAlike = 1e-9;
  constexpr double kMost = 1e9;
  const double whole = std::round(ratio);
  if (whole < 1 || whole > kMost || std::fabs(ratio - whole) > kAlike * whole) return std::nullopt;
  return static_cast<std::int32_t>(whole);
}

double LargestCoordinate(const Vanth::BoundsXY& extent) {
  return std::max(std::max(std::fabs(extent.Min().x), std::fabs(extent.Max().x)),
                  std::max(std::fabs(extent.Min().y), std::fabs(extent.Max().y)));
}

/// The power of ten of the first digit of the largest coordinate; none without coordinates but 0.
std::optional<int> FirstPower(const Vanth::BoundsXY& extent) {
  if (extent.IsEmpty()) return std::nullopt;
  const double largest = LargestCoordinate(extent);
  if (!(largest > 0)) return std::nullopt;
  return static_cast<int>(std::floor(std::log10(largest)));
}

/// The decimals that coordinates have.
int DecimalsOf(const MapMeasure& measure) {
  return std::min(measure.decimals, kMostDigits - 1 - FirstPower(measure.extent).value_or(0));
}

/// The power of ten of the units of resolution per master unit that keep a tenth of the last digit.
int WantedPower(const MapMeasure& measure) {
  constexpr int kWithoutExtent = 3;
  const std::optional<int> first = FirstPower(measure.extent);
  if (!first) return kWithoutExtent;
  return std::max(kDigits - *first, DecimalsOf(measure) + 1);
}

/// The most units of resolution per master unit at which a character of this size can be written.
double MostUors(double letter) {
  return letter > 0 ? kHighest * TextShape::kMultiplierUnit / letter : kMostUors;
}

Vanth::BoundsXY ExtentOf(const MapMeasure& measure) {
  return measure.extent.IsEmpty() ? Vanth::BoundsXY(0, 0, 0, 0) : measure.extent;
}

bool Fits(double low, double high, double uors_per_master, double origin) {
  return low * uors_per_master + origin >= kLowest && high * uors_per_master + origin <= kHighest;
}

/// The origin, in units of resolution, that brings both ends of an axis onto the plane, its middle at the
/// roundest coordinate that does.
std::optional<double> Place(double low, double high, double uors_per_master) {
  if (Fits(low, high, uors_per_master, 0)) return 0;
  const double middle = low / 2 + high / 2;
  if (middle == 0) return std::nullopt;
  const int largest = static_cast<int>(std::floor(std::log10(std::fabs(middle)))) + 1;
  const int smallest = -static_cast<int>(std::lround(std::log10(uors_per_master)));
  for (int power = largest; power >= smallest; --power) {
    const double step = std::pow(10.0, power);
    const double origin = -std::round(std::round(middle / step) * step * uors_per_master);
    if (Fits(low, high, uors_per_master, origin)) return origin;
  }
  return std::nullopt;
}

/// Where `names_bind` and they say how many sub-units there are, there are so many.
void SetUorsPerMaster(WorkingUnits& units, std::int64_t uors_per_master, const UnitNames& names,
                      bool names_bind) {
  if (const auto subs = names_bind ? SubsPerMaster(names) : std::nullopt; subs) {
    if (uors_per_master % *subs != 0 || uors_per_master / *subs > kMostLong) {
      throw Failure("one " + names.master + " is " + std::to_string(*subs) + " " + names.sub +
                    ", among which " + std::to_string(uors_per_master) +
                    " units of resolution cannot be parted; a multiple of " + std::to_string(*subs) + " can");
    }
    units.subs_per_master = *subs;
    units.uors_per_sub = static_cast<std::int32_t>(uors_per_master / *subs);
    units.master_name = names.master;
    units.sub_name = names.sub;
    return;
  }
  const bool has_subs = uors_per_master % kSubsPerMaster == 0;
  units.subs_per_master = has_subs ? kSubsPerMaster : 1;
  units.uors_per_sub = static_cast<std::int32_t>(uors_per_master / units.subs_per_master);
  units.master_name = names.master;
  units.sub_name = has_subs ? names.sub : names.master;
}

bool SetOrigin(WorkingUnits& units, const Vanth::BoundsXY& extent, const UnitChoice& choice) {
  const double scale = units.UorsPerMaster();
  if (choice.middle) {
    units.origin_x = -std::round(choice.middle->x * scale);
    units.origin_y = -std::round(choice.middle->y * scale);
    return Fits(extent.Min().x, extent.Max().x, scale, units.origin_x) &&
           Fits(extent.Min().y, extent.Max().y, scale, units.origin_y);
  }
  const std::optional<double> x = Place(extent.Min().x, extent.Max().x, scale);
  const std::optional<double> y = Place(extent.Min().y, extent.Max().y, scale);
  units.origin_x = x.value_or(0);
  units.origin_y = y.value_or(0);
  return x && y;
}

std::string Describe(const Vanth::BoundsXY& extent, const std::string& unit) {
  return PrintedNumber(extent.Min().x) + " to " + PrintedNumber(extent.Max().x) + " by " +
         PrintedNumber(extent.Min().y) + " to " + PrintedNumber(extent.Max().y) + " " + unit;
}

std::string PlaneAxis(double uors_per_master, double origin) {
  return PrintedNumber((kLowest - origin) / uors_per_master) + " to " +
         PrintedNumber((kHighest - origin) / uors_per_master);
}

[[noreturn]] void ThrowDoesNotFit(const WorkingUnits& units, const Vanth::BoundsXY& extent) {
  const double scale = units.UorsPerMaster();
  throw Failure("the extent of the map, " + Describe(extent, units.master_name) + ", does not fit: at " +
                PrintedNumber(scale) + " units of resolution per " + units.master_name +
                " the design plane reaches from " + PlaneAxis(scale, units.origin_x) + " by " +
                PlaneAxis(scale, units.origin_y) + " " + units.master_name);
}

/// Sets the finest units that fit, by powers of ten; false, with the coarsest, when none do.
bool FindPower(WorkingUnits& units, const MapMeasure& measure, const UnitNames& names,
               const UnitChoice& choice) {
  const Vanth::BoundsXY extent = ExtentOf(measure);
  const std::optional<std::int32_t> subs = choice.names ? SubsPerMaster(names) : std::nullopt;
  const double step = subs.value_or(1);
  const double wanted = std::pow(10.0, WantedPower(measure));
  const double most = std::min(kMostUors, MostUors(measure.letter));
  // The least power that is fine enough, unless it is too fine.
  double uors = step;
  while (uors < wanted && uors * 10 <= most) uors *= 10;
  for (; uors >= step; uors /= 10) {
    SetUorsPerMaster(units, static_cast<std::int64_t>(uors), names, subs.has_value());
    if (SetOrigin(units, extent, choice)) return true;
  }
  return false;
}

}  // namespace

std::optional<std::int32_t> WorkingUnits::Height() const noexcept {
  if (!origin_z) return std::nullopt;
  return RoundedToPlane(*origin_z, 0).x;
}

std::string PrintedNumber(double value) {
  std::array<char, Tobri::kGeneralSize> text{};
  return {text.data(), Tobri::FormatGeneral(text.data(), value, kDigits)};
}

UnitNames NamesOf(const Tobri::IRefC<MI::CoordSys>& system) {
  const MI::Units units = system ? system->units : MI::Units_deg;
  for (const NamesRow& row : kNames) {
    if (row.units == units) return {row.master, row.sub};
  }
  return {"mu", "su"};
}

bool AreDifferentUnits(const std::string& a, const std::string& b) {
  const KnownUnit* const one = FindKnownUnit(a);
  const KnownUnit* const other = FindKnownUnit(b);
  return one != nullptr && other != nullptr && one != other;
}

UnitNames ParseUnitNames(std::string_view text) {
  const std::size_t comma = text.find(',');
  UnitNames names;
  names.master = text.substr(0, comma);
  names.sub = comma == std::string_view::npos ? "su" : text.substr(comma + 1);
  for (const std::string& name : {names.master, names.sub}) {
    const bool is_ascii = std::all_of(name.begin(), name.end(), [](char c) { return c > ' ' && c <= '~'; });
    if (name.empty() || name.size() > 2 || !is_ascii) {
      throw Failure("\"" + std::string(text) +
                    "\" names no units; give one or two letters for the master unit and, behind a comma, for "
                    "the sub-unit, as in m,mm");
    }
  }
  const std::optional<double> ratio = TrueRatio(names);
  if (ratio && !WholeNumber(*ratio)) {
    throw Failure("one " + names.master + " is " + PrintedNumber(*ratio) + " " + names.sub +
                  ": designs have whole numbers of sub-units alone");
  }
  return names;
}

std::optional<std::int32_t> SubsPerMaster(const UnitNames& names) {
  const std::optional<double> ratio = TrueRatio(names);
  return ratio ? WholeNumber(*ratio) : std::nullopt;
}

WorkingUnits ChooseUnits(const MapMeasure& measure, const UnitNames& names, const UnitChoice& choice) {
  const Vanth::BoundsXY extent = ExtentOf(measure);
  const UnitNames& used_names = choice.names ? *choice.names : names;
  WorkingUnits units;
  if (choice.uors_per_master) {
    SetUorsPerMaster(units, *choice.uors_per_master, used_names, choice.names.has_value());
    if (!SetOrigin(units, extent, choice)) ThrowDoesNotFit(units, extent);
    return units;
  }
  if (!FindPower(units, measure, used_names, choice)) ThrowDoesNotFit(units, extent);
  return units;
}

WorkingUnits ChangeUnits(const WorkingUnits& units, const UnitChoice& choice) {
  WorkingUnits changed = units;
  if (choice.uors_per_master || choice.names) {
    const UnitNames names = choice.names.value_or(UnitNames{units.master_name, units.sub_name});
    const std::int64_t subs = units.subs_per_master;
    const std::int64_t uors_per_master =
        choice.uors_per_master ? *choice.uors_per_master : subs * units.uors_per_sub;
    const bool names_bind = choice.names && SubsPerMaster(names);
    if (!names_bind && uors_per_master % subs == 0) {
      changed.uors_per_sub = static_cast<std::int32_t>(uors_per_master / subs);
      changed.master_name = names.master;
      changed.sub_name = names.sub;
    } else {
      SetUorsPerMaster(changed, uors_per_master, names, true);
    }
  }
  if (choice.uors_per_master) {
    const double factor = changed.UorsPerMaster() / units.UorsPerMaster();
    changed.origin_x = std::round(units.origin_x * factor);
    changed.origin_y = std::round(units.origin_y * factor);
    if (units.origin_z) changed.origin_z = std::round(*units.origin_z * factor);
  }
  if (choice.middle) {
    changed.origin_x = -std::round(choice.middle->x * changed.UorsPerMaster());
    changed.origin_y = -std::round(choice.middle->y * changed.UorsPerMaster());
  }
  return changed;
}

bool KeepsAllDigits(const WorkingUnits& units, const MapMeasure& measure) {
  if (!FirstPower(measure.extent)) return true;
  // The logarithm of a power of ten is exact, or below it by a rounding.
  return std::log10(units.UorsPerMaster()) > DecimalsOf(measure) - 1e-9;
}

bool AreCoarserThanChosen(const WorkingUnits& units, const MapMeasure& measure) {
  WorkingUnits chosen;
  return FindPower(chosen, measure, {}, {}) && units.UorsPerMaster() < chosen.UorsPerMaster();
}

double HalfOfLastDigit(const WorkingUnits& units, const MapMeasure& measure) {
  const double scale = units.UorsPerMaster();
  // The way from a coordinate to units of resolution rounds as well.
  const double largest = measure.extent.IsEmpty() ? 0.0 : LargestCoordinate(measure.extent) * scale;
  const double slack = 4 * std::numeric_limits<double>::epsilon() *
                       std::max({largest, std::fabs(units.origin_x), std::fabs(units.origin_y)});
  return std::max(0.5 * scale * std::pow(10.0, -DecimalsOf(measure)), slack);
}

void ThrowUnlessFits(const WorkingUnits& units, const Vanth::BoundsXY& extent) {
  const double scale = units.UorsPerMaster();
  if (units.origin_z && !IsOnPlane(*units.origin_z)) {
    throw Failure("the height 0 does not fit: at " + PrintedNumber(scale) + " units of resolution per " +
                  units.master_name + " the design cube reaches from " + PlaneAxis(scale, *units.origin_z) +
                  " " + units.master_name + " in height");
  }
  if (extent.IsEmpty()) return;
  if (!Fits(extent.Min().x, extent.Max().x, scale, units.origin_x) ||
      !Fits(extent.Min().y, extent.Max().y, scale, units.origin_y)) {
    ThrowDoesNotFit(units, extent);
  }
}

}  // namespace App
