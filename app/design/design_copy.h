#pragma once

#include "app/convert/account.h"
#include "app/convert/number_set.h"
#include "app/design/component_run.h"
#include "app/design/design_header.h"
#include "app/design/design_output.h"
#include "app/design/element_cursor.h"
#include "app/io/input_kind.h"
#include "app/io/output_files.h"
#include <pelor/mi.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>

namespace App {

/// Which elements of a design go into its copy; by default all but the deleted ones.
struct DesignCopyOptions {
  NumberSet types = NumberSet::All();
  NumberSet levels = NumberSet::All();
  NumberSet classes = NumberSet::All();
  DesignUnits units = DesignUnits::kMaster;  ///< of the window
  std::optional<Vanth::BoundsXY> window;     ///< what touches it is chosen
  bool with_deleted = false;
};

/// Copies a design element by element, each with all its bytes, in two dimensions or three. A complex element
/// is copied or left out with all its components: its header decides, and it counts as one element. A cell is
/// on every level that its header names. What holds settings instead of graphics is always copied.
class DesignCopy {
 public:
  /// `files` has the input already; the copy commits it. Throws `Failure` when the input cannot be opened or
  /// the output not be made.
  DesignCopy(const Input& input, const std::filesystem::path& output, std::unique_ptr<OutputFiles> files,
             const DesignCopyOptions& options);

  /// Copies the next element; false at the end.
  [[nodiscard]] bool Next(Account& account);
  /// Whether something with graphics was copied so far.
  [[nodiscard]] bool HasGraphics() const noexcept { return has_graphics_; }
  /// Nothing stands under the output's name before.
  void Close();

  /// Bytes read so far, and in all.
  [[nodiscard]] std::int64_t Current() const noexcept { return cursor_.Current(); }
  [[nodiscard]] std::int64_t Total() const noexcept { return cursor_.Total(); }

 private:
  [[nodiscard]] std::string_view WhyLeftOut(const ElementView& element) const;
  [[nodiscard]] bool IsOnChosenLevel(const ElementView& element) const;
  [[nodiscard]] bool IsInWindow(const ElementView& element) const;

  DesignCopyOptions options_;
  std::unique_ptr<OutputFiles> files_;
  ElementCursor cursor_;
  DesignScale scale_;
  DesignOutput out_;
  bool has_graphics_ = false;
};

}  // namespace App
