#include <pelor/mi/units.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace Pelor::MI {

namespace {

struct UnitRow {
  Units unit;
  std::string_view name;
  double metres;
};

// In the order in which a name is looked up.
constexpr std::array<UnitRow, 14> kUnits{{
    // One degree of arc on a sphere of about 6371007.18 m.
    {Units_deg, "deg", 111195.05197560512},
    {Units_mi, "mi", 1609.344},
    {Units_km, "km", 1000.0},
    {Units_in, "in", 0.0254},
    {Units_ft, "ft", 0.3048},
    {Units_yd, "yd", 0.9144},
    {Units_mm, "mm", 0.001},
    {Units_cm, "cm", 0.01},
    {Units_m, "m", 1.0},
    // 1200/3937, to these digits; the double of the quotient is the next smaller one.
    {Units_SurveyFt, "survey ft", 0.30480060960121924},
    {Units_nmi, "nmi", 1852.0},
    {Units_li, "li", 0.201168},
    {Units_ch, "ch", 20.1168},
    {Units_rd, "rd", 5.0292},
}};

/// The row of a unit, null outside the table.
const UnitRow* FindUnit(Units u) noexcept {
  for (const UnitRow& row : kUnits) {
    if (row.unit == u) return &row;
  }
  return nullptr;
}

double Factor(Units u) noexcept {
  const UnitRow* const row = FindUnit(u);
  return row != nullptr ? row->metres : 0.0;
}

}  // namespace

Tobri::String GetUnitName(Units u) {
  const UnitRow* const row = FindUnit(u);
  return row != nullptr ? Tobri::String(row->name) : Tobri::String();
}

Units GetUnits(const Tobri::String& s) {
  const Tobri::String name = Tobri::LocStr::LowerCase(s);
  for (const UnitRow& row : kUnits) {
    if (row.name == std::string_view(name)) return row.unit;
  }
  return Units_Unknown;
}

double UnitsConv(double value, Units from, Units to) noexcept {
  const double metres = value * Factor(from);
  const double target = Factor(to);
  return target != 0.0 ? metres / target : metres;
}

Units AutoUnits(double value, Units u) noexcept {
  const double millimetres = UnitsConv(value, u, Units_mm);
  if (millimetres < 10.0) return Units_mm;
  if (millimetres < 1000.0) return Units_cm;
  if (millimetres < 1000000.0) return Units_m;
  return Units_km;
}

}  // namespace Pelor::MI
