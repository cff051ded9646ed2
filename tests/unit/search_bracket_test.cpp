#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "search/bracket.h"

namespace zenithor {
namespace {

struct Counted {
  double root;
  int calls;
};

template <class Callable>
Counted Solve(double a, double b, double half_width, Callable f) {
  int calls = 0;
  const double root = RootInBracket({a, f(a)}, {b, f(b)}, half_width, [&](double t) {
    ++calls;
    return f(t);
  });
  return {root, calls};
}

TEST(RootInBracket, FindsKnownRoots) {
  EXPECT_NEAR(Solve(1.0, 2.0, 5e-10, [](double t) { return t * t - 2.0; }).root, std::sqrt(2.0),
              1e-9);
  EXPECT_NEAR(Solve(3.0, 4.0, 5e-10, [](double t) { return std::sin(t); }).root, std::acos(-1.0),
              1e-9);
  EXPECT_NEAR(Solve(0.0, 1.0, 5e-10, [](double t) { return std::cos(t) - t; }).root,
              0.7390851332151607, 1e-9);
}

TEST(RootInBracket, TakesFewCallsForSmoothFunctions) {
  for (double offset = 0.1; offset < 8.0; offset += 0.37) {
    const Counted result = Solve(2451544.0, 2451552.0, 5e-10, [&](double t) {
      return std::sin(0.05 * (t - 2451544.0 - offset)) + 0.01 * (t - 2451544.0 - offset);
    });
    EXPECT_NEAR(result.root, 2451544.0 + offset, 1.5e-9);
    EXPECT_LE(result.calls, 9) << offset;
  }
}

// From 1 to 1e-9 bisection takes 30 calls.
TEST(RootInBracket, NeverTakesManyMoreCallsThanBisection) {
  const auto steep = [](double t) { return std::exp(60.0 * t) - 1e9; };
  const auto flat = [](double t) { return std::pow(t - 0.3, 9.0); };
  const auto jump = [](double t) { return t < 0.7 ? -1e-12 : 1e12; };
  const auto root = [](double t) {
    return std::copysign(std::pow(std::fabs(t - 0.9), 0.1), t - 0.9);
  };
  const auto slow = [](double t) { return t < 0.999 ? 1e-300 * (t - 1.0) : 1e300 * (t - 0.9995); };
  const double exact = std::log(1e9) / 60.0;
  EXPECT_NEAR(Solve(0.0, 1.0, 5e-10, steep).root, exact, 1e-9);
  EXPECT_NEAR(Solve(0.0, 1.0, 5e-10, flat).root, 0.3, 1e-9);
  EXPECT_NEAR(Solve(0.0, 1.0, 5e-10, jump).root, 0.7, 1e-9);
  EXPECT_NEAR(Solve(0.0, 1.0, 5e-10, root).root, 0.9, 1e-9);
  EXPECT_LE(Solve(0.0, 1.0, 5e-10, steep).calls, 40);
  EXPECT_LE(Solve(0.0, 1.0, 5e-10, flat).calls, 40);
  EXPECT_LE(Solve(0.0, 1.0, 5e-10, jump).calls, 40);
  EXPECT_LE(Solve(0.0, 1.0, 5e-10, root).calls, 40);
  EXPECT_LE(Solve(0.0, 1.0, 5e-10, slow).calls, 124);
}

// Functions that are made up as they are asked for: whichever part of the bracket is the larger
// keeps the root, by a value of any size that a rising function may have there.
TEST(RootInBracket, BisectsAfterThreeCallsThatDoNotHalve) {
  int longest = 0;
  for (unsigned seed = 0; seed < 2000; ++seed) {
    std::mt19937 random(seed);
    BracketEnd low{0.0, -1.0};
    BracketEnd high{1.0, 1.0};
    double halve_to = 0.5;
    int calls = 0;
    RootInBracket(low, high, 5e-10, [&](double t) {
      BracketEnd& moved = t - low.t < high.t - t ? low : high;
      moved = {t, moved.y * (0.01 + 0.98 * static_cast<double>(random()) / 0x1p32)};
      longest = std::max(longest, ++calls);
      if (high.t - low.t <= halve_to) {
        halve_to = 0.5 * (high.t - low.t);
        calls = 0;
      }
      return moved.y;
    });
  }
  EXPECT_EQ(longest, 4);
}

TEST(RootInBracket, EndsWhereTheNumbersEnd) {
  const Counted result =
      Solve(2451544.0, 2451545.0, 1e-300, [](double t) { return t < 2451544.4 ? -1.0 : 1.0; });
  EXPECT_NEAR(result.root, 2451544.4, 5e-10);
  EXPECT_LE(result.calls, 4 * 31);
}

TEST(RootInBracket, AcceptsARootAtAnEnd) {
  EXPECT_EQ(Solve(0.0, 1.0, 1e-9, [](double t) { return -t; }).root, 0.0);
  EXPECT_NEAR(Solve(-1.0, 0.0, 1e-9, [](double t) { return t; }).root, 0.0, 1e-9);
}

TEST(RootInBracket, HasNoRootWhereThereIsNoValue) {
  EXPECT_TRUE(std::isnan(RootInBracket({0.0, -1.0}, {1.0, 1.0}, 1e-9, [](double) {
    return std::numeric_limits<double>::quiet_NaN();
  })));
}

}  // namespace
}  // namespace zenithor
