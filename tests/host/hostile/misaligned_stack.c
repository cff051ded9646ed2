/* A host that calls with a stack that is not aligned to 16 bytes, as 32-bit compilers did for two
 * decades; on 64-bit Linux by 8, as hand-written assembler does. */

#include "state_call.h"

#if defined(__i386__)
static const int kOffsets[] = {0, 4, 8, 12};
#elif defined(_WIN32)
static const int kOffsets[] = {0}; /* the unwinder of 64-bit Windows requires the alignment */
#else
static const int kOffsets[] = {0, 8};
#endif

enum { kOffsetCount = sizeof kOffsets / sizeof kOffsets[0], kCallsPerExport = 200 };

int main(int argc, char** argv) {
  FoundExport exports[kExportCount];
  int count = 0;
  OpenFromArguments(argc, argv, exports, &count);
  static Answer expected;
  static Answer answer;
  for (int e = 0; e < count; ++e) {
    for (int k = 0; k < kCallsPerExport; ++k) {
      const ExportArguments arguments = OrdinaryArguments(exports[e].row, (uint64_t)k);
      CallGuarded(&exports[e], &arguments, &expected);
      for (int o = 0; o < kOffsetCount; ++o) {
        StateCall call = QuietState();
        call.misalignment = (uint64_t)kOffsets[o];
        CallGuardedInState(&call, &exports[e], &arguments, &answer);
        Check(SameAnswer(&answer, &expected), "%s, stack off by %d: other bits",
              exports[e].row->name, kOffsets[o]);
      }
    }
  }
  printf("%d exports, %d offsets, %d calls each\n", count, kOffsetCount, kCallsPerExport);
  return Verdict("misaligned_stack");
}
