#pragma once

namespace zenithor {

// How the planet driver puts an angle into a field of its record; `limit` is 360 degrees or 24
// hours. From the limit on, the limit is subtracted once.
// Kept on purpose: below 0 the sign is flipped instead of the limit added (a longitude of -0.001
// degree is stored as 0.001), and an exact 0 or not-a-number leaves the caller's value in place.
inline void StoreAngle(double value, double limit, double& field) {
  if (value >= limit) {
    field = value - limit;
  } else if (value > 0.0) {
    field = value;
  } else if (value < 0.0) {
    field = -value;
  }
}

}  // namespace zenithor
