#pragma once

#include <cerrno>
#include <cstdint>

// The processor's state on x86 (boundary.h).

namespace zenithor {

// Inline instructions rather than <cfenv>: the latter costs microseconds a call where it asks
// CPUID.
struct HostState {
  std::uint16_t x87_control_word;
  std::uint32_t mxcsr;
  bool counts_down;
  int error_number;  // the mathematics of the C library sets errno
};

// fninit clobbers the whole register stack. The clobbers keep the compiler from holding anything
// there across the instruction.
#define ZENITHOR_X87_REGISTERS_BELOW_TOP \
  "st(1)", "st(2)", "st(3)", "st(4)", "st(5)", "st(6)", "st(7)"

// None of these instructions raises what the host left pending: fnstcw and fninit do not wait, and
// fninit drops it.
inline HostState EnterLibrary() {
  constexpr std::uint32_t kDirectionFlag = 0x400;
  const std::uint32_t library_mxcsr = 0x1F80;  // all exceptions masked, round to nearest
  HostState host;
#if defined(__x86_64__)
  host.counts_down = (__builtin_ia32_readeflags_u64() & kDirectionFlag) != 0;
#else
  host.counts_down = (__builtin_ia32_readeflags_u32() & kDirectionFlag) != 0;
#endif
  asm volatile(
      "cld\n\t"
      "fnstcw %0\n\t"
      "stmxcsr %1\n\t"
      "fninit\n\t"
      "ldmxcsr %2"
      : "=m"(host.x87_control_word), "=m"(host.mxcsr)
      : "m"(library_mxcsr)
      : "memory", "cc", "st", ZENITHOR_X87_REGISTERS_BELOW_TOP);
  host.error_number = errno;
  return host;
}

// `result` stays in the register in which it came and goes back to the host, st(0) on 32-bit: a
// load after the exception flags are cleared would raise them again for a denormal number, and trap
// in a host that has unmasked them.
inline void LeaveLibrary(const HostState& host, double& result) {
  errno = host.error_number;
#if defined(__i386__)
#define ZENITHOR_RESULT_REGISTER "+t"
#define ZENITHOR_X87_CLOBBERS ZENITHOR_X87_REGISTERS_BELOW_TOP
#else
#define ZENITHOR_RESULT_REGISTER "+x"
#define ZENITHOR_X87_CLOBBERS "st", ZENITHOR_X87_REGISTERS_BELOW_TOP
#endif
  asm volatile(
      "fnclex\n\t"
      "fldcw %1\n\t"
      "ldmxcsr %2"
      : ZENITHOR_RESULT_REGISTER(result)
      : "m"(host.x87_control_word), "m"(host.mxcsr)
      : "memory", ZENITHOR_X87_CLOBBERS);
#undef ZENITHOR_RESULT_REGISTER
#undef ZENITHOR_X87_CLOBBERS
  if (host.counts_down) {
    asm volatile("std" ::: "memory", "cc");
  }
}

}  // namespace zenithor
