/* Loads the library again and again while a second thread replaces both data files, once in each
 * load, by others whose planets stand elsewhere: every load has the planets of one version.
 *   replaced_host LIBRARY FOLDER [LOADS]    FOLDER: where the library finds its data */
#include "hostile/hostile.h"

enum {
  kIndexSize = 648,
  kDataSize = 819384,
  kTerm = 24,
  kFirstBody = 1,
  kLastBody = 8,
  kRadius = 2,
  kVersions = 2
};

static const char* folder;
static const char* library_path;
static unsigned char index_bytes[kIndexSize];
static unsigned char data_bytes[kVersions][kDataSize];
static double expected[kVersions][kLastBody + 1];

static void PathOf(char* path, const char* name, const char* suffix) {
  snprintf(path, 1024, "%s/%s%s", folder, name, suffix);
}

static void ReadWhole(const char* name, unsigned char* bytes, size_t size) {
  char path[1024];
  PathOf(path, name, "");
  FILE* const file = fopen(path, "rb");
  Check(file != NULL && fread(bytes, 1, size, file) == size, "%s cannot be read", path);
  if (file != NULL) {
    fclose(file);
  }
}

/* Beside the file first; then in its place, in one step. */
static void WriteBeside(const char* name, const unsigned char* bytes, size_t size) {
  char path[1024];
  PathOf(path, name, ".new");
  FILE* const file = fopen(path, "wb");
  Check(file != NULL && fwrite(bytes, 1, size, file) == size && fclose(file) == 0,
        "%s cannot be written", path);
}
static void PutInPlace(const char* name) {
  char from[1024];
  char to[1024];
  PathOf(from, name, ".new");
  PathOf(to, name, "");
#if defined(_WIN32)
  /* Refused while the library has the file open: tried again, as an installer does. */
  const double start = SecondsNow();
  while (!MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING)) {
    if (SecondsNow() - start > 20.0) {
      Check(0, "%s cannot be put in place: error %lu", to, GetLastError());
      exit(Verdict("replaced"));
    }
    SleepMilliseconds(20); /* each try keeps others from opening the file for a moment */
  }
#else
  Check(rename(from, to) == 0, "%s cannot be put in place", to);
#endif
}

static void PrepareReplacement(int version) {
  WriteBeside("karvo.dat", data_bytes[version], kDataSize);
  WriteBeside("karvo.ndx", index_bytes, kIndexSize);
}
static void Replace(void) {
  PutInPlace("karvo.dat");
  PutInPlace("karvo.ndx");
}

static double RadiusOf(Library library, int body) {
  double record[20];
  memset(record, 0, sizeof record);
  ((PositionExport)FindExport(library, "ZENITHOR"))(2451545.25, 0, 0, 0, 0, 0, body, record);
  return record[kRadius];
}

/* Which version all planets of one load are of; -1 for a mixture. */
static int VersionLoaded(void) {
  const Library library = OpenLibrary(library_path);
  int version = -2;
  for (int body = kFirstBody; body <= kLastBody; ++body) {
    const double radius = RadiusOf(library, body);
    const int of_body = radius == expected[0][body] ? 0 : radius == expected[1][body] ? 1 : -1;
    version = version == -2 || version == of_body ? of_body : -1;
  }
  CloseLibrary(library);
  return version;
}

static double Expect(int version) {
  PrepareReplacement(version);
  Replace();
  const double start = SecondsNow();
  const Library library = OpenLibrary(library_path);
  const double seconds = SecondsNow() - start;
  for (int body = kFirstBody; body <= kLastBody; ++body) {
    expected[version][body] = RadiusOf(library, body);
  }
  CloseLibrary(library);
  return seconds;
}

static double wait_seconds;
static volatile int started;

static void ReplaceLater(void* unused) {
  (void)unused;
  const double start = SecondsNow();
  __atomic_store_n(&started, 1, __ATOMIC_RELEASE);
  while (SecondsNow() - start < wait_seconds) {
  }
  Replace();
}

int main(int argc, char** argv) {
  if (argc < 3) {
    fprintf(stderr, "usage: replaced_host LIBRARY FOLDER [LOADS]\n");
    return 2;
  }
  library_path = argv[1];
  folder = argv[2];
  const int loads = argc > 3 ? atoi(argv[3]) : 60;
  ReadWhole("karvo.ndx", index_bytes, kIndexSize);
  ReadWhole("karvo.dat", data_bytes[0], kDataSize);
  memcpy(data_bytes[1], data_bytes[0], kDataSize);
  for (size_t at = 0; at < kDataSize; at += kTerm) {
    double amplitude = 0.0;
    memcpy(&amplitude, data_bytes[1] + at, sizeof amplitude);
    amplitude *= 1.001;
    memcpy(data_bytes[1] + at, &amplitude, sizeof amplitude);
  }
  Expect(1);
  const double load_seconds = Expect(0); /* not the first, which loads the system's libraries too */
  Check(expected[0][kLastBody] != expected[1][kLastBody], "both versions are the same");

  int mixed = 0;
  int found[kVersions] = {0, 0};
  uint64_t random = 3;
  for (int k = 1; k <= loads; ++k) {
    PrepareReplacement(k % kVersions);
    wait_seconds = RandomBetween(&random, 0.0, load_seconds);
    started = 0;
    ThreadTask task;
    task.run = ReplaceLater;
    task.argument = NULL;
    StartThread(&task);
    while (!__atomic_load_n(&started, __ATOMIC_ACQUIRE)) {
    }
    const int version = VersionLoaded();
    mixed += version < 0;
    if (version >= 0) {
      ++found[version == k % kVersions];
    }
    JoinThread(&task);
  }
  printf("%d loads of %.1f ms: %d of the old files, %d of the new, %d of both\n", loads,
         1000.0 * load_seconds, found[0], found[1], mixed);
  Check(mixed == 0, "%d loads have planets of both versions", mixed);
  Check(found[0] + found[1] == loads, "%d loads are of one version", found[0] + found[1]);
  return Verdict("replaced");
}
