#pragma once

#include <pelor/mi.h>

#include <string>

namespace App {

/// What a coordinate system is, for people: "UTM zone 32, datum 104 (WGS 84), in m".
[[nodiscard]] std::string InWords(const Pelor::MI::CoordSys& system);

/// The clause by which a MIF file gives the system.
[[nodiscard]] std::string ClauseOf(const Pelor::MI::CoordSys& system);

}  // namespace App
