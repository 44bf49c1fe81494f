#include "app/design/csv_table.h"

#include "app/io/output_files.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace App {

namespace MI = Pelor::MI;

namespace {

constexpr std::size_t kBufferBytes = 1U << 18U;

/// A name that no column has, whatever its case.
std::string KeyName(std::span<const MI::Column> columns) {
  const auto is_taken = [&](const std::string& name) {
    return std::any_of(columns.begin(), columns.end(), [&](const MI::Column& column) {
      return std::string_view(Tobri::LocStr::LowerCase(column.name)) == name;
    });
  };
  const std::string wanted = "mslink";
  std::string name = wanted;
  for (int i = 2; is_taken(name); ++i) name = wanted + std::to_string(i);
  return name;
}

}  // namespace

CsvTable::CsvTable(const std::filesystem::path& path, std::filesystem::path name,
                   std::span<const MI::Column> columns)
    : name_(std::move(name)), out_(path, std::ios::binary | std::ios::trunc), columns_(columns.size()) {
  ThrowIfNotWritten(out_, name_);
  AppendField(KeyName(columns));
  for (const MI::Column& column : columns) {
    buffer_ += ',';
    AppendField(column.name);
  }
  EndLine();
}

void CsvTable::Add(std::optional<std::uint32_t> key, std::span<const Tobri::String> values) {
  if (key) {
    std::array<char, 16> digits{};
    buffer_.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), *key).ptr);
  }
  for (std::size_t i = 0; i < columns_; ++i) {
    buffer_ += ',';
    if (i < values.size()) AppendField(values[i]);
  }
  EndLine();
}

void CsvTable::Close() {
  Flush();
  out_.close();
  ThrowIfNotWritten(out_, name_);
}

void CsvTable::AppendField(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
    buffer_ += text;
    return;
  }
  buffer_ += '"';
  for (const char c : text) {
    if (c == '"') buffer_ += '"';
    buffer_ += c;
  }
  buffer_ += '"';
}

void CsvTable::EndLine() {
  buffer_ += "\r\n";
  if (buffer_.size() >= kBufferBytes) Flush();
}

void CsvTable::Flush() {
  out_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
  ThrowIfNotWritten(out_, name_);
  buffer_.clear();
}

}  // namespace App
