#pragma once

#include <pelor/mi.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace App {

/// Writes a table of rows as comma-separated values: UTF-8, lines ended by CR and LF, fields quoted where
/// they hold a comma, a quote or a line end. The first column is the key that the elements of a design carry
/// in their database linkages. Throws `Failure` when the file cannot be written.
class CsvTable {
 public:
  /// Writes the line of the column names. The key's column is "mslink", with a number behind it if the table
  /// has a column of that name.
  /// Messages call the file `name`.
  CsvTable(const std::filesystem::path& path, std::filesystem::path name,
           std::span<const Pelor::MI::Column> columns);

  /// Missing values are empty, and so is a missing key; values beyond the columns are left out.
  void Add(std::optional<std::uint32_t> key, std::span<const Tobri::String> values);
  /// Nothing may be added any more.
  void Close();

 private:
  void AppendField(std::string_view text);
  void EndLine();
  void Flush();

  std::filesystem::path name_;
  std::ofstream out_;
  std::string buffer_;
  std::size_t columns_;
};

}  // namespace App
