/* A host that declares the functions of the values library as procedures: a number that is the
 * answer stays behind, on 32-bit in an x87 register. Eight such calls fill the register stack of a
 * library that does not empty it, and the arithmetic of both sides turns into NaN. */

#include <math.h>

#include "values_hostile.h"

typedef void(ZENITHOR_VALUES_CALL* BodyProcedure)(int32_t, int32_t, double);
typedef void(ZENITHOR_VALUES_CALL* EventProcedure)(int32_t, double);
typedef void(ZENITHOR_VALUES_CALL* DailyProcedure)(int32_t, int32_t, double, double, double,
                                                   double);
typedef void(ZENITHOR_VALUES_CALL* ClockProcedure)(double);
typedef void(ZENITHOR_VALUES_CALL* PeriodProcedure)(int32_t);

enum { kCalls = 1000, kProcedures = 5 };

static void CallAsProcedure(int which, double day) {
  switch (which) {
    case 0:
      ((BodyProcedure)(AnyExport)values.Value)(4, 101, day);
      break;
    case 1:
      ((EventProcedure)(AnyExport)values.NextEvent)(4, day);
      break;
    case 2:
      ((DailyProcedure)(AnyExport)values.DailyTime)(10, 1, day, 1.0, 13.4, 52.5);
      break;
    case 3:
      ((ClockProcedure)(AnyExport)values.ClockToDynamical)(day);
      break;
    default:
      ((PeriodProcedure)(AnyExport)values.FieldPeriod)(101);
  }
}

static double AnswerOf(int which, double day) {
  switch (which) {
    case 0:
      return values.Value(4, 101, day);
    case 1:
      return values.NextEvent(4, day);
    case 2:
      return values.DailyTime(10, 1, day, 1.0, 13.4, 52.5);
    case 3:
      return values.ClockToDynamical(day);
    default:
      return values.FieldPeriod(101);
  }
}

int main(int argc, char** argv) {
  static double expected[kCalls];
  OpenValuesFromArguments(argc, argv);
  for (int which = 0; which < kProcedures; ++which) {
    for (int k = 0; k < kCalls; ++k) {
      expected[k] = AnswerOf(which, 2451545.0 + k);
    }
    for (int k = 0; k < kCalls; ++k) {
      CallAsProcedure(which, 2451545.0 + k);
      /* Only one result can be left over: the host's own x87 arithmetic still has room. */
      volatile long double third = 1.0L;
      third /= 3.0L;
      Check(fabsl(third * 3.0L - 1.0L) < 1e-18L,
            "procedure %d, call %d: the host's arithmetic is "
            "broken",
            which, k);
    }
    for (int k = 0; k < kCalls; ++k) {
      CallAsProcedure(which, 2451545.0 + k);
      Check(SameBits(AnswerOf(which, 2451545.0 + k), expected[k]),
            "procedure %d, call %d: other bits afterwards", which, k);
    }
  }
  printf("%d functions, %d calls each as a procedure\n", kProcedures, 2 * kCalls);
  return Verdict("values_procedure");
}
