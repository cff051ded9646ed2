#pragma once

#include "ephemeris/loader.h"
#include "host/process_state.h"
#include "support/export_table.h"
#include "support/full_store.h"
#include "zenithor/zenithor.h"

// The exports themselves, linked into the test program, in the order of kExports.

namespace zenithor::testing {

inline AnyExport LinkedExport(int which) {
  static const AnyExport entries[] = {
#define EXPORT_POSITION(name) reinterpret_cast<AnyExport>(name),
#define EXPORT_SELECTED_EVENT(name, block) reinterpret_cast<AnyExport>(name),
#define EXPORT_ANY_ECLIPSE(name, block) reinterpret_cast<AnyExport>(name),
#define EXPORT_ECLIPSE_OF_KIND(name, block) reinterpret_cast<AnyExport>(name),
#define EXPORT_RISING(name) reinterpret_cast<AnyExport>(name),
#include "entry/export_list.inc"
  };
  static_assert(sizeof entries / sizeof entries[0] == kExportCount, "one entry per row");
  return entries[which];
}

// The data that the load gives a host.
inline void FillProcessStore() { process_state.store = FullStore(); }

}  // namespace zenithor::testing
