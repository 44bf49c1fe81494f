#include "app/convert/arc_sweep.h"

#include <cmath>

namespace App {

double ArcSweepDegrees(const Pelor::MI::WArcBody& arc) noexcept {
  using Vanth::Angle;
  constexpr double kTurn = 360.0;
  // Below what the ten digits of an interchange file tell apart, above the rounding of an angle's units.
  constexpr double kSame = 1e-9;
  const double ahead = arc.GetEndAngle()(Angle::Degrees, Angle::AsStored) -
                       arc.GetStartAngle()(Angle::Degrees, Angle::AsStored);
  if (!std::isfinite(ahead)) return ahead;
  if (ahead >= kTurn - kSame) return kTurn;
  // An end behind the start is met in one of the next turns.
  const double sweep = ahead < 0.0 ? std::fmod(ahead, kTurn) + kTurn : ahead;
  return sweep <= kSame || sweep >= kTurn - kSame ? 0.0 : sweep;
}

}  // namespace App
