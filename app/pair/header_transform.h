#pragma once

#include <pelor/mi.h>

namespace App {

/// Makes factors of 0, which stand for axes that are not scaled, 1. Whether there were any.
[[nodiscard]] bool ReplaceUnusedFactors(Pelor::MI::Transform& transform) noexcept;

/// Applies the transform to the object as its header means it. The library's own way scales both axes of
/// boxes alike and leaves mirrored ones as they come.
void ApplyTransform(Pelor::MI::WObjBody& object, const Pelor::MI::Transform& transform);

}  // namespace App
