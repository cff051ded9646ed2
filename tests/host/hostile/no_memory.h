#ifndef TESTS_HOST_HOSTILE_NO_MEMORY_H
#define TESTS_HOST_HOSTILE_NO_MEMORY_H

/* A process without memory: all of it is taken, and no more is had of the system, while threads
 * that were started before make their calls. */

#include "hostile.h"

#if defined(_WIN32)
#include <psapi.h>
#else
#include <sys/resource.h>
#endif

enum { kScarceThreads = 4 };

/* The threads start while there is memory, and wait for their turn: first without, then with. */
static volatile int turn;
static volatile int finished[kScarceThreads];

static void WaitForTurn(int awaited) {
  while (__atomic_load_n(&turn, __ATOMIC_ACQUIRE) < awaited) {
    SleepMilliseconds(1);
  }
}

/* Volatile, or the compiler drops the pair of calls. */
static void* volatile given;

/* Whether malloc gives something where it should refuse. */
static inline int GetsMemory(void) {
  given = malloc(64);
  const int got = given != NULL;
  free(given);
  return got;
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

/* Threads that run `work(number)`, which waits for turn 1, calls, says that it finished, waits for
 * turn 2 and calls again: the first time without memory, the second with it. */
static inline void RunWithoutMemory(void (*work)(void*)) {
  static ThreadTask tasks[kScarceThreads];
  for (int k = 0; k < kScarceThreads; ++k) {
    tasks[k].run = work;
    tasks[k].argument = (void*)(intptr_t)k;
    StartThread(&tasks[k]);
  }
  SleepMilliseconds(50); /* until all of them have what a thread needs */

  CloseAddressSpace();
  Piece* const taken = TakeMemory();
  __atomic_store_n(&turn, 1, __ATOMIC_RELEASE);
  for (int k = 0; k < kScarceThreads; ++k) {
    while (!__atomic_load_n(&finished[k], __ATOMIC_ACQUIRE)) {
      SleepMilliseconds(1);
    }
  }
  GiveBack(taken);
  OpenAddressSpace();
  __atomic_store_n(&turn, 2, __ATOMIC_RELEASE);
  for (int k = 0; k < kScarceThreads; ++k) {
    JoinThread(&tasks[k]);
  }
}

#endif
