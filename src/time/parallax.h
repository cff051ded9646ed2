#pragma once

namespace zenithor {

// The observer on the Earth, and what a finite distance does to right ascension and declination.
// Source: Meeus, Astronomical Algorithms, chapters 11 and 40.

// The observer's place relative to the Earth's centre, in equatorial radii.
struct ObserverTerms {
  double rho_cos_phi;  // rho cos phi'
  double rho_sin_phi;  // rho sin phi'
};

// Geodetic latitude [rad], -pi / 2 to pi / 2, and height [m]. Flattening 1 / 298.257, equatorial
// radius 6378140 m.
ObserverTerms ObserverGeocentricTerms(double latitude, double height);

// In all three corrections `parallax_sine` is the sine of the body's equatorial horizontal parallax
// and `sidereal_time` [rad] the local one, so the hour angle is sidereal_time - alpha. `alpha` and
// `delta` [rad] come in geocentric and go out topocentric. Nothing is checked.

// The rigorous formulas with an arctangent of one argument. No export reaches it.
void ParallaxStrict(double parallax_sine, double sidereal_time, ObserverTerms observer,
                    double& alpha, double& delta);

// First order in the parallax.
void ParallaxApproximate(double parallax_sine, double sidereal_time, ObserverTerms observer,
                         double& alpha, double& delta);

// Rigorous, by rectangular coordinates; `alpha` goes out in [0, 2 pi), `distance` (any unit) is
// divided by the topocentric distance in units of the geocentric one.
// Kept on purpose: divided, where the topocentric distance would be the product.
void ParallaxRectangular(double parallax_sine, double sidereal_time, ObserverTerms observer,
                         double& alpha, double& delta, double& distance);

}  // namespace zenithor
