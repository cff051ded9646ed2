#ifndef TESTS_SUPPORT_EXPORT_TABLE_H
#define TESTS_SUPPORT_EXPORT_TABLE_H

#include <stdint.h>
#include <string.h>

#include "zenithor/zenithor.h"

/* Every export of the library, one row each from the list of exports, with its prototype written
 * out on its own (not taken from the public header) and one way to call them all. C and C++. */

typedef enum ExportShape {
  kShapePosition,      /* (moment, ignored, ignored, longitude, latitude, ignored, code, record) */
  kShapeSelectedEvent, /* (moment, ignored, ignored, selector, record) */
  kShapeFramedEvent,   /* (moment, ignored, ignored, record) */
  kShapePlainEvent,    /* (moment, record) */
  kShapeRising         /* (day, minutes, zone, longitude, latitude, code, selector) */
} ExportShape;

typedef double (*PositionExport)(double, double, double, double, double, double, int32_t, void*);
typedef double (*SelectedEventExport)(double, double, double, int32_t, void*);
typedef double (*FramedEventExport)(double, double, double, void*);
typedef double (*PlainEventExport)(double, void*);
typedef double (*RisingExport)(double, double, double, double, double, int32_t, int32_t);
typedef void (*AnyExport)(void);

typedef struct ExportRow {
  const char* name; /* exported with a leading underscore */
  ExportShape shape;
  int32_t block;       /* of an event: the block whose Julian day comes back */
  int32_t first_block; /* of an event: the range of blocks that a call may write */
  int32_t block_count;
} ExportRow;

enum {
  kExportCount = 21,
  kDoubleArguments = 6,
  kIntegerArguments = 2,
  kBlockSize = 32,
  kEventRecordSize = 19 * kBlockSize,
  kPositionRecordSize = 160
};

/* The blocks that a call may write are those of its family: 4 seasons, 4 phases, 7 kinds of solar
 * eclipses, 4 of lunar ones. */
#define TESTS_FIRST_BLOCK(block) ((block) < 4 ? 0 : (block) < 8 ? 4 : (block) < 15 ? 8 : 15)
#define TESTS_BLOCK_COUNT(block) ((block) >= 8 && (block) < 15 ? 7 : 4)
#define TESTS_EVENT_ROW(name, shape, block) \
  {#name, shape, block, TESTS_FIRST_BLOCK(block), TESTS_BLOCK_COUNT(block)},

static const ExportRow kExports[kExportCount] = {
#define EXPORT_POSITION(name) {#name, kShapePosition, 0, 0, 0},
#define EXPORT_SELECTED_EVENT(name, block) TESTS_EVENT_ROW(name, kShapeSelectedEvent, block)
#define EXPORT_ANY_ECLIPSE(name, block) TESTS_EVENT_ROW(name, kShapeFramedEvent, block)
#define EXPORT_ECLIPSE_OF_KIND(name, block) TESTS_EVENT_ROW(name, kShapePlainEvent, block)
#define EXPORT_RISING(name) {#name, kShapeRising, 0, 0, 0},
#include "entry/export_list.inc"
};

/* The arguments of one call of any export, in the order of its prototype; a row's shape says how
 * many of them are passed. */
typedef struct ExportArguments {
  double doubles[kDoubleArguments];
  int32_t integers[kIntegerArguments]; /* body code or selector; for GEO_RISE code, then selector */
} ExportArguments;

static inline int DoubleCountOf(const ExportRow* row) {
  static const int kCounts[] = {6, 3, 3, 1, 5};
  return kCounts[row->shape];
}

static inline int IntegerCountOf(const ExportRow* row) {
  static const int kCounts[] = {1, 1, 0, 0, 2};
  return kCounts[row->shape];
}

static inline size_t RecordSizeOf(const ExportRow* row) {
  static const size_t kSizes[] = {kPositionRecordSize, kEventRecordSize, kEventRecordSize,
                                  kEventRecordSize, 0};
  return kSizes[row->shape];
}

static inline double CallExport(const ExportRow* row, AnyExport entry, const ExportArguments* a,
                                void* record) {
  const double* const d = a->doubles;
  const int32_t* const i = a->integers;
  switch (row->shape) {
    case kShapePosition:
      return ((PositionExport)entry)(d[0], d[1], d[2], d[3], d[4], d[5], i[0], record);
    case kShapeSelectedEvent:
      return ((SelectedEventExport)entry)(d[0], d[1], d[2], i[0], record);
    case kShapeFramedEvent:
      return ((FramedEventExport)entry)(d[0], d[1], d[2], record);
    case kShapePlainEvent:
      return ((PlainEventExport)entry)(d[0], record);
    default:
      return ((RisingExport)entry)(d[0], d[1], d[2], d[3], d[4], i[0], i[1]);
  }
}

/* The same bits for the same state: splitmix64. */
static inline uint64_t NextRandom(uint64_t* state) {
  uint64_t z = (*state += 0x9E3779B97F4A7C15u);
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
  return z ^ (z >> 31);
}

static inline double RandomBetween(uint64_t* state, double low, double high) {
  return low + (high - low) * ((double)(NextRandom(state) >> 11) * 0x1p-53);
}

/* Arguments as a host passes them: moments of the years 1700 to 2300, every body, every selector of
 * the export's own range, observers up to 66 degrees from the equator. */
static inline ExportArguments OrdinaryArguments(const ExportRow* row, uint64_t seed) {
  uint64_t state = seed * 0x2545F4914F6CDD1Du + 1;
  ExportArguments a;
  const int rising = row->shape == kShapeRising;
  a.doubles[0] = RandomBetween(&state, 2341972.5, 2561117.5) - (rising ? 2437299.5 : 0.0);
  a.doubles[1] = rising ? RandomBetween(&state, 0.0, 1440.0) : 0.0;
  a.doubles[2] = rising ? (double)(int)RandomBetween(&state, -11.0, 12.0) : 0.0;
  a.doubles[3] = RandomBetween(&state, -180.0, 180.0);
  a.doubles[4] = RandomBetween(&state, -66.0, 66.0);
  a.doubles[5] = 0.0;
  a.integers[0] = (int32_t)(NextRandom(&state) % (row->shape == kShapeSelectedEvent ? 4u : 11u));
  a.integers[1] = 1 + (int32_t)(NextRandom(&state) % 3u);
  return a;
}

static inline int SameBits(double a, double b) { return memcmp(&a, &b, sizeof a) == 0; }

#endif
