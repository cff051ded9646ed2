#pragma once

#include <string>

#include "golden/check.h"

#ifndef ZENITHOR_SOURCE_DIR
#define ZENITHOR_SOURCE_DIR "."
#endif

namespace zenithor::testing {

// What became of the cases of a file of tests/golden.
inline golden::Summary CheckGolden(const std::string& name, const golden::Functions& functions) {
  return golden::Check(
      golden::ReadGoldenFile(std::string(ZENITHOR_SOURCE_DIR) + "/tests/golden/" + name),
      functions);
}

}  // namespace zenithor::testing
