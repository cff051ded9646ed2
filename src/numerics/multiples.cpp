#include "numerics/multiples.h"

#include "numerics/sine_cosine.h"

namespace zenithor {

void FillMultiples(double angle, int highest, MultiplesRow& row) {
  const auto [cosine, sine] = CosineAndSine(angle);
  row.sine[0] = sine;
  row.cosine[0] = cosine;
  double s = 2.0 * sine * cosine;
  double c = cosine * cosine - sine * sine;
  row.sine[1] = s;
  row.cosine[1] = c;
  for (int j = 2; j < highest; ++j) {
    const double next = sine * c + cosine * s;
    c = cosine * c - sine * s;
    s = next;
    row.sine[j] = s;
    row.cosine[j] = c;
  }
}

}  // namespace zenithor
