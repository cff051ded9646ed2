#ifndef TESTS_SUPPORT_EXTREME_VALUES_H
#define TESTS_SUPPORT_EXTREME_VALUES_H

#include <float.h>
#include <math.h>

#include "support/export_table.h"

/* Values that no host means and some host passes. C and C++. */

static const double kExtremeDoubles[] = {
    0.0,
    -0.0,
    NAN,
    -NAN,
    INFINITY,
    -INFINITY,
    DBL_MIN,
    0x1p-1074, /* the smallest denormal */
    -0x1p-1074,
    0x0.fffffffffffffp-1022, /* the largest denormal */
    DBL_MAX,
    -DBL_MAX,
    1e300,
    -1e300,
    1e18,
    -1e18,
    0x1p63,
    -0x1p63,
    0x1p53,
    2147483646.5, /* the last Julian days that 32 bits count, and the first that they do not */
    2147483647.5,
    -2147483647.5,
    -2147483648.5,
    4294967296.0,
    1e9,
    -1e9,
    5373484.5, /* beginning of the year 10000 */
    2299160.5, /* the Gregorian reform */
    2299160.4999999995,
    2451545.0,
    -0.5,
    -1.0,
    1.0,
    90.0,
    -90.0,
    180.0,
    360.0,
    12.0,
    14.0,
    1440.0,
};

static const int32_t kExtremeIntegers[] = {
    0,  1,  2,  3,   4,   5,   6,   7,     8,      9,          10,        11,
    12, -1, -2, 127, 128, 255, 256, 32767, -32768, 0x7F800000, INT32_MAX, INT32_MIN,
};

enum {
  kExtremeDoubleCount = sizeof kExtremeDoubles / sizeof kExtremeDoubles[0],
  kExtremeIntegerCount = sizeof kExtremeIntegers / sizeof kExtremeIntegers[0]
};

/* Every argument at random: half of the doubles from the table, a quarter any bits at all, the rest
 * an ordinary moment or angle. */
static inline ExportArguments ExtremeArguments(uint64_t* random) {
  ExportArguments a;
  for (int k = 0; k < kDoubleArguments; ++k) {
    const uint64_t bits = NextRandom(random);
    const uint64_t kind = NextRandom(random) % 4u;
    if (kind < 2u) {
      a.doubles[k] = kExtremeDoubles[bits % kExtremeDoubleCount];
    } else if (kind == 2u) {
      memcpy(&a.doubles[k], &bits, sizeof bits);
    } else {
      a.doubles[k] =
          k == 0 ? RandomBetween(random, -1e6, 6e6) : RandomBetween(random, -400.0, 400.0);
    }
  }
  for (int k = 0; k < kIntegerArguments; ++k) {
    const uint64_t bits = NextRandom(random);
    a.integers[k] = bits & 1u ? kExtremeIntegers[(bits >> 1) % kExtremeIntegerCount]
                              : (int32_t)((bits >> 1) % 12u);
  }
  return a;
}

#endif
