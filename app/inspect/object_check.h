#pragma once

#include "app/inspect/charset_check.h"
#include "app/inspect/pair_header_check.h"
#include "app/inspect/pair_report.h"
#include <pelor/mif.h>

#include <cstdint>

namespace App {

/// Reads the objects of a MIF file from behind its header up to its end, reports what is wrong with them, and
/// gives the number of those that have a row.
[[nodiscard]] std::int64_t CheckObjects(Tobri::IxText& in, const PairHeader& header, CharsetCheck& charset,
                                        const PairReport& report);

}  // namespace App
