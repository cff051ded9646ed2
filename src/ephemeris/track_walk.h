#pragma once

#include "ephemeris/term_tracks.h"
#include "numerics/sincos_kernel.h"

// The walk along the four tracks, for one kind of vector registers or the other. Included by a file
// that is compiled for AVX2: see sincos_kernel.h for what that forbids.

namespace zenithor {

// What SumTracks chooses from by the processor; the same bits from either. `sums` holds one double
// for each series.
void SumTracksSse2(const TermTracks& tracks, double millennia, SumRoom& room, double* sums);
#ifdef __x86_64__
void SumTracksAvx2(const TermTracks& tracks, double millennia, SumRoom& room, double* sums);
#endif

// One term of every track: (A cos B) cos(C t) + (-A sin B) sin(C t), added to the track's sum.
ZENITHOR_KERNEL void AddStep(const double* cosine_sine, const double* products,
                             const std::uint16_t* indices, FourInPairs& sum) {
  const __m128d p0 = _mm_mul_pd(_mm_load_pd(cosine_sine + indices[0]), _mm_load_pd(products));
  const __m128d p1 = _mm_mul_pd(_mm_load_pd(cosine_sine + indices[1]), _mm_load_pd(products + 2));
  const __m128d p2 = _mm_mul_pd(_mm_load_pd(cosine_sine + indices[2]), _mm_load_pd(products + 4));
  const __m128d p3 = _mm_mul_pd(_mm_load_pd(cosine_sine + indices[3]), _mm_load_pd(products + 6));
  sum = sum + FourInPairs{_mm_add_pd(_mm_unpacklo_pd(p0, p2), _mm_unpackhi_pd(p0, p2)),
                          _mm_add_pd(_mm_unpacklo_pd(p1, p3), _mm_unpackhi_pd(p1, p3))};
}
ZENITHOR_KERNEL void StoreSums(FourInPairs sum, double* lanes) {
  _mm_store_pd(lanes, sum.first);
  _mm_store_pd(lanes + 2, sum.second);
}

#ifdef __AVX2__

ZENITHOR_KERNEL void AddStep(const double* cosine_sine, const double* products,
                             const std::uint16_t* indices, FourInQuad& sum) {
  const __m256d t01 =
      _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_load_pd(cosine_sine + indices[0])),
                           _mm_load_pd(cosine_sine + indices[1]), 1);
  const __m256d t23 =
      _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_load_pd(cosine_sine + indices[2])),
                           _mm_load_pd(cosine_sine + indices[3]), 1);
  const __m256d p01 = _mm256_mul_pd(t01, _mm256_loadu_pd(products));
  const __m256d p23 = _mm256_mul_pd(t23, _mm256_loadu_pd(products + 4));
  sum = sum + FourInQuad{_mm256_add_pd(_mm256_unpacklo_pd(p01, p23), _mm256_unpackhi_pd(p01, p23))};
}
ZENITHOR_KERNEL void StoreSums(FourInQuad sum, double* lanes) { _mm256_storeu_pd(lanes, sum.all); }

#endif

// Hands over the sum of the series that ends; the next series of its track starts from 0.
template <class Four>
ZENITHOR_KERNEL void EndSeries(SeriesEnd end, Four& sum, double* sums) {
  alignas(16) double lanes[4];
  StoreSums(sum, lanes);
  sums[end.series] = lanes[end.lane];
  lanes[end.lane] = 0.0;
  LoadFour(lanes, sum);
}

template <class Four>
ZENITHOR_KERNEL void WalkTracks(const TermTracks& tracks, double millennia, SumRoom& room,
                                double* sums) {
  double* const cosine_sine = room.cosine_sine;
  Four t;
  Repeat(millennia, t);
  for (std::int32_t k = 0; k < tracks.frequency_count; k += 4) {
    Four frequency, cosine, sine;
    LoadFour(tracks.frequencies + k, frequency);
    CosinesAndSinesOfFour(frequency * t, cosine, sine);
    StoreFour(cosine, sine, cosine_sine + 2 * k);
  }

  Four sum;
  Repeat(0.0, sum);
  const double* products = tracks.products;
  const std::uint16_t* indices = tracks.indices;
  std::int32_t step = 0;
  for (std::int32_t e = 0; e < tracks.end_count; ++e) {
    const SeriesEnd end = tracks.ends[e];
    for (; step < end.step; ++step, products += 2 * kTrackCount, indices += kTrackCount) {
      AddStep(cosine_sine, products, indices, sum);
    }
    EndSeries(end, sum, sums);
  }
}

}  // namespace zenithor
