#ifndef TESTS_HOST_HOSTILE_VALUES_HOSTILE_H
#define TESTS_HOST_HOSTILE_VALUES_HOSTILE_H

/* What the hostile hosts of the values library share. */

#include "state_call.h"
#include "support/extreme_values.h"
#include "support/open_values.h"
#include "support/value_calls.h"

static ZenithorValuesLibrary values;

static inline void CallValueInto(int function, const ValueArguments* arguments, ValueAnswer* answer,
                                 double* doubles, int32_t* integers) {
  CallValueOf(&values, function, arguments, answer, doubles, integers);
}

static inline void CallValue(int function, const ValueArguments* arguments, ValueAnswer* answer) {
  ClearAnswer(answer);
  CallValueInto(function, arguments, answer, answer->doubles, answer->integers);
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
    if (function >= 30) { /* searches to the last day: from the last two centuries */
      a.doubles[0] = RandomBetween(&state, ZENITHOR_LAST_DAY - 73000.0, ZENITHOR_LAST_DAY);
    }
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
  if (argc < 2 || !OpenValues(&values, argv[1])) {
    printf("FAILED: cannot load %s\n", argc < 2 ? "nothing" : argv[1]);
    exit(1);
  }
}

#endif
