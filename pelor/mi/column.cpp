#include <pelor/mi/column.h>

#include <atomic>
#include <string>
#include <utility>

namespace Pelor::MI {

namespace {

Tobri::String NextDefaultName() {
  static std::atomic<std::uint64_t> count{0};
  return "COL" + std::to_string(count.fetch_add(1, std::memory_order_relaxed) % 9999 + 1);
}

}  // namespace

Column::Column() : Column(NextDefaultName(), Character_t(), 1, kWidthNotGiven) {}

Column::Column(Tobri::String column_name, Character_t, int column_width, unsigned short column_flags)
    : name(std::move(column_name)), type(Character), width(column_width), flags(column_flags) {
  if (width < 1) {
    width = 1;
    flags |= kWidthNotGiven;
  }
}

Column::Column(Tobri::String column_name, Decimal_t, int column_width, int column_decimals,
               unsigned short column_flags)
    : Column(std::move(column_name), Character_t(), column_width, column_flags) {
  type = Decimal;
  decimals = column_decimals;
}

Column::Column(FixedWidth, Tobri::String&& column_name, Type column_type, int column_width,
               unsigned short column_flags)
    : name(std::move(column_name)),
      type(column_type),
      width(column_width),
      flags(static_cast<std::uint16_t>(column_flags & ~kWidthNotGiven)) {}

Column::Column(Tobri::String column_name, Integer_t, unsigned short column_flags)
    : Column(FixedWidth(), std::move(column_name), Integer, 4, column_flags) {}

Column::Column(Tobri::String column_name, SmallInt_t, unsigned short column_flags)
    : Column(FixedWidth(), std::move(column_name), SmallInt, 2, column_flags) {}

// The widths of Float and Date are this library's own, neither the bytes of the value nor of its text.
Column::Column(Tobri::String column_name, Float_t, unsigned short column_flags)
    : Column(FixedWidth(), std::move(column_name), Float, 4, column_flags) {}

Column::Column(Tobri::String column_name, Date_t, unsigned short column_flags)
    : Column(FixedWidth(), std::move(column_name), Date, 6, column_flags) {}

Column::Column(Tobri::String column_name, Logical_t, unsigned short column_flags)
    : Column(FixedWidth(), std::move(column_name), Logical, 1, column_flags) {}

}  // namespace Pelor::MI
