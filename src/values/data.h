#pragma once

#include "ephemeris/store.h"

namespace zenithor {

// The data inside the library: the index and the data file as karvo built them.

// Fills the store from the data inside. The data are not copied and what is arranged from them lies
// in the library's own memory: nothing is read, allocated, or left behind at unload.
void LoadLinkedData(EphemerisStore& store);

// SHA-256 of the index and the data one after the other, 64 hexadecimal digits.
const char* LinkedDataFingerprint();

}  // namespace zenithor
