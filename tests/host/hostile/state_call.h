#ifndef TESTS_HOST_HOSTILE_STATE_CALL_H
#define TESTS_HOST_HOSTILE_STATE_CALL_H

#include <stddef.h>
#include <stdint.h>

#include "hostile.h"

/* A call of an export with the processor in a chosen state, and the state that it left. Written in
 * assembler, so that no instruction of a compiler stands between the state and the call. */

typedef struct StateCall {
  /* before the call */
  AnyExport entry;
  uint64_t misalignment; /* bytes that the stack is away from a multiple of 16 at the call */
  uint64_t control_word; /* x87 */
  uint64_t mxcsr;
  uint64_t raise;        /* not 0: an x87 zero-divide flag is set, pending where it is unmasked */
  uint64_t filled;       /* x87 registers that hold something, 0 to 8 */
  uint64_t counts_down;  /* not 0: the direction flag is set */
  uint64_t word_count;   /* 32-bit: words of the argument list */
  uint64_t words[8];     /* the argument list; SysV 64-bit: six doubles, then unused */
  uint64_t registers[3]; /* SysV 64-bit: integers and pointers */
  /* after it */
  double result;
  uint64_t control_word_after;
  uint64_t status_word_after;
  uint64_t mxcsr_after;
  uint64_t flags_after;
  uint32_t environment[7]; /* fnstenv after the result was taken; [2] is the tag word */
} StateCall;

_Static_assert(sizeof(AnyExport) == 4 || offsetof(StateCall, misalignment) == 8, "layout");
_Static_assert(offsetof(StateCall, control_word) == 16, "layout");
_Static_assert(offsetof(StateCall, words) == 64, "layout");
_Static_assert(offsetof(StateCall, registers) == 128, "layout");
_Static_assert(offsetof(StateCall, result) == 152, "layout");
_Static_assert(offsetof(StateCall, flags_after) == 184, "layout");
_Static_assert(offsetof(StateCall, environment) == 192, "layout");

extern void CallInState(StateCall* call);

/* The default state: as a C run-time leaves it. */
static inline StateCall QuietState(void) {
  StateCall call;
  memset(&call, 0, sizeof call);
  call.control_word = 0x037F;
  call.mxcsr = 0x1F80;
  return call;
}

/* Puts the arguments of an export where its calling convention wants them. */
static inline void SetArguments(StateCall* call, const FoundExport* export_,
                                const ExportArguments* arguments, void* record) {
  const ExportRow* const row = export_->row;
  const int doubles = DoubleCountOf(row);
  const int integers = IntegerCountOf(row);
  call->entry = export_->entry;
  memset(call->words, 0, sizeof call->words);
#if defined(__i386__)
  unsigned char* next = (unsigned char*)call->words;
  memcpy(next, arguments->doubles, (size_t)doubles * 8);
  next += doubles * 8;
  memcpy(next, arguments->integers, (size_t)integers * 4);
  next += integers * 4;
  memcpy(next, &record, sizeof record);
  next += sizeof record;
  call->word_count = (uint64_t)(next - (unsigned char*)call->words) / 4;
#elif defined(_WIN32)
  memcpy(call->words, arguments->doubles, (size_t)doubles * 8);
  for (int k = 0; k < integers; ++k) {
    call->words[doubles + k] = (uint32_t)arguments->integers[k];
  }
  if (RecordSizeOf(row) > 0) {
    call->words[doubles + integers] = (uintptr_t)record;
  }
#else
  memcpy(call->words, arguments->doubles, (size_t)doubles * 8);
  for (int k = 0; k < integers; ++k) {
    call->registers[k] = (uint32_t)arguments->integers[k];
  }
  call->registers[integers] = (uintptr_t)record;
#endif
}

/* The call; its result and record go into `answer`. */
static inline void CallGuardedInState(StateCall* call, const FoundExport* export_,
                                      const ExportArguments* arguments, Answer* answer) {
  ClearGuarded(&answer->guarded);
  SetArguments(call, export_, arguments, answer->guarded.record);
  CallInState(call);
  answer->result = call->result;
}

#endif
