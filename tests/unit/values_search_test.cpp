// Crossings, stations and aspects against scans of the library's own places and against published
// moments.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "support/full_store.h"
#include "time/julian_day.h"
#include "values/aspects.h"
#include "values/crossings.h"
#include "values/field_bounds.h"
#include "values/field_track.h"
#include "values/fields.h"
#include "values/guide_store.h"
#include "values/smooth_values.h"
#include "values/stations.h"
#include "zenithor/values.h"

namespace zenithor {
namespace {

using testing::FullStore;

constexpr double kJ2000Day = 2451545.0;

struct Moment {
  double julian_day;
  std::int32_t direction;
};

const SearchStores& Stores() {
  static EphemerisStore guide;
  static GuideRooms rooms;
  static const SearchStores stores = [] {
    MakeGuide(FullStore(), guide, rooms);
    return SearchStores{&FullStore(), &guide};
  }();
  return stores;
}

PositionState& State() {
  static SumRoom room;
  static NodeMemory nodes;
  static PositionState state;
  state.moment.room = &room;
  state.nodes = &nodes;
  return state;
}

template <class Find>
std::vector<Moment> All(Find find) {
  std::vector<double> days(20000);
  std::vector<std::int32_t> directions(days.size());
  const std::int32_t count =
      find(days.data(), directions.data(), static_cast<std::int32_t>(days.size()));
  EXPECT_GE(count, 0);
  EXPECT_LE(count, static_cast<std::int32_t>(days.size()));
  std::vector<Moment> moments;
  for (std::int32_t i = 0; i < count; ++i) {
    const auto k = static_cast<std::size_t>(i);
    moments.push_back({days[k], directions[k]});
  }
  return moments;
}

std::vector<Moment> Crossings(int body, int field, double target, double from, double to) {
  return All([&](double* days, std::int32_t* directions, std::int32_t capacity) {
    return FindCrossings(Stores(), State(), body, field, target, from, to, days, directions,
                         capacity);
  });
}

std::vector<Moment> Stations(int body, int field, double from, double to) {
  return All([&](double* days, std::int32_t* directions, std::int32_t capacity) {
    return FindStations(Stores(), State(), body, field, from, to, days, directions, capacity);
  });
}

std::vector<Moment> Aspects(int body, int other, int field, double angle, double from, double to) {
  return All([&](double* days, std::int32_t* directions, std::int32_t capacity) {
    return FindAspects(Stores(), State(), body, other, field, angle, from, to, days, directions,
                       capacity);
  });
}

double Value(int body, int field, double day) {
  double value;
  SmoothValues(FullStore(), State(), body, field, &day, 1, &value);
  return value;
}

// [deg] in -180 to 180
double Turned(double angle) { return std::remainder(angle, 360.0); }

// The moments between neighbours of a fine grid at which the sign of `f` changes, by bisection.
// Jumps of more than 90 are wraps.
template <class Function>
std::vector<Moment> Scanned(Function f, double from, double to, double step) {
  std::vector<Moment> found;
  double before = f(from);
  for (double t = from; t < to; t += step) {
    const double after = f(t + step);
    if ((before >= 0.0) != (after >= 0.0) && std::fabs(after - before) < 90.0) {
      double a = t;
      double b = t + step;
      while (b - a > 1e-8) {
        const double middle = 0.5 * (a + b);
        ((f(middle) >= 0.0) == (before >= 0.0) ? a : b) = middle;
      }
      found.push_back({0.5 * (a + b), after >= 0.0 ? 1 : -1});
    }
    before = after;
  }
  return found;
}

void ExpectSame(const std::vector<Moment>& found, const std::vector<Moment>& expected,
                double tolerance) {
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t i = 0; i < found.size(); ++i) {
    EXPECT_NEAR(found[i].julian_day, expected[i].julian_day, tolerance) << i;
    EXPECT_EQ(found[i].direction, expected[i].direction) << found[i].julian_day;
  }
}

// Smooth values are the record's but for lost signs and the wrap.
TEST(SmoothValues, AreThePlacesOfTheRecord) {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> days(ZENITHOR_FIRST_DAY, ZENITHOR_LAST_DAY);
  for (int i = 0; i < 1000; ++i) {
    const double day = days(random);
    for (int body = 0; body < ZENITHOR_BODY_COUNT; ++body) {
      BodyPositionRecord record{};
      ComputePosition(FullStore(), State(), day, 0.0, 0.0, static_cast<BodyCode>(body), &record);
      const auto expect_angle = [&](int field, double recorded, double period) {
        if (BoundsOf(body, field) != nullptr && recorded > 0.02) {
          EXPECT_NEAR(std::remainder(Value(body, field, day) - recorded, period), 0.0, 1e-12)
              << body << " " << field << " " << day;
        }
      };
      expect_angle(1, record.HelioLongitude, 360.0);
      expect_angle(4, record.GeoLongitude, 360.0);
      expect_angle(7, record.RightAscension, 24.0);
      const auto expect_same = [&](int field, double recorded) {
        if (BoundsOf(body, field) != nullptr) {
          EXPECT_EQ(Value(body, field, day), recorded) << body << " " << field << " " << day;
        }
      };
      expect_same(2, record.HelioLatitude);
      expect_same(3, record.HelioDistance);
      expect_same(5, record.GeoLatitude);
      expect_same(6, record.GeoDistance);
      expect_same(8, record.Declination);
      expect_same(10, record.MoonAxisPositionAngle);
      expect_same(15, record.MoonIlluminatedFraction);
      expect_same(16, record.Obliquity);
      expect_same(17, record.Centuries);
    }
  }
}

// At random moments, over spacings of days and of minutes, no field bends more than the table says.
TEST(FieldBounds, HoldAtRandomMoments) {
  std::mt19937_64 random(2);
  std::uniform_real_distribution<double> days(ZENITHOR_FIRST_DAY, ZENITHOR_LAST_DAY - 3.0);
  for (int body = 0; body < ZENITHOR_BODY_COUNT; ++body) {
    for (int field = 1; field <= 105; ++field) {
      const FieldBounds* const bounds = BoundsOf(body, field);
      if (bounds == nullptr) {
        continue;
      }
      for (int i = 0; i < 200; ++i) {
        const double day = days(random);
        if (body == ZENITHOR_BODY_PLUTO && Value(9, 105, day) < 0.001) {
          continue;
        }
        const double h = i % 2 == 0 ? 1.0 : 0.01;
        const double f[] = {Value(body, field, day - h), Value(body, field, day),
                            Value(body, field, day + h)};
        const double period = PeriodOfField(field);
        const double before = period > 0.0 ? std::remainder(f[1] - f[0], period) : f[1] - f[0];
        const double after = period > 0.0 ? std::remainder(f[2] - f[1], period) : f[2] - f[1];
        EXPECT_LE(std::fabs(after - before), bounds->bend * h * h + 4.0 * bounds->noise)
            << body << " " << field << " " << day;
        EXPECT_LE(std::fabs(after), 1.1 * GreatestRate(*bounds) * h + 2.0 * bounds->noise)
            << body << " " << field << " " << day;
      }
    }
  }
}

// A field's track at random moments is no farther off than the table says.
TEST(FieldTrack, IsAsCloseAsTheTableSays) {
  std::mt19937_64 random(5);
  std::uniform_real_distribution<double> days(ZENITHOR_FIRST_DAY, ZENITHOR_LAST_DAY);
  for (int body = 0; body < ZENITHOR_BODY_COUNT; ++body) {
    const EphemerisStore& store = body <= ZENITHOR_BODY_NEPTUNE ? *Stores().guide : *Stores().full;
    for (const int field : {1, 4, 8, 101, 102, 103, 105}) {
      const FieldBounds* const bounds = BoundsOf(body, field);
      if (bounds == nullptr) {
        continue;
      }
      EXPECT_GT(bounds->guide_error, 0.0);
      for (int i = 0; i < (body == ZENITHOR_BODY_PLUTO ? 20 : 100); ++i) {
        const double day = days(random);
        if (body == ZENITHOR_BODY_PLUTO && Value(9, 105, day) < 0.001) {
          continue;
        }
        FieldTrack track = TrackOf(store, State(), body, field);
        const double period = PeriodOfField(field);
        const double lack = TrackValue(track, day) - Value(body, field, day);
        EXPECT_LE(std::fabs(period > 0.0 ? std::remainder(lack, period) : lack),
                  bounds->guide_error + bounds->noise)
            << body << " " << field << " " << day;
      }
    }
  }
}

// Kept or not, the same bits; and a node of Pluto within 5 degrees of the Sun is none to
// interpolate across.
TEST(FieldTrack, IsTheSameWithoutMemory) {
  PositionState bare = State();
  bare.nodes = nullptr;
  for (const int body : {1, 5, 9, 10}) {
    const EphemerisStore& store = body <= ZENITHOR_BODY_NEPTUNE ? *Stores().guide : *Stores().full;
    FieldTrack kept = TrackOf(store, State(), body, 101);
    FieldTrack fresh = TrackOf(store, bare, body, 101);
    for (double day = kJ2000Day + 0.3; day < kJ2000Day + 40.0; day += 7.1) {
      EXPECT_EQ(TrackValue(kept, day), TrackValue(fresh, day)) << body;
      EXPECT_EQ(TrackRate(kept, day), TrackRate(fresh, day)) << body;
    }
  }
  constexpr double kPlutoBehindTheSun = 2458862.3;  // 2020 January 13
  FieldTrack pluto = TrackOf(FullStore(), State(), 9, 101);
  EXPECT_EQ(TrackValue(pluto, kPlutoBehindTheSun), Value(9, 101, kPlutoBehindTheSun));
}

// Cells are passed over while a planet cannot turn; where its direction changes is found without.
TEST(Stations, AreWhereTheDirectionChanges) {
  for (const int body : {1, 2, 4, 5, 6, 7, 8}) {
    const double from = ZENITHOR_FIRST_DAY + 250000.0 * body;
    const double to = from + (body == 1 ? 12000.0 : 30000.0);
    const std::vector<Moment> stations = Stations(body, 101, from, to);
    std::vector<Moment> changes = Crossings(body, 106, 1.0, from, to);
    for (const Moment& moment : Crossings(body, 106, -1.0, from, to)) {
      changes.push_back(moment);
    }
    std::sort(changes.begin(), changes.end(),
              [](const Moment& a, const Moment& b) { return a.julian_day < b.julian_day; });
    ASSERT_EQ(stations.size(), changes.size()) << body;
    EXPECT_GT(stations.size(), 30U);
    for (std::size_t i = 0; i < stations.size(); ++i) {
      EXPECT_NEAR(stations[i].julian_day, changes[i].julian_day, 2e-4);
      EXPECT_EQ(stations[i].direction, changes[i].direction);
    }
  }
}

TEST(Crossings, AreThoseOfAFineScan) {
  for (const int body : {ZENITHOR_BODY_MERCURY, ZENITHOR_BODY_VENUS, ZENITHOR_BODY_MARS}) {
    for (int sign = 0; sign < 12; ++sign) {
      const double target = 30.0 * sign;
      const double from = 2415020.5 + 365.25 * 10.0 * sign;
      ExpectSame(Crossings(body, 101, target, from, from + 1500.0),
                 Scanned([&](double t) { return Turned(Value(body, 101, t) - target); }, from,
                         from + 1500.0, 0.5),
                 1e-6);
    }
  }
}

TEST(Stations, AreThoseOfAFineScan) {
  for (const int body : {ZENITHOR_BODY_MERCURY, ZENITHOR_BODY_VENUS, ZENITHOR_BODY_MARS}) {
    for (const int field : {4, 101}) {
      const double from = 2415020.5 + 3000.0 * body;
      // Six values; wide for the slow ones, whose rounding is what hides the moment.
      const double reach = body == ZENITHOR_BODY_MERCURY ? 0.125 : 0.5;
      const auto rate = [&](double t) {
        const auto change = [&](double steps) {
          return Turned(Value(body, field, t + steps * reach) -
                        Value(body, field, t - steps * reach));
        };
        return (45.0 * change(1.0) - 9.0 * change(2.0) + change(3.0)) / (60.0 * reach);
      };
      ExpectSame(Stations(body, field, from, from + 2500.0),
                 Scanned(rate, from, from + 2500.0, 0.5), 1e-6);
    }
  }
}

TEST(Aspects, AreThoseOfAFineScan) {
  const int pairs[][2] = {{1, 2}, {0, 1}, {10, 4}, {6, 7}, {9, 5}};
  for (const auto& pair : pairs) {
    for (const double angle : {0.0, 60.0, 90.0, 180.0}) {
      const double from = 2458849.5;
      const double to = from + (pair[0] == 10 ? 60.0 : 800.0);
      const auto scan = [&](double target) {
        return Scanned(
            [&](double t) {
              return Turned(Value(pair[0], 101, t) - Value(pair[1], 101, t) - target);
            },
            from, to, 0.25);
      };
      std::vector<Moment> expected = scan(angle);
      for (Moment& moment : expected) {
        moment.direction = 1;
      }
      if (angle == 60.0 || angle == 90.0) {
        for (const Moment& moment : scan(-angle)) {
          expected.push_back({moment.julian_day, -1});
        }
        std::sort(expected.begin(), expected.end(),
                  [](const Moment& a, const Moment& b) { return a.julian_day < b.julian_day; });
      }
      ExpectSame(Aspects(pair[0], pair[1], 101, angle, from, to), expected, 1e-6);
    }
  }
}

// The great conjunction of 2020 December 21, 18:20 UT (18:22 TT), at 0.49 degrees of Aquarius; the
// three squares of Saturn and Uranus of 2021: February 17, June 14, December 24.
// An angle that is 0 or 180 but for rounding has no second side.
TEST(Aspects, HaveOneSideWhereAnAngleIsNoneButForRounding) {
  constexpr double kFrom = 1250630.5;
  constexpr double kTo = 1250717.5;
  for (const double whole : {0.0, 180.0}) {
    double expected[4];
    const int count = FindAspects(Stores(), State(), ZENITHOR_MOON, ZENITHOR_SUN, 4, whole, kFrom,
                                  kTo, expected, nullptr, 4);
    ASSERT_GE(count, 2);
    ASSERT_LE(count, 4);
    for (const double off : {-5.3e-315, 2.8e-16, -1e-13, 1e-10}) {
      double days[4];
      std::int32_t directions[4];
      ASSERT_EQ(FindAspects(Stores(), State(), ZENITHOR_MOON, ZENITHOR_SUN, 4, whole + off, kFrom,
                            kTo, days, directions, 4),
                count)
          << off;
      for (int k = 0; k < count; ++k) {
        EXPECT_EQ(days[k], expected[k]);
      }
    }
  }
}

TEST(Aspects, FindsKnownOnes) {
  const std::vector<Moment> great = Aspects(5, 6, 101, 0.0, 2459000.5, 2459500.5);
  ASSERT_EQ(great.size(), 1u);
  EXPECT_NEAR(great[0].julian_day, 2459205.2649, 0.003);
  EXPECT_NEAR(Value(5, 101, great[0].julian_day) + 360.0, 300.49, 0.01);

  const std::vector<Moment> squares = Aspects(6, 7, 101, 90.0, 2459215.5, 2459580.5);
  ASSERT_EQ(squares.size(), 3u);
  EXPECT_EQ(std::floor(squares[0].julian_day + 0.5), 2459263.0);
  EXPECT_EQ(std::floor(squares[1].julian_day + 0.5), 2459380.0);
  EXPECT_EQ(std::floor(squares[2].julian_day + 0.5), 2459573.0);
}

// The June solstice is where the Sun's declination stands still and its longitude is 90 degrees;
// the two differ by the small latitude only.
TEST(Stations, OfTheSunsDeclinationAreTheSolstices) {
  const std::vector<Moment> stands = Stations(0, 8, 2459945.5, 2460310.5);
  ASSERT_EQ(stands.size(), 2u);
  EXPECT_EQ(stands[0].direction, -1);
  EXPECT_EQ(stands[1].direction, 1);
  const std::vector<Moment> june = Crossings(0, 101, 90.0, 2459945.5, 2460310.5);
  ASSERT_EQ(june.size(), 1u);
  EXPECT_NEAR(stands[0].julian_day, june[0].julian_day, 0.01);
}

// The March equinox, where the record loses the sign of the Sun's right ascension, is one moment:
// 2024 March 20, 03:06 UT (Meeus, Astronomical Tables of the Sun, Moon and Planets).
TEST(Crossings, OfZeroIsOneMomentWhereTheRecordFlipsTheSign) {
  const double from = 2460350.5;
  const double to = 2460450.5;
  const std::vector<Moment> longitude = Crossings(0, 101, 0.0, from, to);
  ASSERT_EQ(longitude.size(), 1u);
  EXPECT_EQ(longitude[0].direction, 1);
  EXPECT_NEAR(longitude[0].julian_day, 2460389.6301, 0.001);
  EXPECT_EQ(Crossings(0, 7, 0.0, from, to).size(), 1u);
  EXPECT_EQ(Crossings(0, 7, 24.0, from, to).size(), 1u);
  EXPECT_EQ(Crossings(0, 101, 360.0, from, to).size(), 1u);
  EXPECT_EQ(Crossings(4, 1, 0.0, from, from + 687.0).size(), 1u);
}

// A target just beyond, at and just short of a station: none, one, two contacts.
TEST(Crossings, FindsContactsThatOnlyJustHappen) {
  for (const int body : {1, 2, 4, 5, 8, 9}) {
    const std::vector<Moment> stations = Stations(body, 101, kJ2000Day, kJ2000Day + 900.0);
    ASSERT_GE(stations.size(), 1u) << body;
    const Moment station = stations[0];
    const double at = Value(body, 101, station.julian_day);
    const double from = station.julian_day - 3.0;
    const double to = station.julian_day + 3.0;
    // Positive: into the side from which the longitude comes.
    const double side = station.direction > 0 ? 1.0 : -1.0;
    EXPECT_EQ(Crossings(body, 101, at - side * 1e-8, from, to).size(), 0u) << body;
    const std::vector<Moment> touch = Crossings(body, 101, at, from, to);
    ASSERT_EQ(touch.size(), 1u) << body;
    EXPECT_EQ(touch[0].direction, 0) << body;
    const std::vector<Moment> two = Crossings(body, 101, at + side * 1e-7, from, to);
    ASSERT_EQ(two.size(), 2u) << body;
    EXPECT_EQ(two[0].direction, -side) << body;
    EXPECT_EQ(two[1].direction, side) << body;
    EXPECT_LT(two[0].julian_day, station.julian_day);
    EXPECT_GT(two[1].julian_day, station.julian_day);
  }
}

TEST(Crossings, OfElongationAndPhaseAngleReachTheirTurningPoints) {
  // Venus' greatest elongation is never above 47.9 degrees, and the transit of 2012 June 6 is
  // within 0.16 degrees of the centre.
  EXPECT_EQ(Crossings(2, 105, 50.0, kJ2000Day, kJ2000Day + 6000.0).size(), 0u);
  const std::vector<Moment> transit = Crossings(2, 105, 0.2, 2456080.5, 2456095.5);
  ASSERT_EQ(transit.size(), 2u);
  EXPECT_EQ(transit[0].direction, -1);
  EXPECT_EQ(transit[1].direction, 1);
  EXPECT_NEAR(0.5 * (transit[0].julian_day + transit[1].julian_day), 2456084.56, 0.02);
  EXPECT_EQ(Crossings(2, 105, 0.1, 2456080.5, 2456095.5).size(), 0u);
  // Half phase: the phase angle is 90 degrees, the fraction one half, twice a month.
  const std::vector<Moment> angle =
      Crossings(10, 9, 1.5707963267948966, kJ2000Day, kJ2000Day + 59.0);
  const std::vector<Moment> half = Crossings(10, 15, 0.5, kJ2000Day, kJ2000Day + 59.0);
  ASSERT_EQ(angle.size(), 4u);
  ASSERT_EQ(half.size(), 4u);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_NEAR(angle[i].julian_day, half[i].julian_day, 1e-6);
    EXPECT_EQ(angle[i].direction, -half[i].direction);
  }
}

TEST(Crossings, OfFieldsThatStepAreTheFirstMomentsThatHaveTheValue) {
  const double from = 2451544.5;  // 2000 January 1
  const auto year = Crossings(0, 18, 2001.0, from, from + 1000.0);
  ASSERT_EQ(year.size(), 1u);
  EXPECT_NEAR(year[0].julian_day, 2451910.5, 1e-9);
  EXPECT_EQ(year[0].direction, 1);
  EXPECT_EQ(Crossings(0, 19, 3.0, from, from + 731.0).size(), 2u);
  EXPECT_EQ(Crossings(0, 20, 31.0, from, from + 366.0).size(), 7u);
  EXPECT_EQ(Crossings(0, 21, 6.0, from, from + 10.0).size(), 10u);
  EXPECT_EQ(Crossings(0, 22, 59.0, from, from + 2.0).size(), 48u);
  EXPECT_EQ(Crossings(0, 23, 30.0, from, from + 2.0).size(), 2880u);
  EXPECT_EQ(Crossings(0, 23, 60.0, from, from + 2.0).size(), 0u);
  // October 1582 has 21 days; none is the 10th, November's is.
  EXPECT_EQ(Crossings(0, 20, 10.0, 2299150.5, 2299190.5).size(), 1u);
  for (const Moment& moment : Crossings(0, 23, 30.0, from, from + 0.1)) {
    const auto second = [](double day) { return std::trunc(JulianDayToCalendar(day).Second); };
    EXPECT_EQ(second(moment.julian_day), 30.0);
    EXPECT_EQ(second(std::nextafter(moment.julian_day, 0.0)), 29.0);
  }
  // Mercury is retrograde three times in 2000.
  EXPECT_EQ(Crossings(1, 106, -1.0, from, from + 366.0).size(), 3u);
  EXPECT_EQ(Crossings(1, 106, 1.0, from, from + 366.0).size(), 3u);
  EXPECT_EQ(Crossings(1, 106, 0.5, from, from + 366.0).size(), 0u);
  EXPECT_EQ(Crossings(10, 106, -1.0, from, from + 366.0).size(), 0u);
}

// Whatever the span, the same moments to the bit; none twice where spans meet; and a search that is
// taken up again from its last moment gives the rest.
TEST(Searches, GiveTheSameMomentsInWhicheverSpan) {
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> part(0.0, 1.0);
  for (int round = 0; round < 60; ++round) {
    const int body = 1 + round % 9 == 3 ? 10 : 1 + round % 9;
    const int kind = round % 3;
    const double length = body == 10 ? 200.0 : 3000.0;
    const double from =
        ZENITHOR_FIRST_DAY + part(random) * (ZENITHOR_LAST_DAY - ZENITHOR_FIRST_DAY - length);
    const double target = 360.0 * part(random);
    const auto find = [&](double a, double b) {
      return kind == 0   ? Crossings(body, 101, target, a, b)
             : kind == 1 ? Stations(body, 8, a, b)
                         : Aspects(body, 0, 101, 0.5 * target, a, b);
    };
    const std::vector<Moment> whole = find(from, from + length);
    const double cut =
        whole.empty() ? from + length * part(random) : whole[whole.size() / 2].julian_day;
    std::vector<Moment> joined = find(from, cut);
    for (const Moment& moment : find(cut, from + length)) {
      joined.push_back(moment);
    }
    ASSERT_EQ(joined.size(), whole.size()) << body << " " << kind << " " << from;
    for (std::size_t i = 0; i < whole.size(); ++i) {
      EXPECT_EQ(joined[i].julian_day, whole[i].julian_day);
      EXPECT_EQ(joined[i].direction, whole[i].direction);
      EXPECT_TRUE(i == 0 || whole[i].julian_day > whole[i - 1].julian_day);
    }
    if (!whole.empty()) {
      const std::vector<Moment> rest = find(whole[0].julian_day + 1e-6, from + length);
      EXPECT_EQ(rest.size(), whole.size() - 1);
    }
  }
}

TEST(Searches, CountBeyondTheCapacityAndWriteNoFurther) {
  double days[4] = {-1.0, -1.0, -1.0, -1.0};
  std::int32_t directions[4] = {7, 7, 7, 7};
  const auto stations = [&](double* array, std::int32_t capacity) {
    return FindStations(Stores(), State(), 1, 101, kJ2000Day, kJ2000Day + 365.0, array, directions,
                        capacity);
  };
  EXPECT_EQ(stations(nullptr, 0), 6);
  EXPECT_EQ(stations(days, 2), 6);
  EXPECT_GT(days[1], days[0]);
  EXPECT_EQ(days[2], -1.0);
  EXPECT_EQ(directions[2], 7);
  EXPECT_EQ(stations(days, 4), 6);
  EXPECT_EQ(NextStationAfter(Stores(), State(), 1, 101, days[0]), days[1]);
  EXPECT_EQ(NextStationAfter(Stores(), State(), 1, 101, days[0] - 1.0), days[0]);
}

TEST(Searches, SayWhatIsWrongWithAQuestion) {
  double day[1];
  const auto crossings = [&](int body, int field, double target, double from, double to,
                             double* array, std::int32_t capacity) {
    return FindCrossings(Stores(), State(), body, field, target, from, to, array, nullptr,
                         capacity);
  };
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  const double from = kJ2000Day;
  EXPECT_EQ(crossings(1, 101, 0.0, from, from + 9.0, nullptr, 1), ZENITHOR_ERROR_ARRAY);
  EXPECT_EQ(crossings(1, 101, 0.0, from, from + 9.0, day, -1), ZENITHOR_ERROR_COUNT);
  EXPECT_EQ(crossings(11, 101, 0.0, from, from + 9.0, day, 1), ZENITHOR_ERROR_BODY);
  EXPECT_EQ(crossings(1, 11, 0.0, from, from + 9.0, day, 1), ZENITHOR_ERROR_FIELD);
  EXPECT_EQ(crossings(3, 101, 0.0, from, from + 9.0, day, 1), ZENITHOR_ERROR_FIELD);
  EXPECT_EQ(crossings(1, 101, kNaN, from, from + 9.0, day, 1), ZENITHOR_ERROR_ANGLE);
  EXPECT_EQ(crossings(1, 101, 0.0, kNaN, from + 9.0, day, 1), ZENITHOR_ERROR_SPAN);
  EXPECT_EQ(crossings(1, 101, 0.0, 0.0, from, day, 1), ZENITHOR_ERROR_SPAN);
  EXPECT_EQ(crossings(1, 23, 0.0, from, from + 400.0, day, 1), ZENITHOR_ERROR_SPAN);
  EXPECT_EQ(crossings(1, 101, 0.0, from, from - 9.0, day, 1), 0);
  EXPECT_EQ(FindAspects(Stores(), State(), 1, 1, 101, 0.0, from, from + 9.0, day, nullptr, 1),
            ZENITHOR_ERROR_BODY);
  EXPECT_EQ(FindAspects(Stores(), State(), 0, 1, 1, 0.0, from, from + 9.0, day, nullptr, 1),
            ZENITHOR_ERROR_FIELD);
  EXPECT_EQ(FindStations(Stores(), State(), 1, 3, from, from + 9.0, day, nullptr, 1),
            ZENITHOR_ERROR_FIELD);
  EXPECT_EQ(FindStations(Stores(), State(), 0, 101, from, from + 9.0, day, nullptr, 1), 0);
  EXPECT_TRUE(std::isnan(NextCrossingAfter(Stores(), State(), 1, 101, 0.0, ZENITHOR_LAST_DAY)));
}

// Stations and conjunctions with the Sun in apparent longitude by an independent analytical
// ephemeris (tests/published/stations-and-conjunctions.csv): stations of Mercury to Neptune to 5
// minutes, of Pluto to 30, conjunctions to 1 minute.
TEST(Published, StationsAndConjunctions) {
  const std::vector<std::string> names = {"Sun",     "Mercury", "Venus",  "Earth",
                                          "Mars",    "Jupiter", "Saturn", "Uranus",
                                          "Neptune", "Pluto",   "Moon"};
  std::ifstream file(ZENITHOR_SOURCE_DIR "/tests/published/stations-and-conjunctions.csv");
  std::string line;
  int compared = 0;
  while (std::getline(file, line)) {
    std::istringstream fields(line);
    std::string event;
    std::string name;
    std::string day_text;
    std::getline(fields, event, ',');
    std::getline(fields, name, ',');
    std::getline(fields, day_text, ',');
    const auto body = std::find(names.begin(), names.end(), name) - names.begin();
    if (line[0] == '#' || event == "event") {
      continue;
    }
    ASSERT_LT(body, 11) << line;
    const double published = std::stod(day_text);
    const int number = static_cast<int>(body);
    const bool station = event == "station";
    const std::vector<Moment> found =
        station ? Stations(number, 101, published - 2.0, published + 2.0)
                : Aspects(number, 0, 101, 0.0, published - 2.0, published + 2.0);
    ASSERT_EQ(found.size(), 1u) << line;
    const double minutes = !station ? 1.0 : number == ZENITHOR_BODY_PLUTO ? 30.0 : 5.0;
    EXPECT_NEAR((found[0].julian_day - published) * 1440.0, 0.0, minutes) << line;
    ++compared;
  }
  EXPECT_EQ(compared, 24);
}

}  // namespace
}  // namespace zenithor
