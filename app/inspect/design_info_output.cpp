#include "app/inspect/design_info.h"
#include "app/inspect/layout.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <string>

namespace App {

namespace DGN = Pelor::DGN;
using Json = nlohmann::ordered_json;

namespace {

constexpr std::string_view kAxes = "xyz";

std::string Hexadecimal(std::uint16_t number) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text = "0x";
  for (int shift = 12; shift >= 0; shift -= 4) text += kDigits[unsigned{number} >> shift & 0xFU];
  return text;
}

std::string UnitName(const std::string& name, std::string_view otherwise) {
  return name.empty() ? std::string(otherwise) : name;
}

// Coordinates of units of resolution as master units.
class MasterUnits {
 public:
  explicit MasterUnits(const DesignHeader& header) : scale_(header, DesignUnits::kMaster) {}

  [[nodiscard]] double operator()(std::size_t axis, double uor) const {
    return axis == 0 ? scale_.X(uor) : axis == 1 ? scale_.Y(uor) : scale_.Z(uor);
  }

 private:
  DesignScale scale_;
};

std::size_t Axes(const DesignInfo& info) {
  return info.header.is_3d ? 3 : 2;
}

void PrintUnits(const DesignInfo& info, std::ostream& out) {
  const DesignHeader& header = info.header;
  if (!header.found) {
    PrintLine(out, "Units", "unknown, as there is no design file header: counted as units of resolution");
    return;
  }
  const std::string master = UnitName(header.master_name, "master unit");
  PrintLine(out, "Units",
            "1 " + master + " = " + ToText(std::int64_t{header.subs_per_master}) + ' ' +
                UnitName(header.sub_name, "sub-units") + ", each " +
                ToText(std::int64_t{header.uors_per_sub}) + " units of resolution" +
                (header.HasUnits() ? "" : ", which cannot be: counted as 1"));
  std::string origin;
  for (std::size_t i = 0; i < Axes(info); ++i) {
    origin += (i == 0 ? "" : ", ") + ToText(header.origin[i] / header.UorsPerMaster());
  }
  PrintLine(out, "Global origin", origin + ' ' + master);
}

void PrintExtent(const DesignInfo& info, std::ostream& out) {
  if (info.extent.IsEmpty()) {
    PrintLine(out, "Extent", "none, as there is no geometry");
    return;
  }
  const MasterUnits master(info.header);
  for (std::size_t i = 0; i < Axes(info); ++i) {
    PrintLine(out, i == 0 ? "Extent" : "",
              std::string(1, kAxes[i]) + " from " + ToText(master(i, info.extent.low[i])) + " to " +
                  ToText(master(i, info.extent.high[i])));
  }
}

void PrintElements(const DesignInfo& info, std::ostream& out) {
  PrintLine(out, "Elements",
            ToText(info.elements) + ": " + ToText(info.components) + " of them components, " +
                ToText(info.deleted) + " deleted");
  std::string_view what = "By type";
  for (std::size_t type = 0; type < info.types.size(); ++type) {
    const DesignInfo::TypeCount& counts = info.types[type];
    if (counts.count == 0) continue;
    std::string text = ToText(counts.count) + ' ' + std::string(ElementKind(static_cast<DGN::EType>(type))) +
                       " (type " + std::to_string(type) + ')';
    if (counts.deleted != 0) text += ", " + ToText(counts.deleted) + " of them deleted";
    PrintLine(out, what, text);
    what = "";
  }
  what = "By level";
  for (std::size_t level = 0; level < info.levels.size(); ++level) {
    if (info.levels[level] == 0) continue;
    PrintLine(out, what, ToText(info.levels[level]) + " on level " + std::to_string(level));
    what = "";
  }
}

void PrintParts(const DesignInfo& info, std::ostream& out) {
  std::string_view what = "Cells";
  for (const auto& [name, count] : info.cells) {
    PrintLine(out, what, ToText(count) + ' ' + (name.empty() ? "without a name" : name));
    what = "";
  }
  what = "Linkages";
  const auto linkages = [&](std::int64_t count, const std::string& text) {
    if (count == 0) return;
    PrintLine(out, what, ToText(count) + ' ' + text);
    what = "";
  };
  for (const auto& [entity, count] : info.database_linkages) {
    linkages(count, "to database entity " + std::to_string(entity));
  }
  linkages(info.fill_linkages, "for filling");
  for (const auto& [id, count] : info.user_linkages) linkages(count, "of application " + Hexadecimal(id));
  if (info.texts_beyond_ascii != 0) {
    PrintLine(out, "Texts",
              Counted(info.texts_beyond_ascii, "text") + " beyond ASCII: their character set is not stored");
  }
  PrintLine(out, "Colour table", info.has_color_table ? "in the file" : "none: the default colours");
}

std::string EndText(const DesignInfo& info) {
  const std::string at = " at byte " + std::to_string(info.end_offset);
  switch (info.ending) {
    case ElementCursor::End::kEndWord:
      return "end-of-design word" + at;
    case ElementCursor::End::kCutOff:
      return "with the file, inside the element" + at;
    default:
      return "without an end-of-design word," + at;
  }
}

std::string_view EndName(ElementCursor::End ending) {
  switch (ending) {
    case ElementCursor::End::kEndWord:
      return "end-word";
    case ElementCursor::End::kCutOff:
      return "cut-off";
    default:
      return "no-end-word";
  }
}

Json UnitsJson(const DesignHeader& header) {
  return {{"master", header.master_name},
          {"sub", header.sub_name},
          {"subs_per_master", header.subs_per_master},
          {"uors_per_sub", header.uors_per_sub},
          {"uors_per_master", header.UorsPerMaster()}};
}

template <class Value>
Json PointJson(std::size_t axes, Value&& value) {
  Json point = Json::object();
  for (std::size_t i = 0; i < axes; ++i) point[std::string(1, kAxes[i])] = value(i);
  return point;
}

Json ElementsJson(const DesignInfo& info) {
  Json types = Json::array();
  for (std::size_t type = 0; type < info.types.size(); ++type) {
    const DesignInfo::TypeCount& counts = info.types[type];
    if (counts.count == 0) continue;
    types.push_back({{"type", type},
                     {"name", ElementKind(static_cast<DGN::EType>(type))},
                     {"count", counts.count},
                     {"deleted", counts.deleted}});
  }
  Json levels = Json::array();
  for (std::size_t level = 0; level < info.levels.size(); ++level) {
    if (info.levels[level] != 0) levels.push_back({{"level", level}, {"count", info.levels[level]}});
  }
  return {{"count", info.elements},
          {"components", info.components},
          {"deleted", info.deleted},
          {"by_type", types},
          {"by_level", levels}};
}

Json LinkagesJson(const DesignInfo& info) {
  Json database = Json::array();
  for (const auto& [entity, count] : info.database_linkages) {
    database.push_back({{"entity", entity}, {"count", count}});
  }
  Json user = Json::array();
  for (const auto& [id, count] : info.user_linkages) user.push_back({{"id", id}, {"count", count}});
  return {{"database", database}, {"fill", info.fill_linkages}, {"user", user}};
}

}  // namespace

void Print(const DesignInfo& info, std::ostream& out) {
  out << info.file.string() << '\n';
  PrintLine(out, "Kind",
            std::string("design file, version 7, ") + (info.header.is_3d ? "3D" : "2D") + ", " +
                Counted(info.bytes, "byte"));
  PrintUnits(info, out);
  PrintExtent(info, out);
  PrintElements(info, out);
  PrintParts(info, out);
  PrintLine(out, "End", EndText(info));
}

Json ToJson(const DesignInfo& info) {
  const std::size_t axes = Axes(info);
  const MasterUnits master(info.header);
  Json extent;
  if (!info.extent.IsEmpty()) {
    extent = {{"low", PointJson(axes, [&](std::size_t i) { return master(i, info.extent.low[i]); })},
              {"high", PointJson(axes, [&](std::size_t i) { return master(i, info.extent.high[i]); })}};
  }
  Json cells = Json::array();
  for (const auto& [name, count] : info.cells) cells.push_back({{"name", name}, {"count", count}});
  return {
      {"file", info.file.string()},
      {"format", "design"},
      {"bytes", info.bytes},
      {"dimensions", axes},
      {"units", info.header.found ? UnitsJson(info.header) : Json()},
      {"origin",
       PointJson(axes, [&](std::size_t i) { return info.header.origin[i] / info.header.UorsPerMaster(); })},
      {"extent", extent},
      {"elements", ElementsJson(info)},
      {"cells", cells},
      {"linkages", LinkagesJson(info)},
      {"texts_beyond_ascii", info.texts_beyond_ascii},
      {"color_table", info.has_color_table},
      {"end", {{"kind", EndName(info.ending)}, {"offset", info.end_offset}}}};
}

}  // namespace App
