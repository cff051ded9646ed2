/* A host that ends while eight of its threads are inside the values library. The exit code must be
 * the host's own.
 *   values_exit_during_calls ZENITHOR_VALUES [MILLISECONDS] */

#include "values_hostile.h"

enum { kThreads = 8, kExitCode = 42 };

static volatile long calls[kThreads];

static void CallForever(void* argument) {
  const int self = *(int*)argument;
  ValueAnswer* const answer = malloc(sizeof *answer);
  for (uint64_t k = (uint64_t)self;; ++k) {
    const int function = (int)(k % kValueFunctions);
    const ValueArguments arguments = OrdinaryValueArguments(function, k);
    CallValue(function, &arguments, answer);
    ++calls[self];
  }
}

int main(int argc, char** argv) {
  OpenValuesFromArguments(argc, argv);
  const int milliseconds = argc > 2 ? atoi(argv[2]) : 50;
  static ThreadTask tasks[kThreads];
  static int self[kThreads];
  for (int t = 0; t < kThreads; ++t) {
    self[t] = t;
    tasks[t].run = CallForever;
    tasks[t].argument = &self[t];
    StartThread(&tasks[t]);
  }
  SleepMilliseconds(milliseconds);
  int running = 0;
  for (int t = 0; t < kThreads; ++t) {
    running += calls[t] > 0;
  }
  Check(running > 0, "no thread made a call within %d ms", milliseconds);
  if (Verdict("values_exit_during_calls") != 0) {
    fflush(stdout);
    _Exit(1);
  }
  return kExitCode;
}
