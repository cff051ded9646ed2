/* A host that loads and unloads the library again and again, and one that has no per-thread slot
 * left. Terms are not released at detach, on purpose: each load leaves its blocks behind, and
 * nothing else that grows.
 *   reload LIBRARY [TIMES] */

#include "memory.h"
#include "thread_slots.h"

enum { kTermBytes = 2 * 819384 }; /* the terms of the nine slots, as read and in summing order */

static FoundExport exports[kExportCount];
static int export_count;
static Answer expected[kExportCount];

/* Calls every export twice; `words` says when, where the answers are not the expected ones. */
static void CallAll(void* words) {
  static Answer answer;
  for (int repeat = 0; repeat < 2; ++repeat) {
    for (int e = 0; e < export_count; ++e) {
      const ExportArguments arguments = OrdinaryArguments(exports[e].row, 1);
      CallGuarded(&exports[e], &arguments, &answer);
      Check(SameAnswer(&answer, &expected[e]), "%s: other bits %s", exports[e].row->name,
            (const char*)words);
    }
  }
}

/* Every export, for the first time in this load, where no slot can be had; from another thread too.
 */
static void CallWithoutSlots(const char* path) {
  const Library library = OpenLibrary(path);
  if (library == NULL) {
    Check(0, "the last load failed");
    return;
  }
  for (int e = 0; e < export_count; ++e) {
    exports[e].entry = FindExport(library, exports[e].row->name);
  }
  const int taken = TakeSlots();
  Check(taken > 0, "no per-thread slot to take");
  CallAll("without a per-thread slot");
  ThreadTask task;
  task.run = CallAll;
  task.argument = "without a per-thread slot, from another thread";
  StartThread(&task);
  JoinThread(&task);
  GiveBackSlots(taken);
  CallAll("with slots again");
  CloseLibrary(library);
}

int main(int argc, char** argv) {
  const int times = argc > 2 ? atoi(argv[2]) : 100;
  static Answer again;
  CloseLibrary(OpenFromArguments(argc, argv, exports, &export_count));
  const int slots_before = FreeThreadSlots();
  const long before = PrivateKiB();
  const double start = SecondsNow();
  for (int k = 0; k < times; ++k) {
    const Library library = OpenLibrary(argv[1]);
    if (library == NULL) {
      Check(0, "load %d failed", k);
      break;
    }
    for (int e = 0; e < export_count; ++e) {
      exports[e].entry = FindExport(library, exports[e].row->name);
      const ExportArguments arguments = OrdinaryArguments(exports[e].row, 1);
      CallGuarded(&exports[e], &arguments, k == 0 ? &expected[e] : &again);
      Check(k == 0 || SameAnswer(&again, &expected[e]), "%s: other bits after load %d",
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
  CallWithoutSlots(argv[1]);
  return Verdict("reload");
}
