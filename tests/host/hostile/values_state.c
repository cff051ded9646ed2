/* Hosts of the values library whose processor is in the wrong state or whose stack is misaligned:
 * each call gives the bits of a call in the default state, puts the host's state back, and leaves
 * no x87 exception flag. */

#include "values_hostile.h"

typedef struct State {
  uint32_t control_word;
  uint32_t mxcsr;
  int raise;
  int filled;
  int counts_down;
} State;

static const State kStates[] = {
    {0x037F, 0x1F80, 0, 0, 0}, {0x027F, 0x1F80, 0, 0, 0}, {0x007F, 0x1F80, 0, 0, 0},
    {0x1332, 0x1F80, 1, 0, 0}, {0x0340, 0x1F80, 1, 0, 0}, {0x037F, 0x0000, 0, 0, 0},
    {0x037F, 0x003F, 0, 0, 0}, {0x037F, 0x1FBF, 0, 0, 0}, {0x0240, 0x0000, 1, 0, 0},
    {0x077F, 0x3F80, 0, 0, 0}, {0x0B7F, 0x5F80, 0, 0, 0}, {0x0C7F, 0x7F80, 0, 0, 0},
    {0x037F, 0x9FC0, 0, 0, 0}, {0x037F, 0x1F80, 0, 7, 0}, {0x037F, 0x1F80, 0, 0, 1},
};

#if defined(__i386__)
static const uint64_t kOffsets[] = {0, 4, 8, 12};
#elif defined(_WIN32)
static const uint64_t kOffsets[] = {0}; /* the unwinder of 64-bit Windows requires the alignment */
#else
static const uint64_t kOffsets[] = {0, 8};
#endif

enum {
  kStateCount = sizeof kStates / sizeof kStates[0],
  kOffsetCount = sizeof kOffsets / sizeof kOffsets[0],
  kCallsPerFunction = 1
};

/* What CallInState calls: no arithmetic and no library between the state and the call. */
static int function;
static ValueArguments arguments;
static ValueAnswer answer;

static double CallIt(double ignored) {
  (void)ignored;
  CallValueInto(function, &arguments, &answer, answer.doubles, answer.integers);
  return 0.0;
}

static void CheckCall(const State* state, uint64_t misalignment, const ValueAnswer* expected) {
  StateCall call = QuietState();
  call.entry = (AnyExport)CallIt;
  call.word_count = 2;
  call.control_word = state->control_word;
  call.mxcsr = state->mxcsr;
  call.raise = (uint64_t)state->raise;
  call.filled = (uint64_t)state->filled;
  call.counts_down = (uint64_t)state->counts_down;
  call.misalignment = misalignment;
  ClearAnswer(&answer);
  CallInState(&call);
  Check(SameValueAnswer(&answer, expected), "function %d, %04x %04x: other bits", function,
        (unsigned)state->control_word, (unsigned)state->mxcsr);
  Check((call.control_word_after | 0x40) == (state->control_word | 0x40) &&
            call.mxcsr_after == state->mxcsr,
        "function %d: state %04x %04x, not %04x %04x", function, (unsigned)call.control_word_after,
        (unsigned)call.mxcsr_after, (unsigned)state->control_word, (unsigned)state->mxcsr);
  Check((call.status_word_after & 0xFF) == 0, "function %d: x87 status word %04x", function,
        (unsigned)call.status_word_after);
  Check(((call.flags_after & 0x400) != 0) == (state->counts_down != 0),
        "function %d: direction flag", function);
}

int main(int argc, char** argv) {
  OpenValuesFromArguments(argc, argv);
  static ValueAnswer expected;
  for (function = 0; function < kValueFunctions; ++function) {
    for (int k = 0; k < kCallsPerFunction; ++k) {
      arguments = OrdinaryValueArguments(function, (uint64_t)k);
      CallValue(function, &arguments, &expected);
      for (int s = 0; s < kStateCount; ++s) {
        CheckCall(&kStates[s], kOffsets[(k + s) % kOffsetCount], &expected);
      }
    }
  }
  return Verdict("values_state");
}
