#pragma once

#include <pelor/base/export.h>

#include <iosfwd>

namespace Pelor::DGN {

/// Lists the next `count` bytes of `in` in hexadecimal, sixteen to a row, " EOF!" where they end too early.
/// Leaves `out` in decimal with the fill character '0'.
PELOR_EXPORT void HexDump(std::ostream& out, std::istream& in, unsigned count);

}  // namespace Pelor::DGN
