/* A long day of a chart host, and what must not change in it.
 *   soak LIBRARY DATA_FOLDER SECONDS
 * Four threads redraw a chart over and over. Beside them an indicator loads and unloads the
 * library, now and then a copy of it that reads the data files afresh; threads come and go; and a
 * second process keeps replacing the data files with the same bytes, each written beside the old
 * one and renamed.
 *
 * Every answer must have the bits that a lone caller got before, and neither memory nor handles may
 * grow from the second fifth of the time to the last. What a fresh load leaves behind on purpose is
 * measured first and taken off; for that reason there are at most two hundred of them.
 * DATA_FOLDER must be where the library looks, and holds the library's copy too. */

#include <stdatomic.h>

#include "chart.h"
#include "process.h"

enum {
  kCharts = 4,
  kChurnedAtOnce = 4,
  kCallsOfAVisit = 40,
  kCalibrationLoads = 4,
  kMostFreshLoads = 200,
  kSamples = 200, /* of memory and handles, over the whole time */
  kMostGrownKiB = 512,
  kMostLeftBehindKiB = 2 * 819384 / 1024 + 64 /* the terms, and what the allocator adds */
};

static const char* library_path;
static char copy_path[1024];
static double soak_seconds;
static AnyExport exports[kExportCount];
static uint64_t expected[kBars][kCallsOfABar];

static atomic_int stopped;
static atomic_int pause_asked;
static atomic_int paused;
static atomic_llong calls_made;
static atomic_llong wrong_answers;
static atomic_llong failed_loads;
static atomic_llong bars_drawn;
static atomic_llong visitors; /* threads that came and went */
static atomic_llong loads;
static atomic_llong fresh_loads;

static int FindAll(Library library, AnyExport found[kExportCount]) {
  int count = 0;
  for (int k = 0; k < kExportCount; ++k) {
    found[k] = FindExport(library, kExports[k].name);
    count += found[k] != NULL;
  }
  return count == kExportCount;
}

static void CompareCall(const AnyExport* entries, int bar, int call) {
  const int differs = DigestOfCall(entries, bar, call) != expected[bar][call];
  if (differs && atomic_fetch_add(&wrong_answers, 1) < 20) {
    printf("FAILED: %s, bar %d, call %d: other bits\n", kExports[ExportOfCall(call)].name, bar,
           call);
  }
}

/* Some calls anywhere on the chart. */
static void Visit(const AnyExport* entries, uint64_t* random) {
  for (int k = 0; k < kCallsOfAVisit; ++k) {
    const uint64_t which = NextRandom(random);
    CompareCall(entries, (int)(which % kBars), (int)((which >> 32) % kCallsOfABar));
  }
  atomic_fetch_add(&calls_made, kCallsOfAVisit);
}

/* A chart: every second one is drawn from right to left, and no two begin at the same bar. */
static void Redraw(void* chart) {
  const int self = *(const int*)chart;
  int bar = self * (kBars / kCharts);
  while (!atomic_load(&stopped)) {
    for (int call = 0; call < kCallsOfABar; ++call) {
      CompareCall(exports, bar, call);
    }
    atomic_fetch_add(&calls_made, kCallsOfABar);
    atomic_fetch_add(&bars_drawn, 1);
    bar = (bar + (self % 2 == 0 ? 1 : kBars - 1)) % kBars;
  }
}

static void VisitOnce(void* seed) {
  uint64_t random = *(const uint64_t*)seed;
  Visit(exports, &random);
}

/* Where the host holds no more than it always does: memory and handles are counted here. */
static void PauseWhenAsked(void) {
  if (atomic_load(&pause_asked)) {
    atomic_fetch_add(&paused, 1);
    while (atomic_load(&pause_asked)) {
      SleepMilliseconds(1);
    }
    atomic_fetch_sub(&paused, 1);
  }
}

static void ComeAndGo(void* unused) {
  (void)unused;
  uint64_t seeds[kChurnedAtOnce] = {0};
  for (uint64_t round = 0; !atomic_load(&stopped); ++round) {
    ThreadTask tasks[kChurnedAtOnce];
    for (int k = 0; k < kChurnedAtOnce; ++k) {
      seeds[k] = round * kChurnedAtOnce + (uint64_t)k;
      tasks[k].run = VisitOnce;
      tasks[k].argument = &seeds[k];
      StartThread(&tasks[k]);
    }
    for (int k = 0; k < kChurnedAtOnce; ++k) {
      JoinThread(&tasks[k]);
    }
    atomic_fetch_add(&visitors, kChurnedAtOnce);
    PauseWhenAsked();
  }
}

static void LoadVisitUnload(const char* path, uint64_t* random) {
  AnyExport entries[kExportCount];
  const Library library = OpenLibrary(path);
  if (library == NULL || !FindAll(library, entries)) {
    atomic_fetch_add(&failed_loads, 1);
    return;
  }
  Visit(entries, random);
  CloseLibrary(library);
}

static void LoadAndUnload(void* unused) {
  (void)unused;
  uint64_t random = 42;
  const double spacing =
      soak_seconds / kMostFreshLoads > 0.5 ? soak_seconds / kMostFreshLoads : 0.5;
  double next_fresh = SecondsNow();
  while (!atomic_load(&stopped)) {
    /* The library that the charts use: counted, not read again. */
    LoadVisitUnload(library_path, &random);
    atomic_fetch_add(&loads, 1);
    if (SecondsNow() >= next_fresh) {
      LoadVisitUnload(copy_path, &random);
      atomic_fetch_add(&fresh_loads, 1);
      next_fresh = SecondsNow() + spacing;
    }
    PauseWhenAsked();
  }
}

/* Memory and handles while nobody comes, goes or loads. */
typedef struct Sample {
  double at;   /* [s] */
  long memory; /* [KiB] */
  long handles;
  long long fresh; /* loads until then */
} Sample;

static Sample TakeSample(double start) {
  enum { kPausing = 2 }; /* ComeAndGo and LoadAndUnload */
  atomic_store(&pause_asked, 1);
  while (atomic_load(&paused) < kPausing) {
    SleepMilliseconds(1);
  }
  const Sample sample = {SecondsNow() - start, PrivateKiB(), HandleCount(),
                         atomic_load(&fresh_loads)};
  atomic_store(&pause_asked, 0);
  while (atomic_load(&paused) > 0) {
    SleepMilliseconds(1);
  }
  return sample;
}

/* The least memory and the fewest handles of the samples from `first` to before `end`, the former
 * without what fresh loads left behind. */
static Sample Least(const Sample* samples, int first, int end, double left_behind) {
  Sample least = samples[first];
  for (int k = first; k < end; ++k) {
    const long memory = samples[k].memory - (long)((double)samples[k].fresh * left_behind);
    least.memory = k == first || memory < least.memory ? memory : least.memory;
    least.handles = samples[k].handles < least.handles ? samples[k].handles : least.handles;
  }
  return least;
}

/* What one fresh load leaves behind [KiB]. */
static double MeasureFreshLoad(void) {
  uint64_t random = 7;
  LoadVisitUnload(copy_path, &random);
  const long before = PrivateKiB();
  for (int k = 0; k < kCalibrationLoads; ++k) {
    LoadVisitUnload(copy_path, &random);
  }
  return (double)(PrivateKiB() - before) / kCalibrationLoads;
}

static void Report(const Sample* samples, int count, double left_behind) {
  const Sample early = Least(samples, count / 5, 2 * count / 5, left_behind);
  const Sample late = Least(samples, count - count / 5, count, left_behind);
  const double seconds = samples[count - 1].at;
  const long long charts = atomic_load(&bars_drawn) / kBars;
  printf("%.0f s, %lld calls, %.0f a second, %lld charts drawn\n", seconds,
         (long long)atomic_load(&calls_made), (double)atomic_load(&calls_made) / seconds, charts);
  printf("%lld threads came and went, %lld loads, %lld more of files read afresh\n",
         (long long)atomic_load(&visitors), (long long)atomic_load(&loads),
         (long long)atomic_load(&fresh_loads));
  printf("memory: %ld KiB in the second fifth, %ld KiB in the last, less %.0f KiB a fresh load\n",
         early.memory, late.memory, left_behind);
  printf("handles: %ld in the second fifth, %ld in the last\n", early.handles, late.handles);
  printf("answers that differ: %lld\n", (long long)atomic_load(&wrong_answers));
  Check(atomic_load(&wrong_answers) == 0, "answers differ from a lone caller's");
  Check(atomic_load(&failed_loads) == 0, "%lld loads failed",
        (long long)atomic_load(&failed_loads));
  Check(late.memory - early.memory <= kMostGrownKiB, "memory grew by %ld KiB",
        late.memory - early.memory);
  Check(early.handles > 0, "handles cannot be counted");
  Check(late.handles <= early.handles, "%ld more handles", late.handles - early.handles);
  Check(left_behind < kMostLeftBehindKiB, "%.0f KiB left behind by a fresh load", left_behind);
  Check(atomic_load(&bars_drawn) > 0 && atomic_load(&visitors) > 0 && atomic_load(&loads) > 0 &&
            atomic_load(&fresh_loads) > 0,
        "a part of the host did nothing");
}

/* The role of the second process: replaces the data file, then the index, until the time is over.
 */
static int ReplaceFiles(const char* folder, double seconds) {
  static const char* const kNames[] = {"karvo.dat", "karvo.ndx"};
  const double end = SecondsNow() + seconds;
  long replaced = 0;
  for (; SecondsNow() < end; ++replaced) {
    for (int k = 0; k < 2; ++k) {
      char path[1100];
      char fresh[1110];
      int tries = 0;
      snprintf(path, sizeof path, "%s/%s", folder, kNames[k]);
      snprintf(fresh, sizeof fresh, "%s.new", path);
      /* On Windows a file that a load has open cannot be replaced just then. */
      while (!CopyOfFile(path, fresh) || !RenameOver(fresh, path)) {
        if (++tries == 500) {
          printf("FAILED: %s cannot be replaced\n", path);
          return 1;
        }
        SleepMilliseconds(10);
      }
    }
    SleepMilliseconds(50);
  }
  printf("data files replaced %ld times\n", replaced);
  return replaced > 0 ? 0 : 1;
}

static void RunHost(const char* program, const char* folder, double left_behind) {
  static int numbers[kCharts];
  static Sample samples[kSamples];
  ThreadTask tasks[kCharts + 2];
  char seconds[32];
  Process replacer;
  snprintf(seconds, sizeof seconds, "%.1f", soak_seconds);
  const int replaces = StartProcess(&replacer, program, "--replace", folder, seconds);
  Check(replaces, "the second process does not start");
  for (int k = 0; k < kCharts + 2; ++k) {
    tasks[k].run = k < kCharts ? Redraw : k == kCharts ? ComeAndGo : LoadAndUnload;
    tasks[k].argument = NULL;
    if (k < kCharts) {
      numbers[k] = k;
      tasks[k].argument = &numbers[k];
    }
    StartThread(&tasks[k]);
  }
  const double start = SecondsNow();
  for (int k = 0; k < kSamples; ++k) {
    const double due = start + (k + 1) * soak_seconds / kSamples;
    while (SecondsNow() < due) {
      SleepMilliseconds(5);
    }
    samples[k] = TakeSample(start);
    if ((k + 1) % (kSamples / 10) == 0) {
      printf("after %5.0f s: %ld KiB, %lld fresh loads, %ld handles, %lld calls\n", samples[k].at,
             samples[k].memory, samples[k].fresh, samples[k].handles,
             (long long)atomic_load(&calls_made));
      fflush(stdout);
    }
  }
  atomic_store(&stopped, 1);
  for (int k = 0; k < kCharts + 2; ++k) {
    JoinThread(&tasks[k]);
  }
  Check(replaces && EndOfProcess(replacer) == 0, "the data files were not replaced");
  Report(samples, kSamples, left_behind);
}

int main(int argc, char** argv) {
  if (argc == 4 && strcmp(argv[1], "--replace") == 0) {
    return ReplaceFiles(argv[2], atof(argv[3]));
  }
  soak_seconds = argc == 4 ? atof(argv[3]) : 0.0;
  if (!(soak_seconds > 0.0)) {
    fprintf(stderr, "usage: soak LIBRARY DATA_FOLDER SECONDS\n");
    return 2;
  }
  library_path = argv[1];
  snprintf(copy_path, sizeof copy_path, "%s/indicator%s", argv[2], strrchr(argv[1], '.'));
  const Library library = OpenLibrary(library_path);
  if (library == NULL || !FindAll(library, exports) || !CopyOfFile(library_path, copy_path)) {
    printf("FAILED: cannot load or copy %s\n", library_path);
    return 1;
  }
  for (int bar = 0; bar < kBars; ++bar) {
    for (int call = 0; call < kCallsOfABar; ++call) {
      expected[bar][call] = DigestOfCall(exports, bar, call);
    }
  }
  RunHost(argv[0], argv[2], MeasureFreshLoad());
  CloseLibrary(library);
  return Verdict("soak");
}
