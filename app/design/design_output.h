#pragma once

#include "app/design/element_bytes.h"

#include <cstdint>
#include <filesystem>
#include <fstream>

namespace App {

/// Writes a design file through a buffer of elements. Throws `Failure` when it cannot.
class DesignOutput {
 public:
  /// `name` is what messages call the file.
  DesignOutput(const std::filesystem::path& path, std::filesystem::path name);

  /// Where elements are appended.
  [[nodiscard]] ElementBytes& Bytes() noexcept { return bytes_; }
  /// Of the byte that comes next.
  [[nodiscard]] std::int64_t Position() const noexcept {
    return written_ + static_cast<std::int64_t>(bytes_.Size());
  }
  /// To be called between top-level elements: keeps the buffer small.
  void FlushIfFull() {
    if (bytes_.Size() >= kBufferBytes) Flush();
  }
  /// Appends the first `count` bytes of another file.
  void CopyFrom(const std::filesystem::path& file, std::int64_t count);
  /// Writes the end word and fills up the last block of the file. Then nothing may be appended any more.
  void Finish();
  /// Replaces bytes of the finished file.
  void Replace(std::int64_t position, const ElementBytes& bytes);
  void Close();

 private:
  static constexpr std::size_t kBufferBytes = 1U << 18U;

  void Flush();

  std::filesystem::path name_;
  std::ofstream out_;
  ElementBytes bytes_;
  std::int64_t written_ = 0;
};

}  // namespace App
