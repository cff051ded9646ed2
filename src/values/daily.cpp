#include "values/daily.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "numerics/angles.h"
#include "numerics/constants.h"
#include "rising/day_start.h"
#include "rising/diurnal_path.h"
#include "rising/rising_moon.h"
#include "rising/rising_planet.h"
#include "time/constants.h"
#include "zenithor/values.h"

namespace zenithor {

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kMostDays = 2147483647.0;  // day numbers either way

// The day number of the civil day that holds the moment.
double DayNumberOf(const DailyRequest& request) {
  return std::floor(request.julian_day - kDayNumberEpoch + request.zone_hours / 24.0);
}

// The right ascensions and declinations of Pluto's own machinery; the rising export's are those of
// the equinox of J2000.0.
void TakePlutoPlaces(const EphemerisStore& store, PositionState& state, RiseSetProblem& problem) {
  Equatorial places[3] = {};
  for (int k = 0; k < 3; ++k) {
    const double moment = problem.day_start_days + kJ2000 + problem.delta_t / 86400.0 + (k - 1.0);
    BodyPositionRecord record{};
    ComputePlace(store, state, moment, 0.0, 0.0, ZENITHOR_PLUTO, record, places[k]);
  }
  problem.alpha = {places[0].alpha, places[1].alpha, places[2].alpha};
  problem.delta = {places[0].delta, places[1].delta, places[2].delta};
}

RiseSetProblem ProblemOf(const EphemerisStore& store, PositionState& state,
                         const DailyRequest& request, double day_number) {
  // The slow bodies and the Moon's parallax are taken at the given instant: the day's middle.
  constexpr double kMiddle = 720.0;  // [min]
  const RisingRequest rising{day_number,          kMiddle,
                             -request.zone_hours, -std::remainder(request.longitude, 360.0),
                             request.latitude,    request.body};
  if (request.body == ZENITHOR_BODY_MOON) {
    return MoonRiseSetProblem(rising);
  }
  RiseSetProblem problem = PlanetRiseSetProblem(store, rising, state.moment);
  if (request.body == ZENITHOR_BODY_PLUTO) {
    TakePlutoPlaces(store, state, problem);
  }
  return problem;
}

// How far the body is above its standard altitude.
double Height(const RiseSetProblem& problem, const DiurnalPath& path, double m) {
  return path.Altitude(path.Declination(m), path.HourAngle(m)) - problem.h0;
}

// The moment near m at which the hour angle is `hour_angle`. A turn takes a body 0.997 to 1.06 day,
// so each step leaves a twentieth of the error.
double MomentOfHourAngle(const DiurnalPath& path, double hour_angle, double m) {
  constexpr int kSteps = 12;
  for (int k = 0; k < kSteps; ++k) {
    m -= ReduceAngleSigned(path.HourAngle(m) - hour_angle) / kTwoPi;
  }
  return m;
}

// The first moment from m = 0 on at which the hour angle is `hour_angle`, up to rounding.
double FirstOfHourAngle(const DiurnalPath& path, double hour_angle) {
  const double ahead = ReduceAngle(hour_angle - path.HourAngle(0.0));
  return MomentOfHourAngle(path, hour_angle, ahead / kTwoPi);
}

// The moments between which the altitude rises or falls all the time: the day's start,
// culminations, the day's end.
struct Stretches {
  double moments[6];
  double heights[6];
  int count;
};

Stretches StretchesOf(const RiseSetProblem& problem, const DiurnalPath& path, double end_height) {
  Stretches stretches{};
  stretches.moments[0] = 0.0;
  stretches.count = 1;
  for (const double culmination : {0.0, kPi}) {
    double m = FirstOfHourAngle(path, culmination);
    for (int turn = 0; turn < 2; ++turn) {
      if (m > 0.0 && m < 1.0) {
        stretches.moments[stretches.count] = m;
        ++stretches.count;
      }
      m = MomentOfHourAngle(path, culmination, m + 1.0);
    }
  }
  std::sort(stretches.moments, stretches.moments + stretches.count);
  for (int k = 0; k < stretches.count; ++k) {
    stretches.heights[k] = Height(problem, path, stretches.moments[k]);
  }
  stretches.moments[stretches.count] = 1.0;
  stretches.heights[stretches.count] = end_height;
  ++stretches.count;
  return stretches;
}

// The last moment between a and b (a before b) before the height takes the sign that it has at b.
double CrossingBetween(const RiseSetProblem& problem, const DiurnalPath& path, double a, double b,
                       bool rises) {
  constexpr int kHalvings = 45;
  for (int k = 0; k < kHalvings; ++k) {
    const double middle = 0.5 * (a + b);
    const bool is_up = Height(problem, path, middle) >= 0.0;
    (is_up == rises ? b : a) = middle;
  }
  return a;
}

// The first crossing of the horizon upward or downward; NaN when there is none.
double FirstCrossing(const RiseSetProblem& problem, const DiurnalPath& path,
                     const Stretches& stretches, bool rises) {
  for (int k = 0; k + 1 < stretches.count; ++k) {
    const bool up_before = stretches.heights[k] >= 0.0;
    const bool up_after = stretches.heights[k + 1] >= 0.0;
    if (up_before != up_after && up_after == rises) {
      return CrossingBetween(problem, path, stretches.moments[k], stretches.moments[k + 1], rises);
    }
  }
  return kNone;
}

// The first transit of the day; NaN when there is none. Whether one at the day's end is still of
// this day the next day's places say, as they say whether it is the next day's first.
double FirstTransit(const DiurnalPath& path, double end_hour_angle) {
  const double m = FirstOfHourAngle(path, 0.0);
  constexpr double kNearEnd = 0.01;
  if (std::fabs(m - 1.0) < kNearEnd) {
    return end_hour_angle > 0.0 ? std::fmin(m, 1.0) : kNone;
  }
  return m < 1.0 ? std::fmax(m, 0.0) : kNone;
}

// What the next day's places say of this day's last moment.
struct DayEnd {
  double height;
  double hour_angle;
};

DayEnd EndOf(const EphemerisStore& store, PositionState& state, const DailyRequest& request,
             double day_number) {
  const RiseSetProblem next = ProblemOf(store, state, request, day_number + 1.0);
  const DiurnalPath path(next);
  return {Height(next, path, 0.0), path.HourAngle(0.0)};
}

std::int32_t StatusOf(double moment, const Stretches& stretches) {
  if (!std::isnan(moment)) {
    return ZENITHOR_DAILY_HAPPENS;
  }
  const auto is_up = [](double height) { return height >= 0.0; };
  const double* const end = stretches.heights + stretches.count;
  if (std::all_of(stretches.heights, end, is_up)) {
    return ZENITHOR_DAILY_ALWAYS_UP;
  }
  return std::none_of(stretches.heights, end, is_up) ? ZENITHOR_DAILY_NEVER_UP
                                                     : ZENITHOR_DAILY_NONE;
}

}  // namespace

std::int32_t DailyError(const DailyRequest& request) {
  if (request.body < 0 || request.body >= ZENITHOR_BODY_COUNT ||
      request.body == ZENITHOR_BODY_EARTH) {
    return ZENITHOR_ERROR_BODY;
  }
  if (!std::isfinite(request.zone_hours) || !std::isfinite(request.longitude) ||
      !(std::fabs(request.latitude) <= 90.0)) {
    return ZENITHOR_ERROR_ANGLE;
  }
  return std::fabs(DayNumberOf(request)) < kMostDays ? 0 : ZENITHOR_ERROR_DAY;
}

DailyEvents EventsOfDay(const EphemerisStore& store, PositionState& state,
                        const DailyRequest& request) {
  const double day_number = DayNumberOf(request);
  const RiseSetProblem problem = ProblemOf(store, state, request, day_number);
  const DiurnalPath path(problem);
  const DayEnd end = EndOf(store, state, request, day_number);
  const Stretches stretches = StretchesOf(problem, path, end.height);
  const double* const heights_end = stretches.heights + stretches.count;
  if (std::any_of(stretches.heights, heights_end, [](double h) { return std::isnan(h); })) {
    return {{kNone, kNone, kNone},
            {ZENITHOR_DAILY_UNSETTLED, ZENITHOR_DAILY_UNSETTLED, ZENITHOR_DAILY_UNSETTLED}};
  }
  double moments[kDailyEvents] = {FirstCrossing(problem, path, stretches, true),
                                  FirstTransit(path, end.hour_angle),
                                  FirstCrossing(problem, path, stretches, false)};
  DailyEvents events{};
  const double start = day_number + kDayNumberEpoch - request.zone_hours / 24.0;
  const double last = std::nextafter(start + 1.0, start);
  for (int k = 0; k < kDailyEvents; ++k) {
    const bool transit = k == ZENITHOR_DAILY_TRANSIT - 1;
    std::int32_t status = StatusOf(moments[k], stretches);
    if (transit && StatusOf(kNone, stretches) == ZENITHOR_DAILY_NEVER_UP) {
      status = ZENITHOR_DAILY_NEVER_UP;
      moments[k] = kNone;
    } else if (transit && status != ZENITHOR_DAILY_HAPPENS) {
      status = ZENITHOR_DAILY_NONE;
    }
    events.statuses[k] = status;
    events.julian_days[k] = std::fmin(start + moments[k], last);
    if (std::isnan(moments[k])) {
      events.julian_days[k] = kNone;
    }
  }
  return events;
}

}  // namespace zenithor
