/* A host that passes anything: NaN, infinities, denormals, huge numbers and the extreme
 * integers in every argument of every export. Each call returns within a bounded time, writes
 * nothing outside its record, gives the same bits again, and leaves the host's state alone.
 *   any_argument LIBRARY [RANDOM CALLS PER EXPORT] */

#include <errno.h>
#include <float.h>
#include <math.h>

#include "state_call.h"
#include "support/extreme_values.h"

/* The slowest are solar eclipse searches from so far off that they look at a million lunations. */
static const double kLongestCall = 10.0; /* seconds of processor time */

enum { kHostsErrno = 12345 };

static double longest;
static int long_searches;

static void CheckCall(const FoundExport* export_, const ExportArguments* arguments) {
  static Answer first;
  static Answer second;
  const int may_be_long = MayBeALongSearch(export_->row, arguments);
  if (may_be_long && long_searches++ >= LongSearchesOf(export_->row)) {
    return;
  }
  StateCall call = QuietState();
  const double start = ProcessorSeconds();
  errno = kHostsErrno;
  CallGuardedInState(&call, export_, arguments, &first);
  const int errno_after = errno;
  const double seconds = ProcessorSeconds() - start;
  longest = seconds > longest ? seconds : longest;
  if (may_be_long) {
    second = first;
  } else {
    CallGuarded(export_, arguments, &second);
  }
  const double* const d = arguments->doubles;
  const char* const name = export_->row->name;
  Check(seconds < kLongestCall, "%s(%.17g %.17g %.17g %.17g %.17g; %d %d): %.1f s", name, d[0],
        d[1], d[2], d[3], d[4], arguments->integers[0], arguments->integers[1], seconds);
  Check(BytesWrittenOutside(&first.guarded, RecordSizeOf(export_->row)) == 0,
        "%s(%.17g ...): bytes outside the record", name, d[0]);
  Check(errno_after == kHostsErrno, "%s(%.17g ...): errno %d", name, d[0], errno_after);
  Check(SameAnswer(&first, &second), "%s(%.17g %.17g %.17g %.17g %.17g; %d %d): other bits again",
        name, d[0], d[1], d[2], d[3], d[4], arguments->integers[0], arguments->integers[1]);
  Check((call.control_word_after | 0x40) == 0x037F && call.mxcsr_after == 0x1F80 &&
            (call.status_word_after & 0xFF) == 0,
        "%s(%.17g ...): state %04x %04x %04x", name, d[0], (unsigned)call.control_word_after,
        (unsigned)call.mxcsr_after, (unsigned)call.status_word_after);
}

int main(int argc, char** argv) {
  FoundExport exports[kExportCount];
  int count = 0;
  OpenFromArguments(argc, argv, exports, &count);
  const int random_calls = argc > 2 ? atoi(argv[2]) : 100;
  for (int e = 0; e < count; ++e) {
    const ExportRow* const row = exports[e].row;
    long_searches = 0;
    const int bases = IntegerCountOf(row) > 0 ? 11 : 1;
    for (int base = 0; base < bases; ++base) {
      const ExportArguments ordinary = OrdinaryArguments(row, (uint64_t)base);
      for (int a = 0; a < DoubleCountOf(row); ++a) {
        for (int k = 0; k < kExtremeDoubleCount; ++k) {
          ExportArguments arguments = ordinary;
          arguments.integers[0] = base;
          arguments.doubles[a] = kExtremeDoubles[k];
          CheckCall(&exports[e], &arguments);
        }
      }
      for (int a = 0; a < IntegerCountOf(row); ++a) {
        for (int k = 0; k < kExtremeIntegerCount; ++k) {
          ExportArguments arguments = ordinary;
          arguments.integers[a] = kExtremeIntegers[k];
          CheckCall(&exports[e], &arguments);
        }
      }
    }
    uint64_t random = (uint64_t)e + 1;
    for (int k = 0; k < random_calls; ++k) {
      const ExportArguments arguments = ExtremeArguments(&random);
      CheckCall(&exports[e], &arguments);
    }
  }
  printf("%d exports, the longest call took %.1f ms\n", count, 1000.0 * longest);
  return Verdict("any_argument");
}
