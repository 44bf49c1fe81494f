#pragma once

#include "app/design/working_units.h"
#include <pelor/mi.h>

namespace App {

/// Takes the measures of the objects that a design is to hold, which must be known before its units are. Who
/// writes a design reads the source twice: so memory stays constant, and no temporary copy is needed.
class DesignExtent {
 public:
  void Add(const Pelor::MI::WObjBody& object);
  [[nodiscard]] const MapMeasure& Measure() const noexcept { return measure_; }
  [[nodiscard]] const Vanth::BoundsXY& Get() const noexcept { return measure_.extent; }

 private:
  void Add(const Vanth::PointXY& point);

  MapMeasure measure_{.extent = {}, .decimals = 0, .letter = 0.0};
};

}  // namespace App
