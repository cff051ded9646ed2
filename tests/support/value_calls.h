#ifndef TESTS_SUPPORT_VALUE_CALLS_H
#define TESTS_SUPPORT_VALUE_CALLS_H

#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "zenithor/values.h"

/* Every function of the values library by number, with arguments of all kinds in one record, and
 * answers between guards. C and C++. */

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

/* A search may go through six thousand years, so fewer of them are made. */
static inline int IsSearch(int function) { return function >= 24 && function <= 32; }

static inline void ClearAnswer(ValueAnswer* answer) {
  memset(answer, kHostsByte, sizeof *answer);
  answer->number = 0.0;
  answer->integer = 0;
  answer->text = NULL;
}

/* Layouts of a table of two bodies, fields and moments in eight elements, day, body and field; the
 * last two are refused. */
enum { kTableLayouts = 5 };
static const int32_t kTableStrides[kTableLayouts][3] = {
    {0, 0, 0}, {4, 2, 1}, {1, 2, 4}, {1, -2, 4}, {INT32_MIN, 1, 1}};

/* The call of a function by number: `doubles` and `integers` are where its arrays go. */
static inline void CallValueOf(const ZenithorValuesLibrary* values, int function,
                               const ValueArguments* a, ValueAnswer* answer, double* doubles,
                               int32_t* integers) {
  const double* const d = a->doubles;
  const int32_t* const i = a->integers;
  double* const first = (a->nulls & 1) != 0 ? NULL : doubles;
  int32_t* const second = (a->nulls & 2) != 0 ? NULL : integers;
  const int32_t one = a->length < 2 ? a->length : 2;
  switch (function) {
    case 0:
      answer->number = values->Value(i[0], i[1], d[0]);
      break;
    case 1:
      answer->integer = values->Values(i[0], i[1], d, a->length, first);
      break;
    case 2: {
      const int32_t* const strides = kTableStrides[(uint32_t)i[4] % kTableLayouts];
      answer->integer =
          values->Table(i, one, i + 2, one, d, one, first, strides[0], strides[1], strides[2]);
      break;
    }
    case 3:
      answer->integer = values->Events(i[0], d[0], d[1], first, a->length);
      break;
    case 4:
      answer->integer = values->EventsOfKinds(i[0], d[0], d[1], first, second, a->length);
      break;
    case 5:
      answer->number = values->NextEvent(i[0], d[0]);
      break;
    case 6:
      answer->number = values->NextEventOfKinds(i[0], d[0], second);
      break;
    case 7:
      answer->integer = values->Daily(i[0], d[0], d[1], d[2], d[3], first, second);
      break;
    case 8:
      answer->number = values->DailyTime(i[0], i[1], d[0], d[1], d[2], d[3]);
      break;
    case 9:
      answer->integer = values->DailyStatus(i[0], i[1], d[0], d[1], d[2], d[3]);
      break;
    case 10:
      answer->number = values->ClockToDynamical(d[0]);
      break;
    case 11:
      answer->number = values->DynamicalToClock(d[0]);
      break;
    case 12:
      answer->number = values->DynamicalLessClock(d[0]);
      break;
    case 13:
      answer->number = values->JulianDay(i[0], i[1], i[2], i[3], i[4], d[0]);
      break;
    case 14:
      answer->integer = values->Calendar(d[0], d[1], second, first);
      break;
    case 15:
      answer->text = values->Version();
      break;
    case 16:
      answer->integer = values->VersionNumber();
      break;
    case 17:
      answer->text = values->DataFingerprint();
      break;
    case 18:
      answer->text = values->BodyName(i[0]);
      break;
    case 19:
      answer->text = values->FieldName(i[0]);
      break;
    case 20:
      answer->text = values->FieldUnit(i[0], i[1]);
      break;
    case 21:
      answer->number = values->FieldPeriod(i[0]);
      break;
    case 22:
      answer->integer = values->HasField(i[0], i[1]);
      break;
    case 23:
      answer->text = values->KindName(i[0]);
      break;
    case 24:
      answer->integer = values->Crossings(i[0], i[1], d[2], d[0], d[1], first, a->length);
      break;
    case 25:
      answer->integer = values->Stations(i[0], i[1], d[0], d[1], first, a->length);
      break;
    case 26:
      answer->integer = values->Aspects(i[0], i[2], i[1], d[2], d[0], d[1], first, a->length);
      break;
    case 27:
      answer->integer =
          values->DirectedCrossings(i[0], i[1], d[2], d[0], d[1], first, second, a->length);
      break;
    case 28:
      answer->integer = values->DirectedStations(i[0], i[1], d[0], d[1], first, second, a->length);
      break;
    case 29:
      answer->integer =
          values->DirectedAspects(i[0], i[2], i[1], d[2], d[0], d[1], first, second, a->length);
      break;
    case 30:
      answer->number = values->NextCrossing(i[0], i[1], d[2], d[0]);
      break;
    case 31:
      answer->number = values->NextStation(i[0], i[1], d[0]);
      break;
    case 32:
      answer->number = values->NextAspect(i[0], i[2], i[1], d[2], d[0]);
      break;
    default:
      answer->text = values->Message(i[0]);
      break;
  }
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

#endif
