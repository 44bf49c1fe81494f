#pragma once

#include "app/design/design_header.h"
#include "app/design/element_cursor.h"
#include "app/inspect/extent.h"
#include "app/io/input_kind.h"

#include <nlohmann/json_fwd.hpp>

#include <array>
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <map>
#include <string>

namespace App {

/// What is in a design file.
struct DesignInfo {
  static constexpr std::size_t kTypes = 128;
  static constexpr std::size_t kLevels = 64;

  struct TypeCount {
    std::int64_t count = 0;  ///< deleted ones included
    std::int64_t deleted = 0;
  };

  std::filesystem::path file;
  std::int64_t bytes = 0;
  DesignHeader header;
  /// Of all that is not deleted, in units of resolution.
  Extent extent;

  std::int64_t elements = 0;  ///< all: deleted ones and components included
  std::int64_t deleted = 0;
  std::int64_t components = 0;
  std::array<TypeCount, kTypes> types;
  /// Displayable elements that are not deleted, components included.
  std::array<std::int64_t, kLevels> levels{};
  /// Cells that are not deleted, by name; the empty name is that of unnamed ones.
  std::map<std::string, std::int64_t> cells;
  /// Texts that are not deleted and hold bytes beyond ASCII, so that their character set matters.
  std::int64_t texts_beyond_ascii = 0;

  /// Database linkages, by entity number.
  std::map<std::uint16_t, std::int64_t> database_linkages;
  std::int64_t fill_linkages = 0;
  /// Other linkages, by the number of their application.
  std::map<std::uint16_t, std::int64_t> user_linkages;

  bool has_color_table = false;
  ElementCursor::End ending = ElementCursor::End::kNone;
  /// Of the end-of-design word, of where it should stand, or of the element that is cut off.
  std::int64_t end_offset = 0;
};

/// Reads the whole file. Throws `Failure`.
[[nodiscard]] DesignInfo ReadDesignInfo(const Input& input);

void Print(const DesignInfo& info, std::ostream& out);
[[nodiscard]] nlohmann::ordered_json ToJson(const DesignInfo& info);

}  // namespace App
