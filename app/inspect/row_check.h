#pragma once

#include "app/inspect/charset_check.h"
#include "app/inspect/pair_header_check.h"
#include "app/inspect/pair_report.h"
#include <pelor/base.h>

#include <cstdint>

namespace App {

struct RowCount {
  std::int64_t rows = 0;
  /// So many rows more may be meant by the empty lines at the end: in a table of one column they can be
  /// values.
  std::int64_t empty_at_end = 0;

  [[nodiscard]] bool Fits(std::int64_t objects) const noexcept {
    return rows <= objects && objects <= rows + empty_at_end;
  }
};

/// Reads the rows of a MID file, reports what is wrong with them, and counts them.
[[nodiscard]] RowCount CheckRows(Tobri::IxText& in, const PairHeader& header, CharsetCheck& charset,
                                 const PairReport& report);

}  // namespace App
