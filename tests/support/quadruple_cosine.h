#pragma once

namespace zenithor::testing {

// Cosines in IEEE quadruple precision (113 bits), for references. Slow and simple.

__extension__ typedef __float128 Quadruple;

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

}  // namespace zenithor::testing
