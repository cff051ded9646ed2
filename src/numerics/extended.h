#pragma once

#include <cfloat>

namespace zenithor {

// A number of 64 significant bits, as the x87 processor's extended precision has them: its first 53
// bits, and the rest.
struct Extended {
  double high, low;
};

// x e rounded to 64 bits and then to double, as two doubles' arithmetic gives it; for |x| between
// 2^-900 and 2^900, 0, infinity and NaN to the bit what the x87 gives, beyond within an ulp of it.
double TimesExtendedPortably(double x, Extended e);

// The same by the fastest way that the platform has.
inline double TimesExtended(double x, Extended e) {
#if LDBL_MANT_DIG == 64
  return static_cast<double>(x * (static_cast<long double>(e.high) + e.low));
#else
  return TimesExtendedPortably(x, e);
#endif
}

}  // namespace zenithor
