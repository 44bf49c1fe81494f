#pragma once

#include <pelor/base/export.h>
#include <pelor/base/string.h>

namespace Tobri {

/// Grouping of the digits of a whole number.
struct NumFmtGrp {
  /// The largest number of digits in a group.
  static constexpr int max_grouping = 9;
};

/// Format of a whole number.
struct IntFmt {
  int base = 10;     ///< 2 to 36; anything else counts as 10
  int grouping = 0;  ///< digits between two commas, up to NumFmtGrp::max_grouping; 0 for no commas
};

/// Format of a floating-point number.
struct FltFmt {
  int precision = 0;  ///< significant digits, 1 to 17; 0 for as many as reading the value back needs
};

/// Numbers as texts. Get ignores blanks (space, tab, line ends) around the number and takes a leading plus; a
/// text that is no number of the type from end to end, or one out of range, gives 0. With a grouping set, it
/// skips commas between digits. Nothing here follows the process's locale.
template <class T>
struct TxtFmt;

template <>
struct PELOR_EXPORT TxtFmt<int> {
  [[nodiscard]] static int Get(const String& text, IntFmt format) noexcept;
  [[nodiscard]] static String Put(int value, IntFmt format);
};

/// A long stands for a signed 32-bit quantity: what does not fit in 32 bits is out of range for Get, and Put
/// takes the low 32 bits.
template <>
struct PELOR_EXPORT TxtFmt<long> {
  [[nodiscard]] static long Get(const String& text, IntFmt format) noexcept;
  [[nodiscard]] static String Put(long value, IntFmt format);
};

/// What is too small for a double gives 0 with its sign; infinities and NaN are put as words, but not read.
template <>
struct PELOR_EXPORT TxtFmt<double> {
  [[nodiscard]] static double Get(const String& text, FltFmt format) noexcept;
  [[nodiscard]] static String Put(double value, FltFmt format);
};

}  // namespace Tobri
