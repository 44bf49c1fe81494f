#pragma once

#include <pelor/base/export.h>

#include <cstdint>

namespace Pelor::MI {

/// The kind of an object's body.
enum WObjType : std::int32_t {
  WObjType_None = 0,
  WObjType_Point = 1,
  WObjType_Line = 2,
  WObjType_PLine = 3,
  WObjType_Region = 4,
  WObjType_Arc = 5,
  WObjType_Text = 6,
  WObjType_Rect = 7,
  WObjType_RRect = 8,
  WObjType_Ellipse = 9,
};

/// The style class of an object.
enum WObjClass : std::int32_t {
  WObjClass_None = 0,
  WObjClass_Point = 1,
  WObjClass_Linear = 2,
  WObjClass_Area = 3,
  WObjClass_Text = 4,
};

/// The object type code of a map file, 0 to 45; up to three storage variants of one class follow each other.
enum MObjType : std::int32_t {};

/// The class that such a code belongs to, 0 to 16.
enum MObjClass : std::int32_t {};

/// The styles that an object carries, as bits of a set.
enum StyleBit : std::int32_t {
  StyleBit_Symbol = 1,
  StyleBit_Pen = 2,
  StyleBit_Brush = 4,
  StyleBit_Font = 8,
};

// Numbers outside an enumeration are answered as 0 is, unless a function says otherwise.

/// The set of styles that objects of a class carry, from StyleBit.
[[nodiscard]] PELOR_EXPORT int StylesSet(WObjClass c) noexcept;

[[nodiscard]] PELOR_EXPORT WObjClass GetWObjClass(WObjType t) noexcept;

/// The class of any code but 0 is t / 3 + 1, beyond 45, too.
[[nodiscard]] PELOR_EXPORT MObjClass GetMObjClass(MObjType t) noexcept;

/// Which of the three storage variants of its class a code is: 1 to 3.
[[nodiscard]] PELOR_EXPORT int GetMObjStorage(MObjType t) noexcept;

/// The kind of body that objects of a map-file class become. Class 16 gives 45, which is not a WObjType; it
/// is passed on as it is, by intent.
[[nodiscard]] PELOR_EXPORT WObjType GetWObjType(MObjClass c) noexcept;

}  // namespace Pelor::MI
