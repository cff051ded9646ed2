#pragma once

namespace zenithor {

// A number of 64 significant bits, as the x87 processor's extended precision has them: its first 53
// bits, and the rest.
struct Extended {
  double high, low;
};

// x e rounded to 64 bits and then to double: to the bit what the x87 gives, but for products below
// 2^-900 in size, which are within an ulp of it.
double TimesExtended(double x, Extended e);

}  // namespace zenithor
