#pragma once

#include <pelor/base/export.h>
#include <pelor/base/string.h>

#include <cstdint>

namespace Pelor::MI {

// Tags that choose the constructor of a column.
// clang-format off
struct Character_t { explicit Character_t() = default; };
struct Integer_t { explicit Integer_t() = default; };
struct SmallInt_t { explicit SmallInt_t() = default; };
struct Decimal_t { explicit Decimal_t() = default; };
struct Float_t { explicit Float_t() = default; };
struct Date_t { explicit Date_t() = default; };
struct Logical_t { explicit Logical_t() = default; };
// clang-format on

/// The definition of an attribute column.
class PELOR_EXPORT Column {
 public:
  enum Type : std::int32_t {
    Character = 0,
    Integer = 1,
    SmallInt = 2,
    Decimal = 3,
    Float = 4,
    Date = 5,
    Logical = 6,
  };

  /// The flag of a column whose width was not given. The other flags are kept as given.
  static constexpr std::uint16_t kWidthNotGiven = 4;

  /// A character column without a width, named "COL" and the next number of this process, 1 to 9999 and over
  /// again. Meant for one thread at a time: two threads get two numbers, but in no certain order.
  Column();

  /// A width below 1 becomes 1 and sets kWidthNotGiven; a width that is given does not clear it.
  Column(Tobri::String column_name, Character_t, int column_width, unsigned short column_flags);
  Column(Tobri::String column_name, Decimal_t, int column_width, int column_decimals,
         unsigned short column_flags);

  /// The types of a fixed width clear kWidthNotGiven.
  Column(Tobri::String column_name, Integer_t, unsigned short column_flags);
  Column(Tobri::String column_name, SmallInt_t, unsigned short column_flags);
  Column(Tobri::String column_name, Float_t, unsigned short column_flags);
  Column(Tobri::String column_name, Date_t, unsigned short column_flags);
  Column(Tobri::String column_name, Logical_t, unsigned short column_flags);

  friend bool operator==(const Column&, const Column&) noexcept = default;

  Tobri::String name;
  std::int32_t type = Character;
  std::int32_t width = 1;     ///< characters of a Character or Decimal, a fixed number for every other type
  std::int32_t decimals = 0;  ///< of a Decimal column
  std::uint16_t flags = 0;    ///< kWidthNotGiven and others, carried unchanged

 private:
  struct FixedWidth {};
  Column(FixedWidth, Tobri::String&& column_name, Type column_type, int column_width,
         unsigned short column_flags);
};

}  // namespace Pelor::MI
