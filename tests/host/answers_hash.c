/* Hashes the answers of 100 000 seeded calls over all exports, so that a change of any bit of any
 * answer is noticed, and finds the call whose answer differs.
 *
 *   answers_hash LIBRARY                     prints the lines of such a file
 *   answers_hash LIBRARY --expect FILE       compares them with the lines of the file
 *   answers_hash LIBRARY --calls FIRST LAST  prints these calls with the bits of their answers
 *
 * There are two groups of calls, each with a hash of its own:
 *   near  numbers 0 to 89 999: moments within 20 000 years of J2000.0; every other argument is a
 *         number between -1e6 and 1e6 (denormals, negative zero and polar latitudes among them),
 *         body codes and selectors anything
 *   odd   the rest: any double in any argument, NaN, infinities and days beyond any calendar among
 *         them
 * A record is filled with one byte pattern before the call, so a field that is left untouched
 * shows. The hash is FNV-1a (64 bits) over the bits of the result and of every field of the record,
 * in their order, low byte first. All NaNs count as one: their sign and payload are the
 * processor's. A hash of the arguments tells changed calls from changed answers.
 *
 * There is one file for every platform: the library takes no function from the C library whose bits
 * could differ. */

#if defined(_WIN32)
#define __USE_MINGW_ANSI_STDIO 1
#endif

#include <float.h>
#include <inttypes.h>
#include <math.h>

#include "host.h"
#include "support/export_table.h"

enum { kCallCount = 100000, kNearCallCount = 90000, kLongSearchCount = 3 };

static const double kJ2000 = 2451545.0;
static const double kNearDays = 20000.0 * 365.25;
static const double kCanonicalNan = NAN;

/* The tables below are this program's own: a value more in a table changes every hash. */

static const double kNearMoments[] = {
    2451545.0,
    2451544.5,
    2451545.0 + 20000.0 * 365.25,
    2451545.0 - 20000.0 * 365.25,
    2299160.5,          /* 1582 October 15, 0h, the first day of the Gregorian calendar */
    2299160.4999999995, /* the last moment of the Julian calendar */
    2299159.5,
    5373484.5, /* 10000 January 1 */
    2437299.5, /* day number 0 of GEO_RISE */
    2086302.5, /* 1000 January 1: where the seasons change their polynomials */
    2086307.5,
    1721423.5, /* 1 January 1 */
    1721057.5, /* 0 January 1 */
    0.0,
    -0.0,
    0x1p-1074,
    -0x1p-1074,
    0.5,
    -0.5,
    -1.0,
    -1401.0, /* from here on the calendar fields are dates */
    -1401.5,
    -1402.0,
    -2000.5,
};

static const double kNearNumbers[] = {
    0.0,     -0.0,   0x1p-1074, -0x1p-1074, DBL_MIN, 1e-9, 90.0,   -90.0,   89.999999, -89.999999,
    66.5607, -67.24, 91.0,      -100.0,     180.0,   -180, 360.0,  540.0,   23.4393,   12.0,
    24.0,    -24.0,  720.0,     1440.0,     -1440.0, 1e5,  -1.0e6, 999999.0};

static const double kOddNumbers[] = {
    NAN,           INFINITY,      -INFINITY,  0.0,    -0.0,       0x1p-1074,    -0x1p-1074,
    DBL_MIN,       DBL_MAX,       -DBL_MAX,   1e300,  -1e300,     1e100,        1e18,
    -1e18,         0x1p63,        -0x1p63,    0x1p53, 5.4e17,     1e16,         -1e12,
    1e10,          4e9,           -4e9,       1e9,    -1e9,       2147483646.5, 2147483647.5,
    -2147483647.5, -2147483648.5, 1e8,        -1e8,   17061545.0, /* 40 000 years from J2000.0 */
    2147483648,    4294967296,    -12158455.0};

static const int32_t kOddIntegers[] = {-1,  4,     5,      11,         12,        127,      128,
                                       255, 32767, -32768, 0x7F800000, INT32_MAX, INT32_MIN};

#define COUNT_OF(table) (sizeof(table) / sizeof(table)[0])

typedef struct Call {
  const ExportRow* row;
  ExportArguments arguments;
  int null_record;
} Call;

/* What the calls are made from. One call may take over the moment of the call before. */
typedef struct Source {
  uint64_t random;
  double moment;
  int long_searches;
} Source;

typedef struct Answer {
  double result;
  union {
    unsigned char bytes[kEventRecordSize];
    BodyPositionRecord position;
    EventRecord events;
  } record;
} Answer;

/* A number from 0 to count - 1. */
static unsigned Pick(Source* source, unsigned count) {
  return (unsigned)((NextRandom(&source->random) >> 32) % count);
}

/* Whether what happens once in `count` cases happens now. */
static int OnceIn(Source* source, unsigned count) { return Pick(source, count) == 0; }

static double Between(Source* source, double low, double high) {
  return RandomBetween(&source->random, low, high);
}

/* A Julian day within 20 000 years of J2000.0. */
static double NearMoment(Source* source) {
  double moment = 0.0;
  if (OnceIn(source, 8)) {
    return kNearMoments[Pick(source, COUNT_OF(kNearMoments))];
  }
  if (OnceIn(source, 2)) {
    moment = Between(source, 2305447.5, 2597641.5); /* the years 1600 to 2400 */
  } else {
    moment = Between(source, kJ2000 - kNearDays + 1.0, kJ2000 + kNearDays - 1.0);
  }
  switch (Pick(source, 8)) {
    case 0:
      return floor(moment);
    case 1:
      return floor(moment) + 0.5;
    default:
      return moment;
  }
}

static double AnyDouble(Source* source) {
  if (OnceIn(source, 3)) {
    const uint64_t bits = NextRandom(&source->random);
    double value = 0.0;
    memcpy(&value, &bits, sizeof value);
    return value;
  }
  return kOddNumbers[Pick(source, COUNT_OF(kOddNumbers))];
}

static double NearMinutes(Source* source) {
  switch (Pick(source, 4)) {
    case 0:
      return Between(source, 0.0, 1440.0);
    case 1:
      return 720.0;
    default:
      return 0.0;
  }
}

static double NearZone(Source* source) {
  static const double kQuarters[] = {0.0, 0.25, 0.5, 0.75};
  return (double)((int)Pick(source, 27) - 12) +
         (OnceIn(source, 4) ? kQuarters[Pick(source, 4)] : 0);
}

static double NearLatitude(Source* source) {
  return OnceIn(source, 4) ? Between(source, -90.0, 90.0) : Between(source, -66.0, 66.0);
}

static int32_t Code(Source* source, int odd, int32_t first, unsigned count) {
  return OnceIn(source, odd ? 2 : 10) ? kOddIntegers[Pick(source, COUNT_OF(kOddIntegers))]
                                      : first + (int32_t)Pick(source, count);
}

static const ExportRow* PickExport(Source* source) {
  const unsigned choice = Pick(source, 8);
  if (choice < 3) {
    return &kExports[0];
  }
  if (choice < 5) {
    return &kExports[kExportCount - 1];
  }
  return &kExports[1 + Pick(source, kExportCount - 2)];
}

/* Whether a call may be a search through so many lunations that it gives up. */
static int MayBeLong(const Call* call) {
  const double distance = fabs(call->arguments.doubles[0]);
  return call->row->first_block == 8 && distance > 5e9 && distance < 1e18;
}

static Call NextCall(Source* source, int odd) {
  Call call;
  call.row = PickExport(source);
  const int rising = call.row->shape == kShapeRising;
  double* const d = call.arguments.doubles;
  int32_t* const i = call.arguments.integers;

  source->moment = OnceIn(source, 4) ? source->moment : NearMoment(source);
  d[0] = rising ? source->moment - 2437299.5 : source->moment;
  d[1] = NearMinutes(source);
  d[2] = NearZone(source);
  d[3] = Between(source, -180.0, 180.0);
  d[4] = NearLatitude(source);
  d[5] = Between(source, -10.0, 10.0);
  for (int k = 1; k < kDoubleArguments; ++k) {
    d[k] = OnceIn(source, 12) ? kNearNumbers[Pick(source, COUNT_OF(kNearNumbers))] : d[k];
  }
  i[0] = Code(source, odd, 0, call.row->shape == kShapeSelectedEvent ? 4 : 11);
  i[1] = Code(source, odd, 1, 3);
  call.null_record = OnceIn(source, 64);

  for (int k = 0; odd && k < kDoubleArguments; ++k) {
    d[k] = OnceIn(source, 2) ? AnyDouble(source) : d[k];
  }
  while (MayBeLong(&call) && source->long_searches >= kLongSearchCount) {
    d[0] = AnyDouble(source);
  }
  source->long_searches += MayBeLong(&call);
  return call;
}

static Answer AnswerOf(const Call* call, const AnyExport* entries) {
  Answer answer;
  memset(&answer, HOST_PATTERN, sizeof answer);
  answer.result = CallExport(call->row, entries[call->row - kExports], &call->arguments,
                             call->null_record ? NULL : answer.record.bytes);
  return answer;
}

/* Where the words of a call or an answer go: into a hash, and to a printed line or nowhere. */
typedef struct Sink {
  uint64_t hash;
  int print;
} Sink;

static const uint64_t kFnvBasis = 0xCBF29CE484222325u;
static const uint64_t kFnvPrime = 0x100000001B3u;

static void Take(Sink* sink, uint64_t word, int bytes) {
  for (int k = 0; k < bytes; ++k) {
    sink->hash = (sink->hash ^ (word >> (8 * k) & 0xFFu)) * kFnvPrime;
  }
  if (sink->print) {
    printf(" %0*" PRIX64, 2 * bytes, word);
  }
}

static void TakeDouble(Sink* sink, double value) {
  uint64_t bits = 0;
  memcpy(&bits, value != value ? &kCanonicalNan : &value, sizeof bits);
  Take(sink, bits, 8);
}

static void TakeInteger(Sink* sink, int32_t value) { Take(sink, (uint32_t)value, 4); }

static void TakeCall(Sink* sink, const Call* call) {
  Take(sink, (uint64_t)(call->row - kExports), 4);
  for (int k = 0; k < DoubleCountOf(call->row); ++k) {
    TakeDouble(sink, call->arguments.doubles[k]);
  }
  for (int k = 0; k < IntegerCountOf(call->row); ++k) {
    TakeInteger(sink, call->arguments.integers[k]);
  }
  Take(sink, (uint64_t)call->null_record, 4);
}

static void TakePosition(Sink* sink, const BodyPositionRecord* record) {
  double doubles[17];
  int32_t integers[6];
  memcpy(doubles, &record->HelioLongitude, sizeof doubles);
  memcpy(integers, &record->Year, sizeof integers);
  for (size_t k = 0; k < COUNT_OF(doubles); ++k) {
    TakeDouble(sink, doubles[k]);
  }
  for (size_t k = 0; k < COUNT_OF(integers); ++k) {
    TakeInteger(sink, integers[k]);
  }
}

static void TakeEvents(Sink* sink, const EventRecord* record) {
  for (int k = 0; k < ZENITHOR_BLOCK_COUNT; ++k) {
    const EventTimeBlock* const block = &record->Blocks[k];
    TakeDouble(sink, block->JulianDay);
    TakeInteger(sink, block->Year);
    TakeInteger(sink, block->Month);
    TakeInteger(sink, block->Day);
    TakeInteger(sink, block->Hour);
    TakeInteger(sink, block->Minute);
    TakeInteger(sink, block->Second);
  }
}

static void TakeAnswer(Sink* sink, const Call* call, const Answer* answer) {
  TakeDouble(sink, answer->result);
  if (call->row->shape == kShapePosition) {
    TakePosition(sink, &answer->record.position);
  } else if (call->row->shape != kShapeRising) {
    TakeEvents(sink, &answer->record.events);
  }
}

static void PrintCall(long number, const Call* call) {
  const char* between = "";
  printf("%ld %s(", number, call->row->name);
  for (int k = 0; k < DoubleCountOf(call->row); ++k, between = ", ") {
    printf("%s%.17g", between, call->arguments.doubles[k]);
  }
  for (int k = 0; k < IntegerCountOf(call->row); ++k, between = ", ") {
    printf("%s%d", between, (int)call->arguments.integers[k]);
  }
  printf(call->null_record ? ", null):" : "):");
}

typedef struct Hashes {
  uint64_t calls;
  uint64_t near_answers;
  uint64_t odd_answers;
} Hashes;

/* Makes all calls, because an answer may depend on the calls before it, and prints some. */
static Hashes HashAnswers(const AnyExport* entries, long first_printed, long last_printed) {
  Source source = {20000101u, 2451545.0, 0};
  Sink calls = {kFnvBasis, 0};
  Sink near_sink = {kFnvBasis, 0};
  Sink odd_sink = {kFnvBasis, 0};
  for (long number = 0; number < kCallCount; ++number) {
    const int is_odd = number >= kNearCallCount;
    Sink* const sink = is_odd ? &odd_sink : &near_sink;
    const Call call = NextCall(&source, is_odd);
    const Answer answer = AnswerOf(&call, entries);
    sink->print = number >= first_printed && number <= last_printed;
    if (sink->print) {
      PrintCall(number, &call);
    }
    TakeCall(&calls, &call);
    TakeAnswer(sink, &call, &answer);
    if (sink->print) {
      printf("\n");
    }
  }
  const Hashes hashes = {calls.hash, near_sink.hash, odd_sink.hash};
  return hashes;
}

/* Reads up to two hashes after the name that a line of the file begins with. */
static int FindLine(const char* path, const char* name, int count, uint64_t hashes[2]) {
  char line[256];
  char word[32];
  int found = 0;
  FILE* const file = fopen(path, "r");
  while (file != NULL && !found && fgets(line, sizeof line, file) != NULL) {
    found = sscanf(line, "%31s %" SCNx64 " %" SCNx64, word, &hashes[0], &hashes[1]) == 1 + count &&
            strcmp(word, name) == 0;
  }
  if (file != NULL) {
    fclose(file);
  }
  return found;
}

static void Compare(const Hashes* hashes, const char* path) {
  uint64_t expected[2] = {0, 0};
  CHECK(FindLine(path, "calls", 1, expected));
  CHECK(expected[0] == hashes->calls);
  if (host_failures > 0) {
    fprintf(stderr, "answers_hash: %s is of other calls; print a new one\n", path);
    return;
  }
  CHECK(FindLine(path, "answers", 2, expected));
  CHECK(expected[0] == hashes->near_answers);
  CHECK(expected[1] == hashes->odd_answers);
  if (host_failures > 0) {
    fprintf(stderr,
            "answers_hash: not the answers of %s. To find the call that differs, compare what\n"
            "  answers_hash LIBRARY --calls 0 %d\n"
            "prints of this library and of one built before the change.\n",
            path, kCallCount - 1);
  }
}

int main(int count, char** words) {
  ZenithorLibrary library;
  AnyExport entries[kExportCount];
  const int compares = count == 4 && strcmp(words[2], "--expect") == 0;
  const int prints = count == 5 && strcmp(words[2], "--calls") == 0;
  if (count != 2 && !compares && !prints) {
    fprintf(stderr, "usage: answers_hash LIBRARY [--expect FILE | --calls FIRST LAST]\n");
    return EXIT_FAILURE;
  }
  if (OpenLibrary(&library, words[1]) == 0) {
    fprintf(stderr, "answers_hash: cannot load %s\n", words[1]);
    return EXIT_FAILURE;
  }
  for (int k = 0; k < kExportCount; ++k) {
    char exported_name[32];
    snprintf(exported_name, sizeof exported_name, "_%s", kExports[k].name);
    ZenithorFind(library.Handle, exported_name, &entries[k], sizeof entries[k]);
    if (entries[k] == NULL) {
      fprintf(stderr, "answers_hash: %s does not export %s\n", words[1], exported_name);
      return EXIT_FAILURE;
    }
  }

  const Hashes hashes = HashAnswers(entries, prints ? strtol(words[3], NULL, 10) : 1,
                                    prints ? strtol(words[4], NULL, 10) : 0);
  if (!prints) {
    printf("calls %016" PRIX64 "\nanswers %016" PRIX64 " %016" PRIX64 "\n", hashes.calls,
           hashes.near_answers, hashes.odd_answers);
  }
  if (compares) {
    Compare(&hashes, words[3]);
  }
  ZenithorClose(&library);
  return HOST_RESULT;
}
