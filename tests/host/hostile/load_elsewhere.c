/* A host that loads the library from a thread that is not its main one, and under a floating-point
 * state that is not the default; the thread is gone when the calls are made. */

#include "state_call.h"

static const char* path;
static Library library;
static FoundExport exports[kExportCount];
static int count;
static Answer expected[kExportCount];

/* Loading through CallInState: the one argument is the path. */
static double OpenIt(double ignored) {
  (void)ignored;
  library = OpenLibrary(path);
  return 0.0;
}

static const ExportRow kOpening = {"load", kShapePlainEvent, 0, 0, 0};

static void Load(void* unused) {
  (void)unused;
  const FoundExport opening = {&kOpening, (AnyExport)OpenIt};
  const ExportArguments none = {{0.0}, {0}};
  StateCall call = QuietState();
  call.control_word = 0x1332;
  call.mxcsr = 0x1E80; /* divide by zero unmasked: none of the loader's own code divides */
  SetArguments(&call, &opening, &none, NULL);
  CallInState(&call);
  Check((call.control_word_after | 0x40) == (0x1332 | 0x40), "control word %04x after the load",
        (unsigned)call.control_word_after);
  Check((call.mxcsr_after & 0xFFC0) == 0x1E80, "MXCSR %04x after the load",
        (unsigned)call.mxcsr_after);
}

static void CallAll(void* unused) {
  (void)unused;
  for (int e = 0; e < count; ++e) {
    const ExportArguments arguments = OrdinaryArguments(exports[e].row, 3);
    CallGuarded(&exports[e], &arguments, &expected[e]);
  }
}

int main(int argc, char** argv) {
  if (argc < 2) {
    return 2;
  }
  path = argv[1];
  ThreadTask loading = {Load, NULL, 0};
  StartThread(&loading);
  JoinThread(&loading);
  if (library == NULL) {
    printf("FAILED: cannot load %s\n", path);
    return 1;
  }
  count = FindExports(library, exports);
  ThreadTask calling = {CallAll, NULL, 0};
  StartThread(&calling);
  JoinThread(&calling);
  static Answer answer;
  for (int e = 0; e < count; ++e) {
    const ExportArguments arguments = OrdinaryArguments(exports[e].row, 3);
    CallGuarded(&exports[e], &arguments, &answer);
    Check(SameAnswer(&answer, &expected[e]), "%s: other bits on the main thread",
          exports[e].row->name);
    Check(exports[e].row->shape != kShapePosition || answer.result == 323.0,
          "positions are not answered: no data");
  }
  return Verdict("load_elsewhere");
}
