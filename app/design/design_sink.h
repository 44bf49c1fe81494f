#pragma once

#include "app/convert/feature.h"
#include "app/convert/key_set.h"
#include "app/design/csv_table.h"
#include "app/design/design_extent.h"
#include "app/design/design_output.h"
#include "app/design/object_writer.h"
#include "app/design/palette.h"
#include "app/design/seed.h"
#include "app/design/working_units.h"
#include "app/io/output_files.h"

#include <cstdint>
#include <filesystem>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace App {

/// How map objects become a design.
struct DesignSinkOptions {
  UnitChoice units;
  /// The design to start from; empty for none.
  std::filesystem::path seed;
  /// The column with the keys of the rows, whole numbers from 1 to 2147483647; empty: rows are numbered
  /// from 1.
  std::string key_column;
  std::uint8_t level = 1;    ///< of all elements, unless a column says it
  std::string level_column;  ///< whole numbers from 0 to 63
  /// Of all elements, unless a column says it; without both, colours are those of the objects.
  std::optional<std::uint8_t> color;
  std::string color_column;               ///< whole numbers from 0 to 255
  std::optional<double> tolerance;        ///< of flattened curves, in map units; else by their size
  std::string charset = "WindowsLatin1";  ///< of the texts
};

/// Writes features as the elements of a design file, and their rows into a table of comma-separated values
/// beside it. Every element of an object carries the key of its row in a database linkage.
class DesignSink final : public FeatureSink {
 public:
  /// The table stands beside the design, its extension "csv". `files` has the inputs already; the sink
  /// commits it. Throws `Failure` when the extent does not fit, and for options that cannot be met.
  DesignSink(const std::filesystem::path& design, std::unique_ptr<OutputFiles> files, const Schema& schema,
             const DesignExtent& extent, const DesignSinkOptions& options);

  void Put(Feature& feature, Account& account) override;
  void Close(Account& account) override;

  [[nodiscard]] const WorkingUnits& Units() const noexcept { return start_.units; }

 private:
  /// What is settled before the first byte is written.
  struct Start {
    std::optional<Seed> seed;
    WorkingUnits units;
    std::string map_unit;
    bool keeps_all_digits = true;
    double largest_move = std::numeric_limits<double>::infinity();
  };

  [[nodiscard]] static Start Settle(const std::filesystem::path& design, OutputFiles& files,
                                    const Schema& schema, const DesignExtent& extent,
                                    const DesignSinkOptions& options);
  [[nodiscard]] static Palette StartPalette(const Start& start);
  [[nodiscard]] static ObjectWriter::Settings WriterSettings(const Start& start,
                                                             const DesignSinkOptions& options);

  [[nodiscard]] std::optional<std::uint32_t> KeyOf(const Feature& feature);
  [[nodiscard]] ObjectLook LookOf(const Feature& feature);
  void StateAssumptions(Account& account) const;

  std::unique_ptr<OutputFiles> files_;
  DesignSinkOptions options_;
  Start start_;
  std::optional<std::size_t> key_column_;
  std::optional<std::size_t> level_column_;
  std::optional<std::size_t> color_column_;
  DesignOutput design_;
  CsvTable table_;
  Palette palette_;
  ObjectWriter objects_;

  /// Where the colour table stands that is written at the end; none when the seed has its own.
  std::optional<std::int64_t> palette_position_;
  std::vector<std::string_view> notes_;  // on the look of the feature at hand
  std::uint32_t rows_ = 0;
  std::int64_t rows_without_object_ = 0;
  // Of the key column.
  KeySet keys_;
  KeySet repeated_keys_;
  std::int64_t rows_of_same_key_ = 0;
  bool has_points_ = false;
  bool has_texts_ = false;
};

}  // namespace App
