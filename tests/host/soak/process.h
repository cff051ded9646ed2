#ifndef TESTS_HOST_SOAK_PROCESS_H
#define TESTS_HOST_SOAK_PROCESS_H

/* What the soak needs of the system beside threads: how many handles this process holds, a second
 * process, and files that are put in place of others. */

#include "../hostile/memory.h"

#if defined(_WIN32)
#include <winternl.h>
#else
#include <dirent.h>
#include <signal.h>
#include <sys/wait.h>
#endif

#if defined(_WIN32)

/* The system's list of all handles, as NtQuerySystemInformation writes it. */
typedef struct SystemHandle {
  USHORT owner;
  USHORT unused;
  UCHAR type;
  UCHAR flags;
  USHORT value;
  void* object;
  ULONG access;
} SystemHandle;

typedef struct SystemHandles {
  ULONG count;
  SystemHandle handles[1];
} SystemHandles;

typedef LONG(WINAPI* QuerySystem)(int, void*, ULONG, ULONG*);

/* Handles that this process holds. Wine's GetProcessHandleCount gives 0, but its list is filled. */
static inline long HandleCount(void) {
  enum { kSystemHandleInformation = 16, kListSize = 1 << 20 };
  static unsigned char list[kListSize];
  const QuerySystem query =
      (QuerySystem)(void*)GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQuerySystemInformation");
  const SystemHandles* const all = (const SystemHandles*)(const void*)list;
  DWORD count = 0;
  if (GetProcessHandleCount(GetCurrentProcess(), &count) && count > 0) {
    return (long)count;
  }
  if (query != NULL && query(kSystemHandleInformation, list, sizeof list, NULL) >= 0) {
    for (ULONG k = 0; k < all->count; ++k) {
      count += all->handles[k].owner == (USHORT)GetCurrentProcessId();
    }
  }
  return (long)count;
}

typedef HANDLE Process;

/* Starts this program again: `program words`. */
static inline int StartProcess(Process* process, const char* program, const char* role,
                               const char* folder, const char* seconds) {
  char line[4096];
  STARTUPINFOA start;
  PROCESS_INFORMATION started;
  memset(&start, 0, sizeof start);
  start.cb = sizeof start;
  snprintf(line, sizeof line, "\"%s\" %s \"%s\" %s", program, role, folder, seconds);
  if (!CreateProcessA(NULL, line, NULL, NULL, TRUE, 0, NULL, NULL, &start, &started)) {
    return 0;
  }
  CloseHandle(started.hThread);
  *process = started.hProcess;
  return 1;
}

/* Waits for its end; its exit code. */
static inline int EndOfProcess(Process process) {
  DWORD code = 1;
  WaitForSingleObject(process, INFINITE);
  GetExitCodeProcess(process, &code);
  CloseHandle(process);
  return (int)code;
}

/* Puts a file in the place of another, whole: no reader sees half of it. */
static inline int RenameOver(const char* from, const char* to) {
  return MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING);
}

#else

static inline long HandleCount(void) {
  long count = -3; /* ".", ".." and the folder's own */
  DIR* const folder = opendir("/proc/self/fd");
  while (folder != NULL && readdir(folder) != NULL) {
    ++count;
  }
  if (folder != NULL) {
    closedir(folder);
  }
  return count;
}

typedef pid_t Process;

static inline int StartProcess(Process* process, const char* program, const char* role,
                               const char* folder, const char* seconds) {
  fflush(NULL);
  *process = fork();
  if (*process == 0) {
    execl(program, program, role, folder, seconds, (char*)NULL);
    _exit(127);
  }
  return *process > 0;
}

static inline int EndOfProcess(Process process) {
  int status = 0;
  return waitpid(process, &status, 0) == process && WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

static inline int RenameOver(const char* from, const char* to) { return rename(from, to) == 0; }

#endif

/* A file copied: 1, or 0 where that fails. */
static inline int CopyOfFile(const char* from, const char* to) {
  static char bytes[1 << 16];
  FILE* const in = fopen(from, "rb");
  FILE* const out = in == NULL ? NULL : fopen(to, "wb");
  int copied = out != NULL;
  size_t count = 0;
  while (copied && (count = fread(bytes, 1, sizeof bytes, in)) > 0) {
    copied = fwrite(bytes, 1, count, out) == count;
  }
  copied = copied && ferror(in) == 0;
  if (in != NULL) {
    fclose(in);
  }
  if (out != NULL) {
    copied = fclose(out) == 0 && copied;
  }
  return copied;
}

#endif
