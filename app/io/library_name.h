#pragma once

#include "app/io/input_kind.h"

#include <filesystem>

namespace App {

/// The name by which the library opens an input. The library adds an extension to a design file that has
/// none, and wants both files of a pair, with their extensions in small letters. Where an input is not like
/// that, the name is a symbolic link in a temporary folder, beside an empty MID file where there is none; the
/// folder goes when the object does.
class LibraryName {
 public:
  /// Throws `Failure` when the temporary folder cannot be made.
  explicit LibraryName(const Input& input);
  LibraryName(const LibraryName&) = delete;
  LibraryName& operator=(const LibraryName&) = delete;
  ~LibraryName();

  [[nodiscard]] const std::filesystem::path& Get() const noexcept { return name_; }

 private:
  void MakeFolder();

  std::filesystem::path name_;
  std::filesystem::path folder_;  // empty when there is none
};

}  // namespace App
