/* Calls of each kind for callgrind to count: a hundred of each, every one at another moment, and a
 * dump of what they took with the kind as its name.
 *
 *   valgrind --tool=callgrind call_loop LIBRARY
 *
 * LIBRARY finds its data in the application-data folder. tools/run/hardening_cost.sh reads the
 * dumps. */

#define ZENITHOR_LOADER
#include <stdio.h>
#include <valgrind/callgrind.h>

#include "zenithor/zenithor.h"

enum { kCalls = 100 };

static ZenithorLibrary z;
static volatile double sink;

static double Day(int call) { return 2451545.0 + 13.7 * call; }

static void Place(int call, BodyCode body) {
  BodyPositionRecord record;
  sink = z.ZENITHOR(Day(call), 0.0, 0.0, 10.0, 50.0, 0.0, body, &record);
}

static void Sun(int call) { Place(call, ZENITHOR_SUN); }
static void SunAgain(int call) { Place(call / kCalls, ZENITHOR_SUN); }
static void Mars(int call) { Place(call, ZENITHOR_MARS); }
static void Pluto(int call) { Place(call, ZENITHOR_PLUTO); }
static void Moon(int call) { Place(call, ZENITHOR_MOON); }
static void MoonRises(int call) {
  sink = z.GEO_RISE(14245.0 + call, 0.0, 0.0, -10.0, 45.0, ZENITHOR_MOON, ZENITHOR_RISE);
}
static void Eclipse(int call) {
  EventRecord record;
  sink = z.ALL_SE(Day(call), 0.0, 0.0, &record);
}
static void NewMoon(int call) {
  EventRecord record;
  sink = z.NEW_MOON(Day(call), 0.0, 0.0, 0, &record);
}
static void Equinox(int call) {
  EventRecord record;
  sink = z.SPR_EQUX(Day(call), 0.0, 0.0, 0, &record);
}

/* The first call of a kind is not counted: it may find things for the rest. */
static void Count(void (*call)(int), const char* kind) {
  call(kCalls);
  CALLGRIND_ZERO_STATS;
  for (int k = 0; k < kCalls; ++k) {
    call(k);
  }
  CALLGRIND_DUMP_STATS_AT(kind);
}

int main(int argc, char** argv) {
  if (argc != 2 || !ZenithorOpen(&z, argv[1])) {
    fprintf(stderr, "usage: call_loop LIBRARY, under callgrind\n");
    return 1;
  }
  Place(0, ZENITHOR_SUN);
  if (sink != ZENITHOR_DONE) {
    fprintf(stderr, "call_loop: the library found no data\n");
    return 1;
  }
  Count(Sun, "Sun");
  Count(SunAgain, "Sun, same moment");
  Count(Mars, "Mars");
  Count(Pluto, "Pluto");
  Count(Moon, "Moon");
  Count(MoonRises, "Moon rises");
  Count(Eclipse, "solar eclipse");
  Count(NewMoon, "new moon");
  Count(Equinox, "equinox");
  return 0;
}
