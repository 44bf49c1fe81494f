#include "app/convert/conversion.h"

#include "app/convert/report.h"
#include "app/design/skip_reasons.h"
#include "app/io/failure.h"
#include "app/io/interrupt.h"
#include "app/io/output_files.h"
#include "app/pair/pair_sink.h"
#include "app/pair/pair_source.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace App {

namespace {

namespace MI = Pelor::MI;

constexpr int kNewestVersion = 300;

// Tells now and then how far a pass over the input has come.
class Pass {
 public:
  Pass(FileProgress& progress, int number) : progress_(progress), number_(number) {}

  template <class Reader>
  void Step(const Reader& reader) {
    ThrowIfInterrupted();
    if (++steps_ % kInterval == 0) progress_.Set(number_, reader.Current(), reader.Total());
  }

 private:
  static constexpr unsigned kInterval = 256;

  FileProgress& progress_;
  int number_;
  unsigned steps_ = 0;
};

bool Touches(const Vanth::BoundsXY& a, const Vanth::BoundsXY& b) {
  return a.Min().x <= b.Max().x && a.Max().x >= b.Min().x && a.Min().y <= b.Max().y && a.Max().y >= b.Min().y;
}

// A box around the extent, its numbers short ones, for a map system of the extent's own.
Vanth::BoundsXY RoundedOut(const Vanth::BoundsXY& extent) {
  if (extent.IsEmpty()) return {-1.0, -1.0, 1.0, 1.0};
  const double size = std::max(extent.Max().x - extent.Min().x, extent.Max().y - extent.Min().y);
  const double step = size > 0.0 ? std::pow(10.0, std::floor(std::log10(size)) - 1.0) : 1.0;
  const auto low = [step](double value) { return (std::floor(value / step) - 1.0) * step; };
  const auto high = [step](double value) { return (std::ceil(value / step) + 1.0) * step; };
  return {low(extent.Min().x), low(extent.Min().y), high(extent.Max().x), high(extent.Max().y)};
}

class Conversion {
 public:
  Conversion(const PlannedFile& file, const ConvertOptions& options, FileProgress& progress, Account& account)
      : file_(file), options_(options), progress_(progress), account_(account) {}

  void DesignToDesign() {
    DesignCopy copy(file_.input, Output(), NewOutputs(), options_.copy);
    Pass pass(progress_, 0);
    while (copy.Next(account_)) pass.Step(copy);
    ThrowIfNothingIsChosen(copy.HasGraphics());
    ThrowIfStrict();
    copy.Close();
  }

  void DesignToPair() {
    PairOptions to_pair = options_.to_pair;
    const int passes = to_pair.coordsys.empty() ? 2 : 1;
    progress_.SetPasses(passes);
    if (!options_.charset_out.empty()) to_pair.charset = options_.charset_out;
    if (to_pair.coordsys.empty()) {
      DesignOptions shapes_alone = options_.from_design;
      shapes_alone.columns.clear();
      DesignSource source(file_.input, shapes_alone);
      to_pair.bounds = RoundedOut(Extent(source).Get());
      to_pair.units = UnitsOf(source.GetHeader());
    }
    const auto open = [this] { return std::make_unique<DesignSource>(file_.input, options_.from_design); };
    std::unique_ptr<DesignSource> source = open();
    to_pair.resolution = 1.0 / source->GetHeader().UorsPer(options_.from_design.units);
    WritePair(std::move(source), open, to_pair, passes - 1);
  }

  void PairToDesign() {
    progress_.SetPasses(2);
    DesignSinkOptions to_design = options_.to_design;
    DesignExtent extent;
    {
      // The rows are not needed for that, and reading is most of the work.
      Input shapes_alone = file_.input;
      shapes_alone.mid.clear();
      PairSource source(shapes_alone, options_.charset_in);
      extent = Extent(source);
      to_design.charset = options_.charset_out.empty() ? source.GetCharset() : options_.charset_out;
    }
    PairSource source(file_.input, options_.charset_in);
    DesignSink sink(Output(), NewOutputs(), source.GetSchema(), extent, to_design);
    Transfer(source, sink, 1);
    Finish(sink);
  }

  void PairToPair() {
    const auto open = [this] { return std::make_unique<PairSource>(file_.input, options_.charset_in); };
    std::unique_ptr<PairSource> source = open();
    PairOptions to_pair = options_.to_pair;
    const int version = source->GetVersion();
    to_pair.version = options_.version.value_or(version == 1 || version == 2 ? version : kNewestVersion);
    to_pair.delimiter = options_.delimiter.value_or(source->GetDelimiter());
    to_pair.charset = options_.charset_out.empty() ? source->GetCharset() : options_.charset_out;
    WritePair(std::move(source), open, to_pair, 0);
  }

 private:
  [[nodiscard]] const std::filesystem::path& Output() const { return file_.outputs.front(); }

  [[nodiscard]] std::unique_ptr<OutputFiles> NewOutputs() const {
    auto files = std::make_unique<OutputFiles>(options_.overwrite);
    files->AddInput(file_.input.path);
    if (!file_.input.mid.empty()) files->AddInput(file_.input.mid);
    return files;
  }

  // What the whole input covers, before the first byte is written.
  DesignExtent Extent(FeatureSource& source) {
    DesignExtent extent;
    Feature feature;
    Account ignored;
    Pass pass(progress_, 0);
    while (source.Next(feature, ignored)) {
      pass.Step(source);
      if (IsInWindow(feature)) extent.Add(*feature.object);
    }
    return extent;
  }

  // Which delimiter leaves all values as they are shows when they have been written. Where the usual one does
  // not, which is rare, and the user names none, all is written again with another one.
  void WritePair(std::unique_ptr<FeatureSource> source, const SourceOpener& reopen, PairOptions to_pair,
                 int pass_number) {
    const Account before = account_;
    {
      PairSink sink(Output(), NewOutputs(), source->GetSchema(), to_pair);
      Transfer(*source, sink, pass_number);
      const std::optional<char> better = options_.delimiter ? std::nullopt : sink.FindBetterDelimiter();
      if (!better) return Finish(sink);
      to_pair.delimiter = *better;
    }
    account_ = before;
    account_.Assume("as values hold a quote and the usual delimiter, the delimiter is " +
                    (to_pair.delimiter == '\t' ? "a tab" : std::string(1, to_pair.delimiter)));
    progress_.SetPasses(pass_number + 2);
    source = reopen();
    PairSink sink(Output(), NewOutputs(), source->GetSchema(), to_pair);
    Transfer(*source, sink, pass_number + 1);
    Finish(sink);
  }

  void Transfer(FeatureSource& source, FeatureSink& sink, int pass_number) {
    Feature feature;
    Pass pass(progress_, pass_number);
    while (source.Next(feature, account_)) {
      pass.Step(source);
      if (IsInWindow(feature)) {
        sink.Put(feature, account_);
      } else {
        account_.Skipped(feature.kind, Reason::kOutside, feature.place, feature.count);
      }
    }
  }

  void Finish(FeatureSink& sink) {
    ThrowIfNothingIsChosen(account_.GetWritten() != 0);
    ThrowIfStrict();
    sink.Close(account_);
  }

  // Designs choose for themselves.
  [[nodiscard]] bool IsInWindow(const Feature& feature) const {
    if (!options_.window || file_.input.IsDesign()) return true;
    if (feature.object->GetType() == MI::WObjType_None) return true;
    return Touches(feature.object->GetBounds(), *options_.window);
  }

  [[nodiscard]] MI::Units UnitsOf(const DesignHeader& header) {
    const DesignUnits units = options_.from_design.units;
    const std::string& name = units == DesignUnits::kSub ? header.sub_name : header.master_name;
    const MI::Units found =
        units == DesignUnits::kUor ? MI::Units_Unknown : MI::GetUnits(Tobri::String(name));
    if (found != MI::Units_Unknown && found != MI::Units_deg) {
      account_.Assume("no coordinate system is given: a plane that is not on the earth, in " +
                      std::string(MI::GetUnitName(found)));
      return found;
    }
    account_.Assume("no coordinate system is given: a plane that is not on the earth, its units taken for m");
    return MI::Units_m;
  }

  // A map without objects becomes another one. That a choice leaves none of them is hardly meant.
  void ThrowIfNothingIsChosen(bool has_written) const {
    if (has_written || !HasLeftOutByChoice(account_)) return;
    throw Failure(file_.input.path.string() + " is not converted: nothing in it was chosen");
  }

  void ThrowIfStrict() const {
    const std::int64_t findings = CountFindings(account_);
    if (!options_.strict || findings == 0) return;
    throw Failure(file_.input.path.string() +
                  " is not converted: something would be skipped or approximated, " +
                  std::to_string(findings) + (findings == 1 ? " time" : " times") + " in all");
  }

  const PlannedFile& file_;
  const ConvertOptions& options_;
  FileProgress& progress_;
  Account& account_;
};

}  // namespace

void ConvertFile(const PlannedFile& file, const ConvertOptions& options, FileProgress& progress,
                 Account& account) {
  Conversion conversion(file, options, progress, account);
  const bool to_pair = file.format == OutputFormat::kPair;
  if (file.input.IsDesign()) {
    to_pair ? conversion.DesignToPair() : conversion.DesignToDesign();
  } else {
    to_pair ? conversion.PairToPair() : conversion.PairToDesign();
  }
}

}  // namespace App
