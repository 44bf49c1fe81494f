#pragma once

#include "app/convert/account.h"
#include "app/design/element_view.h"
#include "app/io/input_kind.h"
#include "app/io/library_name.h"
#include <pelor/dgn.h>

#include <cstdint>
#include <filesystem>
#include <vector>

namespace App {

/// Walks over a design file. Every element is read once, as a whole, into the same memory.
class ElementCursor {
 public:
  /// How the elements end.
  enum class End : std::uint8_t {
    kNone,     ///< they have not ended yet
    kEndWord,  ///< as they should
    kNoEndWord,
    kCutOff,  ///< inside the last element, which is delivered as far as it goes
  };

  /// Opens the file; throws `Failure` when that cannot be done.
  explicit ElementCursor(const Input& input);

  [[nodiscard]] Pelor::DGN::File& File() noexcept { return file_; }
  void SetIs3D(bool is_3d) noexcept { is_3d_ = is_3d; }

  /// True when there is a current element: the one that was not taken yet, or else the next one.
  [[nodiscard]] bool Peek();
  /// Whether the file ends before `position`, as far as its elements are whole.
  [[nodiscard]] bool EndsBefore(std::int64_t position) {
    const bool goes_on = Peek() && element_.IsWhole();
    return !goes_on && position > place_.position;
  }
  /// Goes past the current element.
  void Take() noexcept { has_element_ = false; }
  /// Goes back to the begin.
  void Restart() noexcept;
  /// Goes on with the element at this place, which has been the current one before.
  void Return(const Place& place);

  /// The current element; its bytes are good until the next Peek behind a Take.
  [[nodiscard]] const ElementView& Element() const noexcept { return element_; }
  [[nodiscard]] Place GetPlace() const noexcept { return place_; }
  /// Byte offset behind the current element.
  [[nodiscard]] std::int64_t NextPosition() const noexcept {
    return place_.position + static_cast<std::int64_t>(element_.Bytes().size());
  }

  [[nodiscard]] End GetEnd() const noexcept { return end_; }
  [[nodiscard]] std::int64_t Current() const noexcept { return place_.position; }
  [[nodiscard]] std::int64_t Total() const noexcept { return file_.FileLength(); }

 private:
  void Load();
  void Stop(End end) noexcept;
  [[nodiscard]] bool IsFillerToTheEnd(std::int64_t position);

  LibraryName library_name_;
  std::filesystem::path name_;
  Pelor::DGN::File file_;
  std::vector<char> buffer_;
  ElementView element_;
  Place place_;
  End end_ = End::kNone;
  bool is_3d_ = false;
  bool has_element_ = false;
  bool is_at_begin_ = true;
  std::int64_t filler_checked_to_ = 0;
};

}  // namespace App
