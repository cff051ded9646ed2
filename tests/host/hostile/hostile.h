#ifndef TESTS_HOST_HOSTILE_HOSTILE_H
#define TESTS_HOST_HOSTILE_HOSTILE_H

/* What the hostile hosts share: the library loaded at run time, every export of it by name, checks
 * that count, threads and pages on both systems. */

#include <stdarg.h>
#include <stddef.h>
#include <stdio.h>
#include <stdlib.h>

#include "support/export_table.h"

#if defined(_WIN32)
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
typedef HMODULE Library;
#else
#include <dlfcn.h>
#include <pthread.h>
#include <sys/mman.h>
#include <time.h>
#include <unistd.h>
typedef void* Library;
#endif

static int checks_made = 0;
static int checks_failed = 0;

static inline void Check(int holds, const char* format, ...) {
  ++checks_made;
  if (holds) {
    return;
  }
  if (++checks_failed <= 20) {
    va_list words;
    va_start(words, format);
    fputs("FAILED: ", stdout);
    vprintf(format, words);
    fputs("\n", stdout);
    va_end(words);
  }
}

/* The program's exit code: 0 only when something was checked and everything held. */
static inline int Verdict(const char* host) {
  printf("%s: %d checks, %d failed\n", host, checks_made, checks_failed);
  return checks_made > 0 && checks_failed == 0 ? 0 : 1;
}

static inline Library OpenLibrary(const char* path) {
#if defined(_WIN32)
  return LoadLibraryA(path);
#else
  return dlopen(path, RTLD_NOW | RTLD_LOCAL);
#endif
}

static inline void CloseLibrary(Library library) {
#if defined(_WIN32)
  FreeLibrary(library);
#else
  dlclose(library);
#endif
}

static inline AnyExport FindExport(Library library, const char* name) {
  char exported[32];
  snprintf(exported, sizeof exported, "_%s", name);
#if defined(_WIN32)
  return (AnyExport)(void*)GetProcAddress(library, exported);
#else
  AnyExport entry = NULL;
  void* const address = dlsym(library, exported);
  memcpy(&entry, &address, sizeof entry);
  return entry;
#endif
}

/* The exports of the table that the library has. A name is missing rightly only while the library's
 * own list of exports (ZENITHOR_EXPORTED_NAMES, ",NAME,NAME,") lacks it too. */
typedef struct FoundExport {
  const ExportRow* row;
  AnyExport entry;
} FoundExport;

static inline int FindExports(Library library, FoundExport found[kExportCount]) {
  const char* const listed = ZENITHOR_EXPORTED_NAMES;
  int count = 0;
  int listed_count = -1;
  for (const char* c = listed; *c != '\0'; ++c) {
    listed_count += *c == ',';
  }
  for (int k = 0; k < kExportCount; ++k) {
    char pattern[40];
    snprintf(pattern, sizeof pattern, ",%s,", kExports[k].name);
    const int is_listed = strstr(listed, pattern) != NULL;
    const AnyExport entry = FindExport(library, kExports[k].name);
    Check((entry != NULL) == is_listed, "export %s: %s", kExports[k].name,
          is_listed ? "listed but not found" : "found but not listed");
    if (entry != NULL) {
      found[count].row = &kExports[k];
      found[count].entry = entry;
      ++count;
    }
  }
  Check(count == listed_count, "%d exports are listed, %d of the table found", listed_count, count);
  return count;
}

/* The library named by the first argument, with its exports; ends the program where it fails. */
static inline Library OpenFromArguments(int argc, char** argv, FoundExport found[kExportCount],
                                        int* count) {
  if (argc < 2) {
    fprintf(stderr, "usage: %s LIBRARY\n", argv[0]);
    exit(2);
  }
  const Library library = OpenLibrary(argv[1]);
  if (library == NULL) {
    printf("FAILED: cannot load %s\n", argv[1]);
    exit(1);
  }
  *count = FindExports(library, found);
  return library;
}

/* A record with a pattern in every byte, between guards of the same pattern. */
enum { kGuardSize = 256, kPattern = 0xA5 };
typedef struct GuardedRecord {
  unsigned char before[kGuardSize];
  double record[kEventRecordSize / sizeof(double)];
  unsigned char after[kGuardSize];
} GuardedRecord;

static inline void ClearGuarded(GuardedRecord* guarded) {
  memset(guarded, kPattern, sizeof *guarded);
}

/* How many bytes from `size` on, and in front of the record, were written to. */
static inline int BytesWrittenOutside(const GuardedRecord* guarded, size_t size) {
  const unsigned char* const start = guarded->before;
  const size_t begin = offsetof(GuardedRecord, record);
  int written = 0;
  for (size_t k = 0; k < sizeof *guarded; ++k) {
    if (k < begin || k >= begin + size) {
      written += start[k] != kPattern;
    }
  }
  return written;
}

/* One call with a fresh record. */
typedef struct Answer {
  double result;
  GuardedRecord guarded;
} Answer;

static inline void CallGuarded(const FoundExport* export_, const ExportArguments* arguments,
                               Answer* answer) {
  ClearGuarded(&answer->guarded);
  answer->result = CallExport(export_->row, export_->entry, arguments, answer->guarded.record);
}

static inline int SameAnswer(const Answer* a, const Answer* b) {
  return SameBits(a->result, b->result) && memcmp(&a->guarded, &b->guarded, sizeof a->guarded) == 0;
}

/* Two pages, of which the second cannot be touched; the address of the second. */
static inline unsigned char* PageBeforeNothing(size_t* page_size) {
#if defined(_WIN32)
  SYSTEM_INFO information;
  GetSystemInfo(&information);
  const size_t page = information.dwPageSize;
  unsigned char* const pages = VirtualAlloc(NULL, 3 * page, MEM_RESERVE, PAGE_NOACCESS);
  VirtualAlloc(pages + page, page, MEM_COMMIT, PAGE_READWRITE);
#else
  const size_t page = (size_t)sysconf(_SC_PAGESIZE);
  unsigned char* const pages = mmap(NULL, 3 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  mprotect(pages + page, page, PROT_READ | PROT_WRITE);
#endif
  *page_size = page;
  return pages + 2 * page;
}

static inline double SecondsNow(void) {
#if defined(_WIN32)
  LARGE_INTEGER ticks;
  LARGE_INTEGER per_second;
  QueryPerformanceCounter(&ticks);
  QueryPerformanceFrequency(&per_second);
  return (double)ticks.QuadPart / (double)per_second.QuadPart;
#else
  struct timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return (double)now.tv_sec + 1e-9 * (double)now.tv_nsec;
#endif
}

/* Processor time of the calling thread: other programs on the machine do not count. */
static inline double ProcessorSeconds(void) {
#if defined(_WIN32)
  FILETIME created;
  FILETIME ended;
  FILETIME kernel;
  FILETIME user;
  GetThreadTimes(GetCurrentThread(), &created, &ended, &kernel, &user);
  const uint64_t ticks = ((uint64_t)user.dwHighDateTime << 32) + user.dwLowDateTime;
  return 1e-7 * (double)ticks;
#else
  struct timespec now;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return (double)now.tv_sec + 1e-9 * (double)now.tv_nsec;
#endif
}

static inline void SleepMilliseconds(int milliseconds) {
#if defined(_WIN32)
  Sleep((DWORD)milliseconds);
#else
  const struct timespec span = {milliseconds / 1000, (milliseconds % 1000) * 1000000L};
  nanosleep(&span, NULL);
#endif
}

/* Threads: `run(argument)` on its own thread, from a small stack. */
typedef struct ThreadTask {
  void (*run)(void*);
  void* argument;
#if defined(_WIN32)
  HANDLE handle;
#else
  pthread_t handle;
#endif
} ThreadTask;

#if defined(_WIN32)
static inline DWORD WINAPI RunTask(LPVOID task) {
  ((ThreadTask*)task)->run(((ThreadTask*)task)->argument);
  return 0;
}
static inline void StartThread(ThreadTask* task) {
  task->handle = CreateThread(NULL, 0, RunTask, task, 0, NULL);
}
static inline void JoinThread(ThreadTask* task) {
  WaitForSingleObject(task->handle, INFINITE);
  CloseHandle(task->handle);
}
#else
static inline void* RunTask(void* task) {
  ((ThreadTask*)task)->run(((ThreadTask*)task)->argument);
  return NULL;
}
static inline void StartThread(ThreadTask* task) {
  pthread_create(&task->handle, NULL, RunTask, task);
}
static inline void JoinThread(ThreadTask* task) { pthread_join(task->handle, NULL); }
#endif

#endif
