#pragma once

#if defined(__SSE2__)
#include <immintrin.h>
#else
// The same operations by other processors' instructions.
#define SIMDE_ENABLE_NATIVE_ALIASES
#include <simde/x86/sse2.h>
#endif

#include "numerics/sine_cosine.h"

// Cosine and sine of four angles at once, the same bits on every processor and in every build: only
// additions and multiplications of IEEE doubles in a fixed order, no fused operation, no call.
//
// A file that is compiled for AVX2 includes this one too, so everything here is inlined where it is
// used (ZENITHOR_KERNEL): no copy of it compiled for one processor can stand in for another's.

#define ZENITHOR_KERNEL __attribute__((always_inline)) static inline

namespace zenithor {

#include "numerics/sincos_constants.inc"

// The 512 steps of a circle, 2 pi / 512 apart, from 0.
extern const CosineSine kCircleSteps[512];

// Angles of at most this size [rad] may be given to the kernel; for others its result means
// nothing.
constexpr double kLargestKernelAngle = 16777216.0;  // 2^24

// Added and subtracted again, it rounds to the nearest whole number, and leaves that number in the
// low bits of the sum.
constexpr double kRoundToWhole = 6755399441055744.0;  // 1.5 x 2^52

// Four doubles in two SSE2 registers.
struct FourInPairs {
  __m128d first, second;
};

ZENITHOR_KERNEL FourInPairs operator+(FourInPairs a, FourInPairs b) {
  return {_mm_add_pd(a.first, b.first), _mm_add_pd(a.second, b.second)};
}
ZENITHOR_KERNEL FourInPairs operator-(FourInPairs a, FourInPairs b) {
  return {_mm_sub_pd(a.first, b.first), _mm_sub_pd(a.second, b.second)};
}
ZENITHOR_KERNEL FourInPairs operator*(FourInPairs a, FourInPairs b) {
  return {_mm_mul_pd(a.first, b.first), _mm_mul_pd(a.second, b.second)};
}
ZENITHOR_KERNEL void Repeat(double x, FourInPairs& four) {
  four.first = four.second = _mm_set1_pd(x);
}
ZENITHOR_KERNEL void LoadFour(const double* from, FourInPairs& four) {
  four = {_mm_loadu_pd(from), _mm_loadu_pd(from + 2)};
}

ZENITHOR_KERNEL void StoreLanes(FourInPairs four, double* to) {
  _mm_storeu_pd(to, four.first);
  _mm_storeu_pd(to + 2, four.second);
}

// Whether all four are at most `largest` in size; false for NaN.
ZENITHOR_KERNEL bool AreWithin(FourInPairs x, double largest) {
  const __m128d sign = _mm_set1_pd(-0.0);
  const __m128d limit = _mm_set1_pd(largest);
  const __m128d first = _mm_cmple_pd(_mm_andnot_pd(sign, x.first), limit);
  const __m128d second = _mm_cmple_pd(_mm_andnot_pd(sign, x.second), limit);
  return _mm_movemask_pd(_mm_and_pd(first, second)) == 3;
}

// The row of kCircleSteps that lies so many bytes after the first.
ZENITHOR_KERNEL __m128d StepAt(int bytes) {
  const auto* const steps = reinterpret_cast<const char*>(kCircleSteps);
  return _mm_load_pd(reinterpret_cast<const double*>(steps + static_cast<unsigned>(bytes)));
}

// Two rows of kCircleSteps, those that the low bits of the two lanes of `whole` count, side by
// side.
ZENITHOR_KERNEL void LoadTwoSteps(__m128d whole, __m128d& cosine, __m128d& sine) {
  const __m128i bytes =
      _mm_and_si128(_mm_slli_epi64(_mm_castpd_si128(whole), 4), _mm_set1_epi32(511 * 16));
  const __m128d row0 = StepAt(_mm_extract_epi16(bytes, 0));
  const __m128d row1 = StepAt(_mm_extract_epi16(bytes, 4));
  cosine = _mm_unpacklo_pd(row0, row1);
  sine = _mm_unpackhi_pd(row0, row1);
}
ZENITHOR_KERNEL void LoadSteps(FourInPairs whole, FourInPairs& cosine, FourInPairs& sine) {
  LoadTwoSteps(whole.first, cosine.first, sine.first);
  LoadTwoSteps(whole.second, cosine.second, sine.second);
}

// cosine, sine, cosine, sine, ... to eight doubles.
ZENITHOR_KERNEL void StoreFour(FourInPairs cosine, FourInPairs sine, double* to) {
  _mm_storeu_pd(to, _mm_unpacklo_pd(cosine.first, sine.first));
  _mm_storeu_pd(to + 2, _mm_unpackhi_pd(cosine.first, sine.first));
  _mm_storeu_pd(to + 4, _mm_unpacklo_pd(cosine.second, sine.second));
  _mm_storeu_pd(to + 6, _mm_unpackhi_pd(cosine.second, sine.second));
}

#ifdef __AVX2__

// Four doubles in one AVX register.
struct FourInQuad {
  __m256d all;
};

ZENITHOR_KERNEL FourInQuad operator+(FourInQuad a, FourInQuad b) {
  return {_mm256_add_pd(a.all, b.all)};
}
ZENITHOR_KERNEL FourInQuad operator-(FourInQuad a, FourInQuad b) {
  return {_mm256_sub_pd(a.all, b.all)};
}
ZENITHOR_KERNEL FourInQuad operator*(FourInQuad a, FourInQuad b) {
  return {_mm256_mul_pd(a.all, b.all)};
}
ZENITHOR_KERNEL void Repeat(double x, FourInQuad& four) { four.all = _mm256_set1_pd(x); }
ZENITHOR_KERNEL void LoadFour(const double* from, FourInQuad& four) {
  four.all = _mm256_loadu_pd(from);
}
ZENITHOR_KERNEL void StoreLanes(FourInQuad four, double* to) { _mm256_storeu_pd(to, four.all); }
// Rows 0 and 2, and 1 and 3, are put together as they are loaded, so that one instruction each
// parts cosines and sines.
ZENITHOR_KERNEL void LoadSteps(FourInQuad whole, FourInQuad& cosine, FourInQuad& sine) {
  const __m256i bytes = _mm256_and_si256(_mm256_slli_epi64(_mm256_castpd_si256(whole.all), 4),
                                         _mm256_set1_epi64x(511 * 16));
  const __m128i low = _mm256_castsi256_si128(bytes);
  const __m128i high = _mm256_extracti128_si256(bytes, 1);
  const __m256d even = _mm256_insertf128_pd(_mm256_castpd128_pd256(StepAt(_mm_cvtsi128_si32(low))),
                                            StepAt(_mm_cvtsi128_si32(high)), 1);
  const __m256d odd =
      _mm256_insertf128_pd(_mm256_castpd128_pd256(StepAt(_mm_extract_epi16(low, 4))),
                           StepAt(_mm_extract_epi16(high, 4)), 1);
  cosine.all = _mm256_unpacklo_pd(even, odd);
  sine.all = _mm256_unpackhi_pd(even, odd);
}
ZENITHOR_KERNEL void StoreFour(FourInQuad cosine, FourInQuad sine, double* to) {
  const __m256d even = _mm256_unpacklo_pd(cosine.all, sine.all);
  const __m256d odd = _mm256_unpackhi_pd(cosine.all, sine.all);
  _mm_storeu_pd(to, _mm256_castpd256_pd128(even));
  _mm_storeu_pd(to + 2, _mm256_castpd256_pd128(odd));
  _mm_storeu_pd(to + 4, _mm256_extractf128_pd(even, 1));
  _mm_storeu_pd(to + 6, _mm256_extractf128_pd(odd, 1));
}

#endif

// Two fours, whose operations take turns: each works while the other waits for a result.
template <class Four>
struct Twice {
  Four first, second;
};

template <class Four>
ZENITHOR_KERNEL Twice<Four> operator+(Twice<Four> a, Twice<Four> b) {
  return {a.first + b.first, a.second + b.second};
}
template <class Four>
ZENITHOR_KERNEL Twice<Four> operator-(Twice<Four> a, Twice<Four> b) {
  return {a.first - b.first, a.second - b.second};
}
template <class Four>
ZENITHOR_KERNEL Twice<Four> operator*(Twice<Four> a, Twice<Four> b) {
  return {a.first * b.first, a.second * b.second};
}
template <class Four>
ZENITHOR_KERNEL void Repeat(double x, Twice<Four>& eight) {
  Repeat(x, eight.first);
  eight.second = eight.first;
}
template <class Four>
ZENITHOR_KERNEL void LoadSteps(Twice<Four> whole, Twice<Four>& cosine, Twice<Four>& sine) {
  LoadSteps(whole.first, cosine.first, sine.first);
  LoadSteps(whole.second, cosine.second, sine.second);
}

// Cosine and sine of four angles x [rad], |x| <= kLargestKernelAngle. Each is within
// 1.3e-16 + |x| 2^-75 of the true value; cos 0 = 1 and sin 0 = 0 exactly. Four is FourInPairs or
// FourInQuad: the arithmetic of a lane is the same.
//
// The nearest of 512 steps of the circle comes from a table, the rest r of the angle from a short
// polynomial, and cos(a + r) = cos a + (cos a (cos r - 1) - sin a sin r), the sine likewise (the
// method of P. T. P. Tang, Table-lookup algorithms for elementary functions and their error
// analysis, 10th IEEE Symposium on Computer Arithmetic, 1991).
//
// Reduction, h = 2 pi / 512, k = x / h rounded. |k| < 2^31 and kStepHigh has 22 bits, so their
// product is exact. So is its difference from x: both are multiples of ulp(x) or of the last place
// of kStepHigh, and it is no larger than h / 2 + |x| 2^-23, hence representable. What is left: the
// rounding of k kStepLow, |x| 2^-23 2^-53; that kStepLow is rounded, |x| 2^-77; the last
// subtraction, half an ulp of |r| < 2^-7, 2^-61. In all 2^-61 + |x| 2^-75.
// k is rounded from a product that is off by |k| 2^-53, so |r| <= h / 2 (1 + 2^-20), the interval
// for which the polynomials were found.
//
// Sum: the table is rounded, 2^-54; the polynomial of the cosine is off by 9.3e-18; the rounding of
// the small part, below 2^-7, by at most 4 x 2^-61; the last addition rounds once, 2^-54. With the
// reduction that is 2^-53 + 9.3e-18 + 5 x 2^-61 < 1.3e-16 and the part that grows with x, which is
// a four-millionth of the half ulp by which the angle itself may be rounded.
template <class Four>
ZENITHOR_KERNEL void CosinesAndSinesOfFour(Four x, Four& cosine, Four& sine) {
  Four steps_per_radian, step_high, step_low, round_to_whole, s1, s2, c1, c2;
  Repeat(kStepsPerRadian, steps_per_radian);
  Repeat(kStepHigh, step_high);
  Repeat(kStepLow, step_low);
  Repeat(kRoundToWhole, round_to_whole);
  Repeat(kS1, s1);
  Repeat(kS2, s2);
  Repeat(kC1, c1);
  Repeat(kC2, c2);

  const Four whole = x * steps_per_radian + round_to_whole;
  const Four k = whole - round_to_whole;
  const Four r = (x - k * step_high) - k * step_low;
  const Four z = r * r;
  const Four sine_r = r + (r * z) * (s1 + z * s2);
  const Four cosine_r_less_1 = z * (c1 + z * c2);

  Four cosine_a, sine_a;
  LoadSteps(whole, cosine_a, sine_a);
  cosine = cosine_a + (cosine_a * cosine_r_less_1 - sine_a * sine_r);
  sine = sine_a + (sine_a * cosine_r_less_1 + cosine_a * sine_r);
}

}  // namespace zenithor
