// The load of the values library: the data inside are arranged. Under the loader lock nothing is
// read, allocated, waited for or shown.

#if defined(_WIN32)
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

#include "host/boundary.h"
#include "values/data.h"

#if defined(_WIN32)

extern "C" ZENITHOR_ENTRY BOOL WINAPI DllMain(HINSTANCE /*module*/, DWORD reason,
                                              LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    const zenithor::HostBoundary boundary;
    zenithor::LoadLinkedData();
  }
  return TRUE;
}

#else

namespace {

__attribute__((constructor)) void ArrangeLinkedData() {
  const zenithor::HostBoundary boundary;
  zenithor::LoadLinkedData();
}

}  // namespace

#endif
