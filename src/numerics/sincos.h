#pragma once

namespace zenithor {

// The cosine and the sine of each of `count` angles [rad], written to cosine_sine[2 k] and
// cosine_sine[2 k + 1]; the output holds 2 count doubles, anywhere. Four at a time, the same bits
// on every processor and in every build, within 1.3e-16 + |angle| 2^-75. Where one of a four is
// beyond 2^24, infinite or NaN, that four comes from Cosine and Sine.
void CosinesAndSines(const double* angles, int count, double* cosine_sine);

}  // namespace zenithor
