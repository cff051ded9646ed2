// The load of the values library: the data inside are arranged. Under the loader lock nothing is
// read, allocated, waited for or shown. In a program that has the library inside, the same happens
// before main.

#if defined(_WIN32) && !defined(ZENITHOR_VALUES_IN_PROGRAM)
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

#include "host/boundary.h"
#include "values/data.h"

#if defined(_WIN32) && !defined(ZENITHOR_VALUES_IN_PROGRAM)

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
