/* A host whose handler calls the library on a thread that is inside a call of it: natively from a
 * timer's signal, on Windows from the handler of a single-step exception. No answer may differ,
 * neither of the call that was interrupted nor of the one in the handler.
 *   interrupted_calls LIBRARY [INTERRUPTED CALLS] */

#if defined(__linux__)
#define _GNU_SOURCE
#endif

#include "hostile.h"

#if !defined(_WIN32)
#include <signal.h>
#include <sys/time.h>
#endif

enum { kVariants = 8, kBodies = 11, kMostCalls = 2 * kVariants * kBodies + 2 * kVariants };

typedef struct Call {
  FoundExport export_;
  ExportArguments arguments;
  Answer expected;
} Call;
static Call calls[kMostCalls];
static int call_count;

/* Every body's place and rising, an eclipse and a phase, on several days. */
static void PrepareCalls(const FoundExport* exports, int count) {
  for (int e = 0; e < count; ++e) {
    const ExportShape shape = exports[e].row->shape;
    const int bodies = shape == kShapePosition || shape == kShapeRising ? kBodies
                       : strcmp(exports[e].row->name, "ALL_SE") == 0 ||
                               strcmp(exports[e].row->name, "NEW_MOON") == 0
                           ? 1
                           : 0;
    for (int k = 0; k < bodies * kVariants; ++k) {
      Call* const call = &calls[call_count++];
      call->export_ = exports[e];
      call->arguments = OrdinaryArguments(exports[e].row, 100 + (uint64_t)k);
      call->arguments.integers[0] = k % bodies;
      CallGuarded(&call->export_, &call->arguments, &call->expected);
    }
  }
}

static int IsAnswered(const Call* call, Answer* answer) {
  CallGuarded(&call->export_, &call->arguments, answer);
  return SameAnswer(answer, &call->expected);
}

/* What the handler counts. */
static volatile int inside;
static volatile int interrupted;
static volatile int wrong_in_handler;
static uint64_t handlers_random = 5;
static Answer handlers_answer;

static void CallFromHandler(void) {
  if (inside) {
    ++interrupted;
    const Call* const call = &calls[NextRandom(&handlers_random) % (uint64_t)call_count];
    wrong_in_handler += !IsAnswered(call, &handlers_answer);
  }
}

static int wrong;
static long made;

#if defined(_WIN32)

enum { kTrapFlag = 0x100, kStepsBetween = 211 };
static volatile long steps;

static LONG CALLBACK OnException(EXCEPTION_POINTERS* exception) {
  if (exception->ExceptionRecord->ExceptionCode != EXCEPTION_SINGLE_STEP) {
    return EXCEPTION_CONTINUE_SEARCH;
  }
  if (inside) {
    if (++steps % kStepsBetween == 0) {
      CallFromHandler();
    }
    exception->ContextRecord->EFlags |= kTrapFlag;
  } else {
    exception->ContextRecord->EFlags &= ~(DWORD)kTrapFlag;
  }
  return EXCEPTION_CONTINUE_EXECUTION;
}

/* From here on the processor stops after each instruction. */
static inline void StartStepping(void) {
#if defined(__i386__)
  __asm__ volatile("pushfl\n\torl $0x100, (%%esp)\n\tpopfl" ::: "memory", "cc");
#else
  __asm__ volatile("pushfq\n\torl $0x100, (%%rsp)\n\tpopfq" ::: "memory", "cc");
#endif
}

/* One call after the other, instruction by instruction; the shorter kinds, as each step is an
 * exception. */
static void InterruptCalls(int wanted) {
  static Answer answer;
  AddVectoredExceptionHandler(1, OnException);
  for (uint64_t random = 1; interrupted < wanted; ++made) {
    const Call* const call = &calls[NextRandom(&random) % (uint64_t)call_count];
    const int body = call->arguments.integers[0];
    if (call->export_.row->shape == kShapePosition && body != ZENITHOR_SUN &&
        body != ZENITHOR_EARTH && body != ZENITHOR_MOON) {
      continue;
    }
    if (call->export_.row->shape == kShapeRising && body != ZENITHOR_MOON) {
      continue;
    }
    inside = 1;
    StartStepping();
    wrong += !IsAnswered(call, &answer);
    inside = 0;
    wrong += !IsAnswered(call, &answer);
  }
}

#else

static void OnTimer(int signal) {
  (void)signal;
  CallFromHandler();
}

/* On threads that come and go, so that first calls are interrupted too. */
static int wanted_now;
static uint64_t random_now = 1;

static void CallOnThread(void* unused) {
  (void)unused;
  static Answer answer;
  sigset_t timer;
  sigemptyset(&timer);
  sigaddset(&timer, SIGALRM);
  pthread_sigmask(SIG_UNBLOCK, &timer, NULL);
  for (int k = 0; k < 200 && interrupted < wanted_now; ++k, ++made) {
    const Call* const call = &calls[NextRandom(&random_now) % (uint64_t)call_count];
    const struct itimerval once = {{0, 0}, {0, 1 + (long)(NextRandom(&random_now) % 40)}};
    inside = 1;
    setitimer(ITIMER_REAL, &once, NULL);
    wrong += !IsAnswered(call, &answer);
    inside = 0;
  }
  pthread_sigmask(SIG_BLOCK, &timer, NULL);
}

static void InterruptCalls(int wanted) {
  struct sigaction action;
  memset(&action, 0, sizeof action);
  action.sa_handler = OnTimer;
  sigaction(SIGALRM, &action, NULL);
  sigset_t timer;
  sigemptyset(&timer);
  sigaddset(&timer, SIGALRM);
  pthread_sigmask(SIG_BLOCK, &timer, NULL);
  wanted_now = wanted;
  while (interrupted < wanted) {
    ThreadTask task;
    task.run = CallOnThread;
    task.argument = NULL;
    StartThread(&task);
    JoinThread(&task);
  }
}

#endif

int main(int argc, char** argv) {
  FoundExport exports[kExportCount];
  int count = 0;
  OpenFromArguments(argc, argv, exports, &count);
#if defined(_WIN32)
  const int wanted = argc > 2 ? atoi(argv[2]) : 400;
#else
  const int wanted = argc > 2 ? atoi(argv[2]) : 20000;
#endif
  PrepareCalls(exports, count);
  Check(call_count == kMostCalls, "%d calls prepared", call_count);
  const double start = SecondsNow();
  InterruptCalls(wanted);
  printf("%d calls of %ld interrupted by another on the same thread, in %.1f s\n", interrupted,
         made, SecondsNow() - start);
  Check(interrupted >= wanted, "%d calls interrupted", interrupted);
  Check(wrong == 0, "%d calls with other bits", wrong);
  Check(wrong_in_handler == 0, "%d calls in a handler with other bits", wrong_in_handler);
  return Verdict("interrupted_calls");
}
