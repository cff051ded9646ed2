/* A host with eight threads that make two hundred thousand mixed calls at once: each must get, bit
 * for bit, the answer that a lone caller gets. Every thread goes through the same calls in an order
 * of its own, so that no two threads ask for the same thing for long.
 *   threads LIBRARY [CALLS] */

#include "hostile.h"

enum { kThreads = 8, kDistinctCalls = 2500 };

static FoundExport exports[kExportCount];
static int count;
static Answer* expected; /* of a lone caller */
static int calls_per_thread;
static int mismatches[kThreads];

static ExportArguments ArgumentsOf(int k, const FoundExport** export_) {
  *export_ = &exports[k % count];
  return OrdinaryArguments((*export_)->row, (uint64_t)k);
}

static void CallAll(void* argument) {
  const int self = *(int*)argument;
  Answer* const answer = malloc(sizeof *answer);
  uint64_t random = (uint64_t)self + 1;
  for (int k = 0; k < calls_per_thread; ++k) {
    const int which = (int)(NextRandom(&random) % kDistinctCalls);
    const FoundExport* export_ = NULL;
    const ExportArguments arguments = ArgumentsOf(which, &export_);
    CallGuarded(export_, &arguments, answer);
    mismatches[self] += !SameAnswer(answer, &expected[which]);
  }
  free(answer);
}

int main(int argc, char** argv) {
  OpenFromArguments(argc, argv, exports, &count);
  const int total = argc > 2 ? atoi(argv[2]) : 200000;
  calls_per_thread = total / kThreads;
  expected = malloc(kDistinctCalls * sizeof *expected);
  for (int k = 0; k < kDistinctCalls; ++k) {
    const FoundExport* export_ = NULL;
    const ExportArguments arguments = ArgumentsOf(k, &export_);
    CallGuarded(export_, &arguments, &expected[k]);
  }
  static ThreadTask tasks[kThreads];
  static int self[kThreads];
  const double start = SecondsNow();
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
  printf("%d threads, %d calls, %.1f s\n", kThreads, kThreads * calls_per_thread,
         SecondsNow() - start);
  return Verdict("threads");
}
