#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "host/boundary.h"

namespace zenithor {
namespace {

// The processor's floating-point and direction state, read and set with single instructions.
struct ProcessorState {
  std::uint16_t control_word;
  std::uint16_t status_word;
  std::uint32_t mxcsr;
};

ProcessorState ReadState() {
  ProcessorState state{};
  asm volatile("fnstcw %0" : "=m"(state.control_word));
  asm volatile("fnstsw %0" : "=m"(state.status_word));
  asm volatile("stmxcsr %0" : "=m"(state.mxcsr));
  return state;
}

void SetState(std::uint16_t control_word, std::uint32_t mxcsr) {
  asm volatile("fldcw %0" ::"m"(control_word));
  asm volatile("ldmxcsr %0" ::"m"(mxcsr));
}

constexpr std::uint16_t kDefaultControlWord = 0x037F;
constexpr std::uint16_t kAlwaysSet = 0x0040;  // a reserved bit that reads as one
constexpr std::uint32_t kDefaultMxcsr = 0x1F80;
// Extended, double and single precision; exceptions unmasked; rounding toward zero.
constexpr std::uint16_t kControlWords[] = {0x037F, 0x027F, 0x007F, 0x1332, 0x0F7F};
constexpr std::uint16_t kExceptionFlags = 0x00FF;  // six flags, stack fault, error summary
constexpr std::uint16_t kStackTop = 0x3800;

// Volatile, so that neither routine below is computed at compile time.
volatile double smallest_normal = std::numeric_limits<double>::min();
volatile double zero = 0.0;

[[gnu::noinline]] double Half(double x) { return x * 0.5; }
[[gnu::noinline]] double Invalid(double x) { return x / (x - x); }
[[gnu::noinline]] double StateInside(ProcessorState* state) {
  *state = ReadState();
  return 0.0;
}

// What the caller sees after `call` under a control word and an MXCSR. The result is stored by an
// instruction that waits for pending x87 exceptions where results travel in st(0).
template <class Call>
ProcessorState StateAfter(std::uint16_t control_word, std::uint32_t mxcsr, Call call) {
  SetState(control_word, mxcsr);
  const double result = call();
  const ProcessorState after = ReadState();
  SetState(kDefaultControlWord, kDefaultMxcsr);
  EXPECT_NE(result, 1.0);  // keeps the call
  return after;
}

TEST(HostBoundary, GivesTheLibraryExtendedPrecisionRoundToNearestAndMaskedExceptions) {
  for (const std::uint16_t control_word : kControlWords) {
    for (const std::uint32_t mxcsr : {0x1F80U, 0x0000U, 0x7F80U, 0x9FC0U, 0x8000U}) {
      ProcessorState inside{};
      const ProcessorState after = StateAfter(
          control_word, mxcsr, [&inside] { return ThroughBoundary<StateInside>(&inside); });
      EXPECT_EQ(inside.control_word, kDefaultControlWord);
      EXPECT_EQ(inside.status_word & (kExceptionFlags | kStackTop), 0);
      EXPECT_EQ(inside.mxcsr, kDefaultMxcsr);
      EXPECT_EQ(after.control_word, control_word | kAlwaysSet);
      EXPECT_EQ(after.mxcsr, mxcsr);
    }
  }
}

TEST(HostBoundary, KeepsTheHostsSseExceptionFlags) {
  for (const std::uint32_t flags : {0x00U, 0x01U, 0x20U, 0x3FU}) {
    const std::uint32_t mxcsr = kDefaultMxcsr | flags;
    const ProcessorState after = StateAfter(kDefaultControlWord, mxcsr,
                                            [] { return ThroughBoundary<Invalid>(double{zero}); });
    EXPECT_EQ(after.mxcsr, mxcsr);
  }
}

// Loading a denormal double into the x87 stack raises the denormal exception: a result must not be
// loaded after the flags are cleared.
TEST(HostBoundary, HandsOverADenormalResultWithoutAnExceptionFlag) {
  // Through a pointer, so that the result travels as it does from an export.
  double (*volatile entry)(double) = ThroughBoundary<Half, double>;
  const ProcessorState after = StateAfter(kDefaultControlWord, kDefaultMxcsr,
                                          [&] { return entry(double{smallest_normal}); });
  EXPECT_EQ(after.status_word & kExceptionFlags, 0);
}

TEST(HostBoundary, LeavesNothingOnTheX87StackButTheResult) {
  // Eight registers in use: one more load would overflow the stack.
  for (int k = 0; k < 8; ++k) {
    asm volatile("fldz");
  }
  const double result = ThroughBoundary<Half>(3.0);
  const ProcessorState after = ReadState();
  EXPECT_EQ(result, 1.5);
  EXPECT_EQ(after.status_word & kStackTop, 0);
  asm volatile("fninit");
}

TEST(HostBoundary, ClearsTheDirectionFlagInsideAndRestoresIt) {
#if defined(__x86_64__)
  asm volatile("std");
  const HostState host = EnterLibrary();
  const auto inside = __builtin_ia32_readeflags_u64();
  double result = 0.0;
  LeaveLibrary(host, result);
  const auto after = __builtin_ia32_readeflags_u64();
#else
  asm volatile("std");
  const HostState host = EnterLibrary();
  const auto inside = __builtin_ia32_readeflags_u32();
  double result = 0.0;
  LeaveLibrary(host, result);
  const auto after = __builtin_ia32_readeflags_u32();
#endif
  asm volatile("cld");
  EXPECT_EQ(inside & 0x400U, 0U);
  EXPECT_EQ(after & 0x400U, 0x400U);
}

}  // namespace
}  // namespace zenithor
