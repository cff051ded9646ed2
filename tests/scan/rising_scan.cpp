// How long the refinement of rising, transit and setting runs, and how often it does not settle.
//   rising_scan [CALLS [SEED]]
// All bodies, years 1600 to 2200, latitudes -90 to 90: a third anywhere, a third near the polar
// circles, a third where the body grazes the horizon. A call is one of the three events of an
// observer's day. Ends with status 1 when a call took a second of processor time or longer.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <random>

#include "numerics/constants.h"
#include "rising/rising_moon.h"
#include "rising/rising_planet.h"
#include "support/full_store.h"

namespace zenithor {
namespace {

struct Tally {
  long long calls = 0;
  long long signals = 0;
  long long settled = 0;
  long long outside = 0;  // settled rises and sets outside the day
  long long no_direction = 0;
  long long repeats = 0;
  long long not_a_number = 0;
  long long given_up = 0;
  int longest_settled = 0;
  int longest_repeat = 0;
  long long settled_after[6] = {};  // 10^k steps and more
  double longest_seconds = 0.0;
};

class Scan {
 public:
  explicit Scan(unsigned seed) : random_(seed) {}

  Tally Run(long long calls) {
    while (tally_.calls < calls) {
      const auto code = static_cast<BodyCode>(Uniform(0.0, 11.0));
      const double minutes = Uniform(0.0, 1.0) < 0.5 ? 0.0 : Uniform(0.0, 1440.0);
      RisingRequest request{std::floor(Uniform(-131800.0, 87300.0)),
                            minutes,
                            std::floor(Uniform(-14.0, 15.0)),
                            0.0,
                            0.0,
                            code};
      // The places of the fast bodies do not depend on the observer, so one serves for several.
      const bool fast = code < ZENITHOR_JUPITER || code == ZENITHOR_MOON;
      RiseSetProblem problem = Pose(request);
      for (int observer = 0; observer < (fast ? 20 : 1); ++observer) {
        request.latitude = Latitude(problem) * kDegreesPerRadian;
        request.longitude = Uniform(-180.0, 180.0);
        if (!fast) {
          problem = Pose(request);
        }
        problem.latitude = request.latitude * kRadiansPerDegree;
        problem.longitude = request.longitude * kRadiansPerDegree;
        Count(problem, code);
      }
    }
    return tally_;
  }

 private:
  double Uniform(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }

  static RiseSetProblem Pose(const RisingRequest& request) {
    MomentCache cache;
    static thread_local SumRoom room;
    cache.room = &room;
    return request.code == ZENITHOR_MOON
               ? MoonRiseSetProblem(request)
               : PlanetRiseSetProblem(testing::FullStore(), request, cache);
  }

  // [rad]
  double Latitude(const RiseSetProblem& problem) {
    const double pole = kPi / 2.0;
    const double sign = Uniform(0.0, 1.0) < 0.5 ? 1.0 : -1.0;
    const double kind = Uniform(0.0, 3.0);
    if (kind < 1.0 || std::isnan(problem.delta.middle)) {
      return Uniform(-pole, pole);
    }
    if (kind < 2.0) {
      return sign * std::min(pole, (66.56 + Uniform(-6.0, 6.0)) * kRadiansPerDegree);
    }
    // cos H0 is 1 where phi - delta = 90 - h0 either way, -1 where phi + delta = 90 + h0 either
    // way; from there 0.1 rad to a ten-millionth of it.
    const double edge = Uniform(0.0, 1.0) < 0.5 ? problem.delta.middle + sign * (pole - problem.h0)
                                                : sign * (pole + problem.h0) - problem.delta.middle;
    const double off = (Uniform(0.0, 1.0) < 0.5 ? 0.1 : -0.1) * std::pow(10.0, Uniform(-6.0, 0.0));
    return std::clamp(edge + off, -pole, pole);
  }

  void Count(const RiseSetProblem& problem, BodyCode code) {
    const std::clock_t start = std::clock();
    const RiseSetTimes times = SolveRiseSet(problem);
    const double taken = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    tally_.longest_seconds = std::max(tally_.longest_seconds, taken);
    tally_.calls += 3;
    if (times.horizon != Horizon::kRisesAndSets) {
      tally_.signals += 3;
      return;
    }
    if (code == ZENITHOR_EARTH) {
      tally_.no_direction += 3;
      return;
    }
    CountEvent(times.rise_run, times.rise);
    CountEvent(times.transit_run, kPi);
    CountEvent(times.set_run, times.set);
  }

  void CountEvent(const Refinement& run, double time) {
    switch (run.ending) {
      case Ending::kSettled:
        ++tally_.settled;
        tally_.outside += time < 0.0 || time > kTwoPi ? 1 : 0;
        tally_.longest_settled = std::max(tally_.longest_settled, run.steps);
        for (int k = 0, steps = 1; k < 6; ++k, steps *= 10) {
          tally_.settled_after[k] += run.steps >= steps ? 1 : 0;
        }
        break;
      case Ending::kRepeats:
        ++tally_.repeats;
        tally_.longest_repeat = std::max(tally_.longest_repeat, run.steps);
        break;
      case Ending::kNotANumber:
        ++tally_.not_a_number;
        break;
      case Ending::kGivenUp:
        ++tally_.given_up;
        break;
      case Ending::kNotRun:
        std::abort();
    }
  }

  std::mt19937_64 random_;
  Tally tally_;
};

// Of the 14 611 days from 1990 January 1 to 2030 January 1, how many have a rise or a set of the
// Moon that does not settle, asked for with 1 minute.
int UnsettledMoonDays(double east_longitude, double latitude) {
  constexpr double kFirstDay = 10593.0;  // 1990 January 1
  int unsettled = 0;
  for (int day = 0; day < 14611; ++day) {
    const RiseSetResult moon = RiseSetMinutes(
        MoonRiseSetProblem({kFirstDay + day, 1.0, 0.0, -east_longitude, latitude, ZENITHOR_MOON}));
    unsettled += std::isnan(moon.Rise) || std::isnan(moon.Set) ? 1 : 0;
  }
  return unsettled;
}

}  // namespace
}  // namespace zenithor

int main(int argc, char** argv) {
  const long long calls = argc > 1 ? std::atoll(argv[1]) : 1200000;
  const unsigned seed = argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 1;
  const zenithor::Tally tally = zenithor::Scan(seed).Run(calls);
  std::printf("calls                                  %lld\n", tally.calls);
  std::printf("answered 16 or 32                      %lld\n", tally.signals);
  std::printf("settled                                %lld\n", tally.settled);
  std::printf("  after 10, 100, 1000, 10000+ steps    %lld, %lld, %lld, %lld\n",
              tally.settled_after[1], tally.settled_after[2], tally.settled_after[3],
              tally.settled_after[4]);
  std::printf("  longest                              %d steps\n", tally.longest_settled);
  std::printf("  rise or set outside the day          %lld\n", tally.outside);
  std::printf("unsettled                              %lld\n",
              tally.repeats + tally.not_a_number + tally.given_up);
  std::printf("  proven to repeat                     %lld (longest after %d steps)\n",
              tally.repeats, tally.longest_repeat);
  std::printf("  ran into NaN                         %lld\n", tally.not_a_number);
  std::printf("  given up after %d steps          %lld\n", zenithor::kGiveUpSteps, tally.given_up);
  std::printf("the Earth, which has no direction      %lld\n", tally.no_direction);
  std::printf("longest processor time of all three    %.1f ms\n", tally.longest_seconds * 1e3);
  std::printf("days of the Moon, 1990 to 2029, at Tromso and Longyearbyen  %d, %d\n",
              zenithor::UnsettledMoonDays(18.956, 69.6496),
              zenithor::UnsettledMoonDays(15.6267, 78.2232));
  return tally.longest_seconds < 1.0 ? 0 : 1;
}
