#ifndef TESTS_HOST_SOAK_CHART_H
#define TESTS_HOST_SOAK_CHART_H

/* A chart of ten thousand daily bars (27 years) and what the host asks of the library for each:
 * eleven positions, the nineteen events, and one rising, transit or setting. */

#include "../hostile/hostile.h"

enum { kBars = 10000, kBodies = 11, kEvents = 19, kCallsOfABar = kBodies + kEvents + 1 };

static const double kFirstBar = 2450814.5; /* 1998 January 1 */

/* Which export call number `call` (0 to kCallsOfABar - 1) of a bar is for, and its arguments. */
static inline int ExportOfCall(int call) {
  return call < kBodies ? 0 : call < kBodies + kEvents ? 1 + call - kBodies : kExportCount - 1;
}

static inline ExportArguments ArgumentsOfCall(int bar, int call) {
  const ExportRow* const row = &kExports[ExportOfCall(call)];
  ExportArguments a;
  memset(&a, 0, sizeof a);
  a.doubles[0] = kFirstBar + bar;
  switch (row->shape) {
    case kShapePosition:
      a.doubles[3] = -2.35;
      a.doubles[4] = 48.87;
      a.integers[0] = call;
      break;
    case kShapeRising:
      a.doubles[0] -= 2437299.5;
      a.doubles[3] = -2.35;
      a.doubles[4] = 48.87;
      a.integers[0] = bar % kBodies == 3 ? 0 : bar % kBodies;
      a.integers[1] = 1 + bar / kBodies % 3;
      break;
    default:
      a.integers[0] = row->block - row->first_block;
  }
  return a;
}

/* A number that two different answers do not share, but for one chance in 2^64. A record is filled
 * with one pattern before the call, so a field that is left untouched counts too. */
static inline uint64_t DigestOfCall(const AnyExport* exports, int bar, int call) {
  const int which = ExportOfCall(call);
  const ExportArguments arguments = ArgumentsOfCall(bar, call);
  const size_t size = RecordSizeOf(&kExports[which]);
  uint64_t words[1 + kEventRecordSize / sizeof(uint64_t)];
  uint64_t digest = 1;
  memset(words, kPattern, sizeof words);
  const double result = CallExport(&kExports[which], exports[which], &arguments, &words[1]);
  memcpy(&words[0], &result, sizeof result);
  for (size_t k = 0; k < 1 + size / sizeof(uint64_t); ++k) {
    digest = (digest ^ words[k]) * 0x9E3779B97F4A7C15u;
    digest ^= digest >> 29;
  }
  return digest;
}

#endif
