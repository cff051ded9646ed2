#ifndef TESTS_HOST_HOSTILE_MEMORY_H
#define TESTS_HOST_HOSTILE_MEMORY_H

#include "hostile.h"

#if defined(_WIN32)
#include <psapi.h>
#endif

/* Memory that belongs to this process alone, in KiB: committed on Windows, data and stack on Linux.
 */
static inline long PrivateKiB(void) {
#if defined(_WIN32)
  PROCESS_MEMORY_COUNTERS counters;
  memset(&counters, 0, sizeof counters);
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return (long)(counters.PagefileUsage / 1024);
#else
  long pages = 0;
  FILE* const file = fopen("/proc/self/statm", "r");
  if (file != NULL) {
    if (fscanf(file, "%*d %*d %*d %*d %*d %ld", &pages) != 1) {
      pages = 0;
    }
    fclose(file);
  }
  return pages * (sysconf(_SC_PAGESIZE) / 1024);
#endif
}

#endif
