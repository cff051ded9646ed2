/* What the longest calls take: searches for eclipses from days that are no days (Unix milliseconds,
 * file times, powers of ten), and risings that do not settle. Each search says 0.0 and zeroes its
 * blocks, or has an answer; a phase of the Moon from such a day always has one. A search is to take
 * below 5 ms of processor time natively and below 20 ms in the 32-bit DLL; the check allows a busy
 * machine three times that. With a million lunations for a limit it would take ten times more.
 *
 *   longest_calls LIBRARY */

#include "hostile.h"

enum { kTimes = 5 };

static const double kMostOfASearch = 60.0; /* [ms] */
static const double kMostOfARising = 500.0;

/* 2025 November 22 in Unix milliseconds, microseconds and 100-ns units since 1601; what the angles
 * are like changes with every power of ten. */
static const double kDays[] = {1763769600000.0,
                               1763769600000000.0,
                               134082432000000000.0,
                               -1.23e10,
                               1.23e10,
                               1e11,
                               3.9e11,
                               6.94e11,
                               -1e12,
                               1e13,
                               6.94e13,
                               1e14,
                               1.23e15,
                               3.9e15,
                               -1e16,
                               2.3e17};

/* Risings of the Moon whose refinement goes on for longest. */
static const ExportArguments kRisings[] = {
    {{1744.0604307206165, 181.99816918958319, 0.57602915504830177, 74.892761753734021,
      -90.159442225988997},
     {10, 2}},
    {{77015.0, 0.0, 6.0, -115.48357790283866, 83.483532252642831}, {10, 1}}, /* of rising_scan */
};

/* Milliseconds of processor time, the mean of some calls with the same arguments. */
static double TimeOfACall(const FoundExport* export_, const ExportArguments* arguments,
                          double* result, void* record) {
  const double start = ProcessorSeconds();
  for (int k = 0; k < kTimes; ++k) {
    memset(record, kPattern, kEventRecordSize);
    *result = CallExport(export_->row, export_->entry, arguments, record);
  }
  return 1e3 * (ProcessorSeconds() - start) / kTimes;
}

/* The longest of the searches of one export. */
static double SearchFromAfar(const FoundExport* export_) {
  const ExportRow* const row = export_->row;
  double longest = 0.0;
  for (size_t d = 0; d < sizeof kDays / sizeof kDays[0]; ++d) {
    ExportArguments arguments = OrdinaryArguments(row, 1);
    double blocks[kEventRecordSize / sizeof(double)];
    double result = 0.0;
    int filled = 0;
    arguments.doubles[0] = kDays[d];
    const double milliseconds = TimeOfACall(export_, &arguments, &result, blocks);
    for (int k = 0; k < row->block_count * 4; ++k) {
      filled += blocks[row->first_block * 4 + k] != 0.0;
    }
    Check(milliseconds < kMostOfASearch, "%s(%.17g): %.1f ms", row->name, kDays[d], milliseconds);
    Check(row->first_block == 15 || (result == 0.0 && filled == 0),
          "%s(%.17g) found an eclipse of the Sun", row->name, kDays[d]);
    Check(row->first_block != 15 || filled > 0, "%s(%.17g) found no eclipse of the Moon", row->name,
          kDays[d]);
    longest = milliseconds > longest ? milliseconds : longest;
  }
  return longest;
}

/* A phase is answered for every finite day, also where lunations cannot be counted any more. */
static void PhaseFromAfar(const FoundExport* export_) {
  static const double days[] = {1763769600000.0, -1e12, 2.66e17, -2.7e17, 5e17, 1e18, 1e40, -1e60};
  for (size_t d = 0; d < sizeof days / sizeof days[0]; ++d) {
    ExportArguments arguments = OrdinaryArguments(export_->row, 1);
    double blocks[kEventRecordSize / sizeof(double)];
    arguments.doubles[0] = days[d];
    arguments.integers[0] = export_->row->block - export_->row->first_block;
    const double result = CallExport(export_->row, export_->entry, &arguments, blocks);
    Check(result != 0.0 && fabs(result) < 1e300, "%s(%.17g) = %g", export_->row->name, days[d],
          result);
  }
}

static double RiseWithoutEnd(const FoundExport* export_) {
  double longest = 0.0;
  double unused[kEventRecordSize / sizeof(double)];
  for (size_t k = 0; k < sizeof kRisings / sizeof kRisings[0]; ++k) {
    double result = 0.0;
    const double milliseconds = TimeOfACall(export_, &kRisings[k], &result, unused);
    Check(milliseconds < kMostOfARising, "rising %d: %.1f ms", (int)k, milliseconds);
    longest = milliseconds > longest ? milliseconds : longest;
  }
  return longest;
}

int main(int argc, char** argv) {
  FoundExport exports[kExportCount];
  int count = 0;
  double search = 0.0;
  double rising = 0.0;
  int phases = 0;
  OpenFromArguments(argc, argv, exports, &count);
  for (int e = 0; e < count; ++e) {
    if (exports[e].row->first_block >= 8) {
      const double milliseconds = SearchFromAfar(&exports[e]);
      search = milliseconds > search ? milliseconds : search;
    } else if (exports[e].row->first_block == 4) {
      PhaseFromAfar(&exports[e]);
      ++phases;
    } else if (exports[e].row->shape == kShapeRising) {
      rising = RiseWithoutEnd(&exports[e]);
    }
  }
  Check(phases == 4, "%d phases", phases);
  printf("the longest search took %.1f ms, the longest rising %.1f ms\n", search, rising);
  return Verdict("longest_calls");
}
