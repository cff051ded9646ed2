#pragma once

namespace zenithor::testing {

// Functions in IEEE quadruple precision (113 bits), for references. Slow and simple.

#ifdef __SIZEOF_FLOAT128__
__extension__ typedef __float128 Quadruple;
#else
typedef long double Quadruple;
#endif

// cos x by Taylor's series after the removal of whole turns; for |x| < 1e9 within 1e-23, whose
// greatest part is that of the turn's own rounding.
inline Quadruple QuadrupleCosine(Quadruple x) {
  // 2 pi as the sum of three doubles, 159 bits.
  const Quadruple turn = Quadruple(0x1.921fb54442d18p+2) + Quadruple(0x1.1a62633145c07p-52) +
                         Quadruple(-0x1.f1976b7ed8fbcp-108);
  const double turns = static_cast<double>(x / turn);
  x -= Quadruple(static_cast<double>(static_cast<long long>(turns))) * turn;
  // Down to below 1/10 by halving six times; cos 2a = 1 + 2 u with u = cos a - 1 kept, so that
  // nothing cancels: cos 2a - 1 = 2 u (u + 2).
  const Quadruple z = (x / 64) * (x / 64);
  Quadruple term = -z / 2;
  Quadruple u = 0;
  for (int n = 2; n <= 24; n += 2) {
    u += term;
    term *= -z / ((n + 1) * (n + 2));
  }
  for (int k = 0; k < 6; ++k) {
    u = 2 * u * (u + 2);
  }
  return 1 + u;
}

// The angle x less the nearest k quarters of a turn, |x| <= 2^24, as if x were exact: within 2^-113
// of itself even beside an axis, because the products of k with the parts of pi / 2 are exact.
struct QuarterTurns {
  long long count;
  Quadruple rest;
};

inline QuarterTurns ReduceToQuarter(double x) {
  const long long k = static_cast<long long>(x / 0x1.921fb54442d18p+0 + (x < 0 ? -0.5 : 0.5));
  const Quadruple q = Quadruple(static_cast<double>(k));
  const Quadruple rest = ((Quadruple(x) - q * Quadruple(0x1.921fb54442d18p+0)) -
                          q * Quadruple(0x1.1a62633145c07p-54)) -
                         q * Quadruple(-0x1.f1976b7ed8fbcp-110);
  return {k, rest};
}

// Taylor's series for |x| < 1.
inline Quadruple QuadrupleSeriesOfSine(Quadruple x) {
  Quadruple sum = 0;
  Quadruple term = x;
  for (int n = 1; n < 40; n += 2) {
    sum += term;
    term *= -x * x / ((n + 1) * (n + 2));
  }
  return sum;
}

inline Quadruple QuadrupleSeriesOfCosine(Quadruple x) {
  Quadruple sum = 0;
  Quadruple term = 1;
  for (int n = 0; n < 40; n += 2) {
    sum += term;
    term *= -x * x / ((n + 1) * (n + 2));
  }
  return sum;
}

// cos (x + quarters pi / 2) to 2^-110 of itself, |x| <= 2^24.
inline Quadruple QuadrupleCosineTurned(double x, int quarters) {
  const QuarterTurns at = ReduceToQuarter(x);
  switch (((at.count + quarters) % 4 + 4) % 4) {
    case 0:
      return QuadrupleSeriesOfCosine(at.rest);
    case 1:
      return -QuadrupleSeriesOfSine(at.rest);
    case 2:
      return -QuadrupleSeriesOfCosine(at.rest);
    default:
      return QuadrupleSeriesOfSine(at.rest);
  }
}

// Newton's iteration from the double's root, x > 0 or 0.
inline Quadruple QuadrupleRoot(Quadruple x) {
  if (x == 0) {
    return 0;
  }
  Quadruple root = Quadruple(__builtin_sqrt(static_cast<double>(x)));
  for (int k = 0; k < 3; ++k) {
    root = (root + x / root) / 2;
  }
  return root;
}

// arctan (y / x) in [0, pi] for y >= 0, not both 0: five halvings of the angle, then the series.
inline Quadruple QuadrupleAngle(Quadruple y, Quadruple x) {
  // tan (angle / 2) = y / (length + x), or, where that cancels, (length - x) / y.
  const Quadruple length = QuadrupleRoot(x * x + y * y);
  if (y == 0 && x < 0) {
    return 2 * (Quadruple(0x1.921fb54442d18p+0) + Quadruple(0x1.1a62633145c07p-54));
  }
  Quadruple t = x >= 0 ? y / (length + x) : (length - x) / y;
  Quadruple times = 2;
  // A tangent beyond 1 is that of the angle's other half of a quarter.
  const bool large = t > 1;
  if (large) {
    t = 1 / t;
  }
  for (int k = 0; k < 4; ++k) {
    t = t / (1 + QuadrupleRoot(1 + t * t));
    times *= 2;
  }
  Quadruple sum = 0;
  Quadruple power = t;
  for (int n = 1; n < 60; n += 2) {
    sum += power / n * (n % 4 == 1 ? 1 : -1);
    power *= t * t;
  }
  const Quadruple pi = 2 * (Quadruple(0x1.921fb54442d18p+0) + Quadruple(0x1.1a62633145c07p-54) +
                            Quadruple(-0x1.f1976b7ed8fbcp-110));
  return large ? pi - times * sum : times * sum;
}

// arctan x, arcsin x and arccos x, |x| <= 1 for the latter two.
inline Quadruple QuadrupleSignedAngle(double y, Quadruple x) {
  return y < 0.0 ? -QuadrupleAngle(-Quadruple(y), x) : QuadrupleAngle(Quadruple(y), x);
}
inline Quadruple QuadrupleOtherLeg(double x) {
  return QuadrupleRoot((1 - Quadruple(x)) * (1 + Quadruple(x)));
}
inline Quadruple QuadrupleArctangent(double x) { return QuadrupleSignedAngle(x, 1); }
inline Quadruple QuadrupleArcsine(double x) {
  return QuadrupleSignedAngle(x, QuadrupleOtherLeg(x));
}
inline Quadruple QuadrupleArccosine(double x) {
  return QuadrupleAngle(QuadrupleOtherLeg(x), Quadruple(x));
}

// ln x for a normal x > 0, from ln 2 = 7 ln (16/15) + 5 ln (25/24) + 3 ln (81/80).
inline Quadruple QuadrupleLogarithmNearOne(Quadruple m) {
  const Quadruple s = (m - 1) / (m + 1);
  Quadruple sum = 0;
  Quadruple power = s;
  for (int n = 1; n < 90; n += 2) {
    sum += 2 * power / n;
    power *= s * s;
  }
  return sum;
}

inline Quadruple QuadrupleLogarithm(double x) {
  int exponent = 0;
  double m = __builtin_frexp(x, &exponent);
  if (m < 0.7071) {
    m *= 2;
    --exponent;
  }
  const Quadruple ln2 = 7 * QuadrupleLogarithmNearOne(Quadruple(16) / 15) +
                        5 * QuadrupleLogarithmNearOne(Quadruple(25) / 24) +
                        3 * QuadrupleLogarithmNearOne(Quadruple(81) / 80);
  return exponent * ln2 + QuadrupleLogarithmNearOne(Quadruple(m));
}

// How far a double is from the true value, in units in the last place of the true value.
inline double UlpsFrom(Quadruple truth, double value) {
  int exponent = 0;
  (void)__builtin_frexp(static_cast<double>(truth), &exponent);
  const int last_place = exponent - 53 < -1074 ? -1074 : exponent - 53;
  const double off =
      static_cast<double>((Quadruple(value) - truth) / Quadruple(__builtin_ldexp(1.0, last_place)));
  return off < 0 ? -off : off;
}

}  // namespace zenithor::testing
