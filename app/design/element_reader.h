#pragma once

#include "app/design/design_header.h"
#include "app/design/element_view.h"
#include "app/io/input_kind.h"
#include "app/io/library_name.h"
#include <pelor/dgn.h>

#include <cstdint>
#include <vector>

namespace App {

/// Reads the elements of a design one by one with all their bytes: components, deleted elements and the last,
/// cut one, too. Memory is that of the largest element.
class ElementReader {
 public:
  /// How the elements end.
  enum class Ending {
    kEndWord,    ///< with the end-of-design word, as they should
    kNoEndWord,  ///< behind a whole element
    kCutOff,     ///< inside an element
  };

  /// Throws `Failure` when the file cannot be opened.
  explicit ElementReader(const Input& input);

  [[nodiscard]] const DesignHeader& Header() const noexcept { return header_; }
  [[nodiscard]] std::int64_t FileLength() const noexcept { return file_.FileLength(); }

  /// Goes to the first element, and from then on to the next one; false at the end. An interrupt throws.
  [[nodiscard]] bool Next();

  /// The present element; good until the next one. One that the file cuts off is not whole.
  [[nodiscard]] const ElementView& View() const noexcept { return view_; }
  /// Its number, from 1, and its byte offset.
  [[nodiscard]] std::int64_t Number() const noexcept { return number_; }
  [[nodiscard]] std::int64_t Offset() const noexcept { return offset_; }

  /// Once `Next` was false: how the elements ended, and the byte offset behind the last one.
  [[nodiscard]] Ending GetEnding() const noexcept { return ending_; }
  [[nodiscard]] std::int64_t EndOffset() const noexcept { return next_offset_; }

 private:
  void ReadBytes(std::size_t size);

  LibraryName name_;
  Pelor::DGN::File file_;
  DesignHeader header_;
  std::vector<char> bytes_;
  ElementView view_;
  std::int64_t number_ = 0;
  std::int64_t offset_ = 0;
  std::int64_t next_offset_ = 0;
  Ending ending_ = Ending::kNoEndWord;
};

}  // namespace App
