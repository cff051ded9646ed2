/* Hosts of the values library with eight threads at once, with a thread for every few calls, that
 * load and unload it again and again, and that have no per-thread slot left: the answers of a lone
 * caller, and nothing left behind. */

#include "memory.h"
#include "thread_slots.h"
#include "values_hostile.h"

enum { kThreads = 8, kDistinctCalls = 136, kCallsPerThread = 400, kChurned = 300, kLoads = 20 };

static ValueAnswer* expected; /* of a lone caller */
static int mismatches[kThreads];

static int FunctionOf(int which) { return which % kValueFunctions; }

static void CallOne(int which, ValueAnswer* answer) {
  const ValueArguments arguments = OrdinaryValueArguments(FunctionOf(which), (uint64_t)which);
  CallValue(FunctionOf(which), &arguments, answer);
}

static void CallAll(void* argument) {
  const int self = *(int*)argument;
  ValueAnswer* const answer = malloc(sizeof *answer);
  uint64_t random = (uint64_t)self + 1;
  for (int k = 0; k < kCallsPerThread; ++k) {
    const int which = (int)(NextRandom(&random) % kDistinctCalls);
    CallOne(which, answer);
    mismatches[self] += !SameValueAnswer(answer, &expected[which]);
  }
  free(answer);
}

static void CallAFew(void* unused) {
  (void)unused;
  ValueAnswer* const answer = malloc(sizeof *answer);
  for (int which = 0; which < kValueFunctions; ++which) {
    CallOne(which, answer);
    mismatches[0] += !SameValueAnswer(answer, &expected[which]);
  }
  free(answer);
}

static void RunThreads(int threads) {
  for (int k = 0; k < threads; ++k) {
    ThreadTask task = {CallAFew, NULL, 0};
    StartThread(&task);
    JoinThread(&task);
  }
}

/* The texts of an answer may be elsewhere in another load; numbers may not differ. */
static void CheckAllAgain(const char* when) {
  static ValueAnswer answer;
  for (int which = 0; which < kValueFunctions; ++which) {
    CallOne(which, &answer);
    answer.text = expected[which].text;
    Check(SameValueAnswer(&answer, &expected[which]), "function %d: other bits %s",
          FunctionOf(which), when);
  }
}

static void CheckAllOnThread(void* when) { CheckAllAgain(when); }

/* The first calls of a load, where no slot can be had; from another thread too. */
static void CallWithoutSlots(const char* path) {
  if (!OpenValues(&values, path)) {
    Check(0, "the last load failed");
    return;
  }
  const int taken = TakeSlots();
  Check(taken > 0, "no per-thread slot to take");
  CheckAllAgain("without a per-thread slot");
  ThreadTask task = {CheckAllOnThread, "without a per-thread slot, from another thread", 0};
  StartThread(&task);
  JoinThread(&task);
  GiveBackSlots(taken);
  CheckAllAgain("with slots again");
  ZenithorValuesClose(&values);
}

int main(int argc, char** argv) {
  OpenValuesFromArguments(argc, argv);
  expected = malloc(kDistinctCalls * sizeof *expected);
  for (int k = 0; k < kDistinctCalls; ++k) {
    CallOne(k, &expected[k]);
  }
  static ThreadTask tasks[kThreads];
  static int self[kThreads];
  for (int t = 0; t < kThreads; ++t) {
    self[t] = t;
    tasks[t].run = CallAll;
    tasks[t].argument = &self[t];
    StartThread(&tasks[t]);
  }
  for (int t = 0; t < kThreads; ++t) {
    JoinThread(&tasks[t]);
    Check(mismatches[t] == 0, "thread %d: %d answers differ from a lone caller's", t,
          mismatches[t]);
  }

  mismatches[0] = 0;
  RunThreads(100);
  const long before_threads = PrivateKiB();
  RunThreads(kChurned);
  const long grown = PrivateKiB() - before_threads;
  Check(mismatches[0] == 0, "%d answers of short threads differ", mismatches[0]);
  Check(grown < kChurned / 4, "%ld KiB more after %d threads", grown, kChurned);

  ZenithorValuesClose(&values);
  const int slots_before = FreeThreadSlots();
  const long before_loads = PrivateKiB();
  for (int k = 0; k < kLoads; ++k) {
    if (!OpenValues(&values, argv[1])) {
      Check(0, "load %d failed", k);
      break;
    }
    CheckAllAgain("after another load");
    ZenithorValuesClose(&values);
  }
  const double left = (double)(PrivateKiB() - before_loads) / kLoads;
  Check(left < 64.0, "%.1f KiB left behind by each load", left);
  const int slots_left = FreeThreadSlots();
  Check(slots_left == slots_before, "%d per-thread slots lost", slots_before - slots_left);
  CallWithoutSlots(argv[1]);
  printf("%d threads at once, %d one after another (%ld KiB more), %d loads (%.1f KiB each)\n",
         kThreads, kChurned, grown, kLoads, left);
  return Verdict("values_threads");
}
