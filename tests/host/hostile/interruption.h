#ifndef TESTS_HOST_HOSTILE_INTERRUPTION_H
#define TESTS_HOST_HOSTILE_INTERRUPTION_H

/* Calls that are interrupted by a handler which makes a call of its own: natively a timer's signal,
 * on Windows a single-step exception. To be included with _GNU_SOURCE defined, by a program that
 * defines what is declared here. */

#include "hostile.h"

#if !defined(_WIN32)
#include <signal.h>
#include <sys/time.h>
#endif

static int call_count;

/* Makes a call by its number, 0 to call_count - 1; whether its answer is the expected one. */
static int IsAnswered(int which, int in_handler);
#if defined(_WIN32)
/* Whether it is too long to be made instruction by instruction. */
static int IsLong(int which);
#endif

/* What the handler counts. */
static volatile int inside;
static volatile int interrupted;
static volatile int wrong_in_handler;
static uint64_t handlers_random = 5;

static void CallFromHandler(void) {
  if (inside) {
    ++interrupted;
    wrong_in_handler += !IsAnswered((int)(NextRandom(&handlers_random) % (uint64_t)call_count), 1);
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
  AddVectoredExceptionHandler(1, OnException);
  for (uint64_t random = 1; interrupted < wanted; ++made) {
    const int which = (int)(NextRandom(&random) % (uint64_t)call_count);
    if (IsLong(which)) {
      continue;
    }
    inside = 1;
    StartStepping();
    wrong += !IsAnswered(which, 0);
    inside = 0;
    wrong += !IsAnswered(which, 0);
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
  sigset_t timer;
  sigemptyset(&timer);
  sigaddset(&timer, SIGALRM);
  pthread_sigmask(SIG_UNBLOCK, &timer, NULL);
  for (int k = 0; k < 200 && interrupted < wanted_now; ++k, ++made) {
    const int which = (int)(NextRandom(&random_now) % (uint64_t)call_count);
    const struct itimerval once = {{0, 0}, {0, 1 + (long)(NextRandom(&random_now) % 40)}};
    inside = 1;
    setitimer(ITIMER_REAL, &once, NULL);
    wrong += !IsAnswered(which, 0);
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

/* Calls until `wanted` were interrupted, or as many as the program's second argument says. */
static inline void CheckInterruptedCalls(int argc, char** argv, int wanted) {
  const double start = SecondsNow();
  wanted = argc > 2 ? atoi(argv[2]) : wanted;
  InterruptCalls(wanted);
  printf("%d calls of %ld interrupted by another on the same thread, in %.1f s\n", interrupted,
         made, SecondsNow() - start);
  Check(interrupted >= wanted, "%d calls interrupted", interrupted);
  Check(wrong == 0, "%d calls with other bits", wrong);
  Check(wrong_in_handler == 0, "%d calls in a handler with other bits", wrong_in_handler);
}

#endif
