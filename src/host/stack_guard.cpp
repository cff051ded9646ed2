// What the compiler's stack protector asks for on Windows: the word that stands above the local
// arrays of a function, and what happens when a function finds it changed. MinGW's own library for
// it would bring in a further system library, and asks a cryptographic service while the loader
// lock is held. Elsewhere the C library has both.

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <cstdint>

// The names are the compiler's.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

std::uintptr_t __stack_chk_guard = 0xBB40E600U;

// The stack is not to be trusted: the process ends at once, as STATUS_STACK_BUFFER_OVERRUN, and no
// handler of it is asked.
[[noreturn]] void __stack_chk_fail() {
  constexpr unsigned kStackCookieCheckFailure = 2;
  asm volatile("int $0x29" ::"c"(kStackCookieCheckFailure));
  __builtin_unreachable();
}
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

// Another word in every process and every load, of what an attacker does not see: clocks, addresses
// and numbers of process and thread. Runs before anything of the library that is protected, and is
// not protected itself. The lowest byte stays 0, which ends a string that is copied over it.
__attribute__((constructor(101), no_stack_protector)) void SeedStackGuard() {
  FILETIME now;
  LARGE_INTEGER ticks;
  GetSystemTimeAsFileTime(&now);
  QueryPerformanceCounter(&ticks);
  std::uint64_t mixed = 0;
  const std::uint64_t sources[] = {
      static_cast<std::uint64_t>(now.dwHighDateTime) << 32 | now.dwLowDateTime,
      static_cast<std::uint64_t>(ticks.QuadPart),
      static_cast<std::uint64_t>(GetCurrentProcessId()) << 32 | GetCurrentThreadId(),
      static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(&now)),
      static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(&__stack_chk_guard))};
  for (const std::uint64_t source : sources) {
    mixed = (mixed ^ source) * 0x9E3779B97F4A7C15U;
    mixed ^= mixed >> 32;
  }
  __stack_chk_guard = static_cast<std::uintptr_t>(mixed) & ~std::uintptr_t{0xFF};
}

}  // namespace

#endif
