#include "time/sincos.h"

#include <cmath>
#include <cstring>

#include "time/sincos_kernel.h"

namespace zenithor {

alignas(64) extern const CosineSine kCircleSteps[512] = {
#include "time/sincos_steps.inc"
};

namespace {

bool SuitTheKernel(const double* four) {
  for (int k = 0; k < 4; ++k) {
    if (!(four[k] >= -kLargestKernelAngle && four[k] <= kLargestKernelAngle)) {
      return false;
    }
  }
  return true;
}

}  // namespace

void CosinesAndSines(const double* angles, int count, double* cosine_sine) {
  for (int done = 0; done < count; done += 4) {
    const int here = count - done < 4 ? count - done : 4;
    alignas(16) double four[4] = {};
    alignas(16) double result[8];
    std::memcpy(four, angles + done, static_cast<std::size_t>(here) * sizeof(double));
    if (SuitTheKernel(four)) {
      FourInPairs x, cosine, sine;
      LoadFour(four, x);
      CosinesAndSinesOfFour(x, cosine, sine);
      StoreFour(cosine, sine, result);
    } else {
      for (int k = 0; k < 4; ++k) {
        result[2 * k] = std::cos(four[k]);
        result[2 * k + 1] = std::sin(four[k]);
      }
    }
    std::memcpy(cosine_sine + 2 * done, result,
                static_cast<std::size_t>(here) * 2 * sizeof(double));
  }
}

}  // namespace zenithor
