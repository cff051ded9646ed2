#pragma once

#include "entry/process_store.h"
#include "ephemeris/loader.h"
#include "support/export_table.h"
#include "support/full_store.h"
#include "zenithor/zenithor.h"

// The exports themselves, linked into the test program, in the order of kExports.

namespace zenithor::testing {

inline AnyExport LinkedExport(int which) {
  static const AnyExport entries[] = {
      reinterpret_cast<AnyExport>(ZENITHOR),     reinterpret_cast<AnyExport>(SPR_EQUX),
      reinterpret_cast<AnyExport>(SUM_SOL),      reinterpret_cast<AnyExport>(FALL_EQUX),
      reinterpret_cast<AnyExport>(WIN_SOL),      reinterpret_cast<AnyExport>(NEW_MOON),
      reinterpret_cast<AnyExport>(FIRST_QTR),    reinterpret_cast<AnyExport>(FULL_MOON),
      reinterpret_cast<AnyExport>(LAST_QTR),     reinterpret_cast<AnyExport>(ALL_SE),
      reinterpret_cast<AnyExport>(TOTAL_SE),     reinterpret_cast<AnyExport>(ANNULAR_SE),
      reinterpret_cast<AnyExport>(ANNULAR_TSE),  reinterpret_cast<AnyExport>(TOTAL_NCSE),
      reinterpret_cast<AnyExport>(ANNULAR_NCSE), reinterpret_cast<AnyExport>(PARTIAL_SE),
      reinterpret_cast<AnyExport>(ALL_LE),       reinterpret_cast<AnyExport>(TOTAL_LE),
      reinterpret_cast<AnyExport>(PARTIAL_LE),   reinterpret_cast<AnyExport>(PENUM_LE),
      reinterpret_cast<AnyExport>(GEO_RISE),
  };
  static_assert(sizeof entries / sizeof entries[0] == kExportCount, "one entry per row");
  return entries[which];
}

// The data that the load gives a host.
inline void FillProcessStore() { ProcessStore() = FullStore(); }

}  // namespace zenithor::testing
