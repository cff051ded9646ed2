#ifndef TESTS_HOST_HOSTILE_VALUES_HOSTILE_H
#define TESTS_HOST_HOSTILE_VALUES_HOSTILE_H

/* What the hostile hosts of the values library share: every function by number, with arguments of
 * all kinds in one record, and answers between guards. */

#include "state_call.h"
#include "support/extreme_values.h"

#define ZENITHOR_VALUES_LOADER
#include "zenithor/values.h"

enum { kValueFunctions = 34, kArrayLength = 8, kHostsByte = 0xA5 };

typedef struct ValueArguments {
  double doubles[kArrayLength]; /* single arguments, or the moments of an array */
  int32_t integers[6];
  int32_t length; /* of arrays, capacities and counts; negative and 0 too */
  int nulls;      /* bit 0: no first array, bit 1: no second */
} ValueArguments;

typedef struct ValueAnswer {
  double number;
  int32_t integer;
  const char* text;
  unsigned char before[64];
  double doubles[kArrayLength];
  int32_t integers[kArrayLength];
  unsigned char after[64];
} ValueAnswer;

static ZenithorValuesLibrary values;

static inline int OpenValues(const char* path) {
  ZenithorValuesPathCharacter wide[1024];
  size_t k = 0;
  for (; path[k] != '\0' && k + 1 < sizeof wide / sizeof wide[0]; ++k) {
    wide[k] = (ZenithorValuesPathCharacter)path[k];
  }
  wide[k] = 0;
  return ZenithorValuesOpen(&values, wide);
}

static inline void ClearAnswer(ValueAnswer* answer) {
  memset(answer, kHostsByte, sizeof *answer);
  answer->number = 0.0;
  answer->integer = 0;
  answer->text = NULL;
}

/* The call alone: `doubles` and `integers` are where its arrays go. */
static inline void CallValueInto(int function, const ValueArguments* a, ValueAnswer* answer,
                                 double* doubles, int32_t* integers) {
  const double* const d = a->doubles;
  const int32_t* const i = a->integers;
  double* const first = (a->nulls & 1) != 0 ? NULL : doubles;
  int32_t* const second = (a->nulls & 2) != 0 ? NULL : integers;
  const int32_t one = a->length < 2 ? a->length : 2;
  switch (function) {
    case 0:
      answer->number = values.Value(i[0], i[1], d[0]);
      break;
    case 1:
      answer->integer = values.Values(i[0], i[1], d, a->length, first);
      break;
    case 2:
      answer->integer = values.Table(i, one, i + 2, one, d, one, first, 0, 0, 0);
      break;
    case 3:
      answer->integer = values.Events(i[0], d[0], d[1], first, a->length);
      break;
    case 4:
      answer->integer = values.EventsOfKinds(i[0], d[0], d[1], first, second, a->length);
      break;
    case 5:
      answer->number = values.NextEvent(i[0], d[0]);
      break;
    case 6:
      answer->number = values.NextEventOfKinds(i[0], d[0], second);
      break;
    case 7:
      answer->integer = values.Daily(i[0], d[0], d[1], d[2], d[3], first, second);
      break;
    case 8:
      answer->number = values.DailyTime(i[0], i[1], d[0], d[1], d[2], d[3]);
      break;
    case 9:
      answer->integer = values.DailyStatus(i[0], i[1], d[0], d[1], d[2], d[3]);
      break;
    case 10:
      answer->number = values.ClockToDynamical(d[0]);
      break;
    case 11:
      answer->number = values.DynamicalToClock(d[0]);
      break;
    case 12:
      answer->number = values.DynamicalLessClock(d[0]);
      break;
    case 13:
      answer->number = values.JulianDay(i[0], i[1], i[2], i[3], i[4], d[0]);
      break;
    case 14:
      answer->integer = values.Calendar(d[0], d[1], second, first);
      break;
    case 15:
      answer->text = values.Version();
      break;
    case 16:
      answer->integer = values.VersionNumber();
      break;
    case 17:
      answer->text = values.DataFingerprint();
      break;
    case 18:
      answer->text = values.BodyName(i[0]);
      break;
    case 19:
      answer->text = values.FieldName(i[0]);
      break;
    case 20:
      answer->text = values.FieldUnit(i[0], i[1]);
      break;
    case 21:
      answer->number = values.FieldPeriod(i[0]);
      break;
    case 22:
      answer->integer = values.HasField(i[0], i[1]);
      break;
    case 23:
      answer->text = values.KindName(i[0]);
      break;
    case 24:
      answer->integer = values.Crossings(i[0], i[1], d[2], d[0], d[1], first, a->length);
      break;
    case 25:
      answer->integer = values.Stations(i[0], i[1], d[0], d[1], first, a->length);
      break;
    case 26:
      answer->integer = values.Aspects(i[0], i[2], i[1], d[2], d[0], d[1], first, a->length);
      break;
    case 27:
      answer->integer =
          values.DirectedCrossings(i[0], i[1], d[2], d[0], d[1], first, second, a->length);
      break;
    case 28:
      answer->integer = values.DirectedStations(i[0], i[1], d[0], d[1], first, second, a->length);
      break;
    case 29:
      answer->integer =
          values.DirectedAspects(i[0], i[2], i[1], d[2], d[0], d[1], first, second, a->length);
      break;
    case 30:
      answer->number = values.NextCrossing(i[0], i[1], d[2], d[0]);
      break;
    case 31:
      answer->number = values.NextStation(i[0], i[1], d[0]);
      break;
    case 32:
      answer->number = values.NextAspect(i[0], i[2], i[1], d[2], d[0]);
      break;
    default:
      answer->text = values.Message(i[0]);
      break;
  }
}

static inline void CallValue(int function, const ValueArguments* arguments, ValueAnswer* answer) {
  ClearAnswer(answer);
  CallValueInto(function, arguments, answer, answer->doubles, answer->integers);
}

/* How many elements of the two arrays a call may write. */
static inline void MayWrite(int function, const ValueArguments* a, int* doubles, int* integers) {
  const int length = a->length < 0 ? 0 : a->length;
  const int one = length < 2 ? length : 2;
  const int filled = (function >= 24 && function <= 29) || function == 3 || function == 4;
  *doubles = 0;
  *integers = 0;
  if (filled || function == 1) {
    *doubles = length;
  } else if (function == 2) {
    *doubles = one * one * one;
  } else if (function == 7) {
    *doubles = 3;
    *integers = 3;
  } else if (function == 14) {
    *doubles = 1;
    *integers = 5;
  } else if (function == 6) {
    *integers = 1;
  }
  if (function == 4 || (function >= 27 && function <= 29)) {
    *integers = length;
  }
}

static inline int BytesOutside(int function, const ValueArguments* a, const ValueAnswer* answer) {
  int doubles = 0;
  int integers = 0;
  int strays = 0;
  const unsigned char* byte = answer->before;
  const unsigned char* const end = answer->after + sizeof answer->after;
  MayWrite(function, a, &doubles, &integers);
  for (; byte < end; ++byte) {
    const int in_doubles = byte >= (const unsigned char*)answer->doubles &&
                           byte < (const unsigned char*)(answer->doubles + doubles);
    const int in_integers = byte >= (const unsigned char*)answer->integers &&
                            byte < (const unsigned char*)(answer->integers + integers);
    strays += !in_doubles && !in_integers && *byte != kHostsByte;
  }
  return strays;
}

static inline int SameValueAnswer(const ValueAnswer* a, const ValueAnswer* b) {
  return SameBits(a->number, b->number) && a->integer == b->integer && a->text == b->text &&
         memcmp(a->before, b->before, sizeof *a - offsetof(ValueAnswer, before)) == 0;
}

/* Arguments as a host passes them; the same for the same seed. */
static inline ValueArguments OrdinaryValueArguments(int function, uint64_t seed) {
  uint64_t state = seed * 0x2545F4914F6CDD1Du + (uint64_t)function + 1;
  ValueArguments a;
  int k;
  for (k = 0; k < kArrayLength; ++k) {
    a.doubles[k] = RandomBetween(&state, 2341972.5, 2561117.5);
  }
  a.integers[0] = (int32_t)(NextRandom(&state) % 11u);
  a.integers[1] = (int32_t)(NextRandom(&state) % 3u == 0 ? 101 + NextRandom(&state) % 6u
                                                         : 1 + NextRandom(&state) % 23u);
  a.integers[2] = 1 + (int32_t)(NextRandom(&state) % 8u);
  a.integers[3] = 101 + (int32_t)(NextRandom(&state) % 6u);
  a.integers[4] = (int32_t)(NextRandom(&state) % 60u);
  a.integers[5] = 0;
  a.length = kArrayLength;
  a.nulls = 0;
  if (function >= 24 && function <= 32) {
    static const int32_t kFields[] = {101, 101, 4, 1, 8};
    a.integers[1] = kFields[NextRandom(&state) % 5u];
    a.doubles[1] = a.doubles[0] + RandomBetween(&state, 0.0, 700.0);
    a.doubles[2] = RandomBetween(&state, 0.0, 360.0);
  }
  switch (function) {
    case 2:
      a.integers[1] = (int32_t)(NextRandom(&state) % 11u);
      break;
    case 3:
      a.integers[0] = (int32_t)(NextRandom(&state) % 19u);
      a.doubles[1] = a.doubles[0] + RandomBetween(&state, 0.0, 2000.0);
      break;
    case 4:
    case 6:
      a.integers[0] = 1 + (int32_t)(NextRandom(&state) % ZENITHOR_KINDS_ALL);
      a.doubles[1] = a.doubles[0] + RandomBetween(&state, 0.0, 400.0);
      break;
    case 5:
    case 23:
      a.integers[0] = (int32_t)(NextRandom(&state) % 19u);
      break;
    case 7:
    case 8:
    case 9:
      a.integers[1] = 1 + (int32_t)(NextRandom(&state) % 3u);
      a.doubles[1] = RandomBetween(&state, -12.0, 13.0);
      a.doubles[2] = RandomBetween(&state, -180.0, 180.0);
      a.doubles[3] = RandomBetween(&state, -90.0, 90.0);
      break;
    case 13:
      a.integers[0] = (int32_t)RandomBetween(&state, -4000.0, 4000.0);
      a.integers[1] = 1 + (int32_t)(NextRandom(&state) % 12u);
      a.integers[2] = 1 + (int32_t)(NextRandom(&state) % 28u);
      a.integers[3] = (int32_t)(NextRandom(&state) % 24u);
      a.doubles[0] = RandomBetween(&state, 0.0, 60.0);
      break;
    case 14:
      a.doubles[1] = 1.0;
      break;
    case 19:
    case 21:
      a.integers[0] = a.integers[1];
      break;
    case 33:
      a.integers[0] = -(int32_t)(NextRandom(&state) % 10u);
      break;
    default:
      break;
  }
  return a;
}

static inline void OpenValuesFromArguments(int argc, char** argv) {
  if (argc < 2 || !OpenValues(argv[1])) {
    printf("FAILED: cannot load %s\n", argc < 2 ? "nothing" : argv[1]);
    exit(1);
  }
}

#endif
