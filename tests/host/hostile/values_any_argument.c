/* A host of the values library that passes anything: not-a-number, infinities, extreme integers,
 * missing arrays, lengths of 0 and less, arrays that end with a page. Each call returns within a
 * bounded time, writes nothing outside what it may, gives the same bits again, and leaves errno and
 * the host's state alone. */

#include <errno.h>

#include "values_hostile.h"

enum { kRandomCalls = 200, kRandomSearches = 4, kHostsErrno = 12345 };
/* [s] of processor time. A search that finds nothing in all the searchable years has taken up to 10
 * s (the Moon's field 15, Pluto's daily motions); what is looked for here is a call without an end.
 */
static const double kLongestCall = 60.0;
static const double kLongAgain = 0.3; /* what takes longer is not asked again */
static double longest;

static void CheckAny(int function, const ValueArguments* arguments) {
  static ValueAnswer first;
  static ValueAnswer second;
  const double start = ProcessorSeconds();
  errno = kHostsErrno;
  CallValue(function, arguments, &first);
  const int errno_after = errno;
  const double seconds = ProcessorSeconds() - start;
  longest = seconds > longest ? seconds : longest;
  Check(seconds < kLongestCall, "function %d: %.1f s", function, seconds);
  Check(errno_after == kHostsErrno, "function %d: errno %d", function, errno_after);
  if (seconds < kLongAgain) {
    CallValue(function, arguments, &second);
    Check(SameValueAnswer(&first, &second), "function %d: other bits again", function);
  }
  Check(BytesOutside(function, arguments, &first) == 0, "function %d: bytes outside", function);
}

static void CheckExtremes(int function) {
  for (int base = 0; base < (IsSearch(function) ? 1 : 3); ++base) {
    const ValueArguments ordinary = OrdinaryValueArguments(function, (uint64_t)base);
    for (int d = 0; d < 4; ++d) {
      for (int k = 0; k < kExtremeDoubleCount; ++k) {
        ValueArguments arguments = ordinary;
        arguments.doubles[d] = kExtremeDoubles[k];
        CheckAny(function, &arguments);
      }
    }
    for (int i = 0; i < 5; ++i) {
      for (int k = 0; k < kExtremeIntegerCount; ++k) {
        ValueArguments arguments = ordinary;
        arguments.integers[i] = kExtremeIntegers[k];
        CheckAny(function, &arguments);
      }
    }
    for (int32_t length = -1; length <= kArrayLength; ++length) {
      for (int nulls = 0; nulls < 4; ++nulls) {
        ValueArguments arguments = ordinary;
        arguments.length = length;
        arguments.nulls = nulls;
        CheckAny(function, &arguments);
      }
    }
  }
}

static void CheckRandom(int function) {
  uint64_t random = (uint64_t)function + 1;
  const int calls = IsSearch(function) ? kRandomSearches : kRandomCalls;
  for (int k = 0; k < calls; ++k) {
    ValueArguments arguments = OrdinaryValueArguments(function, (uint64_t)k);
    for (int change = 0; change < 2; ++change) {
      const uint64_t bits = NextRandom(&random);
      switch (bits % 3u) {
        case 0:
          arguments.doubles[(bits >> 8) % 4u] = kExtremeDoubles[(bits >> 16) % kExtremeDoubleCount];
          break;
        case 1:
          memcpy(&arguments.doubles[(bits >> 8) % 4u], &random, sizeof random);
          break;
        default:
          arguments.integers[(bits >> 8) % 5u] =
              kExtremeIntegers[(bits >> 16) % kExtremeIntegerCount];
      }
    }
    CheckAny(function, &arguments);
  }
}

/* Arrays whose last element is the last before a page that cannot be touched. */
static void CheckAtPageEnd(int function) {
  size_t page = 0;
  unsigned char* const end = PageBeforeNothing(&page);
  static ValueAnswer expected;
  static ValueAnswer answer;
  for (int k = 0; k < 20; ++k) {
    ValueArguments arguments = OrdinaryValueArguments(function, (uint64_t)k);
    arguments.length = 1 + k % kArrayLength;
    int doubles = 0;
    int integers = 0;
    MayWrite(function, &arguments, &doubles, &integers);
    CallValue(function, &arguments, &expected);
    memset(end - page, kHostsByte, page);
    ClearAnswer(&answer);
    CallValueInto(function, &arguments, &answer, (double*)(void*)(end - 8 * doubles),
                  answer.integers);
    Check(answer.integer == expected.integer &&
              memcmp(end - 8 * doubles, expected.doubles, 8 * (size_t)doubles) == 0,
          "function %d, numbers at the end of a page: other bits", function);
    memset(end - page, kHostsByte, page);
    ClearAnswer(&answer);
    CallValueInto(function, &arguments, &answer, answer.doubles,
                  (int32_t*)(void*)(end - 4 * integers));
    Check(memcmp(end - 4 * integers, expected.integers, 4 * (size_t)integers) == 0,
          "function %d, integers at the end of a page: other bits", function);
  }
}

int main(int argc, char** argv) {
  OpenValuesFromArguments(argc, argv);
  for (int function = 0; function < kValueFunctions; ++function) {
    CheckExtremes(function);
    CheckRandom(function);
    CheckAtPageEnd(function);
  }
  printf("%d functions, the longest call took %.1f ms\n", kValueFunctions, 1000.0 * longest);
  return Verdict("values_any_argument");
}
