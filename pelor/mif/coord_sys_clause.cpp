#include <pelor/base/number_format.h>
#include <pelor/mif/coord_sys_clause.h>
#include <pelor/mif/keyword.h>
#include <pelor/mif/lexis.h>

#include <array>
#include <cstddef>
#include <ostream>
#include <span>

namespace Pelor::MIF {

using Tobri::FltFmt;
using Tobri::IntFmt;
using Tobri::IxText;
using Tobri::PutDouble;
using Tobri::PutInteger;
using Tobri::String;
using Tobri::TxtRdr;

namespace {

bool Fail(const String& message, const IxText& in) {
  Tobri::Error::Handle(SyntaxError(message, &in));
  return false;
}

bool Expect(KeyWord keyword, IxText& in) {
  return ReadSpecifier(in, keyword) || Fail(String("Expected: " + KeyWordText(keyword).str()), in);
}

// Whether the next word is `keyword`; nothing is read.
bool IsNext(KeyWord keyword, IxText& in) {
  const Tobri::IBText::Pos before = in.GetPos();
  const bool next = ReadSpecifier(in, keyword);
  in.SetPos(before);
  return next;
}

bool ReadUnits(MI::Units& units, IxText& in) {
  String name;
  if (!in.ReadNextSep(name, false)) return Fail("Invalid CoordSys", in);
  // An unknown name gives a unit of the factor 0; readers of such files rely on it.
  units = MI::GetUnits(name);
  return true;
}

// Reads numbers that each stand behind a comma.
bool ReadValues(std::span<double> values, IxText& in) {
  for (double& value : values) {
    if (!TxtRdr::GetSep(in) || !in.ReadNextSep(value, FltFmt(), false)) return false;
  }
  return true;
}

bool ReadDatumText(MI::Datum& datum, IxText& in) {
  int number = 0;
  if (!in.ReadNextSep(number, IntFmt(), false)) return false;
  if (number != MI::kShiftDatum && number != MI::kFullDatum) {
    datum.SetDatum(static_cast<MI::StdDatum>(number));
    return true;
  }
  int spheroid = 0;
  if (!TxtRdr::GetSep(in) || !in.ReadNextSep(spheroid, IntFmt(), false)) return false;
  std::array<double, 8> v{};
  const std::size_t count = number == MI::kShiftDatum ? 3 : v.size();
  if (!ReadValues(std::span(v).first(count), in)) return false;
  const auto s = static_cast<MI::Spheroid>(spheroid);
  if (number == MI::kShiftDatum) {
    datum.SetDatum(s, v[0], v[1], v[2]);
  } else {
    datum.SetDatum(s, v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]);
  }
  return true;
}

bool ReadCorner(Vanth::PointXY& corner, IxText& in) {
  IxText::ArgSep args;
  return args.Set(in, true, false, true) && args.ReadNext(corner.x, FltFmt()) &&
         args.ReadNext(corner.y, FltFmt()) && !args.Next(false, true) && args.Skip();
}

bool ReadNonEarth(MI::CoordSys& system, IxText& in) {
  MI::Units units{};
  if (!Expect(Units, in) || !ReadUnits(units, in)) return false;
  if (TxtRdr::GetSep(in)) return Fail("comma not expected", in);
  if (!IsNext(Bounds, in)) return Expect(Bounds, in);
  Vanth::BoundsXY bounds;
  if (!Read(bounds, in)) return false;
  system = MI::CoordSys(MI::NonEarth_t(), units, bounds);
  return true;
}

bool ReadParameters(MI::CoordSys& system, IxText& in) {
  const int count = system.GetNParameters();
  IxText::ArgSep args;
  args.Set(in, false, true, false);
  for (int i = 0; i < count; ++i) {
    double value = 0.0;
    if (!args.ReadNext(value, FltFmt())) return Fail("Invalid number of parameters", in);
    system.SetParameter(i, value);
    const bool last = i == count - 1;
    const bool further = args.Next(false, false);
    if (!last && !further) return Fail("too few arguments", in);
    if (last && further) return Fail("too many arguments", in);
  }
  return true;
}

bool ReadEarth(MI::CoordSys& system, IxText& in) {
  if (!Expect(Projection, in)) return false;
  int number = 0;
  if (!in.ReadNextSep(number, IntFmt(), false)) return Fail("Invalid CoordSys", in);
  const auto projection = static_cast<MI::Projection>(number);
  MI::Datum datum;
  if (!Read(datum, in)) return false;
  MI::Units units = MI::Units_deg;
  if (projection != MI::Projection_LongLat && !ReadUnits(units, in)) return false;
  system = MI::CoordSys(projection, datum, units, MI::CoordSys::EmptyBounds());
  if (!ReadParameters(system, in)) return false;
  return !IsNext(Bounds, in) || Read(system.bounds, in);
}

}  // namespace

void Write(const MI::Datum& datum, std::ostream& out) {
  PutInteger(out, datum.id);
  if (datum.id != MI::kShiftDatum && datum.id != MI::kFullDatum) return;
  out << ',';
  PutInteger(out, datum.spheroid);
  const std::array<double, 8> values = {datum.dx, datum.dy, datum.dz,    datum.rx,
                                        datum.ry, datum.rz, datum.scale, datum.primeMeridian};
  for (const double value : std::span(values).first(datum.id == MI::kShiftDatum ? 3 : values.size())) {
    out << ',';
    PutDouble(out, value);
  }
}

bool Read(MI::Datum& datum, IxText& in) {
  return ReadDatumText(datum, in) || Fail("Invalid Datum", in);
}

void Write(const Vanth::BoundsXY& bounds, std::ostream& out) {
  if (bounds.IsEmpty()) return;
  const auto put = [&out](const char* before, const Vanth::PointXY& corner) {
    out << before;
    PutDouble(out, corner.x);
    out << ", ";
    PutDouble(out, corner.y);
    out << ')';
  };
  put(" Bounds (", bounds.Min());
  put(" (", bounds.Max());
}

bool Read(Vanth::BoundsXY& bounds, IxText& in) {
  bounds = {};
  Vanth::PointXY first;
  Vanth::PointXY second;
  if (!ReadSpecifier(in, Bounds) || !ReadCorner(first, in)) return Fail("Invalid Bounds", in);
  TxtRdr::GetSep(in);  // some writers put a comma between the corners
  if (!ReadCorner(second, in)) return Fail("Invalid Bounds", in);
  bounds = Vanth::BoundsXY(first, second);
  return true;
}

void Write(const MI::CoordSys& system, std::ostream& out) {
  const auto put_units = [&] { out << '"' << MI::GetUnitName(system.units) << '"'; };
  if (system.kind == MI::CoordSys::kNonEarth) {
    out << "CoordSys NonEarth Units ";
    put_units();
  } else {
    out << "CoordSys Earth Projection ";
    PutInteger(out, system.projection);
    out << ',';
    Write(system.datum, out);
    if (system.projection != MI::Projection_LongLat) {
      out << ',';
      put_units();
    }
    for (int i = 0; i < system.GetNParameters(); ++i) {
      out << ',';
      PutDouble(out, system.GetParameter(i));
    }
  }
  Write(system.bounds, out);
}

bool Read(MI::CoordSys& system, IxText& in) {
  ReadSpecifier(in, CoordSys);
  ReadKW word;
  word.Read(in);
  if (word.id == NonEarth) return ReadNonEarth(system, in);
  if (word.id == Earth) return ReadEarth(system, in);
  return Fail("Invalid CoordSys", in);
}

}  // namespace Pelor::MIF
