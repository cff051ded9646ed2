/* What the host programs share: a check that counts, and the library opened from a narrow path. */
#ifndef ZENITHOR_TESTS_HOST_HOST_H
#define ZENITHOR_TESTS_HOST_HOST_H

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#define ZENITHOR_LOADER
#include "zenithor/zenithor.h"

static int host_failures = 0;

/* Counts and prints a check that does not hold; the program ends with HOST_RESULT. */
#define CHECK(condition)                                                             \
  do {                                                                               \
    if (!(condition)) {                                                              \
      ++host_failures;                                                               \
      fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #condition); \
    }                                                                                \
  } while (0)
#define HOST_RESULT (host_failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE)

/* Opens the library at a path of plain ASCII. */
ZENITHOR_INLINE int OpenLibrary(ZenithorLibrary* library, const char* path) {
  ZenithorPathCharacter wide[1024];
  size_t k = 0;
  for (; path[k] != '\0' && k + 1 < sizeof wide / sizeof wide[0]; ++k) {
    wide[k] = (ZenithorPathCharacter)path[k];
  }
  wide[k] = 0;
  return ZenithorOpen(library, wide);
}

/* Every byte of a record that the library must not touch is this. */
#define HOST_PATTERN 0xA5

#endif
