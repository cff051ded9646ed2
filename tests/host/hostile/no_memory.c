/* A host that has no memory left: threads that have not called yet make their first calls when
 * malloc refuses even a few bytes, and go on when there is memory again.
 *   no_memory LIBRARY */

#include "hostile.h"

#if defined(_WIN32)
#include <psapi.h>
#else
#include <sys/resource.h>
#endif

enum { kThreads = 4, kBody = 11 };

static FoundExport exports[kExportCount];
static int count;
static Answer expected[kExportCount][kBody];

typedef struct Worker {
  Answer answer;
  int calls;
  int wrong;
  int got_memory; /* malloc gave something where it should have refused */
} Worker;
static Worker workers[kThreads];

/* The threads start while there is memory, and wait for their turn: first without, then with. */
static volatile int turn;
static volatile int finished[kThreads];

static void WaitForTurn(int awaited) {
  while (__atomic_load_n(&turn, __ATOMIC_ACQUIRE) < awaited) {
    SleepMilliseconds(1);
  }
}

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

/* Volatile, or the compiler drops the pair of calls. */
static void* volatile given;

static void Work(void* number) {
  const int me = (int)(intptr_t)number;
  WaitForTurn(1);
  given = malloc(64);
  workers[me].got_memory = given != NULL;
  free(given);
  CallAll(&workers[me]);
  __atomic_store_n(&finished[me], 1, __ATOMIC_RELEASE);
  WaitForTurn(2);
  CallAll(&workers[me]);
}

/* What was taken, one piece in front of the other. */
typedef struct Piece {
  struct Piece* before;
} Piece;

static Piece* TakeMemory(void) {
  Piece* last = NULL;
  for (size_t size = 1u << 20; size >= sizeof(Piece); size /= 2) {
    for (;;) {
      Piece* const piece = malloc(size);
      if (piece == NULL) {
        break;
      }
      piece->before = last;
      last = piece;
    }
  }
  return last;
}

static void GiveBack(Piece* last) {
  while (last != NULL) {
    Piece* const before = last->before;
    free(last);
    last = before;
  }
}

#if defined(_WIN32)
/* A 32-bit process runs out of addresses. A 64-bit one is held to what it has by a job of its own;
 * Wine has no such limit, so there the test sets one around the process. */
static void CloseAddressSpace(void) {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits;
  PROCESS_MEMORY_COUNTERS counters;
  const HANDLE job = CreateJobObjectA(NULL, NULL);
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  memset(&limits, 0, sizeof limits);
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_PROCESS_MEMORY;
  limits.ProcessMemoryLimit = counters.PagefileUsage + (32u << 20);
  SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
  AssignProcessToJobObject(job, GetCurrentProcess());
}
static void OpenAddressSpace(void) {}
#else
static struct rlimit limit_before;

static void CloseAddressSpace(void) {
  getrlimit(RLIMIT_AS, &limit_before);
  struct rlimit none = limit_before;
  none.rlim_cur = 0; /* less than there is: nothing is added any more */
  Check(setrlimit(RLIMIT_AS, &none) == 0, "RLIMIT_AS cannot be set");
}
static void OpenAddressSpace(void) { setrlimit(RLIMIT_AS, &limit_before); }
#endif

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
  ThreadTask tasks[kThreads];
  for (int k = 0; k < kThreads; ++k) {
    tasks[k].run = Work;
    tasks[k].argument = (void*)(intptr_t)k;
    StartThread(&tasks[k]);
  }
  SleepMilliseconds(50); /* until all of them have what a thread needs */

  CloseAddressSpace();
  Piece* const taken = TakeMemory();
  __atomic_store_n(&turn, 1, __ATOMIC_RELEASE);
  for (int k = 0; k < kThreads; ++k) {
    while (!__atomic_load_n(&finished[k], __ATOMIC_ACQUIRE)) {
      SleepMilliseconds(1);
    }
  }
  GiveBack(taken);
  OpenAddressSpace();
  __atomic_store_n(&turn, 2, __ATOMIC_RELEASE);

  for (int k = 0; k < kThreads; ++k) {
    JoinThread(&tasks[k]);
    Check(!workers[k].got_memory, "thread %d got memory: nothing was shown", k);
    Check(workers[k].calls == 2 * kBody * count, "thread %d: %d calls", k, workers[k].calls);
    Check(workers[k].wrong == 0, "thread %d: %d answers with other bits", k, workers[k].wrong);
  }
  printf("%d threads, %d calls each without memory and with it again\n", kThreads, kBody * count);
  return Verdict("no_memory");
}
