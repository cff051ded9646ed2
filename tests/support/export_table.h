#ifndef TESTS_SUPPORT_EXPORT_TABLE_H
#define TESTS_SUPPORT_EXPORT_TABLE_H

#include <stdint.h>
#include <string.h>

/* Every export of the library, one row each, with its prototype written out on its own (not taken
 * from the public header) and one way to call them all. C and C++. */

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

static const ExportRow kExports[kExportCount] = {
    {"ZENITHOR", kShapePosition, 0, 0, 0},        {"SPR_EQUX", kShapeSelectedEvent, 0, 0, 4},
    {"SUM_SOL", kShapeSelectedEvent, 1, 0, 4},    {"FALL_EQUX", kShapeSelectedEvent, 2, 0, 4},
    {"WIN_SOL", kShapeSelectedEvent, 3, 0, 4},    {"NEW_MOON", kShapeSelectedEvent, 4, 4, 4},
    {"FIRST_QTR", kShapeSelectedEvent, 5, 4, 4},  {"FULL_MOON", kShapeSelectedEvent, 6, 4, 4},
    {"LAST_QTR", kShapeSelectedEvent, 7, 4, 4},   {"ALL_SE", kShapeFramedEvent, 14, 8, 7},
    {"TOTAL_SE", kShapePlainEvent, 8, 8, 7},      {"ANNULAR_SE", kShapePlainEvent, 9, 8, 7},
    {"ANNULAR_TSE", kShapePlainEvent, 10, 8, 7},  {"TOTAL_NCSE", kShapePlainEvent, 11, 8, 7},
    {"ANNULAR_NCSE", kShapePlainEvent, 12, 8, 7}, {"PARTIAL_SE", kShapePlainEvent, 13, 8, 7},
    {"ALL_LE", kShapeFramedEvent, 18, 15, 4},     {"TOTAL_LE", kShapePlainEvent, 15, 15, 4},
    {"PARTIAL_LE", kShapePlainEvent, 16, 15, 4},  {"PENUM_LE", kShapePlainEvent, 17, 15, 4},
    {"GEO_RISE", kShapeRising, 0, 0, 0},
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
