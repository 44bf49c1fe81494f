#include <pelor/mi/object_type.h>

#include <array>
#include <cstddef>

namespace Pelor::MI {

namespace {

constexpr std::array<std::int32_t, 5> kStyles{0, StyleBit_Symbol, StyleBit_Pen, StyleBit_Pen | StyleBit_Brush,
                                              StyleBit_Font};

constexpr std::array<std::int32_t, 10> kClasses{
    WObjClass_None,   WObjClass_Point, WObjClass_Linear, WObjClass_Linear, WObjClass_Area,
    WObjClass_Linear, WObjClass_Text,  WObjClass_Area,   WObjClass_Area,   WObjClass_Area};

constexpr std::array<std::int32_t, 17> kWObjTypes{0, 1, 2, 3, 5, 4, 6, 7, 8, 9, 0, 0, 0, 3, 1, 1, 45};

constexpr std::int32_t kMObjTypeCount = 46;

/// The entry of a table, its first one for an index outside it.
template <std::size_t N>
constexpr std::int32_t LookUp(const std::array<std::int32_t, N>& table, std::int32_t index) noexcept {
  return index >= 0 && static_cast<std::size_t>(index) < N ? table[static_cast<std::size_t>(index)]
                                                           : table[0];
}

}  // namespace

int StylesSet(WObjClass c) noexcept {
  return LookUp(kStyles, c);
}

WObjClass GetWObjClass(WObjType t) noexcept {
  return static_cast<WObjClass>(LookUp(kClasses, t));
}

MObjClass GetMObjClass(MObjType t) noexcept {
  return static_cast<MObjClass>(t == 0 ? 0 : t / 3 + 1);
}

int GetMObjStorage(MObjType t) noexcept {
  return t > 0 && t < kMObjTypeCount ? (t - 1) % 3 + 1 : 0;
}

WObjType GetWObjType(MObjClass c) noexcept {
  return static_cast<WObjType>(LookUp(kWObjTypes, c));
}

}  // namespace Pelor::MI
