#include "numerics/sincos.h"

#include <cstring>

#include "numerics/sincos_kernel.h"
#include "numerics/sine_cosine.h"

namespace zenithor {

alignas(64) extern const CosineSine kCircleSteps[512] = {
#include "numerics/sincos_steps.inc"
};

ZENITHOR_KERNEL void FourCosinesAndSines(const double* angles, double* cosine_sine) {
  FourInPairs x;
  LoadFour(angles, x);
  if (AreWithin(x, kLargestKernelAngle)) {
    FourInPairs cosine;
    FourInPairs sine;
    CosinesAndSinesOfFour(x, cosine, sine);
    StoreFour(cosine, sine, cosine_sine);
    return;
  }
  for (int k = 0; k < 4; ++k) {
    cosine_sine[2 * k] = Cosine(angles[k]);
    cosine_sine[2 * k + 1] = Sine(angles[k]);
  }
}

void CosinesAndSines(const double* angles, int count, double* cosine_sine) {
  int done = 0;
  for (; done + 4 <= count; done += 4) {
    FourCosinesAndSines(angles + done, cosine_sine + 2 * done);
  }
  if (done < count) {
    const auto rest = static_cast<std::size_t>(count - done);
    double four[4] = {};
    double result[8];
    std::memcpy(four, angles + done, rest * sizeof(double));
    FourCosinesAndSines(four, result);
    std::memcpy(cosine_sine + 2 * done, result, 2 * rest * sizeof(double));
  }
}

}  // namespace zenithor
