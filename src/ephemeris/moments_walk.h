#pragma once

#include <cstddef>

#include "ephemeris/term_tracks.h"
#include "numerics/sincos_kernel.h"

// The walk along the tracks for four moments side by side, a vector lane each: what is read of the
// terms is read once for all four, and the lanes need no sorting. Every moment's sums are made of
// the same operations in the same order as in track_walk.h. Included by a file that is compiled for
// AVX2: see sincos_kernel.h for what that forbids.

namespace zenithor {

// What SumMoments chooses from by the processor; the same bits from either. `millennia` are
// kMomentsAtOnce times; sums[k] is of the k-th, one double for each series.
void SumMomentsSse2(const TermTracks& tracks, const double* millennia, MomentsRoom& room,
                    double (*sums)[kMostEnds]);
#ifdef __x86_64__
void SumMomentsAvx2(const TermTracks& tracks, const double* millennia, MomentsRoom& room,
                    double (*sums)[kMostEnds]);
#endif

// One term of one track, for every moment: (A cos B) cos(C t) + (-A sin B) sin(C t).
template <class Four>
ZENITHOR_KERNEL void AddTerm(const double* cosines_sines, const double* product, Four& sum) {
  Four cosine, sine, of_cosine, of_sine;
  LoadFour(cosines_sines, cosine);
  LoadFour(cosines_sines + kMomentsAtOnce, sine);
  Repeat(product[0], of_cosine);
  Repeat(product[1], of_sine);
  sum = sum + (cosine * of_cosine + sine * of_sine);
}

// Hands over the sums of the series that ends; the next series of its track starts from 0.
template <class Four>
ZENITHOR_KERNEL void EndSeries(SeriesEnd end, Four& sum, double (*sums)[kMostEnds]) {
  double lanes[kMomentsAtOnce];
  StoreLanes(sum, lanes);
  for (int k = 0; k < kMomentsAtOnce; ++k) {
    sums[k][end.series] = lanes[k];
  }
  Repeat(0.0, sum);
}

template <class Four>
ZENITHOR_KERNEL void WalkMoments(const TermTracks& tracks, const double* millennia,
                                 MomentsRoom& room, double (*sums)[kMostEnds]) {
  constexpr std::size_t kOfFrequency = 2 * kMomentsAtOnce;
  Four t;
  LoadFour(millennia, t);
  for (std::int32_t k = 0; k < tracks.frequency_count; k += 2) {
    Four of_first, of_second;
    Repeat(tracks.frequencies[k], of_first);
    Repeat(tracks.frequencies[k + 1], of_second);
    Twice<Four> cosine, sine;
    CosinesAndSinesOfFour(Twice<Four>{of_first * t, of_second * t}, cosine, sine);
    double* const to = &room.cosines_sines[kOfFrequency * static_cast<std::size_t>(k)];
    StoreLanes(cosine.first, to);
    StoreLanes(sine.first, to + kMomentsAtOnce);
    StoreLanes(cosine.second, to + kOfFrequency);
    StoreLanes(sine.second, to + kOfFrequency + kMomentsAtOnce);
  }

  Four sum[kTrackCount];
  for (Four& each : sum) {
    Repeat(0.0, each);
  }
  const double* const cosines_sines = room.cosines_sines;
  const double* products = tracks.products;
  const std::uint16_t* indices = tracks.indices;  // twice those of the frequencies
  std::int32_t step = 0;
  for (std::int32_t e = 0; e < tracks.end_count; ++e) {
    const SeriesEnd end = tracks.ends[e];
    for (; step < end.step; ++step, products += 2 * kTrackCount, indices += kTrackCount) {
      AddTerm(cosines_sines + kOfFrequency / 2 * indices[0], products, sum[0]);
      AddTerm(cosines_sines + kOfFrequency / 2 * indices[1], products + 2, sum[1]);
      AddTerm(cosines_sines + kOfFrequency / 2 * indices[2], products + 4, sum[2]);
      AddTerm(cosines_sines + kOfFrequency / 2 * indices[3], products + 6, sum[3]);
    }
    EndSeries(end, sum[kLaneOfTrack[end.lane]], sums);
  }
}

}  // namespace zenithor
