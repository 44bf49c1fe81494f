#pragma once

#include "app/convert/conversion.h"
#include "app/convert/plan.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace App {

/// The options of `pelor convert` that say how files are converted, as they stand on the command line.
class ConvertArguments {
 public:
  /// Adds the options to the command. This object must live as long as the command does.
  void AddTo(CLI::App& command);

  /// What the options mean. Throws `Failure` for values that make no sense, and for options that none of the
  /// planned files has a use for.
  [[nodiscard]] ConvertOptions Read(std::span<const PlannedFile> files) const;

 private:
  // What an option has to do with.
  enum class Use : std::uint8_t {
    kFromDesign,
    kDesignToPair,
    kPairToDesign,
    kToPair,
    kBetweenKinds,
    kWithPairs,
  };
  struct Limited {
    const CLI::Option* option;
    Use use;
  };

  CLI::Option* Add(CLI::App& command, Use use, const std::string& name, std::string& value,
                   const std::string& help, const std::string& type);
  [[nodiscard]] static bool Applies(Use use, const PlannedFile& file);
  void ThrowIfUseless(std::span<const PlannedFile> files) const;
  void ReadSelection(ConvertOptions& options) const;
  void ReadFromDesign(ConvertOptions& options) const;
  void ReadToDesign(ConvertOptions& options) const;
  void ReadToPair(ConvertOptions& options) const;

  std::vector<Limited> limited_;
  std::string levels_;
  std::string types_;
  std::string classes_;
  std::string window_;
  bool with_deleted_ = false;
  std::string columns_;
  std::string units_;
  std::string coordsys_;
  std::string tolerance_;
  std::string arcs_;
  std::string cells_;
  std::string charset_in_;
  std::string charset_out_;
  std::string version_;
  std::string delimiter_;
  std::string uor_;
  std::string unit_;
  std::string origin_;
  std::string seed_;
  std::string key_;
  std::string set_level_;
  std::string level_column_;
  std::string set_color_;
  std::string color_column_;
};

}  // namespace App
