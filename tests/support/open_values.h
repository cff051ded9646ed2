#ifndef TESTS_SUPPORT_OPEN_VALUES_H
#define TESTS_SUPPORT_OPEN_VALUES_H

#define ZENITHOR_VALUES_LOADER
#include "zenithor/values.h"

/* Opens the values library at a path of plain ASCII. */
ZENITHOR_VALUES_INLINE int OpenValues(ZenithorValuesLibrary* library, const char* path) {
  ZenithorValuesPathCharacter wide[1024];
  size_t k = 0;
  for (; path[k] != '\0' && k + 1 < sizeof wide / sizeof wide[0]; ++k) {
    wide[k] = (ZenithorValuesPathCharacter)path[k];
  }
  wide[k] = 0;
  return ZenithorValuesOpen(library, wide);
}

#endif
