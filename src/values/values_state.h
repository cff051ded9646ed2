#pragma once

#include "ephemeris/store.h"
#include "values/guide_store.h"

namespace zenithor {

// What the values library keeps for the whole process besides ProcessState
// (host/process_state.h). Made while the library loads, read-only afterwards.
struct ValuesState {
  EphemerisStore guide;  // without bodies before it is made
};

// The memory that the two stores of the process refer to. A record of its own, all zeros before the
// load, so that it takes no room in the library's file.
struct ValuesRooms {
  GuideRooms guide;
  alignas(64) char full[1U << 20];  // what is arranged from the full data: two thirds of it
};

extern ValuesState values_state;
extern ValuesRooms values_rooms;

}  // namespace zenithor
