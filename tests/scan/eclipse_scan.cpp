// How many lunations a search for an eclipse looks at, and how long it takes where it gives up.
//   eclipse_scan [FIRST_DAY LAST_DAY]
// Walks through every new moon and every full moon that a search from a day that has a calendar
// date can come to, and on to the next eclipse, and prints the longest run without one: no search
// from such a day looks at more. Then times searches from 2000 days without a date, up to where
// lunations can no longer be counted: processor time, the quickest of three. Ends with status 1
// when a run is as long as the limit, or when a search takes 100 ms.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <random>

#include "events/eclipse_core.h"
#include "events/lunar_eclipse.h"
#include "events/lunar_phase.h"
#include "events/solar_eclipse.h"

namespace zenithor {
namespace {

constexpr double kLunationsPerDay = 1.0 / 29.530588853;

struct Run {
  long long lunations = 0;  // looked at, the one with the eclipse included
  double first = 0.0;
};

struct Walk {
  long long lunations = 0;
  long long eclipses = 0;
  Run longest;
};

template <class HasEclipse>
Walk WalkLunations(double first, double last, HasEclipse has_eclipse) {
  Walk walk;
  Run run{0, first};
  double k = first;
  for (bool ended = false; k <= last || !ended; k += 1.0) {
    ++walk.lunations;
    ++run.lunations;
    ended = has_eclipse(k);
    if (ended) {
      ++walk.eclipses;
      walk.longest = run.lunations > walk.longest.lunations ? run : walk.longest;
      run = {0, k + 1.0};
    }
  }
  return walk;
}

void Print(const char* name, const Walk& walk) {
  std::printf("%s: %lld lunations, %lld eclipses; longest search %lld lunations, from day %.0f\n",
              name, walk.lunations, walk.eclipses, walk.longest.lunations,
              kMeanNewMoonOf2000 + walk.longest.first / kLunationsPerDay);
}

struct Timing {
  int found = 0;
  int above_5_ms = 0;
  double longest = 0.0;  // [s]
  double longest_day = 0.0;
};

void Print(const char* name, const Timing& timing) {
  std::printf("%s: %d found, %d took more than 5 ms, the longest %.1f ms, from day %.17g\n", name,
              timing.found, timing.above_5_ms, 1e3 * timing.longest, timing.longest_day);
}

template <class Find>
void TimeSearch(double day, Find find, Timing& timing) {
  double taken = std::numeric_limits<double>::infinity();
  bool found = false;
  for (int k = 0; k < 3; ++k) {
    const std::clock_t start = std::clock();
    found = find(day).found;
    taken = std::min(taken, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  }
  timing.found += found ? 1 : 0;
  timing.above_5_ms += taken > 0.005 ? 1 : 0;
  if (taken > timing.longest) {
    timing.longest = taken;
    timing.longest_day = day;
  }
}

}  // namespace
}  // namespace zenithor

int main(int argc, char** argv) {
  using namespace zenithor;
  const double first_day = argc > 2 ? std::atof(argv[1]) : -2147483648.5;
  const double last_day = argc > 2 ? std::atof(argv[2]) : 2147483648.5;
  // The searches begin 10 and 22 days before the day that the host asks for.
  const double first = FirstLunationAfter(first_day - 22.0);
  const double last = FirstLunationAfter(last_day - 10.0);
  const Walk solar = WalkLunations(
      first, last, [](double k) { return DescribeSolarEclipse(ComputeEclipseGeometry(k)).found; });
  const Walk lunar = WalkLunations(first + 0.5, last + 0.5, [](double k) {
    return DescribeLunarEclipse(ComputeEclipseGeometry(k)).found;
  });
  Print("solar", solar);
  Print("lunar", lunar);

  constexpr int kFarDays = 1000;
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> exponent(std::log(2147483648.0), std::log(2.66e17));
  Timing solar_timing;
  Timing lunar_timing;
  for (int k = 0; k < kFarDays; ++k) {
    const double day = std::exp(exponent(random));
    for (const double far : {day, -day}) {
      TimeSearch(far, FindSolarEclipse, solar_timing);
      TimeSearch(far, FindLunarEclipse, lunar_timing);
    }
  }
  std::printf("limit %d lunations; from %d days without a date\n", kLongestSearch, 2 * kFarDays);
  Print("solar", solar_timing);
  Print("lunar", lunar_timing);
  const long long longest = std::max(solar.longest.lunations, lunar.longest.lunations);
  const double seconds = std::max(solar_timing.longest, lunar_timing.longest);
  return longest < kLongestSearch && seconds < 0.1 ? 0 : 1;
}
