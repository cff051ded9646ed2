// The elementary functions of src/numerics/ beside the C library's own: largest error met against
// quadruple precision [ulp], and nanoseconds a call, in turns in one run.
//   bench_elementary

#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

#include "numerics/arcs.h"
#include "numerics/logarithm.h"
#include "numerics/sine_cosine.h"
#include "support/quadruple.h"
#include "timing.h"

namespace {

using zenithor::testing::Quadruple;
using Function = double (*)(double);

struct Contest {
  const char* name;
  Function ours;
  Function theirs;
  Quadruple (*truth)(double);
  double low, high;  // of the arguments
};

Quadruple SineOf(double x) { return zenithor::testing::QuadrupleCosineTurned(x, 3); }
Quadruple CosineOf(double x) { return zenithor::testing::QuadrupleCosineTurned(x, 0); }
Quadruple TangentOf(double x) { return SineOf(x) / CosineOf(x); }
double OurAngle(double y) { return zenithor::ArctangentOfPoint(y, 0.7); }
double TheirAngle(double y) { return std::atan2(y, 0.7); }
Quadruple AngleOf(double y) { return zenithor::testing::QuadrupleSignedAngle(y, Quadruple(0.7)); }

const Contest kContests[] = {
    {"sine", zenithor::Sine, std::sin, SineOf, -10.0, 10.0},
    {"sine, to 2^24", zenithor::Sine, std::sin, SineOf, -16777216.0, 16777216.0},
    {"cosine", zenithor::Cosine, std::cos, CosineOf, -10.0, 10.0},
    {"tangent", zenithor::Tangent, std::tan, TangentOf, -10.0, 10.0},
    {"arctangent", zenithor::Arctangent, std::atan, zenithor::testing::QuadrupleArctangent, -3.0,
     3.0},
    {"arctangent of a point", OurAngle, TheirAngle, AngleOf, -3.0, 3.0},
    {"arcsine", zenithor::Arcsine, std::asin, zenithor::testing::QuadrupleArcsine, -1.0, 1.0},
    {"arccosine", zenithor::Arccosine, std::acos, zenithor::testing::QuadrupleArccosine, -1.0, 1.0},
    {"logarithm", zenithor::Logarithm, std::log, zenithor::testing::QuadrupleLogarithm, 0.1, 9.0},
};

volatile double sink;

double LargestError(const Contest& contest, Function function) {
  std::mt19937_64 random(20051);
  std::uniform_real_distribution<double> argument(contest.low, contest.high);
  double largest = 0.0;
  for (int k = 0; k < 50000; ++k) {
    const double x = argument(random);
    largest = std::fmax(largest, zenithor::testing::UlpsFrom(contest.truth(x), function(x)));
  }
  return largest;
}

}  // namespace

int main() {
  std::printf("%-22s %9s %9s %9s %9s\n", "", "ulp, ours", "C library", "ns, ours", "C library");
  for (const Contest& contest : kContests) {
    std::mt19937_64 random(20052);
    std::uniform_real_distribution<double> argument(contest.low, contest.high);
    std::vector<double> arguments(1000);
    for (double& x : arguments) {
      x = argument(random);
    }
    const auto all = [&arguments](Function function) {
      return [&arguments, function](int /*call*/) {
        double sum = 0.0;
        for (const double x : arguments) {
          sum += function(x);
        }
        sink = sum;
      };
    };
    const std::vector<double> times =
        zenithor::bench::TimeInTurn({all(contest.ours), all(contest.theirs)});
    std::printf("%-22s %9.2f %9.2f %9.1f %9.1f\n", contest.name,
                LargestError(contest, contest.ours), LargestError(contest, contest.theirs),
                times[0], times[1]);
  }
}
