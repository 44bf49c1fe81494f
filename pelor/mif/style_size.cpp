#include <pelor/base/number_parse.h>
#include <pelor/base/string.h>
#include <pelor/mif/clause_text.h>
#include <pelor/mif/style_size.h>

#include <cmath>
#include <limits>
#include <ostream>

namespace Pelor::MIF {

namespace {

using MI::SLUnits;

// The first number of a pen width that stands for points.
constexpr std::int32_t kFirstPointWidth = 11;
constexpr std::int64_t kPointWidthBase = 10;

// Points and their tenths are written alike.
SLUnits Written(SLUnits units) {
  return units == MI::SLUnits_TenthPoint ? MI::SLUnits_Point : units;
}

const char* Suffix(SLUnits units) {
  switch (Written(units)) {
    case MI::SLUnits_Pixel:
      return "_pix";
    case MI::SLUnits_HundredthMm:
      return "_mm";
    case MI::SLUnits_Point:
      return "_pnt";
    default:
      return "";
  }
}

// The units that the suffix stands for, in any case.
bool FindUnits(std::string_view suffix, SLUnits& units) {
  const Tobri::String wanted = Tobri::LocStr::LowerCase(suffix);
  for (const SLUnits candidate : {MI::SLUnits_Pixel, MI::SLUnits_HundredthMm, MI::SLUnits_Point}) {
    if (wanted == Suffix(candidate)) {
      units = candidate;
      return true;
    }
  }
  return false;
}

bool Whole(double number) {
  return number == std::trunc(number);
}

bool Set(StyleSize& size, double number, SLUnits units) {
  const double value = std::round(number);
  using Limits = std::numeric_limits<std::int32_t>;
  if (!(value >= Limits::min() && value <= Limits::max())) return false;
  size = {static_cast<std::int32_t>(value), units};
  return true;
}

}  // namespace

void Put(ClauseText& text, const StyleSize& size, SLUnits default_units) {
  if (default_units == MI::SLUnits_Pixel && Written(size.units) == MI::SLUnits_Point && size.value >= 1) {
    const std::int64_t tenths = size.units == MI::SLUnits_Point ? std::int64_t{10} * size.value : size.value;
    text.PutInteger(static_cast<long>(tenths + kPointWidthBase));
    return;
  }
  if (size.units == MI::SLUnits_HundredthMm) {
    text.PutNumber(size.value * 0.01);
  } else if (size.units == MI::SLUnits_TenthPoint) {
    text.PutNumber(size.value * 0.1);
  } else {
    text.PutInteger(size.value);
  }
  const bool plain = Written(size.units) == Written(default_units) &&
                     (size.units != MI::SLUnits_Pixel || size.value < kFirstPointWidth);
  if (!plain) text.Put(Suffix(size.units));
}

void WriteSize(const StyleSize& size, SLUnits default_units, std::ostream& out) {
  ClauseText text(out);
  Put(text, size, default_units);
  text.Give();
}

bool ParseSize(std::string_view text, SLUnits default_units, StyleSize& size) {
  double number = 0.0;
  const char* const end = text.data() + text.size();
  const char* const stop = Tobri::ParseDouble(text.data(), end, number);
  if (stop == nullptr) return false;
  SLUnits units = Written(default_units);
  if (stop != end) {
    if (!FindUnits({stop, static_cast<std::size_t>(end - stop)}, units)) return false;
  } else if (default_units == MI::SLUnits_Pixel && number >= kFirstPointWidth) {
    return Whole(number) && Set(size, number - static_cast<double>(kPointWidthBase), MI::SLUnits_TenthPoint);
  }
  if (units == MI::SLUnits_HundredthMm) return Set(size, number * 100.0, units);
  if (Whole(number)) return Set(size, number, units);
  return units == MI::SLUnits_Point && Set(size, number * 10.0, MI::SLUnits_TenthPoint);
}

}  // namespace Pelor::MIF
