/* Threads that come and go after the load: the library does nothing for them, and they get the
 * answers that the loading thread gets.
 *   threads_host LIBRARY INDEX_FILE
 * INDEX_FILE is removed after the load: a thread that looked for it would warn. */
#include "host.h"

#if !defined(_WIN32)
#include <pthread.h>
#endif

enum { THREADS = 16, BODIES = 9 };

static ZenithorLibrary library;
static BodyPositionRecord alone[BODIES];
static int wrong_answers[THREADS];

static void Compute(BodyPositionRecord* records) {
  BodyCode code;
  memset(records, HOST_PATTERN, BODIES * sizeof *records);
  for (code = 0; code < BODIES; ++code) {
    if (library.ZENITHOR(2451545.25 + code, 0.0, 0.0, 0.0, 0.0, 0.0, code, &records[code]) !=
        ZENITHOR_DONE) {
      records[code].Year = -1;
    }
  }
}

static void ComputeAndCompare(int* wrong) {
  BodyPositionRecord records[BODIES];
  Compute(records);
  *wrong = memcmp(records, alone, sizeof records) != 0;
}

#if defined(_WIN32)

typedef BOOL(WINAPI* EntryPoint)(HINSTANCE module, DWORD reason, LPVOID reserved);

static unsigned char* Image(void) { return (unsigned char*)library.Handle; }

static const IMAGE_NT_HEADERS* Headers(void) {
  return (const IMAGE_NT_HEADERS*)(Image() + ((const IMAGE_DOS_HEADER*)Image())->e_lfanew);
}

/* A copy of everything that the library could write to: its writable sections, one after another.
 */
static size_t CopyOfState(unsigned char* copy, size_t capacity) {
  const IMAGE_NT_HEADERS* const headers = Headers();
  const IMAGE_SECTION_HEADER* const sections = IMAGE_FIRST_SECTION(headers);
  size_t size = 0;
  int k;
  for (k = 0; k < headers->FileHeader.NumberOfSections; ++k) {
    if ((sections[k].Characteristics & IMAGE_SCN_MEM_WRITE) != 0 &&
        size + sections[k].Misc.VirtualSize <= capacity) {
      memcpy(copy + size, Image() + sections[k].VirtualAddress, sections[k].Misc.VirtualSize);
      size += sections[k].Misc.VirtualSize;
    }
  }
  return size;
}

static DWORD WINAPI DoNothing(LPVOID unused) {
  (void)unused;
  return 0;
}

static DWORD WINAPI RunComputation(LPVOID wrong) {
  ComputeAndCompare((int*)wrong);
  return 0;
}

static void RunThreads(LPTHREAD_START_ROUTINE routine) {
  HANDLE threads[THREADS];
  int k;
  for (k = 0; k < THREADS; ++k) {
    threads[k] = CreateThread(NULL, 0, routine, &wrong_answers[k], 0, NULL);
    CHECK(threads[k] != NULL);
  }
  for (k = 0; k < THREADS; ++k) {
    CHECK(WaitForSingleObject(threads[k], INFINITE) == WAIT_OBJECT_0);
    CloseHandle(threads[k]);
  }
}

static void CheckNotifications(void) {
  static unsigned char before[1 << 20];
  static unsigned char after[1 << 20];
  const EntryPoint entry =
      (EntryPoint)(void*)(Image() + Headers()->OptionalHeader.AddressOfEntryPoint);
  const size_t size = CopyOfState(before, sizeof before);
  CHECK(size > 0);

  RunThreads(DoNothing);
  CHECK(CopyOfState(after, sizeof after) == size);
  CHECK(memcmp(before, after, size) == 0);

  CHECK(entry((HINSTANCE)library.Handle, DLL_THREAD_ATTACH, NULL) != FALSE);
  CHECK(entry((HINSTANCE)library.Handle, DLL_THREAD_DETACH, NULL) != FALSE);
  CHECK(CopyOfState(after, sizeof after) == size);
  CHECK(memcmp(before, after, size) == 0);

  RunThreads(RunComputation);
}

#else

static void* RunComputation(void* wrong) {
  ComputeAndCompare((int*)wrong);
  return NULL;
}

static void CheckNotifications(void) {
  pthread_t threads[THREADS];
  int k;
  for (k = 0; k < THREADS; ++k) {
    CHECK(pthread_create(&threads[k], NULL, RunComputation, &wrong_answers[k]) == 0);
  }
  for (k = 0; k < THREADS; ++k) {
    CHECK(pthread_join(threads[k], NULL) == 0);
  }
}

#endif

int main(int count, char** words) {
  int k;
  if (count < 3 || !OpenLibrary(&library, words[1])) {
    fprintf(stderr, "usage: threads_host LIBRARY INDEX_FILE\n");
    return EXIT_FAILURE;
  }
  CHECK(remove(words[2]) == 0);
  Compute(alone);
  for (k = 0; k < BODIES; ++k) {
    CHECK(alone[k].Year == 2000);
  }
  CheckNotifications();
  for (k = 0; k < THREADS; ++k) {
    CHECK(wrong_answers[k] == 0);
  }
  return HOST_RESULT;
}
