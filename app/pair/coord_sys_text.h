#pragma once

#include <pelor/mi.h>

#include <string_view>

namespace App {

/// Reads a coordinate system clause as users write it, with or without the word CoordSys. Throws `Failure`
/// with the place for anything else, also for units that nobody knows and for what follows the clause.
[[nodiscard]] Tobri::IRefC<Pelor::MI::CoordSys> ParseCoordSys(std::string_view clause);

/// Throws `Failure` when no reader would understand the clause that is written for the system.
void ThrowIfNotWritable(const Pelor::MI::CoordSys& system);

/// Whether the clause that is written says the same system: its numbers have ten digits.
[[nodiscard]] bool IsWrittenExactly(const Pelor::MI::CoordSys& system);

}  // namespace App
