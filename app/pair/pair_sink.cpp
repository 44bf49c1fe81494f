#include "app/pair/pair_sink.h"

#include "app/io/input_kind.h"
#include "app/pair/coord_sys_text.h"
#include "app/pair/geometry_check.h"
#include "app/pair/object_texts.h"
#include "app/pair/pair_charset.h"
#include "app/pair/pair_columns.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>

namespace App {

namespace {

namespace fs = std::filesystem;
namespace MI = Pelor::MI;

// The other file of the pair that `name` is of, in the same case.
fs::path Companion(const fs::path& name, bool wants_mif) {
  const std::string extension = name.extension().string();
  const bool is_upper = extension == ".MIF" || extension == ".MID";
  fs::path companion = name;
  if (wants_mif) return companion.replace_extension(is_upper ? ".MIF" : ".mif");
  return companion.replace_extension(is_upper ? ".MID" : ".mid");
}

char UsableDelimiter(char delimiter) {
  return IsDelimiter(delimiter) ? delimiter : '\t';
}

fs::path MifName(const fs::path& name) {
  return LowerExtension(name) == ".mif" ? name : Companion(name, true);
}

fs::path MidName(const fs::path& name) {
  return LowerExtension(name) == ".mid" ? name : Companion(name, false);
}

CharsetTraits UsableCharset(std::string_view charset) {
  const CharsetTraits traits = ProbeCharset(charset);
  if (!traits.fits_pairs) {
    throw Failure("interchange pairs cannot be in the character set \"" + std::string(charset) + "\"");
  }
  return traits;
}

}  // namespace

PairSink::PairSink(const fs::path& name, std::unique_ptr<OutputFiles> files, const Schema& schema,
                   const PairOptions& options)
    : mif_name_(MifName(name)),
      mid_name_(MidName(name)),
      files_(std::move(files)),
      transcoder_(options.charset, Transcoder::Direction::kFromUtf8),
      values_(transcoder_, UsableDelimiter(options.delimiter)),
      columns_(SelectColumns(schema.columns, options.columns)),
      resolution_(options.resolution) {
  const CharsetTraits charset = UsableCharset(options.charset);
  const Tobri::IRefC<MI::CoordSys> system = ChooseSystem(schema, options);
  const fs::path temporary = files_->Add(mif_name_);
  if (files_->Add(mid_name_) != fs::path(temporary).replace_extension(".mid")) {
    throw Failure(mif_name_.string() + " and " + mid_name_.string() + " cannot be written together");
  }
  out_.Open(temporary.string(), UsableDelimiter(options.delimiter));
  WriteHeader(schema, options, charset.is_multi_byte, system);
  ThrowIfFailed();
}

Tobri::IRefC<MI::CoordSys> PairSink::ChooseSystem(const Schema& schema, const PairOptions& options) {
  Tobri::IRefC<MI::CoordSys> system = schema.system;
  if (!options.coordsys.empty()) {
    system = ParseCoordSys(options.coordsys);
    assumptions_.emplace_back("the coordinates are taken to be in the given coordinate system as they are");
  } else if (system == nullptr && !options.bounds.IsEmpty()) {
    system.Assign(new MI::CoordSys(MI::NonEarth_t(), options.units, options.bounds));
  }
  if (system == nullptr) {
    assumptions_.emplace_back("no coordinate system is known: the pair says longitude and latitude");
  } else if (WrittenVersion(options.version) == 1) {
    assumptions_.emplace_back("version 1 does not say the coordinate system");
  } else {
    ThrowIfNotWritable(*system);
    if (!IsWrittenExactly(*system)) {
      assumptions_.emplace_back("the numbers of the coordinate system are rounded to ten digits");
    }
  }
  return system;
}

void PairSink::WriteHeader(const Schema& schema, const PairOptions& options, bool is_multi_byte,
                           const Tobri::IRefC<MI::CoordSys>& system) {
  out_.SetLineFlush(false);
  const int version = WrittenVersion(options.version);
  out_.SetVersion(version);
  const std::string charset = PairCharsetName(options.charset);
  out_.SetCharSet(Tobri::String(charset));
  if (version != 300) {
    assumptions_.push_back("version " + std::to_string(version) +
                           " does not say its character set, which is " + charset);
  }
  out_.SetWSys(system);
  for (const std::size_t i : columns_) AddColumn(schema.columns[i], options.charset, is_multi_byte);
  // Also a pair without columns and objects has a header by that.
  out_.BeginData();
}

void PairSink::AddColumn(MI::Column column, std::string_view charset, bool is_multi_byte) {
  std::string name = PairColumnName(column.name, ++column_count_);
  const std::int64_t lost = transcoder_.GetLost();
  std::string converted(transcoder_.Convert(name));
  if (transcoder_.GetLost() != lost) std::replace(converted.begin(), converted.end(), '?', '_');
  if (transcoder_.GetLost() != lost || name != std::string_view(column.name)) {
    Transcoder back(charset, Transcoder::Direction::kToUtf8);
    assumptions_.push_back("the column \"" + column.name.str() + "\" is called \"" +
                           std::string(back.Convert(converted)) + "\"");
  }
  column.name = Tobri::String(std::move(converted));
  // Widths are bytes: a width that is enough for one set may be too small for another.
  if (is_multi_byte && column.type == MI::Column::Character) column.flags |= MI::Column::kWidthNotGiven;
  out_.AddColumn(column);
}

void PairSink::Put(Feature& feature, Account& account) {
  const GeometryFacts facts = CheckGeometry(*feature.object);
  if (!facts.IsFinite()) {
    account.Skipped(feature.kind, "a coordinate is no number", feature.place, feature.count);
    return;
  }
  largest_ = std::max(largest_, facts.largest);
  if (resolution_ == 0.0 && !is_rounded_) is_rounded_ = !KeepsCoordinates(*feature.object, facts.largest);
  const auto approximated = [&](std::string_view reason) {
    account.Approximated(feature.kind, reason, feature.place, feature.count);
  };
  if (facts.written_parts == 0) {
    approximated("too few vertices: only its row is kept");
  } else if (facts.dropped_parts > 0) {
    approximated("parts of too few vertices are left out");
  }
  const std::int64_t lost = transcoder_.GetLost();
  const std::int64_t joined = values_.GetJoined();
  const std::int64_t changed = values_.GetChanged();
  if (feature.object->GetType() == MI::WObjType_Text) {
    EscapeLineEnds(static_cast<MI::WTextBody&>(*feature.object));
  }
  ConvertTexts(*feature.object, transcoder_);
  // The object goes first: values that still wait for theirs at the end would be lost.
  out_.AddObj(feature.object);
  PutRow(feature);
  if (transcoder_.GetLost() != lost) approximated("characters that the character set lacks became ?");
  if (values_.GetJoined() != joined) approximated("line ends in values became blanks");
  if (values_.GetChanged() != changed) approximated("delimiters beside quotes in values became blanks");
  ThrowIfFailed();
  account.Written(feature.kind, feature.count);
}

void PairSink::PutRow(const Feature& feature) {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const std::size_t from = columns_[i];
    const Tobri::String& value = from < feature.values.size() ? feature.values[from] : no_value_;
    out_.SetAttribute(static_cast<int>(i), values_.Fit(value));
  }
}

void PairSink::Close(Account& account) {
  out_.Close();
  ThrowIfFailed();
  files_->Commit();
  for (std::string& sentence : assumptions_) account.Assume(std::move(sentence));
  StatePrecision(account);
}

std::optional<char> PairSink::FindBetterDelimiter() const {
  constexpr std::string_view kDelimiters = "\t;|,~^#@!";
  if (values_.GetChanged() == 0) return std::nullopt;
  for (const char delimiter : kDelimiters) {
    if (values_.WouldKeepAll(delimiter)) return delimiter;
  }
  return std::nullopt;
}

void PairSink::ThrowIfFailed() const {
  ThrowIfNotWritten(out_.MIFStream(), mif_name_);
  ThrowIfNotWritten(out_.MIDStream(), mid_name_);
}

// Says so when the ten digits of coordinates do not reach down to the resolution of the source, or, where
// that is unknown, have rounded a coordinate.
void PairSink::StatePrecision(Account& account) const {
  if (!(largest_ > 0.0)) return;
  const double step = std::pow(10.0, std::floor(std::log10(largest_)) + 1 - kWrittenDigits);
  // Neither number is exact.
  const bool is_rounded = resolution_ > 0.0 ? step > resolution_ * 1.001 : is_rounded_;
  if (!is_rounded) return;
  std::array<char, 32> text = {};
  const char* const end = std::to_chars(text.data(), text.data() + text.size(), step).ptr;
  account.Assume("coordinates are written with ten digits: the largest ones are multiples of " +
                 std::string(text.data(), static_cast<std::size_t>(end - text.data())));
}

}  // namespace App
