#pragma once

#include <functional>
#include <string>

#include "golden/golden_file.h"
#include "zenithor/zenithor.h"

namespace zenithor::golden {

// What answers the calls: a loaded library, or the routines behind it. Only those that a file calls
// are needed. Records come filled with the values of untouched.h.
struct Functions {
  std::function<double(const PositionCall&, BodyPositionRecord*)> position;
  std::function<double(const EventCall&, EventRecord*)> event;
  std::function<double(const RisingCall&)> rising;
};

struct Summary {
  int cases = 0;
  int failures = 0;
  std::string first_failure;  // "FILE:LINE: CALL: COLUMN is NUMBER, not NUMBER; ..."
};

// Makes every call of the file once, in its order, and compares the answers. Fields that are
// expected untouched must hold what they held before. Throws std::bad_function_call where a
// function that is needed is missing.
Summary Check(const GoldenFile& file, const Functions& functions);

}  // namespace zenithor::golden
