/* A host that loads and unloads the library again and again. Nothing is released at detach, on
 * purpose: each load leaves its block of terms behind, and nothing else that grows.
 *   reload LIBRARY [TIMES] */

#include "memory.h"

enum { kTermBytes = 2 * 819384 }; /* the terms of the nine slots, as read and in summing order */

/* How many per-thread slots the process still has: 1088 on Windows, 1024 on Linux. */
static int FreeThreadSlots(void) {
#if defined(_WIN32)
  static DWORD slots[2048];
  int count = 0;
  while (count < 2048 && (slots[count] = TlsAlloc()) != TLS_OUT_OF_INDEXES) {
    ++count;
  }
  for (int k = 0; k < count; ++k) {
    TlsFree(slots[k]);
  }
#else
  static pthread_key_t slots[2048];
  int count = 0;
  while (count < 2048 && pthread_key_create(&slots[count], NULL) == 0) {
    ++count;
  }
  for (int k = 0; k < count; ++k) {
    pthread_key_delete(slots[k]);
  }
#endif
  return count;
}

int main(int argc, char** argv) {
  FoundExport exports[kExportCount];
  int count = 0;
  const int times = argc > 2 ? atoi(argv[2]) : 100;
  static Answer first[kExportCount];
  static Answer again;
  CloseLibrary(OpenFromArguments(argc, argv, exports, &count));
  const int slots_before = FreeThreadSlots();
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
  const int slots_left = FreeThreadSlots();
  printf("%d of %d per-thread slots of the process left\n", slots_left, slots_before);
  Check(slots_left == slots_before, "%d per-thread slots lost", slots_before - slots_left);
  /* The terms, and what the allocator adds to blocks of this size. */
  Check(left_per_load < kTermBytes / 1024.0 + 64.0, "%.1f KiB left behind by each load",
        left_per_load);
  return Verdict("reload");
}
