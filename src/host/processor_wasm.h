#pragma once

#include <cerrno>

// What there is of a processor's state in WebAssembly (boundary.h): it rounds to nearest, keeps
// denormal numbers and raises nothing, and no program can ask for anything else.

namespace zenithor {

struct HostState {
  int error_number;  // the mathematics of the C library sets errno
};

inline HostState EnterLibrary() { return {errno}; }

inline void LeaveLibrary(const HostState& host, double& /*result*/) { errno = host.error_number; }

}  // namespace zenithor
