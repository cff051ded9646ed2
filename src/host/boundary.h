#pragma once

#include <type_traits>

#if defined(__GNUC__) && (defined(__i386__) || defined(__x86_64__))
#include "host/processor_x86.h"
#elif defined(__GNUC__) && defined(__aarch64__)
#include "host/processor_arm64.h"
#elif defined(__wasm__)
#include "host/processor_wasm.h"
#else
#error "The host boundary is written for GCC and Clang on x86 and 64-bit ARM, and for WebAssembly"
#endif

// Functions that a host calls directly may find the stack misaligned; SSE2 code needs 16. On 64-bit
// Windows the unwinder requires the alignment of every caller, and the compiler has no remedy;
// 64-bit ARM traps where it is not given, and WebAssembly's is the compiler's own.
#if defined(_WIN64) || defined(__aarch64__) || defined(__wasm__)
#define ZENITHOR_ENTRY
#else
#define ZENITHOR_ENTRY __attribute__((force_align_arg_pointer))
#endif

// What every exported function carries.
#if defined(_WIN32)
#define ZENITHOR_EXPORT ZENITHOR_ENTRY  // the module definition file lists the names
#else
#define ZENITHOR_EXPORT ZENITHOR_ENTRY __attribute__((visibility("default")))
#endif

namespace zenithor {

// The one door between a host and the library. Inside, the processor is in the state that the
// mathematics and the compiler need: x87 stack empty, extended precision, round to nearest, every
// exception masked, no flush to zero, string instructions counting up. Outside again, the host's
// x87 control word, MXCSR (its flags included), direction flag and errno are back to the bit, and
// no x87 exception flag is set or pending.
//
// processor_x86.h, processor_arm64.h and processor_wasm.h have the instructions: EnterLibrary saves
// the host's state and LeaveLibrary restores it.

// The boundary for as long as the object stands, for code that the loader calls.
class HostBoundary {
 public:
  HostBoundary() : host_(EnterLibrary()) {}
  ~HostBoundary() {
    double no_result = 0.0;
    LeaveLibrary(host_, no_result);
  }
  HostBoundary(const HostBoundary&) = delete;
  HostBoundary& operator=(const HostBoundary&) = delete;

 private:
  HostState host_;
};

// Calls Routine inside the boundary. Routine must be defined in another translation unit, so that
// the compiler can move none of its arithmetic out of the boundary.
template <auto Routine, class... Arguments>
inline auto ThroughBoundary(Arguments... arguments) {
  if constexpr (std::is_same_v<decltype(Routine(arguments...)), double>) {
    const HostState host = EnterLibrary();
    double result = Routine(arguments...);
    LeaveLibrary(host, result);
    return result;
  } else {  // the answer is in no register that the boundary has to do with
    const HostBoundary boundary;
    return Routine(arguments...);
  }
}

}  // namespace zenithor
