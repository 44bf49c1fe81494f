#pragma once

#include <array>
#include <cstdint>

namespace App {

/// The number that eight bytes in DEC D-float form hold, rounded to the nearest double. Nothing is lost of a
/// number that a double can hold at all.
[[nodiscard]] double DecodeDFloat(const char* bytes) noexcept;

/// The four words of a number in DEC D-float form, in the order of the file. Unlike what the library stores,
/// every bit of the number is kept. A number too small for the form, or one that is none, is 0; one that is
/// too large is the largest of its sign.
[[nodiscard]] std::array<std::uint16_t, 4> DFloatWords(double value) noexcept;

}  // namespace App
