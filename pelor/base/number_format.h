#pragma once

#include <pelor/base/export.h>

#include <cstddef>
#include <iosfwd>

namespace Tobri {

/// The most significant digits that FormatGeneral gives: enough to read every double back unchanged.
inline constexpr int kMaxPrecision = 17;

/// The room FormatGeneral needs. It may write beyond the end of its text, but never beyond this.
inline constexpr std::size_t kGeneralSize = 32;

/// Writes `value` with `precision` significant digits to the kGeneralSize characters at `first` and gives the
/// end of the text: what a stream of the classic locale prints in general format, digit for digit (the exact
/// binary value, halves to the even digit, trailing zeros dropped; "inf" and "nan" with their sign).
/// A precision of 0 counts as 1, as in a stream; it must not be negative nor above kMaxPrecision.
PELOR_EXPORT char* FormatGeneral(char* first, double value, int precision) noexcept;

/// Puts a number as `out << value` would in the classic locale, whatever the stream's own locale: with the
/// stream's precision, base, width, fill and flags. Without the stream's help, and several times as fast, in
/// general format at up to kMaxPrecision digits, or for a plain decimal whole number. A short write sets the
/// stream's badbit.
PELOR_EXPORT void PutDouble(std::ostream& out, double value);
PELOR_EXPORT void PutInteger(std::ostream& out, int value);
PELOR_EXPORT void PutInteger(std::ostream& out, unsigned value);
PELOR_EXPORT void PutInteger(std::ostream& out, long value);
PELOR_EXPORT void PutInteger(std::ostream& out, unsigned long value);

}  // namespace Tobri
