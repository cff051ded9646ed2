/* A chart that is drawn again and again: places that are remembered are those that were computed,
 * to the bit, and cost a small part; threads that live on while the library is unloaded leave no
 * memories behind.
 *   redraw LIBRARY */

#include "memory.h"

enum {
  kBodies = 11,
  kBars = 120,
  kBarsAThread = 15, /* answered before a thread begins to remember */
  kTimes = 40,
  kTimedBars = 400,
  kRounds = 5,
  kLoads = 20,
  kLeastRatio = 20, /* of a first drawing to a second: some 50 on a quiet machine */
  kTermBytes = 2 * 819384,
  kSetBytes = 64 << 10 /* of a thread that lives on */
};

typedef double(ZENITHOR_CALL* Position)(double, double, double, double, double, double, BodyCode,
                                        BodyPositionRecord*);
static Position position;

typedef struct Bar {
  double results[kBodies];
  GuardedRecord places[kBodies];
} Bar;

static Bar expected[kBars];

static double DayOfBar(int bar) { return 2461000.25 + (bar < 100 ? bar : bar / 24.0); }

static void Draw(int number, Bar* bar) {
  for (BodyCode body = 0; body < kBodies; ++body) {
    ClearGuarded(&bar->places[body]);
    bar->results[body] = position(DayOfBar(number), 0.0, 0.0, 10.0, 50.0, 0.0, body,
                                  (BodyPositionRecord*)bar->places[body].record);
  }
}

static void DrawForTheFirstTime(void* first) {
  for (int k = 0; k < kBarsAThread; ++k) {
    Draw((int)(intptr_t)first + k, &expected[(intptr_t)first + k]);
  }
}

static void CompareDrawings(void) {
  static Bar again;
  for (int bar = 0; bar < kBars; bar += kBarsAThread) {
    ThreadTask task;
    task.run = DrawForTheFirstTime;
    task.argument = (void*)(intptr_t)bar;
    StartThread(&task);
    JoinThread(&task);
  }
  for (int time = 0; time < kTimes; ++time) {
    for (int k = 0; k < kBars; ++k) {
      const int bar = time % 3 == 2 ? k * 7 % kBars : k; /* along the chart, and about it */
      Draw(bar, &again);
      Check(memcmp(&again, &expected[bar], sizeof again) == 0, "bar %d: other bits at drawing %d",
            bar, time);
      Check(again.results[4] == ZENITHOR_DONE, "bar %d: no data", bar);
    }
  }
}

static double SecondsOfDrawing(int round) {
  BodyPositionRecord record;
  const double start = ProcessorSeconds();
  for (int repeat = 0; repeat < (round < 0 ? 10 : 1); ++repeat) {
    for (int bar = 0; bar < kTimedBars; ++bar) {
      for (BodyCode body = 0; body < kBodies; ++body) {
        position(2470000.5 + abs(round) * kTimedBars + bar, 0.0, 0.0, 0.0, 0.0, 0.0, body, &record);
      }
    }
  }
  return (ProcessorSeconds() - start) / (round < 0 ? 10 : 1);
}

/* Processor time counts in steps of a hundredth of a second on Windows: a second drawing is timed
 * ten times over. */
static void CompareTimes(void) {
  double first = 0.0;
  double second = 0.0;
  for (int round = 1; round <= kRounds; ++round) {
    first += SecondsOfDrawing(round);
    second += SecondsOfDrawing(-round);
  }
  printf("a first drawing %.2f microseconds a place, a second %.3f\n",
         1e6 * first / kRounds / kTimedBars / kBodies,
         1e6 * second / kRounds / kTimedBars / kBodies);
  Check(first > kLeastRatio * second, "a second drawing takes %.1f %% of a first",
        100.0 * second / first);
}

/* A thread that draws when `turn` is even, and says so by making it odd. */
static int turn = -1;

static void DrawInTurn(void* unused) {
  (void)unused;
  for (int done = 0; done < kLoads; ++done) {
    while (__atomic_load_n(&turn, __ATOMIC_ACQUIRE) != 2 * done) {
      SleepMilliseconds(1);
    }
    BodyPositionRecord record;
    for (int k = 0; k < 3000; ++k) { /* more than fit into the smallest memory */
      position(2451545.0 + k, 0.0, 0.0, 0.0, 0.0, 0.0, ZENITHOR_SUN, &record);
    }
    __atomic_store_n(&turn, 2 * done + 1, __ATOMIC_RELEASE);
  }
}

static void UnloadBesideALivingThread(const char* path) {
  ThreadTask task;
  task.run = DrawInTurn;
  StartThread(&task);
  long before = 0;
  for (int load = 0; load < kLoads; ++load) {
    if (load == 1) {
      before = PrivateKiB();
    }
    const Library library = OpenLibrary(path);
    const AnyExport entry = library == NULL ? NULL : FindExport(library, "ZENITHOR");
    Check(entry != NULL, "load %d failed", load);
    memcpy(&position, &entry, sizeof position);
    __atomic_store_n(&turn, 2 * load, __ATOMIC_RELEASE);
    while (__atomic_load_n(&turn, __ATOMIC_ACQUIRE) != 2 * load + 1) {
      SleepMilliseconds(1);
    }
    CloseLibrary(library);
  }
  JoinThread(&task);
  const double left = (double)(PrivateKiB() - before) / (kLoads - 1);
  printf("%.1f KiB left behind by each load beside a thread that lives on\n", left);
  Check(left < (kTermBytes + kSetBytes) / 1024.0 + 64.0, "%.1f KiB left behind by each load", left);
}

int main(int argc, char** argv) {
  static FoundExport exports[kExportCount];
  int export_count = 0;
  const Library library = OpenFromArguments(argc, argv, exports, &export_count);
  const AnyExport entry = FindExport(library, "ZENITHOR");
  memcpy(&position, &entry, sizeof position);
  CompareDrawings();
  CompareTimes();
  CloseLibrary(library);
  UnloadBesideALivingThread(argv[1]);
  return Verdict("redraw");
}
