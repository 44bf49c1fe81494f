#include <pelor/base/number_format.h>
#include <pelor/mif/column_clause.h>
#include <pelor/mif/keyword.h>
#include <pelor/mif/lexis.h>

#include <algorithm>
#include <iomanip>
#include <ostream>

namespace Pelor::MIF {

using Tobri::FltFmt;
using Tobri::IntFmt;
using Tobri::IxText;
using Tobri::PutDouble;
using Tobri::PutInteger;
using Tobri::String;

namespace {

constexpr int kWidthDigits = 4;
constexpr std::int32_t kWidestWritten = 9999;

void WriteWidth(const MI::Column& column, std::ostream& out) {
  if ((column.flags & MI::Column::kWidthNotGiven) == 0) {
    PutInteger(out, column.width);
    return;
  }
  out << std::setw(kWidthDigits);
  PutInteger(out, std::min(column.width, kWidestWritten));
}

// Reads "(width)" or "(width,decimals)".
bool ReadSizes(std::int32_t& width, std::int32_t* decimals, IxText& in) {
  IxText::ArgSep args;
  return args.Set(in, true, false, false) && args.ReadNext(width, IntFmt()) &&
         (decimals == nullptr || args.ReadNext(*decimals, IntFmt())) && !args.Next(false, false) &&
         args.Skip();
}

bool ReadColumn(MI::Column& column, IxText& in) {
  String name;
  ReadKW type;
  if (!in.ReadNextSep(name, true)) return false;
  type.Read(in);
  std::int32_t width = 0;
  std::int32_t decimals = 0;
  switch (type.id) {
    case Char:
      if (!ReadSizes(width, nullptr, in)) return false;
      column = MI::Column(name, MI::Character_t(), width, 0);
      return true;
    case Decimal:
      if (!ReadSizes(width, &decimals, in)) return false;
      column = MI::Column(name, MI::Decimal_t(), width, decimals, 0);
      return true;
    case Integer:
      column = MI::Column(name, MI::Integer_t(), 0);
      return true;
    case SmallInt:
      column = MI::Column(name, MI::SmallInt_t(), 0);
      return true;
    case Float:
      column = MI::Column(name, MI::Float_t(), 0);
      return true;
    case Date:
      column = MI::Column(name, MI::Date_t(), 0);
      return true;
    case Logical:
      column = MI::Column(name, MI::Logical_t(), 0);
      return true;
    default:
      return false;
  }
}

}  // namespace

void Write(const MI::Column& column, std::ostream& out) {
  out << column.name << "\t\t";
  if (column.type < MI::Column::Character || column.type > MI::Column::Logical) return;
  out << KeyWordText(static_cast<KeyWord>(column.type + Char));
  if (column.type != MI::Column::Character && column.type != MI::Column::Decimal) return;
  const char fill = out.fill('0');
  out << '(';
  WriteWidth(column, out);
  if (column.type == MI::Column::Decimal) {
    out << ',';
    PutInteger(out, column.decimals);
  }
  out << ')';
  out.fill(fill);
}

bool Read(MI::Column& column, IxText& in) {
  if (ReadColumn(column, in)) return true;
  Tobri::Error::Handle(SyntaxError("Invalid Column", &in));
  return false;
}

void Write(const MI::Transform& transform, std::ostream& out) {
  const char* before = "Transform ";
  for (const double value : {transform.scaleX, transform.scaleY, transform.offsetX, transform.offsetY}) {
    out << before;
    PutDouble(out, value);
    before = ",";
  }
}

bool Read(MI::Transform& transform, IxText& in) {
  ReadSpecifier(in, Transform);
  IxText::ArgSep args;
  args.Set(in, false, false, false);
  MI::Transform read;
  for (double* const value : {&read.scaleX, &read.scaleY, &read.offsetX, &read.offsetY}) {
    if (args.ReadNext(*value, FltFmt())) continue;
    Tobri::Error::Handle(SyntaxError("Invalid Transform", &in));
    return false;
  }
  transform = read;
  return true;
}

}  // namespace Pelor::MIF
