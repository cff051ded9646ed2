#include "time/clock.h"

#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>

#include "numerics/polynomials.h"

namespace zenithor {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kSecondsPerDay = 86400.0;
constexpr double kFarthestDay = 1e8;
constexpr double kStartOf2000 = 2451544.5;
constexpr double kDaysPerYear = 365.2425;

struct LeapPeriod {
  double first_day;  // Julian day of the clock
  double seconds;    // TT - UTC
};

constexpr LeapPeriod kLeapPeriods[] = {
#include "time/clock_leap_terms.inc"
};
constexpr std::size_t kLeapPeriodCount = std::size(kLeapPeriods);
static_assert(kLeapPeriodCount == 28, "from 1972 January 1 to 2017 January 1");
static_assert(kLeapPeriods[0].first_day == 2441317.5, "1972 January 1");

struct YearPolynomial {
  double first_year;
  double origin;
  double scale;
  double coefficients[8];
};

constexpr YearPolynomial kPolynomials[] = {
#include "time/clock_polynomial_terms.inc"
};
constexpr std::size_t kPolynomialCount = std::size(kPolynomials);
static_assert(kPolynomialCount == 11, "from the parabola before -500 to 1961");

// The pieces in the order of time: polynomials first.
constexpr std::size_t kPieceCount = kPolynomialCount + kLeapPeriodCount;

double FirstDay(std::size_t piece) {
  return piece < kPolynomialCount
             ? kStartOf2000 + (kPolynomials[piece].first_year - 2000.0) * kDaysPerYear
             : kLeapPeriods[piece - kPolynomialCount].first_day;
}

double Seconds(std::size_t piece, double clock_day) {
  if (piece >= kPolynomialCount) {
    return kLeapPeriods[piece - kPolynomialCount].seconds;
  }
  const YearPolynomial& row = kPolynomials[piece];
  const double year = 2000.0 + (clock_day - kStartOf2000) / kDaysPerYear;
  return EvaluatePolynomial(row.coefficients, (year - row.origin) / row.scale);
}

double Dynamical(std::size_t piece, double clock_day) {
  return clock_day + Seconds(piece, clock_day) / kSecondsPerDay;
}

bool IsAnswered(double day) { return std::fabs(day) <= kFarthestDay; }

std::size_t PieceOfClock(double clock_day) {
  std::size_t piece = kPieceCount - 1;
  while (piece > 0 && clock_day < FirstDay(piece)) {
    --piece;
  }
  return piece;
}

}  // namespace

double DynamicalLessClock(double clock_day) {
  return IsAnswered(clock_day) ? Seconds(PieceOfClock(clock_day), clock_day) : kNaN;
}

double ClockToDynamical(double clock_day) {
  return IsAnswered(clock_day) ? Dynamical(PieceOfClock(clock_day), clock_day) : kNaN;
}

double DynamicalToClock(double dynamical_day) {
  if (!IsAnswered(dynamical_day)) {
    return kNaN;
  }
  std::size_t piece = kPieceCount - 1;
  while (piece > 0 && dynamical_day < Dynamical(piece, FirstDay(piece))) {
    --piece;
  }
  // TT - UT changes by less than 1e-6 of the time since -3000 and by 6e-5 of it at the farthest
  // day: each round brings four digits more.
  double clock_day = dynamical_day;
  for (int round = 0; round < 6; ++round) {
    clock_day = dynamical_day - Seconds(piece, clock_day) / kSecondsPerDay;
  }
  return piece + 1 < kPieceCount && clock_day > FirstDay(piece + 1) ? FirstDay(piece + 1)
                                                                    : clock_day;
}

}  // namespace zenithor
