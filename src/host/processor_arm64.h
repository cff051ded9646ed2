#pragma once

#include <cerrno>
#include <cstdint>

// The processor's state on 64-bit ARM (boundary.h).

namespace zenithor {

struct HostState {
  std::uint64_t control;  // FPCR: rounding, flush to zero, traps
  std::uint64_t status;   // FPSR: exception flags
  int error_number;       // the mathematics of the C library sets errno
};

// Control 0: round to nearest, no flush to zero, no trap, NaNs as they come.
inline HostState EnterLibrary() {
  HostState host;
  asm volatile(
      "mrs %0, fpcr\n\t"
      "mrs %1, fpsr\n\t"
      "msr fpcr, xzr"
      : "=r"(host.control), "=r"(host.status)::"memory");
  host.error_number = errno;
  return host;
}

// `result` passes through, so that nothing it is computed from comes later.
inline void LeaveLibrary(const HostState& host, double& result) {
  errno = host.error_number;
  asm volatile(
      "msr fpsr, %2\n\t"
      "msr fpcr, %1"
      : "+w"(result)
      : "r"(host.control), "r"(host.status)
      : "memory");
}

}  // namespace zenithor
