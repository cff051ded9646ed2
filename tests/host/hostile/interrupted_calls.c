/* A host whose handler calls the library on a thread that is inside a call of it: natively from a
 * timer's signal, on Windows from the handler of a single-step exception. No answer may differ,
 * neither of the call that was interrupted nor of the one in the handler.
 *   interrupted_calls LIBRARY [INTERRUPTED CALLS] */

#if defined(__linux__)
#define _GNU_SOURCE
#endif

#include "interruption.h"

#if defined(_WIN32)
enum { kInterruptedCalls = 400 };
#else
enum { kInterruptedCalls = 20000 };
#endif

enum { kVariants = 8, kBodies = 11, kMostCalls = 2 * kVariants * kBodies + 2 * kVariants };

typedef struct Call {
  FoundExport export_;
  ExportArguments arguments;
  Answer expected;
} Call;
static Call calls[kMostCalls];

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

static int IsAnswered(int which, int in_handler) {
  static Answer answers[2];
  CallGuarded(&calls[which].export_, &calls[which].arguments, &answers[in_handler]);
  return SameAnswer(&answers[in_handler], &calls[which].expected);
}

#if defined(_WIN32)
static int IsLong(int which) {
  const Call* const call = &calls[which];
  const int body = call->arguments.integers[0];
  return (call->export_.row->shape == kShapePosition && body != ZENITHOR_SUN &&
          body != ZENITHOR_EARTH && body != ZENITHOR_MOON) ||
         (call->export_.row->shape == kShapeRising && body != ZENITHOR_MOON);
}
#endif

int main(int argc, char** argv) {
  FoundExport exports[kExportCount];
  int count = 0;
  OpenFromArguments(argc, argv, exports, &count);
  PrepareCalls(exports, count);
  Check(call_count == kMostCalls, "%d calls prepared", call_count);
  CheckInterruptedCalls(argc, argv, kInterruptedCalls);
  return Verdict("interrupted_calls");
}
