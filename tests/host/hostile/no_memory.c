/* A host that has no memory left: threads that have not called yet make their first calls when
 * malloc refuses even a few bytes, and go on when there is memory again.
 *   no_memory LIBRARY */

#include "no_memory.h"

enum { kBody = 11 };

static FoundExport exports[kExportCount];
static int count;
static Answer expected[kExportCount][kBody];

typedef struct Worker {
  Answer answer;
  int calls;
  int wrong;
  int got_memory; /* malloc gave something where it should have refused */
} Worker;
static Worker workers[kScarceThreads];

static void CallAll(Worker* worker) {
  for (int body = 0; body < kBody; ++body) {
    for (int e = 0; e < count; ++e) {
      ExportArguments arguments = OrdinaryArguments(exports[e].row, 7);
      if (IntegerCountOf(exports[e].row) > 0) {
        arguments.integers[0] = body;
      }
      CallGuarded(&exports[e], &arguments, &worker->answer);
      ++worker->calls;
      worker->wrong += !SameAnswer(&worker->answer, &expected[e][body]);
    }
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
  OpenFromArguments(argc, argv, exports, &count);
  for (int body = 0; body < kBody; ++body) {
    for (int e = 0; e < count; ++e) {
      ExportArguments arguments = OrdinaryArguments(exports[e].row, 7);
      if (IntegerCountOf(exports[e].row) > 0) {
        arguments.integers[0] = body;
      }
      CallGuarded(&exports[e], &arguments, &expected[e][body]);
    }
  }
  RunWithoutMemory(Work);
  for (int k = 0; k < kScarceThreads; ++k) {
    Check(!workers[k].got_memory, "thread %d got memory: nothing was shown", k);
    Check(workers[k].calls == 2 * kBody * count, "thread %d: %d calls", k, workers[k].calls);
    Check(workers[k].wrong == 0, "thread %d: %d answers with other bits", k, workers[k].wrong);
  }
  printf("%d threads, %d calls each without memory and with it again\n", kScarceThreads,
         kBody * count);
  return Verdict("no_memory");
}
