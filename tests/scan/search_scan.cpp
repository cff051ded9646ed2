// Stations and ingresses of Mercury, Venus and Mars from 1900 to 2100 against a walk over the
// library's own places in steps of an eighth of a day.
//   search_scan [runs]
// A moment of the walk is the change of sign between two neighbours, bisected to 1e-8 day: of field
// 103 for stations, of field 101 less the beginning of a sign for ingresses. Ends with status 1
// when there is one more or less, or two are more than 1e-6 day apart.
// With `runs` it prints instead the shortest time for which the apparent longitude of each planet
// ran direct and retrograde, from -2000 to 4000, by the changes of field 106: what a search for
// stations rests on (kShortestRuns in values/stations.cpp).

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <vector>

#include "positions/position.h"
#include "support/full_store.h"
#include "values/crossings.h"
#include "values/field_values.h"
#include "values/guide_store.h"
#include "values/stations.h"
#include "zenithor/values.h"

namespace zenithor {
namespace {

constexpr double kFrom = 2415020.5;  // 1900 January 1
constexpr double kTo = 2488069.5;    // 2100 January 1
constexpr double kStep = 0.125;

SumRoom room;
NodeMemory nodes;
PositionState state;

double Value(int body, int field, double day) {
  double value;
  FieldValues(testing::FullStore(), state, body, field, &day, 1, &value);
  return value;
}

template <class Function>
double ChangeOfSign(Function f, double a, double b, double before) {
  while (b - a > 1e-8) {
    const double middle = 0.5 * (a + b);
    ((f(middle) >= 0.0) == (before >= 0.0) ? a : b) = middle;
  }
  return 0.5 * (a + b);
}

// Compares and prints a line; false when the two disagree.
bool Compare(const char* what, int body, const std::vector<double>& found,
             const std::vector<double>& walked) {
  double worst = 0.0;
  for (std::size_t i = 0; i < std::min(found.size(), walked.size()); ++i) {
    worst = std::max(worst, std::fabs(found[i] - walked[i]));
  }
  std::printf("%-9s of body %d  %5zu found, %5zu walked over, at most %.1e day apart\n", what, body,
              found.size(), walked.size(), worst);
  return found.size() == walked.size() && worst <= 1e-6;
}

bool ScanBody(const SearchStores& stores, int body) {
  std::vector<double> found(4000);
  found.resize(static_cast<std::size_t>(
      FindStations(stores, state, body, ZENITHOR_FIELD_APPARENT_LONGITUDE, kFrom, kTo, found.data(),
                   nullptr, static_cast<std::int32_t>(found.size()))));
  std::vector<double> ingresses;
  for (int sign = 0; sign < 12; ++sign) {
    std::vector<double> of_sign(4000);
    of_sign.resize(static_cast<std::size_t>(
        FindCrossings(stores, state, body, ZENITHOR_FIELD_APPARENT_LONGITUDE, 30.0 * sign, kFrom,
                      kTo, of_sign.data(), nullptr, static_cast<std::int32_t>(of_sign.size()))));
    ingresses.insert(ingresses.end(), of_sign.begin(), of_sign.end());
  }
  std::sort(ingresses.begin(), ingresses.end());

  std::vector<double> stations;
  std::vector<double> entered;
  const auto motion = [body](double t) { return Value(body, ZENITHOR_FIELD_LONGITUDE_MOTION, t); };
  const auto longitude = [body](double t) {
    return Value(body, ZENITHOR_FIELD_APPARENT_LONGITUDE, t);
  };
  double motion_before = motion(kFrom);
  double longitude_before = longitude(kFrom);
  for (double t = kFrom; t < kTo; t += kStep) {
    const double motion_after = motion(t + kStep);
    if ((motion_before >= 0.0) != (motion_after >= 0.0)) {
      stations.push_back(ChangeOfSign(motion, t, t + kStep, motion_before));
    }
    const double longitude_after = longitude(t + kStep);
    for (int sign = 0; sign < 12; ++sign) {
      const auto past = [&](double x) { return std::remainder(x - 30.0 * sign, 360.0); };
      const double a = past(longitude_before);
      const double b = past(longitude_after);
      if ((a >= 0.0) != (b >= 0.0) && std::fabs(a) < 90.0) {
        entered.push_back(
            ChangeOfSign([&](double moment) { return past(longitude(moment)); }, t, t + kStep, a));
      }
    }
    motion_before = motion_after;
    longitude_before = longitude_after;
  }
  const bool same_stations = Compare("stations", body, found, stations);
  return Compare("ingresses", body, ingresses, entered) && same_stations;
}

void ScanRuns(const SearchStores& stores, int body) {
  constexpr std::int32_t kMost = 60000;
  static double days[2][kMost];  // when it turns retrograde, direct
  std::int32_t count[2];
  for (const int way : {0, 1}) {
    count[way] = FindCrossings(stores, state, body, ZENITHOR_FIELD_DIRECTION, way == 1 ? 1.0 : -1.0,
                               ZENITHOR_FIRST_DAY, ZENITHOR_LAST_DAY, days[way], nullptr, kMost);
  }
  double shortest[2] = {1e9, 1e9};
  for (const int way : {0, 1}) {
    std::int32_t end = 0;
    for (std::int32_t i = 0; i < count[way]; ++i) {
      while (end < count[1 - way] && days[1 - way][end] <= days[way][i]) {
        ++end;
      }
      if (end < count[1 - way]) {
        shortest[way] = std::min(shortest[way], days[1 - way][end] - days[way][i]);
      }
    }
  }
  std::printf("body %d turned %d times, direct for %.2f days at least, retrograde for %.2f\n", body,
              count[0] + count[1], shortest[1], shortest[0]);
}

}  // namespace
}  // namespace zenithor

int main(int argc, char** argv) {
  static zenithor::EphemerisStore guide;
  static zenithor::GuideRooms rooms;
  zenithor::MakeGuide(zenithor::testing::FullStore(), guide, rooms);
  const zenithor::SearchStores stores{&zenithor::testing::FullStore(), &guide};
  zenithor::state.moment.room = &zenithor::room;
  zenithor::state.nodes = &zenithor::nodes;
  if (argc > 1 && std::strcmp(argv[1], "runs") == 0) {
    for (int body = ZENITHOR_BODY_MERCURY; body <= ZENITHOR_BODY_NEPTUNE; ++body) {
      if (body != ZENITHOR_BODY_EARTH) {
        zenithor::ScanRuns(stores, body);
      }
    }
    return 0;
  }
  bool good = true;
  for (const int body : {ZENITHOR_BODY_MERCURY, ZENITHOR_BODY_VENUS, ZENITHOR_BODY_MARS}) {
    good = zenithor::ScanBody(stores, body) && good;
  }
  return good ? 0 : 1;
}
