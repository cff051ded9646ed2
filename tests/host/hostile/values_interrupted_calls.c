/* A host whose handler calls the values library on a thread that is inside a call of it. No answer
 * may differ, neither of the call that was interrupted nor of the one in the handler.
 *   values_interrupted_calls ZENITHOR_VALUES [INTERRUPTED CALLS] */

#if defined(__linux__)
#define _GNU_SOURCE
#endif

#include "interruption.h"
#include "values_hostile.h"

#if defined(_WIN32)
enum { kInterruptedCalls = 400 };
#else
enum { kInterruptedCalls = 2000 };
#endif

enum { kVariants = 12 };

static ValueAnswer expected[kValueFunctions * kVariants];

static int FunctionOf(int which) { return which % kValueFunctions; }

static void CallOne(int which, ValueAnswer* answer) {
  const ValueArguments arguments = OrdinaryValueArguments(FunctionOf(which), (uint64_t)which);
  CallValue(FunctionOf(which), &arguments, answer);
}

static int IsAnswered(int which, int in_handler) {
  static ValueAnswer answers[2];
  CallOne(which, &answers[in_handler]);
  return SameValueAnswer(&answers[in_handler], &expected[which]);
}

#if defined(_WIN32)
static int IsLong(int which) {
  const int function = FunctionOf(which);
  return IsSearch(function) || (function >= 1 && function <= 4) ||
         OrdinaryValueArguments(function, (uint64_t)which).integers[0] != ZENITHOR_BODY_SUN;
}
#endif

int main(int argc, char** argv) {
  OpenValuesFromArguments(argc, argv);
  call_count = sizeof expected / sizeof expected[0];
  for (int which = 0; which < call_count; ++which) {
    CallOne(which, &expected[which]);
  }
  CheckInterruptedCalls(argc, argv, kInterruptedCalls);
  return Verdict("values_interrupted_calls");
}
