#include "orbits/earth_velocity.h"

#include "orbits/earth_sums.h"
#include "orbits/propagate_body.h"
#include "orbits/vectors.h"

namespace zenithor {

void UpdateEarthVelocity(double julian_day, OrbitsState& state) {
  EarthVelocityCache& cache = state.earth_velocity;
  if (julian_day == cache.julian_day) {
    return;
  }
  cache.julian_day = julian_day;
  // Kept on purpose: a difference backward over 0.005 day is the velocity of 3.6 minutes before;
  // aberration is up to 0.0009" off.
  const HeliocentricPlace before =
      PropagateBody(state.current_day - kVelocityStepDays, state.earth, state);
  cache.velocity = (state.earth_vector - before.equatorial) / kVelocityStepDays;
  ++cache.computations;
}

}  // namespace zenithor
