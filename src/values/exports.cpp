// The exported functions of the values library: each passes the host boundary and does nothing else
// here.

#include "host/boundary.h"
#include "values/answers.h"
#include "zenithor/values.h"

using zenithor::ThroughBoundary;

extern "C" {

// A type and two lists in parentheses of their own, which can have no others.
// NOLINTBEGIN(bugprone-macro-parentheses)
#define VALUES_EXPORT(answer, name, parameters, arguments)                \
  ZENITHOR_EXPORT answer ZENITHOR_VALUES_CALL Zenithor##name parameters { \
    return ThroughBoundary<zenithor::Answer##name> arguments;             \
  }
// NOLINTEND(bugprone-macro-parentheses)
#include "values/export_list.inc"

}  // extern "C"
