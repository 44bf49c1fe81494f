#pragma once

#include <cstdint>

namespace Pelor::MI {

/// A colour, 0x00BBGGRR: red in the low byte. A negative number, where a field allows it, is no colour at
/// all: transparent.
using Color = std::int32_t;

}  // namespace Pelor::MI
