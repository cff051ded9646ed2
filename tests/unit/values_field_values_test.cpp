// Values against the record that the position export writes, bit for bit, and the fields beyond it
// against their definitions.

#include "zenithor/values.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <vector>

#include "support/full_store.h"
#include "values/field_values.h"
#include "values/fields.h"
#include "values/table.h"

namespace zenithor {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

double ValueOf(PositionState& state, int body, int field, double day) {
  double value = 0.0;
  FieldValues(testing::FullStore(), state, body, field, &day, 1, &value);
  return value;
}

// A number with its own bits, whatever NaN it is.
std::uint64_t Bits(double x) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &x, sizeof bits);
  return std::isnan(x) ? 0x7FF8000000000000U : bits;
}

// What the record holds where NaN stood before the call; a body without data fields keeps NaN.
double RecordValue(int body, int field, double day) {
  BodyPositionRecord record{};
  double doubles[17];
  std::fill(std::begin(doubles), std::end(doubles), kNone);
  std::memcpy(static_cast<void*>(&record), doubles, sizeof doubles);
  PositionState state;
  ComputePosition(testing::FullStore(), state, day, 0.0, 0.0, body, &record);
  if (field < ZENITHOR_FIELD_YEAR) {
    std::memcpy(doubles, &record, sizeof doubles);
    return doubles[field - 1];
  }
  std::int32_t integers[6];
  std::memcpy(integers, &record.Year, sizeof integers);
  return integers[field - ZENITHOR_FIELD_YEAR];
}

const double kDays[] = {2460000.5, 2451545.0,  2299160.5, 990557.5,  3182029.4,    0.25,
                        -1401.5,   2433282.42, -1e7,      5373484.5, 2147483647.5, 1e15};

TEST(FieldValues, AreThoseOfTheRecordToTheBit) {
  PlaceMemory memory;
  PositionState kept;
  kept.places = &memory;
  int compared = 0;
  for (const double day : kDays) {
    for (int body = 0; body < ZENITHOR_BODY_COUNT; ++body) {
      for (int field = 1; field <= 23; ++field) {
        EXPECT_EQ(Bits(ValueOf(kept, body, field, day)), Bits(RecordValue(body, field, day)))
            << body << " " << field << " " << day;
        ++compared;
      }
    }
  }
  EXPECT_EQ(compared, 12 * 11 * 23);
}

TEST(FieldValues, AreThereExactlyWhereTheBodyHasTheField) {
  PositionState state;
  for (int body = -1; body <= ZENITHOR_BODY_COUNT; ++body) {
    for (int field = -1; field <= 108; ++field) {
      EXPECT_EQ(!std::isnan(ValueOf(state, body, field, 2460123.25)), HasField(body, field))
          << body << " " << field;
    }
  }
}

TEST(FieldValues, AreNoneAtMomentsThatAreNotFinite) {
  PositionState state;
  for (const double day :
       {kNone, std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()}) {
    for (int body = 0; body < ZENITHOR_BODY_COUNT; ++body) {
      for (const int field : {1, 8, 18, 23, 101, 103, 105, 106}) {
        EXPECT_TRUE(std::isnan(ValueOf(state, body, field, day)));
      }
    }
  }
}

TEST(FieldValues, AreNoneWithoutData) {
  const EphemerisStore empty;
  PositionState state;
  const double day = 2460000.5;
  double value = 0.0;
  for (const int field : {1, 8, 16, 18, 101, 103, 105}) {
    FieldValues(empty, state, ZENITHOR_BODY_MARS, field, &day, 1, &value);
    EXPECT_TRUE(std::isnan(value)) << field;
  }
}

TEST(FieldValues, DoNotDependOnTheOrderOfQuestions) {
  std::uint64_t random = 1;
  PlaceMemory memory;
  PositionState kept;
  kept.places = &memory;
  for (int k = 0; k < 3000; ++k) {
    random = random * 6364136223846793005U + 1442695040888963407U;
    const int body = static_cast<int>((random >> 33) % 11);
    constexpr int kFields[] = {1, 4, 6, 7, 8, 9, 16, 20, 101, 102, 103, 104, 105, 106};
    const int field = kFields[(random >> 45) % 14];
    const double day = 2460000.5 + static_cast<double>((random >> 55) % 3) * 0.0625;
    PositionState fresh;
    EXPECT_EQ(Bits(ValueOf(kept, body, field, day)), Bits(ValueOf(fresh, body, field, day)))
        << body << " " << field << " " << day;
  }
}

TEST(FieldValues, OfSeveralMomentsAreThoseOfEach) {
  PositionState state;
  std::vector<double> days;
  for (int k = 0; k < 50; ++k) {
    days.push_back(2451545.0 + 3.7 * k);
  }
  std::vector<double> values(days.size());
  for (const int field : {1, 4, 8, 101, 103}) {
    FieldValues(testing::FullStore(), state, ZENITHOR_BODY_MARS, field, days.data(), 50,
                values.data());
    for (std::size_t k = 0; k < days.size(); ++k) {
      PositionState fresh;
      EXPECT_EQ(Bits(values[k]), Bits(ValueOf(fresh, ZENITHOR_BODY_MARS, field, days[k])));
    }
  }
  // In place.
  std::vector<double> in_place = days;
  FieldValues(testing::FullStore(), state, ZENITHOR_BODY_MARS, 103, in_place.data(), 50,
              in_place.data());
  EXPECT_EQ(in_place, values);
}

// What a thread's set has.
struct ThreadsOwn {
  PlaceMemory memory;
  SumRoom room;
  MomentsRoom moments_room;
  PositionState state;

  ThreadsOwn() {
    state.places = &memory;
    state.moment.room = &room;
    state.moment.moments_room = &moments_room;
  }
};

// Moments of our time and remote ones, some twice, some no numbers; the calendar's change in
// between.
std::vector<double> MixedDays() {
  std::vector<double> days;
  for (int k = 0; k < 41; ++k) {
    days.push_back(2451545.0 + 3.7 * k);
  }
  const double others[] = {2299159.5, 2299160.5, 2299160.5, 2299161.5,  kNone,     2460000.5,
                           2460000.5, 2460001.5, -1401.5,   -1e7,       5373484.5, 1e15,
                           0.25,      -0.0,      0.0,       HUGE_VAL,   990557.5,  3182029.4,
                           1e300,     -1e300,    2460002.5, 2460003.25, 2433282.42};
  days.insert(days.end(), std::begin(others), std::end(others));
  return days;
}

TEST(FieldValues, OfArraysAreThoseOfSingleCallsToTheBit) {
  const std::vector<double> days = MixedDays();
  static ThreadsOwn arrays;
  static ThreadsOwn single;
  static ThreadsOwn tables;
  const auto day_count = static_cast<std::int32_t>(days.size());
  std::vector<std::int32_t> fields;
  for (int field = 1; field <= 106; ++field) {
    if (IsField(field)) {
      fields.push_back(field);
    }
  }
  const auto field_count = static_cast<std::int32_t>(fields.size());
  ASSERT_EQ(field_count, 25);
  std::vector<double> table(days.size() * fields.size());
  std::vector<double> values(days.size());
  for (std::int32_t body = 0; body < ZENITHOR_BODY_COUNT; ++body) {
    FillTable(testing::FullStore(), tables.state,
              {&body, 1, fields.data(), field_count, days.data(), day_count, table.data(),
               field_count, 0, 1});
    for (std::size_t f = 0; f < fields.size(); ++f) {
      // Every number of moments that is left over after fours; in place, too.
      const std::size_t first = f % 5;
      std::copy(days.begin(), days.end(), values.begin());
      FieldValues(testing::FullStore(), arrays.state, body, fields[f], values.data() + first,
                  day_count - static_cast<std::int32_t>(first), values.data() + first);
      for (std::size_t k = first; k < days.size(); ++k) {
        const std::uint64_t alone = Bits(ValueOf(single.state, body, fields[f], days[k]));
        EXPECT_EQ(Bits(values[k]), alone) << body << " " << fields[f] << " " << days[k];
        EXPECT_EQ(Bits(table[k * fields.size() + f]), alone)
            << body << " " << fields[f] << " " << days[k];
      }
    }
  }
}

// Fields 7 and 8 turned into the true ecliptic; fields 4 and 5 of the Moon are apparent themselves.
TEST(ApparentPlace, OfTheMoonIsThatOfItsRecord) {
  PositionState state;
  for (int k = 0; k < 200; ++k) {
    const double day = 2440000.5 + 7.31 * k;
    const double longitude = ValueOf(state, ZENITHOR_BODY_MOON, 101, day);
    EXPECT_NEAR(std::remainder(longitude - ValueOf(state, ZENITHOR_BODY_MOON, 4, day), 360.0), 0.0,
                1e-9);
    EXPECT_NEAR(ValueOf(state, ZENITHOR_BODY_MOON, 102, day),
                ValueOf(state, ZENITHOR_BODY_MOON, 5, day), 1e-9);
  }
}

// The record mirrors a right ascension just below 0; field 101 goes through 360 without a break.
TEST(ApparentPlace, GoesThroughTheEquinoxSmoothly) {
  PositionState state;
  double before = ValueOf(state, ZENITHOR_BODY_SUN, 101, 2460024.37);
  bool wrapped = false;
  for (int k = 1; k <= 400; ++k) {
    const double after = ValueOf(state, ZENITHOR_BODY_SUN, 101, 2460024.37 + k * 0.0001);
    EXPECT_NEAR(std::remainder(after - before, 360.0), 0.0000993, 1e-6) << k;
    EXPECT_GE(after, 0.0);
    EXPECT_LT(after, 360.0);
    wrapped = wrapped || after < before;
    before = after;
  }
  EXPECT_TRUE(wrapped);
}

TEST(Motion, IsTheRateOfChange) {
  PositionState state;
  for (int body = 0; body < ZENITHOR_BODY_COUNT; ++body) {
    if (body == ZENITHOR_BODY_EARTH) {
      continue;
    }
    for (int k = 0; k < 40; ++k) {
      const double day = 2455000.5 + 91.7 * k;
      const double h = 0.01;
      const double rate =
          std::remainder(ValueOf(state, body, 101, day + h) - ValueOf(state, body, 101, day - h),
                         360.0) /
          (2.0 * h);
      EXPECT_NEAR(ValueOf(state, body, 103, day), rate, 1e-5) << body << " " << day;
      const double fall =
          (ValueOf(state, body, 8, day + h) - ValueOf(state, body, 8, day - h)) / (2.0 * h);
      EXPECT_NEAR(ValueOf(state, body, 104, day), fall, 1e-5) << body << " " << day;
      EXPECT_EQ(ValueOf(state, body, 106, day), rate < 0.0 ? -1.0 : 1.0) << body << " " << day;
    }
  }
}

TEST(Motion, IsTheFormulaOfTheHeader) {
  PositionState state;
  const double day = 2460123.75;
  const auto f = [&](double at) { return ValueOf(state, ZENITHOR_BODY_VENUS, 101, at); };
  const double expected =
      (8.0 * (f(day + 0.0625) - f(day - 0.0625)) - (f(day + 0.125) - f(day - 0.125))) * 16.0 / 12.0;
  EXPECT_NEAR(ValueOf(state, ZENITHOR_BODY_VENUS, 103, day), expected, 1e-12);
}

TEST(Elongation, IsTheAngleToTheSun) {
  PositionState state;
  for (int body = 0; body < ZENITHOR_BODY_COUNT; ++body) {
    if (body == ZENITHOR_BODY_EARTH) {
      continue;
    }
    const double day = 2459000.5;
    const double radians = 3.141592653589793 / 180.0;
    const double longitude =
        (ValueOf(state, body, 101, day) - ValueOf(state, 0, 101, day)) * radians;
    const double b = ValueOf(state, body, 102, day) * radians;
    const double sun = ValueOf(state, 0, 102, day) * radians;
    const double cosine =
        std::sin(b) * std::sin(sun) + std::cos(b) * std::cos(sun) * std::cos(longitude);
    EXPECT_NEAR(ValueOf(state, body, 105, day), std::acos(std::fmin(cosine, 1.0)) / radians,
                body == 0 ? 0.0 : 1e-9)
        << body;
  }
}

TEST(Table, HoldsTheValuesWhereTheStridesSay) {
  const std::int32_t bodies[] = {0, 4, 10};
  const std::int32_t fields[] = {101, 8};
  const double days[] = {2460000.5, 2460001.5, 2460002.5, 2460003.5};
  std::vector<double> values(100, -7.0);
  PositionState state;
  // Fields outermost, with a gap of two after each body's row.
  const TableRequest request{bodies, 3, fields, 2, days, 4, values.data(), 1, 6, 40};
  EXPECT_EQ(FillTable(testing::FullStore(), state, request), 24);
  int written = 0;
  for (int f = 0; f < 2; ++f) {
    for (int b = 0; b < 3; ++b) {
      for (int d = 0; d < 4; ++d) {
        EXPECT_EQ(values[static_cast<std::size_t>(40 * f + 6 * b + d)],
                  ValueOf(state, bodies[b], fields[f], days[d]));
        ++written;
      }
    }
  }
  EXPECT_EQ(std::count(values.begin(), values.end(), -7.0), 100 - written);
}

TEST(Table, SaysWhichNumberIsNone) {
  const std::int32_t bodies[] = {4, 11};
  const std::int32_t fields[] = {8, 12};
  const double day = 2460000.5;
  double values[4] = {};
  PositionState state;
  const EphemerisStore& store = testing::FullStore();
  EXPECT_EQ(FillTable(store, state, {bodies, 2, fields, 1, &day, 1, values, 2, 1, 1}),
            ZENITHOR_ERROR_BODY);
  EXPECT_EQ(values[0], ValueOf(state, 4, 8, day));
  EXPECT_TRUE(std::isnan(values[1]));
  EXPECT_EQ(FillTable(store, state, {bodies, 1, fields, 2, &day, 1, values, 2, 2, 1}),
            ZENITHOR_ERROR_FIELD);
  EXPECT_TRUE(std::isnan(values[1]));
}

TEST(Fields, HaveNamesUnitsAndPeriods) {
  for (int field = -2; field <= 110; ++field) {
    EXPECT_EQ(FieldName(field) != nullptr, IsField(field)) << field;
    EXPECT_EQ(std::isnan(PeriodOfField(field)), !IsField(field)) << field;
    for (int body = 0; body < ZENITHOR_BODY_COUNT; ++body) {
      EXPECT_EQ(FieldUnit(body, field) != nullptr, HasField(body, field)) << body << " " << field;
    }
  }
  EXPECT_STREQ(FieldUnit(ZENITHOR_BODY_MOON, ZENITHOR_FIELD_GEO_DISTANCE), "km");
  EXPECT_STREQ(FieldUnit(ZENITHOR_BODY_MARS, ZENITHOR_FIELD_GEO_DISTANCE), "au");
  EXPECT_STREQ(BodyName(ZENITHOR_BODY_MARS), "Mars");
  EXPECT_EQ(BodyName(11), nullptr);
  EXPECT_EQ(BodyName(-1), nullptr);
}

}  // namespace
}  // namespace zenithor
