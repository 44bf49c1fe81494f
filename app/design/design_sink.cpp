#include "app/design/design_sink.h"

#include "app/design/header_element.h"
#include "app/design/linkage.h"
#include "app/io/failure.h"

#include <charconv>
#include <limits>
#include <system_error>
#include <utility>

namespace App {

namespace MI = Pelor::MI;

namespace {

/// The databases that the keys are for, and the columns of pairs, hold signed numbers.
constexpr std::uint32_t kHighestKey = std::numeric_limits<std::int32_t>::max();

constexpr std::string_view kNoKey = "without a key: its value is no whole number from 1 to 2147483647";
constexpr std::string_view kNoLevel = "level of all elements: its value is no whole number from 0 to 63";
constexpr std::string_view kNoColor = "colour of the object: its value is no whole number from 0 to 255";

/// The column of this name, in any case; none for an empty name. Throws when there is none.
std::optional<std::size_t> FindColumn(const Schema& schema, const std::string& name, std::string_view what) {
  if (name.empty()) return std::nullopt;
  const Tobri::String wanted = Tobri::LocStr::LowerCase(Tobri::String(name));
  for (std::size_t i = 0; i < schema.columns.size(); ++i) {
    if (Tobri::LocStr::LowerCase(schema.columns[i].name) == wanted) return i;
  }
  throw Failure("there is no column \"" + name + "\" to take the " + std::string(what) + " from");
}

/// The whole number that is all of the text, blanks around it aside.
template <class T>
std::optional<T> WholeNumber(std::string_view text, T largest) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  T value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value > largest) return std::nullopt;
  return value;
}

std::string_view ValueOf(const Feature& feature, std::size_t column) {
  return column < feature.values.size() ? std::string_view(feature.values[column]) : std::string_view();
}

std::filesystem::path TableName(std::filesystem::path design) {
  return design.replace_extension(".csv");
}

}  // namespace

DesignSink::DesignSink(const std::filesystem::path& design, std::unique_ptr<OutputFiles> files,
                       const Schema& schema, const DesignExtent& extent, const DesignSinkOptions& options)
    : files_(std::move(files)),
      options_(options),
      start_(Settle(design, *files_, schema, extent, options)),
      key_column_(FindColumn(schema, options.key_column, "key")),
      level_column_(FindColumn(schema, options.level_column, "level")),
      color_column_(FindColumn(schema, options.color_column, "colour")),
      design_(files_->Add(design), design),
      table_(files_->Add(TableName(design)), TableName(design), schema.columns),
      palette_(StartPalette(start_)),
      objects_(design_.Bytes(), palette_, WriterSettings(start_, options)) {
  if (start_.seed) {
    design_.CopyFrom(start_.seed->path, start_.seed->length);
  } else {
    WriteHeaderElement(design_.Bytes(), start_.units, extent.Get());
  }
  if (!start_.seed || !start_.seed->colors) {
    palette_position_ = design_.Position();
    palette_.Write(design_.Bytes());
  }
}

DesignSink::Start DesignSink::Settle(const std::filesystem::path& design, OutputFiles& files,
                                     const Schema& schema, const DesignExtent& extent,
                                     const DesignSinkOptions& options) {
  Start start;
  if (!options.seed.empty()) {
    files.AddInput(options.seed);
    start.seed = Seed::Read(options.seed);
  }
  const UnitNames names = NamesOf(schema.system);
  start.map_unit = names.master;
  try {
    if (start.seed) {
      start.units = ChangeUnits(start.seed->units, options.units);
      ThrowUnlessFits(start.units, extent.Get());
    } else {
      start.units = ChooseUnits(extent.Measure(), names, options.units);
    }
  } catch (const Failure& failure) {
    throw Failure(design.string() + " cannot be written: " + failure.what());
  }
  start.keeps_all_digits = KeepsAllDigits(start.units, extent.Measure());
  if (!start.keeps_all_digits && AreCoarserThanChosen(start.units, extent.Measure())) {
    start.largest_move = HalfOfLastDigit(start.units, extent.Measure());
  }
  return start;
}

Palette DesignSink::StartPalette(const Start& start) {
  return start.seed && start.seed->colors ? Palette(*start.seed->colors) : Palette();
}

ObjectWriter::Settings DesignSink::WriterSettings(const Start& start, const DesignSinkOptions& options) {
  ObjectWriter::Settings settings;
  settings.units = start.units;
  settings.tolerance = options.tolerance.value_or(0.0);
  settings.charset = options.charset;
  settings.largest_move = start.largest_move;
  if (start.seed) settings.last_graphic_group = start.seed->last_graphic_group;
  return settings;
}

void DesignSink::Put(Feature& feature, Account& account) {
  ++rows_;
  notes_.clear();
  const std::optional<std::uint32_t> key = KeyOf(feature);
  table_.Add(key, feature.values);
  const MI::WObjType type = feature.object->GetType();
  if (type == MI::WObjType_None) {
    account.Written(feature.kind, feature.count);
    ++rows_without_object_;
    return;
  }

  ObjectLook look = LookOf(feature);
  if (key) look.linkages.AddDatabase(kTableEntity, *key);
  const std::string_view reason = objects_.Write(*feature.object, look);
  if (!reason.empty()) {
    account.Skipped(feature.kind, reason, feature.place, feature.count);
    return;
  }
  account.Written(feature.kind, feature.count);
  for (const std::string_view note : notes_) {
    account.Approximated(feature.kind, note, feature.place, feature.count);
  }
  for (const std::string_view note : objects_.Notes()) {
    account.Approximated(feature.kind, note, feature.place, feature.count);
  }
  has_points_ = has_points_ || type == MI::WObjType_Point;
  has_texts_ = has_texts_ || type == MI::WObjType_Text;
  design_.FlushIfFull();
}

void DesignSink::Close(Account& account) {
  design_.Finish();
  if (palette_position_) {
    ElementBytes palette;
    palette_.Write(palette);
    design_.Replace(*palette_position_, palette);
  }
  const UnitChoice& units = options_.units;
  if (start_.seed && (units.uors_per_master || units.names || units.middle)) {
    SetHeaderUnits(start_.seed->header, 0, start_.units);
    design_.Replace(start_.seed->header_position, start_.seed->header);
  }
  design_.Close();
  table_.Close();
  files_->Commit();
  StateAssumptions(account);
}

std::optional<std::uint32_t> DesignSink::KeyOf(const Feature& feature) {
  if (!key_column_) return rows_;
  const auto key = WholeNumber<std::uint32_t>(ValueOf(feature, *key_column_), kHighestKey);
  if (!key || *key == 0) {
    notes_.push_back(kNoKey);
    return std::nullopt;
  }
  if (!keys_.Insert(*key)) rows_of_same_key_ += repeated_keys_.Insert(*key) ? 2 : 1;
  return key;
}

ObjectLook DesignSink::LookOf(const Feature& feature) {
  ObjectLook look;
  look.level = options_.level;
  if (level_column_) {
    const auto level = WholeNumber<std::uint8_t>(ValueOf(feature, *level_column_), 63);
    look.level = level.value_or(options_.level);
    if (!level) notes_.push_back(kNoLevel);
  }
  look.color = options_.color;
  if (color_column_) {
    const auto color = WholeNumber<std::uint8_t>(ValueOf(feature, *color_column_), 255);
    if (color) look.color = color;
    if (!color) notes_.push_back(kNoColor);
  }
  return look;
}

void DesignSink::StateAssumptions(Account& account) const {
  const WorkingUnits& units = start_.units;
  account.Assume("working units: " + PrintedNumber(units.subs_per_master) + " " + units.sub_name + " per " +
                 units.master_name + ", " + PrintedNumber(units.uors_per_sub) + " units of resolution per " +
                 units.sub_name);
  if (AreDifferentUnits(start_.map_unit, units.master_name)) {
    account.Assume("the coordinates of the map, in " + start_.map_unit + ", are taken for " +
                   units.master_name + " as they are");
  }
  if (start_.seed && !start_.seed->has_end_word) {
    account.Assume("the seed has no end-of-design word: it ends where its file does");
  }
  if (units.origin_z) account.Assume("the seed is three-dimensional: everything lies at its height 0");
  if (!start_.keeps_all_digits) {
    account.Assume("coordinates are rounded to " + PrintedNumber(1.0 / units.UorsPerMaster()) + " " +
                   units.master_name);
  }
  if (rows_without_object_ != 0) {
    account.Assume("rows without an object are in the table alone: " + std::to_string(rows_without_object_));
  }
  if (start_.seed && start_.seed->has_keys) {
    account.Assume(
        "elements of the seed carry keys of entity 1, too: those may be keys of rows of the table");
  }
  if (rows_of_same_key_ != 0) {
    account.Assume("rows whose key another row has as well: " + std::to_string(rows_of_same_key_));
  }
  if (has_points_)
    account.Assume("points are lines without length: of their symbols, colour and size remain");
  if (has_texts_) {
    account.Assume("texts are in font 1 and in the character set " + options_.charset +
                   ": of their fonts, colour and weight remain");
  }
}

}  // namespace App
