#include <gtest/gtest.h>

#include <cerrno>
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
  std::uint16_t tag_word;  // two bits a register of the x87 stack, both set where it is empty
  std::uint32_t mxcsr;
};

ProcessorState ReadState() {
  // Control, status and tag word stand at the beginning of the x87 environment, four bytes each.
  std::uint16_t environment[14];
  std::uint32_t mxcsr = 0;
  asm volatile(
      "fnstenv %0\n\t"
      "fldenv %0\n\t"  // storing it has masked all exceptions
      "stmxcsr %1"
      : "=m"(environment), "=m"(mxcsr));
  return {environment[0], environment[2], environment[4], mxcsr};
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
constexpr std::uint16_t kAllEmpty = 0xFFFF;

// Volatile, so that neither routine below is computed at compile time.
volatile double smallest_normal = std::numeric_limits<double>::min();
volatile double zero = 0.0;

[[gnu::noinline]] double Half(double x) { return x * 0.5; }
[[gnu::noinline]] double Invalid(double x) { return x / (x - x); }
[[gnu::noinline]] double InvalidInX87(double x) {
  const long double wide = x;
  return static_cast<double>(wide / (wide - wide));
}
[[gnu::noinline]] double StateInside(ProcessorState* state) {
  *state = ReadState();
  return 0.0;
}

// Through pointers, so that a result travels as it does from an export.
double (*volatile half)(double) = ThroughBoundary<Half, double>;
double (*volatile invalid_in_x87)(double) = ThroughBoundary<InvalidInX87, double>;
double (*volatile state_inside)(ProcessorState*) = ThroughBoundary<StateInside, ProcessorState*>;

// A host that has left eight numbers on the x87 stack, one of them the cause of a flag: one more
// would overflow it.
void FillX87Stack() {
  for (int k = 0; k < 8; ++k) {
    asm volatile("fldz");
  }
  asm volatile("fdiv %st(1), %st");  // invalid: 0 / 0
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

TEST(HostBoundary, GivesTheLibraryAnEmptyX87StackWithoutFlags) {
  ProcessorState inside{};
  FillX87Stack();
  const ProcessorState before = ReadState();
  const double volatile result = state_inside(&inside);
  const ProcessorState after = ReadState();
  asm volatile("fninit");
  EXPECT_NE(before.tag_word, kAllEmpty);
  EXPECT_NE(before.status_word & kExceptionFlags, 0);
  EXPECT_EQ(inside.tag_word, kAllEmpty);
  EXPECT_EQ(inside.status_word & (kExceptionFlags | kStackTop), 0);
  EXPECT_EQ(after.tag_word, kAllEmpty);
  EXPECT_EQ(result, 0.0);
}

TEST(HostBoundary, LeavesNothingOnTheX87StackButTheResult) {
  FillX87Stack();
  const double volatile result = half(3.0);
  const ProcessorState after = ReadState();
  asm volatile("fninit");
  EXPECT_EQ(result, 1.5);
  EXPECT_EQ(after.tag_word, kAllEmpty);
  EXPECT_EQ(after.status_word & (kExceptionFlags | kStackTop), 0);
}

TEST(HostBoundary, LeavesNoX87ExceptionFlagOfTheLibrary) {
  const ProcessorState after = StateAfter(kDefaultControlWord, kDefaultMxcsr,
                                          [] { return invalid_in_x87(double{smallest_normal}); });
  EXPECT_EQ(after.status_word & kExceptionFlags, 0);
  EXPECT_EQ(after.mxcsr, kDefaultMxcsr);
}

// Loading a denormal double into the x87 stack raises the denormal exception: a result must not be
// loaded after the flags are cleared. A host that flushes denormal numbers to zero gets it, too.
TEST(HostBoundary, HandsOverADenormalResultWithoutAnExceptionFlag) {
  for (const std::uint32_t mxcsr : {kDefaultMxcsr, 0x9FC0U}) {
    std::uint64_t bits = 0;
    FillX87Stack();
    const ProcessorState after = StateAfter(kDefaultControlWord, mxcsr, [&bits] {
      const double volatile result = half(double{smallest_normal});
      std::memcpy(&bits, const_cast<const double*>(&result), sizeof bits);
      return 0.0;
    });
    asm volatile("fninit");
    EXPECT_EQ(bits, std::uint64_t{1} << 51);
    EXPECT_EQ(after.status_word & kExceptionFlags, 0);
    EXPECT_EQ(after.mxcsr, mxcsr);
  }
}

#if defined(__x86_64__)
auto ReadFlags() { return __builtin_ia32_readeflags_u64(); }
#else
auto ReadFlags() { return __builtin_ia32_readeflags_u32(); }
#endif

[[gnu::noinline]] double Fails(double x) {
  errno = EDOM;
  return x;
}

TEST(HostBoundary, KeepsTheHostsErrorNumber) {
  errno = ERANGE;
  ThroughBoundary<Fails>(1.0);
  EXPECT_EQ(errno, ERANGE);
  {
    const HostBoundary boundary;
    errno = EDOM;
  }
  EXPECT_EQ(errno, ERANGE);
}

TEST(HostBoundary, ClearsTheDirectionFlagInsideAndRestoresIt) {
  asm volatile("std");
  const HostState host = EnterLibrary();
  const auto inside = ReadFlags();
  double result = 0.0;
  LeaveLibrary(host, result);
  const auto after = ReadFlags();
  asm volatile("cld");
  EXPECT_EQ(inside & 0x400U, 0U);
  EXPECT_EQ(after & 0x400U, 0x400U);
}

TEST(HostBoundary, TakesNoOtherFlagForTheDirectionFlag) {
  // Carry, parity, auxiliary carry, zero, sign and overflow, which any routine may leave set.
  asm volatile(
      "movb $0x7F, %%al\n\t"
      "addb $1, %%al\n\t"  // overflow
      "movb $0xD5, %%ah\n\t"
      "sahf"  // and the others
      ::
          : "eax", "cc");
  const HostState host = EnterLibrary();
  double result = 0.0;
  LeaveLibrary(host, result);
  const auto after = ReadFlags();
  asm volatile("cld");
  EXPECT_FALSE(host.counts_down);
  EXPECT_EQ(after & 0x400U, 0U);
}

}  // namespace
}  // namespace zenithor
