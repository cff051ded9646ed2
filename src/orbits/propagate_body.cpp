#include "orbits/propagate_body.h"

#include "orbits/conic.h"
#include "orbits/ecliptic_place.h"
#include "orbits/mean_elements.h"
#include "orbits/moon_share.h"
#include "orbits/planet_series.h"
#include "orbits/precession.h"
#include "time/constants.h"

namespace zenithor {

HeliocentricPlace PropagateBody(double julian_day, OrbitalElementRecord& record,
                                OrbitsState& state) {
  const bool is_earth = &record == &state.earth;
  Spherical place;
  if (record.series != nullptr) {
    place = is_earth ? EvaluateEarthSeries(julian_day, *record.series, kEarthMeanLongitude,
                                           state.scratch)
                     : EvaluatePlanetSeries(julian_day, *record.series, state.scratch);
    record.mean_longitude = place.longitude;
    record.radius = place.radius;
    record.epoch = julian_day;
    record.equinox = kJ2000;
  } else {
    place = PropagateConic(julian_day, record);
  }

  CachedObliquity(record.equinox, state.obliquity);
  Rectangular vector = EclipticToEquator(SphericalToRectangular(place), state.obliquity);
  PrecessVector(record.equinox, PrecessionDirection::kToJ2000, state.obliquity, vector);
  double radius = place.radius;
  if (is_earth) {
    radius = RemoveMoonFromBarycentre(julian_day, state.scratch, state.obliquity, vector);
  }

  return {vector, EclipticPlace(kJ2000, vector, radius, state.obliquity)};
}

}  // namespace zenithor
