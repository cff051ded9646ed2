/* Both records as a host lays them out that was built without our header: bytes at fixed offsets,
 * its own function types, a guard on each side.
 *   records_host LIBRARY */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#if defined(_WIN32)
#include <windows.h>
#define CALL __cdecl
#else
#include <dlfcn.h>
#define CALL
#endif

typedef double(CALL* PositionFunction)(double, double, double, double, double, double, int, void*);
typedef double(CALL* EventFunction)(double, double, double, int, void*);

enum { GUARD = 64, POSITION_SIZE = 160, EVENT_SIZE = 608, UNTOUCHED = 0xA5 };

static int failures = 0;

static void Fail(const char* what, int place) {
  ++failures;
  fprintf(stderr, "records_host: %s at byte %d\n", what, place);
}

static double DoubleAt(const unsigned char* record, int offset) {
  double value;
  memcpy(&value, record + offset, sizeof value);
  return value;
}

static int IntegerAt(const unsigned char* record, int offset) {
  int value;
  memcpy(&value, record + offset, sizeof value);
  return value;
}

static void ExpectDouble(const unsigned char* record, int offset, double expected, double within) {
  const double difference = DoubleAt(record, offset) - expected;
  if (!(difference <= within && difference >= -within)) {
    fprintf(stderr, "%.17g, not %.17g\n", DoubleAt(record, offset), expected);
    Fail("unexpected double", offset);
  }
}

static void ExpectInteger(const unsigned char* record, int offset, int expected) {
  if (IntegerAt(record, offset) != expected) {
    fprintf(stderr, "%d, not %d\n", IntegerAt(record, offset), expected);
    Fail("unexpected integer", offset);
  }
}

static void ExpectUntouched(const unsigned char* bytes, int from, int to) {
  int k;
  for (k = from; k < to; ++k) {
    if (bytes[k] != UNTOUCHED) {
      Fail("a byte was written", k);
      return;
    }
  }
}

/* Venus at J2000.0; the values are those of
 * tests/golden/positions.tsv, to 5e-9 degree. */
static void CheckPosition(PositionFunction position) {
  unsigned char bytes[GUARD + POSITION_SIZE + GUARD];
  unsigned char* const record = bytes + GUARD;
  memset(bytes, UNTOUCHED, sizeof bytes);
  if (position(2451545.0, 0.25, -1.5, -157.95, 40.586, 7.0, 2, record) != 323.0) {
    Fail("no answer", 0);
  }
  ExpectUntouched(bytes, 0, GUARD);
  ExpectDouble(record, 0, 182.59902703493546, 5e-9);
  ExpectDouble(record, 8, 3.2646048763707096, 5e-9);
  ExpectDouble(record, 16, 0.72021292527191172, 1e-10);
  ExpectDouble(record, 24, 241.57670364869264, 5e-9);
  ExpectDouble(record, 32, 2.0661918629892009, 5e-9);
  ExpectDouble(record, 40, 1.1376891010815158, 1e-10);
  ExpectDouble(record, 48, 15.992790033913829, 5e-10);
  ExpectDouble(record, 56, -18.448722246954773, 5e-9);
  ExpectUntouched(record, 64, 120);
  ExpectDouble(record, 120, 0.40909280422232897, 1e-12);
  ExpectDouble(record, 128, 0.0, 0.0);
  ExpectInteger(record, 136, 2000);
  ExpectInteger(record, 140, 1);
  ExpectInteger(record, 144, 1);
  ExpectInteger(record, 148, 12);
  ExpectInteger(record, 152, 0);
  ExpectInteger(record, 156, 0);
  ExpectUntouched(bytes, GUARD + POSITION_SIZE, GUARD + POSITION_SIZE + GUARD);
}

/* A season block filled, its three neighbours zeroed, the other 15 blocks left alone. The December
 * solstice of 1994 is that of tests/golden/events.tsv. */
static void CheckEvent(EventFunction december_solstice) {
  unsigned char bytes[GUARD + EVENT_SIZE + GUARD];
  unsigned char* const record = bytes + GUARD;
  int k;
  double result;
  memset(bytes, UNTOUCHED, sizeof bytes);
  result = december_solstice(2449400.5, 0.0, 0.0, 3, record);
  ExpectUntouched(bytes, 0, GUARD);
  for (k = 0; k < 96; ++k) {
    if (record[k] != 0) {
      Fail("a block is not zero", k);
      break;
    }
  }
  ExpectDouble(record, 96, 2449708.5998854158, 2e-9);
  if (DoubleAt(record, 96) != result) {
    Fail("the result is not the block's Julian day", 96);
  }
  ExpectInteger(record, 104, 1994);
  ExpectInteger(record, 108, 12);
  ExpectInteger(record, 112, 22);
  ExpectInteger(record, 116, 2);
  ExpectInteger(record, 120, 23);
  ExpectInteger(record, 124, 50);
  ExpectUntouched(bytes, GUARD + 128, GUARD + EVENT_SIZE + GUARD);
}

int main(int count, char** words) {
  PositionFunction position = NULL;
  EventFunction december_solstice = NULL;
  if (count < 2) {
    fprintf(stderr, "usage: records_host LIBRARY\n");
    return EXIT_FAILURE;
  }
  {
#if defined(_WIN32)
    const HMODULE library = LoadLibraryA(words[1]);
    const FARPROC addresses[2] = {GetProcAddress(library, "_ZENITHOR"),
                                  GetProcAddress(library, "_WIN_SOL")};
#else
    void* const library = dlopen(words[1], RTLD_NOW);
    void* const addresses[2] = {library == NULL ? NULL : dlsym(library, "_ZENITHOR"),
                                library == NULL ? NULL : dlsym(library, "_WIN_SOL")};
#endif
    memcpy(&position, &addresses[0], sizeof position);
    memcpy(&december_solstice, &addresses[1], sizeof december_solstice);
  }
  if (position == NULL) {
    fprintf(stderr, "records_host: no _ZENITHOR in %s\n", words[1]);
    return EXIT_FAILURE;
  }
  CheckPosition(position);
  if (december_solstice != NULL) {
    CheckEvent(december_solstice);
  } else {
    fprintf(stderr, "records_host: no _WIN_SOL in %s\n", words[1]);
    ++failures;
  }
  return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
