/* Hosts of the values library whose threads have little stack. Each function is called on a stack
 * of its own, first of its thread and once more: it touches no more than
 * ZENITHOR_VALUES_STACK_BYTES, and is right on a stack of that size; natively on a thread of the
 * system with little more, too. values_small_stack ZENITHOR_VALUES */

#include "on_stack.h"
#include "values_hostile.h"

enum { kVariants = 6, kPage = 4096, kLargeStack = 64 * kPage };

typedef struct Call {
  int function;
  ValueArguments arguments;
  ValueAnswer expected;
  ValueAnswer answer;
  unsigned char* stack; /* of kLargeStack bytes */
  size_t need;
} Call;
static Call calls[kValueFunctions * kVariants];
enum { kCalls = sizeof calls / sizeof calls[0] };

static void Expect(void* unused) {
  (void)unused;
  for (int k = 0; k < kCalls; ++k) {
    CallValue(calls[k].function, &calls[k].arguments, &calls[k].expected);
  }
}

static void MakeCall(void* argument) {
  Call* const call = argument;
  CallValueInto(call->function, &call->arguments, &call->answer, call->answer.doubles,
                call->answer.integers);
}

/* Bytes of stack that a call touches. */
static size_t Need(Call* call) {
  memset(call->stack, kPattern, kLargeStack);
  ClearAnswer(&call->answer);
  CallOnStack(MakeCall, call, call->stack + kLargeStack);
  Check(SameValueAnswer(&call->answer, &call->expected), "function %d: other bits on its own stack",
        call->function);
  size_t untouched = 0;
  while (untouched < kLargeStack && call->stack[untouched] == kPattern) {
    ++untouched;
  }
  return kLargeStack - untouched;
}

static void MeasureOne(void* argument) {
  Call* const call = argument;
  for (int repeat = 0; repeat < 2; ++repeat) {
    const size_t need = Need(call);
    call->need = need > call->need ? need : call->need;
  }
}

static size_t MeasureNeeds(unsigned char* stack) {
  size_t largest = 0;
  for (int k = 0; k < kCalls; ++k) {
    ThreadTask task = {MeasureOne, &calls[k], 0};
    calls[k].stack = stack;
    StartThread(&task);
    JoinThread(&task);
    Check(calls[k].need <= ZENITHOR_VALUES_STACK_BYTES, "function %d needs %lu bytes of stack",
          calls[k].function, (unsigned long)calls[k].need);
    largest = calls[k].need > largest ? calls[k].need : largest;
  }
  return largest;
}

#if !defined(_WIN32)

/* A stack of the size that the header asks for, with a page below it that cannot be touched. */
static void TryWithGuardPage(void) {
  unsigned char* const memory = mmap(NULL, kPage + ZENITHOR_VALUES_STACK_BYTES,
                                     PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  mprotect(memory, kPage, PROT_NONE);
  for (int k = 0; k < kCalls; ++k) {
    ClearAnswer(&calls[k].answer);
    CallOnStack(MakeCall, &calls[k], memory + kPage + ZENITHOR_VALUES_STACK_BYTES);
    Check(SameValueAnswer(&calls[k].answer, &calls[k].expected),
          "function %d: other bits on the stack that the header asks for", calls[k].function);
  }
}

static void* CallsOfSmallThread(void* unused) {
  (void)unused;
  for (int k = 0; k < kCalls; ++k) {
    ClearAnswer(&calls[k].answer);
    MakeCall(&calls[k]);
  }
  return NULL;
}

/* The C library takes a part of a thread's stack for itself. */
static void TrySmallThread(void) {
  pthread_attr_t attributes;
  pthread_t thread;
  pthread_attr_init(&attributes);
  Check(pthread_attr_setstacksize(&attributes, ZENITHOR_VALUES_STACK_BYTES + 3 * kPage) == 0,
        "no thread can be that small");
  Check(pthread_create(&thread, &attributes, CallsOfSmallThread, NULL) == 0, "no small thread");
  pthread_join(thread, NULL);
  for (int k = 0; k < kCalls; ++k) {
    Check(SameValueAnswer(&calls[k].answer, &calls[k].expected),
          "function %d: other bits on a small thread", calls[k].function);
  }
}

#endif

int main(int argc, char** argv) {
  OpenValuesFromArguments(argc, argv);
  for (int k = 0; k < kCalls; ++k) {
    calls[k].function = k % kValueFunctions;
    calls[k].arguments = OrdinaryValueArguments(calls[k].function, (uint64_t)k);
  }
  ThreadTask task = {Expect, NULL, 0};
  StartThread(&task);
  JoinThread(&task);
  unsigned char* const memory = malloc(kLargeStack + 16);
  unsigned char* const stack = memory + 16 - (uintptr_t)memory % 16;
  printf("a call needs at most %lu bytes of stack\n", (unsigned long)MeasureNeeds(stack));
#if !defined(_WIN32)
  TryWithGuardPage();
  TrySmallThread();
#endif
  free(memory);
  return Verdict("values_small_stack");
}
