/* A host that loads and unloads the library again and again. Nothing is released at detach, on
 * purpose: each load leaves its block of terms behind, and nothing else that grows.
 *   reload LIBRARY [TIMES] */

#include "memory.h"

enum { kTermBytes = 819384 }; /* the terms of the nine slots */

int main(int argc, char** argv) {
  FoundExport exports[kExportCount];
  int count = 0;
  const int times = argc > 2 ? atoi(argv[2]) : 100;
  static Answer first[kExportCount];
  static Answer again;
  CloseLibrary(OpenFromArguments(argc, argv, exports, &count));
  const long before = PrivateKiB();
  const double start = SecondsNow();
  for (int k = 0; k < times; ++k) {
    const Library library = OpenLibrary(argv[1]);
    if (library == NULL) {
      Check(0, "load %d failed", k);
      break;
    }
    for (int e = 0; e < count; ++e) {
      exports[e].entry = FindExport(library, exports[e].row->name);
      const ExportArguments arguments = OrdinaryArguments(exports[e].row, 1);
      CallGuarded(&exports[e], &arguments, k == 0 ? &first[e] : &again);
      Check(k == 0 || SameAnswer(&again, &first[e]), "%s: other bits after load %d",
            exports[e].row->name, k);
    }
    CloseLibrary(library);
  }
  const double seconds = SecondsNow() - start;
  const double left_per_load = (double)(PrivateKiB() - before) / times;
  printf("%d loads, %.1f ms each, %.1f KiB left behind by each\n", times, 1000.0 * seconds / times,
         left_per_load);
  /* The terms, and what the allocator adds to blocks of this size. */
  Check(left_per_load < kTermBytes / 1024.0 + 64.0, "%.1f KiB left behind by each load",
        left_per_load);
  return Verdict("reload");
}
