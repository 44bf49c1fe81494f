#pragma once

#include "app/design/element_view.h"
#include "app/inspect/extent.h"
#include "app/inspect/finding.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace App {

/// Takes what is wrong with the element at hand.
using ElementReport = std::function<void(Severity severity, std::string_view code, std::string sentence)>;

/// Looks for what is wrong with one whole element by itself: its type, its header, the counts in its body,
/// its attributes.
void CheckElement(const ElementView& element, const ElementReport& report);

/// Whether the element's range holds `extent`, up to the rounding of fractions of a unit.
void CheckRange(const ElementView& element, const Extent& extent, const ElementReport& report);

/// Where a component of a chain begins and ends, in units of resolution.
struct Course {
  Vanth::PointXY begin;
  Vanth::PointXY end;
};

/// Nothing for elements whose ends are not stored.
[[nodiscard]] std::optional<Course> CourseOf(const ElementView& element);

}  // namespace App
