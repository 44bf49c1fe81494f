#pragma once

#include "app/inspect/pair_report.h"
#include <pelor/mi.h>
#include <pelor/mif.h>

#include <string>
#include <vector>

namespace App {

/// What of a pair's header its objects and rows depend on.
struct PairHeader {
  std::string charset;
  char delimiter = '\t';
  Tobri::IRefC<Pelor::MI::CoordSys> system;
  std::vector<Pelor::MI::Column> columns;
  /// By column: its type is known, so that its values can be held against it.
  std::vector<bool> has_known_type;
};

/// Reads the header of a MIF file, reports what is wrong with it and goes on behind it. False when there is
/// no end to it, so that there are no objects.
[[nodiscard]] bool CheckPairHeader(Tobri::IxText& in, PairHeader& header, const PairReport& report);

}  // namespace App
