#include "orbits/ecliptic_place.h"

#include "numerics/arcs.h"
#include "numerics/arctangent.h"
#include "orbits/precession.h"
#include "orbits/vectors.h"

namespace zenithor {

Spherical EclipticPlace(double julian_day, const Rectangular& vector_of_date, double radius,
                        ObliquityCache& obliquity) {
  CachedObliquity(julian_day, obliquity);
  const Rectangular v = EquatorToEcliptic(vector_of_date, obliquity);
  return {FullCircleArctan(v.x, v.y), Arcsine(v.z / radius), radius};
}

Spherical EclipticPlaceOfDate(double julian_day, const Rectangular& vector_of_date,
                              ObliquityCache& obliquity) {
  return EclipticPlace(julian_day, vector_of_date, Length(vector_of_date), obliquity);
}

Spherical EclipticPlaceFromJ2000(double julian_day, const Rectangular& vector,
                                 ObliquityCache& obliquity) {
  Rectangular v = vector;
  PrecessVector(julian_day, PrecessionDirection::kFromJ2000, obliquity, v);
  return EclipticPlace(julian_day, v, Length(vector), obliquity);
}

}  // namespace zenithor
