#include "app/pair/pair_columns.h"

#include "app/io/failure.h"
#include <pelor/base/loc_char.h>

namespace App {

namespace MI = Pelor::MI;
using Tobri::LocChar;
using Tobri::LocStr;

namespace {

std::size_t FindColumn(std::span<const MI::Column> columns, const std::string& name) {
  const Tobri::String wanted = LocStr::UpperCase(name);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (LocStr::UpperCase(columns[i].name) == wanted) return i;
  }
  std::string sentence = "there is no column \"" + name + "\"";
  const char* before = "; there are ";
  for (const MI::Column& column : columns) {
    sentence += before + column.name.str();
    before = ", ";
  }
  throw Failure(sentence);
}

}  // namespace

std::vector<std::size_t> SelectColumns(std::span<const MI::Column> columns,
                                       std::span<const std::string> names) {
  std::vector<std::size_t> selected;
  if (names.empty()) {
    for (std::size_t i = 0; i < columns.size(); ++i) selected.push_back(i);
  }
  for (const std::string& name : names) selected.push_back(FindColumn(columns, name));
  return selected;
}

std::string PairColumnName(std::string_view name, std::size_t number) {
  if (name.empty()) return "COL" + std::to_string(number);
  std::string fit;
  if (LocChar::Is(name.front(), LocChar::Digit)) fit += '_';
  for (const char c : name) fit += LocChar::Is(c, LocChar::Letter | LocChar::Digit) ? c : '_';
  return fit;
}

}  // namespace App
