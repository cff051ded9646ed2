/* Hosts whose threads have little stack. Every kind of call is made on a stack of its own: once on
 * a large one, to see how much it needs; on one of ZENITHOR_STACK_BYTES, where it must be right;
 * and, natively, on ever smaller ones, where it must be right or end at the guard page, with
 * nothing behind that page written to.
 *   small_stack LIBRARY */

#if defined(__linux__)
#define _GNU_SOURCE
#endif

#include "hostile.h"
#include "on_stack.h"

#if !defined(_WIN32)
#include <signal.h>
#include <sys/wait.h>
#endif

enum {
  kCalls = 24, /* ZENITHOR and GEO_RISE for every body, an eclipse and a phase */
  kPage = 4096,
  kBehind = 16 * kPage,
  kLargeStack = 64 * kPage,
  kStep = 192
};

static FoundExport exports[kExportCount];
static int count;

typedef struct Call {
  FoundExport export_;
  ExportArguments arguments;
  Answer expected;
  Answer answer;
} Call;
static Call calls[kCalls];

static void PrepareCalls(void) {
  int made = 0;
  for (int e = 0; e < count; ++e) {
    const ExportShape shape = exports[e].row->shape;
    const int bodies = shape == kShapePosition || shape == kShapeRising ? 11
                       : strcmp(exports[e].row->name, "ALL_SE") == 0 ||
                               strcmp(exports[e].row->name, "NEW_MOON") == 0
                           ? 1
                           : 0;
    for (int body = 0; body < bodies; ++body) {
      Call* const call = &calls[made++];
      call->export_ = exports[e];
      call->arguments = OrdinaryArguments(exports[e].row, 2);
      call->arguments.integers[0] = body;
    }
  }
  Check(made == kCalls, "%d calls", made);
}

static void MakeCall(void* argument) {
  Call* const call = argument;
  call->answer.result = CallExport(call->export_.row, call->export_.entry, &call->arguments,
                                   call->answer.guarded.record);
}

static void MakeCallOn(Call* call, unsigned char* top) {
  ClearGuarded(&call->answer.guarded);
  CallOnStack(MakeCall, call, top);
}

/* On a thread with an ordinary stack, and not the one that is measured: what a thread's first call
 * needs is part of the measure. */
static void Expect(void* unused) {
  (void)unused;
  for (int k = 0; k < kCalls; ++k) {
    CallGuarded(&calls[k].export_, &calls[k].arguments, &calls[k].expected);
  }
}

static const char* NameOf(const Call* call) { return call->export_.row->name; }

/* Bytes of stack that a call touches. */
static size_t Need(Call* call, unsigned char* stack) {
  memset(stack, kPattern, kLargeStack);
  MakeCallOn(call, stack + kLargeStack);
  Check(SameAnswer(&call->answer, &call->expected), "%s(%d): other bits on its own stack",
        NameOf(call), call->arguments.integers[0]);
  size_t untouched = 0;
  while (untouched < kLargeStack && stack[untouched] == kPattern) {
    ++untouched;
  }
  return kLargeStack - untouched;
}

typedef struct Measured {
  unsigned char* stack;
  size_t largest;
} Measured;

/* Each call first of its thread, then once more. */
static void MeasureOne(void* argument) {
  Measured* const measured = ((Measured**)argument)[0];
  Call* const call = ((Call**)argument)[1];
  for (int repeat = 0; repeat < 2; ++repeat) {
    const size_t need = Need(call, measured->stack);
    Check(need <= ZENITHOR_STACK_BYTES, "%s(%d) needs %lu bytes of stack", NameOf(call),
          call->arguments.integers[0], (unsigned long)need);
    measured->largest = need > measured->largest ? need : measured->largest;
  }
}

static size_t MeasureNeeds(unsigned char* stack) {
  Measured measured = {stack, 0};
  for (int k = 0; k < kCalls; ++k) {
    void* pair[2] = {&measured, &calls[k]};
    ThreadTask task;
    task.run = MeasureOne;
    task.argument = pair;
    StartThread(&task);
    JoinThread(&task);
  }
  return measured.largest;
}

#if !defined(_WIN32)

/* From low to high: pages that belong to somebody else, the guard page, the stack. */
static unsigned char* behind;
static unsigned char* guard;
static unsigned char* stack_bottom;

enum { kRight = 10, kWrong = 11, kDiedAtGuard = 12, kDiedElsewhere = 13, kWroteBehind = 14 };

static int BehindIsIntact(void) {
  for (size_t k = 0; k < kBehind; ++k) {
    if (behind[k] != kPattern) {
      return 0;
    }
  }
  return 1;
}

static void OnFault(int signal, siginfo_t* information, void* context) {
  (void)signal;
  (void)context;
  const unsigned char* const address = information->si_addr;
  _exit(!BehindIsIntact()                             ? kWroteBehind
        : address >= guard && address < guard + kPage ? kDiedAtGuard
                                                      : kDiedElsewhere);
}

/* In a process of its own: what comes of the call on a stack of `size` bytes. */
static int TryWith(Call* call, size_t size) {
  const pid_t child = fork();
  if (child == 0) {
    static char handlers_stack[65536];
    const stack_t other = {.ss_sp = handlers_stack, .ss_size = sizeof handlers_stack};
    struct sigaction action;
    memset(&action, 0, sizeof action);
    action.sa_sigaction = OnFault;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigaltstack(&other, NULL);
    sigaction(SIGSEGV, &action, NULL);
    sigaction(SIGBUS, &action, NULL);
    MakeCallOn(call, stack_bottom + size);
    _exit(!BehindIsIntact()                            ? kWroteBehind
          : SameAnswer(&call->answer, &call->expected) ? kRight
                                                       : kWrong);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

static void TryEverSmallerStacks(void) {
  behind = mmap(NULL, kBehind + kPage + kLargeStack, PROT_READ | PROT_WRITE,
                MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  guard = behind + kBehind;
  stack_bottom = guard + kPage;
  memset(behind, kPattern, kBehind);
  mprotect(guard, kPage, PROT_NONE);
  int right = 0;
  int died = 0;
  for (int k = 0; k < kCalls; ++k) {
    Check(TryWith(&calls[k], ZENITHOR_STACK_BYTES) == kRight,
          "%s(%d) is not answered on the stack that the header asks for", NameOf(&calls[k]),
          calls[k].arguments.integers[0]);
    /* All sizes over the calls, some for each of them. */
    for (size_t size = 320 + 16 * (size_t)(k % 12); size < ZENITHOR_STACK_BYTES; size += kStep) {
      const int outcome = TryWith(&calls[k], size);
      Check(outcome == kRight || outcome == kDiedAtGuard, "%s(%d) on %lu bytes of stack: %d",
            NameOf(&calls[k]), calls[k].arguments.integers[0], (unsigned long)size, outcome);
      right += outcome == kRight;
      died += outcome == kDiedAtGuard;
    }
  }
  Check(right > 0 && died > 0, "smaller stacks: %d right, %d died", right, died);
  printf("smaller stacks: %d calls right, %d ended at the guard page\n", right, died);
}

/* A thread of the system with a stack of 28 KB, of which the C library takes a part. */
static void* CallsOfSmallThread(void* unused) {
  (void)unused;
  for (int k = 0; k < kCalls; ++k) {
    ClearGuarded(&calls[k].answer.guarded);
    MakeCall(&calls[k]);
  }
  return NULL;
}

static void TrySmallThread(void) {
  pthread_attr_t attributes;
  pthread_t thread;
  pthread_attr_init(&attributes);
  Check(pthread_attr_setstacksize(&attributes, 7 * kPage) == 0, "no thread can have 28 KB");
  Check(pthread_create(&thread, &attributes, CallsOfSmallThread, NULL) == 0, "no small thread");
  pthread_join(thread, NULL);
  for (int k = 0; k < kCalls; ++k) {
    Check(SameAnswer(&calls[k].answer, &calls[k].expected), "%s(%d): other bits on a small thread",
          NameOf(&calls[k]), calls[k].arguments.integers[0]);
  }
}

#endif

int main(int argc, char** argv) {
  OpenFromArguments(argc, argv, exports, &count);
  PrepareCalls();
  ThreadTask task;
  task.run = Expect;
  task.argument = NULL;
  StartThread(&task);
  JoinThread(&task);
  unsigned char* const memory = malloc(kLargeStack + 16);
  unsigned char* const stack = memory + 16 - (uintptr_t)memory % 16;
  printf("a call needs at most %lu bytes of stack\n", (unsigned long)MeasureNeeds(stack));
#if !defined(_WIN32)
  TryEverSmallerStacks();
  TrySmallThread();
#endif
  return Verdict("small_stack");
}
