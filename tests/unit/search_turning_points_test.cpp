#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "support/search_functions.h"

namespace zenithor {
namespace {

using testing::AllTurningPoints;
using testing::IndexBelow;
using testing::kEpoch;
using testing::RandomSum;
using testing::ScannedRoots;
using testing::TrigonometricSum;

template <class Callable>
TurningProblem ProblemOf(Callable& function, double bend_rate, double noise, double step,
                         double spacing) {
  TurningProblem problem{};
  problem.function = FunctionOf(function);
  problem.bend_rate = bend_rate;
  problem.noise = noise;
  problem.step = step;
  problem.spacing = spacing;
  problem.tolerance = 1e-9;
  return problem;
}

TEST(FindTurningPoints, FindsTheExtremesOfAPolynomial) {
  // f' = (t - 1)(t - 2)(t - 3.5)
  auto f = [](double t) {
    return 0.25 * t * t * t * t - 6.5 / 3.0 * t * t * t + 6.25 * t * t - 7.0 * t;
  };
  const auto found = AllTurningPoints(ProblemOf(f, 40.0, 1e-13, 2.0, 0.125), -2.0, 6.0);
  ASSERT_EQ(found.size(), 3U);
  const double expected[] = {1.0, 2.0, 3.5};
  for (std::size_t i = 0; i < 3; ++i) {
    // The noise over spacing and bend: 2e-12 over 0.75 at least.
    EXPECT_NEAR(found[i].moment, expected[i], 5e-12 + 1e-9);
    EXPECT_EQ(found[i].direction, i % 2 == 0 ? 1 : -1);
  }
}

TEST(FindTurningPoints, FindsNoneWhereTheFunctionOnlyPauses) {
  auto cubic = [](double t) { return (t - 3.0) * (t - 3.0) * (t - 3.0); };
  EXPECT_TRUE(AllTurningPoints(ProblemOf(cubic, 6.0, 1e-13, 1.0, 0.125), 0.0, 6.0).empty());
  auto rising = [](double t) { return t + std::sin(t); };
  EXPECT_TRUE(AllTurningPoints(ProblemOf(rising, 1.0, 1e-14, 1.0, 0.0625), 0.0, 60.0).empty());
  auto level = [](double) { return 4.0; };
  EXPECT_TRUE(AllTurningPoints(ProblemOf(level, 1.0, 1e-14, 1.0, 0.0625), 0.0, 60.0).empty());
}

TEST(FindTurningPoints, TakesNoWrapForATurn) {
  // A planet's longitude: 1 degree a day with loops of 3 degrees a day amplitude, modulo 360.
  const TrigonometricSum smooth{1.0, {{60.0, 0.05, 0.3}}};
  auto f = [&](double t) {
    const double x = smooth.Derivative(0, t);
    return x - 360.0 * std::floor(x / 360.0);
  };
  TurningProblem problem = ProblemOf(f, smooth.Bound(3), 1e-12, 16.0, 0.25);
  problem.period = 360.0;
  const auto found = AllTurningPoints(problem, kEpoch - 3000.0, kEpoch + 3000.0);
  const auto expected = ScannedRoots([&](double t) { return smooth.Derivative(1, t); },
                                     kEpoch - 3000.0, kEpoch + 3000.0, 60000);
  ASSERT_EQ(found.size(), expected.size());
  ASSERT_GE(found.size(), 90U);
  for (std::size_t i = 0; i < found.size(); ++i) {
    ASSERT_NEAR(found[i].moment, expected[i].moment, 1e-8);
    ASSERT_EQ(found[i].direction, expected[i].direction);
  }
}

TEST(FindTurningPoints, AgreesWithAFineScanOfRandomSums) {
  std::mt19937_64 random(4711);
  std::size_t compared = 0;
  for (int round = 0; round < 60; ++round) {
    const TrigonometricSum f = RandomSum(random, 2 + round % 6, 0.01 * (round % 4));
    const TurningProblem problem = ProblemOf(f, f.Bound(3), f.Noise(700.0), 64.0, 0.25);
    const auto found = AllTurningPoints(problem, kEpoch - 500.0, kEpoch + 500.0);
    const auto expected = ScannedRoots([&](double t) { return f.Derivative(1, t); }, kEpoch - 500.0,
                                       kEpoch + 500.0, 50000);
    ASSERT_EQ(found.size(), expected.size()) << round;
    for (std::size_t i = 0; i < found.size(); ++i) {
      const double t = expected[i].moment;
      const double derivative_error =
          2.0 * problem.noise / problem.spacing + std::pow(problem.spacing, 6) / 140.0 * f.Bound(7);
      ASSERT_NEAR(found[i].moment, t,
                  2e-9 + 2.0 * derivative_error / std::fabs(f.Derivative(2, t)));
      ASSERT_EQ(found[i].direction, expected[i].direction);
    }
    compared += found.size();
  }
  EXPECT_GE(compared, 1000U);
}

// Two turning points that are about to merge, at any distance above what the values can tell.
TEST(FindTurningPoints, TellsTurnsApartThatAreCloseTogether) {
  double apart = 1.0;
  // f' = x^2 - (apart / 2)^2 at x = t - epoch - 3.3
  auto f = [&apart](double t) {
    const double x = t - kEpoch - 3.3;
    return x * x * x / 3.0 - 0.25 * apart * apart * x;
  };
  const TurningProblem problem = ProblemOf(f, 2.0, 1e-15, 4.0, 0.0625);
  for (apart = 4.0; apart > 1e-5; apart *= 0.71) {
    const auto found = AllTurningPoints(problem, kEpoch, kEpoch + 7.0);
    ASSERT_EQ(found.size(), 2U) << apart;
    EXPECT_NEAR(found[1].moment - found[0].moment, apart, 1e-3 * apart + 1e-9);
    EXPECT_EQ(found[0].direction, -1);
    EXPECT_EQ(found[1].direction, 1);
  }
}

TEST(FindTurningPoints, GivesTheSameBitsInEverySpan) {
  std::mt19937_64 random(3);
  const TrigonometricSum f = RandomSum(random, 6, 0.02);
  const TurningProblem problem = ProblemOf(f, f.Bound(3), f.Noise(700.0), 32.0, 0.25);
  const double from = kEpoch - 500.0;
  const double to = kEpoch + 500.0;
  const auto all = AllTurningPoints(problem, from, to);
  ASSERT_GE(all.size(), 20U);
  std::uniform_real_distribution<double> any(from, to);
  for (int cut = 0; cut < 200; ++cut) {
    const double between = cut % 2 == 0 ? any(random) : all[IndexBelow(random, all.size())].moment;
    auto parts = AllTurningPoints(problem, from, between);
    for (const Root& turn : AllTurningPoints(problem, between, to)) {
      parts.push_back(turn);
    }
    ASSERT_EQ(parts.size(), all.size()) << between;
    for (std::size_t i = 0; i < all.size(); ++i) {
      ASSERT_EQ(parts[i].moment, all[i].moment);
    }
  }
}

TEST(FindTurningPoints, FindsWithAGuideWhatItFindsWithout) {
  std::mt19937_64 random(12);
  std::int64_t dear = 0;
  std::size_t found_all = 0;
  for (int round = 0; round < 40; ++round) {
    TrigonometricSum f = RandomSum(random, 5, 0.02);
    TrigonometricSum guide = f;
    f.terms.push_back({1e-5, 0.11, 1.0});
    f.terms.push_back({1e-5, 0.23, 2.0});
    TurningProblem problem = ProblemOf(f, f.Bound(3), f.Noise(700.0), 32.0, 0.25);
    const auto plain = AllTurningPoints(problem, kEpoch - 500.0, kEpoch + 500.0);
    problem.guide = FunctionOf(guide);
    problem.guide_rate_error = 3.5e-6;
    f.calls = 0;
    std::vector<Root> guided(plain.size() + 1);
    const std::int32_t count =
        FindTurningPoints(problem, kEpoch - 500.0, kEpoch + 500.0, guided.data(),
                          static_cast<std::int32_t>(guided.size()));
    dear += f.calls;
    ASSERT_EQ(count, static_cast<std::int32_t>(plain.size())) << round;
    for (std::size_t i = 0; i < plain.size(); ++i) {
      const double bend = std::fabs(f.Derivative(2, plain[i].moment));
      // The two-point derivative of the two small terms is wrong by spacing^2 / 6 of their third.
      const double residual = 0.0625 / 6.0 * 1e-5 * (std::pow(0.11, 3) + std::pow(0.23, 3));
      ASSERT_NEAR(guided[i].moment, plain[i].moment,
                  3e-9 + (residual + 6.0 * problem.noise / problem.spacing) / bend);
    }
    found_all += plain.size();
  }
  EXPECT_GE(found_all, 500U);
  EXPECT_LE(static_cast<double>(dear), 5.2 * static_cast<double>(found_all));
}

TEST(FindTurningPoints, RefusesWhatFindRootsRefuses) {
  auto f = [](double t) { return std::sin(t); };
  TurningProblem problem = ProblemOf(f, 1.0, 1e-15, 1.0, 0.125);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(FindTurningPoints(problem, 0.0, 30.0, nullptr, 0), 10);
  EXPECT_EQ(FindTurningPoints(problem, nan, 30.0, nullptr, 0), -1);
  EXPECT_EQ(FindTurningPoints(problem, 30.0, 0.0, nullptr, 0), 0);
  for (const double spacing : {0.0, -1.0, nan}) {
    problem.spacing = spacing;
    EXPECT_EQ(FindTurningPoints(problem, 0.0, 30.0, nullptr, 0), -1);
  }
  EXPECT_EQ(FindTurningPoints(TurningProblem{}, 0.0, 30.0, nullptr, 0), -1);
}

}  // namespace
}  // namespace zenithor
