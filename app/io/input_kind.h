#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace App {

enum class InputKind {
  kDesign2D,
  kDesign3D,
  kPair,
};

/// A file that the program can read.
struct Input {
  InputKind kind = InputKind::kDesign2D;
  /// The design file, or the pair's MIF file.
  std::filesystem::path path;
  /// The pair's MID file; empty when there is none.
  std::filesystem::path mid;

  [[nodiscard]] bool IsDesign() const noexcept { return kind != InputKind::kPair; }
};

/// Recognises a file by what it holds, and where that does not tell, by its extension. A pair may be named by
/// either of its files, and the other one is found whatever the case of its extension. Throws `Failure` with
/// the reason for everything that the program cannot read, from a missing file to a version 8 design.
[[nodiscard]] Input RecogniseInput(const std::filesystem::path& name);

/// The extension in lower case, with its dot.
[[nodiscard]] std::string LowerExtension(const std::filesystem::path& name);

/// The file beside `name` that has its stem and the given lower-case extension, in any case; empty when there
/// is none.
[[nodiscard]] std::filesystem::path FindCompanion(const std::filesystem::path& name,
                                                  std::string_view extension);

}  // namespace App
