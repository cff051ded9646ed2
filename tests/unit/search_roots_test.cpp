#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "support/search_functions.h"

namespace zenithor {
namespace {

using testing::AllRoots;
using testing::IndexBelow;
using testing::kEpoch;
using testing::RandomSum;
using testing::ScannedRoots;
using testing::TrigonometricSum;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

template <class Callable>
RootProblem ProblemOf(Callable& function, double bend, double noise, double step) {
  RootProblem problem{};
  problem.function = FunctionOf(function);
  problem.bend = bend;
  problem.noise = noise;
  problem.step = step;
  problem.tolerance = 1e-9;
  return problem;
}

void ExpectRoots(const std::vector<Root>& found, const std::vector<Root>& expected,
                 double tolerance) {
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t i = 0; i < found.size(); ++i) {
    EXPECT_NEAR(found[i].moment, expected[i].moment, tolerance) << i;
    EXPECT_EQ(found[i].direction, expected[i].direction) << i;
  }
}

TEST(FindRoots, FindsTheRootsOfAPolynomial) {
  auto f = [](double t) { return (t + 2.5) * (t - 0.125) * (t - 1.0) * (t - 7.3); };
  // |f''| on -16 to 16, the cells that a span of -4 to 9 touches, is below 3700.
  const RootProblem problem = ProblemOf(f, 3700.0, 1e-11, 8.0);
  ExpectRoots(AllRoots(problem, -4.0, 9.0), {{-2.5, -1}, {0.125, 1}, {1.0, -1}, {7.3, 1}}, 1e-9);
}

TEST(FindRoots, FindsRootsOnTheGridOnce) {
  auto f = [](double t) { return (t - 2448.0) * (t - 2452.0) * (2456.0 - t); };
  for (const double step : {1.0, 4.0, 8.0}) {
    const RootProblem problem = ProblemOf(f, 200.0, 1e-9, step);
    ExpectRoots(AllRoots(problem, 2440.0, 2460.0), {{2448.0, -1}, {2452.0, 1}, {2456.0, -1}}, 1e-9);
  }
}

TEST(FindRoots, FindsDoubleRootsOfASine) {
  // 1 + sin touches 0 at -pi/2 + 2 pi k and never goes below.
  auto f = [](double t) { return 1.0 + std::sin(t); };
  const std::vector<Root> found = AllRoots(ProblemOf(f, 1.0, 3e-16, 1.0), 0.0, 100.0);
  ASSERT_EQ(found.size(), 16U);
  for (std::size_t k = 0; k < found.size(); ++k) {
    EXPECT_EQ(found[k].direction, 0);
    EXPECT_NEAR(found[k].moment, std::acos(-1.0) * (1.5 + 2.0 * static_cast<double>(k)), 1e-7);
  }
}

// Values near the touching point are x^2 / 2: what is missed by more than the noise is no contact,
// what goes beyond it by 100 times the noise is two roots.
TEST(FindRoots, TellsAContactFromAMissAndFromTwoRoots) {
  double lift = 0.0;
  auto f = [&lift](double t) { return 1.0 - std::cos(t - kEpoch) + lift; };
  const double noise = 1e-12;
  const RootProblem problem = ProblemOf(f, 1.0, noise, 0.5);
  lift = 3.0 * noise;
  EXPECT_EQ(AllRoots(problem, kEpoch - 3.0, kEpoch + 3.0).size(), 0U);
  for (const double part : {0.5, 0.0, -0.5, -2.0}) {
    lift = part * noise;
    const std::vector<Root> found = AllRoots(problem, kEpoch - 3.0, kEpoch + 3.0);
    ASSERT_EQ(found.size(), 1U) << part;
    EXPECT_EQ(found[0].direction, 0) << part;
    EXPECT_NEAR(found[0].moment, kEpoch, 1e-6) << part;
  }
  lift = -100.0 * noise;
  const double half = std::sqrt(200.0 * noise);
  ExpectRoots(AllRoots(problem, kEpoch - 3.0, kEpoch + 3.0),
              {{kEpoch - half, -1}, {kEpoch + half, 1}}, 1e-9);
}

TEST(FindRoots, GivesAPlateauOnceAtItsFirstMoment) {
  // Falls to 0 at the epoch, stays for 40 days, falls on; its bend jumps from 2 to 0.
  auto f = [](double t) {
    const double x = t - kEpoch;
    return x < 0.0 ? x * x : (x > 40.0 ? -(x - 40.0) * (x - 40.0) : 0.0);
  };
  const RootProblem problem = ProblemOf(f, 2.0, 1e-12, 4.0);
  const std::vector<Root> found = AllRoots(problem, kEpoch - 20.0, kEpoch + 60.0);
  ASSERT_EQ(found.size(), 1U);
  // x^2 is within 1e-12 of 0 from x = -1e-6 on.
  EXPECT_NEAR(found[0].moment, kEpoch, 3e-6);
  EXPECT_EQ(found[0].direction, 0);
  // It began before these spans do.
  EXPECT_TRUE(AllRoots(problem, kEpoch + 1.0, kEpoch + 60.0).empty());
  EXPECT_TRUE(AllRoots(problem, kEpoch + 17.0, kEpoch + 30.0).empty());
}

TEST(FindRoots, GivesACrossingUnderNoiseOnce) {
  // Rounding noise of 1e-9, as large as two seconds of the motion: the values change sign many
  // times.
  auto f = [](double t) {
    const auto scrambled = static_cast<std::uint64_t>(t * 1e9) * 0x9E3779B97F4A7C15U;
    const double noise = static_cast<double>(scrambled >> 11U) * 0x1p-52 - 1.0;
    return 1e-4 * (t - kEpoch) + 1e-5 * std::sin(0.1 * (t - kEpoch)) + 0.9e-9 * noise;
  };
  const std::vector<Root> found =
      AllRoots(ProblemOf(f, 1e-7, 1e-9, 8.0), kEpoch - 300.0, kEpoch + 300.0);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].direction, 1);
  EXPECT_NEAR(found[0].moment, kEpoch, 2e-5);
}

TEST(FindRoots, TakesNoWrapForARoot) {
  // Longitude that runs through 0 and back again: 20 sin t around the epoch's 0, modulo 360.
  auto f = [](double t) {
    const double x = 20.0 * std::sin(0.1 * (t - kEpoch));
    return x < 0.0 ? x + 360.0 : x;
  };
  RootProblem problem = ProblemOf(f, 0.2, 1e-12, 8.0);
  problem.period = 360.0;
  const double half_turn = 10.0 * std::acos(-1.0);
  problem.target = 0.0;
  ExpectRoots(AllRoots(problem, kEpoch - 10.0, kEpoch + 70.0),
              {{kEpoch, 1}, {kEpoch + half_turn, -1}, {kEpoch + 2.0 * half_turn, 1}}, 1e-9);
  problem.target = 720.0;  // the same place
  EXPECT_EQ(AllRoots(problem, kEpoch - 10.0, kEpoch + 70.0).size(), 3U);
  problem.target = 180.0;  // opposite to all of them
  EXPECT_TRUE(AllRoots(problem, kEpoch - 10.0, kEpoch + 70.0).empty());
  problem.target = 350.0;
  const double ten = 10.0 * std::asin(0.5);
  ExpectRoots(
      AllRoots(problem, kEpoch - 10.0, kEpoch + 70.0),
      {{kEpoch - ten, 1}, {kEpoch + half_turn + ten, -1}, {kEpoch + 2.0 * half_turn - ten, 1}},
      1e-9);
}

TEST(FindRoots, FollowsALongitudeThroughAllTurns) {
  // Like the Moon: 13 degrees a day with a swing of 6 degrees; every degree is met once a turn.
  auto f = [](double t) {
    const double x = 13.1764 * (t - kEpoch) + 6.3 * std::sin(0.228 * (t - kEpoch));
    return x - 360.0 * std::floor(x / 360.0);
  };
  RootProblem problem = ProblemOf(f, 6.3 * 0.228 * 0.228, 1e-11, 4.0);
  problem.period = 360.0;
  for (double target = 0.0; target < 360.0; target += 30.0) {
    problem.target = target;
    const std::vector<Root> found = AllRoots(problem, kEpoch - 1000.0, kEpoch + 1000.0);
    ASSERT_NEAR(static_cast<double>(found.size()), 2000.0 * 13.1764 / 360.0, 1.01) << target;
    for (std::size_t i = 0; i < found.size(); ++i) {
      EXPECT_EQ(found[i].direction, 1);
      EXPECT_NEAR(std::remainder(f(found[i].moment) - target, 360.0), 0.0, 3e-8);
      if (i > 0) {
        EXPECT_NEAR(found[i].moment - found[i - 1].moment, 27.32, 1.0);
      }
    }
  }
}

TEST(FindRoots, KnowsTheFirstMomentAndNotTheLast) {
  auto f = [](double t) { return (t - kEpoch) * (t - kEpoch - 16.0); };
  const RootProblem problem = ProblemOf(f, 2.0, 1e-14, 8.0);
  // Both roots stand on the grid, where a root is exact.
  EXPECT_EQ(AllRoots(problem, kEpoch, kEpoch + 16.0).size(), 1U);
  EXPECT_EQ(AllRoots(problem, kEpoch, kEpoch + 16.0)[0].moment, kEpoch);
  EXPECT_EQ(AllRoots(problem, std::nextafter(kEpoch, kInfinity), kEpoch + 16.0).size(), 0U);
  EXPECT_EQ(AllRoots(problem, kEpoch, std::nextafter(kEpoch + 16.0, kInfinity)).size(), 2U);
}

TEST(FindRoots, RespectsTheCapacityAndCountsAll) {
  auto f = [](double t) { return std::sin(t); };
  const RootProblem problem = ProblemOf(f, 1.0, 1e-15, 1.0);
  std::vector<Root> all = AllRoots(problem, 0.5, 100.0);
  ASSERT_EQ(all.size(), 31U);
  Root some[5] = {};
  some[4].moment = -7.0;
  EXPECT_EQ(FindRoots(problem, 0.5, 100.0, some, 4), 31);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(some[i].moment, all[i].moment);
  }
  EXPECT_EQ(some[4].moment, -7.0);
  EXPECT_EQ(FindRoots(problem, 0.5, 100.0, nullptr, -3), 31);
}

TEST(FindRoots, RefusesSpansThatHaveNoEnd) {
  auto f = [](double t) { return std::sin(t); };
  const RootProblem problem = ProblemOf(f, 1.0, 1e-15, 1.0);
  const double bad[] = {kNaN, kInfinity, -kInfinity, 1e300, -1e300};
  for (const double bound : bad) {
    EXPECT_EQ(FindRoots(problem, 0.0, bound, nullptr, 0), -1) << bound;
    EXPECT_EQ(FindRoots(problem, bound, 0.0, nullptr, 0), -1) << bound;
  }
  EXPECT_EQ(FindRoots(problem, 0.0, 2e7, nullptr, 0), -1);
  EXPECT_EQ(FindRoots(problem, 10.0, 0.0, nullptr, 0), 0);
  EXPECT_EQ(FindRoots(problem, 3.0, 3.0, nullptr, 0), 0);
}

TEST(FindRoots, RefusesStatementsThatAreNone) {
  auto f = [](double t) { return t; };
  const RootProblem sound = ProblemOf(f, 1.0, 0.0, 1.0);
  EXPECT_EQ(FindRoots(sound, -1.0, 1.0, nullptr, 0), 1);
  for (const double bad : {0.0, -1.0, kNaN, kInfinity}) {
    RootProblem problem = sound;
    problem.bend = bad;
    EXPECT_EQ(FindRoots(problem, -1.0, 1.0, nullptr, 0), -1) << bad;
    problem = sound;
    problem.step = bad;
    EXPECT_EQ(FindRoots(problem, -1.0, 1.0, nullptr, 0), -1) << bad;
  }
  RootProblem problem = sound;
  problem.noise = kNaN;
  EXPECT_EQ(FindRoots(problem, -1.0, 1.0, nullptr, 0), -1);
  problem = sound;
  problem.target = kNaN;
  EXPECT_EQ(FindRoots(problem, -1.0, 1.0, nullptr, 0), -1);
  EXPECT_EQ(FindRoots(RootProblem{}, -1.0, 1.0, nullptr, 0), -1);
}

TEST(FindRoots, FindsARootWhereTheValueItselfIsMissing) {
  // No value where it would be 0 to the last bit, as fields of a record that is left unwritten.
  auto f = [](double t) { return t == kEpoch || t == kEpoch + 1.0 ? kNaN : t - kEpoch; };
  const std::vector<Root> found =
      AllRoots(ProblemOf(f, 1.0, 1e-12, 1.0), kEpoch - 9.0, kEpoch + 9.0);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NEAR(found[0].moment, kEpoch, 2e-9);
}

TEST(FindRoots, EndsForFunctionsThatKeepNoPromise) {
  std::int64_t calls = 0;
  const double from = kEpoch;
  const double to = kEpoch + 64.0;
  const auto count = [&](auto function, double noise) {
    calls = 0;
    auto counted = [&](double t) {
      ++calls;
      return function(t);
    };
    RootProblem problem = ProblemOf(counted, 1.0, noise, 8.0);
    return FindRoots(problem, from, to, nullptr, 0);
  };
  const std::int64_t most = std::int64_t{12} * kValuesPerCell * 4;
  EXPECT_EQ(count([](double) { return kNaN; }, 0.0), 0);
  EXPECT_LE(calls, most);
  EXPECT_EQ(count([](double) { return kInfinity; }, 0.0), 0);
  EXPECT_LE(calls, most);
  EXPECT_EQ(count([](double t) { return t < kEpoch + 30.3 ? kNaN : 1.0; }, 0.0), 0);
  EXPECT_LE(calls, most);
  count([](double) { return 0.0; }, 0.0);
  EXPECT_LE(calls, most);
  count([](double) { return 1.5e-9; }, 1e-9);
  EXPECT_LE(calls, most);
  count([](double t) { return std::sin(1e6 * t); }, 1e-9);
  EXPECT_LE(calls, most);
  count([](double t) { return std::sin(t * t * t); }, 0.0);
  EXPECT_LE(calls, most);
  count([](double t) { return std::copysign(kInfinity, std::sin(t)); }, 0.0);
  EXPECT_LE(calls, most);
  count([](double t) { return std::fmod(t * 1e9, 1.0) - 0.5; }, 1e-3);
  EXPECT_LE(calls, most);
}

TEST(FindRoots, TakesAJumpAcrossTheTargetForARoot) {
  auto f = [](double t) { return t < kEpoch + 3.3 ? -2.0 : 5.0; };
  const std::vector<Root> found =
      AllRoots(ProblemOf(f, 0.01, 1e-12, 8.0), kEpoch - 64.0, kEpoch + 64.0);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NEAR(found[0].moment, kEpoch + 3.3, 1e-9);
}

// A hundred random sums of cosines: every crossing of a random target that a scan of a thousandth
// of the shortest period finds is found, in the same direction, and no other but grazing contacts.
TEST(FindRoots, AgreesWithAFineScanOfRandomSums) {
  std::mt19937_64 random(20240601);
  std::size_t compared = 0;
  for (int round = 0; round < 100; ++round) {
    const TrigonometricSum f = RandomSum(random, 2 + round % 6, 0.0);
    std::uniform_real_distribution<double> level(-0.7 * f.Bound(0), 0.7 * f.Bound(0));
    RootProblem problem = ProblemOf(f, f.Bound(2), f.Noise(700.0), 64.0);
    problem.function = FunctionOf(f);
    problem.target = level(random);
    const std::vector<Root> found = AllRoots(problem, kEpoch - 500.0, kEpoch + 500.0);
    const auto y = [&](double t) { return f.Derivative(0, t) - problem.target; };
    const std::vector<Root> expected = ScannedRoots(y, kEpoch - 500.0, kEpoch + 500.0, 50000);
    ASSERT_EQ(found.size(), expected.size()) << round;
    for (std::size_t i = 0; i < found.size(); ++i) {
      ASSERT_EQ(found[i].direction, expected[i].direction) << round;
      const double slope = std::fabs(f.Derivative(1, expected[i].moment));
      ASSERT_NEAR(found[i].moment, expected[i].moment, 2e-9 + 3.0 * problem.noise / slope) << round;
    }
    compared += found.size();
  }
  EXPECT_GE(compared, 700U);
}

// A target that is the value at an extreme: the contact there is found, once, among all the others.
TEST(FindRoots, FindsTheGrazingContactsOfRandomSums) {
  std::mt19937_64 random(77);
  int grazed = 0;
  for (int round = 0; round < 60; ++round) {
    const TrigonometricSum f = RandomSum(random, 2 + round % 5, 0.0);
    const auto slope = [&](double t) { return f.Derivative(1, t); };
    const std::vector<Root> turns = ScannedRoots(slope, kEpoch - 300.0, kEpoch + 300.0, 30000);
    const double noise = f.Noise(400.0);
    for (const Root& turn : turns) {
      RootProblem problem = ProblemOf(f, f.Bound(2), noise, 32.0);
      problem.target = f.Derivative(0, turn.moment);
      const auto near = [&](double t) { return std::fabs(t - turn.moment) < 0.05; };
      std::vector<Root> contacts;
      for (const Root& root : AllRoots(problem, kEpoch - 300.0, kEpoch + 300.0)) {
        if (near(root.moment)) {
          contacts.push_back(root);
        }
      }
      ASSERT_EQ(contacts.size(), 1U) << round << " at " << turn.moment;
      EXPECT_EQ(contacts[0].direction, 0);
      const double bend = std::fabs(f.Derivative(2, turn.moment));
      // The values tell no more than this about where the turning point is.
      const double told = std::sqrt(2.0 * noise / bend);
      ASSERT_NEAR(contacts[0].moment, turn.moment, 1e-6 + told) << round;
      ++grazed;
      // Beyond the extreme by a thousand times the noise: none; this side of it: two.
      const double beyond = turn.direction < 0 ? 1000.0 * noise : -1000.0 * noise;
      const auto count_near = [&](double target) {
        problem.target = target;
        int count = 0;
        for (const Root& root : AllRoots(problem, kEpoch - 300.0, kEpoch + 300.0)) {
          count += near(root.moment) ? 1 : 0;
        }
        return count;
      };
      const double extreme = problem.target;
      ASSERT_EQ(count_near(extreme + beyond), 0) << round;
      ASSERT_EQ(count_near(extreme - beyond), 2) << round;
    }
  }
  EXPECT_GE(grazed, 500);
}

// The moments do not depend on the span that finds them, so any cut of a span gives the same.
TEST(FindRoots, GivesTheSameBitsInEverySpan) {
  std::mt19937_64 random(5);
  for (int round = 0; round < 40; ++round) {
    const TrigonometricSum f = RandomSum(random, 5, 0.0);
    RootProblem problem = ProblemOf(f, f.Bound(2), f.Noise(700.0), 32.0);
    if (round % 2 == 1) {
      // A grazing contact among them.
      const auto turns = ScannedRoots([&](double t) { return f.Derivative(1, t); }, kEpoch - 100.0,
                                      kEpoch + 100.0, 10000);
      problem.target = f.Derivative(0, turns[turns.size() / 2].moment);
    }
    const double from = kEpoch - 500.0;
    const double to = kEpoch + 500.0;
    const std::vector<Root> all = AllRoots(problem, from, to);
    std::uniform_real_distribution<double> any(from, to);
    for (int cut = 0; cut < 50; ++cut) {
      double between = any(random);
      if (!all.empty() && cut % 2 == 0) {
        between =
            all[IndexBelow(random, all.size())].moment;  // a span begins with it or ends before it
        if (cut % 4 == 0) {
          between = std::nextafter(between, to);
        }
      }
      std::vector<Root> parts = AllRoots(problem, from, between);
      for (const Root& root : AllRoots(problem, between, to)) {
        parts.push_back(root);
      }
      ASSERT_EQ(parts.size(), all.size()) << round << " cut at " << between;
      for (std::size_t i = 0; i < all.size(); ++i) {
        ASSERT_EQ(parts[i].moment, all[i].moment);
        ASSERT_EQ(parts[i].direction, all[i].direction);
      }
    }
  }
}

TEST(FindRoots, IsTakenUpAgainFromItsLastMoment) {
  const TrigonometricSum f{0.0, {{1.0, 0.31, 0.2}, {0.8, 0.13, 1.0}}};
  const RootProblem problem = ProblemOf(f, f.Bound(2), f.Noise(4000.0), 16.0);
  const double to = kEpoch + 3000.0;
  const std::vector<Root> all = AllRoots(problem, kEpoch, to);
  std::vector<Root> pieces;
  double from = kEpoch;
  for (;;) {
    Root some[7];
    const std::int32_t left = FindRoots(problem, from, to, some, 7);
    pieces.insert(pieces.end(), some, some + std::min(left, 7));
    if (left <= 7) {
      break;
    }
    from = std::nextafter(some[6].moment, to);
  }
  ASSERT_EQ(pieces.size(), all.size());
  ASSERT_GE(all.size(), 150U);
  for (std::size_t i = 0; i < all.size(); ++i) {
    ASSERT_EQ(pieces[i].moment, all[i].moment);
  }
}

TEST(FindRoots, FindsWithAGuideWhatItFindsWithout) {
  std::mt19937_64 random(11);
  std::int64_t dear = 0;
  std::size_t found_all = 0;
  for (int round = 0; round < 60; ++round) {
    TrigonometricSum f = RandomSum(random, 5, 0.0);
    TrigonometricSum guide = f;
    f.terms.push_back({1e-5, 0.11, 1.0});
    f.terms.push_back({1e-5, 0.23, 2.0});
    RootProblem problem = ProblemOf(f, f.Bound(2), f.Noise(700.0), 32.0);
    std::uniform_real_distribution<double> level(-0.5 * f.Bound(0), 0.5 * f.Bound(0));
    problem.target = level(random);
    const std::vector<Root> plain = AllRoots(problem, kEpoch - 500.0, kEpoch + 500.0);
    problem.guide = FunctionOf(guide);
    problem.guide_error = 2e-5;
    f.calls = 0;
    std::vector<Root> guided(plain.size() + 1);
    const std::int32_t count = FindRoots(problem, kEpoch - 500.0, kEpoch + 500.0, guided.data(),
                                         static_cast<std::int32_t>(guided.size()));
    dear += f.calls;
    ASSERT_EQ(count, static_cast<std::int32_t>(plain.size())) << round;
    for (std::size_t i = 0; i < plain.size(); ++i) {
      const double slope = std::fabs(f.Derivative(1, plain[i].moment));
      ASSERT_NEAR(guided[i].moment, plain[i].moment, 3e-9 + 3.0 * problem.noise / slope);
      ASSERT_EQ(guided[i].direction, plain[i].direction);
    }
    found_all += plain.size();
  }
  EXPECT_GE(found_all, 500U);
  // About two values of the dear function for each root.
  EXPECT_LE(static_cast<double>(dear), 2.6 * static_cast<double>(found_all));
}

}  // namespace
}  // namespace zenithor
