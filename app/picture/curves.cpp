#include "app/picture/curves.h"

#include "app/convert/arc_sweep.h"

namespace App {

ArcSpan GetArcSpan(const Pelor::MI::WArcBody& arc) {
  using Vanth::Angle;
  return {arc.GetStartAngle()(Angle::Radians, Angle::AsStored),
          ArcSweepDegrees(arc) * (std::numbers::pi / 180.0)};
}

}  // namespace App
