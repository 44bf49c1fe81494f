#include "app/inspect/coord_sys_words.h"
#include "app/inspect/layout.h"
#include "app/inspect/pair_info.h"
#include "app/inspect/value_check.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <string>

namespace App {

using Json = nlohmann::ordered_json;
using Pelor::MI::Column;

namespace {

constexpr unsigned kIndexed = 1;
constexpr unsigned kUnique = 2;
// What the account calls rows without an object.
constexpr std::string_view kRowKind = "row";

std::string DelimiterText(char delimiter) {
  switch (delimiter) {
    case '\t':
      return "tab";
    case ',':
      return "comma";
    case ';':
      return "semicolon";
    case ' ':
      return "blank";
    default:
      return {delimiter};
  }
}

void PrintSystem(const PairInfo& info, std::ostream& out) {
  if (info.system == nullptr) {
    PrintLine(out, "Coordinates", "longitude and latitude, as the header says nothing else");
    return;
  }
  PrintLine(out, "Coordinates", InWords(*info.system));
  PrintMore(out, ClauseOf(*info.system));
}

void PrintColumns(const PairInfo& info, std::ostream& out) {
  if (info.columns.empty()) return PrintLine(out, "Columns", "none");
  std::string_view what = "Columns";
  for (const Column& column : info.columns) {
    std::string text = std::string(std::string_view(column.name)) + ' ' + TypeText(column);
    if ((column.flags & kUnique) != 0) text += ", unique";
    if ((column.flags & kIndexed) != 0) text += ", indexed";
    PrintLine(out, what, text);
    what = "";
  }
}

void PrintObjects(const PairInfo& info, std::ostream& out) {
  PrintLine(out, "Objects", ToText(info.objects));
  std::string_view what = "By kind";
  for (const auto& [kind, count] : info.kinds) {
    PrintLine(out, what, ToText(count) + ' ' + kind);
    what = "";
  }
  what = "Not read";
  for (const auto& [kind, counts] : info.account.GetKinds()) {
    for (const auto& [reason, entry] : counts.skip_reasons) {
      PrintLine(out, what, ToText(entry.count).append(1, ' ').append(kind).append(": ").append(reason));
      what = "";
    }
  }
}

Json ColumnsJson(const PairInfo& info) {
  Json columns = Json::array();
  for (const Column& column : info.columns) {
    columns.push_back({{"name", std::string_view(column.name)},
                       {"type", TypeText(column)},
                       {"unique", (column.flags & kUnique) != 0},
                       {"indexed", (column.flags & kIndexed) != 0}});
  }
  return columns;
}

Json ObjectsJson(const PairInfo& info) {
  Json kinds = Json::array();
  for (const auto& [kind, count] : info.kinds) kinds.push_back({{"kind", kind}, {"count", count}});
  Json skipped = Json::array();
  for (const auto& [kind, counts] : info.account.GetKinds()) {
    if (kind == kRowKind) continue;
    for (const auto& [reason, entry] : counts.skip_reasons) {
      skipped.push_back({{"kind", kind}, {"reason", reason}, {"count", entry.count}});
    }
  }
  return {{"count", info.objects}, {"by_kind", kinds}, {"skipped", skipped}};
}

}  // namespace

void Print(const PairInfo& info, std::ostream& out) {
  out << info.mif.string() << '\n';
  PrintLine(out, "Kind",
            "interchange pair, version " + std::to_string(info.version) + ", " + Counted(info.bytes, "byte"));
  PrintLine(
      out, "Rows",
      info.mid.empty() ? "none, as there is no MID file" : ToText(info.rows) + " in " + info.mid.string());
  PrintLine(out, "Character set", info.charset);
  PrintLine(out, "Delimiter", DelimiterText(info.delimiter));
  PrintSystem(info, out);
  PrintColumns(info, out);
  PrintObjects(info, out);
  if (info.extent.IsEmpty()) return PrintLine(out, "Extent", "none, as there is no geometry");
  const Vanth::PointXY low = info.extent.Min();
  const Vanth::PointXY high = info.extent.Max();
  PrintLine(out, "Extent", "x from " + ToText(low.x) + " to " + ToText(high.x));
  PrintMore(out, "y from " + ToText(low.y) + " to " + ToText(high.y));
}

Json ToJson(const PairInfo& info) {
  Json system;
  if (info.system != nullptr) system = {{"clause", ClauseOf(*info.system)}, {"text", InWords(*info.system)}};
  Json extent;
  if (!info.extent.IsEmpty()) {
    const Vanth::PointXY low = info.extent.Min();
    const Vanth::PointXY high = info.extent.Max();
    extent = {{"low", {{"x", low.x}, {"y", low.y}}}, {"high", {{"x", high.x}, {"y", high.y}}}};
  }
  return {{"file", info.mif.string()},
          {"format", "pair"},
          {"mid", info.mid.empty() ? Json() : Json(info.mid.string())},
          {"bytes", info.bytes},
          {"version", info.version},
          {"charset", info.charset},
          {"delimiter", std::string(1, info.delimiter)},
          {"coordsys", system},
          {"columns", ColumnsJson(info)},
          {"objects", ObjectsJson(info)},
          {"rows", info.rows},
          {"extent", extent}};
}

}  // namespace App
