#include "app/picture/curves.h"

namespace App {

ArcSpan GetArcSpan(const Pelor::MI::WArcBody& arc) {
  using Vanth::Angle;
  constexpr double kTurn = 2 * std::numbers::pi;
  const double start = arc.GetStartAngle()(Angle::Radians, Angle::AsStored);
  const double end = arc.GetEndAngle()(Angle::Radians, Angle::AsStored);
  double sweep = std::fmod(end - start, kTurn);
  if (sweep <= 0) sweep += kTurn;
  return {start, sweep};
}

}  // namespace App
