#pragma once

namespace zenithor {

// The data inside the library: the index and the data file as karvo built them.

// What the load does, once, before any other call: fills the store of the process from the data
// inside, makes its guide, and has the threads keep places. The data are not copied and what is
// arranged from them lies in the library's own memory: nothing is read, allocated, or left behind
// at unload.
void LoadLinkedData();

// SHA-256 of the index and the data one after the other, 64 hexadecimal digits.
const char* LinkedDataFingerprint();

}  // namespace zenithor
