/* A host that loads both libraries: every field of every body at many moments is, to the bit, what
 * the position export writes into its record, and every event is one that the event exports give.
 *   values_host ZENITHOR ZENITHOR_VALUES */
#include <math.h>

#include "host.h"
#include "support/open_values.h"

/* isnan of some compilers takes a float. */
static int IsNan(double x) { return x != x; }

static int SameBits(double a, double b) {
  return memcmp(&a, &b, sizeof a) == 0 || (IsNan(a) && IsNan(b));
}

/* Moments of the years 1600 to 2400, and far away. */
static double Moment(int k) {
  static const double kFar[] = {990557.5, 3182029.5, -1e6, 0.0, 2299160.5, 1e9, -1401.5, 5e15};
  return k < 8 ? kFar[k] : 2305447.5 + 292.19 * (k - 8) + 0.013 * k;
}

enum { kMoments = 1000, kFields = 23 };

/* What the record says, NaN where it is left as it was; two calls over different patterns tell. */
static void RecordFields(const ZenithorLibrary* library, int body, double moment, double* fields) {
  BodyPositionRecord first;
  BodyPositionRecord second;
  double doubles[2][17];
  int32_t integers[6];
  int k;
  memset(&first, 0x5A, sizeof first);
  memset(&second, 0xA5, sizeof second);
  CHECK(library->ZENITHOR(moment, 0.0, 0.0, 0.0, 0.0, 0.0, body, &first) == ZENITHOR_DONE);
  CHECK(library->ZENITHOR(moment, 0.0, 0.0, 0.0, 0.0, 0.0, body, &second) == ZENITHOR_DONE);
  memcpy(doubles[0], &first, sizeof doubles[0]);
  memcpy(doubles[1], &second, sizeof doubles[1]);
  memcpy(integers, &first.Year, sizeof integers);
  for (k = 0; k < 17; ++k) {
    fields[k] = memcmp(&doubles[0][k], &doubles[1][k], 8) == 0 ? doubles[0][k] : (double)NAN;
  }
  for (k = 0; k < 6; ++k) {
    fields[17 + k] = integers[k];
  }
}

static void CompareFields(const ZenithorLibrary* records, const ZenithorValuesLibrary* values) {
  static int32_t bodies[11];
  static int32_t fields[kFields];
  static double table[11 * kFields];
  static double array[kMoments];
  static double moments[kMoments];
  long compared = 0;
  int body;
  int field;
  int k;
  for (body = 0; body < 11; ++body) {
    bodies[body] = body;
  }
  for (field = 1; field <= kFields; ++field) {
    fields[field - 1] = field;
  }
  for (k = 0; k < kMoments; ++k) {
    const double moment = Moment(k);
    moments[k] = moment;
    values->Table(bodies, 11, fields, kFields, &moment, 1, table, 0, 0, 0);
    for (body = 0; body < 11; ++body) {
      double record[kFields];
      RecordFields(records, body, moment, record);
      for (field = 1; field <= kFields; ++field) {
        const double value = values->Value(body, field, moment);
        if (!SameBits(value, record[field - 1]) ||
            !SameBits(table[body * kFields + field - 1], value)) {
          if (host_failures < 10) {
            fprintf(stderr, "body %d, field %d, day %.17g: %.17g, record %.17g\n", body, field,
                    moment, value, record[field - 1]);
          }
          ++host_failures;
        }
        ++compared;
      }
    }
  }
  for (body = 0; body < 11; ++body) {
    for (field = 1; field <= 106; field += field == 23 ? 78 : 1) {
      const int32_t numbers = values->Values(body, field, moments, kMoments, array);
      int32_t expected = 0;
      for (k = 0; k < kMoments; k += 7) {
        CHECK(SameBits(array[k], values->Value(body, field, moments[k])));
      }
      for (k = 0; k < kMoments; ++k) {
        expected += !IsNan(array[k]);
      }
      CHECK(numbers == (field >= 11 && field <= 14 ? ZENITHOR_ERROR_FIELD : expected));
      CHECK((expected > 0) == values->HasField(body, field));
    }
  }
  printf("%ld fields compared\n", compared);
  CHECK(compared == 11L * kFields * kMoments);
}

enum { kMixed = 103, kAllFields = 25 };

/* Arrays and tables hold the bits of single calls: moments one after another, one twice, none that
 * is a number, the calendar's change, remote ones; counts that are no multiple of four. */
static void CompareArrays(const ZenithorValuesLibrary* values) {
  static double days[kMixed];
  static double array[kMixed];
  static double table[kMixed * kAllFields];
  int32_t fields[kAllFields];
  int32_t body;
  int32_t field;
  int f = 0;
  int k;
  for (field = 1; field <= 106; ++field) {
    if (values->FieldName(field) != NULL && f < kAllFields) {
      fields[f++] = field;
    }
  }
  CHECK(f == kAllFields);
  for (k = 0; k < kMixed; ++k) {
    days[k] = k % 13 == 5 ? days[k - 1] : k % 17 == 9 ? (double)NAN : Moment(k % 23) + k / 23;
  }
  for (body = 0; body < 11; ++body) {
    values->Table(&body, 1, fields, kAllFields, days, kMixed, table, 0, 0, 0);
    for (f = 0; f < kAllFields; ++f) {
      const int first = f % 4;
      values->Values(body, fields[f], days + first, kMixed - first, array);
      for (k = 0; k < kMixed; ++k) {
        const double value = values->Value(body, fields[f], days[k]);
        CHECK(k < first || SameBits(array[k - first], value));
        CHECK(SameBits(table[k * kAllFields + f], value));
      }
    }
  }
}

/* Events of the years 2000 to 2010. */
static void CompareEvents(const ZenithorLibrary* records, const ZenithorValuesLibrary* values) {
  static double days[1000];
  static int32_t kinds[1000];
  EventRecord record;
  const int32_t count =
      values->EventsOfKinds(ZENITHOR_KINDS_ALL, 2451544.5, 2455197.5, days, kinds, 1000);
  int32_t k;
  CHECK(count > 500 && count < 1000);
  for (k = 0; k < count; ++k) {
    CHECK(k == 0 || days[k] >= days[k - 1]);
    switch (kinds[k]) {
      case ZENITHOR_KIND_JUNE_SOLSTICE:
        CHECK(records->SUM_SOL(days[k], 0.0, 0.0, 1, &record) == days[k]);
        break;
      case ZENITHOR_KIND_FULL_MOON:
        CHECK(records->FULL_MOON(days[k] + 1.0, 0.0, 0.0, 2, &record) == days[k]);
        break;
      case ZENITHOR_KIND_SOLAR_TOTAL:
        CHECK(records->TOTAL_SE(days[k], &record) == days[k]);
        break;
      case ZENITHOR_KIND_LUNAR_PENUMBRAL:
        CHECK(records->PENUM_LE(days[k], &record) == days[k]);
        break;
      default:
        break;
    }
  }
  CHECK(values->Events(ZENITHOR_KIND_NEW_MOON, 2451544.5, 2455197.5, NULL, 0) == 124);
}

/* What is said of the library itself, and small sums. */
static void CheckTheRest(const ZenithorValuesLibrary* values) {
  double days[3];
  int32_t statuses[3];
  int32_t date[5];
  double second = -1.0;
  CHECK(strcmp(values->Version(), ZENITHOR_VALUES_VERSION_STRING) == 0);
  CHECK(values->VersionNumber() == 10000);
  CHECK(strlen(values->DataFingerprint()) == 64);
  CHECK(strcmp(values->BodyName(4), "Mars") == 0 && values->BodyName(11) == NULL);
  CHECK(strcmp(values->FieldName(101), "apparent longitude") == 0);
  CHECK(strcmp(values->FieldUnit(10, 6), "km") == 0 && values->FieldUnit(3, 4) == NULL);
  CHECK(values->FieldPeriod(7) == 24.0 && IsNan(values->FieldPeriod(99)));
  CHECK(strcmp(values->KindName(8), "total solar eclipse") == 0);
  CHECK(strcmp(values->Message(0), "No error.") == 0);
  CHECK(values->JulianDay(2000, 1, 1, 12, 0, 0.0) == 2451545.0);
  CHECK(values->Calendar(2451545.0, 0.0, date, &second) == 0);
  CHECK(date[0] == 2000 && date[1] == 1 && date[2] == 1 && date[3] == 12 && date[4] == 0);
  CHECK(second == 0.0);
  CHECK(fabs(values->DynamicalLessClock(2457754.5) - 69.184) < 1e-9);
  CHECK(fabs(values->ClockToDynamical(2457754.5) - 2457754.5 - 69.184 / 86400.0) < 1e-9);
  CHECK(values->DynamicalToClock(values->ClockToDynamical(2457754.5)) == 2457754.5);
  CHECK(values->Daily(ZENITHOR_BODY_SUN, 2460310.5, 1.0, 13.4, 52.5, days, statuses) == 3);
  CHECK(days[0] < days[1] && days[1] < days[2] && statuses[0] == ZENITHOR_DAILY_HAPPENS);
  CHECK(values->DailyTime(ZENITHOR_BODY_SUN, 2, 2460310.5, 1.0, 13.4, 52.5) == days[1]);
  CHECK(values->DailyStatus(ZENITHOR_BODY_SUN, 1, 2460482.5, 1.0, 18.956, 69.65) ==
        ZENITHOR_DAILY_ALWAYS_UP);
  CHECK(values->DailyStatus(ZENITHOR_BODY_SUN, 0, 2460482.5, 1.0, 18.956, 69.65) ==
        ZENITHOR_ERROR_KIND);
  CHECK(values->NextEvent(ZENITHOR_KIND_MARCH_EQUINOX, 2451545.0) > 2451600.0);
  date[0] = -5;
  CHECK(IsNan(values->NextEventOfKinds(ZENITHOR_KINDS_ALL, 9e9, date)) && date[0] == -5);
  CHECK(values->NextEventOfKinds(ZENITHOR_KINDS_ALL, 2451545.0, date) > 2451545.0);
  CHECK(date[0] >= 0 && date[0] < ZENITHOR_KIND_COUNT);
  /* 2015 January 30: Mercury meets the Sun (tests/published/stations-and-conjunctions.csv). */
  CHECK(values->Aspects(1, 0, 101, 0.0, 2457050.5, 2457060.5, days, 3) == 1);
  CHECK(fabs(days[0] - 2457053.07389) < 1.0 / 1440.0);
  CHECK(values->Stations(1, 101, 2457023.5, 2457388.5, NULL, 0) == 6);
  CHECK(values->NextCrossing(0, 101, 0.0, 2451545.0) > 2451620.0);
  /* Errors. */
  CHECK(values->Values(4, 8, NULL, 1, days) == ZENITHOR_ERROR_ARRAY);
  CHECK(values->Values(4, 8, days, -1, days) == ZENITHOR_ERROR_COUNT);
  CHECK(values->Values(4, 8, NULL, 0, NULL) == 0);
  CHECK(values->Values(11, 8, days, 1, days) == ZENITHOR_ERROR_BODY);
  CHECK(values->Events(19, 2451544.5, 2451545.5, NULL, 0) == ZENITHOR_ERROR_KIND);
  CHECK(values->Events(1, 2451544.5, 1e9, NULL, 0) == ZENITHOR_ERROR_SPAN);
  CHECK(values->Events(1, 2451544.5, 2451545.5, NULL, 1) == ZENITHOR_ERROR_ARRAY);
  CHECK(values->Events(1, 2451544.5, 2451545.5, days, -1) == ZENITHOR_ERROR_COUNT);
  CHECK(values->Events(1, 2451544.5, 2451544.5, days, 1) == 0);
  CHECK(values->Daily(ZENITHOR_BODY_EARTH, 2460310.5, 1.0, 13.4, 52.5, days, statuses) ==
        ZENITHOR_ERROR_BODY);
  CHECK(values->Calendar(2451545.0, 0.0, NULL, &second) == ZENITHOR_ERROR_ARRAY);
}

int main(int count, char** words) {
  ZenithorLibrary records;
  ZenithorValuesLibrary values;
  void* const* functions = (void* const*)(const void*)&values;
  size_t k;
  if (count < 3 || !OpenLibrary(&records, words[1]) || !OpenValues(&values, words[2])) {
    fprintf(stderr, "usage: values_host ZENITHOR ZENITHOR_VALUES\n");
    return EXIT_FAILURE;
  }
  for (k = 0; k < sizeof values / sizeof(void*); ++k) {
    CHECK(functions[k] != NULL); /* the library has what the header declares */
  }
  CompareFields(&records, &values);
  CompareArrays(&values);
  CompareEvents(&records, &values);
  CheckTheRest(&values);
  ZenithorValuesClose(&values);
  ZenithorClose(&records);
  return HOST_RESULT;
}
