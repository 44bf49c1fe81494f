#include "app/inspect/coord_sys_words.h"

#include "app/inspect/layout.h"
#include <pelor/mif.h>

#include <array>
#include <locale>
#include <sstream>
#include <string_view>

namespace App {

namespace MI = Pelor::MI;

namespace {

// By projection number.
constexpr std::array<std::string_view, 21> kProjections = {
    "no earth",
    "longitude and latitude",
    "cylindrical equal-area",
    "Lambert conformal conic",
    "Lambert azimuthal equal-area",
    "azimuthal equidistant",
    "equidistant conic",
    "Hotine oblique Mercator",
    "transverse Mercator",
    "Albers equal-area conic",
    "Mercator",
    "Miller cylindrical",
    "Robinson",
    "Mollweide",
    "Eckert IV",
    "Eckert VI",
    "sinusoidal",
    "Gall",
    "New Zealand map grid",
    "Lambert conformal conic, modified for Belgium 1972",
    "stereographic",
};

// By parameter number.
constexpr std::array<std::string_view, MI::kPrjParCount> kParameters = {
    "origin longitude",
    "origin latitude",
    "first standard parallel",
    "second standard parallel",
    "azimuth",
    "scale factor",
    "false easting",
    "false northing",
    "range",
};

struct DatumName {
  std::int32_t id;
  std::string_view name;
};
constexpr DatumName kDatums[] = {
    {28, "European 1950"}, {62, "NAD 27"}, {74, "NAD 83"}, {103, "WGS 72"}, {104, "WGS 84"},
};

std::string DatumText(const MI::Datum& datum) {
  if (datum.id == MI::kShiftDatum || datum.id == MI::kFullDatum) return "a datum of its own";
  std::string text = "datum " + std::to_string(datum.id);
  for (const DatumName& known : kDatums) {
    if (known.id == datum.id) text.append(" (").append(known.name).append(")");
  }
  return text;
}

std::string UnitsText(MI::Units units) {
  const Tobri::String name = MI::GetUnitName(units);
  return name.IsEmpty() ? "unknown units" : std::string(std::string_view(name));
}

std::string ProjectionText(const MI::CoordSys& system) {
  if (system.IsUTM()) return "UTM zone " + std::to_string(system.GetUTMZone());
  const auto number = static_cast<std::size_t>(system.projection);
  return number < kProjections.size() ? std::string(kProjections[number])
                                      : "projection " + std::to_string(system.projection);
}

}  // namespace

std::string InWords(const MI::CoordSys& system) {
  if (system.kind == MI::CoordSys::kNonEarth)
    return "a plane that is not on the earth, in " + UnitsText(system.units);
  std::string text = ProjectionText(system) + ", " + DatumText(system.datum);
  if (system.projection != MI::Projection_LongLat) text += ", in " + UnitsText(system.units);
  if (system.IsUTM()) return text;
  for (int i = 0; i < system.GetNParameters(); ++i) {
    const auto parameter = static_cast<std::size_t>(system.Parameter(i));
    if (parameter >= kParameters.size()) continue;
    text.append("; ").append(kParameters[parameter]).append(" ").append(ToText(system.GetParameter(i)));
  }
  return text;
}

std::string ClauseOf(const MI::CoordSys& system) {
  constexpr int kDigits = 10;
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.precision(kDigits);
  Pelor::MIF::Write(system, out);
  return out.str();
}

}  // namespace App
