/* A host of the values library that has no memory left: threads that have not called yet make their
 * first calls when malloc refuses even a few bytes, and go on when there is memory again.
 *   values_no_memory ZENITHOR_VALUES */

#include "no_memory.h"
#include "values_hostile.h"

enum { kVariants = 3, kCalls = kValueFunctions * kVariants };

static ValueAnswer expected[kCalls];

typedef struct Worker {
  ValueAnswer answer;
  int calls;
  int wrong;
  int got_memory; /* malloc gave something where it should have refused */
} Worker;
static Worker workers[kScarceThreads];

static void CallOne(int which, ValueAnswer* answer) {
  const int function = which % kValueFunctions;
  const ValueArguments arguments = OrdinaryValueArguments(function, (uint64_t)which);
  CallValue(function, &arguments, answer);
}

static void CallAll(Worker* worker) {
  for (int which = 0; which < kCalls; ++which) {
    CallOne(which, &worker->answer);
    ++worker->calls;
    worker->wrong += !SameValueAnswer(&worker->answer, &expected[which]);
  }
}

static void Work(void* number) {
  const int me = (int)(intptr_t)number;
  WaitForTurn(1);
  workers[me].got_memory = GetsMemory();
  CallAll(&workers[me]);
  __atomic_store_n(&finished[me], 1, __ATOMIC_RELEASE);
  WaitForTurn(2);
  CallAll(&workers[me]);
}

int main(int argc, char** argv) {
  static char output[BUFSIZ];
  setvbuf(stdout, output, _IOFBF, sizeof output);
  OpenValuesFromArguments(argc, argv);
  for (int which = 0; which < kCalls; ++which) {
    CallOne(which, &expected[which]);
  }
  RunWithoutMemory(Work);
  for (int k = 0; k < kScarceThreads; ++k) {
    Check(!workers[k].got_memory, "thread %d got memory: nothing was shown", k);
    Check(workers[k].calls == 2 * kCalls, "thread %d: %d calls", k, workers[k].calls);
    Check(workers[k].wrong == 0, "thread %d: %d answers with other bits", k, workers[k].wrong);
  }
  printf("%d threads, %d calls each without memory and with it again\n", kScarceThreads, kCalls);
  return Verdict("values_no_memory");
}
