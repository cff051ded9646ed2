/* A host whose floating-point unit is in the wrong state: every control word, rounding mode and
 * exception mask that run-times leave behind, pending exceptions, registers in use, flush to zero,
 * strings counting down. Each call must give the bits of a call in the default state, put the
 * host's state back, and leave no x87 exception flag. */

#include "state_call.h"

typedef struct State {
  const char* name;
  uint32_t control_word;
  uint32_t mxcsr;
  int raise;
  int filled;
  int counts_down;
} State;

static const State kStates[] = {
    {"extended precision", 0x037F, 0x1F80, 0, 0, 0},
    {"double precision", 0x027F, 0x1F80, 0, 0, 0},
    {"single precision", 0x007F, 0x1F80, 0, 0, 0},
    {"exceptions unmasked (1332)", 0x1332, 0x1F80, 0, 0, 0},
    {"exceptions unmasked and one pending", 0x1332, 0x1F80, 1, 0, 0},
    {"every x87 exception unmasked", 0x0340, 0x1F80, 0, 0, 0},
    {"every x87 exception unmasked, one pending", 0x0340, 0x1F80, 1, 0, 0},
    {"every SSE exception unmasked", 0x037F, 0x0000, 0, 0, 0},
    {"every SSE exception unmasked, flags set", 0x037F, 0x003F, 0, 0, 0},
    {"SSE flags set", 0x037F, 0x1FBF, 0, 0, 0},
    {"x87 and SSE exceptions unmasked", 0x0240, 0x0000, 1, 0, 0},
    {"rounding down", 0x077F, 0x3F80, 0, 0, 0},
    {"rounding up", 0x0B7F, 0x5F80, 0, 0, 0},
    {"rounding toward zero", 0x0F7F, 0x7F80, 0, 0, 0},
    {"rounding toward zero, single precision", 0x0C7F, 0x7F80, 0, 0, 0},
    {"x87 and SSE rounding against each other", 0x077F, 0x5F80, 0, 0, 0},
    {"flush to zero", 0x037F, 0x9F80, 0, 0, 0},
    {"denormals are zero", 0x037F, 0x1FC0, 0, 0, 0},
    {"flush to zero, denormals are zero, rounding up, unmasked", 0x0B40, 0xC040, 0, 0, 0},
    {"x87 stack full", 0x037F, 0x1F80, 0, 8, 0},
    {"x87 stack full, exceptions unmasked", 0x1332, 0x0000, 1, 8, 0},
    {"one x87 register left over", 0x037F, 0x1F80, 0, 1, 0},
    {"strings counting down", 0x037F, 0x1F80, 0, 0, 1},
};

enum {
  kStateCount = sizeof kStates / sizeof kStates[0],
  kCallsPerExport = 40,
  kAlwaysSet = 0x40,       /* of the control word: reads as one */
  kX87Flags = 0x00FF,      /* six flags, stack fault, error summary */
  kDirectionFlag = 0x0400, /* of the processor's flags */
  kEmptyTags = 0xFFFF
};

static void CheckCall(const FoundExport* export_, const State* state,
                      const ExportArguments* arguments, const Answer* expected) {
  static Answer answer;
  StateCall call = QuietState();
  call.control_word = state->control_word;
  call.mxcsr = state->mxcsr;
  call.raise = (uint64_t)state->raise;
  call.filled = (uint64_t)state->filled;
  call.counts_down = (uint64_t)state->counts_down;
  CallGuardedInState(&call, export_, arguments, &answer);
  const char* const name = export_->row->name;
  Check(SameAnswer(&answer, expected), "%s, %s: other bits", name, state->name);
  Check((call.control_word_after | kAlwaysSet) == (state->control_word | kAlwaysSet),
        "%s, %s: control word %04x", name, state->name, (unsigned)call.control_word_after);
  Check(call.mxcsr_after == state->mxcsr, "%s, %s: MXCSR %04x", name, state->name,
        (unsigned)call.mxcsr_after);
  Check((call.status_word_after & kX87Flags) == 0, "%s, %s: x87 status word %04x", name,
        state->name, (unsigned)call.status_word_after);
  Check((call.environment[2] & kEmptyTags) == kEmptyTags, "%s, %s: x87 registers left in use, %04x",
        name, state->name, (unsigned)call.environment[2]);
  Check(((call.flags_after & kDirectionFlag) != 0) == (state->counts_down != 0),
        "%s, %s: direction flag", name, state->name);
}

int main(int argc, char** argv) {
  FoundExport exports[kExportCount];
  int count = 0;
  OpenFromArguments(argc, argv, exports, &count);
  static Answer expected;
  for (int e = 0; e < count; ++e) {
    for (int k = 0; k < kCallsPerExport; ++k) {
      const ExportArguments arguments = OrdinaryArguments(exports[e].row, (uint64_t)k);
      CallGuarded(&exports[e], &arguments, &expected);
      for (int s = 0; s < kStateCount; ++s) {
        CheckCall(&exports[e], &kStates[s], &arguments, &expected);
      }
    }
  }
  printf("%d exports, %d states, %d calls each\n", count, kStateCount, kCallsPerExport);
  return Verdict("processor_state");
}
