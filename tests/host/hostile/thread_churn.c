/* A host that starts a thread for every few calls: what a thread needed is given back when it ends.
 *   thread_churn LIBRARY [THREADS] */

#include "memory.h"

static FoundExport exports[kExportCount];
static int count;
static Answer expected[kExportCount];
static int mismatches;

static void CallAll(void* unused) {
  (void)unused;
  Answer* const answer = malloc(sizeof *answer);
  for (int e = 0; e < count; ++e) {
    const ExportArguments arguments = OrdinaryArguments(exports[e].row, 5);
    CallGuarded(&exports[e], &arguments, answer);
    mismatches += !SameAnswer(answer, &expected[e]);
  }
  free(answer);
}

static void RunThreads(int threads) {
  for (int k = 0; k < threads; ++k) {
    ThreadTask task = {CallAll, NULL, 0};
    StartThread(&task);
    JoinThread(&task);
  }
}

int main(int argc, char** argv) {
  OpenFromArguments(argc, argv, exports, &count);
  const int threads = argc > 2 ? atoi(argv[2]) : 3000;
  for (int e = 0; e < count; ++e) {
    const ExportArguments arguments = OrdinaryArguments(exports[e].row, 5);
    CallGuarded(&exports[e], &arguments, &expected[e]);
  }
  RunThreads(100);
  const long before = PrivateKiB();
  RunThreads(threads);
  const long grown = PrivateKiB() - before;
  Check(mismatches == 0, "%d answers differ from the main thread's", mismatches);
  Check(grown < threads / 4, "%ld KiB more after %d threads", grown, threads);
  printf("%d threads one after another, %ld KiB more than after the first hundred\n", threads,
         grown);
  return Verdict("thread_churn");
}
