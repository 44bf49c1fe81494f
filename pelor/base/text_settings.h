#pragma once

#include <pelor/base/char_set.h>
#include <pelor/base/export.h>
#include <pelor/base/handle.h>

namespace Tobri {

/// How the values of a text stand apart.
struct PELOR_EXPORT TxtSeparators {
  IRefC<ChrS<char>> separators;  ///< characters that end a value; null for none
  IRefC<ChrS<char>> whitespace;  ///< characters that are skipped around values; null for none
  char principal = ',';          ///< the separator to write
  /// Records of fields: every separator ends a field, fields may be empty, and a field runs up to the
  /// separator or the line end, whatever stands in it. Otherwise values are words, and brackets end them too.
  bool fields = false;

  /// Blank, tab, CR, LF, VT and FF.
  [[nodiscard]] static IRefC<ChrS<char>> DefWS();
  /// The comma.
  [[nodiscard]] static IRefC<ChrS<char>> DefSepS();
};

/// How values are quoted. A value is quoted when it begins with one of the quote characters; the same
/// character ends it, and line ends within belong to it.
class TxtQuotes {
 public:
  /// No quotes.
  TxtQuotes() = default;
  /// `quotes` are the quote characters and `principal` the one to write. `escape`, unless 0, takes the
  /// special meaning from the character behind it. With `doubled`, two quote characters in a row inside stand
  /// for one. With `line_ends_close`, a line end closes an open quote.
  TxtQuotes(const IRefC<ChrS<char>>& quotes, char principal, char escape, bool doubled, bool line_ends_close)
      : quotes_(quotes),
        principal_(principal),
        escape_(escape),
        doubled_(doubled),
        line_ends_close_(line_ends_close) {}

  [[nodiscard]] const IRefC<ChrS<char>>& Characters() const noexcept { return quotes_; }
  [[nodiscard]] char Principal() const noexcept { return principal_; }
  [[nodiscard]] char Escape() const noexcept { return escape_; }
  [[nodiscard]] bool Doubled() const noexcept { return doubled_; }
  [[nodiscard]] bool LineEndsClose() const noexcept { return line_ends_close_; }

 private:
  IRefC<ChrS<char>> quotes_;
  char principal_ = 0;
  char escape_ = 0;
  bool doubled_ = false;
  bool line_ends_close_ = false;
};

/// Comments run from `open` to `close`; both 0 when there are none.
struct TxtComments {
  char open = 0;
  char close = 0;

  friend bool operator==(const TxtComments&, const TxtComments&) = default;
};

}  // namespace Tobri
