#pragma once

#include "app/convert/feature.h"
#include "app/io/output_files.h"
#include "app/io/transcoder.h"
#include "app/pair/pair_options.h"
#include "app/pair/value_writer.h"
#include <pelor/mif.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace App {

/// Writes features as an interchange pair.
class PairSink final : public FeatureSink {
 public:
  /// `name` is the MIF file or the MID file; the other one stands beside it. `files` has the inputs already;
  /// the sink commits it. Throws `Failure` for options that cannot be met and files that cannot be made.
  PairSink(const std::filesystem::path& name, std::unique_ptr<OutputFiles> files, const Schema& schema,
           const PairOptions& options);

  void Put(Feature& feature, Account& account) override;
  void Close(Account& account) override;

  /// A delimiter with which no value would have been changed so far. Nothing when none was, and when there is
  /// no such delimiter.
  [[nodiscard]] std::optional<char> FindBetterDelimiter() const;

 private:
  [[nodiscard]] Tobri::IRefC<Pelor::MI::CoordSys> ChooseSystem(const Schema& schema,
                                                               const PairOptions& options);
  void WriteHeader(const Schema& schema, const PairOptions& options, bool is_multi_byte,
                   const Tobri::IRefC<Pelor::MI::CoordSys>& system);
  void AddColumn(Pelor::MI::Column column, std::string_view charset, bool is_multi_byte);
  void PutRow(const Feature& feature);
  void ThrowIfFailed() const;
  void StatePrecision(Account& account) const;

  std::filesystem::path mif_name_;
  std::filesystem::path mid_name_;
  std::unique_ptr<OutputFiles> files_;
  Transcoder transcoder_;
  ValueWriter values_;
  std::vector<std::size_t> columns_;  // of the schema, in the order of the pair
  Pelor::oMIF out_;
  Tobri::String no_value_;
  std::size_t column_count_ = 0;
  std::vector<std::string> assumptions_;
  double resolution_;
  double largest_ = 0.0;  // coordinate
  bool is_rounded_ = false;
};

}  // namespace App
