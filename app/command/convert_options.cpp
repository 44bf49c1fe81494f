#include "app/command/convert_options.h"

#include "app/convert/number_set.h"
#include "app/design/design_columns.h"
#include "app/io/blanks.h"
#include "app/io/failure.h"
#include "app/io/transcoder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <system_error>

namespace App {

namespace {

constexpr std::string_view kSelection = "What is converted";
constexpr std::string_view kToPair = "To pairs";
constexpr std::string_view kToDesign = "To designs";
constexpr std::string_view kTexts = "Texts";

std::vector<std::string> Split(std::string_view list) {
  std::vector<std::string> items;
  while (true) {
    const std::size_t comma = list.find(',');
    items.emplace_back(WithoutBlanks(list.substr(0, comma)));
    if (comma == std::string_view::npos) return items;
    list.remove_prefix(comma + 1);
  }
}

std::optional<double> Number(std::string_view text) {
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

// Exactly `Count` numbers, parted by commas.
template <std::size_t Count>
std::array<double, Count> Numbers(std::string_view text, std::string_view option, std::string_view form) {
  const std::vector<std::string> items = Split(text);
  std::array<double, Count> numbers = {};
  bool is_right = items.size() == Count;
  for (std::size_t i = 0; is_right && i < Count; ++i) {
    const std::optional<double> number = Number(items[i]);
    is_right = number.has_value();
    if (number) numbers[i] = *number;
  }
  if (!is_right) {
    throw Failure(std::string(option) + " takes " + std::string(form) + ", not \"" + std::string(text) + '"');
  }
  return numbers;
}

// A whole number from `low` to `high`.
template <class T>
T WholeNumber(std::string_view text, std::string_view option, T low, T high) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value < low || value > high) {
    throw Failure(std::string(option) + " takes a number from " + std::to_string(low) + " to " +
                  std::to_string(high) + ", not \"" + std::string(text) + '"');
  }
  return static_cast<T>(value);
}

template <class T>
struct Choice {
  std::string_view name;
  T value;
};
template <class T, std::size_t Count>
T Choose(std::string_view text, std::string_view option, const std::array<Choice<T>, Count>& choices) {
  std::string names;
  for (std::size_t i = 0; i < Count; ++i) {
    if (choices[i].name == text) return choices[i].value;
    if (i != 0) names += i + 1 == Count ? " or " : ", ";
    names += choices[i].name;
  }
  throw Failure(std::string(option) + " takes " + names + ", not \"" + std::string(text) + '"');
}

void CheckCharset(const std::string& name) {
  if (!name.empty() && !IsKnownCharset(name)) throw Failure("nobody knows the character set \"" + name + '"');
}

std::string ColumnNames() {
  std::string names;
  for (const DesignColumn column : AllDesignColumns()) {
    if (!names.empty()) names += ',';
    names += ColumnName(column);
  }
  return names;
}

}  // namespace

CLI::Option* ConvertArguments::Add(CLI::App& command, Use use, const std::string& name, std::string& value,
                                   const std::string& help, const std::string& type) {
  CLI::Option* const option = command.add_option(name, value, help)->type_name(type);
  limited_.push_back({option, use});
  return option;
}

void ConvertArguments::AddTo(CLI::App& command) {
  const std::string selection(kSelection);
  const auto select = [&](Use use, const char* name, std::string& value, const char* help, const char* type) {
    Add(command, use, name, value, help, type)->group(selection);
  };
  select(Use::kFromDesign, "--level", levels_, "elements on these levels alone, such as 1,3-5", "LIST");
  select(Use::kFromDesign, "--type", types_, "elements of these types alone, such as 3,12-14 or line,text",
         "LIST");
  select(Use::kFromDesign, "--class", classes_, "elements of these classes alone, by number or name", "LIST");
  command.add_option("--window", window_, "what touches this box alone, in map units")
      ->type_name("X1,Y1,X2,Y2")
      ->group(selection);
  limited_.push_back(
      {command.add_flag("--with-deleted", with_deleted_, "deleted elements, too")->group(selection),
       Use::kFromDesign});

  const auto to_pair = [&](Use use, const char* name, std::string& value, const std::string& help,
                           const char* type) {
    Add(command, use, name, value, help, type)->group(std::string(kToPair));
  };
  to_pair(Use::kToPair, "--columns", columns_,
          "the columns, in their order; of designs there are " + ColumnNames(), "LIST");
  to_pair(Use::kFromDesign, "--units", units_,
          "coordinates in master units (usual), sub-units or units of resolution", "master|sub|uor");
  to_pair(Use::kToPair, "--coordsys", coordsys_,
          "the coordinate system clause of the coordinates, such as 'Earth Projection 1, 104'", "CLAUSE");
  to_pair(Use::kDesignToPair, "--arcs", arcs_, "curves where their kind allows it (usual), or all as lines",
          "curves|lines");
  to_pair(Use::kDesignToPair, "--cells", cells_, "cells as their components (usual), as a point, or both",
          "explode|point|both");
  to_pair(Use::kToPair, "--mif-version", version_, "the version of the pair: 1, 2 or 300", "N");
  to_pair(Use::kToPair, "--delimiter", delimiter_,
          "what parts the values of a row: a character, tab, comma, semicolon or blank", "CHARACTER");

  const auto to_design = [&](const char* name, std::string& value, const char* help, const char* type) {
    Add(command, Use::kPairToDesign, name, value, help, type)->group(std::string(kToDesign));
  };
  to_design("--uor", uor_, "units of resolution to the master unit (usual: chosen by the extent)", "N");
  to_design("--unit", unit_, "the names of the units, such as m,mm", "MASTER[,SUB]");
  to_design("--origin", origin_, "the map coordinates in the middle of the design plane", "X,Y");
  to_design("--seed", seed_, "start from this design: its units, colours and settings", "FILE");
  to_design("--key", key_,
            "the column with the keys of the rows, 1 to 2147483647 (usual: the number of the row)", "COLUMN");
  to_design("--set-level", set_level_, "the level of all elements, 0 to 63 (usual: 1)", "N");
  to_design("--level-column", level_column_, "the column with the levels of the elements", "COLUMN");
  to_design("--set-color", set_color_, "the colour of all elements, 0 to 255 (usual: the pen's)", "N");
  to_design("--color-column", color_column_, "the column with the colours of the elements", "COLUMN");

  Add(command, Use::kBetweenKinds, "--tolerance", tolerance_,
      "how far chords may be from the curves they stand for, in map units", "LENGTH");
  Add(command, Use::kWithPairs, "--charset,--charset-in", charset_in_, "the character set of the inputs",
      "NAME")
      ->group(std::string(kTexts));
  Add(command, Use::kWithPairs, "--charset-out", charset_out_, "the character set of the outputs", "NAME")
      ->group(std::string(kTexts));
}

bool ConvertArguments::Applies(Use use, const PlannedFile& file) {
  const bool from_design = file.input.IsDesign();
  const bool to_pair = file.format == OutputFormat::kPair;
  switch (use) {
    case Use::kFromDesign:
      return from_design;
    case Use::kDesignToPair:
      return from_design && to_pair;
    case Use::kPairToDesign:
      return !from_design && !to_pair;
    case Use::kToPair:
      return to_pair;
    case Use::kBetweenKinds:
      return from_design == to_pair;
    case Use::kWithPairs:
      break;
  }
  return !from_design || to_pair;
}

void ConvertArguments::ThrowIfUseless(std::span<const PlannedFile> files) const {
  const auto is_known = [](const PlannedFile& file) { return !file.outputs.empty(); };
  if (std::none_of(files.begin(), files.end(), is_known)) return;
  for (const Limited& limited : limited_) {
    if (limited.option->count() == 0) continue;
    const auto applies = [&](const PlannedFile& file) {
      return is_known(file) && Applies(limited.use, file);
    };
    if (std::any_of(files.begin(), files.end(), applies)) continue;
    constexpr std::array<std::string_view, 6> kUses = {
        "designs as input", "conversions from designs to pairs",     "conversions from pairs to designs",
        "pairs as output",  "conversions between designs and pairs", "pairs as input or output"};
    throw Failure(limited.option->get_name() + " is for " +
                  std::string(kUses[static_cast<std::size_t>(limited.use)]));
  }
}

ConvertOptions ConvertArguments::Read(std::span<const PlannedFile> files) const {
  ThrowIfUseless(files);
  ConvertOptions options;
  ReadSelection(options);
  ReadFromDesign(options);
  ReadToPair(options);
  ReadToDesign(options);
  CheckCharset(charset_in_);
  CheckCharset(charset_out_);
  options.charset_in = charset_in_;
  options.charset_out = charset_out_;
  options.from_design.charset = charset_in_;
  return options;
}

void ConvertArguments::ReadSelection(ConvertOptions& options) const {
  if (!levels_.empty()) options.copy.levels = ParseLevels(levels_);
  if (!types_.empty()) options.copy.types = ParseElementTypes(types_);
  if (!classes_.empty()) options.copy.classes = ParseElementClasses(classes_);
  options.copy.with_deleted = with_deleted_;
  if (!units_.empty()) {
    options.copy.units = Choose(
        units_, "--units",
        std::array<Choice<DesignUnits>, 3>{
            {{"master", DesignUnits::kMaster}, {"sub", DesignUnits::kSub}, {"uor", DesignUnits::kUor}}});
  }
  if (!window_.empty()) {
    const auto [x1, y1, x2, y2] = Numbers<4>(window_, "--window", "X1,Y1,X2,Y2");
    options.window = Vanth::BoundsXY(x1, y1, x2, y2);
    options.copy.window = options.window;
  }
}

// The selection has been read already.
void ConvertArguments::ReadFromDesign(ConvertOptions& options) const {
  DesignOptions& design = options.from_design;
  design.types = options.copy.types;
  design.levels = options.copy.levels;
  design.classes = options.copy.classes;
  design.window = options.copy.window;
  design.with_deleted = options.copy.with_deleted;
  design.units = options.copy.units;
  if (!arcs_.empty()) {
    design.arcs_as_lines =
        Choose(arcs_, "--arcs", std::array<Choice<bool>, 2>{{{"curves", false}, {"lines", true}}});
  }
  if (!cells_.empty()) {
    design.cells = Choose(
        cells_, "--cells",
        std::array<Choice<CellMode>, 3>{
            {{"explode", CellMode::kExplode}, {"point", CellMode::kPoint}, {"both", CellMode::kBoth}}});
  }
  if (!tolerance_.empty()) {
    const std::optional<double> tolerance = Number(tolerance_);
    if (!tolerance || *tolerance <= 0.0) {
      throw Failure("--tolerance takes a length above 0, not \"" + tolerance_ + '"');
    }
    design.tolerance = *tolerance;
    options.to_design.tolerance = tolerance;
  }
}

void ConvertArguments::ReadToPair(ConvertOptions& options) const {
  options.to_pair.coordsys = coordsys_;
  if (!columns_.empty()) options.to_pair.columns = Split(columns_);
  if (!version_.empty()) {
    options.version = ParsePairVersion(version_);
    options.to_pair.version = *options.version;
  }
  if (!delimiter_.empty()) {
    options.delimiter = ParseDelimiter(delimiter_);
    options.to_pair.delimiter = *options.delimiter;
  }
}

void ConvertArguments::ReadToDesign(ConvertOptions& options) const {
  DesignSinkOptions& design = options.to_design;
  if (!uor_.empty()) {
    design.units.uors_per_master =
        WholeNumber<std::int32_t>(uor_, "--uor", 1, std::numeric_limits<std::int32_t>::max());
  }
  if (!unit_.empty()) design.units.names = ParseUnitNames(unit_);
  if (!origin_.empty()) {
    const auto [x, y] = Numbers<2>(origin_, "--origin", "X,Y");
    design.units.middle = Vanth::PointXY{x, y};
  }
  design.seed = seed_;
  design.key_column = key_;
  if (!set_level_.empty()) design.level = WholeNumber<std::uint8_t>(set_level_, "--set-level", 0, 63);
  design.level_column = level_column_;
  if (!set_color_.empty()) design.color = WholeNumber<std::uint8_t>(set_color_, "--set-color", 0, 255);
  design.color_column = color_column_;
}

}  // namespace App
