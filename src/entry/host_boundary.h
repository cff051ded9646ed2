#pragma once

#include <cstdint>

#if !defined(__GNUC__) || !(defined(__i386__) || defined(__x86_64__))
#error "The host boundary is written for GCC and Clang on x86"
#endif

// Functions that a host calls directly may find the stack aligned to 4 bytes only on 32-bit x86;
// SSE2 code needs 16.
#if defined(__i386__)
#define ZENITHOR_ENTRY __attribute__((force_align_arg_pointer))
#else
#define ZENITHOR_ENTRY
#endif

namespace zenithor {

// The one door between a host and the library: while it stands, the floating-point environment is
// the one that the mathematics needs (x87 stack empty, extended precision, round to nearest, every
// exception masked, no flush to zero); when it goes, the host's x87 control word and MXCSR are
// back to the bit, MXCSR's flags included, and no x87 exception flag is set or pending.
//
// Inline instructions rather than <cfenv>: the latter costs microseconds a call where it asks
// CPUID.
class HostBoundary {
 public:
  HostBoundary() {
    const std::uint32_t default_mxcsr = 0x1F80;  // all exceptions masked, round to nearest
    asm volatile("fnstcw %0" : "=m"(x87_control_word_)::"memory");
    asm volatile("stmxcsr %0" : "=m"(mxcsr_)::"memory");
    // fninit empties the register stack and sets control word 037F without raising what is pending.
    asm volatile("fninit" ::
                     : "memory", "st", "st(1)", "st(2)", "st(3)", "st(4)", "st(5)", "st(6)",
                       "st(7)");
    asm volatile("ldmxcsr %0" ::"m"(default_mxcsr) : "memory");
  }
  ~HostBoundary() {
    asm volatile("fnclex\n\tfldcw %0" ::"m"(x87_control_word_)
                 : "memory", "st", "st(1)", "st(2)", "st(3)", "st(4)", "st(5)", "st(6)", "st(7)");
    asm volatile("ldmxcsr %0" ::"m"(mxcsr_) : "memory");
  }
  HostBoundary(const HostBoundary&) = delete;
  HostBoundary& operator=(const HostBoundary&) = delete;

 private:
  std::uint16_t x87_control_word_ = 0;
  std::uint32_t mxcsr_ = 0;
};

// Calls Routine inside the boundary. Routine must be defined in another translation unit, so that
// the compiler can move none of its arithmetic out of the boundary.
template <auto Routine, class... Arguments>
inline double ThroughBoundary(Arguments... arguments) {
  const HostBoundary boundary;
  return Routine(arguments...);
}

}  // namespace zenithor
