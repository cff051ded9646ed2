#pragma once

#include "zenithor/values.h"

namespace zenithor {

// What each export of the values library answers behind the host boundary: AnswerName for
// ZenithorName, with the contract of values.h.

#define VALUES_EXPORT(answer, name, parameters, arguments) answer Answer##name parameters;
#include "values/export_list.inc"

}  // namespace zenithor
